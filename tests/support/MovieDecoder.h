#pragma once

#include <QImage>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

namespace nubo::test {

// What FFmpeg reads back from a movie: every decoded video frame with its
// time, converted to RGB32.
struct DecodedMovie {
    bool opened = false;
    QString error;
    QString codec;
    QString profile;
    int width = 0, height = 0;
    int bFrames = 0; // frames decoded as B-frames
    QList<double> times; // seconds
    QList<QImage> frames;
    QList<bool> keyFrames;
    bool moovBeforeMdat = false; // the index at the front
    bool fragmented = false;     // movie fragments (as while recording)
    QString colorPrimaries, colorTransfer, colorSpace;
};
DecodedMovie decodeMovie(const QString& path, bool keepPictures = true);
// The same, handing each picture (RGB32) and its time in seconds to `each`
// instead of keeping them.
DecodedMovie decodeMovie(const QString& path,
                         const std::function<void(const QImage& picture, double time)>& each);

// A frame number painted as 12 bits of large black and white blocks (and
// read back from a decoded picture), robust against compression.
void paintCounter(QImage& image, int counter, QPoint at = {});
int readCounter(const QImage& image, QPoint at = {});
constexpr int counterBlock = 24; // pixels a bit
constexpr int counterBits = 12;

} // namespace nubo::test

namespace nubo::test {

// A movie's sound as FFmpeg decodes it, as stereo with its two sides
// averaged, resampled to 48 kHz only when it is not already.
struct DecodedSound {
    bool opened = false;
    QString error;
    QString codec;
    int sampleRate = 0;
    int channels = 0;
    qint64 bitRate = 0;
    double start = 0; // seconds: the first decoded sample's time
    std::vector<float> mono;
    double seconds() const { return double(mono.size()) / 48000; }
};
DecodedSound decodeSound(const QString& path);

// The amplitude of a sine of `frequency` in `count` samples from `from`
// (48 kHz), by the Goertzel filter.
double toneLevel(const std::vector<float>& samples, double frequency, size_t from, size_t count);
// The loudest sample's magnitude in that stretch.
float peakLevel(const std::vector<float>& samples, size_t from, size_t count);

} // namespace nubo::test
