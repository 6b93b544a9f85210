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
    return document.exportSize();
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

QImage ShotExporter::flatten(ShotRenderer& renderer, const ShotDocument& document, double scale,
                            const QString& fileName)
{
    validate(document, 1, scale);
    const QImage image = isBareCapture(document, scale) ? document.layers.first().image
                                                        : renderer.render(document, scale);
    if (image.isNull()) {
        throw ImageWriterError(fileName, QStringLiteral("there is not enough memory to draw it"));
    }
    return image;
}

QByteArray ShotExporter::encode(ShotRenderer& renderer, const ShotDocument& document,
                                ShotFormat format, double quality, double scale,
                                const QString& fileName, QImage* drawn)
{
    validate(document, quality, scale);
    const QImage image = flatten(renderer, document, scale, fileName);
    if (drawn) {
        *drawn = image;
    }
    return ImageWriter::encode(image, writerFormat(format), quality, scale, fileName);
}

void ShotExporter::exportShot(const ShotDocument& document, ShotFormat format, const QString& path,
                              double quality, double scale)
{
    exportShot(ShotRenderer::shared(), document, format, path, quality, scale);
}

void ShotExporter::exportShot(ShotRenderer& renderer, const ShotDocument& document,
                              ShotFormat format, const QString& path, double quality, double scale,
                              QImage* drawn)
{
    const QString fileName = QFileInfo(path).fileName();
    ImageWriter::writeData(encode(renderer, document, format, quality, scale, fileName, drawn),
                           path);
}

bool ShotExporter::isBareCapture(const ShotDocument& document, double scale)
{
    if (document.layers.size() != 1 || !document.annotations.isEmpty() || document.frame) {
        return false;
    }
    const ImageLayer& layer = document.layers.first();
    const QRectF visible = document.visibleRect();
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
