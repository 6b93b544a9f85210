#pragma once

#include "capture/RecordingTarget.h"
#include "core/EnumStrings.h"
#include "core/Error.h"

#include <QJsonObject>
#include <QRectF>
#include <QString>

#include <chrono>
#include <optional>
#include <variant>

namespace nubo {

class ShotPreferences;

enum class RecordingCodec { h264, hevc };
template <> struct EnumNames<RecordingCodec> {
    static constexpr std::array names{"h264", "hevc"};
};

enum class RecordingFrameRate { fps30 = 30, fps60 = 60 };
// 30 or 60 frames a second; anything else is no frame rate.
std::optional<RecordingFrameRate> frameRateFromRawValue(int framesPerSecond);
// The case name, as the preferences store it: "fps30", "fps60".
QString frameRateName(RecordingFrameRate rate);
inline int framesPerSecond(RecordingFrameRate rate) { return int(rate); }

enum class RecordingResolution { standard, native };
template <> struct EnumNames<RecordingResolution> {
    static constexpr std::array names{"standard", "native"};
};

// What a recording is made with; kept between recordings in the preferences.
struct RecordingOptions {
    RecordingCodec codec = RecordingCodec::h264;
    RecordingFrameRate frameRate = RecordingFrameRate::fps30;
    RecordingResolution resolution = RecordingResolution::native;
    bool systemAudio = false;
    bool microphone = false;
    bool camera = false;
    std::optional<QString> microphoneDeviceID;
    bool showsCursor = true;
    bool highlightsClicks = false;
    bool operator==(const RecordingOptions&) const = default;

    // Coded under the field names, `camera` last among the keys.
    QJsonObject toJson() const;
    static std::optional<RecordingOptions> fromJson(const QJsonObject& object);
    // The "shot.recording.…" keys, read forgivingly (wrong or missing: the
    // default), written under the same keys.
    static RecordingOptions read(const ShotPreferences& preferences);
    void write(ShotPreferences& preferences) const;
};

struct RecordingCapabilities {
    bool supportsMicrophone = false;
    bool supportsClickHighlight = false;
    bool supportsHEVC = false;
    // Why clicks cannot be highlighted here, where they cannot.
    QString clickHighlightProblem;
    bool operator==(const RecordingCapabilities&) const = default;
};

struct RecordingState {
    struct Recording {
        RecordingDuration elapsed{0};
        bool operator==(const Recording&) const = default;
    };
    struct Paused {
        RecordingDuration elapsed{0};
        bool operator==(const Paused&) const = default;
    };
    struct Finished {
        QString file;
        bool operator==(const Finished&) const = default;
    };
    struct Failed {
        QString message;
        bool operator==(const Failed&) const = default;
    };
    struct Idle {
        bool operator==(const Idle&) const = default;
    };
    struct Starting {
        bool operator==(const Starting&) const = default;
    };
    struct Finishing {
        bool operator==(const Finishing&) const = default;
    };
    std::variant<Recording, Paused, Finished, Failed, Idle, Starting, Finishing> state = Idle{};
    bool operator==(const RecordingState&) const = default;

    template <class S> bool is() const { return std::holds_alternative<S>(state); }
    // One line for logs and tests: "recording 00:05", "failed: …".
    QString describe() const;
};

// The elapsed time as the menu and the control bar show it: minutes and
// seconds, "%02lld:%02lld".
QString recordingElapsedText(RecordingDuration elapsed);
// The elapsed time of a recording or paused state; nothing otherwise.
std::optional<RecordingDuration> recordingElapsed(const RecordingState& state);

class RecordingError : public Error {
public:
    enum class Code {
        writerFailed,
        microphoneUnsupported,
        clickHighlightUnsupported,
        codecUnsupported,
        invalidState,
        noVideo,
        invalidAudio
    };
    explicit RecordingError(Code code, QString detail = {});
    Code code() const noexcept { return m_code; }
    const QString& detail() const noexcept { return m_detail; }
    static QString describe(Code code, const QString& detail = {});
    bool operator==(const RecordingError& other) const
    {
        return m_code == other.m_code && (m_code != Code::writerFailed || m_detail == other.m_detail);
    }
    // The detail when the encoder gave none.
    static QString encoderRefused();

private:
    Code m_code;
    QString m_detail;
};

// Throws the first check that fails: microphone, click highlight, codec.
void validate(const RecordingOptions& options, const RecordingCapabilities& capabilities);

// The bit rate a recording of this size is written at, bits per second.
qint64 recordingBitRate(int width, int height, RecordingFrameRate rate, RecordingCodec codec);
// The output size for content of this size at this scale: even, at least 2.
QSize recordingOutputSize(const QSizeF& content, double scale);

// "Nubo Shot Recording yyyy-MM-dd HH.mm.ss.mp4", " (2)", " (3)"… until free.
QString recordingFileName(const QString& folder, const QDateTime& when);
// The folder recordings go to: the preference when set and writable, else
// $XDG_VIDEOS_DIR/Nubo Shot (created).
QString recordingFolder(const ShotPreferences& preferences);

} // namespace nubo
