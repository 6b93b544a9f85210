#include "media/SoundOutput.h"

#include <pulse/error.h>
#include <pulse/simple.h>

namespace nubo {

struct SoundOutput::Stream {
    pa_simple* simple = nullptr;
    ~Stream()
    {
        if (simple) {
            pa_simple_free(simple);
        }
    }
};

SoundOutput::SoundOutput(QString stream) : m_name(std::move(stream))
{}

SoundOutput::~SoundOutput() = default;

bool SoundOutput::write(const int16_t* samples, size_t count)
{
    int error = 0;
    if (!m_stream) {
        pa_sample_spec format{PA_SAMPLE_S16LE, sampleRate, channels};
        pa_buffer_attr buffer{};
        buffer.maxlength = uint32_t(-1);
        buffer.tlength = uint32_t(pa_usec_to_bytes(80'000, &format));
        buffer.prebuf = uint32_t(-1);
        buffer.minreq = uint32_t(-1);
        buffer.fragsize = uint32_t(-1);
        auto stream = std::make_unique<Stream>();
        stream->simple =
            pa_simple_new(nullptr, "Nubo Shot", PA_STREAM_PLAYBACK, nullptr,
                          m_name.toUtf8().constData(), &format, nullptr, &buffer, &error);
        if (!stream->simple) {
            m_problem = QString::fromUtf8(pa_strerror(error));
            return false;
        }
        m_stream = std::move(stream);
    }
    if (pa_simple_write(m_stream->simple, samples, count * sizeof(int16_t), &error) < 0) {
        m_problem = QString::fromUtf8(pa_strerror(error));
        m_stream.reset();
        return false;
    }
    return true;
}

void SoundOutput::flush()
{
    if (m_stream) {
        pa_simple_flush(m_stream->simple, nullptr);
    }
}

} // namespace nubo
