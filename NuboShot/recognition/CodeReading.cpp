#include "recognition/CodeReading.h"

#include <QUrl>

// ZXing-C++ 1.4's text() in UTF-8, as later versions give it.
#define ZX_USE_UTF8 1
#include <ZXing/ReadBarcode.h>

#include <algorithm>
#include <future>

namespace nubo {

namespace {

QList<ReadCode> codesIn(const QImage& grey)
{
    ZXing::DecodeHints hints;
    // A screen's codes are sharp: no passes over shrunk copies (for blurred
    // photos), which would double the time on a 4K screen.
    hints.setTryHarder(true).setTryRotate(true).setTryDownscale(false);
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
    const QImage grey = picture.convertToFormat(QImage::Format_Grayscale8);
    // Light codes on a dark ground (dark themes) are read inverted, on a
    // second thread meanwhile.
    auto inverted = std::async(std::launch::async, [grey] {
        QImage negative = grey.copy();
        negative.invertPixels();
        return codesIn(negative);
    });
    QList<ReadCode> codes = codesIn(grey);
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
