#include "recording/ShotScreenSaverInhibitor.h"

#include "capture/CapturePlatform.h"
#include "core/Logging.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace nubo {

namespace {
constexpr char service[] = "org.freedesktop.ScreenSaver";
constexpr char path[] = "/org/freedesktop/ScreenSaver";

QDBusMessage screenSaverCall(const QString& method)
{
    return QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(path),
                                          QLatin1String(service), method);
}
} // namespace

ShotScreenSaverInhibitor::ShotScreenSaverInhibitor(std::shared_ptr<CapturePlatform> platform,
                                                   QObject* parent)
    : QObject(parent), m_platform(std::move(platform))
{}

ShotScreenSaverInhibitor::~ShotScreenSaverInhibitor()
{
    release();
}

void ShotScreenSaverInhibitor::hold(const QString& reason)
{
    if (m_held) {
        return;
    }
    m_held = true;
    const int generation = ++m_generation;
    m_platformHeld = m_platform->holdScreenSaver(true);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected() || !bus.interface()->isServiceRegistered(QLatin1String(service))) {
        qCInfo(lcRecording, "Screen saver held off by the window system: %s; the desktop has "
                            "no screen saver service",
               m_platformHeld ? "yes" : "no");
        return;
    }
    QDBusMessage call = screenSaverCall(QStringLiteral("Inhibit"));
    call << QStringLiteral("Nubo Shot") << reason;
    // Asked without waiting: a slow desktop never holds up the recording.
    auto* watcher = new QDBusPendingCallWatcher(bus.asyncCall(call, 5000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher, generation] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isError()) {
            qCWarning(lcRecording, "The desktop's screen saver was not held off: %s",
                      qPrintable(reply.error().message()));
            return;
        }
        if (generation != m_generation || !m_held) {
            // Released while the question was on its way.
            QDBusMessage undo = screenSaverCall(QStringLiteral("UnInhibit"));
            undo << reply.value();
            QDBusConnection::sessionBus().call(undo, QDBus::NoBlock);
            return;
        }
        m_cookie = reply.value();
        qCInfo(lcRecording, "Screen saver held off by the desktop (cookie %u)", *m_cookie);
    });
}

void ShotScreenSaverInhibitor::release()
{
    if (!m_held) {
        return;
    }
    m_held = false;
    ++m_generation;
    if (m_platformHeld) {
        m_platform->holdScreenSaver(false);
    }
    m_platformHeld = false;
    if (m_cookie) {
        QDBusMessage undo = screenSaverCall(QStringLiteral("UnInhibit"));
        undo << *std::exchange(m_cookie, std::nullopt);
        QDBusConnection::sessionBus().call(undo, QDBus::NoBlock);
    }
    qCInfo(lcRecording, "Screen saver released");
}

} // namespace nubo
