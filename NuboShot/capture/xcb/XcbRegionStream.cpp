#include "capture/xcb/XcbRegionStream.h"

#include "core/Logging.h"

#include <QElapsedTimer>

#include <condition_variable>
#include <mutex>
#include <pthread.h>
#include <thread>

namespace nubo {

namespace {

// Takes frames of one region on its own thread, one frame ahead of the
// consumer, and hands them over one at a time.
class XcbRegionStream final : public ScreenRegionStream {
public:
    XcbRegionStream(std::unique_ptr<XcbScreenCapturer> capturer, quint32 display,
                    ScreenCaptureRegion region)
        : m_capturer(std::move(capturer)), m_display(display), m_region(region)
    {
        m_sampler = std::thread([this] { run(); });
    }

    ~XcbRegionStream() override
    {
        stopCapture();
        m_sampler.join();
    }

    std::optional<ScreenRegionFrame> next() override
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_frame || m_error || m_stopped; });
        if (m_error) {
            std::rethrow_exception(std::exchange(m_error, nullptr));
        }
        if (!m_frame) {
            return std::nullopt;
        }
        std::optional<ScreenRegionFrame> frame = std::move(m_frame);
        m_frame.reset();
        m_changed.notify_all();
        return frame;
    }

    void stopCapture() override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_stopped = true;
        }
        m_changed.notify_all();
    }

private:
    void run()
    {
        QElapsedTimer clock; // monotonic
        clock.start();
        quint64 frames = 0;
        pthread_setname_np(pthread_self(), "scrolling");
        while (true) {
            {
                std::unique_lock lock(m_mutex);
                m_changed.wait(lock, [this] { return !m_frame || m_stopped; });
                if (m_stopped) {
                    break;
                }
            }
            try {
                ScreenRegionFrame frame{m_capturer->captureRegion(m_display, m_region)};
                const std::lock_guard lock(m_mutex);
                m_frame = std::move(frame);
                ++frames;
            } catch (...) {
                const std::lock_guard lock(m_mutex);
                m_error = std::current_exception();
                m_stopped = true;
            }
            m_changed.notify_all();
        }
        const double seconds = clock.nsecsElapsed() / 1e9;
        qCInfo(lcScrolling, "Region stream: %llu frames in %.2f s (%.1f per second)",
               static_cast<unsigned long long>(frames), seconds,
               seconds > 0 ? frames / seconds : 0.0);
    }

    std::unique_ptr<XcbScreenCapturer> m_capturer;
    quint32 m_display;
    ScreenCaptureRegion m_region;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<ScreenRegionFrame> m_frame;
    std::exception_ptr m_error;
    bool m_stopped = false;
    std::thread m_sampler;
};

} // namespace

XcbRegionStreaming::XcbRegionStreaming(QByteArray displayName,
                                       XcbScreenCapturer::ScaleLookup scale)
    : m_displayName(std::move(displayName)), m_scale(std::move(scale))
{}

std::unique_ptr<ScreenRegionStream>
XcbRegionStreaming::streamRegion(quint32 display, const ScreenCaptureRegion& region)
{
    auto capturer = std::make_unique<XcbScreenCapturer>(m_displayName, m_scale);
    // Fail now, not in the first frame, when the region cannot be captured.
    bool found = false;
    for (const CaptureDisplay& m : capturer->displays()) {
        found = found || (m.id == display &&
                          !region.pixelRect.translated(m.pixelGeometry.topLeft())
                               .intersected(m.pixelGeometry)
                               .isEmpty());
    }
    if (!found) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the region lies outside every display"));
    }
    return std::make_unique<XcbRegionStream>(std::move(capturer), display, region);
}

} // namespace nubo
