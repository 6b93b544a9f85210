#pragma once

#include "capture/CaptureTypes.h"

namespace nubo {

// Which windows the user may pick, front-most order kept.
class WindowCaptureFilter {
public:
    static bool keep(const WindowCaptureDescriptor& descriptor,
                     const QList<WindowCaptureDisplay>& displays, qint32 ownProcessID);
    static QList<CapturableWindow> filter(const QList<WindowCaptureDescriptor>& descriptors,
                                          const QList<WindowCaptureDisplay>& displays,
                                          qint32 ownProcessID);
};

} // namespace nubo
