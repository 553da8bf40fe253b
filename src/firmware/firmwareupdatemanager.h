#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringDecoder>
#include <QTimer>

// Checks the mixer's firmware against the files that come with the editor, and updates it, by
// driving an external console tool. SysexManager owns it and relays its signals. Files and tool are
// looked up in
// "./resources", at the time of construction.
class FirmwareUpdateManager : public QObject
{
    Q_OBJECT

public:
    explicit FirmwareUpdateManager(QObject* parent = nullptr);
    ~FirmwareUpdateManager() override;

    // A check that has not ended by then is killed.
    static constexpr int checkTimeoutMs = 30000;

    // Written by SysexManager: the mixer's version and that of the files, in the form
    // "major.minor.patch".
    QString foundVersion;
    QString expectedVersion;
    // An update has ended well and waits for the check that confirms it.
    bool updateSucceeded = false;

    bool isUpdating() const { return upgradeFwProcess->state() != QProcess::NotRunning; }
    // A check or an update.
    bool isBusy() const { return isUpdating() || checkFwProcess->state() != QProcess::NotRunning; }
    // Blocks until a running update has ended; false when it still runs after timeoutMs.
    bool waitForUpdate(int timeoutMs);

public slots:
    // Starts the check tool; one that still runs is aborted first. Ends in signalFwMatch or
    // signalOpenFwOOD.
    void slot_CheckFWStarted();
    void slot_CheckFWFinished(int exitCode);
    void slot_ReadStdOutputFromCheckFWProcess();
    void slot_ReadErrOutputFromCheckFWProcess();
    // Starts the update; a second start while one runs is refused on the console.
    void slot_UpgradeFWStarted();
    void slot_UpgradeFWFinished(int exitCode);
    void slot_ReadStdOutputFromUpgradeFWProcess();
    void slot_ReadErrOutputFromUpgradeFWProcess();
    void slotSetErrorOccurredToFalse();
    // Kills a running check, without waiting for its end, and ignores that: its mixer has gone.
    void slotAbortCheck();

signals:
    void signalOpenFwOOD();
    void signalConsoleText(QString text);
    // Counts the reads of the update's output; no percentage.
    void signalSetFwProgressBar(int value);
    void signalFwMatch();
    void signalOpenRestartDialog();
    void signalUpdateComplete();
    void signalFwError(QString errorMsg);
    void signalCloseRestartDialog();
    // A check begins: version marks that were read before belong to an earlier one.
    void signalFwCheckStarted();

private slots:
    void slotCheckProcessEnded(int exitCode, QProcess::ExitStatus status);
    void slotCheckProcessError(QProcess::ProcessError error);
    void slotCheckTimeout();
    void slotUpgradeProcessError(QProcess::ProcessError error);

private:
    void makeCheckProcess();
    void failUpdate(const QString& text);

    QProcess* checkFwProcess;
    QProcess* upgradeFwProcess;
    QString resourcesPath;
    QString firmwarePath;
    QString dfuToolPath;
    int progressCount = 0;
    bool errorOccurred = false;
    QTimer checkTimer;
    // Characters may be cut in two between reads.
    QStringDecoder checkOutput{QStringDecoder::Utf8};
    QStringDecoder upgradeOutput{QStringDecoder::Utf8};
};
