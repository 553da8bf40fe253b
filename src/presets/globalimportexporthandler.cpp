#include "globalimportexporthandler.h"

#include "exchange.h"
#include "globalpresetinterface.h"

#include <QDir>
#include <QFileInfo>

namespace
{

const QString globalsFilter = QStringLiteral("Global mappings (*.jsumglobalmap)");
const QString globalsExportTitle = QStringLiteral("Export Global Mappings");
const QString globalsImportTitle = QStringLiteral("Import Global Mappings");
const QString globalsClearTitle = QStringLiteral("Reset Globals to Default");

} // namespace

GlobalImportExportHandler::GlobalImportExportHandler(GlobalPresetInterface* globalStore,
                                                     QObject* parent)
    : ExchangeHandler(parent)
    , globals(globalStore)
{
}

void GlobalImportExportHandler::slotExportGlobalPreset(QVariantMap document)
{
    if (document.isEmpty())
        return tell(globalsExportTitle,
                    QStringLiteral("There are no global mappings to export yet."));
    chooseNewFile(globalsExportTitle, globalsFilter,
                  QStringLiteral("Global Mappings") + exchange::globalsSuffix(),
                  [=, this](const QStringList& paths) { exportGlobals(document, paths.first()); });
}

void GlobalImportExportHandler::exportGlobals(const QVariantMap& document, const QString& path)
{
    whenFree([=, this] {
        write(
            globalsExportTitle, QString(),
            {{exchange::withSuffix(path, exchange::globalsSuffix()), exchange::textOf(document)}});
    });
}

void GlobalImportExportHandler::slotImportGlobalPreset()
{
    chooseFiles(globalsImportTitle, globalsFilter, false,
                [this](const QStringList& paths) { importFiles(paths); });
}

void GlobalImportExportHandler::importFiles(const QStringList& paths)
{
    importWhenFree([=, this] { importNow(paths); });
}

void GlobalImportExportHandler::importNow(const QStringList& paths)
{
    if (paths.size() != 1)
        return tell(globalsImportTitle,
                    QStringLiteral("Nothing was imported: of global mappings, one file at a time "
                                   "can be."));
    const QString name = exchange::shownName(paths.first());
    const exchange::Imported file = exchange::readGlobals(paths.first());
    if (!file.refusal.isEmpty())
        return tell(globalsImportTitle, QStringLiteral("Nothing was imported."),
                    {QStringLiteral("%1: %2").arg(name, file.refusal)});

    const QPointer<GlobalImportExportHandler> self(this);
    const auto change = [&] { emit signalImportGlobalMap(file.map); };
    if (aroundChange)
        aroundChange(change);
    else
        change();
    if (!self.isNull())
        report(globalsImportTitle,
               QStringLiteral("The global mappings are now those of %1.").arg(name), file.changes);
}

void GlobalImportExportHandler::reportClear(bool cleared)
{
    if (cleared)
        report(globalsClearTitle, QStringLiteral("The global settings are now the default ones."),
               {});
    else
        tell(globalsClearTitle,
             QStringLiteral("Nothing was reset: the file with the default settings "
                            "is missing from resources/presets."));
}

void GlobalImportExportHandler::report(const QString& title, const QString& text,
                                       const QStringList& changes)
{
    QStringList lines = changes;
    const QString phantom = exchange::phantomPower(globals->document());
    if (!phantom.isEmpty())
        lines.append(phantom);
    const QString& before = globals->fileBeforeChange();
    if (!before.isEmpty())
        lines.append(QStringLiteral("To undo this, import ")
                     + QDir::toNativeSeparators(QFileInfo(before).absoluteFilePath()));
    else if (!globals->isDemoMode())
        lines.append(QStringLiteral("This can't be undone: the settings before it could not be "
                                    "kept in a file."));
    tell(title, text, lines);
}
