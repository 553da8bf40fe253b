#include "channelstrip.h"
#include "freqspinbox.h"
#include "nowrapdial.h"
#include "pagefixture.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QWheelEvent>
#include <qtestspontaneevent.h>

#include <climits>

// The eight strips in their tab; both wires of all are connected, and the selection is empty.
class TestChannelStrip : public PageTestCase
{
    Q_OBJECT

    ChannelStripTab* tab = nullptr;
    ChannelStrip* strip = nullptr; // of channel 1, shown
    QString deselected;

    ChannelStrip* stripOf(int channel) const { return tab->channelStrips().at(channel - 1); }
    static QString key(int channel, const QString& name)
    {
        return QString("channelstrip_ch%1_%2").arg(channel).arg(name);
    }
    void select(const QList<int>& channels)
    {
        QStringList names;
        for (const int channel : channels)
            names.append(QString("faderframe_ch%1_select").arg(channel));
        tab->selection().set(names);
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
        drag(dial, dial->value() < 200 ? 1 : -1);
        return heard.take().remove(QRegularExpression(" channelstrip_[^,]*"));
    }

protected:
    void prepare() override
    {
        tab = new ChannelStripTab;
        strip = stripOf(1);
        for (ChannelStrip* each : tab->channelStrips()) {
            connectAll(each);
            connect(each, SIGNAL(signalDeselectChannel(int)), SLOT(deselect(int)));
            connect(each, SIGNAL(signalDeselectAll()), SLOT(deselectAll()));
        }
        connect(tab, SIGNAL(signalSendGlobalParameter(QString, int)), &heard,
                SLOT(global(QString, int)));
        deselected.clear();
        showWindow(tab);
    }

public slots:
    // What the full-power view does.
    void deselect(int channel)
    {
        deselected += QString::number(channel);
        QStringList names = tab->selection().names();
        names.removeAll(QString("faderframe_ch%1_select").arg(channel));
        tab->selection().set(names);
    }
    void deselectAll()
    {
        deselected += "all";
        select({});
    }

private slots:
    void initTestCase() { PageTestCase::initTestCase(); }

    void controls_data()
    {
        QTest::addColumn<QList<int>>("values"); // lowest, of a new preset, highest
        QTest::addColumn<QString>("shown");     // at these
        QTest::addColumn<QString>("look");      // colour, thickness, whether centred
        QTest::addColumn<QString>("toolTip");
        const auto row = [](const QString& name, const QList<int>& values, const QString& shown,
                            const QString& look, const QString& toolTip = {}) {
            QTest::newRow(qPrintable(name)) << values << shown << look << toolTip;
        };
        const QList<int> gain{8200, 10000, 11800};
        QString dB = "-18.00 dB/0.00 dB/18.00 dB";
        QString hz = "3.00 kHz/3.24 kHz/20.00 kHz";
        row("eq_hi_gain", gain, dB, "#03aeef 5 1", "±18dB");
        row("eq_mid_gain", gain, dB, "#ffff00 5 1", "±18dB");
        row("eq_low_gain", gain, dB, "#eb078b 5 1", "±18dB");
        row("eq_hi_freq", {300, 324, 2000}, hz, "#03aeef 5 0", "3kHz – 20kHz");
        hz = "200 Hz/346 Hz/6.00 kHz";
        row("eq_mid_freq", {200, 346, 6000}, hz, "#ffff00 4 0", "200Hz – 6kHz");
        hz = "20 Hz/276 Hz/400 Hz";
        row("eq_low_freq", {20, 276, 400}, hz, "#eb078b 5 0", "20Hz – 400Hz");
        row("eq_mid_q", {10, 100, 1000}, "0.10/1.00/10.00", "#ffff00 4 0", "0.1 – 10");
        row("highPass_freq", {40, 80, 400}, "40 Hz/80 Hz/400 Hz", "#f2f2f2 5 0");
        row("trim", {0, 0, 40}, "0.00 dB/0.00 dB/40.00 dB", "#f2f2f2 5 0");
        QString look = "#02a651 6 0";
        dB = "0.00 dB/0.00 dB/24.00 dB";
        row("compressor_gain", {10000, 10000, 12400}, dB, look, "0dB – +24dB");
        dB = "-inf dB/0.00 dB/10.00 dB";
        row("compressor_thresh", {3000, 10000, 11000}, dB, look, "-inf – +10dB");
        row("compressor_attack", {1, 10, 1000}, "1 ms/10 ms/1000 ms", look, "1ms – 1000ms");
        row("compressor_release", {1, 50, 3000}, "1 ms/50 ms/3000 ms", look, "1ms – 5000ms");
        row("compressor_ratio", {0, 300, 1000}, "0.00/3.00/10.00", look, "0.0 – 10.0");
        look = "#f1592a 6 0";
        row("gate_thresh", {3000, 10000, 11000}, dB, look, "-inf – +10dB");
        dB = "-inf dB/-24.00 dB/0.00 dB";
        row("gate_gain", {3600, 7600, 10000}, dB, look, "-inf – 0dB");
        row("gate_attack", {1, 10, 1000}, "1 ms/10 ms/1000 ms", look, "1ms – 5000ms");
        row("gate_release", {1, 50, 3000}, "1 ms/50 ms/3000 ms", look, "1ms – 5000ms");
        row("pan", {9900, 10000, 10100}, "", "#9a6aad 5 1");
        for (const QString aux : {"aux1_routing_", "aux2_routing_", "aux3_routing_"}) {
            row(aux + "pan", {9900, 10000, 10100}, "", "#9a6aad 4 1");
            row(aux + "send_level", {3000, 3000, 10600}, "", "#9a6aad 4 0");
        }
    }
    void controls()
    {
        QFETCH(QList<int>, values);
        QFETCH(QString, shown);
        QFETCH(QString, toolTip);
        const QString name = QTest::currentDataTag();
        auto* dial = strip->findChild<NoWrapDial*>(name);
        QVERIFY(dial != nullptr);
        const QStringList look{dial->fillColor().name(), QString::number(dial->dialThickness()),
                               QString::number(dial->isCentered())};
        QTEST(look.join(' '), "look");
        QVERIFY(toolTip.isEmpty() || dial->toolTip() == toolTip);
        if (name.contains("send_level"))
            QCOMPARE(QPoint(dial->singleStep(), dial->pageStep()), QPoint(200, 400));
        QAbstractSpinBox* number = box(strip, name);
        QCOMPARE(number == nullptr, shown.isEmpty());
        // The first stands there already when it is built, and the ends are those of the range.
        for (int i = 0; i < 3; ++i) {
            const QString text = shown.section('/', i, i);
            QCOMPARE(state(strip, name), QString("%1 %2").arg(values.at(i)).arg(text).trimmed());
            dial->setValue(i == 0 ? values.at(1) : INT_MAX);
        }
        QCOMPARE(dial->minimum(), values.first());
        if (number == nullptr || name == "trim")
            return;
        // The box has the same ends; only the trim's goes further than its table.
        for (const int end : {INT_MIN, INT_MAX}) {
            if (auto* freq = qobject_cast<FreqSpinBox*>(number); freq != nullptr)
                freq->slotSetFrequencyScaling(end);
            else
                number->setProperty("value", end);
            QCOMPARE(number->text(), shown.section('/', end < 0 ? 0 : 2, end < 0 ? 0 : 2));
        }
    }

    void built()
    {
        const QStringList words{"ONE", "TWO", "THREE", "FOUR", "FIVE", "SIX", "SEVEN", "EIGHT"};
        for (int channel = 1; channel <= 8; ++channel) {
            const ChannelStrip* page = stripOf(channel);
            QCOMPARE(page->size(), QSize(912, 371));
            QCOMPARE(page->findChild<QLabel*>("channelNumLabel")->text(), words.at(channel - 1));
            const int first = channel - (channel - 1) % 2;
            QCOMPARE(page->findChild<QLabel*>("stereo_label")->text(),
                     QString("Ch.%1&%2").arg(first).arg(first + 1));
            QCOMPARE(state(page, "stereo"), "0 OFF");
            QCOMPARE(state(page, "aux2_routing_pre_post"), "0 PRE");
            // No value is in the middle yet.
            QCOMPARE(resetPicture(page, "eq_hi_gain"), "on_blue");
            QCOMPARE(resetPicture(page, "eq_mid_gain"), "on_yellow");
            QCOMPARE(resetPicture(page, "eq_low_gain"), "on_pink");
            QCOMPARE(resetPicture(page, "aux3_routing_pan"), "on_purple");
            // Two inputs have phantom power and no pad.
            const bool isFirst = channel <= 2;
            QCOMPARE(button(page, "phantom")->isHidden(), !isFirst);
            QCOMPARE(button(page, "phantom")->focusPolicy() == Qt::NoFocus, !isFirst);
            QCOMPARE(box(page, "trim")->property("minimum").toInt(), isFirst ? 0 : -20);
            QCOMPARE(box(page, "trim")->property("maximum").toInt(), isFirst ? 60 : 40);
            slider(page, "trim")->setValue(16);
            QCOMPARE(state(page, "trim"), isFirst ? "16 16.00 dB" : "16 0.00 dB");
        }
    }

    void typed()
    {
        const QStringList rows[]{
            {"1", "eq_hi_freq", "4000", "400", "4.00 kHz"},
            {"1", "eq_mid_freq", "9000", "6000", "6.00 kHz"},
            {"1", "gate_thresh", "-69.98", "3001", "-69.98 dB"},
            // The box isn't rewritten from the dial that it has just set.
            {"1", "eq_mid_q", "1.13", "112", "1.13"},
            {"1", "gate_release", "250", "250", "250 ms"},
            // To the nearest entry of the table, of two the lower.
            {"1", "trim", "12.34", "12", "12.00 dB"},
            {"2", "trim", "12.5", "12", "12.00 dB"},
            {"2", "trim", "55", "40", "40.00 dB"},
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
    }

    // The box bounds what this dial has, and must not move it.
    void boxAnswersNoDial()
    {
        slider(strip, "eq_hi_freq")->setRange(100, 2000);
        heard.take();
        slider(strip, "eq_hi_freq")->setValue(120);
        QCOMPARE(state(strip, "eq_hi_freq"), "120 3.00 kHz");
        QCOMPARE(heard.take(), once("channelstrip_ch1_eq_hi_freq=120"));
    }

    // And a strip that nobody has connected.
    void noTrimTable()
    {
        auto* page = new QWidget;
        page->setObjectName("channelstrip_ch1");
        const ChannelSelection selection;
        auto* bare = new ChannelStrip(page, 0, selection, {});
        const QSignalSpy stores(bare, SIGNAL(signalStoreValue(QString, QVariant, int)));
        const QSignalSpy sends(bare, SIGNAL(signalSendPresetParameter(QString, int)));
        showWindow(page);
        drag(slider(bare, "trim"), 165);
        QCOMPARE(state(bare, "trim"), "33 0.00 dB");
        type(box(bare, "trim"), "12");
        QTest::keyClick(box(bare, "trim"), Qt::Key_Return);
        QCOMPARE(slider(bare, "trim")->value(), 33);
        QCOMPARE(stores.size() + sends.size(), 0);
        window.reset();
    }

    void passingThroughChangesNothing()
    {
        passThroughBoxes(strip, 13);
        // By the tab key, once around.
        QSet<QWidget*> visited;
        for (int i = 0; i < 80; ++i) {
            QTest::keyClick(window.get(), Qt::Key_Tab);
            visited.insert(window->focusWidget());
        }
        QCOMPARE(heard.take(), "");
        for (QAbstractSpinBox* each : strip->findChildren<QAbstractSpinBox*>())
            QVERIFY2(visited.contains(each), qPrintable(each->objectName()));
    }

    void frequencyArrivesWhileItsBoxIsEdited()
    {
        type(box(strip, "eq_mid_freq"), "70");
        receive("channelstrip_ch1_eq_mid_freq=5000");
        QCOMPARE(box(strip, "eq_mid_freq")->text(), "5000 Hz");
        box(strip, "eq_mid_freq")->clearFocus();
        QCOMPARE(state(strip, "eq_mid_freq"), "5000 5.00 kHz");
        QCOMPARE(heard.take(), stored("channelstrip_ch1_eq_mid_freq=5000"));
    }

    void pressCommitsFirst()
    {
        for (const QString row :
             {"eq_bypass/eq_bypass=1", "stereo/stereo=1", "eq_hi_gain_reset/eq_hi_gain=10000",
              "groupBox_Eq", "groupBox_Gain", "groupBox_Limiter", "groupBox_Routing",
              "stereoGroup_frame"}) {
            slider(strip, "eq_hi_gain")->setValue(0);
            type(box(strip, "eq_hi_gain"), "5");
            heard.take();
            auto* pressed = strip->findChild<QWidget*>(row.section('/', 0, 0));
            const bool isArea = !row.contains('/');
            QTest::mouseClick(pressed, Qt::LeftButton, {},
                              isArea ? QPoint(2, 2) : pressed->rect().center());
            QString stores = "store channelstrip_ch1_eq_hi_gain=10500, ";
            if (!isArea)
                stores += "store channelstrip_ch1_" + row.section('/', 1) + ", ";
            QVERIFY(heard.take().startsWith(stores + QString(stores).replace("store", "send")));
            QVERIFY(!box(strip, "eq_hi_gain")->hasFocus());
        }
    }

    void wheelCommitsOnLeaving()
    {
        slider(strip, "eq_mid_q")->setValue(100);
        heard.take();
        QAbstractSpinBox* target = box(strip, "eq_mid_q");
        const QPointF place = target->rect().center();
        QWheelEvent event(place, target->mapToGlobal(place), {}, QPoint(0, 120), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        // Only what comes from outside gives the focus.
        QSpontaneKeyEvent::setSpontaneous(&event);
        QApplication::instance()->notify(target, &event);
        QCOMPARE(state(strip, "eq_mid_q"), "100 1.01");
        QCOMPARE(heard.take(), "");
        target->clearFocus();
        QCOMPARE(heard.take(), once("channelstrip_ch1_eq_mid_q=101"));
    }

    void wires()
    {
        strip->slotConnectElements();
        strip->slotConnectToSysexSending();
        strip->slotConnectSpinboxes();
        QCOMPARE(wiresOf(strip), "store, send, check");
        strip->slotDisconnectElements();
        QCOMPARE(wiresOf(strip), "send");
        strip->slotDisconnectToSysexSending();
        QCOMPARE(wiresOf(strip), "");
        strip->slotConnectElements();
        QCOMPARE(wiresOf(strip), "store, check");
        // Called by nobody.
        QTest::ignoreMessage(QtDebugMsg, "does anything happen here?");
        strip->slotValueChanged();
        QTest::ignoreMessage(QtDebugMsg, "does anything happen here?");
        strip->slotSendSysexParameter();
        QCOMPARE(heard.take(), "check");
    }

    void received()
    {
        const QStringList rows[]{
            {"eq_hi_gain", "10500", "10500 5.00 dB"},
            {"eq_low_gain", "8200", "8200 -18.00 dB"}, // held already
            {"eq_mid_gain", "0", "8200 -18.00 dB"},    // bounded
            {"eq_hi_freq", "-2147483648", "300 3.00 kHz"},
            {"aux1_routing_send_level", "8938", "8938"},
            {"gate_bypass", "1", "1"},
            {"eq_bypass", "0", "0"}, // held already
            {"aux3_routing_pre_post", "1", "1 POST"},
        };
        for (const QStringList& row : rows) {
            const QString change = key(1, row.at(0)) + '=' + row.at(1);
            receive(change);
            QCOMPARE(heard.take(), stored(change));
            QCOMPARE(state(strip, row.at(0)), row.at(2));
        }
        QCOMPARE(wiresOf(strip), "store, send, check");
        // A wire that was cut before stays so.
        strip->slotDisconnectToSysexSending();
        receive("channelstrip_ch1_pan=10000");
        QCOMPARE(wiresOf(strip), "store, check");
    }

    void namesThatAreNotThere()
    {
        for (const char* name :
             {"", "channelstrip_ch1_", "channelstrip_ch12_pan", "channelstrip_ch1_nonsense",
              "channelstrip_ch1_group", "channelstrip_ch1_pan_reset", "reverbtab_level",
              "channelstrip_ch1_eq_hi_gain_level"})
            for (const int value : {INT_MIN, INT_MAX}) {
                receive(QString("%1=%2").arg(name).arg(value));
                strip->slotLetOneChannelEffectAnother(name, value);
                strip->slotReceiveValuesfromAuxStrip(name, 0, value);
                strip->slotReceiveValuesfromAuxStrip("ch1_pan", value, value);
            }
        QCOMPARE(heard.take(), "");
        QCOMPARE(wiresOf(strip), "store, send, check");
    }

    void burst()
    {
        const QList<QAbstractSlider*> dials = strip->findChildren<QAbstractSlider*>();
        for (int i = 0; i < 10000; ++i)
            strip->slotReceiveChannelStripParams(key(1, dials.at(i % dials.size())->objectName()),
                                                 i < 9975 ? i : INT_MAX);
        const QString all = heard.take();
        QCOMPARE(QList<qsizetype>({all.count("store "), all.count("check"), all.count("send c")}),
                 QList<qsizetype>({10000, 10000, 0}));
        for (const QAbstractSlider* dial : dials)
            QCOMPARE(dial->value(), dial->maximum());
    }

    void recalled()
    {
        const QVariantMap preset{{"channelstrip_ch1_eq_hi_gain", 10500},
                                 {"channelstrip_ch1_compressor_ratio", 412.0},
                                 {"channelstrip_ch1_aux2_routing_pre_post", true},
                                 {"channelstrip_ch1_pan", 10000},
                                 {"channelstrip_ch1_stereo", 1},
                                 {"channelstrip_ch2_stereo", 0}};
        for (const int channel : {1, 2})
            stripOf(channel)->slotRecallPreset(preset);
        // Whether it is sent is in the caller's hands.
        QStringList sent = heard.take().remove("send channelstrip_ch1_").split(", ");
        sent.sort();
        QCOMPARE(sent.join(' '),
                 "aux2_routing_pre_post=1 compressor_ratio=412 eq_hi_gain=10500 "
                 "pan=10000 stereo=1");
        QCOMPARE(state(strip, "compressor_ratio"), "412 4.12");
        QCOMPARE(state(strip, "aux2_routing_pre_post"), "1 POST");
        QCOMPARE(resetPicture(strip, "pan"), "off");
        QCOMPARE(state(strip, "stereo") + state(stripOf(2), "stereo"), "1 PAIRED1 PAIRED");
        QCOMPARE(wiresOf(strip), "store, send, check");
        strip->slotDisconnectToSysexSending();
        const QVariantList nonsense{{},      "loud", QVariantMap{{"a", 1}}, INT_MIN, -1e300,
                                    INT_MAX, 1e300,  qint64(1) << 40};
        for (qsizetype i = 0; i < nonsense.size(); ++i) {
            QVariantMap bad;
            for (QAbstractSlider* dial : strip->findChildren<QAbstractSlider*>()) {
                dial->setValue((dial->minimum() + dial->maximum()) / 2 + 1);
                if (i > 0)
                    bad.insert(key(1, dial->objectName()), nonsense.at(i));
            }
            heard.take();
            strip->slotRecallPreset(bad);
            QCOMPARE(heard.take(), "");
            for (const QAbstractSlider* dial : strip->findChildren<QAbstractSlider*>())
                QCOMPARE(dial->value(), i < 5 ? dial->minimum() : dial->maximum());
        }
        QCOMPARE(wiresOf(strip), "store, check");
    }

    void forwarded()
    {
        using Channels = QList<int>;
        const std::pair<Channels, Channels> rows[]{{{1, 3, 5}, {1, 3, 5}}, {{1, 3, 5}, {3, 5}},
                                                   {{1, 3, 5}, {5}},       {{1, 3, 5}, {2}},
                                                   {{8, 2, 4}, {8, 2, 4}}, {{6}, {6}}};
        for (const auto& [selected, moved] : rows) {
            prepare();
            select(selected);
            const int channel = moved.first();
            for (const QString change : {"eq_hi_gain=10500", "aux1_routing_pre_post=1"}) {
                receive(key(channel, change));
                QString expected = "store " + key(channel, change);
                for (const int other : moved.sliced(1))
                    expected += ", send " + key(other, change);
                QCOMPARE(heard.take(), expected + ", check");
            }
            receive(key(channel, "stereo=1"));
            for (int i = 1; i <= 8; ++i) {
                const bool isMoved = moved.contains(i);
                QCOMPARE(state(stripOf(i), "eq_hi_gain"),
                         isMoved ? "10500 5.00 dB" : "8200 -18.00 dB");
                QCOMPARE(state(stripOf(i), "aux1_routing_pre_post"), isMoved ? "1 POST" : "0 PRE");
                // Of a pair the others are only told.
                const bool isPair = (i - 1) / 2 == (channel - 1) / 2;
                QCOMPARE(state(stripOf(i), "stereo"),
                         isPair        ? "1 PAIRED"
                             : isMoved ? "0 PAIRED"
                                       : "0 OFF");
                QCOMPARE(wiresOf(stripOf(i)), "store, send, check");
            }
            // One that holds its value already tells its own again.
            for (int i = 1; i <= 8; ++i)
                receive(key(i, "stereo=0"));
            for (const int i : moved)
                QCOMPARE(state(stripOf(i), "stereo"), "0 OFF");
        }
    }

    void paired()
    {
        // The one selected last stays.
        const std::pair<QList<int>, QString> rows[]{
            {{}, ""}, {{4, 1}, ""}, {{3, 4}, "3"}, {{4, 3}, "4"}};
        for (int i = 0; i < 16; ++i) {
            const auto& [selected, gone] = rows[i / 4];
            const int channel = i % 2 + 3;
            const bool isReceived = i % 4 > 1;
            prepare();
            select(selected);
            tab->slotSelectChannelStrip(channel);
            for (const int on : {1, 0}) {
                if (isReceived)
                    receive(key(channel, QString("stereo=%1").arg(on)));
                else
                    click(button(stripOf(channel), "stereo"));
                QCOMPARE(state(stripOf(3), "stereo"), on == 1 ? "1 PAIRED" : "0 OFF");
                QCOMPARE(state(stripOf(4), "stereo"), on == 1 ? "1 PAIRED" : "0 OFF");
                // The pair has one key, its first channel's.
                const QString all = heard.take();
                const QString change = QString("channelstrip_ch3_stereo=%1, ").arg(on);
                QCOMPARE(all.count("store " + change), 1);
                QCOMPARE(all.count("channelstrip_"), all.count(change));
                if (!isReceived || channel == 3)
                    QCOMPARE(all.count("send " + change), isReceived ? 0 : 1);
                QCOMPARE(deselected, on == 1 || selected.isEmpty() ? gone : gone + "all");
            }
            // Held already.
            receive(key(channel, "stereo=0"));
            QCOMPARE(heard.take(), channel == 3 ? stored(key(3, "stereo=0")) : "");
        }
    }

    void reset()
    {
        slider(strip, "aux2_routing_pan")->setMaximum(10105);
        for (const QString change : {"eq_low_gain=10000", "pan=10000", "aux2_routing_pan=10002"}) {
            const QString name = change.section('=', 0, 0);
            click(button(strip, name + "_reset"));
            QCOMPARE(heard.take(), once(key(1, change)));
            QCOMPARE(resetPicture(strip, name), "off");
        }
    }

    void auxTabLocking()
    {
        auto* overlay = strip->findChild<QWidget*>("auxDisableWidget");
        auto* routing = strip->findChild<QWidget*>("groupBox_Routing");
        QVERIFY(overlay->isHidden());
        QCOMPARE(overlay->geometry(), routing->geometry());
        for (const bool locked : {true, false}) {
            strip->slotSetAuxTabLocking(locked);
            QCOMPARE(overlay->isVisible(), locked);
            for (const QWidget* widget : routing->findChildren<QWidget*>())
                QCOMPARE(widget->isEnabled(), !locked);
            drag(slider(strip, "aux1_routing_send_level"), 20);
            click(button(strip, "aux1_routing_pre_post"));
            QCOMPARE(heard.take().count("store "), locked ? 0 : 2);
        }
    }

    void phantom()
    {
        for (const int channel : {1, 2, 3}) {
            QToolButton* power = button(stripOf(channel), "phantom");
            tab->slotSelectChannelStrip(channel);
            for (const int on : {1, 0}) {
                if (on == 1 && channel <= 2)
                    click(power);
                else
                    stripOf(channel)->slotSetPhantom(on);
                QTest::ignoreMessage(QtDebugMsg, "chrstrip setphantom duplicate");
                stripOf(channel)->slotSetPhantom(on);
                const QString change = QString("ch%1_phantom=%2").arg(channel).arg(on);
                QString all = heard.take();
                QCOMPARE(all.count("global " + change + ", "), channel <= 2 ? 1 : 0);
                QCOMPARE(all.remove("global " + change + ", "), once("channelstrip_" + change));
                const QString style = "background-color: %1; font: 9pt;";
                QCOMPARE(power->styleSheet(), style.arg(on == 1 ? "rgb(255,0,0)" : "grey"));
                stripOf(channel)->setPhantomVoltButton(on == 1);
                QCOMPARE(power->text(), on == 1 ? "48v" : "12v");
            }
        }
    }
};

QTEST_MAIN(TestChannelStrip)
#include "tst_channelstrip.moc"
