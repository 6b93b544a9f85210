#include "render/ShotRenderer.h"

#include "core/ArrowGeometry.h"
#include "core/Overloaded.h"
#include "render/FrameRenderer.h"
#include "render/ShotFonts.h"

#include <QGlyphRun>
#include <QMutexLocker>
#include <QPainter>
#include <QPainterPath>
#include <QRawFont>
#include <QTextLayout>

#include <climits>
#include <cmath>

namespace nubo {

namespace {

constexpr qsizetype maximumTextLayouts = 1024;

// A single line of glyphs at a given point size, laid out at the nearest
// whole pixel size and scaled by `unit`.
struct GlyphLine {
    static constexpr int maximumPixelSize = 512;

    // The layout stays alive with its runs: bitmap glyphs measure only while
    // their font engine is in use.
    std::unique_ptr<QTextLayout> layout;
    QList<QGlyphRun> runs;
    double unit = 1;
    bool emoji = false;

    GlyphLine(const QString& text, bool isEmoji, double size) : emoji(isEmoji)
    {
        const double points = std::isfinite(size) ? std::max(size, 1.0) : 1.0;
        // Fonts are asked for at most maximumPixelSize and scaled beyond it:
        // glyphs as big as a hostile emoji box would exhaust the font engine.
        const int pixels = int(std::lround(std::min(points, double(maximumPixelSize))));
        unit = points / pixels;
        layout = std::make_unique<QTextLayout>(
            text, emoji ? ShotFonts::emojiFont(pixels) : ShotFonts::textFont(pixels),
            ShotFonts::documentDevice());
        layout->beginLayout();
        QTextLine line = layout->createLine();
        layout->endLayout();
        if (line.isValid()) {
            runs = line.glyphRuns();
        }
    }

    // Bounds of the glyphs' outlines. Colour emoji are bitmaps without
    // outlines and measure by their image bounds (asking a bitmap font for an
    // outline spoils its metrics).
    QRectF bounds() const
    {
        QRectF box;
        for (const QGlyphRun& run : runs) {
            const QRawFont font = run.rawFont();
            const QList<quint32> glyphs = run.glyphIndexes();
            const QList<QPointF> positions = run.positions();
            for (qsizetype i = 0; i < glyphs.size(); ++i) {
                const QRectF glyph = (emoji ? font.boundingRect(glyphs[i])
                                            : font.pathForGlyph(glyphs[i]).boundingRect())
                                         .translated(positions[i]);
                box = box.isNull() ? glyph : box.united(glyph);
            }
        }
        return QRectF(box.topLeft() * unit, box.size() * unit);
    }

    // Draws the glyphs with their bounds centred on `centre`.
    void drawCentred(QPainter& painter, QPointF centre) const
    {
        const QRectF box = bounds();
        painter.save();
        painter.translate(centre - box.center());
        painter.scale(unit, unit);
        for (const QGlyphRun& run : runs) {
            painter.drawGlyphRun(QPointF(0, 0), run);
        }
        painter.restore();
    }
};

} // namespace

ShotRenderer::ShotRenderer() = default;
ShotRenderer::~ShotRenderer() = default;

ShotRenderer& ShotRenderer::shared()
{
    static ShotRenderer renderer;
    return renderer;
}

QRectF ShotRenderer::measureGlyphs(const QString& text, bool emoji, double size)
{
    return GlyphLine(text, emoji, size).bounds();
}

std::shared_ptr<ShotTextLayoutManager> ShotRenderer::textLayout(const QUuid& id)
{
    const QMutexLocker lock(&m_textLock);
    auto& manager = m_texts[id];
    if (!manager) {
        if (m_texts.size() > maximumTextLayouts) {
            // Texts of long-closed shots: start afresh rather than grow.
            m_texts.clear();
            return m_texts[id] = std::make_shared<ShotTextLayoutManager>();
        }
        manager = std::make_shared<ShotTextLayoutManager>();
    }
    return manager;
}

QImage ShotRenderer::render(const ShotDocument& document, double scale)
{
    if (!std::isfinite(scale) || scale <= 0) {
        qFatal("ShotRenderer::render: the scale must be finite and positive, not %g", scale);
    }
    const QRectF visible = document.visibleRect();
    const double inset = document.frameInset();
    const QSizeF size = document.exportSize();
    const double width = std::max(1.0, std::ceil(scale * size.width()));
    const double height = std::max(1.0, std::ceil(scale * size.height()));
    if (!(width * height * 4 < double(LLONG_MAX)) || width > INT_MAX / 4 || height > INT_MAX / 4) {
        return {};
    }
    // A shot whose first layer fills the export pixel for pixel (a capture
    // with marks on it) starts as a copy of that layer and is drawn on in
    // its own format: one pass over the pixels instead of four. (Qt draws
    // the same marks in RGBA as in its native format, to a unit of rounding.)
    const bool onBaseLayer =
        !document.frame && coversExport(document, scale, QSize(int(width), int(height)));
    QImage image = onBaseLayer ? document.layers.first().image.copy()
                               : QImage(int(width), int(height),
                                        QImage::Format_ARGB32_Premultiplied);
    if (image.isNull()) {
        return {};
    }
    if (!onBaseLayer) {
        image.fill(Qt::transparent);
    }

    if (visible.width() > 0 && visible.height() > 0) {
        QTransform transform;
        transform.scale(scale, scale);
        const auto content = [&](QPainter& painter) {
            drawContent(painter, document, visible, inset);
        };
        if (document.frame) {
            FrameRenderer::drawWithShadow(image, transform, FrameRenderer::frameShadow(scale),
                                          content);
        } else {
            QPainter painter(&image);
            painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform |
                                   QPainter::TextAntialiasing);
            painter.setTransform(transform);
            drawContent(painter, document, visible, inset, onBaseLayer ? 1 : 0);
        }
    }
    // Drawing runs on Qt's fastest format; the result is RGBA as promised.
    image.convertTo(QImage::Format_RGBA8888_Premultiplied);
    return image;
}

bool ShotRenderer::coversExport(const ShotDocument& document, double scale, const QSize& size)
{
    if (document.layers.isEmpty()) {
        return false;
    }
    const ImageLayer& base = document.layers.first();
    const QImage::Format format = base.image.format();
    return (format == QImage::Format_RGBA8888_Premultiplied ||
            format == QImage::Format_ARGB32_Premultiplied) &&
           base.image.size() == size && base.frame == document.visibleRect() &&
           QSizeF(base.image.size()) == base.frame.size() * scale;
}

void ShotRenderer::drawContent(QPainter& painter, const ShotDocument& document,
                               const QRectF& visible, double inset, qsizetype firstLayer)
{
    painter.setClipRect(QRectF(inset, inset, visible.width(), visible.height()));
    painter.translate(inset - visible.x(), inset - visible.y());

    for (qsizetype i = firstLayer; i < document.layers.size(); ++i) {
        const ImageLayer& layer = document.layers[i];
        if (!layer.frame.intersects(visible) || layer.image.isNull()) {
            continue;
        }
        // A layer that lands pixel for pixel is copied, not resampled.
        const QRectF device = painter.worldTransform().mapRect(layer.frame);
        const QPointF corner(std::round(device.x()), std::round(device.y()));
        if (painter.worldTransform().type() <= QTransform::TxScale &&
            device.size() == QSizeF(layer.image.size()) &&
            std::abs(corner.x() - device.x()) < 1e-6 && std::abs(corner.y() - device.y()) < 1e-6) {
            painter.save();
            painter.resetTransform();
            painter.drawImage(corner, layer.image);
            painter.restore();
        } else {
            painter.drawImage(layer.frame, layer.image);
        }
    }

    // Redactions lie under every other annotation, wherever they are listed.
    for (const Annotation& annotation : document.annotations) {
        if (std::holds_alternative<RedactAnnotation>(annotation.kind)) {
            drawRedaction(painter, document, annotation, visible);
        }
    }
    int counter = 0;
    for (const Annotation& annotation : document.annotations) {
        if (std::holds_alternative<RedactAnnotation>(annotation.kind)) {
            continue;
        }
        const bool isCounter = std::holds_alternative<CounterAnnotation>(annotation.kind);
        counter += isCounter;
        if (annotationBounds(annotation).intersects(visible)) {
            drawAnnotation(painter, annotation, counter);
        }
    }
}

void ShotRenderer::drawRedaction(QPainter& painter, const ShotDocument& document,
                                 const Annotation& redaction, const QRectF& visible)
{
    const auto* redact = redaction.as<RedactAnnotation>();
    Q_ASSERT(redact);
    const QRectF rect = redact->rect.normalized().intersected(visible);
    if (rect.isEmpty()) {
        return;
    }
    const QImage tile = RedactionRenderer::tile(document, rect, redaction.style.strength, m_tiles);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, false); // blocks keep hard edges
    painter.drawImage(rect, tile);
    painter.restore();
    ++m_tileDraws;
}

void ShotRenderer::drawAnnotation(QPainter& painter, const Annotation& annotation,
                                  int counterNumber)
{
    const ShotStyle& style = annotation.style;
    const QColor color = style.color.toQColor();
    const double lineWidth = std::max(style.lineWidth, 0.5);
    QPen pen(color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);

    painter.save();
    std::visit(
        Overloaded{
            [&](const ArrowAnnotation& a) {
                painter.fillPath(ArrowGeometry::outline(a.from, a.to, style.lineWidth), color);
            },
            [&](const LineAnnotation& l) {
                painter.setPen(pen);
                painter.drawLine(l.from, l.to);
            },
            [&](const ShapeAnnotation& s) {
                const QRectF rect = s.rect.normalized();
                QPainterPath path;
                if (s.variant == ShapeVariant::ellipse) {
                    path.addEllipse(rect);
                } else {
                    const double radius = std::min(std::min(std::max(style.lineWidth, 4.0), 6.0),
                                                   std::min(rect.width(), rect.height()) / 2);
                    path.addRoundedRect(rect, radius, radius);
                }
                if (s.variant == ShapeVariant::filledRect) {
                    painter.fillPath(path, color);
                } else {
                    painter.strokePath(path, pen);
                }
            },
            [&](const PenAnnotation& p) {
                if (p.highlighter) {
                    // Multiplied: light paper takes the colour, dark text
                    // stays dark; one path, so crossings do not darken.
                    painter.setCompositionMode(QPainter::CompositionMode_Multiply);
                    QPen marker = pen;
                    marker.setCapStyle(Qt::SquareCap);
                    painter.setPen(marker);
                    if (p.points.size() == 1) {
                        painter.drawPoint(p.points.first());
                    } else {
                        painter.drawPolyline(p.points.constData(), int(p.points.size()));
                    }
                    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
                } else if (p.points.size() == 1) {
                    painter.setPen(Qt::NoPen);
                    painter.setBrush(color);
                    painter.drawEllipse(p.points.first(), lineWidth / 2, lineWidth / 2);
                } else if (p.points.size() > 1) {
                    painter.setPen(pen);
                    painter.drawPolyline(p.points.constData(), int(p.points.size()));
                }
            },
            [&](const CounterAnnotation& c) {
                const double radius = std::max(style.fontSize * 0.8, 12.0);
                const QRectF badge(c.center.x() - radius, c.center.y() - radius, 2 * radius,
                                   2 * radius);
                if (!(badge.width() > 0) || !(badge.height() > 0)) {
                    return;
                }
                painter.setPen(Qt::NoPen);
                painter.setBrush(color);
                painter.drawEllipse(badge);
                painter.setClipRect(badge, Qt::IntersectClip);
                painter.setPen(Qt::white);
                GlyphLine(QString::number(counterNumber), false, style.fontSize)
                    .drawCentred(painter, c.center);
            },
            [&](const EmojiAnnotation& e) {
                const QRectF rect = e.rect.normalized();
                if (!(rect.width() > 0) || !(rect.height() > 0)) {
                    return;
                }
                painter.setClipRect(rect, Qt::IntersectClip);
                GlyphLine(e.emoji, true, rect.height() * 0.8).drawCentred(painter, rect.center());
            },
            [&](const TextAnnotation& t) {
                const QRectF rect = t.content.rect.normalized();
                if (!(rect.width() > 0)) {
                    return;
                }
                const auto manager = textLayout(annotation.id);
                manager->setText(t.content.text, style.fontSize, color);
                manager->setContainerWidth(rect.width());
                manager->setEffects(ShotTextEffects::forStyle(style));
                manager->draw(painter, rect.topLeft());
            },
            [](const RedactAnnotation&) { Q_ASSERT(!"redactions are drawn by drawRedaction"); },
        },
        annotation.kind);
    painter.restore();
}

} // namespace nubo
