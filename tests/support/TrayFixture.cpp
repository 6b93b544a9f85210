#include "support/TrayFixture.h"

#include "core/Settings.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QRegularExpression>
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

bool startRecordCommand(QProcess& recorder, const QStringList& arguments, const QString& folder,
                        QString& log)
{
    recorder.start(QStringLiteral(NUBOSHOT_BINARY),
                   QStringList{"record"} << arguments << "-o" << folder);
    return recorder.waitForStarted() &&
           waitUntil([&] {
               recorder.waitForReadyRead(50);
               log += QString::fromUtf8(recorder.readAllStandardError());
               return log.contains(QStringLiteral("Writing ")) ||
                      recorder.state() == QProcess::NotRunning;
           }) &&
           recorder.state() == QProcess::Running;
}

QString finishRecordCommand(QProcess& recorder, QString& log, int timeoutMs)
{
    recorder.waitForFinished(timeoutMs);
    log += QString::fromUtf8(recorder.readAllStandardError());
    return QString::fromUtf8(recorder.readAllStandardOutput()).trimmed();
}

bool windowShown(const QString& name)
{
    return !run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", name})
                .trimmed()
                .isEmpty();
}

QRect windowGeometry(const QString& id)
{
    const QString info = run(QStringLiteral("xwininfo"), {"-id", id});
    const auto number = [&](const char* label) {
        const auto match =
            QRegularExpression(QString::fromLatin1(label) + QStringLiteral(":\\s+(-?\\d+)"))
                .match(info);
        return match.hasMatch() ? match.captured(1).toInt() : -1;
    };
    return {number("Absolute upper-left X"), number("Absolute upper-left Y"), number("Width"),
            number("Height")};
}

QRect shownWindowGeometry(const QString& name)
{
    const QStringList ids = run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", name})
                                .split(u'\n', Qt::SkipEmptyParts);
    QRect largest;
    for (const QString& id : ids) {
        const QRect r = windowGeometry(id);
        if (r.width() * r.height() > largest.width() * largest.height()) {
            largest = r;
        }
    }
    return largest;
}

// The on-screen rectangle of the tray icon's window, as xwininfo reports it.
QRect trayIconGeometry()
{
    const QStringList ids =
        run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--classname", "nuboshot"})
            .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& id : ids) {
        const QRect rect = windowGeometry(id);
        if (rect.width() > 4 && rect.width() < 100 && rect.height() > 4 && rect.height() < 100) {
            return rect;
        }
    }
    return {};
}

void Tray::SetUp()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY") || !QDBusConnection::sessionBus().isConnected()) {
        GTEST_FAIL() << "needs the private desktop session of scripts/test (DISPLAY and a session bus)";
    }
    ASSERT_FALSE(isRunning()) << "another Nubo Shot owns the bus name";
    markShortcutProblemsTold(QLatin1String(openboxShortcutProblems));
}

void markShortcutProblemsTold(const QString& problems)
{
    ShotPreferences preferences;
    preferences.setValue(keys::shortcutProblemsTold, problems);
    preferences.sync();
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

bool Tray::trayMenuShown()
{
    for (const QString& id : run(QStringLiteral("xdotool"),
                                 {"search", "--onlyvisible", "--pid",
                                  QString::number(m_app.processId())})
                                 .split(u'\n', Qt::SkipEmptyParts)) {
        const QString info = run(QStringLiteral("xwininfo"), {"-id", id});
        const auto width = QRegularExpression(QStringLiteral("Width:\\s+(\\d+)")).match(info);
        if (width.hasMatch() && width.captured(1).toInt() > 120) {
            return true; // the tray icon is smaller; the menu is wider
        }
    }
    return false;
}

bool Tray::openTrayMenu()
{
    QRect icon;
    if (!waitUntil([&] { return !(icon = trayIconGeometry()).isEmpty(); })) {
        return false;
    }
    run(QStringLiteral("xdotool"), {"mousemove", QString::number(icon.center().x()),
                                    QString::number(icon.center().y()), "click", "1"});
    const bool shown = waitUntil([this] { return trayMenuShown(); }, 5000);
    QThread::msleep(300);
    return shown;
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
