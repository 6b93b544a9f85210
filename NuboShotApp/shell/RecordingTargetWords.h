#pragma once

#include "recording/RecordingTypes.h"

#include <QStringList>

namespace nubo {

class CapturePlatform;

// A recording target as the command line and the bus name it: ["display"]
// or ["display", ID], ["area", "X,Y,W,H"] in desktop pixels, ["window", ID].
// Throws Error with a one-line message when it names nothing recordable.
RecordingTarget recordingTarget(CapturePlatform& platform, const QStringList& words);
// Whether a words has the right shape at all (before anything is looked up).
bool isRecordingTargetWords(const QStringList& words);

} // namespace nubo
