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
        store->slotStoreValue("reverbtab_level", value, presetNum);
    }
    int levelOnDisk(int presetNum) const
    {
        return presetOnDisk(QString("Preset_00%1").arg(presetNum)).value("reverbtab_level").toInt();
    }
    int workingLevel(int presetNum) const
    {
        return store->workingPreset(presetNum).value("reverbtab_level").toInt();
    }
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            QMetaObject::invokeMethod(store->liveMemoryTimer, "timeout");
    }

private slots:
    void recallOrder()
    {
        store->slotRecallPreset(2);
        QCOMPARE(store->currentPresetNumber(), 2);
        QCOMPARE(recorder->take(), QString("stereo-off stereo-on done"));

        store->slotSetSyncStatus(true);
        edit(-1, 42);
        store->slotRecallPreset(-1);
        QCOMPARE(recorder->take(),
                 QString("stereo-off cut lock recall:b reverbtab_level=42 join free dirty:2 "
                         "stereo-on done"));
    }

    void recallStaysWithItsPreset()
    {
        const auto changeBoth = [this] {
            edit(1, 77);
            store->slotRecallPreset(2);
        };
        QMetaObject::invokeMethod(store.get(), changeBoth, Qt::QueuedConnection);
        store->slotSetSyncStatus(true);
        store->slotRecallPreset(1);
        QVERIFY(recorder->take().contains("done reverbtab_level=77 "));
    }

    void recallEndsWithTheSync()
    {
        const auto unplug = [this] { store->slotSetSyncStatus(false); };
        QMetaObject::invokeMethod(store.get(), unplug, Qt::QueuedConnection);
        store->slotSetSyncStatus(true);
        store->slotRecallPreset(1);
        const QString after = recorder->take();
        QVERIFY2(after.endsWith("done"), qPrintable(after));
        QVERIFY2(!after.contains("reverbtab_level"), qPrintable(after));
    }

    void sentValues()
    {
        read(R"({"Preset_000":{"preset_name":"x", "reverbtab_bypass":true,
                 "reverbtab_damping":4294967296, "reverbtab_diffusion":-1e300,
                 "reverbtab_level":"3000", "reverbtab_pre_delay":2.0, "unknown":1}})");
        store->slotSendPreset(0);
        QCOMPARE(recorder->take(),
                 QString("lock stereo-off reverbtab_bypass=1 reverbtab_damping=2147483647 "
                         "reverbtab_diffusion=-2147483648 reverbtab_level=0 reverbtab_pre_delay=2 "
                         "clean:0 stereo-on free"));
    }

    void sendWithoutRecall()
    {
        edit(2, 42);
        store->slotSendPreset(2); // the saved state
        QCOMPARE(recorder->take(),
                 QString("lock stereo-off reverbtab_level=2 dirty:2 stereo-on free"));

        QSignalSpy sent(store.get(), SIGNAL(signalSendPresetParameter(QString, int)));
        QElapsedTimer clock;
        clock.start();
        store->slotSendPreset(-1);
        QCOMPARE(sent.size(), 329);
        QVERIFY2(clock.elapsed() >= 600, "the mixer needs 2 ms a parameter");
    }

    void dirtyIsNumeric()
    {
        read(R"({"Preset_000":{"preset_name":"x","a":3000.0,"b":true,"c":1}})");
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
        QCOMPARE(levelOnDisk(1), 1);
        QCOMPARE(levelOnDisk(2), 12);
        store->slotSavePreset(0);
        QCOMPARE(recorder->take(), QString());

        store->slotStoreValue("channelstrip_ch1_phantom", 1, 2);
        edit(1000, 1);
        const QByteArray before = onDisk();
        store->slotSavePreset(2);
        QCOMPARE(onDisk(), before);
    }

    void saveAs_data()
    {
        QTest::addColumn<bool>("forReceiving");
        QTest::addColumn<bool>("forAll");
        QTest::addColumn<QString>("events");
        QTest::newRow("by hand") << false << false
                                 << "stereo-off stereo-on done list cut menu:4 join";
        QTest::newRow("to receive one") << true << false << "list cut menu:4 join ready";
        QTest::newRow("to receive all") << true << true << "list menu:4 ready";
    }
    void saveAs()
    {
        QFETCH(bool, forReceiving);
        QFETCH(bool, forAll);
        edit(1, 11);
        store->slotSavePresetAs("new", forReceiving, forAll);
        QTEST(recorder->take(), "events");
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "a", "b", "c", "new"}));
        QCOMPARE(levelOnDisk(4), 11);
        QCOMPARE(levelOnDisk(1), 1);
        // By hand the edits have moved to the new preset.
        QCOMPARE(workingLevel(1), forReceiving ? 11 : 1);
    }

    void renameAndRevert()
    {
        edit(1, 11);
        store->slotRenamePreset("50%2 mix");
        QCOMPARE(recorder->take(), QString("list menu:1"));
        QCOMPARE(presetOnDisk("Preset_001"),
                 (QJsonObject{{"preset_name", "50%2 mix"}, {"reverbtab_level", 1}}));
        edit(2, 12);
        store->slotSetSyncStatus(true);
        store->slotRevertPreset();
        QVERIFY(recorder->take().contains("recall:50%2 mix reverbtab_level=1 join free clean:1"));
        QCOMPARE(workingLevel(2), 12);
    }

    void reorder_data()
    {
        QTest::addColumn<QStringList>("library");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<QString>("order"); // the numbers that the presets had
        const QString sync = "[CONNECTION SYNC]";
        QTest::newRow("moved") << QStringList{sync, "a", "b", "c"}
                               << QStringList{sync, "c", "a", "b"} << "0312";
        QTest::newRow("sync stays first")
            << QStringList{sync, "a", "b"} << QStringList{"b", sync, "a"} << "021";
        QTest::newRow("one name twice")
            << QStringList{sync, "a", "b", "a"} << QStringList{sync, "a", "a", "b"} << "0132";
        QTest::newRow("rows that are missing or unknown")
            << QStringList{sync, "a", "b", "c"} << QStringList{"x", "c"} << "0312";
        QTest::newRow("sync twice")
            << QStringList{sync, "a", sync} << QStringList{sync, sync, "a"} << "012";
    }
    void reorder()
    {
        QFETCH(QStringList, library);
        QFETCH(QStringList, rows);
        read(libraryOf(library));
        edit(1, 10); // an edit goes along with its preset
        ReorderableListWidget list;
        list.addItems(rows);
        store->slotReorderPresets(&list);
        QCOMPARE(recorder->take(), QString("list"));
        QString order;
        QString working;
        for (int i = 0; i < library.size(); ++i) {
            order += QString::number(levelOnDisk(i));
            working += QString::number(workingLevel(i));
        }
        QTEST(order, "order");
        QCOMPARE(working, order.replace("1", "10"));
    }

    void deletePreset()
    {
        edit(3, 13);
        store->slotDeletePreset();
        QCOMPARE(recorder->take(), QString("list clean:0 clean:1 dirty:2 menu:0 after-delete"));
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "b", "c"}));
        QCOMPARE(levelOnDisk(2), 3);
        QVERIFY(!onDisk().contains("Preset_003"));
        QCOMPARE(store->currentPresetNumber(), 1);
        select(2);
        store->slotDeletePreset(); // the last
        QCOMPARE(store->currentPresetNumber(), 1);
    }

    void menuRecallsOnlyByHand()
    {
        ReorderableListWidget list;
        store->slotPopulatePresetMenu(&list);
        list.setCurrentRow(3);
        QCOMPARE(recorder->take(), QString("stereo-off stereo-on done")); // joined once
        store->slotPopulatePresetMenu(&list);
        QCOMPARE(recorder->take(), QString());
        QCOMPARE(store->currentPresetNumber(), 3);
    }

    void liveMemory()
    {
        store->liveMemoryTimer->start(100000);
        edit(0, 10);
        for (int report = 0; report < 2; ++report) {
            store->liveMemoryTicks = 0;
            tick(500);
            QCOMPARE(levelOnDisk(0), 0);
        }
        tick(1);
        QCOMPARE(levelOnDisk(0), 10);
        QVERIFY(!store->liveMemoryTimer->isActive());
    }

    void demoModeLeavesNoTrace()
    {
        const QByteArray before = onDisk();
        store->slotSetDemoModeEnabled(true);
        store->liveMemoryTimer->start(100000);
        edit(0, 10);
        edit(1, 11);
        tick(600);
        store->slotSavePreset(1);
        store->slotRenamePreset("demo");
        store->slotSavePresetAs("more", true, false);
        recorder->take();
        store->slotRecallPreset(1); // also without a mixer
        QVERIFY(recorder->take().contains("recall:demo reverbtab_level=11"));
        QCOMPARE(onDisk(), before);

        store->slotSetDemoModeEnabled(false);
        QVERIFY(!store->liveMemoryTimer->isActive());
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "a", "b", "c"}));
        store->slotCheckSaveState(1);
        QCOMPARE(recorder->take(), QString("clean:1"));
        edit(1, 11);
        store->slotSetDemoModeEnabled(false); // without demo mode before it
        QCOMPARE(workingLevel(1), 11);
        tick(10);
        QCOMPARE(store->liveMemoryTicks, 20);
        QCOMPARE(onDisk(), before);
    }

    void failedWrite()
    {
        QFile::remove(folder->file("jsum.json"));
        QDir().mkdir(folder->file("jsum.json"));
        edit(1, 11);
        QTest::ignoreMessage(QtDebugMsg, "JSum Editor JSON Not Found");
        store->slotSavePreset(1);
        QCOMPARE(recorder->take(), QString("clean:1")); // the maps stay changed
        QDir().rmdir(folder->file("jsum.json"));
        store->slotSavePreset(1);
        QCOMPARE(levelOnDisk(1), 11);
        QCOMPARE(levelOnDisk(3), 3);
    }
};

QTEST_MAIN(TestPresetEditing)
#include "tst_presetediting.moc"
