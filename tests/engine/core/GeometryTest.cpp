#include "core/Geometry.h"

#include "core/ArrowGeometry.h"
#include "support/QtPrinters.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace nubo {
namespace {

QPointF polar(double degrees, double length)
{
    const double r = degrees * std::numbers::pi / 180;
    return {length * std::cos(r), length * std::sin(r)};
}

TEST(ShotGeometry, SnapsToTheNearestMultipleOf45DegreesKeepingTheDistance)
{
    struct Case {
        double degrees;
        double expected;
    };
    const Case cases[] = {{30, 45},  {20, 0},    {22.4, 0},    {22.6, 45}, {-30, -45},
                          {100, 90}, {170, 180}, {-170, -180}, {67.6, 90}};
    const QPointF anchor(10, -20);
    for (const Case& c : cases) {
        const QPointF snapped = ShotGeometry::snapAngle(anchor, anchor + polar(c.degrees, 50));
        const QPointF expected = anchor + polar(c.expected, 50);
        EXPECT_NEAR(snapped.x(), expected.x(), 1e-9) << c.degrees;
        EXPECT_NEAR(snapped.y(), expected.y(), 1e-9) << c.degrees;
    }
    EXPECT_EQ(ShotGeometry::snapAngle(anchor, anchor), anchor);
}

TEST(ShotGeometry, DistanceToASegmentClampsToItsEnds)
{
    struct Case {
        QPointF p, a, b;
        double expected;
    };
    const Case cases[] = {
        {{5, 3}, {0, 0}, {10, 0}, 3},  // beside the middle
        {{-4, 3}, {0, 0}, {10, 0}, 5}, // before the start
        {{13, 4}, {0, 0}, {10, 0}, 5}, // past the end
        {{3, 4}, {0, 0}, {0, 0}, 5},   // zero length measures to the start
        {{1, 1}, {0, 0}, {2, 2}, 0},   // on the segment
    };
    for (const Case& c : cases) {
        EXPECT_NEAR(ShotGeometry::distanceToSegment(c.p, c.a, c.b), c.expected, 1e-12);
    }
}

TEST(ShotGeometry, FiniteRectanglesNeedFiniteFarEdges)
{
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(ShotGeometry::isFinite(QRectF(0, 0, 10, 10)));
    EXPECT_FALSE(ShotGeometry::isFinite(QRectF(0, std::nan(""), 10, 10)));
    EXPECT_FALSE(ShotGeometry::isFinite(QRectF(0, 0, inf, 10)));
    EXPECT_FALSE(ShotGeometry::isFinite(QRectF(1e308, 0, 1e308, 10)));
}

TEST(ArrowGeometry, MetricsFollowLengthAndWidth)
{
    struct Case {
        double length, width;
        ArrowMetrics expected;
    };
    const Case cases[] = {
        // short: the head takes 45 % of the length
        {10, 4, {10, 2.295, 1, 4.5, 3.825, 0.36}},
        // long: the head is capped by the width
        {200, 4, {200, 4, 1, 18, 15.3, 1.2}},
        // hairline widths count as 0.5
        {100, 0.1, {100, 0.5, 0.3, 5.75, 4.8875, 0.15}},
        // wide arrows cap the corner radius at 3
        {400, 20, {400, 20, 5, 74, 62.9, 3}},
    };
    for (const Case& c : cases) {
        const auto m = ArrowGeometry::metrics({0, 0}, polar(33, c.length), c.width);
        ASSERT_TRUE(m.has_value());
        EXPECT_NEAR(m->length, c.expected.length, 1e-9);
        EXPECT_NEAR(m->headLength, c.expected.headLength, 1e-9) << c.length << " " << c.width;
        EXPECT_NEAR(m->headWidth, c.expected.headWidth, 1e-9) << c.length << " " << c.width;
        EXPECT_NEAR(m->shaftWidth, c.expected.shaftWidth, 1e-9) << c.length << " " << c.width;
        EXPECT_NEAR(m->tailWidth, c.expected.tailWidth, 1e-9) << c.length << " " << c.width;
        EXPECT_NEAR(m->cornerRadius, c.expected.cornerRadius, 1e-9) << c.length << " " << c.width;
    }
}

TEST(ArrowGeometry, DegenerateArrowsHaveNoOutline)
{
    const double nan = std::nan("");
    const double inf = std::numeric_limits<double>::infinity();
    struct Case {
        QPointF from, to;
        double width;
    };
    const Case cases[] = {{{5, 5}, {5, 5}, 4},
                          {{nan, 0}, {10, 0}, 4},
                          {{0, 0}, {inf, 0}, 4},
                          {{0, 0}, {10, 0}, nan},
                          {{0, 0}, {1e-320, 0}, 4}};
    for (const Case& c : cases) {
        EXPECT_FALSE(ArrowGeometry::metrics(c.from, c.to, c.width).has_value());
        EXPECT_TRUE(ArrowGeometry::outline(c.from, c.to, c.width).isEmpty());
    }
}

TEST(ArrowGeometry, OutlineRunsFromTailToTipWithTheHeadWidth)
{
    // Along +x: tail at x = 10, tip at x = 210; head 15.3 wide.
    const QPainterPath outline = ArrowGeometry::outline({10, 50}, {210, 50}, 4);
    EXPECT_EQ(outline.fillRule(), Qt::WindingFill);
    const QRectF box = outline.boundingRect();
    EXPECT_NEAR(box.left(), 10, 0.5);
    EXPECT_NEAR(box.right(), 210, 1.5); // the tip is rounded
    EXPECT_NEAR(box.height(), 15.3, 1);
    EXPECT_TRUE(outline.contains(QPointF(100, 50)));    // shaft
    EXPECT_TRUE(outline.contains(QPointF(100, 51.1)));  // the shaft is 2.5 wide halfway
    EXPECT_FALSE(outline.contains(QPointF(100, 51.5))); // beside it
    EXPECT_TRUE(outline.contains(QPointF(190, 51.9)));  // and almost 4 wide at the head
    EXPECT_FALSE(outline.contains(QPointF(20, 50.9)));  // the tail is 1 wide
    EXPECT_TRUE(outline.contains(QPointF(195, 56)));    // in the head's base
    EXPECT_FALSE(outline.contains(QPointF(5, 50)));     // behind the tail

    // Pointing the other way mirrors it around the tail.
    const QPainterPath back = ArrowGeometry::outline({10, 50}, {-190, 50}, 4);
    EXPECT_NEAR(back.boundingRect().left(), -190, 1.5);
    EXPECT_TRUE(back.contains(QPointF(-175, 56)));
}

} // namespace
} // namespace nubo
