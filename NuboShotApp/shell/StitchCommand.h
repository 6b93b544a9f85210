#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot stitch FRAME... -o OUT.png [--verbose]"; arguments start after "stitch".
int runStitchCommand(const QStringList& arguments);

} // namespace nubo::cli
