// ViewManager's construction, wiring, key rules and end.
#include "viewmanager.h"

#include "definitions.h"
#include "firmwareupdatemanager.h"
#include "fullpowerview.h"
#include "globalimportexporthandler.h"
#include "globalpresetinterface.h"
#include "importexporthandler.h"
#include "lowpowerview.h"
#include "pagestyle.h"
#include "presetinterface.h"
#include "settingspage.h"
#include "sysexmanager.h"
#include "updatecheck.h"
#include "usbaudio.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDebug>
#include <QDir>
#include <QEventLoop>
#include <QFile>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLabel>
#include <QMoveEvent>
#include <QNetworkAccessManager>
#include <QPushButton>
#include <QScrollArea>
#include <QSettings>
#include <QWindow>

namespace
{

QString readStyleSheet(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

ViewManager::ViewManager(JsonFile::Access access, QWidget* parent)
    : ViewManager(Splash::AtOnce, nullptr, access, parent)
{
}

ViewManager::ViewManager(std::unique_ptr<MidiPorts> ports, JsonFile::Access access, QWidget* parent)
    : ViewManager(Splash::WhenShown, std::move(ports), access, parent)
{
}

ViewManager::ViewManager(Splash splash, std::unique_ptr<MidiPorts> ports, JsonFile::Access access,
                         QWidget* parent)
    : QMainWindow(parent)
    // In this order: each store and handler takes what stands before it.
    , definitions(new Definitions(this))
    , sysexManager(new SysexManager(this, std::move(ports)))
    , presetInterface(new PresetInterface)
    , importExportHandler(new ImportExportHandler(presetInterface, this))
    , globalPresetInterface(new GlobalPresetInterface(this))
    , globalImportExportHandler(new GlobalImportExportHandler(globalPresetInterface, this))
    , globalSender(
          this, Parameter::Store::Global,
          [this](const QString& name, int value) { emit signalSendGlobalParameter(name, value); })
    , presetsAccess(access)
{
    // A static library's resources are known only when somebody asks for them.
    Q_INIT_RESOURCE(compiled_in);

    disableWidget = new QWidget(this);
    for (QWidget** dialog : {&aboutDialog, &settingsDialog, &demoDialog, &fwOutOfDateDialog,
                             &fwForceDialog, &fwProgressDialog, &fwErrorDialog, &restartDialog}) {
        *dialog = new QWidget(this, Qt::SubWindow);
    }

    QCoreApplication::setApplicationName(QStringLiteral("J-Sum Editor"));
    QCoreApplication::setOrganizationName(QStringLiteral("Dorvane Instruments"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("dorvane.example"));
    // Reads the names just set.
    settingsStore = new QSettings(this);
    networkManager = new QNetworkAccessManager(this);
    updateCheck = new UpdateCheck(networkManager, settingsStore, this);
    connect(networkManager, SIGNAL(finished(QNetworkReply*)),
            SLOT(slotUpdateCheckReply(QNetworkReply*)));
    slotCreateResourcesFolder();
    dfuToolPath =
        QDir(QStringLiteral("./resources")).absoluteFilePath(QStringLiteral("dfucons.exe"));

    form.setupUi(this);
    setCentralWidget(form.centralwidget);
    setWindowTitle(access == JsonFile::Access::Full ? QStringLiteral("J-Sum Editor")
                                                    : QStringLiteral("J-Sum Editor (not saving)"));
    setObjectName(QStringLiteral("ViewManager"));
    setStyleSheet(readStyleSheet(QStringLiteral(":/styles/styles/shell.qss")) + dialogStyleSheet());
    setGeometry(200, 50, splashWidth, splashHeight);
    setFixedSize(splashWidth, splashHeight);

    form.fullPowerViewWidget->hide();
    form.lowPowerViewWidget->hide();
    if (splash == Splash::AtOnce)
        showSplash();
    fullPowerContainer = new QWidget(form.fullPowerViewWidget);
    fullPowerView =
        new FullPowerView(resourcesInAppData, resourcesFolder, sysexManager, presetInterface,
                          globalPresetInterface, settingsDialog, settingsStore, fullPowerContainer);
    lowPowerContainer = new QWidget(form.lowPowerViewWidget);
    lowPowerView =
        new LowPowerView(sysexManager, globalPresetInterface, settingsDialog, lowPowerContainer);

    setupDialogs();
    setupEventFilters();
    // A missing font file is no error: the style sheets name others.
    QFontDatabase::addApplicationFont(QStringLiteral("./resources/futura-normal.ttf"));
    openFirmwareLog();
    slotConnectInterfaces();
    connect(presetInterface, SIGNAL(signalAddTextToFwLogFile(QString)), this,
            SLOT(slotAddTextToFwConsole(QString)));
    presetInterface->slotUpdateJSONPath();
    presetInterface->slotReadJSON();
    globalPresetInterface->slotSetJSONPath();
    globalPresetInterface->slotReadGlobal();
    slotInitMenuBar();
    connect(sysexManager, SIGNAL(signalPortConnectionText(QString)), aboutDialogForm.portName,
            SLOT(setText(QString)));
    constexpr int lightText = 242;
    slotInitSpinboxTextColor(lightText);
    setupExchange();
    slotSetAppVersions();
    slotCheckForUpdates();
    setupUsbAudio();
    settingsPage->settingsForm().controlPanel->setText(QStringLiteral("Control Panel"));
}

ViewManager::~ViewManager() = default;

// Stands while the views are built, which takes several times as long as all before. The window
// system alone is heard meanwhile: a poll of the ports would find nobody connected.
void ViewManager::showSplash()
{
    constexpr int patienceMs = 1000;
    constexpr auto windowSystem = QEventLoop::ExcludeUserInputEvents
        | QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers;
    show();
    const QDeadlineTimer patience(patienceMs);
    while (!windowHandle()->isExposed() && !patience.hasExpired())
        QCoreApplication::processEvents(windowSystem);
    QCoreApplication::processEvents(windowSystem);
}

void ViewManager::slotCreateResourcesFolder()
{
    presetInterface->resourcesFolder = resourcesFolder;
    presetInterface->useResourcesFolder = resourcesInAppData;
    globalPresetInterface->resourcesFolder = resourcesFolder;
    globalPresetInterface->useResourcesFolder = resourcesInAppData;
    presetInterface->access = presetsAccess;
    globalPresetInterface->access = presetsAccess;
}

void ViewManager::setupDialogs()
{
    disableWidget->hide();
    disableWidget->setGeometry(0, 0, windowWidth, windowHeight);
    disableWidget->setStyleSheet(QStringLiteral("background: rgba(0,0,0,200);"));

    innerDialogs.setSheet(disableWidget);
    using Escape = InnerDialogs::Escape;
    for (QWidget* dialog :
         {aboutDialog, settingsDialog, fwOutOfDateDialog, fwForceDialog, fwErrorDialog})
        innerDialogs.add(dialog);
    // A choice that has been made, and what the mixer must end.
    for (QWidget* dialog : {demoDialog, fwProgressDialog, restartDialog})
        innerDialogs.add(dialog, Escape::DoesNothing);
    for (QWidget* dialog : dialogs())
        placeDialog(dialog, windowWidth, windowHeight);
    connect(&innerDialogs, SIGNAL(signalClosed()), SLOT(slotHideDisableWidget()));
    aboutDialogForm.setupUi(aboutDialog);
    setupSettings();
    demoDialogForm.setupUi(demoDialog);
    fwOutOfDateDialogForm.setupUi(fwOutOfDateDialog);
    fwProgressDialogForm.setupUi(fwProgressDialog);
    fwForceDialogForm.setupUi(fwForceDialog);
    fwErrorDialogForm.setupUi(fwErrorDialog);
    restartDialogForm.setupUi(restartDialog);
}

void ViewManager::filterToolTips(QWidget* root)
{
    for (QWidget* widget : root->findChildren<QWidget*>()) {
        widget->installEventFilter(&toolTipFilter);
        widget->setAttribute(Qt::WA_MacShowFocusRect, false);
    }
}

void ViewManager::setupEventFilters()
{
    filterToolTips(this);
    installEventFilter(this);
}

void ViewManager::slotConnectInterfaces()
{
    for (QWidget* view :
         {static_cast<QWidget*>(fullPowerView), static_cast<QWidget*>(lowPowerView)}) {
        connect(view, SIGNAL(signalConnectGlobalSysex()), this,
                SLOT(slotConnectToSysexGlobalSending()));
        connect(view, SIGNAL(signalDisconnectGlobalSysex()), this,
                SLOT(slotDisconnectToSysexGlobalSending()));
    }
    connect(sysexManager, SIGNAL(signalConsoleText(QString)), this,
            SLOT(slotAddTextToFwConsole(QString)));
    connect(sysexManager, SIGNAL(signalSetFwProgressBar(int)), this,
            SLOT(slotSetFwProgressBar(int)));
    connect(sysexManager, SIGNAL(signalFwCheckStarted()), this, SLOT(slotFwCheckStarted()));
    connectFirmwareDialogs();

    connect(sysexManager, SIGNAL(signalConnected(bool)), this, SLOT(slotInitAfterConnection(bool)));
    connect(sysexManager, SIGNAL(signalInitFullPowerMode()), this, SLOT(slotInitFullPowerView()));
    connect(sysexManager, SIGNAL(signalInitLowPowerMode()), this, SLOT(slotInitLowPowerView()));
    slotConnectToSysexGlobalSending();
    connect(this, SIGNAL(signalSendGlobalParameter(QString, int)), sysexManager,
            SLOT(slotSendGlobalParameters(QString, int)));
    connect(sysexManager, SIGNAL(signalReceiveMainwindowGlobalParams(QString, int)), this,
            SLOT(slotReceiveGlobalParams(QString, int)));
    slotConnectGlobal();
    connect(globalPresetInterface, SIGNAL(signalRecallGlobal(QVariantMap)), this,
            SLOT(slotRecallGlobal(QVariantMap)));
    connect(this, SIGNAL(signalStoreGlobal(QString, QVariant)), globalPresetInterface,
            SLOT(slotStoreGlobal(QString, QVariant)));
    connect(sysexManager, SIGNAL(signalExitDemoMode()), this, SLOT(slotExitDemoMode()));
    connect(fullPowerView, SIGNAL(signalNewPresetList()), this,
            SLOT(slotUpdateExportPresetActions()));
    connect(fullPowerView, SIGNAL(signalSetPhantom(int, int)), this,
            SLOT(slotSetPhantom(int, int)));
    connect(settingsPage->settingsForm().controlPanel, SIGNAL(clicked()), this,
            SLOT(slotOpenAudioMidiSetup()));
    connect(form.enterDemoMode, SIGNAL(clicked()), this, SLOT(slotEnterDemoMode()));
    connect(fullPowerView, SIGNAL(signalFindAudioDeviceNames()), sysexManager,
            SIGNAL(signalFindAudioDevicesAfterConnection()));
    connect(sysexManager, SIGNAL(signalHUIPortButton(bool)), this, SLOT(slotHUIPortButton(bool)));
    connect(this, SIGNAL(signalAppClosing()), sysexManager, SLOT(slotSendSysexCommEndMessage()));
    connect(this, SIGNAL(signalAppClosing()), fullPowerView, SLOT(slotAppClosing()));
    innerDialogs.closeBy(aboutDialogForm.ok);
}

bool ViewManager::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move && watched == this) {
        const QPoint position = static_cast<QMoveEvent*>(event)->pos();
        emit signalReportMainWindowPos(position.x(), position.y());
    }
    return QMainWindow::eventFilter(watched, event);
}

void ViewManager::closeEvent(QCloseEvent* event)
{
    emit signalAppClosing();
    qDebug() << "closing...";
    updateCheck->stop();
    if (sysexManager->firmware()->isUpdating()) {
        // A flasher is not killed half-way.
        hide();
        sysexManager->firmware()->waitForUpdate(updateWaitMs);
    }
    QMainWindow::closeEvent(event);
}
