#include "firmwareupdatemanager.h"

#include <QDebug>
#include <QDir>

namespace
{

// The tool's low word for "these files are newer than the mixer's firmware".
constexpr int exitUpdateRequired = 38;

// What a check that could not run ends with: any code that is neither a match nor an update.
constexpr int exitNoResult = -1;

// How long the end of the program waits for a killed check.
constexpr int processEndMs = 100;

// It goes by itself when it ends. An object that is destroyed while its process runs kills that and
// waits 30 seconds for it, and one that is stuck in a device's driver takes a kill much later.
void letGo(QProcess* process)
{
    process->disconnect();
    process->setParent(nullptr);
    QObject::connect(process, SIGNAL(finished(int, QProcess::ExitStatus)), process,
                     SLOT(deleteLater()));
}

QString hex(int exitCode) { return QString::number(static_cast<uint>(exitCode), 16); }

} // namespace

FirmwareUpdateManager::FirmwareUpdateManager(QObject* parent)
    : QObject(parent)
    , checkFwProcess(nullptr)
    , upgradeFwProcess(new QProcess(this))
    , resourcesPath(QStringLiteral("./resources"))
    , firmwarePath(QStringLiteral("%1/firmware").arg(resourcesPath))
    , dfuToolPath(QDir(resourcesPath).absoluteFilePath(QStringLiteral("dfucons.exe")))
{
    makeCheckProcess();

    connect(upgradeFwProcess, SIGNAL(finished(int)), this, SLOT(slot_UpgradeFWFinished(int)));
    connect(upgradeFwProcess, SIGNAL(errorOccurred(QProcess::ProcessError)), this,
            SLOT(slotUpgradeProcessError(QProcess::ProcessError)));
    connect(upgradeFwProcess, SIGNAL(readyReadStandardOutput()), this,
            SLOT(slot_ReadStdOutputFromUpgradeFWProcess()));
    connect(upgradeFwProcess, SIGNAL(readyReadStandardError()), this,
            SLOT(slot_ReadErrOutputFromUpgradeFWProcess()));

    checkTimer.setSingleShot(true);
    connect(&checkTimer, SIGNAL(timeout()), this, SLOT(slotCheckTimeout()));
}

FirmwareUpdateManager::~FirmwareUpdateManager()
{
    // Their ends would still call back here.
    checkFwProcess->disconnect(this);
    upgradeFwProcess->disconnect(this);
    checkFwProcess->kill();
    checkFwProcess->waitForFinished(processEndMs);
    // A flasher is not killed half-way.
    for (QProcess* process : {checkFwProcess, upgradeFwProcess}) {
        if (process->state() != QProcess::NotRunning)
            letGo(process);
    }
}

void FirmwareUpdateManager::makeCheckProcess()
{
    checkFwProcess = new QProcess(this);
    connect(checkFwProcess, SIGNAL(finished(int, QProcess::ExitStatus)), this,
            SLOT(slotCheckProcessEnded(int, QProcess::ExitStatus)));
    connect(checkFwProcess, SIGNAL(errorOccurred(QProcess::ProcessError)), this,
            SLOT(slotCheckProcessError(QProcess::ProcessError)));
    connect(checkFwProcess, SIGNAL(readyReadStandardOutput()), this,
            SLOT(slot_ReadStdOutputFromCheckFWProcess()));
    connect(checkFwProcess, SIGNAL(readyReadStandardError()), this,
            SLOT(slot_ReadErrOutputFromCheckFWProcess()));
}

void FirmwareUpdateManager::slot_CheckFWStarted()
{
    slotAbortCheck();
    emit signalFwCheckStarted();
    checkOutput.resetState();

    const QStringList arguments{
        QStringLiteral("chipversions"),
        QDir(firmwarePath).absoluteFilePath(QStringLiteral("flashdata.txt"))};
    qDebug() << "FIRMWARE CHECK..." << dfuToolPath << arguments;
    checkFwProcess->setWorkingDirectory(resourcesPath);
    checkTimer.start(checkTimeoutMs);
    checkFwProcess->start(dfuToolPath, arguments, QIODevice::ReadWrite);
}

void FirmwareUpdateManager::slotAbortCheck()
{
    checkTimer.stop();
    if (checkFwProcess->state() == QProcess::NotRunning)
        return;
    letGo(checkFwProcess);
    checkFwProcess->kill();
    makeCheckProcess();
    emit signalConsoleText(QStringLiteral("Firmware check stopped.\n"));
}

void FirmwareUpdateManager::slotCheckProcessEnded(int exitCode, QProcess::ExitStatus status)
{
    checkTimer.stop();
    slot_ReadStdOutputFromCheckFWProcess();
    slot_ReadErrOutputFromCheckFWProcess();
    slot_CheckFWFinished(status == QProcess::NormalExit ? exitCode : exitNoResult);
}

void FirmwareUpdateManager::slotCheckProcessError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    checkTimer.stop();
    emit signalConsoleText(QStringLiteral("The firmware tool could not be started: %1\n%2\n")
                               .arg(dfuToolPath, checkFwProcess->errorString()));
    slot_CheckFWFinished(exitNoResult);
}

void FirmwareUpdateManager::slotCheckTimeout()
{
    emit signalConsoleText(QStringLiteral("The firmware check did not end and was stopped.\n"));
    checkFwProcess->kill();
}

void FirmwareUpdateManager::slot_CheckFWFinished(int exitCode)
{
    qDebug().noquote() << QStringLiteral("Firmware Check Exit Code: 0x%1").arg(hex(exitCode));
    progressCount = 0;

    if (exitCode == 0) {
        emit signalConsoleText(QStringLiteral("Firmware matches"));
        if (!errorOccurred) {
            const bool confirmsUpdate = updateSucceeded;
            updateSucceeded = false;
            emit signalFwMatch();
            if (confirmsUpdate)
                emit signalCloseRestartDialog();
        }
        // Once more: the first query in the life of the process sends nothing, so it is the second
        // that puts one on the wire now instead of a timer's period later.
        emit signalFwMatch();
    } else if ((exitCode & 0xFFFF) == exitUpdateRequired) {
        if (foundVersion == expectedVersion) {
            emit signalFwMatch();
        } else {
            emit signalConsoleText(QStringLiteral("UPDATE FIRMWARE REQUIRED"));
            emit signalOpenFwOOD();
        }
    } else {
        emit signalFwMatch();
    }
}

void FirmwareUpdateManager::slot_ReadStdOutputFromCheckFWProcess()
{
    const QByteArray bytes = checkFwProcess->readAllStandardOutput();
    if (!bytes.isEmpty())
        emit signalConsoleText(checkOutput(bytes));
}

void FirmwareUpdateManager::slot_ReadErrOutputFromCheckFWProcess()
{
    const QByteArray bytes = checkFwProcess->readAllStandardError();
    if (!bytes.isEmpty())
        emit signalConsoleText(QString::fromUtf8(bytes));
}

void FirmwareUpdateManager::slot_UpgradeFWStarted()
{
    if (isUpdating()) {
        emit signalConsoleText(QStringLiteral("A firmware update is already running.\n"));
        return;
    }
    // An error that was only cancelled belongs to the run before.
    errorOccurred = false;
    progressCount = 0;
    upgradeOutput.resetState();

    const QDir firmware(firmwarePath);
    const QStringList arguments{QStringLiteral("jsumdownload"),
                                firmware.absoluteFilePath(QStringLiteral("flashupgrade.bin")),
                                firmware.absoluteFilePath(QStringLiteral("flashdata.bin")),
                                QStringLiteral("-v")};
    upgradeFwProcess->setWorkingDirectory(resourcesPath);
    upgradeFwProcess->start(dfuToolPath, arguments, QIODevice::ReadWrite);
}

bool FirmwareUpdateManager::waitForUpdate(int timeoutMs)
{
    return !isUpdating() || upgradeFwProcess->waitForFinished(timeoutMs);
}

void FirmwareUpdateManager::slot_UpgradeFWFinished(int exitCode)
{
    progressCount = 0;
    qDebug().noquote() << QStringLiteral("Upgrade Firmware Exit Code: 0x%1").arg(hex(exitCode));
    // Only the error stream counts, not the exit code: the check after the restart decides.
    if (errorOccurred)
        return;
    qDebug() << "signal update complete";
    emit signalUpdateComplete();
    emit signalOpenRestartDialog();
}

void FirmwareUpdateManager::slot_ReadStdOutputFromUpgradeFWProcess()
{
    emit signalConsoleText(upgradeOutput(upgradeFwProcess->readAllStandardOutput()));
    ++progressCount;
    emit signalSetFwProgressBar(progressCount);
}

void FirmwareUpdateManager::slot_ReadErrOutputFromUpgradeFWProcess()
{
    failUpdate(QString::fromUtf8(upgradeFwProcess->readAllStandardError()));
}

void FirmwareUpdateManager::slotUpgradeProcessError(QProcess::ProcessError error)
{
    if (error == QProcess::FailedToStart) {
        failUpdate(QStringLiteral("The firmware tool could not be started: %1")
                       .arg(upgradeFwProcess->errorString()));
    }
}

void FirmwareUpdateManager::failUpdate(const QString& text)
{
    errorOccurred = true;
    QString line = text;
    line.remove(QLatin1Char('\n'));
    emit signalFwError(line);
    emit signalConsoleText(line);
}

void FirmwareUpdateManager::slotSetErrorOccurredToFalse()
{
    errorOccurred = false;
    emit signalUpdateComplete();
}
