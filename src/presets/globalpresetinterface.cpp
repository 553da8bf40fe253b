#include "globalpresetinterface.h"

#include "diskfile.h"
#include "presetdefaults.h"

#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>

#include <utility>

namespace
{

// The file is written at the tick after these.
constexpr int globalQuietTicks = 500;

const QString globalKey = QStringLiteral("Global");

} // namespace

GlobalPresetInterface::GlobalPresetInterface(QObject* parent)
    : QObject(parent)
    , globalSaveTimer(new QTimer(this))
{
    connect(globalSaveTimer, SIGNAL(timeout()), this, SLOT(slotSaveGlobalTimeout()));
}

QString GlobalPresetInterface::pathOf(const QString& fileName) const
{
    return useResourcesFolder ? QStringLiteral("%1presets/%2").arg(resourcesFolder, fileName)
                              : QStringLiteral("resources/presets/%1").arg(fileName);
}

void GlobalPresetInterface::setParameters(const QVariantMap& parameters)
{
    globalMap.insert(globalKey, parameters);
}

void GlobalPresetInterface::slotSetJSONPath()
{
    file.setPath(pathOf(QStringLiteral("global.json")), access);
}

void GlobalPresetInterface::slotReadGlobal()
{
    const auto document = file.load();
    if (!document) {
        qDebug().noquote() << QStringLiteral("WARNING: Global JSON not found - path: ")
                + file.path();
        return;
    }
    qDebug() << "Global JSON Found";
    globalMap = *document;
}

void GlobalPresetInterface::slotWriteGlobal()
{
    if (demoMode || access == JsonFile::Access::LookOnly)
        return;
    const QByteArray text = QJsonDocument::fromVariant(globalMap).toJson();
    if (file.write(text) != JsonFile::WriteResult::Written)
        qDebug() << "Global Json not found on write";
}

void GlobalPresetInterface::slotWriteDefaultGlobal()
{
    slotSetJSONPath();
    slotConstructGlobalDefaultMap();
    setParameters(defaultGlobalMap);
    slotWriteGlobal();
}

void GlobalPresetInterface::slotStoreGlobal(QString name, QVariant value)
{
    QVariantMap parameters = globalMap.take(globalKey).toMap();
    parameters.insert(name, value);
    setParameters(parameters);
}

void GlobalPresetInterface::slotRecallGlobal()
{
    emit signalRecallGlobal(globalMap.value(globalKey).toMap());
}

void GlobalPresetInterface::slotSaveGlobalTimeout()
{
    ++globalSaveTicks;
    if (globalSaveTicks > globalQuietTicks) {
        slotWriteGlobal();
        globalSaveTimer->stop();
    }
}

void GlobalPresetInterface::slotExportGlobalMap() { emit signalExportGlobalMap(globalMap); }

void GlobalPresetInterface::slotImportGlobalMap(QVariantMap map)
{
    globalMap = map;
    slotRecallGlobal();
}

void GlobalPresetInterface::slotClearGlobalPreset()
{
    const auto bytes = diskfile::readFile(pathOf(QStringLiteral("Blank.jsumglobalmap")));
    if (!bytes) {
        qDebug() << "Blank Global JSON not found";
        return;
    }
    qDebug() << "Blank Global JSON Found";
    QVariantMap blank = QJsonDocument::fromJson(*bytes).object().toVariantMap();

    slotConstructGlobalDefaultMap();
    for (auto wanted = defaultGlobalMap.cbegin(); wanted != defaultGlobalMap.cend(); ++wanted) {
        if (blank.contains(wanted.key()))
            continue;
        blank.insert(wanted.key(), wanted.value());
        qDebug().noquote() << "insert missing params from default global preset" << wanted.key()
                           << wanted->toString();
    }
    const QStringList keys = blank.keys();
    for (const QString& key : keys) {
        if (defaultGlobalMap.contains(key))
            continue;
        blank.remove(key);
        qDebug().noquote() << "remove extra params from default global preset" << key;
    }
    setParameters(blank);
    slotRecallGlobal();
}

void GlobalPresetInterface::slotConstructGlobalDefaultMap()
{
    defaultGlobalMap = presetdefaults::globals();
}

void GlobalPresetInterface::slotSetDemoModeEnabled(bool enabled)
{
    const bool leaving = demoMode && !enabled;
    if (enabled && !demoMode) {
        if (globalSaveTimer->isActive())
            slotWriteGlobal();
        globalSaveTimer->stop();
        globalMapBeforeDemo = globalMap;
    }
    demoMode = enabled;
    if (enabled) {
        disconnect(globalSaveTimer, SIGNAL(timeout()), this, SLOT(slotSaveGlobalTimeout()));
        // Whoever starts it need not know that nothing is written.
        connect(globalSaveTimer, SIGNAL(timeout()), globalSaveTimer, SLOT(stop()),
                Qt::UniqueConnection);
        return;
    }
    disconnect(globalSaveTimer, SIGNAL(timeout()), globalSaveTimer, SLOT(stop()));
    // Not unique on purpose: without demo mode before it, the ticks count twice from here on.
    connect(globalSaveTimer, SIGNAL(timeout()), this, SLOT(slotSaveGlobalTimeout()));
    if (!leaving)
        return;
    globalSaveTimer->stop();
    globalSaveTicks = 0;
    globalMap = std::exchange(globalMapBeforeDemo, {});
}
