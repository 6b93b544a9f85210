#pragma once

#include "core/Error.h"
#include "export/ShotFormat.h"

#include <QByteArray>
#include <QImage>
#include <QString>

namespace nubo {

// A failure to encode or write an image file; names the file.
class ImageWriterError : public Error {
public:
    ImageWriterError(const QString& fileName, const QString& reason);
    const QString& fileName() const noexcept { return m_fileName; }

private:
    QString m_fileName;
};

// Encodes images for export and writes them whole or not at all.
class ImageWriter {
public:
    // The largest quality handed to the HEIC encoder: the largest
    // single-precision value below 1.
    static constexpr double maximumHeicQuality = 0.9999999403953552;
    // WebP refuses images this wide or tall.
    static constexpr int webpSideLimit = 16384;

    // The encoded file; throws ImageWriterError naming `fileName`.
    static QByteArray encode(const QImage& image, ImageWriterFormat format, double quality,
                             double pixelsPerPoint, const QString& fileName);

    // Encodes and writes `path` through a temporary sibling renamed into
    // place: a failure leaves neither a partial file nor a damaged old one.
    static void write(const QImage& image, ImageWriterFormat format, double quality,
                      double pixelsPerPoint, const QString& path);
    // Writes encoded bytes the same way.
    static void writeData(const QByteArray& data, const QString& path);

    // The lossy encoders record `pixelsPerPoint` (when positive) as the
    // density: JPEG in its JFIF header, HEIC and WebP in an Exif block.
    static QByteArray encodeJpeg(const QImage& image, double quality, const QString& fileName,
                                 double pixelsPerPoint = 0);
    static QByteArray encodeHeic(const QImage& image, double quality, const QString& fileName,
                                 double pixelsPerPoint = 0);
    static QByteArray encodeWebp(const QImage& image, double quality, const QString& fileName,
                                 double pixelsPerPoint = 0);

    // The HEIC encoder's 0…100 quality for a 0…1 quality; 1 maps to 99.
    static int heicEncoderQuality(double quality);
};

} // namespace nubo
