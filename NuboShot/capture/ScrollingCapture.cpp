#include "capture/ScrollingCapture.h"

#include "core/Logging.h"

#include <QElapsedTimer>

#include <pthread.h>

namespace nubo {

namespace {

constexpr qint64 previewInterval = 150;  // ms between two previews
constexpr int mostNotches = 25;          // one turn of the wheel at most
constexpr int notchesBackWhenLost = 60;  // auto-scroll gives up past this

const char* updateName(ScrollStitcher::Update update)
{
    switch (update) {
    case ScrollStitcher::Update::accepted:
        return "accepted";
    case ScrollStitcher::Update::unchanged:
        return "unchanged";
    case ScrollStitcher::Update::skipped:
        return "skipped";
    case ScrollStitcher::Update::incompatibleSize:
        return "incompatibleSize";
    case ScrollStitcher::Update::limitReached:
        return "limitReached";
    }
    return "?";
}

} // namespace

ScrollingCapture::ScrollingCapture(std::unique_ptr<ScreenRegionStream> stream, Options options,
                                   Reports reports)
    : m_stream(std::move(stream)), m_options(options), m_reports(std::move(reports)),
      m_stitcher(options.maximumHeight, options.maximumBytes, options.scale)
{
    m_thread = std::thread([this] { run(); });
}

ScrollingCapture::~ScrollingCapture()
{
    finish();
}

int ScrollingCapture::notchesFor(int bandRows, double rowsPerNotch)
{
    if (!(rowsPerNotch > 0) || bandRows < 1) {
        return 1;
    }
    return std::clamp(int(bandRows / 2.0 / rowsPerNotch), 1, mostNotches);
}

void ScrollingCapture::startAutoScroll(std::unique_ptr<ScrollDriver> driver)
{
    {
        const std::lock_guard lock(m_mutex);
        m_requestedDriver = std::move(driver);
        m_stopAutoRequested = false;
    }
    m_wake.notify_all();
}

void ScrollingCapture::stopAutoScroll()
{
    {
        const std::lock_guard lock(m_mutex);
        m_requestedDriver.reset();
        m_stopAutoRequested = true;
    }
    m_wake.notify_all();
}

QImage ScrollingCapture::finish()
{
    if (m_thread.joinable()) {
        {
            const std::lock_guard lock(m_mutex);
            m_stopping = true;
        }
        m_wake.notify_all();
        // The thread takes a last frame (what the screen shows as the user
        // stops is kept); a stream that gives none in time is stopped.
        {
            std::unique_lock lock(m_mutex);
            m_wake.wait_for(lock, std::chrono::seconds(1), [this] { return m_ran; });
        }
        m_stream->stopCapture();
        m_thread.join();
        m_driver.reset(); // the pointer goes back
    }
    return m_stitcher.takeImage();
}

std::optional<ScrollStitcher::Update> ScrollingCapture::continueFramed(const QImage& frame)
{
    if (!m_framedStart) {
        if (m_options.framed.size() != frame.size()) {
            return std::nullopt;
        }
        m_framedStart.emplace(m_options.maximumHeight, m_options.maximumBytes, m_options.scale);
        try {
            m_framedStart->add(m_options.framed.convertToFormat(frame.format()));
        } catch (const Error&) {
            return std::nullopt; // admits no row: the frames decide
        }
    }
    if (!m_framedStart->previous) {
        return std::nullopt;
    }
    // The same area, or the same content moved: a change in place (what
    // closed over the area, still drawn) is no start.
    ScrollStitcher from = *m_framedStart;
    const ScrollStitcher::Update update = from.add(frame);
    const bool moved =
        update == ScrollStitcher::Update::accepted && from.lastOffset.value_or(0) != 0;
    if (update != ScrollStitcher::Update::unchanged && !moved) {
        return std::nullopt;
    }
    m_stitcher = std::move(from);
    return update;
}

void ScrollingCapture::run()
{
    pthread_setname_np(pthread_self(), "scroll-stitch");
    const auto interval = std::chrono::nanoseconds(qint64(1e9 / m_options.framesPerSecond));
    QElapsedTimer clock;
    clock.start();
    QElapsedTimer sincePreview;
    qint64 frames = 0;
    qint64 counts[5] = {};
    qint64 previewHeight = -1;
    auto due = std::chrono::steady_clock::now();
    std::optional<ScrollingCaptureEnd> end;
    bool started = false;
    QImage first; // the last frame before stitching starts
    QElapsedTimer sameSince; // since the frames before stitching stopped changing
    // Without the framed area, stitching starts on a settled screen: equal
    // frames for `quietFor`, or content that keeps changing by itself.
    const auto settled = [&](const QImage& frame, qint64 elapsed) {
        const bool same = !first.isNull() && frame.size() == first.size() &&
                          frame.format() == first.format() &&
                          std::equal(frame.constBits(), frame.constBits() + frame.sizeInBytes(),
                                     first.constBits());
        first = frame;
        if (!same) {
            sameSince.invalidate();
        } else if (!sameSince.isValid()) {
            sameSince.start();
        }
        return (sameSince.isValid() && sameSince.elapsed() >= m_options.quietFor.count()) ||
               elapsed >= m_options.changingFor.count();
    };
    bool lastLook = false;
    while (!end && !lastLook) {
        {
            std::unique_lock lock(m_mutex);
            // Frames at the chosen rate at most; a request wakes us early.
            m_wake.wait_until(lock, due, [this, &started] {
                return m_stopping || (m_requestedDriver && started) || m_stopAutoRequested;
            });
            if (m_stopping) {
                if (!started) {
                    break;
                }
                lastLook = true; // one more frame: the screen as the user stopped
            }
            // Auto-scroll turns the wheel once stitching has its first
            // frame: what scrolls away before would be lost.
            if (m_requestedDriver && started) {
                m_driver = std::move(m_requestedDriver);
                m_phase = AutoPhase::off;
            }
            if (std::exchange(m_stopAutoRequested, false) && m_driver) {
                lock.unlock();
                endAutoScroll(true);
                continue;
            }
        }
        if (!lastLook && std::chrono::steady_clock::now() < due) {
            continue; // woken early for a request, handled above
        }
        due = std::chrono::steady_clock::now() + interval;
        if (m_driver && m_phase == AutoPhase::off && !lastLook) {
            qCInfo(lcScrolling, "Auto-scroll started");
            m_turnedAt = m_stitcher.position;
            m_notches = 2; // until one turn shows how far a notch goes
            m_driver->scroll(m_notches);
            m_phase = AutoPhase::turned;
            m_stillFrames = 0;
        }
        ScrollingCaptureProgress progress;
        int frameHeight = 0;
        try {
            std::optional<ScreenRegionFrame> frame = m_stream->next();
            if (!frame) {
                break; // stopped
            }
            frameHeight = frame->image.height();
            if (started) {
                progress.update = m_stitcher.add(frame->image);
            } else if (const auto update = continueFramed(frame->image)) {
                progress.update = *update;
                started = true;
                m_framedStart.reset(); // its rows are in the stitcher now
            } else if (settled(frame->image, clock.elapsed())) {
                m_framedStart.reset();
                if (!m_options.framed.isNull()) {
                    qCInfo(lcScrolling, "The area changed before the first frame: the capture "
                                        "starts from the screen as it is now");
                }
                progress.update = m_stitcher.add(frame->image);
                started = true;
            } else {
                continue; // the screen is still changing under the closing overlay
            }
        } catch (const CaptureError& error) {
            qCWarning(lcScrolling, "Scrolling capture failed: %s (%s)", qPrintable(error.message()),
                      qPrintable(error.detail()));
            end = ScrollingCaptureEnd{ScrollingCaptureEnd::Reason::failed, error.message()};
            break;
        } catch (const Error& error) {
            qCWarning(lcScrolling, "Scrolling capture failed: %s", qPrintable(error.message()));
            end = ScrollingCaptureEnd{ScrollingCaptureEnd::Reason::failed, error.message()};
            break;
        }
        ++frames;
        ++counts[int(progress.update)];
        m_tracking.record(progress.update);
        if (progress.update != ScrollStitcher::Update::unchanged) {
            qCDebug(lcScrolling, "Frame %lld %s offset=%d ratio=%.3f position=%lld height=%lld",
                    static_cast<long long>(frames), updateName(progress.update),
                    m_stitcher.lastOffset.value_or(0), m_stitcher.lastVerifiedRatio,
                    static_cast<long long>(m_stitcher.position),
                    static_cast<long long>(m_stitcher.outputHeight()));
        }
        if (m_driver && !lastLook) {
            autoScrollStep(progress.update, frameHeight);
        }
        progress.height = m_stitcher.outputHeight();
        progress.tracking = m_tracking;
        progress.autoScrolling = m_driver != nullptr;
        const bool atLimit = progress.update == ScrollStitcher::Update::limitReached;
        if (progress.height != previewHeight &&
            (atLimit || !sincePreview.isValid() || sincePreview.elapsed() >= previewInterval)) {
            progress.preview = preview();
            previewHeight = progress.height;
            sincePreview.start();
        }
        if (m_reports.progress) {
            m_reports.progress(progress);
        }
        if (atLimit) {
            end = ScrollingCaptureEnd{ScrollingCaptureEnd::Reason::limitReached, {}};
        }
    }
    const double seconds = clock.nsecsElapsed() / 1e9;
    qCInfo(lcScrolling,
           "Scrolling capture: %lld frames in %.2f s (%.1f per second): %lld accepted, "
           "%lld unchanged, %lld skipped, %lld at the limit; %lld rows",
           static_cast<long long>(frames), seconds, seconds > 0 ? frames / seconds : 0.0,
           static_cast<long long>(counts[int(ScrollStitcher::Update::accepted)]),
           static_cast<long long>(counts[int(ScrollStitcher::Update::unchanged)]),
           static_cast<long long>(counts[int(ScrollStitcher::Update::skipped)]),
           static_cast<long long>(counts[int(ScrollStitcher::Update::limitReached)]),
           static_cast<long long>(m_stitcher.outputHeight()));
    if (m_driver) {
        endAutoScroll(false);
    }
    if (end && m_reports.stopped) {
        m_reports.stopped(*end);
    }
    {
        const std::lock_guard lock(m_mutex);
        m_ran = true;
    }
    m_wake.notify_all();
}

void ScrollingCapture::autoScrollStep(ScrollStitcher::Update update, int frameHeight)
{
    using Update = ScrollStitcher::Update;
    if (m_driver->userInterrupted()) {
        endAutoScroll(true);
        return;
    }
    if (update == Update::limitReached || update == Update::incompatibleSize) {
        endAutoScroll(false);
        return;
    }
    if (update == Update::skipped) {
        // Too far in one turn: back a notch at a time until the stitcher
        // finds its place again, and smaller turns from now on.
        if (m_backNotches++ >= notchesBackWhenLost) {
            qCWarning(lcScrolling, "Auto-scroll lost its place and stopped");
            endAutoScroll(false);
            return;
        }
        m_notches = std::max(1, m_notches / 2);
        m_driver->scroll(-1);
        m_turnedAt = m_stitcher.position;
        m_phase = AutoPhase::turned;
        m_stillFrames = 0;
        return;
    }
    if (update == Update::accepted) {
        m_backNotches = 0;
    }
    if (m_phase == AutoPhase::turned) {
        if (update == Update::accepted) {
            m_phase = AutoPhase::moving;
        } else if (++m_stillFrames >= m_options.stillFramesAtEnd) {
            qCInfo(lcScrolling, "Auto-scroll reached the end: nothing moved for %d frames",
                   m_stillFrames);
            endAutoScroll(false);
        }
        return;
    }
    if (update != Update::unchanged) {
        return; // still moving
    }
    // Settled: the next turn, sized by what the last one did.
    const qint64 moved = m_stitcher.position - m_turnedAt;
    if (moved > 0) {
        const int band = frameHeight - m_stitcher.headerRows - m_stitcher.footerRows;
        m_notches = notchesFor(band, double(moved) / m_notches);
    }
    qCDebug(lcScrolling, "Auto-scroll: moved %lld rows, next turn %d notches",
            static_cast<long long>(moved), m_notches);
    m_turnedAt = m_stitcher.position;
    m_driver->scroll(m_notches);
    m_phase = AutoPhase::turned;
    m_stillFrames = 0;
}

void ScrollingCapture::endAutoScroll(bool byUser)
{
    m_driver.reset(); // puts the pointer back
    m_phase = AutoPhase::off;
    m_backNotches = 0;
    qCInfo(lcScrolling, "Auto-scroll ended%s", byUser ? " by the user" : "");
    if (m_reports.autoScrollEnded) {
        m_reports.autoScrollEnded(byUser);
    }
}

QImage ScrollingCapture::preview() const
{
    const QSize box = m_options.previewSize;
    if (m_stitcher.width < 1 || box.isEmpty()) {
        return {};
    }
    // The newest rows, as many as the preview's shape shows at its width.
    const qint64 rows = qint64(m_stitcher.width) * box.height() / box.width() + 1;
    const QImage tail = m_stitcher.tail(rows);
    return tail.isNull() ? tail
                         : tail.scaled(box, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace nubo
