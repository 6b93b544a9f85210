#pragma once

#include <QStringList>

namespace nubo::cli {

// nuboshot ocr FILE [--lang LANG[+LANG…]]: prints the text recognised in an image.
int runOcrCommand(const QStringList& arguments);

} // namespace nubo::cli
