#pragma once

#include "document/ShotDocument.h"

#include <QImage>
#include <QString>

namespace nubo::test {

// A shot over a quiet gradient with one annotation of every kind, the way a
// user would mark up a screenshot.
ShotDocument markedUpShot();

// Saves an image the tests made under the artifacts folder, for looking at.
void saveArtifact(const QImage& image, const QString& name);

// The largest difference of any channel between two images of one size, and
// how many pixels differ by more than `tolerance`.
struct ImageDifference {
    int maximum = 0;
    qsizetype pixelsOver = 0;
};
ImageDifference compareImages(const QImage& a, const QImage& b, int tolerance);

} // namespace nubo::test
