#include "render/ShotTextLayoutManager.h"

#include "render/FrameRenderer.h"
#include "render/ShotFonts.h"

#include <QGlyphRun>
#include <QMutexLocker>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QTextLine>

#include <cmath>

namespace nubo {

// Fonts come in whole pixel sizes, so the text is laid out at the nearest
// whole size and scaled by `unit` points per layout unit. Unhinted outlines
// scale exactly, so a 17.5-point text is a 18-unit layout drawn at 35/36.
// Each paragraph is its own text layout, so a line break never borrows the
// metrics of whatever fallback font would draw the separator.
struct ShotTextLayoutManager::Layout {
    std::vector<std::unique_ptr<QTextLayout>> paragraphs;
    QList<QTextLine> lines;
    QList<int> lineStarts; // index of each line's first character in the text
    double unit = 1;
    QList<QRectF> lineRects; // in points
    double height = 0;
};

ShotTextLayoutManager::ShotTextLayoutManager() = default;
ShotTextLayoutManager::~ShotTextLayoutManager() = default;

void ShotTextLayoutManager::setText(const QString& text, double fontSize, const QColor& color)
{
    const QMutexLocker lock(&m_access);
    if (text == m_text && fontSize == m_fontSize && color == m_color) {
        return;
    }
    m_text = text;
    m_fontSize = fontSize;
    m_color = color;
    m_layout.reset();
    clearCache();
}

void ShotTextLayoutManager::setContainerWidth(double width)
{
    const QMutexLocker lock(&m_access);
    if (width != m_width) {
        m_width = width;
        m_layout.reset();
    }
}

void ShotTextLayoutManager::setEffects(const std::optional<ShotTextEffects>& effects)
{
    const QMutexLocker lock(&m_access);
    if (effects != m_effects) {
        m_effects = effects;
        clearCache();
    }
}

void ShotTextLayoutManager::setEffectScale(double scale)
{
    const QMutexLocker lock(&m_access);
    if (scale != m_effectScale) {
        m_effectScale = scale;
        clearCache();
    }
}

void ShotTextLayoutManager::setBackingScale(double scale)
{
    const QMutexLocker lock(&m_access);
    m_backingScale = scale;
}

void ShotTextLayoutManager::clearCache()
{
    m_lines.clear();
    m_uncached = {};
    m_uncachedIndex = -1;
    m_cachedRasterBytes = 0;
    ++m_generation;
}

void ShotTextLayoutManager::ensureLayout()
{
    if (m_layout) {
        return;
    }
    auto layout = std::make_unique<Layout>();
    const double size = ShotStyle::normalizedFontSize(m_fontSize);
    const int pixels = std::max(1, int(std::lround(size)));
    layout->unit = size / pixels;

    const QFont font = ShotFonts::textFont(pixels);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    const double width = std::max(m_width, 0.0) / layout->unit;
    double y = 0;
    int paragraphStart = 0;
    for (const QString& paragraph : m_text.split(QLatin1Char('\n'))) {
        auto& text = layout->paragraphs.emplace_back(
            std::make_unique<QTextLayout>(paragraph, font, ShotFonts::documentDevice()));
        text->setTextOption(option);
        text->setCacheEnabled(true);
        text->beginLayout();
        for (QTextLine line = text->createLine(); line.isValid(); line = text->createLine()) {
            line.setLineWidth(width);
            line.setLeadingIncluded(true);
            line.setPosition(QPointF(0, y));
            y += line.height();
            layout->lines.append(line);
            layout->lineStarts.append(paragraphStart + line.textStart());
            layout->lineRects.append(QRectF(line.x() * layout->unit, line.y() * layout->unit,
                                            line.naturalTextWidth() * layout->unit,
                                            line.height() * layout->unit));
        }
        text->endLayout();
        paragraphStart += int(paragraph.size()) + 1;
    }
    layout->height = y * layout->unit;
    m_layout = std::move(layout);
}

double ShotTextLayoutManager::usedHeight()
{
    const QMutexLocker lock(&m_access);
    ensureLayout();
    return m_layout->height;
}

namespace {

// The outlines of the glyphs, in groups of neighbours. Filling one stroke of
// a whole long line costs the rasteriser time that grows with the square of
// its length; groups of a few dozen glyphs keep it linear, and strokes only
// meet where neighbouring groups touch.
// Only glyphs whose pen position lies within `from`…`to` (layout units) are
// taken: a part of a very long line strokes only its own glyphs.
QList<QPainterPath> glyphOutlines(const QList<QGlyphRun>& runs, double from, double to)
{
    constexpr qsizetype glyphsPerGroup = 32;
    QList<QPainterPath> groups;
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    qsizetype inGroup = 0;
    for (const QGlyphRun& run : runs) {
        const QRawFont font = run.rawFont();
        if (font.familyName() == ShotFonts::emojiFamily()) {
            continue; // colour bitmaps: no outline to stroke
        }
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size(); ++i) {
            if (positions[i].x() < from || positions[i].x() > to) {
                continue;
            }
            path.addPath(font.pathForGlyph(glyphs[i]).translated(positions[i]));
            if (++inGroup == glyphsPerGroup) {
                groups.append(std::exchange(path, QPainterPath()));
                path.setFillRule(Qt::WindingFill);
                inGroup = 0;
            }
        }
    }
    if (inGroup > 0) {
        groups.append(path);
    }
    return groups;
}

double scaleOf(const QTransform& t)
{
    return std::hypot(t.m11(), t.m12());
}

} // namespace

void ShotTextLayoutManager::draw(QPainter& painter, QPointF origin)
{
    const QMutexLocker lock(&m_access);
    ensureLayout();
    const Layout& layout = *m_layout;

    // The area to draw, relative to the origin.
    QRectF area = painter.hasClipping()
                      ? painter.clipBoundingRect()
                      : painter.worldTransform().inverted().mapRect(QRectF(painter.viewport()));
    area.translate(-origin);
    const double padding = m_effects ? m_effects->padding() * m_effectScale : 0;
    area.adjust(-padding, -padding, padding, padding);
    if (area.isEmpty() || !std::isfinite(area.width()) || !std::isfinite(area.height())) {
        return;
    }

    if (!m_effects) {
        painter.save();
        painter.translate(origin);
        painter.scale(layout.unit, layout.unit);
        painter.setPen(m_color);
        for (int i = 0; i < layout.lineRects.size(); ++i) {
            if (layout.lineRects[i].intersects(area)) {
                for (const QGlyphRun& run : layout.lines[i].glyphRuns()) {
                    painter.drawGlyphRun(QPointF(0, 0), run);
                }
            }
        }
        painter.restore();
        return;
    }

    const double density = std::max(m_backingScale, scaleOf(painter.worldTransform()));
    if (density != m_rasterDensity || m_width != m_containerWidth) {
        clearCache();
        m_rasterDensity = density;
        m_containerWidth = m_width;
    }
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    for (int i = 0; i < layout.lineRects.size(); ++i) {
        const QRectF line = layout.lineRects[i];
        if (line.width() <= 0 ||
            !line.adjusted(-padding, -padding, padding, padding).intersects(area)) {
            continue;
        }
        const LineRaster& r = raster(i, density, area);
        if (!r.image.isNull()) {
            painter.drawImage(r.rect.translated(origin), r.image);
        }
    }
    painter.restore();
}

const LineRaster& ShotTextLayoutManager::raster(int index, double density, const QRectF& area)
{
    auto it = m_lines.find(index);
    if (it != m_lines.end() && it->generation == m_generation) {
        it->lastUse = ++m_useClock;
        return *it;
    }
    if (m_uncachedIndex == index && m_uncached.generation == m_generation) {
        return m_uncached; // the one line too large for the budget, kept until replaced
    }
    const Layout& layout = *m_layout;
    const QTextLine& line = layout.lines[index];
    const ShotTextEffects& e = *m_effects;
    const double padding = e.padding() * m_effectScale;

    // The line grown by the effects' padding, rounded out to whole pixels.
    // A line whose raster would not fit the whole budget (a long line in a
    // wide box, at a large size) is rasterised only where it is drawn now,
    // and not kept.
    QRectF grown = layout.lineRects[index].adjusted(-padding, -padding, padding, padding);
    const bool partial =
        grown.width() * density * grown.height() * density * 4 > double(maximumRasterBytes);
    if (partial) {
        grown = grown.intersected(area);
    }
    const double left = std::floor(grown.left() * density) / density;
    const double top = std::floor(grown.top() * density) / density;
    const int width = int(std::ceil(grown.right() * density - left * density));
    const int height = int(std::ceil(grown.bottom() * density - top * density));

    LineRaster raster;
    raster.source = m_text.mid(layout.lineStarts[index], line.textLength());
    raster.rect = QRectF(left, top, width / density, height / density);
    raster.generation = m_generation;
    raster.lastUse = ++m_useClock;
    ++m_rasterizations;

    if (width > 0 && height > 0) {
        const QList<QGlyphRun> runs = line.glyphRuns();
        QTransform toPixels;
        toPixels.scale(density, density);
        toPixels.translate(-left, -top);
        toPixels.scale(layout.unit, layout.unit);

        // The outline first, stroked around every glyph.
        QImage outlined(width, height, QImage::Format_ARGB32_Premultiplied);
        outlined.fill(Qt::transparent);
        if (e.outlineWidth > 0) {
            QPainter p(&outlined);
            p.setRenderHint(QPainter::Antialiasing);
            p.setTransform(toPixels);
            QPen pen(e.outlineColor.toQColor(), e.outlineWidth * m_effectScale / layout.unit);
            pen.setJoinStyle(Qt::RoundJoin);
            pen.setCapStyle(Qt::RoundCap);
            // Glyphs reach about one em beyond their pen position.
            const double em = std::max(1.0, m_fontSize / layout.unit);
            const double from = (grown.left() - padding) / layout.unit - em;
            const double to = (grown.right() + padding) / layout.unit;
            for (const QPainterPath& group : glyphOutlines(runs, from, to)) {
                p.strokePath(group, pen);
            }
        }
        // Then the glyphs, casting their shadow over it.
        QImage glyphs(width, height, QImage::Format_ARGB32_Premultiplied);
        glyphs.fill(Qt::transparent);
        {
            QPainter p(&glyphs);
            p.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing);
            p.setTransform(toPixels);
            p.setPen(m_color);
            for (const QGlyphRun& run : runs) {
                p.drawGlyphRun(QPointF(0, 0), run);
            }
        }
        const double effect = m_effectScale * density;
        FrameRenderer::compositeWithShadow(outlined, glyphs,
                                           {e.shadowColor.toQColor(),
                                            QPointF(e.offset.width(), e.offset.height()) * effect,
                                            e.blurRadius * effect});
        raster.image = std::move(outlined);
    }
    if (partial || raster.image.sizeInBytes() > maximumRasterBytes) {
        // Larger than the whole budget: drawn, never kept; a whole line is
        // reused until it is replaced, a part is not.
        m_uncached = std::move(raster);
        m_uncachedIndex = partial ? -1 : index;
        return m_uncached;
    }
    rememberRaster(index, std::move(raster));
    return m_lines[index];
}

void ShotTextLayoutManager::rememberRaster(int index, LineRaster raster)
{
    const qint64 bytes = raster.image.sizeInBytes();
    if (auto old = m_lines.find(index); old != m_lines.end()) {
        m_cachedRasterBytes -= old->image.sizeInBytes();
        m_lines.erase(old);
    }
    // Least recently used rasters make room first.
    while (!m_lines.isEmpty() && m_cachedRasterBytes + bytes > maximumRasterBytes) {
        auto oldest = m_lines.begin();
        for (auto it = m_lines.begin(); it != m_lines.end(); ++it) {
            if (it->lastUse < oldest->lastUse) {
                oldest = it;
            }
        }
        m_cachedRasterBytes -= oldest->image.sizeInBytes();
        m_lines.erase(oldest);
    }
    m_cachedRasterBytes += bytes;
    m_lines.insert(index, std::move(raster));
}

qint64 ShotTextLayoutManager::cachedRasterBytes() const
{
    const QMutexLocker lock(&m_access);
    return m_cachedRasterBytes;
}

qsizetype ShotTextLayoutManager::cachedLineCount() const
{
    const QMutexLocker lock(&m_access);
    return m_lines.size();
}

quint64 ShotTextLayoutManager::rasterizations() const
{
    const QMutexLocker lock(&m_access);
    return m_rasterizations;
}

double ShotTextLayoutManager::rasterDensity() const
{
    const QMutexLocker lock(&m_access);
    return m_rasterDensity;
}

} // namespace nubo
