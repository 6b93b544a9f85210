#pragma once

#include "core/EnumStrings.h"
#include "core/ResizeHandle.h"
#include "document/Annotation.h"

#include <QImage>
#include <QList>
#include <QRectF>
#include <QUuid>

#include <optional>

namespace nubo {

// One image placed on the canvas. The image is shared, never changed once
// made, and compared by identity.
struct ImageLayer {
    QUuid id;
    QImage image;
    QRectF frame; // where the image is drawn, in document space

    bool operator==(const ImageLayer& other) const
    {
        return id == other.id && image.cacheKey() == other.image.cacheKey() && frame == other.frame;
    }
};

struct FrameStyle {
    static constexpr double defaultPadding = 28;
    double padding = defaultPadding;
    bool operator==(const FrameStyle&) const = default;
};

// How much one shot may hold, wherever it comes from (a capture, a file, an
// archive, a paste): the most a layer image may have (16384 × 16384 pixels'
// worth, 1 GB, and no side over 65536) and all layers together (2 GB), and
// the widest canvas (65536 points, as much as an export can take).
namespace ShotLimits {
inline constexpr int maximumImageSide = 65'536;
inline constexpr qint64 maximumImagePixels = 268'435'456;
inline constexpr qint64 maximumTotalPixels = 536'870'912;
inline constexpr double maximumCanvasSide = 65'536;
} // namespace ShotLimits

// The editable form of one capture. A plain value: copying one shares its
// images and its arrays until either copy changes them.
struct ShotDocument {
    QList<ImageLayer> layers;        // bottom first
    QList<Annotation> annotations;   // bottom first; drawing order
    std::optional<QRectF> crop;      // absent: uncropped
    std::optional<FrameStyle> frame; // absent: no frame
    QRectF canvasBounds;

    bool operator==(const ShotDocument&) const = default;

    // A document of one image, its frame the image's size in points at the
    // given pixels per point. Throws Error when the image is beyond
    // ShotLimits or there is no memory to convert it.
    static ShotDocument fromImage(const QImage& image, double pixelsPerPoint = 1);

    // Why the document is beyond ShotLimits, in words for the user; empty
    // when it is within them.
    QString limitProblem() const;

    // Every piece of geometry and every number is finite.
    bool isFinite() const;

    // What is shown and exported: the crop, else the canvas, standardised.
    QRectF visibleRect() const;
    // The frame's padding around the visible rectangle; 0 without a frame.
    double frameInset() const;
    // The size in points an export covers: the visible rectangle and the
    // frame's padding on every side.
    QSizeF exportSize() const;
    // Where a document point lands in an export drawn at `scale`.
    QPointF exportPoint(QPointF documentPoint, double scale) const;
};

enum class ArrowSizePreset { s, m, l, xl };
template <> struct EnumNames<ArrowSizePreset> {
    static constexpr std::array names{"s", "m", "l", "xl"};
};
// The arrow line width a preset stands for, in points.
double arrowWidth(ArrowSizePreset preset);
// The preset whose width is nearest (a width set elsewhere may lie between).
ArrowSizePreset nearestArrowSizePreset(double width);


// Ties one display to document space. `globalFrame` is the display in the
// desktop's global logical coordinates (for placing windows), `captureFrame`
// the same display in the capture backend's coordinates (both origin top-left).
struct ScreenSpace {
    quint32 displayID = 0;
    QRectF globalFrame;
    QRectF captureFrame;
    double scale = 1; // pixels per point

    bool operator==(const ScreenSpace&) const = default;
};

} // namespace nubo
