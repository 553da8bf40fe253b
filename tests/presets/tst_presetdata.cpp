#include "presetdefaults.h"
#include "testcase.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <iterator>

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
        int lowest;
        int highest;
    };
    static constexpr Range ranges[]{
        {"_(fader|send_level)$", 3000, 10600},
        {"^channelstrip_phones_monitor_select$", 1, 12},
        {"_trim$", 0, 40},
        {"_highPass_freq$", 40, 400},
        {"_(bypass|stereo)$", 0, 1},
        {"_eq_(hi|mid|low)_gain$", 8200, 11800},
        {"_eq_hi_freq$", 300, 2000},
        {"_eq_mid_freq$", 200, 6000},
        {"_eq_low_freq$", 20, 400},
        {"_eq_mid_q$", 10, 1000},
        {"_compressor_gain$", 10000, 12400},
        {"_(compressor|gate)_thresh$", 3000, 11000},
        {"_compressor_ratio$", 0, 1000},
        {"_gate_gain$", 3600, 10000},
        {"_attack$", 1, 1000},
        {"_release$", 1, 3000},
        {"_pan$", 9900, 10100},
        {"^reverbtab_pre_delay$", 0, 200},
        {"^reverbtab_decay_time$", 100, 10000},
        {"^reverbtab_(damping|diffusion)$", 0, 100},
        {"^reverbtab_level$", 0, 10600},
    };
    static bool isInRange(const QString& key, int value)
    {
        const auto range = std::ranges::find_if(ranges, [&](const Range& candidate) {
            return key.contains(QRegularExpression(candidate.pattern));
        });
        return range != std::end(ranges) && value >= range->lowest && value <= range->highest;
    }

private slots:
    void templatesAreTheDefaults()
    {
        QCOMPARE(presetdefaults::globals().size(), 208);
        QCOMPARE(shippedMap("Blank.jsumpreset"), presetdefaults::preset());
        QCOMPARE(shippedMap("Blank.jsumglobalmap"), presetdefaults::globals());
        QCOMPARE(shippedMap("global.json"), (QVariantMap{{"Global", presetdefaults::globals()}}));
        QCOMPARE(shippedMap("setlist.json").keys().join(QString()), QString("ABCDEFGHIJKL"));
        // The first save must change nothing but values.
        for (const char* name : {"jsum.json", "global.json", "setlist.json"})
            QCOMPARE(shipped(name), QJsonDocument::fromJson(shipped(name)).toJson());
    }

    void library()
    {
        const QVariantMap presets = shippedMap("jsum.json");
        QVERIFY(presets.size() >= 13);
        const QVariantMap& defaults = presetdefaults::preset();
        QVariantMap sync = defaults;
        sync.insert("preset_name", "[CONNECTION SYNC]");
        QCOMPARE(presets.value("Preset_000").toMap(), sync);
        for (const QVariant& preset : presets) {
            const QVariantMap values = preset.toMap();
            QCOMPARE(values.keys(), defaults.keys());
            for (auto value = values.cbegin(); value != values.cend(); ++value) {
                const int type = value->typeId();
                const bool fits = type == QMetaType::LongLong
                    ? isInRange(value.key(), value->toInt())
                    : type == defaults.value(value.key()).typeId();
                QVERIFY2(fits, qPrintable(value.key() + ' ' + value->toString()));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestPresetData)
#include "tst_presetdata.moc"
