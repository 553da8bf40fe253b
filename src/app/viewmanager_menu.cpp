// The menu bar and its commands.
#include "viewmanager.h"

#include "fullpowerview.h"
#include "globalpresetinterface.h"
#include "importexporthandler.h"

#include <QAction>
#include <QDebug>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QPushButton>
#include <QSettings>
#include <QUrl>

namespace
{

const QString toolTipsKey = QStringLiteral("toolTipsEnabled");

} // namespace

void ViewManager::slotInitMenuBar()
{
    menuBar = new QMenuBar(this);
    menuBar->setNativeMenuBar(false);
    menuBar->setGeometry(0, 0, windowWidth, menuBarHeight);

    const auto addMenu = [this](const QString& title, const char* name) {
        QMenu* menu = menuBar->addMenu(title);
        menu->setObjectName(QLatin1String(name));
        return menu;
    };
    QMenu* fileMenu = addMenu(QStringLiteral("File"), "FileMenu");
    QMenu* editMenu = addMenu(QStringLiteral("Edit"), "EditMenu");
    QMenu* hardwareMenu = addMenu(QStringLiteral("Hardware"), "HardwareMenu");
    QMenu* helpMenu = addMenu(QStringLiteral("Help"), "HelpMenu");

    addFileActions(fileMenu);
    addEditActions(editMenu);

    forceFirmwareUpdateAct = hardwareMenu->addAction(QStringLiteral("Force Firmware Update"));
    forceFirmwareUpdateAct->setEnabled(false);
    connect(forceFirmwareUpdateAct, SIGNAL(triggered()), this, SLOT(slotForceFirmwareUpdate()));

    helpMenu->addAction(QStringLiteral("About JSum Editor"), this, SLOT(slotShowAboutDialog()));
    preferencesAct =
        helpMenu->addAction(QStringLiteral("Preferences..."), this, SLOT(slotShowSettings()));
    preferencesAct->setShortcut(QStringLiteral("Ctrl+,"));
    preferencesAct->setEnabled(false);
    helpMenu->addAction(QStringLiteral("Documentation..."), this, SLOT(slotOpenDoc()));
    helpMenu->addSeparator();
    // A child of the File menu, though it stands in Help.
    toolTipsAct = new QAction(fileMenu);
    connect(toolTipsAct, SIGNAL(triggered()), this, SLOT(slotEnableDisableToolTips()));
    helpMenu->addAction(toolTipsAct);
    if (!settingsStore->contains(toolTipsKey)) {
        settingsStore->setValue(toolTipsKey, true);
        toolTipsAct->setText(QStringLiteral("Hide Tool Tips"));
    } else {
        setToolTipsEnabled(settingsStore->value(toolTipsKey).toBool());
    }

    // Stands in no menu: the splash button is the way into demo mode, and this follows its state.
    demoModeAct = new QAction(QStringLiteral("Enter Demo Mode..."), this);
    connect(demoModeAct, SIGNAL(triggered()), this, SLOT(slotEnterDemoMode()));

    helpMenu->addSeparator();
    helpMenu->addAction(QStringLiteral("Check for Updates..."), this, SLOT(slotCheckForUpdates()));
    menuBar->show();
}

void ViewManager::addFileActions(QMenu* menu)
{
    exportPresetMenu = menu->addMenu(QStringLiteral("Export Preset"));
    // A library of a thousand is taller than any screen.
    exportPresetMenu->setStyleSheet(QStringLiteral("QMenu { menu-scrollable: 1; }"));
    slotUpdateExportPresetActions();
    const auto add = [menu](const QString& title, const char* name, QObject* receiver,
                            const char* slot) {
        QAction* action = menu->addAction(title, receiver, slot);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    exportAllPresetsAct = add(QStringLiteral("Export All Presets"), "exportAllPresets",
                              importExportHandler, SLOT(slotExportAllPresets()));
    importPresetAct = add(QStringLiteral("Import Preset"), "importPreset", importExportHandler,
                          SLOT(slotImportPreset()));
    menu->addSeparator();
    exportGlobalAct = add(QStringLiteral("Export Global Mappings"), "exportGlobal",
                          globalPresetInterface, SLOT(slotExportGlobalMap()));
    importGlobalAct = add(QStringLiteral("Import Global Mappings"), "importGlobal", this,
                          SLOT(slotImportGlobalPreset()));
    for (QAction* action : {importPresetAct, importGlobalAct})
        action->setEnabled(false);
}

void ViewManager::addEditActions(QMenu* menu)
{
    const auto add = [menu](const QString& title, const QKeySequence& shortcut = {}) {
        QAction* action = menu->addAction(title);
        action->setShortcut(shortcut);
        action->setEnabled(false);
        return action;
    };
    copyPresetAct = add(QStringLiteral("Copy Preset"), tr("Ctrl+Shift+C"));
    pastePresetAct = add(QStringLiteral("Paste Preset"), tr("Ctrl+Shift+V"));
    pasteNewPresetAct = add(QStringLiteral("Paste Preset to New"));
    menu->addSeparator();
    copyFullChannelAct = add(QStringLiteral("Copy Channel"), Qt::CTRL | Qt::Key_C);
    pasteFullChannelAct = add(QStringLiteral("Paste Channel"), Qt::CTRL | Qt::Key_V);
    menu->addSeparator();
    autoPopulateSetlistAct = add(QStringLiteral("Auto Populate Setlist"));
    menu->addSeparator();
    clearPresetAct = add(QStringLiteral("Reset Preset to Default"));
    clearGlobalPresetAct = add(QStringLiteral("Reset Globals to Default"));
    connect(clearGlobalPresetAct, SIGNAL(triggered()), this, SLOT(slotClearGlobalPreset()));
    menu->setToolTipsVisible(true);
    fullPowerView->slotInitFullPowerMenuActions(clearPresetAct, copyPresetAct, pastePresetAct,
                                                pasteNewPresetAct, copyFullChannelAct,
                                                pasteFullChannelAct, autoPopulateSetlistAct);
}

void ViewManager::slotForceFirmwareUpdate()
{
    innerDialogs.open(fwForceDialog, fwForceDialogForm.update);
    fwProgressDialogForm.progressBar->reset();
}

void ViewManager::slotShowAboutDialog() { innerDialogs.open(aboutDialog, aboutDialogForm.ok); }

void ViewManager::slotOpenDoc()
{
    const QString manual =
        QFileInfo(QStringLiteral("./resources/J-Sum_manual.pdf")).absoluteFilePath();
    if (QFileInfo::exists(manual) && QDesktopServices::openUrl(QUrl::fromLocalFile(manual)))
        return;
    qDebug() << "could not open the manual" << manual;
    tell(QStringLiteral("Documentation"),
         QFileInfo::exists(manual) ? QStringLiteral("No program was found that opens the manual:")
                                   : QStringLiteral("The manual is missing:"),
         manual);
}

void ViewManager::setToolTipsEnabled(bool enabled)
{
    toolTipsAct->setText(enabled ? QStringLiteral("Hide Tool Tips")
                                 : QStringLiteral("Show Tool Tips"));
    toolTipFilter.toolTipsEnabled = enabled;
}

void ViewManager::slotEnableDisableToolTips()
{
    const bool enabled = !settingsStore->value(toolTipsKey).toBool();
    settingsStore->setValue(toolTipsKey, enabled);
    setToolTipsEnabled(enabled);
}
