#include "capture/portal/PortalScreenFrameSource.h"

#include "capture/CaptureSelection.h"
#include "core/Logging.h"

#include <cmath>

namespace nubo {

namespace {

constexpr std::chrono::seconds firstPicture{3};

} // namespace

PortalScreenFrameSource::PortalScreenFrameSource(std::shared_ptr<PortalScreenCapturer> capturer)
    : m_capturer(std::move(capturer))
{
}

PortalScreenFrameSource::~PortalScreenFrameSource() = default;

QString PortalScreenFrameSource::clicksUnavailable()
{
    return QStringLiteral("Click highlighting needs the pointer's clicks, and this Wayland "
                          "desktop tells them to no program.");
}

ScreenFrameGeometry PortalScreenFrameSource::open(const ScreenFrameRequest& request)
{
    m_request = request;
    CaptureDisplay display;
    QRectF on;
    if (const auto* d = std::get_if<RecordingTarget::Display>(&request.target.target)) {
        display = d->display;
        on = display.space.globalFrame;
    } else if (const auto* a = std::get_if<RecordingTarget::Area>(&request.target.target)) {
        display = a->display;
        on = a->globalRect.intersected(display.space.globalFrame);
        if (on.isEmpty() || !std::isfinite(on.width()) || !std::isfinite(on.height())) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the area lies outside its display"));
        }
    } else if (const CapturableWindow& w =
                   std::get<RecordingTarget::Window>(request.target.target).window;
               !isPickedWindow(w)) {
        // A window the desktop listed (sway): where it is on its screen, as
        // the screen's cast shows it (it is not followed when it moves).
        for (const CaptureDisplay& d : m_capturer->displays()) {
            if (d.space.globalFrame.contains(w.frame.center())) {
                display = d;
                on = w.frame.intersected(d.space.globalFrame);
            }
        }
        if (on.isEmpty()) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("window %1 is on no screen").arg(w.id));
        }
    }
    const uint modes = PortalScreenCast::cursorModes();
    m_metadataCursor =
        request.showsCursor && (modes & uint(PortalScreenCast::Cursor::metadata)) != 0;
    const PortalScreenCast::Cursor cursor = !request.showsCursor ? PortalScreenCast::Cursor::hidden
                                            : m_metadataCursor ? PortalScreenCast::Cursor::metadata
                                                               : PortalScreenCast::Cursor::embedded;
    stop();
    m_taken = 0;
    m_takenCount = 0;
    m_pending.reset();
    if (const auto* window = std::get_if<RecordingTarget::Window>(&request.target.target);
        window && isPickedWindow(window->window)) {
        // The whole picture, whatever size the window takes later (the
        // writer scales each picture to the movie's size).
        m_cast = m_capturer->castWindow(cursor, request.framesPerSecond);
        if (!receive(firstPicture)) {
            throw Error(QStringLiteral("The window's cast sent no picture within %1 s.")
                            .arg(firstPicture.count()));
        }
        const QImage& first = m_pending->image;
        const double scale = m_capturer->windowScale();
        m_crop = QRect();
        qCInfo(lcRecording, "Recording a window picked by the desktop, %d×%d pixels, cursor %s",
               first.width(), first.height(),
               !request.showsCursor ? "hidden" : m_metadataCursor ? "from metadata" : "drawn in");
        return {QSizeF(first.size()) / scale, scale};
    }
    m_cast = m_capturer->castDisplay(display.id, cursor, request.framesPerSecond);
    m_crop = captureRegion(display.space, on).pixelRect;
    qCInfo(lcRecording, "Recording display %u through the screen cast, cursor %s", display.id,
           !request.showsCursor ? "hidden" : m_metadataCursor ? "from metadata" : "drawn in");
    return {on.size(), display.space.scale};
}

bool PortalScreenFrameSource::receive(std::chrono::milliseconds timeout)
{
    std::optional<PipeWireFrames::Frame> frame =
        m_cast.frames->next(m_cast.stream, m_pending ? m_pending->sequence : m_taken, timeout);
    if (frame) {
        m_pending = std::move(frame);
    }
    return m_pending.has_value();
}

ScreenFrameChanges PortalScreenFrameSource::look()
{
    ScreenFrameChanges changes;
    changes.damaged = receive(std::chrono::milliseconds(0));
    const std::optional<PipeWireFrames::Cursor>& cursor =
        m_pending ? m_pending->cursor : std::optional<PipeWireFrames::Cursor>();
    if (m_metadataCursor && cursor && cursor->visible && !cursor->image.isNull()) {
        changes.cursor = ScreenFrameCursor{cursor->image.convertToFormat(
                                               QImage::Format_ARGB32_Premultiplied),
                                           cursor->position - cursor->hotspot - m_crop.topLeft()};
    }
    return changes;
}

ScreenFrame PortalScreenFrameSource::capture()
{
    // The first picture of a still screen may be on its way yet.
    if (!m_pending && !receive(firstPicture)) {
        throw Error(QStringLiteral("The screen cast sent no picture within %1 s.")
                        .arg(firstPicture.count()));
    }
    PipeWireFrames::Frame frame = std::move(*m_pending);
    m_pending.reset();
    m_taken = frame.sequence;
    ++m_takenCount;
    const auto age = std::chrono::duration_cast<RecordingDuration>(
        std::chrono::steady_clock::now() - frame.arrived);
    QImage image = m_crop.isNull() || m_crop == frame.image.rect() ? frame.image
                                                                    : frame.image.copy(m_crop);
    return {image, m_request.clock() - age};
}

void PortalScreenFrameSource::stop()
{
    if (m_cast.frames) {
        qCInfo(lcRecording, "Screen cast: %llu pictures sent, %llu taken",
               static_cast<unsigned long long>(m_taken), static_cast<unsigned long long>(m_takenCount));
    }
    m_pending.reset();
    m_cast.frames.reset(); // before the session its streams belong to
    m_cast.cast.reset();
}

} // namespace nubo
