#pragma once

#include <QByteArray>
#include <QDate>
#include <QJsonObject>
#include <QString>
#include <QVariantMap>

#include <optional>

// A store's file: its path, and the version of it that this process last saw there. Each store owns
// one, and reads and writes its whole document through it, so that at any moment the file or its
// kept copy (the same name with ".bak" behind it) holds a whole document. For one thread.
//
// Only regular files, and links to them, are opened: a pipe, a device or a folder in its place
// counts as a file that can't be, and so does one beyond 256 MiB. Where the path is a link, the
// file meant is the one at the link's end: the kept copy and whatever is set aside stand beside
// that one, under its name.
class JsonFile
{
public:
    // LookOnly: the file is another editor's, and nothing of it is touched.
    enum class Access { Full, LookOnly };

    JsonFile() = default;
    explicit JsonFile(const QString& place, Access granted = Access::Full)
        : filePath(place)
        , access(granted)
    {
    }
    const QString& path() const { return filePath; }
    // Of another file nothing has been seen; for the same one nothing changes.
    void setPath(const QString& place, Access granted);

    // The bytes' object; nothing when they are no document.
    static std::optional<QJsonObject> parsed(const QByteArray& bytes);

    // At start: the file's object; empty when it is no document (a zero byte anywhere, as an
    // interrupted write can leave behind, makes it none) and has no good copy; nothing when it
    // can't be opened. A file that is missing or no document is first replaced by its kept copy
    // where that one is good (it moves into place, which needs no space; the next write keeps a new
    // one); the bad file is set aside under a dated name, or overwritten in a folder that takes no
    // new names. Without a good copy nothing is touched, nor where something stands that can't be
    // opened. What an interrupted write has left beside the file is cleared away.
    std::optional<QJsonObject> readAtStart();

    // Once a day of use, a copy of the file goes into the folder, under its name with the day
    // before the suffix ("jsum-2026-11-21.json"); of each file the last seven are kept. Without the
    // folder, or for a file that is no document, nothing happens.
    void keepDailyCopy(const QString& folder, const QDate& today = QDate::currentDate());

    // Both of these, with the copies in the folder "backups" beside the file.
    std::optional<QVariantMap> load();

    enum class WriteResult {
        Written,
        // The file is as it was: it could not be opened, now or at the start; it may only be looked
        // at; a copy could not be made for want of space; or the bytes are plainly no document.
        Untouched,
        // Writing failed after the file had been opened; the version before is back in its place.
        Restored,
        // Writing failed and so did putting the version before back. It stays in the kept copy,
        // from which readAtStart() heals the file; the next write() does not replace it.
        NotRestored,
    };

    // Replaces the file's content in place: the version on disk is first copied beside it and
    // flushed, then the file is written whole under its own name and flushed. A version on disk
    // that is no document is set aside under a dated name instead of being copied, so that it never
    // replaces a good copy. A document that is not the one last seen there is another program's: it
    // is kept under a dated name as well, or nothing is written.
    //
    // In a folder that takes no new names the file is written all the same, without a copy. A file
    // that is missing is made, if its folder is there. Permissions stay; the copies get the same.
    // Content that is on disk already is only flushed. What could not be opened by readAtStart() is
    // not written until it could: the bytes know nothing of what is there.
    WriteResult write(const QByteArray& bytes);

private:
    // Content, not times, tells whether the file is still the same: to be copied it must be read
    // anyway, and a parse takes several times as long.
    struct Fingerprint {
        qsizetype size;
        size_t hash;
        bool operator==(const Fingerprint&) const = default;
    };

    static Fingerprint fingerprint(const QByteArray& bytes) { return {bytes.size(), qHash(bytes)}; }
    void remember(const QByteArray& bytes);
    bool isWhole(const QByteArray& bytes) const;
    bool isAnothers(const QByteArray& document) const;
    WriteResult replace(const QString& name, const QByteArray& bytes);

    QString filePath;
    Access access = Access::Full;
    // The last document, this process's own or the one that it read.
    std::optional<Fingerprint> seen;
    // Whether it is known what stands there, be it nothing.
    bool looked = false;
    bool refused = false;
};
