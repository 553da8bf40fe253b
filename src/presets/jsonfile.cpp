#include "jsonfile.h"

#include "diskfile.h"

#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QRegularExpression>

namespace
{

using WriteResult = JsonFile::WriteResult;

constexpr int dailyCopiesKept = 7;

QString keptName(const QString& file) { return file + QStringLiteral(".bak"); }

// Cheap enough for every save, and refuses what a slip would make of a document: nothing, "null",
// an array.
bool hasBraces(const QByteArray& bytes)
{
    const QByteArrayView text = QByteArrayView(bytes).trimmed();
    return text.size() >= 2 && text.front() == '{' && text.back() == '}';
}

// Dated, and taken by nothing yet. kind: the word for why it is set aside.
QString freeAsideName(const QString& file, const QString& kind)
{
    const QString dated =
        QStringLiteral("%1.%2-%3")
            .arg(file, kind,
                 QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss")));
    QString name = dated;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = QStringLiteral("%1-%2").arg(dated, QString::number(number));
    return name;
}

// The file gives its name to a whole one that is on disk already, and stays under a dated one.
std::error_code setAsideFor(const QString& whole, const QString& file)
{
    const QString aside = freeAsideName(file, QStringLiteral("bad"));
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

WriteResult writeInPlace(diskfile::RegularFile& file, const QByteArray& bytes,
                         const QByteArray& old)
{
    // Truncated first, not written over: a mixture of two versions could pass for a document.
    if (file.overwrite(bytes))
        return WriteResult::Written;
    return file.overwrite(old) ? WriteResult::Restored : WriteResult::NotRestored;
}

WriteResult writeOverDocument(diskfile::RegularFile& file, const QByteArray& bytes,
                              const QByteArray& old)
{
    const std::error_code error = diskfile::replace(keptName(file.name()), old, &file);
    if (error && !diskfile::isFolderRefusing(error))
        return WriteResult::Untouched;
    return writeInPlace(file, bytes, old);
}

WriteResult writeOverBadFile(diskfile::RegularFile& file, const QByteArray& bytes,
                             const QByteArray& old)
{
    const QString unfinished = diskfile::unfinishedName(file.name());
    std::error_code error = diskfile::create(unfinished, bytes, &file);
    if (!error) {
        file.close();
        error = setAsideFor(unfinished, file.name());
        if (!error)
            return WriteResult::Written;
        QFile::remove(unfinished);
    }
    if (!diskfile::isFolderRefusing(error))
        return WriteResult::Untouched;
    if (!file.isOpen() && file.open(QIODevice::ReadWrite) != diskfile::Opened::Yes)
        return WriteResult::Untouched;
    return writeInPlace(file, bytes, old);
}

// As a copy: the file itself keeps its name at every moment.
bool keepAnothers(const diskfile::RegularFile& file, const QByteArray& document)
{
    const QString aside = freeAsideName(file.name(), QStringLiteral("other"));
    if (diskfile::create(aside, document, &file) || !diskfile::flushFolder(aside)) {
        qDebug() << "JSON file changed by another program, and not written:" << file.name();
        return false;
    }
    qDebug() << "JSON file changed by another program, whose version is kept as" << aside;
    return true;
}

// The kept copy takes the place of the file, where there is a bad one or none.
void putKeptCopyBack(diskfile::RegularFile& file, const QByteArray& kept, bool isBadThere)
{
    const QString name = file.name();
    file.close();
    const std::error_code error =
        isBadThere ? setAsideFor(keptName(name), name) : diskfile::rename(keptName(name), name);
    const bool isBack = !error
        // In a folder that takes no new names the content is copied; the kept copy stays then.
        || (isBadThere && diskfile::isFolderRefusing(error)
            && file.open(QIODevice::ReadWrite) == diskfile::Opened::Yes && file.overwrite(kept));
    if (!isBack)
        return;
    diskfile::flushFolder(name);
    qDebug() << "JSON file restored from its kept copy:" << name;
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

std::optional<QJsonObject> JsonFile::parsed(const QByteArray& bytes)
{
    // The parser lets a zero byte pass inside a text, where a block that never reached the disk
    // would swallow a hundred keys.
    if (bytes.contains('\0'))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
}

void JsonFile::setPath(const QString& place, Access granted)
{
    if (place != filePath || granted != access)
        *this = JsonFile(place, granted);
}

void JsonFile::remember(const QByteArray& bytes)
{
    seen = fingerprint(bytes);
    looked = true;
    refused = false;
}

bool JsonFile::isWhole(const QByteArray& bytes) const
{
    return seen == fingerprint(bytes) || parsed(bytes);
}

bool JsonFile::isAnothers(const QByteArray& document) const
{
    return looked && seen != fingerprint(document);
}

std::optional<QJsonObject> JsonFile::readAtStart()
{
    diskfile::RegularFile file(diskfile::followLinks(filePath));
    const bool mayTouch = access == Access::Full;
    if (mayTouch) {
        QFile::remove(diskfile::unfinishedName(file.name()));
        QFile::remove(diskfile::unfinishedName(keptName(file.name())));
    }

    std::optional<QByteArray> bytes;
    const diskfile::Opened opened = file.open(QIODevice::ReadOnly);
    if (opened == diskfile::Opened::Yes)
        bytes = file.readAll();
    if (!bytes && opened != diskfile::Opened::Missing) {
        refused = !looked;
        return std::nullopt;
    }
    refused = false;
    looked = true;
    if (bytes) {
        if (std::optional<QJsonObject> object = parsed(*bytes)) {
            remember(*bytes);
            return object;
        }
    }

    const std::optional<QByteArray> kept = diskfile::readFile(keptName(file.name()));
    if (std::optional<QJsonObject> object = kept ? parsed(*kept) : std::nullopt) {
        if (mayTouch)
            putKeptCopyBack(file, *kept, bytes.has_value());
        remember(*kept);
        return object;
    }
    seen.reset();
    return bytes ? std::optional(QJsonObject()) : std::nullopt;
}

std::optional<QVariantMap> JsonFile::load()
{
    const std::optional<QJsonObject> document = readAtStart();
    if (!document)
        return std::nullopt;
    keepDailyCopy(QFileInfo(filePath).path() + QStringLiteral("/backups"));
    return document->toVariantMap();
}

JsonFile::WriteResult JsonFile::write(const QByteArray& bytes)
{
    if (access == Access::LookOnly || refused || !hasBraces(bytes))
        return WriteResult::Untouched;
    const WriteResult result = replace(diskfile::followLinks(filePath), bytes);
    if (result == WriteResult::Written)
        remember(bytes);
    return result;
}

JsonFile::WriteResult JsonFile::replace(const QString& name, const QByteArray& bytes)
{
    diskfile::RegularFile file(name);
    switch (file.open(QIODevice::ReadWrite)) {
    case diskfile::Opened::Yes:
        break;
    case diskfile::Opened::Missing:
        return diskfile::replace(name, bytes, nullptr) ? WriteResult::Untouched
                                                       : WriteResult::Written;
    case diskfile::Opened::Refused:
        return WriteResult::Untouched;
    }

    const std::optional<QByteArray> old = file.readAll();
    if (!old)
        return WriteResult::Untouched;
    if (*old == bytes)
        return file.flush() ? WriteResult::Written : WriteResult::Untouched;
    if (!isWhole(*old))
        return writeOverBadFile(file, bytes, *old);
    if (isAnothers(*old)) {
        if (!keepAnothers(file, *old))
            return WriteResult::Untouched;
        remember(*old); // kept once, also when the rest fails and is tried again
    }
    return writeOverDocument(file, bytes, *old);
}

void JsonFile::keepDailyCopy(const QString& folder, const QDate& today)
{
    const QFileInfo info(filePath);
    const QDir copies(folder);
    const QString name =
        QStringLiteral("%1-%2.%3")
            .arg(info.completeBaseName(), today.toString(Qt::ISODate), info.suffix());
    if (access == Access::LookOnly || !copies.exists() || copies.exists(name))
        return;
    diskfile::RegularFile file(diskfile::followLinks(filePath));
    if (file.open(QIODevice::ReadOnly) != diskfile::Opened::Yes)
        return;
    const std::optional<QByteArray> bytes = file.readAll();
    if (!bytes || !isWhole(*bytes))
        return;
    if (!diskfile::replace(copies.filePath(name), *bytes, &file))
        thinOut(copies, info, name);
}
