// The dialogs in the view, and the presses and keys that it filters.

#include "faderframe.h"
#include "fullpowerview.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTextBrowser>

#include <algorithm>

void FullPowerView::placeDialog(QWidget* dialog, const QRect& place)
{
    dialog->hide();
    dialog->setGeometry(place);
}

void FullPowerView::setupDialogs()
{
    for (QWidget** dialog :
         {&progressWidget, &saveAsDialog, &deleteDialog, &receivePresetDialog, &receiveAsDialog,
          &receiveAllDialog, &renameDialog, &liveMemoryHelpDialog})
        *dialog = new QWidget(this, Qt::SubWindow);
    placeDialog(progressWidget, {481, 307, 238, 78});
    progressForm.setupUi(progressWidget);
    progressWidget->installEventFilter(this);
    placeDialog(saveAsDialog, {505, 285, 190, 123});
    saveAsForm.setupUi(saveAsDialog);
    placeDialog(deleteDialog, {400, 300, 400, 93});
    deleteForm.setupUi(deleteDialog);
    placeDialog(receivePresetDialog, {466, 224, 268, 244});
    receivePresetForm.setupUi(receivePresetDialog);
    placeDialog(receiveAsDialog, {494, 268, 213, 156});
    receiveAsForm.setupUi(receiveAsDialog);
    placeDialog(receiveAllDialog, {481, 260, 239, 172});
    receiveAllForm.setupUi(receiveAllDialog);
    placeDialog(renameDialog, {505, 283, 190, 127});
    renameForm.setupUi(renameDialog);
    placeDialog(liveMemoryHelpDialog, {442, 184, 317, 325});
    connectionSyncForm.setupUi(liveMemoryHelpDialog);
    for (QWidget* dialog : dialogs())
        innerDialogs.add(dialog);
}

QList<QWidget*> FullPowerView::dialogs() const
{
    return {receiveAllDialog, deleteDialog, receiveAsDialog,     receivePresetDialog,
            renameDialog,     saveAsDialog, liveMemoryHelpDialog};
}

QList<QLineEdit*> FullPowerView::nameEdits() const
{
    return {saveAsForm.name, renameForm.name, receivePresetForm.name, receiveAsForm.name,
            receiveAllForm.prefix};
}

void FullPowerView::openDialog(QWidget* dialog, QWidget* focus)
{
    disableWidget->raise();
    disableWidget->show();
    dialog->raise();
    dialog->show();
    focus->setFocus();
}

void FullPowerView::closeDialog(QWidget* dialog)
{
    dialog->close();
    const auto edits = dialog->findChildren<QLineEdit*>();
    for (QLineEdit* edit : edits)
        edit->clear();
    slotHideDisableWidget();
}

void FullPowerView::slotCloseDialog()
{
    if (sender() == nullptr)
        return;
    if (auto* dialog = qobject_cast<QWidget*>(sender()->parent()); dialog != nullptr)
        closeDialog(dialog);
}

bool FullPowerView::isDialogOpen() const
{
    const QList<QWidget*> all = dialogs();
    return std::any_of(all.cbegin(), all.cend(),
                       [](const QWidget* dialog) { return !dialog->isHidden(); });
}

void FullPowerView::slotHideDisableWidget()
{
    if (isDialogOpen()) {
        disableWidget->show();
        disableWidget->raise();
    } else {
        disableWidget->close();
    }
}

// Events

QList<QWidget*> FullPowerView::filteredWidgets() const
{
    QList<QWidget*> widgets{form.frame,
                            form.presetFrame,
                            form.faderGroupBox,
                            receiveAllForm.prefix,
                            receiveAllForm.cancel,
                            receiveAllForm.receive,
                            receiveAsForm.name,
                            receiveAsForm.cancel,
                            receiveAsForm.receive,
                            receivePresetForm.name,
                            receivePresetForm.receive,
                            receivePresetForm.cancel,
                            receivePresetForm.toNew,
                            receivePresetForm.toSetlistSlot,
                            receivePresetForm.rememberReceiveDecision,
                            renameForm.name,
                            renameForm.cancel,
                            renameForm.rename,
                            saveAsForm.name,
                            saveAsForm.save,
                            saveAsForm.cancel,
                            deleteForm.delete_2,
                            deleteForm.cancel,
                            connectionSyncForm.ok,
                            connectionSyncForm.textBrowser};
    // Every fader, and every button: a press on one commits a number that is being typed.
    const auto children = viewContainer->findChildren<QWidget*>();
    for (QWidget* child : children) {
        const QString name = child->objectName();
        const bool isFader = name.contains(QLatin1String("faderframe_"))
            && name.contains(QLatin1String("_fader")) && !name.contains(QLatin1String("_level"));
        if (isFader || qobject_cast<QAbstractButton*>(child) != nullptr)
            widgets.append(child);
    }
    return widgets;
}

bool FullPowerView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == progressWidget
        && (event->type() == QEvent::Show || event->type() == QEvent::Hide))
        lockInput(event->type() == QEvent::Show);
    if (inputLocked) {
        // Now the filter of the whole program: the sheet keeps off nothing but the mouse.
        switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
            event->accept();
            return true;
        default:
            return QWidget::eventFilter(watched, event);
        }
    }
    if (!watched->isWidgetType())
        return QWidget::eventFilter(watched, event);
    auto* widget = static_cast<QWidget*>(watched);
    // The second press of a quick pair is a press as well.
    if (event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick)
        return filterPress(widget, static_cast<QMouseEvent*>(event));
    if (event->type() == QEvent::KeyPress)
        return filterKey(widget, static_cast<QKeyEvent*>(event));
    return QWidget::eventFilter(watched, event);
}

bool FullPowerView::filterPress(QWidget* watched, const QMouseEvent* event)
{
    const QString name = watched->objectName();
    if (event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ControlModifier)
        && name.contains(QLatin1String("_fader")) && !name.contains(QLatin1String("_level"))) {
        faders->setToZero(watched);
        return true;
    }
    if (event->button() == Qt::LeftButton) {
        const bool isSelect = name.contains(QLatin1String("select"));
        const bool isSolo = !isSelect && name.contains(QLatin1String("solo"));
        if (event->modifiers().testFlag(Qt::ShiftModifier)) {
            shiftSelectActive = shiftSelectActive || isSelect;
            shiftSoloActive = shiftSoloActive || isSolo;
        } else if (event->modifiers() == Qt::NoModifier) {
            shiftSelectActive = shiftSelectActive && !isSelect;
            shiftSoloActive = shiftSoloActive && !isSolo;
        }
        faders->setSoloAlone(shiftSoloActive);
        if (isSolo)
            faders->setPressedSolo(watched);
    }
    if (qobject_cast<QAbstractButton*>(watched) != nullptr)
        slotCommitEditedBox();
    const bool isGround = name == QLatin1String("frame") || name == QLatin1String("presetFrame")
        || name.contains(QLatin1String("faderGroupBox"))
        || name.contains(QLatin1String("groupBox"));
    if (isGround) {
        const auto children = findChildren<QWidget*>();
        for (QWidget* child : children)
            if (child->hasFocus() && !child->objectName().contains(QLatin1String("rotary")))
                child->clearFocus();
    }
    return false;
}

bool FullPowerView::filterKey(QWidget* watched, const QKeyEvent* event)
{
    const QWidget* dialog = watched->parentWidget();
    const QString dialogName = dialog != nullptr ? dialog->objectName() : QString();
    if (event->key() == Qt::Key_Escape) {
        if (dialogName.contains(QLatin1String("Dialog")))
            closeDialog(watched->parentWidget());
        return true;
    }
    const QString name = watched->objectName();
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        && (name == QLatin1String("prefix") || name == QLatin1String("name"))) {
        const struct {
            const char* dialog;
            QPushButton* button;
        } rows[]{
            {"rename", renameForm.rename},        {"receiveAll", receiveAllForm.receive},
            {"receiveAs", receiveAsForm.receive}, {"receivePreset", receivePresetForm.receive},
            {"saveAs", saveAsForm.save},
        };
        for (const auto& row : rows) {
            if (dialogName.contains(QLatin1String(row.dialog)) && row.button->isEnabled()) {
                row.button->click();
                break;
            }
        }
    }
    return false;
}
