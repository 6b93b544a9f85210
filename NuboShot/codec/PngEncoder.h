#pragma once

#include <QByteArray>
#include <QImage>

#include <cstdint>
#include <vector>

namespace nubo {

// Our own PNG writer: the container and filters are ours, the compression is
// libdeflate's. Screenshots are mostly opaque, so an image whose alpha is
// opaque everywhere is written as RGB; each row gets the filter that makes it
// smallest by the usual sum-of-absolute-differences heuristic.
class PngEncoder {
public:
    // The libdeflate level with the best time for size on real screenshots
    // (see docs/PERFORMANCE.md).
    static constexpr int defaultLevel = 5;

    struct Options {
        int level = defaultLevel;
        // Pixels per point recorded in the file (72 dpi per point), 0 for none.
        double pixelsPerPoint = 0;
    };

    // Any QImage; translucent pixels are stored unpremultiplied, as PNG
    // requires. Empty on failure (a null image or an allocation failure).
    static QByteArray encode(const QImage& image, const Options& options);
    static QByteArray encode(const QImage& image) { return encode(image, Options()); }

    // Whether every pixel is opaque.
    static bool isOpaque(const QImage& image);

private:
    // The IDAT payload: the rows filtered (packed to RGB when `opaque`) and
    // compressed into one zlib stream. Empty on failure.
    static std::vector<uint8_t> filteredZlibStream(const QImage& pixels, bool opaque, int level);
};

} // namespace nubo
