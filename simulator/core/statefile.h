#pragma once

#include "firmwareversion.h"

#include <QJsonObject>
#include <QString>

#include <functional>

// The one file in which the simulator and the stand-in firmware tool keep what must outlive them,
// as one JSON object. Each program changes only its own sections, under a lock, and reads the
// others anew every time.
class StateFile
{
public:
    enum class Content { Missing, Good, Broken, Unreadable };
    struct Reading {
        Content content;
        QJsonObject document; // empty unless Good
        QString error;        // what is wrong, in words; empty where nothing is
    };

    explicit StateFile(QString path);

    // The environment's JSUM_SIMULATOR_STATE, else "jsum-simulator-state.json" in the folder.
    static QString defaultPath(const QString& folder);

    QString path() const { return m_path; }
    Reading read() const;

    // Reads the document, lets `change` alter it, and writes it whole where that altered anything.
    // A missing file counts as an empty document; a broken one is not touched. Returns what went
    // wrong; empty when nothing did.
    QString update(const std::function<void(QJsonObject&)>& change) const;

    // Renames the file to one with the time in its name. Returns the new path; empty when that
    // failed.
    QString setAside() const;

private:
    QString m_path;
};

// The section "firmware": written by both programs.
struct FirmwareState {
    FirmwareVersion version{1, 2, 5};
    // How the tool is to fail: "none", "stderr", "exit", "hang", "check-hang" or "check-exit N".
    QString failure = QStringLiteral("none");

    // What is missing or makes no sense keeps its factory value.
    static FirmwareState of(const QJsonObject& document);
    static bool isIn(const QJsonObject& document);
    void putInto(QJsonObject& document) const;
    static bool isFailure(const QString& text);
    // The N of "check-exit N"; -1 for anything else.
    int checkExitCode() const;

    bool operator==(const FirmwareState&) const = default;
};

// The section "audio": the USB audio driver's settings, which only the tool knows.
struct AudioState {
    int sampleRate = 48000;
    int bufferSize = 1024;
    bool safeMode = true;

    static AudioState of(const QJsonObject& document);
    void putInto(QJsonObject& document) const;
};
