#pragma once

#include "core/EnumStrings.h"
#include "document/ShotStyle.h"

#include <QList>
#include <QPointF>
#include <QRectF>
#include <QString>
#include <QUuid>

#include <variant>

namespace nubo {

enum class ShapeVariant { rect, filledRect, ellipse };
template <> struct EnumNames<ShapeVariant> {
    static constexpr std::array names{"rect", "filledRect", "ellipse"};
};

// `text` cut to at most `length` code units, never inside a surrogate pair.
QString truncatedText(const QString& text, qsizetype length);

struct TextContent {
    // Longer texts are cut here when decoded or typed: far beyond any note,
    // and short enough to lay out and draw in well under a second.
    static constexpr qsizetype maximumLength = 10000; // UTF-16 code units
    QString text; // may hold line breaks
    QRectF rect;  // the text box in document space
    bool operator==(const TextContent&) const = default;
};

// The payload of each kind of annotation. The order of the alternatives is the
// order of the kinds in storage.
struct ArrowAnnotation {
    QPointF from; // tail
    QPointF to;   // tip
    bool operator==(const ArrowAnnotation&) const = default;
};
struct LineAnnotation {
    QPointF from;
    QPointF to;
    bool operator==(const LineAnnotation&) const = default;
};
struct ShapeAnnotation {
    ShapeVariant variant = ShapeVariant::rect;
    QRectF rect;
    bool operator==(const ShapeAnnotation&) const = default;
};
struct TextAnnotation {
    TextContent content;
    bool operator==(const TextAnnotation&) const = default;
};
struct EmojiAnnotation {
    // One emoji, even the longest joined sequence, is far shorter.
    static constexpr qsizetype maximumLength = 64; // UTF-16 code units
    QString emoji;
    QRectF rect;
    bool operator==(const EmojiAnnotation&) const = default;
};
// A counter's number is not stored: it is its 1-based position among the
// document's counters.
struct CounterAnnotation {
    QPointF center;
    bool operator==(const CounterAnnotation&) const = default;
};
struct PenAnnotation {
    QList<QPointF> points;
    // A marker's stroke: multiplied into what is under it, so text stays
    // readable through it.
    bool highlighter = false;
    bool operator==(const PenAnnotation&) const = default;
};
struct RedactAnnotation {
    QRectF rect;
    bool operator==(const RedactAnnotation&) const = default;
};

using AnnotationKind =
    std::variant<ArrowAnnotation, LineAnnotation, ShapeAnnotation, TextAnnotation, EmojiAnnotation,
                 CounterAnnotation, PenAnnotation, RedactAnnotation>;

// The kinds by name, in the order of AnnotationKind's alternatives.
enum class AnnotationKindName { arrow, line, shape, text, emoji, counter, pen, redact };
template <> struct EnumNames<AnnotationKindName> {
    static constexpr std::array names{"arrow", "line",    "shape", "text",
                                      "emoji", "counter", "pen",   "redact"};
};
static_assert(enumCount<AnnotationKindName>() == std::variant_size_v<AnnotationKind>);

inline AnnotationKindName kindName(const AnnotationKind& kind)
{
    return static_cast<AnnotationKindName>(kind.index());
}

struct Annotation {
    QUuid id;
    AnnotationKind kind;
    ShotStyle style;

    bool operator==(const Annotation&) const = default;

    template <class K> const K* as() const { return std::get_if<K>(&kind); }
};

// The rectangle in document space that the annotation's drawing covers.
QRectF annotationBounds(const Annotation& annotation);

// Whether the point hits the annotation, with a tolerance in points (≥ 0).
bool annotationHitTest(const Annotation& annotation, QPointF point, double tolerance);

// Every coordinate and style number is finite.
bool annotationIsFinite(const Annotation& annotation);

} // namespace nubo
