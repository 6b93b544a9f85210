#include "document/ShotDocumentCoding.h"

#include "core/Overloaded.h"

#include <cmath>

namespace nubo::coding {

namespace {

[[noreturn]] void fail(QString reason)
{
    throw DecodingFailure{std::move(reason)};
}

QJsonObject payload(const char* key, QJsonValue value)
{
    return QJsonObject{{QLatin1String(key), std::move(value)}};
}

} // namespace

QJsonArray encodePoint(QPointF point)
{
    return QJsonArray{point.x(), point.y()};
}

QJsonArray encodeRect(const QRectF& rect)
{
    return QJsonArray{QJsonArray{rect.x(), rect.y()}, QJsonArray{rect.width(), rect.height()}};
}

QJsonObject encodeColor(const ShotColor& color)
{
    return {{QStringLiteral("red"), color.red},
            {QStringLiteral("green"), color.green},
            {QStringLiteral("blue"), color.blue},
            {QStringLiteral("alpha"), color.alpha}};
}

QJsonObject encodeStyle(const ShotStyle& style)
{
    return {{QStringLiteral("color"), encodeColor(style.color)},
            {QStringLiteral("lineWidth"), style.lineWidth},
            {QStringLiteral("fontSize"), style.fontSize},
            {QStringLiteral("strength"), style.strength},
            {QStringLiteral("textOutline"), style.textOutline}};
}

QJsonObject encodeKind(const AnnotationKind& kind)
{
    const QJsonObject inner = std::visit(
        Overloaded{
            [](const ArrowAnnotation& a) {
                return QJsonObject{{QStringLiteral("from"), encodePoint(a.from)},
                                   {QStringLiteral("to"), encodePoint(a.to)}};
            },
            [](const LineAnnotation& l) {
                return QJsonObject{{QStringLiteral("from"), encodePoint(l.from)},
                                   {QStringLiteral("to"), encodePoint(l.to)}};
            },
            [](const ShapeAnnotation& s) {
                return QJsonObject{{QStringLiteral("_0"), toString(s.variant)},
                                   {QStringLiteral("_1"), encodeRect(s.rect)}};
            },
            [](const TextAnnotation& t) {
                return payload("_0",
                               QJsonObject{{QStringLiteral("text"), t.content.text},
                                           {QStringLiteral("rect"), encodeRect(t.content.rect)}});
            },
            [](const EmojiAnnotation& e) {
                return QJsonObject{{QStringLiteral("_0"), e.emoji},
                                   {QStringLiteral("_1"), encodeRect(e.rect)}};
            },
            [](const CounterAnnotation& c) { return payload("center", encodePoint(c.center)); },
            [](const PenAnnotation& p) {
                QJsonArray points;
                for (const QPointF& point : p.points) {
                    points.append(encodePoint(point));
                }
                QJsonObject stroke = payload("_0", points);
                if (p.highlighter) {
                    stroke.insert(QStringLiteral("highlighter"), true);
                }
                return stroke;
            },
            [](const RedactAnnotation& r) { return payload("_0", encodeRect(r.rect)); },
        },
        kind);
    return QJsonObject{{toString(kindName(kind)), inner}};
}

QJsonObject encodeAnnotation(const Annotation& annotation)
{
    return {{QStringLiteral("id"), encodeUuid(annotation.id)},
            {QStringLiteral("kind"), encodeKind(annotation.kind)},
            {QStringLiteral("style"), encodeStyle(annotation.style)}};
}

QString encodeUuid(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces).toUpper();
}

QJsonValue required(const QJsonObject& object, const char* key)
{
    const auto it = object.constFind(QLatin1String(key));
    if (it == object.constEnd() || it->isNull()) {
        fail(QStringLiteral("\u201c%1\u201d is missing").arg(QLatin1String(key)));
    }
    return *it;
}

double decodeNumber(const QJsonValue& value, const char* what)
{
    if (!value.isDouble()) {
        fail(QStringLiteral("%1 is not a number").arg(QLatin1String(what)));
    }
    return value.toDouble();
}

QString decodeString(const QJsonValue& value, const char* what)
{
    if (!value.isString()) {
        fail(QStringLiteral("%1 is not a string").arg(QLatin1String(what)));
    }
    return value.toString();
}

QJsonObject decodeObject(const QJsonValue& value, const char* what)
{
    if (!value.isObject()) {
        fail(QStringLiteral("%1 is not an object").arg(QLatin1String(what)));
    }
    return value.toObject();
}

QJsonArray decodeArray(const QJsonValue& value, const char* what)
{
    if (!value.isArray()) {
        fail(QStringLiteral("%1 is not an array").arg(QLatin1String(what)));
    }
    return value.toArray();
}

namespace {
std::pair<double, double> decodePair(const QJsonValue& value, const char* what)
{
    const QJsonArray array = decodeArray(value, what);
    if (array.size() != 2) {
        fail(QStringLiteral("%1 does not hold two numbers").arg(QLatin1String(what)));
    }
    return {decodeNumber(array[0], what), decodeNumber(array[1], what)};
}
} // namespace

QPointF decodePoint(const QJsonValue& value, const char* what)
{
    const auto [x, y] = decodePair(value, what);
    return {x, y};
}

QRectF decodeRect(const QJsonValue& value, const char* what)
{
    const QJsonArray array = decodeArray(value, what);
    if (array.size() != 2) {
        fail(QStringLiteral("%1 is not an origin and a size").arg(QLatin1String(what)));
    }
    const auto [x, y] = decodePair(array[0], what);
    const auto [width, height] = decodePair(array[1], what);
    return {x, y, width, height};
}

ShotColor decodeColor(const QJsonValue& value)
{
    const QJsonObject o = decodeObject(value, "the colour");
    return {decodeNumber(required(o, "red"), "red"), decodeNumber(required(o, "green"), "green"),
            decodeNumber(required(o, "blue"), "blue"), decodeNumber(required(o, "alpha"), "alpha")};
}

ShotStyle decodeStyle(const QJsonValue& value)
{
    const QJsonObject o = decodeObject(value, "the style");
    bool textOutline = true; // styles from before the flag existed keep the outline
    const QJsonValue outline = o.value(QStringLiteral("textOutline"));
    if (!outline.isUndefined() && !outline.isNull()) {
        if (!outline.isBool()) {
            fail(QStringLiteral("textOutline is not a Boolean"));
        }
        textOutline = outline.toBool();
    }
    return ShotStyle(decodeColor(required(o, "color")),
                     decodeNumber(required(o, "lineWidth"), "lineWidth"),
                     decodeNumber(required(o, "fontSize"), "fontSize"), textOutline,
                     decodeNumber(required(o, "strength"), "strength"));
}

AnnotationKind decodeKind(const QJsonValue& value)
{
    const QJsonObject o = decodeObject(value, "the annotation kind");
    if (o.size() != 1) {
        fail(QStringLiteral("the annotation kind does not name exactly one case"));
    }
    const QString name = o.constBegin().key();
    const auto kind = fromString<AnnotationKindName>(name);
    if (!kind) {
        fail(QStringLiteral("\u201c%1\u201d is not an annotation kind").arg(name));
    }
    const QJsonObject p = decodeObject(o.constBegin().value(), "the annotation payload");
    switch (*kind) {
    case AnnotationKindName::arrow:
        return ArrowAnnotation{decodePoint(required(p, "from"), "from"),
                               decodePoint(required(p, "to"), "to")};
    case AnnotationKindName::line:
        return LineAnnotation{decodePoint(required(p, "from"), "from"),
                              decodePoint(required(p, "to"), "to")};
    case AnnotationKindName::shape: {
        const QString variantName = decodeString(required(p, "_0"), "the shape");
        const auto variant = fromString<ShapeVariant>(variantName);
        if (!variant) {
            fail(QStringLiteral("\u201c%1\u201d is not a shape").arg(variantName));
        }
        return ShapeAnnotation{*variant, decodeRect(required(p, "_1"), "the shape's rectangle")};
    }
    case AnnotationKindName::text: {
        const QJsonObject t = decodeObject(required(p, "_0"), "the text");
        return TextAnnotation{
            TextContent{truncatedText(decodeString(required(t, "text"), "the text"),
                                      TextContent::maximumLength),
                        decodeRect(required(t, "rect"), "the text's rectangle")}};
    }
    case AnnotationKindName::emoji:
        return EmojiAnnotation{truncatedText(decodeString(required(p, "_0"), "the emoji"),
                                             EmojiAnnotation::maximumLength),
                               decodeRect(required(p, "_1"), "the emoji's rectangle")};
    case AnnotationKindName::counter:
        return CounterAnnotation{decodePoint(required(p, "center"), "center")};
    case AnnotationKindName::pen: {
        PenAnnotation pen;
        const QJsonArray points = decodeArray(required(p, "_0"), "the pen stroke");
        pen.points.reserve(points.size());
        for (const QJsonValue& point : points) {
            pen.points.append(decodePoint(point, "a pen point"));
        }
        // Absent in pen strokes and in archives written before markers.
        pen.highlighter = p.value(QLatin1String("highlighter")).toBool(false);
        return pen;
    }
    case AnnotationKindName::redact:
        return RedactAnnotation{decodeRect(required(p, "_0"), "the redaction's rectangle")};
    }
    fail(QStringLiteral("unknown annotation kind"));
}

Annotation decodeAnnotation(const QJsonValue& value)
{
    const QJsonObject o = decodeObject(value, "an annotation");
    return Annotation{decodeUuid(required(o, "id"), "an annotation id"),
                      decodeKind(required(o, "kind")), decodeStyle(required(o, "style"))};
}

QUuid decodeUuid(const QJsonValue& value, const char* what)
{
    const QString text = decodeString(value, what);
    // Only the canonical 36-character form, in either case.
    const QUuid id = text.size() == 36 ? QUuid::fromString(text) : QUuid();
    if (id.isNull() && text != QLatin1String("00000000-0000-0000-0000-000000000000")) {
        fail(QStringLiteral("%1 is not a UUID").arg(QLatin1String(what)));
    }
    return id;
}

} // namespace nubo::coding
