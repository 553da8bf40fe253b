// Slots of the mixer into presets.

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
#include "slottransfer.h"
#include "sysexmanager.h"

#include <QComboBox>
#include <QDebug>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>

namespace
{

QString receivingText(QChar letter)
{
    return QStringLiteral("Receiving slot %1 from the board...").arg(letter);
}

} // namespace

bool SlotTransfer::canReceiveNew() const
{
    // A new preset is made from the current one.
    return !presetInterface->isFull() && presetInterface->currentPresetNumber() >= 0
        && with.form.presetlist->count() > 0;
}

void SlotTransfer::requestSlot(int slotNum, bool save)
{
    state.requestedSlot = slotNum;
    sysexManager->slotSendSinglePresetRequest(slotNum, save);
}

// What to receive into

void SlotTransfer::openReceiveAs(QChar letter)
{
    receiveAsForm.label->setText(QStringLiteral("Name Slot %1").arg(letter));
    with.innerDialogs.open(receiveAsDialog, receiveAsForm.name);
}

void SlotTransfer::openReceiveChoice(QChar letter)
{
    receivePresetForm.label->setText(QStringLiteral("RECEIVE SLOT %1").arg(letter));
    receivePresetForm.toSetlistSlot->setText(QStringLiteral("Copy into Slot %1").arg(letter));
    if (!canReceiveNew())
        receivePresetForm.toSetlistSlot->setChecked(true);
    const bool toNew = receivePresetForm.toNew->isChecked();
    receivePresetForm.receive->setEnabled(!toNew);
    with.innerDialogs.open(receivePresetDialog,
                           toNew ? static_cast<QWidget*>(receivePresetForm.name)
                                 : receivePresetForm.receive);
}

void SlotTransfer::slotOpenReceiveAll()
{
    with.innerDialogs.open(receiveAllDialog, receiveAllForm.prefix);
}

void SlotTransfer::assessReceiveDecision(const QObject* button)
{
    constexpr int letterPlace = 7;
    if (button == nullptr || button->objectName().size() <= letterPlace)
        return;
    const QChar letter = button->objectName().at(letterPlace);
    const bool isFull = !canReceiveNew();
    if (rowOfSlot(letter) < 0) {
        // "[DEFAULT]", or a name that no preset has: there is nothing to copy into.
        if (!isFull)
            openReceiveAs(letter);
        return;
    }
    const bool wantsNew = settingsStore->value(QStringLiteral("receiveDecision")).toString()
        == QLatin1String("toNew");
    const bool isRemembered =
        settingsStore->value(QStringLiteral("rememberReceiveDecision"), false).toBool();
    // Where there is no room for what was remembered, nothing is overwritten unasked.
    if (!isRemembered || (wantsNew && isFull))
        openReceiveChoice(letter);
    else if (wantsNew)
        openReceiveAs(letter);
    else
        receiveSlotOf(button);
}

// One slot

void SlotTransfer::receiveSlotOf(const QObject* button)
{
    if (button == nullptr || button->parent() == nullptr || button->objectName().isEmpty())
        return;
    const bool fromDialog = button->parent() == receivePresetDialog;
    const bool fromNaming = button->parent() == receiveAsDialog;
    const bool isNew = fromNaming || (fromDialog && receivePresetForm.toNew->isChecked());
    const QLabel* label = fromNaming ? receiveAsForm.label : receivePresetForm.label;
    const QString letterSource = fromDialog || fromNaming ? label->text() : button->objectName();
    if (letterSource.isEmpty())
        return;
    receiveSlot({letterSource.back(), isNew,
                 fromNaming ? receiveAsForm.name->text() : receivePresetForm.name->text()});
}

void SlotTransfer::receiveSlot(const ReceiveRequest& request)
{
    for (QWidget* dialog : {receivePresetDialog, receiveAsDialog})
        with.innerDialogs.close(dialog);
    if (with.mode.putOff(ModeEntry::Waiting::Transfer, [this, request] { receiveSlot(request); }))
        return;
    const auto [letter, isNew, typed] = request;
    state.presetReadyToReceive = false;
    commitEditedBox();
    const Flow flow = with.mode.flow();
    if (isNew && (!canReceiveNew() || typed.isEmpty()))
        return;
    // The slot may have been given another name, or none, while the dialog was open.
    if (!isNew && rowOfSlot(letter) < 0) {
        if (canReceiveNew())
            openReceiveAs(letter);
        return;
    }
    progressBox->show(receivingText(letter));
    setSending(false);
    with.selector.endMultipleSelection();
    if (isNew)
        receiveNew(flow, letter, presetInterface->slotAppendSuffixToNewPresetName(typed));
    else
        receiveInto(flow, letter);
}

// A new preset under this name, which stands in the slot's menu then.
bool SlotTransfer::makePreset(const Flow& flow, QChar letter, const QString& name)
{
    const int previous = presetInterface->currentPresetNumber();
    const int count = presetInterface->presetCount();
    const bool isForAll = state.receivingAllPresets;
    emit signalSaveAs(name, true, isForAll);
    if (flow.isAlive() && presetInterface->presetCount() == count) {
        giveUpReceiving();
        return false;
    }
    if (!flow.waitUntil([this] { return state.presetReadyToReceive; }))
        return false;
    state.presetReadyToReceive = false;
    if (!isForAll)
        presetInterface->slotCheckSaveState(previous);
    with.drawer.allowDelete();
    with.form.setlistMenus.at(slotNumberOf(letter) - 1)->setCurrentText(name);
    return true;
}

void SlotTransfer::receiveNew(const Flow& flow, QChar letter, const QString& name)
{
    qDebug() << "make a new preset from the parameters obtained from board slot" << letter
             << "named" << name;
    if (!makePreset(flow, letter, name))
        return;
    with.pageWires.setStoreSending(true);
    requestSlot(slotNumberOf(letter), true);
}

void SlotTransfer::receiveInto(const Flow& flow, QChar letter)
{
    const int row = rowOfSlot(letter);
    qDebug() << "receive slot" << letter << "from the board and save it into the preset named,"
             << presetInSlot(letter) << "at this location in the json file" << row;
    if (row >= 0)
        with.drawer.select(row);
    if (!flow.isAlive())
        return;
    with.pageWires.setStoreSending(true);
    requestSlot(slotNumberOf(letter), false);
}

void SlotTransfer::giveUpReceiving()
{
    qDebug() << "no preset could be made to receive into";
    state.receivingAllPresets = false;
    setSending(true);
    progressBox->close();
    with.mode.runWaitingSoon();
}

// All slots

void SlotTransfer::receiveAllFromDialog()
{
    const QString prefix = receiveAllForm.prefix->text();
    with.innerDialogs.close(receiveAllDialog);
    receiveAll(prefix);
}

void SlotTransfer::receiveAll(const QString& prefix)
{
    if (with.mode.putOff(ModeEntry::Waiting::Transfer, [this, prefix] { receiveAll(prefix); }))
        return;
    state.presetReadyToReceive = false;
    commitEditedBox();
    with.selector.endMultipleSelection();
    if (prefix.isEmpty() || !canReceiveNew()
        || presetInterface->presetCount() + slotCount > PresetInterface::maxPresets)
        return;
    const Flow flow = with.mode.flow();
    setSending(false);
    progressBox->show({});
    for (int slot = 1; slot <= slotCount; ++slot) {
        if (!receiveSlotAsNew(flow, slot, prefix))
            return;
    }
    state.receivingAllPresets = false;
    setSending(true);
    presetInterface->slotRecallPreset(with.form.presetlist->count() - 1);
    if (!flow.isAlive())
        return;
    progressBox->close();
    with.mode.runWaitingSoon();
}

bool SlotTransfer::receiveSlotAsNew(const Flow& flow, int slot, const QString& prefix)
{
    const QChar letter = slotLetter(slot - 1);
    state.receivedSlotNumber = 0;
    const QString name = presetInterface->slotAppendSuffixToNewPresetName(
        QStringLiteral("%1-%2").arg(prefix, QString(letter)));
    if (!flow.letEventsPass())
        return false;
    progressBox->setText(receivingText(letter));
    state.receivingAllPresets = true;
    if (!makePreset(flow, letter, name))
        return false;
    requestSlot(slot, true);
    return flow.waitUntil([this, slot] { return state.receivedSlotNumber == slot; });
}

// The mixer's end markers

void SlotTransfer::completeSlot(int slotNum, bool save)
{
    ModeEntry* entry = with.mode.entry();
    const bool isAsked = slotNum == state.requestedSlot;
    // Each of those that nobody asked for is followed by a whole recall. What is in the queue when
    // one has ended came meanwhile, and all of it gets one more.
    const bool mustWait =
        entry != nullptr && (entry->isRecalling() || (!isAsked && state.freshSlotEnds > 0));
    if (mustWait)
        entry->runLater(isAsked ? ModeEntry::Waiting::AskedSlotEnd : ModeEntry::Waiting::SlotEnd,
                        [this, slotNum, save] { takeSlotEnd(slotNum, save); });
    else
        takeSlotEnd(slotNum, save);
}

void SlotTransfer::takeSlotEnd(int slotNum, bool save)
{
    const Flow flow = with.mode.flow();
    if (!flow.isAlive())
        return;
    const bool isAsked = slotNum == state.requestedSlot;
    const bool isReceiving = state.requestedSlot > 0;
    const int current = with.drawer.currentRow();
    if (slotNum == 0)
        recallSilently(current);
    else if (!state.receivingAllPresets)
        presetInterface->slotRecallPreset(current);
    if (!flow.isAlive())
        return;
    if (save && isAsked)
        presetInterface->slotSavePreset(-1);
    if (isAsked)
        state.requestedSlot = -1;
    state.receivedSlotNumber = slotNum;
    // A box that is open for a send stays.
    if (isReceiving && !state.receivingAllPresets)
        progressBox->close();
    with.mode.runWaitingSoon();
    if (!isAsked)
        noteUnaskedEnd(flow);
}

void SlotTransfer::noteUnaskedEnd(const Flow& flow)
{
    ++state.freshSlotEnds;
    // Behind all that is in the queue by now.
    const auto rest = [this, flow] {
        if (!flow.isAlive())
            return;
        --state.freshSlotEnds;
        with.mode.entry()->runWaiting();
    };
    QMetaObject::invokeMethod(this, rest, Qt::QueuedConnection);
}
