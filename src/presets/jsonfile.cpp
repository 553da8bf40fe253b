#include "jsonfile.h"

#include "diskfile.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QRegularExpression>

namespace jsonfile
{

namespace
{

constexpr int dailyCopiesKept = 7;

QString keptName(const QString& file) { return file + QStringLiteral(".bak"); }

// A file under this name is being made and takes its real name once it is whole.
QString unfinishedName(const QString& file) { return file + QStringLiteral(".new"); }

struct Fingerprint {
    qsizetype size;
    size_t hash;
    bool operator==(const Fingerprint&) const = default;
};

Fingerprint fingerprint(const QByteArray& bytes) { return {bytes.size(), qHash(bytes)}; }

// Each file's version that was last known to be a document. Content, not times, tells whether the
// file is still the same: to be copied it must be read anyway, and a parse takes several times as
// long.
QHash<QString, Fingerprint>& knownDocuments()
{
    static QHash<QString, Fingerprint> known;
    return known;
}

void remember(const QString& file, const QByteArray& bytes)
{
    knownDocuments().insert(file, fingerprint(bytes));
}

std::optional<QJsonObject> parsed(const QByteArray& bytes)
{
    // The parser lets a zero byte pass inside a text, where a block that never reached the disk
    // would swallow a hundred keys.
    if (bytes.contains('\0'))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

bool isWhole(const QString& file, const QByteArray& bytes)
{
    const auto known = knownDocuments().constFind(file);
    if (known != knownDocuments().constEnd() && *known == fingerprint(bytes))
        return true;
    if (!parsed(bytes))
        return false;
    remember(file, bytes);
    return true;
}

// Cheap enough for every save, and refuses what a slip would make of a document: nothing, "null",
// an array.
bool hasBraces(const QByteArray& bytes)
{
    const QByteArrayView text = QByteArrayView(bytes).trimmed();
    return text.size() >= 2 && text.front() == '{' && text.back() == '}';
}

std::optional<QByteArray> readFile(const QString& name)
{
    diskfile::RegularFile file(name);
    if (file.open(QIODevice::ReadOnly) != diskfile::Opened::Yes)
        return std::nullopt;
    return file.readAll();
}

QString freeAsideName(const QString& file)
{
    const QString dated =
        file + QDateTime::currentDateTime().toString(QStringLiteral("'.bad-'yyyyMMdd-HHmmss"));
    QString name = dated;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = QStringLiteral("%1-%2").arg(dated, QString::number(number));
    return name;
}

// The file gives its name to a whole one that is on disk already, and stays under a dated one.
std::error_code setAsideFor(const QString& whole, const QString& file)
{
    const QString aside = freeAsideName(file);
    if (const std::error_code error = diskfile::rename(file, aside))
        return error;
    if (const std::error_code error = diskfile::rename(whole, file)) {
        diskfile::rename(aside, file);
        return error;
    }
    diskfile::flushFolder(file);
    qDebug() << "JSON file that is no document set aside as" << aside;
    return {};
}

std::error_code makeUnderName(const QString& name, const QByteArray& bytes,
                              const diskfile::RegularFile* like)
{
    const QString unfinished = unfinishedName(name);
    if (const std::error_code error = diskfile::create(unfinished, bytes, like))
        return error;
    if (const std::error_code error = diskfile::rename(unfinished, name)) {
        QFile::remove(unfinished);
        return error;
    }
    return diskfile::flushFolder(name) ? std::error_code{}
                                       : std::make_error_code(std::errc::io_error);
}

WriteResult writeInPlace(diskfile::RegularFile& file, const QByteArray& bytes,
                         const QByteArray& old)
{
    // Truncated first, not written over: a mixture of two versions could pass for a document.
    if (file.overwrite(bytes)) {
        remember(file.name(), bytes);
        return WriteResult::Written;
    }
    return file.overwrite(old) ? WriteResult::Restored : WriteResult::NotRestored;
}

WriteResult writeOverDocument(diskfile::RegularFile& file, const QByteArray& bytes,
                              const QByteArray& old)
{
    const std::error_code error = makeUnderName(keptName(file.name()), old, &file);
    if (error && !diskfile::isFolderRefusing(error))
        return WriteResult::Untouched;
    return writeInPlace(file, bytes, old);
}

WriteResult writeOverBadFile(diskfile::RegularFile& file, const QByteArray& bytes,
                             const QByteArray& old)
{
    const QString unfinished = unfinishedName(file.name());
    std::error_code error = diskfile::create(unfinished, bytes, &file);
    if (!error) {
        file.close();
        error = setAsideFor(unfinished, file.name());
        if (!error) {
            remember(file.name(), bytes);
            return WriteResult::Written;
        }
        QFile::remove(unfinished);
    }
    if (!diskfile::isFolderRefusing(error))
        return WriteResult::Untouched;
    if (!file.isOpen() && file.open(QIODevice::ReadWrite) != diskfile::Opened::Yes)
        return WriteResult::Untouched;
    return writeInPlace(file, bytes, old);
}

// The kept copy, when it is good, takes the place of the file; bad is what is there, if anything.
std::optional<QJsonObject> putKeptCopyBack(diskfile::RegularFile& file,
                                           const std::optional<QByteArray>& bad)
{
    const QString name = file.name();
    const std::optional<QByteArray> kept = readFile(keptName(name));
    std::optional<QJsonObject> object = kept ? parsed(*kept) : std::nullopt;
    if (!object)
        return std::nullopt;
    file.close();
    const std::error_code error =
        bad ? setAsideFor(keptName(name), name) : diskfile::rename(keptName(name), name);
    const bool isBack = !error
        // Where no name can change, at least the content can; the copy stays as it is.
        || (bad && diskfile::isFolderRefusing(error)
            && file.open(QIODevice::ReadWrite) == diskfile::Opened::Yes && file.overwrite(*kept));
    if (!isBack)
        return std::nullopt;
    diskfile::flushFolder(name);
    remember(name, *kept);
    qDebug() << "JSON file restored from its kept copy:" << name;
    return object;
}

// Removes all of a file's daily copies but the last seven, and those that were never finished.
void thinOut(const QDir& folder, const QFileInfo& file, const QString& newest)
{
    const QRegularExpression pattern(
        QStringLiteral("^%1-\\d{4}-\\d\\d-\\d\\d%2(\\.new)?$")
            .arg(QRegularExpression::escape(file.completeBaseName()),
                 QRegularExpression::escape(QLatin1Char('.') + file.suffix())));
    QStringList copies;
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
        const QRegularExpressionMatch match = pattern.match(name);
        if (!match.hasMatch() || name == newest)
            continue;
        if (match.hasCaptured(1))
            QFile::remove(folder.filePath(name));
        else
            copies.append(name);
    }
    // The newest one is not among them: a clock gone wrong must not remove what was just made.
    while (copies.size() >= dailyCopiesKept)
        QFile::remove(folder.filePath(copies.takeFirst()));
}

} // namespace

std::optional<QByteArray> read(const QString& path) { return readFile(path); }

bool isDocument(const QByteArray& bytes) { return parsed(bytes).has_value(); }

WriteResult write(const QString& path, const QByteArray& bytes)
{
    if (!hasBraces(bytes))
        return WriteResult::Untouched;
    diskfile::RegularFile file(diskfile::followLinks(path));
    switch (file.open(QIODevice::ReadWrite)) {
    case diskfile::Opened::Yes:
        break;
    case diskfile::Opened::Missing:
        if (makeUnderName(file.name(), bytes, nullptr))
            return WriteResult::Untouched;
        remember(file.name(), bytes);
        return WriteResult::Written;
    case diskfile::Opened::Refused:
        return WriteResult::Untouched;
    }

    const std::optional<QByteArray> old = file.readAll();
    if (!old)
        return WriteResult::Untouched;
    if (*old == bytes)
        return file.flush() ? WriteResult::Written : WriteResult::Untouched;
    return isWhole(file.name(), *old) ? writeOverDocument(file, bytes, *old)
                                      : writeOverBadFile(file, bytes, *old);
}

std::optional<QJsonObject> readAtStart(const QString& path)
{
    diskfile::RegularFile file(diskfile::followLinks(path));
    QFile::remove(unfinishedName(file.name()));
    QFile::remove(unfinishedName(keptName(file.name())));

    std::optional<QByteArray> bytes;
    switch (file.open(QIODevice::ReadOnly)) {
    case diskfile::Opened::Yes:
        bytes = file.readAll();
        if (!bytes)
            return std::nullopt;
        if (std::optional<QJsonObject> object = parsed(*bytes)) {
            remember(file.name(), *bytes);
            return object;
        }
        break;
    case diskfile::Opened::Missing:
        break;
    case diskfile::Opened::Refused:
        return std::nullopt;
    }
    if (std::optional<QJsonObject> kept = putKeptCopyBack(file, bytes))
        return kept;
    return bytes ? std::optional(QJsonObject()) : std::nullopt;
}

void keepDailyCopy(const QString& path, const QString& folder, const QDate& today)
{
    const QFileInfo info(path);
    const QDir copies(folder);
    const QString name =
        QStringLiteral("%1-%2.%3")
            .arg(info.completeBaseName(), today.toString(Qt::ISODate), info.suffix());
    if (!copies.exists() || copies.exists(name))
        return;
    diskfile::RegularFile file(diskfile::followLinks(path));
    if (file.open(QIODevice::ReadOnly) != diskfile::Opened::Yes)
        return;
    const std::optional<QByteArray> bytes = file.readAll();
    if (!bytes || !isWhole(file.name(), *bytes))
        return;
    if (!makeUnderName(copies.filePath(name), *bytes, &file))
        thinOut(copies, info, name);
}

} // namespace jsonfile
