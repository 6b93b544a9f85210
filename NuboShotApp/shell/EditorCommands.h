#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot annotate|open FILE..." opens each image (or shot archive) in its
// own editor window; needs the desktop session.
bool isEditorCommand(const QStringList& arguments);
int runEditorCommand(int argc, char** argv, const QStringList& arguments);

} // namespace nubo::cli
