#pragma once

#include "exchangehandler.h"

#include <QVariantMap>

class GlobalPresetInterface;

// The global settings out into a file, and in again. ViewManager owns it.
class GlobalImportExportHandler : public ExchangeHandler
{
    Q_OBJECT

public:
    // globalStore outlives the handler.
    explicit GlobalImportExportHandler(GlobalPresetInterface* globalStore,
                                       QObject* parent = nullptr);

    // The shell's, set before anything is chosen: runs the change of all globals, with what must
    // not follow it switched off, and sends them to the mixer. Empty: the change alone runs.
    std::function<void(const std::function<void()>& change)> aroundChange;

    // What the slots do once a file is chosen.
    void exportGlobals(const QVariantMap& document, const QString& path);
    // One file: of several none is taken.
    void importFiles(const QStringList& paths);
    // The box that follows a clear. cleared: what the store answered.
    void reportClear(bool cleared);

public slots:
    // document: the whole of it.
    void slotExportGlobalPreset(QVariantMap document);
    void slotImportGlobalPreset();

signals:
    // A whole document, its parameters in line with the table.
    void signalImportGlobalMap(QVariantMap document);

private:
    void importNow(const QStringList& paths);
    // text: what happened; behind it, what holds for every change of all globals.
    void report(const QString& title, const QString& text, const QStringList& changes);

    GlobalPresetInterface* const globals;
};
