#include "capture/portal/PortalCapturePlatform.h"

#include "capture/portal/PortalRegionStreaming.h"
#include "capture/portal/PortalScrollDriving.h"
#include "capture/portal/PortalRequest.h"
#include "capture/portal/PortalScreenCast.h"
#include "capture/portal/PortalScreenCapturer.h"
#include "capture/portal/PortalScreenFrameSource.h"

namespace nubo {

PortalCapturePlatform::PortalCapturePlatform(ScreenLookup screens)
    : m_capturer(std::make_shared<PortalScreenCapturer>(std::move(screens))),
      m_regions(std::make_shared<PortalRegionStreaming>(m_capturer)),
      m_wheel(std::make_shared<PortalScrollDriving>())
{
}

PortalCapturePlatform::~PortalCapturePlatform() = default;

bool PortalCapturePlatform::available()
{
    return portal::interfaceVersion(QStringLiteral("org.freedesktop.portal.ScreenCast")) > 0;
}

CapturePlatformFeatures PortalCapturePlatform::features() const
{
    CapturePlatformFeatures features;
    features.modes = {CaptureMode::area, CaptureMode::fullscreen, CaptureMode::scrolling,
                      CaptureMode::text, CaptureMode::lastArea};
    features.recording = true;
    features.regionStreams = true;
    features.autoScroll = PortalScrollDriving::available();
    // Windows are pointed at where the desktop lists them to its programs
    // (sway), else picked in its own dialog where it casts single windows.
    const bool listed = qEnvironmentVariableIsSet("SWAYSOCK");
    if (listed || PortalScreenCast::castsWindows()) {
        features.modes.insert(1, CaptureMode::window);
        features.windowPicker = !listed;
    }
    return features;
}

std::shared_ptr<ScreenCapturing> PortalCapturePlatform::capturer()
{
    return m_capturer;
}

std::shared_ptr<ScrollDriving> PortalCapturePlatform::scrollDriving()
{
    return features().autoScroll ? m_wheel : nullptr;
}

std::shared_ptr<ScreenRegionStreaming> PortalCapturePlatform::regionStreaming()
{
    return m_regions;
}

std::unique_ptr<ScreenFrameSource> PortalCapturePlatform::makeFrameSource()
{
    return std::make_unique<PortalScreenFrameSource>(m_capturer);
}

ScreenGrants PortalCapturePlatform::grants() const
{
    return {true, loadPortalGrants().size()};
}

void PortalCapturePlatform::forgetGrant()
{
    savePortalGrants({});
}

} // namespace nubo
