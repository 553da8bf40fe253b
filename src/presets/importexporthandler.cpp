#include "importexporthandler.h"

#include "exchange.h"
#include "presetinterface.h"
#include "presetnames.h"

#include <QAction>
#include <QDir>

namespace
{

const QString presetFilter = QStringLiteral("Presets (*.jsumpreset)");
const QString presetExportTitle = QStringLiteral("Export Preset");
const QString exportAllTitle = QStringLiteral("Export All Presets");
const QString presetImportTitle = QStringLiteral("Import Preset");

// The presets of the chosen files, and what the report says of each.
struct Batch {
    QList<QVariantMap> presets;
    QStringList names;
    // Of the presets, in their order.
    QStringList sources;
    QList<QStringList> changes;
    QStringList refusals;
    qsizetype withoutRoom = 0;
};

Batch readAll(const QStringList& paths, int room)
{
    Batch batch;
    for (const QString& path : paths) {
        if (batch.presets.size() == room) {
            ++batch.withoutRoom;
            continue;
        }
        const exchange::Imported file = exchange::readPreset(path);
        if (!file.refusal.isEmpty()) {
            batch.refusals.append(
                QStringLiteral("%1: %2").arg(exchange::shownName(path), file.refusal));
            continue;
        }
        batch.presets.append(file.map);
        batch.names.append(nameOfPreset(file.map));
        batch.sources.append(exchange::shownName(path));
        batch.changes.append(file.changes);
    }
    return batch;
}

void rename(Batch& batch, const QStringList& names)
{
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (names.at(i) != batch.names.at(i))
            batch.changes[i].prepend(
                QStringLiteral("\"%1\" is not free").arg(exchange::shownText(batch.names.at(i))));
        batch.presets[i].insert(presetNameKey(), names.at(i));
    }
    batch.names = names;
}

// What the user has to know comes first.
QStringList report(const Batch& batch)
{
    QStringList changed;
    QStringList asTheyWere;
    for (qsizetype i = 0; i < batch.names.size(); ++i) {
        const QStringList& changes = batch.changes.at(i);
        const QString line = QStringLiteral("%1: is now \"%2\"")
                                 .arg(batch.sources.at(i), exchange::shownText(batch.names.at(i)));
        if (changes.isEmpty())
            asTheyWere.append(line);
        else
            changed.append(line + QStringLiteral("; ") + changes.join(QStringLiteral(", ")));
    }
    return batch.refusals + changed + asTheyWere;
}

QString summary(const Batch& batch)
{
    QString text = QStringLiteral("Imported presets: %1").arg(batch.presets.size());
    if (!batch.refusals.isEmpty())
        text += QStringLiteral("\nRefused files: %1").arg(batch.refusals.size());
    if (batch.withoutRoom > 0)
        text += QStringLiteral("\nFiles without room, as a library holds %1 presets: %2")
                    .arg(PresetInterface::maxPresets)
                    .arg(batch.withoutRoom);
    return text;
}

} // namespace

ImportExportHandler::ImportExportHandler(PresetInterface* presetStore, QObject* parent)
    : ExchangeHandler(parent)
    , presets(presetStore)
{
}

// Out

void ImportExportHandler::slotExportPreset()
{
    const auto* action = qobject_cast<QAction*>(sender());
    if (action == nullptr)
        return;
    const QString name = action->objectName();
    const int presetNum = action->data().toInt();
    chooseNewFile(
        presetExportTitle, presetFilter,
        exchange::fileNames({name}).first() + exchange::presetSuffix(),
        [=, this](const QStringList& paths) { exportPreset(name, presetNum, paths.first()); });
}

void ImportExportHandler::exportPreset(const QString& name, int presetNum, const QString& path)
{
    whenFree([=, this] { exportNow(name, presetNum, path); });
}

void ImportExportHandler::exportNow(const QString& name, int presetNum, const QString& path)
{
    // The library may have changed since.
    const QStringList names = presets->presetNames();
    const bool isStillThere = names.value(presetNum) == name;
    const auto number = isStillThere ? presetNum : static_cast<int>(names.indexOf(name));
    if (number == -1)
        return tell(presetExportTitle,
                    QStringLiteral("Nothing was exported: the preset is not there any more."));
    write(presetExportTitle, QString(),
          {{exchange::withSuffix(path, exchange::presetSuffix()),
            exchange::textOf(presets->presetToExport(number))}});
}

void ImportExportHandler::slotExportAllPresets()
{
    chooseFolder(exportAllTitle, [this](const QStringList& paths) { exportAll(paths.first()); });
}

void ImportExportHandler::exportAll(const QString& folder)
{
    whenFree([=, this] { exportAllNow(folder); });
}

void ImportExportHandler::exportAllNow(const QString& folder)
{
    const QStringList names = exchange::fileNames(presets->presetNames().mid(1));
    if (names.isEmpty())
        return tell(exportAllTitle, QStringLiteral("The library has no preset to export."));
    QList<ExportFile> files;
    for (int i = 0; i < names.size(); ++i) {
        files.append({QDir(folder).filePath(names.at(i) + exchange::presetSuffix()),
                      exchange::textOf(presets->presetToExport(i + 1))});
    }
    write(exportAllTitle, QStringLiteral("presets"), files);
}

// In

void ImportExportHandler::slotImportPreset()
{
    chooseFiles(presetImportTitle, presetFilter, true,
                [this](const QStringList& paths) { importFiles(paths); });
}

void ImportExportHandler::importFiles(const QStringList& paths)
{
    importWhenFree([=, this] { importNow(paths); });
}

void ImportExportHandler::importNow(const QStringList& paths)
{
    if (presets->presetCount() == 0)
        return tell(presetImportTitle,
                    QStringLiteral("Nothing was imported: the library is empty, and lacks the "
                                   "preset that follows the mixer."));
    Batch batch = readAll(exchange::inOrder(paths), presets->roomForPresets());
    rename(batch, presets->namesForNew(batch.names));
    const bool isAsItWas =
        paths.size() == 1 && batch.presets.size() == 1 && batch.changes.first().isEmpty();
    if (presets->appendPresets(batch.presets) > 0) {
        const QPointer<ImportExportHandler> self(this);
        showAppended();
        if (self.isNull())
            return;
    }
    if (!isAsItWas)
        tell(presetImportTitle, summary(batch), report(batch));
}

void ImportExportHandler::showAppended()
{
    emit signalDeselectMultiple();
    emit signalAddOrRemovePreset();
    if (!presets->isDemoMode())
        emit signalEnableDeleteButton(true);
    // Recalls it, which lets events pass.
    emit signalPresetMenu(presets->presetCount() - 1);
}
