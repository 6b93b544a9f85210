#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot displays|windows [--json]" and "nuboshot grab …".
int runDisplaysCommand(const QStringList& arguments);
int runWindowsCommand(const QStringList& arguments);
int runGrabCommand(const QStringList& arguments);

} // namespace nubo::cli
