#pragma once

#include "core/EnumStrings.h"

#include <functional>

namespace nubo {

// Whether the program may capture the screen. On X11 there is no permission:
// access is granted when a capture of one pixel (`probe`) succeeds and
// missing when the display cannot be reached. The inputs can be replaced.
class ShotScreenRecordingAccess {
public:
    enum class Status { missing, granted, restartRequired };

    bool verifiedLiveGrant = false;
    std::function<bool()> cgPreflight;
    std::function<bool()> liveGrant;
    std::function<void()> probe; // throws when a capture fails

    explicit ShotScreenRecordingAccess(std::function<void()> probeCapture);
    Status status();
};
template <> struct EnumNames<ShotScreenRecordingAccess::Status> {
    static constexpr std::array names{"missing", "granted", "restartRequired"};
};

} // namespace nubo
