#include "document/ShotImageFile.h"

#include "codec/HeifLibrary.h"
#include "core/Error.h"
#include "document/ShotDocumentArchive.h"

#include <QCoreApplication>
#include <QFile>
#include <QImageReader>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/stat.h>
#include <unistd.h>
#include <webp/decode.h>
#include <webp/demux.h>

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

void checkSize(const QString& path, QSize size)
{
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
}

[[noreturn]] void unreadable(const QString& path, const QString& reason)
{
    throw Error(QCoreApplication::translate("nubo::ShotImageFile", "Could not read “%1”: %2.")
                    .arg(path, reason));
}

// The XResolution of an Exif block (dots per inch, or per centimetre when
// its unit says so); 0 when it has none. Every offset is checked against
// the block: it comes from the file.
double exifDotsPerInch(const QByteArray& exif)
{
    const qsizetype start = [&] {
        for (qsizetype at = 0; at + 4 <= std::min<qsizetype>(exif.size(), 16); ++at) {
            const QByteArray magic = exif.mid(at, 4);
            if (magic == QByteArray("II*\0", 4) || magic == QByteArray("MM\0*", 4)) {
                return at;
            }
        }
        return qsizetype(-1);
    }();
    if (start < 0) {
        return 0;
    }
    const QByteArray tiff = exif.mid(start);
    const bool little = tiff[0] == 'I';
    const auto read = [&](qint64 at, int bytes) -> std::optional<quint32> {
        if (at < 0 || at + bytes > tiff.size()) {
            return std::nullopt;
        }
        quint32 value = 0;
        for (int i = 0; i < bytes; ++i) {
            const quint32 byte = quint8(tiff[qsizetype(at + (little ? bytes - 1 - i : i))]);
            value = value << 8 | byte;
        }
        return value;
    };
    const std::optional<quint32> directory = read(4, 4);
    const std::optional<quint32> count = directory ? read(*directory, 2) : std::nullopt;
    if (!count) {
        return 0;
    }
    double resolution = 0;
    int unit = 2; // inches
    for (quint32 i = 0; i < *count && i < 256; ++i) {
        const qint64 entry = qint64(*directory) + 2 + qint64(i) * 12;
        const std::optional<quint32> tag = read(entry, 2), type = read(entry + 2, 2);
        if (!tag || !type) {
            break;
        }
        if (*tag == 0x011A && *type == 5) {
            const std::optional<quint32> at = read(entry + 8, 4);
            const std::optional<quint32> numerator = at ? read(*at, 4) : std::nullopt;
            const std::optional<quint32> denominator = at ? read(qint64(*at) + 4, 4) : std::nullopt;
            if (numerator && denominator && *denominator != 0) {
                resolution = double(*numerator) / *denominator;
            }
        } else if (*tag == 0x0128 && *type == 3) {
            unit = int(read(entry + 8, 2).value_or(2));
        }
    }
    return unit == 3 ? resolution * 2.54 : resolution;
}

void setDensity(QImage& image, double dotsPerInch)
{
    if (dotsPerInch > 0 && dotsPerInch < 100000) {
        const int perMetre = int(std::lround(dotsPerInch / 0.0254));
        image.setDotsPerMeterX(perMetre);
        image.setDotsPerMeterY(perMetre);
    }
}

// WebP and HEIF are decoded here, by the libraries that write them: the
// size is read and checked before a pixel is decoded.
enum class Container { other, webp, heif };

Container containerOf(const QByteArray& head)
{
    if (head.size() >= 12 && head.startsWith("RIFF") && head.mid(8, 4) == "WEBP") {
        return Container::webp;
    }
    if (HeifLibrary::mayBeHeif(head.constData(), head.size())) {
        // libheif is loaded only for ISO media files; where it cannot be,
        // the still-image brands are taken as HEIF, so that reading one
        // says what is missing.
        const HeifLibrary& heif = HeifLibrary::instance();
        static const QByteArrayList stillBrands = {"heic", "heix", "heim", "heis", "mif1", "avif"};
        if (heif.problem.isEmpty()
                ? heif.heif_check_filetype(reinterpret_cast<const uint8_t*>(head.constData()),
                                           int(head.size())) == heif_filetype_yes_supported
                : stillBrands.contains(head.mid(8, 4))) {
            return Container::heif;
        }
    }
    return Container::other;
}

QImage decodeWebP(const QString& path, const QByteArray& bytes)
{
    const auto* data = reinterpret_cast<const uint8_t*>(bytes.constData());
    WebPBitstreamFeatures features;
    if (WebPGetFeatures(data, size_t(bytes.size()), &features) != VP8_STATUS_OK) {
        unreadable(path, QStringLiteral("the WebP data is damaged"));
    }
    checkSize(path, QSize(features.width, features.height));
    QImage image(features.width, features.height, QImage::Format_RGBA8888);
    if (image.isNull()) {
        unreadable(path, QStringLiteral("not enough memory"));
    }
    const WebPData webp{data, size_t(bytes.size())};
    if (const std::unique_ptr<WebPDemuxer, void (*)(WebPDemuxer*)> demuxer(WebPDemux(&webp),
                                                                           WebPDemuxDelete);
        demuxer) {
        WebPChunkIterator chunk;
        if (WebPDemuxGetChunk(demuxer.get(), "EXIF", 1, &chunk)) {
            setDensity(image, exifDotsPerInch(QByteArray::fromRawData(
                                  reinterpret_cast<const char*>(chunk.chunk.bytes),
                                  qsizetype(chunk.chunk.size))));
            WebPDemuxReleaseChunkIterator(&chunk);
        }
    }
    if (!features.has_animation) {
        if (!WebPDecodeRGBAInto(data, size_t(bytes.size()), image.bits(), size_t(image.sizeInBytes()),
                                int(image.bytesPerLine()))) {
            unreadable(path, QStringLiteral("the WebP data is damaged"));
        }
        return image;
    }
    // An animation: its first frame, composed on its canvas.
    WebPAnimDecoderOptions options;
    WebPAnimDecoderOptionsInit(&options);
    options.color_mode = MODE_RGBA;
    const std::unique_ptr<WebPAnimDecoder, void (*)(WebPAnimDecoder*)> decoder(
        WebPAnimDecoderNew(&webp, &options), WebPAnimDecoderDelete);
    WebPAnimInfo info;
    uint8_t* canvas = nullptr;
    int timestamp = 0;
    if (!decoder || !WebPAnimDecoderGetInfo(decoder.get(), &info) ||
        int(info.canvas_width) != features.width || int(info.canvas_height) != features.height ||
        !WebPAnimDecoderGetNext(decoder.get(), &canvas, &timestamp)) {
        unreadable(path, QStringLiteral("the WebP animation is damaged"));
    }
    for (int y = 0; y < image.height(); ++y) {
        std::memcpy(image.scanLine(y), canvas + size_t(y) * size_t(image.width()) * 4,
                    size_t(image.width()) * 4);
    }
    return image;
}

QImage decodeHeif(const QString& path, const QByteArray& bytes)
{
    const HeifLibrary& heif = HeifLibrary::instance();
    if (!heif.problem.isEmpty()) {
        unreadable(path, heif.problem);
    }
    const std::unique_ptr<heif_context, void (*)(heif_context*)> context(heif.heif_context_alloc(),
                                                                        heif.heif_context_free);
    heif.heif_context_set_maximum_image_size_limit(context.get(), ShotLimits::maximumImageSide);
    const auto check = [&](const heif_error& error) {
        if (error.code != heif_error_Ok) {
            unreadable(path, QString::fromUtf8(error.message));
        }
    };
    check(heif.heif_context_read_from_memory_without_copy(context.get(), bytes.constData(),
                                                     size_t(bytes.size()), nullptr));
    heif_image_handle* rawHandle = nullptr;
    check(heif.heif_context_get_primary_image_handle(context.get(), &rawHandle));
    const std::unique_ptr<heif_image_handle, void (*)(const heif_image_handle*)> handle(
        rawHandle, heif.heif_image_handle_release);
    checkSize(path, QSize(heif.heif_image_handle_get_width(handle.get()),
                          heif.heif_image_handle_get_height(handle.get())));
    const bool alpha = heif.heif_image_handle_has_alpha_channel(handle.get());
    heif_image* rawImage = nullptr;
    check(heif.heif_decode_image(handle.get(), &rawImage, heif_colorspace_RGB,
                            alpha ? heif_chroma_interleaved_RGBA : heif_chroma_interleaved_RGB,
                            nullptr));
    const std::unique_ptr<heif_image, void (*)(const heif_image*)> decoded(rawImage,
                                                                         heif.heif_image_release);
    const int width = heif.heif_image_get_width(decoded.get(), heif_channel_interleaved);
    const int height = heif.heif_image_get_height(decoded.get(), heif_channel_interleaved);
    int stride = 0;
    const uint8_t* plane =
        heif.heif_image_get_plane_readonly(decoded.get(), heif_channel_interleaved, &stride);
    if (!plane || width <= 0 || height <= 0) {
        unreadable(path, QStringLiteral("the HEIF image has no pictures"));
    }
    checkSize(path, QSize(width, height));
    QImage image(width, height, alpha ? QImage::Format_RGBA8888 : QImage::Format_RGB888);
    if (image.isNull()) {
        unreadable(path, QStringLiteral("not enough memory"));
    }
    heif_item_id exif = 0;
    if (heif.heif_image_handle_get_list_of_metadata_block_IDs(handle.get(), "Exif", &exif, 1) == 1) {
        const size_t length = heif.heif_image_handle_get_metadata_size(handle.get(), exif);
        if (length > 0 && length < (1 << 20)) {
            QByteArray block(qsizetype(length), Qt::Uninitialized);
            if (heif.heif_image_handle_get_metadata(handle.get(), exif, block.data()).code == heif_error_Ok) {
                setDensity(image, exifDotsPerInch(block));
            }
        }
    }
    const size_t row = size_t(width) * (alpha ? 4 : 3);
    for (int y = 0; y < height; ++y) {
        std::memcpy(image.scanLine(y), plane + size_t(y) * size_t(stride), row);
    }
    return image;
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

std::optional<QImage> decodeOwnFormats(const QByteArray& bytes, const QString& name)
{
    switch (containerOf(bytes.left(32))) {
    case Container::webp: return decodeWebP(name, bytes);
    case Container::heif: return decodeHeif(name, bytes);
    case Container::other: break;
    }
    return std::nullopt;
}

QImage read(const QString& path)
{
    QFile file;
    openRegularFile(path, file);
    const Container container = containerOf(file.peek(32));
    if (container != Container::other) {
        // Compressed images are far smaller than their pixels: a file
        // larger than the largest picture is not one we take.
        const qint64 limit = ShotLimits::maximumImagePixels * 4;
        if (file.size() > limit) {
            throw Error(QStringLiteral("\u201c%1\u201d is larger than %2 bytes.").arg(path).arg(limit));
        }
        const QByteArray bytes = file.readAll();
        if (bytes.size() != file.size()) {
            throw FileError(QStringLiteral("read"), path, file.errorString());
        }
        return container == Container::webp ? decodeWebP(path, bytes) : decodeHeif(path, bytes);
    }
    QImageReader reader(&file);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid()) {
        throw Error(QStringLiteral("\u201c%1\u201d is not an image Nubo Shot can open.").arg(path));
    }
    checkSize(path, size);
    ShotDocumentArchive::allowLargeImages();
    const QImage image = reader.read();
    if (image.isNull()) {
        unreadable(path, reader.errorString());
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
