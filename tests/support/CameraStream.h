#pragma once

#include <QPoint>
#include <QSize>
#include <QString>

namespace nubo::test {

// Writes `frames` pictures as an MJPEG stream (in AVI, as a camera's
// pictures come) at `fps`: frame k shows its number k as the counter of
// MovieDecoder.h at `counterAt` over three bands (red, green, blue from the
// left). Empty when written, else FFmpeg's reason.
QString writeCameraStream(const QString& path, int frames, QSize size = QSize(640, 360), int fps = 30,
                          QPoint counterAt = QPoint(16, 16));

} // namespace nubo::test
