// The preset drawer: the list, its buttons and dialogs.

#include "fullpowerview.h"
#include "presetinterface.h"
#include "presetnames.h"
#include "setlist.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QDebug>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

namespace
{

constexpr int presetsOfReceiveAll = 12;

void showDirty(QListWidgetItem* item, bool dirty)
{
    if (item->font().italic() == dirty && item->data(Qt::FontRole).isValid())
        return;
    QFont font(QStringLiteral("Avenir Next"), 10);
    font.setFamilies({QStringLiteral("Avenir Next"), QStringLiteral("Futura-Normal"),
                      QStringLiteral("URW Gothic"), QStringLiteral("DejaVu Sans")});
    if (dirty) {
        font.setItalic(true);
        font.setLetterSpacing(QFont::AbsoluteSpacing, -0.5);
    }
    item->setFont(font);
}

} // namespace

// A number that is being typed belongs to the preset that is current now.
void FullPowerView::slotCommitEditedBox()
{
    if (auto* box = qobject_cast<QAbstractSpinBox*>(QApplication::focusWidget()); box != nullptr)
        box->clearFocus();
}

void FullPowerView::selectRow(int row)
{
    slotCommitEditedBox();
    // Nothing after it: the recall lets events pass, and they may select another.
    form.presetlist->setCurrentRow(row);
}

void FullPowerView::selectRowWithoutRecall(int row)
{
    const WireCut cut({form.presetlist, SIGNAL(currentRowChanged(int)), presetInterface,
                       SLOT(slotRecallPreset(int))});
    form.presetlist->setCurrentRow(row);
}

void FullPowerView::slotSetPresetMenu(int presetNum) { selectRow(presetNum); }

// The list

void FullPowerView::slotPopulatePresetMenu()
{
    presetInterface->slotPopulatePresetMenu(form.presetlist);
    setlist->slotRecallSetlist();
    checkAllSaveStates();
    showAvailability();
}

// A rebuilt list shows nothing dirty. Row 0 never is.
void FullPowerView::checkAllSaveStates()
{
    dirtyPresets.clear();
    for (int row = 1; row < form.presetlist->count(); ++row)
        presetInterface->slotCheckSaveState(row);
}

void FullPowerView::slotPopulateSetlistMenus()
{
    setlist->slotPopulateSetlistMenus(form.presetlist);
    setlist->slotRecallSetlist();
}

void FullPowerView::slotPopulateSetlistMenusAfterDelete()
{
    setlist->slotPopulateSetlistAfterDelete(form.presetlist);
    setlist->slotRecallSetlist();
}

QString FullPowerView::libraryLimit()
{
    return QStringLiteral("The library holds %1 presets, and that is its limit.")
        .arg(PresetInterface::maxPresets);
}

// What the library has room for, and the mixer is ready for.
void FullPowerView::showAvailability()
{
    const bool hasMixer = syncComplete && !demoModeEnabled;
    const int count = presetInterface->presetCount();
    const bool isFull = presetInterface->isFull();
    const bool hasRoomForAll = count + presetsOfReceiveAll <= PresetInterface::maxPresets;
    const QString limit = libraryLimit();
    form.saveas->setEnabled(hasMixer && !isFull);
    form.saveas->setToolTip(isFull ? limit
                                   : QStringLiteral("Keep the current state as a new preset."));
    form.send_all->setEnabled(hasMixer);
    form.receive_all->setEnabled(hasMixer && hasRoomForAll);
    form.receive_all->setToolTip(
        hasRoomForAll ? QStringLiteral("Fetch all slots of the mixer as new presets.")
                      : QStringLiteral("The library has no room for twelve more presets."));
    receivePresetForm.toNew->setEnabled(!isFull);
    receivePresetForm.toNew->setToolTip(
        isFull ? limit : QStringLiteral("Keep the preset that stands in this slot."));
    if (pasteNewPresetAct == nullptr)
        return;
    pasteNewPresetAct->setToolTip(isFull ? limit : QString());
    // At a mode entry pasting is off until something is copied.
    if (pastePresetAct->isEnabled())
        slotUpdatePasteAvailability();
}

void FullPowerView::slotSetPresetListWidgetEnableState(bool enabled)
{
    if (enabled) {
        if (isViewLinkingStored())
            slotEnableViewChanging(true);
        form.presetlist->setEnabled(true);
        // Without a current row, the focus would make the first one current, and recall it; and
        // what is typed in a dialog would search the list, and recall what it finds.
        if (form.presetlist->currentRow() >= 0 && !isDialogOpen())
            form.presetlist->setFocus();
        return;
    }
    slotEnableViewChanging(false);
    if (!isDialogOpen())
        form.label->setFocus();
    form.presetlist->setEnabled(false);
}

void FullPowerView::slotEnablePresetButtons(bool enabled)
{
    if (demoModeEnabled)
        return;
    for (QToolButton* button : {form.save, form.deletepreset, form.revert})
        button->setEnabled(enabled);
}

void FullPowerView::slotSetDeleteEnabled(bool enabled) { form.deletepreset->setEnabled(enabled); }

void FullPowerView::slotDisplaySaveState(int presetNum, bool dirty)
{
    QListWidgetItem* item = form.presetlist->item(qMax(presetNum, 0));
    if (item == nullptr)
        return;
    const QString name = item->text();
    const bool isSync = name == syncPresetName();
    if (isSync) {
        if (!presetInterface->liveMemoryTimer->isActive())
            emit signalStartLiveMemoryTimeout(1);
        presetInterface->liveMemoryTicks = 0;
    }
    const bool shownDirty = dirty && !isSync;
    if (!shownDirty)
        dirtyPresets.removeAll(name);
    else if (!dirtyPresets.contains(name))
        dirtyPresets.append(name);
    dirtyPresetInSetlist = shownDirty && setlist->holds(name);
    showDirty(item, shownDirty);
    // The button is about the preset that is shown.
    if (item != form.presetlist->currentItem())
        return;
    // Its unbalanced bracket is part of the text as it has always been.
    const QString style = shownDirty
        ? QStringLiteral("QToolButton { background-color:rgba(215, 0, 135, 180) } "
                         "QToolButton:pressed { background-color: rgb(180, 180, 180; color: "
                         "rgb(40, 40, 40)) }")
        : QString();
    if (form.save->styleSheet() != style)
        form.save->setStyleSheet(style);
}

// Until the mixer's live state is here, a row that is picked shows nothing: what arrives and what
// is touched belong to the live preset.
void FullPowerView::slotStoreShownValue(QString name, QVariant value, int presetNum)
{
    presetInterface->slotStoreValue(name, value, shownPreset(presetNum));
}

void FullPowerView::slotCheckShownState(int presetNum)
{
    presetInterface->slotCheckSaveState(shownPreset(presetNum));
}

void FullPowerView::slotSelectionMoved(int row)
{
    const QListWidgetItem* item = form.presetlist->item(row);
    if (item != nullptr)
        slotDisplaySaveState(row, dirtyPresets.contains(item->text()));
}

void FullPowerView::slotReorderPresetList()
{
    const int row = form.presetlist->currentRow();
    if (row < 0)
        return;
    const QString name = form.presetlist->currentItem()->text();
    presetInterface->slotReorderPresets(form.presetlist);
    selectRow(rowOf(name, row));
}

void FullPowerView::slotMoveLiveMemoryHelpIcon(bool scrollBarIsShowing)
{
    form.liveMemoryHelpButton->setGeometry(scrollBarIsShowing ? 176 : 191, 52, 12, 12);
}

void FullPowerView::slotHideLiveMemoryHelpIcon(bool hide)
{
    form.liveMemoryHelpButton->setVisible(!hide);
}

// Dialogs

void FullPowerView::slotOpenSaveAs()
{
    const QListWidgetItem* item = form.presetlist->currentItem();
    if (item == nullptr)
        return;
    dialogPreset = item->text();
    dialogRow = form.presetlist->currentRow();
    openDialog(saveAsDialog, saveAsForm.name);
}

void FullPowerView::slotOpenReceiveAll() { openDialog(receiveAllDialog, receiveAllForm.prefix); }

void FullPowerView::slotOpenLiveMemoryHelp()
{
    openDialog(liveMemoryHelpDialog, connectionSyncForm.ok);
}

int FullPowerView::rowOf(const QString& name, int row) const
{
    const QListWidgetItem* item = form.presetlist->item(row);
    return item != nullptr && item->text() == name ? row : form.presetlist->rowOf(name);
}

void FullPowerView::slotSavePreset() { presetInterface->slotSavePreset(-1); }

void FullPowerView::slotSaveAs()
{
    if (presetInterface->isFull())
        return;
    const QString name = presetInterface->slotAppendSuffixToNewPresetName(saveAsForm.name->text());
    closeDialog(saveAsDialog);
    const int row = rowOf(dialogPreset, dialogRow);
    if (row < 0) {
        qDebug() << "save as: there is no preset" << dialogPreset;
        return;
    }
    // The mixer may have selected another meanwhile.
    presetInterface->slotSetCurrentPreset(row);
    emit signalSaveAs(name, false, false);
    if (presetInterface->presetCount() > 1 && !demoModeEnabled)
        form.deletepreset->setEnabled(true);
}

void FullPowerView::slotDeletePreset()
{
    if (presetInterface->presetCount() < 2) {
        qDebug() << "you can't delete the last preset";
        return;
    }
    const QListWidgetItem* item = form.presetlist->currentItem();
    if (item == nullptr || item->text() == syncPresetName())
        return;
    dialogPreset = item->text();
    dialogRow = form.presetlist->currentRow();
    deleteForm.label_2->setText(dialogPreset);
    openDialog(deleteDialog, deleteForm.delete_2);
}

// Of the preset that the dialog was opened for, whichever is current by now.
void FullPowerView::slotConfirmDelete()
{
    closeDialog(deleteDialog);
    const int row = rowOf(dialogPreset, dialogRow);
    if (row <= 0 || dialogPreset == syncPresetName()) {
        qDebug() << "delete: there is no preset" << dialogPreset;
        return;
    }
    presetInterface->slotSetCurrentPreset(row);
    presetInterface->slotDeletePreset();
}

void FullPowerView::slotCheckToAllowRename(QListWidgetItem* presetItem)
{
    if (presetItem == nullptr || presetItem->text() == syncPresetName())
        return;
    dialogPreset = presetItem->text();
    dialogRow = form.presetlist->row(presetItem);
    openDialog(renameDialog, renameForm.name);
}

void FullPowerView::slotRename()
{
    const QString oldName = dialogPreset;
    const QString newName =
        presetInterface->slotAppendSuffixToNewPresetName(renameForm.name->text());
    closeDialog(renameDialog);
    const int row = rowOf(dialogPreset, dialogRow);
    if (row <= 0 || newName.isEmpty()) {
        qDebug() << "rename: there is no preset" << oldName;
        return;
    }
    QComboBox* slotMenu = nullptr;
    for (QComboBox* menu : qAsConst(form.setlistMenus)) {
        const QChar letter = menu->objectName().back();
        if (setlist->presetInSlot(letter) == oldName)
            slotMenu = menu;
    }

    const int shown = form.presetlist->currentRow();
    if (row == shown) {
        presetInterface->slotRenamePreset(newName);
    } else {
        // The mixer selected another meanwhile; it stays.
        const WireCut menuCut(
            {presetInterface, SIGNAL(signalPresetMenu(int)), this, SLOT(slotSetPresetMenu(int))});
        presetInterface->slotSetCurrentPreset(row);
        presetInterface->slotRenamePreset(newName);
        presetInterface->slotSetCurrentPreset(shown);
        selectRowWithoutRecall(shown);
    }
    if (slotMenu != nullptr)
        slotMenu->setCurrentText(newName);
}
