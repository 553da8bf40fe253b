#include "auxstrip.h"
#include "channelstrip.h"
#include "mainsstrip.h"
#include "pagefixture.h"
#include "phonesstrip.h"
#include "reverbtabform.h"

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>

#include <climits>

// The pages of the outputs in the tab, and the reverb page beside it; all wires are connected.
class TestPages : public PageTestCase
{
    Q_OBJECT

    ChannelStripTab* tab = nullptr;
    ReverbTabForm* reverb = nullptr;
    MainsStrip* mains = nullptr;
    PhonesStrip* phones = nullptr;
    AuxStrip* aux3 = nullptr;

protected:
    void prepare() override
    {
        auto* parent = new QWidget;
        tab = new ChannelStripTab(parent);
        reverb = new ReverbTabForm(parent);
        reverb->move(0, tab->height());
        parent->resize(tab->width(), tab->height() + reverb->height());
        mains = tab->mainsStrip();
        phones = tab->phonesStrip();
        aux3 = tab->auxStrips().at(2);
        for (ParameterPage* page : parent->findChildren<ParameterPage*>())
            connectAll(page);
        connect(reverb, SIGNAL(signal_reverb_level(int)), mains, SLOT(slot_reverb_level(int)));
        connect(mains, SIGNAL(signal_reverb_level(int)), reverb, SLOT(slot_reverb_level(int)));
        showWindow(parent);
    }

private slots:
    void initTestCase() { PageTestCase::initTestCase(); }

    void choosing()
    {
        const auto* stack = tab->findChild<QStackedWidget*>();
        const QStringList names{"mains", "aux1", "aux2", "aux3", "phones"};
        type(box(tab->channelStrips().first(), "eq_hi_gain"), "5");
        for (const int channel : {8, 9, 10, 11, 12, 13, 14, INT_MAX, 0, INT_MIN}) {
            tab->slotSelectChannelStrip(channel);
            const QWidget* page = stack->currentWidget();
            const QString name = channel == 8 ? "ch8" : names.value(channel - 9, "phones");
            QCOMPARE(page->objectName(), "channelstrip_" + name);
            QCOMPARE(window->focusWidget(), page->findChild<QLabel*>("channelNumLabel"));
        }
        // A number that was being typed is not lost.
        QCOMPARE(heard.take(), once("channelstrip_ch1_eq_hi_gain=10500"));
    }

    void everyControlIsNamed()
    {
        for (const QWidget* widget : window->findChildren<QWidget*>())
            if (qobject_cast<const QAbstractSlider*>(widget) != nullptr
                || qobject_cast<const QAbstractButton*>(widget) != nullptr)
                QVERIFY2(widget->accessibleName().contains(", ") && !widget->toolTip().isEmpty(),
                         qPrintable(widget->objectName()));
        QCOMPARE(slider(tab->channelStrips().at(2), "eq_hi_gain")->accessibleName(),
                 "Channel 3, EQ high gain");
    }

    // Every aux control of every strip, turned on either side.
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
            const QSignalSpy toAux(strip, SIGNAL(signalPassValuestoAuxStrip(QString, int, int)));
            const QSignalSpy toStrip(aux,
                                     SIGNAL(signalPassValuestoChannelStrip(QString, int, int)));
            for (const bool isHere : {true, false}) {
                tab->slotSelectChannelStrip(isHere ? channel : 9 + bus);
                const QWidget* page = isHere ? static_cast<QWidget*>(strip) : aux;
                if (control == "pre_post")
                    click(button(page, isHere ? here : there));
                else if (control == "pan" || isHere)
                    drag(slider(page, isHere ? here : there), isHere ? 100 : 20);
                else
                    QTest::mouseClick(slider(page, there), Qt::LeftButton, {}, QPoint(4, 20));
                const QString value = state(page, isHere ? here : there).section(' ', 0, 0);
                QCOMPARE(heard.take(),
                         once(QString("channelstrip_ch%1_%2=%3").arg(channel).arg(here, value)));
                QCOMPARE(state(strip, here).section(' ', 0, 0), value);
                QCOMPARE(state(aux, there).section(' ', 0, 0), value);
                // What is mirrored is not passed back.
                QCOMPARE(toAux.size(), 1);
                QCOMPARE(toStrip.size(), isHere ? 0 : 1);
            }
        }
    }

    void auxShowsWhatArrives()
    {
        ChannelStrip* strip = tab->channelStrips().at(6);
        QCOMPARE(state(aux3, "ch7_send_level") + state(aux3, "ch7_pre_post"),
                 "3000 -70.00 dB0 PRE");
        QCOMPARE(resetPicture(aux3, "ch7_pan"), "on_purple");
        strip->slotReceiveChannelStripParams("channelstrip_ch7_aux3_routing_send_level", 8939);
        QCOMPARE(state(aux3, "ch7_send_level"), "8939 0.00 dB");
        QCOMPARE(heard.take(), stored("channelstrip_ch7_aux3_routing_send_level=8939"));
        strip->slotDisconnectToSysexSending();
        strip->slotRecallPreset({{"channelstrip_ch7_aux3_routing_send_level", 10600},
                                 {"channelstrip_ch7_aux3_routing_pre_post", 1},
                                 {"channelstrip_ch7_aux3_routing_pan", 10000}});
        for (const char* name : {"", "aux3_routing_nonsense", "aux9_routing_send_level"})
            aux3->slotReceiveValuesfromChannelStrip(name, 6, INT_MIN);
        aux3->slotReceiveValuesfromChannelStrip("aux3_routing_send_level", INT_MAX, INT_MIN);
        QCOMPARE(state(aux3, "ch7_send_level") + state(aux3, "ch7_pre_post"),
                 "10600 6.00 dB1 POST");
        QCOMPARE(resetPicture(aux3, "ch7_pan"), "off");
        QCOMPARE(heard.take(), "");
    }

    void passingThroughChangesNothing()
    {
        tab->slotSelectChannelStrip(9);
        passThroughBoxes(mains, 97);
        passThroughBoxes(reverb, 97);
        tab->slotSelectChannelStrip(12);
        passThroughBoxes(aux3, 31);
    }

    void mainsControls()
    {
        for (const QString change :
             {"eq_bypass=1", "eq_hi_freq=324 3.24 kHz", "eq_hi_gain=10000 0.00 dB",
              "eq_low_freq=276 276 Hz", "eq_low_gain=9400 -6.00 dB", "eq_mid_freq=346 346 Hz",
              "eq_mid_gain=10600 6.00 dB", "eq_mid_q=100 1.00", "compressor_bypass=1",
              "compressor_attack=10 10 ms", "compressor_gain=10400 4.00 dB",
              "compressor_release=50 50 ms", "compressor_thresh=10000 0.00 dB",
              "compressor_ratio=300 3.00", "gate_bypass=1", "gate_attack=11 11 ms",
              "gate_gain=7600 -24.00 dB", "gate_release=51 51 ms", "gate_thresh=3000 -inf dB"}) {
            const QString name = "channelstrip_mains_" + change.section('=', 0, 0);
            const QString value = change.section('=', 1).section(' ', 0, 0);
            mains->slotReceiveChannelStripParams(name, value.toInt());
            QCOMPARE(heard.take(), stored(name + '=' + value));
            QCOMPARE(state(mains, change.section('=', 0, 0)), change.section('=', 1));
        }
        for (const char* name : {"trim", "highPass_freq", "pan", "aux1_routing_pan"})
            QVERIFY(slider(mains, name) == nullptr);
    }

    // The level is the reverb page's; the mains have no key for it.
    void reverbLevelOnBothPages()
    {
        const QSignalSpy toReverb(mains, SIGNAL(signal_reverb_level(int)));
        const QSignalSpy toMains(reverb, SIGNAL(signal_reverb_level(int)));
        QCOMPARE(state(mains, "reverb_level"), "3000 -70.00 dB");
        tab->slotSelectChannelStrip(9);
        type(box(mains, "reverb_level"), "-20");
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
        QCOMPARE(heard.take(), once("reverbtab_level=5164"));
        QCOMPARE(state(reverb, "reverbtab_level"), "5164 -20.00 dB");
        QCOMPARE(toMains.size(), 0);
        QTest::mouseClick(slider(reverb, "reverbtab_level"), Qt::LeftButton, {}, QPoint(4, 0));
        QCOMPARE(heard.take(), once("reverbtab_level=10600"));
        QCOMPARE(state(mains, "reverb_level"), "10600 6.00 dB");
        QCOMPARE(toReverb.size(), 1);
        reverb->slotReceiveReverbParams("reverbtab_level", 8939);
        QCOMPARE(heard.take(), stored("reverbtab_level=8939"));
        mains->slotReceiveChannelStripParams("channelstrip_mains_reverb_level", 4000);
        mains->slotDisconnectToSysexSending();
        mains->slotRecallPreset({{"channelstrip_mains_reverb_level", 4000}});
        QCOMPARE(heard.take(), "");
        QCOMPARE(state(mains, "reverb_level"), "8939 0.00 dB");
    }

    void phonesHear()
    {
        tab->slotSelectChannelStrip(13);
        const QString key = "channelstrip_phones_monitor_select";
        const QList<QPushButton*> keys = phones->findChildren<QPushButton*>();
        const auto lit = [&keys] {
            QStringList texts;
            for (const QPushButton* each : keys)
                texts.append(each->isChecked() ? each->text() : QString());
            return texts.join("");
        };
        QString all;
        for (int channel = int(keys.size()); channel >= 1; --channel) {
            click(keys.at(channel - 1));
            QCOMPARE(heard.take(), once(QString("%1=%2").arg(key).arg(channel)));
            all.prepend(lit() + ' ');
        }
        QCOMPARE(all, "CH 1 CH 2 CH 3 CH 4 CH 5 CH 6 CH 7 CH 8 MAINS AUX 1 AUX 2 AUX 3 ");
        for (const int value : {9, 9, INT_MAX}) {
            phones->slotReceiveChannelStripParams(key, value);
            QCOMPARE(heard.take(), stored(QString("%1=%2").arg(key).arg(value)));
            QCOMPARE(lit(), value == 9 ? "MAINS" : "AUX 3");
        }
        phones->slotDisconnectToSysexSending();
        phones->slotRecallPreset({{key, 10}});
        QCOMPARE(lit(), "AUX 1");
        phones->slotRecallPreset({{key, "loud"}});
        QCOMPARE(lit(), "CH 1");
        QCOMPARE(heard.take(), "");
    }

    void reverbControls()
    {
        QList<QStringList> rows{
            {"level=3000 -70.00 dB", "level=10600 6.00 dB", "level=10000 3.94 dB"},
            {"pre_delay=0 0 ms", "pre_delay=200 200 ms", "pre_delay=20 20 ms"},
            {"decay_time=100 100 ms", "decay_time=10000 10000 ms", "decay_time=1000 1000 ms"},
            {"damping=0 0 %", "damping=100 100 %", "damping=50 50 %"},
            {"diffusion=0 0 %", "diffusion=100 100 %", "diffusion=50 50 %"},
            {"pre_post=0 PRE", "pre_post=1 POST"},
            {"bypass=0", "bypass=1"}};
        for (int channel = 1; channel <= 8; ++channel) {
            QStringList send{"level=3000 -70.00 dB", "level=10600 6.00 dB", "level=3001 -66.13 dB"};
            rows.append(send.replaceInStrings("level", QString("ch%1_send_level").arg(channel)));
        }
        for (const QStringList& row : rows) {
            // The first two are the ends of its range.
            const QString name = "reverbtab_" + row.first().section('=', 0, 0);
            if (const QAbstractSlider* control = slider(reverb, name); control != nullptr) {
                QVERIFY(row.at(0).contains(QString("=%1 ").arg(control->minimum())));
                QVERIFY(row.at(1).contains(QString("=%1 ").arg(control->maximum())));
            }
            for (const QString& change : row) {
                const QString value = change.section('=', 1).section(' ', 0, 0);
                reverb->slotReceiveReverbParams(name, value.toInt());
                QCOMPARE(heard.take(), stored(name + '=' + value));
                QCOMPARE(state(reverb, name), change.section('=', 1));
            }
        }
        for (const char* name : {"", "reverbtab_", "reverbtab_nonsense", "reverbtab_level_level"})
            reverb->slotReceiveReverbParams(name, 1);
        QCOMPARE(heard.take(), "");
        click(button(reverb, "reverbtab_pre_post"));
        QCOMPARE(heard.take(), once("reverbtab_pre_post=0"));
    }

    // The level of a new preset lies below the fader's end.
    void recalledLevelBelowTheFloor()
    {
        for (const int before : {3000, 9000}) {
            slider(reverb, "reverbtab_level")->setValue(before);
            reverb->slotDisconnectToSysexSending();
            heard.take();
            reverb->slotRecallPreset({{"reverbtab_level", 0}, {"reverbtab_ch5_send_level", 8939}});
            reverb->slotConnectToSysexSending();
            QCOMPARE(state(reverb, "reverbtab_level"), "3000 -70.00 dB");
            QCOMPARE(state(mains, "reverb_level"), "3000 -70.00 dB");
            box(reverb, "reverbtab_level")->setFocus();
            box(reverb, "reverbtab_level")->clearFocus();
            QCOMPARE(heard.take(), "");
        }
        QCOMPARE(state(reverb, "reverbtab_ch5_send_level"), "8939 0.00 dB");
    }
};

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
