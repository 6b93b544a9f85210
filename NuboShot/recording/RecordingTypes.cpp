#include "recording/RecordingTypes.h"

#include "core/Settings.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonValue>
#include <QLocale>
#include <QStandardPaths>

#include <cmath>
#include <unistd.h>

namespace nubo {

std::optional<RecordingFrameRate> frameRateFromRawValue(int framesPerSecond)
{
    switch (framesPerSecond) {
    case 30:
        return RecordingFrameRate::fps30;
    case 60:
        return RecordingFrameRate::fps60;
    default:
        return std::nullopt;
    }
}

QString frameRateName(RecordingFrameRate rate)
{
    return rate == RecordingFrameRate::fps60 ? QStringLiteral("fps60") : QStringLiteral("fps30");
}

QJsonObject RecordingOptions::toJson() const
{
    // QJsonObject orders keys itself; the field-name keys are what matter.
    QJsonObject o;
    o.insert(QStringLiteral("codec"), toString(codec));
    o.insert(QStringLiteral("frameRate"), framesPerSecond(frameRate));
    o.insert(QStringLiteral("resolution"), toString(resolution));
    o.insert(QStringLiteral("systemAudio"), systemAudio);
    o.insert(QStringLiteral("microphone"), microphone);
    if (microphoneDeviceID) {
        o.insert(QStringLiteral("microphoneDeviceID"), *microphoneDeviceID);
    }
    o.insert(QStringLiteral("showsCursor"), showsCursor);
    o.insert(QStringLiteral("highlightsClicks"), highlightsClicks);
    o.insert(QStringLiteral("camera"), camera);
    return o;
}

std::optional<RecordingOptions> RecordingOptions::fromJson(const QJsonObject& o)
{
    RecordingOptions r;
    const auto codec = fromString<RecordingCodec>(o.value(QLatin1String("codec")).toString());
    const QJsonValue rate = o.value(QLatin1String("frameRate"));
    const auto frameRate = rate.isDouble() ? frameRateFromRawValue(rate.toInt()) : std::nullopt;
    const auto resolution =
        fromString<RecordingResolution>(o.value(QLatin1String("resolution")).toString());
    if (!codec || !frameRate || !resolution) {
        return std::nullopt;
    }
    r.codec = *codec;
    r.frameRate = *frameRate;
    r.resolution = *resolution;
    const auto flag = [&](const char* key, bool& into) {
        const QJsonValue v = o.value(QLatin1String(key));
        if (!v.isBool()) {
            return false;
        }
        into = v.toBool();
        return true;
    };
    if (!flag("systemAudio", r.systemAudio) || !flag("microphone", r.microphone) ||
        !flag("showsCursor", r.showsCursor) || !flag("highlightsClicks", r.highlightsClicks) ||
        !flag("camera", r.camera)) {
        return std::nullopt;
    }
    const QJsonValue device = o.value(QLatin1String("microphoneDeviceID"));
    if (device.isString()) {
        r.microphoneDeviceID = device.toString();
    } else if (!device.isUndefined() && !device.isNull()) {
        return std::nullopt;
    }
    return r;
}

RecordingOptions RecordingOptions::read(const ShotPreferences& p)
{
    RecordingOptions r;
    r.codec = p.string(keys::recordingCodec) == QLatin1String("hevc") ? RecordingCodec::hevc
                                                                      : RecordingCodec::h264;
    r.frameRate = p.string(keys::recordingFrameRate) == QLatin1String("fps60")
                      ? RecordingFrameRate::fps60
                      : RecordingFrameRate::fps30;
    r.resolution = p.string(keys::recordingResolution) == QLatin1String("standard")
                       ? RecordingResolution::standard
                       : RecordingResolution::native;
    r.systemAudio = p.boolean(keys::recordingSystemAudio, false);
    r.microphone = p.boolean(keys::recordingMicrophone, false);
    r.showsCursor = p.boolean(keys::recordingShowsCursor, true);
    r.highlightsClicks = p.boolean(keys::recordingHighlightsClicks, false);
    r.camera = p.boolean(keys::recordingCamera, false);
    if (const auto device = p.string(keys::recordingMicrophoneDeviceID); device && !device->isEmpty()) {
        r.microphoneDeviceID = device;
    }
    return r;
}

void RecordingOptions::write(ShotPreferences& p) const
{
    p.setValue(keys::recordingCodec, toString(codec));
    p.setValue(keys::recordingFrameRate, frameRateName(frameRate)); // the case name
    p.setValue(keys::recordingResolution, toString(resolution));
    p.setValue(keys::recordingSystemAudio, systemAudio);
    p.setValue(keys::recordingMicrophone, microphone);
    p.setValue(keys::recordingShowsCursor, showsCursor);
    p.setValue(keys::recordingHighlightsClicks, highlightsClicks);
    p.setValue(keys::recordingCamera, camera);
    if (microphoneDeviceID) {
        p.setValue(keys::recordingMicrophoneDeviceID, *microphoneDeviceID);
    } else {
        p.remove(keys::recordingMicrophoneDeviceID);
    }
}

QString recordingElapsedText(RecordingDuration elapsed)
{
    const long long seconds = std::chrono::duration_cast<std::chrono::seconds>(elapsed).count();
    return QString::asprintf("%02lld:%02lld", seconds / 60, seconds % 60);
}

std::optional<RecordingDuration> recordingElapsed(const RecordingState& state)
{
    if (const auto* r = std::get_if<RecordingState::Recording>(&state.state)) {
        return r->elapsed;
    }
    if (const auto* p = std::get_if<RecordingState::Paused>(&state.state)) {
        return p->elapsed;
    }
    return std::nullopt;
}

QString RecordingState::describe() const
{
    const auto clock = recordingElapsedText;
    if (const auto* s = std::get_if<Recording>(&state)) {
        return QStringLiteral("recording ") + clock(s->elapsed);
    }
    if (const auto* s = std::get_if<Paused>(&state)) {
        return QStringLiteral("paused ") + clock(s->elapsed);
    }
    if (const auto* s = std::get_if<Finished>(&state)) {
        return QStringLiteral("finished: ") + s->file;
    }
    if (const auto* s = std::get_if<Failed>(&state)) {
        return QStringLiteral("failed: ") + s->message;
    }
    return is<Idle>() ? QStringLiteral("idle")
           : is<Starting>() ? QStringLiteral("starting")
                            : QStringLiteral("finishing");
}

RecordingError::RecordingError(Code code, QString detail)
    : Error(describe(code, detail)), m_code(code), m_detail(std::move(detail))
{}

QString RecordingError::encoderRefused()
{
    return QCoreApplication::translate("nubo::RecordingTypes",
                                       "The media encoder could not accept recording data.");
}

QString RecordingError::describe(Code code, const QString& detail)
{
    switch (code) {
    case Code::writerFailed:
        return QCoreApplication::translate("nubo::RecordingTypes",
                                           "The recording could not be saved. ") +
               detail;
    case Code::microphoneUnsupported:
        return QCoreApplication::translate("nubo::RecordingTypes",
                                           "Microphone recording requires a running audio server.");
    case Code::clickHighlightUnsupported:
        return detail.isEmpty() ? QCoreApplication::translate(
                                      "nubo::RecordingTypes",
                                      "Click highlighting requires the X Input extension.")
                                : detail;
    case Code::codecUnsupported:
        return QCoreApplication::translate("nubo::RecordingTypes",
                                           "The selected recording codec is unavailable.");
    case Code::invalidState:
        return QCoreApplication::translate("nubo::RecordingTypes",
                                           "The recording cannot perform this action right now.");
    case Code::noVideo:
        return QCoreApplication::translate("nubo::RecordingTypes",
                                           "No video frames were recorded.");
    case Code::invalidAudio:
        return QCoreApplication::translate("nubo::RecordingTypes",
                                           "Recording audio could not be processed.");
    }
    return {};
}

void validate(const RecordingOptions& options, const RecordingCapabilities& capabilities)
{
    if (options.microphone && !capabilities.supportsMicrophone) {
        throw RecordingError(RecordingError::Code::microphoneUnsupported);
    }
    if (options.highlightsClicks && !capabilities.supportsClickHighlight) {
        throw RecordingError(RecordingError::Code::clickHighlightUnsupported,
                             capabilities.clickHighlightProblem);
    }
    if (options.codec == RecordingCodec::hevc && !capabilities.supportsHEVC) {
        throw RecordingError(RecordingError::Code::codecUnsupported);
    }
}

qint64 recordingBitRate(int width, int height, RecordingFrameRate rate, RecordingCodec codec)
{
    const double k = codec == RecordingCodec::h264 ? 0.16 : 0.1;
    const auto product = qint64(double(width) * height * framesPerSecond(rate) * k);
    return std::clamp<qint64>(product, 500'000, 100'000'000);
}

QSize recordingOutputSize(const QSizeF& content, double scale)
{
    const auto side = [scale](double points) {
        const double half = std::floor(points * scale * 0.5);
        return std::max(2, 2 * int(std::isfinite(half) ? half : 1));
    };
    return {side(content.width()), side(content.height())};
}

QString recordingFileName(const QString& folder, const QDateTime& when)
{
    const QString stem = QStringLiteral("Nubo Shot Recording ") +
                         QLocale::c().toString(when, QStringLiteral("yyyy-MM-dd HH.mm.ss"));
    const QDir dir(folder);
    QString name = stem + QStringLiteral(".mp4");
    for (int counter = 2; QFileInfo::exists(dir.filePath(name)); ++counter) {
        name = stem + QStringLiteral(" (%1).mp4").arg(counter);
    }
    return dir.filePath(name);
}

QString recordingFolder(const ShotPreferences& preferences)
{
    if (const auto chosen = preferences.string(keys::recordingFolder); chosen && !chosen->isEmpty()) {
        if (QDir().mkpath(*chosen) &&
            ::access(QFile::encodeName(*chosen).constData(), W_OK | X_OK) == 0) {
            return *chosen;
        }
    }
    QString videos = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    if (videos.isEmpty()) {
        videos = QDir::homePath() + QStringLiteral("/Videos");
    }
    const QString folder = videos + QStringLiteral("/Nubo Shot");
    QDir().mkpath(folder);
    return folder;
}

} // namespace nubo
