#pragma once

#include <QStringList>

namespace nubo::cli {

// "nuboshot record display [ID] | area X,Y,W,H | window ID [options]": a
// recording from the command line, headless.
int runRecordCommand(const QStringList& arguments);

} // namespace nubo::cli
