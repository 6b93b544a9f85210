// Encodes a movie's frames again through our recording writer, frame by
// frame at their own times, so that its quality can be compared with
// another encoder's on exactly the same pictures.
//
//   build/bench/encode_clip INPUT.mkv OUTPUT.mp4

#include "recording/RecordingWriter.h"
#include "support/MovieDecoder.h"

#include <QCoreApplication>

#include <cstdio>
#include <memory>

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: encode_clip INPUT OUTPUT.mp4\n");
        return 2;
    }
    std::unique_ptr<nubo::RecordingWriter> writer;
    const auto movie = nubo::test::decodeMovie(
        QString::fromLocal8Bit(argv[1]), [&](const QImage& picture, double time) {
            if (!writer) {
                writer = std::make_unique<nubo::RecordingWriter>(
                    QString::fromLocal8Bit(argv[2]), picture.size(), nubo::RecordingOptions());
            }
            writer->appendVideo(picture, nubo::RecordingDuration(qint64(time * 1e6)));
        });
    if (!movie.opened || !writer) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }
    std::printf("%s\n", qPrintable(writer->finish()));
    return 0;
}
