#include "storefixture.h"

// Reading, numbering and naming of presets, and what a save keeps of a file.
class TestPresetLibrary : public LibraryTest
{
    Q_OBJECT

    static QStringList manyNames(int count)
    {
        QStringList many;
        for (int i = 0; i < count; ++i)
            many << QString("P%1").arg(i);
        return many;
    }

private slots:
    void keys_data()
    {
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("key");
        QTest::newRow("9") << 9 << "Preset_009";
        QTest::newRow("10") << 10 << "Preset_010";
        QTest::newRow("99") << 99 << "Preset_099";
        QTest::newRow("100") << 100 << "Preset_100";
        QTest::newRow("999") << 999 << "Preset_999";
        QTest::newRow("1000") << 1000 << QString();
        QTest::newRow("-1") << -1 << QString();
    }
    void keys()
    {
        QFETCH(int, number);
        QTEST(store->slotGetPresetStringFromInt(number), "key");
    }

    void pathInTheWorkingDirectory()
    {
        const QString before = QDir::currentPath();
        QDir().mkpath(folder->path() + "resources/presets");
        folder->write("../resources/presets/jsum.json", libraryOf({"here"}));
        QDir::setCurrent(folder->path());
        store->useResourcesFolder = false;
        store->slotUpdateJSONPath();
        QTest::ignoreMessage(QtDebugMsg, "JSum Editor JSON Found");
        store->slotReadJSON();
        QDir::setCurrent(before);
        QCOMPARE(names(), QStringList{"here"});
    }

    void missingFile()
    {
        const QString line =
            "WARNING: JSum Editor JSON Not Found - path: " + folder->file("jsum.json");
        QTest::ignoreMessage(QtDebugMsg, qPrintable(line));
        store->slotReadJSON();
        QCOMPARE(store->slotGetNumPresetsInJson(), 0);
    }

    void badFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("array") << QByteArray(R"([{"Preset_000":{}}])");
        QTest::newRow("not UTF-8") << QByteArray("{\"Preset_000\":{\"preset_name\":\"\xf6\"}}");
        const QByteArray whole = libraryOf({"a", "b"}).trimmed();
        for (qsizetype length = 1; length < whole.size(); ++length)
            QTest::addRow("cut at %d", static_cast<int>(length)) << whole.first(length);
    }
    // Nothing that is done afterwards writes an empty library over what is there.
    void badFiles()
    {
        QFETCH(QByteArray, bytes);
        read(bytes);
        QCOMPARE(store->slotGetNumPresetsInJson(), 0);
        ReorderableListWidget list;
        store->slotPopulatePresetMenu(&list);
        store->slotRecallPreset(0);
        store->slotStoreValue("reverbtab_level", 5, 0);
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

    void keptCopyTakesTheFilesPlace_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("cut") << libraryOf({"a", "b"}).chopped(5);
        QTest::newRow("a block of zeros")
            << libraryOf({"a", "bbb"}).replace("bbb", QByteArray(3, '\0'));
    }
    void keptCopyTakesTheFilesPlace()
    {
        QFETCH(QByteArray, bytes);
        folder->write("jsum.json.bak", libraryOf({"kept"}));
        read(bytes);
        QCOMPARE(names(), QStringList{"kept"});
    }

    void dailyCopy()
    {
        QDir().mkdir(folder->file("backups"));
        read(libraryOf({"a"}));
        const QString today = QDate::currentDate().toString(Qt::ISODate);
        QCOMPARE(folder->bytes("backups/jsum-" + today + ".json"), libraryOf({"a"}));
    }

    void numbering_data()
    {
        QTest::addColumn<QByteArray>("json");
        QTest::addColumn<QStringList>("rows");
        QTest::addColumn<int>("count");
        QTest::newRow("gaps are closed")
            << QByteArray(R"({"Preset_000":{"preset_name":"a"},"Preset_004":{"preset_name":"b"},)"
                          R"("Preset_100":{"preset_name":"c"}})")
            << QStringList{"a", "b", "c"} << 3;
        QTest::newRow("beyond the limit")
            << QByteArray(R"({"Preset_000":{"preset_name":"a"},"Preset_1000":{}})")
            << QStringList{"a"} << 1;
        QTest::newRow("the word in other keys")
            << QByteArray(R"({"Preset_000":{"preset_name":"a"},"MyPresets":{},"preset":1})")
            << QStringList{"a"} << 2;
        QTest::newRow("presets that are none")
            << QByteArray(R"({"Preset_000":null,"Preset_001":7,"Preset_002":{"preset_name":5}})")
            << QStringList{"", "", "5"} << 3;
    }
    void numbering()
    {
        QFETCH(QByteArray, json);
        read(json);
        QTEST(names(), "rows");
        QTEST(store->slotGetNumPresetsInJson(), "count");
    }

    void saveKeepsWhatItDoesNotKnow()
    {
        read(R"({"Preset_000":{"preset_name":"a","reverbtab_level":1e300,"later":{"x":[]}},
                 "Preset_002":{"preset_name":"b","reverbtab_level":"text"},
                 "Preset_1000":{"preset_name":"far"}, "version":3, "":4})");
        store->slotRecallPreset(1);
        store->slotStoreValue("reverbtab_bypass", true, -1);
        store->slotSavePreset(-1);
        store->slotDeletePreset();
        const QByteArray wanted = R"({"Preset_000":{"preset_name":"a","reverbtab_level":1e300,
            "later":{"x":[]}}, "Preset_1000":{"preset_name":"far"}, "version":3, "":4})";
        QCOMPARE(onDisk(), QJsonDocument::fromJson(wanted).toJson(QJsonDocument::Indented));
    }

    void atTheLimit()
    {
        QJsonObject library = QJsonDocument::fromJson(libraryOf(manyNames(1000))).object();
        library.insert("Preset_1000", QJsonObject{{"preset_name", "far"}});
        const QByteArray bytes = QJsonDocument(library).toJson();
        read(bytes);
        QVERIFY(store->isFull());
        QCOMPARE(names().size(), 1000);
        store->slotRecallPreset(999);
        Recorder recorder(store.get());
        store->slotSavePresetAs("one more", true, true);
        QCOMPARE(recorder.take(), QString());
        store->slotSavePreset(-1);
        QCOMPARE(onDisk(), bytes);

        store->slotDeletePreset();
        QCOMPARE(store->slotGetPresetStringFromName("P998"), QString("Preset_998"));
        QCOMPARE(store->slotGetPresetStringFromName("P999"), QString());
        store->slotSavePresetAs("one more", true, true);
        QCOMPARE(store->slotGetPresetStringFromName("one more"), QString("Preset_999"));
        QCOMPARE(presetOnDisk("Preset_1000").value("preset_name").toString(), QString("far"));
    }

    void keyOfAName()
    {
        read(libraryOf({"a", "b", "b", "c"}));
        QCOMPARE(store->slotGetPresetStringFromName("b"), QString("Preset_001"));
        QVERIFY(store->slotGetPresetStringFromName("B").isNull());
        // What was looked up before must not answer for a library that has changed since.
        store->slotRecallPreset(1);
        store->slotRenamePreset("d");
        QCOMPARE(store->slotGetPresetStringFromName("b"), QString("Preset_002"));
        store->slotDeletePreset();
        QCOMPARE(store->slotGetPresetStringFromName("c"), QString("Preset_002"));
        QVERIFY(store->slotGetPresetStringFromName("d").isNull());
    }

    void newNames_data()
    {
        QTest::addColumn<QStringList>("inUse");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("result");
        const auto row = [](const QStringList& inUse, const char* name, const char* result) {
            QTest::addRow("%s + %s", qPrintable(inUse.join('|')), name)
                << inUse << QString(name) << QString(result);
        };
        row({}, "Lead copy1", "Lead copy1");
        row({"Lead"}, "Bass", "Bass");
        row({"Lead"}, "lead", "lead");
        row({"Lead"}, "Lead", "Lead copy1");
        row({"Bass"}, "Lead copy1", "Lead");
        row({"Lead", "Lead copy1"}, "Lead", "Lead copy2");
        row({"Lead", "Lead copy1"}, "Lead copy1", "Lead copy2");
        row({"Lead", "Lead copy1", "Lead copy3"}, "Lead", "Lead copy4");
        row({"Lead copy12", "Lead copy123"}, "Lead", "Lead copy2");
        row({"Lead"}, "Lead copy", "Lead copy"); // bare: a name of its own
        row({" copy", " copy1"}, " copy", " copy copy1");
        row({" copy1"}, "", " copy2");
        row({"x"}, "", "");
        row({"50%2 mix"}, "50%2 mix", "50%2 mix copy1");
        row({"a"}, "[DEFAULT]", "default");
        row({"a"}, "[Off]", "off");
        row({"off"}, "[OFF]", "off copy1");
        row({"a"}, "[OFF] copy1", "off");
    }
    void newNames()
    {
        QFETCH(QStringList, inUse);
        QFETCH(QString, name);
        read(libraryOf(inUse));
        QTEST(store->slotAppendSuffixToNewPresetName(name), "result");
    }
};

QTEST_MAIN(TestPresetLibrary)
#include "tst_presetlibrary.moc"
