#pragma once

#include "recording/RecordingAudio.h"
#include "recording/RecordingAudioServer.h"

#include <QList>
#include <QString>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace nubo {

// Times the fragments of one source on the audio server's own clock (frames
// counted from the first), anchored to the recorder's clock by when each
// fragment was captured as measured (arrival minus the stream's latency).
// Measurements only ever come late (a busy thread), so the earliest of every
// two seconds' is believed. The earliest measurements of the last half
// minute give the pace of the server's clock against ours (a null sink's
// clock was seen 3 % slow), so a steady drift is followed smoothly; when the
// two still disagree by more than 8 ms, the anchor moves by that much. Half a second entirely
// off by more than 30 ms (audio lost, a stalled server) moves it at once.
// Measurements of a busy machine wander by several milliseconds, so smaller
// differences are left alone: each move is heard as a slight change of
// pitch while the mixer takes it up.
class RecordingAudioSourceClock {
public:
    static constexpr RecordingDuration tolerance = std::chrono::milliseconds(8);
    static constexpr RecordingDuration jump = std::chrono::milliseconds(60);

    explicit RecordingAudioSourceClock(int sampleRate) : m_rate(sampleRate) {}
    // The capture time of a fragment of `frames` whose first frame was, by
    // this measurement, captured at `measured`.
    RecordingDuration place(qint64 frames, RecordingDuration measured);
    // Frames the server reported lost: time goes on without them.
    void skip(qint64 frames) { m_frames += frames; }
    // Microseconds a frame lasts on our clock, as learnt.
    double microsecondsPerFrame() const { return m_microsecondsPerFrame; }
    // How often the anchor moved.
    int corrections() const { return m_corrections; }

private:
    RecordingDuration at(qint64 frames) const;
    int m_rate;
    std::optional<RecordingDuration> m_anchor; // the capture time of frame m_anchorFrames
    qint64 m_anchorFrames = 0;
    double m_microsecondsPerFrame = 0;
    qint64 m_frames = 0;
    qint64 m_windowFrames = 0;
    std::optional<RecordingDuration> m_windowError;
    std::optional<std::pair<qint64, double>> m_windowLowest; // frames, µs off the nominal pace
    std::vector<std::pair<qint64, double>> m_lowest;          // of the last windows
    qint64 m_shortFrames = 0;
    std::optional<RecordingDuration> m_shortError;
    std::optional<RecordingDuration> m_previousShort;
    int m_corrections = 0;
};

// Records system audio (the default sink's monitor) and a microphone (the
// chosen source, else the default one) from the audio server, each in its
// own format, and hands every fragment over timed on the recorder's clock.
// The server's thread calls `deliver` and `ended`.
class PulseAudioCapture {
public:
    using Source = RecordingAudioMixer::Source;
    struct Callbacks {
        std::function<RecordingDuration()> clock; // the recorder's capture clock
        std::function<void(Source, const RecordingAudioInput&, RecordingDuration captureTime)>
            deliver;
        // A source stopped for good (the server went away): why.
        std::function<void(Source, const QString& reason)> ended;
    };

    explicit PulseAudioCapture(Callbacks callbacks);
    ~PulseAudioCapture();
    PulseAudioCapture(const PulseAudioCapture&) = delete;
    PulseAudioCapture& operator=(const PulseAudioCapture&) = delete;

    // Connects and starts the sources asked for. Throws Error naming the
    // reason when the server cannot be reached or a source cannot be read.
    void start(bool system, bool microphone, const std::optional<QString>& microphoneDevice);
    // Waits until every running source has handed over what was captured
    // before `time`, at most `timeout`.
    void waitFor(RecordingDuration time, std::chrono::milliseconds timeout);
    // Stops every source; nothing is delivered afterwards.
    void stop();
    // The source the microphone is recorded from, once started.
    QString microphoneName() const;

private:
    struct Impl;
    std::unique_ptr<Impl> d;
};

} // namespace nubo
