#pragma once

#include "shell/GrabRequest.h"

#include <QStringList>

#include <optional>

class QDir;

namespace nubo::cli {

// "nuboshot displays|windows [--json]" and "nuboshot grab …".
int runDisplaysCommand(const QStringList& arguments);
int runWindowsCommand(const QStringList& arguments);
int runGrabCommand(const QStringList& arguments);
// What "nuboshot grab ARGUMENTS" asks, relative paths taken from
// `workingFolder`: the request, or the exit code with what to print (help
// on standard output, a usage error on standard error, each ending in a
// new line). Shared by the command and the tray, which answers it for the
// front program.
struct GrabParse {
    std::optional<GrabRequest> request;
    int exitCode = 0;
    QString out;
    QString err;
};
GrabParse parseGrab(const QStringList& arguments, const QDir& workingFolder);
// "nuboshot capture MODE": the running instance captures, as from its menu.
int runCaptureCommand(const QStringList& arguments);

} // namespace nubo::cli
