#include "fullpowerview.h"

#include "channelselector.h"
#include "channelstrip.h"
#include "channelstriptab.h"
#include "copypastehandler.h"
#include "editedbox.h"
#include "faderframe.h"
#include "mainsstrip.h"
#include "miditab.h"
#include "pagestyle.h"
#include "phonesstrip.h"
#include "presetdrawer.h"
#include "presetinterface.h"
#include "progressbox.h"
#include "reverbtabform.h"
#include "selectalldoublespinbox.h"
#include "setlist.h"
#include "slottransfer.h"
#include "surroundtab.h"
#include "tablefilereader.h"
#include "tablelookup.h"
#include "usbtab.h"

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
    , mode(presets)
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
    innerDialogs.setSheet(disableWidget);

    pageWires = std::make_unique<PageWires>(this, presetInterface, sysexManager, makePages());
    form.channelStripTabButton->setChecked(true);
    makeRooms();

    const TableFileReader reader;
    phonesDisplayTable = reader.readDoubleTable(QStringLiteral("phonesDisplayTable.txt"));
    phonesSysexSendTable = reader.readIntTable(QStringLiteral("phonesSysexSendTable.txt"));

    connect(form.presetlist, SIGNAL(signalNewPresetList()), this, SIGNAL(signalNewPresetList()));
    slotInitSpinboxTextColor(dimText);
    makeInterfaceWires();
    // Also when a delete has ended the mode that it began in: the name must not stay in the file.
    connect(presetInterface, SIGNAL(signalPopulateSetlistMenusAfterDelete()),
            SLOT(slotPopulateSetlistMenusAfterDelete()));
}

FullPowerView::~FullPowerView() = default;

// The faders first: the view's own recall comes before those of the other pages.
QList<PresetPage*> FullPowerView::makePages()
{
    channelStripTab = new ChannelStripTab(form.channelStripTab);
    reverbTabForm = new ReverbTabForm(form.reverbTab);
    surroundTabView = new SurroundTab(form.surroundTab, globalPresetInterface);
    midiTabView = new MidiTab(form.midiTab, globalPresetInterface);
    usbTabView = new UsbTab(form.usbTab, globalPresetInterface);
    faders = new FaderFrame(form.faderGroupBox, channelStripTab->selection());
    for (const char* own :
         {SIGNAL(signalStoreValue(QString, QVariant, int)), SIGNAL(signalCheckSavedState(int)),
          SIGNAL(signalSendPresetParameter(QString, int))})
        connect(faders, own, this, own);

    QList<PresetPage*> pages{faders};
    for (ChannelStrip* strip : channelStripTab->channelStrips())
        pages.append(strip);
    return pages << channelStripTab->mainsStrip() << channelStripTab->phonesStrip()
                 << reverbTabForm;
}

QList<GlobalTab*> FullPowerView::globalTabs() const
{
    return {surroundTabView, midiTabView, usbTabView};
}

void FullPowerView::makeRooms()
{
    selector = new ChannelSelector(this, mode, faders, channelStripTab, reverbTabForm,
                                   copyPasteHandler, form.channelStripTabButton);
    drawer = new PresetDrawer(this, mode, form, presetInterface, setlist, &innerDialogs);
    transfer = new SlotTransfer(this, {mode, form, innerDialogs, *pageWires, *drawer, *selector},
                                sysexManager, presetInterface, setlist, settingsStore);
    connect(&innerDialogs, SIGNAL(signalClosed()), SLOT(slotHideDisableWidget()));
    connect(transfer->progress(), SIGNAL(signalClosed()), SLOT(slotHideDisableWidget()));
    const char* saveAs = SIGNAL(signalSaveAs(QString, bool, bool));
    connect(drawer, saveAs, saveAs);
    connect(transfer, saveAs, saveAs);
    const char* timeout = SIGNAL(signalStartLiveMemoryTimeout(int));
    connect(drawer, timeout, timeout);
    const char* channel = SIGNAL(signalSelectChannelView(int));
    connect(selector, channel, channel);
}

// The preset drawer

void FullPowerView::slotSavePreset() { presetInterface->slotSavePreset(-1); }
void FullPowerView::slotSaveAs() { drawer->saveAs(); }
void FullPowerView::slotDeletePreset() { drawer->deletePreset(); }
void FullPowerView::slotRename() { drawer->rename(); }
void FullPowerView::slotReorderPresetList() { drawer->reorder(); }
void FullPowerView::slotEnablePresetButtons(bool enabled) { drawer->setButtonsEnabled(enabled); }
void FullPowerView::slotSetPresetMenu(int presetNum) { drawer->select(presetNum); }
void FullPowerView::slotPopulateSetlistMenus() { drawer->populateSetlistMenus(); }
void FullPowerView::slotPopulateSetlistMenusAfterDelete()
{
    drawer->populateSetlistMenusAfterDelete();
}
void FullPowerView::slotCheckToAllowRename(QListWidgetItem* presetItem)
{
    drawer->checkToAllowRename(presetItem);
}
void FullPowerView::slotDisplaySaveState(int presetNum, bool dirty)
{
    drawer->displaySaveState(presetNum, dirty);
}
void FullPowerView::slotMoveLiveMemoryHelpIcon(bool scrollBarIsShowing)
{
    drawer->moveLiveMemoryHelpIcon(scrollBarIsShowing);
}
void FullPowerView::slotHideLiveMemoryHelpIcon(bool hide)
{
    form.liveMemoryHelpButton->setVisible(!hide);
}
void FullPowerView::slotSetDeleteEnabled(bool enabled) { form.deletepreset->setEnabled(enabled); }

void FullPowerView::slotPopulatePresetMenu()
{
    drawer->populate();
    showAvailability();
}

// View and panel are not linked while presets change.
void FullPowerView::slotSetPresetListWidgetEnableState(bool enabled)
{
    if (!enabled || isViewLinkingStored())
        slotEnableViewChanging(enabled);
    drawer->setListEnabled(enabled);
}

// The slots of the mixer

void FullPowerView::slotUpdateSendsAndReceives(bool enabled, QChar setlistLetter)
{
    transfer->updateSendsAndReceives(enabled, setlistLetter);
}
void FullPowerView::slotSendSinglePreset() { transfer->sendSlotOf(sender()); }
void FullPowerView::slotSendAllPresets() { transfer->sendAll(); }
void FullPowerView::slotSendPreset(int setlistNumber, QString presetName, bool recallCurrent)
{
    transfer->sendPreset(setlistNumber, presetName, recallCurrent);
}
void FullPowerView::slotAssessReceiveDecision() { transfer->assessReceiveDecision(sender()); }
void FullPowerView::slotReceiveSinglePreset() { transfer->receiveSlotOf(sender()); }
void FullPowerView::slotReceiveAllPresets() { transfer->receiveAllFromDialog(); }
void FullPowerView::slotReceiveSinglePresetComplete(int slotNum, bool save)
{
    transfer->completeSlot(slotNum, save);
}
void FullPowerView::slotPresetIsReadyToReceive() { transfer->presetIsReady(); }
void FullPowerView::slotRecallPresetSilently(int presetLibraryNumber)
{
    transfer->recallSilently(presetLibraryNumber);
}
void FullPowerView::slotDoneWaitingForReconnectOnSilentRecall() { transfer->silentRecallIsDone(); }

// The channel selection

const QStringList& FullPowerView::selectedChannels() const { return selector->selectedChannels(); }
void FullPowerView::slotSelectChannelView() { selector->select(sender()); }
void FullPowerView::slotShiftSelect(int selectedChannel) { selector->shiftSelect(selectedChannel); }
void FullPowerView::slotShiftDeSelect(int deselectedChannel)
{
    selector->shiftDeselect(deselectedChannel);
}
void FullPowerView::slotDeselectMultiple() { selector->deselectMultiple(); }
void FullPowerView::slotConnectSelected(QString lastSelectedButton, QString newlyAddedButton)
{
    selector->setLinked(lastSelectedButton, newlyAddedButton, true);
}
void FullPowerView::slotDisconnectSelected(QString lastSelectedButton, QString newlyAddedButton)
{
    selector->setLinked(lastSelectedButton, newlyAddedButton, false);
}

// The pages, and the fader frame among them

void FullPowerView::slotConnectElements() { faders->slotConnectElements(); }
void FullPowerView::slotDisconnectElements() { faders->slotDisconnectElements(); }
void FullPowerView::slotConnectToSysexPresetSending() { pageWires->setSending(true); }
void FullPowerView::slotDisconnectToSysexPresetSending() { pageWires->setSending(false); }
// The faders store by themselves, and the dialogs look after their names.
void FullPowerView::slotValueChanged() { emit signalCheckSavedState(-1); }
void FullPowerView::slotSendSysexPresetParameter() { faders->slotSendSysexParameter(); }
void FullPowerView::slotReceiveMainwindowPresetParams(QString jsonName, int value)
{
    faders->slotReceiveFaderParams(jsonName, value);
}
void FullPowerView::slotLinkFadertoSpinbox(int value) { faders->slotLinkDialToSpinbox(value); }
void FullPowerView::slotLinkSpinboxtoFader(double value)
{
    faders->slotLinkDoubleSpinboxtoDial(value);
}
int FullPowerView::slotFindTableValueFromSpinboxValue(double value, QString objName,
                                                      QList<double> table)
{
    return faders->slotFindTableValueFromSpinboxValue(value, objName, table);
}
int FullPowerView::slotFindTableValueFromReceivedSysex(int value, QList<int> table)
{
    return findInTable(table, value).index;
}

void FullPowerView::slotRecallPresets(QVariantMap preset)
{
    // Each page lets events pass before its recall: what the mixer sends then for one that is not
    // laid yet would be stored, and be overwritten on the screen alone.
    for (PresetPage* page : pageWires->pages())
        page->slotDisconnectElements();
    selector->endMultipleSelection();
    faders->slotRecallPreset(preset);
}

void FullPowerView::slotInitSpinboxTextColor(int brightness)
{
    const auto boxes = form.faderGroupBox->findChildren<SelectAllDoubleSpinbox*>();
    for (SelectAllDoubleSpinbox* box : boxes)
        box->slotSetTextColorBrightness(brightness);
}

// The sheet and the drawer's width

// The progress box is not counted.
void FullPowerView::slotHideDisableWidget()
{
    if (innerDialogs.isAnyOpen())
        innerDialogs.coverAll();
    else
        disableWidget->close();
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
