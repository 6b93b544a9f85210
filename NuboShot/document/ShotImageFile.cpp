#include "document/ShotImageFile.h"

#include "core/Error.h"
#include "document/ShotDocumentArchive.h"

#include <QFile>
#include <QImageReader>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo::ShotImageFile {

namespace {

const char* kindOf(mode_t mode)
{
    if (S_ISDIR(mode)) {
        return "a folder";
    }
    if (S_ISFIFO(mode)) {
        return "a pipe (FIFO)";
    }
    if (S_ISCHR(mode) || S_ISBLK(mode)) {
        return "a device";
    }
    if (S_ISSOCK(mode)) {
        return "a socket";
    }
    return "not a regular file";
}

} // namespace

namespace {

// Opened without waiting (a FIFO would wait for a writer forever), then
// checked on the open file itself, so nothing can be swapped in between.
void openRegularFile(const QString& path, QFile& file)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        throw FileError(QStringLiteral("open"), path, errno);
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode)) {
        const mode_t mode = info.st_mode;
        ::close(fd);
        throw Error(QStringLiteral("\u201c%1\u201d is %2, not an image file.")
                        .arg(path, QLatin1String(kindOf(mode))));
    }
    ::fcntl(fd, F_SETFL, ::fcntl(fd, F_GETFL) & ~O_NONBLOCK);
    if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        throw FileError(QStringLiteral("open"), path, file.errorString());
    }
}

} // namespace

QByteArray readBytes(const QString& path, qint64 maximumBytes)
{
    QFile file;
    openRegularFile(path, file);
    if (file.size() > maximumBytes) {
        throw Error(QStringLiteral("\u201c%1\u201d is larger than %2 bytes.")
                        .arg(path)
                        .arg(maximumBytes));
    }
    QByteArray bytes = file.read(maximumBytes + 1);
    if (bytes.size() > maximumBytes) {
        throw Error(QStringLiteral("\u201c%1\u201d is larger than %2 bytes.")
                        .arg(path)
                        .arg(maximumBytes));
    }
    return bytes;
}

QImage read(const QString& path)
{
    QFile file;
    openRegularFile(path, file);
    QImageReader reader(&file);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid()) {
        throw Error(QStringLiteral("\u201c%1\u201d is not an image Nubo Shot can open.").arg(path));
    }
    if (qint64(size.width()) * size.height() > ShotLimits::maximumImagePixels ||
        size.width() > ShotLimits::maximumImageSide ||
        size.height() > ShotLimits::maximumImageSide) {
        throw Error(QStringLiteral("\u201c%1\u201d is too large: %2 \u00d7 %3 pixels (Nubo Shot "
                                   "takes up to %L4 pixels, none wider or taller than %L5).")
                        .arg(path)
                        .arg(size.width())
                        .arg(size.height())
                        .arg(ShotLimits::maximumImagePixels)
                        .arg(ShotLimits::maximumImageSide));
    }
    ShotDocumentArchive::allowLargeImages();
    const QImage image = reader.read();
    if (image.isNull()) {
        throw Error(
            QStringLiteral("Could not read \u201c%1\u201d: %2.").arg(path, reader.errorString()));
    }
    return image;
}

double pixelDensity(const QImage& image)
{
    const double dpi = image.dotsPerMeterX() * 0.0254;
    const double multiple = std::round(dpi / 72);
    if (multiple >= 2 && std::abs(dpi - multiple * 72) < 0.5) {
        return multiple;
    }
    return 1;
}

ShotDocument readDocument(const QString& path)
{
    const QImage image = read(path);
    return ShotDocument::fromImage(image, pixelDensity(image));
}

} // namespace nubo::ShotImageFile
