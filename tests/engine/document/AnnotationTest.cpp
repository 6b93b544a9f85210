#include "document/Annotation.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

Annotation make(AnnotationKind kind, double lineWidth = 4, double fontSize = 20)
{
    return Annotation{QUuid::createUuid(), std::move(kind),
                      ShotStyle({1, 0, 0, 1}, lineWidth, fontSize, true, 12)};
}

TEST(AnnotationBounds, CoverWhatEachKindDraws)
{
    struct Case {
        const char* name;
        Annotation annotation;
        QRectF expected;
    };
    const Case cases[] = {
        {"line grows by half its width",
         make(LineAnnotation{{10, 20}, {0, 0}}, 4),
         {-2, -2, 14, 24}},
        {"a hairline grows by 0.25",
         make(LineAnnotation{{0, 0}, {10, 0}}, 0.2),
         {-0.25, -0.25, 10.5, 0.5}},
        {"arrow as a line", make(ArrowAnnotation{{0, 0}, {10, 10}}, 6), {-3, -3, 16, 16}},
        {"shape standardised",
         make(ShapeAnnotation{ShapeVariant::rect, {10, 10, -4, -6}}),
         {6, 4, 4, 6}},
        {"redact standardised", make(RedactAnnotation{{0, 0, -3, 3}}), {-3, 0, 3, 3}},
        // size 20: offset 20/24, outline 2.4, blur 20/12 → ceil(8.23) = 9
        {"text grows by its effects",
         make(TextAnnotation{{QStringLiteral("x"), {0, 0, 50, 20}}}, 4, 20),
         {-9, -9, 68, 38}},
        {"counter of size 10: radius 12",
         make(CounterAnnotation{{50, 50}}, 4, 10),
         {38, 38, 24, 24}},
        {"counter of size 30: radius 24",
         make(CounterAnnotation{{50, 50}}, 4, 30),
         {26, 26, 48, 48}},
        {"emoji: its rectangle",
         make(EmojiAnnotation{QStringLiteral("x"), {1, 2, 3, 4}}),
         {1, 2, 3, 4}},
        {"pen grows by half its width",
         make(PenAnnotation{{{5, 5}, {15, 0}, {10, 20}}}, 2),
         {4, -1, 12, 22}},
        {"one pen point: its dot", make(PenAnnotation{{{5, 5}}}, 6), {2, 2, 6, 6}},
        {"no pen points: nothing", make(PenAnnotation{}), {}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(annotationBounds(c.annotation), c.expected) << c.name;
    }
}

TEST(AnnotationHitTest, UsesEachKindsShapeAndTolerance)
{
    struct Case {
        const char* name;
        Annotation annotation;
        QPointF point;
        double tolerance;
        bool hit;
    };
    const Annotation line = make(LineAnnotation{{0, 0}, {100, 0}}, 4);
    const Annotation arrow = make(ArrowAnnotation{{0, 0}, {200, 0}}, 4);
    const Annotation outlined = make(ShapeAnnotation{ShapeVariant::rect, {0, 0, 100, 50}}, 2);
    const Annotation filled = make(ShapeAnnotation{ShapeVariant::filledRect, {0, 0, 100, 50}}, 2);
    const Annotation ellipse = make(ShapeAnnotation{ShapeVariant::ellipse, {0, 0, 100, 50}}, 2);
    const Annotation pen = make(PenAnnotation{{{0, 0}, {50, 0}, {50, 50}}}, 2);
    const Annotation dot = make(PenAnnotation{{{10, 10}}}, 2);
    const Annotation counter = make(CounterAnnotation{{0, 0}}, 4, 10);
    const Annotation redact = make(RedactAnnotation{{0, 0, 10, 10}});
    const Case cases[] = {
        {"line: within half width", line, {50, 2}, 0, true},
        {"line: beyond half width", line, {50, 2.5}, 0, false},
        {"line: tolerance reaches", line, {50, 5}, 3, true},
        {"line: past its end", line, {103, 0}, 0, false},
        {"arrow: inside the outline", arrow, {100, 0}, 0, true},
        {"arrow: inside the head", arrow, {186, 5}, 0, true},
        {"arrow: past the tip", arrow, {202, 0}, 0, false},
        {"arrow: beside the shaft", arrow, {100, 5}, 0, false},
        {"arrow: the stroked outline reaches", arrow, {100, 5}, 4, true},
        {"arrow: beyond the stroked outline", arrow, {100, 8}, 4, false},
        {"arrow without length", make(ArrowAnnotation{{5, 5}, {5, 5}}), {5, 5}, 10, false},
        {"outlined rect: on the edge", outlined, {0, 25}, 0, true},
        {"outlined rect: just outside", outlined, {-3, 25}, 4, true},
        {"outlined rect: the middle is open", outlined, {50, 25}, 4, false},
        {"outlined rect: half the line width counts", outlined, {-0.9, 25}, 0, true},
        {"filled rect: the middle", filled, {50, 25}, 0, true},
        {"filled rect: outside", filled, {-5, 25}, 4, false},
        {"ellipse: on the outline", ellipse, {50, 0}, 0, true},
        {"ellipse: near the outline", ellipse, {50, -3}, 4, true},
        {"ellipse: the middle is open", ellipse, {50, 25}, 4, false},
        {"pen: along the second segment", pen, {52, 25}, 2, true},
        {"pen: away from the stroke", pen, {25, 25}, 4, false},
        {"pen: one point", dot, {12, 10}, 1.5, true},
        {"pen: one point, too far", dot, {14, 10}, 1.5, false},
        {"counter: inside its badge square", counter, {11, -11}, 0, true},
        {"counter: outside", counter, {13, 0}, 0, false},
        {"redact: inside", redact, {5, 5}, 0, true},
        {"redact: outside", redact, {11, 5}, 0, false},
        {"a negative tolerance counts as none", line, {50, 2.5}, -10, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(annotationHitTest(c.annotation, c.point, c.tolerance), c.hit) << c.name;
    }
}

TEST(Annotation, FinitenessCoversGeometryAndStyle)
{
    const double nan = std::nan("");
    EXPECT_TRUE(annotationIsFinite(make(PenAnnotation{{{1, 2}, {3, 4}}})));
    EXPECT_FALSE(annotationIsFinite(make(PenAnnotation{{{1, 2}, {nan, 4}}})));
    EXPECT_FALSE(annotationIsFinite(make(CounterAnnotation{{nan, 0}})));
    Annotation line = make(LineAnnotation{{0, 0}, {1, 1}});
    line.style.lineWidth = nan; // styles normalise when made; a field set later does not
    EXPECT_FALSE(annotationIsFinite(line));
    EXPECT_FALSE(annotationIsFinite(make(RedactAnnotation{{1e308, 0, 1e308, 1}})));
}

} // namespace
} // namespace nubo
