// Recording audio: the FIFO's limits and the mixer's common time line.

#include "recording/RecordingAudio.h"

#include <gtest/gtest.h>

#include <cmath>

extern "C" {
#include <libavutil/samplefmt.h>
}

namespace nubo {
namespace {

RecordingAudioBuffer silence(qint64 start, qint64 frames)
{
    return {start, std::vector<float>(size_t(frames) * 2, 0.0f)};
}

TEST(RecordingAudioFIFO, DropsTheOldestBySlotsAndByFramesAndTooLongOnArrival)
{
    struct Case {
        const char* name;
        qint64 frames; // of every buffer pushed
        int pushes;
        int droppingPush; // 1-based; 0: none drops
    };
    const Case cases[] = {
        {"slots: the 97th short buffer drops the first", 10, 97, 97},
        {"frames: the 94th 1,024-frame buffer (96,256 frames) drops the first", 1024, 94, 94},
        {"within both limits", 1000, 96, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RecordingAudioFIFO fifo;
        for (int i = 1; i <= c.pushes; ++i) {
            const auto dropped = fifo.push(silence((i - 1) * c.frames, c.frames));
            if (i == c.droppingPush) {
                ASSERT_TRUE(dropped);
                EXPECT_EQ(*dropped, (RecordingAudioFIFO::Dropped{c.frames, 0, c.frames}));
            } else {
                EXPECT_FALSE(dropped) << "push " << i;
            }
        }
        EXPECT_LE(fifo.frameCount(), RecordingAudioFIFO::maximumFrames);
        EXPECT_LE(fifo.count(), RecordingAudioFIFO::slotCount);
        // What is left comes out oldest first.
        qint64 start = -1;
        while (const auto buffer = fifo.pop()) {
            EXPECT_GT(buffer->start, start);
            start = buffer->start;
        }
        EXPECT_EQ(fifo.frameCount(), 0);
    }
    // One buffer too long to hold: dropped on arrival, with the older audio
    // the limit pushed out before it.
    RecordingAudioFIFO fifo;
    fifo.push(silence(0, 1000));
    fifo.push(silence(1000, 1000));
    const auto dropped = fifo.push(silence(2000, 100000));
    ASSERT_TRUE(dropped);
    EXPECT_EQ(*dropped, (RecordingAudioFIFO::Dropped{102000, 0, 102000}));
    EXPECT_TRUE(fifo.isEmpty());
}

TEST(RecordingAudioMixer, SourcesOfAnyFormatMeetOnOneTimeLineAndNeverClip)
{
    EXPECT_EQ(RecordingAudioMixer::capacityFor(441, 44100), 480 + 32);
    EXPECT_EQ(RecordingAudioMixer::capacityFor(1024, 48000), 1024 + 32);
    EXPECT_EQ(RecordingAudioMixer::capacityFor(qint64(1) << 40, 8000), std::nullopt);
    EXPECT_EQ(RecordingAudioMixer::capacityFor(10, 0), std::nullopt);
    for (const float x : {0.0f, 0.5f, -0.9f, 1.2f, -3.0f, 50.0f}) {
        const float y = RecordingAudioMixer::limit(x);
        EXPECT_LE(std::fabs(y), 1.0f) << x;
        if (std::fabs(x) <= 0.9f) {
            EXPECT_EQ(y, x);
        } else {
            EXPECT_GT(std::fabs(y), 0.9f);
        }
    }

    // System audio: 48 kHz stereo float at 0.6; microphone: 44.1 kHz mono
    // 16-bit at about 0.6 too. Both for one second, in 10 ms buffers.
    RecordingAudioMixer mixer(true, true);
    std::vector<float> system(480 * 2, 0.6f);
    std::vector<int16_t> mic(441, int16_t(0.6 * 32767));
    for (int i = 0; i < 100; ++i) {
        const RecordingDuration at(i * 10000);
        const uint8_t* systemPlane[1] = {reinterpret_cast<const uint8_t*>(system.data())};
        mixer.add(RecordingAudioMixer::Source::system,
                  {48000, 2, AV_SAMPLE_FMT_FLT, systemPlane, 480}, at);
        const uint8_t* micPlane[1] = {reinterpret_cast<const uint8_t*>(mic.data())};
        mixer.add(RecordingAudioMixer::Source::microphone,
                  {44100, 1, AV_SAMPLE_FMT_S16, micPlane, 441}, at);
    }
    EXPECT_NEAR(double(mixer.end(RecordingAudioMixer::Source::system)), 48000, 1);
    EXPECT_NEAR(double(mixer.end(RecordingAudioMixer::Source::microphone)), 48000, 64);
    std::vector<RecordingAudioBuffer> mixed = mixer.mix();
    ASSERT_FALSE(mixed.empty());
    qint64 expectedStart = 0;
    float loudest = 0;
    for (const RecordingAudioBuffer& buffer : mixed) {
        EXPECT_EQ(buffer.start, expectedStart);
        EXPECT_LE(buffer.frames(), 1024);
        expectedStart = buffer.end();
        for (const float s : buffer.samples) {
            loudest = std::max(loudest, std::fabs(s));
        }
    }
    // Mixed, not clipped: 0.6 + 0.6 is limited to below 1.
    EXPECT_GT(loudest, 0.9f);
    EXPECT_LT(loudest, 1.0f);
    // Both sources in the middle of the second: louder than either alone.
    EXPECT_GT(mixed[20].samples[100], 0.9f);
    EXPECT_EQ(mixer.cursor(), expectedStart);

    // The microphone stops: the system audio goes on once it is half a
    // second ahead, with the microphone silent.
    for (int i = 100; i < 200; ++i) {
        const uint8_t* systemPlane[1] = {reinterpret_cast<const uint8_t*>(system.data())};
        mixer.add(RecordingAudioMixer::Source::system,
                  {48000, 2, AV_SAMPLE_FMT_FLT, systemPlane, 480}, RecordingDuration(i * 10000));
    }
    mixed = mixer.mix();
    ASSERT_FALSE(mixed.empty());
    EXPECT_EQ(mixer.cursor(), 96000 - RecordingAudioMixer::maximumWait);
    EXPECT_NEAR(mixed.back().samples[0], 0.6f, 1e-4) << "the system audio alone";
    mixer.mix(true);
    EXPECT_EQ(mixer.cursor(), 96000);

    // Audio that cannot be read.
    const uint8_t* none[1] = {nullptr};
    EXPECT_THROW(mixer.add(RecordingAudioMixer::Source::system, {48000, 2, AV_SAMPLE_FMT_FLT, none, 0},
                           RecordingDuration(0)),
                 RecordingError);
    EXPECT_THROW(mixer.add(RecordingAudioMixer::Source::system, {0, 2, AV_SAMPLE_FMT_FLT, none, 10},
                           RecordingDuration(0)),
                 RecordingError);
}

} // namespace
} // namespace nubo
