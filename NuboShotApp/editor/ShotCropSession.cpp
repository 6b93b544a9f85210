#include "editor/ShotCropSession.h"

#include <algorithm>
#include <cmath>

namespace nubo {

std::optional<double> aspectRatio(CropAspect aspect)
{
    switch (aspect) {
    case CropAspect::free:
        return std::nullopt;
    case CropAspect::square:
        return 1.0;
    case CropAspect::fourThree:
        return 4.0 / 3.0;
    case CropAspect::sixteenNine:
        return 16.0 / 9.0;
    }
    return std::nullopt;
}

QRectF ShotCropSession::fitted(const QRectF& rect, const QRectF& bounds)
{
    const QRectF r = rect.normalized();
    const double factor = std::min({bounds.width() / std::max(r.width(), 1.0),
                                    bounds.height() / std::max(r.height(), 1.0), 1.0});
    const double width = std::max(r.width() * factor, 1.0);
    const double height = std::max(r.height() * factor, 1.0);
    const double x =
        std::clamp(r.x(), bounds.left(), std::max(bounds.left(), bounds.right() - width));
    const double y =
        std::clamp(r.y(), bounds.top(), std::max(bounds.top(), bounds.bottom() - height));
    return {x, y, width, height};
}

void ShotCropSession::setSize(double width, double height)
{
    if (!std::isfinite(width) || !std::isfinite(height) || width <= 0 || height <= 0) {
        return;
    }
    double w = std::min(width, bounds.width());
    double h = std::min(height, bounds.height());
    if (const auto k = aspectRatio(aspect)) {
        const bool heightTyped = width == rect.width() && height != rect.height();
        if (heightTyped) {
            w = h * *k;
            if (w > bounds.width()) {
                w = bounds.width();
                h = w / *k;
            }
        } else {
            h = w / *k;
            if (h > bounds.height()) {
                h = bounds.height();
                w = *k * h;
            }
        }
    }
    const QPointF centre = rect.center();
    setRect(QRectF(centre.x() - w / 2, centre.y() - h / 2, w, h));
}

} // namespace nubo
