#include "presetdrawer.h"

#include "editedbox.h"
#include "forms/fullpowerform.h"
#include "innerdialogs.h"
#include "modeentry.h"
#include "presetinterface.h"
#include "presetnames.h"
#include "setlist.h"

#include <QDebug>
#include <QLabel>
#include <QToolButton>

namespace
{

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

PresetDrawer::PresetDrawer(QWidget* view, const ViewMode& viewMode, const FullPowerForm& viewForm,
                           PresetInterface* presets, Setlist* slotPresets, InnerDialogs* dialogs)
    : QObject(view)
    , mode(viewMode)
    , form(viewForm)
    , presetInterface(presets)
    , setlist(slotPresets)
    , innerDialogs(dialogs)
{
    setupDialogs();
    form.deletepreset->setEnabled(presetInterface->presetCount() >= 2);
    setlist->slotInitComponents(form.setlistMenus);
}

// The list

int PresetDrawer::currentRow() const { return form.presetlist->currentRow(); }

void PresetDrawer::select(int row)
{
    commitEditedBox();
    // Nothing after it: the recall lets events pass, and they may select another.
    form.presetlist->setCurrentRow(row);
}

void PresetDrawer::selectWithoutRecall(int row)
{
    const WireCut cut({form.presetlist, SIGNAL(currentRowChanged(int)), presetInterface,
                       SLOT(slotRecallPreset(int))});
    form.presetlist->setCurrentRow(row);
}

void PresetDrawer::populate()
{
    presetInterface->slotPopulatePresetMenu(form.presetlist);
    setlist->slotRecallSetlist();
    checkAllSaveStates();
}

void PresetDrawer::populateSetlistMenus()
{
    setlist->slotPopulateSetlistMenus(form.presetlist);
    setlist->slotRecallSetlist();
}

void PresetDrawer::populateSetlistMenusAfterDelete()
{
    setlist->slotPopulateSetlistAfterDelete(form.presetlist);
    setlist->slotRecallSetlist();
}

QString PresetDrawer::libraryLimit()
{
    return QStringLiteral("The library holds %1 presets, and that is its limit.")
        .arg(PresetInterface::maxPresets);
}

void PresetDrawer::showAvailability()
{
    const bool isFull = presetInterface->isFull();
    form.saveas->setEnabled(mode.isSynced() && !mode.demoModeEnabled && !isFull);
    form.saveas->setToolTip(isFull ? libraryLimit()
                                   : QStringLiteral("Keep the current state as a new preset."));
}

void PresetDrawer::setListEnabled(bool enabled)
{
    // Without a current row, the focus would make the first one current, and recall it; and what
    // is typed in a dialog would search the list, and recall what it finds.
    const bool takesFocus = !innerDialogs->isAnyOpen();
    if (enabled) {
        form.presetlist->setEnabled(true);
        if (currentRow() >= 0 && takesFocus)
            form.presetlist->setFocus();
        return;
    }
    if (takesFocus)
        form.label->setFocus();
    form.presetlist->setEnabled(false);
}

void PresetDrawer::setButtonsEnabled(bool enabled)
{
    if (mode.demoModeEnabled)
        return;
    for (QToolButton* button : {form.save, form.deletepreset, form.revert})
        button->setEnabled(enabled);
}

void PresetDrawer::allowDelete()
{
    if (presetInterface->presetCount() > 1 && !mode.demoModeEnabled)
        form.deletepreset->setEnabled(true);
}

void PresetDrawer::reorder()
{
    const int row = currentRow();
    if (row < 0)
        return;
    const QString name = form.presetlist->currentItem()->text();
    presetInterface->slotReorderPresets(form.presetlist);
    const QListWidgetItem* item = form.presetlist->item(row);
    select(item != nullptr && item->text() == name ? row : form.presetlist->rowOf(name));
}

void PresetDrawer::moveLiveMemoryHelpIcon(bool scrollBarIsShowing)
{
    form.liveMemoryHelpButton->setGeometry(scrollBarIsShowing ? 176 : 191, 52, 12, 12);
}

// What is unsaved

// A rebuilt list shows nothing dirty. Row 0 never is.
void PresetDrawer::checkAllSaveStates()
{
    dirtyPresets.clear();
    for (int row = 1; row < form.presetlist->count(); ++row)
        presetInterface->slotCheckSaveState(row);
}

void PresetDrawer::displaySaveState(int row, bool dirty)
{
    QListWidgetItem* item = form.presetlist->item(qMax(row, 0));
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

void PresetDrawer::slotSelectionMoved(int row)
{
    const QListWidgetItem* item = form.presetlist->item(row);
    if (item != nullptr)
        displaySaveState(row, dirtyPresets.contains(item->text()));
}
