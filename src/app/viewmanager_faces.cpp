// Which face the window shows, and where its dialogs stand on it.
#include "viewmanager.h"

#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "lowpowerview.h"
#include "presetinterface.h"
#include "settingspage.h"
#include "sysexmanager.h"

#include <QAction>
#include <QDebug>
#include <QLabel>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QToolButton>

#include <utility>

namespace
{

QRect centred(const QSize& size, int width, int height, double heightDivisor)
{
    return {width / 2 - size.width() / 2,
            static_cast<int>(height / heightDivisor - size.height() / 2), size.width(),
            size.height()};
}

// A little below the true centre.
constexpr double dialogHeightDivisor = 2.1;

constexpr QSize settingsSize{850, 336};

} // namespace

void ViewManager::placeDialog(QWidget* dialog, int width, int height)
{
    const struct {
        QWidget* dialog;
        QSize size;
    } sizes[] = {
        {aboutDialog, {312, 179}},   {settingsDialog, settingsSize},
        {demoDialog, {317, 230}},    {fwOutOfDateDialog, {297, 221}},
        {fwForceDialog, {258, 183}}, {fwProgressDialog, {324, 258}},
        {fwErrorDialog, {286, 157}}, {restartDialog, {240, 181}},
    };
    for (const auto& row : sizes) {
        if (row.dialog == dialog)
            dialog->setGeometry(centred(row.size, width, height, dialogHeightDivisor));
    }
}

QList<QWidget*> ViewManager::dialogs() const
{
    return {aboutDialog,   settingsDialog, fwOutOfDateDialog, fwProgressDialog,
            fwForceDialog, fwErrorDialog,  demoDialog,        restartDialog};
}

void ViewManager::slotInitAfterConnection(bool connected)
{
    if (connected) {
        qDebug() << "ports connected";
        form.splashScreen->setChecked(true);
        form.enterDemoMode->hide();
        demoModeAct->setEnabled(false);
        clearGlobalPresetAct->setEnabled(true);
        forceFirmwareUpdateAct->setEnabled(true);
        return;
    }

    qDebug() << "ports not connected";
    aboutDialogForm.fw_found->clear();
    if (demoModeEnabled)
        return;

    fullPowerEntry = Entry::None;
    ++entryNumber;
    globalsWaitForSync = false;
    windowWidth = splashWidth;
    windowHeight = splashHeight;
    form.fullPowerViewWidget->close();
    form.lowPowerViewWidget->close();
    setFixedSize(splashWidth, splashHeight);
    menuBar->setGeometry(0, 0, splashWidth, menuBarHeight);
    form.splashScreen->setChecked(false);
    form.enterDemoMode->show();
    form.splashWidget->show();

    placeDialog(aboutDialog, windowWidth, windowHeight);
    for (QWidget* dialog : {settingsDialog, fwForceDialog, fwOutOfDateDialog}) {
        placeDialog(dialog, windowWidth, windowHeight);
        dialog->close();
    }
    // Not closed: a running firmware update stays on screen across the disconnection.
    placeDialog(fwProgressDialog, windowWidth, windowHeight);
    for (QWidget* dialog : {fwErrorDialog, restartDialog, demoDialog}) {
        placeDialog(dialog, windowWidth, windowHeight);
        dialog->close();
    }
    disableWidget->setGeometry(0, 0, windowWidth, windowHeight);
    slotHideDisableWidget();

    leaveModes();
    clearGlobalPresetAct->setEnabled(false);
    forceFirmwareUpdateAct->setEnabled(false);
    demoModeAct->setEnabled(true);
}

void ViewManager::leaveModes()
{
    fullPowerView->slotDeInitializeFullPowerMode();
    lowPowerView->slotDeInitializeLowPowerMode();
    enableModeActions(false);
    connectImport(false);
    disconnect(fullPowerView, SIGNAL(signalChangeWindowSize(int, int)), this,
               SLOT(slotChangeWindowSize(int, int)));
    disconnect(this, SIGNAL(signalReportMainWindowPos(int, int)), fullPowerView,
               SIGNAL(signalReportMainWindowPos(int, int)));
}

void ViewManager::slotInitFullPowerView()
{
    qDebug() << "slotInitFullPowerView called" << demoModeEnabled;
    // What events bring during the entry counts as well, so it is noted before.
    const Entry entry = demoModeEnabled ? Entry::Demo : Entry::Mixer;
    if (std::exchange(fullPowerEntry, entry) == entry)
        return;
    ++entryNumber;
    lowPowerView->slotDeInitializeLowPowerMode();
    form.lowPowerViewWidget->close();
    fullPowerView->slotDeInitializeFullPowerMode();
    fullPowerView->slotShowPresets(true);

    windowWidth = FullPowerView::widthWithPresets;
    windowHeight = FullPowerView::heightInPixels;
    aboutDialog->move(444, 257);
    for (QWidget* dialog :
         {settingsDialog, fwForceDialog, fwOutOfDateDialog, fwProgressDialog, fwErrorDialog}) {
        placeDialog(dialog, windowWidth, windowHeight);
    }
    disableWidget->setGeometry(0, 0, windowWidth, windowHeight);
    const SettingsForm& settings = settingsPage->settingsForm();
    settings.reset_receive_decision->setEnabled(true);
    settings.view_linking_enable->setEnabled(true);
    settings.hui->setEnabled(!demoModeEnabled);
    if (demoModeEnabled)
        slotConnectToSysexGlobalSending();
    enableModeActions(true);
    fwProgressDialogForm.progressBar->reset();
    connectImport(true);

    // Never disconnected: every further entry stacks one more delivery.
    connect(fullPowerView, SIGNAL(signalAddTextToFwLog(QString)), this,
            SLOT(slotAddTextToFwConsole(QString)));

    if (!fullPowerView->slotInitializeFullPowerMode())
        return;
    form.splashWidget->close();
    fullPowerContainer->setGeometry(0, 0, windowWidth, windowHeight);
    setFixedSize(windowWidth, windowHeight);
    menuBar->setGeometry(0, 0, windowWidth, menuBarHeight);
    form.fullPowerViewWidget->show();

    // A demo's entry without a disconnection in between stacks these two as well.
    connect(fullPowerView, SIGNAL(signalChangeWindowSize(int, int)), this,
            SLOT(slotChangeWindowSize(int, int)));
    connect(this, SIGNAL(signalReportMainWindowPos(int, int)), fullPowerView,
            SIGNAL(signalReportMainWindowPos(int, int)));
    emit signalReportMainWindowPos(x(), y());
    // Never disconnected, and never doubled: one click opens one box.
    connect(settings.huiHelp, SIGNAL(clicked()), this, SLOT(slotShowHUIHelp()),
            Qt::UniqueConnection);
}

// Nothing can be pasted at first; what is copied lights these up.
void ViewManager::enableModeActions(bool enabled)
{
    for (QAction* action : {importPresetAct, importGlobalAct, clearPresetAct, copyPresetAct,
                            copyFullChannelAct, autoPopulateSetlistAct, preferencesAct})
        action->setEnabled(enabled);
    for (QAction* action : {pastePresetAct, pasteNewPresetAct, pasteFullChannelAct})
        action->setEnabled(false);
}

void ViewManager::slotInitLowPowerView()
{
    fullPowerEntry = Entry::None;
    ++entryNumber;
    leaveModes();
    form.fullPowerViewWidget->close();
    windowWidth = LowPowerView::widthInPixels;
    windowHeight = LowPowerView::heightInPixels;
    aboutDialog->move(244, 106);
    settingsDialog->setGeometry(centred(settingsSize, windowWidth, windowHeight, 2));
    const SettingsForm& settings = settingsPage->settingsForm();
    settings.reset_receive_decision->setEnabled(false);
    settings.view_linking_enable->setEnabled(false);
    settings.hui->setEnabled(false);
    preferencesAct->setEnabled(true);
    for (QWidget* dialog : {fwForceDialog, fwOutOfDateDialog, fwProgressDialog, fwErrorDialog})
        placeDialog(dialog, windowWidth, windowHeight);
    disableWidget->setGeometry(0, 0, windowWidth, windowHeight);
    lowPowerView->slotInitializeLowPowerMode();
    // Its face is made at its first entry.
    filterToolTips(lowPowerView);
    form.splashWidget->close();
    lowPowerContainer->setGeometry(0, 0, windowWidth, windowHeight);
    setFixedSize(windowWidth, windowHeight);
    menuBar->setGeometry(0, 0, windowWidth, menuBarHeight);
    form.lowPowerViewWidget->show();
}

void ViewManager::slotChangeWindowSize(int width, int height)
{
    setFixedSize(width, height);
    menuBar->setGeometry(0, 0, width, menuBarHeight);
    for (QWidget* dialog : {aboutDialog, fwForceDialog, fwProgressDialog, fwErrorDialog})
        placeDialog(dialog, width, height);
    settingsDialog->setGeometry(centred(settingsSize, width, height, 2));
}

void ViewManager::slotHideDisableWidget()
{
    QList<QWidget*> open;
    for (QWidget* dialog : dialogs())
        if (!dialog->isHidden())
            open.append(dialog);
    if (open.isEmpty()) {
        disableWidget->close();
    } else if (open.size() == 1) {
        open.first()->raise();
    } else {
        // Above them all: this order is the wanted one.
        innerDialogs.coverAll();
    }
}

void ViewManager::slotShowPresets()
{
    fullPowerView->slotShowPresets(
        settingsStore->value(QStringLiteral("show_preset_drawer"), false).toBool());
}

void ViewManager::slotShowFP() { fullPowerContainer->show(); }

void ViewManager::slotEnterDemoMode()
{
    demoModeEnabled = true;
    sysexManager->slotSetDemoModeEnabled(true);
    presetInterface->slotSetDemoModeEnabled(true);
    globalPresetInterface->slotSetDemoModeEnabled(true);
    fullPowerView->slotSetDemoModeEnabled(true);
    // However often it is asked for, the button enters once.
    for (const char* slot : {SLOT(slotCloseDemoDialog()), SLOT(slotInitFullPowerView())})
        connect(demoDialogForm.ok, SIGNAL(clicked()), this, slot, Qt::UniqueConnection);
    innerDialogs.open(demoDialog, demoDialogForm.ok);
}

void ViewManager::slotCloseDemoDialog()
{
    demoDialog->hide();
    slotHideDisableWidget();
    slotInitAfterConnection(false);
}

void ViewManager::slotExitDemoMode()
{
    demoModeEnabled = false;
    slotInitAfterConnection(false);
    sysexManager->slotSetDemoModeEnabled(false);
    presetInterface->slotSetDemoModeEnabled(false);
    globalPresetInterface->slotSetDemoModeEnabled(false);
    fullPowerView->slotSetDemoModeEnabled(false);
    slotUpdateExportPresetActions();
    disconnect(demoDialogForm.ok, SIGNAL(clicked()), this, SLOT(slotCloseDemoDialog()));
    disconnect(demoDialogForm.ok, SIGNAL(clicked()), this, SLOT(slotInitFullPowerView()));
}
