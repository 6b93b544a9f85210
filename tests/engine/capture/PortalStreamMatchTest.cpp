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
        {"no screen twice", sideBySide,
         {{std::nullopt, std::nullopt, QSize(1280, 720), {}},
          {std::nullopt, std::nullopt, QSize(1280, 720), {}}},
         {1, -1}},
        {"a picture of no screen's size", sideBySide,
         {{std::nullopt, std::nullopt, QSize(800, 600), {}}}, {-1}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(matchPortalStreams(c.screens, c.streams), c.expected);
    }
}

} // namespace
} // namespace nubo
