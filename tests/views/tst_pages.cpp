#include "auxstrip.h"
#include "channelstrip.h"
#include "globalpage.h"
#include "globalpresetinterface.h"
#include "mainsstrip.h"
#include "pagefixture.h"
#include "phonesstrip.h"
#include "reverbtabform.h"
#include "selectallspinbox.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

// One control of each kind.
class Globals : public GlobalPage
{
    template <class Widget> Widget* add(const char* name, QWidget* parent)
    {
        auto* widget = new Widget(parent);
        widget->setObjectName(name);
        return widget;
    }

public:
    explicit Globals(GlobalPresetInterface* store)
        : GlobalPage(nullptr, "Globals", store)
    {
        add<SelectAllSpinbox>("led_brightness", hostWidget());
        add<QToolButton>("hardware_limiter", hostWidget())->setCheckable(true);
        add<QToolButton>("usbtab_ch1_input_prepost", hostWidget())->setCheckable(true);
        auto* format = add<QComboBox>("surroundtab_format", hostWidget());
        format->addItem("5.1", 1);
        format->addItem("7.1", 2);
        add<QComboBox>("usb_buffer", hostWidget())->addItems({"64", "128"});
        auto* voltage = add<QWidget>("phantom_voltage", hostWidget());
        add<QRadioButton>("phantom_voltage_48", voltage)->setText("+48V");
        add<QRadioButton>("phantom_voltage_12", voltage)->setText("+12V");
        QList<ControlRow> numbers{{.name = "led_brightness"}, {.name = "surroundtab_format"}};
        setParameters(numbers, {});
        adoptForm(numbers << ControlRow{.name = "usb_buffer"},
                  {{.name = "hardware_limiter", .textOff = "OFF", .textOn = "ON"},
                   {.name = "usbtab_ch1_input_prepost", .textOff = "PRE", .textOn = "POST"}},
                  {{.name = "phantom_voltage",
                    .buttons = {{"phantom_voltage_12", 0}, {"phantom_voltage_48", 1}}}});
    }
    using GlobalPage::receive;

    QString text(const QString& name) const
    {
        const auto* widget = findChild<QWidget*>(name);
        if (const auto* group = widget->findChild<QButtonGroup*>(); group != nullptr)
            return group->checkedButton()->text();
        return widget->property(widget->inherits("QComboBox") ? "currentText" : "text").toString();
    }
};

// All pages in the tab, and the reverb page beside it; all wires are connected.
class TestPages : public PageTestCase
{
    Q_OBJECT

    ChannelStripTab* tab = nullptr;
    ReverbTabForm* reverb = nullptr;
    MainsStrip* mains = nullptr;

    // Goes through every untouched box at many places of its control, and finds nothing changed.
    void passThroughBoxes(QWidget* page, int step)
    {
        for (QAbstractSlider* control : page->findChildren<QAbstractSlider*>()) {
            QAbstractSpinBox* number = box(page, control->objectName());
            for (int value = control->minimum(); number && value <= control->maximum();
                 value += step) {
                control->setValue(value);
                const QString before = state(page, control->objectName());
                heard.take();
                number->setFocus();
                QVERIFY(number->hasFocus());
                number->clearFocus();
                QCOMPARE(heard.take(), "");
                QCOMPARE(state(page, control->objectName()), before);
            }
        }
    }

    // As a user does.
    void touch(const Globals* page, const QString& key, const QString& value)
    {
        if (auto* menu = page->findChild<QComboBox*>(key); menu != nullptr) {
            menu->setCurrentIndex(1);
        } else if (auto* number = page->findChild<QSpinBox*>(key); number != nullptr) {
            number->clearFocus(); // or the wheel would turn it
            QWheelEvent wheel({}, {}, {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
            QApplication::sendEvent(number, &wheel);
            type(number, value);
            QCOMPARE(heard.take(), "");
            QTest::keyClick(number, Qt::Key_Return);
        } else {
            const bool isVoltage = key == "phantom_voltage";
            page->findChild<QAbstractButton*>(isVoltage ? key + "_12" : key)->click();
        }
    }

protected:
    void prepare() override
    {
        auto* parent = new QWidget;
        tab = new ChannelStripTab(parent);
        reverb = new ReverbTabForm(parent);
        reverb->move(0, tab->height());
        parent->resize(tab->width(), tab->height() + reverb->height());
        mains = tab->mainsStrip();
        for (PresetPage* page : parent->findChildren<PresetPage*>())
            connectAll(page);
        connect(reverb, SIGNAL(signal_reverb_level(int)), mains, SLOT(slot_reverb_level(int)));
        connect(mains, SIGNAL(signal_reverb_level(int)), reverb, SLOT(slot_reverb_level(int)));
        showWindow(parent);
    }

private slots:
    void passingThroughChangesNothing()
    {
        passThroughBoxes(tab->channelStrips().first(), 31);
        tab->slotSelectChannelStrip(9);
        passThroughBoxes(mains, 97);
        passThroughBoxes(reverb, 97);
        tab->slotSelectChannelStrip(12);
        passThroughBoxes(tab->auxStrips().at(2), 31);
    }

    // Every aux control of every strip, moved on either side.
    void auxMirror()
    {
        for (int i = 0; i < 72; ++i) {
            const int channel = i / 9 + 1;
            const int bus = i / 3 % 3 + 1;
            const QString control = QStringList{"pan", "send_level", "pre_post"}.at(i % 3);
            ChannelStrip* strip = tab->channelStrips().at(channel - 1);
            AuxStrip* aux = tab->auxStrips().at(bus - 1);
            const QString here = QString("aux%1_routing_%2").arg(bus).arg(control);
            const QString there = QString("ch%1_%2").arg(channel).arg(control);
            for (const bool isHere : {true, false}) {
                const QWidget* page = isHere ? static_cast<QWidget*>(strip) : aux;
                if (control == "pre_post")
                    button(page, isHere ? here : there)->setChecked(isHere);
                else
                    slider(page, isHere ? here : there)->setValue(isHere ? 10050 : 9950);
                const QString value = state(page, isHere ? here : there).section(' ', 0, 0);
                QCOMPARE(heard.take(),
                         once(QString("channelstrip_ch%1_%2=%3").arg(channel).arg(here, value)));
                QCOMPARE(state(strip, here).section(' ', 0, 0), value);
                QCOMPARE(state(aux, there).section(' ', 0, 0), value);
            }
        }
    }

    // The level is the reverb page's; the mains have no key for it.
    void reverbLevelOnBothPages()
    {
        slider(mains, "reverb_level")->setValue(5164);
        QCOMPARE(heard.take(), once("reverbtab_level=5164"));
        QCOMPARE(state(reverb, "reverbtab_level"), "5164 -20.00 dB");
        slider(reverb, "reverbtab_level")->setValue(10600);
        QCOMPARE(heard.take(), once("reverbtab_level=10600"));
        QCOMPARE(state(mains, "reverb_level"), "10600 6.00 dB");
        reverb->slotReceiveReverbParams("reverbtab_level", 8939);
        QCOMPARE(heard.take(), QString("store reverbtab_level=8939"));
        mains->slotReceiveChannelStripParams("channelstrip_mains_reverb_level", 4000);
        mains->slotDisconnectToSysexSending();
        mains->slotRecallPreset({{"channelstrip_mains_reverb_level", 4000}});
        QCOMPARE(heard.take(), "");
        QCOMPARE(state(mains, "reverb_level"), "8939 0.00 dB");
    }

    // The level of a new preset lies below the fader's end, and is kept.
    void recalledLevelBelowTheFloor()
    {
        for (const int before : {3000, 9000}) {
            slider(reverb, "reverbtab_level")->setValue(before);
            reverb->slotDisconnectToSysexSending();
            heard.take();
            reverb->slotRecallPreset({{"reverbtab_level", 0}});
            reverb->slotConnectToSysexSending();
            QCOMPARE(state(mains, "reverb_level"), "3000 -70.00 dB");
            box(reverb, "reverbtab_level")->setFocus();
            box(reverb, "reverbtab_level")->clearFocus();
            QCOMPARE(heard.take(), "");
        }
    }

    void phonesHear()
    {
        PhonesStrip* phones = tab->phonesStrip();
        const QString key = "channelstrip_phones_monitor_select";
        const QList<QPushButton*> keys = phones->findChildren<QPushButton*>();
        tab->slotSelectChannelStrip(13);
        for (int channel = 12; channel >= 1; --channel) {
            click(keys.at(channel - 1));
            QCOMPARE(heard.take(), once(QString("%1=%2").arg(key).arg(channel)));
        }
        phones->slotDisconnectToSysexSending();
        phones->slotRecallPreset({{key, 10}});
        QVERIFY(keys.at(9)->isChecked());
        phones->slotReceiveChannelStripParams(key, 13); // as it came, though there is no such key
        QVERIFY(keys.at(11)->isChecked());
        QCOMPARE(heard.take(), QString("store %1=13").arg(key));
    }

    // Moved by the user; heard back; told what it can't show; recalled without a number.
    void globals()
    {
        GlobalPresetInterface globalStore;
        auto* page = new Globals(&globalStore);
        connect(page, SIGNAL(signalStoreGlobal(QString, QVariant)), &heard,
                SLOT(storeGlobal(QString, QVariant)));
        connect(page, SIGNAL(signalSendParameter(QString, int)), &heard, SLOT(send(QString, int)));
        page->slotConnectElements();
        page->slotConnectToSysexSending();
        showWindow(page);
        const QStringList rows[]{
            {"led_brightness", "9", "9", "9", "99", "99", "31", "16"},
            {"hardware_limiter", "1", "1", "ON", "5", "1", "ON", "OFF"},
            {"usbtab_ch1_input_prepost", "1", "true", "POST", "0", "false", "PRE", "PRE"},
            {"surroundtab_format", "2", "2", "7.1", "0", "", "7.1", "5.1"},
            {"phantom_voltage", "0", "0", "+12V", "5", "", "+12V", "+48V"},
        };
        for (const QStringList& row : rows) {
            const QString& key = row.first();
            const QString store = QString("store %1=").arg(key);
            globalStore.globalSaveTicks = 400;
            touch(page, key, row.at(1));
            QCOMPARE(page->text(key), row.at(3));
            QCOMPARE(heard.take(), store + row.at(2) + QString(", send %1=%2").arg(key, row.at(1)));
            QCOMPARE(globalStore.globalSaveTicks, 0);
            page->receive(key, row.at(1).toInt());
            QCOMPARE(heard.take(), store + row.at(2));
            page->receive(key, row.at(4).toInt());
            QCOMPARE(heard.take(), row.at(5).isEmpty() ? "" : store + row.at(5));
            QCOMPARE(page->text(key), row.at(6));
            page->slotRecallGlobal({{key, "loud"}});
            QCOMPARE(heard.take(), "");
            QCOMPARE(page->text(key), row.at(7));
        }
        QVERIFY(globalStore.globalSaveTimer->isActive());
        page->findChild<QComboBox*>("usb_buffer")->setCurrentIndex(1); // no parameter
        page->slotRecallGlobal({});
        QCOMPARE(heard.take(), "");
        QCOMPARE(page->text("usb_buffer"), "128");
    }
};

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
