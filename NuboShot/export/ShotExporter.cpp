#include "export/ShotExporter.h"

#include "export/ImageWriter.h"
#include "render/ShotRenderer.h"

#include <QFileInfo>

#include <cmath>

namespace nubo {

ShotExportError::ShotExportError(Code code)
    : Error(QStringLiteral("Invalid screenshot export options.")), m_code(code)
{}

QSizeF ShotExporter::exportSize(const ShotDocument& document)
{
    const double pad = document.frame ? 2 * std::max(document.frame->padding, 0.0) : 0.0;
    const QRectF extent = (document.crop ? *document.crop : document.canvasBounds).normalized();
    return {extent.width() + pad, extent.height() + pad};
}

void ShotExporter::validate(const ShotDocument& document, double quality, double scale)
{
    const QSizeF size = exportSize(document);
    const double w = size.width();
    const double h = size.height();
    const bool valid = (scale == 1.0 || scale == 2.0) && std::isfinite(quality) && quality >= 0 &&
                       quality <= 1 && std::isfinite(w) && std::isfinite(h) && w > 0 && h > 0 &&
                       scale * w <= maximumSide && scale * h <= maximumSide &&
                       scale * scale * (w * h) <= maximumPixels;
    if (!valid) {
        throw ShotExportError();
    }
}

void ShotExporter::exportShot(const ShotDocument& document, ShotFormat format, const QString& path,
                              double quality, double scale)
{
    exportShot(ShotRenderer::shared(), document, format, path, quality, scale);
}

void ShotExporter::exportShot(ShotRenderer& renderer, const ShotDocument& document,
                              ShotFormat format, const QString& path, double quality, double scale)
{
    validate(document, quality, scale);
    // A bare capture at its own density is its image: nothing to draw.
    const QImage image = isBareCapture(document, scale) ? document.layers.first().image
                                                        : renderer.render(document, scale);
    if (image.isNull()) {
        throw ImageWriterError(QFileInfo(path).fileName(),
                               QStringLiteral("there is not enough memory to draw it"));
    }
    ImageWriter::write(image, writerFormat(format), quality, scale, path);
}

bool ShotExporter::isBareCapture(const ShotDocument& document, double scale)
{
    if (document.layers.size() != 1 || !document.annotations.isEmpty() || document.frame) {
        return false;
    }
    const ImageLayer& layer = document.layers.first();
    const QRectF visible = (document.crop ? *document.crop : document.canvasBounds).normalized();
    return visible == layer.frame && layer.frame.topLeft() == QPointF(0, 0) &&
           QSizeF(layer.image.size()) == layer.frame.size() * scale &&
           layer.image.format() == QImage::Format_RGBA8888_Premultiplied;
}

double ShotExporter::defaultScale(const ShotDocument& document)
{
    for (const ImageLayer& layer : document.layers) {
        if (layer.frame.width() > 0 && layer.image.width() / layer.frame.width() >= 1.5) {
            return 2.0;
        }
    }
    return 1.0;
}

} // namespace nubo
