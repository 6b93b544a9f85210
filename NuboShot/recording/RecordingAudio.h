#pragma once

#include "recording/RecordingTypes.h"

#include <array>
#include <map>
#include <memory>
#include <optional>
#include <vector>

struct SwrContext;

namespace nubo {

constexpr int recordingAudioRate = 48000; // frames a second of the common format

// Audio in the common format (48 kHz, stereo, 32-bit float, interleaved),
// placed on the recording's time line by its first frame's index.
struct RecordingAudioBuffer {
    qint64 start = 0; // sample-frame index at 48 kHz
    std::vector<float> samples; // two a frame
    qint64 frames() const { return qint64(samples.size() / 2); }
    qint64 end() const { return start + frames(); }
    bool operator==(const RecordingAudioBuffer&) const = default;
};

// Audio of one source as it arrives: FFmpeg's sample format and layout.
struct RecordingAudioInput {
    int sampleRate = 0;
    int channels = 0;
    int format = -1; // an AVSampleFormat, interleaved or planar
    const uint8_t* const* data = nullptr; // one plane, or one a channel when planar
    int frames = 0;
};

// Holds mixed audio the encoder could not take at once: at most 96
// buffers and 96,000 frames (two seconds); the oldest go first, and a single
// buffer too long to fit at all is dropped on arrival.
class RecordingAudioFIFO {
public:
    static constexpr int slotCount = 96;
    static constexpr qint64 maximumFrames = 96000;

    // What a push threw away: from the first dropped buffer's start to the
    // last one's end, in 48 kHz frames (exact times: frames / 48,000 s).
    struct Dropped {
        qint64 frames = 0;
        qint64 start = 0;
        qint64 end = 0;
        bool operator==(const Dropped&) const = default;
    };

    std::optional<Dropped> push(RecordingAudioBuffer buffer);
    // The oldest buffer, taken out; nothing when empty.
    std::optional<RecordingAudioBuffer> pop();
    int count() const { return m_count; }
    qint64 frameCount() const { return m_frameCount; }
    bool isEmpty() const { return m_count == 0; }

private:
    std::array<std::optional<RecordingAudioBuffer>, slotCount> m_slots;
    int m_head = 0;
    int m_count = 0;
    qint64 m_frameCount = 0;
};

// Brings system audio and a microphone, each in its own format and pace,
// onto one 48 kHz stereo time line and mixes them. Mixing never runs ahead
// of an enabled source that has not delivered yet, by at most
// `maximumWait` frames (half a second): a source that stops delivering is
// taken as silent beyond that, so the other one goes on. Sources are summed
// and then softly limited, so loud passages never clip harshly.
class RecordingAudioMixer {
public:
    enum class Source { system, microphone };
    static constexpr qint64 maximumWait = recordingAudioRate / 2;
    static constexpr qint64 framesPerBuffer = 1024; // what the AAC encoder takes at once
    // How far (10 ms) a chunk may land from where its source left off and
    // still carry on from there, the difference taken up by the converter.
    static constexpr qint64 continuityWindow = recordingAudioRate / 100;

    RecordingAudioMixer(bool systemEnabled, bool micEnabled);
    ~RecordingAudioMixer();
    RecordingAudioMixer(const RecordingAudioMixer&) = delete;
    RecordingAudioMixer& operator=(const RecordingAudioMixer&) = delete;

    // The converter's output room for a buffer: frames × 48,000 / rate,
    // truncated, plus 32; nothing when it does not fit a 32-bit count.
    static std::optional<int> capacityFor(qint64 frames, int sampleRate);
    // The soft limiter: unchanged up to ±0.9, never beyond ±1.
    static float limit(float sample);

    // Takes one buffer of a source at its movie time. Throws RecordingError
    // (invalidAudio) for audio that cannot be read or converted.
    void add(Source source, const RecordingAudioInput& input, RecordingDuration movieTime);
    // Mixed audio from the cursor on, in buffers of at most 1,024 frames;
    // with `flush`, up to the end of everything received.
    std::vector<RecordingAudioBuffer> mix(bool flush = false);

    // A source that ended (its server went away) is no longer waited for.
    void setEnabled(Source source, bool enabled);

    qint64 cursor() const { return m_cursor; }
    qint64 end(Source source) const;

private:
    struct Chunk {
        qint64 start = 0;
        std::vector<float> samples;
    };
    bool m_systemEnabled;
    bool m_micEnabled;
    std::vector<Chunk> m_system;
    std::vector<Chunk> m_mic;
    qint64 m_systemEnd = 0;
    qint64 m_micEnd = 0;
    bool m_systemReceived = false;
    bool m_micReceived = false;
    qint64 m_cursor = 0;
    struct Converter;
    std::map<bool, std::unique_ptr<Converter>> m_converters; // true: the microphone
};

} // namespace nubo
