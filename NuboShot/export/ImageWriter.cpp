#include "export/ImageWriter.h"

#include "codec/HeifLibrary.h"
#include "codec/PngEncoder.h"
#include "core/FileWriting.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QPainter>
#include <QSaveFile>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <turbojpeg.h>
#include <webp/encode.h>
#include <webp/mux.h>

namespace nubo {

ImageWriterError::ImageWriterError(const QString& fileName, const QString& reason)
    : Error(QCoreApplication::translate("nubo::ImageWriter", "Could not write “%1”: %2.")
                .arg(fileName, reason)),
      m_fileName(fileName)
{}

namespace {

// Dots per inch for a density in pixels per point; 0 when none is to be written.
int dotsPerInch(double pixelsPerPoint)
{
    return pixelsPerPoint > 0 && std::isfinite(pixelsPerPoint)
               ? int(std::lround(std::clamp(pixelsPerPoint, 0.01, 100.0) * 72))
               : 0;
}

// A minimal Exif block (a little-endian TIFF header and one directory) that
// records only the resolution, for formats whose own headers have no
// density: a 2x shot keeps its size in points wherever it is opened.
QByteArray exifResolution(int dpi)
{
    QByteArray tiff;
    const auto u16 = [&](quint16 v) { tiff.append(char(v & 0xFF)).append(char(v >> 8)); };
    const auto u32 = [&](quint32 v) {
        for (int shift = 0; shift < 32; shift += 8) {
            tiff.append(char((v >> shift) & 0xFF));
        }
    };
    tiff.append("II*\0", 4);
    u32(8); // the directory follows the header
    constexpr quint32 rationals = 8 + 2 + 3 * 12 + 4;
    u16(3);
    u16(0x011A), u16(5), u32(1), u32(rationals);     // XResolution, one RATIONAL
    u16(0x011B), u16(5), u32(1), u32(rationals + 8); // YResolution
    u16(0x0128), u16(3), u32(1), u32(2);             // ResolutionUnit: inches
    u32(0);                                          // no further directory
    u32(quint32(dpi)), u32(1), u32(quint32(dpi)), u32(1);
    return tiff;
}

// Writes the density into a JFIF header as turbojpeg leaves it (1:1, no unit).
void setJfifDensity(QByteArray& jpeg, int dpi)
{
    if (dpi <= 0 || jpeg.size() < 18 || !jpeg.startsWith("\xFF\xD8\xFF\xE0") ||
        jpeg.mid(6, 5) != QByteArray("JFIF\0", 5)) {
        return;
    }
    jpeg[13] = 1; // dots per inch
    jpeg[14] = char(dpi >> 8);
    jpeg[15] = char(dpi & 0xFF);
    jpeg[16] = char(dpi >> 8);
    jpeg[17] = char(dpi & 0xFF);
}

QImage straightRgba(const QImage& image)
{
    return image.format() == QImage::Format_RGBA8888
               ? image
               : image.convertToFormat(QImage::Format_RGBA8888);
}

} // namespace

QByteArray ImageWriter::encodeJpeg(const QImage& image, double quality, const QString& fileName,
                                   double pixelsPerPoint)
{
    // JPEG has no alpha: translucent pixels are flattened over white, the
    // colour of the page they are most often pasted onto.
    QImage rgbx;
    if (PngEncoder::isOpaque(image)) {
        rgbx = image.format() == QImage::Format_RGBA8888_Premultiplied ||
                       image.format() == QImage::Format_RGBA8888
                   ? image
                   : image.convertToFormat(QImage::Format_RGBA8888);
    } else {
        rgbx = QImage(image.size(), QImage::Format_RGBA8888);
        if (!rgbx.isNull()) {
            rgbx.fill(Qt::white);
            QPainter painter(&rgbx);
            painter.drawImage(0, 0, image);
        }
    }
    if (rgbx.isNull()) {
        throw ImageWriterError(fileName, QStringLiteral("there is not enough memory to encode it"));
    }
    const auto handle = std::unique_ptr<void, int (*)(tjhandle)>(tjInitCompress(), tjDestroy);
    if (!handle) {
        throw ImageWriterError(fileName, QStringLiteral("the JPEG encoder could not start"));
    }
    // Text stays crisp without chroma subsampling at the usual high qualities.
    const int jpegQuality = std::clamp(int(std::lround(quality * 100)), 1, 100);
    const int subsampling = quality >= 0.9 ? TJSAMP_444 : TJSAMP_420;
    unsigned char* jpeg = nullptr;
    unsigned long size = 0;
    // The fast DCT loses nothing visible up to quality 90; above it the
    // accurate one keeps the extra detail that was asked for.
    const int flags = jpegQuality > 90 ? TJFLAG_ACCURATEDCT : TJFLAG_FASTDCT;
    if (tjCompress2(handle.get(), rgbx.constBits(), rgbx.width(), int(rgbx.bytesPerLine()),
                    rgbx.height(), TJPF_RGBX, &jpeg, &size, subsampling, jpegQuality, flags) != 0) {
        const QString reason = QString::fromLocal8Bit(tjGetErrorStr2(handle.get()));
        tjFree(jpeg);
        throw ImageWriterError(fileName, reason);
    }
    QByteArray out(reinterpret_cast<const char*>(jpeg), qsizetype(size));
    tjFree(jpeg);
    setJfifDensity(out, dotsPerInch(pixelsPerPoint));
    return out;
}

int ImageWriter::heicEncoderQuality(double quality)
{
    const double q = std::min(quality, maximumHeicQuality);
    return std::clamp(int(std::lround(q * 100)), 0, 99);
}

QByteArray ImageWriter::encodeHeic(const QImage& image, double quality, const QString& fileName,
                                   double pixelsPerPoint)
{
    const HeifLibrary& heif = HeifLibrary::instance();
    if (!heif.problem.isEmpty()) {
        throw ImageWriterError(fileName, heif.problem);
    }
    const auto fail = [&](const heif_error& error) {
        throw ImageWriterError(fileName, QString::fromUtf8(error.message));
    };
    const auto context = std::unique_ptr<heif_context, void (*)(heif_context*)>(
        heif.heif_context_alloc(), heif.heif_context_free);
    heif_encoder* rawEncoder = nullptr;
    if (const heif_error e =
            heif.heif_context_get_encoder_for_format(context.get(), heif_compression_HEVC, &rawEncoder);
        e.code != heif_error_Ok) {
        fail(e);
    }
    const auto encoder =
        std::unique_ptr<heif_encoder, void (*)(heif_encoder*)>(rawEncoder, heif.heif_encoder_release);
    heif.heif_encoder_set_lossy_quality(encoder.get(), heicEncoderQuality(quality));

    const bool opaque = PngEncoder::isOpaque(image);
    const QImage rgba = straightRgba(image);
    heif_image* rawImage = nullptr;
    if (const heif_error e = heif.heif_image_create(
            rgba.width(), rgba.height(), heif_colorspace_RGB,
            opaque ? heif_chroma_interleaved_RGB : heif_chroma_interleaved_RGBA, &rawImage);
        e.code != heif_error_Ok) {
        fail(e);
    }
    const auto heifImage =
        std::unique_ptr<heif_image, void (*)(const heif_image*)>(rawImage, heif.heif_image_release);
    if (const heif_error e = heif.heif_image_add_plane(heifImage.get(), heif_channel_interleaved,
                                                  rgba.width(), rgba.height(), 8);
        e.code != heif_error_Ok) {
        fail(e);
    }
    int stride = 0;
    uint8_t* plane = heif.heif_image_get_plane(heifImage.get(), heif_channel_interleaved, &stride);
    const int bpp = opaque ? 3 : 4;
    for (int y = 0; y < rgba.height(); ++y) {
        const uchar* in = rgba.constScanLine(y);
        uint8_t* out = plane + qsizetype(y) * stride;
        if (opaque) {
            for (int x = 0; x < rgba.width(); ++x) {
                std::memcpy(out + bpp * x, in + 4 * x, 3);
            }
        } else {
            std::memcpy(out, in, size_t(rgba.width()) * 4);
        }
    }
    heif_image_handle* rawHandle = nullptr;
    if (const heif_error e = heif.heif_context_encode_image(context.get(), heifImage.get(),
                                                       encoder.get(), nullptr, &rawHandle);
        e.code != heif_error_Ok) {
        fail(e);
    }
    const auto handle = std::unique_ptr<heif_image_handle, void (*)(const heif_image_handle*)>(
        rawHandle, heif.heif_image_handle_release);
    if (const int dpi = dotsPerInch(pixelsPerPoint); dpi > 0) {
        const QByteArray exif = exifResolution(dpi);
        if (const heif_error e = heif.heif_context_add_exif_metadata(context.get(), handle.get(),
                                                                exif.constData(), int(exif.size()));
            e.code != heif_error_Ok) {
            fail(e);
        }
    }
    QByteArray out;
    heif_writer writer{};
    writer.writer_api_version = 1;
    writer.write = [](heif_context*, const void* data, size_t size, void* userdata) {
        static_cast<QByteArray*>(userdata)->append(static_cast<const char*>(data), qsizetype(size));
        return heif_error{heif_error_Ok, heif_suberror_Unspecified, "Success"};
    };
    if (const heif_error e = heif.heif_context_write(context.get(), &writer, &out);
        e.code != heif_error_Ok) {
        fail(e);
    }
    return out;
}

QByteArray ImageWriter::encodeWebp(const QImage& image, double quality, const QString& fileName,
                                   double pixelsPerPoint)
{
    if (image.width() >= webpSideLimit || image.height() >= webpSideLimit) {
        throw ImageWriterError(
            fileName, QStringLiteral("WebP images must be smaller than %1 pixels on each side")
                          .arg(webpSideLimit));
    }
    // libwebp takes straight alpha; premultiplied pixels would darken
    // translucent edges.
    const QImage rgba = straightRgba(image);
    uint8_t* output = nullptr;
    const size_t size = WebPEncodeRGBA(rgba.constBits(), rgba.width(), rgba.height(),
                                       int(rgba.bytesPerLine()), float(quality * 100), &output);
    if (size == 0) {
        WebPFree(output);
        throw ImageWriterError(fileName, QStringLiteral("the WebP encoder failed"));
    }
    const int dpi = dotsPerInch(pixelsPerPoint);
    if (dpi <= 0) {
        QByteArray out(reinterpret_cast<const char*>(output), qsizetype(size));
        WebPFree(output);
        return out;
    }
    // The density goes into an EXIF chunk of the extended format.
    const QByteArray exif = exifResolution(dpi);
    const WebPData encoded{output, size};
    const WebPData exifData{reinterpret_cast<const uint8_t*>(exif.constData()), size_t(exif.size())};
    const auto mux = std::unique_ptr<WebPMux, void (*)(WebPMux*)>(WebPMuxCreate(&encoded, 1),
                                                                   WebPMuxDelete);
    WebPFree(output);
    WebPData assembled{nullptr, 0};
    if (!mux || WebPMuxSetChunk(mux.get(), "EXIF", &exifData, 1) != WEBP_MUX_OK ||
        WebPMuxAssemble(mux.get(), &assembled) != WEBP_MUX_OK) {
        WebPDataClear(&assembled);
        throw ImageWriterError(fileName, QStringLiteral("the WebP container could not be made"));
    }
    QByteArray out(reinterpret_cast<const char*>(assembled.bytes), qsizetype(assembled.size));
    WebPDataClear(&assembled);
    return out;
}

QByteArray ImageWriter::encode(const QImage& image, ImageWriterFormat format, double quality,
                               double pixelsPerPoint, const QString& fileName)
{
    switch (format) {
    case ImageWriterFormat::png: {
        QByteArray png = PngEncoder::encode(image, {PngEncoder::defaultLevel, pixelsPerPoint});
        if (png.isEmpty()) {
            throw ImageWriterError(fileName,
                                   QStringLiteral("there is not enough memory to encode it"));
        }
        return png;
    }
    case ImageWriterFormat::jpg:
        return encodeJpeg(image, quality, fileName, pixelsPerPoint);
    case ImageWriterFormat::heic:
        return encodeHeic(image, quality, fileName, pixelsPerPoint);
    case ImageWriterFormat::webp:
        return encodeWebp(image, quality, fileName, pixelsPerPoint);
    default:
        throw ImageWriterError(
            fileName, QStringLiteral("%1 is not a format for shots").arg(toString(format)));
    }
}

void ImageWriter::write(const QImage& image, ImageWriterFormat format, double quality,
                        double pixelsPerPoint, const QString& path)
{
    writeData(encode(image, format, quality, pixelsPerPoint, QFileInfo(path).fileName()), path);
}

void ImageWriter::writeData(const QByteArray& data, const QString& path)
{
    try {
        FileWriting::writeAtomically(data, path);
    } catch (const FileError& error) {
        throw ImageWriterError(QFileInfo(path).fileName(), error.reason());
    }
}

} // namespace nubo
