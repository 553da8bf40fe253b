#include "presetdefaults.h"
#include "testcase.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

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

    // Those of the controls, each in its own unit.
    void ranges()
    {
        const QStringList families{
            "faderframe_(ch[1-8]|aux[1-3]|phones|mains)_fader 3000 10600 13",
            "faderframe_(ch[1-8]|aux[1-3]|phones|mains)_mute 0 1 13",
            "faderframe_ch[1-8]_solo 0 1 8",
            "channelstrip_ch[1-8]_trim 0 40 8",
            "channelstrip_ch[1-8]_highPass_freq 40 400 8",
            "channelstrip_ch[1-8]_highPass_bypass 0 1 8",
            "channelstrip_ch[1357]_stereo 0 1 4",
            "channelstrip_ch[1-8]_(aux[123]_routing_)?pan 9900 10100 32",
            "channelstrip_ch[1-8]_aux[123]_routing_pre_post 0 1 24",
            "channelstrip_ch[1-8]_aux[123]_routing_send_level 3000 10600 24",
            "channelstrip_(ch[1-8]|mains)_(eq|compressor|gate)_bypass 0 1 27",
            "channelstrip_(ch[1-8]|mains)_eq_(hi|mid|low)_gain 8200 11800 27",
            "channelstrip_(ch[1-8]|mains)_eq_hi_freq 300 2000 9",
            "channelstrip_(ch[1-8]|mains)_eq_mid_freq 200 6000 9",
            "channelstrip_(ch[1-8]|mains)_eq_low_freq 20 400 9",
            "channelstrip_(ch[1-8]|mains)_eq_mid_q 10 1000 9",
            "channelstrip_(ch[1-8]|mains)_compressor_ratio 0 1000 9",
            "channelstrip_(ch[1-8]|mains)_compressor_gain 10000 12400 9",
            "channelstrip_(ch[1-8]|mains)_(compressor|gate)_thresh 3000 11000 18",
            "channelstrip_(ch[1-8]|mains)_(compressor|gate)_attack 1 1000 18",
            "channelstrip_(ch[1-8]|mains)_(compressor|gate)_release 1 3000 18",
            "channelstrip_(ch[1-8]|mains)_gate_gain 3600 10000 9",
            "channelstrip_phones_monitor_select 1 12 1",
            "reverbtab_(ch[1-8]_send_)?level 3000 10600 9",
            "reverbtab_(pre_post|bypass) 0 1 2",
            "reverbtab_pre_delay 0 200 1",
            "reverbtab_decay_time 100 10000 1",
            "reverbtab_(damping|diffusion) 0 100 2",
        };
        for (const QString& family : families) {
            const QStringList words = family.split(' ');
            const QStringList keys =
                presetdefaults::preset().keys().filter(QRegularExpression('^' + words.at(0) + '$'));
            QCOMPARE(keys.size(), words.at(3).toInt());
            for (const QString& key : keys) {
                const auto range = presetdefaults::range(key);
                QVERIFY2(range, qPrintable(key));
                QCOMPARE(range->lowest, words.at(1).toInt());
                QCOMPARE(range->highest, words.at(2).toInt());
            }
        }
        QVERIFY(!presetdefaults::range("preset_name"));
    }

    void library()
    {
        const QVariantMap presets = shippedMap("jsum.json");
        QVERIFY(presets.size() >= 13);
        const QVariantMap& defaults = presetdefaults::preset();
        QVariantMap sync = defaults;
        sync.insert("preset_name", "[CONNECTION SYNC]");
        QCOMPARE(presets.value("Preset_000").toMap(), sync);
        for (const QVariant& preset : presets)
            QCOMPARE(preset.toMap().keys(), defaults.keys());
    }
};

QTEST_GUILESS_MAIN(TestPresetData)
#include "tst_presetdata.moc"
