#include "portableslider.h"
#include "testcase.h"

// A parent that hears what its fader lets pass.
class Neighbourhood : public QWidget
{
public:
    int heard = 0;

protected:
    void mousePressEvent(QMouseEvent*) override { ++heard; }
    void mouseMoveEvent(QMouseEvent*) override { ++heard; }
};

class TestPortableSlider : public TestCase
{
    Q_OBJECT

    QScopedPointer<Neighbourhood> around;
    PortableSlider* slider = nullptr;

protected:
    void prepare() override
    {
        around.reset(new Neighbourhood);
        slider = new PortableSlider(around.get());
        slider->setRange(3000, 10600);
        slider->setSingleStep(200);
        slider->setPageStep(400);
        slider->setValue(6000);
        slider->resize(30, 200);
        around->show();
        QVERIFY(QTest::qWaitForWindowExposed(around.get()));
    }

private slots:
    void handleFollowsThePointer()
    {
        QTest::mousePress(slider, Qt::LeftButton, {}, {15, 150});
        QCOMPARE(slider->value(), 4900);
        for (const auto& [y, value] :
             {std::pair(1, 10562), {-40, 10600}, {199, 3038}, {230, 3000}}) {
            QTest::mouseMove(slider, {15, y});
            QCOMPARE(slider->value(), value);
        }
        QCOMPARE(around->heard, 5);
        QTest::mouseRelease(slider, Qt::LeftButton, {}, {15, 230});

        QTest::mousePress(slider, Qt::RightButton, {}, {15, 230});
        QTest::mouseMove(slider, {15, 100});
        QTest::mouseRelease(slider, Qt::RightButton, {}, {15, 100});
        QCOMPARE(slider->value(), 3000);
    }
};

QTEST_MAIN(TestPortableSlider)
#include "tst_portableslider.moc"
