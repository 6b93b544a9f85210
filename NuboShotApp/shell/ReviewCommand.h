#pragma once

#include <QStringList>

namespace nubo::cli {

bool isReviewCommand(const QStringList& arguments);
// "nuboshot review FILE": the review window of one recording, in this
// process, until it is closed.
int runReviewCommand(int argc, char** argv, const QStringList& arguments);

} // namespace nubo::cli
