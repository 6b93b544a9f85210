#pragma once

#include <cstdint>

namespace nubo {

// The planes of one YUV 4:2:0 picture: luma at full size, each chroma plane
// of (width + 1) / 2 × (height + 1) / 2.
struct Yuv420Planes {
    uint8_t* y;
    uint8_t* u;
    uint8_t* v;
    int yStride, uStride, vStride;
};

// The order of the three colours in 32-bit pixels; the fourth byte is
// ignored (opaque screens).
enum class PixelOrder { bgrx, rgbx };

// Screen pixels (sRGB) into BT.709 studio-range YUV of the same size, each
// chroma sample the mean of its 2 × 2 pixels, as swscale's area filter does
// (within one level), in about a third of its time: a recording's pictures
// are converted here at every frame.
void toYuv420(const uint8_t* pixels, int stride, int width, int height, PixelOrder order,
              const Yuv420Planes& out);

} // namespace nubo
