// What joins the view to the stores and the device link, made at each mode entry and cut at each
// exit as one list.

#include "channelselector.h"
#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "mainsstrip.h"
#include "miditab.h"
#include "phonesstrip.h"
#include "presetdrawer.h"
#include "presetinterface.h"
#include "progressbox.h"
#include "reverbtabform.h"
#include "setlist.h"
#include "slottransfer.h"
#include "surroundtab.h"
#include "sysexmanager.h"
#include "usbtab.h"

#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

void FullPowerView::slotConnectInterfaces()
{
    for (const Wire& wire : std::as_const(interfaceWires))
        wire.connect();
}

void FullPowerView::slotDisconnectInterfaces()
{
    for (const Wire& wire : std::as_const(interfaceWires))
        wire.disconnect();
}

// Of the settings dialog, whose form is laid after the view was made.
void FullPowerView::connectFlashButton(bool connected)
{
    auto* button = settingsDialog->findChild<QPushButton*>(QStringLiteral("globalSendButton"));
    if (button == nullptr)
        return;
    const Wire wire{button, SIGNAL(clicked()), sysexManager, SLOT(slotSaveGlobalParamsToFlash())};
    if (connected)
        wire.connect();
    else
        wire.disconnect();
}

void FullPowerView::makeInterfaceWires()
{
    interfaceWires = pageWires->all();
    addPageWires();
    addGlobalWires();
    addPresetWires();
    addDrawerWires();
    addTransferWires();
    addSelectionWires();
}

void FullPowerView::addPageWires()
{
    const char* fromStrips = SIGNAL(signalReceiveChannelStripParams(QString, int));
    const char* toStrip = SLOT(slotReceiveChannelStripParams(QString, int));
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
         SLOT(slotPhantomPressed(QString, int))},
        {this, SIGNAL(signalStoreGlobal(QString, QVariant)), globalPresetInterface,
         SLOT(slotStoreGlobal(QString, QVariant))},
        {globalPresetInterface, SIGNAL(signalRecallGlobal(QVariantMap)), this,
         SLOT(slotShowGlobals(QVariantMap))},
        {sysexManager, SIGNAL(signalReceiveMainwindowGlobalParams(QString, int)), this,
         SLOT(slotShowGlobal(QString, int))},
        {channelStripTab, SIGNAL(signalSetPhantom(int, int)), this, SLOT(slotSetPhantom(int, int))},
    };
}

void FullPowerView::addGlobalWires()
{
    interfaceWires += {
        {this, SIGNAL(signalReportMainWindowPos(int, int)), surroundTabView,
         SIGNAL(signalReportMainWindowPos(int, int))},
        {sysexManager, SIGNAL(signalReceiveMidiParams(QString, int)), midiTabView,
         SLOT(slotReceiveMidiParams(QString, int))},
        {sysexManager, SIGNAL(signalReceiveSurroundParams(QString, int)), surroundTabView,
         SLOT(slotReceiveSurroundParams(QString, int))},
        {sysexManager, SIGNAL(signalReceiveUSBParams(QString, int)), usbTabView,
         SLOT(slotReceiveUSBParams(QString, int))},
    };
    for (GlobalTab* tab : globalTabs())
        interfaceWires += {
            {tab, SIGNAL(signalGlobalSendClicked()), sysexManager,
             SLOT(slotSaveGlobalParamsToFlash())},
            {globalPresetInterface, SIGNAL(signalRecallGlobal(QVariantMap)), tab,
             SLOT(slotRecallGlobal(QVariantMap))},
            {tab, SIGNAL(signalStoreGlobal(QString, QVariant)), globalPresetInterface,
             SLOT(slotStoreGlobal(QString, QVariant))},
            {tab, SIGNAL(signalSendParameter(QString, int)), sysexManager,
             SLOT(slotSendGlobalParameters(QString, int))},
        };
    const char* enabled = SIGNAL(signalSurroundEnabled(bool));
    const char* lock = SLOT(slotSetAuxTabLocking(bool));
    interfaceWires.append({surroundTabView, enabled, this, lock});
    for (ChannelStrip* strip : channelStripTab->channelStrips())
        interfaceWires.append({surroundTabView, enabled, strip, lock});
}

void FullPowerView::addPresetWires()
{
    interfaceWires += {
        {sysexManager, SIGNAL(signalReceiveGoToSyncPreset(int)), this,
         SLOT(slotRecallPresetSilently(int))},
        {sysexManager, SIGNAL(signalLiveMemoryFinishedSyncing()), this,
         SLOT(slotSyncOnConnectComplete())},
        {sysexManager, SIGNAL(signalReceiveSinglePresetComplete(int, bool)), this,
         SLOT(slotReceiveSinglePresetComplete(int, bool))},
        {sysexManager, SIGNAL(signalHideDisableWidget()), this, SLOT(slotHideDisableWidget())},
        {sysexManager, SIGNAL(signalHideProgressWidget()), transfer->progress()->widget(),
         SLOT(close())},
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
    };
}

void FullPowerView::addDrawerWires()
{
    const char* clicked = SIGNAL(clicked());
    ReorderableListWidget* list = form.presetlist;
    interfaceWires += {
        {list, SIGNAL(itemDoubleClicked(QListWidgetItem*)), this,
         SLOT(slotCheckToAllowRename(QListWidgetItem*))},
        {list, SIGNAL(itemPressed(QListWidgetItem*)), list, SLOT(slotSetPresetDropBehavior())},
        {list, SIGNAL(signalReorderPresets()), this, SLOT(slotReorderPresetList())},
        {list, SIGNAL(itemSelectionChanged()), list, SLOT(slotSetPresetButtonUseability())},
        {list, SIGNAL(signalPresetButtons(bool)), this, SLOT(slotEnablePresetButtons(bool))},
        {list, SIGNAL(currentRowChanged(int)), drawer, SLOT(slotSelectionMoved(int))},
        {list, SIGNAL(signalPresetListScrollBarVisibility(bool)), this,
         SLOT(slotMoveLiveMemoryHelpIcon(bool))},
        {list, SIGNAL(signalHideLiveMemoryHelp(bool)), this,
         SLOT(slotHideLiveMemoryHelpIcon(bool))},
        {form.liveMemoryHelpButton, clicked, drawer, SLOT(slotOpenLiveMemoryHelp())},
        {form.save, clicked, this, SLOT(slotSavePreset())},
        {form.revert, clicked, this, SLOT(slotDeselectMultiple())},
        {form.revert, clicked, presetInterface, SLOT(slotRevertPreset())},
        {form.saveas, clicked, drawer, SLOT(slotOpenSaveAs())},
        {form.deletepreset, clicked, this, SLOT(slotDeletePreset())},
        {drawer->saveButton(), clicked, this, SLOT(slotSaveAs())},
        {drawer->renameButton(), clicked, this, SLOT(slotRename())},
    };
    for (QLineEdit* edit : innerDialogs.nameEdits())
        interfaceWires.append({edit, SIGNAL(textChanged(QString)), this, SLOT(slotValueChanged())});
}

void FullPowerView::addTransferWires()
{
    const char* clicked = SIGNAL(clicked());
    const char* receive = SLOT(slotReceiveSinglePreset());
    interfaceWires += {
        {form.receive_all, clicked, transfer, SLOT(slotOpenReceiveAll())},
        {form.send_all, clicked, this, SLOT(slotSendAllPresets())},
        {transfer->receiveForm().receive, clicked, this, receive},
        {transfer->receiveAsButton(), clicked, this, receive},
        {transfer->receiveAllButton(), clicked, this, SLOT(slotReceiveAllPresets())},
    };
    for (QToolButton* button : std::as_const(form.sendButtons))
        interfaceWires.append({button, clicked, this, SLOT(slotSendSinglePreset())});
    for (QToolButton* button : std::as_const(form.receiveButtons))
        interfaceWires.append({button, clicked, this, SLOT(slotAssessReceiveDecision())});
}

void FullPowerView::addSelectionWires()
{
    interfaceWires += {
        {this, SIGNAL(signalSelectChannelView(int)), copyPasteHandler,
         SLOT(slotSetCurrentChannel(int))},
        {this, SIGNAL(signalSelectChannelView(int)), channelStripTab,
         SLOT(slotSelectChannelStrip(int))},
    };
    interfaceWires += selector->wires();
    for (QPushButton* tab : {form.surroundTabButton, form.channelStripTabButton,
                             form.reverbTabButton, form.midiTabButton, form.usbTabButton})
        interfaceWires.append({tab, SIGNAL(toggled(bool)), this, SLOT(slotChangeTabViews())});
}
