#include "document/ShotHistory.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

ShotDocument opened()
{
    return ShotDocument::fromImage(QImage(8, 8, QImage::Format_RGBA8888_Premultiplied), 1);
}

// The opened document with n counters: each step adds one.
ShotDocument withCounters(const ShotDocument& base, int n)
{
    ShotDocument d = base;
    for (int i = 0; i < n; ++i) {
        d.annotations.append(Annotation{QUuid(quint32(i + 1), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
                                        CounterAnnotation{{double(i), 0}},
                                        {}});
    }
    return d;
}

TEST(ShotHistory, RecordUndoRedoFollowTheSteps)
{
    const ShotDocument base = opened();
    ShotHistory h(base);
    EXPECT_FALSE(h.canUndo());
    EXPECT_FALSE(h.canRedo());
    EXPECT_EQ(h.undo(), std::nullopt);
    EXPECT_EQ(h.redo(), std::nullopt);
    EXPECT_EQ(h.current, base);

    h.record(withCounters(base, 1));
    h.record(withCounters(base, 2));
    EXPECT_EQ(h.past.size(), 2);

    // Undo then redo returns exactly the document that was current.
    EXPECT_EQ(h.undo(), withCounters(base, 1));
    EXPECT_EQ(h.current, withCounters(base, 1));
    EXPECT_TRUE(h.canRedo());
    EXPECT_EQ(h.redo(), withCounters(base, 2));
    EXPECT_FALSE(h.canRedo());

    // Recording a document equal to the current one changes nothing and keeps
    // the redo list.
    h.undo();
    const ShotHistory before = h;
    h.record(withCounters(base, 1));
    EXPECT_EQ(h, before);
    EXPECT_TRUE(h.canRedo());

    // Recording something new after an undo empties the redo list.
    h.record(withCounters(base, 5));
    EXPECT_FALSE(h.canRedo());
    EXPECT_EQ(h.past.size(), 2);
    EXPECT_EQ(h.undo(), withCounters(base, 1));
    EXPECT_EQ(h.undo(), base);
    EXPECT_EQ(h.undo(), std::nullopt);
    EXPECT_EQ(h.current, base);
}

TEST(ShotHistory, KeepsAHundredStepsBack)
{
    struct Case {
        int recorded;
        int undoable;
        bool openedReachable;
    };
    const Case cases[] = {
        {1, 1, true}, {99, 99, true}, {100, 100, true}, {101, 100, false}, {250, 100, false}};
    const ShotDocument base = opened();
    for (const Case& c : cases) {
        ShotHistory h(base);
        for (int i = 1; i <= c.recorded; ++i) {
            h.record(withCounters(base, i));
        }
        EXPECT_EQ(h.past.size(), c.undoable) << c.recorded;
        int undone = 0;
        while (h.undo()) {
            ++undone;
        }
        EXPECT_EQ(undone, c.undoable) << c.recorded;
        EXPECT_EQ(h.current == base, c.openedReachable) << c.recorded;
        // Everything undone can be redone, beyond the recording limit too.
        EXPECT_EQ(h.future.size(), c.undoable);
        int redone = 0;
        while (h.redo()) {
            ++redone;
        }
        EXPECT_EQ(redone, c.undoable);
        EXPECT_EQ(h.current, withCounters(base, c.recorded));
    }
}

TEST(ShotHistory, StepsShareImagesWithTheOpenedDocument)
{
    const ShotDocument base = opened();
    ShotHistory h(base);
    for (int i = 1; i <= 5; ++i) {
        h.record(withCounters(base, i));
    }
    for (const ShotDocument& step : h.past) {
        EXPECT_EQ(step.layers[0].image.cacheKey(), base.layers[0].image.cacheKey());
        EXPECT_EQ(step.layers[0].image.constBits(), base.layers[0].image.constBits());
    }
}

} // namespace
} // namespace nubo
