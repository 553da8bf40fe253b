#include "storefixture.h"

// Reading, numbering and naming of presets, and what a save keeps of a file.
class TestPresetLibrary : public LibraryTest
{
    Q_OBJECT

    const QString sync = "[CONNECTION SYNC]";

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

    void numbering()
    {
        read(R"({"Preset_000":{"preset_name":"a"}, "Preset_004":null, "Preset_005":7,
                 "Preset_100":{"preset_name":5}, "Preset_1000":{}, "MyPresets":{}, "preset":1})");
        QCOMPARE(names(), QStringList({sync, "a", "", "", "5"}));
        QCOMPARE(store->slotGetNumPresetsInJson(), 5 + 1); // a stray key counts
        QCOMPARE(store->presetCount(), 5);
    }

    // Or the live memory would be written into a preset of the user's.
    void firstIsTheMixers()
    {
        read(libraryOf({"a", "b"}));
        QCOMPARE(store->workingPreset(0).size(), 330);
        QCOMPARE(store->workingPreset(0).value("channelstrip_ch3_trim").toInt(), 16);
        store->slotStoreValue("reverbtab_pre_delay", 99, 0);
        store->liveMemoryTicks = 500;
        store->slotSaveLiveMemoryTimeout();
        QCOMPARE(presetOnDisk("Preset_000").value("reverbtab_pre_delay").toInt(), 99);
        QCOMPARE(presetOnDisk("Preset_002"),
                 (QJsonObject{{"preset_name", "b"}, {"reverbtab_pre_delay", 1}}));

        read(libraryOf({"a", sync, "b"})); // it is there, but not the first
        QCOMPARE(names(), QStringList({sync, "a", "b"}));
        QCOMPARE(store->workingPreset(0).value("reverbtab_pre_delay").toInt(), 1);
        read("{}");
        QCOMPARE(names(), QStringList());
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

    void atTheLimit()
    {
        QStringList many{sync};
        for (int i = 1; i < 1000; ++i)
            many << QString("P%1").arg(i);
        QJsonObject library = QJsonDocument::fromJson(libraryOf(many)).object();
        library.insert("Preset_1000", QJsonObject{{"preset_name", "far"}});
        const QByteArray bytes = QJsonDocument(library).toJson();
        read(bytes);
        QCOMPARE(names().size(), 1000);
        store->slotRecallPreset(999);
        Recorder recorder(store.get());
        store->slotSavePresetAs("one more", true, true);
        QCOMPARE(recorder.take(), QString());
        store->slotSavePreset(-1);
        QCOMPARE(onDisk(), bytes);

        store->slotDeletePreset();
        store->slotSavePresetAs("one more", true, true);
        QCOMPARE(store->slotGetPresetStringFromName("one more"), QString("Preset_999"));
        QCOMPARE(presetOnDisk("Preset_1000").value("preset_name").toString(), QString("far"));

        // The mixer's preset finds room, and nothing is lost.
        library.insert("Preset_000", QJsonObject{{"preset_name", "P0"}});
        read(QJsonDocument(library).toJson());
        QCOMPARE(names().size(), 1000);
        QCOMPARE(names().first(2), QStringList({sync, "P0"}));
        store->slotSavePreset(0);
        QCOMPARE(presetOnDisk("Preset_1000").value("preset_name").toString(), QString("far"));
        QCOMPARE(presetOnDisk("Preset_1001").value("preset_name").toString(), QString("P999"));
    }

    // What was looked up before must not answer for a library that has changed since.
    void keyOfAName()
    {
        read(libraryOf({sync, "b", "b", "c"}));
        QCOMPARE(store->slotGetPresetStringFromName("b"), QString("Preset_001"));
        store->slotRecallPreset(1);
        store->slotRenamePreset("d");
        QCOMPARE(store->slotGetPresetStringFromName("b"), QString("Preset_002"));
        store->slotDeletePreset();
        QCOMPARE(store->slotGetPresetStringFromName("c"), QString("Preset_002"));
        QVERIFY(store->slotGetPresetStringFromName("d").isNull());
        read(libraryOf({sync, "c"}));
        QCOMPARE(store->slotGetPresetStringFromName("c"), QString("Preset_001"));
    }

    void newNames()
    {
        const auto made = [this](const QStringList& inUse, const QString& name) {
            read(libraryOf(inUse));
            return store->slotAppendSuffixToNewPresetName(name);
        };
        QCOMPARE(made({"Lead"}, "Lead"), QString("Lead copy1"));
        QCOMPARE(made({"Lead", "Lead copy1", "Lead copy3"}, "Lead"), QString("Lead copy4"));
        QCOMPARE(made({"Lead", "Lead copy12"}, "Lead copy12"), QString("Lead copy2"));
        QCOMPARE(made({"Lead", "Lead copy999"}, "Lead copy999"), QString("Lead copy2"));
        QCOMPARE(made({"Lead"}, "Lead copy"), QString("Lead copy")); // bare: a name of its own
        QCOMPARE(made({"50%2 mix"}, "50%2 mix"), QString("50%2 mix copy1"));
        QCOMPARE(made({"off"}, "[OFF]"), QString("off copy1"));
        QCOMPARE(made({"X copy1"}, "X copy1 copy1"), QString("X copy1 copy1")); // not the other's
        QCOMPARE(made({"Lead"}, " copy1"), QString(" copy1"));                  // never none
    }
};

QTEST_MAIN(TestPresetLibrary)
#include "tst_presetlibrary.moc"
