#include "support/TrayFixture.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QThread>

namespace nubo::test {

namespace {
constexpr char busName[] = "com.corvane.lab.nuboshot";
}

bool waitUntil(const std::function<bool()>& condition, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QThread::msleep(50);
    }
    return true;
}

QString run(const QString& program, const QStringList& arguments)
{
    QProcess process;
    process.start(program, arguments);
    process.waitForFinished(10000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

bool windowShown(const QString& name)
{
    return !run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", name})
                .trimmed()
                .isEmpty();
}

void Tray::SetUp()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") || !QDBusConnection::sessionBus().isConnected()) {
        GTEST_FAIL() << "needs the private desktop session of scripts/test (DISPLAY and a session bus)";
    }
    ASSERT_FALSE(isRunning()) << "another Nubo Shot owns the bus name";
}

void Tray::TearDown()
{
    if (m_app.state() != QProcess::NotRunning) {
        m_app.terminate();
        m_app.waitForFinished(5000);
    }
}

void Tray::startTray()
{
    m_app.start(QStringLiteral(NUBOSHOT_BINARY), {});
    ASSERT_TRUE(m_app.waitForStarted());
    ASSERT_TRUE(waitUntil(isRunning)) << "the bus name was never claimed";
}

bool Tray::isRunning()
{
    return QDBusConnection::sessionBus().interface()->isServiceRegistered(
        QLatin1String(busName));
}

bool Tray::waitForLog(const QString& text, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!m_log.contains(text)) {
        if (deadline.hasExpired() || m_app.state() == QProcess::NotRunning) {
            return false;
        }
        m_app.waitForReadyRead(100);
        m_log += QString::fromUtf8(m_app.readAllStandardError());
    }
    return true;
}

} // namespace nubo::test
