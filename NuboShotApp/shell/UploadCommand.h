#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot upload FILE [--destination auto|r2|filebin]"; arguments start
// after "upload".
int runUploadCommand(const QStringList& arguments);

} // namespace nubo::cli
