#include "globalpresetinterface.h"
#include "pagefixture.h"
#include "parametertable.h"
#include "surroundpuck.h"
#include "surroundroom.h"
#include "surroundtab.h"
#include "usbflow.h"
#include "usbtab.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QSignalSpy>

// The pages of the globals, side by side; all wires are connected.
class TestGlobalPages : public PageTestCase
{
    Q_OBJECT

    GlobalPresetInterface globals;
    SurroundTab* surround = nullptr;
    UsbTab* usb = nullptr;

    void connectGlobals(GlobalPage* page)
    {
        connect(page, SIGNAL(signalStoreGlobal(QString, QVariant)), &heard,
                SLOT(storeGlobal(QString, QVariant)));
        connect(page, SIGNAL(signalSendParameter(QString, int)), &heard, SLOT(send(QString, int)));
        page->slotConnectElements();
        page->slotConnectToSysexSending();
    }
    GlobalTab* pageOf(const QString& key) const
    {
        return key.startsWith("usb") ? static_cast<GlobalTab*>(usb) : surround;
    }
    QWidget* control(const QString& key) const { return window->findChild<QWidget*>(key); }
    QSpinBox* number(const QString& key) const { return window->findChild<QSpinBox*>(key); }
    SurroundRoom* room() const { return surround->findChild<SurroundRoom*>(); }
    SurroundPuck* puck(int rotary) const { return room()->pucks().at(rotary - 1); }

    void receive(const QString& key, int value) const
    {
        QMetaObject::invokeMethod(pageOf(key),
                                  key.startsWith("usb") ? "slotReceiveUSBParams"
                                                        : "slotReceiveSurroundParams",
                                  Q_ARG(QString, key), Q_ARG(int, value));
    }
    // As a user does.
    void touch(const QString& key, int value) const
    {
        if (number(key) != nullptr) {
            type(number(key), QString::number(value));
            QTest::keyClick(number(key), Qt::Key_Return);
        } else if (auto* choice = control(key)->findChild<QButtonGroup*>(); choice != nullptr) {
            click(choice->button(value));
        } else {
            click(control(key));
        }
    }
    int shown(const QString& key) const
    {
        if (number(key) != nullptr)
            return number(key)->value();
        const auto* choice = control(key)->findChild<QButtonGroup*>();
        return choice ? choice->checkedId() : int{button(window.get(), key)->isChecked()};
    }
    // Whether the puck is where its boxes tell, of a wall that is 137.5 pixels away.
    bool standsRight(int rotary) const
    {
        const QString key = QString("surroundtab_rotary%1_").arg(rotary);
        const double distance = number(key + "radius")->value() * 137.5 / 127;
        const QPointF told = QRectF(room()->rect()).center()
            + QLineF::fromPolar(distance, 90 - number(key + "angle")->value()).p2();
        return QLineF(QRectF(puck(rotary)->geometry()).center(), told).length() < 1;
    }
    static void drag(QWidget* puck, const QPoint& grip, const QPoint& way)
    {
        const QPoint from = puck->rect().center() + grip;
        QTest::mousePress(puck, Qt::LeftButton, {}, from);
        QMouseEvent move(QEvent::MouseMove, from + way, puck->mapToGlobal(from + way), Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(puck, &move);
        QTest::mouseRelease(puck, Qt::LeftButton);
    }

protected:
    void prepare() override
    {
        auto* parent = new QWidget;
        surround = new SurroundTab(parent, &globals);
        usb = new UsbTab(parent, &globals);
        usb->move(0, surround->height());
        parent->resize(surround->width(), 2 * surround->height());
        connectGlobals(surround);
        connectGlobals(usb);
        showWindow(parent);
    }

private slots:
    // Each is moved by the user, heard back, heard otherwise, and recalled without a value.
    void everyControl()
    {
        int count = 0;
        for (const Parameter& parameter : parametertable::globals()) {
            const QString& key = parameter.key;
            if (!key.startsWith("surroundtab_") && !key.startsWith("usbtab_"))
                continue;
            ++count;
            QCOMPARE(shown(key), parameter.factoryValue);
            const int other =
                parameter.factoryValue + (parameter.highest == parameter.factoryValue ? -1 : 1);
            const QString store = QString("store %1=%2").arg(key);
            const QString truth = usb == pageOf(key) ? "true" : QString::number(other);
            touch(key, other);
            QCOMPARE(heard.take(), store.arg(truth) + QString(", send %1=%2").arg(key).arg(other));
            receive(key, other);
            QCOMPARE(heard.take(), store.arg(truth));
            pageOf(key)->slotRecallGlobal({});
            QCOMPARE(heard.take(), "");
            QCOMPARE(shown(key), parameter.factoryValue);
        }
        QCOMPARE(count, 35);
    }

    // What the keys and the mouse change; it is dragged from where it is gripped.
    void pucks()
    {
        const struct {
            int radius, angle;
            Qt::Key key;
            QPoint grip, way;
            QStringList changes;
        } rows[]{
            {63, 0, Qt::Key_Up, {}, {}, {"radius=64"}},
            {63, 0, Qt::Key_Down, {}, {}, {"radius=62"}},
            {63, 0, Qt::Key_Left, {}, {}, {"angle=359"}},
            {63, 359, Qt::Key_Right, {}, {}, {"angle=0"}},
            {127, 90, Qt::Key_Up, {}, {}, {}},
            {0, 90, Qt::Key_Down, {}, {}, {}},
            {63, 200, {}, {3, -6}, {0, 0}, {}},
            {60, 90, {}, {0, 0}, {-65, 0}, {"radius=0"}}, // just past the middle, which has no
                                                          // direction
            {0, 90, {}, {5, 5}, {0, 50}, {"radius=46", "angle=180"}},
            {64, 90, {}, {-5, 5}, {300, 0}, {"radius=127"}},
            {64, 0, {}, {0, 0}, {-1, 0}, {"angle=359"}},
        };
        for (const auto& [radius, angle, key, grip, way, changes] : rows) {
            receive("surroundtab_rotary4_radius", radius);
            receive("surroundtab_rotary4_angle", angle);
            heard.take();
            if (key != Qt::Key{})
                QTest::keyClick(puck(4), key);
            else
                drag(puck(4), grip, way);
            QVERIFY(standsRight(4));
            QString all;
            for (const char* wire : {"store", "send"})
                for (const QString& change : changes)
                    all += QString(", %1 surroundtab_rotary4_%2").arg(wire, change);
            QCOMPARE(heard.take(), all.mid(2));
        }
    }

    void boxesMovePucks()
    {
        touch("surroundtab_rotary1_angle", 270);
        touch("surroundtab_rotary1_radius", 127);
        QVERIFY(standsRight(1));
        number("surroundtab_rotary1_angle")->setValue(359);
        heard.take();
        QTest::keyClick(number("surroundtab_rotary1_angle"), Qt::Key_Up);
        QCOMPARE(heard.take(), once("surroundtab_rotary1_angle=0"));
        QVERIFY(standsRight(1));
        touch("surroundtab_bass_management", 120);
        number("surroundtab_bass_management")->setFocus();
        heard.take();
        QTest::keyClick(number("surroundtab_bass_management"), Qt::Key_O);
        QCOMPARE(number("surroundtab_bass_management")->text(), "off");
        QCOMPARE(heard.take(), once("surroundtab_bass_management=39"));
    }

    // From the factory all stand on one point. The ground takes the focus from a number alone.
    void focusOfPucks()
    {
        puck(1)->setFocus();
        for (int rotary = 1; rotary <= 4; ++rotary) {
            QCOMPARE(QApplication::focusWidget(), puck(rotary));
            QCOMPARE(room()->childAt(puck(rotary)->geometry().center()), puck(rotary));
            QTest::keyClick(puck(rotary), Qt::Key_Tab);
        }
        puck(3)->setFocus();
        QTest::mouseClick(control("groupBox_Channels"), Qt::LeftButton, {}, {4, 4});
        QVERIFY(puck(3)->hasFocus());
        type(number("surroundtab_rotary3_radius"), "5");
        QTest::mouseClick(room(), Qt::LeftButton, {}, {4, 4});
        QCOMPARE(heard.take(), once("surroundtab_rotary3_radius=5"));
    }

    void toldAndShown()
    {
        QSignalSpy enabled(surround, SIGNAL(signalSurroundEnabled(bool)));
        const auto told = [&enabled] {
            return enabled.isEmpty() ? QVariant() : enabled.takeLast().at(0);
        };
        click(control("surroundtab_enable"));
        QCOMPARE(told(), true);
        receive("surroundtab_enable", 0);
        QCOMPARE(told(), false);
        surround->slotRecallGlobal({{"surroundtab_enable", 1}});
        QCOMPARE(told(), true);
        surround->slotRecallGlobal({{"surroundtab_enable", 1}});
        QCOMPARE(told(), true);
        receive("surroundtab_ch8_assign", 0);
        receive("surroundtab_ch7_assign", 4); // there is no fifth
        QCOMPARE(puck(1)->carried(), QStringList({"1", "2", "8"}));
        QCOMPARE(puck(4)->carried(), QStringList({"7"}));

        // What is drawn follows too.
        auto* flow = usb->findChild<UsbFlow*>();
        const struct {
            QWidget* picture;
            QString key;
            int value;
        } rows[]{
            {room(), "surroundtab_format", 0},      {room(), "surroundtab_format", 2},
            {room(), "surroundtab_enable", 0},      {flow, "usbtab_ch1_input_prepost", 1},
            {flow, "usbtab_ch1_output_prepost", 1},
        };
        for (const auto& [picture, key, value] : rows) {
            const QImage before = picture->grab().toImage();
            pageOf(key)->slotRecallGlobal({{key, value}});
            QVERIFY2(picture->grab().toImage() != before, qPrintable(key));
        }
        for (GlobalTab* page : {pageOf("usb"), pageOf("surround")}) {
            QSignalSpy save(page, SIGNAL(signalGlobalSendClicked()));
            click(page->findChild<QPushButton*>("globalSendButton"));
            QCOMPARE(save.size(), 1);
        }
    }
};

QTEST_MAIN(TestGlobalPages)
#include "tst_globalpages.moc"
