#pragma once

#include "exchangehandler.h"

class PresetInterface;

// Presets out of the library into files, and in again. ViewManager owns it.
class ImportExportHandler : public ExchangeHandler
{
    Q_OBJECT

public:
    // presetStore outlives the handler.
    explicit ImportExportHandler(PresetInterface* presetStore, QObject* parent = nullptr);

    // What the slots do once a file or folder is chosen. presetNum tells which one is meant of two
    // with that name; where it is none of them, the first is.
    void exportPreset(const QString& name, int presetNum, const QString& path);
    // One file each, without the preset that follows the mixer.
    void exportAll(const QString& folder);
    // As many as there is room for, in the order of the files' names; the last one is then asked to
    // be selected.
    void importFiles(const QStringList& paths);

public slots:
    // The sender is an action: its object name is the preset's name, its data the number.
    void slotExportPreset();
    void slotExportAllPresets();
    void slotImportPreset();

signals:
    void signalAddOrRemovePreset();
    void signalPresetMenu(int goToPresetNum);
    // Only ever true, and not in demo mode, where nothing is deleted.
    void signalEnableDeleteButton(bool enabled);
    // Linked channels would pass on to each other what the selection of the new preset sets.
    void signalDeselectMultiple();

private:
    void exportNow(const QString& name, int presetNum, const QString& path);
    void exportAllNow(const QString& folder);
    void importNow(const QStringList& paths);
    void showAppended();

    PresetInterface* const presets;
};
