#include "presetinterface.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QScopedValueRollback>

#include <utility>

void PresetInterface::slotRecallPreset(int i)
{
    emit signalStereoUpdatingStatus(false);
    if (i != -1)
        currentPreset = i;
    const SyncGuard sync(this);
    if (isDemoMode() || syncComplete)
        slotRecallPresetActions();
    if (sync.holds())
        emit signalStereoUpdatingStatus(true);
    emit signalPresetDoneRecalling();
}

void PresetInterface::slotRecallPresetActions()
{
    showAndSend([this](const QVariantMap& preset) { sender.sendAll(preset); });
}

void PresetInterface::showAndSend(const std::function<void(const QVariantMap& preset)>& send)
{
    const bool isInner = recalling;
    const QScopedValueRollback<bool> underWay(recalling, true);
    const SyncGuard sync(this);
    int number = ++recallNumber;
    const int presetNum = currentPreset;
    if (!show(sync))
        return;
    // As the preset stands now, with what the events just changed in it.
    if (number == recallNumber)
        send(library.workingPreset(presetNum));
    // A newer recall that came in with the events has sent its preset already. But the pages that
    // this one reached after it show the wrong preset: show the current one again.
    while (std::exchange(number, recallNumber) != recallNumber) {
        if (!show(sync))
            return;
    }
    // The recall whose events brought this one is still at it; it unlocks when it is done.
    if (isInner)
        return;
    emit signalConnectToSysexSending();
    emit signalPresetListEnabled(true);
    slotCheckSaveState(-1);
    // The events may have changed values of the preset from before a newer recall: its row says so.
    if (currentPreset != presetNum)
        slotCheckSaveState(presetNum);
}

// Lays the current preset on the controls, which must not send meanwhile, and lets events pass, but
// no clicks and keys: what the user does next belongs to what the recall leaves. False if the
// mixer went.
bool PresetInterface::show(const SyncGuard& sync)
{
    emit signalDisconnectFromSysexSending();
    emit signalPresetListEnabled(false);
    emit signalRecallPreset(library.workingPreset(currentPreset));
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    return sync.holds();
}

void PresetInterface::slotSendPreset(int presetLibraryNum)
{
    emit signalPresetListEnabled(false);
    emit signalStereoUpdatingStatus(false);
    if (presetLibraryNum == -1) {
        slotConstructDefaultMap();
        sender.sendAll(defaultMap);
    } else {
        sender.sendAll(library.savedPreset(presetLibraryNum));
    }
    slotCheckSaveState(presetLibraryNum);
    emit signalStereoUpdatingStatus(true);
    emit signalPresetListEnabled(true);
}

void PresetInterface::sendUnsavedEdits(int presetNum)
{
    const QVariantMap edits = library.edits(presetNum);
    if (edits.isEmpty())
        return;
    emit signalStereoUpdatingStatus(false);
    sender.sendAll(edits);
    emit signalStereoUpdatingStatus(true);
}
