// Stands for the tool that checks and updates a mixer's firmware and sets its USB audio driver: the
// same subcommands, the same marks in the output, the same exit codes. Its mixer is the simulator's
// state file.
#include "statefile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <array>
#include <cstdio>
#include <thread>
#include <unistd.h>

namespace
{

enum ExitCode {
    Success = 0,
    Failed = 1,
    NoMixer = 2,
    SilentFailure = 5,
    VersionsDiffer = 38,
    Usage = 64,
};

constexpr int downloadSteps = 50;
constexpr int downloadMs = 3000;
constexpr std::array sampleRates{44100, 48000, 88200, 96000};

// The real tool is a console program of a system that ends its lines so.
void say(const QString& text)
{
    const QByteArray line = text.toUtf8() + "\r\n";
    std::fwrite(line.constData(), 1, static_cast<size_t>(line.size()), stdout);
    std::fflush(stdout);
}

ExitCode complain(const QString& text, ExitCode code)
{
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    return code;
}

[[noreturn]] void hang()
{
    for (;;)
        ::pause();
}

int milliseconds()
{
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("JSUM_DFUCONS_MS", &given);
    return given && wanted >= 0 ? wanted : downloadMs;
}

std::optional<FirmwareVersion> versionOfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return FirmwareVersion::fromFlashData(QString::fromUtf8(file.read(64 * 1024)));
}

QString versionMark(const FirmwareVersion& version)
{
    return QStringLiteral("TYPE_VERSION 0 %1(%2)").arg(version.packed()).arg(version.text());
}

void sayDirectory(const FirmwareVersion& found)
{
    static constexpr std::array blocks{"BOOT",     "UPGRADE", "USB_AUDIO", "USB_MIDI", "DSP_CODE",
                                       "DSP_DATA", "PANEL",   "FADERS",    "METERS"};
    constexpr int blockSize = 0x4000;
    say(QStringLiteral("Flash directory of the mixer:"));
    for (size_t i = 0; i < blocks.size(); ++i) {
        say(QStringLiteral(" %1 TYPE_IMAGE  0 %2  offset 0x%3  size 0x%4  checksum ok")
                .arg(i)
                .arg(QLatin1String(blocks[i]), -10)
                .arg(static_cast<int>(i) * blockSize, 6, 16, QChar(u'0'))
                .arg(blockSize, 6, 16, QChar(u'0')));
    }
    say(QStringLiteral(" 9 ") + versionMark(found));
    for (int page = 0; page < 28; ++page) {
        say(QStringLiteral("   page %1  erased 0  corrected 0  read ok  margin normal")
                .arg(page, 2, 10, QChar(u'0')));
    }
}

ExitCode chipVersions(const StateFile::Reading& state, const QStringList& arguments)
{
    const FirmwareState firmware = FirmwareState::of(state.document);
    const auto expected = versionOfFile(arguments[0]);
    if (!expected)
        return complain(QStringLiteral("%1 tells no version").arg(arguments[0]), Failed);
    sayDirectory(firmware.version);
    if (firmware.failure == QLatin1String("check-hang"))
        hang();
    say(QStringLiteral("Versions in %1:").arg(QFileInfo(arguments[0]).fileName()));
    say(QStringLiteral("   ") + versionMark(*expected));
    if (firmware.checkExitCode() >= 0)
        return static_cast<ExitCode>(firmware.checkExitCode());
    if (firmware.version == *expected) {
        say(QStringLiteral("Versions are equal."));
        return Success;
    }
    say(QStringLiteral("Versions differ."));
    return VersionsDiffer;
}

ExitCode download(const StateFile& file, const QString& failure, const FirmwareVersion& version)
{
    for (int step = 1; step <= downloadSteps; ++step) {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds() / downloadSteps));
        say(QStringLiteral("writing block %1 of %2: ok").arg(step).arg(downloadSteps));
        if (step != downloadSteps / 2)
            continue;
        if (failure == QLatin1String("stderr"))
            return complain(QStringLiteral("ERROR: the mixer refused block %1").arg(step + 1),
                            Failed);
        if (failure == QLatin1String("exit"))
            return SilentFailure;
        if (failure == QLatin1String("hang"))
            hang();
    }
    const QString error = file.update([&version](QJsonObject& document) {
        FirmwareState firmware = FirmwareState::of(document);
        firmware.version = version;
        firmware.putInto(document);
    });
    if (!error.isEmpty())
        return complain(error, Failed);
    say(QStringLiteral("Done. The mixer runs %1 from its next start.").arg(version.text()));
    return Success;
}

ExitCode jsumDownload(const StateFile& file, const StateFile::Reading& state,
                      const QStringList& arguments)
{
    for (const QString& path : arguments.first(2)) {
        const QFileInfo info(path);
        if (!info.isFile() || !info.isReadable() || info.size() == 0)
            return complain(QStringLiteral("cannot read %1").arg(path), Failed);
    }
    const QString text = QFileInfo(arguments[1]).path() + QStringLiteral("/flashdata.txt");
    const auto version = versionOfFile(text);
    if (!version)
        return complain(QStringLiteral("%1 tells no version").arg(text), Failed);
    say(QStringLiteral("Downloading %1 to the mixer").arg(version->text()));
    return download(file, FirmwareState::of(state.document).failure, *version);
}

ExitCode getAudioSettings(const StateFile::Reading& state)
{
    const AudioState audio = AudioState::of(state.document);
    say(QStringLiteral("Current SampleRate: %1").arg(audio.sampleRate));
    say(QStringLiteral("Minimum BufferSize: %1").arg(audio.bufferSize));
    say(QStringLiteral("USB Safe Mode Enabled: %1").arg(audio.safeMode ? 1 : 0));
    return Success;
}

ExitCode setAudio(const StateFile& file, int AudioState::*setting, int value)
{
    const QString error = file.update([setting, value](QJsonObject& document) {
        AudioState audio = AudioState::of(document);
        audio.*setting = value;
        audio.putInto(document);
    });
    return error.isEmpty() ? Success : complain(error, Failed);
}

ExitCode setSampleRate(const StateFile& file, const QString& text)
{
    const int rate = text.toInt();
    if (std::find(sampleRates.begin(), sampleRates.end(), rate) == sampleRates.end())
        return complain(QStringLiteral("no sample rate of the mixer: %1").arg(text), Failed);
    return setAudio(file, &AudioState::sampleRate, rate);
}

ExitCode setBufferSize(const StateFile& file, const QString& text)
{
    const int size = text.toInt();
    if (size < 8 || size > 8192)
        return complain(QStringLiteral("no buffer size of the driver: %1").arg(text), Failed);
    return setAudio(file, &AudioState::bufferSize, size);
}

ExitCode usage()
{
    return complain(QStringLiteral("usage: dfucons.exe chipversions FLASHDATA.TXT\n"
                                   "       dfucons.exe jsumdownload UPGRADE DATA -v\n"
                                   "       dfucons.exe getaudiosettings\n"
                                   "       dfucons.exe setsamplerate N\n"
                                   "       dfucons.exe setbuffersize N"),
                    Usage);
}

ExitCode run(QStringList arguments)
{
    const QString command = arguments.isEmpty() ? QString() : arguments.takeFirst();
    const qsizetype count = arguments.size();
    const bool known = (command == QLatin1String("chipversions") && count == 1)
        || (command == QLatin1String("jsumdownload") && (count == 2 || count == 3))
        || (command == QLatin1String("getaudiosettings") && count == 0)
        || (command == QLatin1String("setsamplerate") && count == 1)
        || (command == QLatin1String("setbuffersize") && count == 1);
    if (!known)
        return usage();

    // It lies in the resources, the simulator and its memory in the folder above.
    const StateFile file(
        StateFile::defaultPath(QCoreApplication::applicationDirPath() + QStringLiteral("/..")));
    const auto state = file.read();
    if (state.content == StateFile::Content::Missing)
        return complain(QStringLiteral("No J-Sum found."), NoMixer);
    if (state.content != StateFile::Content::Good)
        return complain(QStringLiteral("No J-Sum found: ") + state.error, NoMixer);
    if (command == QLatin1String("chipversions"))
        return chipVersions(state, arguments);
    if (command == QLatin1String("jsumdownload"))
        return jsumDownload(file, state, arguments);
    if (command == QLatin1String("getaudiosettings"))
        return getAudioSettings(state);
    if (command == QLatin1String("setsamplerate"))
        return setSampleRate(file, arguments[0]);
    return setBufferSize(file, arguments[0]);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    return run(QCoreApplication::arguments().mid(1));
}
