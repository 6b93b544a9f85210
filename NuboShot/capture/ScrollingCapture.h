#pragma once

#include "capture/ScreenRegionStreaming.h"
#include "capture/ScrollDriving.h"
#include "capture/ScrollStitcher.h"

#include <QImage>
#include <QSize>
#include <QString>

#include <chrono>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

namespace nubo {

// Where a scrolling capture stands after a frame.
struct ScrollingCaptureProgress {
    ScrollStitcher::Update update = ScrollStitcher::Update::unchanged;
    qint64 height = 0; // rows stitched so far
    ScrollTrackingState tracking;
    QImage preview; // the newest stitched rows, scaled; null when not renewed
    bool autoScrolling = false;
};

// Why a scrolling capture stopped by itself.
struct ScrollingCaptureEnd {
    enum class Reason { limitReached, failed };
    Reason reason = Reason::failed;
    QString message; // for `failed`: the cause, for the user
};

// One scrolling capture: frames of a region stream, at most `framesPerSecond`
// of them, through a stitcher on a thread of its own, with auto-scroll on
// request. It reports on that thread: the caller hands the reports over to
// its own. The stitched image is handed over by finish().
class ScrollingCapture {
public:
    struct Options {
        qint64 maximumHeight = 30000;
        qint64 maximumBytes = qint64(128) << 20;
        double scale = 1; // pixels per point of the display
        double framesPerSecond = 30;
        QSize previewSize{180, 240}; // pixels
        // Auto-scroll ends when the content stays still this many frames
        // after a turn of the wheel.
        int stillFramesAtEnd = 8;
        // Without the framed area, stitching starts once the frames have
        // stayed the same this long (a compositor may still be drawing
        // what just closed), or after `changingFor` of content that keeps
        // changing by itself. Zero: two equal frames in a row.
        std::chrono::milliseconds quietFor{0};
        std::chrono::milliseconds changingFor{500};
        // The area as the user framed it (from the frozen screen), in the
        // stream's pixels. Stitching starts from it when the first frames
        // continue it, so what scrolled away before the stream's first
        // frame is kept. Null: stitching starts on a settled screen.
        QImage framed;
    };
    struct Reports {
        std::function<void(const ScrollingCaptureProgress&)> progress;
        // The capture stopped by itself; finish() hands over what it has.
        std::function<void(const ScrollingCaptureEnd&)> stopped;
        // Auto-scroll ended: `byUser` when the user's keys, clicks or pointer
        // took over, otherwise the content stopped moving or the limit came.
        std::function<void(bool byUser)> autoScrollEnded;
    };

    ScrollingCapture(std::unique_ptr<ScreenRegionStream> stream, Options options, Reports reports);
    ~ScrollingCapture();
    ScrollingCapture(const ScrollingCapture&) = delete;
    ScrollingCapture& operator=(const ScrollingCapture&) = delete;

    // Scrolls with this driver until the content stops moving, the limit,
    // the user's own input or stopAutoScroll().
    void startAutoScroll(std::unique_ptr<ScrollDriver> driver);
    void stopAutoScroll();
    // Stops taking frames and hands over the stitched image (null when no
    // frame came).
    QImage finish();

    // How many notches the next turn of the wheel takes: half the scrolling
    // band of the frame, at the rows one notch moved so far (1 to 25).
    static int notchesFor(int bandRows, double rowsPerNotch);

private:
    enum class AutoPhase { off, turned, moving };
    void run();
    // Starts the stitcher from the framed area when `frame` continues it;
    // what adding the frame did then.
    std::optional<ScrollStitcher::Update> continueFramed(const QImage& frame);
    void autoScrollStep(ScrollStitcher::Update update, int frameHeight);
    void endAutoScroll(bool byUser);
    QImage preview() const;

    std::unique_ptr<ScreenRegionStream> m_stream;
    const Options m_options;
    const Reports m_reports;

    std::mutex m_mutex; // guards the requests below
    std::condition_variable m_wake;
    bool m_stopping = false;
    std::unique_ptr<ScrollDriver> m_requestedDriver;
    bool m_stopAutoRequested = false;
    bool m_ran = false; // the thread is done

    // The capture thread's own.
    ScrollStitcher m_stitcher;
    ScrollTrackingState m_tracking;
    std::unique_ptr<ScrollDriver> m_driver;
    AutoPhase m_phase = AutoPhase::off;
    int m_notches = 2;
    int m_stillFrames = 0;
    int m_backNotches = 0; // turned back since the last accepted frame
    qint64 m_turnedAt = 0; // the stitcher's position when the wheel last turned
    std::optional<ScrollStitcher> m_framedStart; // the framed area alone, once made
    std::thread m_thread;
};

} // namespace nubo
