#include "video/VideoEditHistory.h"
#include "video/VideoEditList.h"
#include "video/VideoEditRenderer.h"

#include <gtest/gtest.h>

#include <limits>

namespace nubo {

void PrintTo(const VideoTime& t, std::ostream* os) { *os << t.value << "/" << t.scale; }

namespace {

VideoTime s(double seconds) { return *VideoTime::parse(QString::number(seconds, 'f', 3)); }
VideoTimeRange r(double from, double to) { return VideoTimeRange::between(s(from), s(to)); }

TEST(VideoTime, IsExactAndParsesDecimals)
{
    EXPECT_EQ(VideoTime(1, 3) + VideoTime(1, 6), VideoTime(1, 2));
    EXPECT_EQ(VideoTime(512, 15360), VideoTime(1, 30)) << "kept reduced";
    EXPECT_EQ(VideoTime(1, 10) + VideoTime(2, 10), VideoTime(3, 10)) << "no floating drift";
    EXPECT_LT(VideoTime(1001, 30000), VideoTime(1, 29));
    EXPECT_EQ(VideoTime::parse("2.5"), VideoTime(5, 2));
    EXPECT_EQ(VideoTime::parse("0.033"), VideoTime(33, 1000));
    EXPECT_EQ(VideoTime::parse("12"), VideoTime::seconds(12));
    for (const char* bad : {"", "1e3", "abc", "1.", "1,5", "nan"}) {
        EXPECT_FALSE(VideoTime::parse(bad)) << bad;
    }
    EXPECT_EQ(VideoTime(1, 3).ticks(1, 30), 10);
    EXPECT_EQ(VideoTime(1, 60).ticks(1, 30), 1) << "halves round away from zero";
    EXPECT_EQ(VideoTime(1, 60).floorTicks(1, 30), 0);
    EXPECT_EQ(VideoTime::ofTicks(7680, 1, 15360), VideoTime(1, 2));
}

// A 10 s movie with 2–3 s and 5–6 s cut.
VideoEditList example()
{
    VideoEditList list = VideoEditList::opened("movie.mp4", s(10));
    list.removedRanges = {r(2, 3), r(5, 6)};
    return list;
}

TEST(VideoEditList, KeptRangesAndTheThreeTimeMappings)
{
    struct Case {
        const char* name;
        VideoEditList list;
        std::vector<VideoTimeRange> kept;
        std::vector<std::pair<double, std::optional<double>>> edited; // source → edited
        std::vector<std::pair<double, double>> source;                // edited → source
        std::vector<std::pair<double, std::optional<double>>> next;   // source → next playable
    };
    VideoEditList everything = VideoEditList::opened("movie.mp4", s(10));
    everything.inPoint = s(1);
    everything.removedRanges = {r(0, 10)};
    VideoEditList twice = example();
    twice.removedRanges.push_back(r(2, 3));
    VideoEditList overlapping = VideoEditList::opened("movie.mp4", s(10));
    overlapping.removedRanges = {r(1, 4), r(3, 5), r(9, 12)};
    VideoEditList trimmed = example();
    trimmed.inPoint = s(1);
    trimmed.outPoint = s(8);
    const Case cases[] = {
        {"the example", example(), {r(0, 2), r(3, 5), r(6, 10)},
         {{4, 3}, {2.5, std::nullopt}, {10, 8}, {0, 0}, {2, std::nullopt}, {3, 2}, {11, std::nullopt}},
         {{4.5, 6.5}, {0, 0}, {-1, 0}, {2, 3}, {8, 10}, {50, 10}},
         {{2.5, 3}, {0.5, 0.5}, {5, 6}, {9.9, 9.9}, {10, std::nullopt}}},
        {"a cut over everything", everything, {}, {{4, std::nullopt}, {10, std::nullopt}},
         {{0, 1}, {3, 1}}, {{0, std::nullopt}}},
        {"a range cut twice", twice, {r(0, 2), r(3, 5), r(6, 10)}, {{4, 3}}, {{4.5, 6.5}}, {{2.5, 3}}},
        {"overlapping cuts", overlapping, {r(0, 1), r(5, 9)}, {{5, 1}, {3.5, std::nullopt}, {9, 5}},
         {{1, 5}, {4.5, 8.5}}, {{1, 5}}},
        {"in and out points", trimmed, {r(1, 2), r(3, 5), r(6, 8)}, {{0.5, std::nullopt}, {1, 0}, {8, 5}},
         {{0, 1}, {1.5, 3.5}, {9, 8}}, {{0, 1}, {8, std::nullopt}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(c.list.keptRanges(), c.kept);
        for (const auto& [from, to] : c.edited) {
            EXPECT_EQ(c.list.editedTime(s(from)), to ? std::optional(s(*to)) : std::nullopt) << "edited of " << from;
        }
        for (const auto& [from, to] : c.source) {
            EXPECT_EQ(c.list.sourceTime(s(from)), s(to)) << "source of " << from;
        }
        for (const auto& [from, to] : c.next) {
            EXPECT_EQ(c.list.nextPlayableTime(s(from)), to ? std::optional(s(*to)) : std::nullopt) << "next of " << from;
        }
    }
}

TEST(VideoEditList, EditsClampAndChangeOnlyWhatTheySay)
{
    const VideoTime duration = s(10), frame = VideoTime(1, 30);
    VideoEditList list = VideoEditList::opened("movie.mp4", duration);

    EXPECT_TRUE(list.split(s(4), duration));
    EXPECT_FALSE(list.split(s(4), duration)) << "a split twice is one split";
    EXPECT_TRUE(list.split(s(2), duration));
    EXPECT_FALSE(list.split(s(0), duration));
    EXPECT_FALSE(list.split(s(10), duration));
    EXPECT_FALSE(list.split(s(-1), duration));
    EXPECT_EQ(list.splitPoints, (std::vector{s(2), s(4)}));

    EXPECT_EQ(list.segmentAt(s(3), duration), r(2, 4));
    EXPECT_EQ(list.segmentAt(s(1), duration), r(0, 2));
    EXPECT_EQ(list.segmentAt(s(7), duration), r(4, 10));
    EXPECT_TRUE(list.removeSegment(s(3), duration));
    EXPECT_FALSE(list.removeSegment(s(2.5), duration)) << "already removed";
    EXPECT_EQ(list.keptRanges(), (std::vector{r(0, 2), r(4, 10)}));
    EXPECT_TRUE(list.restoreAt(s(3)));
    EXPECT_FALSE(list.restoreAt(s(3)));
    EXPECT_EQ(list.keptRanges(), (std::vector{r(0, 10)}));

    EXPECT_TRUE(list.setInPoint(s(12), duration, frame));
    EXPECT_EQ(list.inPoint, s(10) - frame) << "the in point stays a frame before the out point";
    EXPECT_FALSE(list.setOutPoint(s(0), duration, frame)) << "never before the in point";
    EXPECT_EQ(list.outPoint, s(10));
    EXPECT_TRUE(list.setInPoint(s(1), duration, frame));
    EXPECT_TRUE(list.setOutPoint(s(9), duration, frame));
    EXPECT_FALSE(list.setOutPoint(s(9), duration, frame));
    EXPECT_TRUE(list.setOutPoint(s(20), duration, frame));
    EXPECT_EQ(list.outPoint, duration);
    list.setOutPoint(s(9), duration, frame);

    EXPECT_EQ(list.addBlur(QRectF(0.9, -0.2, 0.3, 0.5), r(0, 20)), 1);
    EXPECT_EQ(list.addBlur(QRectF(0.1, 0.1, 0, 0), r(5, 5)), 2);
    EXPECT_EQ(list.nextBlurNumber, 3);
    EXPECT_EQ(list.blurs[0].rect, QRectF(0.7, 0, 0.3, 0.5)) << "moved inside the frame, size kept";
    EXPECT_EQ(list.blurs[0].timeRange, r(1, 9)) << "inside the in–out span";
    EXPECT_EQ(list.blurs[1].rect.size(), QSizeF(0.01, 0.01));
    EXPECT_EQ(list.blurs[1].timeRange.duration, VideoTime::milliseconds(1));
    const QUuid first = list.blurs[0].id;
    EXPECT_TRUE(list.updateBlur(first, QRectF(0.2, 0.2, 0.1, 0.1), r(2, 3)));
    EXPECT_FALSE(list.updateBlur(first, QRectF(0.2, 0.2, 0.1, 0.1), r(2, 3)));
    EXPECT_FALSE(list.updateBlur(QUuid::createUuid(), QRectF(0, 0, 1, 1), r(2, 3)));
    EXPECT_TRUE(list.removeBlur(first));
    EXPECT_FALSE(list.removeBlur(first));
    EXPECT_EQ(list.addBlur(QRectF(0, 0, 0.5, 0.5), r(1, 2)), 3) << "numbers are never reused";

    EXPECT_TRUE(list.setCrop(QRectF(-0.5, 0.25, 0.5, 2)));
    EXPECT_EQ(list.cropRect, QRectF(0, 0, 0.5, 1));
    EXPECT_TRUE(list.setCrop(QRectF(0, 0, 1, 1)));
    EXPECT_FALSE(list.cropRect) << "the whole frame is no crop";
    EXPECT_TRUE(list.setMuted(true));
    EXPECT_FALSE(list.setMuted(true));
    EXPECT_TRUE(list.setQuality(VideoExportQuality::p720));
    EXPECT_FALSE(list.isCutOnly());
}

TEST(VideoEditRenderer, OutputSizesAndEstimates)
{
    struct Case {
        QSize source;
        std::optional<QRectF> crop;
        VideoExportQuality quality;
        QSize expected;
    };
    const Case cases[] = {
        {{1920, 1080}, {}, VideoExportQuality::original, {1920, 1080}},
        {{1920, 1080}, {}, VideoExportQuality::p1080, {1920, 1080}},
        {{1920, 1080}, {}, VideoExportQuality::p720, {1280, 720}},
        {{3024, 1964}, {}, VideoExportQuality::p1080, {1662, 1080}},
        {{1001, 600}, QRectF(0, 0, 0.5, 1), VideoExportQuality::original, {500, 600}},
        {{1000, 600}, QRectF(0, 0, 0.001, 0.001), VideoExportQuality::original, {2, 2}},
        {{640, 360}, {}, VideoExportQuality::p720, {640, 360}},
        {{2560, 1440}, QRectF(0, 0, 0.5, 0.5), VideoExportQuality::p720, {1280, 720}},
        {{2560, 1600}, QRectF(0, 0, 1, 0.5), VideoExportQuality::p720, {2304, 720}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(videoOutputSize(c.source, c.crop, c.quality), c.expected)
            << c.source.width() << "x" << c.source.height() << " " << int(c.quality);
    }

    VideoSourceInfo info;
    info.size = QSize(1920, 1080);
    info.videoBitRate = 8'000'000;
    info.hasAudio = true;
    VideoEditList list = example(); // 8 s kept
    EXPECT_EQ(videoSizeEstimate(list, info), int64_t((8'000'000 + 192'000) * 8 / 8));
    list.isMuted = true;
    EXPECT_EQ(videoSizeEstimate(list, info), 8'000'000);
    list.quality = VideoExportQuality::p720; // 1280 × 720 of 1920 × 1080: 4/9 of the pixels
    EXPECT_NEAR(double(videoSizeEstimate(list, info)), 8'000'000.0 * 4 / 9, 1);
    info.hasAudio = false;
    list.isMuted = false;
    list.quality = VideoExportQuality::original;
    EXPECT_EQ(videoSizeEstimate(list, info), 8'000'000) << "no sound in the source, none in the estimate";
    info.videoBitRate = 1e300;
    EXPECT_EQ(videoSizeEstimate(list, info), std::numeric_limits<int64_t>::max()) << "saturates";
}

TEST(VideoEditHistory, StepsUndoRedoAndOneStepPerDrag)
{
    VideoEditHistory history(example());
    VideoEditList next = history.current;
    next.setMuted(true);
    EXPECT_TRUE(history.commit(next));
    EXPECT_FALSE(history.commit(next)) << "no step without a change";
    EXPECT_TRUE(history.hasEdits());

    // A drag: many changes, one step.
    history.beginCoalescing();
    for (int i = 1; i <= 10; ++i) {
        VideoEditList dragged = history.current;
        dragged.setInPoint(s(i * 0.1), s(10), VideoTime(1, 30));
        history.commit(dragged);
    }
    EXPECT_FALSE(history.canUndo()) << "not while dragging";
    history.endCoalescing();
    EXPECT_EQ(history.past.size(), 2u);
    EXPECT_EQ(history.current.inPoint, s(1));

    // A drag that comes back where it began is no step.
    history.beginCoalescing();
    VideoEditList away = history.current;
    away.setInPoint(s(3), s(10), VideoTime(1, 30));
    history.commit(away);
    VideoEditList back = away;
    back.inPoint = s(1);
    history.commit(back);
    history.endCoalescing();
    EXPECT_EQ(history.past.size(), 2u);

    EXPECT_TRUE(history.undo());
    EXPECT_EQ(history.current.inPoint, s(0));
    EXPECT_TRUE(history.current.isMuted);
    EXPECT_TRUE(history.undo());
    EXPECT_FALSE(history.hasEdits());
    EXPECT_FALSE(history.undo());
    EXPECT_TRUE(history.redo());
    EXPECT_TRUE(history.current.isMuted);
    VideoEditList other = history.current;
    other.setQuality(VideoExportQuality::p1080);
    history.commit(other);
    EXPECT_FALSE(history.canRedo()) << "a new step clears the redo stack";
}

} // namespace
} // namespace nubo
