#pragma once

#include "shell/ArchiveCommands.h"
#include "shell/CaptureCommands.h"
#include "shell/CommandLine.h"
#include "shell/ExportCommand.h"
#include "shell/OcrCommand.h"
#include "shell/RecordCommand.h"
#include "shell/StitchCommand.h"
#include "shell/UploadCommand.h"
#include "shell/VideoCommand.h"

// The commands each program of the suite links (see CommandPrograms.h for
// which program the front runs for each).
namespace nubo::cli {

inline constexpr Command stillCommands[] = {
    {"grab", runGrabCommand},       {"displays", runDisplaysCommand},
    {"windows", runWindowsCommand}, {"archive", runArchiveCommand},
    {"export", runExportCommand},   {"stitch", runStitchCommand},
    {"capture", runCaptureCommand},
};
inline constexpr Command mediaCommands[] = {{"video", runVideoCommand}, {"record", runRecordCommand}};
inline constexpr Command uploadCommands[] = {{"upload", runUploadCommand}};
// Text recognition (Tesseract) in a program of its own, so that no other
// loads it.
inline constexpr Command textCommands[] = {{"ocr", runOcrCommand}};

} // namespace nubo::cli
