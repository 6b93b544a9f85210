#pragma once

#include "capture/CaptureTypes.h"
#include "capture/xcb/XcbConnection.h"

namespace nubo {

// The windows of an X desktop as the capture needs them: the window
// manager's stacking list read into descriptors for the window filter, the
// panel strips of the displays, and the top-level windows with whether they
// are ours (so that captures can paint our own windows away).
class XcbWindowList {
public:
    // A top-level window on the root as the stacking sees it.
    struct RootChild {
        xcb_window_t window = 0;
        QRect rect; // root pixels, border included
        bool own = false;
    };

    // Every client window, front-most first, before filtering.
    static QList<WindowCaptureDescriptor> descriptors(XcbConnection& x,
                                                      const QList<CaptureDisplay>& displays);
    // The displays with the panel strip along their top edge.
    static QList<WindowCaptureDisplay> filterDisplays(XcbConnection& x,
                                                      const QList<CaptureDisplay>& displays);
    // The root's viewable children, bottom first.
    static QList<RootChild> rootChildren(XcbConnection& x, qint32 ownProcessID);
    // Whether a top-level window, or the client its window manager frame
    // holds, belongs to the process.
    static bool belongsTo(XcbConnection& x, xcb_window_t topLevel, qint32 processID);
};

} // namespace nubo
