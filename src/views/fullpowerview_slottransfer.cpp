// Presets to and from the mixer's slots. These flows wait for the mixer while events pass: anything
// may happen meanwhile, down to the end of the mode that they began in. One whose mode is over
// touches nothing any more.

#include "fullpowerview_flow.h"
#include "presetinterface.h"
#include "presetnames.h"
#include "setlist.h"
#include "sysexmanager.h"

#include <QCoreApplication>
#include <QDebug>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSettings>
#include <QTimer>
#include <QToolButton>

namespace
{

constexpr int pauseMs = 500;

} // namespace

// Progress

void FullPowerView::showProgress(const QString& text)
{
    if (disableWidget->isHidden())
        disableWidget->show();
    disableWidget->raise();
    progressWidget->show();
    progressWidget->raise();
    progressForm.found->setText(text);
}

void FullPowerView::closeProgress()
{
    progressWidget->close();
    progressForm.found->clear();
    slotHideDisableWidget();
}

// While the progress box shows, keys, shortcuts and the menu bar are dead, as the sheet keeps off
// the mouse.
void FullPowerView::lockInput(bool lock)
{
    if (lock == inputLocked)
        return;
    inputLocked = lock;
    if (lock)
        QCoreApplication::instance()->installEventFilter(this);
    else
        QCoreApplication::instance()->removeEventFilter(this);
    if (auto* menuBar = window()->findChild<QMenuBar*>(); menuBar != nullptr)
        menuBar->setEnabled(!lock);
}

void FullPowerView::slotUpdateSendsAndReceives(bool enabled, QChar setlistLetter)
{
    const int slot = slotNumberOf(setlistLetter) - 1;
    if (slot < 0 || slot >= form.sendButtons.size())
        return;
    form.sendButtons.at(slot)->setEnabled(enabled && isLive());
    // Of a slot that is off there is nothing to say.
    const bool hasTarget = !enabled || !presetInterface->isFull()
        || form.presetlist->rowOf(setlist->presetInSlot(setlistLetter)) >= 0;
    // There is no mixer in a demo that could answer.
    form.receiveButtons.at(slot)->setEnabled(enabled && syncComplete && hasTarget);
    form.receiveButtons.at(slot)->setToolTip(
        hasTarget ? FullPowerForm::receiveToolTip(setlistLetter) : libraryLimit());
}

// Sending

void FullPowerView::slotSendSinglePreset()
{
    constexpr int letterPlace = 4;
    if (sender() == nullptr || sender()->objectName().size() <= letterPlace)
        return;
    sendSlot(sender()->objectName().at(letterPlace));
}

void FullPowerView::sendSlot(QChar letter)
{
    // Of a preset that the mixer selects by itself no parameter would go out.
    if (isRecalling()) {
        runLater(Waiting::Transfer, [this, letter] { sendSlot(letter); });
        return;
    }
    slotCommitEditedBox();
    showProgress({});
    endMultipleSelection();
    pauseMixer(true);
    slotSendPreset(slotNumberOf(letter) - 1, setlist->presetInSlot(letter), true);
}

void FullPowerView::slotSendAllPresets()
{
    if (isRecalling()) {
        runLater(Waiting::Transfer, [this] { slotSendAllPresets(); });
        return;
    }
    slotCommitEditedBox();
    const Flow flow(this);
    showProgress({});
    endMultipleSelection();
    pauseMixer(true);
    for (int slot = 0; slot < slotCount && flow.isAlive(); ++slot)
        slotSendPreset(slot, setlist->presetInSlot(slotLetter(slot)), slot == slotCount - 1);
}

// It holds still while slots are written.
void FullPowerView::pauseMixer(bool paused)
{
    mixerPaused = paused;
    sysexManager->slotSendDSPUpdatingStatus(!paused);
}

void FullPowerView::slotSendPreset(int setlistNumber, QString presetName, bool recallCurrent)
{
    const Flow flow(this);
    // A name that no preset has is passed over as "[OFF]" is.
    const int row = presetName == factoryPresetName() ? -1 : form.presetlist->rowOf(presetName);
    const bool isSent =
        presetName == factoryPresetName() || (row >= 0 && presetName != emptySlotName());
    const QString progress =
        QStringLiteral("Sending slot %1 to the board...").arg(slotLetter(setlistNumber));
    // Before events pass: they paint it, and while the parameters go out nothing is painted.
    if (isSent)
        progressForm.found->setText(progress);
    if (!flow.letEventsPass())
        return;
    if (isSent) {
        if (row >= 0)
            presetInterface->slotSavePreset(row);
        qDebug().noquote() << QStringLiteral(
                                  "sending preset number %1 / setlist slot %2 to the board")
                                  .arg(row)
                                  .arg(slotLetter(setlistNumber));
        presetInterface->slotSendPreset(row);
        sysexManager->slotSendSaveToSlot(setlistNumber + 1);
        progressForm.found->setText(progress);
        if (!pauseAfterSlot(flow))
            return;
    }
    if (!recallCurrent)
        return;
    pauseMixer(false);
    // The live state as it is, not as it was at its last save.
    if (form.presetlist->currentRow() == 0)
        presetInterface->slotSavePreset(0);
    if (const int current = form.presetlist->currentRow(); current >= 0) {
        presetInterface->slotSendPreset(current);
        presetInterface->sendUnsavedEdits(current);
    }
    closeProgress();
}

// The mixer writes the slot. The wait itself lets no events pass.
bool FullPowerView::pauseAfterSlot(const Flow& flow)
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

// Receiving

void FullPowerView::requestSlot(int slotNum, bool save)
{
    requestedSlot = slotNum;
    sysexManager->slotSendSinglePresetRequest(slotNum, save);
}

void FullPowerView::slotReceiveChoice()
{
    receivePresetForm.receive->setEnabled(!receivePresetForm.toNew->isChecked()
                                          || !receivePresetForm.name->text().isEmpty());
}

bool FullPowerView::canReceiveNew() const
{
    // A new preset is made from the current one.
    return !presetInterface->isFull() && presetInterface->currentPresetNumber() >= 0
        && form.presetlist->count() > 0;
}

void FullPowerView::giveUpReceiving()
{
    qDebug() << "no preset could be made to receive into";
    receivingAllPresets = false;
    connectStoreSending();
    slotConnectToSysexPresetSending();
    closeProgress();
    runWaitingSoon();
}

void FullPowerView::openReceiveAs(QChar letter)
{
    receiveAsForm.label->setText(QStringLiteral("Name Slot %1").arg(letter));
    openDialog(receiveAsDialog, receiveAsForm.name);
}

void FullPowerView::slotAssessReceiveDecision()
{
    constexpr int letterPlace = 7;
    if (sender() == nullptr || sender()->objectName().size() <= letterPlace)
        return;
    const QChar letter = sender()->objectName().at(letterPlace);
    const QString name = setlist->presetInSlot(letter);
    const bool isFull = !canReceiveNew();
    const bool isPreset = form.presetlist->rowOf(name) >= 0;
    if (!isPreset) {
        // "[DEFAULT]", or a name that no preset has: there is nothing to copy into.
        if (!isFull)
            openReceiveAs(letter);
        return;
    }
    const bool wantsNew = settingsStore->value(QStringLiteral("receiveDecision")).toString()
        == QLatin1String("toNew");
    // Where there is no room for what was remembered, nothing is overwritten unasked.
    if (!settingsStore->value(QStringLiteral("rememberReceiveDecision"), false).toBool()
        || (wantsNew && isFull)) {
        receivePresetForm.label->setText(QStringLiteral("RECEIVE SLOT %1").arg(letter));
        receivePresetForm.toSetlistSlot->setText(QStringLiteral("Copy into Slot %1").arg(letter));
        if (isFull)
            receivePresetForm.toSetlistSlot->setChecked(true);
        slotReceiveChoice();
        openDialog(receivePresetDialog,
                   receivePresetForm.toNew->isChecked()
                       ? static_cast<QWidget*>(receivePresetForm.name)
                       : receivePresetForm.receive);
        return;
    }
    if (wantsNew)
        openReceiveAs(letter);
    else
        slotReceiveSinglePreset();
}

void FullPowerView::slotReceiveSinglePreset()
{
    if (sender() == nullptr || sender()->parent() == nullptr || sender()->objectName().isEmpty())
        return;
    const QString parent = sender()->parent()->objectName();
    const bool fromDialog = parent == QLatin1String("receivePresetDialogForm");
    const bool fromNaming = parent == QLatin1String("receiveAsDialogForm");
    const bool isNew = fromNaming || (fromDialog && receivePresetForm.toNew->isChecked());
    const QLabel* label = fromNaming ? receiveAsForm.label : receivePresetForm.label;
    const QString letterSource = fromDialog || fromNaming ? label->text() : sender()->objectName();
    if (letterSource.isEmpty())
        return;
    receiveSlot({letterSource.back(), isNew,
                 fromNaming ? receiveAsForm.name->text() : receivePresetForm.name->text()});
}

void FullPowerView::receiveSlot(const ReceiveRequest& request)
{
    for (QWidget* dialog : {receivePresetDialog, receiveAsDialog})
        closeDialog(dialog);
    if (isRecalling()) {
        runLater(Waiting::Transfer, [this, request] { receiveSlot(request); });
        return;
    }
    const auto [letter, isNew, typed] = request;
    presetReadyToReceive = false;
    slotCommitEditedBox();
    const Flow flow(this);
    if (isNew && (!canReceiveNew() || typed.isEmpty()))
        return;
    // The slot may have been given another name, or none, while the dialog was open.
    if (!isNew && form.presetlist->rowOf(setlist->presetInSlot(letter)) < 0) {
        if (canReceiveNew())
            openReceiveAs(letter);
        return;
    }
    showProgress(QStringLiteral("Receiving slot %1 from the board...").arg(letter));
    slotDisconnectToSysexPresetSending();
    disconnectStoreSending();
    endMultipleSelection();
    if (isNew)
        receiveNew(flow, letter, presetInterface->slotAppendSuffixToNewPresetName(typed));
    else
        receiveInto(flow, letter, setlist->presetInSlot(letter));
}

void FullPowerView::receiveNew(const Flow& flow, QChar letter, const QString& name)
{
    qDebug() << "make a new preset from the parameters obtained from board slot" << letter
             << "named" << name;
    const int previous = presetInterface->currentPresetNumber();
    const int count = presetInterface->presetCount();
    emit signalSaveAs(name, true, false);
    if (flow.isAlive() && presetInterface->presetCount() == count) {
        giveUpReceiving();
        return;
    }
    if (!flow.waitUntil([this] { return presetReadyToReceive; }))
        return;
    presetReadyToReceive = false;
    presetInterface->slotCheckSaveState(previous);
    if (presetInterface->presetCount() > 1)
        form.deletepreset->setEnabled(true);
    form.setlistMenus.at(slotNumberOf(letter) - 1)->setCurrentText(name);
    connectStoreSending();
    requestSlot(slotNumberOf(letter), true);
}

void FullPowerView::receiveInto(const Flow& flow, QChar letter, const QString& name)
{
    const int row = form.presetlist->rowOf(name);
    qDebug() << "receive slot" << letter << "from the board and save it into the preset named,"
             << name << "at this location in the json file" << row;
    if (row >= 0)
        selectRow(row);
    if (!flow.isAlive())
        return;
    connectStoreSending();
    requestSlot(slotNumberOf(letter), false);
}

void FullPowerView::slotReceiveSinglePresetComplete(int slotNum, bool save)
{
    const bool isAsked = slotNum == requestedSlot;
    // Each of those that nobody asked for is followed by a whole recall. What is in the queue when
    // one has ended came meanwhile, and all of it gets one more.
    if (isRecalling() || (!isAsked && freshSlotEnds > 0)) {
        runLater(isAsked ? Waiting::AskedSlotEnd : Waiting::SlotEnd,
                 [this, slotNum, save] { takeSlotEnd(slotNum, save); });
        return;
    }
    takeSlotEnd(slotNum, save);
}

void FullPowerView::takeSlotEnd(int slotNum, bool save)
{
    const Flow flow(this);
    if (!flow.isAlive())
        return;
    const bool isAsked = slotNum == requestedSlot;
    const bool isReceiving = requestedSlot > 0;
    const int current = form.presetlist->currentRow();
    if (slotNum == 0)
        slotRecallPresetSilently(current);
    else if (!receivingAllPresets)
        presetInterface->slotRecallPreset(current);
    if (!flow.isAlive())
        return;
    if (save && isAsked)
        presetInterface->slotSavePreset(-1);
    if (isAsked)
        requestedSlot = -1;
    receivedSlotNumber = slotNum;
    // A box that is open for a send stays.
    if (isReceiving && !receivingAllPresets)
        closeProgress();
    runWaitingSoon();
    if (isAsked)
        return;
    // Behind all that is in the queue by now.
    ++freshSlotEnds;
    const auto rest = [this, flow] {
        if (!flow.isAlive())
            return;
        --freshSlotEnds;
        runWaiting();
    };
    QMetaObject::invokeMethod(this, rest, Qt::QueuedConnection);
}

void FullPowerView::slotReceiveAllPresets()
{
    const QString prefix = receiveAllForm.prefix->text();
    closeDialog(receiveAllDialog);
    receiveAll(prefix);
}

void FullPowerView::receiveAll(const QString& prefix)
{
    if (isRecalling()) {
        runLater(Waiting::Transfer, [this, prefix] { receiveAll(prefix); });
        return;
    }
    presetReadyToReceive = false;
    slotCommitEditedBox();
    endMultipleSelection();
    if (prefix.isEmpty() || !canReceiveNew()
        || presetInterface->presetCount() + slotCount > PresetInterface::maxPresets)
        return;
    const Flow flow(this);
    slotDisconnectToSysexPresetSending();
    disconnectStoreSending();
    showProgress({});
    for (int slot = 1; slot <= slotCount; ++slot) {
        if (!receiveSlotAsNew(flow, slot, prefix))
            return;
    }
    receivingAllPresets = false;
    connectStoreSending();
    slotConnectToSysexPresetSending();
    presetInterface->slotRecallPreset(form.presetlist->count() - 1);
    if (!flow.isAlive())
        return;
    closeProgress();
    runWaitingSoon();
}

bool FullPowerView::receiveSlotAsNew(const Flow& flow, int slot, const QString& prefix)
{
    const QChar letter = slotLetter(slot - 1);
    receivedSlotNumber = 0;
    const QString name = presetInterface->slotAppendSuffixToNewPresetName(
        QStringLiteral("%1-%2").arg(prefix, QString(letter)));
    if (!flow.letEventsPass())
        return false;
    progressForm.found->setText(QStringLiteral("Receiving slot %1 from the board...").arg(letter));
    receivingAllPresets = true;
    const int count = presetInterface->presetCount();
    emit signalSaveAs(name, true, true);
    if (flow.isAlive() && presetInterface->presetCount() == count) {
        giveUpReceiving();
        return false;
    }
    if (!flow.waitUntil([this] { return presetReadyToReceive; }))
        return false;
    presetReadyToReceive = false;
    if (presetInterface->presetCount() > 1)
        form.deletepreset->setEnabled(true);
    form.setlistMenus.at(slot - 1)->setCurrentText(name);
    requestSlot(slot, true);
    return flow.waitUntil([this, slot] { return receivedSlotNumber == slot; });
}
