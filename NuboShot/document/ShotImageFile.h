#pragma once

#include "document/ShotDocument.h"

#include <QImage>
#include <QString>

#include <optional>

namespace nubo::ShotImageFile {

// Reads an image file (PNG, JPEG, WebP, …) for the editor. Only a regular
// file is read: a pipe, a device or a socket is refused before anything
// waits on it. Images beyond ShotLimits are refused unread. Throws Error
// naming the file and the cause. May block on a slow disk: keep it off the
// main thread where the file comes from outside.
QImage read(const QString& path);

// WebP and HEIF bytes (what Qt reads without plugins is left to it):
// the image, checked against ShotLimits before its pixels are decoded;
// nullopt for other bytes. Throws Error naming `name`.
std::optional<QImage> decodeOwnFormats(const QByteArray& bytes, const QString& name);

// The pixels per point an image's density stands for: whole multiples of
// 72 dpi from 2 up, else 1.
double pixelDensity(const QImage& image);

// The image file as a one-layer document at its density; throws Error.
ShotDocument readDocument(const QString& path);
// A regular file's bytes, opened as above; throws Error when it is larger
// than `maximumBytes` or cannot be read.
QByteArray readBytes(const QString& path, qint64 maximumBytes);

} // namespace nubo::ShotImageFile
