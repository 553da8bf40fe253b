// The menu bar and its commands.
#include "viewmanager.h"

#include "fullpowerview.h"
#include "globalpresetinterface.h"

#include <QAction>
#include <QDebug>
#include <QDesktopServices>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
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

    addEditActions(editMenu);

    forceFirmwareUpdateAct = hardwareMenu->addAction(QStringLiteral("Force Firmware Update"));
    forceFirmwareUpdateAct->setEnabled(false);
    connect(forceFirmwareUpdateAct, SIGNAL(triggered()), this, SLOT(slotForceFirmwareUpdate()));

    helpMenu->addAction(QStringLiteral("About JSum Editor"), this, SLOT(slotShowAboutDialog()));
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

    for (QMenu* menu : {fileMenu, editMenu, hardwareMenu, helpMenu})
        menu->menuAction()->setVisible(!menu->isEmpty());
    menuBar->show();
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

// The settings dialog's view linking is off meanwhile: a change of all globals doesn't move the
// view.
void ViewManager::slotClearGlobalPreset()
{
    const auto* linking =
        settingsDialog->findChild<QAbstractButton*>(QStringLiteral("view_linking_enable"));
    const bool linked =
        linking != nullptr && linking->isChecked() && !fullPowerContainer->isHidden();
    if (linked)
        fullPowerView->slotEnableViewChanging(false);
    globalPresetInterface->slotClearGlobalPreset();
    if (linked)
        fullPowerView->slotEnableViewChanging(true);
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
    auto* box = new QMessageBox(QMessageBox::Information, QStringLiteral("Documentation"),
                                QFileInfo::exists(manual)
                                    ? QStringLiteral("No program was found that opens the manual:")
                                    : QStringLiteral("The manual is missing:"),
                                QMessageBox::Ok, this);
    box->setTextFormat(Qt::PlainText);
    box->setInformativeText(manual);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
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
