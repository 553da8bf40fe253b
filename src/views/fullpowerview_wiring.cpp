// What joins the view to the stores and the device link, made at each mode entry and cut at each
// exit as one list; the dialogs; what the view filters.

#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "mainsstrip.h"
#include "phonesstrip.h"
#include "portableslider.h"
#include "presetinterface.h"
#include "reverbtabform.h"
#include "selectalldoublespinbox.h"
#include "setlist.h"
#include "sysexmanager.h"

#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

void FullPowerView::slotConnectInterfaces()
{
    for (const Wire& wire : qAsConst(interfaceWires))
        wire.connect();
}

void FullPowerView::slotDisconnectInterfaces()
{
    for (const Wire& wire : qAsConst(interfaceWires))
        wire.disconnect();
}

void FullPowerView::connectStoreSending() const
{
    for (const Wire& wire : storeSendingWires)
        wire.connect();
}

void FullPowerView::disconnectStoreSending() const
{
    for (const Wire& wire : storeSendingWires)
        wire.disconnect();
}

void FullPowerView::makeInterfaceWires()
{
    addPageWires();
    addPresetWires();
    addDialogWires();
    addSelectionWires();
}

Wire FullPowerView::phantomWire()
{
    return {channelStripTab, SIGNAL(signalSendGlobalParameter(QString, int)), sysexManager,
            SLOT(slotSendGlobalParameters(QString, int))};
}

void FullPowerView::addPageWires()
{
    const char* store = SIGNAL(signalStoreValue(QString, QVariant, int));
    const char* check = SIGNAL(signalCheckSavedState(int));
    const char* send = SIGNAL(signalSendPresetParameter(QString, int));
    const char* recall = SIGNAL(signalRecallPreset(QVariantMap));
    const char* fromStrips = SIGNAL(signalReceiveChannelStripParams(QString, int));
    const char* toStrip = SLOT(slotReceiveChannelStripParams(QString, int));

    recallWires.append({presetInterface, recall, this, SLOT(slotRecallPresets(QVariantMap))});
    QList<QObject*> owners{this};
    for (ParameterPage* page : parameterPages()) {
        owners.append(page);
        recallWires.append({presetInterface, recall, page, SLOT(slotRecallPreset(QVariantMap))});
    }
    for (QObject* owner : qAsConst(owners)) {
        interfaceWires.append(
            {owner, store, this, SLOT(slotStoreShownValue(QString, QVariant, int))});
        interfaceWires.append({owner, check, this, SLOT(slotCheckShownState(int))});
        interfaceWires.append(
            {owner, send, sysexManager, SLOT(slotSendPresetParameters(QString, int))});
    }
    interfaceWires += recallWires;

    for (ChannelStrip* strip : channelStripTab->channelStrips()) {
        interfaceWires += {
            {sysexManager, fromStrips, strip, toStrip},
            {strip, SIGNAL(signalDeselectChannel(int)), this, SLOT(slotShiftDeSelect(int))},
            {strip, SIGNAL(signalDeselectAll()), this, SLOT(slotDeselectMultiple())},
        };
    }
    MainsStrip* mains = channelStripTab->mainsStrip();
    interfaceWires += {
        {sysexManager, fromStrips, mains, toStrip},
        {sysexManager, fromStrips, channelStripTab->phonesStrip(), toStrip},
        {sysexManager, SIGNAL(signalReceiveReverbParams(QString, int)), reverbTabForm,
         SLOT(slotReceiveReverbParams(QString, int))},
        {sysexManager, SIGNAL(signalReceiveMainwindowPresetParams(QString, int)), this,
         SLOT(slotReceiveMainwindowPresetParams(QString, int))},
        {reverbTabForm, SIGNAL(signal_reverb_level(int)), mains, SLOT(slot_reverb_level(int))},
        {mains, SIGNAL(signal_reverb_level(int)), reverbTabForm, SLOT(slot_reverb_level(int))},
        phantomWire(),
        {channelStripTab, SIGNAL(signalSetPhantom(int, int)), this, SLOT(slotSetPhantom(int, int))},
    };
}

void FullPowerView::addPresetWires()
{
    storeSendingWires = {
        {presetInterface, SIGNAL(signalConnectToSysexSending()), this,
         SLOT(slotConnectToSysexPresetSending())},
        {presetInterface, SIGNAL(signalDisconnectFromSysexSending()), this,
         SLOT(slotDisconnectToSysexPresetSending())},
        {presetInterface, SIGNAL(signalSendPresetParameter(QString, int)), sysexManager,
         SLOT(slotSendPresetParameters(QString, int))},
    };
    interfaceWires += storeSendingWires;
    ReorderableListWidget* list = form.presetlist;
    interfaceWires += {
        {sysexManager, SIGNAL(signalReceiveGoToSyncPreset(int)), this,
         SLOT(slotRecallPresetSilently(int))},
        {sysexManager, SIGNAL(signalLiveMemoryFinishedSyncing()), this,
         SLOT(slotSyncOnConnectComplete())},
        {sysexManager, SIGNAL(signalReceiveSinglePresetComplete(int, bool)), this,
         SLOT(slotReceiveSinglePresetComplete(int, bool))},
        {sysexManager, SIGNAL(signalHideDisableWidget()), this, SLOT(slotHideDisableWidget())},
        {sysexManager, SIGNAL(signalHideProgressWidget()), progressWidget, SLOT(close())},
        {presetInterface, SIGNAL(signalStereoUpdatingStatus(bool)), sysexManager,
         SLOT(slotSendStereoUpdatingStatus(bool))},
        {this, SIGNAL(signalStartLiveMemoryTimeout(int)), presetInterface->liveMemoryTimer,
         SLOT(start(int))},
        {presetInterface, SIGNAL(signalPresetIsReadyToReceive()), this,
         SLOT(slotPresetIsReadyToReceive())},
        {presetInterface, SIGNAL(signalPresetDoneRecalling()), this,
         SLOT(slotDoneWaitingForReconnectOnSilentRecall())},
        {presetInterface, SIGNAL(signalPresetDirty(int, bool)), this,
         SLOT(slotDisplaySaveState(int, bool))},
        {this, SIGNAL(signalSaveAs(QString, bool, bool)), presetInterface,
         SLOT(slotSavePresetAs(QString, bool, bool))},
        {presetInterface, SIGNAL(signalAddOrRemovePreset()), this, SLOT(slotPopulatePresetMenu())},
        {presetInterface, SIGNAL(signalPresetMenu(int)), this, SLOT(slotSetPresetMenu(int))},
        {presetInterface, SIGNAL(signalPresetListEnabled(bool)), this,
         SLOT(slotSetPresetListWidgetEnableState(bool))},
        {presetInterface, SIGNAL(signalPopulateSetlistMenus(ReorderableListWidget*)), setlist,
         SLOT(slotPopulateSetlistMenus(ReorderableListWidget*))},
        {presetInterface, SIGNAL(signalPopulateSetlistMenusAfterDelete()), this,
         SLOT(slotPopulateSetlistMenusAfterDelete())},
        {setlist, SIGNAL(signalGetPresetList()), this, SLOT(slotPopulateSetlistMenus())},
        {setlist, SIGNAL(signalUpdateSendsAndReceives(bool, QChar)), this,
         SLOT(slotUpdateSendsAndReceives(bool, QChar))},
        {copyPasteHandler, SIGNAL(signalAddOrRemovePreset()), this, SLOT(slotPopulatePresetMenu())},
        {copyPasteHandler, SIGNAL(signalEnableDeleteButton(bool)), form.deletepreset,
         SLOT(setEnabled(bool))},
        {copyPasteHandler, SIGNAL(signalUpdatePasteAvailability()), this,
         SLOT(slotUpdatePasteAvailability())},
        {copyPasteHandler, SIGNAL(signalPresetMenu(int)), this, SLOT(slotSetPresetMenu(int))},
        {copyPasteHandler, SIGNAL(signalDeselectMultiple()), this, SLOT(slotDeselectMultiple())},
        {list, SIGNAL(itemDoubleClicked(QListWidgetItem*)), this,
         SLOT(slotCheckToAllowRename(QListWidgetItem*))},
        {list, SIGNAL(itemPressed(QListWidgetItem*)), list, SLOT(slotSetPresetDropBehavior())},
        {list, SIGNAL(signalReorderPresets()), this, SLOT(slotReorderPresetList())},
        {list, SIGNAL(itemSelectionChanged()), list, SLOT(slotSetPresetButtonUseability())},
        {list, SIGNAL(signalPresetButtons(bool)), this, SLOT(slotEnablePresetButtons(bool))},
        {list, SIGNAL(currentRowChanged(int)), this, SLOT(slotSelectionMoved(int))},
        {list, SIGNAL(signalPresetListScrollBarVisibility(bool)), this,
         SLOT(slotMoveLiveMemoryHelpIcon(bool))},
        {list, SIGNAL(signalHideLiveMemoryHelp(bool)), this,
         SLOT(slotHideLiveMemoryHelpIcon(bool))},
    };
}

void FullPowerView::addDialogWires()
{
    const char* clicked = SIGNAL(clicked());
    interfaceWires += {
        {form.save, clicked, this, SLOT(slotSavePreset())},
        {form.revert, clicked, this, SLOT(slotDeselectMultiple())},
        {form.revert, clicked, presetInterface, SLOT(slotRevertPreset())},
        {form.saveas, clicked, this, SLOT(slotOpenSaveAs())},
        {form.deletepreset, clicked, this, SLOT(slotDeletePreset())},
        {form.liveMemoryHelpButton, clicked, this, SLOT(slotOpenLiveMemoryHelp())},
        {form.receive_all, clicked, this, SLOT(slotOpenReceiveAll())},
        {form.send_all, clicked, this, SLOT(slotSendAllPresets())},
        {saveAsForm.save, clicked, this, SLOT(slotSaveAs())},
        {deleteForm.delete_2, clicked, this, SLOT(slotConfirmDelete())},
        {renameForm.rename, clicked, this, SLOT(slotRename())},
        {receivePresetForm.receive, clicked, this, SLOT(slotReceiveSinglePreset())},
        {receiveAsForm.receive, clicked, this, SLOT(slotReceiveSinglePreset())},
        {receiveAllForm.receive, clicked, this, SLOT(slotReceiveAllPresets())},
        {receivePresetForm.toNew, SIGNAL(toggled(bool)), this, SLOT(slotReceiveChoice())},
    };
    for (QPushButton* button :
         {saveAsForm.cancel, deleteForm.cancel, renameForm.cancel, receivePresetForm.cancel,
          receiveAsForm.cancel, receiveAllForm.cancel, connectionSyncForm.ok})
        interfaceWires.append({button, clicked, this, SLOT(slotCloseDialog())});
    for (QToolButton* button : qAsConst(form.sendButtons))
        interfaceWires.append({button, clicked, this, SLOT(slotSendSinglePreset())});
    for (QToolButton* button : qAsConst(form.receiveButtons))
        interfaceWires.append({button, clicked, this, SLOT(slotAssessReceiveDecision())});
    for (QLineEdit* edit : nameEdits())
        interfaceWires.append({edit, SIGNAL(textChanged(QString)), this, SLOT(slotValueChanged())});
}

void FullPowerView::addSelectionWires()
{
    interfaceWires += {
        {this, SIGNAL(signalSelectChannelView(int)), copyPasteHandler,
         SLOT(slotSetCurrentChannel(int))},
        {this, SIGNAL(signalSelectChannelView(int)), channelStripTab,
         SLOT(slotSelectChannelStrip(int))},
    };
    for (QPushButton* button : qAsConst(selectButtons))
        interfaceWires.append({button, SIGNAL(toggled(bool)), this, SLOT(slotSelectChannelView())});
    for (QPushButton* tab : {form.surroundTabButton, form.channelStripTabButton,
                             form.reverbTabButton, form.midiTabButton, form.usbTabButton})
        interfaceWires.append({tab, SIGNAL(toggled(bool)), this, SLOT(slotChangeTabViews())});
}

// The dialogs

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
                            connectionSyncForm.ok};
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
    if (event->type() == QEvent::MouseButtonPress)
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
        SelectAllDoubleSpinbox* box = levelBoxOf(watched);
        if (box != nullptr && box->isEnabled()) {
            box->setValue(0);
            emit box->signalSetDial(0);
        }
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
        if (isSolo)
            pressedSolo = watched;
    }
    if (qobject_cast<QAbstractButton*>(watched) != nullptr)
        commitEditedBox();
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
