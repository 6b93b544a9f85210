#pragma once

#include "capture/ScrollDriving.h"

namespace nubo {

// Auto-scroll on Wayland through the RemoteDesktop portal: a session with
// the pointer and the region's monitor (the desktop asks the user, as for
// any remote control), the pointer parked in the region through the
// monitor's stream, wheel notches sent as the user's wheel would. The
// desktop does not tell a program about the user's own input, so the
// driver cannot notice it: auto-scroll ends at the end of the page, or when
// the capture is finished.
class PortalScrollDriving : public ScrollDriving {
public:
    PortalScrollDriving();

    // Whether the desktop portal offers remote pointers.
    static bool available();

    std::unique_ptr<ScrollDriver> drive(quint32 display, const ScreenCaptureRegion& region) override;
};

} // namespace nubo
