#include "render/ShotFonts.h"
#include "render/ShotRenderer.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QPainter>

#include <gtest/gtest.h>

#include <thread>

namespace nubo {
namespace {

QImage solid(int width, int height, QColor color)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    image.fill(color);
    return image;
}

// Each pixel a different colour, so a misplaced pixel shows.
QImage gradient(int width, int height)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            image.setPixelColor(x, y, QColor(x % 256, y % 256, (x * 3 + y * 5) % 256));
        }
    }
    return image;
}

Annotation make(AnnotationKind kind, ShotColor color = {1, 0, 0, 1}, double lineWidth = 4,
                double fontSize = 20, double strength = 12)
{
    return Annotation{QUuid::createUuid(), std::move(kind),
                      ShotStyle(color, lineWidth, fontSize, true, strength)};
}

QColor at(const QImage& image, int x, int y)
{
    return image.pixelColor(x, y);
}

TEST(ShotRenderer, OutputSizeFollowsVisibleAreaFrameAndScale)
{
    struct Case {
        const char* name;
        QRectF canvas;
        std::optional<QRectF> crop;
        std::optional<double> padding;
        double scale;
        QSize expected;
    };
    const Case cases[] = {
        {"100 × 50 at 2×", {0, 0, 100, 50}, {}, {}, 2, {200, 100}},
        {"with a frame of 28", {0, 0, 100, 50}, {}, 28, 2, {312, 212}},
        {"crop wins over the canvas", {0, 0, 100, 50}, QRectF(10, 10, 30, 20), {}, 1, {30, 20}},
        {"a negative crop is standardised",
         {0, 0, 100, 50},
         QRectF(40, 30, -30, -20),
         {},
         2,
         {60, 40}},
        {"negative padding counts as none", {0, 0, 100, 50}, {}, -5, 1, {100, 50}},
        {"fractions round up", {0, 0, 10.2, 5.1}, {}, {}, 1.5, {16, 8}},
        {"an empty canvas is one pixel", {0, 0, 0, 0}, {}, {}, 2, {1, 1}},
    };
    for (const Case& c : cases) {
        ShotDocument d = ShotDocument::fromImage(solid(100, 50, Qt::red), 1);
        d.canvasBounds = c.canvas;
        d.crop = c.crop;
        if (c.padding) {
            d.frame = FrameStyle{*c.padding};
        }
        const QImage image = ShotRenderer().render(d, c.scale);
        EXPECT_EQ(image.size(), c.expected) << c.name;
        EXPECT_EQ(image.format(), QImage::Format_RGBA8888_Premultiplied) << c.name;
    }
}

TEST(ShotRenderer, FramePutsContentAtTheInsetWithOnlyShadowAround)
{
    ShotDocument d = ShotDocument::fromImage(solid(200, 100, QColor(30, 160, 90)), 2);
    d.frame = FrameStyle{};
    const QImage image = ShotRenderer().render(d, 2);
    ASSERT_EQ(image.size(), QSize(312, 212));
    test::saveArtifact(image, QStringLiteral("frame-shadow.png"));
    EXPECT_EQ(at(image, 56, 56), QColor(30, 160, 90));
    EXPECT_EQ(at(image, 255, 155), QColor(30, 160, 90));
    EXPECT_EQ(at(image, 55, 100).alpha() < 255, true);
    // Above the content the shadow (cast 6 pixels down) is gone by the top edge.
    EXPECT_EQ(at(image, 150, 2).alpha(), 0);
    // Below it the shadow is black, at most 35 % dark, fading outwards.
    const QColor under = at(image, 150, 162);
    const QColor further = at(image, 150, 175);
    EXPECT_EQ(under.red() + under.green() + under.blue(), 0);
    EXPECT_GT(under.alpha(), further.alpha());
    EXPECT_GT(further.alpha(), 0);
    EXPECT_LE(under.alpha(), 90);
    // The shadow falls further below than above.
    EXPECT_GT(at(image, 150, 170).alpha(), at(image, 150, 42).alpha());
}

TEST(ShotRenderer, CropPlacesItsCornerAtTheOrigin)
{
    const QImage source = gradient(100, 50);
    ShotDocument d = ShotDocument::fromImage(source, 1);
    d.crop = QRectF(10, 20, 30, 20);
    const QImage plain = ShotRenderer().render(d, 1);
    EXPECT_EQ(at(plain, 0, 0), source.pixelColor(10, 20));
    EXPECT_EQ(at(plain, 29, 19), source.pixelColor(39, 39));
    d.frame = FrameStyle{5};
    const QImage framed = ShotRenderer().render(d, 1);
    EXPECT_EQ(at(framed, 5, 5), source.pixelColor(10, 20));
}

TEST(ShotRenderer, RedactionsLieUnderEveryOtherAnnotation)
{
    ShotDocument d = ShotDocument::fromImage(gradient(200, 100), 1);
    const ShotColor blue{0, 0, 1, 1};
    d.annotations = {make(ArrowAnnotation{{20, 50}, {180, 50}}, blue, 6),
                     make(RedactAnnotation{{60, 20, 80, 60}})};
    const QImage image = ShotRenderer().render(d, 1);
    EXPECT_EQ(at(image, 100, 50), QColor(0, 0, 255)); // the arrow's shaft over the redaction
    EXPECT_NE(at(image, 100, 30), QColor(0, 0, 255));
    // And the redaction is really there: its block is flat.
    EXPECT_EQ(at(image, 61, 21), at(image, 62, 23));
}

TEST(ShotRenderer, CountersAreNumberedAmongCountersOnly)
{
    const auto badge = [](const QList<AnnotationKind>& kinds) {
        ShotDocument d = ShotDocument::fromImage(solid(300, 100, Qt::white), 1);
        for (const AnnotationKind& kind : kinds) {
            d.annotations.append(make(kind, {0.8, 0.1, 0.1, 1}, 4, 20));
        }
        return ShotRenderer().render(d, 2).copy(QRect(440, 60, 80, 80));
    };
    const CounterAnnotation far1{{20, 20}}, far2{{60, 20}}, here{{240, 50}};
    const QImage third = badge({far1, ArrowAnnotation{{10, 90}, {50, 80}}, far2,
                                LineAnnotation{{100, 90}, {150, 90}}, here});
    const QImage thirdAlone = badge({far1, far2, here});
    const QImage first = badge({here});
    test::saveArtifact(third, QStringLiteral("counter-3.png"));
    EXPECT_EQ(test::compareImages(third, thirdAlone, 0).pixelsOver, 0);
    EXPECT_GT(test::compareImages(third, first, 0).pixelsOver, 50) << "shows 1, not 3";
}

TEST(ShotRenderer, AMarkerColoursThePaperAndLeavesTheTextDark)
{
    // Black text on white paper under a yellow marker: the paper turns
    // yellow, the text stays black, and where the stroke crosses itself it
    // is no darker.
    QImage page = solid(100, 40, Qt::white);
    {
        QPainter p(&page);
        p.fillRect(20, 15, 60, 10, Qt::black);
    }
    ShotDocument d = ShotDocument::fromImage(page, 1);
    const ShotColor yellow{1, 0.86, 0.1, 1};
    d.annotations = {make(PenAnnotation{{{5, 20}, {95, 20}, {50, 20}}, true}, yellow, 16)};
    const QImage image = ShotRenderer().render(d, 1);
    EXPECT_EQ(image.pixelColor(10, 20).rgb(), yellow.toQColor().rgb()) << "the paper";
    EXPECT_EQ(image.pixelColor(90, 20).rgb(), image.pixelColor(10, 20).rgb())
        << "crossed twice, not darker";
    EXPECT_EQ(image.pixelColor(50, 20), QColor(Qt::black)) << "the text";
    EXPECT_EQ(image.pixelColor(50, 2), QColor(Qt::white)) << "outside the stroke";
}

TEST(ShotRenderer, DrawsEachKindWhereItBelongs)
{
    struct Probe {
        QPoint pixel;
        bool inked;
    };
    struct Case {
        const char* name;
        Annotation annotation;
        QList<Probe> probes;
    };
    const ShotColor ink{0, 0, 0, 1};
    const Case cases[] = {
        {"one-point pen: a dot of the line width",
         make(PenAnnotation{{{50, 50}}}, ink, 10),
         {{{50, 50}, true}, {{53, 50}, true}, {{56, 50}, false}}},
        {"pen stroke",
         make(PenAnnotation{{{10, 10}, {90, 10}}}, ink, 4),
         {{{50, 10}, true}, {{50, 14}, false}}},
        {"a marker's stroke: square ends",
         make(PenAnnotation{{{10, 10}, {90, 10}}, true}, ink, 4),
         {{{50, 10}, true}, {{9, 10}, true}, {{50, 14}, false}}},
        {"outlined rectangle is open inside",
         make(ShapeAnnotation{ShapeVariant::rect, {20, 20, 60, 60}}, ink, 4),
         {{{50, 20}, true}, {{50, 50}, false}, {{20, 50}, true}}},
        {"filled rectangle",
         make(ShapeAnnotation{ShapeVariant::filledRect, {20, 20, 60, 60}}, ink),
         {{{50, 50}, true}, {{85, 50}, false}}},
        {"rounded corners leave the corner pixel",
         make(ShapeAnnotation{ShapeVariant::filledRect, {20, 20, 60, 60}}, ink, 6),
         {{{20, 20}, false}, {{23, 23}, true}}},
        {"ellipse outline",
         make(ShapeAnnotation{ShapeVariant::ellipse, {10, 30, 80, 40}}, ink, 2),
         {{{50, 30}, true}, {{50, 50}, false}, {{12, 32}, false}}},
        {"line",
         make(LineAnnotation{{10, 90}, {90, 90}}, ink, 2),
         {{{50, 90}, true}, {{50, 93}, false}}},
        {"an arrow without length draws nothing",
         make(ArrowAnnotation{{50, 50}, {50, 50}}, ink, 10),
         {{{50, 50}, false}}},
        {"emoji inside its rectangle",
         make(EmojiAnnotation{QStringLiteral("\U0001F600"), {30, 30, 40, 40}}, ink),
         {{{50, 50}, true}, {{25, 50}, false}}},
        {"an emoji without height draws nothing",
         make(EmojiAnnotation{QStringLiteral("\U0001F600"), {30, 30, 40, 0}}, ink),
         {{{50, 30}, false}}},
    };
    for (const Case& c : cases) {
        ShotDocument d = ShotDocument::fromImage(solid(100, 100, Qt::white), 1);
        d.annotations = {c.annotation};
        const QImage image = ShotRenderer().render(d, 1);
        for (const Probe& probe : c.probes) {
            const QColor color = image.pixelColor(probe.pixel);
            EXPECT_EQ(color != QColor(Qt::white), probe.inked)
                << c.name << " at " << probe.pixel.x() << "," << probe.pixel.y();
        }
    }
}

TEST(ShotRenderer, DrawsOnACopyOfAWholeCaptureAsOnABlankImage)
{
    // A capture that fills the export is drawn on a copy of its own pixels;
    // the same capture in a format that cannot take that path is drawn on a
    // blank image. Both must come out alike, in RGBA, and leave the layer
    // alone.
    ShotDocument whole = test::markedUpShot();
    const QImage original = whole.layers.first().image;
    ShotDocument fromBlank = whole;
    fromBlank.layers.first().image = original.convertToFormat(QImage::Format_RGBA8888);
    {
        // At the capture's own density: the one scale where it lands pixel for pixel.
        const QImage a = ShotRenderer().render(whole, 2);
        const QImage b = ShotRenderer().render(fromBlank, 2);
        ASSERT_EQ(a.size(), b.size());
        EXPECT_EQ(a.format(), QImage::Format_RGBA8888_Premultiplied);
        // Qt's blending in RGBA may round a channel differently by one.
        EXPECT_EQ(test::compareImages(a, b, 2).pixelsOver, 0);
        EXPECT_GT(test::compareImages(a, original.scaled(a.size()), 2).pixelsOver, 1000)
            << "the marks are drawn";
    }
    EXPECT_EQ(whole.layers.first().image, original);
    EXPECT_EQ(test::compareImages(whole.layers.first().image, original, 0).pixelsOver, 0);
}

TEST(ShotRenderer, TheLongestTextLineIsOutlinedWhole)
{
    // The longest text there may be, in one line, wholly in view: its
    // outline is stroked glyph group by glyph group. Stroked as one path it
    // took minutes (the cost grew with the square of the length; ctest's
    // time limit fails the test then); now it takes about a second.
    QImage blank(60000, 40, QImage::Format_RGBA8888_Premultiplied);
    ASSERT_FALSE(blank.isNull());
    blank.fill(Qt::white);
    ShotDocument d = ShotDocument::fromImage(blank, 1);
    const QString line(TextContent::maximumLength, QLatin1Char('w'));
    d.annotations.append(Annotation{QUuid::createUuid(),
                                    TextAnnotation{{line, QRectF(0, 4, 60000, 36)}},
                                    ShotStyle({0.1, 0.1, 0.1, 1}, 4, 12, true, 12)});
    const QImage image = ShotRenderer().render(d, 1);
    ASSERT_EQ(image.size(), blank.size());
    // Ink at the start and near the end of the line: all of it was drawn.
    const auto inked = [&](int from, int to) {
        for (int x = from; x < to; ++x) {
            for (int y = 0; y < image.height(); ++y) {
                if (image.pixelColor(x, y) != QColor(Qt::white)) {
                    return true;
                }
            }
        }
        return false;
    };
    EXPECT_TRUE(inked(0, 200));
    const double end = annotationBounds(d.annotations.first()).width();
    EXPECT_TRUE(inked(int(end * 0.9), int(end * 0.9) + 200)) << "line drawn to about " << end;
}

TEST(ShotRenderer, RendersTheSameOnSeveralThreadsAtOnce)
{
    ShotRenderer renderer;
    const ShotDocument document = test::markedUpShot();
    const QImage expected = renderer.render(document, 1);
    std::vector<QImage> results(4);
    std::vector<std::thread> threads;
    for (size_t i = 0; i < results.size(); ++i) {
        threads.emplace_back([&, i] {
            ShotDocument copy = document;
            for (int round = 0; round < 3; ++round) {
                results[i] = renderer.render(copy, 1);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const QImage& result : results) {
        EXPECT_EQ(test::compareImages(result, expected, 0).pixelsOver, 0);
    }
}

TEST(ShotFonts, ResolveToThePinnedFamiliesByName)
{
    EXPECT_EQ(ShotFonts::textFamily(), QStringLiteral("Nimbus Sans"));
    EXPECT_EQ(ShotFonts::emojiFamily(), QStringLiteral("Noto Color Emoji"));
    const QFont text = ShotFonts::textFont(20);
    EXPECT_EQ(ShotFonts::familyOf(text), QStringLiteral("Nimbus Sans"));
    EXPECT_TRUE(QFontDatabase::isSmoothlyScalable(QStringLiteral("Nimbus Sans")));
    // Liberation Sans stands in when Nimbus Sans is missing: it is installed too.
    EXPECT_EQ(ShotFonts::familyOf(QFont(QStringLiteral("Liberation Sans"))),
              QStringLiteral("Liberation Sans"));
    // Glyph bounds: a digit is taller than wide; an emoji is about its size.
    const QRectF digit = ShotRenderer::measureGlyphs(QStringLiteral("8"), false, 100);
    EXPECT_NEAR(digit.height(), 74.6, 1); // Nimbus Sans digits stand 0.746 em
    EXPECT_LT(digit.width(), digit.height());
    const QRectF emoji = ShotRenderer::measureGlyphs(QStringLiteral("\U0001F600"), true, 40);
    EXPECT_NEAR(emoji.height(), 40, 2);
    EXPECT_EQ(ShotRenderer::measureGlyphs(QStringLiteral("8"), false, 0.2),
              ShotRenderer::measureGlyphs(QStringLiteral("8"), false, 1));
}

TEST(ShotRenderer, MarkedUpShotMatchesItsGoldenImage)
{
    const QImage image = ShotRenderer().render(test::markedUpShot(), 2);
    test::saveArtifact(image, QStringLiteral("marked-up@2x.png"));
    const QImage golden(QStringLiteral(NUBOSHOT_TEST_DATA "/golden/marked-up@2x.png"));
    ASSERT_FALSE(golden.isNull());
    const auto difference = test::compareImages(image, golden, 8);
    // Qt's glyph caches keep what the process drew before, and a glyph drawn
    // from a warm cache may differ at a few edge pixels from a fresh one
    // (22 pixels of 1,024,000 seen after the long-line test): a handful of
    // pixels, never a misplaced or missing mark.
    EXPECT_LE(difference.pixelsOver, 64) << "largest difference " << difference.maximum;
}

} // namespace
} // namespace nubo
