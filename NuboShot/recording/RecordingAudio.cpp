#include "recording/RecordingAudio.h"

#include "media/MediaOwners.h"

#include <cmath>
#include <limits>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/samplefmt.h>
#include <libswresample/swresample.h>
}

namespace nubo {

// ---- FIFO ----

std::optional<RecordingAudioFIFO::Dropped> RecordingAudioFIFO::push(RecordingAudioBuffer buffer)
{
    std::optional<Dropped> dropped;
    const auto drop = [&](const RecordingAudioBuffer& gone) {
        if (!dropped) {
            dropped = Dropped{0, gone.start, gone.end()};
        }
        dropped->frames += gone.frames();
        dropped->end = gone.end();
    };
    const qint64 n = buffer.frames();
    while (m_count > 0 && (m_count == slotCount || m_frameCount + n > maximumFrames)) {
        std::optional<RecordingAudioBuffer>& oldest = m_slots[size_t(m_head)];
        drop(*oldest);
        m_frameCount -= oldest->frames();
        oldest.reset();
        m_head = (m_head + 1) % slotCount;
        --m_count;
    }
    if (n > maximumFrames) {
        drop(buffer); // too long to hold at all
        return dropped;
    }
    m_slots[size_t((m_head + m_count) % slotCount)] = std::move(buffer);
    ++m_count;
    m_frameCount += n;
    return dropped;
}

std::optional<RecordingAudioBuffer> RecordingAudioFIFO::pop()
{
    if (m_count == 0) {
        return std::nullopt;
    }
    std::optional<RecordingAudioBuffer>& slot = m_slots[size_t(m_head)];
    RecordingAudioBuffer oldest = std::move(*slot);
    slot.reset();
    m_head = (m_head + 1) % slotCount;
    --m_count;
    m_frameCount -= oldest.frames();
    return oldest;
}

// ---- Mixer ----

struct RecordingAudioMixer::Converter {
    media::Resampler context;
    int sampleRate = 0;
    int channels = 0;
    int format = -1;
    bool compensating = false;
};

RecordingAudioMixer::RecordingAudioMixer(bool systemEnabled, bool micEnabled)
    : m_systemEnabled(systemEnabled), m_micEnabled(micEnabled)
{}

RecordingAudioMixer::~RecordingAudioMixer() = default;

std::optional<int> RecordingAudioMixer::capacityFor(qint64 frames, int sampleRate)
{
    if (frames < 0 || sampleRate <= 0) {
        return std::nullopt;
    }
    const qint64 capacity = frames * recordingAudioRate / sampleRate + 32;
    if (capacity > std::numeric_limits<int32_t>::max()) {
        return std::nullopt;
    }
    return int(capacity);
}

float RecordingAudioMixer::limit(float sample)
{
    constexpr float knee = 0.9f;
    const float magnitude = std::fabs(sample);
    if (!(magnitude > knee)) {
        return std::isnan(sample) ? 0.0f : sample;
    }
    // Above the knee the rest of the range is approached, never reached.
    const float over =
        knee + (1 - knee) * 0.999f * std::tanh((magnitude - knee) / (1 - knee));
    return std::copysign(over, sample);
}

void RecordingAudioMixer::setEnabled(Source source, bool enabled)
{
    (source == Source::system ? m_systemEnabled : m_micEnabled) = enabled;
}

qint64 RecordingAudioMixer::end(Source source) const
{
    return source == Source::system ? m_systemEnd : m_micEnd;
}

void RecordingAudioMixer::add(Source source, const RecordingAudioInput& input,
                              RecordingDuration movieTime)
{
    const auto invalid = [] { return RecordingError(RecordingError::Code::invalidAudio); };
    if (input.frames <= 0 || input.channels <= 0 || input.channels > 64 || !input.data ||
        input.format < 0 || input.format >= AV_SAMPLE_FMT_NB) {
        throw invalid();
    }
    const std::optional<int> capacity = capacityFor(input.frames, input.sampleRate);
    if (!capacity) {
        throw invalid();
    }
    const bool microphone = source == Source::microphone;
    std::unique_ptr<Converter>& converter = m_converters[microphone];
    if (!converter || converter->sampleRate != input.sampleRate ||
        converter->channels != input.channels || converter->format != input.format) {
        converter = std::make_unique<Converter>();
        AVChannelLayout in{}, out{};
        av_channel_layout_default(&in, input.channels);
        av_channel_layout_default(&out, 2);
        SwrContext* context = nullptr;
        if (swr_alloc_set_opts2(&context, &out, AV_SAMPLE_FMT_FLT, recordingAudioRate, &in,
                                AVSampleFormat(input.format), input.sampleRate, 0, nullptr) < 0) {
            converter.reset();
            throw invalid();
        }
        converter->context.reset(context);
        // A mono source (a microphone) at full level on both sides, not 3 dB
        // down as the converter would put a centre channel.
        const double monoToBoth[2] = {1.0, 1.0};
        if ((input.channels == 1 && swr_set_matrix(converter->context.get(), monoToBoth, 1) < 0) ||
            swr_init(converter->context.get()) < 0) {
            converter.reset();
            throw invalid();
        }
        converter->sampleRate = input.sampleRate;
        converter->channels = input.channels;
        converter->format = input.format;
    }
    // Where the chunk belongs, and whether it carries on the source's audio
    // before it: a source's own clock and ours drift apart by a little, and
    // times are whole frames, so a chunk that lands within ten milliseconds
    // of where its source left off continues it without a gap or an overlap,
    // and the converter stretches or squeezes the next two seconds of audio
    // by the difference (at most 0.5 %). Further off, the audio is
    // placed where it belongs: what lies between is silence.
    const double seconds = std::chrono::duration<double>(movieTime).count();
    const qint64 placed = std::max<qint64>(0, qint64(seconds * recordingAudioRate));
    qint64& sourceEnd = microphone ? m_micEnd : m_systemEnd;
    bool& received = microphone ? m_micReceived : m_systemReceived;
    const qint64 drift = placed - sourceEnd;
    const bool continues = received && std::abs(drift) <= continuityWindow;
    const bool compensate = continues && std::abs(drift) > 2; // two frames: rounding
    if (compensate || converter->compensating) {
        if (swr_set_compensation(converter->context.get(), compensate ? int(drift) : 0,
                                 compensate ? 2 * recordingAudioRate : 0) >= 0) {
            converter->compensating = compensate;
        }
    }
    Chunk chunk;
    // Compensation adds at most 0.5 % to what the converter gives.
    const int room = *capacity + (converter->compensating ? input.frames / 100 + 1 : 0);
    chunk.samples.resize(size_t(room) * 2);
    uint8_t* out[1] = {reinterpret_cast<uint8_t*>(chunk.samples.data())};
    const int converted = swr_convert(converter->context.get(), out, room,
                                      const_cast<const uint8_t**>(input.data), input.frames);
    if (converted < 0) {
        throw invalid();
    }
    chunk.samples.resize(size_t(converted) * 2);
    chunk.start = continues ? sourceEnd : placed;
    const qint64 chunkEnd = chunk.start + converted;
    received = true;
    std::vector<Chunk>& chunks = microphone ? m_mic : m_system;
    chunks.push_back(std::move(chunk));
    sourceEnd = chunkEnd;
}

std::vector<RecordingAudioBuffer> RecordingAudioMixer::mix(bool flush)
{
    // How far the sources allow: the one behind, unless it is so far behind
    // that it is taken as silent (it stopped, or it is only paused).
    std::vector<qint64> ends;
    if (m_systemEnabled) {
        ends.push_back(m_systemEnd);
    }
    if (m_micEnabled) {
        ends.push_back(m_micEnd);
    }
    if (ends.empty()) {
        return {};
    }
    const qint64 latest = *std::max_element(ends.begin(), ends.end());
    const qint64 earliest = *std::min_element(ends.begin(), ends.end());
    const qint64 upTo = flush ? latest : std::max(earliest, latest - maximumWait);
    std::vector<RecordingAudioBuffer> out;
    while (m_cursor < upTo) {
        RecordingAudioBuffer buffer;
        buffer.start = m_cursor;
        const qint64 frames = std::min(framesPerBuffer, upTo - m_cursor);
        buffer.samples.assign(size_t(frames) * 2, 0.0f);
        for (const std::vector<Chunk>* chunks : {&m_system, &m_mic}) {
            // A source's chunks may overlap by the few frames its converter
            // held back: each frame of a source counts once.
            qint64 covered = std::numeric_limits<qint64>::min();
            for (const Chunk& chunk : *chunks) {
                const qint64 chunkFrames = qint64(chunk.samples.size() / 2);
                const qint64 from = std::max({buffer.start, chunk.start, covered});
                covered = std::max(covered, chunk.start + chunkFrames);
                const qint64 to = std::min(buffer.start + frames, chunk.start + chunkFrames);
                for (qint64 f = from; f < to; ++f) {
                    const size_t i = size_t(f - buffer.start) * 2, j = size_t(f - chunk.start) * 2;
                    buffer.samples[i] += chunk.samples[j];
                    buffer.samples[i + 1] += chunk.samples[j + 1];
                }
            }
        }
        for (float& sample : buffer.samples) {
            sample = limit(sample);
        }
        m_cursor += frames;
        out.push_back(std::move(buffer));
    }
    // What lies wholly before the cursor is done with.
    for (std::vector<Chunk>* chunks : {&m_system, &m_mic}) {
        std::erase_if(*chunks, [&](const Chunk& c) {
            return c.start + qint64(c.samples.size() / 2) <= m_cursor;
        });
    }
    return out;
}

} // namespace nubo

