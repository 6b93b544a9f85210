#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot export DIR -o OUT.png [--scale 1|2]"; arguments start after "export".
int runExportCommand(const QStringList& arguments);

} // namespace nubo::cli
