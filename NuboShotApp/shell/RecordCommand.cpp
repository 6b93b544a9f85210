#include "shell/RecordCommand.h"

#include "capture/CapturePlatform.h"
#include "capture/CaptureSelection.h"
#include "core/Settings.h"
#include "recording/CameraStreamSource.h"
#include "recording/RecordingAudioServer.h"
#include "recording/RecordingSession.h"
#include "shell/CommandLine.h"
#include "shell/DesktopScreens.h"
#include "shell/RecordingOverBus.h"
#include "shell/RecordingTargetWords.h"
#include "shell/BusNames.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFileInfo>
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
                       [--system-audio] [--microphone[=SOURCE]] [--camera]
       nuboshot record --list-sources

Records the screen into an MP4 until the duration ends, or until SIGINT or
SIGTERM (then it stops cleanly); SIGUSR1 pauses and resumes. Prints the
movie's path. The area is in desktop pixels, as "nuboshot displays" lists
them; DIR defaults to the recordings folder. --system-audio records what the
computer plays, --microphone the default microphone or SOURCE, one of those
--list-sources prints (name, description). --camera draws the camera chosen
in the settings as a round bubble where the recording options last put it.
When Nubo Shot runs in the tray,
it records (and its menu shows the recording).)";

// Signals reach the event loop through a socket pair.
int signalPipe[2] = {-1, -1};

void forwardSignal(int number)
{
    const char byte = char(number);
    [[maybe_unused]] const auto written = ::write(signalPipe[1], &byte, 1);
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
    options.systemAudio = options.microphone = options.camera = false; // only when asked
    options.microphoneDeviceID.reset();
    if (arguments.contains(QStringLiteral("--list-sources"))) {
        try {
            for (const RecordingAudioDevice& device : RecordingAudioServer::microphones()) {
                print(device.name + QLatin1Char('\t') + device.description +
                      (device.isDefault ? QStringLiteral("\t(default)") : QString()));
            }
        } catch (const Error& error) {
            return fail(error.message());
        }
        return success;
    }
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
        } else if (a == QLatin1String("--system-audio")) {
            options.systemAudio = true;
        } else if (a == QLatin1String("--camera")) {
            options.camera = true;
        } else if (a == QLatin1String("--microphone")) {
            options.microphone = true;
        } else if (a.startsWith(QLatin1String("--microphone="))) {
            options.microphone = true;
            const QString source = a.mid(qsizetype(sizeof "--microphone=") - 1);
            if (source.isEmpty()) {
                return usage(QStringLiteral("--microphone= needs a source, as --list-sources prints them"),
                             command);
            }
            options.microphoneDeviceID = source;
        } else {
            rest << a;
        }
    }
    if (rest.isEmpty()) {
        return usage(QStringLiteral("record takes display, area or window"), command);
    }

    if (!isRecordingTargetWords(rest)) {
        return usage(QStringLiteral("record takes display [ID], area X,Y,W,H or window ID"),
                     command);
    }
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, signalPipe) != 0) {
        return fail(QStringLiteral("Could not watch for signals."));
    }
    QSocketNotifier signalNotifier(signalPipe[0], QSocketNotifier::Read);
    for (const int number : {SIGINT, SIGTERM, SIGUSR1}) {
        std::signal(number, forwardSignal);
    }
    const QString destination = folder.isEmpty() ? recordingFolder(preferences) : folder;
    QDBusConnection bus = QDBusConnection::sessionBus();
    const bool remote = bus.isConnected() &&
                        bus.interface()->isServiceRegistered(QLatin1String(bus::name));
    // The same steps whether the tray records or this process does.
    std::function<void()> stopNow, togglePause;
    int status = success;
    const auto finished = [&](const RecordingState& state) {
        if (const auto* done = std::get_if<RecordingState::Finished>(&state.state)) {
            print(done->file);
            QCoreApplication::exit(success);
        } else if (const auto* failed = std::get_if<RecordingState::Failed>(&state.state)) {
            status = fail(failed->message);
            QCoreApplication::exit(status);
        }
    };
    std::unique_ptr<ScreenRecording> recorder;
    std::unique_ptr<RecordingOverBus> tray;
    try {
        if (remote) {
            tray = std::make_unique<RecordingOverBus>(bus);
            tray->finished = finished;
            tray->start(rest, options, QFileInfo(destination).absoluteFilePath());
            stopNow = [&] { tray->stop(); };
            togglePause = [&] { tray->togglePause(); };
        } else {
            const std::shared_ptr<CapturePlatform> platform = loadCapturePlatform();
            recorder = RecordingSession::forPlatform(*platform);
            if (!recorder) {
                return fail(QStringLiteral("This desktop cannot be recorded by Nubo Shot yet."));
            }
            recorder->onStateChange = finished;
            const RecordingTarget target = recordingTarget(*platform, rest);
            if (options.camera) {
                const std::optional<CameraDevice> device =
                    CameraStreamSource::chosen(preferences, CameraStreamSource::cameras());
                if (!device) {
                    return fail(QStringLiteral("No camera is available."));
                }
                auto place = std::make_shared<CameraBubblePlace>(
                    recordingCameraFrame(preferences, recordingTargetSize(target)));
                recorder->setCameraOverlay(
                    CameraOverlay{std::make_shared<CameraStreamSource>(device->id),
                                  [place] { return place->get(); }, true});
            }
            recorder->start(target, options, destination);
            stopNow = [&] {
                try {
                    recorder->stop();
                } catch (const RecordingError&) {
                    // Already finishing.
                }
            };
            togglePause = [&] {
                try {
                    if (recorder->state().is<RecordingState::Paused>()) {
                        recorder->resume();
                    } else {
                        recorder->pause();
                    }
                } catch (const RecordingError&) {
                }
            };
        }
    } catch (const Error& error) {
        return failWith(error);
    }
    QObject::connect(&signalNotifier, &QSocketNotifier::activated, [&] {
        char number = 0;
        if (::read(signalPipe[0], &number, 1) == 1) {
            number == SIGUSR1 ? togglePause() : stopNow();
        }
    });
    QTimer limit;
    if (duration > 0) {
        limit.setSingleShot(true);
        QObject::connect(&limit, &QTimer::timeout, [&] { stopNow(); });
        limit.start(int(duration * 1000));
    }
    const int code = QCoreApplication::exec();
    return status != success ? status : code;
}

} // namespace nubo::cli
