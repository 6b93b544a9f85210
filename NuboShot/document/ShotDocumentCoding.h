#pragma once

#include "document/ShotDocument.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QJsonValue>
#include <QString>

// The JSON form of the document's parts, as stored in shot archives.
// Points are [x, y], sizes [width, height], rectangles [[x, y], [width, height]];
// an annotation kind is an object with one key naming the case.
namespace nubo::coding {

// Thrown by the decoders; says what was wrong and where.
struct DecodingFailure {
    QString reason;
};

QJsonArray encodePoint(QPointF point);
QJsonArray encodeRect(const QRectF& rect);
QJsonObject encodeColor(const ShotColor& color);
QJsonObject encodeStyle(const ShotStyle& style);
QJsonObject encodeKind(const AnnotationKind& kind);
QJsonObject encodeAnnotation(const Annotation& annotation);
QString encodeUuid(const QUuid& id); // canonical upper-case form

QPointF decodePoint(const QJsonValue& value, const char* what);
QRectF decodeRect(const QJsonValue& value, const char* what);
ShotColor decodeColor(const QJsonValue& value);
ShotStyle decodeStyle(const QJsonValue& value);
AnnotationKind decodeKind(const QJsonValue& value);
Annotation decodeAnnotation(const QJsonValue& value);
QUuid decodeUuid(const QJsonValue& value, const char* what);
double decodeNumber(const QJsonValue& value, const char* what);
QString decodeString(const QJsonValue& value, const char* what);
QJsonObject decodeObject(const QJsonValue& value, const char* what);
QJsonArray decodeArray(const QJsonValue& value, const char* what);
// The member of an object that must be present.
QJsonValue required(const QJsonObject& object, const char* key);

} // namespace nubo::coding
