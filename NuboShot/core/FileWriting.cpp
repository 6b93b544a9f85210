#include "core/FileWriting.h"

#include "core/Error.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo::FileWriting {

namespace {

QString folderOf(const QString& path)
{
    return QDir::toNativeSeparators(QFileInfo(path).absolutePath());
}

// Writes all of `data` to `fd`; false with errno set when it could not.
bool writeAll(int fd, const QByteArray& data)
{
    const char* at = data.constData();
    qsizetype left = data.size();
    while (left > 0) {
        const ssize_t written = ::write(fd, at, size_t(left));
        if (written < 0) {
            if (errno == EINTR) {
                continue;
            }
            return false;
        }
        if (written == 0) {
            errno = ENOSPC; // a write that makes no progress: nothing more fits
            return false;
        }
        at += written;
        left -= written;
    }
    return true;
}

// Writes and syncs `data` into the open `fd`, closing it; false with errno
// set when anything failed.
bool writeAndClose(int fd, const QByteArray& data)
{
    bool ok = writeAll(fd, data) && ::fsync(fd) == 0;
    const int error = errno;
    ok = ::close(fd) == 0 && ok;
    if (!ok && errno == 0) {
        errno = error;
    }
    return ok;
}

} // namespace

QString reason(int errorNumber, const QString& path)
{
    const QString folder = folderOf(path);
    switch (errorNumber) {
    case ENOSPC:
        return QStringLiteral("the disk holding \u201c%1\u201d is full").arg(folder);
    case EDQUOT:
        return QStringLiteral("your disk quota for \u201c%1\u201d is used up").arg(folder);
    case EFBIG:
        return QStringLiteral("the file would be larger than this program may write (the file "
                              "size limit of its session, ulimit -f)");
    case EROFS:
        return QStringLiteral("\u201c%1\u201d is on a read-only file system").arg(folder);
    case EACCES:
    case EPERM:
        return QStringLiteral("you may not write in \u201c%1\u201d").arg(folder);
    case ENOENT:
        return QStringLiteral("the folder \u201c%1\u201d does not exist").arg(folder);
    case ENOTDIR:
        return QStringLiteral("\u201c%1\u201d is not a folder").arg(folder);
    case EIO:
        return QStringLiteral("the disk holding \u201c%1\u201d reported an input/output error")
            .arg(folder);
    default:
        return QString::fromLocal8Bit(std::strerror(errorNumber));
    }
}

std::optional<QString> specialKind(const QString& path)
{
    struct stat info {};
    if (::stat(QFile::encodeName(path).constData(), &info) != 0 || S_ISREG(info.st_mode)) {
        return std::nullopt; // a file, or nothing there (or nothing we can see)
    }
    return QLatin1String(S_ISDIR(info.st_mode)                              ? "a folder"
                         : S_ISFIFO(info.st_mode)                           ? "a pipe (FIFO)"
                         : S_ISCHR(info.st_mode) || S_ISBLK(info.st_mode)   ? "a device"
                         : S_ISSOCK(info.st_mode)                           ? "a socket"
                                                                            : "not a regular file");
}

void refuseSpecialTarget(const QString& path)
{
    if (const std::optional<QString> kind = specialKind(path)) {
        throw FileError(QStringLiteral("write"), path,
                        QStringLiteral("it is %1, not a file").arg(*kind));
    }
}

unsigned userUmask()
{
    // Read, not set and put back: umask() would change it for every thread.
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("Umask:")) {
                bool ok = false;
                const unsigned mask = line.mid(6).trimmed().toUInt(&ok, 8);
                if (ok) {
                    return mask;
                }
            }
        }
    }
    return 022;
}

unsigned newFileMode()
{
    return 0666 & ~userUmask();
}

void writeAtomically(const QByteArray& data, const QString& path)
{
    refuseSpecialTarget(path);
    // Through a link to the file it names, so the link stays a link.
    const QFileInfo info(path);
    const QString target = info.isSymLink() && info.exists() ? info.canonicalFilePath() : path;
    QByteArray staging =
        QFile::encodeName(QFileInfo(target).absolutePath() + QStringLiteral("/.") +
                          QFileInfo(target).fileName() + QStringLiteral(".XXXXXX"));
    const int fd = ::mkostemp(staging.data(), O_CLOEXEC);
    if (fd < 0) {
        const int error = errno;
        throw FileError(QStringLiteral("write"), path, reason(error, target), error);
    }
    // The permissions any new file of the user would get, or the old file's.
    struct stat old {};
    if (::stat(QFile::encodeName(target).constData(), &old) == 0) {
        ::fchmod(fd, old.st_mode & 07777);
    } else {
        ::fchmod(fd, newFileMode());
    }
    if (!writeAndClose(fd, data) ||
        ::rename(staging.constData(), QFile::encodeName(target).constData()) != 0) {
        const int error = errno;
        ::unlink(staging.constData());
        throw FileError(QStringLiteral("write"), path, reason(error, target), error);
    }
}

void writeNewFile(const QByteArray& data, const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    const int fd = ::open(name.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (fd < 0) {
        const int error = errno;
        throw FileError(QStringLiteral("create"), path, reason(error, path), error);
    }
    if (!writeAndClose(fd, data)) {
        const int error = errno;
        ::unlink(name.constData());
        throw FileError(QStringLiteral("write"), path, reason(error, path), error);
    }
}

} // namespace nubo::FileWriting
