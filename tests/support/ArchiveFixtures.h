#pragma once

#include "document/ShotDocument.h"

#include <QByteArray>
#include <QImage>
#include <QJsonObject>
#include <QString>

namespace nubo::test {

// An opaque image whose pixels differ from each other, so that a shifted or
// swapped layer shows.
QImage patternImage(int width, int height, int seed = 0);

// A document over one pattern image holding one annotation of every kind.
ShotDocument documentWithEveryKind();

// Layers compared by id, frame and pixels (a read image is a new object).
void expectSameDocument(const ShotDocument& expected, const ShotDocument& actual);

QJsonObject readManifest(const QString& folder);
void writeManifest(const QString& folder, const QJsonObject& manifest);
void writeFile(const QString& path, const QByteArray& data);
// A file's bytes; empty when it cannot be read.
QByteArray readFile(const QString& path);

// The start of a PNG file that claims the given size; it decodes no pixels.
QByteArray pngHeaderClaiming(quint32 width, quint32 height);

} // namespace nubo::test
