#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include <optional>
#include <system_error>

// The steps on disk that JsonFile is made of: regular files only, flushed writes, names that change
// hands at once. Free functions without state. Away from Unix they keep the order of the steps, but
// flush no further than to the system and don't look behind a device's name.
namespace diskfile
{

// The end of a chain of symbolic links, whether or not a file is there; the path itself when it is
// no link.
QString followLinks(const QString& path);

enum class Opened { Yes, Missing, Refused };

// A regular file under a name, opened without truncating it and closed with the object.
class RegularFile
{
public:
    explicit RegularFile(const QString& name)
        : path(name)
    {
    }

    const QString& name() const { return path; }
    // Refused for anything but a regular file; never blocks.
    Opened open(QIODevice::OpenMode mode);
    bool isOpen() const { return file.isOpen(); }
    void close() { file.close(); }

    // In bytes.
    qint64 size() const { return file.size(); }
    // The whole content; nothing on a read error or beyond 256 MiB.
    std::optional<QByteArray> readAll();
    // Truncates, writes and flushes; after a false the content is undefined.
    bool overwrite(const QByteArray& bytes);
    bool flush();

private:
    friend std::error_code create(const QString&, const QByteArray&, const RegularFile*);

    // Adopts a descriptor on Unix, and has no name of its own there.
    QFile file;
    QString path;
};

// The whole content of a regular file; nothing when it can't be read.
std::optional<QByteArray> readFile(const QString& path);

// Makes a file of that content and flushes it, in place of an older one; it gets the owner and the
// permissions of the open file `like`. Leaves nothing behind on an error.
std::error_code create(const QString& path, const QByteArray& bytes,
                       const RegularFile* like = nullptr);

// Under this name, beside it, a file is made that takes its real name once it is whole.
QString unfinishedName(const QString& file);

// Likewise, but gives it its name only when it is whole and flushed: at any moment the old file or
// the new one stands there.
std::error_code replace(const QString& path, const QByteArray& bytes,
                        const RegularFile* like = nullptr);

// Gives the file a new name in one step, taking that name from another file.
std::error_code rename(const QString& from, const QString& to);

// Makes the names in the folder of that file last; true where a folder can't be flushed at all.
bool flushFolder(const QString& path);

// Whether an error of create() or rename() says that the folder does not take the name at all, as
// against a want of space or a failing disk.
bool isFolderRefusing(const std::error_code& error);

} // namespace diskfile
