#include "nowrapdial.h"
#include "testcase.h"

#include <QImage>
#include <QSignalSpy>
#include <QWheelEvent>
#include <QtMath>

#include <cmath>

namespace
{

constexpr int size = 200;

// A dial that is painted at eight device pixels a pixel, so that a tenth of a degree tells.
constexpr int paintedSize = 120;
constexpr int scale = 8;

enum Shade { Nothing, Track, Gap, Fill };

// A dial drawn on black, and what stands at an angle of its ring (degrees clockwise from three
// o'clock) or along a radius.
class Ring
{
public:
    explicit Ring(NoWrapDial& dial)
        : image(dial.size() * scale, QImage::Format_RGB32)
        , radius(scale * (dial.width() / 2.0 - dial.dialThickness()))
        , fill(dial.fillColor().rgb())
    {
        image.setDevicePixelRatio(scale);
        image.fill(Qt::black);
        dial.render(&image, {}, {}, {});
    }

    Shade at(double degrees) const { return at(degrees, radius); }

    // The two ends, in degrees, of what is lit or lies between lit segments; empty if nothing is.
    QList<double> lit() const
    {
        QList<double> ends;
        for (double degrees = 90.0; degrees < 450.0; degrees += 0.1) {
            if (at(degrees) < Gap)
                continue;
            if (ends.isEmpty())
                ends = {degrees, degrees};
            ends.last() = degrees;
        }
        return ends;
    }

private:
    Shade at(double degrees, double distance) const
    {
        const double angle = qDegreesToRadians(degrees);
        const double centre = image.width() / 2.0;
        const QRgb pixel = image.pixel(int(centre + distance * std::cos(angle)),
                                       int(centre + distance * std::sin(angle)));
        if (pixel == fill)
            return Fill;
        if (pixel == qRgb(95, 95, 95))
            return Gap;
        return pixel == qRgb(35, 35, 35) ? Track : Nothing;
    }

    QImage image;
    double radius;
    QRgb fill;
};

} // namespace

class TestNoWrapDial : public TestCase
{
    Q_OBJECT

    QScopedPointer<NoWrapDial> dial;

    void press(QPoint place)
    {
        QTest::mousePress(dial.get(), Qt::LeftButton, {}, place);
        at = place;
    }
    void up(int pixels)
    {
        at.ry() -= pixels;
        QTest::mouseMove(dial.get(), at);
    }
    void release() { QTest::mouseRelease(dial.get(), Qt::LeftButton, {}, at); }

    void wheel(int notches)
    {
        const QPointF place(size / 2.0, size / 2.0);
        QWheelEvent event(place, dial->mapToGlobal(place), {}, QPoint(0, 120 * notches),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(dial.get(), &event);
    }

    QPoint at;

protected:
    void prepare() override
    {
        dial.reset(new NoWrapDial);
        dial->resize(size, size);
        dial->show();
        QVERIFY(QTest::qWaitForWindowExposed(dial.get()));
    }

private slots:
    void drag_data()
    {
        QTest::addColumn<int>("minimum");
        QTest::addColumn<int>("maximum");
        QTest::addColumn<int>("start");
        QTest::addColumn<QList<int>>("moves");
        QTest::addColumn<int>("value");
        QTest::addColumn<float>("paintValue");
        using Moves = QList<int>;
        QTest::newRow("no movement") << 8200 << 11800 << 9000 << Moves{} << 9000 << 800 / 3600.0F;
        QTest::newRow("whole travel") << 8200 << 11800 << 8200 << Moves{200} << 11800 << 1.0F;
        QTest::newRow("no wrap at the top") << 0 << 1000 << 990 << Moves{50, 300} << 1000 << 1.0F;
        QTest::newRow("no wrap below") << 0 << 1000 << 10 << Moves{-50, -300} << 0 << 0.0F;
        QTest::newRow("excess is forgotten") << 0 << 1000 << 900 << Moves{70, -20} << 900 << 0.9F;
        // 40 steps: a pixel is a fifth of one, and rounds to the next at the third.
        QTest::newRow("below a step") << 0 << 40 << 10 << Moves{1, 1} << 10 << 0.26F;
        QTest::newRow("a step") << 0 << 40 << 10 << Moves{1, 1, 1} << 11 << 0.275F;
        QTest::newRow("the rest is lost") << 0 << 40 << 10 << Moves{4, 2} << 11 << 0.285F;
        QTest::newRow("widest range")
            << INT_MIN << INT_MAX << 0 << Moves{250, 250} << INT_MAX << 1.0F;
    }
    void drag()
    {
        QFETCH(int, minimum);
        QFETCH(int, maximum);
        QFETCH(int, start);
        QFETCH(QList<int>, moves);
        QFETCH(int, value);
        dial->setRange(minimum, maximum);
        dial->setValue(start);
        QSignalSpy changes(dial.get(), SIGNAL(valueChanged(int)));

        // The lower left, where the base class would jump to the minimum.
        press({20, size - 20});
        for (const int pixels : moves)
            up(pixels);
        release();

        QCOMPARE(dial->value(), value);
        QTEST(dial->paintValue(), "paintValue");
        if (moves.isEmpty())
            QCOMPARE(changes.size(), 0);
    }

    // The event filter sees what Qt would keep from a disabled widget.
    void disabledDialDoesNotTurn()
    {
        dial->setValue(50);
        dial->setEnabled(false);
        press({100, 100});
        up(40);
        QCOMPARE(dial->value(), 50);

        // Nor does it make up for the way when it is enabled under a held button.
        dial->setEnabled(true);
        up(0);
        QCOMPARE(dial->value(), 50);
        release();
    }

    // All that is not the drag is the base class's.
    void keysWheelAndDoubleClickMoveTheRing()
    {
        dial->setRange(3000, 10600);
        dial->setSingleStep(200);
        dial->setPageStep(400);
        dial->setValue(6800);
        QTest::keyClick(dial.get(), Qt::Key_Up);
        QCOMPARE(dial->value(), 7000);
        QTest::keyClick(dial.get(), Qt::Key_PageDown);
        QCOMPARE(dial->value(), 6600);
        QCOMPARE(dial->paintValue(), float(3600 / 7600.0));
        QTest::keyClick(dial.get(), Qt::Key_End);
        QCOMPARE(dial->paintValue(), 1.0F);
        wheel(-1);
        QVERIFY(dial->value() < 10600);
        QCOMPARE(dial->paintValue(), float((dial->value() - 3000) / 7600.0));
        QTest::mouseDClick(dial.get(), Qt::LeftButton, {}, {size / 2, 20});
        QCOMPARE(dial->value(), 6800);
        QCOMPARE(dial->paintValue(), 0.5F);
    }

    // Whatever the order of the calls, the paint value is a number, and follows the range.
    void rangeInAnyOrder()
    {
        for (const bool minimumFirst : {true, false}) {
            dial->setRange(0, 0);
            QCOMPARE(dial->paintValue(), 0.0F);
            minimumFirst ? dial->setMinimum(9900) : dial->setMaximum(10100);
            QVERIFY(dial->paintValue() >= 0.0F && dial->paintValue() <= 1.0F);
            dial->setRange(9900, 10100);
            dial->setValue(10000);
            QCOMPARE(dial->paintValue(), 0.5F);
            dial->setMaximum(10300);
            QCOMPARE(dial->value(), 10000);
            QCOMPARE(dial->paintValue(), 0.25F);
        }
    }

    // The ends of the ring's lit part.
    void litPart_data()
    {
        QTest::addColumn<bool>("centered");
        QTest::addColumn<int>("value");
        QTest::addColumn<QList<double>>("ends");
        using Ends = QList<double>;
        QTest::newRow("bottom") << false << -100 << Ends{};
        QTest::newRow("a quarter") << false << -50 << Ends{123, 196.5};
        QTest::newRow("top") << false << 100 << Ends{123, 417};
        QTest::newRow("centred, bottom") << true << -100 << Ends{123, 277};
        QTest::newRow("centred, a quarter") << true << -50 << Ends{194, 277};
        QTest::newRow("centred, centre mark alone") << true << 0 << Ends{265, 277};
        QTest::newRow("centred, just above") << true << 8 << Ends{265, 288.4};
        QTest::newRow("centred, three quarters") << true << 50 << Ends{265, 348};
        QTest::newRow("centred, top") << true << 100 << Ends{265, 419};
    }
    void litPart()
    {
        QFETCH(bool, centered);
        QFETCH(int, value);
        QFETCH(QList<double>, ends);
        dial->setRange(-100, 100);
        dial->slotSetCenteredDial(centered);
        dial->resize(paintedSize, paintedSize);
        dial->setValue(100);
        dial->setValue(value);

        const Ring ring(*dial);
        const QList<double> lit = ring.lit();
        QCOMPARE(lit.size(), ends.size());
        for (qsizetype end = 0; end < ends.size(); ++end)
            QVERIFY2(std::abs(lit[end] - ends[end]) < 0.4, qPrintable(QString::number(lit[end])));
        // Where it is not lit the track shows, but for the gap at the bottom.
        if (value < 100)
            QCOMPARE(ring.at(400), Track);
        if (centered == (value > -100))
            QCOMPARE(ring.at(140), Track);
        QCOMPARE(ring.at(90), Nothing);
    }
};

QTEST_MAIN(TestNoWrapDial)
#include "tst_nowrapdial.moc"
