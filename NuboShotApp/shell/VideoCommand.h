#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot video export|info …"; arguments start after "video".
int runVideoCommand(const QStringList& arguments);

} // namespace nubo::cli
