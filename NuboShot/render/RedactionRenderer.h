#pragma once

#include "document/ShotDocument.h"

#include <QCache>
#include <QImage>
#include <QMutex>
#include <QString>

namespace nubo {

// Pixelated tiles by a text key that names every input of the tile. Entries
// cost their bytes; the least recently used go first when the cache is full,
// and are simply made again when asked for.
class RedactionTileCache {
public:
    explicit RedactionTileCache(qint64 maximumBytes = 256ll << 20);

    std::optional<QImage> find(const QString& key);
    void insert(const QString& key, const QImage& tile);
    void clear();
    // Drops entries until at most this many bytes remain (memory pressure).
    void trim(qint64 bytes);

    quint64 hits() const;
    quint64 misses() const;
    qsizetype count() const;

private:
    mutable QMutex m_lock;
    QCache<QString, QImage> m_tiles;
    quint64 m_hits = 0;
    quint64 m_misses = 0;
};

class RedactionRenderer {
public:
    // The pixelated tile for a redaction whose rectangle is already cut to the
    // visible area, to be drawn into that rectangle.
    static QImage tile(const ShotDocument& document, const QRectF& rect, double strength,
                       RedactionTileCache& cache);

    // The union of the layers' frames.
    static QRectF contentBounds(const ShotDocument& document);
    // The area pixelated for a rectangle: widened to one block where it is
    // smaller, and kept inside the content.
    static QRectF alignedRect(const QRectF& rect, const QRectF& content, double block);
    static QString cacheKey(const ShotDocument& document, const QRectF& rect, const QRectF& aligned,
                            double strength);

    // Every block × block cell (clipped at the right and bottom edges) set to
    // the integer average of its R, G, B and A. A block larger than the
    // bitmap gives opaque black.
    static QImage pixelate(const QImage& image, int block);
};

} // namespace nubo
