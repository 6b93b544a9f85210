#include "capture/PixelConversion.h"

#include <cstdlib>
#include <sys/mman.h>
#include <thread>

namespace nubo {

namespace {

void convertRows(const QImage& in, QImage& out, int first, int last, uint32_t alphaMask,
                 uint32_t alphaFill)
{
    const int width = in.width();
    for (int y = first; y < last; ++y) {
        const auto* __restrict source = reinterpret_cast<const uint32_t*>(in.constScanLine(y));
        auto* __restrict target = reinterpret_cast<uint32_t*>(out.scanLine(y));
        for (int x = 0; x < width; ++x) {
            const uint32_t p = source[x]; // 0xAARRGGBB
            target[x] = (p & alphaMask) | alphaFill | ((p & 0xFFu) << 16) | (p & 0xFF00u) |
                        ((p >> 16) & 0xFFu);
        }
    }
}

} // namespace

QImage xPixelsToRgba(const QImage& xPixels, bool keepAlpha)
{
    // Big images live on huge pages: a 4K capture then takes a few page
    // faults instead of eight thousand.
    const qsizetype bytesPerLine = qsizetype(xPixels.width()) * 4;
    const size_t size = size_t(bytesPerLine) * size_t(xPixels.height());
    constexpr size_t hugePage = size_t(2) << 20;
    QImage out;
    if (size >= 4 * hugePage) {
        void* buffer = std::aligned_alloc(hugePage, (size + hugePage - 1) / hugePage * hugePage);
        if (buffer) {
            ::madvise(buffer, (size + hugePage - 1) / hugePage * hugePage, MADV_HUGEPAGE);
            out = QImage(
                static_cast<uchar*>(buffer), xPixels.width(), xPixels.height(), bytesPerLine,
                QImage::Format_RGBA8888_Premultiplied, [](void* data) { std::free(data); }, buffer);
        }
    }
    if (out.isNull()) {
        out = QImage(xPixels.size(), QImage::Format_RGBA8888_Premultiplied);
    }
    if (out.isNull()) {
        return out;
    }
    const uint32_t mask = keepAlpha ? 0xFF000000u : 0u;
    const uint32_t fill = keepAlpha ? 0u : 0xFF000000u;
    const int height = xPixels.height();
    if (height >= 512) {
        std::thread lower([&] { convertRows(xPixels, out, height / 2, height, mask, fill); });
        convertRows(xPixels, out, 0, height / 2, mask, fill);
        lower.join();
    } else {
        convertRows(xPixels, out, 0, height, mask, fill);
    }
    return out;
}

} // namespace nubo
