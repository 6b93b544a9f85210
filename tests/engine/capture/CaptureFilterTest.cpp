#include "capture/WindowCaptureFilter.h"
#include "support/QtPrinters.h"

#include <functional>
#include <gtest/gtest.h>

namespace nubo {
namespace {

constexpr qint32 ownPid = 4242;

WindowCaptureDescriptor window(QRectF frame, int layer = 0)
{
    WindowCaptureDescriptor d;
    d.window = CapturableWindow{7, QStringLiteral("Editor"), QStringLiteral("gedit"), frame, layer};
    d.processID = 1000;
    return d;
}

TEST(WindowCaptureFilter, KeepsOnlyWindowsAUserWouldPick)
{
    // One 1920 × 1080 display with a 30-point panel strip on top.
    const QList<WindowCaptureDisplay> displays{{{0, 0, 1920, 1080}, 30}};
    struct Case {
        const char* name;
        std::function<void(WindowCaptureDescriptor&)> change;
        bool kept;
    };
    const Case cases[] = {
        {"an ordinary window", [](auto&) {}, true},
        {"our own window", [](auto& d) { d.processID = ownPid; }, false},
        {"no process id", [](auto& d) { d.processID.reset(); }, true},
        {"minimised", [](auto& d) { d.isOnScreen = false; }, false},
        {"fully transparent", [](auto& d) { d.alpha = 0; }, false},
        {"barely visible", [](auto& d) { d.alpha = 0.01; }, true},
        {"7 wide", [](auto& d) { d.window.frame.setWidth(7); }, false},
        {"8 wide", [](auto& d) { d.window.frame.setWidth(8); }, true},
        {"7 high", [](auto& d) { d.window.frame.setHeight(7); }, false},
        {"non-finite frame", [](auto& d) { d.window.frame.setX(std::nan("")); }, false},
        {"negative layer", [](auto& d) { d.window.layer = -1; }, false},
        {"layer 999", [](auto& d) { d.window.layer = 999; }, true},
        {"layer 1000", [](auto& d) { d.window.layer = 1000; }, false},
        {"dock type", [](auto& d) { d.windowTypes = {"dock"}; }, false},
        {"desktop type", [](auto& d) { d.windowTypes = {"desktop"}; }, false},
        {"menu types", [](auto& d) { d.windowTypes = {"dropdown_menu"}; }, false},
        {"tooltip", [](auto& d) { d.windowTypes = {"tooltip"}; }, false},
        {"notification", [](auto& d) { d.windowTypes = {"notification"}; }, false},
        {"splash", [](auto& d) { d.windowTypes = {"splash"}; }, false},
        {"dialog", [](auto& d) { d.windowTypes = {"dialog"}; }, true},
        // A window's class is the application's own choice: an application
        // called "Dock" or "Screenshot" is as pickable as any other. Only the
        // window types say what belongs to the desktop.
        {"an application named Dock", [](auto& d) { d.window.applicationName = "Dock"; }, true},
        {"an application named Screenshot",
         [](auto& d) { d.window.applicationName = "screenshot"; },
         true},
        {"inside the top panel strip", [](auto& d) { d.window.frame = QRectF(1800, 2, 20, 20); },
         false},
        {"reaching below the strip", [](auto& d) { d.window.frame = QRectF(1800, 2, 20, 40); },
         true},
        {"display-sized at layer 0", [](auto& d) { d.window.frame = QRectF(0, 0, 1920, 1080); },
         true},
        {"display-sized above the normal layer",
         [](auto& d) {
             d.window.frame = QRectF(0, 0, 1920, 1080);
             d.window.layer = 3;
         },
         false},
        {"almost display-sized above",
         [](auto& d) {
             d.window.frame = QRectF(3, 3, 1914, 1074);
             d.window.layer = 3;
         },
         true},
    };
    for (const Case& c : cases) {
        WindowCaptureDescriptor d = window({100, 100, 400, 300});
        c.change(d);
        EXPECT_EQ(WindowCaptureFilter::keep(d, displays, ownPid), c.kept) << c.name;
    }
}

TEST(WindowCaptureFilter, KeepsTheFrontMostOrder)
{
    QList<WindowCaptureDescriptor> list{window({0, 100, 100, 100}), window({0, 100, 5, 5}),
                                        window({50, 150, 100, 100})};
    list[0].window.id = 1;
    list[1].window.id = 2;
    list[2].window.id = 3;
    const auto kept = WindowCaptureFilter::filter(list, {{{0, 0, 1920, 1080}, 0}}, ownPid);
    ASSERT_EQ(kept.size(), 2);
    EXPECT_EQ(kept[0].id, 1u);
    EXPECT_EQ(kept[1].id, 3u);
}

TEST(WindowCaptureFraming, DisplayWhenOneHoldsTheWindowFreeOtherwise)
{
    const QList<std::pair<quint32, QRectF>> displays{{10, {0, 0, 960, 1080}},
                                                     {20, {960, 0, 960, 1080}}};
    EXPECT_EQ(WindowCaptureFraming::forWindow({1000, 100, 200, 100}, displays),
              (WindowCaptureFraming{WindowCaptureFraming::Display{20, {40, 100, 200, 100}}}));
    EXPECT_EQ(WindowCaptureFraming::forWindow({900, 100, 200, 100}, displays),
              (WindowCaptureFraming{WindowCaptureFraming::Free{}}));
    struct Case {
        QSizeF size;
        double scale;
        QSize expected;
    };
    const Case cases[] = {{{100, 50}, 2, {200, 100}},
                          {{0.2, 0.2}, 1, {1, 1}},
                          {{10.4, 10.6}, 1, {10, 11}},
                          {{0, 0}, 2, {1, 1}}};
    for (const Case& c : cases) {
        EXPECT_EQ(WindowCaptureFraming::pixelSize(c.size, c.scale), c.expected);
    }
}

} // namespace
} // namespace nubo
