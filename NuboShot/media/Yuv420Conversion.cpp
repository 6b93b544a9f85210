#include "media/Yuv420Conversion.h"

#include <cstddef>

namespace nubo {

namespace {

// BT.709 in studio range, in 16-bit fixed point: Y from one pixel (0…255
// a colour), Cb and Cr from the sums of four (0…1020), so their weights
// are a quarter of the same fractions. Each chroma row sums to zero.
constexpr int32_t yR = 11966, yG = 40254, yB = 4064; // 219/255 × (0.2126, 0.7152, 0.0722)
constexpr int32_t uR = -1649, uG = -5547, uB = 7196;
constexpr int32_t vR = 7196, vG = -6536, vB = -660;
constexpr int32_t half = 1 << 15;

template <int R, int B>
void lumaRow(const uint8_t* __restrict in, uint8_t* __restrict y, int width)
{
    for (int x = 0; x < width; ++x) {
        const uint8_t* p = in + 4 * x;
        y[x] = uint8_t((yR * p[R] + yG * p[1] + yB * p[B] + (16 << 16) + half) >> 16);
    }
}

template <int R, int B>
void chromaRow(const uint8_t* __restrict top, const uint8_t* __restrict bottom,
               uint8_t* __restrict u, uint8_t* __restrict v, int width)
{
    const int pairs = width / 2;
    for (int x = 0; x < pairs; ++x) {
        const uint8_t* a = top + 8 * x;
        const uint8_t* b = bottom + 8 * x;
        const int32_t r = a[R] + a[4 + R] + b[R] + b[4 + R];
        const int32_t g = a[1] + a[5] + b[1] + b[5];
        const int32_t bl = a[B] + a[4 + B] + b[B] + b[4 + B];
        u[x] = uint8_t((uR * r + uG * g + uB * bl + (128 << 16) + half) >> 16);
        v[x] = uint8_t((vR * r + vG * g + vB * bl + (128 << 16) + half) >> 16);
    }
    if (width % 2) {
        // The last column stands for its missing neighbour.
        const uint8_t* a = top + 4 * (width - 1);
        const uint8_t* b = bottom + 4 * (width - 1);
        const int32_t r = 2 * (a[R] + b[R]), g = 2 * (a[1] + b[1]), bl = 2 * (a[B] + b[B]);
        u[pairs] = uint8_t((uR * r + uG * g + uB * bl + (128 << 16) + half) >> 16);
        v[pairs] = uint8_t((vR * r + vG * g + vB * bl + (128 << 16) + half) >> 16);
    }
}

template <int R, int B>
void convert(const uint8_t* pixels, int stride, int width, int height, const Yuv420Planes& out)
{
    for (int y = 0; y < height; y += 2) {
        const uint8_t* top = pixels + std::ptrdiff_t(stride) * y;
        // The last row of an odd height stands for its missing neighbour.
        const uint8_t* bottom = y + 1 < height ? top + stride : top;
        lumaRow<R, B>(top, out.y + std::ptrdiff_t(out.yStride) * y, width);
        if (y + 1 < height) {
            lumaRow<R, B>(bottom, out.y + std::ptrdiff_t(out.yStride) * (y + 1), width);
        }
        chromaRow<R, B>(top, bottom, out.u + std::ptrdiff_t(out.uStride) * (y / 2),
                        out.v + std::ptrdiff_t(out.vStride) * (y / 2), width);
    }
}

} // namespace

void toYuv420(const uint8_t* pixels, int stride, int width, int height, PixelOrder order,
              const Yuv420Planes& out)
{
    if (order == PixelOrder::bgrx) {
        convert<2, 0>(pixels, stride, width, height, out);
    } else {
        convert<0, 2>(pixels, stride, width, height, out);
    }
}

} // namespace nubo
