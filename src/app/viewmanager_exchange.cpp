// The shell's side of what goes out into files and comes in: the submenu of presets, the handlers'
// hooks, files that are dropped on the window, and the update check.
#include "viewmanager.h"

#include "exchange.h"
#include "fullpowerview.h"
#include "globalimportexporthandler.h"
#include "globalpresetinterface.h"
#include "importexporthandler.h"
#include "presetinterface.h"
#include "updatecheck.h"

#include <QAction>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QNetworkAccessManager>
#include <QNetworkReply>

#include <algorithm>

namespace
{

// As a menu shows it: "&" would mark a key, and a control character would break the line.
QString menuText(QString name)
{
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    for (QChar& character : name)
        if (character.category() == QChar::Other_Control)
            character = QLatin1Char(' ');
    return name;
}

} // namespace

void ViewManager::setupExchange()
{
    const auto isBusy = [this] { return fullPowerView->isBusy(); };
    importExportHandler->isBusy = isBusy;
    importExportHandler->mayImport = [this] { return importPresetAct->isEnabled(); };
    globalImportExportHandler->isBusy = isBusy;
    globalImportExportHandler->mayImport = [this] { return importGlobalAct->isEnabled(); };
    globalImportExportHandler->aroundChange = [this](const std::function<void()>& change) {
        changeGlobals(change);
    };
    connect(globalPresetInterface, SIGNAL(signalExportGlobalMap(QVariantMap)),
            globalImportExportHandler, SLOT(slotExportGlobalPreset(QVariantMap)));
    connect(globalImportExportHandler, SIGNAL(signalImportGlobalMap(QVariantMap)),
            globalPresetInterface, SLOT(slotImportGlobalMap(QVariantMap)));
    setAcceptDrops(true);
}

// Made and cut with the mode, but for the last.
void ViewManager::connectImport(bool connected)
{
    const struct {
        const char* signal;
        const char* slot;
    } rows[]{
        {SIGNAL(signalAddOrRemovePreset()), SLOT(slotPopulatePresetMenu())},
        {SIGNAL(signalPresetMenu(int)), SLOT(slotSetPresetMenu(int))},
        {SIGNAL(signalEnableDeleteButton(bool)), SLOT(slotSetDeleteEnabled(bool))},
    };
    for (const auto& row : rows) {
        if (connected)
            connect(importExportHandler, row.signal, fullPowerView, row.slot);
        else
            disconnect(importExportHandler, row.signal, fullPowerView, row.slot);
    }
    // Never disconnected: every further entry stacks one more delivery.
    if (connected)
        connect(importExportHandler, SIGNAL(signalDeselectMultiple()), fullPowerView,
                SLOT(slotDeselectMultiple()));
}

void ViewManager::slotUpdateExportPresetActions()
{
    exportPresetMenu->clear();
    const QStringList names = presetInterface->presetNames();
    int row = 0;
    for (const QString& name : names) {
        auto* action = new QAction(menuText(name), exportPresetMenu);
        action->setObjectName(name);
        action->setData(row++);
        connect(action, SIGNAL(triggered()), importExportHandler, SLOT(slotExportPreset()));
        exportPresetMenu->addAction(action);
    }
}

// View and panel are parted around the change itself, not while the chooser is open.
void ViewManager::slotImportGlobalPreset() { globalImportExportHandler->slotImportGlobalPreset(); }

void ViewManager::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls()
        && (importPresetAct->isEnabled() || importGlobalAct->isEnabled()))
        event->acceptProposedAction();
}

void ViewManager::dropEvent(QDropEvent* event)
{
    QStringList paths;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            paths.append(url.toLocalFile());
    const exchange::Sorted files = exchange::sorted(paths);
    if (!files.presets.isEmpty())
        importExportHandler->importFiles(files.presets);
    if (!files.globals.isEmpty())
        globalImportExportHandler->importFiles(files.globals);
    event->acceptProposedAction();
}

// The update check

void ViewManager::slotSetAppVersions()
{
    updateCheck->readVersionFile(QStringLiteral("resources/version.json"));
    aboutDialogForm.editorVersion->setText(updateCheck->version());
}

// By an action, or at the start by nobody.
void ViewManager::slotCheckForUpdates()
{
    if (sender() != nullptr)
        updateCheck->checkByHand();
    else
        updateCheck->checkAtStart();
}

void ViewManager::slotUpdateCheckReply(QNetworkReply* reply) { updateCheck->slotReply(reply); }
