#include "diskfile.h"

#include <QFileInfo>

#include <filesystem>

#ifdef Q_OS_UNIX
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace
{

namespace fs = std::filesystem;

// Sixteen times the largest library; what is beyond is a mistake that would only cost memory.
constexpr qint64 largestFile = qint64{256} << 20;

fs::path native(const QString& path) { return QFileInfo(path).filesystemFilePath(); }

#ifdef Q_OS_UNIX

std::error_code lastError() { return {errno, std::generic_category()}; }

bool isRegular(int descriptor)
{
    struct stat status;
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool flushDescriptor(int descriptor)
{
#ifdef F_FULLFSYNC
    // Where this exists, fsync() leaves the data in the drive's own cache.
    if (::fcntl(descriptor, F_FULLFSYNC) == 0)
        return true;
#endif
    int result = 0;
    do {
        result = ::fsync(descriptor);
    } while (result != 0 && errno == EINTR);
    // These three errors come from a file system that has nothing to flush.
    return result == 0 || errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
}

bool flushFile(QFile& file) { return flushDescriptor(file.handle()); }

std::error_code openNew(QFile& file, const QString& path, const QFile* like)
{
    // The original may be private: nobody else opens the copy before its permissions are set below.
    const mode_t mode = like ? 0600 : 0666;
    const int descriptor =
        ::open(QFile::encodeName(path).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (descriptor < 0)
        return lastError();
    if (like) {
        struct stat status;
        if (::fstat(like->handle(), &status) == 0) {
            // May be refused: a plain user can't give a file away.
            const bool sameOwner = ::fchown(descriptor, status.st_uid, status.st_gid) == 0;
            const mode_t permissions = status.st_mode & 0777;
            // A group that is not the original's gets no more than everybody.
            const mode_t asEverybody = (permissions & 0707) | ((permissions & 0007) << 3);
            ::fchmod(descriptor, sameOwner ? permissions : permissions & asEverybody);
        }
    }
    file.open(descriptor, QIODevice::WriteOnly | QIODevice::Unbuffered,
              QFileDevice::AutoCloseHandle);
    return {};
}

#else

bool flushFile(QFile& file) { return file.flush(); }

std::error_code openNew(QFile& file, const QString& path, const QFile* like)
{
    file.setFileName(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered)) {
        if (like)
            file.setPermissions(like->permissions());
        return {};
    }
    const bool isRefused = QFileInfo::exists(path) || file.error() == QFileDevice::PermissionsError
        || !QFileInfo(QFileInfo(path).path()).isWritable();
    return std::make_error_code(isRefused ? std::errc::permission_denied : std::errc::io_error);
}

#endif

} // namespace

namespace diskfile
{

QString followLinks(const QString& path)
{
    constexpr int longestChain = 40;
    fs::path end = native(path);
    std::error_code error;
    if (!fs::is_symlink(end, error))
        return path;
    for (int i = 0; i < longestChain && fs::is_symlink(end, error); ++i) {
        const fs::path target = fs::read_symlink(end, error);
        if (error)
            break;
        end = end.parent_path() / target;
    }
    return QFileInfo(end).filePath();
}

Opened RegularFile::open(QIODevice::OpenMode mode)
{
#ifdef Q_OS_UNIX
    const QByteArray name = QFile::encodeName(path);
    // Asked before opening too: to open some devices is to make them do something.
    struct stat status;
    if (::stat(name.constData(), &status) != 0)
        return errno == ENOENT ? Opened::Missing : Opened::Refused;
    if (!S_ISREG(status.st_mode))
        return Opened::Refused;
    const int access = (mode & QIODevice::WriteOnly) ? O_RDWR : O_RDONLY;
    const int descriptor = ::open(name.constData(), access | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0)
        return errno == ENOENT ? Opened::Missing : Opened::Refused;
    if (isRegular(descriptor)
        && file.open(descriptor, mode | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        return Opened::Yes;
    }
    ::close(descriptor);
    return Opened::Refused;
#else
    const QFileInfo info(path);
    file.setFileName(path);
    if (!info.exists())
        return info.isSymbolicLink() ? Opened::Refused : Opened::Missing;
    return info.isFile() && file.open(mode | QIODevice::Unbuffered | QIODevice::ExistingOnly)
        ? Opened::Yes
        : Opened::Refused;
#endif
}

std::optional<QByteArray> RegularFile::readAll()
{
    if (file.size() > largestFile || !file.seek(0))
        return std::nullopt;
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return bytes;
}

bool RegularFile::overwrite(const QByteArray& bytes)
{
    return file.resize(0) && file.seek(0) && file.write(bytes) == bytes.size() && flush();
}

bool RegularFile::flush() { return flushFile(file); }

std::optional<QByteArray> readFile(const QString& path)
{
    RegularFile file(path);
    return file.open(QIODevice::ReadOnly) == Opened::Yes ? file.readAll() : std::nullopt;
}

std::error_code create(const QString& path, const QByteArray& bytes, const RegularFile* like)
{
    QFile::remove(path);
    QFile file;
    if (const std::error_code error = openNew(file, path, like ? &like->file : nullptr))
        return error;
    if (file.write(bytes) == bytes.size() && flushFile(file))
        return {};
    file.close();
    QFile::remove(path);
    return std::make_error_code(std::errc::io_error);
}

QString unfinishedName(const QString& file) { return file + QStringLiteral(".new"); }

std::error_code replace(const QString& path, const QByteArray& bytes, const RegularFile* like)
{
    const QString unfinished = unfinishedName(path);
    if (const std::error_code error = create(unfinished, bytes, like))
        return error;
    if (const std::error_code error = rename(unfinished, path)) {
        QFile::remove(unfinished);
        return error;
    }
    return flushFolder(path) ? std::error_code{} : std::make_error_code(std::errc::io_error);
}

std::error_code rename(const QString& from, const QString& to)
{
    std::error_code error;
    fs::rename(native(from), native(to), error);
    return error;
}

bool flushFolder([[maybe_unused]] const QString& path)
{
#ifdef Q_OS_UNIX
    const QString folder = QFileInfo(path).path();
    const int descriptor =
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // A folder that may be used but not listed can't be opened.
    if (descriptor < 0)
        return true;
    const bool isFlushed = flushDescriptor(descriptor);
    ::close(descriptor);
    return isFlushed;
#else
    return true;
#endif
}

bool isFolderRefusing(const std::error_code& error)
{
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted
        || error == std::errc::read_only_file_system || error == std::errc::is_a_directory
        || error == std::errc::file_exists || error == std::errc::filename_too_long;
}

} // namespace diskfile
