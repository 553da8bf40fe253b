#include "storefixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>

// What is done to the library, what it raises, in which order and at which pace, and what it leaves
// in the file.
class TestPresetInterface : public LibraryTest
{
    Q_OBJECT

    std::unique_ptr<Recorder> recorder;

    void prepare() override
    {
        LibraryTest::prepare();
        read(libraryOf({"[CONNECTION SYNC]", "a", "b", "c"}));
        recorder = std::make_unique<Recorder>(store.get());
        select(1);
    }
    // Makes the preset current, without a recall.
    void select(int presetNum)
    {
        store->slotSetSyncStatus(false);
        store->slotRecallPreset(presetNum);
        recorder->take();
    }
    void edit(int presetNum, int value)
    {
        store->slotStoreValue("reverbtab_pre_delay", value, presetNum);
    }
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            QMetaObject::invokeMethod(store->liveMemoryTimer, "timeout");
    }
    int delayOnDisk(int presetNum) const
    {
        return presetOnDisk(QString("Preset_00%1").arg(presetNum))
            .value("reverbtab_pre_delay")
            .toInt();
    }
    int workingDelay(int presetNum) const
    {
        return store->workingPreset(presetNum).value("reverbtab_pre_delay").toInt();
    }

private slots:
    // Nothing that is done afterwards writes an empty library over what is there.
    void badFile()
    {
        const QByteArray bytes = libraryOf({"a", "b"}).chopped(5);
        read(bytes);
        QCOMPARE(store->slotGetNumPresetsInJson(), 0);
        ReorderableListWidget list;
        store->slotPopulatePresetMenu(&list);
        store->slotRecallPreset(0);
        store->slotStoreValue("reverbtab_pre_delay", 5, 0);
        store->slotSavePreset(0);
        store->slotSavePresetAs("new", true, false);
        store->slotRenamePreset("new");
        store->slotReorderPresets(&list);
        store->slotRevertPreset();
        store->slotDeletePreset();
        store->liveMemoryTicks = 500;
        store->slotSaveLiveMemoryTimeout();
        QCOMPARE(store->slotAppendSuffixToNewPresetName("new"), QString("new"));
        QCOMPARE(onDisk(), bytes);
    }

    void keptCopyTakesTheFilesPlace()
    {
        QDir().mkdir(folder->file("backups"));
        const QByteArray kept = libraryOf({"[CONNECTION SYNC]", "kept"});
        folder->write("jsum.json.bak", kept);
        read(libraryOf({"a", "b"}).chopped(5));
        QCOMPARE(names().last(), QString("kept"));
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        QCOMPARE(folder->bytes("backups/jsum-" + today + ".json"), kept);
    }

    void saveKeepsWhatItDoesNotKnow()
    {
        read(
            R"({"Preset_000":{"preset_name":"[CONNECTION SYNC]","reverbtab_pre_delay":1e300,"later":{"x":[]}},
                 "Preset_002":{"preset_name":"b","reverbtab_pre_delay":"text"},
                 "Preset_1000":{"preset_name":"far"}, "version":3, "":4})");
        store->slotRecallPreset(1);
        store->slotStoreValue("reverbtab_bypass", true, -1);
        store->slotSavePreset(-1);
        store->slotDeletePreset();
        const QByteArray wanted =
            R"({"Preset_000":{"preset_name":"[CONNECTION SYNC]","reverbtab_pre_delay":1e300,
            "later":{"x":[]}}, "Preset_1000":{"preset_name":"far"}, "version":3, "":4})";
        QCOMPARE(onDisk(), QJsonDocument::fromJson(wanted).toJson(QJsonDocument::Indented));
    }

    // Whatever is no value of its parameter's control is brought to the nearest, in a slot and in a
    // recall; the library keeps it.
    void sentValues()
    {
        const QByteArray file = R"({"Preset_000":{"preset_name":"[CONNECTION SYNC]",
            "channelstrip_ch1_pan":-5, "channelstrip_ch8_trim":41, "channelstrip_mains_eq_mid_q":9,
            "channelstrip_phones_monitor_select":0, "faderframe_aux3_fader":20000,
            "faderframe_ch1_mute":2, "reverbtab_bypass":true, "reverbtab_ch8_send_level":null,
            "reverbtab_damping":4294967296, "reverbtab_decay_time":"3000",
            "reverbtab_diffusion":-1e300, "reverbtab_level":0, "reverbtab_pre_delay":2.0,
            "unknown":1}})";
        const QString sent = "channelstrip_ch1_pan=9900 channelstrip_ch8_trim=40 "
                             "channelstrip_mains_eq_mid_q=10 channelstrip_phones_monitor_select=1 "
                             "faderframe_aux3_fader=10600 faderframe_ch1_mute=1 reverbtab_bypass=1 "
                             "reverbtab_ch8_send_level=3000 reverbtab_damping=100 "
                             "reverbtab_decay_time=100 reverbtab_diffusion=0 reverbtab_level=0 "
                             "reverbtab_pre_delay=2 ";
        read(file);
        store->slotSendPreset(0);
        QCOMPARE(recorder->take(), "lock stereo-off " + sent + "clean:0 stereo-on free");
        store->slotSetSyncStatus(true);
        store->slotRecallPreset(0);
        QVERIFY(recorder->take().contains("lock recall:[CONNECTION SYNC] " + sent + "join"));
        store->slotSavePreset(0);
        QCOMPARE(QJsonDocument::fromJson(onDisk()), QJsonDocument::fromJson(file));
    }

    void sendWithoutRecall()
    {
        edit(2, 42);
        store->slotSendPreset(2); // the saved state
        QCOMPARE(recorder->take(),
                 QString("lock stereo-off reverbtab_pre_delay=2 dirty:2 stereo-on free"));

        QSignalSpy sent(store.get(), SIGNAL(signalSendPresetParameter(QString, int)));
        QElapsedTimer clock;
        clock.start();
        store->slotSendPreset(-1);
        QCOMPARE(sent.size(), 329);
        QVERIFY2(clock.elapsed() >= 600, "the mixer needs 2 ms a parameter");
    }

    void save()
    {
        edit(1, 11);
        edit(2, 12);
        store->slotSavePreset(2);
        QCOMPARE(recorder->take(), QString("dirty:1")); // of the current preset
        QCOMPARE(delayOnDisk(1), 1);
        QCOMPARE(delayOnDisk(2), 12);
        store->slotSavePreset(0);
        QCOMPARE(recorder->take(), QString());

        store->slotStoreValue("channelstrip_ch1_phantom", 1, 2);
        edit(1000, 1);
        const QByteArray before = onDisk();
        store->slotSavePreset(2);
        QCOMPARE(onDisk(), before);
    }

    void saveAs()
    {
        edit(1, 11);
        store->slotSavePresetAs("new", true, false); // to receive one
        QCOMPARE(recorder->take(), QString("list cut menu:4 join ready"));
        QCOMPARE(workingDelay(1), 11);
        store->slotSavePresetAs("more", true, true); // to receive all
        QCOMPARE(recorder->take(), QString("list menu:5 ready"));
        // The edits move to the new preset, and are gone from the old one before it is written.
        const QByteArray before = onDisk();
        bool isWritten = false;
        connect(store.get(), &PresetInterface::signalPresetDoneRecalling, this,
                [&] { isWritten = onDisk() != before; });
        store->slotSavePresetAs("by hand", false, false);
        QVERIFY(!isWritten);
        QCOMPARE(recorder->take(), QString("stereo-off stereo-on done list cut menu:6 join"));
        QCOMPARE(workingDelay(1), 1);
        QCOMPARE(delayOnDisk(1), 1);
        QCOMPARE(delayOnDisk(6), 11);
        QCOMPARE(names().mid(3), QStringList({"c", "new", "more", "by hand"}));
    }

    void recallAndRevert()
    {
        store->slotRecallPreset(2); // not in sync: nothing is sent
        QCOMPARE(recorder->take(), QString("stereo-off stereo-on done"));
        store->slotSetSyncStatus(true);
        edit(1, 11);
        edit(-1, 42);
        store->slotRecallPreset(-1);
        QCOMPARE(recorder->take(),
                 QString("stereo-off cut lock recall:b reverbtab_pre_delay=42 join free dirty:2 "
                         "stereo-on done"));
        store->slotRevertPreset();
        QVERIFY(recorder->take().contains("recall:b reverbtab_pre_delay=2 join free clean:2"));
        QCOMPARE(workingDelay(1), 11);
    }

    void reorder()
    {
        ReorderableListWidget list;
        list.addItems({"c", "[CONNECTION SYNC]", "a"});
        store->slotReorderPresets(&list);
        QCOMPARE(recorder->take(), QString("list"));
        QCOMPARE(delayOnDisk(1), 3);
        QCOMPARE(delayOnDisk(3), 2);
    }

    void liveMemory()
    {
        const QByteArray before = onDisk();
        const auto edited = [this] {
            store->liveMemoryTimer->start(100000);
            edit(0, 10);
            edit(1, 11);
        };
        edited();
        tick(500);
        QCOMPARE(onDisk(), before);
        tick(1);
        QCOMPARE(delayOnDisk(0), 10);
        QCOMPARE(delayOnDisk(1), 1); // an edit that nobody saved
        store->slotCheckSaveState(1);
        QCOMPARE(recorder->take(), QString("dirty:1"));
        QVERIFY(!store->liveMemoryTimer->isActive());

        prepare();
        edited();
        store->slotSetDemoModeEnabled(true); // before its tick
        QCOMPARE(delayOnDisk(0), 10);
        QCOMPARE(delayOnDisk(1), 1);

        prepare();
        store->slotSetDemoModeEnabled(false); // was not on: a tick counts twice from here
        edited();
        tick(250);
        QCOMPARE(delayOnDisk(0), 0);
        tick(1);
        QCOMPARE(delayOnDisk(0), 10);
    }

    // The view makes its list anew before it selects in it.
    void deleting()
    {
        select(3);
        edit(2, 42);
        store->slotDeletePreset();
        QCOMPARE(recorder->take(), QString("list clean:0 clean:1 dirty:2 menu:0"));
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "a", "b"}));
        QCOMPARE(store->currentPresetNumber(), 2);
    }

    void demoModeLeavesNoTrace()
    {
        const QByteArray before = onDisk();
        edit(2, 7);
        store->slotSetDemoModeEnabled(true);
        edit(2, 8);
        store->liveMemoryTimer->start(100000);
        edit(0, 10);
        edit(1, 11);
        tick(600);
        QVERIFY(!store->liveMemoryTimer->isActive()); // it would wake the processor for nothing
        store->slotSavePreset(1);
        store->slotRenamePreset("demo");
        store->slotSavePresetAs("more", true, false);
        recorder->take();
        store->slotRecallPreset(1); // also without a mixer
        QVERIFY(recorder->take().contains("recall:demo reverbtab_pre_delay=11"));
        store->slotSendPreset(-1); // at no mixer's pace
        for (const QTimer* const wait : store->findChildren<QTimer*>())
            QVERIFY(wait == store->liveMemoryTimer || wait->interval() == 0);
        recorder->take();
        QCOMPARE(onDisk(), before);

        store->slotSetDemoModeEnabled(false);
        QVERIFY(!store->liveMemoryTimer->isActive());
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "a", "b", "c"}));
        store->slotCheckSaveState(1);
        store->slotCheckSaveState(2); // edited before it
        QCOMPARE(recorder->take(), QString("clean:1 dirty:2"));
        QCOMPARE(store->workingPreset(2).value("reverbtab_pre_delay").toInt(), 7);
        QCOMPARE(onDisk(), before);
    }

    void fullLibrary()
    {
        QJsonObject full = QJsonDocument::fromJson(libraryOf({"[CONNECTION SYNC]"})).object();
        for (int i = 1; i < 1000; ++i)
            full.insert(store->slotGetPresetStringFromInt(i), QJsonObject());
        read(QJsonDocument(full).toJson());
        select(999);
        store->slotSavePresetAs("one more", true, true);
        QCOMPARE(recorder->take(), QString());
        QCOMPARE(store->appendPreset({}), -1);
    }

    void failedWrite()
    {
        QFile::remove(folder->file("jsum.json"));
        QDir().mkdir(folder->file("jsum.json"));
        edit(1, 11);
        store->slotSavePreset(1);
        QCOMPARE(recorder->take(), QString("clean:1")); // the maps stay changed
        QDir().rmdir(folder->file("jsum.json"));
        store->slotSavePreset(1);
        QCOMPARE(delayOnDisk(1), 11);
        QCOMPARE(delayOnDisk(3), 3);
    }
};

QTEST_MAIN(TestPresetInterface)
#include "tst_presetinterface.moc"
