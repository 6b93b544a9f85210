#pragma once

#include "capture/ScrollDriving.h"

#include <QByteArray>

namespace nubo {

class XcbScreenCapturer;

// Auto-scroll on X11: wheel events through XTest, the user's own keys and
// clicks seen as XInput 2 raw events, each driver over its own connection.
class XcbScrollDriving : public ScrollDriving {
public:
    XcbScrollDriving(QByteArray displayName, std::shared_ptr<XcbScreenCapturer> capturer);

    std::unique_ptr<ScrollDriver> drive(quint32 display, const ScreenCaptureRegion& region) override;

private:
    QByteArray m_displayName;
    std::shared_ptr<XcbScreenCapturer> m_capturer;
};

} // namespace nubo
