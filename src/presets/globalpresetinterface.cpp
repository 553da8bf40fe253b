#include "globalpresetinterface.h"

#include "alignedmap.h"
#include "diskfile.h"
#include "presetdefaults.h"
#include "presetnames.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

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
    globalMap.insert(globalsKey(), parameters);
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
    QVariantMap parameters = globalMap.take(globalsKey()).toMap();
    parameters.insert(name, value);
    setParameters(parameters);
}

void GlobalPresetInterface::slotRecallGlobal()
{
    emit signalRecallGlobal(globalMap.value(globalsKey()).toMap());
}

void GlobalPresetInterface::slotSaveGlobalTimeout()
{
    if (!saveDelay.tick())
        return;
    slotWriteGlobal();
    globalSaveTimer->stop();
}

void GlobalPresetInterface::slotExportGlobalMap() { emit signalExportGlobalMap(globalMap); }

void GlobalPresetInterface::slotImportGlobalMap(QVariantMap map) { replaceBy(map); }

bool GlobalPresetInterface::slotClearGlobalPreset()
{
    const auto bytes = diskfile::readFile(pathOf(QStringLiteral("Blank.jsumglobalmap")));
    if (!bytes) {
        qDebug() << "Blank Global JSON not found";
        return false;
    }
    qDebug() << "Blank Global JSON Found";
    const QVariantMap blank = QJsonDocument::fromJson(*bytes).object().toVariantMap();
    QVariantMap cleared = globalMap;
    cleared.insert(globalsKey(), aligned(blank, Parameter::Store::Global).values);
    replaceBy(cleared);
    return true;
}

void GlobalPresetInterface::replaceBy(const QVariantMap& map)
{
    keepBefore();
    globalMap = map;
    // No control moved that would start it.
    if (!globalSaveTimer->isActive())
        globalSaveTimer->start(1);
    globalSaveTicks = 0;
    slotRecallGlobal();
}

// What the file lacks counts as its default, and is the default in the copy: to import that file
// brings back what was in force.
void GlobalPresetInterface::keepBefore()
{
    beforeFile.clear();
    if (!isWritable())
        return;
    slotConstructGlobalDefaultMap();
    QVariantMap parameters = defaultGlobalMap;
    parameters.insert(globalMap.value(globalsKey()).toMap());
    QVariantMap document = globalMap;
    document.insert(globalsKey(), parameters);
    const QString path = pathOf(QStringLiteral("backups/before-import.jsumglobalmap"));
    QDir().mkpath(QFileInfo(path).path());
    if (diskfile::replace(path, QJsonDocument::fromVariant(document).toJson()))
        qDebug() << "the globals before the change could not be kept in" << path;
    else
        beforeFile = path;
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
