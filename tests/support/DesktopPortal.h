#pragma once

#include <QProcess>
#include <QString>

#include <memory>
#include <vector>

namespace nubo::test {

// The desktop portal as a desktop starts it, on this session's private bus:
// the permission store, the GTK backend (its dialogs are real windows on the
// test display) and the portal itself. Stopped, and off the bus, when this
// object goes.
class DesktopPortal {
public:
    // `dataHome` and `configHome` are what the portal reads applications
    // and default applications from.
    DesktopPortal(const QString& dataHome, const QString& configHome);
    ~DesktopPortal();
    DesktopPortal(const DesktopPortal&) = delete;
    DesktopPortal& operator=(const DesktopPortal&) = delete;

    // Whether "org.freedesktop.portal.Desktop" answers on the bus.
    bool isRunning() const { return m_running; }
    // What the three programs printed, for failure messages.
    QString log() const;
    // The process of the GTK backend, whose windows are the portal's dialogs.
    qint64 dialogProcess() const;

private:
    void start(const QString& program, const char* busName);

    std::vector<std::unique_ptr<QProcess>> m_processes;
    QProcessEnvironment m_environment;
    bool m_running = false;
};

} // namespace nubo::test
