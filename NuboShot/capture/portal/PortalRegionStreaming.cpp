#include "capture/portal/PortalRegionStreaming.h"

#include "capture/PixelConversion.h"
#include "capture/portal/PortalScreenCapturer.h"
#include "core/Logging.h"

namespace nubo {

namespace {

// Without a new picture for this long, the screen is taken to be unchanged.
constexpr std::chrono::milliseconds stillFor{100};

class PortalRegionStream final : public ScreenRegionStream {
public:
    PortalRegionStream(PortalScreenCapturer::DisplayCast cast, QRect crop)
        : m_cast(std::move(cast)), m_crop(crop)
    {}

    ~PortalRegionStream() override
    {
        qCInfo(lcScrolling, "Region stream: %llu pictures of the screen cast, %llu frames",
               static_cast<unsigned long long>(m_pictures),
               static_cast<unsigned long long>(m_frames));
        m_cast.frames.reset(); // before the session its stream belongs to (unless kept)
    }

    std::optional<ScreenRegionFrame> next() override
    {
        do {
            std::optional<PipeWireFrames::Frame> frame;
            try {
                frame = m_cast.frames->next(m_cast.stream, m_sequence, stillFor);
            } catch (const Error& error) {
                throw CaptureError(CaptureError::Code::noContent, error.message());
            }
            if (m_stopped) {
                return std::nullopt;
            }
            if (frame) {
                m_sequence = frame->sequence;
                ++m_pictures;
                if (!QRect(QPoint(), frame->image.size()).contains(m_crop)) {
                    throw CaptureError(CaptureError::Code::noContent,
                                       QStringLiteral("the screen changed size during the capture"));
                }
                m_last = xPixelsToRgba(frame->image.copy(m_crop), false);
            }
        } while (m_last.isNull()); // the first picture is on its way
        ++m_frames;
        return ScreenRegionFrame{m_last};
    }

    // The cast may be the tray's, kept for its stills: it is left running,
    // and next() sees the flag within `stillFor`.
    void stopCapture() override { m_stopped = true; }

private:
    PortalScreenCapturer::DisplayCast m_cast;
    QRect m_crop;
    QImage m_last;
    quint64 m_sequence = 0;
    quint64 m_pictures = 0;
    quint64 m_frames = 0;
    std::atomic<bool> m_stopped = false;
};

} // namespace

PortalRegionStreaming::PortalRegionStreaming(std::shared_ptr<PortalScreenCapturer> capturer)
    : m_capturer(std::move(capturer))
{}

std::unique_ptr<ScreenRegionStream>
PortalRegionStreaming::streamRegion(quint32 display, const ScreenCaptureRegion& region)
{
    PortalScreenCapturer::DisplayCast cast = m_capturer->keptCast(display);
    if (!cast.frames) {
        cast = m_capturer->castDisplay(display, PortalScreenCast::Cursor::hidden, 0);
    }
    // What closed over the area may still be drawn: the capture waits for
    // it to settle, or for the framed area to show again.
    const auto first = cast.frames->next(cast.stream, 0, std::chrono::seconds(2));
    if (!first) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the screen cast sent no picture"));
    }
    if (!QRect(QPoint(), first->image.size()).contains(region.pixelRect)) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the area lies outside its display"));
    }
    return std::make_unique<PortalRegionStream>(std::move(cast), region.pixelRect);
}

} // namespace nubo
