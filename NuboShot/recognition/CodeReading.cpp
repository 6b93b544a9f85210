#include "recognition/CodeReading.h"

#include <QUrl>

// ZXing-C++ 1.4's text() in UTF-8, as later versions give it.
#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <algorithm>
#include <future>

namespace nubo {

namespace {

// The pixels' luma (BT.601), inverted when asked: Qt's conversion to grey
// takes 30 ms on a 4K screen, this a few.
QImage luma(const QImage& rgb, bool inverted)
{
    QImage grey(rgb.size(), QImage::Format_Grayscale8);
    const unsigned flip = inverted ? 0xff : 0;
    const int width = rgb.width(), height = rgb.height();
    const qsizetype inStride = rgb.bytesPerLine(), outStride = grey.bytesPerLine();
    const uchar* inRows = rgb.constBits();
    uchar* outRows = grey.bits();
    for (int y = 0; y < height; ++y) {
        const auto* in = reinterpret_cast<const quint32*>(inRows + y * inStride);
        uchar* out = outRows + y * outStride;
        for (int x = 0; x < width; ++x) {
            const quint32 p = in[x];
            out[x] = uchar(((((p >> 16) & 0xff) * 77u + ((p >> 8) & 0xff) * 150u + (p & 0xff) * 29u) >> 8) ^ flip);
        }
    }
    return grey;
}

// The codes in a grey picture; `matrixOnly` looks for two-dimensional
// codes alone (QR, Data Matrix, Aztec).
QList<ReadCode> codesIn(const QImage& grey, bool matrixOnly)
{
    ZXing::DecodeHints hints;
    // A screen's codes are sharp and its barcodes upright: no passes over
    // shrunk copies (for blurred photos) nor over the picture turned (for
    // barcodes on their side), which would double the time on a 4K screen.
    // Two-dimensional codes are read at any angle anyway.
    hints.setTryHarder(true).setTryRotate(false).setTryDownscale(false);
    if (matrixOnly) {
        hints.setFormats(ZXing::BarcodeFormat::QRCode | ZXing::BarcodeFormat::MicroQRCode |
                         ZXing::BarcodeFormat::DataMatrix | ZXing::BarcodeFormat::Aztec);
    }
    const ZXing::ImageView view(grey.constBits(), grey.width(), grey.height(), ZXing::ImageFormat::Lum,
                                int(grey.bytesPerLine()));
    QList<ReadCode> codes;
    for (const ZXing::Result& result : ZXing::ReadBarcodes(view, hints)) {
        if (!result.isValid()) {
            continue;
        }
        QPolygon corners;
        const auto& position = result.position();
        for (const ZXing::PointI& point : {position.topLeft(), position.topRight(), position.bottomRight(),
                                           position.bottomLeft()}) {
            corners << QPoint(point.x, point.y);
        }
        codes.append({QString::fromStdString(result.text()),
                      QString::fromStdString(ZXing::ToString(result.format())), corners});
    }
    return codes;
}

} // namespace

bool ReadCode::isLink() const
{
    const QUrl url(text.trimmed(), QUrl::StrictMode);
    return url.isValid() && (url.scheme() == QLatin1String("https") || url.scheme() == QLatin1String("http")) &&
           !url.host().isEmpty();
}

QList<ReadCode> readCodes(const QImage& picture)
{
    if (picture.isNull()) {
        return {};
    }
    const QImage rgb = picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32 ||
                               picture.format() == QImage::Format_ARGB32_Premultiplied
                           ? picture
                           : picture.convertToFormat(QImage::Format_RGB32);
    // Light codes on a dark ground (dark themes) are read inverted, on a
    // second thread meanwhile: the two-dimensional ones, which screens show
    // light on dark (a barcode is printed dark on light).
    auto inverted = std::async(std::launch::async, [rgb] { return codesIn(luma(rgb, true), true); });
    QList<ReadCode> codes = codesIn(luma(rgb, false), false);
    for (const ReadCode& code : inverted.get()) {
        const bool known = std::any_of(codes.cbegin(), codes.cend(), [&](const ReadCode& found) {
            return found.text == code.text && found.corners.boundingRect().intersects(code.corners.boundingRect());
        });
        if (!known) {
            codes.append(code);
        }
    }
    std::sort(codes.begin(), codes.end(), [](const ReadCode& a, const ReadCode& b) {
        const QRect ra = a.corners.boundingRect(), rb = b.corners.boundingRect();
        return ra.top() != rb.top() ? ra.top() < rb.top() : ra.left() < rb.left();
    });
    return codes;
}

} // namespace nubo
