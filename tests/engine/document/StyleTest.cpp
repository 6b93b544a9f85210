#include "document/ShotDocument.h"
#include "document/ShotStyle.h"
#include "document/Annotation.h"
#include "support/QtPrinters.h"

#include <QHash>

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace nubo {
namespace {

TEST(ShotStyle, StrengthIsNormalisedOnEveryConstruction)
{
    struct Case {
        double given, expected;
    };
    const double inf = std::numeric_limits<double>::infinity();
    const Case cases[] = {{100, 40}, {2, 6}, {std::nan(""), 12}, {inf, 12},   {-inf, 12},
                          {-5, 6},   {6, 6}, {40, 40},           {17.5, 17.5}};
    for (const Case& c : cases) {
        EXPECT_EQ(ShotStyle({1, 0, 0, 1}, 4, 20, true, c.given).strength, c.expected) << c.given;
        EXPECT_EQ(ShotStyle::normalizedStrength(c.given), c.expected) << c.given;
    }
}

TEST(ShotStyle, SizesAreKeptToWhatCanBeDrawn)
{
    // A style from a file or another program can ask for anything; the
    // renderer gets sizes it can draw (a 100000-point text once took the
    // whole program down).
    struct Case {
        double given, lineWidth, fontSize;
    };
    const double inf = std::numeric_limits<double>::infinity();
    const Case cases[] = {
        {100000, ShotStyle::maximumLineWidth, ShotStyle::maximumFontSize},
        {1e300, ShotStyle::maximumLineWidth, ShotStyle::maximumFontSize},
        {-3, 0, 1},
        {0.5, 0.5, 1},
        {std::nan(""), 4, 24},
        {inf, 4, 24},
        {36, 36, 36},
    };
    for (const Case& c : cases) {
        const ShotStyle style({1, 0, 0, 1}, c.given, c.given, true, 12);
        EXPECT_EQ(style.lineWidth, c.lineWidth) << c.given;
        EXPECT_EQ(style.fontSize, c.fontSize) << c.given;
    }
}

TEST(TextLimits, CutAtTheLimitNeverInsideAPair)
{
    const QString face = QString::fromUtf8("\xF0\x9F\x98\x80"); // two code units
    struct Case {
        QString text;
        qsizetype length;
        QString expected;
    };
    const Case cases[] = {
        {QStringLiteral("abc"), 5, QStringLiteral("abc")},
        {QStringLiteral("abcdef"), 3, QStringLiteral("abc")},
        {QStringLiteral("a") + face, 2, QStringLiteral("a")}, // the pair would be split
        {QStringLiteral("a") + face, 3, QStringLiteral("a") + face},
        {face + face, 3, face},
        {QStringLiteral("abc"), 0, QString()},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(truncatedText(c.text, c.length), c.expected) << c.text.toStdString();
    }
}

TEST(ShotColor, NegativeZeroEqualsZeroAndHashesAlike)
{
    const ShotColor a{0.0, 0.5, 0.0, 1};
    const ShotColor b{-0.0, 0.5, -0.0, 1};
    EXPECT_EQ(a, b);
    EXPECT_EQ(qHash(a), qHash(b));
    EXPECT_NE(a, (ShotColor{0.0, 0.5, 0.0, 0.99}));
    const QColor q = ShotColor{1, 0.5, 0, 0.25}.toQColor();
    EXPECT_NEAR(q.redF(), 1, 1e-4);
    EXPECT_NEAR(q.greenF(), 0.5, 1e-4);
    EXPECT_NEAR(q.alphaF(), 0.25, 1e-4);
}

TEST(ShotTextEffects, FollowLuminanceSizeAndOutline)
{
    struct Case {
        ShotColor color;
        double fontSize;
        bool outline;
        double grey; // outline colour
        double outlineWidth, blur, offsetY, padding;
    };
    const Case cases[] = {
        // white text: black outline; size 24 → outline 2.88, blur 2, offset 1
        {{1, 1, 1, 1}, 24, true, 0, 2.88, 2, 1, 10},
        // black text: white outline
        {{0, 0, 0, 1}, 24, true, 1, 2.88, 2, 1, 10},
        // outline off keeps the shadow
        {{0, 0, 0, 1}, 24, false, 1, 0, 2, 1, 7},
        // a font size under 1 counts as 1
        {{1, 1, 0, 1}, 0.2, true, 0, 0.12, 1.0 / 12, 1.0 / 24, 1},
        // pure green is light (L = 0.7152), pure red is dark (L = 0.2126)
        {{0, 1, 0, 1}, 12, true, 0, 1.44, 1, 0.5, 5},
        {{1, 0, 0, 1}, 12, true, 1, 1.44, 1, 0.5, 5},
        // L = 0.6 is an sRGB grey of about 0.7977
        {{0.79, 0.79, 0.79, 1}, 12, true, 1, 1.44, 1, 0.5, 5},
        {{0.80, 0.80, 0.80, 1}, 12, true, 0, 1.44, 1, 0.5, 5},
        {{0.81, 0.81, 0.81, 1}, 12, true, 0, 1.44, 1, 0.5, 5},
    };
    for (const Case& c : cases) {
        const ShotStyle style(c.color, 3, c.fontSize, c.outline, 12);
        const ShotTextEffects e = ShotTextEffects::forStyle(style);
        EXPECT_EQ(e.outlineColor, (ShotColor{c.grey, c.grey, c.grey, c.color.alpha}));
        EXPECT_EQ(e.shadowColor, (ShotColor{0, 0, 0, c.color.alpha * 0.45}));
        EXPECT_NEAR(e.outlineWidth, c.outlineWidth, 1e-12);
        EXPECT_NEAR(e.blurRadius, c.blur, 1e-12);
        EXPECT_EQ(e.offset.width(), 0);
        EXPECT_NEAR(e.offset.height(), c.offsetY, 1e-12);
        EXPECT_EQ(e.padding(), c.padding) << c.fontSize;
    }
    // The shadow follows the text's own transparency.
    const ShotStyle faint({1, 1, 1, 0.5}, 3, 24, true, 12);
    EXPECT_EQ(ShotTextEffects::forStyle(faint).shadowColor.alpha, 0.225);
    EXPECT_EQ(ShotTextEffects::forStyle(faint).outlineColor.alpha, 0.5);
}

TEST(ShotDocument, AnImageBecomesOneLayerInPoints)
{
    const ShotDocument a = ShotDocument::fromImage(QImage(40, 30, QImage::Format_RGB32), 2);
    EXPECT_EQ(a.canvasBounds, QRectF(0, 0, 20, 15));
    EXPECT_EQ(a.layers[0].image.format(), QImage::Format_RGBA8888_Premultiplied);
}

TEST(ShotDocument, PresetsAndHandlesKeepTheirOrder)
{
    EXPECT_LT(arrowWidth(ArrowSizePreset::s), arrowWidth(ArrowSizePreset::m));
    EXPECT_LT(arrowWidth(ArrowSizePreset::m), arrowWidth(ArrowSizePreset::l));
    EXPECT_LT(arrowWidth(ArrowSizePreset::l), arrowWidth(ArrowSizePreset::xl));
    QStringList handles;
    for (const ResizeHandle h : allCases<ResizeHandle>()) {
        handles << toString(h);
    }
    EXPECT_EQ(handles.join(u','), QStringLiteral("topLeft,top,topRight,right,bottomRight,bottom,"
                                                 "bottomLeft,left"));
    EXPECT_EQ(fromString<ArrowSizePreset>(u"xl"), ArrowSizePreset::xl);
    const ScreenSpace s{1, {0, 0, 100, 100}, {0, 0, 100, 100}, 2};
    EXPECT_EQ(s, s);
    EXPECT_NE(s, (ScreenSpace{1, {0, 0, 100, 100}, {0, 0, 100, 100}, 1}));
}

} // namespace
} // namespace nubo
