#include "document/ShotDocument.h"

#include "core/Error.h"
#include "core/Geometry.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace nubo {

ShotDocument ShotDocument::fromImage(const QImage& image, double pixelsPerPoint)
{
    Q_ASSERT(std::isfinite(pixelsPerPoint) && pixelsPerPoint > 0);
    ImageLayer layer;
    layer.id = QUuid::createUuid();
    layer.image = image;
    layer.frame = QRectF(0, 0, image.width() / pixelsPerPoint, image.height() / pixelsPerPoint);

    ShotDocument document;
    document.canvasBounds = layer.frame;
    document.layers.append(std::move(layer));
    if (const QString problem = document.limitProblem(); !problem.isEmpty()) {
        throw Error(problem);
    }
    if (image.format() != QImage::Format_RGBA8888_Premultiplied) {
        QImage converted = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
        if (converted.isNull()) {
            throw Error(
                QCoreApplication::translate("nubo::ShotDocument",
                                            "There is not enough memory for an image of %1 × %2 "
                                            "pixels.")
                    .arg(image.width())
                    .arg(image.height()));
        }
        document.layers.first().image = std::move(converted);
    }
    return document;
}

QString ShotDocument::limitProblem() const
{
    using namespace ShotLimits;
    qint64 total = 0;
    for (const ImageLayer& layer : layers) {
        const QSize size = layer.image.size();
        if (layer.image.isNull()) {
            return QCoreApplication::translate(
                "nubo::ShotDocument", "An image of the shot is missing (there may not have been "
                                      "enough memory for it).");
        }
        const qint64 pixels = qint64(size.width()) * size.height();
        if (size.width() > maximumImageSide || size.height() > maximumImageSide ||
            pixels > maximumImagePixels) {
            return QCoreApplication::translate(
                       "nubo::ShotDocument",
                       "An image of %1 × %2 pixels is too large: Nubo Shot takes "
                       "images of up to %L3 pixels, none wider or taller than %L4.")
                .arg(size.width())
                .arg(size.height())
                .arg(maximumImagePixels)
                .arg(maximumImageSide);
        }
        total += pixels;
    }
    if (total > maximumTotalPixels) {
        return QCoreApplication::translate(
                   "nubo::ShotDocument",
                   "The images of this shot would hold %L1 pixels together; a shot "
                   "holds at most %L2.")
            .arg(total)
            .arg(maximumTotalPixels);
    }
    const QRectF canvas = canvasBounds.normalized();
    if (canvas.width() > maximumCanvasSide || canvas.height() > maximumCanvasSide) {
        return QCoreApplication::translate(
                   "nubo::ShotDocument",
                   "The shot would be %L1 × %L2 points; it may be at most %L3 "
                   "points wide and tall.")
            .arg(std::ceil(canvas.width()))
            .arg(std::ceil(canvas.height()))
            .arg(maximumCanvasSide);
    }
    return {};
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

ArrowSizePreset nearestArrowSizePreset(double width)
{
    ArrowSizePreset nearest = ArrowSizePreset::s;
    for (const ArrowSizePreset preset : allCases<ArrowSizePreset>()) {
        if (std::abs(arrowWidth(preset) - width) < std::abs(arrowWidth(nearest) - width)) {
            nearest = preset;
        }
    }
    return nearest;
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
