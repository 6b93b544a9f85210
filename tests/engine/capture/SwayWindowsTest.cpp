#include "capture/portal/SwayWindows.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

// sway's GET_TREE answer as it is shaped: outputs, workspaces, tiled nodes
// and floating nodes (the top one last).
const char* const tree = R"({"type":"root","nodes":[{"type":"output","name":"HEADLESS-1",
  "nodes":[{"type":"workspace","nodes":[
    {"type":"con","id":4,"pid":100,"app_id":"editor","name":"Notes","visible":true,
     "rect":{"x":0,"y":25,"width":960,"height":1032},"deco_rect":{"x":0,"y":0,"width":960,"height":25}},
    {"type":"con","id":5,"pid":101,"app_id":null,"window_properties":{"class":"XTerm"},
     "name":"xterm","visible":false,"rect":{"x":960,"y":25,"width":960,"height":1032},
     "deco_rect":{"x":0,"y":0,"width":0,"height":0}},
    {"type":"con","id":9,"name":"a split","nodes":[]}],
   "floating_nodes":[
    {"type":"floating_con","id":7,"pid":102,"app_id":"below","name":"Below","visible":true,
     "rect":{"x":100,"y":100,"width":300,"height":200},"deco_rect":{"x":0,"y":0,"width":0,"height":0}},
    {"type":"floating_con","id":8,"pid":42,"app_id":"nuboshot-app","name":"ours","visible":true,
     "rect":{"x":0,"y":0,"width":50,"height":50},"deco_rect":{"x":0,"y":0,"width":0,"height":0}},
    {"type":"floating_con","id":6,"pid":103,"app_id":"top","name":"Top","visible":true,
     "rect":{"x":150,"y":150,"width":300,"height":200},"deco_rect":{"x":0,"y":0,"width":0,"height":0}}
   ]}]}]})";

TEST(SwayWindows, VisibleViewsFrontMostFirstWithTheirTitleBarsButNotOurs)
{
    const QList<CapturableWindow> windows = swayWindowsFromTree(tree, 42);
    QList<quint32> ids;
    for (const CapturableWindow& w : windows) {
        ids.append(w.id);
    }
    // Floating above tiled, the later floating window on top; the hidden
    // one, the split (no view) and our own left out.
    EXPECT_EQ(ids, QList<quint32>({6, 7, 4}));
    ASSERT_EQ(windows.size(), 3);
    EXPECT_EQ(windows[2].frame, QRectF(0, 0, 960, 1057)) << "the title bar is part of the frame";
    EXPECT_EQ(windows[2].applicationName, QStringLiteral("editor"));
    EXPECT_EQ(windows[2].title, QStringLiteral("Notes"));
}

TEST(SwayWindows, AnswersThatAreNotATreeListNothing)
{
    for (const char* answer : {"", "not json", "[]", R"({"nodes":"x"})",
                               R"({"nodes":[{"type":"con","pid":1,"visible":true}]})"}) {
        SCOPED_TRACE(answer);
        EXPECT_TRUE(swayWindowsFromTree(answer, 0).isEmpty());
    }
}

} // namespace
} // namespace nubo
