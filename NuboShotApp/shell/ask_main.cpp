// `nuboshot-ask`: run by the small `nuboshot` in front for a capture or a
// grab when a tray of this session may be running. It asks the tray over the
// bus (Qt Core and D-Bus only); when none answers, it becomes the program of
// the suite that runs the command, as the front would have.

#include "shell/BusNames.h"
#include "shell/CommandPrograms.h"
#include "shell/DebugSwitch.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDir>
#include <QLoggingCategory>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

// A capture asked of the running tray; -1 when there is none to ask.
int askTray(int argc, char** argv)
{
    if (argc != 3 || std::strcmp(argv[1], "capture") != 0) {
        return -1;
    }
    const QString mode = QString::fromLocal8Bit(argv[2]);
    const bool recording = mode == QLatin1String("recording");
    if (!recording && mode != QLatin1String("area") && mode != QLatin1String("window") &&
        mode != QLatin1String("fullscreen") && mode != QLatin1String("scrolling") &&
        mode != QLatin1String("text") && mode != QLatin1String("last-area")) {
        return -1; // the whole program explains its usage
    }
    QCoreApplication app(argc, argv);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(QLatin1String(nubo::bus::name))) {
        return -1; // the whole program starts the tray first
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QLatin1String(nubo::bus::name), QLatin1String(nubo::bus::path),
        QLatin1String(nubo::bus::interface),
        recording ? QStringLiteral("ToggleRecording") : QStringLiteral("CaptureShot"));
    if (!recording) {
        call.setArguments({mode});
    }
    const QDBusMessage reply = bus.call(call, QDBus::Block, 30000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        std::fprintf(stderr, "nuboshot: %s\n", qUtf8Printable(reply.errorMessage()));
        return 1;
    }
    return 0;
}

// The capture category of the whole program (core/Logging), which this
// small program does not link: "Grabbed by the running instance" shows where
// the capture debug lines do.
Q_LOGGING_CATEGORY(lcCapture, "com.corvane.lab.nuboshot.capture", QtWarningMsg)

// No tray to grab: the stills program grabs, told that it need not ask again.
int grabHere()
{
    ::setenv(nubo::programs::grabHereVariable, "1", 1);
    return -1;
}

// "nuboshot grab …" answered by the running tray, where everything is warm;
// -1 when there is none to ask (or it captures another display).
int askTrayToGrab(int argc, char** argv)
{
    if (argc < 2 || std::strcmp(argv[1], "grab") != 0) {
        return -1;
    }
    QCoreApplication app(argc, argv);
    nubo::followDebugSwitch();
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(QLatin1String(nubo::bus::name))) {
        return grabHere();
    }
    QStringList arguments;
    for (int i = 2; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QLatin1String(nubo::bus::name), QLatin1String(nubo::bus::path),
        QLatin1String(nubo::bus::interface), QStringLiteral("GrabCommand"));
    call.setArguments({arguments, QDir::currentPath(), qEnvironmentVariable("DISPLAY")});
    call.setAutoStartService(false);
    const QDBusMessage reply = bus.call(call, QDBus::Block, 60000);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().size() != 3) {
        const QString name = reply.errorName();
        if (nubo::bus::meansNobodyToAsk(name.toUtf8().constData())) {
            return grabHere();
        }
        // Any other answer (a time-out above all) may mean the tray is still
        // at work: grabbing here as well could write the file twice.
        std::fprintf(stderr, "nuboshot: The running Nubo Shot did not finish the grab: %s\n",
                     qUtf8Printable(reply.errorMessage().isEmpty() ? name : reply.errorMessage()));
        return 1;
    }
    const int exitCode = reply.arguments().at(0).toInt();
    if (exitCode == 0) {
        qCDebug(lcCapture) << "Grabbed by the running instance";
    }
    std::fputs(reply.arguments().at(1).toString().toUtf8().constData(), stdout);
    std::fputs(reply.arguments().at(2).toString().toUtf8().constData(), stderr);
    return exitCode;
}

} // namespace

int main(int argc, char** argv)
{
    if (const int asked = askTray(argc, argv); asked >= 0) {
        return asked;
    }
    if (const int grabbed = askTrayToGrab(argc, argv); grabbed >= 0) {
        return grabbed;
    }
    const std::string program = nubo::programs::programBeside(
        nubo::programs::selfPath(),
        argc > 1 ? nubo::programs::programFor(argv[1]) : nubo::programs::whole);
    // The front named itself already; run directly, this program stands in.
    if (!std::getenv("NUBOSHOT_PROGRAM")) {
        ::setenv("NUBOSHOT_PROGRAM", nubo::programs::selfPath().c_str(), 1);
    }
    ::execv(program.c_str(), argv);
    std::fprintf(stderr, "nuboshot: cannot start %s: %s\n", program.c_str(), std::strerror(errno));
    return 1;
}
