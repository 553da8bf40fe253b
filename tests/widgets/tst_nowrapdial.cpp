#include "nowrapdial.h"
#include "testcase.h"

#include <QImage>
#include <QLineF>
#include <QPainter>

#include <climits>

class TestNoWrapDial : public TestCase
{
    Q_OBJECT

    static constexpr int size = 200;

    // What the dial looks like along the middle of its ring, magnified.
    class Ring
    {
        static constexpr int scale = 8;
        QImage image{size * scale, size* scale, QImage::Format_RGB32};
        const double radius;

    public:
        explicit Ring(NoWrapDial* dial)
            : radius(size / 2.0 - dial->dialThickness())
        {
            image.fill(Qt::black);
            QPainter painter(&image);
            painter.scale(scale, scale);
            dial->render(&painter, {}, {}, {});
        }
        QRgb at(double degrees) const
        {
            const QPointF place = QLineF::fromPolar(radius, -degrees).p2() * scale;
            return image.pixel((place + image.rect().center()).toPoint());
        }
    };

    QScopedPointer<NoWrapDial> dial;
    QPoint at;

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

protected:
    void prepare() override
    {
        dial.reset(new NoWrapDial);
        dial->resize(size, size);
        dial->show();
        QVERIFY(QTest::qWaitForWindowExposed(dial.get()));
    }

private slots:
    void drag()
    {
        const std::tuple<int, int, int, QList<int>, int, float> rows[]{
            {0, 1000, 990, {50, 300}, 1000, 1.0F}, // no wrap
            {0, 1000, 900, {70, -20}, 900, 0.9F},  // excess is forgotten
            // 40 steps: a pixel is a fifth of one, and rounds to the next at the third.
            {0, 40, 10, {1, 1, 1}, 11, 0.275F},
            {0, 40, 10, {4, 2}, 11, 0.285F}, // the rest is lost
            {INT_MIN, INT_MAX, 0, {250, 250}, INT_MAX, 1.0F},
        };
        for (const auto& [minimum, maximum, start, moves, value, paintValue] : rows) {
            dial->setRange(minimum, maximum);
            dial->setValue(start);
            // The lower left, where the base class would jump to the minimum.
            press({20, size - 20});
            for (const int pixels : moves)
                up(pixels);
            release();
            QCOMPARE(dial->value(), value);
            QCOMPARE(dial->paintValue(), paintValue);
        }
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

    // Whatever the order of the calls, the paint value is a number, and follows the range.
    void rangeInAnyOrder()
    {
        dial->setRange(0, 0);
        QCOMPARE(dial->paintValue(), 0.0F);
        dial->setMinimum(9900);
        QVERIFY(dial->paintValue() >= 0.0F && dial->paintValue() <= 1.0F);
        dial->setMaximum(10100);
        dial->setValue(10000);
        QCOMPARE(dial->paintValue(), 0.5F);
        dial->setMaximum(10300);
        QCOMPARE(dial->paintValue(), 0.25F);
    }

    // Along the ring, in degrees clockwise from three o'clock.
    void painted()
    {
        using Angles = QList<double>;
        const std::tuple<bool, int, Angles, Angles> rows[]{
            {false, -50, {130, 190}, {90, 205, 270, 410}},
            {false, 100, {130, 270, 410}, {90}},
            {true, -100, {130, 270}, {90, 285, 410}},
            // The right half begins where the mark ends, at 277, before its own track.
            {true, 50, {271, 277.5, 347.5}, {130, 255, 348.5, 356, 410}},
        };
        dial->setRange(-100, 100);
        for (const auto& [centered, value, lit, dark] : rows) {
            dial->slotSetCenteredDial(centered);
            dial->setValue(value);
            const Ring ring(dial.get());
            for (const double degrees : lit)
                QVERIFY2(qRed(ring.at(degrees)) > 80, qPrintable(QString::number(degrees)));
            for (const double degrees : dark) // the track is darker than the gaps
                QVERIFY2(qRed(ring.at(degrees)) < 80, qPrintable(QString::number(degrees)));
        }
    }

    // Each thickness has segments of its own.
    void segments()
    {
        const std::tuple<int, double, double> rows[]{
            // The thickness; the degrees of a segment and of a gap.
            {4, 3.283, 0.955},
            {6, 5.547, 1.323},
            {8, 5.605, 1.457},
            {5, 3.981, 0.796},
        };
        dial->setValue(dial->maximum());
        for (const auto& [thickness, segment, gap] : rows) {
            dial->slotSetDialThickness(thickness);
            const Ring ring(dial.get());
            for (const int number : {0, 20, 40}) {
                const double begin = 123 + number * (segment + gap);
                for (const double inside : {0.2, segment - 0.2})
                    QVERIFY(qBlue(ring.at(begin + inside)) < 20); // yellow
                QVERIFY(qBlue(ring.at(begin + segment + gap / 2)) > 80);
            }
        }
    }
};

QTEST_MAIN(TestNoWrapDial)
#include "tst_nowrapdial.moc"
