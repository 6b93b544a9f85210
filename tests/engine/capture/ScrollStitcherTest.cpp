#include "capture/CaptureTypes.h"
#include "capture/ScrollStitcher.h"
#include "capture/ScrollingCapture.h"
#include "support/RenderFixtures.h"

#include <QImage>
#include <QPainter>
#include <QRandomGenerator>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using Update = ScrollStitcher::Update;

constexpr int frameWidth = 320;

// A page whose every row differs from the others: noise seeded per row.
QImage noisePage(int height, quint32 seed = 7)
{
    QImage page(frameWidth, height, QImage::Format_RGBA8888_Premultiplied);
    QRandomGenerator random(seed);
    for (int y = 0; y < height; ++y) {
        auto* row = reinterpret_cast<quint32*>(page.scanLine(y));
        for (int x = 0; x < frameWidth; ++x) {
            row[x] = random.generate() | 0xff000000u;
        }
    }
    return page;
}

// A window showing `page` from `scroll` under a fixed header and over a
// fixed footer (both of their own colours and texture).
struct Window {
    QImage page;
    int visible = 200; // rows of page shown
    int header = 0;
    int footer = 0;

    QImage frame(int scroll) const
    {
        QImage f(page.width(), header + visible + footer, QImage::Format_RGBA8888_Premultiplied);
        QPainter painter(&f);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(QPoint(0, header), page.copy(0, scroll, page.width(), visible));
        for (int y = 0; y < header; ++y) {
            painter.fillRect(0, y, f.width(), 1, QColor(30 + y * 3 % 200, 60, 200 - y % 100));
        }
        for (int y = 0; y < footer; ++y) {
            painter.fillRect(0, header + visible + y, f.width(), 1,
                             QColor(220, 100 + y * 5 % 150, 40 + y));
        }
        return f;
    }
    // What the whole page looks like in this window: header, page, footer.
    QImage truth(int rows) const
    {
        Window tall = *this;
        tall.visible = rows;
        return tall.frame(0);
    }
};

TEST(ScrollStitcher, StitchesExactlyWithFixedBandsAtAnyStep)
{
    struct Case {
        const char* name;
        int header, footer;
        QList<int> steps;
    };
    const Case cases[] = {
        {"no bands, even steps", 0, 0, {40, 40, 40, 40}},
        {"header and footer, one-row and nearly-whole steps", 24, 16, {1, 150, 1, 7, 100, 2}},
        {"a tall header", 60, 10, {30, 90, 5, 77}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const Window window{noisePage(1200), 200, c.header, c.footer};
        ScrollStitcher stitcher(30000, 128 << 20, 1);
        EXPECT_EQ(stitcher.add(window.frame(0)), Update::accepted);
        int scroll = 0;
        for (const int step : c.steps) {
            scroll += step;
            EXPECT_EQ(stitcher.add(window.frame(scroll)), Update::accepted) << "step " << step;
            EXPECT_EQ(stitcher.lastOffset, std::optional(step));
            EXPECT_GE(stitcher.lastVerifiedRatio, 0.98);
        }
        const QImage stitched = stitcher.makeImage();
        const QImage expected = window.truth(scroll + window.visible);
        ASSERT_EQ(stitched.size(), expected.size());
        EXPECT_EQ(test::compareImages(stitched, expected, 0).maximum, 0);
        EXPECT_EQ(stitcher.headerRows, c.header);
        EXPECT_EQ(stitcher.footerRows, c.footer);
        // The preview's rows: the newest ones, the footer included, however
        // many of them fall into the footer.
        for (const int rows : {1, c.footer, c.footer + 1, 90, int(stitcher.outputHeight()), 100000}) {
            SCOPED_TRACE(rows);
            const int kept = std::min(rows, expected.height());
            const QImage tail = stitcher.tail(rows);
            ASSERT_EQ(tail.height(), kept);
            EXPECT_EQ(test::compareImages(tail, expected.copy(0, expected.height() - kept,
                                                              expected.width(), kept),
                                          0)
                          .maximum,
                      0);
        }
        // Handing the rows over gives the same picture.
        const QImage taken = stitcher.takeImage();
        EXPECT_EQ(test::compareImages(taken, expected, 0).maximum, 0);
    }
}

TEST(ScrollStitcher, FollowsBackAndForthAndAddsOnlyBelowTheFrontier)
{
    const Window window{noisePage(1000), 200, 20, 20};
    ScrollStitcher stitcher(30000, 128 << 20, 1);
    ScrollTrackingState tracking;
    const auto add = [&](int scroll) {
        const Update update = stitcher.add(window.frame(scroll));
        tracking.record(update);
        return update;
    };
    ASSERT_EQ(add(0), Update::accepted);
    // A still frame: unchanged, offset 0, ratio 1, nothing added.
    EXPECT_EQ(add(0), Update::unchanged);
    EXPECT_EQ(stitcher.lastOffset, std::optional(0));
    EXPECT_EQ(stitcher.lastVerifiedRatio, 1.0);
    EXPECT_EQ(stitcher.outputHeight(), 240);

    EXPECT_EQ(add(60), Update::accepted);
    EXPECT_EQ(stitcher.outputHeight(), 300);
    EXPECT_EQ(add(20), Update::accepted) << "back up";
    EXPECT_EQ(stitcher.lastOffset, std::optional(-40));
    EXPECT_EQ(stitcher.outputHeight(), 300) << "scrolling back adds nothing";
    EXPECT_EQ(add(60), Update::accepted);
    EXPECT_EQ(stitcher.outputHeight(), 300) << "down again to the frontier adds nothing";
    EXPECT_EQ(add(90), Update::accepted);
    EXPECT_EQ(stitcher.outputHeight(), 330) << "only rows below the frontier";

    // A jump past everything the area shows cannot be matched: skipped,
    // three times makes the tracking lost, until scrolled back.
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(add(600 + i * 7), Update::skipped);
    }
    EXPECT_TRUE(tracking.isLost);
    EXPECT_EQ(tracking.consecutiveMisses, 3);
    EXPECT_EQ(add(600 + 14), Update::skipped);
    EXPECT_EQ(tracking.consecutiveMisses, 3);
    EXPECT_EQ(add(120), Update::accepted) << "back within reach";
    EXPECT_FALSE(tracking.isLost);
    const QImage expected = window.truth(120 + 200);
    EXPECT_EQ(test::compareImages(stitcher.makeImage(), expected, 0).maximum, 0);
}

TEST(ScrollStitcher, AFrameCaughtMidDrawIsWithdrawnByTheNextOne)
{
    // A terminal scrolls whole lines a notch: it moves what it shows up at
    // once and paints the new lines after. A frame caught between the two
    // shows the moved lines over a bottom band that is still the old one,
    // or still blank; it verifies on the moved rows.
    const Window window{noisePage(1400), 240, 10, 0};
    const auto torn = [&](int from, int to, bool blank) {
        QImage f = window.frame(to);
        const QImage old = window.frame(from);
        const int band = to - from;
        QPainter painter(&f);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        const QRect bottom(0, f.height() - band, f.width(), band);
        if (blank) {
            painter.fillRect(bottom, Qt::black);
        } else {
            painter.drawImage(bottom.topLeft(), old.copy(bottom));
        }
        return f;
    };
    for (const bool blank : {true, false}) {
        SCOPED_TRACE(blank ? "blank band" : "stale band");
        ScrollStitcher stitcher(30000, 128 << 20, 1);
        ScrollTrackingState tracking;
        const auto add = [&](const QImage& frame) {
            const Update update = stitcher.add(frame);
            tracking.record(update);
            return update;
        };
        ASSERT_EQ(add(window.frame(0)), Update::accepted);
        int scroll = 0;
        for (int notch = 0; notch < 12; ++notch) {
            const int next = scroll + 65;
            if (notch % 3 != 2) {
                add(torn(scroll, next, blank));
            }
            EXPECT_EQ(add(window.frame(next)), Update::accepted) << "notch " << notch;
            scroll = next;
        }
        EXPECT_FALSE(tracking.isLost);
        EXPECT_GE(stitcher.withdrawn, 1);
        const QImage expected = window.truth(scroll + window.visible);
        const QImage stitched = stitcher.makeImage();
        ASSERT_EQ(stitched.size(), expected.size());
        EXPECT_EQ(test::compareImages(stitched, expected, 0).maximum, 0);
    }
}

TEST(ScrollStitcher, AScrollBarBesideTheContentIsLeftOutOfTheComparison)
{
    // A terminal's bar at the left edge: its thumb moves with every step,
    // so no row of the area is the same from one frame to the next.
    const Window window{noisePage(1400), 240, 0, 0};
    const auto withBar = [&](int scroll) {
        QImage f = window.frame(scroll);
        QPainter painter(&f);
        painter.fillRect(0, 0, 14, f.height(), QColor(200, 200, 200));
        painter.fillRect(1, scroll * window.visible / window.page.height(), 12, 40, QColor(90, 90, 90));
        return f;
    };
    ScrollStitcher stitcher(30000, 128 << 20, 1);
    ASSERT_EQ(stitcher.add(withBar(0)), Update::accepted);
    for (int scroll = 35; scroll <= 700; scroll += 35) {
        EXPECT_EQ(stitcher.add(withBar(scroll)), Update::accepted) << scroll;
    }
    EXPECT_TRUE(stitcher.edgesMove);
    const QImage expected = window.truth(700 + window.visible);
    const QImage stitched = stitcher.makeImage();
    ASSERT_EQ(stitched.size(), expected.size());
    const QRect content(24, 0, expected.width() - 24, expected.height());
    EXPECT_EQ(test::compareImages(stitched.copy(content), expected.copy(content), 0).maximum, 0);
}

TEST(ScrollStitcher, NeverGuessesAShift)
{
    // A page of identical rows, then a differently blank one.
    QImage white(frameWidth, 200, QImage::Format_RGBA8888_Premultiplied);
    white.fill(Qt::white);
    QImage grey = white;
    grey.fill(QColor(200, 200, 200));
    // Stripes that repeat every 16 rows: every shift by 16 verifies as well.
    QImage stripes(frameWidth, 800, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < stripes.height(); ++y) {
        stripes.fill(Qt::black);
    }
    {
        QPainter painter(&stripes);
        for (int y = 0; y < stripes.height(); ++y) {
            painter.fillRect(0, y, frameWidth, 1, QColor::fromHsv((y % 16) * 20, 200, 220));
        }
    }
    // A band of 10 rows between header and footer.
    const Window narrow{noisePage(400), 10, 20, 20};

    struct Case {
        const char* name;
        QImage first, second;
    };
    const Case cases[] = {
        {"blank pages", white, grey},
        {"a periodic pattern", stripes.copy(0, 0, frameWidth, 200),
         stripes.copy(0, 5, frameWidth, 200)},
        {"a band under 12 rows", narrow.frame(0), narrow.frame(3)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScrollStitcher stitcher(30000, 128 << 20, 1);
        ASSERT_EQ(stitcher.add(c.first), Update::accepted);
        EXPECT_EQ(stitcher.add(c.second), Update::skipped);
        EXPECT_FALSE(stitcher.lastOffset.has_value());
        EXPECT_EQ(stitcher.lastVerifiedRatio, 0);
        EXPECT_EQ(stitcher.outputHeight(), c.first.height());
    }
}

TEST(ScrollStitcher, LimitsTruncateAndHold)
{
    const Window window{noisePage(1000), 100, 0, 0};
    const qint64 stride = frameWidth * 4;
    struct Case {
        const char* name;
        qint64 rows, bytes;
        qint64 expected;
    };
    const Case cases[] = {
        {"rows", 150, 128 << 20, 150},
        {"bytes", 30000, stride * 170 + 7, 170},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ScrollStitcher stitcher(c.rows, c.bytes, 1);
        ASSERT_EQ(stitcher.add(window.frame(0)), Update::accepted);
        EXPECT_EQ(stitcher.add(window.frame(40)), Update::accepted);
        EXPECT_EQ(stitcher.add(window.frame(80)), Update::limitReached);
        EXPECT_EQ(stitcher.outputHeight(), c.expected);
        EXPECT_EQ(stitcher.add(window.frame(120)), Update::limitReached);
        EXPECT_EQ(stitcher.add(window.frame(120)), Update::limitReached) << "even a still frame";
        EXPECT_EQ(stitcher.outputHeight(), c.expected);
        EXPECT_EQ(test::compareImages(stitcher.makeImage(), window.truth(int(c.expected)), 0).maximum,
                  0);
    }

    // A first frame taller than the limit is cut to it.
    ScrollStitcher small(60, 128 << 20, 1);
    EXPECT_EQ(small.add(window.frame(0)), Update::limitReached);
    EXPECT_EQ(small.outputHeight(), 60);
    // No row at all within the limits: noContent.
    ScrollStitcher none(30000, stride - 1, 1);
    try {
        none.add(window.frame(0));
        ADD_FAILURE() << "no error";
    } catch (const CaptureError& error) {
        EXPECT_EQ(error.code(), CaptureError::Code::noContent);
    }
}

TEST(ScrollStitcher, ASizeChangeRestartsOnlyBeforeAnythingWasAdded)
{
    const Window small{noisePage(1000), 100, 10, 10};
    const Window large{small.page, 140, 10, 10};
    ScrollStitcher stitcher(30000, 128 << 20, 1);
    ASSERT_EQ(stitcher.add(small.frame(0)), Update::accepted);
    EXPECT_EQ(stitcher.add(large.frame(0)), Update::accepted) << "restarted";
    EXPECT_EQ(stitcher.outputHeight(), 160);
    EXPECT_EQ(stitcher.add(large.frame(30)), Update::accepted);
    EXPECT_EQ(stitcher.add(small.frame(30)), Update::incompatibleSize);
    EXPECT_EQ(stitcher.outputHeight(), 190);
    EXPECT_EQ(stitcher.add(large.frame(50)), Update::accepted) << "still usable";
}

// Frames cut from a real screenshot, with a caret blinking and a hover tint
// in some: the stitched page equals the original.
TEST(ScrollStitcher, RealContentWithSmallChangesStitchesExactly)
{
    const QImage screenshot =
        QImage(QStringLiteral(NUBOSHOT_TEST_DATA "/web-1920x1080.png"))
            .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    ASSERT_FALSE(screenshot.isNull());
    Window window{screenshot.copy(0, 0, 1920, 1080), 400, 60, 30};
    ScrollStitcher stitcher(30000, 128 << 20, 1);
    int scroll = 0;
    ASSERT_EQ(stitcher.add(window.frame(0)), Update::accepted);
    // Up to the largest step the overlap rule allows: a fifth of the area stays.
    const QList<int> steps{1, 3, 120, 250, 17, 64, 200, 2};
    int i = 0;
    for (const int step : steps) {
        if (scroll + step + window.visible > window.page.height()) {
            break;
        }
        scroll += step;
        QImage frame = window.frame(scroll);
        if (++i % 3 == 0) {
            // A caret blinks in the header: not content, not a new row.
            QPainter(&frame).fillRect(200, 20, 2, 16, Qt::black);
        }
        EXPECT_EQ(stitcher.add(frame), Update::accepted) << "step " << step;
    }
    const QImage expected = window.truth(scroll + window.visible);
    const QImage stitched = stitcher.makeImage();
    ASSERT_EQ(stitched.height(), expected.height());
    // The header is the first frame's (no caret), the footer the last one's.
    EXPECT_EQ(test::compareImages(stitched, expected, 0).maximum, 0);
}

TEST(ScrollingCapture, AutoScrollTurnsHalfTheScrollingBandAtATime)
{
    struct Case {
        int band;
        double rowsPerNotch;
        int notches;
    };
    const Case cases[] = {
        {926, 60, 7},    // 463 rows wanted, 7 notches move 420
        {426, 60, 3},
        {100, 60, 1},    // never less than one notch
        {5000, 10, 25},  // never more than 25 in one turn
        {926, 0, 1},     // not measured yet
        {0, 60, 1},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ScrollingCapture::notchesFor(c.band, c.rowsPerNotch), c.notches)
            << c.band << " rows at " << c.rowsPerNotch;
    }
}

TEST(ScrollTrackingState, LostAfterThreeMissesUntilAccepted)
{
    ScrollTrackingState state;
    for (const Update u : {Update::skipped, Update::skipped}) {
        state.record(u);
    }
    EXPECT_EQ(state, (ScrollTrackingState{2, false}));
    state.record(Update::unchanged);
    EXPECT_EQ(state, (ScrollTrackingState{0, false}));
    for (int i = 0; i < 5; ++i) {
        state.record(Update::skipped);
    }
    EXPECT_EQ(state, (ScrollTrackingState{3, true}));
    state.record(Update::unchanged);
    EXPECT_EQ(state, (ScrollTrackingState{0, true})) << "a still frame does not end it";
    state.record(Update::incompatibleSize);
    EXPECT_EQ(state, (ScrollTrackingState{0, false}));
}

} // namespace
} // namespace nubo
