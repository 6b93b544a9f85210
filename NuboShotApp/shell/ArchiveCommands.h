#pragma once

#include <QImage>
#include <QStringList>

namespace nubo::cli {

// "nuboshot archive new|check …"; arguments start after "archive".
int runArchiveCommand(const QStringList& arguments);

// Pixels per point recorded in an image file: whole multiples of 72 dpi
// (144 dpi is a 2× shot); anything else, or nothing recorded, is 1.
double imagePixelDensity(const QImage& image);

} // namespace nubo::cli
