// The mixer's live state at a mode entry, its own changes of preset, and what must wait until a
// recall has ended.

#include "faderframe.h"
#include "fullpowerview_flow.h"
#include "parameterpage.h"
#include "presetinterface.h"
#include "setlist.h"

#include <QDebug>

#include <utility>

// What events bring during a recall

bool FullPowerView::isRecalling() const { return entering || presetInterface->isRecalling(); }

void FullPowerView::runLater(Waiting kind, const std::function<void()>& action)
{
    waitingActions.removeIf([kind](const WaitingAction& waiting) { return waiting.kind == kind; });
    waitingActions.append({kind, action});
}

void FullPowerView::runWaiting()
{
    if (!modeActive || isRecalling())
        return;
    const int entry = modeEntry;
    // Those that must wait on line up again.
    const auto actions = std::exchange(waitingActions, {});
    for (const WaitingAction& waiting : actions)
        if (isCurrent(entry))
            waiting.action();
}

void FullPowerView::runWaitingSoon()
{
    if (!waitingActions.isEmpty())
        QMetaObject::invokeMethod(this, &FullPowerView::runWaiting, Qt::QueuedConnection);
}

void FullPowerView::slotDoneWaitingForReconnectOnSilentRecall()
{
    waitingForSilentRecall = false;
    runWaitingSoon();
}

void FullPowerView::slotPresetIsReadyToReceive() { presetReadyToReceive = true; }

// The sync with the mixer's live state

// Before the sync is complete a selection shows nothing, yet what the mixer then sends must move
// controls that hold the preset's values, or nothing would be stored where they agree by chance.
void FullPowerView::layPresetZero(int entry)
{
    const bool wasEntering = std::exchange(entering, true);
    const QVariantMap preset = presetInterface->workingPreset(0);
    if (preset.isEmpty()) {
        for (ParameterPage* page : parameterPages())
            page->slotConnectElements();
    } else {
        slotRecallPresets(preset); // the faders
        // Each recall of another page lets events pass, which may end this entry.
        for (ParameterPage* page : parameterPages()) {
            if (!isCurrent(entry))
                break;
            if (page != faders)
                page->slotRecallPreset(preset);
        }
    }
    entering = wasEntering && isCurrent(entry);
    if (isCurrent(entry))
        runWaiting();
}

void FullPowerView::slotSyncOnConnectComplete()
{
    if (!liveMemoryAsked) {
        qDebug() << "the end of a live memory that was not asked for";
        return;
    }
    if (isRecalling()) {
        runLater(Waiting::SyncComplete, [this] { slotSyncOnConnectComplete(); });
        return;
    }
    const bool isFirst = !std::exchange(syncComplete, true);
    presetInterface->slotSetSyncStatus(true);
    slotConnectToSysexPresetSending();
    connectPhantom(true);
    emit signalConnectGlobalSysex();
    if (!isFirst)
        return;
    if (mixerPaused)
        pauseMixer(false);
    if (isViewLinkingStored())
        slotEnableViewChanging(true);
    showAvailability();
    setlist->slotRecallSetlist();
    // One that was picked meanwhile is shown and sent now; nothing after it.
    if (form.presetlist->currentRow() > 0)
        presetInterface->slotRecallPreset(form.presetlist->currentRow());
}

void FullPowerView::slotRecallPresetSilently(int presetLibraryNumber)
{
    // The rest of a slot that is being received belongs to the preset that is current now.
    const bool isReceiving =
        receivingAllPresets || (requestedSlot > 0 && !progressWidget->isHidden());
    if (isRecalling() || isReceiving) {
        runLater(Waiting::PresetChange,
                 [this, presetLibraryNumber] { slotRecallPresetSilently(presetLibraryNumber); });
        return;
    }
    if (form.presetlist->currentRow() == presetLibraryNumber)
        return;
    if (presetLibraryNumber < 0 || presetLibraryNumber >= form.presetlist->count()) {
        qDebug() << "there is no preset" << presetLibraryNumber;
        return;
    }
    qDebug() << "Recall Preset Silently on preset change action from the board"
             << presetLibraryNumber;
    endMultipleSelection();
    slotCommitEditedBox();
    const Flow flow(this);
    // The controls stay, so what they show is the live memory now. The mixer tells what differs.
    if (isLive() && presetLibraryNumber == 0)
        presetInterface->goOnLiveFrom(presetInterface->currentPresetNumber());
    // Not so before the sync is complete.
    const bool wasSending = presetSendWireConnected;
    slotDisconnectToSysexPresetSending();
    disconnectStoreSending();
    for (const Wire& wire : qAsConst(recallWires))
        wire.disconnect();
    waitingForSilentRecall = true;
    selectRow(presetLibraryNumber);
    if (!flow.waitUntil([this] { return !waitingForSilentRecall; }))
        return;
    if (wasSending)
        slotConnectToSysexPresetSending();
    for (const Wire& wire : qAsConst(recallWires))
        wire.connect();
    connectStoreSending();
}
