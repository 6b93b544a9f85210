#include "render/FrameRenderer.h"
#include "render/ShotTextLayoutManager.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QPainter>

#include <gtest/gtest.h>

namespace nubo {
namespace {

const ShotTextEffects whiteTextEffects =
    ShotTextEffects::forStyle(ShotStyle({1, 1, 1, 1}, 4, 24, true, 12));

void drawOnce(ShotTextLayoutManager& manager, double scale, QRectF clip = {})
{
    QImage image(800, 600, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.scale(scale, scale);
    if (!clip.isNull()) {
        painter.setClipRect(clip);
    }
    manager.draw(painter, QPointF(10, 10));
}

TEST(ShotTextLayoutManager, CachesLineRastersPerDensityWidthAndEffects)
{
    ShotTextLayoutManager manager;
    manager.setText(QStringLiteral("one\ntwo\nthree"), 24, Qt::white);
    manager.setContainerWidth(300);
    manager.setEffects(whiteTextEffects);
    EXPECT_GT(manager.usedHeight(), 3 * 24 * 1.1); // three lines of the font's own spacing
    EXPECT_LT(manager.usedHeight(), 3 * 24 * 1.6);

    drawOnce(manager, 1);
    EXPECT_EQ(manager.rasterizations(), 3u);
    EXPECT_EQ(manager.cachedLineCount(), 3);
    EXPECT_GT(manager.cachedRasterBytes(), 0);

    struct Step {
        const char* name;
        std::function<void()> change;
        quint64 rasterizations; // after drawing again at the step's scale
        double scale;
    };
    const Step steps[] = {
        {"a redraw uses the cache", [] {}, 3, 1},
        {"the same effects again keep it", [&] { manager.setEffects(whiteTextEffects); }, 3, 1},
        {"another density clears it", [] {}, 6, 2},
        {"other effects clear it",
         [&] {
             manager.setEffects(
                 ShotTextEffects::forStyle(ShotStyle({0, 0, 0, 1}, 4, 24, true, 12)));
         },
         9, 2},
        {"no effects draw directly", [&] { manager.setEffects(std::nullopt); }, 9, 2},
        {"effects back clear again", [&] { manager.setEffects(whiteTextEffects); }, 12, 2},
        {"another width clears it", [&] { manager.setContainerWidth(310); }, 15, 2},
        {"new text clears it", [&] { manager.setText(QStringLiteral("four"), 24, Qt::white); }, 16,
         2},
    };
    for (const Step& step : steps) {
        step.change();
        drawOnce(manager, step.scale);
        EXPECT_EQ(manager.rasterizations(), step.rasterizations) << step.name;
    }
    EXPECT_EQ(manager.rasterDensity(), 2);
}

TEST(ShotTextLayoutManager, DrawsOnlyLinesMeetingTheClip)
{
    ShotTextLayoutManager manager;
    QStringList lines;
    for (int i = 0; i < 20; ++i) {
        lines << QStringLiteral("line %1").arg(i);
    }
    manager.setText(lines.join(QLatin1Char('\n')), 20, Qt::white);
    manager.setContainerWidth(400);
    manager.setEffects(whiteTextEffects);
    drawOnce(manager, 1, QRectF(0, 0, 400, 60)); // the first two lines and a bit
    EXPECT_GE(manager.rasterizations(), 2u);
    EXPECT_LE(manager.rasterizations(), 4u);
    drawOnce(manager, 1, QRectF(0, 10000, 10, 10)); // nothing of the text
    EXPECT_LE(manager.rasterizations(), 4u);
}

TEST(ShotTextLayoutManager, EvictsTheLeastRecentlyUsedRastersPastTheBudget)
{
    ShotTextLayoutManager manager;
    QStringList lines;
    for (int i = 0; i < 12; ++i) {
        lines << QString(20, QChar(u'M'));
    }
    manager.setText(lines.join(QLatin1Char('\n')), 60, Qt::white);
    manager.setContainerWidth(3000);
    manager.setEffects(whiteTextEffects);
    manager.setBackingScale(4); // each line raster is several MB
    const QRectF everything(0, 0, 4000, 4000);
    drawOnce(manager, 1, everything);
    EXPECT_EQ(manager.rasterizations(), 12u);
    EXPECT_LE(manager.cachedRasterBytes(), ShotTextLayoutManager::maximumRasterBytes);
    EXPECT_LT(manager.cachedLineCount(), 12);
    // The lines drawn last are still there; drawing only them costs nothing.
    const qsizetype kept = manager.cachedLineCount();
    ASSERT_GT(kept, 0);
    const double lineHeight = manager.usedHeight() / 12;
    drawOnce(manager, 1, QRectF(0, 10 + (12 - 0.5) * lineHeight, 3000, 1));
    EXPECT_EQ(manager.rasterizations(), 12u);
    // The first line was evicted and is made again.
    drawOnce(manager, 1, QRectF(0, 10 + 0.5 * lineHeight, 3000, 1));
    EXPECT_EQ(manager.rasterizations(), 13u);
}

TEST(FrameRenderer, BlurKeepsTheMassAndSpreadsLikeAGaussian)
{
    QImage alpha(101, 101, QImage::Format_Alpha8);
    alpha.fill(0);
    alpha.scanLine(50)[50] = 255;
    // Spread a single dot: the blurred sum stays 255 (within rounding), the
    // centre falls to about 255 / (2πσ²).
    QImage blurred = alpha;
    FrameRenderer::blurAlpha(blurred, 2);
    int sum = 0;
    for (int y = 0; y < 101; ++y) {
        for (int x = 0; x < 101; ++x) {
            sum += blurred.constScanLine(y)[x];
        }
    }
    EXPECT_NEAR(sum, 255, 40);
    EXPECT_NEAR(blurred.constScanLine(50)[50], 255 / (2 * 3.14159 * 4), 4);
    EXPECT_EQ(blurred.constScanLine(50)[49], blurred.constScanLine(50)[51]); // symmetric
    EXPECT_EQ(blurred.constScanLine(49)[50], blurred.constScanLine(51)[50]);
    EXPECT_EQ(blurred.constScanLine(50)[70], 0);
    // A filled half-plane's edge blurs to half at the edge.
    QImage edge(64, 64, QImage::Format_Alpha8);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            edge.scanLine(y)[x] = x < 32 ? 255 : 0;
        }
    }
    FrameRenderer::blurAlpha(edge, 4);
    const uchar* middle = edge.constScanLine(32);
    EXPECT_NEAR((middle[31] + middle[32]) / 2, 128, 12);
    EXPECT_GT(middle[20], 240);
    EXPECT_LT(middle[44], 15);
}

} // namespace
} // namespace nubo
