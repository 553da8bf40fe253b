#include "exchange.h"
#include "testcase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/stat.h>

// What files of other origin are taken for, and what files are called.
class TestExchange : public TestCase
{
    Q_OBJECT

    QTemporaryDir folder;

    QString write(const QString& name, const QByteArray& bytes) const
    {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(name));
        return file.fileName();
    }
    static QString kept(const QString& name)
    {
        return QStringLiteral(JSUM_SOURCE_DIR "/tests/data/") + name;
    }

private slots:
    void kinds_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("asPreset"); // the refusal
        QTest::addColumn<QString>("asGlobals");
        const QString damaged = "it is damaged, or no file of this editor";
        const QString nothing = "it holds no value of the mixer";
        const QString emptyGlobals = "its global mappings hold no value of the mixer";
        const QString isGlobals = "it holds global mappings, and no preset";
        const QString isPreset = "it holds a preset, and no global mappings";
        const auto row = [](const char* bytes, const QString& asPreset, const QString& asGlobals) {
            QTest::newRow(bytes) << QByteArray(bytes) << asPreset << asGlobals;
        };
        row("", damaged, damaged);
        row("[{\"led_brightness\": 1}]", damaged, damaged);
        row("{\"led_brightness\": 1", damaged, damaged);
        QTest::newRow("zero byte")
            << QByteArray("{\"preset_name\": \"\0\", \"reverbtab_damping\": 1}", 41) << damaged
            << damaged;
        row("{\"preset_name\": \"a\", \"zoom\": 1}", nothing, nothing);
        row("{\"Preset_000\": {\"reverbtab_damping\": 1}}",
            "it holds a whole library, and not one preset",
            "it holds a preset library, and no global mappings");
        row("{\"reverbtab_damping\": 1}", "", isPreset);
        row("{\"led_brightness\": 1}", isGlobals, "");
        row("{\"Global\": {\"led_brightness\": 1}, \"more\": 1}", isGlobals, "");
        row("{\"Global\": [1]}", isGlobals, emptyGlobals);
        row("{\"Global\": {\"reverbtab_damping\": 1}}", isGlobals, emptyGlobals);
        row("{\"reverbtab_damping\": 1, \"reverbtab_level\": 0, \"led_brightness\": 1}", "",
            isPreset);
    }
    void kinds()
    {
        QFETCH(const QByteArray, bytes);
        QFETCH(const QString, asPreset);
        QFETCH(const QString, asGlobals);
        const QString path = write("Lead.txt", bytes);
        QCOMPARE(exchange::readPreset(path).refusal, asPreset);
        QCOMPARE(exchange::readGlobals(path).refusal, asGlobals);
        QCOMPARE(exchange::readGlobals(path).map.size(), asGlobals.isEmpty() ? 1 : 0);
        QCOMPARE(exchange::sorted({path}).globals.size(), asPreset.contains("global") ? 1 : 0);
    }

    void noFiles()
    {
        const QString large =
            write("large", "{\"reverbtab_damping\": 1}" + QByteArray(1 << 20, ' '));
        const QString pipe = folder.filePath("pipe");
        QCOMPARE(mkfifo(qPrintable(pipe), 0600), 0);
        const std::pair<QString, QString> rows[]{
            {folder.path(), "it is a folder"},   {folder.filePath("none"), "there is no such file"},
            {large, "it is too large"},          {pipe, "it can't be opened"},
            {"/dev/zero", "it can't be opened"},
        };
        for (const auto& [path, refusal] : rows) {
            QCOMPARE(exchange::readPreset(path).refusal, refusal);
            QCOMPARE(exchange::readGlobals(path).refusal, refusal);
        }
    }

    void values()
    {
        const auto [map, changes, refusal] = exchange::readPreset(write("x", R"({
            "preset_name": "Lead", "later": {}, "reverbtab_level": 0,
            "reverbtab_damping": 100.9, "reverbtab_diffusion": -1e300, "reverbtab_pre_delay": "5",
            "reverbtab_bypass": 1, "channelstrip_ch1_eq_bypass": true,
            "faderframe_ch1_mute": 7, "channelstrip_ch1_trim": 41})"));
        QCOMPARE(changes,
                 QStringList({"322 values were missing and are the factory's",
                              "1 unknown entry was left out",
                              "4 values were brought into their range"}));
        QCOMPARE(map.size(), 330);
        const QVariantMap wanted{
            {"preset_name", "Lead"},       {"reverbtab_level", 0},
            {"reverbtab_damping", 100},    {"reverbtab_diffusion", 0},
            {"reverbtab_pre_delay", 20},   {"reverbtab_bypass", true},
            {"faderframe_ch1_mute", true}, {"channelstrip_ch1_eq_bypass", 1},
            {"channelstrip_ch1_trim", 40}, {"channelstrip_ch3_trim", 16},
        };
        for (auto value = wanted.cbegin(); value != wanted.cend(); ++value)
            QCOMPARE(map.value(value.key()), *value);
        QCOMPARE(map.value("reverbtab_bypass").typeId(), int(QMetaType::Bool));
    }

    void names()
    {
        const std::tuple<QByteArray, QString, QString> rows[]{
            {"\"Lead\"", "file.jsumpreset", "Lead"},
            {"\" \\tLe\\nad\\u2028 \"", "file", "Lead"},
            {"\"<b>\\u00e4\\ud83c\\udfb8</b>\"", "file", QString::fromUtf8("<b>ä🎸</b>")},
            {"\"\"", "Song 1.2.jsumpreset", "Song 1.2"},
            {"12", "song.jsumpreset", "song"},
            {"null", ".jsumpreset", "Preset"},
            {"\"" + QByteArray(10000, 'x') + "\"", "file", QString(32, 'x')},
            {"\"" + QByteArray(31, 'x') + "\\ud83c\\udfb8\"", "file", QString(31, 'x')},
            {"\"" + QByteArray(31, 'x') + " x\"", "file", QString(31, 'x')},
        };
        for (const auto& [json, file, name] : rows) {
            const QString path =
                write(file, "{\"reverbtab_damping\": 1, \"preset_name\": " + json + "}");
            const auto [map, changes, refusal] = exchange::readPreset(path);
            QCOMPARE(map.value("preset_name").toString(), name);
            const bool isAsItWas = json == "\"Lead\"" || json.contains("<b>");
            QCOMPARE(changes.contains("its name was changed"), !isAsItWas);
        }
    }

    void fileNames()
    {
        const std::pair<QString, QString> rows[]{
            {"Lead", "Lead"},
            {"LEAD", "LEAD (2)"},
            {"lead (2)", "lead (2) (2)"},
            {"Lead ", "Lead (3)"},
            {"..a/b\\c:d*e?f\"g<h>i|j\n\x7f. .", "a_b_c_d_e_f_g_h_i_j__"},
            {"aux", "aux_"},
            {"AUX_", "AUX_ (2)"},
            {"com1.old", "com1_.old"},
            {"aux sends", "aux sends"},
            {"", "Preset"},
            {" . ", "Preset (2)"},
            {QString(80, 'y'), QString(49, 'y')},
            {QString(81, 'Y'), QString(46, 'Y') + " (2)"},
            {QString::fromUtf8("Ä"), QString::fromUtf8("Ä")},
            {QString::fromUtf8("a\u0308"), QString::fromUtf8("a\u0308 (2)")},
        };
        QStringList given;
        QStringList wanted;
        for (const auto& [name, file] : rows) {
            given << name;
            wanted << file;
        }
        QCOMPARE(exchange::fileNames(given), wanted);
    }

    // Files that users have: they come in as they are from now on.
    void keptFiles()
    {
        const exchange::Imported preset = exchange::readPreset(kept("exported.jsumpreset"));
        QCOMPARE(preset.changes + QStringList{preset.refusal}, QStringList{QString()});
        QCOMPARE(preset.map.value("preset_name"), QVariant("Sunday Service"));
        QCOMPARE(preset.map.value("faderframe_ch1_fader"), QVariant(9000));
        const exchange::Imported globals = exchange::readGlobals(kept("exported.jsumglobalmap"));
        QCOMPARE(globals.changes + QStringList{globals.refusal}, QStringList{QString()});
        QCOMPARE(exchange::phantomPower(globals.map),
                 QString("Phantom power of 48 V is on now on inputs 1 and 2."));
        for (const auto& [name, map] : {std::pair("exported.jsumpreset", preset.map),
                                        std::pair("exported.jsumglobalmap", globals.map)}) {
            QFile file(kept(name));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(exchange::textOf(map), file.readAll());
        }
    }
};

QTEST_APPLESS_MAIN(TestExchange)
#include "tst_exchange.moc"
