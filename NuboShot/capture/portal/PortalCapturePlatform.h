#pragma once

#include "capture/CapturePlatform.h"

namespace nubo {

class PortalScreenCapturer;

// The Wayland backend: stills and recordings through the desktop portal's
// screen casts.
class PortalCapturePlatform : public CapturePlatform {
public:
    explicit PortalCapturePlatform(ScreenLookup screens);
    ~PortalCapturePlatform() override;

    // Whether the session bus has a desktop portal that casts screens.
    static bool available();

    QString name() const override { return QStringLiteral("portal"); }
    CapturePlatformFeatures features() const override;
    std::shared_ptr<ScreenCapturing> capturer() override;
    std::shared_ptr<ScreenRegionStreaming> regionStreaming() override;
    std::shared_ptr<ScrollDriving> scrollDriving() override;
    std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts() override { return nullptr; }
    std::unique_ptr<ScreenFrameSource> makeFrameSource() override;
    ScreenGrants grants() const override;
    void forgetGrant() override;

private:
    std::shared_ptr<PortalScreenCapturer> m_capturer;
    std::shared_ptr<ScreenRegionStreaming> m_regions;
    std::shared_ptr<ScrollDriving> m_wheel;
};

} // namespace nubo
