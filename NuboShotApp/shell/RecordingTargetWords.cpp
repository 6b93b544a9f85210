#include "shell/RecordingTargetWords.h"

#include "capture/CapturePlatform.h"
#include "capture/CaptureSelection.h"

#include <cmath>

namespace nubo {

namespace {

std::optional<QRectF> parseRect(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 4) {
        return std::nullopt;
    }
    double v[4];
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        v[i] = parts[i].toDouble(&ok);
        if (!ok || !std::isfinite(v[i])) {
            return std::nullopt;
        }
    }
    return QRectF(v[0], v[1], v[2], v[3]);
}

} // namespace

bool isRecordingTargetWords(const QStringList& words)
{
    if (words.isEmpty()) {
        return false;
    }
    const QString& kind = words.first();
    if (kind == QLatin1String("display")) {
        return words.size() <= 2;
    }
    if (kind == QLatin1String("area")) {
        return words.size() == 2 && parseRect(words[1]).has_value();
    }
    bool ok = false;
    return kind == QLatin1String("window") && words.size() == 2 &&
           (words[1] == QLatin1String("pick") || (words[1].toUInt(&ok, 0), ok));
}

RecordingTarget recordingTarget(CapturePlatform& platform, const QStringList& words)
{
    if (!isRecordingTargetWords(words)) {
        throw Error(QStringLiteral(
            "A recording takes display [ID], area X,Y,W,H, window ID or window pick."));
    }
    const QList<CaptureDisplay> displays = platform.capturer()->displays();
    const QString& kind = words.first();
    if (kind == QLatin1String("display")) {
        std::optional<CaptureDisplay> chosen;
        for (const CaptureDisplay& d : displays) {
            if (words.size() == 2 ? QString::number(d.id) == words[1] : (d.primary || !chosen)) {
                chosen = d;
            }
        }
        if (!chosen) {
            throw Error(QStringLiteral("There is no display %1.").arg(words.value(1)));
        }
        return {RecordingTarget::Display{*chosen}};
    }
    if (kind == QLatin1String("area")) {
        QList<ScreenSpace> spaces;
        for (const CaptureDisplay& d : displays) {
            spaces.append(d.space);
        }
        const auto area = std::get<ShotCaptureSelection::Area>(
            ShotCaptureSelection::fromDesktopPixels(*parseRect(words[1]), spaces).framing);
        for (const CaptureDisplay& d : displays) {
            if (d.id == area.display) {
                return {RecordingTarget::Area{d, area.rect}};
            }
        }
        throw CaptureError(CaptureError::Code::noContent);
    }
    if (words[1] == QLatin1String("pick")) {
        if (!platform.features().windowPicker) {
            throw Error(QStringLiteral("This desktop has no window picker of its own: name the "
                                       "window by its id (see \u201cnuboshot windows\u201d)."));
        }
        return {RecordingTarget::Window{pickedWindow()}};
    }
    const quint32 id = words[1].toUInt(nullptr, 0);
    for (const CapturableWindow& w : platform.capturer()->listWindows(false).windows) {
        if (w.id == id) {
            return {RecordingTarget::Window{w}};
        }
    }
    throw Error(QStringLiteral("There is no window %1 to record.").arg(words[1]));
}

} // namespace nubo
