#include "globalpresetinterface.h"

#include "diskfile.h"
#include "presetdefaults.h"

#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>

namespace
{

const QString globalKey = QStringLiteral("Global");

} // namespace

GlobalPresetInterface::GlobalPresetInterface(QObject* parent)
    : QObject(parent)
    , JsonStore({"global.json",
                 "WARNING: Global JSON not found - path: ", "Global Json not found on write"})
    , globalSaveTimer(new QTimer(this))
    , saveDelay(globalSaveTimer, globalSaveTicks, this, SLOT(slotSaveGlobalTimeout()))
{
}

void GlobalPresetInterface::setParameters(const QVariantMap& parameters)
{
    globalMap.insert(globalKey, parameters);
}

void GlobalPresetInterface::slotSetJSONPath() { updatePath(); }

void GlobalPresetInterface::slotReadGlobal()
{
    const auto document = read();
    if (!document)
        return;
    qDebug() << "Global JSON Found";
    globalMap = *document;
}

void GlobalPresetInterface::slotWriteGlobal() { write(globalMap); }

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
    if (!saveDelay.tick())
        return;
    slotWriteGlobal();
    globalSaveTimer->stop();
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
    if (enabled && globalSaveTimer->isActive())
        slotWriteGlobal();
    saveDelay.setDemoMode(enabled);
    setDemoMode(enabled, globalMap, globalMapBeforeDemo);
}
