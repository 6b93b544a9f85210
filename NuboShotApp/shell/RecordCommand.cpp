#include "shell/RecordCommand.h"

#include "capture/CapturePlatform.h"
#include "capture/CaptureSelection.h"
#include "core/Settings.h"
#include "recording/ScreenRecording.h"
#include "shell/CommandLine.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QTimer>

#include <csignal>
#include <sys/socket.h>
#include <unistd.h>

namespace nubo::cli {

namespace {

const char help[] = R"(Usage: nuboshot record display [ID] | area X,Y,W,H | window ID [-o DIR]
                       [--fps 30|60] [--resolution native|standard] [--codec h264|hevc]
                       [--duration SECONDS] [--no-cursor] [--highlight-clicks]

Records the screen into an MP4 until the duration ends, or until SIGINT or
SIGTERM (then it stops cleanly); SIGUSR1 pauses and resumes. Prints the
movie's path. The area is in desktop pixels, as "nuboshot displays" lists
them; DIR defaults to the recordings folder.)";

// Signals reach the event loop through a socket pair.
int signalPipe[2] = {-1, -1};

void forwardSignal(int number)
{
    const char byte = char(number);
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
}

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

int runRecordCommand(const QStringList& arguments)
{
    if (arguments.contains(QLatin1String("-h")) || arguments.contains(QLatin1String("--help"))) {
        print(QString::fromLatin1(help));
        return success;
    }
    const QString command = QStringLiteral("record");
    ShotPreferences preferences;
    RecordingOptions options = RecordingOptions::read(preferences);
    options.systemAudio = options.microphone = options.camera = false; // not from here yet
    QString folder;
    double duration = 0;
    QStringList rest;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& a = arguments[i];
        const auto value = [&]() -> std::optional<QString> {
            return i + 1 < arguments.size() ? std::optional(arguments[++i]) : std::nullopt;
        };
        if (a == QLatin1String("-o")) {
            const auto v = value();
            if (!v) {
                return usage(QStringLiteral("-o needs a folder"), command);
            }
            folder = *v;
        } else if (a == QLatin1String("--fps")) {
            const auto v = value();
            const auto rate = v ? frameRateFromRawValue(v->toInt()) : std::nullopt;
            if (!rate) {
                return usage(QStringLiteral("--fps takes 30 or 60"), command);
            }
            options.frameRate = *rate;
        } else if (a == QLatin1String("--resolution")) {
            const auto v = value();
            const auto r = v ? fromString<RecordingResolution>(*v) : std::nullopt;
            if (!r) {
                return usage(QStringLiteral("--resolution takes native or standard"), command);
            }
            options.resolution = *r;
        } else if (a == QLatin1String("--codec")) {
            const auto v = value();
            const auto c = v ? fromString<RecordingCodec>(*v) : std::nullopt;
            if (!c) {
                return usage(QStringLiteral("--codec takes h264 or hevc"), command);
            }
            options.codec = *c;
        } else if (a == QLatin1String("--duration")) {
            const auto v = value();
            bool ok = false;
            duration = v ? v->toDouble(&ok) : 0;
            if (!ok || !(duration > 0) || duration > 7 * 24 * 3600) {
                return usage(QStringLiteral("--duration takes a number of seconds"), command);
            }
        } else if (a == QLatin1String("--no-cursor")) {
            options.showsCursor = false;
        } else if (a == QLatin1String("--highlight-clicks")) {
            options.highlightsClicks = true;
        } else {
            rest << a;
        }
    }
    if (rest.isEmpty()) {
        return usage(QStringLiteral("record takes display, area or window"), command);
    }

    try {
        const std::shared_ptr<CapturePlatform> platform = CapturePlatformLoader::load();
        std::unique_ptr<ScreenRecording> recorder = platform->makeRecorder();
        if (!recorder) {
            return fail(QStringLiteral("This desktop cannot be recorded by Nubo Shot yet."));
        }
        const QList<CaptureDisplay> displays = platform->capturer()->displays();
        RecordingTarget target;
        const QString& kind = rest.first();
        if (kind == QLatin1String("display") && rest.size() <= 2) {
            std::optional<CaptureDisplay> chosen;
            for (const CaptureDisplay& d : displays) {
                if (rest.size() == 2 ? QString::number(d.id) == rest[1] : (d.primary || !chosen)) {
                    chosen = d;
                }
            }
            if (!chosen) {
                return fail(QStringLiteral("There is no display %1.").arg(rest.value(1)));
            }
            target.target = RecordingTarget::Display{*chosen};
        } else if (kind == QLatin1String("area") && rest.size() == 2) {
            const auto pixels = parseRect(rest[1]);
            if (!pixels) {
                return usage(QStringLiteral("area takes X,Y,W,H in desktop pixels"), command);
            }
            QList<ScreenSpace> spaces;
            for (const CaptureDisplay& d : displays) {
                spaces.append(d.space);
            }
            const auto area = std::get<ShotCaptureSelection::Area>(
                ShotCaptureSelection::fromDesktopPixels(*pixels, spaces).framing);
            for (const CaptureDisplay& d : displays) {
                if (d.id == area.display) {
                    target.target = RecordingTarget::Area{d, area.rect};
                }
            }
        } else if (kind == QLatin1String("window") && rest.size() == 2) {
            bool ok = false;
            const quint32 id = rest[1].toUInt(&ok, 0);
            if (!ok) {
                return usage(QStringLiteral("window takes a window id"), command);
            }
            CapturableWindow window;
            for (const CapturableWindow& w : platform->capturer()->listWindows(false).windows) {
                if (w.id == id) {
                    window = w;
                }
            }
            if (window.id == 0) {
                return fail(QStringLiteral("There is no window %1 to record.").arg(rest[1]));
            }
            target.target = RecordingTarget::Window{window};
        } else {
            return usage(QStringLiteral("record takes display [ID], area X,Y,W,H or window ID"),
                         command);
        }

        if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalPipe) != 0) {
            return fail(QStringLiteral("Could not watch for signals."));
        }
        QSocketNotifier signalNotifier(signalPipe[0], QSocketNotifier::Read);
        int status = success;
        recorder->onStateChange = [&](const RecordingState& state) {
            if (const auto* done = std::get_if<RecordingState::Finished>(&state.state)) {
                print(done->file);
                QCoreApplication::exit(success);
            } else if (const auto* failed = std::get_if<RecordingState::Failed>(&state.state)) {
                status = fail(failed->message);
                QCoreApplication::exit(status);
            }
        };
        const auto stopNow = [&] {
            try {
                recorder->stop();
            } catch (const RecordingError&) {
                // Already finishing.
            }
        };
        QObject::connect(&signalNotifier, &QSocketNotifier::activated, [&] {
            char number = 0;
            if (::read(signalPipe[0], &number, 1) != 1) {
                return;
            }
            if (number == SIGUSR1) {
                try {
                    if (recorder->state().is<RecordingState::Paused>()) {
                        recorder->resume();
                    } else {
                        recorder->pause();
                    }
                } catch (const RecordingError&) {
                }
                return;
            }
            stopNow();
        });
        for (const int number : {SIGINT, SIGTERM, SIGUSR1}) {
            std::signal(number, forwardSignal);
        }
        recorder->start(target, options, folder.isEmpty() ? recordingFolder(preferences) : folder);
        QTimer limit;
        if (duration > 0) {
            limit.setSingleShot(true);
            QObject::connect(&limit, &QTimer::timeout, stopNow);
            limit.start(int(duration * 1000));
        }
        const int code = QCoreApplication::exec();
        return code;
    } catch (const Error& error) {
        return failWith(error);
    }
}

} // namespace nubo::cli
