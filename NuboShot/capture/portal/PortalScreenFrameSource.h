#pragma once

#include "capture/ScreenFrameSource.h"
#include "capture/portal/PortalScreenCapturer.h"

#include <memory>
#include <optional>

namespace nubo {

// A recording's pictures on Wayland: the ScreenCast portal's stream of the
// target's monitor over PipeWire (a kept grant, else the desktop asks), cut
// to the area. The desktop sends a picture only when something was drawn,
// so a new picture is the damage. The pointer is drawn in by the desktop
// where the cursor is recorded (from the stream's metadata where it sends
// it there). Clicks are not seen: the portals tell a program no pointer
// events.
class PortalScreenFrameSource : public ScreenFrameSource {
public:
    explicit PortalScreenFrameSource(std::shared_ptr<PortalScreenCapturer> capturer);
    ~PortalScreenFrameSource() override;

    QString clicksUnavailable() override;
    ScreenFrameGeometry open(const ScreenFrameRequest& request) override;
    void start() override {}
    ScreenFrameChanges look() override;
    ScreenFrame capture() override;
    void stop() override;

private:
    // A picture newer than the last one taken, waiting up to `timeout`.
    bool receive(std::chrono::milliseconds timeout);

    std::shared_ptr<PortalScreenCapturer> m_capturer;
    ScreenFrameRequest m_request;
    PortalScreenCapturer::DisplayCast m_cast;
    bool m_metadataCursor = false;
    QRect m_crop; // in the stream's pixels
    quint64 m_taken = 0; // the sequence of the last picture taken
    quint64 m_takenCount = 0;
    std::optional<PipeWireFrames::Frame> m_pending;
};

} // namespace nubo
