#include "document/ShotDocument.h"

#include "core/Geometry.h"

#include <algorithm>
#include <cmath>

namespace nubo {

ShotDocument ShotDocument::fromImage(const QImage& image, double pixelsPerPoint)
{
    Q_ASSERT(std::isfinite(pixelsPerPoint) && pixelsPerPoint > 0);
    ImageLayer layer;
    layer.id = QUuid::createUuid();
    layer.image = image.format() == QImage::Format_RGBA8888_Premultiplied
                      ? image
                      : image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    layer.frame = QRectF(0, 0, image.width() / pixelsPerPoint, image.height() / pixelsPerPoint);

    ShotDocument document;
    document.canvasBounds = layer.frame;
    document.layers.append(std::move(layer));
    return document;
}

bool ShotDocument::isFinite() const
{
    using ShotGeometry::isFinite;
    return isFinite(canvasBounds) && (!crop || isFinite(*crop)) &&
           (!frame || std::isfinite(frame->padding)) &&
           std::all_of(layers.begin(), layers.end(),
                       [](const ImageLayer& layer) { return isFinite(layer.frame); }) &&
           std::all_of(annotations.begin(), annotations.end(), annotationIsFinite);
}

double arrowWidth(ArrowSizePreset preset)
{
    switch (preset) {
    case ArrowSizePreset::s:
        return 2;
    case ArrowSizePreset::m:
        return 4;
    case ArrowSizePreset::l:
        return 6;
    case ArrowSizePreset::xl:
        return 10;
    }
    return 4;
}

QRectF ShotDocument::visibleRect() const
{
    return (crop ? *crop : canvasBounds).normalized();
}

double ShotDocument::frameInset() const
{
    return frame ? std::max(frame->padding, 0.0) : 0.0;
}

QSizeF ShotDocument::exportSize() const
{
    const double pad = 2 * frameInset();
    const QRectF visible = visibleRect();
    return {visible.width() + pad, visible.height() + pad};
}

QPointF ShotDocument::exportPoint(QPointF documentPoint, double scale) const
{
    const double inset = frameInset();
    return (documentPoint - visibleRect().topLeft() + QPointF(inset, inset)) * scale;
}

} // namespace nubo
