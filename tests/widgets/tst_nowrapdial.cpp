#include "nowrapdial.h"
#include "testcase.h"

#include <QImage>
#include <QLineF>

#include <climits>

class TestNoWrapDial : public TestCase
{
    Q_OBJECT

    static constexpr int size = 200;
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
        using Angles = QList<int>;
        const std::tuple<bool, int, Angles, Angles> rows[]{
            {false, -50, {130, 190}, {90, 205, 270, 410}},
            {false, 100, {130, 270, 410}, {90}},
            {true, -100, {130, 270}, {90, 285, 410}},
            {true, 50, {271, 340}, {130, 255, 356, 410}},
        };
        dial->setRange(-100, 100);
        for (const auto& [centered, value, lit, dark] : rows) {
            dial->slotSetCenteredDial(centered);
            dial->setValue(value);
            QImage image(dial->size(), QImage::Format_RGB32);
            image.fill(Qt::black);
            dial->render(&image, {}, {}, {});
            const auto isLit = [&](int degrees) {
                QLineF radius = QLineF::fromPolar(size / 2.0 - dial->dialThickness(), -degrees);
                radius.translate(size / 2.0, size / 2.0);
                return qRed(image.pixel(radius.p2().toPoint())) > 80; // the track is darker
            };
            for (const int degrees : lit)
                QVERIFY2(isLit(degrees), qPrintable(QString::number(degrees)));
            for (const int degrees : dark)
                QVERIFY2(!isLit(degrees), qPrintable(QString::number(degrees)));
        }
    }
};

QTEST_MAIN(TestNoWrapDial)
#include "tst_nowrapdial.moc"
