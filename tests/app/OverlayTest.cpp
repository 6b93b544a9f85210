#include "overlay/ShotCaptureOverlay.h"
#include "support/QtPrinters.h"

#include <QAction>

#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(ShotCaptureOverlay, CornerHandlesByTheEightPointRule)
{
    const QRectF selection(100, 100, 200, 100);
    struct Case {
        const char* name;
        QPointF pointer;
        std::optional<ResizeHandle> expected;
    };
    const Case cases[] = {
        {"8 right and 8 below a corner", {308, 208}, ResizeHandle::bottomRight},
        {"8.1 away on one axis", {308.1, 200}, std::nullopt},
        {"on the top-left corner", {100, 100}, ResizeHandle::topLeft},
        {"inside, far from corners", {200, 150}, std::nullopt},
        {"nearest of two candidates", {102, 100}, ResizeHandle::topLeft},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ShotCaptureOverlay::cornerAt(selection, c.pointer), c.expected) << c.name;
    }
    // Equally close to two corners: the earlier one in the order wins.
    const QRectF thin(0, 0, 10, 4);
    EXPECT_EQ(ShotCaptureOverlay::cornerAt(thin, {5, 0}), ResizeHandle::topLeft);
    EXPECT_EQ(ShotCaptureOverlay::cornerAt(thin, {5, 4}), ResizeHandle::bottomRight);
}

TEST(ShotCaptureOverlay, ArrowKeysMoveAndStopAtTheEdges)
{
    const QSizeF view(1000, 600);
    struct Case {
        QRectF selection;
        QPointF by;
        QRectF expected;
    };
    const Case cases[] = {
        {{895, 10, 100, 50}, {10, 0}, {900, 10, 100, 50}},
        {{5, 10, 100, 50}, {-10, 0}, {0, 10, 100, 50}},
        {{5, 545, 100, 50}, {0, 10}, {5, 550, 100, 50}},
        {{5, 100, 100, 50}, {0, -1}, {5, 99, 100, 50}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ShotCaptureOverlay::nudged(c.selection, c.by, view), c.expected);
    }
    EXPECT_EQ(ShotCaptureOverlay::instruction(ShotCaptureOverlay::Mode::area),
              QStringLiteral("Drag to capture \u00b7 Space: Window \u00b7 Esc: Cancel"));
    EXPECT_EQ(ShotCaptureOverlay::instruction(ShotCaptureOverlay::Mode::window),
              QStringLiteral("Click a window \u00b7 Space: Area \u00b7 Esc: Cancel"));
}

} // namespace
} // namespace nubo

#include "shell/ShotStatusMenu.h"

namespace nubo {
namespace {

TEST(ShotStatusMenu, ItemsInTheDesignedOrder)
{
    CaptureMode chosen = CaptureMode::scrolling;
    bool opened = false, quit = false;
    ShotStatusMenu menu({[&](CaptureMode mode) { chosen = mode; }, [&] { opened = true; }, [] {},
                         [&] {
                             quit = true;
                         }});
    QStringList titles;
    for (const QAction* action : menu.menu().actions()) {
        titles << (action->isSeparator() ? QStringLiteral("-") : action->text());
    }
    EXPECT_EQ(titles.join(u'|'),
              QStringLiteral("Capture Area|Capture Window|Capture Fullscreen|-|"
                             "Open Image in Nubo Shot\u2026|-|Settings\u2026|-|Quit Nubo Shot"));
    const auto actions = menu.menu().actions();
    EXPECT_EQ(actions[0]->data().toString(), QStringLiteral("area"));
    EXPECT_EQ(actions[2]->data().toString(), QStringLiteral("fullscreen"));
    EXPECT_EQ(actions[4]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
    EXPECT_EQ(actions.last()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    actions[1]->trigger();
    EXPECT_EQ(chosen, CaptureMode::window);
    actions[4]->trigger();
    EXPECT_TRUE(opened);
    actions.last()->trigger();
    EXPECT_TRUE(quit);
}

} // namespace
} // namespace nubo
