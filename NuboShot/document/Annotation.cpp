#include "document/Annotation.h"

#include "core/ArrowGeometry.h"
#include "core/Geometry.h"
#include "core/Overloaded.h"

#include <QPainterPath>
#include <QPainterPathStroker>

#include <algorithm>
#include <cmath>

namespace nubo {

QString truncatedText(const QString& text, qsizetype length)
{
    if (text.size() <= length) {
        return text;
    }
    if (length > 0 && text.at(length - 1).isHighSurrogate()) {
        --length;
    }
    return text.left(length);
}

namespace {

// Lines and arrows measure half their width, with a floor for hairlines.
double halfLineWidth(const ShotStyle& style)
{
    return style.lineWidth < 0.5 ? 0.25 : style.lineWidth / 2;
}

double counterRadius(const ShotStyle& style)
{
    return std::max(style.fontSize * 0.8, 12.0);
}

QRectF spanned(QPointF a, QPointF b)
{
    return QRectF(a, b).normalized();
}

QRectF grown(const QRectF& rect, double by)
{
    return rect.adjusted(-by, -by, by, by);
}

bool strokeContains(const QPainterPath& path, double width, QPointF point)
{
    if (width <= 0) {
        return false;
    }
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::RoundCap);
    stroker.setJoinStyle(Qt::RoundJoin);
    return stroker.createStroke(path).contains(point);
}

} // namespace

QRectF annotationBounds(const Annotation& annotation)
{
    const ShotStyle& style = annotation.style;
    return std::visit(Overloaded{
                          [&](const ArrowAnnotation& a) {
                              return grown(spanned(a.from, a.to), halfLineWidth(style));
                          },
                          [&](const LineAnnotation& l) {
                              return grown(spanned(l.from, l.to), halfLineWidth(style));
                          },
                          [](const ShapeAnnotation& s) { return s.rect.normalized(); },
                          [&](const TextAnnotation& t) {
                              return grown(t.content.rect.normalized(),
                                           ShotTextEffects::forStyle(style).padding());
                          },
                          [](const EmojiAnnotation& e) { return e.rect.normalized(); },
                          [&](const CounterAnnotation& c) {
                              const double r = counterRadius(style);
                              return QRectF(c.center.x() - r, c.center.y() - r, 2 * r, 2 * r);
                          },
                          [&](const PenAnnotation& p) {
                              if (p.points.isEmpty()) {
                                  return QRectF();
                              }
                              // Grown by half the drawn width so that redraws cover the ink.
                              double left = p.points.first().x(), right = left;
                              double top = p.points.first().y(), bottom = top;
                              for (const QPointF& point : p.points) {
                                  left = std::min(left, point.x());
                                  right = std::max(right, point.x());
                                  top = std::min(top, point.y());
                                  bottom = std::max(bottom, point.y());
                              }
                              const QRectF box(QPointF(left, top), QPointF(right, bottom));
                              return grown(box, std::max(style.lineWidth, 0.5) / 2);
                          },
                          [](const RedactAnnotation& r) { return r.rect.normalized(); },
                      },
                      annotation.kind);
}

bool annotationHitTest(const Annotation& annotation, QPointF p, double tolerance)
{
    const double t = std::isfinite(tolerance) ? std::max(tolerance, 0.0) : 0.0;
    const ShotStyle& style = annotation.style;
    return std::visit(
        Overloaded{
            [&](const ArrowAnnotation& a) {
                const QPainterPath outline = ArrowGeometry::outline(a.from, a.to, style.lineWidth);
                if (outline.isEmpty()) {
                    return false;
                }
                return outline.contains(p) || (t > 0 && strokeContains(outline, 2 * t, p));
            },
            [&](const LineAnnotation& l) {
                return ShotGeometry::distanceToSegment(p, l.from, l.to) <= halfLineWidth(style) + t;
            },
            [&](const ShapeAnnotation& s) {
                const double tt = std::max(t, style.lineWidth / 2);
                const QRectF rect = s.rect.normalized();
                switch (s.variant) {
                case ShapeVariant::filledRect:
                    return grown(rect, tt).contains(p);
                case ShapeVariant::rect: {
                    // Only the band along the edge: clicks inside an outlined
                    // rectangle reach what lies under it.
                    if (!grown(rect, tt).contains(p)) {
                        return false;
                    }
                    const QRectF inner = grown(rect, -tt);
                    return inner.width() <= 0 || inner.height() <= 0 || !inner.contains(p);
                }
                case ShapeVariant::ellipse: {
                    QPainterPath ellipse;
                    ellipse.addEllipse(rect);
                    return strokeContains(ellipse, 2 * tt, p);
                }
                }
                return false;
            },
            [&](const PenAnnotation& pen) {
                if (pen.points.isEmpty()) {
                    return false;
                }
                // The ink reaches half the drawn width from the stroke's path.
                const double reach = std::max(style.lineWidth, 0.5) / 2 + t;
                if (pen.points.size() == 1) {
                    return ShotGeometry::distanceToSegment(p, pen.points[0], pen.points[0]) <=
                           reach;
                }
                for (qsizetype i = 1; i < pen.points.size(); ++i) {
                    if (ShotGeometry::distanceToSegment(p, pen.points[i - 1], pen.points[i]) <=
                        reach) {
                        return true;
                    }
                }
                return false;
            },
            [&](const auto&) { return annotationBounds(annotation).contains(p); },
        },
        annotation.kind);
}

bool annotationIsFinite(const Annotation& annotation)
{
    using ShotGeometry::isFinite;
    const ShotStyle& s = annotation.style;
    const bool styleFinite = std::isfinite(s.color.red) && std::isfinite(s.color.green) &&
                             std::isfinite(s.color.blue) && std::isfinite(s.color.alpha) &&
                             std::isfinite(s.lineWidth) && std::isfinite(s.fontSize) &&
                             std::isfinite(s.strength);
    return styleFinite &&
           std::visit(
               Overloaded{
                   [](const ArrowAnnotation& a) { return isFinite(a.from) && isFinite(a.to); },
                   [](const LineAnnotation& l) { return isFinite(l.from) && isFinite(l.to); },
                   [](const ShapeAnnotation& s) { return isFinite(s.rect); },
                   [](const TextAnnotation& t) { return isFinite(t.content.rect); },
                   [](const EmojiAnnotation& e) { return isFinite(e.rect); },
                   [](const CounterAnnotation& c) { return isFinite(c.center); },
                   [](const PenAnnotation& p) {
                       return std::all_of(p.points.begin(), p.points.end(),
                                          [](QPointF q) { return isFinite(q); });
                   },
                   [](const RedactAnnotation& r) { return isFinite(r.rect); },
               },
               annotation.kind);
}

} // namespace nubo
