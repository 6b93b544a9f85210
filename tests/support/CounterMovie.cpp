#include "support/CounterMovie.h"

#include "recording/RecordingWriter.h"
#include "support/MovieDecoder.h"

#include <QImage>
#include <QPainter>
#include <QThread>

extern "C" {
#include <libavutil/samplefmt.h>
}

#include <cmath>
#include <numbers>
#include <vector>

namespace nubo::test {

QString writeCounterMovie(const QString& path, const CounterMovie& movie)
{
    try {
        RecordingOptions options;
        options.systemAudio = movie.sound;
        options.frameRate = movie.fps == 60 ? RecordingFrameRate::fps60 : RecordingFrameRate::fps30;
        RecordingWriter writer(path, movie.size, options);
        QImage background(movie.size, QImage::Format_RGB32);
        background.fill(QColor(40, 90, 160));
        {
            QPainter painter(&background);
            painter.setPen(QColor(220, 220, 200));
            for (int x = 0; x < movie.size.width(); x += 40) {
                painter.drawLine(x, 0, x, movie.size.height());
            }
            for (int y = 0; y < movie.size.height(); y += 40) {
                painter.drawLine(0, y, movie.size.width(), y);
            }
        }
        const auto at = [](qint64 micros) { return RecordingDuration(1'000'000 + micros); };
        const int frames = movie.seconds * movie.fps;
        const int steps = movie.seconds * 100; // 10 ms of sound each
        std::vector<int16_t> buffer(480);
        int frame = 0;
        for (int step = 0; step < steps; ++step) {
            // Pictures due before the end of this step.
            while (frame < frames && qint64(frame) * 100 < qint64(step + 1) * movie.fps) {
                QImage picture = background;
                paintCounter(picture, frame, QPoint(16, 16));
                writer.appendVideo(picture, at(qint64(frame) * 1'000'000 / movie.fps));
                ++frame;
            }
            if (movie.sound) {
                const double tone = CounterMovie::toneAt(step / 100);
                for (int i = 0; i < 480; ++i) {
                    const double t = (step * 480 + i) / 48000.0;
                    buffer[size_t(i)] = int16_t(std::lround(12000 * std::sin(2 * std::numbers::pi * tone * t)));
                }
                const uint8_t* plane[1] = {reinterpret_cast<const uint8_t*>(buffer.data())};
                writer.appendAudio(RecordingAudioMixer::Source::system, {48000, 1, AV_SAMPLE_FMT_S16, plane, 480},
                                   at(qint64(step) * 10'000));
                if (step % 10 == 0) {
                    QThread::msleep(2); // the writer's audio thread's turn
                }
            }
        }
        writer.finish(at(qint64(movie.seconds) * 1'000'000));
        if (const auto failure = writer.audioFailure()) {
            return failure->message();
        }
        return {};
    } catch (const Error& error) {
        return error.message();
    }
}

} // namespace nubo::test
