#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <memory>

namespace nubo {

// Sound played through the audio server: 48 kHz stereo, 16-bit samples
// interleaved, with a short buffer (80 ms) so that a pause or a seek is heard
// at once. Writes block while the buffer is full; one thread at a time.
class SoundOutput {
public:
    // `stream` names the stream in the desktop's sound settings.
    explicit SoundOutput(QString stream);
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    static constexpr int sampleRate = 48000;
    static constexpr int channels = 2;

    // Connects on the first write. False when the server refuses or goes
    // away; `problem()` then says why, and the next write connects again.
    bool write(const int16_t* samples, size_t count);
    // Drops what is buffered and not yet heard (after a seek).
    void flush();
    const QString& problem() const { return m_problem; }

private:
    struct Stream;
    QString m_name;
    std::unique_ptr<Stream> m_stream;
    QString m_problem;
};

} // namespace nubo
