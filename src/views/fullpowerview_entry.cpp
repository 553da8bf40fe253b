// The view's entry to its mode and its exit, in their order, and the sync with the mixer's live
// state.

#include "channelselector.h"
#include "editedbox.h"
#include "faderframe.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "miditab.h"
#include "presetdrawer.h"
#include "presetinterface.h"
#include "progressbox.h"
#include "setlist.h"
#include "slottransfer.h"
#include "surroundtab.h"
#include "sysexmanager.h"
#include "usbtab.h"

#include <QAction>
#include <QDebug>
#include <QToolButton>

#include <utility>

bool FullPowerView::slotInitializeFullPowerMode()
{
    mode.enter();
    transfer->rest();
    const Flow flow = mode.flow();
    for (QWidget* widget : filteredWidgets())
        widget->installEventFilter(this);
    slotConnectInterfaces();
    connectFlashButton(true);
    slotConnectMenuItems();
    // A recall that the last mode's end cut short left it locked.
    form.presetlist->setEnabled(true);
    connect(this, SIGNAL(signalPopulatePresetMenu(ReorderableListWidget*)), presetInterface,
            SLOT(slotPopulatePresetMenu(ReorderableListWidget*)), Qt::UniqueConnection);
    presetInterface->slotSetSyncStatus(false);
    emit signalPopulatePresetMenu(form.presetlist);
    setlist->slotRecallSetlist();
    showAvailability();
    slotSetPreferences();
    if (!flow.isAlive())
        return false;
    if (!mode.demoModeEnabled) {
        slotDisconnectToSysexPresetSending();
        emit signalDisconnectGlobalSysex();
        for (GlobalTab* tab : globalTabs())
            tab->slotDisconnectToSysexSending();
        pageWires->setStoreSending(false);
    }
    enableGlobals(mode.demoModeEnabled);
    globalPresetInterface->slotRecallGlobal();
    drawer->select(0);
    if (!flow.isAlive())
        return false;
    drawer->checkAllSaveStates();
    if (!mode.demoModeEnabled) {
        layPresetZero();
        if (!flow.isAlive())
            return false;
        pageWires->setStoreSending(true);
        for (GlobalTab* tab : globalTabs())
            tab->slotConnectToSysexSending();
        mode.entry()->liveMemoryAsked = true;
        sysexManager->slotSendSinglePresetRequest(0, false);
    }
    emit signalFindAudioDeviceNames();
    return true;
}

void FullPowerView::slotDeInitializeFullPowerMode()
{
    // What is typed goes, while the wires are there, to the preset it is meant for, or to nobody.
    commitEditedBox();
    innerDialogs.closeAll();
    // The bridge lives with the mixer: without it the host's lights would gather.
    if (mode.entry() != nullptr)
        sysexManager->slotEnableHuiPort(false);
    mode.leave();
    selector->endMultipleSelection();
    for (QWidget* widget : filteredWidgets())
        widget->removeEventFilter(this);
    presetInterface->slotSetSyncStatus(false);
    slotDisconnectInterfaces();
    connectFlashButton(false);
    for (GlobalTab* tab : globalTabs()) {
        tab->slotDisconnectElements();
        tab->slotDisconnectToSysexSending();
    }
    // What the mixer's panel says of a mode that is over must check no button of the next.
    slotEnableViewChanging(false);
    slotDisconnectMenuItems();
    disconnect(this, SIGNAL(signalPopulatePresetMenu(ReorderableListWidget*)), presetInterface,
               SLOT(slotPopulatePresetMenu(ReorderableListWidget*)));
    transfer->rest();
    transfer->progress()->close();
}

bool FullPowerView::isBusy() const
{
    const ModeEntry* entry = mode.entry();
    return presetInterface->isRecalling()
        || (entry != nullptr
            && (!mode.isLive() || entry->isRecalling() || transfer->progress()->isOpen()));
}

void FullPowerView::slotAppClosing()
{
    if (mode.entry() != nullptr)
        mode.entry()->isOver = true;
    presetInterface->slotSetSyncStatus(false); // a recall under way ends here
}

void FullPowerView::slotSetDemoModeEnabled(bool enabled)
{
    qDebug() << "demo mode enabled?" << enabled;
    mode.demoModeEnabled = enabled;
    setlist->slotSetDemoModeEnabled(enabled);
    for (QToolButton* button : {form.send_all, form.receive_all, form.saveas})
        button->setEnabled(!enabled);
    // These three come back with the next selection of a preset, not here.
    if (enabled) {
        for (QToolButton* button : {form.save, form.revert, form.deletepreset})
            button->setEnabled(false);
    }
}

void FullPowerView::showAvailability()
{
    drawer->showAvailability();
    transfer->showAvailability();
    if (pasteNewPresetAct == nullptr)
        return;
    pasteNewPresetAct->setToolTip(presetInterface->isFull() ? PresetDrawer::libraryLimit()
                                                            : QString());
    // At a mode entry pasting is off until something is copied.
    if (pastePresetAct->isEnabled())
        slotUpdatePasteAvailability();
}

// Their send wires are joined before the sync is complete, and nothing is to be touched till then.
void FullPowerView::enableGlobals(bool enabled)
{
    connectPhantom(enabled);
    for (GlobalTab* tab : globalTabs())
        tab->setEnabled(enabled);
}

// Before the sync is complete a selection shows nothing, yet what the mixer then sends must move
// controls that hold the preset's values, or nothing would be stored where they agree by chance.
void FullPowerView::layPresetZero()
{
    const Flow flow = mode.flow();
    mode.entry()->isLaying = true;
    const QVariantMap preset = presetInterface->workingPreset(0);
    if (preset.isEmpty()) {
        for (PresetPage* page : pageWires->pages())
            page->slotConnectElements();
    } else {
        slotRecallPresets(preset); // the faders
        // Each recall of another page lets events pass, which may end this entry.
        for (PresetPage* page : pageWires->pages()) {
            if (flow.isAlive() && page != faders)
                page->slotRecallPreset(preset);
        }
    }
    if (!flow.isAlive())
        return;
    mode.entry()->isLaying = false;
    mode.entry()->runWaiting();
}

void FullPowerView::slotSyncOnConnectComplete()
{
    ModeEntry* entry = mode.entry();
    if (entry == nullptr || !entry->liveMemoryAsked) {
        qDebug() << "the end of a live memory that was not asked for";
        return;
    }
    if (mode.putOff(ModeEntry::Waiting::SyncComplete, [this] { slotSyncOnConnectComplete(); }))
        return;
    const bool isFirst = !std::exchange(entry->syncComplete, true);
    presetInterface->slotSetSyncStatus(true);
    slotConnectToSysexPresetSending();
    enableGlobals(true);
    emit signalConnectGlobalSysex();
    if (!isFirst)
        return;
    transfer->endPause();
    if (isViewLinkingStored())
        slotEnableViewChanging(true);
    showAvailability();
    setlist->slotRecallSetlist();
    // One that was picked meanwhile is shown and sent now; nothing after it.
    if (drawer->currentRow() > 0)
        presetInterface->slotRecallPreset(drawer->currentRow());
}

// Until the mixer's live state is here, a row that is picked shows nothing: what arrives and what
// is touched belong to the live preset.
int FullPowerView::shownPreset(int presetNum) const
{
    return presetNum == -1 && !mode.isLive() ? 0 : presetNum;
}

void FullPowerView::slotStoreShownValue(QString name, QVariant value, int presetNum)
{
    presetInterface->slotStoreValue(name, value, shownPreset(presetNum));
}

void FullPowerView::slotCheckShownState(int presetNum)
{
    presetInterface->slotCheckSaveState(shownPreset(presetNum));
}

void FullPowerView::slotCommitEditedBox() { commitEditedBox(); }
