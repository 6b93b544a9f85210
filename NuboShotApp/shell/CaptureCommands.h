#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot displays|windows [--json]" and "nuboshot grab …".
int runDisplaysCommand(const QStringList& arguments);
int runWindowsCommand(const QStringList& arguments);
int runGrabCommand(const QStringList& arguments);
// "nuboshot capture MODE": the running instance captures, as from its menu.
int runCaptureCommand(const QStringList& arguments);

} // namespace nubo::cli
