#pragma once

#include <QImage>

namespace nubo {

// X's 32-bit pixels (B, G, R, X in memory) into the engine's RGBA,
// premultiplied: alpha 255 for opaque depths, kept for depth-32 windows
// (whose pixels are premultiplied already). Spread over two threads for
// large images.
QImage xPixelsToRgba(const QImage& xPixels, bool keepAlpha);

// The same conversion done in the image's own memory, which the result
// keeps: for pixels nobody else holds (a grab that owns its segment), so a
// capture needs no second buffer. Shared memory is copied first.
QImage xPixelsToRgbaInPlace(QImage xPixels, bool keepAlpha);

} // namespace nubo
