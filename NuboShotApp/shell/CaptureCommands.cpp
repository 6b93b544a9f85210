#include "shell/CaptureCommands.h"

#include "capture/CapturePlatform.h"
#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "shell/CommandLine.h"
#include "shell/DesktopScreens.h"
#include "shell/CommandPrograms.h"
#include "shell/GrabRequest.h"
#include "shell/BusNames.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>
#include <QProcess>
#include <QThread>

#include <cstring>
#include <functional>

namespace nubo::cli {

namespace {

const char* const grabHelp = R"(Usage: nuboshot grab fullscreen [--display ID] -o FILE
       nuboshot grab window ID|pick -o FILE
       nuboshot grab region X,Y,WIDTH,HEIGHT -o FILE

Captures the screen into an image file; the format follows the file's
extension (png, jpg, heic, webp). Nubo Shot's own windows never show.

  fullscreen   every display (or the one given by its id, see "nuboshot displays")
  window ID    one window with its frame, also where other windows cover it
               (ids as "nuboshot windows" lists them, decimal or 0x…)
  window pick  the window chosen in the desktop's own dialog (Wayland desktops
               that list their windows to no program)
  region       a rectangle in desktop pixels, on the display holding its corner
  --quality Q  lossy quality from 0 to 1 (default 0.9)
)";

QJsonArray rectJson(const QRectF& r)
{
    return {r.x(), r.y(), r.width(), r.height()};
}

QString rectText(const QRectF& r)
{
    return QStringLiteral("%1,%2 %3\u00d7%4").arg(r.x()).arg(r.y()).arg(r.width()).arg(r.height());
}

bool wantsJson(const QStringList& arguments, int& status, const char* command)
{
    status = success;
    for (const QString& argument : arguments) {
        if (argument != QLatin1String("--json")) {
            status = usage(QStringLiteral("unknown argument \u201c%1\u201d").arg(argument),
                           QString::fromLatin1(command));
            return false;
        }
    }
    return !arguments.isEmpty();
}

std::optional<quint32> parseID(const QString& text)
{
    bool ok = false;
    const quint32 id =
        text.startsWith(QLatin1String("0x")) ? text.mid(2).toUInt(&ok, 16) : text.toUInt(&ok);
    return ok ? std::optional(id) : std::nullopt;
}

} // namespace

namespace {

// A listing command: plain lines, or the same rows as JSON with --json.
int runListing(const QStringList& arguments, const char* command,
               const std::function<void(ScreenCapturing&, QJsonArray&, QStringList&)>& list)
{
    if (arguments.contains(QLatin1String("-h")) || arguments.contains(QLatin1String("--help"))) {
        print(QStringLiteral("Usage: nuboshot %1 [--json]\n\n%2")
                  .arg(QLatin1String(command),
                       std::strcmp(command, "displays") == 0
                           ? QStringLiteral("Lists the displays: id, name, pixels, scale.")
                           : QStringLiteral(
                                 "Lists the windows that can be captured, front-most first: "
                                 "id, frame, application, title, layer.")));
        return success;
    }
    int status = success;
    const bool json = wantsJson(arguments, status, command);
    if (status != success) {
        return status;
    }
    try {
        const auto platform = loadCapturePlatform();
        QJsonArray rows;
        QStringList lines;
        list(*platform->capturer(), rows, lines);
        print(json
                  ? QString::fromUtf8(QJsonDocument(rows).toJson(QJsonDocument::Indented)).trimmed()
                  : lines.join(QLatin1Char('\n')));
    } catch (const Error& error) {
        return failWith(error);
    }
    return success;
}

} // namespace

int runDisplaysCommand(const QStringList& arguments)
{
    return runListing(arguments, "displays",
                      [](ScreenCapturing& capturer, QJsonArray& rows, QStringList& lines) {
                          for (const CaptureDisplay& m : capturer.displays()) {
                              rows.append(QJsonObject{{"id", qint64(m.id)},
                                                      {"name", m.name},
                                                      {"pixels", rectJson(m.pixelGeometry)},
                                                      {"frame", rectJson(m.space.globalFrame)},
                                                      {"scale", m.space.scale},
                                                      {"primary", m.primary}});
                              lines
                                  << QStringLiteral("%1\t%2\t%3\tscale %4%5")
                                         .arg(m.id)
                                         .arg(m.name, rectText(m.pixelGeometry))
                                         .arg(m.space.scale)
                                         .arg(m.primary ? QStringLiteral("\tprimary") : QString());
                          }
                      });
}

int runWindowsCommand(const QStringList& arguments)
{
    return runListing(arguments, "windows",
                      [](ScreenCapturing& capturer, QJsonArray& rows, QStringList& lines) {
                          for (const CapturableWindow& w : capturer.listWindows(false).windows) {
                              rows.append(QJsonObject{{"id", qint64(w.id)},
                                                      {"title", w.title},
                                                      {"application", w.applicationName},
                                                      {"frame", rectJson(w.frame)},
                                                      {"layer", w.layer}});
                              lines << QStringLiteral("0x%1\t%2\t%3\t%4\tlayer %5")
                                           .arg(w.id, 8, 16, QLatin1Char('0'))
                                           .arg(rectText(w.frame), w.applicationName, w.title)
                                           .arg(w.layer);
                          }
                      });
}

GrabParse parseGrab(const QStringList& arguments, const QDir& workingFolder)
{
    const QString help = QStringLiteral("grab");
    const auto usage = [](const QString& message, const QString& command) {
        return GrabParse{std::nullopt, badUsage, {}, usageText(message, command)};
    };
    if (arguments.contains(QLatin1String("-h")) || arguments.contains(QLatin1String("--help"))) {
        return GrabParse{std::nullopt, success, QString::fromUtf8(grabHelp), {}};
    }
    if (arguments.isEmpty()) {
        return usage(QStringLiteral("grab needs fullscreen, window ID or region X,Y,W,H"), help);
    }
    const QString mode = arguments.first();
    QStringList rest = arguments.mid(1);
    QString target;
    QString output;
    std::optional<quint32> display;
    double quality = 0.9;
    for (qsizetype i = 0; i < rest.size(); ++i) {
        const QString& argument = rest[i];
        const bool hasValue = i + 1 < rest.size();
        if (argument == QLatin1String("-o") || argument == QLatin1String("--output")) {
            if (!hasValue) {
                return usage(QStringLiteral("%1 needs a file name").arg(argument), help);
            }
            output = rest[++i];
        } else if (argument == QLatin1String("--display")) {
            display = hasValue ? parseID(rest[++i]) : std::nullopt;
            if (!display) {
                return usage(QStringLiteral("--display needs a display id"), help);
            }
        } else if (argument == QLatin1String("--quality")) {
            bool ok = false;
            quality = hasValue ? rest[++i].toDouble(&ok) : 0;
            if (!ok) {
                return usage(QStringLiteral("--quality needs a number"), help);
            }
        } else if (argument.startsWith(QLatin1Char('-'))) {
            return usage(QStringLiteral("unknown option \u201c%1\u201d").arg(argument), help);
        } else if (target.isEmpty()) {
            target = argument;
        } else {
            return usage(QStringLiteral("unexpected \u201c%1\u201d").arg(argument), help);
        }
    }
    if (output.isEmpty()) {
        return usage(QStringLiteral("grab needs -o FILE"), help);
    }
    const auto format = formatForFileName(output);
    if (!format) {
        return usage(QStringLiteral("cannot tell the format of \u201c%1\u201d from its extension")
                         .arg(output),
                     help);
    }
    const bool needsTarget = mode == QLatin1String("window") || mode == QLatin1String("region");
    if (mode != QLatin1String("fullscreen") && !needsTarget) {
        return usage(QStringLiteral("unknown grab \u201c%1\u201d").arg(mode), help);
    }
    if (needsTarget == target.isEmpty()) {
        return usage(needsTarget ? QStringLiteral("grab %1 needs its target").arg(mode)
                                 : QStringLiteral("unexpected \u201c%1\u201d").arg(target),
                     help);
    }

    GrabRequest request;
    request.display = display;
    request.quality = quality;
    request.output = QFileInfo(workingFolder, output).absoluteFilePath();
    if (mode == QLatin1String("window") && target == QLatin1String("pick")) {
        request.mode = GrabRequest::Mode::pickedWindow;
    } else if (mode == QLatin1String("window")) {
        const auto id = parseID(target);
        if (!id) {
            return usage(QStringLiteral("\u201c%1\u201d is not a window id").arg(target), help);
        }
        request.mode = GrabRequest::Mode::window;
        request.window = *id;
    } else if (mode == QLatin1String("region")) {
        QList<double> numbers;
        for (const QString& part : target.split(QLatin1Char(','))) {
            bool ok = false;
            numbers.append(part.toDouble(&ok));
            if (!ok) {
                numbers.clear();
                break;
            }
        }
        if (numbers.size() != 4 || numbers[2] <= 0 || numbers[3] <= 0) {
            return usage(QStringLiteral("a region is X,Y,WIDTH,HEIGHT"), help);
        }
        request.mode = GrabRequest::Mode::region;
        request.region = QRectF(numbers[0], numbers[1], numbers[2], numbers[3]);
    }

    return GrabParse{request, success, {}, {}};
}

int runGrabCommand(const QStringList& arguments)
{
    const GrabParse parsed = parseGrab(arguments, QDir::current());
    if (!parsed.request) {
        std::fputs(parsed.out.toUtf8().constData(), stdout);
        std::fputs(parsed.err.toUtf8().constData(), stderr);
        return parsed.exitCode;
    }
    try {
        // The running instance has the connection, memory and threads ready
        // (the front has asked already when it says so).
        const bool askedAlready = qEnvironmentVariableIsSet(programs::grabHereVariable);
        qunsetenv(programs::grabHereVariable);
        std::optional<QString> written =
            askedAlready ? std::nullopt : GrabOverBus::ask(*parsed.request);
        if (written) {
            qCDebug(lcCapture) << "Grabbed by the running instance";
        } else {
            written = parsed.request->perform(*loadCapturePlatform()->capturer());
        }
        print(*written);
    } catch (const Error& error) {
        return failWith(error);
    }
    return success;
}

int runCaptureCommand(const QStringList& arguments)
{
    const QString help = QStringLiteral("capture");
    if (arguments.contains(QLatin1String("-h")) || arguments.contains(QLatin1String("--help"))) {
        print(QStringLiteral(
            "Usage: nuboshot capture area|window|fullscreen|scrolling|text|last-area|recording\n"
            "                        [--delay SECONDS] [--pin]\n\n"
            "Asks the running Nubo Shot (started if needed) to capture, as its menu does;\n"
            "\"text\" copies the text of the framed area, \"last-area\" takes the area framed\n"
            "last time again, \"recording\" starts a recording, or stops the one running.\n\n"
            "  --delay SECONDS  freeze the screen that many seconds later (the tray icon\n"
            "                   counts down; Escape cancels)\n"
            "  --pin            pin the shot to the screen instead of opening the editor\n"
            "                   (area, window, fullscreen, last-area)"));
        return success;
    }
    QStringList words;
    QVariantMap options;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& word = arguments[i];
        if (word == QLatin1String("--pin")) {
            options.insert(QStringLiteral("pin"), true);
        } else if (word == QLatin1String("--delay") || word.startsWith(QLatin1String("--delay="))) {
            const QString value = word.contains(u'=') ? word.section(u'=', 1)
                                                      : arguments.value(++i);
            bool ok = false;
            const int seconds = value.toInt(&ok);
            if (!ok || seconds < 0) {
                return usage(QStringLiteral("--delay takes a whole number of seconds, not \u201c%1\u201d")
                                 .arg(value),
                             help);
            }
            options.insert(QStringLiteral("delay"), seconds);
        } else if (word.startsWith(QLatin1String("--"))) {
            return usage(QStringLiteral("unknown option %1").arg(word), help);
        } else {
            words << word;
        }
    }
    const auto mode = words.size() == 1 ? fromString<CaptureMode>(words.first()) : std::nullopt;
    const bool recording = words.size() == 1 && words.first() == QLatin1String("recording");
    if (!mode && !recording) {
        return usage(QStringLiteral("capture takes area, window, fullscreen, scrolling, text, last-area or "
                                    "recording"),
                     help);
    }
    if (recording && !options.isEmpty()) {
        return usage(QStringLiteral("--delay and --pin are for still captures"), help);
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return fail(QStringLiteral("There is no session bus to reach Nubo Shot on."));
    }
    const QString name = QLatin1String(bus::name);
    if (!bus.interface()->isServiceRegistered(name)) {
        // Start the tray application and wait for it to take its name.
        if (!QProcess::startDetached(cli::programPath(), {})) {
            return fail(QStringLiteral("Could not start Nubo Shot."));
        }
        QElapsedTimer waited;
        waited.start();
        while (!bus.interface()->isServiceRegistered(name)) {
            if (waited.elapsed() > 10000) {
                return fail(QStringLiteral("Nubo Shot did not start in time."));
            }
            QThread::msleep(50);
        }
    }
    QDBusMessage call = QDBusMessage::createMethodCall(name, QLatin1String(GrabOverBus::path),
                                                       QLatin1String(GrabOverBus::interface),
                                                       recording ? QStringLiteral("ToggleRecording")
                                                                 : QStringLiteral("CaptureShotWith"));
    if (mode) {
        call.setArguments({toString(*mode), options});
    }
    const QDBusMessage reply = bus.call(call, QDBus::Block, 30000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        return fail(reply.errorMessage());
    }
    return success;
}

} // namespace nubo::cli
