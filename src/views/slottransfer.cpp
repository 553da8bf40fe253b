#include "slottransfer.h"

#include "channelselector.h"
#include "editedbox.h"
#include "forms/fullpowerform.h"
#include "innerdialogs.h"
#include "pagewires.h"
#include "presetdrawer.h"
#include "presetinterface.h"
#include "presetnames.h"
#include "progressbox.h"
#include "setlist.h"
#include "sysexmanager.h"

#include <QDebug>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimer>
#include <QToolButton>

namespace
{

constexpr int pauseMs = 500;

} // namespace

SlotTransfer::SlotTransfer(QWidget* view, const Rooms& rooms, SysexManager* sysex,
                           PresetInterface* presets, Setlist* slotPresets, QSettings* settings)
    : QObject(view)
    , with(rooms)
    , sysexManager(sysex)
    , presetInterface(presets)
    , setlist(slotPresets)
    , settingsStore(settings)
    , progressBox(new ProgressBox(view, &rooms.innerDialogs))
{
    progressBox->setParent(this);
    setupDialogs();
}

void SlotTransfer::setupDialogs()
{
    InnerDialogs& dialogs = with.innerDialogs;
    receivePresetDialog = dialogs.make({466, 224, 268, 244});
    receivePresetForm.setupUi(receivePresetDialog);
    receiveAsDialog = dialogs.make({494, 268, 213, 156});
    receiveAsForm.setupUi(receiveAsDialog);
    receiveAllDialog = dialogs.make({481, 260, 239, 172});
    receiveAllForm.setupUi(receiveAllDialog);
    dialogs.addName(receivePresetForm.name, receivePresetForm.receive, receivePresetForm.toNew);
    dialogs.addName(receiveAsForm.name, receiveAsForm.receive);
    dialogs.addName(receiveAllForm.prefix, receiveAllForm.receive);
    for (QPushButton* button :
         {receivePresetForm.cancel, receiveAsForm.cancel, receiveAllForm.cancel})
        dialogs.closeBy(button);
}

void SlotTransfer::rest() { state = {}; }

QString SlotTransfer::presetInSlot(QChar letter) const { return setlist->presetInSlot(letter); }

int SlotTransfer::rowOfSlot(QChar letter) const
{
    return with.form.presetlist->rowOf(presetInSlot(letter));
}

// What the library has room for, and the mixer is ready for.
void SlotTransfer::showAvailability()
{
    const bool hasMixer = with.mode.isSynced() && !with.mode.demoModeEnabled;
    const bool isFull = presetInterface->isFull();
    const bool hasRoomForAll =
        presetInterface->presetCount() + slotCount <= PresetInterface::maxPresets;
    with.form.send_all->setEnabled(hasMixer);
    with.form.receive_all->setEnabled(hasMixer && hasRoomForAll);
    with.form.receive_all->setToolTip(
        hasRoomForAll ? QStringLiteral("Fetch all slots of the mixer as new presets.")
                      : QStringLiteral("The library has no room for twelve more presets."));
    receivePresetForm.toNew->setEnabled(!isFull);
    receivePresetForm.toNew->setToolTip(
        isFull ? PresetDrawer::libraryLimit()
               : QStringLiteral("Keep the preset that stands in this slot."));
}

void SlotTransfer::updateSendsAndReceives(bool enabled, QChar letter)
{
    const int slot = slotNumberOf(letter) - 1;
    if (slot < 0 || slot >= with.form.sendButtons.size())
        return;
    with.form.sendButtons.at(slot)->setEnabled(enabled && with.mode.isLive());
    // Of a slot that is off there is nothing to say.
    const bool hasTarget = !enabled || !presetInterface->isFull() || rowOfSlot(letter) >= 0;
    // There is no mixer in a demo that could answer.
    QToolButton* receive = with.form.receiveButtons.at(slot);
    receive->setEnabled(enabled && with.mode.isSynced() && hasTarget);
    receive->setToolTip(hasTarget ? FullPowerForm::receiveToolTip(letter)
                                  : PresetDrawer::libraryLimit());
}

// What is touched, and what a recall shows, is sent.
void SlotTransfer::setSending(bool connected)
{
    if (connected) {
        with.pageWires.setStoreSending(true);
        with.pageWires.setSending(true);
    } else {
        with.pageWires.setSending(false);
        with.pageWires.setStoreSending(false);
    }
}

// Sending

void SlotTransfer::sendSlotOf(const QObject* button)
{
    constexpr int letterPlace = 4;
    if (button != nullptr && button->objectName().size() > letterPlace)
        sendSlot(button->objectName().at(letterPlace));
}

void SlotTransfer::sendSlot(QChar letter)
{
    // Of a preset that the mixer selects by itself no parameter would go out.
    if (with.mode.putOff(ModeEntry::Waiting::Transfer, [this, letter] { sendSlot(letter); }))
        return;
    commitEditedBox();
    progressBox->show({});
    with.selector.endMultipleSelection();
    pauseMixer(true);
    sendPreset(slotNumberOf(letter) - 1, presetInSlot(letter), true);
}

void SlotTransfer::sendAll()
{
    if (with.mode.putOff(ModeEntry::Waiting::Transfer, [this] { sendAll(); }))
        return;
    commitEditedBox();
    const Flow flow = with.mode.flow();
    progressBox->show({});
    with.selector.endMultipleSelection();
    pauseMixer(true);
    for (int slot = 0; slot < slotCount && flow.isAlive(); ++slot)
        sendPreset(slot, presetInSlot(slotLetter(slot)), slot == slotCount - 1);
}

// It holds still while slots are written.
void SlotTransfer::pauseMixer(bool paused)
{
    mixerPaused = paused;
    sysexManager->slotSendDSPUpdatingStatus(!paused);
}

void SlotTransfer::endPause()
{
    if (mixerPaused)
        pauseMixer(false);
}

void SlotTransfer::sendPreset(int setlistNumber, const QString& presetName, bool recallCurrent)
{
    const Flow flow = with.mode.flow();
    const bool isFactory = presetName == factoryPresetName();
    // A name that no preset has is passed over as "[OFF]" is.
    const int row = isFactory ? -1 : with.form.presetlist->rowOf(presetName);
    const bool isSent = isFactory || (row >= 0 && presetName != emptySlotName());
    const QChar letter = slotLetter(setlistNumber);
    const QString progress = QStringLiteral("Sending slot %1 to the board...").arg(letter);
    // Before events pass: they paint it, and while the parameters go out nothing is painted.
    if (isSent)
        progressBox->setText(progress);
    if (!flow.letEventsPass())
        return;
    if (isSent) {
        if (row >= 0)
            presetInterface->slotSavePreset(row);
        qDebug().noquote() << QStringLiteral(
                                  "sending preset number %1 / setlist slot %2 to the board")
                                  .arg(row)
                                  .arg(letter);
        presetInterface->slotSendPreset(row);
        sysexManager->slotSendSaveToSlot(setlistNumber + 1);
        progressBox->setText(progress);
        if (!pauseAfterSlot(flow))
            return;
    }
    if (recallCurrent)
        sendCurrent();
}

// Ends a send: the editor's preset goes back into the mixer's live memory.
void SlotTransfer::sendCurrent()
{
    pauseMixer(false);
    const int current = with.drawer.currentRow();
    // The live state as it is, not as it was at its last save.
    if (current == 0)
        presetInterface->slotSavePreset(0);
    if (current >= 0) {
        presetInterface->slotSendPreset(current);
        presetInterface->sendUnsavedEdits(current);
    }
    progressBox->close();
}

// The mixer writes the slot. The wait itself lets no events pass.
bool SlotTransfer::pauseAfterSlot(const Flow& flow)
{
    auto* timer = new QTimer(this);
    timer->start(pauseMs);
    const bool goesOn = flow.letEventsPass();
    while (goesOn && timer->isActive()) {
        if (timer->remainingTime() < 1)
            timer->stop();
    }
    timer->stop();
    timer->deleteLater();
    return goesOn && flow.letEventsPass();
}

// The mixer's own changes of preset

void SlotTransfer::recallSilently(int row)
{
    // The rest of a slot that is being received belongs to the preset that is current now.
    const bool isReceiving =
        state.receivingAllPresets || (state.requestedSlot > 0 && progressBox->isOpen());
    ModeEntry* entry = with.mode.entry();
    if (entry != nullptr && (entry->isRecalling() || isReceiving)) {
        entry->runLater(ModeEntry::Waiting::PresetChange, [this, row] { recallSilently(row); });
        return;
    }
    if (with.drawer.currentRow() == row)
        return;
    if (row < 0 || row >= with.form.presetlist->count()) {
        qDebug() << "there is no preset" << row;
        return;
    }
    qDebug() << "Recall Preset Silently on preset change action from the board" << row;
    with.selector.endMultipleSelection();
    commitEditedBox();
    const Flow flow = with.mode.flow();
    // The controls stay, so what they show is the live memory now. The mixer tells what differs.
    if (with.mode.isLive() && row == 0)
        presetInterface->goOnLiveFrom(presetInterface->currentPresetNumber());
    // Not so before the sync is complete.
    const bool wasSending = with.pageWires.isSending();
    setSending(false);
    with.pageWires.setRecalling(false);
    state.waitingForSilentRecall = true;
    with.drawer.select(row);
    if (!flow.waitUntil([this] { return !state.waitingForSilentRecall; }))
        return;
    if (wasSending)
        with.pageWires.setSending(true);
    with.pageWires.setRecalling(true);
    with.pageWires.setStoreSending(true);
}

void SlotTransfer::silentRecallIsDone()
{
    state.waitingForSilentRecall = false;
    with.mode.runWaitingSoon();
}
