#include "media/Yuv420Conversion.h"

extern "C" {
#include <libswscale/swscale.h>
}

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace nubo {
namespace {

struct Picture {
    std::vector<uint8_t> y, u, v;
    int width, height;
    Yuv420Planes planes()
    {
        return {y.data(), u.data(), v.data(), width, (width + 1) / 2, (width + 1) / 2};
    }
    Picture(int w, int h)
        : y(size_t(w) * size_t(h)), u(size_t((w + 1) / 2) * size_t((h + 1) / 2)), v(u.size()),
          width(w), height(h)
    {}
};

int largestDifference(const std::vector<uint8_t>& a, const std::vector<uint8_t>& b)
{
    int most = 0;
    for (size_t i = 0; i < a.size(); ++i) {
        most = std::max(most, std::abs(int(a[i]) - int(b[i])));
    }
    return most;
}

TEST(Yuv420Conversion, AgreesWithSwscalesAreaFilterWithinOneLevel)
{
    // swscale with area averaging and BT.709 studio range is what the
    // recording converted with before, and what the scaled path still uses.
    struct Case {
        int width, height;
        PixelOrder order;
    };
    const Case cases[] = {{64, 32, PixelOrder::bgrx}, {64, 32, PixelOrder::rgbx},
                          {1920, 1080, PixelOrder::bgrx}, {34, 18, PixelOrder::rgbx}};
    std::mt19937 random(7);
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.width << " × " << c.height);
        std::vector<uint8_t> pixels(size_t(c.width) * size_t(c.height) * 4);
        for (uint8_t& byte : pixels) {
            byte = uint8_t(random());
        }
        Picture ours(c.width, c.height), theirs(c.width, c.height);
        toYuv420(pixels.data(), c.width * 4, c.width, c.height, c.order, ours.planes());
        SwsContext* sws = sws_getContext(
            c.width, c.height, c.order == PixelOrder::bgrx ? AV_PIX_FMT_BGR0 : AV_PIX_FMT_RGB0,
            c.width, c.height, AV_PIX_FMT_YUV420P, SWS_AREA, nullptr, nullptr, nullptr);
        ASSERT_NE(sws, nullptr);
        const int* bt709 = sws_getCoefficients(SWS_CS_ITU709);
        sws_setColorspaceDetails(sws, bt709, 1, bt709, 0, 0, 1 << 16, 1 << 16);
        const uint8_t* source[1] = {pixels.data()};
        const int sourceStride[1] = {c.width * 4};
        uint8_t* planes[3] = {theirs.y.data(), theirs.u.data(), theirs.v.data()};
        const int strides[3] = {c.width, c.width / 2, c.width / 2};
        sws_scale(sws, source, sourceStride, 0, c.height, planes, strides);
        sws_freeContext(sws);
        EXPECT_LE(largestDifference(ours.y, theirs.y), 1);
        EXPECT_LE(largestDifference(ours.u, theirs.u), 1);
        EXPECT_LE(largestDifference(ours.v, theirs.v), 1);
    }
}

TEST(Yuv420Conversion, OddEdgesAndKnownColoursComeOutExactly)
{
    // BT.709 studio range: black 16/128/128, white 235/128/128, red
    // 63/102/240, blue 32/240/118; the last row and column of an odd size
    // are their own neighbours.
    struct Case {
        uint8_t r, g, b;
        uint8_t y, u, v;
    };
    const Case cases[] = {{0, 0, 0, 16, 128, 128},
                          {255, 255, 255, 235, 128, 128},
                          {255, 0, 0, 63, 102, 240},
                          {0, 0, 255, 32, 240, 118}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << int(c.r) << "," << int(c.g) << "," << int(c.b));
        const int width = 5, height = 3;
        std::vector<uint8_t> pixels;
        for (int i = 0; i < width * height; ++i) {
            pixels.insert(pixels.end(), {c.b, c.g, c.r, 0});
        }
        Picture out(width, height);
        toYuv420(pixels.data(), width * 4, width, height, PixelOrder::bgrx, out.planes());
        for (uint8_t y : out.y) {
            EXPECT_EQ(y, c.y);
        }
        for (size_t i = 0; i < out.u.size(); ++i) {
            EXPECT_EQ(out.u[i], c.u);
            EXPECT_EQ(out.v[i], c.v);
        }
    }
}

} // namespace
} // namespace nubo
