#include "channelstrip.h"
#include "pagefixture.h"

#include <QSignalSpy>

#include <climits>

// The eight strips in their tab; both wires of all are connected, and the selection is empty.
class TestChannelStrip : public PageTestCase
{
    Q_OBJECT

    ChannelStripTab* tab = nullptr;
    ChannelStrip* strip = nullptr; // of channel 1, shown

    ChannelStrip* stripOf(int channel) const { return tab->channelStrips().at(channel - 1); }
    static QString key(int channel, const QString& name)
    {
        return QString("channelstrip_ch%1_%2").arg(channel).arg(name);
    }
    void receive(const QString& change)
    {
        const int value = change.section('=', 1).toInt();
        for (ChannelStrip* each : tab->channelStrips())
            each->slotReceiveChannelStripParams(change.section('=', 0, 0), value);
    }
    // Which wires of a strip are connected.
    QString wiresOf(ChannelStrip* page)
    {
        QAbstractSlider* dial = slider(page, "highPass_freq");
        heard.take();
        dial->setValue(dial->value() < 200 ? 300 : 100);
        return heard.take().remove(QRegularExpression(" channelstrip_[^,]*"));
    }

protected:
    void prepare() override
    {
        tab = new ChannelStripTab;
        strip = stripOf(1);
        for (ChannelStrip* each : tab->channelStrips())
            connectAll(each);
        showWindow(tab);
    }

private slots:
    void typed()
    {
        const QStringList rows[]{
            {"1", "eq_mid_freq", "9000", "6000", "6.00 kHz"},
            {"1", "gate_thresh", "-69.98", "3001", "-69.98 dB"},
            // The box isn't rewritten from the dial that it has just set.
            {"1", "eq_mid_q", "1.13", "112", "1.13"},
            // To the nearest entry of the table, of two the lower.
            {"1", "trim", "12.34", "12", "12.00 dB"},
            {"2", "trim", "12.5", "12", "12.00 dB"},
            {"3", "trim", "-2.5", "13", "-3.00 dB"},
        };
        for (const QStringList& row : rows) {
            const int channel = row.at(0).toInt();
            tab->slotSelectChannelStrip(channel);
            type(box(stripOf(channel), row.at(1)), row.at(2));
            QCOMPARE(heard.take(), "");
            QTest::keyClick(window->focusWidget(), Qt::Key_Return);
            QCOMPARE(heard.take(), once(key(channel, row.at(1)) + '=' + row.at(3)));
            QCOMPARE(state(stripOf(channel), row.at(1)), row.at(3) + ' ' + row.at(4));
        }
        // Another page is shown before the number is confirmed.
        type(box(stripOf(3), "eq_hi_gain"), "5");
        tab->slotSelectChannelStrip(9);
        QCOMPARE(heard.take(), once(key(3, "eq_hi_gain=10500")));
    }

    void pressCommitsFirst()
    {
        for (const char* name : {"eq_bypass", "stereo", "eq_hi_gain_reset", "groupBox_Eq",
                                 "groupBox_Routing", "stereoGroup_frame"}) {
            slider(strip, "eq_hi_gain")->setValue(0);
            type(box(strip, "eq_hi_gain"), "5");
            heard.take();
            QTest::mouseClick(strip->findChild<QWidget*>(name), Qt::LeftButton, {}, QPoint(2, 2));
            QVERIFY(heard.take().startsWith("store channelstrip_ch1_eq_hi_gain=10500, "));
            QVERIFY(!box(strip, "eq_hi_gain")->hasFocus());
        }
    }

    void frequencyArrivesWhileItsBoxIsEdited()
    {
        type(box(strip, "eq_mid_freq"), "70");
        receive("channelstrip_ch1_eq_mid_freq=5000");
        box(strip, "eq_mid_freq")->clearFocus();
        QCOMPARE(state(strip, "eq_mid_freq"), "5000 5.00 kHz");
        QCOMPARE(heard.take(), "store channelstrip_ch1_eq_mid_freq=5000");
    }

    void received()
    {
        const QStringList rows[]{
            {"eq_hi_gain", "10500", "10500 5.00 dB"},
            {"eq_low_gain", "8200", "8200 -18.00 dB"}, // held already
            {"eq_hi_freq", "-2147483648", "300 3.00 kHz"},
            {"gate_gain", "-2147483648", "3600 -inf dB"},
            {"trim", "2147483647", "40 40.00 dB"},
            {"eq_bypass", "0", "0"}, // held already
            {"aux3_routing_pre_post", "1", "1 POST"},
        };
        for (const QStringList& row : rows) {
            const QString change = key(1, row.at(0)) + '=' + row.at(1);
            receive(change);
            QCOMPARE(heard.take(), "store " + change);
            QCOMPARE(state(strip, row.at(0)), row.at(2));
        }
        for (const char* name :
             {"", "channelstrip_ch1_", "channelstrip_ch12_pan", "channelstrip_ch1_nonsense",
              "channelstrip_ch1_pan_reset", "channelstrip_ch1_eq_hi_gain_level"}) {
            receive(QString("%1=1").arg(name));
            strip->slotLetOneChannelEffectAnother(name, 1);
            strip->slotReceiveValuesfromAuxStrip(name, 0, 1);
        }
        strip->slotReceiveValuesfromAuxStrip("ch1_pan", INT_MAX, 1);
        QCOMPARE(heard.take(), "");
        QCOMPARE(wiresOf(strip), "store, send");
        // A wire that was cut before stays so.
        strip->slotDisconnectToSysexSending();
        receive("channelstrip_ch1_pan=10000");
        QCOMPARE(wiresOf(strip), "store");
    }

    void recalled()
    {
        const QVariantMap preset{{"channelstrip_ch1_eq_hi_gain", 10500},
                                 {"channelstrip_ch1_compressor_ratio", 412.0},
                                 {"channelstrip_ch1_aux2_routing_pre_post", true},
                                 {"channelstrip_ch1_stereo", 1},
                                 {"channelstrip_ch2_stereo", 0}};
        for (const int channel : {1, 2})
            stripOf(channel)->slotRecallPreset(preset);
        QVERIFY(!heard.take().contains("store"));
        QCOMPARE(state(strip, "compressor_ratio"), "412 4.12");
        QCOMPARE(state(strip, "aux2_routing_pre_post"), "1 POST");
        QCOMPARE(state(strip, "stereo") + state(stripOf(2), "stereo"), "1 PAIRED1 PAIRED");
        QCOMPARE(wiresOf(strip), "store, send");
        strip->slotDisconnectToSysexSending();
        const std::pair<QVariant, int> nonsense[]{
            {{}, 8200}, {"loud", 8200}, {-1e300, 8200}, {1e300, 11800}, {INT_MAX, 11800}};
        for (const auto& [value, shown] : nonsense) {
            slider(strip, "eq_hi_gain")->setValue(10001);
            heard.take();
            strip->slotRecallPreset({{"channelstrip_ch1_eq_hi_gain", value}});
            QCOMPARE(heard.take(), "");
            QCOMPARE(slider(strip, "eq_hi_gain")->value(), shown);
        }
        QCOMPARE(wiresOf(strip), "store");
    }

    void forwarded()
    {
        using Channels = QList<int>;
        const std::pair<Channels, Channels> rows[]{
            {{1, 3, 5}, {1, 3, 5}}, {{1, 3, 5}, {3, 5}}, {{8, 2, 4}, {8, 2, 4}}};
        for (const auto& [selected, moved] : rows) {
            prepare();
            QStringList names;
            for (const int channel : selected)
                names.append(channels::selectName(channel));
            tab->selection().set(names);
            const int channel = moved.first();
            for (const QString change : {"eq_hi_gain=10500", "aux1_routing_pre_post=1"}) {
                receive(key(channel, change));
                QString expected = "store " + key(channel, change);
                for (const int other : moved.sliced(1))
                    expected += ", send " + key(other, change);
                QCOMPARE(heard.take(), expected);
            }
            receive(key(channel, "stereo=1"));
            for (int i = 1; i <= 8; ++i) {
                const bool isMoved = moved.contains(i);
                QCOMPARE(slider(stripOf(i), "eq_hi_gain")->value(), isMoved ? 10500 : 8200);
                QCOMPARE(button(stripOf(i), "aux1_routing_pre_post")->isChecked(), isMoved);
                const bool isPair = (i - 1) / 2 == (channel - 1) / 2;
                QCOMPARE(button(stripOf(i), "stereo")->isChecked(), isPair);
                QCOMPARE(wiresOf(stripOf(i)), "store, send");
            }
            ChannelStrip* last = stripOf(moved.last());
            last->slotRecallPreset({}); // its button said what another's is
            QCOMPARE(state(last, "stereo"), "0 OFF");
        }
    }

    // The pair has one key, its first channel's.
    void paired()
    {
        for (const QString by : {"click on 3", "click on 4", "mixer"}) {
            for (const int on : {1, 0}) {
                const QString change = key(3, QString("stereo=%1").arg(on));
                if (by == "mixer")
                    receive(change);
                else
                    button(stripOf(by.last(1).toInt()), "stereo")->click();
                for (const int channel : {3, 4})
                    QCOMPARE(state(stripOf(channel), "stereo"), on == 1 ? "1 PAIRED" : "0 OFF");
                const QString all = heard.take();
                QCOMPARE(all.count("store " + change), 1);
                QCOMPARE(all.count("send " + change), by == "mixer" ? 0 : 1);
                QCOMPARE(all.count("channelstrip_"), all.count(change));
            }
        }
    }

    void reset()
    {
        for (const QString name : {"eq_low_gain", "pan", "aux2_routing_pan"}) {
            QToolButton* middle = button(strip, name + "_reset");
            QVERIFY(middle->styleSheet().contains("pan_reset_on_"));
            click(middle);
            QCOMPARE(heard.take(), once(key(1, name + "=10000")));
            QVERIFY(middle->styleSheet().contains("pan_reset_off"));
        }
        // A page that nobody sees catches up when it is shown.
        slider(stripOf(2), "pan")->setValue(10000);
        tab->slotSelectChannelStrip(2);
        QVERIFY(button(stripOf(2), "pan_reset")->styleSheet().contains("pan_reset_off"));
    }

    // Two inputs have it. Told to the mixer once, and left alone by a recall.
    void phantom()
    {
        QSignalSpy globals(tab, SIGNAL(signalSendGlobalParameter(QString, int)));
        for (const int channel : {1, 2, 3}) {
            ChannelStrip* page = stripOf(channel);
            QToolButton* power = button(page, "phantom");
            QCOMPARE(power->isHidden(), channel == 3);
            tab->slotSelectChannelStrip(channel);
            for (const int on : {1, 0}) {
                if (on == 1 && channel < 3)
                    click(power);
                else
                    page->slotSetPhantom(on);
                page->slotSetPhantom(on);
                const QList<QVariantList> told{{QString("ch%1_phantom").arg(channel), on}};
                QCOMPARE(globals, channel < 3 ? told : QList<QVariantList>());
                globals.clear();
                page->slotRecallPreset({});
                QCOMPARE(power->isChecked(), on == 1);
                QCOMPARE(power->styleSheet().contains("rgb(255,0,0)"), on == 1);
            }
        }
    }
};

QTEST_MAIN(TestChannelStrip)
#include "tst_channelstrip.moc"
