#pragma once

#include "forms/shellforms.h"
#include "innerdialogs.h"
#include "jsonfile.h"
#include "parametersender.h"
#include "tooltipeventfilter.h"

#include <QMainWindow>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>

class Definitions;
class FullPowerView;
class GlobalImportExportHandler;
class GlobalPresetInterface;
class ImportExportHandler;
class LowPowerView;
class MidiPorts;
class PresetInterface;
class QAction;
class QFile;
class QMenu;
class QMenuBar;
class QNetworkAccessManager;
class QNetworkReply;
class QSettings;
class SettingsPage;
class SysexManager;
class UpdateCheck;
class UsbAudio;

// The main window and the program's composition root: owns the device link and the views, holds the
// shell's in-window dialogs, and decides which face the one window shows. Its size is fixed at all
// times; all sizes and positions are in pixels.
class ViewManager : public QMainWindow
{
    Q_OBJECT

public:
    // Shows its splash at once, before the views are built. presetsAccess: whether the presets'
    // folder is this editor's; in another's nothing is saved.
    explicit ViewManager(JsonFile::Access presetsAccess = JsonFile::Access::Full,
                         QWidget* parent = nullptr);
    // On other MIDI than the system's; not shown.
    explicit ViewManager(std::unique_ptr<MidiPorts> ports,
                         JsonFile::Access presetsAccess = JsonFile::Access::Full,
                         QWidget* parent = nullptr);
    ~ViewManager() override;

    static constexpr int splashWidth = 400;
    static constexpr int splashHeight = 495;
    static constexpr int menuBarHeight = 20;
    // A window that is closed during a firmware update waits this long for the tool.
    static constexpr int updateWaitMs = 120000;
    // The firmware console keeps this many characters, the last ones.
    static constexpr int consoleLimit = 256 * 1024;

    SysexManager* sysex() const { return sysexManager; }
    PresetInterface* presets() const { return presetInterface; }
    GlobalPresetInterface* globals() const { return globalPresetInterface; }
    FullPowerView* fullPower() const { return fullPowerView; }

public slots:
    // Creates no folder, in spite of its name: tells the stores where theirs is, and whose.
    void slotCreateResourcesFolder();
    void slotConnectInterfaces();
    void slotInitMenuBar();

    void slotInitAfterConnection(bool connected);
    // Enters the full-power face, once in a connection or a demo: several queries may be under way,
    // and each answer comes here.
    void slotInitFullPowerView();
    // Nothing that the mixer says raises it.
    void slotInitLowPowerView();
    // Brings the translucent sheet in line with the dialogs that are open; called after any has
    // closed.
    void slotHideDisableWidget();
    // Resizes the window for the preset drawer. Some dialogs stay where they are, and windowWidth
    // and windowHeight as well.
    void slotChangeWindowSize(int width, int height);
    void slotShowPresets();
    void slotShowFP();
    // brightness: 0 to 255, the grey of the settings dialog's numbers while they are dragged.
    void slotInitSpinboxTextColor(int brightness);

    void slotEnterDemoMode();
    void slotCloseDemoDialog();
    void slotExitDemoMode();

    // The settings dialog's controls: the store wire and the send wire.
    void slotConnectGlobal();
    void slotDisconnectGlobal();
    void slotConnectToSysexGlobalSending();
    void slotDisconnectToSysexGlobalSending();
    void slotGlobalChanged();
    void slotSendSysexGlobalParameter();
    void slotRecallGlobal(QVariantMap map);
    void slotReceiveGlobalParams(QString jsonName, int value);
    // channel: 0 or 1. A strip's phantom power was pressed; the dialog's button follows.
    void slotSetPhantom(int channel, int state);
    void slotSetButtonPhantom(int channel, int state);
    void slotOpenAudioMidiSetup();
    void slotHUIPortButton(bool checked);
    void slotShowHUIHelp();
    void slot_GetUSBDriverSettings();
    void slot_LoadUSBFinished(int exitCode);
    void slot_ReadErrOutputFromLoadUSBProcess();
    void slot_ReadStdOutputFromLoadUSBProcess();

    // All globals to the factory's, and to the mixer; a box tells.
    void slotClearGlobalPreset();
    void slotImportGlobalPreset();
    // The submenu follows the library.
    void slotUpdateExportPresetActions();
    void slotSetAppVersions();
    void slotCheckForUpdates();
    void slotUpdateCheckReply(QNetworkReply* reply);
    void slotOpenDoc();
    void slotEnableDisableToolTips();

    void slotAddTextToFwConsole(QString text);
    void slotClearFwLog();
    void slotSetFwProgressBar(int value);
    // Looks for both versions in the check tool's output; sets nothing until it holds both whole.
    void slotFindAndFormatFwVersion(QString text);
    void slotSetFirmwareVersions(QString foundVersion, QString expectedVersion);

signals:
    void signalStoreGlobal(QString name, QVariant value);
    void signalSendGlobalParameter(QString name, int value);
    void signalAppClosing();
    void signalReportMainWindowPos(int x, int y);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    // Files of presets and globals, while their menu entries are enabled.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private slots:
    void slotShowSettings();
    void slotShowPhantomOnStrips(QString name, int value);
    void slotSetUsb(QString menu, QString text);
    void slotShowUsbSetting(QString menu, QString text);
    void slotUsbFailed(QString why);
    void slotFwCheckStarted();
    void slotShowAboutDialog();
    void slotForceFirmwareUpdate();
    void slotStartFirmwareUpdate();
    void slotFirmwareIsOutOfDate();
    void slotFirmwareFailed(QString message);
    void slotMixerRestarts();

private:
    enum class Splash { AtOnce, WhenShown };
    ViewManager(Splash splash, std::unique_ptr<MidiPorts> ports, JsonFile::Access presetsAccess,
                QWidget* parent);

    void showSplash();
    void setupDialogs();
    QList<QWidget*> dialogs() const;
    void filterToolTips(QWidget* root);
    void setupEventFilters();
    void openFirmwareLog();
    void connectFirmwareDialogs();
    void placeDialog(QWidget* dialog, int width, int height);
    void setToolTipsEnabled(bool enabled);
    void writeFirmwareLog();
    void addFileActions(QMenu* menu);
    void addEditActions(QMenu* menu);
    // Those that need a mixer or the demo.
    void enableModeActions(bool enabled);
    // Parks both faces' views.
    void leaveModes();

    void setupSettings();
    void setupUsbAudio();
    void setupExchange();
    void connectImport(bool connected);
    void changeGlobals(const std::function<void()>& change);
    void sendGlobals();
    void tell(const QString& title, const QString& text, const QString& detail = {});

    QSettings* settingsStore = nullptr;
    QNetworkAccessManager* networkManager = nullptr;
    Definitions* definitions = nullptr;
    SysexManager* sysexManager = nullptr;
    // Has no parent and is never deleted: it ends with the process.
    PresetInterface* presetInterface = nullptr;
    ImportExportHandler* importExportHandler = nullptr;
    GlobalPresetInterface* globalPresetInterface = nullptr;
    GlobalImportExportHandler* globalImportExportHandler = nullptr;
    ParameterSender globalSender;
    ToolTipEventFilter toolTipFilter;
    FullPowerView* fullPowerView = nullptr;
    QWidget* fullPowerContainer = nullptr;
    LowPowerView* lowPowerView = nullptr;
    QWidget* lowPowerContainer = nullptr;
    QWidget* disableWidget = nullptr;
    QWidget* aboutDialog = nullptr;
    QWidget* settingsDialog = nullptr;
    QWidget* demoDialog = nullptr;
    QWidget* fwOutOfDateDialog = nullptr;
    QWidget* fwForceDialog = nullptr;
    QWidget* fwProgressDialog = nullptr;
    QWidget* fwErrorDialog = nullptr;
    QWidget* restartDialog = nullptr;
    const JsonFile::Access presetsAccess;
    InnerDialogs innerDialogs{this};
    // False in this program: files are found through the working directory.
    bool resourcesInAppData = false;
    QString resourcesFolder;
    QString dfuToolPath;
    UsbAudio* usbAudio = nullptr;
    UpdateCheck* updateCheck = nullptr;
    SettingsPage* settingsPage = nullptr;
    QFile* fwLogFile = nullptr;
    // The check tool's output until both versions were found in it.
    QString fwCheckOutput;
    bool fwVersionsFound = false;

    QMenuBar* menuBar = nullptr;
    QMenu* exportPresetMenu = nullptr;
    QAction* exportAllPresetsAct = nullptr;
    QAction* importPresetAct = nullptr;
    QAction* exportGlobalAct = nullptr;
    QAction* importGlobalAct = nullptr;
    QAction* preferencesAct = nullptr;
    QAction* copyPresetAct = nullptr;
    QAction* pastePresetAct = nullptr;
    QAction* pasteNewPresetAct = nullptr;
    QAction* copyFullChannelAct = nullptr;
    QAction* pasteFullChannelAct = nullptr;
    QAction* autoPopulateSetlistAct = nullptr;
    QAction* clearPresetAct = nullptr;
    QAction* clearGlobalPresetAct = nullptr;
    QAction* forceFirmwareUpdateAct = nullptr;
    QAction* toolTipsAct = nullptr;
    QAction* demoModeAct = nullptr;

    int windowHeight = splashHeight;
    int windowWidth = splashWidth;
    bool demoModeEnabled = false;
    // For whom the full-power face was entered last; for nobody since the mixer's ports have gone.
    enum class Entry { None, Mixer, Demo };
    Entry fullPowerEntry = Entry::None;
    int entryNumber = 0;
    // All of them were changed before the mixer's state was here.
    bool globalsWaitForSync = false;

    MainForm form;
    AboutDialogForm aboutDialogForm;
    DemoDialogForm demoDialogForm;
    FwOutOfDateDialogForm fwOutOfDateDialogForm;
    FwForceDialogForm fwForceDialogForm;
    FwProgressDialogForm fwProgressDialogForm;
    FwErrorDialogForm fwErrorDialogForm;
    RestartDialogForm restartDialogForm;
};
