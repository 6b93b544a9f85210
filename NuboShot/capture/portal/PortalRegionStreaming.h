#pragma once

#include "capture/ScreenRegionStreaming.h"

#include <memory>

namespace nubo {

class PortalScreenCapturer;

// Frames of a region for scrolling capture on Wayland: the screen cast of
// the region's display (a kept grant, else the desktop asks), cut to the
// region. A cast sends a picture only when something was drawn, so when
// none comes for a moment the stream hands out the last one again, as a
// screen that did not change.
class PortalRegionStreaming : public ScreenRegionStreaming {
public:
    explicit PortalRegionStreaming(std::shared_ptr<PortalScreenCapturer> capturer);
    std::unique_ptr<ScreenRegionStream> streamRegion(quint32 display,
                                                     const ScreenCaptureRegion& region) override;

private:
    std::shared_ptr<PortalScreenCapturer> m_capturer;
};

} // namespace nubo
