#pragma once

#include "capture/CapturePlatform.h"

namespace nubo {

// The application's screens for the capture backend, readable from any
// thread: a copy that the main thread keeps current as screens come, go and
// change. Empty without a GUI application. Call first on the main thread.
CapturePlatform::ScreenLookup desktopScreenLookup();

// The capture backend with this application's screens.
std::unique_ptr<CapturePlatform> loadCapturePlatform();

} // namespace nubo
