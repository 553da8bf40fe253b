#include "presetinterface.h"

#include "presetnames.h"

#include <QDebug>

#include <algorithm>
#include <numeric>
#include <utility>

namespace
{

// The live memory is saved at the tick after these.
constexpr int liveMemoryQuietTicks = 500;

void refuse(const char* what, int presetNum)
{
    qDebug().noquote() << QStringLiteral("%1: the library has no preset %2")
                              .arg(QLatin1String(what))
                              .arg(presetNum);
}

} // namespace

void PresetInterface::slotStoreValue(QString name, QVariant value, int presetNum)
{
    if (name.endsWith(QStringLiteral("_phantom")))
        return;
    const int storeIn = resolved(presetNum);
    if (QVariantMap* const preset = presetIn(workingMap, storeIn))
        preset->insert(name, value);
    else
        refuse("store", storeIn);
}

void PresetInterface::slotCheckSaveState(int presetNum)
{
    const int checked = resolved(presetNum);
    const QVariantMap saved = savedPreset(checked);
    const QVariantMap working = workingPreset(checked);
    // A preset that was never edited still shares its data with the saved one.
    const bool dirty = !working.isSharedWith(saved)
        && std::any_of(working.keyValueBegin(), working.keyValueEnd(),
                       [&](const auto& value) { return saved.value(value.first) != value.second; });
    emit signalPresetDirty(checked, dirty);
}

void PresetInterface::goOnLiveFrom(int presetNum)
{
    QVariantMap* const live = presetIn(workingMap, 0);
    if (live == nullptr || presetNum == 0 || !contains(presetNum))
        return;
    const QVariant name = live->value(presetNameKey());
    *live = workingPreset(presetNum);
    live->insert(presetNameKey(), name);
    slotCheckSaveState(0);
}

void PresetInterface::copyToSaved(int presetNum)
{
    if (QVariantMap* const preset = presetIn(savedMap, presetNum))
        *preset = workingPreset(presetNum);
    keysByName.clear();
}

void PresetInterface::append(const QVariantMap& preset)
{
    slotPopulatePresetLists();
    workingList.append(preset);
    savedList.append(preset);
    slotOrderPresetsInJson();
}

void PresetInterface::slotSetCurrentPreset(int presetNum)
{
    if (contains(presetNum))
        currentPreset = presetNum;
    else
        refuse("make current", presetNum);
}

void PresetInterface::slotSavePreset(int presetToSave)
{
    const int saved = resolved(presetToSave);
    if (!contains(saved)) {
        refuse("save", saved);
        return;
    }
    copyToSaved(saved);
    if (saved != 0)
        slotCheckSaveState(-1);
    slotWriteJSON(savedMap);
    slotPopulatePresetLists(); // nothing reads them before they are made anew
}

void PresetInterface::slotSavePresetAs(QString presetName, bool isForReceivingPreset,
                                       bool isForReceivingAll)
{
    if (!contains(currentPreset)) {
        refuse("save as", currentPreset);
        return;
    }
    if (isFull()) {
        qDebug() << "save as: the library is full";
        return;
    }
    QVariantMap preset = workingPreset(currentPreset);
    preset.insert(presetNameKey(), presetName);
    append(preset);
    const int sync = syncNumber;
    // The edits live in the new preset now.
    if (!isForReceivingPreset)
        slotRevertPreset();
    slotWriteJSON(savedMap);
    // Each recall lets events pass. If they ended the sync, the list is made anew with the next.
    if (sync != syncNumber)
        return;
    emit signalAddOrRemovePreset();
    const int last = presetCount() - 1;
    if (!isForReceivingAll)
        emit signalDisconnectFromSysexSending();
    emit signalPresetMenu(last);
    if (sync != syncNumber)
        return;
    if (!isForReceivingAll)
        emit signalConnectToSysexSending();
    if (isForReceivingPreset || isForReceivingAll)
        emit signalPresetIsReadyToReceive();
}

void PresetInterface::slotRenamePreset(QString presetName)
{
    if (!contains(currentPreset)) {
        refuse("rename", currentPreset);
        return;
    }
    presetIn(workingMap, currentPreset)->insert(presetNameKey(), presetName);
    presetIn(savedMap, currentPreset)->insert(presetNameKey(), presetName);
    keysByName.clear();
    slotWriteJSON(savedMap);
    emit signalAddOrRemovePreset();
    emit signalPresetMenu(currentPreset);
}

void PresetInterface::slotReorderPresets(ReorderableListWidget* presetList)
{
    if (presetCount() == 0) {
        qDebug() << "reorder: the library is empty";
        return;
    }
    slotPopulatePresetLists();
    QList<int> left(savedList.size());
    std::iota(left.begin(), left.end(), 0);
    QList<int> order;
    // Of presets that share a name each row takes the next one, so that none is lost.
    const auto takeFirst = [&](const QString& name) {
        const auto first = std::find_if(left.cbegin(), left.cend(), [&](int presetNum) {
            return nameOfPreset(savedList.at(presetNum)) == name;
        });
        if (first == left.cend())
            return;
        order.append(*first);
        left.erase(first);
    };
    takeFirst(syncPresetName());
    for (int row = 0; row < presetList->count(); ++row) {
        const QString name = presetList->item(row)->text();
        if (name != syncPresetName())
            takeFirst(name);
    }
    order.append(left);

    const auto workingBefore = std::exchange(workingList, {});
    const auto savedBefore = std::exchange(savedList, {});
    for (const int presetNum : std::as_const(order)) {
        workingList.append(workingBefore.at(presetNum));
        savedList.append(savedBefore.at(presetNum));
    }
    slotOrderPresetsInJson();
    slotWriteJSON(savedMap);
    emit signalAddOrRemovePreset();
}

void PresetInterface::slotRevertPreset()
{
    if (currentPreset == -1)
        return;
    if (QVariantMap* const preset = presetIn(workingMap, currentPreset))
        *preset = savedPreset(currentPreset);
    slotRecallPreset(currentPreset);
}

void PresetInterface::slotDeletePreset()
{
    if (!contains(currentPreset)) {
        refuse("delete", currentPreset);
        return;
    }
    slotPopulatePresetLists();
    savedList.removeAt(currentPreset);
    workingList.removeAt(currentPreset);
    currentPreset = std::min(currentPreset, static_cast<int>(savedList.size()) - 1);
    slotOrderPresetsInJson();
    slotWriteJSON(savedMap);
    emit signalAddOrRemovePreset();
    const int count = presetCount();
    for (int presetNum = 0; presetNum < count; ++presetNum)
        slotCheckSaveState(presetNum);
    emit signalPresetMenu(0);
    emit signalPopulateSetlistMenusAfterDelete();
}

void PresetInterface::slotSaveLiveMemoryTimeout()
{
    ++liveMemoryTicks;
    if (liveMemoryTicks <= liveMemoryQuietTicks)
        return;
    saveLiveMemory();
}

void PresetInterface::saveLiveMemory()
{
    if (contains(0)) {
        copyToSaved(0);
        slotWriteJSON(savedMap);
    } else {
        refuse("save live memory", 0);
    }
    emit signalStopLiveMemoryTimer();
}

void PresetInterface::slotSetSyncStatus(bool complete)
{
    syncComplete = complete;
    if (!complete)
        ++syncNumber;
}

void PresetInterface::slotSetDemoModeEnabled(bool enabled)
{
    const bool leaving = demoMode && !enabled;
    if (enabled && !demoMode) {
        if (liveMemoryTimer->isActive())
            saveLiveMemory();
        savedMapBeforeDemo = savedMap;
        workingMapBeforeDemo = workingMap;
    }
    demoMode = enabled;
    if (enabled) {
        disconnect(liveMemoryTimer, SIGNAL(timeout()), this, SLOT(slotSaveLiveMemoryTimeout()));
        // Whoever starts it need not know that nothing is saved.
        connect(liveMemoryTimer, SIGNAL(timeout()), liveMemoryTimer, SLOT(stop()),
                Qt::UniqueConnection);
        return;
    }
    disconnect(liveMemoryTimer, SIGNAL(timeout()), liveMemoryTimer, SLOT(stop()));
    // Not unique on purpose: without demo mode before it, the ticks count twice from here on.
    connect(liveMemoryTimer, SIGNAL(timeout()), this, SLOT(slotSaveLiveMemoryTimeout()));
    if (leaving)
        leaveDemoMode();
}

void PresetInterface::leaveDemoMode()
{
    liveMemoryTimer->stop();
    liveMemoryTicks = 0;
    // A rename or a new order reached the saved state too, though not its file.
    savedMap = std::exchange(savedMapBeforeDemo, {});
    workingMap = std::exchange(workingMapBeforeDemo, {});
    keysByName.clear();
}
