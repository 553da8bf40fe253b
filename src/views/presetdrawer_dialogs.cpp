// The preset drawer's dialogs: each is about the preset that it was opened for, whichever the mixer
// selects meanwhile.

#include "forms/fullpowerform.h"
#include "innerdialogs.h"
#include "presetdrawer.h"
#include "presetinterface.h"
#include "presetnames.h"
#include "setlist.h"

#include <QComboBox>
#include <QDebug>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTextBrowser>

void PresetDrawer::setupDialogs()
{
    saveAsDialog = innerDialogs->make({505, 285, 190, 123});
    saveAsForm.setupUi(saveAsDialog);
    deleteDialog = innerDialogs->make({400, 300, 400, 93});
    deleteForm.setupUi(deleteDialog);
    renameDialog = innerDialogs->make({505, 283, 190, 127});
    renameForm.setupUi(renameDialog);
    liveMemoryHelpDialog = innerDialogs->make({442, 184, 317, 325});
    connectionSyncForm.setupUi(liveMemoryHelpDialog);
    innerDialogs->addName(saveAsForm.name, saveAsForm.save);
    innerDialogs->addName(renameForm.name, renameForm.rename);
    for (QPushButton* button :
         {saveAsForm.cancel, deleteForm.cancel, renameForm.cancel, connectionSyncForm.ok})
        innerDialogs->closeBy(button);
    connect(deleteForm.delete_2, SIGNAL(clicked()), SLOT(slotConfirmDelete()));
}

void PresetDrawer::openAbout(QListWidgetItem* item, QWidget* dialog, QWidget* focus)
{
    dialogPreset = item->text();
    dialogRow = form.presetlist->row(item);
    innerDialogs->open(dialog, focus);
}

int PresetDrawer::rowOfDialog() const
{
    const QListWidgetItem* item = form.presetlist->item(dialogRow);
    return item != nullptr && item->text() == dialogPreset ? dialogRow
                                                           : form.presetlist->rowOf(dialogPreset);
}

void PresetDrawer::slotOpenLiveMemoryHelp()
{
    innerDialogs->open(liveMemoryHelpDialog, connectionSyncForm.ok);
}

void PresetDrawer::slotOpenSaveAs()
{
    if (QListWidgetItem* item = form.presetlist->currentItem(); item != nullptr)
        openAbout(item, saveAsDialog, saveAsForm.name);
}

void PresetDrawer::saveAs()
{
    if (presetInterface->isFull())
        return;
    const QString name = presetInterface->slotAppendSuffixToNewPresetName(saveAsForm.name->text());
    innerDialogs->close(saveAsDialog);
    const int row = rowOfDialog();
    if (row < 0) {
        qDebug() << "save as: there is no preset" << dialogPreset;
        return;
    }
    // The mixer may have selected another meanwhile.
    presetInterface->slotSetCurrentPreset(row);
    emit signalSaveAs(name, false, false);
    allowDelete();
}

void PresetDrawer::deletePreset()
{
    if (presetInterface->presetCount() < 2) {
        qDebug() << "you can't delete the last preset";
        return;
    }
    QListWidgetItem* item = form.presetlist->currentItem();
    if (item == nullptr || item->text() == syncPresetName())
        return;
    deleteForm.label_2->setText(item->text());
    openAbout(item, deleteDialog, deleteForm.delete_2);
}

void PresetDrawer::slotConfirmDelete()
{
    innerDialogs->close(deleteDialog);
    const int row = rowOfDialog();
    if (row <= 0 || dialogPreset == syncPresetName()) {
        qDebug() << "delete: there is no preset" << dialogPreset;
        return;
    }
    presetInterface->slotSetCurrentPreset(row);
    presetInterface->slotDeletePreset();
}

void PresetDrawer::checkToAllowRename(QListWidgetItem* presetItem)
{
    if (presetItem != nullptr && presetItem->text() != syncPresetName())
        openAbout(presetItem, renameDialog, renameForm.name);
}

void PresetDrawer::rename()
{
    const QString oldName = dialogPreset;
    const QString newName =
        presetInterface->slotAppendSuffixToNewPresetName(renameForm.name->text());
    innerDialogs->close(renameDialog);
    const int row = rowOfDialog();
    if (row <= 0 || newName.isEmpty()) {
        qDebug() << "rename: there is no preset" << oldName;
        return;
    }
    QComboBox* slotMenu = nullptr;
    for (QComboBox* menu : form.setlistMenus)
        if (setlist->presetInSlot(menu->objectName().back()) == oldName)
            slotMenu = menu;

    const int shown = currentRow();
    if (row == shown) {
        presetInterface->slotRenamePreset(newName);
    } else {
        // The mixer selected another meanwhile; it stays.
        const WireCut menuCut({presetInterface, SIGNAL(signalPresetMenu(int)), parent(),
                               SLOT(slotSetPresetMenu(int))});
        presetInterface->slotSetCurrentPreset(row);
        presetInterface->slotRenamePreset(newName);
        presetInterface->slotSetCurrentPreset(shown);
        selectWithoutRecall(shown);
    }
    if (slotMenu != nullptr)
        slotMenu->setCurrentText(newName);
}
