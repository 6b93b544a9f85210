#include "capture/PixelConversion.h"

#include <cstdlib>
#include <sys/mman.h>
#include <thread>

namespace nubo {

namespace {

inline uint32_t toRgba(uint32_t p, uint32_t alphaMask, uint32_t alphaFill)
{
    // 0xAARRGGBB in, R, G, B, A in memory out
    return (p & alphaMask) | alphaFill | ((p & 0xFFu) << 16) | (p & 0xFF00u) | ((p >> 16) & 0xFFu);
}

void convertRows(const QImage& in, QImage& out, int first, int last, uint32_t alphaMask,
                 uint32_t alphaFill)
{
    const int width = in.width();
    for (int y = first; y < last; ++y) {
        const auto* __restrict source = reinterpret_cast<const uint32_t*>(in.constScanLine(y));
        auto* __restrict target = reinterpret_cast<uint32_t*>(out.scanLine(y));
        for (int x = 0; x < width; ++x) {
            target[x] = toRgba(source[x], alphaMask, alphaFill);
        }
    }
}

// One pointer read and written: the compiler vectorises it without the
// overlap check that two pointers to the same memory would fail.
void convertRowsInPlace(uchar* bits, qsizetype stride, int width, int first, int last,
                        uint32_t alphaMask, uint32_t alphaFill)
{
    for (int y = first; y < last; ++y) {
        auto* pixels = reinterpret_cast<uint32_t*>(bits + stride * y);
        for (int x = 0; x < width; ++x) {
            pixels[x] = toRgba(pixels[x], alphaMask, alphaFill);
        }
    }
}

// Rows [0, height) split between this thread and one more for large images.
template <class Rows> void inTwoHalves(int height, Rows rows)
{
    if (height >= 512) {
        std::thread lower([&] { rows(height / 2, height); });
        rows(0, height / 2);
        lower.join();
    } else {
        rows(0, height);
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
    inTwoHalves(xPixels.height(),
                [&](int first, int last) { convertRows(xPixels, out, first, last, mask, fill); });
    return out;
}

QImage xPixelsToRgbaInPlace(QImage xPixels, bool keepAlpha)
{
    uchar* bits = xPixels.bits(); // a copy only when the pixels are shared
    if (!bits) {
        return {};
    }
    const uint32_t mask = keepAlpha ? 0xFF000000u : 0u;
    const uint32_t fill = keepAlpha ? 0u : 0xFF000000u;
    const qsizetype stride = xPixels.bytesPerLine();
    const int width = xPixels.width();
    inTwoHalves(xPixels.height(), [&](int first, int last) {
        convertRowsInPlace(bits, stride, width, first, last, mask, fill);
    });
    xPixels.reinterpretAsFormat(QImage::Format_RGBA8888_Premultiplied);
    return xPixels;
}

} // namespace nubo
