#pragma once

#include "core/EnumStrings.h"

#include <QRectF>

#include <optional>

namespace nubo {

enum class CropAspect { free, square, fourThree, sixteenNine };
template <> struct EnumNames<CropAspect> {
    static constexpr std::array names{"free", "square", "fourThree", "sixteenNine"};
};
// Width over height; nothing for free cropping.
std::optional<double> aspectRatio(CropAspect aspect);

// A crop in progress: the proposed rectangle, its aspect and the canvas it
// must stay inside.
struct ShotCropSession {
    QRectF rect;
    CropAspect aspect = CropAspect::free;
    QRectF bounds;

    bool operator==(const ShotCropSession&) const = default;

    // Standardised, then scaled down about its own proportions until it fits
    // (each side at least 1 point) and moved inside the bounds.
    static QRectF fitted(const QRectF& rect, const QRectF& bounds);
    void setRect(const QRectF& r) { rect = fitted(r, bounds); }
    // From the crop bar's size fields; ignored unless both are finite and
    // positive. With an aspect, the side that was not typed follows.
    void setSize(double width, double height);
};

} // namespace nubo
