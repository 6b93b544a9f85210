#include "capture/xcb/XcbCapturePlatform.h"

#include "capture/xcb/XcbGlobalShortcuts.h"
#include "capture/xcb/XcbRegionStream.h"
#include "capture/xcb/XcbScreenCapturer.h"
#include "capture/xcb/XcbScrollDriver.h"

namespace nubo {

XcbCapturePlatform::XcbCapturePlatform(QByteArray displayName, ScaleLookup scale)
    : m_displayName(std::move(displayName)),
      m_capturer(std::make_shared<XcbScreenCapturer>(m_displayName, scale)),
      m_streaming(std::make_shared<XcbRegionStreaming>(m_displayName, scale)),
      m_driving(std::make_shared<XcbScrollDriving>(m_displayName, m_capturer))
{
    m_capturer->connect();
}

XcbCapturePlatform::~XcbCapturePlatform() = default;

CapturePlatformFeatures XcbCapturePlatform::features() const
{
    return {{CaptureMode::area, CaptureMode::window, CaptureMode::fullscreen,
             CaptureMode::scrolling},
            true,
            true,
            true,
            false,
            true};
}

std::shared_ptr<ScreenCapturing> XcbCapturePlatform::capturer()
{
    return m_capturer;
}

std::shared_ptr<ScreenRegionStreaming> XcbCapturePlatform::regionStreaming()
{
    return m_streaming;
}

std::shared_ptr<ScrollDriving> XcbCapturePlatform::scrollDriving()
{
    return m_driving;
}

std::unique_ptr<GlobalShortcuts> XcbCapturePlatform::makeGlobalShortcuts()
{
    return std::make_unique<XcbGlobalShortcuts>(m_displayName);
}

} // namespace nubo
