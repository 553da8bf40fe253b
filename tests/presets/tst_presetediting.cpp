#include "storefixture.h"

#include <QElapsedTimer>
#include <QSignalSpy>

// What is done to the presets of a library, and what it raises.
class TestPresetEditing : public LibraryTest
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

    void dirtyIsNumeric()
    {
        read(R"({"Preset_000":{"preset_name":"[CONNECTION SYNC]","a":3000.0,"b":true,"c":1}})");
        const auto isDirty = [&](const QString& name, const QVariant& value) {
            store->slotStoreValue(name, value, 0);
            store->slotCheckSaveState(0);
            return recorder->take() == "dirty:0";
        };
        QVERIFY(!isDirty("a", 3000));
        QVERIFY(!isDirty("b", 1));
        QVERIFY(!isDirty("c", true));
        QVERIFY(isDirty("a", 3001));
        QVERIFY(!isDirty("a", 3000));
        QVERIFY(isDirty("new", 0));
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
        const QString sync = "[CONNECTION SYNC]";
        // The library, the rows of the list, and the numbers that the presets had.
        const std::tuple<QStringList, QStringList, QString> cases[]{
            {{sync, "a", "b"}, {"b", sync, "a"}, "021"}, // sync stays first
            {{sync, "a", "b", "a"}, {sync, "a", "a", "b"}, "0132"},
            {{sync, "a", "b", "c"}, {"x", "c"}, "0312"}, // missing and unknown rows
            {{sync, "a", sync}, {sync, sync, "a"}, "012"},
        };
        for (const auto& [library, rows, order] : cases) {
            read(libraryOf(library));
            edit(1, 10); // an edit goes along with its preset
            ReorderableListWidget list;
            list.addItems(rows);
            store->slotReorderPresets(&list);
            QString onDisk;
            QString working;
            for (int i = 0; i < library.size(); ++i) {
                onDisk += QString::number(delayOnDisk(i));
                working += QString::number(workingDelay(i));
            }
            QCOMPARE(onDisk, order);
            QCOMPARE(working, QString(order).replace("1", "10"));
        }
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

QTEST_MAIN(TestPresetEditing)
#include "tst_presetediting.moc"
