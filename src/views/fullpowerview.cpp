#include "fullpowerview.h"

#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "faderframe.h"
#include "globalpresetinterface.h"
#include "mainsstrip.h"
#include "pagestyle.h"
#include "phonesstrip.h"
#include "presetinterface.h"
#include "reverbtabform.h"
#include "setlist.h"
#include "sysexmanager.h"
#include "tablefilereader.h"

#include <QDebug>
#include <QPushButton>
#include <QStackedWidget>
#include <QToolButton>

namespace
{

constexpr int channelStripPage = 1;
constexpr int dimText = 40;

} // namespace

FullPowerView::FullPowerView(bool resourcesInAppData, QString folder, SysexManager* sysex,
                             PresetInterface* presets, GlobalPresetInterface* globals,
                             QWidget* shellSettingsDialog, QSettings* settings, QWidget* parent)
    : QWidget(parent)
    , settingsStore(settings)
    , sysexManager(sysex)
    , presetInterface(presets)
    , globalPresetInterface(globals)
    , settingsDialog(shellSettingsDialog)
    , setlist(new Setlist(this))
    , copyPasteHandler(new CopyPasteHandler(presets, this))
    , viewContainer(new QWidget(this))
    , disableWidget(new QWidget(this))
{
    setObjectName(QStringLiteral("fullPowerView"));
    setStyleSheet(pageStyleSheet());
    setlist->resourcesFolder = folder;
    setlist->resourcesInAppData = resourcesInAppData;
    setlist->access = presets->access;
    setlist->slotUpdateJSONPath();

    setGeometry(0, 0, widthWithPresets, heightInPixels);
    viewContainer->setGeometry(rect());
    form.setupUi(viewContainer);
    // While the pages are empty: a page that is made current is shown, and with it all that is on
    // it is styled, long before anybody sees it.
    form.mainTabWidget->setCurrentIndex(channelStripPage);
    disableWidget->hide();
    disableWidget->setGeometry(rect());
    disableWidget->setStyleSheet(QStringLiteral("background: rgba(0,0,0,200);"));

    channelStripTab = new ChannelStripTab(form.channelStripTab);
    reverbTabForm = new ReverbTabForm(form.reverbTab);
    // Their pages are still empty.
    for (QPushButton* tab : {form.surroundTabButton, form.midiTabButton, form.usbTabButton})
        tab->hide();
    form.channelStripTabButton->setChecked(true);

    setupFaderFrame();
    setupDialogs();

    const TableFileReader reader;
    phonesDisplayTable = reader.readDoubleTable(QStringLiteral("phonesDisplayTable.txt"));
    phonesSysexSendTable = reader.readIntTable(QStringLiteral("phonesSysexSendTable.txt"));

    form.deletepreset->setEnabled(presetInterface->presetCount() >= 2);
    setlist->slotInitComponents(form.setlistMenus);
    connect(form.presetlist, SIGNAL(signalNewPresetList()), this, SIGNAL(signalNewPresetList()));
    slotInitSpinboxTextColor(dimText);
    makeInterfaceWires();
    // Also when a delete has ended the mode that it began in: the name must not stay in the file.
    connect(presetInterface, SIGNAL(signalPopulateSetlistMenusAfterDelete()),
            SLOT(slotPopulateSetlistMenusAfterDelete()));
}

FullPowerView::~FullPowerView() = default;

void FullPowerView::setupFaderFrame()
{
    faders = new FaderFrame(form.faderGroupBox, channelStripTab->selection());
    for (const char* own :
         {SIGNAL(signalStoreValue(QString, QVariant, int)), SIGNAL(signalCheckSavedState(int)),
          SIGNAL(signalSendPresetParameter(QString, int))})
        connect(faders, own, this, own);
    selectButtons = faders->findChildren<QPushButton*>();
    const QString first = channels::selectName(1);
    selectButton(first)->setChecked(true);
    setSelectedChannels({first});
}

QList<ParameterPage*> FullPowerView::parameterPages() const
{
    QList<ParameterPage*> pages{faders};
    for (ChannelStrip* strip : channelStripTab->channelStrips())
        pages.append(strip);
    pages += {channelStripTab->mainsStrip(), channelStripTab->phonesStrip(), reverbTabForm};
    return pages;
}

// A mode entry

bool FullPowerView::slotInitializeFullPowerMode()
{
    const int entry = ++modeEntry;
    modeActive = true;
    restFlows();
    for (QWidget* widget : filteredWidgets())
        widget->installEventFilter(this);
    slotConnectInterfaces();
    slotConnectMenuItems();
    // A recall that the last mode's end cut short left it locked.
    form.presetlist->setEnabled(true);
    connect(this, SIGNAL(signalPopulatePresetMenu(ReorderableListWidget*)), presetInterface,
            SLOT(slotPopulatePresetMenu(ReorderableListWidget*)), Qt::UniqueConnection);
    presetInterface->slotSetSyncStatus(false);
    emit signalPopulatePresetMenu(form.presetlist);
    setlist->slotRecallSetlist();
    showAvailability();
    slotSetPreferences();
    if (!isCurrent(entry))
        return false;
    if (!demoModeEnabled) {
        slotDisconnectToSysexPresetSending();
        emit signalDisconnectGlobalSysex();
        disconnectStoreSending();
    }
    connectPhantom(demoModeEnabled);
    globalPresetInterface->slotRecallGlobal();
    selectRow(0);
    if (!isCurrent(entry))
        return false;
    checkAllSaveStates();
    if (!demoModeEnabled) {
        layPresetZero(entry);
        if (!isCurrent(entry))
            return false;
        connectStoreSending();
        liveMemoryAsked = true;
        sysexManager->slotSendSinglePresetRequest(0, false);
    }
    emit signalFindAudioDeviceNames();
    return true;
}

void FullPowerView::slotDeInitializeFullPowerMode()
{
    // What is typed goes, while the wires are there, to the preset it is meant for, or to nobody.
    slotCommitEditedBox();
    for (QWidget* dialog : dialogs())
        closeDialog(dialog);
    modeActive = false;
    ++modeEntry;
    endMultipleSelection();
    for (QWidget* widget : filteredWidgets())
        widget->removeEventFilter(this);
    presetInterface->slotSetSyncStatus(false);
    slotDisconnectInterfaces();
    // What the mixer's panel says of a mode that is over must check no button of the next.
    slotEnableViewChanging(false);
    slotDisconnectMenuItems();
    disconnect(this, SIGNAL(signalPopulatePresetMenu(ReorderableListWidget*)), presetInterface,
               SLOT(slotPopulatePresetMenu(ReorderableListWidget*)));
    restFlows();
    closeProgress();
}

void FullPowerView::slotAppClosing()
{
    modeActive = false;
    ++modeEntry;
    presetInterface->slotSetSyncStatus(false); // a recall under way ends here
}

void FullPowerView::restFlows()
{
    entering = false;
    liveMemoryAsked = false;
    syncComplete = false;
    receivingAllPresets = false;
    presetReadyToReceive = false;
    waitingForSilentRecall = false;
    requestedSlot = -1;
    freshSlotEnds = 0;
    waitingActions.clear();
}

void FullPowerView::slotSetDemoModeEnabled(bool enabled)
{
    qDebug() << "demo mode enabled?" << enabled;
    demoModeEnabled = enabled;
    setlist->slotSetDemoModeEnabled(enabled);
    for (QToolButton* button : {form.send_all, form.receive_all, form.saveas})
        button->setEnabled(!enabled);
    // These three come back with the next selection of a preset, not here.
    if (enabled) {
        for (QToolButton* button : {form.save, form.revert, form.deletepreset})
            button->setEnabled(false);
    }
}

void FullPowerView::slotShowPresets(bool show)
{
    const int width = show ? widthWithPresets : widthWithoutPresets;
    setFixedSize(width, heightInPixels);
    emit signalChangeWindowSize(width, heightInPixels);
    settingsDialog->setGeometry(show ? 175 : 42, 178, 850, 336);
}

void FullPowerView::on_showPreset_triggered(QAction* /*arg1*/)
{
    slotShowPresets(form.showPreset->isChecked());
}

void FullPowerView::slotTriggerSizeChangeToShowPresets()
{
    setFixedSize(widthWithPresets, heightInPixels);
    emit signalChangeWindowSize(widthWithPresets, heightInPixels);
    viewContainer->show();
}

void FullPowerView::slotTriggerSizeChangeToHidePresets()
{
    setFixedSize(widthWithoutPresets, heightInPixels);
    emit signalChangeWindowSize(widthWithoutPresets, heightInPixels);
    viewContainer->show();
}
