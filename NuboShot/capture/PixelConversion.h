#pragma once

#include <QImage>

namespace nubo {

// X's 32-bit pixels (B, G, R, X in memory) into the engine's RGBA,
// premultiplied: alpha 255 for opaque depths, kept for depth-32 windows
// (whose pixels are premultiplied already). Spread over two threads for
// large images.
QImage xPixelsToRgba(const QImage& xPixels, bool keepAlpha);

} // namespace nubo
