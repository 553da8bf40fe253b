#pragma once

#include "jsonstore.h"
#include "savedelay.h"

#include <QObject>
#include <QTimer>
#include <QVariantMap>

// Owns the global settings, which don't change with a preset: one map in one file, written half a
// second after the last change. ViewManager owns it.
//
// A failed read or write leaves a debug line and nothing else. In demo mode nothing is written.
class GlobalPresetInterface : public QObject, public JsonStore
{
    Q_OBJECT

public:
    explicit GlobalPresetInterface(QObject* parent = nullptr);

    // A control that changes a global value starts the timer with 1 ms if it isn't active, and sets
    // the count of its ticks to 0.
    QTimer* const globalSaveTimer;
    int globalSaveTicks = 0;

    // The whole document: one key "Global" around the parameters. Empty without a file.
    const QVariantMap& document() const { return globalMap; }
    // The file in which the last import or clear kept what was there before; empty if it could not,
    // as where nothing is written.
    const QString& fileBeforeChange() const { return beforeFile; }

public slots:
    void slotSetJSONPath();
    // Also puts right what a crash left of the file, and makes its daily copy.
    void slotReadGlobal();
    void slotWriteGlobal();
    // Writes a file of factory values.
    void slotWriteDefaultGlobal();
    // Stores without writing.
    void slotStoreGlobal(QString name, QVariant value);
    void slotRecallGlobal();
    void slotSaveGlobalTimeout();
    void slotExportGlobalMap();
    // Both keep what was there in a file of its own, replace all, recall it, and start the timer.
    // map: a whole document, its parameters in line with the table.
    void slotImportGlobalMap(QVariantMap map);
    // Takes the values of the blank template, brought into line with the table. False, and nothing
    // done, without the template.
    bool slotClearGlobalPreset();
    void slotConstructGlobalDefaultMap();
    // What waits to be written is, before demo mode begins. Leaving it drops what was changed in
    // it.
    void slotSetDemoModeEnabled(bool enabled);

signals:
    // Nothing raises it; the controls' own signals store.
    void signalStoreValue(QString name, QVariant value);
    // The parameters, with nothing around them.
    void signalRecallGlobal(QVariantMap preset);
    // The whole document.
    void signalExportGlobalMap(QVariantMap map);

private:
    void setParameters(const QVariantMap& parameters);
    void replaceBy(const QVariantMap& map);
    void keepBefore();

    QVariantMap globalMap;
    QVariantMap defaultGlobalMap;
    QVariantMap globalMapBeforeDemo;
    QString beforeFile;
    SaveDelay saveDelay;
};
