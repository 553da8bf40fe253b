#include "usbaudio.h"

#include <QDebug>
#include <QFileInfo>

#include <utility>

namespace
{

constexpr int retryMs = 200;

const struct {
    const char* menu;
    const char* command;
    const char* mark;
    int length; // 0 is the rest of the line
} rows[]{
    {"usb_sample_rate", "setsamplerate", "Current SampleRate: ", 5},
    {"usb_buffer", "setbuffersize", "Minimum BufferSize: ", 0},
};

} // namespace

UsbAudio::UsbAudio(const QString& toolPath, QObject* parent)
    : QObject(parent)
    , tool(toolPath)
    , usbSettingsProcess(new QProcess(parent))
{
    patience.setSingleShot(true);
    retry.setSingleShot(true);
    connect(&patience, SIGNAL(timeout()), SLOT(slotGiveUp()));
    connect(&retry, SIGNAL(timeout()), SLOT(slotRunNext()));
    connect(usbSettingsProcess, SIGNAL(errorOccurred(QProcess::ProcessError)),
            SLOT(slotError(QProcess::ProcessError)));
}

// A call that still runs ends with the program, and is told to nobody.
UsbAudio::~UsbAudio()
{
    usbSettingsProcess->disconnect();
    usbSettingsProcess->kill();
    usbSettingsProcess->waitForFinished(retryMs);
}

void UsbAudio::ask()
{
    isAsking = true;
    slotRunNext();
}

void UsbAudio::set(const QString& menu, const QString& text)
{
    settings.removeIf([&menu](const Setting& setting) { return setting.menu == menu; });
    settings.append({menu, text});
    ask();
}

void UsbAudio::slotRunNext()
{
    if (usbSettingsProcess->state() != QProcess::NotRunning || (settings.isEmpty() && !isAsking))
        return;
    if (isToolBusy && isToolBusy()) {
        retry.start(retryMs);
        return;
    }
    isSetting = !settings.isEmpty();
    if (!isSetting) {
        isAsking = false;
        start({QStringLiteral("getaudiosettings")});
        return;
    }
    const Setting setting = settings.takeFirst();
    for (const auto& row : rows)
        if (setting.menu == QLatin1String(row.menu))
            start({QLatin1String(row.command), setting.text});
}

void UsbAudio::start(const QStringList& arguments)
{
    qDebug() << "Execute: " << tool << arguments;
    outputSize = 0;
    failure.clear();
    patience.start(patienceMs);
    usbSettingsProcess->start(tool, arguments, QIODevice::ReadWrite);
}

void UsbAudio::slotReadOutput()
{
    usbSettingsProcess->setReadChannel(QProcess::StandardOutput);
    while (usbSettingsProcess->canReadLine()) {
        const QByteArray bytes = usbSettingsProcess->readLine();
        outputSize += bytes.size();
        const QString line = QString::fromUtf8(bytes);
        if (line.startsWith(QLatin1String("USB Safe Mode Enabled: ")))
            qDebug() << line.trimmed();
        for (const auto& row : rows) {
            const QLatin1String mark(row.mark);
            if (!line.startsWith(mark))
                continue;
            const QString rest = line.sliced(mark.size());
            emit signalTold(QLatin1String(row.menu),
                            (row.length > 0 ? rest.left(row.length) : rest).trimmed());
        }
    }
    // Also of a line that never ends.
    if (outputSize + usbSettingsProcess->bytesAvailable() > largestOutput && failure.isEmpty()) {
        failure = QStringLiteral("The USB audio tool says more than it should.");
        usbSettingsProcess->kill();
    }
}

void UsbAudio::slotGiveUp()
{
    failure = QStringLiteral("The USB audio tool does not answer.");
    usbSettingsProcess->kill();
}

void UsbAudio::slotError(QProcess::ProcessError error)
{
    // Anything else is followed by its end.
    if (error == QProcess::FailedToStart)
        fail(QFileInfo::exists(tool)
                 ? QStringLiteral("The USB audio tool cannot be started: %1")
                       .arg(usbSettingsProcess->errorString())
                 : QStringLiteral("The USB audio tool is missing: %1").arg(tool));
}

void UsbAudio::slotFinished(int exitCode)
{
    if (failure.isEmpty() && usbSettingsProcess->exitStatus() != QProcess::NormalExit)
        failure = QStringLiteral("The USB audio tool crashed.");
    else if (failure.isEmpty() && exitCode != 0)
        failure = QStringLiteral("The USB audio tool failed (%1).").arg(exitCode);
    fail(failure);
}

// why: empty if all went well.
void UsbAudio::fail(const QString& why)
{
    patience.stop();
    if (!why.isEmpty()) {
        qDebug().noquote() << why;
        if (std::exchange(isSetting, false))
            emit signalFailed(why);
    }
    // Behind this call's own signals.
    retry.start(0);
}
