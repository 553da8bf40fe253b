#include "editorrig.h"
#include "testcase.h"

#include <QJsonDocument>
#include <QLineEdit>
#include <QMenuBar>
#include <QThread>
#include <QTimer>

// Presets to and from the mixer's slots, over the system's MIDI: the real window against the
// simulator, both for a whole process, in which one test begins where the last one ended.
class TestSlots : public TestCase, EditorRig
{
    Q_OBJECT

    // Where a flow is met: at parameters from the mixer, at those that a preset sends, at the
    // beginning of a recall's or of a mode entry's events.
    enum Moment { Received, Sent, Recalled, Entered };

    Moment moment = Received;
    int timesLeft = 0;
    std::function<void()> action;

    const QString presetSent = QStringLiteral("^from host .* preset ");

    void move(const QString& key, int value)
    {
        if (auto* slider = qobject_cast<QAbstractSlider*>(control(key)); slider != nullptr)
            slider->setValue(value);
        else
            qobject_cast<QToolButton*>(control(key))->setChecked(value != 0);
    }
    void click(const QString& button) { view<QAbstractButton>(button)->click(); }
    void pressReceive(const char* dialog, const char* edit = "name", const QString& name = {})
    {
        QVERIFY(!view(dialog)->isHidden());
        view(dialog)->findChild<QLineEdit*>(edit)->setText(name);
        view(dialog)->findChild<QAbstractButton*>("receive")->click();
    }
    // The ones that wait for the mixer return when they are over.
    void start(const QString& flow)
    {
        if (flow == "into" || flow == "new") {
            click("receiveA");
            view<QAbstractButton>(flow == "into" ? "toSetlistSlot" : "toNew")->setChecked(true);
            pressReceive("receivePresetDialogForm", "name", "Late");
        } else if (flow == "all") {
            click("receive_all");
            pressReceive("receiveAllDialogForm", "prefix", "Gig");
        } else if (flow == "recall") {
            list()->setCurrentRow(list()->currentRow() == 2 ? 3 : 2);
        } else if (flow == "sync") {
            window->slotInitAfterConnection(false); // or it would be entered already
            window->slotInitFullPowerView();
        } else {
            click(flow);
        }
    }
    void after(int times, Moment of, const std::function<void()>& then)
    {
        timesLeft = times;
        moment = of;
        action = then;
    }
    // What the mixer does is there when the next events pass.
    void tell(const QByteArray& line)
    {
        simulator->tell(line);
        QThread::msleep(moment == Received || moment == Sent ? 0 : MidiManager::pollIntervalMs);
    }

    // Nothing of a flow is left over, and what is moved goes out once.
    void checkUsable()
    {
        QVERIFY(progress()->isHidden());
        QVERIFY(list()->isEnabled());
        QVERIFY(window->findChild<QMenuBar*>()->isEnabled());
        QWidget* fader = view("faderframe_ch1_fader");
        const QPoint place = fader->mapTo(window->fullPower(), fader->rect().center());
        QCOMPARE(window->fullPower()->childAt(place), fader); // no sheet above it
        QVERIFY(arrived());
        simulator->mark();
        for (const char* key : {"faderframe_ch2_fader", "channelstrip_ch5_eq_hi_gain",
                                "channelstrip_mains_eq_hi_gain", "reverbtab_ch3_send_level"})
            move(key, shown(key) == 9000 ? 9001 : 9000);
        move("faderframe_ch6_mute", !shown("faderframe_ch6_mute"));
        QVERIFY(arrived());
        QCOMPARE(simulator->count(presetSent), 5);
    }
    void checkSynced()
    {
        const Values live = mixer("live");
        SAME(allShown(), live);
        QCOMPARE(list()->currentRow(), 0);
        waitForAutosave();
        SAME(saved(nameIn(0)), live);
        checkUsable();
    }
    void step(Moment of)
    {
        if (timesLeft > 0 && of == moment && --timesLeft == 0)
            action();
    }

public slots:
    void slotReceived() { step(Received); }
    void slotSent() { step(Sent); }
    void slotRecalled() { step(Recalled); }
    void slotEntered() { step(Entered); }

private slots:
    void initTestCase()
    {
        QVERIFY(enterFolder(RESOURCES, SIMULATOR));

        // The first preset differs from the mixer in every value.
        QVERIFY(simulator->command("randomise 3") && simulator->command("slot A randomise 1"));
        const Values live = mixer("live");
        QVariantMap library = document("jsum.json");
        QVariantMap first = library["Preset_000"].toMap();
        for (auto entry = live.begin(); entry != live.end(); ++entry)
            first[entry.key()] = *entry > 0 ? *entry - 1 : 1;
        library["Preset_000"] = first;
        write("jsum.json", QJsonDocument::fromVariant(library).toJson());
        write("setlist.json",
              R"({"A": "Band on Stage", "B": "Acoustic Duo", "C": "Podcast for Two", "D": "[OFF]",
                  "E": "[DEFAULT]", "K": "Drum Kit", "L": "Lost in a Crash"})");

        openWindow();
        SysexManager* sysex = window->sysex();
        for (const char* signal : {SIGNAL(signalReceiveMainwindowPresetParams(QString, int)),
                                   SIGNAL(signalReceiveChannelStripParams(QString, int)),
                                   SIGNAL(signalReceiveReverbParams(QString, int))})
            connect(sysex, signal, SLOT(slotReceived()));
        connect(window->presets(), SIGNAL(signalSendPresetParameter(QString, int)),
                SLOT(slotSent()));
        connect(window->presets(), SIGNAL(signalRecallPreset(QVariantMap)), SLOT(slotRecalled()));
        connect(window->fullPower(), SIGNAL(signalDisconnectGlobalSysex()), SLOT(slotEntered()));
        QVERIFY(plug());
    }
    void cleanupTestCase() { leaveFolder(); }

    void syncAndChanges()
    {
        QVERIFY(arrived());
        QCOMPARE(simulator->count(presetSent), 0); // nothing echoed
        checkSynced();

        simulator->mark();
        for (const QString key : {"faderframe_aux2_fader", "channelstrip_ch7_aux3_routing_pan",
                                  "faderframe_ch4_solo", "channelstrip_ch3_stereo"}) {
            const int next = shown(key) > 1 ? shown(key) - 1 : !shown(key);
            QVERIFY(simulator->command(QString("set %1 %2").arg(key).arg(next).toLatin1()));
            QTRY_COMPARE_WITH_TIMEOUT(shown(key), next, patienceMs);
        }
        QVERIFY(arrived());
        QCOMPARE(simulator->count(presetSent), 0);

        // The mixer goes to a slot by itself. The list follows, and what it shows.
        list()->setCurrentRow(8);
        const Values before = saved(nameIn(8));
        const Values slot = mixer("slot A");
        QVERIFY(arrived());
        simulator->mark();
        QVERIFY(simulator->command("slot A recall"));
        QTRY_COMPARE_WITH_TIMEOUT(differences(allShown(), slot), QString(), patienceMs);
        QVERIFY(arrived());
        QCOMPARE(simulator->count(presetSent), 0);
        QCOMPARE(list()->currentRow(), 0);
        SAME(saved(nameIn(8)), before);

        // Asked for in the middle of a recall, it waits for that to end.
        after(1, Recalled, [this] { tell("sync"); });
        list()->setCurrentRow(8);
        QTRY_COMPARE_WITH_TIMEOUT(list()->currentRow(), 0, patienceMs);
        SAME(allShown(), before);
        checkUsable();
    }

    void sendAll()
    {
        list()->setCurrentRow(4);
        move("channelstrip_ch1_pan", 9950);
        QVERIFY(simulator->command("slot D randomise 4")
                && simulator->command("slot L randomise 12"));
        const Values slotD = mixer("slot D"); // "[OFF]"
        const Values slotL = mixer("slot L"); // names no preset
        QVERIFY(arrived());
        simulator->mark();
        click("send_all");
        QVERIFY(arrived());
        const QString lines = simulator->linesSinceMark().join('\n');
        QCOMPARE(lines.count("DSP updating"), 2);
        QVERIFY(lines.indexOf("DSP updating off") < lines.indexOf("save to slot A"));
        QVERIFY(lines.indexOf("save to slot K") < lines.indexOf("DSP updating on"));
        for (const char* letter : {"A", "B", "C", "K"})
            SAME(mixer(QString("slot ") + letter), saved(inSlot(*letter)));
        SAME(mixer("slot D"), slotD);
        SAME(mixer("slot L"), slotL);
        simulator->mark();
        QVERIFY(simulator->command("state changed-in-slot"));
        QCOMPARE(simulator->count("^changed-in-slot E 0$"), 1);
        SAME(mixer("live"), saved(nameIn(4)));
        checkUsable();
    }

    void sendOne()
    {
        list()->setCurrentRow(list()->rowOf("Podcast for Two"));
        move("faderframe_ch1_fader", 8123); // unsaved edits go too
        list()->setCurrentRow(list()->rowOf("Drum Kit"));
        QVERIFY(arrived());
        simulator->mark();
        click("sendC");
        QVERIFY(arrived());
        QCOMPARE(simulator->count(presetSent), 2 * presetSize);
        SAME(mixer("slot C"), saved("Podcast for Two"));
        QCOMPARE(mixer("slot C")["faderframe_ch1_fader"], 8123);
        SAME(mixer("live"), saved("Drum Kit"));
        checkUsable();
    }

    void receiveOne()
    {
        QVERIFY(simulator->command("slot C randomise 5") && simulator->command("slot E factory"));
        const Values before = saved("Podcast for Two");
        view<QAbstractButton>("rememberReceiveDecision")->setChecked(true);
        simulator->mark();
        click("receiveC"); // remembered: no dialog
        QVERIFY(!progress()->isHidden());
        QVERIFY(rests());
        QVERIFY(arrived());
        QCOMPARE(simulator->count(presetSent), presetSize); // the recall, and no echo
        const Values slot = mixer("slot C");
        QCOMPARE(list()->currentItem()->text(), QString("Podcast for Two"));
        SAME(allShown(), slot);
        SAME(mixer("live"), slot);
        SAME(saved("Podcast for Two"), before); // only dirty
        QVERIFY(!view("save")->styleSheet().isEmpty());
        click("save");
        SAME(saved("Podcast for Two"), slot);
        checkUsable();

        click("receiveE"); // "[DEFAULT]" always asks for a name
        pressReceive("receiveAsDialogForm", "name", "Band on Stage");
        QVERIFY(rests());
        QCOMPARE(inSlot('E'), QString("Band on Stage copy1"));
        QCOMPARE(list()->currentItem()->text(), QString("Band on Stage copy1"));
        SAME(saved("Band on Stage copy1"), mixer("slot E"));
        SAME(saved("Podcast for Two"), slot);
        checkUsable();
    }

    void receiveAll()
    {
        const int count = list()->count();
        start("all");
        QCOMPARE(list()->count(), count + 12);
        for (char16_t letter = 'A'; letter <= 'L'; ++letter) {
            const QString name = QString("Gig-") + letter;
            QCOMPARE(inSlot(letter), name);
            QCOMPARE(nameIn(count + letter - 'A'), name);
            SAME(saved(name), mixer(QString("slot ") + letter));
        }
        SAME(mixer("live"), saved("Gig-L"));
        SAME(allShown(), saved("Gig-L"));
        checkUsable();
    }

    void mixerIll_data()
    {
        QTest::addColumn<QByteArray>("event");
        QTest::addColumn<QString>("flow");
        QTest::addColumn<int>("times");
        QTest::addColumn<int>("of");
        const auto row = [](const char* event, const char* when, const char* flow, int times,
                            Moment of) {
            QTest::addRow("%s, %s", event, when) << QByteArray(event) << flow << times << int(of);
        };
        row("unplug", "while a slot is sent", "sendA", 100, Sent);
        row("unplug", "while the live memory is put back", "sendA", 400, Sent);
        row("unplug", "between slots", "send_all", presetSize, Sent);
        row("unplug", "while one is filled", "into", 100, Received);
        row("unplug", "while a preset is made", "new", 1, Recalled);
        row("unplug", "while a new one is filled", "new", 100, Received);
        row("unplug", "while all are filled", "all", 400, Received);
        row("unplug", "while the second of all is made", "all", 2, Recalled);
        row("unplug", "in a recall's events", "recall", 1, Recalled);
        row("unplug", "in a mode entry's events", "sync", 1, Entered);
        row("unplug", "during the sync", "sync", 100, Received);
        // The answer to a query that was repeated disturbs nothing.
        row("version", "while one is filled", "into", 100, Received);
        row("version", "in a recall's events", "recall", 1, Recalled);
        row("version", "in a mode entry's events", "sync", 1, Entered);
        // How a slot's transfer ends.
        row("never", "one", "into", presetSize, Received);
        row("never", "all", "all", presetSize, Received);
        row("twice", "sync", "sync", 0, Received);
        row("twice", "new", "new", 0, Received);
        row("other", "new", "new", 0, Received);
    }
    void mixerIll()
    {
        QFETCH(QByteArray, event);
        QFETCH(QString, flow);
        QFETCH(int, times);
        QFETCH(int, of);
        const Values before = current();
        const auto synced = syncs->count();
        int ticks = 0;
        QTimer ticker; // where the mixer is silent the window stays awake
        connect(&ticker, &QTimer::timeout, [&] {
            if (++ticks == 20 && !progress()->isHidden())
                tell("unplug");
        });
        const bool isMarker = event == "never" || event == "twice" || event == "other";
        QVERIFY(simulator->command("end-marker " + (isMarker ? event : QByteArray("once"))));
        simulator->mark();
        after(times, Moment(of), [&] {
            if (event == "never")
                ticker.start(20);
            else
                tell(event == "unplug" ? "unplug" : "raw f000015f2300000000010205f7");
        });
        start(flow);

        const bool unplugged = event == "unplug" || event == "never";
        if (unplugged)
            QTRY_VERIFY_WITH_TIMEOUT(!window->sysex()->isConnected(), patienceMs);
        else if (flow == "sync")
            QVERIFY(isSynced(synced + (event == "twice" ? 2 : 1)));
        QVERIFY(times == 0 || simulator->waitFor("^ok"));
        QVERIFY(unplugged ? progress()->isHidden() : rests());
        QVERIFY(list()->rowOf("Gig-L") < 0);
        if (flow == "new") // kept as it was made, but for a save that the right slot asked for
            SAME(saved(nameIn(list()->count() - 1)), event == "twice" ? mixer("slot A") : before);
        QVERIFY(simulator->command("end-marker once"));
        if (unplugged) {
            QCOMPARE(window->width(), ViewManager::splashWidth);
            QVERIFY(!window->fullPower()->isVisible());
            QVERIFY(plug());
            QVERIFY(arrived());
            // What was broken off sends nothing any more, and leaves no mixer paused.
            QCOMPARE(simulator->count("^from host .* (preset|save to|request for slot)"), 0);
            simulator->mark();
            QVERIFY(simulator->command("state"));
            QCOMPARE(simulator->count("^dsp-updating yes"), 1);
        }
        if (unplugged || flow == "sync")
            checkSynced();
        else
            checkUsable();
    }

    // Comes last: the window does not open again.
    void closedDuringReceiveAll()
    {
        after(presetSize + 100, Received, [this] { window->close(); });
        simulator->mark();
        const int row = list()->count();
        start("all");
        QTest::qWait(MidiManager::pollIntervalMs);
        QVERIFY(arrived());
        QVERIFY(!window->isVisible());
        const QStringList sent = simulator->linesSinceMark().filter("from host");
        // The last word, but for the question above.
        QVERIFY2(sent[sent.size() - 2].contains("end of communication"), qPrintable(sent.last()));
        QCOMPARE(list()->count(), row + 2);
        SAME(saved(nameIn(row)), mixer("slot A"));
    }
};

QTEST_MAIN(TestSlots)
#include "tst_slots.moc"
