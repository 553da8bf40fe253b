#pragma once

#include <QByteArray>
#include <QDate>
#include <QJsonObject>
#include <QString>

#include <optional>

// The one helper through which every store reads and writes its whole JSON file, so that at any
// moment the file or its kept copy (the same name with ".bak" behind it) holds a whole document.
// Free functions, for one thread; between calls only a fingerprint of each file's last good version
// is remembered, so that a save need not parse what an earlier one wrote.
//
// Where the path is a link, the file meant is the one at the link's end: the kept copy and whatever
// is set aside stand beside that one, under its name.
namespace jsonfile
{

// The whole file; nothing when it can't be opened. Only regular files, and links to them, are
// opened: a pipe, a device or a folder in its place counts as one that can't be, and so does a file
// beyond 256 MiB.
std::optional<QByteArray> read(const QString& path);

// Whether the bytes are one JSON document whose top level is an object. A zero byte anywhere, as an
// interrupted write can leave behind, makes them none.
bool isDocument(const QByteArray& bytes);

enum class WriteResult {
    Written,
    // The file is as it was: it could not be opened, its copy could not be made for want of space,
    // or the bytes are plainly no document.
    Untouched,
    // Writing failed after the file had been opened; the kept version is back in its place.
    Restored,
    // Writing failed and so did putting the kept version back. It stays in the kept copy, from
    // which readAtStart() heals the file; the next write() does not replace it.
    NotRestored,
};

// Replaces the file's content in place: the version on disk is first copied beside it and flushed,
// then the file is written whole under its own name and flushed. A version on disk that is no
// document is set aside under a dated name instead of being copied, so that it never replaces a
// good copy. In a folder that takes no new names the file is written all the same, without a copy.
// A file that is missing is made, if its folder is there. Permissions stay; the copies get the
// same. Content that is on disk already is only flushed.
WriteResult write(const QString& path, const QByteArray& bytes);

// At start: the file's object; empty when it is no document and has no good copy; nothing when it
// can't be opened. A file that is missing or no document is first replaced by its kept copy where
// that one is good (it moves into place, which needs no space; the next write keeps a new one); the
// bad file is set aside under a dated name, or overwritten in a folder that takes no new names.
// Without a good copy nothing is touched, nor where something stands that can't be opened. What an
// interrupted write() has left beside the file is cleared away.
std::optional<QJsonObject> readAtStart(const QString& path);

// Once a day of use, a copy of the file goes into the folder, under its name with the day before
// the suffix ("jsum-2026-11-21.json"); of each file the last seven are kept. Without the folder, or
// for a file that is no document, nothing happens.
void keepDailyCopy(const QString& path, const QString& folder,
                   const QDate& today = QDate::currentDate());

} // namespace jsonfile
