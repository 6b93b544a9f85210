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

namespace {

// The layer's alpha averaged over factor × factor cells (outside the layer
// counts as transparent).
QImage alphaMask(const QImage& layer, int factor)
{
    Q_ASSERT(layer.format() == QImage::Format_ARGB32_Premultiplied);
    const int width = (layer.width() + factor - 1) / factor;
    const int height = (layer.height() + factor - 1) / factor;
    QImage mask(width, height, QImage::Format_Alpha8);
    if (factor == 1) {
        for (int y = 0; y < height; ++y) {
            const auto* in = reinterpret_cast<const QRgb*>(layer.constScanLine(y));
            uchar* out = mask.scanLine(y);
            for (int x = 0; x < width; ++x) {
                out[x] = uchar(in[x] >> 24);
            }
        }
        return mask;
    }
    const int layerWidth = layer.width();
    std::vector<uint32_t> sums(static_cast<size_t>(width));
    const uint32_t cell = uint32_t(factor * factor);
    for (int y = 0; y < height; ++y) {
        std::fill(sums.begin(), sums.end(), 0);
        const int lastRow = std::min((y + 1) * factor, layer.height());
        for (int row = y * factor; row < lastRow; ++row) {
            const auto* in = reinterpret_cast<const QRgb*>(layer.constScanLine(row));
            int x = 0;
            for (int cellX = 0; cellX < width; ++cellX) {
                const int end = std::min(x + factor, layerWidth);
                uint32_t sum = 0;
                for (; x < end; ++x) {
                    sum += in[x] >> 24;
                }
                sums[size_t(cellX)] += sum;
            }
        }
        uchar* out = mask.scanLine(y);
        for (int x = 0; x < width; ++x) {
            out[x] = uchar((sums[size_t(x)] + cell / 2) / cell);
        }
    }
    return mask;
}

// The mask in the shadow's colour, premultiplied.
QImage tinted(const QImage& mask, const QColor& color)
{
    const QColor c = color.toRgb();
    std::array<QRgb, 256> table{};
    for (uint32_t a = 0; a < 256; ++a) {
        const uint32_t alpha = (a * uint32_t(c.alpha()) + 127) / 255;
        table[a] = qRgba(int((uint32_t(c.red()) * alpha + 127) / 255),
                         int((uint32_t(c.green()) * alpha + 127) / 255),
                         int((uint32_t(c.blue()) * alpha + 127) / 255), int(alpha));
    }
    QImage out(mask.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* in = mask.constScanLine(y);
        auto* row = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < mask.width(); ++x) {
            row[x] = table[in[x]];
        }
    }
    return out;
}

} // namespace

void FrameRenderer::compositeWithShadow(QImage& target, const QImage& layer,
                                        const ShotShadow& shadow)
{
    Q_ASSERT(target.size() == layer.size());
    const QImage source = layer.format() == QImage::Format_ARGB32_Premultiplied
                              ? layer
                              : layer.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    // A wide blur is smooth: it is computed on a smaller mask and drawn
    // scaled up, which looks the same and costs a fraction.
    const double sigma = shadow.blur / 2;
    const int factor = std::clamp(int(sigma / 3), 1, 8);
    QImage mask = alphaMask(source, factor);
    blurAlpha(mask, sigma / factor);

    QPainter painter(&target);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, factor > 1);
    painter.drawImage(QRectF(shadow.offset, QSizeF(mask.width() * factor, mask.height() * factor)),
                      tinted(mask, shadow.color));
    painter.drawImage(QPointF(0, 0), source);
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
