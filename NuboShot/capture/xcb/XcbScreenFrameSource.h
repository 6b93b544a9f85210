#pragma once

#include "capture/ScreenFrameSource.h"
#include "capture/xcb/XcbScreenCapturer.h"

#include <memory>

namespace nubo {

// A recording's pictures on X11. Over a connection of the capture thread's
// own it asks XDamage whether anything was drawn, XFixes where the pointer
// is and XInput 2 for raw button presses; its pictures come from its own
// still capturer in native pixels, so our own windows are painted away and a
// window is taken from its own (Composite) pixels even where it is covered.
class XcbScreenFrameSource : public ScreenFrameSource {
public:
    XcbScreenFrameSource(QByteArray displayName, XcbScreenCapturer::ScaleLookup scale);
    ~XcbScreenFrameSource() override;

    QString clicksUnavailable() override;
    ScreenFrameGeometry open(const ScreenFrameRequest& request) override;
    void start() override;
    ScreenFrameChanges look() override;
    ScreenFrame capture() override;
    void stop() override;

private:
    class Watch;
    QByteArray m_displayName;
    XcbScreenCapturer::ScaleLookup m_scale;
    ScreenFrameRequest m_request;
    bool m_window = false;
    quint32 m_display = 0;
    ScreenCaptureRegion m_region;
    QPoint m_origin; // the region's top-left corner in root pixels
    quint32 m_windowID = 0;
    // On the capture thread, between start() and stop().
    std::unique_ptr<XcbScreenCapturer> m_capturer;
    std::unique_ptr<Watch> m_watch;
    QList<ScreenFrameClick> m_pendingClicks; // seen while capturing, root pixels
};

} // namespace nubo
