#pragma once

#include "forms/fullpowerform.h"
#include "innerdialogs.h"
#include "modeentry.h"
#include "pagewires.h"

#include <QList>
#include <QStringList>
#include <QVariantMap>
#include <QWidget>

#include <memory>

class ChannelSelector;
class ChannelStripTab;
class CopyPasteHandler;
class FaderFrame;
class GlobalPresetInterface;
class GlobalTab;
class MidiTab;
class PresetPage;
class PresetDrawer;
class PresetInterface;
class QAction;
class QListWidgetItem;
class QMouseEvent;
class QPushButton;
class QSettings;
class QToolButton;
class ReverbTabForm;
class Setlist;
class SlotTransfer;
class SurroundTab;
class SysexManager;
class UsbTab;

// The full-power face: the pages of the channels and the reverb, the faders, the preset drawer with
// the setlist, and what goes to and from the mixer's slots. ViewManager owns it and enters and
// leaves its mode each time the mixer comes and goes.
//
// It is the front of four rooms: ModeEntry (how far an entry is, and what waits), PresetDrawer,
// SlotTransfer and ChannelSelector. The slots here forward to them, and what joins them stands
// here: the wiring, the order of a mode entry, the tabs, phantom power, preferences and Edit menu.
//
// Every control of a preset has two wires that are cut apart: the store wire to the preset store
// and the send wire to the mixer. A recall or a value from the mixer moves a control with one or
// both cut, so nothing echoes.
class FullPowerView : public QWidget
{
    Q_OBJECT

public:
    // The managers and stores, the settings dialog and the preferences are the shell's.
    FullPowerView(bool resourcesInAppData, QString folder, SysexManager* sysexManager,
                  PresetInterface* presetInterface, GlobalPresetInterface* globalPresetInterface,
                  QWidget* settingsDialog, QSettings* settingsStore, QWidget* parent);
    ~FullPowerView() override;

    static constexpr int heightInPixels = 728;
    static constexpr int widthWithPresets = 1200;
    static constexpr int widthWithoutPresets = 935;

    const QStringList& selectedChannels() const;
    ChannelStripTab* channelStrips() const { return channelStripTab; }
    Setlist* setlistStore() const { return setlist; }
    CopyPasteHandler* copyPaste() const { return copyPasteHandler; }
    // Whether a flow or a recall runs, or a mode is being entered: what changes the library waits.
    bool isBusy() const;
    // On the strips alone. key: of phantom power or its voltage; another changes nothing.
    void showPhantom(const QString& key, int value);

    bool eventFilter(QObject* watched, QEvent* event) override;

public slots:
    // The mixer is there, or the demo begins: joins the view to the stores and the device link, and
    // asks for the mixer's live state.
    // False if what its events brought, an unplug or a new entry, ended it meanwhile.
    bool slotInitializeFullPowerMode();
    void slotDeInitializeFullPowerMode();
    // Ends every wait, and lets nothing new begin.
    void slotAppClosing();
    void slotSetDemoModeEnabled(bool enabled);
    void slotConnectInterfaces();
    void slotDisconnectInterfaces();
    void slotHideDisableWidget();

    // The store wire of the faders, and the send wire of these and of all pages.
    void slotConnectElements();
    void slotDisconnectElements();
    void slotValueChanged();
    void slotConnectToSysexPresetSending();
    void slotDisconnectToSysexPresetSending();
    void slotSendSysexPresetParameter();
    void slotReceiveMainwindowPresetParams(QString jsonName, int value);
    void slotRecallPresets(QVariantMap preset);
    void slotLinkFadertoSpinbox(int value);
    void slotLinkSpinboxtoFader(double value);
    // The index of the entry for a number: the equal one, or the nearest, which is then written to
    // the box of that name. -1 if the table is empty.
    int slotFindTableValueFromSpinboxValue(double value, QString objName, QList<double> table);
    int slotFindTableValueFromReceivedSysex(int value, QList<int> table);
    // brightness: 0 to 255, the grey of the faders' numbers while they are dragged.
    void slotInitSpinboxTextColor(int brightness);

    void slotSetPreferences();
    void slotPreferencesChanged();
    void slotConnectHuiButton(QToolButton* huiEnable);
    void slotDisconnectHuiButton(QToolButton* huiEnable);
    // View linking: whether the editor and the mixer's panel follow each other's pages.
    void slotEnableViewChanging(bool enabled);

    void slotSavePreset();
    void slotSaveAs();
    void slotDeletePreset();
    void slotSetDeleteEnabled(bool enabled);
    void slotRename();
    void slotCheckToAllowRename(QListWidgetItem* presetItem);
    void slotReorderPresetList();
    void slotSetPresetListWidgetEnableState(bool enabled);
    void slotEnablePresetButtons(bool enabled);
    // presetNum: below 0 means row 0.
    void slotDisplaySaveState(int presetNum, bool dirty);
    void slotPopulatePresetMenu();
    void slotPopulateSetlistMenus();
    void slotPopulateSetlistMenusAfterDelete();
    void slotSetPresetMenu(int presetNum);
    void slotMoveLiveMemoryHelpIcon(bool scrollBarIsShowing);
    void slotHideLiveMemoryHelpIcon(bool hide);

    // The Edit menu's actions, which the shell owns.
    void slotInitFullPowerMenuActions(QAction* clearPreset, QAction* copyPreset,
                                      QAction* pastePreset, QAction* pasteNewPreset,
                                      QAction* copyFullChannel, QAction* pasteFullChannel,
                                      QAction* autoPopulateSetlist);
    void slotConnectMenuItems();
    void slotDisconnectMenuItems();
    void slotUpdatePasteAvailability();
    void slotAutoPopulateSetlist();

    // Opens or closes the preset drawer: the view's width follows, and the shell is told.
    void slotShowPresets(bool show);
    void slotTriggerSizeChangeToShowPresets();
    void slotTriggerSizeChangeToHidePresets();
    void on_showPreset_triggered(QAction* arg1);

    void slotChangeTabViews();
    // 0: surround, 1: channels, 2: reverb; nothing happens for any other number.
    void slotChangeTabViewFromSysex(int tabNum);
    void slotSelectChannelView();
    // 1 to 8 inputs, 9 mains, 10 to 12 aux 1 to 3, anything else the phones.
    void slotSelectChannelViewFromSysex(int selectedChannel);
    // 1 to 8; an output is refused with a debug line.
    void slotShiftSelect(int selectedChannel);
    void slotShiftDeSelect(int deselectedChannel);
    void slotDeselectMultiple();
    // Select-button names of two inputs: makes the older channel's controls follow the newer's, and
    // what is always on screen follow both ways.
    void slotConnectSelected(QString lastSelectedButton, QString newlyAddedButton);
    void slotDisconnectSelected(QString lastSelectedButton, QString newlyAddedButton);
    // While surround is on, it uses the aux buses.
    void slotSetAuxTabLocking(bool locked);
    void slotSetPhantom(int channel, int state);

    // The mixer's live state has arrived.
    void slotSyncOnConnectComplete();
    // The mixer changed preset by itself: the list follows, the controls don't.
    void slotRecallPresetSilently(int presetLibraryNumber);
    void slotAssessReceiveDecision();
    void slotResetReceiveDecision();
    void slotUpdateSendsAndReceives(bool enabled, QChar setlistLetter);
    void slotReceiveSinglePreset();
    void slotReceiveSinglePresetComplete(int slotNum, bool save);
    void slotReceiveAllPresets();
    void slotSendSinglePreset();
    void slotSendAllPresets();
    // setlistNumber: 0 to 11. presetName: of the library, "[DEFAULT]", or "[OFF]" for nothing.
    void slotSendPreset(int setlistNumber, QString presetName, bool recallCurrent);
    void slotPresetIsReadyToReceive();
    void slotDoneWaitingForReconnectOnSilentRecall();

signals:
    void signalConnectGlobalSysex();
    void signalDisconnectGlobalSysex();
    void signalStoreValue(QString name, QVariant value, int presetNum);
    void signalStoreGlobal(QString name, QVariant value);
    void signalCheckSavedState(int presetNum);
    void signalSaveAs(QString presetName, bool isForReceivingPresets, bool isForReceivingAll);
    void signalPopulatePresetMenu(ReorderableListWidget* presetlist);
    void signalNewPresetList();
    void signalStartLiveMemoryTimeout(int intervalMs);
    void signalSendPresetParameter(QString name, int value);
    void signalSendGlobalParameter(QString name, int value);
    void signalChangeWindowSize(int width, int height);
    void signalSelectChannelView(int selectedChannel);
    void signalSendTabViewSysex(int selectedTabData);
    void signalReportMainWindowPos(int x, int y);
    void signalFindAudioDeviceNames();
    void signalAddTextToFwLog(QString text);
    void signalSetPhantom(int channel, int state);

private slots:
    // Ends the typing of a number, which then counts.
    static void slotCommitEditedBox();
    // Into the preset that the controls show: presetNum as in the store's slots of like names.
    void slotStoreShownValue(QString name, QVariant value, int presetNum);
    void slotCheckShownState(int presetNum);
    // Of the global parameters those that the strips show.
    void slotShowGlobals(QVariantMap globals);
    void slotShowGlobal(QString name, int value) { showPhantom(name, value); }
    // A press on a strip.
    void slotPhantomPressed(QString name, int value);

private:
    QList<PresetPage*> makePages();
    QList<GlobalTab*> globalTabs() const;
    void makeRooms();
    QList<QWidget*> filteredWidgets() const;
    bool filterPress(QWidget* watched, const QMouseEvent* event);

    // Wiring
    void makeInterfaceWires();
    void connectFlashButton(bool connected);
    void addPageWires();
    void addGlobalWires();
    void addPresetWires();
    void addDrawerWires();
    void addTransferWires();
    void addSelectionWires();
    QList<Wire> menuWires();

    // Mode entry
    void layPresetZero();
    void showAvailability();
    int shownPreset(int presetNum) const;
    Wire phantomWire();
    void connectPhantom(bool connected);
    void enableGlobals(bool enabled);

    // To the mixer, while its panel and the editor follow each other.
    bool isViewLinkingStored() const;
    Wire modeWire();
    Wire channelSelectWire();
    void connectPreferences();
    QVariant preference(const QString& key, const QVariant& fallback);

    QSettings* const settingsStore;
    SysexManager* const sysexManager;
    PresetInterface* const presetInterface;
    GlobalPresetInterface* const globalPresetInterface;
    QWidget* const settingsDialog;
    Setlist* setlist = nullptr;
    CopyPasteHandler* copyPasteHandler = nullptr;
    QWidget* viewContainer = nullptr;
    QWidget* disableWidget = nullptr;
    FullPowerForm form;
    InnerDialogs innerDialogs{this};
    ViewMode mode;

    ChannelStripTab* channelStripTab = nullptr;
    ReverbTabForm* reverbTabForm = nullptr;
    FaderFrame* faders = nullptr;
    SurroundTab* surroundTabView = nullptr;
    MidiTab* midiTabView = nullptr;
    UsbTab* usbTabView = nullptr;
    std::unique_ptr<PageWires> pageWires;
    QList<Wire> interfaceWires;

    PresetDrawer* drawer = nullptr;
    ChannelSelector* selector = nullptr;
    SlotTransfer* transfer = nullptr;

    QAction* clearPresetAct = nullptr;
    QAction* copyPresetAct = nullptr;
    QAction* pastePresetAct = nullptr;
    QAction* pasteNewPresetAct = nullptr;
    QAction* copyFullChannelAct = nullptr;
    QAction* pasteFullChannelAct = nullptr;
    QAction* autoPopulateSetlistAct = nullptr;

    // Held for a control by table, which none is yet.
    QList<double> phonesDisplayTable;
    QList<int> phonesSysexSendTable;

    bool shiftSoloActive = false;
    bool auxTabsLocked = false;
};
