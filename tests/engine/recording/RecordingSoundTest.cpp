// Recording sound without an audio server: the time line audio is mapped
// through (pauses as they were when it was captured), the source clock that
// times a server's fragments, the mixer keeping a source continuous, and the
// writer's sound against its picture, checked by decoding with FFmpeg.

#include "recording/PulseAudioCapture.h"
#include "recording/RecordingAudio.h"
#include "recording/RecordingTimeline.h"
#include "recording/RecordingWriter.h"
#include "support/MovieDecoder.h"

#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cmath>
#include <random>

extern "C" {
#include <libavutil/samplefmt.h>
}

namespace nubo {
namespace {

RecordingDuration ms(qint64 milliseconds)
{
    return std::chrono::milliseconds(milliseconds);
}

TEST(RecordingTimelineHistory, LateAudioIsMappedAsItWasCapturedAroundEveryPause)
{
    // First frame at 1 s; paused 3–5 s (done) and from 8 s (running); a
    // pause that ended before the first frame counts for nothing.
    RecordingTimelineHistory history;
    history.pause(ms(200));
    history.resume(ms(600));
    history.offer(ms(1000));
    history.pause(ms(3000));
    history.resume(ms(5000));
    history.pause(ms(8000));
    ASSERT_EQ(history.pauses, (std::vector<RecordingPause>{{ms(3000), ms(5000)}}));
    struct Case {
        qint64 captured;
        std::optional<qint64> movie; // nothing: left out
    };
    const Case cases[] = {
        {900, std::nullopt},  // before the first frame
        {1000, 0},
        {2999, 1999},         // just before the pause, arriving during it
        {3000, std::nullopt}, // in the completed pause, arriving after it
        {4999, std::nullopt},
        {5000, 2000},         // the pause leaves no gap
        {7999, 4999},
        {8000, std::nullopt}, // the running pause
        {9000, std::nullopt},
    };
    for (const Case& c : cases) {
        const std::optional<RecordingDuration> mapped = history.mapCaptured(ms(c.captured));
        EXPECT_EQ(mapped, c.movie ? std::optional(ms(*c.movie)) : std::nullopt) << c.captured;
    }
    EXPECT_EQ(history.pauseEndAfter(ms(4000)), ms(5000));
    EXPECT_EQ(history.pauseEndAfter(ms(5000)), std::nullopt);
    EXPECT_EQ(history.pauseBeginningWithin(ms(2990), ms(3010)), ms(3000));
    EXPECT_EQ(history.pauseBeginningWithin(ms(7990), ms(8010)), ms(8000));
    EXPECT_EQ(history.pauseBeginningWithin(ms(5000), ms(7000)), std::nullopt);

    // For what arrives in time it agrees with the timeline itself.
    RecordingTimelineHistory live;
    for (qint64 t = 0; t < 10000; t += 7) {
        if (t == 2002) {
            live.pause(ms(t));
        }
        if (t == 4002) {
            live.resume(ms(t));
        }
        live.offer(ms(t));
        EXPECT_EQ(live.mapCaptured(ms(t)), live.timeline.map(ms(t))) << t;
    }
}

TEST(RecordingAudioSourceClock, FollowsTheServersPaceThroughJitterDriftAndLoss)
{
    struct Case {
        const char* name;
        double pace;      // the server's frames last this much of our time
        qint64 lostAt;    // a fragment index where 100 ms of audio were lost; -1: none
        int maxCorrections;
    };
    const Case cases[] = {
        {"steady, with up to 3 ms of lateness", 1.0, -1, 1},
        {"a server 0.2 % slow", 1.002, -1, 6},
        {"a server 0.1 % fast", 0.999, -1, 6},
        {"a server 3 % slow (a null sink seen so)", 1.03, -1, 6},
        {"100 ms of audio lost", 1.0, 1500, 3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::mt19937 random(7);
        std::uniform_int_distribution<int> late(0, 3000);
        RecordingAudioSourceClock clock(48000);
        const qint64 fragment = 480;
        double real = 5e6; // our clock, µs, when the fragment's first frame was captured
        qint64 previous = -1;
        double worst = 0;
        for (qint64 i = 0; i < 6000; ++i) { // a minute
            if (i == c.lostAt) {
                real += 100000;
            }
            const RecordingDuration placed =
                clock.place(fragment, RecordingDuration(qint64(real) + late(random)));
            // Never back by more than a correction; after the first few
            // seconds close to the truth.
            EXPECT_GE(placed.count(), previous - 5000);
            previous = placed.count();
            // Judged after the first eight seconds, and half a second after a loss.
            if (i > 800 && (c.lostAt < 0 || i < c.lostAt || i > c.lostAt + 50)) {
                worst = std::max(worst, std::fabs(double(placed.count()) - real));
            }
            real += fragment * 1e6 / 48000 * c.pace;
        }
        EXPECT_LE(worst, 12000) << "placed up to " << worst << " µs from where it was captured";
        EXPECT_LE(clock.corrections(), c.maxCorrections);
    }
}

TEST(RecordingAudioMixer, ASourceStaysContinuousThroughRoundingAndSmallDriftButNotAGap)
{
    // 10 ms buffers of a constant 0.5, placed with the rounding of real
    // times; one late by 5 ms (taken up), one 40 ms late (a real gap).
    RecordingAudioMixer mixer(true, false);
    std::vector<float> data(480 * 2, 0.5f);
    const uint8_t* plane[1] = {reinterpret_cast<const uint8_t*>(data.data())};
    qint64 offset = 0;
    for (int i = 0; i < 300; ++i) {
        if (i == 100) {
            offset += 5000;
        }
        if (i == 200) {
            offset += 40000;
        }
        const RecordingDuration at((i * 10000 + offset) + (i % 3) - 1);
        mixer.add(RecordingAudioMixer::Source::system, {48000, 2, AV_SAMPLE_FMT_FLT, plane, 480},
                  at);
    }
    std::vector<float> left;
    for (const RecordingAudioBuffer& buffer : mixer.mix(true)) {
        for (qint64 f = 0; f < buffer.frames(); ++f) {
            left.push_back(buffer.samples[size_t(f) * 2]);
        }
    }
    // Silent only where the 40 ms gap is: about 2.045 s to 2.085 s.
    qint64 silentFrom = -1, silentTo = -1, silent = 0;
    for (size_t f = 100; f < left.size(); ++f) {
        if (std::fabs(left[f]) < 0.25f) {
            silentFrom = silentFrom < 0 ? qint64(f) : silentFrom;
            silentTo = qint64(f);
            ++silent;
        }
    }
    // The gap, and what was left of the 5 ms to take up when it came (taken
    // up over two seconds: about 60 % of it after one).
    EXPECT_NEAR(double(silent), 40 * 48.0 + 5 * 48 * 0.6, 2 * 48) << "frames of silence";
    EXPECT_EQ(silentTo - silentFrom + 1, silent) << "in one stretch";
    EXPECT_NEAR(double(silentFrom) / 48000, 2.0 + 0.005 + 0.0, 0.02);
}

// A picture of one colour.
QImage flat(int gray)
{
    QImage image(320, 240, QImage::Format_RGB32);
    image.fill(QColor(gray, gray, gray));
    return image;
}

TEST(RecordingWriter, SoundAndPictureAreInStepAndTheSoundLastsAsLongAsThePicture)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("movie.mp4");
    RecordingOptions options;
    options.systemAudio = true;
    options.frameRate = RecordingFrameRate::fps60;
    RecordingWriter writer(file, QSize(320, 240), options);
    ASSERT_TRUE(writer.hasAudio());
    // Capture times from 3 s on: frames every 1/60 s, white at 1.000 s and
    // 2.500 s into the movie; sound in 10 ms buffers (44.1 kHz mono, as a
    // microphone gives it) with a click at exactly the same instants.
    const RecordingDuration origin = ms(3000);
    std::vector<int16_t> buffer(441);
    for (int step = 0; step < 300; ++step) { // three seconds of sound
        const RecordingDuration at = origin + ms(step * 10);
        for (int i = 0; i < 441; ++i) {
            const qint64 sample = qint64(step) * 441 + i; // at 44.1 kHz from the origin
            const bool click = (sample >= 44100 && sample < 44100 + 441) ||
                               (sample >= 110250 && sample < 110250 + 441);
            buffer[size_t(i)] = click ? int16_t(std::lround(26000 * std::sin(sample * 0.3))) : 0;
        }
        const uint8_t* plane[1] = {reinterpret_cast<const uint8_t*>(buffer.data())};
        const qint64 frameFrom = step * 60 / 100, frameTo = (step + 1) * 60 / 100;
        for (qint64 f = frameFrom; f < frameTo; ++f) {
            const bool white = f == 60 || f == 150;
            writer.appendVideo(flat(white ? 255 : 0), origin + RecordingDuration(f * 1000000 / 60));
        }
        writer.appendAudio(RecordingAudioMixer::Source::system,
                           {44100, 1, AV_SAMPLE_FMT_S16, plane, 441}, at);
        if (step % 10 == 0) {
            QThread::msleep(5); // the audio thread's turns
        }
    }
    EXPECT_EQ(writer.finish(origin + ms(3000)), file);
    EXPECT_FALSE(writer.audioFailure());
    EXPECT_EQ(writer.audioFramesDropped(), 0);

    QList<double> flashes;
    const test::DecodedMovie movie = test::decodeMovie(file, [&](const QImage& picture, double t) {
        if (qGray(picture.pixel(10, 10)) > 128) {
            flashes.append(t);
        }
    });
    ASSERT_TRUE(movie.opened);
    const test::DecodedSound sound = test::decodeSound(file);
    ASSERT_TRUE(sound.opened) << sound.error.toStdString();
    EXPECT_EQ(sound.codec, "aac");
    EXPECT_NEAR(sound.start, 0.0, 1e-6);
    EXPECT_NEAR(sound.seconds(), 3.0, 0.03) << "as long as the picture";
    QList<double> clicks;
    for (size_t i = 1; i < sound.mono.size(); ++i) {
        if (std::fabs(sound.mono[i]) > 0.2f &&
            (clicks.isEmpty() || double(i) / 48000 - clicks.last() > 0.2)) {
            clicks.append(double(i) / 48000);
        }
    }
    ASSERT_EQ(flashes, (QList<double>{1.0, 2.5}));
    ASSERT_EQ(clicks.size(), 2);
    for (int k = 0; k < 2; ++k) {
        EXPECT_NEAR(clicks[k], flashes[k], 0.002) << "click " << k;
    }
}

TEST(RecordingWriter, SoundThatCannotBeReadEndsWithInvalidAudio)
{
    QTemporaryDir dir;
    RecordingOptions options;
    options.microphone = true;
    RecordingWriter writer(dir.filePath("movie.mp4"), QSize(320, 240), options);
    writer.appendVideo(flat(0), ms(1000));
    std::vector<float> data(100);
    const uint8_t* plane[1] = {reinterpret_cast<const uint8_t*>(data.data())};
    writer.appendAudio(RecordingAudioMixer::Source::microphone,
                       {48000, 0, AV_SAMPLE_FMT_FLT, plane, 50}, ms(1010)); // no channels
    for (int i = 0; i < 100 && !writer.audioFailure(); ++i) {
        QThread::msleep(10);
    }
    ASSERT_TRUE(writer.audioFailure());
    EXPECT_EQ(writer.audioFailure()->code(), RecordingError::Code::invalidAudio);
    EXPECT_EQ(writer.audioFailure()->message(), "Recording audio could not be processed.");
}

} // namespace
} // namespace nubo
