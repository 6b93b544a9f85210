#pragma once

#include "capture/CaptureTypes.h"

#include <memory>

namespace nubo {

// Turns the mouse wheel over a region for auto-scroll, as if the user did:
// the pointer is parked inside the region while the driver lives and put
// back where it was afterwards. It also notices the user's own keys, clicks
// and pointer moves, so that auto-scroll gives way to them at once.
// One thread at a time.
class ScrollDriver {
public:
    virtual ~ScrollDriver() = default;
    // Turns the wheel `notches` notches down (up when negative); the events
    // have reached the window system when this returns.
    virtual void scroll(int notches) = 0;
    // Whether the user pressed a key or a mouse button, or moved the pointer
    // away, since the driver started (its own events do not count).
    virtual bool userInterrupted() = 0;
};

class ScrollDriving {
public:
    virtual ~ScrollDriving() = default;
    // A driver for the region of a display. Throws CaptureError (noContent)
    // naming the cause when the window system cannot be driven.
    virtual std::unique_ptr<ScrollDriver> drive(quint32 display,
                                                const ScreenCaptureRegion& region) = 0;
};

} // namespace nubo
