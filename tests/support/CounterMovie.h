#pragma once

#include <QSize>
#include <QString>

namespace nubo::test {

// A recording made by the real writer, whose truth the tests know: picture
// k (at k / fps seconds) shows k as the counter of MovieDecoder.h at
// (16, 16) over a plain background with a grid of thin lines; with sound,
// second s carries a steady tone of toneAt(s) Hz. Key frames every two
// seconds, as every recording has them.
struct CounterMovie {
    int seconds = 10;
    QSize size = QSize(640, 360);
    int fps = 30;
    bool sound = true;
    static double toneAt(int second) { return 300.0 + 100.0 * second; }
};
// Writes the movie; empty when written, else the reason.
QString writeCounterMovie(const QString& path, const CounterMovie& movie = {});

} // namespace nubo::test
