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
    void change(const QString& name, const QVariant& value)
    {
        if (!store->globalSaveTimer->isActive())
            store->globalSaveTimer->start(100000);
        store->globalSaveTicks = 0;
        store->slotStoreGlobal(name, value);
    }
    void tick(int times)
    {
        for (int i = 0; i < times; ++i)
            QMetaObject::invokeMethod(store->globalSaveTimer, "timeout");
    }

private slots:
    void badFiles_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("array") << QByteArray("[1]");
        QTest::newRow("cut") << QByteArray(R"({"Global":{"led_brightness":1)");
        QTest::newRow("nothing known") << QByteArray(R"({"x":1})");
        QTest::newRow("no object under the key") << QByteArray(R"({"Global":[1,2]})");
    }
    void badFiles()
    {
        QFETCH(QByteArray, bytes);
        read(bytes);
        QCOMPARE(recalled(), QVariantMap());
        store->slotStoreGlobal("led_brightness", 3);
        QCOMPARE(recalled(), (QVariantMap{{"led_brightness", 3}}));
    }

    void messages()
    {
        const QString line =
            "WARNING: Global JSON not found - path: " + folder->file("global.json");
        QTest::ignoreMessage(QtDebugMsg, qPrintable(line));
        store->slotReadGlobal();
        QDir().mkdir(folder->file("global.json"));
        QTest::ignoreMessage(QtDebugMsg, "Global Json not found on write");
        store->slotWriteDefaultGlobal();
        QTest::ignoreMessage(QtDebugMsg, "Blank Global JSON not found");
        store->slotClearGlobalPreset();
        QCOMPARE(recalled(), presetdefaults::globals());
    }

    void tenChangesMakeOneWrite()
    {
        read(R"({"Global":{"led_brightness":1,"later":{}},"more":2})");
        const QByteArray before = folder->bytes("global.json");
        for (int value = 0; value < 10; ++value) {
            change("led_brightness", value);
            tick(500);
        }
        QCOMPARE(folder->bytes("global.json"), before);
        QVERIFY(store->globalSaveTimer->isActive());
        tick(1);
        QVERIFY(!store->globalSaveTimer->isActive());
        QCOMPARE(folder->bytes("global.json"),
                 QByteArray("{\n    \"Global\": {\n        \"later\": {\n        },\n"
                            "        \"led_brightness\": 9\n    },\n    \"more\": 2\n}\n"));
    }

    void clearBringsTheTemplateIntoLine()
    {
        QVariantMap blank = presetdefaults::globals();
        blank.remove("tone_gen_freq");
        blank.insert("led_brightness", 7);
        blank.insert("sample_rate", 1);
        folder->write("Blank.jsumglobalmap", QJsonDocument::fromVariant(blank).toJson());
        QSignalSpy spy(store.get(), SIGNAL(signalRecallGlobal(QVariantMap)));
        QTest::ignoreMessage(QtDebugMsg, "Blank Global JSON Found");
        QTest::ignoreMessage(QtDebugMsg,
                             "insert missing params from default global preset tone_gen_freq 440");
        QTest::ignoreMessage(QtDebugMsg,
                             "remove extra params from default global preset sample_rate");
        store->slotClearGlobalPreset();
        QVariantMap wanted = presetdefaults::globals();
        wanted.insert("led_brightness", 7);
        QCOMPARE(spy.size(), 1);
        QCOMPARE(spy.first().first().toMap(), wanted);
    }

    void wholeDocumentsGoInAndOut()
    {
        const QVariantMap document{{"Global", QVariantMap{{"led_brightness", 5}}}};
        store->slotImportGlobalMap(document);
        QSignalSpy spy(store.get(), SIGNAL(signalExportGlobalMap(QVariantMap)));
        store->slotExportGlobalMap();
        QCOMPARE(spy.first().first().toMap(), document);
        QCOMPARE(recalled(), (QVariantMap{{"led_brightness", 5}}));
    }

    void demoModeLeavesNoTrace()
    {
        const QByteArray before = R"({"Global":{"led_brightness":1}})";
        read(before);
        store->slotStoreGlobal("led_brightness", 5); // never written
        store->slotSetDemoModeEnabled(true);
        change("led_brightness", 9);
        tick(600);
        store->slotWriteGlobal();
        QCOMPARE(folder->bytes("global.json"), before);
        store->globalSaveTicks = 9;
        store->slotSetDemoModeEnabled(false);
        QCOMPARE(recalled(), (QVariantMap{{"led_brightness", 1}}));
        QVERIFY(!store->globalSaveTimer->isActive());
        QCOMPARE(store->globalSaveTicks, 0);
        tick(10);
        QCOMPARE(store->globalSaveTicks, 10);
        store->slotSetDemoModeEnabled(false); // without demo mode before it
        tick(10);
        QCOMPARE(store->globalSaveTicks, 30);
    }
};

QTEST_MAIN(TestGlobalPresetInterface)
#include "tst_globalpresetinterface.moc"
