// What joins the view to the stores and the device link, made at each mode entry and cut at each
// exit as one list.

#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "faderframe.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "mainsstrip.h"
#include "phonesstrip.h"
#include "presetinterface.h"
#include "reverbtabform.h"
#include "setlist.h"
#include "sysexmanager.h"

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
        // The faders speak through the view.
        if (page == faders)
            continue;
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
        {channelStripTab, SIGNAL(signalSendGlobalParameter(QString, int)), this,
         SLOT(slotStorePhantom(QString, int))},
        {this, SIGNAL(signalStoreGlobal(QString, QVariant)), globalPresetInterface,
         SLOT(slotStoreGlobal(QString, QVariant))},
        {globalPresetInterface, SIGNAL(signalRecallGlobal(QVariantMap)), this,
         SLOT(slotShowGlobals(QVariantMap))},
        {sysexManager, SIGNAL(signalReceiveMainwindowGlobalParams(QString, int)), this,
         SLOT(slotReceiveGlobalParams(QString, int))},
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
