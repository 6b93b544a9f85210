#pragma once

#include "capture/CapturePlatform.h"

#include <QByteArray>

namespace nubo {

class XcbConnection;
class XcbScreenCapturer;
class XcbRegionStreaming;

// The X11 backend: still captures, region streams and key grabs, each over
// its own connection to the same display.
class XcbCapturePlatform : public CapturePlatform {
public:
    // Connects at once; throws CaptureError naming the display when it
    // cannot be reached.
    XcbCapturePlatform(QByteArray displayName, ScaleLookup scale);
    ~XcbCapturePlatform() override;

    QString name() const override { return QStringLiteral("x11"); }
    CapturePlatformFeatures features() const override;
    std::shared_ptr<ScreenCapturing> capturer() override;
    std::shared_ptr<ScreenRegionStreaming> regionStreaming() override;
    std::shared_ptr<ScrollDriving> scrollDriving() override;
    std::unique_ptr<GlobalShortcuts> makeGlobalShortcuts() override;
    std::optional<QString> clipboardOwner() override;
    bool windowsComposited() override;
    std::unique_ptr<ScreenFrameSource> makeFrameSource() override;
    bool holdScreenSaver(bool hold) override;

private:
    // The connection for selection owners, made when first asked; null
    // when X cannot be reached.
    XcbConnection* ownerLookup();
    // The window owning a selection, or XCB_NONE.
    static quint32 selectionOwner(XcbConnection& x, const QByteArray& selection);

    QByteArray m_displayName;
    ScaleLookup m_scale;
    std::shared_ptr<XcbScreenCapturer> m_capturer;
    std::shared_ptr<XcbRegionStreaming> m_streaming;
    std::shared_ptr<ScrollDriving> m_driving;
    std::unique_ptr<XcbConnection> m_ownerLookup; // made when first asked
    std::unique_ptr<XcbConnection> m_screenSaver; // the hold lasts as long as it
};

} // namespace nubo
