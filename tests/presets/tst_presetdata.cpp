#include "presetdefaults.h"
#include "testcase.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

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
        for (const QVariant& preset : presets)
            QCOMPARE(preset.toMap().keys(), defaults.keys());
    }
};

QTEST_GUILESS_MAIN(TestPresetData)
#include "tst_presetdata.moc"
