#pragma once

#include "document/ShotDocument.h"

#include <QStringList>

namespace nubo::cli {

// An image file, or a shot archive folder, as a document; throws Error with
// the reason in words.
ShotDocument openDocument(const QString& path);

// "nuboshot annotate|open FILE..." opens each image (or shot archive) in its
// own editor window; needs the desktop session.
bool isEditorCommand(const QStringList& arguments);
int runEditorCommand(int argc, char** argv, const QStringList& arguments);

} // namespace nubo::cli
