#include "globalpresetinterface.h"
#include "presetdefaults.h"
#include "storefixture.h"

#include <QSignalSpy>

class TestGlobalPresetInterface : public TestCase
{
    Q_OBJECT

    std::unique_ptr<StoreFolder> folder;
    std::unique_ptr<GlobalPresetInterface> store;

    void prepare() override
    {
        store.reset();
        folder = std::make_unique<StoreFolder>();
        store = std::make_unique<GlobalPresetInterface>();
        folder->give(*store);
        store->slotSetJSONPath();
    }
    void read(const QByteArray& bytes)
    {
        folder->write("global.json", bytes);
        store->slotReadGlobal();
    }
    QVariantMap recalled()
    {
        QSignalSpy spy(store.get(), SIGNAL(signalRecallGlobal(QVariantMap)));
        store->slotRecallGlobal();
        return spy.first().first().toMap();
    }
    void change(int brightness)
    {
        store->globalSaveTimer->start(100000);
        store->globalSaveTicks = 0;
        store->slotStoreGlobal("led_brightness", brightness);
    }
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            QMetaObject::invokeMethod(store->globalSaveTimer, "timeout");
    }

private slots:
    void badFiles()
    {
        for (const char* bytes : {"", R"({"Global":{"led_brightness":1)", R"({"Global":[1,2]})"}) {
            read(bytes);
            QCOMPARE(recalled(), QVariantMap());
            store->slotStoreGlobal("led_brightness", 3);
            QCOMPARE(recalled(), (QVariantMap{{"led_brightness", 3}}));
        }
    }

    void tenChangesMakeOneWrite()
    {
        read(R"({"Global":{"led_brightness":1,"later":{}},"more":2})");
        const QByteArray before = folder->bytes("global.json");
        for (int value = 0; value < 10; ++value) {
            change(value);
            tick(500);
        }
        QCOMPARE(folder->bytes("global.json"), before);
        tick(1);
        QVERIFY(!store->globalSaveTimer->isActive());
        QCOMPARE(folder->bytes("global.json"),
                 QByteArray("{\n    \"Global\": {\n        \"later\": {\n        },\n"
                            "        \"led_brightness\": 9\n    },\n    \"more\": 2\n}\n"));
    }

    void wholeMaps()
    {
        QSignalSpy shown(store.get(), SIGNAL(signalRecallGlobal(QVariantMap)));
        store->slotImportGlobalMap({{"Global", QVariantMap{{"led_brightness", 8}}}});
        QCOMPARE(shown.value(0), QVariantList{(QVariantMap{{"led_brightness", 8}})});
        store->slotWriteDefaultGlobal();
        QFile shipped(JSUM_SOURCE_DIR "/resources/presets/global.json");
        QVERIFY(shipped.open(QIODevice::ReadOnly));
        QCOMPARE(folder->bytes("global.json"), shipped.readAll());
    }

    // What this map never held is not written over by it.
    void fileThatCannotBeRead()
    {
        QDir().mkdir(folder->file("global.json"));
        store->slotReadGlobal();
        QDir().rmdir(folder->file("global.json"));
        const QByteArray bytes = R"({"Global":{"led_brightness":1,"tone_gen_freq":2}})";
        folder->write("global.json", bytes);
        store->slotStoreGlobal("led_brightness", 3);
        store->slotWriteGlobal();
        store->slotWriteDefaultGlobal();
        QCOMPARE(folder->bytes("global.json"), bytes);
    }

    void clearBringsTheTemplateIntoLine()
    {
        QVERIFY(!store->slotClearGlobalPreset());
        QVERIFY(!store->globalSaveTimer->isActive());
        QVariantMap blank = presetdefaults::globals();
        blank.remove("tone_gen_freq");
        blank.insert("led_brightness", 7);
        blank.insert("miditab_bank2_channel", 17);
        blank.insert("surroundtab_format", 1.9);
        blank.insert("usbtab_ch1_input_prepost", 1);
        blank.insert("phones_impedance", "high");
        blank.insert("sample_rate", 1);
        folder->write("Blank.jsumglobalmap", QJsonDocument::fromVariant(blank).toJson());
        QTest::ignoreMessage(QtDebugMsg,
                             "insert missing params from default global preset tone_gen_freq 440");
        QTest::ignoreMessage(QtDebugMsg,
                             "remove extra params from default global preset sample_rate");
        QVERIFY(store->slotClearGlobalPreset());
        QVariantMap wanted = presetdefaults::globals();
        wanted.insert("led_brightness", 7);
        wanted.insert("miditab_bank2_channel", 16);
        wanted.insert("usbtab_ch1_input_prepost", true);
        QCOMPARE(recalled(), wanted);
    }

    void aChangeOfAllIsSavedAndCanBeUndone()
    {
        const QByteArray asShipped =
            QJsonDocument::fromVariant(QVariantMap{{"Global", presetdefaults::globals()}}).toJson();
        const QByteArray dimmed =
            QByteArray(asShipped).replace("\"led_brightness\": 16", "\"led_brightness\": 3");
        read(R"({"Global":{"led_brightness":3}})"); // the rest counts as the factory's
        store->slotImportGlobalMap({{"Global", presetdefaults::globals()}});
        QCOMPARE(folder->bytes("backups/before-import.jsumglobalmap"), dimmed);
        QCOMPARE(store->fileBeforeChange(), folder->file("backups/before-import.jsumglobalmap"));
        QVERIFY(store->globalSaveTimer->isActive());
        tick(500);
        store->slotImportGlobalMap(QJsonDocument::fromJson(dimmed).toVariant().toMap());
        tick(500);
        QVERIFY(folder->bytes("global.json") != dimmed);
        tick(1);
        QCOMPARE(folder->bytes("global.json"), dimmed);

        store->slotSetDemoModeEnabled(true);
        store->slotImportGlobalMap({{"Global", QVariantMap()}});
        QCOMPARE(store->fileBeforeChange(), QString());
        QCOMPARE(folder->bytes("backups/before-import.jsumglobalmap"), asShipped);
    }

    void demoModeLeavesNoTrace()
    {
        read(R"({"Global":{"led_brightness":1}})");
        store->slotStoreGlobal("tone_gen_freq", 7); // by no control
        store->slotSetDemoModeEnabled(true);
        store->slotSetDemoModeEnabled(false);
        change(5);
        store->slotSetDemoModeEnabled(true);
        const QByteArray written = folder->bytes("global.json");
        change(9);
        tick(600);
        QVERIFY(!store->globalSaveTimer->isActive());
        store->slotWriteGlobal();
        QCOMPARE(folder->bytes("global.json"), written);
        store->slotSetDemoModeEnabled(false);
        // What waited for its tick when the demo began is neither lost nor left unwritten.
        QCOMPARE(recalled(), (QVariantMap{{"led_brightness", 5}, {"tone_gen_freq", 7}}));
        QVERIFY(written.contains(R"("led_brightness": 5)"));
    }
};

QTEST_MAIN(TestGlobalPresetInterface)
#include "tst_globalpresetinterface.moc"
