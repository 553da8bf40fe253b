#include "presetinterface.h"

#include "presetdefaults.h"

#include <QDebug>

PresetInterface::PresetInterface(QObject* parent)
    : QObject(parent)
    , JsonStore({"jsum.json",
                 "WARNING: JSum Editor JSON Not Found - path: ", "JSum Editor JSON Not Found"})
    , liveMemoryTimer(new QTimer(this))
    , saveDelay(liveMemoryTimer, liveMemoryTicks, this, SLOT(slotSaveLiveMemoryTimeout()))
    , sender(this, Parameter::Store::Preset, [this](const QString& jsonName, int value) {
        emit signalSendPresetParameter(jsonName, value);
    })
{
    connect(this, SIGNAL(signalStopLiveMemoryTimer()), liveMemoryTimer, SLOT(stop()));
}

void PresetInterface::slotUpdateJSONPath() { updatePath(); }

void PresetInterface::slotReadJSON()
{
    const auto document = read();
    if (!document)
        return;
    qDebug() << "JSum Editor JSON Found";
    library.load(*document);
}

void PresetInterface::slotWriteJSON(QVariantMap jsonMap)
{
    if (isWritable())
        write(libraryText.textOf(jsonMap));
}

int PresetInterface::slotGetNumPresetsInJson() const { return library.entryCount(); }

QString PresetInterface::slotGetPresetStringFromInt(int presetNum) const
{
    return PresetLibrary::keyOf(presetNum);
}

QString PresetInterface::slotGetPresetStringFromName(QString presetName)
{
    return library.keyOfName(presetName);
}

void PresetInterface::slotPopulatePresetLists() { library.populateLists(); }

void PresetInterface::slotPopulatePresetMenu(ReorderableListWidget* presetList)
{
    qDebug() << "slotPopulatePresetMenu called";
    // Filling the list must not recall a preset.
    disconnect(presetList, SIGNAL(currentRowChanged(int)), this, SLOT(slotRecallPreset(int)));
    slotPopulatePresetLists();
    presetList->setNames(library.names());
    connect(presetList, SIGNAL(currentRowChanged(int)), this, SLOT(slotRecallPreset(int)));
    emit signalPopulateSetlistMenus(presetList);
}

void PresetInterface::slotOrderPresetsInJson() { library.takeFromLists(); }

void PresetInterface::slotConstructDefaultMap() { defaultMap = presetdefaults::preset(); }

QString PresetInterface::slotAppendSuffixToNewPresetName(QString name)
{
    return library.freeName(name);
}

void PresetInterface::slotSetSyncStatus(bool complete)
{
    syncComplete = complete;
    if (!complete)
        ++syncNumber;
}

void PresetInterface::slotSetDemoModeEnabled(bool enabled)
{
    if (enabled && !isDemoMode() && liveMemoryTimer->isActive())
        saveLiveMemory();
    saveDelay.setDemoMode(enabled);
    sender.setDemoMode(enabled);
    setDemoMode(enabled, library, libraryBeforeDemo);
}
