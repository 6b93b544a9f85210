#include "support/DesktopPortal.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QThread>

namespace nubo::test {

namespace {

bool onBus(const char* name)
{
    QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    return bus && bus->isServiceRegistered(QLatin1String(name)).value();
}

// Handles events until `done` holds or `ms` have passed; answers `done`.
template <typename Done> bool waitUntil(int ms, Done done)
{
    const QDeadlineTimer deadline(ms);
    while (!done() && !deadline.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(20);
    }
    return done();
}

} // namespace

DesktopPortal::DesktopPortal(const QString& dataHome, const QString& configHome)
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configHome);
    // The backend that serves a desktop is chosen by the desktop's name.
    m_environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"));
    m_environment.insert(QStringLiteral("GDK_BACKEND"), QStringLiteral("x11"));
    m_environment.insert(QStringLiteral("GTK_A11Y"), QStringLiteral("none"));
    m_environment.insert(QStringLiteral("NO_AT_BRIDGE"), QStringLiteral("1"));
    // Only the GTK backend, whatever other desktops' backends the machine
    // has (GNOME's would serve the same desktop name first).
    const QString portals = dataHome + QStringLiteral("/test-portals");
    QDir().mkpath(portals);
    QFile::copy(QStringLiteral("/usr/share/xdg-desktop-portal/portals/gtk.portal"),
                portals + QStringLiteral("/gtk.portal"));
    m_environment.insert(QStringLiteral("XDG_DESKTOP_PORTAL_DIR"), portals);
    if (onBus("org.freedesktop.portal.Desktop")) {
        return; // someone else's: isRunning() stays false and the test says so
    }
    start(QStringLiteral("/usr/libexec/xdg-permission-store"),
          "org.freedesktop.impl.portal.PermissionStore");
    start(QStringLiteral("/usr/libexec/xdg-desktop-portal-gtk"),
          "org.freedesktop.impl.portal.desktop.gtk");
    start(QStringLiteral("/usr/libexec/xdg-desktop-portal"), "org.freedesktop.portal.Desktop");
    m_running = onBus("org.freedesktop.portal.Desktop");
}

void DesktopPortal::start(const QString& program, const char* busName)
{
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(m_environment);
    process->setProcessChannelMode(QProcess::MergedChannels);
    process->start(program, {});
    QProcess* started = process.get();
    m_processes.push_back(std::move(process));
    waitUntil(15000, [&] {
        return onBus(busName) || started->state() == QProcess::NotRunning;
    });
}

DesktopPortal::~DesktopPortal()
{
    for (auto it = m_processes.rbegin(); it != m_processes.rend(); ++it) {
        (*it)->terminate();
        if (!(*it)->waitForFinished(5000)) {
            (*it)->kill();
            (*it)->waitForFinished(5000);
        }
    }
    // Later tests of this session find no portal.
    waitUntil(5000, [] { return !onBus("org.freedesktop.portal.Desktop"); });
}

qint64 DesktopPortal::dialogProcess() const
{
    return m_processes.size() > 1 ? m_processes[1]->processId() : 0;
}

QString DesktopPortal::log() const
{
    QString text;
    for (const auto& process : m_processes) {
        text += process->program() + QStringLiteral(":\n") +
                QString::fromLocal8Bit(process->readAll()) + u'\n';
    }
    return text;
}

} // namespace nubo::test
