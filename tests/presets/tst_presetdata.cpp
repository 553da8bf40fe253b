#include "presetdefaults.h"
#include "testcase.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

// The compiled-in factory values, and the shipped files beside them.
class TestPresetData : public TestCase
{
    Q_OBJECT

    static QByteArray shipped(const QString& name)
    {
        QFile file(QStringLiteral(JSUM_SOURCE_DIR "/resources/presets/") + name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static QVariantMap shippedMap(const QString& name)
    {
        return QJsonDocument::fromJson(shipped(name)).object().toVariantMap();
    }

    struct Range {
        const char* pattern;
        int count; // keys of a preset
        int lowest;
        int highest;
    };
    static constexpr int asBool = -1;
    static constexpr Range ranges[]{
        {"^faderframe_.*_fader$", 13, 3000, 10600},
        {"^faderframe_.*_(mute|solo)$", 21, asBool, asBool},
        {"^channelstrip_phones_monitor_select$", 1, 1, 12},
        {"_trim$", 8, 0, 40},
        {"_highPass_freq$", 8, 40, 400},
        {"^channelstrip_.*_bypass$", 35, 0, 1},
        {"_ch[1357]_stereo$", 4, 0, 1},
        {"_eq_(hi|mid|low)_gain$", 27, 8200, 11800},
        {"_eq_hi_freq$", 9, 300, 2000},
        {"_eq_mid_freq$", 9, 200, 6000},
        {"_eq_low_freq$", 9, 20, 400},
        {"_eq_mid_q$", 9, 10, 1000},
        {"_compressor_gain$", 9, 10000, 12400},
        {"_(compressor|gate)_thresh$", 18, 3000, 11000},
        {"_compressor_ratio$", 9, 0, 1000},
        {"_gate_gain$", 9, 3600, 10000},
        {"_attack$", 18, 1, 1000},
        {"_release$", 18, 1, 3000},
        {"_pan$", 32, 9900, 10100},
        {"_pre_post$", 25, asBool, asBool},
        {"_send_level$", 32, 3000, 10600},
        {"^reverbtab_pre_delay$", 1, 0, 200},
        {"^reverbtab_decay_time$", 1, 100, 10000},
        {"^reverbtab_(damping|diffusion)$", 2, 0, 100},
        {"^reverbtab_level$", 1, 0, 10600},
        {"^reverbtab_bypass$", 1, asBool, asBool},
    };

private slots:
    void values_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("value");
        const auto row = [](const char* key, const QVariant& value) {
            QTest::newRow(key) << QString(key) << value;
        };
        row("preset_name", "DefaultPreset");
        row("channelstrip_ch2_trim", 0);
        row("channelstrip_ch3_trim", 16);
        row("channelstrip_mains_eq_hi_freq", 324);
        row("channelstrip_ch8_aux3_routing_pre_post", true);
        row("reverbtab_level", 0);
        row("surroundtab_ch6_assign", 2);
        row("miditab_bank3_channel", 3);
        row("miditab_rotary4_bank1_cc", 13);
        row("miditab_button03_bank1_note", 12);
        row("miditab_button04_bank1_note", 14);
        row("miditab_button15_bank3_note", 25);
        row("miditab_presetbutton_bank3_note", 13);
        row("miditab_diamond_bank2_left_note", 28);
        row("usbtab_ch8_output_prepost", false);
    }
    void values()
    {
        QFETCH(QString, key);
        QVariantMap all = presetdefaults::preset();
        all.insert(presetdefaults::globals());
        QTEST(all.value(key), "value");
    }

    void counts()
    {
        QCOMPARE(presetdefaults::preset().size(), 329 + 1);
        QCOMPARE(presetdefaults::globals().size(), 208);
        int mapping = 0;
        for (const QString& key : presetdefaults::globals().keys())
            mapping += key.startsWith("miditab_") ? 1 : 0;
        QCOMPARE(mapping, 155);
        QVERIFY(presetdefaults::isPresetParameter("reverbtab_bypass"));
        QVERIFY(!presetdefaults::isPresetParameter("preset_name"));
        QVERIFY(!presetdefaults::isPresetParameter("channelstrip_ch1_phantom"));
    }

    void shippedForm_data()
    {
        QTest::addColumn<QString>("name");
        for (const char* name : {"jsum.json", "Blank.jsumpreset", "global.json",
                                 "Blank.jsumglobalmap", "setlist.json"})
            QTest::newRow(name) << QString(name);
    }
    void shippedForm()
    {
        QFETCH(QString, name);
        const QByteArray bytes = shipped(name);
        QVERIFY(!bytes.isEmpty());
        QCOMPARE(bytes, QJsonDocument::fromJson(bytes).toJson(QJsonDocument::Indented));
    }

    void templatesAreTheDefaults()
    {
        QCOMPARE(shippedMap("Blank.jsumpreset"), presetdefaults::preset());
        QCOMPARE(shippedMap("Blank.jsumglobalmap"), presetdefaults::globals());
        QCOMPARE(shippedMap("global.json"), (QVariantMap{{"Global", presetdefaults::globals()}}));
    }

    void library()
    {
        const QVariantMap presets = shippedMap("jsum.json");
        QVERIFY(presets.size() >= 13);
        QVariantMap sync = presetdefaults::preset();
        sync.insert("preset_name", "[CONNECTION SYNC]");
        QCOMPARE(presets.value("Preset_000").toMap(), sync);

        QSet<QString> names;
        for (const QVariant& preset : presets) {
            const QVariantMap values = preset.toMap();
            QCOMPARE(values.keys(), presetdefaults::preset().keys());
            const QString name = values.value("preset_name").toString();
            QVERIFY2(name.size() <= 24 && !names.contains(name), qPrintable(name));
            names.insert(name);
        }
        const QVariantMap setlist = shippedMap("setlist.json");
        QCOMPARE(setlist.keys().join(QString()), QString("ABCDEFGHIJKL"));
        for (const QVariant& name : setlist)
            QVERIFY2(names.contains(name.toString()), qPrintable(name.toString()));
    }

    void everyKeyIsInRange()
    {
        const QVariantMap presets = shippedMap("jsum.json");
        int keys = 0;
        for (const Range& range : ranges) {
            const QStringList matching =
                presetdefaults::preset().keys().filter(QRegularExpression(range.pattern));
            QVERIFY2(matching.size() == range.count, range.pattern);
            keys += range.count;
            for (const QVariant& preset : presets) {
                for (const QString& key : matching) {
                    const QVariant value = preset.toMap().value(key);
                    const bool fits = range.lowest == asBool ? value.typeId() == QMetaType::Bool
                                                             : value.typeId() == QMetaType::LongLong
                            && value.toInt() >= range.lowest && value.toInt() <= range.highest;
                    QVERIFY2(fits, qPrintable(key + ' ' + value.toString()));
                }
            }
        }
        QCOMPARE(keys, 329);
    }

    void pairsAgree()
    {
        int pairs = 0;
        for (const QVariant& entry : shippedMap("jsum.json")) {
            const QVariantMap preset = entry.toMap();
            for (const int first : {1, 3, 5, 7}) {
                const QString one = QString("_ch%1_").arg(first);
                const QString other = QString("_ch%1_").arg(first + 1);
                if (preset.value(QString("channelstrip%1stereo").arg(one)).toInt() == 0)
                    continue;
                ++pairs;
                for (const QString& key : preset.keys().filter(other)) {
                    const QVariant left = preset.value(QString(key).replace(other, one));
                    const QVariant right = preset.value(key);
                    if (key.endsWith("pan"))
                        QCOMPARE(left.toInt() + right.toInt(), 20000);
                    else
                        QVERIFY2(left == right, qPrintable(key));
                }
            }
        }
        QVERIFY(pairs > 0);
    }
};

QTEST_GUILESS_MAIN(TestPresetData)
#include "tst_presetdata.moc"
