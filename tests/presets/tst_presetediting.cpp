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
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            QMetaObject::invokeMethod(store->liveMemoryTimer, "timeout");
    }

    struct ChangeDuringRecall {
        PresetInterface* store;
        void operator()() const
        {
            store->slotStoreValue("reverbtab_level", 77, 1);
            store->slotSetSyncStatus(false);
            store->slotRecallPreset(2);
        }
    };

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
        store->slotRecallPreset(8);
        QCOMPARE(recorder->take(),
                 QString("stereo-off cut lock recall: join free clean:8 stereo-on done"));
    }

    void recallStaysWithItsPreset()
    {
        QMetaObject::invokeMethod(store.get(), ChangeDuringRecall{store.get()},
                                  Qt::QueuedConnection);
        store->slotSetSyncStatus(true);
        store->slotRecallPreset(1);
        const QString events = recorder->take();
        QVERIFY2(events.contains("recall:a"), qPrintable(events));
        QVERIFY2(events.contains("reverbtab_level=77"), qPrintable(events));
        QVERIFY2(!events.contains("reverbtab_level=2"), qPrintable(events));
    }

    void sentValues_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<int>("sent");
        QTest::newRow("true") << QByteArray("true") << 1;
        QTest::newRow("a fraction") << QByteArray("2.0") << 2;
        QTest::newRow("beyond 32 bits") << QByteArray("4294967296") << 2147483647;
        QTest::newRow("below 32 bits") << QByteArray("-4294967296") << -2147483647 - 1;
        QTest::newRow("beyond 64 bits") << QByteArray("1e300") << 2147483647;
        QTest::newRow("text") << QByteArray("\"3000\"") << 0;
        QTest::newRow("null") << QByteArray("null") << 0;
        QTest::newRow("object") << QByteArray("{\"x\":1}") << 0;
    }
    void sentValues()
    {
        QFETCH(QByteArray, json);
        QFETCH(int, sent);
        read(R"({"Preset_000":{"preset_name":"x","unknown":1,"reverbtab_level":)" + json + "}}");
        store->slotSendPreset(0);
        QCOMPARE(recorder->take(),
                 QString("lock stereo-off reverbtab_level=%1 clean:0 stereo-on free").arg(sent));
    }

    void sendTakesTheSavedState()
    {
        edit(2, 42);
        store->slotSendPreset(2);
        QCOMPARE(recorder->take(),
                 QString("lock stereo-off reverbtab_level=2 dirty:2 stereo-on free"));
    }

    void sendOfTheFactoryPreset()
    {
        QSignalSpy sent(store.get(), SIGNAL(signalSendPresetParameter(QString, int)));
        QElapsedTimer clock;
        clock.start();
        store->slotSendPreset(-1);
        QCOMPARE(sent.size(), 329);
        QVERIFY2(clock.elapsed() >= 600, "the mixer needs 2 ms a parameter");
        QVERIFY(recorder->take().contains(" clean:1 "));
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

    void namesThatAreNotStored()
    {
        store->slotStoreValue("channelstrip_ch1_phantom", 1, 1);
        edit(4, 1);
        edit(-2, 1);
        edit(1000, 1);
        const QByteArray before = onDisk();
        store->slotSavePreset(1);
        QCOMPARE(onDisk(), before);
    }

    void save()
    {
        edit(1, 11);
        edit(2, 12);
        store->slotSavePreset(2);
        QCOMPARE(recorder->take(), QString("dirty:1")); // of the current preset
        QCOMPARE(levelOnDisk(1), 1);
        QCOMPARE(levelOnDisk(2), 12);
        edit(0, 10);
        store->slotSavePreset(0);
        QCOMPARE(recorder->take(), QString());
        QCOMPARE(levelOnDisk(0), 10);
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
        QCOMPARE(store->workingPreset(1).value("reverbtab_level").toInt(), forReceiving ? 11 : 1);
    }

    void rename()
    {
        edit(1, 11);
        store->slotRenamePreset("50%2 mix");
        QCOMPARE(recorder->take(), QString("list menu:1"));
        QCOMPARE(presetOnDisk("Preset_001"),
                 (QJsonObject{{"preset_name", "50%2 mix"}, {"reverbtab_level", 1}}));
        store->slotCheckSaveState(1);
        QCOMPARE(recorder->take(), QString("dirty:1"));
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
        QTest::newRow("no sync preset") << QStringList{"a", "b"} << QStringList{"b", "a"} << "10";
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
            working += QString::number(store->workingPreset(i).value("reverbtab_level").toInt());
        }
        QTEST(order, "order");
        QCOMPARE(working, order.replace("1", "10"));
    }

    void revert()
    {
        edit(1, 11);
        edit(2, 12);
        store->slotSetSyncStatus(true);
        store->slotRevertPreset();
        QVERIFY(recorder->take().contains("recall:a reverbtab_level=1 join free clean:1"));
        QCOMPARE(store->workingPreset(2).value("reverbtab_level").toInt(), 12);
    }

    void deleteFromTheMiddle()
    {
        edit(3, 13);
        store->slotDeletePreset();
        QCOMPARE(recorder->take(), QString("list clean:0 clean:1 dirty:2 menu:0 after-delete"));
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "b", "c"}));
        QCOMPARE(levelOnDisk(2), 3);
        QCOMPARE(folder->document("jsum.json").size(), 3);
        QCOMPARE(store->currentPresetNumber(), 1);
    }

    void deleteTheLast()
    {
        select(3);
        store->slotDeletePreset();
        QCOMPARE(store->currentPresetNumber(), 2);
    }

    void nothingIsCurrent()
    {
        PresetInterface fresh;
        folder->give(fresh);
        fresh.slotUpdateJSONPath();
        fresh.slotReadJSON();
        Recorder events(&fresh);
        const QByteArray before = onDisk();
        fresh.slotStoreValue("reverbtab_level", 5, -1);
        fresh.slotSavePreset(-1);
        fresh.slotSavePresetAs("new", false, false);
        fresh.slotRenamePreset("new");
        fresh.slotDeletePreset();
        fresh.slotRevertPreset();
        QCOMPARE(events.take(), QString());
        fresh.slotSetSyncStatus(true);
        fresh.slotRecallPreset(-1);
        QCOMPARE(events.take(),
                 QString("stereo-off cut lock recall: join free clean:-1 stereo-on done"));
        QCOMPARE(onDisk(), before);
    }

    void menuRecallsOnlyByHand()
    {
        ReorderableListWidget list;
        QSignalSpy setlist(store.get(), SIGNAL(signalPopulateSetlistMenus(ReorderableListWidget*)));
        store->slotPopulatePresetMenu(&list);
        list.setCurrentRow(3);
        QCOMPARE(recorder->take(), QString("stereo-off stereo-on done")); // joined once
        store->slotPopulatePresetMenu(&list);
        QCOMPARE(recorder->take(), QString());
        QCOMPARE(store->currentPresetNumber(), 3);
        QCOMPARE(setlist.size(), 2);
    }

    void liveMemory()
    {
        store->liveMemoryTimer->start(100000);
        edit(0, 10);
        tick(500);
        QCOMPARE(levelOnDisk(0), 0);
        store->liveMemoryTicks = 0; // a further report
        tick(500);
        QCOMPARE(levelOnDisk(0), 0);
        QVERIFY(store->liveMemoryTimer->isActive());
        tick(1);
        QCOMPARE(levelOnDisk(0), 10);
        QVERIFY(!store->liveMemoryTimer->isActive());
        store->slotCheckSaveState(0);
        QCOMPARE(recorder->take(), QString("clean:0"));
    }

    void leavingDemoModeTwiceDoublesTheCount()
    {
        edit(1, 11);
        store->slotSetDemoModeEnabled(false);
        QCOMPARE(store->workingPreset(1).value("reverbtab_level").toInt(), 11);
        tick(10);
        QCOMPARE(store->liveMemoryTicks, 20);
    }

    void demoModeLeavesNoTrace()
    {
        const QByteArray before = onDisk();
        store->slotSetDemoModeEnabled(true);
        store->liveMemoryTimer->start(100000);
        edit(0, 10);
        edit(1, 11);
        tick(600);
        QCOMPARE(store->liveMemoryTicks, 0);
        store->liveMemoryTicks = 9;
        store->slotSavePreset(1);
        store->slotRenamePreset("demo");
        store->slotSavePresetAs("more", true, false);
        recorder->take();
        store->slotRecallPreset(1); // also without a mixer
        QVERIFY(recorder->take().contains("recall:demo reverbtab_level=11"));
        QCOMPARE(onDisk(), before);

        store->slotSetDemoModeEnabled(false);
        QVERIFY(!store->liveMemoryTimer->isActive());
        QCOMPARE(store->liveMemoryTicks, 0);
        QCOMPARE(names(), QStringList({"[CONNECTION SYNC]", "a", "b", "c"}));
        store->slotCheckSaveState(1);
        QCOMPARE(recorder->take(), QString("clean:1"));
        tick(501);
        QCOMPARE(store->liveMemoryTicks, 501); // counted once again
        store->slotSavePreset(1);
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
        QCOMPARE(folder->document("jsum.json").size(), 4);
    }
};

QTEST_MAIN(TestPresetEditing)
#include "tst_presetediting.moc"
