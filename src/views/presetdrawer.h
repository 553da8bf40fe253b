#pragma once

#include "forms/viewdialogs.h"

#include <QObject>
#include <QStringList>

class InnerDialogs;
class PresetInterface;
class QListWidgetItem;
class Setlist;
class ViewMode;
struct FullPowerForm;

// The preset drawer: the list of the library and its buttons, what is shown as unsaved, the menus
// of the setlist, and the dialogs for saving as, renaming and deleting. The full-power view owns
// it.
class PresetDrawer : public QObject
{
    Q_OBJECT

public:
    // All must outlive this.
    PresetDrawer(QWidget* view, const ViewMode& mode, const FullPowerForm& form,
                 PresetInterface* presetInterface, Setlist* setlist, InnerDialogs* innerDialogs);

    QPushButton* saveButton() const { return saveAsForm.save; }
    QPushButton* renameButton() const { return renameForm.rename; }

    // The row of the preset that the controls show; below 0 if there is none.
    int currentRow() const;
    // Recalls it, after what is being typed has been counted for the preset that was current.
    void select(int row);
    void selectWithoutRecall(int row);

    void populate();
    void populateSetlistMenus();
    void populateSetlistMenusAfterDelete();
    void checkAllSaveStates();
    // What the library has room for, and the mixer is ready for.
    void showAvailability();
    // For a control that would make a new preset of a full library.
    static QString libraryLimit();
    void setListEnabled(bool enabled);
    void setButtonsEnabled(bool enabled);
    // Once there is more than one preset.
    void allowDelete();
    // row: below 0 means row 0.
    void displaySaveState(int row, bool dirty);
    void reorder();
    void moveLiveMemoryHelpIcon(bool scrollBarIsShowing);

    void saveAs();
    // Asks first.
    void deletePreset();
    void checkToAllowRename(QListWidgetItem* presetItem);
    void rename();

public slots:
    void slotOpenSaveAs();
    void slotOpenLiveMemoryHelp();
    void slotConfirmDelete();
    void slotSelectionMoved(int row);

signals:
    void signalSaveAs(QString presetName, bool isForReceivingPresets, bool isForReceivingAll);
    void signalStartLiveMemoryTimeout(int intervalMs);

private:
    void setupDialogs();
    void openAbout(QListWidgetItem* item, QWidget* dialog, QWidget* focus);
    // Where the preset of the open dialog is by now; -1 if it is gone. A library may hold two of
    // one name.
    int rowOfDialog() const;

    const ViewMode& mode;
    const FullPowerForm& form;
    PresetInterface* const presetInterface;
    Setlist* const setlist;
    InnerDialogs* const innerDialogs;

    QWidget* saveAsDialog = nullptr;
    QWidget* deleteDialog = nullptr;
    QWidget* renameDialog = nullptr;
    QWidget* liveMemoryHelpDialog = nullptr;
    SaveAsDialogForm saveAsForm;
    DeleteDialogForm deleteForm;
    RenameDialogForm renameForm;
    ConnectionSyncDialogForm connectionSyncForm;

    // By name.
    QStringList dirtyPresets;
    bool dirtyPresetInSetlist = false;
    // Which preset the open save-as, rename or delete dialog is about.
    QString dialogPreset;
    int dialogRow = -1;
};
