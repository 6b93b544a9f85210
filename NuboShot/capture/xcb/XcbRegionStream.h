#pragma once

#include "capture/ScreenRegionStreaming.h"
#include "capture/xcb/XcbScreenCapturer.h"

namespace nubo {

// Region streams on X11: each stream takes its frames on its own thread
// over its own connection, one frame ahead of its consumer.
class XcbRegionStreaming : public ScreenRegionStreaming {
public:
    XcbRegionStreaming(QByteArray displayName, XcbScreenCapturer::ScaleLookup scale);

    std::unique_ptr<ScreenRegionStream> streamRegion(quint32 display,
                                                     const ScreenCaptureRegion& region) override;

private:
    QByteArray m_displayName;
    XcbScreenCapturer::ScaleLookup m_scale;
};

} // namespace nubo
