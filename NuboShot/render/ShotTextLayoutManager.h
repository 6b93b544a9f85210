#pragma once

#include "document/ShotStyle.h"

#include <QColor>
#include <QHash>
#include <QImage>
#include <QMutex>
#include <QRectF>
#include <QString>
#include <QTextLayout>

#include <memory>
#include <optional>

class QPainter;

namespace nubo {

// One laid-out line of text with its effects, rasterised once.
struct LineRaster {
    QString source; // the line's text
    QImage image;   // at the manager's raster density
    QRectF rect;    // where it is drawn, in points relative to the text's origin
    quint64 generation = 0;
    quint64 lastUse = 0;
};

// Lays out the text of one annotation (wrapped to a container width, line
// breaks kept) and draws it. With effects, each line is drawn once into a
// raster (outline, then glyphs casting their shadow) and later redraws only
// copy the raster: text with effects is never stroked again on a redraw.
//
// The manager may draw from several threads; its line cache is guarded by
// its own lock.
class ShotTextLayoutManager {
public:
    static constexpr qint64 maximumRasterBytes = 16'777'216;

    ShotTextLayoutManager();
    ~ShotTextLayoutManager();
    ShotTextLayoutManager(const ShotTextLayoutManager&) = delete;
    ShotTextLayoutManager& operator=(const ShotTextLayoutManager&) = delete;

    // The text in the text font at fontSize points; a change lays out again.
    void setText(const QString& text, double fontSize, const QColor& color);
    void setContainerWidth(double width);
    // Different effects than before clear the line cache; the same keep it.
    void setEffects(const std::optional<ShotTextEffects>& effects);
    void setEffectScale(double scale);
    void setBackingScale(double scale);

    // Draws the text with its top-left corner at origin, in the painter's
    // current coordinates (points). Only lines meeting the painter's clip are
    // drawn.
    void draw(QPainter& painter, QPointF origin);

    // The laid-out text's height in points.
    double usedHeight();

    qint64 cachedRasterBytes() const;
    qsizetype cachedLineCount() const;
    // How many line rasters were made so far (misses of the cache).
    quint64 rasterizations() const;
    double rasterDensity() const;

private:
    struct Layout;
    void ensureLayout();
    void clearCache();
    // The raster of a line; `area` is what is drawn now, relative to the
    // text's origin, in points.
    const LineRaster& raster(int index, double density, const QRectF& area);
    void rememberRaster(int index, LineRaster raster);

    mutable QMutex m_access;
    QString m_text;
    double m_fontSize = 0;
    QColor m_color;
    double m_width = 0;
    std::optional<ShotTextEffects> m_effects;
    double m_effectScale = 1;
    double m_backingScale = 1;

    std::unique_ptr<Layout> m_layout;
    QHash<int, LineRaster> m_lines;
    LineRaster m_uncached;
    int m_uncachedIndex = -1;
    qint64 m_cachedRasterBytes = 0;
    quint64 m_generation = 1;
    quint64 m_useClock = 0;
    quint64 m_rasterizations = 0;
    double m_rasterDensity = 0;
    double m_containerWidth = -1;
};

} // namespace nubo
