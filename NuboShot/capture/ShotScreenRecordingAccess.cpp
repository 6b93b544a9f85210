#include "capture/ShotScreenRecordingAccess.h"

#include "core/Error.h"

namespace nubo {

ShotScreenRecordingAccess::ShotScreenRecordingAccess(std::function<void()> probeCapture)
    : probe(std::move(probeCapture))
{
    cgPreflight = [this] {
        try {
            probe();
            return true;
        } catch (const Error&) {
            return false;
        }
    };
    // X11 shows every window's name to every client: a live grant cannot be
    // told apart from the preflight, which has already answered.
    liveGrant = [] {
        return false;
    };
}

ShotScreenRecordingAccess::Status ShotScreenRecordingAccess::status()
{
    if (cgPreflight()) {
        return Status::granted;
    }
    if (!liveGrant()) {
        verifiedLiveGrant = false;
        return Status::missing;
    }
    try {
        probe();
    } catch (const Error&) {
        verifiedLiveGrant = false;
        return Status::restartRequired;
    }
    verifiedLiveGrant = liveGrant();
    return verifiedLiveGrant ? Status::granted : Status::missing;
}

} // namespace nubo
