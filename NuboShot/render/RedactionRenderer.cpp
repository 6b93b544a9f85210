#include "render/RedactionRenderer.h"

#include <QMutexLocker>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace nubo {

RedactionTileCache::RedactionTileCache(qint64 maximumBytes)
{
    m_tiles.setMaxCost(maximumBytes);
}

std::optional<QImage> RedactionTileCache::find(const QString& key)
{
    const QMutexLocker lock(&m_lock);
    if (const QImage* tile = m_tiles.object(key)) {
        ++m_hits;
        return *tile;
    }
    ++m_misses;
    return std::nullopt;
}

void RedactionTileCache::insert(const QString& key, const QImage& tile)
{
    const QMutexLocker lock(&m_lock);
    m_tiles.insert(key, new QImage(tile), std::max<qint64>(tile.sizeInBytes(), 1));
}

void RedactionTileCache::clear()
{
    const QMutexLocker lock(&m_lock);
    m_tiles.clear();
}

void RedactionTileCache::trim(qint64 bytes)
{
    const QMutexLocker lock(&m_lock);
    const qint64 limit = m_tiles.maxCost();
    m_tiles.setMaxCost(std::max<qint64>(bytes, 0));
    m_tiles.setMaxCost(limit);
}

quint64 RedactionTileCache::hits() const
{
    const QMutexLocker lock(&m_lock);
    return m_hits;
}

quint64 RedactionTileCache::misses() const
{
    const QMutexLocker lock(&m_lock);
    return m_misses;
}

qsizetype RedactionTileCache::count() const
{
    const QMutexLocker lock(&m_lock);
    return m_tiles.count();
}

QRectF RedactionRenderer::contentBounds(const ShotDocument& document)
{
    QRectF bounds;
    for (const ImageLayer& layer : document.layers) {
        bounds =
            bounds.isNull() ? layer.frame.normalized() : bounds.united(layer.frame.normalized());
    }
    return bounds;
}

QRectF RedactionRenderer::alignedRect(const QRectF& rect, const QRectF& content, double block)
{
    const auto axis = [&](double start, double length, double contentStart, double contentLength) {
        if (length >= block) {
            return std::pair(start, length);
        }
        const double widened = std::min(block, contentLength);
        double begin = start + length / 2 - widened / 2;
        begin = std::min(std::max(begin, contentStart), contentStart + contentLength - widened);
        return std::pair(begin, widened);
    };
    const auto [x, width] = axis(rect.x(), rect.width(), content.x(), content.width());
    const auto [y, height] = axis(rect.y(), rect.height(), content.y(), content.height());
    return {x, y, width, height};
}

namespace {
QString number(double value)
{
    return QString::number(value, 'g', 17);
}

QString rectText(const QRectF& r)
{
    return QStringLiteral("{{%1, %2}, {%3, %4}}")
        .arg(number(r.x()), number(r.y()), number(r.width()), number(r.height()));
}

QImage opaqueBlack(QSize size)
{
    QImage black(size, QImage::Format_RGBA8888_Premultiplied);
    black.fill(Qt::black);
    return black;
}
} // namespace

QString RedactionRenderer::cacheKey(const ShotDocument& document, const QRectF& rect,
                                    const QRectF& aligned, double strength)
{
    QStringList layers;
    for (const ImageLayer& layer : document.layers) {
        if (layer.frame.normalized().intersects(aligned)) {
            layers << layer.id.toString(QUuid::WithoutBraces).toUpper() + QLatin1Char(':') +
                          QString::number(layer.image.cacheKey()) + QLatin1Char(':') +
                          rectText(layer.frame);
        }
    }
    return layers.join(QLatin1Char(';')) + QLatin1Char('|') + rectText(rect) + QLatin1Char('|') +
           rectText(aligned) + QLatin1Char('|') + number(strength);
}

QImage RedactionRenderer::tile(const ShotDocument& document, const QRectF& rect, double strength,
                               RedactionTileCache& cache)
{
    const double block = ShotStyle::normalizedStrength(strength);
    const QRectF content = contentBounds(document);
    if (content.isNull() || block > content.width() || block > content.height()) {
        // Content too small to pixelate is hidden, not shown.
        return opaqueBlack(QSize(1, 1));
    }
    const QRectF aligned = alignedRect(rect, content, block);
    const QString key = cacheKey(document, rect, aligned, block);
    if (auto cached = cache.find(key)) {
        return *cached;
    }

    // The layers under the aligned area at one pixel per point.
    const QSize size(std::max(1, int(std::ceil(aligned.width()))),
                     std::max(1, int(std::ceil(aligned.height()))));
    QImage area(size, QImage::Format_RGBA8888_Premultiplied);
    area.fill(Qt::transparent);
    const double sx = size.width() / aligned.width();
    const double sy = size.height() / aligned.height();
    {
        QPainter painter(&area);
        painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
        painter.scale(sx, sy);
        painter.translate(-aligned.topLeft());
        for (const ImageLayer& layer : document.layers) {
            if (layer.frame.normalized().intersects(aligned)) {
                painter.drawImage(layer.frame, layer.image);
            }
        }
    }
    const QImage pixelated = pixelate(area, std::max(1, int(std::lround(block))));

    // Only the redaction's own part of the pixelated area.
    const QRect part = QRectF((rect.x() - aligned.x()) * sx, (rect.y() - aligned.y()) * sy,
                              rect.width() * sx, rect.height() * sy)
                           .toAlignedRect()
                           .intersected(pixelated.rect());
    const QImage tile = part.isEmpty() ? pixelated : pixelated.copy(part);
    cache.insert(key, tile);
    return tile;
}

QImage RedactionRenderer::pixelate(const QImage& source, int block)
{
    Q_ASSERT(block >= 1);
    if (block > source.width() || block > source.height()) {
        return opaqueBlack(source.size());
    }
    QImage image = source.format() == QImage::Format_RGBA8888_Premultiplied
                       ? source.copy()
                       : source.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const int width = image.width();
    const int height = image.height();
    const int columns = (width + block - 1) / block;
    std::vector<uint32_t> sums(size_t(columns) * 4);
    std::vector<uint32_t> average(static_cast<size_t>(columns));
    for (int top = 0; top < height; top += block) {
        const int rows = std::min(block, height - top);
        std::fill(sums.begin(), sums.end(), 0);
        for (int y = top; y < top + rows; ++y) {
            const uchar* p = image.constScanLine(y);
            for (int c = 0; c < columns; ++c) {
                const int end = std::min((c + 1) * block, width);
                uint32_t r = 0, g = 0, b = 0, a = 0;
                for (int x = c * block; x < end; ++x, p += 4) {
                    r += p[0];
                    g += p[1];
                    b += p[2];
                    a += p[3];
                }
                uint32_t* s = &sums[size_t(c) * 4];
                s[0] += r;
                s[1] += g;
                s[2] += b;
                s[3] += a;
            }
        }
        // Integer averages, truncated, written over the whole block.
        for (int c = 0; c < columns; ++c) {
            const uint32_t count = uint32_t(rows * (std::min((c + 1) * block, width) - c * block));
            const uint32_t* s = &sums[size_t(c) * 4];
            const uchar px[4] = {
                uchar(std::min(s[0] / count, 255u)), uchar(std::min(s[1] / count, 255u)),
                uchar(std::min(s[2] / count, 255u)), uchar(std::min(s[3] / count, 255u))};
            std::memcpy(&average[size_t(c)], px, 4);
        }
        for (int y = top; y < top + rows; ++y) {
            auto* row = reinterpret_cast<uint32_t*>(image.scanLine(y));
            for (int c = 0; c < columns; ++c) {
                const int end = std::min((c + 1) * block, width);
                std::fill(row + c * block, row + end, average[size_t(c)]);
            }
        }
    }
    return image;
}

} // namespace nubo
