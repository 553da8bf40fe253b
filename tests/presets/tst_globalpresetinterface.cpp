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
        QVariantMap blank = presetdefaults::globals();
        blank.remove("tone_gen_freq");
        blank.insert("led_brightness", 7);
        blank.insert("sample_rate", 1);
        folder->write("Blank.jsumglobalmap", QJsonDocument::fromVariant(blank).toJson());
        store->slotClearGlobalPreset();
        QVariantMap wanted = presetdefaults::globals();
        wanted.insert("led_brightness", 7);
        QCOMPARE(recalled(), wanted);
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
