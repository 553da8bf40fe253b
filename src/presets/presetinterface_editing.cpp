#include "presetinterface.h"

#include "alignedmap.h"
#include "diskfile.h"
#include "presetnames.h"

#include <QDebug>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

namespace
{

void refuse(const char* task, int presetNum)
{
    qDebug().noquote() << QStringLiteral("%1: the library has no preset %2")
                              .arg(QLatin1String(task))
                              .arg(presetNum);
}

} // namespace

void PresetInterface::slotStoreValue(QString name, QVariant value, int presetNum)
{
    if (name.endsWith(QStringLiteral("_phantom")))
        return;
    const int storeIn = resolved(presetNum);
    if (!library.store(storeIn, name, value))
        refuse("store", storeIn);
}

void PresetInterface::slotCheckSaveState(int presetNum)
{
    const int checked = resolved(presetNum);
    emit signalPresetDirty(checked, library.isDirty(checked));
}

void PresetInterface::goOnLiveFrom(int presetNum)
{
    if (presetNum != 0 && library.copyValues(presetNum, 0))
        slotCheckSaveState(0);
}

void PresetInterface::slotSetCurrentPreset(int presetNum)
{
    if (!library.contains(presetNum))
        return refuse("make current", presetNum);
    currentPreset = presetNum;
}

void PresetInterface::slotSavePreset(int presetToSave)
{
    const int saved = resolved(presetToSave);
    if (!library.save(saved))
        return refuse("save", saved);
    if (saved != 0)
        slotCheckSaveState(-1);
    slotWriteJSON(library.saved());
    slotPopulatePresetLists(); // nothing reads them before they are made anew
}

void PresetInterface::slotSavePresetAs(QString presetName, bool isForReceivingPreset,
                                       bool isForReceivingAll)
{
    if (!library.contains(currentPreset))
        return refuse("save as", currentPreset);
    if (isFull()) {
        qDebug() << "save as: the library is full";
        return;
    }
    QVariantMap preset = library.workingPreset(currentPreset);
    preset.insert(presetNameKey(), presetName);
    library.append({preset});
    const SyncGuard sync(this);
    // The edits live in the new preset now.
    if (!isForReceivingPreset)
        slotRevertPreset();
    slotWriteJSON(library.saved());
    // Each recall lets events pass. If they ended the sync, the view's list of presets is not made
    // anew here but when the next sync begins.
    if (!sync.holds())
        return;
    emit signalAddOrRemovePreset();
    const int last = presetCount() - 1;
    if (!isForReceivingAll)
        emit signalDisconnectFromSysexSending();
    emit signalPresetMenu(last);
    if (!sync.holds())
        return;
    if (!isForReceivingAll)
        emit signalConnectToSysexSending();
    if (isForReceivingPreset || isForReceivingAll)
        emit signalPresetIsReadyToReceive();
}

void PresetInterface::slotRenamePreset(QString presetName)
{
    if (!library.rename(currentPreset, presetName))
        return refuse("rename", currentPreset);
    slotWriteJSON(library.saved());
    emit signalAddOrRemovePreset();
    emit signalPresetMenu(currentPreset);
}

void PresetInterface::slotReorderPresets(ReorderableListWidget* presetList)
{
    if (presetCount() == 0) {
        qDebug() << "reorder: the library is empty";
        return;
    }
    QStringList order;
    for (int row = 0; row < presetList->count(); ++row)
        order.append(presetList->item(row)->text());
    library.reorder(order);
    slotWriteJSON(library.saved());
    emit signalAddOrRemovePreset();
}

void PresetInterface::slotRevertPreset()
{
    if (currentPreset == -1)
        return;
    library.revert(currentPreset);
    slotRecallPreset(currentPreset);
}

void PresetInterface::slotDeletePreset()
{
    if (!library.remove(currentPreset))
        return refuse("delete", currentPreset);
    currentPreset = std::min(currentPreset, presetCount() - 1);
    slotWriteJSON(library.saved());
    emit signalAddOrRemovePreset();
    const int count = presetCount();
    for (int presetNum = 0; presetNum < count; ++presetNum)
        slotCheckSaveState(presetNum);
    emit signalPresetMenu(0);
    emit signalPopulateSetlistMenusAfterDelete();
}

void PresetInterface::slotSaveLiveMemoryTimeout()
{
    if (saveDelay.tick())
        saveLiveMemory();
}

void PresetInterface::saveLiveMemory()
{
    if (library.save(0))
        slotWriteJSON(library.saved());
    else
        refuse("save live memory", 0);
    emit signalStopLiveMemoryTimer();
}

bool PresetInterface::isReadyToPaste() const
{
    return library.contains(currentPreset) && (isDemoMode() || syncComplete) && !recalling;
}

bool PresetInterface::layOverCurrent(const QVariantMap& values)
{
    if (values.isEmpty() || !isReadyToPaste()) {
        qDebug() << "paste: nothing to paste, or the preset can't take it now";
        return false;
    }
    library.layOver(currentPreset, values);
    return true;
}

void PresetInterface::pastePreset(const QVariantMap& values)
{
    if (layOverCurrent(values))
        slotRecallPreset(currentPreset);
}

void PresetInterface::pasteParameters(const QVariantMap& values)
{
    if (!layOverCurrent(values))
        return;
    showAndSend([&](const QVariantMap& preset) { sender.sendThese(preset, values.keys()); });
    emit signalPresetDoneRecalling();
}

QVariantMap PresetInterface::blankPreset() const
{
    const auto bytes = diskfile::readFile(pathOf(QStringLiteral("Blank.jsumpreset")));
    QVariantMap blank =
        QJsonDocument::fromJson(bytes.value_or(QByteArray())).object().toVariantMap();
    blank.remove(presetNameKey());
    return aligned(blank, Parameter::Store::Preset).values;
}

QVariantMap PresetInterface::presetToExport(int presetNum) const
{
    return presetNum == 0 ? library.workingPreset(0) : library.savedPreset(presetNum);
}

int PresetInterface::appendPreset(const QVariantMap& preset)
{
    return appendPresets({preset}) == 1 ? presetCount() - 1 : -1;
}

int PresetInterface::appendPresets(const QList<QVariantMap>& presets)
{
    const int appended = std::min(static_cast<int>(presets.size()), roomForPresets());
    if (appended == 0) {
        qDebug() << "append: nothing is to be, or the library is full, or empty";
        return 0;
    }
    library.append(presets.first(appended));
    slotWriteJSON(library.saved());
    return appended;
}
