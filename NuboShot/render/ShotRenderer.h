#pragma once

#include "document/ShotDocument.h"
#include "render/RedactionRenderer.h"
#include "render/ShotTextLayoutManager.h"

#include <QHash>
#include <QImage>
#include <QMutex>

#include <atomic>
#include <memory>

class QPainter;

namespace nubo {

// Flattens shot documents to pixels. Rendering is thread-safe; the renderer
// keeps the caches that make redraws cheap (pixelated tiles, text rasters), so
// one long-lived renderer serves the editor and export alike.
class ShotRenderer {
public:
    ShotRenderer();
    ~ShotRenderer();
    ShotRenderer(const ShotRenderer&) = delete;
    ShotRenderer& operator=(const ShotRenderer&) = delete;

    // The program's renderer.
    static ShotRenderer& shared();

    // The visible part (crop, else canvas) with its frame at `scale` pixels
    // per point: RGBA, premultiplied, sRGB. `scale` must be finite and
    // positive. A null image when the bitmap cannot be allocated.
    QImage render(const ShotDocument& document, double scale);

    // One annotation other than a redaction, in document space.
    void drawAnnotation(QPainter& painter, const Annotation& annotation, int counterNumber);
    // One redaction, cut to the visible rectangle; under every other annotation.
    void drawRedaction(QPainter& painter, const ShotDocument& document, const Annotation& redaction,
                       const QRectF& visible);

    // Glyph bounds of a string in the text font or the emoji font at
    // max(size, 1), with the baseline at y = 0.
    static QRectF measureGlyphs(const QString& text, bool emoji, double size);

    RedactionTileCache& tileCache() { return m_tiles; }
    // The layout manager that draws a text annotation (one per annotation id).
    std::shared_ptr<ShotTextLayoutManager> textLayout(const QUuid& id);
    // Redaction tiles drawn so far: a redraw of an unchanged redaction adds
    // one draw and one cache hit, and no pixelation.
    quint64 tileDraws() const { return m_tileDraws.load(); }

private:
    // Draws the layers from `firstLayer` on, then the annotations.
    void drawContent(QPainter& painter, const ShotDocument& document, const QRectF& visible,
                     double inset, qsizetype firstLayer = 0);
    // The first layer is the whole export of `size` pixels, pixel for pixel.
    static bool coversExport(const ShotDocument& document, double scale, const QSize& size);

    RedactionTileCache m_tiles;
    QMutex m_textLock;
    QHash<QUuid, std::shared_ptr<ShotTextLayoutManager>> m_texts;
    std::atomic<quint64> m_tileDraws{0};
};

} // namespace nubo
