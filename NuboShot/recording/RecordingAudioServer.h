#pragma once

#include <QList>
#include <QString>

#include <optional>

namespace nubo {

// A sound source of the audio server, as a user picks it.
struct RecordingAudioDevice {
    QString name;        // the server's name: what "shot.recording.microphoneDeviceID" holds
    QString description; // what a user reads
    bool isDefault = false;
    bool operator==(const RecordingAudioDevice&) const = default;
};

// The audio server, over PulseAudio's protocol (PipeWire serves it too).
// Nothing is ever started for us: no server, no audio.
namespace RecordingAudioServer {
// Why no audio can be recorded ("No audio server answers: Connection
// refused."); nothing when a server answers.
std::optional<QString> unavailable();
// What a user without a server installs, in one sentence.
QString whatToInstall();
// The sources a microphone can be recorded from: every one that is not a
// sink's monitor. Throws Error when no server answers.
QList<RecordingAudioDevice> microphones();
} // namespace RecordingAudioServer

} // namespace nubo
