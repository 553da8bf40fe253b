#include "statefile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QLockFile>
#include <QSaveFile>

namespace
{

constexpr qint64 largestFile = 16 * 1024 * 1024;
constexpr int lockPatienceMs = 5000;

const QString firmwareKey = QStringLiteral("firmware");
const QString versionKey = QStringLiteral("version");
const QString failureKey = QStringLiteral("failure");
const QString audioKey = QStringLiteral("audio");
const QString sampleRateKey = QStringLiteral("sampleRate");
const QString bufferSizeKey = QStringLiteral("bufferSize");
const QString safeModeKey = QStringLiteral("safeMode");

} // namespace

StateFile::StateFile(QString path)
    : m_path(std::move(path))
{
}

QString StateFile::defaultPath(const QString& folder)
{
    const QString chosen = qEnvironmentVariable("JSUM_SIMULATOR_STATE");
    return chosen.isEmpty() ? folder + QStringLiteral("/jsum-simulator-state.json") : chosen;
}

StateFile::Reading StateFile::read() const
{
    QFile file(m_path);
    if (!file.exists())
        return {Content::Missing, {}, {}};
    if (!QFileInfo(m_path).isFile())
        return {Content::Unreadable, {}, QStringLiteral("%1 is no plain file").arg(m_path)};
    if (!file.open(QIODevice::ReadOnly)) {
        return {Content::Unreadable,
                {},
                QStringLiteral("cannot read %1: %2").arg(m_path, file.errorString())};
    }
    if (file.size() > largestFile)
        return {Content::Broken, {}, QStringLiteral("%1 is far too large").arg(m_path)};
    QJsonParseError error{};
    const auto document = QJsonDocument::fromJson(file.readAll(), &error);
    if (error.error != QJsonParseError::NoError) {
        return {Content::Broken,
                {},
                QStringLiteral("%1 is no JSON: %2").arg(m_path, error.errorString())};
    }
    if (!document.isObject())
        return {Content::Broken, {}, QStringLiteral("%1 holds no JSON object").arg(m_path)};
    return {Content::Good, document.object(), {}};
}

QString StateFile::update(const std::function<void(QJsonObject&)>& change) const
{
    QLockFile lock(m_path + QStringLiteral(".lock"));
    if (!lock.tryLock(lockPatienceMs)) {
        return lock.error() == QLockFile::LockFailedError
            ? QStringLiteral("%1 is held by another program").arg(m_path)
            : QStringLiteral("cannot lock %1: is its folder writable?").arg(m_path);
    }
    const Reading before = read();
    if (before.content == Content::Broken || before.content == Content::Unreadable)
        return before.error;
    QJsonObject after = before.document;
    change(after);
    if (before.content == Content::Good && after == before.document)
        return {};
    QSaveFile file(m_path);
    const QByteArray bytes = QJsonDocument(after).toJson();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
        return QStringLiteral("cannot write %1: %2").arg(m_path, file.errorString());
    return {};
}

QString StateFile::setAside() const
{
    const QString stem = m_path + QStringLiteral(".broken-")
        + QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
    QString target = stem;
    for (int n = 2; QFileInfo::exists(target); ++n)
        target = QStringLiteral("%1-%2").arg(stem).arg(n);
    return QFile::rename(m_path, target) ? target : QString();
}

FirmwareState FirmwareState::of(const QJsonObject& document)
{
    const QJsonObject section = document.value(firmwareKey).toObject();
    FirmwareState state;
    if (const auto version = FirmwareVersion::fromText(section.value(versionKey).toString()))
        state.version = *version;
    const QString failure = section.value(failureKey).toString();
    if (isFailure(failure))
        state.failure = failure;
    return state;
}

bool FirmwareState::isIn(const QJsonObject& document) { return document.contains(firmwareKey); }

void FirmwareState::putInto(QJsonObject& document) const
{
    QJsonObject section = document.value(firmwareKey).toObject();
    section.insert(versionKey, version.text());
    section.insert(failureKey, failure);
    document.insert(firmwareKey, section);
}

bool FirmwareState::isFailure(const QString& text)
{
    static const QStringList modes{QStringLiteral("none"), QStringLiteral("stderr"),
                                   QStringLiteral("exit"), QStringLiteral("hang"),
                                   QStringLiteral("check-hang")};
    return modes.contains(text) || FirmwareState{{}, text}.checkExitCode() >= 0;
}

int FirmwareState::checkExitCode() const
{
    const QStringList words = failure.split(u' ');
    bool isNumber = false;
    const int code = words.last().toInt(&isNumber);
    const bool right = words.size() == 2 && words.first() == QLatin1String("check-exit");
    return right && isNumber && code >= 0 && code <= 255 ? code : -1;
}

AudioState AudioState::of(const QJsonObject& document)
{
    const QJsonObject section = document.value(audioKey).toObject();
    AudioState state;
    state.sampleRate = section.value(sampleRateKey).toInt(state.sampleRate);
    state.bufferSize = section.value(bufferSizeKey).toInt(state.bufferSize);
    state.safeMode = section.value(safeModeKey).toBool(state.safeMode);
    return state;
}

void AudioState::putInto(QJsonObject& document) const
{
    QJsonObject section = document.value(audioKey).toObject();
    section.insert(sampleRateKey, sampleRate);
    section.insert(bufferSizeKey, bufferSize);
    section.insert(safeModeKey, safeMode);
    document.insert(audioKey, section);
}
