#include "render/FrameRenderer.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace nubo {

ShotShadow FrameRenderer::frameShadow(double s)
{
    return {QColor::fromRgbF(0, 0, 0, 0.35f), QPointF(0, 3 * s), 12 * s};
}

namespace {

// Widths of three boxes whose repeated average approximates a Gaussian.
std::array<int, 3> boxWidths(double sigma)
{
    constexpr int n = 3;
    const double ideal = std::sqrt(12 * sigma * sigma / n + 1);
    int lower = int(std::floor(ideal));
    if (lower % 2 == 0) {
        --lower;
    }
    lower = std::max(lower, 1);
    const int upper = lower + 2;
    const double m =
        (12 * sigma * sigma - n * lower * lower - 4 * n * lower - 3 * n) / (-4.0 * lower - 4);
    const int lowerCount = int(std::lround(m));
    std::array<int, 3> widths{};
    for (int i = 0; i < n; ++i) {
        widths[size_t(i)] = i < lowerCount ? lower : upper;
    }
    return widths;
}

// One box pass along a line of `count` values `step` apart.
void boxLine(uchar* line, int count, qsizetype step, int radius, std::vector<uchar>& scratch)
{
    scratch.resize(size_t(count));
    for (int i = 0; i < count; ++i) {
        scratch[size_t(i)] = line[i * step];
    }
    const int width = 2 * radius + 1;
    // Fixed-point reciprocal of the box width, rounded.
    const uint32_t scale = uint32_t((1u << 24) / uint32_t(width));
    uint32_t sum = 0;
    for (int i = 0; i < std::min(radius, count); ++i) {
        sum += scratch[size_t(i)];
    }
    for (int i = 0; i < count; ++i) {
        const int in = i + radius;
        const int out = i - radius - 1;
        if (in < count) {
            sum += scratch[size_t(in)];
        }
        if (out >= 0) {
            sum -= scratch[size_t(out)];
        }
        line[i * step] = uchar((sum * scale + (1u << 23)) >> 24);
    }
}

// One vertical box pass over all columns at once, row by row, so that memory
// is read in order.
void boxColumns(QImage& image, int radius)
{
    const int width = image.width();
    const int height = image.height();
    const qsizetype stride = image.bytesPerLine();
    uchar* bits = image.bits();
    const uint32_t scale = uint32_t((1u << 24) / uint32_t(2 * radius + 1));
    std::vector<uint32_t> sums(size_t(width), 0);
    // The rows leave the window after they are overwritten, so keep a copy of
    // the last radius + 1 source rows in a ring.
    const int ringRows = radius + 1;
    std::vector<uchar> ring(size_t(ringRows) * size_t(width));
    for (int y = 0; y < std::min(radius, height); ++y) {
        const uchar* row = bits + y * stride;
        for (int x = 0; x < width; ++x) {
            sums[size_t(x)] += row[x];
        }
    }
    for (int y = 0; y < height; ++y) {
        const int in = y + radius;
        if (in < height) {
            const uchar* row = bits + in * stride;
            for (int x = 0; x < width; ++x) {
                sums[size_t(x)] += row[x];
            }
        }
        const int out = y - radius - 1;
        if (out >= 0) {
            const uchar* old = ring.data() + size_t(out % ringRows) * size_t(width);
            for (int x = 0; x < width; ++x) {
                sums[size_t(x)] -= old[x];
            }
        }
        uchar* row = bits + y * stride;
        std::copy(row, row + width, ring.data() + size_t(y % ringRows) * size_t(width));
        for (int x = 0; x < width; ++x) {
            row[x] = uchar((sums[size_t(x)] * scale + (1u << 23)) >> 24);
        }
    }
}

} // namespace

void FrameRenderer::blurAlpha(QImage& alpha, double sigma)
{
    Q_ASSERT(alpha.format() == QImage::Format_Alpha8);
    if (!(sigma > 0) || alpha.isNull()) {
        return;
    }
    std::vector<uchar> scratch;
    for (const int width : boxWidths(sigma)) {
        const int radius = (width - 1) / 2;
        if (radius == 0) {
            continue;
        }
        for (int y = 0; y < alpha.height(); ++y) {
            boxLine(alpha.scanLine(y), alpha.width(), 1, radius, scratch);
        }
        boxColumns(alpha, radius);
    }
}

void FrameRenderer::compositeWithShadow(QImage& target, const QImage& layer,
                                        const ShotShadow& shadow)
{
    Q_ASSERT(target.size() == layer.size());
    QImage alpha = layer.convertToFormat(QImage::Format_Alpha8);
    blurAlpha(alpha, shadow.blur / 2);

    // Tint the mask with the shadow colour, premultiplied.
    const QColor c = shadow.color.toRgb();
    QImage tinted(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    const uint32_t ca = uint32_t(c.alpha()), cr = uint32_t(c.red()), cg = uint32_t(c.green()),
                   cb = uint32_t(c.blue());
    for (int y = 0; y < alpha.height(); ++y) {
        const uchar* in = alpha.constScanLine(y);
        auto* out = reinterpret_cast<QRgb*>(tinted.scanLine(y));
        for (int x = 0; x < alpha.width(); ++x) {
            const uint32_t a = (in[x] * ca + 127) / 255;
            out[x] = qRgba(int((cr * a + 127) / 255), int((cg * a + 127) / 255),
                           int((cb * a + 127) / 255), int(a));
        }
    }

    QPainter painter(&target);
    painter.drawImage(shadow.offset, tinted);
    painter.drawImage(QPointF(0, 0), layer);
}

void FrameRenderer::drawWithShadow(QImage& target, const QTransform& transform,
                                   const ShotShadow& shadow,
                                   const std::function<void(QPainter&)>& action)
{
    QImage layer(target.size(), QImage::Format_ARGB32_Premultiplied);
    layer.fill(Qt::transparent);
    {
        QPainter painter(&layer);
        painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                               QPainter::TextAntialiasing);
        painter.setTransform(transform);
        action(painter);
    }
    compositeWithShadow(target, layer, shadow);
}

} // namespace nubo
