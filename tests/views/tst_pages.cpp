#include "auxstrip.h"
#include "channelstrip.h"
#include "mainsstrip.h"
#include "pagefixture.h"
#include "phonesstrip.h"
#include "reverbtabform.h"

#include <QPushButton>
#include <QSignalSpy>

#include <climits>

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

protected:
    void prepare() override
    {
        auto* parent = new QWidget;
        tab = new ChannelStripTab(parent);
        reverb = new ReverbTabForm(parent);
        reverb->move(0, tab->height());
        parent->resize(tab->width(), tab->height() + reverb->height());
        mains = tab->mainsStrip();
        for (ParameterPage* page : parent->findChildren<ParameterPage*>())
            connectAll(page);
        connect(reverb, SIGNAL(signal_reverb_level(int)), mains, SLOT(slot_reverb_level(int)));
        connect(mains, SIGNAL(signal_reverb_level(int)), reverb, SLOT(slot_reverb_level(int)));
        showWindow(parent);
    }

private slots:
    // In a narrower range the value of a preset would be lost.
    void ranges()
    {
        const QStringList rows[]{
            {"eq_hi_gain", "8200 -18.00 dB", "11800 18.00 dB"},
            {"eq_hi_freq", "300 3.00 kHz", "2000 20.00 kHz"},
            {"eq_mid_q", "10 0.10", "1000 10.00"},
            {"highPass_freq", "40 40 Hz", "400 400 Hz"},
            {"trim", "0 0.00 dB", "40 40.00 dB"},
            {"compressor_gain", "10000 0.00 dB", "12400 24.00 dB"},
            {"compressor_release", "1 1 ms", "3000 3000 ms"},
            {"compressor_ratio", "0 0.00", "1000 10.00"},
            {"gate_gain", "3600 -inf dB", "10000 0.00 dB"},
            {"pan", "9900", "10100"},
            {"aux1_routing_send_level", "3000", "10600"},
            {"ch8_pan", "9900", "10100"},
            {"ch8_send_level", "3000 -70.00 dB", "10600 6.00 dB"},
            {"reverb_level", "3000 -70.00 dB", "10600 6.00 dB"},
            {"reverbtab_ch8_send_level", "3000 -70.00 dB", "10600 6.00 dB"},
            {"reverbtab_pre_delay", "0 0 ms", "200 200 ms"},
            {"reverbtab_decay_time", "100 100 ms", "10000 10000 ms"},
            {"reverbtab_diffusion", "0 0 %", "100 100 %"},
        };
        int controls = 0;
        for (const QStringList& row : rows) {
            for (const QWidget* page : std::initializer_list<const QWidget*>{
                     tab->channelStrips().first(), tab->auxStrips().at(2), mains, reverb}) {
                QAbstractSlider* control = slider(page, row.first());
                if (control == nullptr)
                    continue;
                ++controls;
                control->setValue(INT_MIN);
                QCOMPARE(state(page, row.first()), row.at(1));
                control->setValue(INT_MAX);
                QCOMPARE(state(page, row.first()), row.at(2));
            }
        }
        QCOMPARE(controls, 25);
    }

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
            const QSignalSpy toAux(strip, SIGNAL(signalPassValuestoAuxStrip(QString, int, int)));
            const QSignalSpy toStrip(aux,
                                     SIGNAL(signalPassValuestoChannelStrip(QString, int, int)));
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
            // What is mirrored is not passed back.
            QCOMPARE(toAux.size(), 1);
            QCOMPARE(toStrip.size(), 1);
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
        phones->slotReceiveChannelStripParams(key, 9);
        QCOMPARE(heard.take(), QString("store %1=9").arg(key));
        QVERIFY(keys.at(8)->isChecked() && !keys.at(0)->isChecked());
        phones->slotDisconnectToSysexSending();
        phones->slotRecallPreset({{key, 10}});
        QVERIFY(keys.at(9)->isChecked());
        phones->slotRecallPreset({{key, "loud"}});
        QVERIFY(keys.at(0)->isChecked());
        QCOMPARE(heard.take(), "");
    }
};

QTEST_MAIN(TestPages)
#include "tst_pages.moc"
