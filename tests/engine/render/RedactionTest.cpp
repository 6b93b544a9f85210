#include "render/RedactionRenderer.h"
#include "render/ShotRenderer.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

QImage fromBytes(int width, int height, std::initializer_list<int> rgba)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    auto it = rgba.begin();
    for (int y = 0; y < height; ++y) {
        uchar* row = image.scanLine(y);
        for (int i = 0; i < width * 4; ++i) {
            row[i] = uchar(*it++);
        }
    }
    return image;
}

TEST(RedactionRenderer, PixelatesByTruncatedIntegerAverages)
{
    // 3 × 2 pixels in blocks of 2: a full 2 × 2 block and a clipped 1 × 2 one.
    const QImage source = fromBytes(3, 2, {10, 0, 0, 255, 11, 0, 0, 255, 100, 50, 1, 255,
                                           10, 1, 0, 254, 12, 1, 0, 255, 101, 51, 2, 254});
    const QImage out = RedactionRenderer::pixelate(source, 2);
    const uchar* a = out.constScanLine(0);
    const uchar* b = out.constScanLine(1);
    const int left[4] = {10, 0, 0,
                         254}; // (10+11+10+12)/4 = 10.75 → 10; (0+0+1+1)/4 → 0; 1019/4 → 254
    const int right[4] = {100, 50, 1, 254};
    for (int c = 0; c < 4; ++c) {
        EXPECT_EQ(a[c], left[c]);
        EXPECT_EQ(a[4 + c], left[c]);
        EXPECT_EQ(b[4 + c], left[c]);
        EXPECT_EQ(a[8 + c], right[c]);
        EXPECT_EQ(b[8 + c], right[c]);
    }
    // A block larger than the bitmap hides it entirely.
    const QImage black = RedactionRenderer::pixelate(source, 4);
    EXPECT_EQ(black.size(), source.size());
    EXPECT_EQ(black.pixelColor(2, 1), QColor(Qt::black));
}

TEST(RedactionRenderer, AlignsSmallRectanglesToOneBlockInsideTheContent)
{
    struct Case {
        const char* name;
        QRectF rect, content;
        double block;
        QRectF expected;
    };
    const Case cases[] = {
        {"4 × 4 widens to 12 × 12 around its centre",
         {50, 50, 4, 4},
         {0, 0, 200, 100},
         12,
         {46, 46, 12, 12}},
        {"large enough stays", {10, 10, 30, 20}, {0, 0, 200, 100}, 12, {10, 10, 30, 20}},
        {"one axis only", {10, 10, 30, 4}, {0, 0, 200, 100}, 12, {10, 6, 30, 12}},
        {"moved inside at the start", {0, 0, 4, 4}, {0, 0, 200, 100}, 12, {0, 0, 12, 12}},
        {"moved inside at the end", {196, 96, 4, 4}, {0, 0, 200, 100}, 12, {188, 88, 12, 12}},
        {"no wider than the content", {2, 2, 3, 3}, {0, 0, 10, 50}, 12, {0, 0, 10, 12}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(RedactionRenderer::alignedRect(c.rect, c.content, c.block), c.expected) << c.name;
    }
}

TEST(RedactionRenderer, TinyRedactionShowsTheBlocksAverage)
{
    // Red left of x = 52, blue from it: the 12-wide block 46…58 holds 6 of each.
    QImage image(200, 100, QImage::Format_RGBA8888_Premultiplied);
    image.fill(QColor(255, 0, 0));
    for (int y = 0; y < 100; ++y) {
        for (int x = 52; x < 200; ++x) {
            image.setPixelColor(x, y, QColor(0, 0, 255));
        }
    }
    ShotDocument d = ShotDocument::fromImage(image, 1);
    RedactionTileCache cache;
    const QImage tile = RedactionRenderer::tile(d, {50, 50, 4, 4}, 12, cache);
    EXPECT_EQ(tile.size(), QSize(4, 4));
    EXPECT_EQ(tile.pixelColor(0, 0), QColor(127, 0, 127));
    EXPECT_EQ(tile.pixelColor(3, 3), QColor(127, 0, 127));
}

TEST(RedactionRenderer, ContentSmallerThanABlockIsSolidBlack)
{
    ShotDocument d =
        ShotDocument::fromImage(QImage(5, 5, QImage::Format_RGBA8888_Premultiplied), 1);
    d.layers[0].image.fill(Qt::white);
    d.annotations = {Annotation{QUuid::createUuid(), RedactAnnotation{{0, 0, 5, 5}}, ShotStyle()}};
    const QImage image = ShotRenderer().render(d, 2);
    for (const QPoint p : {QPoint(0, 0), QPoint(5, 5), QPoint(9, 9)}) {
        EXPECT_EQ(image.pixelColor(p), QColor(Qt::black));
    }
    RedactionTileCache cache;
    EXPECT_EQ(RedactionRenderer::tile(d, {0, 0, 5, 5}, 12, cache).size(), QSize(1, 1));
    ShotDocument empty;
    empty.canvasBounds = QRectF(0, 0, 50, 50);
    EXPECT_EQ(RedactionRenderer::tile(empty, {0, 0, 5, 5}, 12, cache).pixelColor(0, 0),
              QColor(Qt::black));
}

TEST(RedactionRenderer, StrengthIsTheBlockEdgeInPoints)
{
    struct Case {
        double strength;
        int block;
    };
    const Case cases[] = {{100, 40}, {2, 6}, {12, 12}, {std::nan(""), 12}};
    QImage image(120, 120, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < 120; ++y) {
        for (int x = 0; x < 120; ++x) {
            image.setPixelColor(x, y, QColor(x * 2, y * 2, 0));
        }
    }
    const ShotDocument d = ShotDocument::fromImage(image, 1);
    for (const Case& c : cases) {
        RedactionTileCache cache;
        const QImage tile = RedactionRenderer::tile(d, {0, 0, 120, 120}, c.strength, cache);
        EXPECT_EQ(tile.pixelColor(0, 0), tile.pixelColor(c.block - 1, c.block - 1)) << c.strength;
        EXPECT_NE(tile.pixelColor(0, 0), tile.pixelColor(c.block, 0)) << c.strength;
    }
}

TEST(RedactionRenderer, RedrawsReuseTheTileUntilALayerMoves)
{
    ShotDocument d =
        ShotDocument::fromImage(QImage(300, 200, QImage::Format_RGBA8888_Premultiplied), 1);
    d.layers[0].image.fill(Qt::darkCyan);
    d.annotations = {
        Annotation{QUuid::createUuid(), RedactAnnotation{{20, 20, 100, 50}}, ShotStyle()}};
    ShotRenderer renderer;
    RedactionTileCache& cache = renderer.tileCache();
    renderer.render(d, 2);
    EXPECT_EQ(cache.misses(), 1u);
    EXPECT_EQ(cache.hits(), 0u);
    EXPECT_EQ(renderer.tileDraws(), 1u);

    renderer.render(d, 2); // unchanged: one cache hit, one image draw
    EXPECT_EQ(cache.misses(), 1u);
    EXPECT_EQ(cache.hits(), 1u);
    EXPECT_EQ(renderer.tileDraws(), 2u);

    d.layers[0].frame.translate(3, 0); // moved: a new tile
    renderer.render(d, 2);
    EXPECT_EQ(cache.misses(), 2u);

    cache.trim(0); // memory pressure drops tiles; the next redraw makes them again
    EXPECT_EQ(cache.count(), 0);
    renderer.render(d, 2);
    EXPECT_EQ(cache.misses(), 3u);
    EXPECT_EQ(cache.count(), 1);
}

} // namespace
} // namespace nubo
