#pragma once

#include <QImage>
#include <QStringList>

namespace nubo::cli {

// "nuboshot archive new|check …"; arguments start after "archive".
int runArchiveCommand(const QStringList& arguments);

} // namespace nubo::cli
