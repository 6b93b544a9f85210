#include "capture/portal/PortalScreenCapturer.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

// Which screen each screen-cast stream shows, as desktops describe their
// streams: by place (with the size in points, or in pixels as wlroots gives
// it), else by the picture's size, the screen a grant showed last first.
TEST(PortalStreamMatch, EachStreamFindsItsScreenHoweverTheDesktopDescribesIt)
{
    const QList<DesktopScreen> sideBySide{{QStringLiteral("A"), QRect(0, 0, 960, 540), 2},
                                          {QStringLiteral("B"), QRect(960, 0, 1280, 720), 1}};
    const QList<DesktopScreen> twins{{QStringLiteral("A"), QRect(0, 0, 1280, 720), 1},
                                     {QStringLiteral("B"), QRect(1280, 0, 1280, 720), 1}};
    const QList<DesktopScreen> fractional{{QStringLiteral("A"), QRect(0, 0, 1920, 1080), 1},
                                          {QStringLiteral("B"), QRect(1920, 0, 853, 480), 2}};
    struct Case {
        const char* name;
        QList<DesktopScreen> screens;
        QList<PortalStreamPicture> streams;
        QList<int> expected;
    };
    const Case cases[] = {
        {"placed, size in points", sideBySide,
         {{QPoint(0, 0), QSize(960, 540), QSize(1920, 1080), {}}}, {0}},
        {"placed, size in pixels (wlroots)", sideBySide,
         {{QPoint(0, 0), QSize(1920, 1080), QSize(1920, 1080), {}}}, {0}},
        {"placed, in another order", sideBySide,
         {{QPoint(960, 0), QSize(1280, 720), QSize(1280, 720), {}},
          {QPoint(0, 0), QSize(960, 540), QSize(1920, 1080), {}}},
         {1, 0}},
        {"no place: the picture's size", sideBySide,
         {{std::nullopt, std::nullopt, QSize(1280, 720), {}}}, {1}},
        {"no place, equal sizes: the screen shown last first", twins,
         {{std::nullopt, std::nullopt, QSize(1280, 720), QStringLiteral("B")},
          {std::nullopt, std::nullopt, QSize(1280, 720), QStringLiteral("A")}},
         {1, 0}},
        {"a place that fits no screen: the picture's size", sideBySide,
         {{QPoint(5000, 0), QSize(1280, 720), QSize(1280, 720), {}}}, {1}},
        {"no screen twice", twins,
         {{std::nullopt, std::nullopt, QSize(1280, 720), {}},
          {std::nullopt, std::nullopt, QSize(1280, 720), {}},
          {std::nullopt, std::nullopt, QSize(1280, 720), {}}},
         {0, 1, -1}},
        {"a picture of no screen's size", sideBySide,
         {{std::nullopt, std::nullopt, QSize(800, 600), {}}}, {-1}},
        // 1280×720 pixels at 1.5: 853×480 points, and Qt (before 6.5) is told 2.
        {"a fractional scale, placed wrongly (wlroots)", fractional,
         {{QPoint(0, 0), QSize(1280, 720), QSize(1280, 720), {}}}, {1}},
        {"a screen at scale 1 is never taken for a smaller picture", fractional,
         {{std::nullopt, std::nullopt, QSize(1280, 720), {}},
          {std::nullopt, std::nullopt, QSize(1280, 720), {}}},
         {1, -1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(matchPortalStreams(c.screens, c.streams), c.expected);
    }
}

} // namespace
} // namespace nubo

namespace nubo {
namespace {

// The scale a screen's picture shows where Qt was told the next whole number.
TEST(PortalStreamMatch, FractionalScalesAreReadFromThePicture)
{
    const DesktopScreen told2{QStringLiteral("B"), QRect(0, 0, 853, 480), 2};
    const DesktopScreen told1{QStringLiteral("A"), QRect(0, 0, 1920, 1080), 1};
    const DesktopScreen told3{QStringLiteral("C"), QRect(0, 0, 1536, 864), 2};
    EXPECT_NEAR(fractionalScale(told2, QSize(1280, 720)).value_or(0), 1.5, 0.001);
    EXPECT_NEAR(fractionalScale(told3, QSize(1920, 1080)).value_or(0), 1.25, 0.001);
    EXPECT_EQ(fractionalScale(told1, QSize(1280, 720)), std::nullopt) << "below 1";
    EXPECT_EQ(fractionalScale(told2, QSize(1280, 960)), std::nullopt) << "another shape";
    EXPECT_EQ(fractionalScale(told2, QSize(2560, 1440)), std::nullopt) << "above what Qt was told";
    EXPECT_EQ(fractionalScale(told2, QSize(853, 480)), std::nullopt) << "a whole scale below";
}

} // namespace
} // namespace nubo
