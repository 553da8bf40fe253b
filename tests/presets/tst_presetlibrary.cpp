#include "presetlibrary.h"
#include "storefixture.h"

// Numbering, naming and order of presets, and what differs from the saved state.
class TestPresetLibrary : public TestCase
{
    Q_OBJECT

    const QString sync = "[CONNECTION SYNC]";
    const QString delay = "reverbtab_pre_delay";
    PresetLibrary library;

    void load(const QByteArray& json)
    {
        library.load(QJsonDocument::fromJson(json).toVariant().toMap());
    }
    QVariantMap saved(const QString& key) const { return library.saved().value(key).toMap(); }

private slots:
    void numbering()
    {
        load(R"({"Preset_000":{"preset_name":"a"}, "Preset_004":null, "Preset_005":7,
                 "Preset_100":{"preset_name":5}, "Preset_1000":{}, "MyPresets":{}, "preset":1})");
        QCOMPARE(library.names(), QStringList({sync, "a", "", "", "5"}));
        QCOMPARE(library.entryCount(), 5 + 1); // a stray key counts
        QCOMPARE(library.count(), 5);
    }

    // Or the live memory would be written into a preset of the user's.
    void firstIsTheMixers()
    {
        load(libraryOf({"a", "b"}));
        QCOMPARE(library.workingPreset(0).size(), 330);
        QCOMPARE(library.workingPreset(0).value("channelstrip_ch3_trim").toInt(), 16);
        QVERIFY(library.store(0, delay, 99) && library.save(0));
        QCOMPARE(saved("Preset_000").value(delay).toInt(), 99);
        QCOMPARE(saved("Preset_002"), (QVariantMap{{"preset_name", "b"}, {delay, 1}}));

        load(libraryOf({"a", sync, "b"})); // it is there, but not the first
        QCOMPARE(library.names(), QStringList({sync, "a", "b"}));
        QCOMPARE(library.workingPreset(0).value(delay).toInt(), 1);
        load("{}");
        QCOMPARE(library.names(), QStringList());
    }

    void atTheLimit()
    {
        QStringList many{sync};
        for (int i = 1; i < 1000; ++i)
            many << QString("P%1").arg(i);
        QJsonObject document = QJsonDocument::fromJson(libraryOf(many)).object();
        document.insert("Preset_1000", QJsonObject{{"preset_name", "far"}});
        load(QJsonDocument(document).toJson());
        QVERIFY(library.isFull());
        QCOMPARE(QJsonObject::fromVariantMap(library.saved()), document);

        QVERIFY(library.remove(999) && !library.isFull());
        library.append({QVariantMap{{"preset_name", "one more"}}});
        QCOMPARE(library.keyOfName("one more"), QString("Preset_999"));
        QCOMPARE(saved("Preset_1000").value("preset_name"), QVariant("far"));

        // The mixer's preset finds room, and nothing is lost.
        document.insert("Preset_000", QJsonObject{{"preset_name", "P0"}});
        load(QJsonDocument(document).toJson());
        QCOMPARE(library.names().size(), 1000);
        QCOMPARE(library.names().first(2), QStringList({sync, "P0"}));
        QCOMPARE(saved("Preset_1000").value("preset_name"), QVariant("far"));
        QCOMPARE(saved("Preset_1001").value("preset_name"), QVariant("P999"));
    }

    // What was looked up before must not answer for a library that has changed since.
    void keyOfAName()
    {
        load(libraryOf({sync, "b", "b", "c"}));
        QCOMPARE(library.keyOfName("b"), QString("Preset_001"));
        library.rename(1, "d");
        QCOMPARE(library.keyOfName("b"), QString("Preset_002"));
        library.remove(1);
        QCOMPARE(library.keyOfName("c"), QString("Preset_002"));
        QVERIFY(library.keyOfName("d").isNull());
        load(libraryOf({sync, "c"}));
        QCOMPARE(library.keyOfName("c"), QString("Preset_001"));
    }

    void newNames()
    {
        const auto made = [this](const QStringList& inUse, const QString& name) {
            load(libraryOf(inUse));
            return library.freeName(name);
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

    void reorder()
    {
        // The library, the names in their new order, and the numbers that the presets had.
        const std::tuple<QStringList, QStringList, QString> cases[]{
            {{sync, "a", "b"}, {"b", sync, "a"}, "021"}, // sync stays first
            {{sync, "a", "b", "a"}, {sync, "a", "a", "b"}, "0132"},
            {{sync, "a", "b", "c"}, {"x", "c"}, "0312"}, // missing and unknown names
            {{sync, "a", sync}, {sync, sync, "a"}, "012"},
        };
        for (const auto& [presets, order, wanted] : cases) {
            load(libraryOf(presets));
            library.store(1, delay, 10); // an edit goes along with its preset
            library.reorder(order);
            QString before;
            QString now;
            for (int i = 0; i < presets.size(); ++i) {
                before += library.savedPreset(i).value(delay).toString();
                now += library.workingPreset(i).value(delay).toString();
            }
            QCOMPARE(before, wanted);
            QCOMPARE(now, QString(wanted).replace("1", "10"));
        }
    }

    void differencesAreNumeric()
    {
        load(R"({"Preset_000":{"preset_name":"[CONNECTION SYNC]","a":3000.0,"b":true,"c":1}})");
        const auto differs = [&](const QString& name, const QVariant& value) {
            library.store(0, name, value);
            return library.isDirty(0);
        };
        QVERIFY(!differs("a", 3000));
        QVERIFY(!differs("b", 1));
        QVERIFY(!differs("c", true));
        QVERIFY(differs("a", 3001));
        QVERIFY(!differs("a", 3000));
        QVERIFY(differs("new", 0));
        QCOMPARE(library.edits(0), (QVariantMap{{"new", 0}}));
        library.revert(0);
        QVERIFY(library.edits(0).isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestPresetLibrary)
#include "tst_presetlibrary.moc"
