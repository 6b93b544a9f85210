// A user's keyboard, mouse and eyes for GNOME's compositor running headless
// (mutter alone, no input devices): its own remote-desktop and screen-cast
// interfaces on the session bus, the ones GNOME's remote desktop uses.
// Steps are given as arguments and done in order:
//   key NAME        a key pressed and let go (Tab, Return, space, Escape,
//                   Up, Down, Left, Right, Home, End, or one letter); the
//                   shell takes them, but headless it hands no keyboard to
//                   its windows: tests answer dialogs with the pointer
//   at X Y          the pointer to X,Y on the monitor, in its pixels
//   click           the left button pressed and let go
//   press, release  the left button alone (a drag moves with `at` between)
//   scroll STEPS    wheel notches (positive: down)
//   wait MS         a pause, as a user's between steps
//   grab FILE.png   the monitor's newest picture, as the compositor draws it
// Exits 0 once every step reached the compositor; names the failing step
// otherwise.
#include "capture/portal/PipeWireFrames.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusInterface>
#include <QDBusReply>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

const QString remoteDesktop = QStringLiteral("org.gnome.Mutter.RemoteDesktop");
const QString screenCast = QStringLiteral("org.gnome.Mutter.ScreenCast");

[[noreturn]] void fail(const QString& why)
{
    std::fprintf(stderr, "test-mutter-desktop: %s\n", qPrintable(why));
    std::exit(1);
}

quint32 keysym(const QString& name)
{
    static const QHash<QString, quint32> named{
        {"Tab", 0xff09},  {"Return", 0xff0d}, {"space", 0x20},  {"Escape", 0xff1b},
        {"Left", 0xff51}, {"Up", 0xff52},     {"Right", 0xff53}, {"Down", 0xff54},
        {"Home", 0xff50}, {"End", 0xff57},
    };
    if (named.contains(name)) {
        return named.value(name);
    }
    if (name.size() == 1 && name[0].unicode() < 0x7f) {
        return name[0].unicode();
    }
    fail(QStringLiteral("no key named %1").arg(name));
}

QDBusMessage call(const QString& service, const QString& path, const QString& interface,
                  const QString& method, const QVariantList& arguments = {})
{
    QDBusMessage message = QDBusMessage::createMethodCall(service, path, interface, method);
    message.setArguments(arguments);
    QDBusMessage reply = QDBusConnection::sessionBus().call(message, QDBus::Block, 10000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        fail(QStringLiteral("%1.%2: %3").arg(interface, method, reply.errorMessage()));
    }
    return reply;
}

// A connection to the session's PipeWire server, as the portal would hand one.
int pipeWireConnection()
{
    QByteArray folder = qgetenv("PIPEWIRE_RUNTIME_DIR");
    if (folder.isEmpty()) {
        folder = qgetenv("XDG_RUNTIME_DIR");
    }
    const QByteArray path = folder + "/pipewire-0";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (size_t(path.size()) >= sizeof address.sun_path) {
        fail(QStringLiteral("the PipeWire socket's path is too long"));
    }
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0 || connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0) {
        fail(QStringLiteral("no PipeWire server at %1").arg(QString::fromLocal8Bit(path)));
    }
    return fd;
}

class Receiver : public QObject {
    Q_OBJECT
public:
    quint32 node = 0;
public slots:
    void added(quint32 id) { node = id; }
};

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const QStringList steps = app.arguments().mid(1);
    if (steps.isEmpty()) {
        fail(QStringLiteral("no steps given"));
    }
    // One remote-desktop session, with the screen cast of the monitor that
    // absolute pointer positions and pictures refer to.
    const QString session =
        call(remoteDesktop, QStringLiteral("/org/gnome/Mutter/RemoteDesktop"), remoteDesktop,
             QStringLiteral("CreateSession"))
            .arguments()
            .value(0)
            .value<QDBusObjectPath>()
            .path();
    const QString sessionInterface = remoteDesktop + QStringLiteral(".Session");
    QDBusInterface properties(remoteDesktop, session, sessionInterface);
    const QString id = properties.property("SessionId").toString();
    const QString castSession =
        call(screenCast, QStringLiteral("/org/gnome/Mutter/ScreenCast"), screenCast,
             QStringLiteral("CreateSession"),
             {QVariantMap{{QStringLiteral("remote-desktop-session-id"), id}}})
            .arguments()
            .value(0)
            .value<QDBusObjectPath>()
            .path();
    const QString stream =
        call(screenCast, castSession, screenCast + QStringLiteral(".Session"),
             QStringLiteral("RecordMonitor"),
             {QString(), QVariantMap{{QStringLiteral("cursor-mode"), 0u}}}) // hidden
            .arguments()
            .value(0)
            .value<QDBusObjectPath>()
            .path();
    Receiver receiver;
    QDBusConnection::sessionBus().connect(screenCast, stream, screenCast + QStringLiteral(".Stream"),
                                          QStringLiteral("PipeWireStreamAdded"), &receiver,
                                          SLOT(added(quint32)));
    call(remoteDesktop, session, sessionInterface, QStringLiteral("Start"));
    QElapsedTimer waited;
    waited.start();
    while (receiver.node == 0 && waited.elapsed() < 10000) {
        app.processEvents(QEventLoop::WaitForMoreEvents, 100);
    }
    if (receiver.node == 0) {
        fail(QStringLiteral("mutter's screen cast gave no stream"));
    }

    const auto send = [&](const QString& method, const QVariantList& arguments) {
        call(remoteDesktop, session, sessionInterface, method, arguments);
    };
    std::unique_ptr<nubo::PipeWireFrames> frames;
    int picture = -1;
    for (qsizetype i = 0; i < steps.size(); ++i) {
        const QString& step = steps[i];
        const auto argument = [&]() -> QString {
            if (i + 1 >= steps.size()) {
                fail(QStringLiteral("%1 needs a value").arg(step));
            }
            return steps[++i];
        };
        if (step == QLatin1String("key")) {
            const quint32 sym = keysym(argument());
            send(QStringLiteral("NotifyKeyboardKeysym"), {sym, true});
            QThread::msleep(40);
            send(QStringLiteral("NotifyKeyboardKeysym"), {sym, false});
        } else if (step == QLatin1String("at")) {
            const double x = argument().toDouble();
            const double y = argument().toDouble();
            send(QStringLiteral("NotifyPointerMotionAbsolute"),
                 {stream, x, y});
        } else if (step == QLatin1String("press") || step == QLatin1String("release")) {
            constexpr int leftButton = 0x110; // BTN_LEFT
            send(QStringLiteral("NotifyPointerButton"), {leftButton, step == QLatin1String("press")});
        } else if (step == QLatin1String("scroll")) {
            constexpr quint32 vertical = 0;
            send(QStringLiteral("NotifyPointerAxisDiscrete"), {vertical, argument().toInt()});
        } else if (step == QLatin1String("click")) {
            constexpr int leftButton = 0x110; // BTN_LEFT
            send(QStringLiteral("NotifyPointerButton"), {leftButton, true});
            QThread::msleep(40); // a finger's press, not a bounce
            send(QStringLiteral("NotifyPointerButton"), {leftButton, false});
        } else if (step == QLatin1String("wait")) {
            QThread::msleep(argument().toULong());
        } else if (step == QLatin1String("grab")) {
            const QString file = argument();
            if (!frames) {
                frames = std::make_unique<nubo::PipeWireFrames>(pipeWireConnection());
                picture = frames->connect(receiver.node);
            }
            const auto frame = frames->next(picture, 0, std::chrono::seconds(5));
            if (!frame || !frame->image.save(file)) {
                fail(QStringLiteral("no picture of the monitor for %1").arg(file));
            }
        } else {
            fail(QStringLiteral("unknown step %1").arg(step));
        }
    }
    // A round trip: every event sent has been handled before the session stops.
    call(remoteDesktop, QStringLiteral("/org/gnome/Mutter/RemoteDesktop"),
         QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
    frames.reset();
    call(remoteDesktop, session, sessionInterface, QStringLiteral("Stop"));
    return 0;
}

#include "MutterDesktop.moc"
