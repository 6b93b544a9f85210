#include "support/Process.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDeadlineTimer>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QThread>

#include <functional>
#include <gtest/gtest.h>

namespace nubo {
namespace {

constexpr char busName[] = "com.corvane.lab.nuboshot";

bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 10000)
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

// The on-screen rectangle of the tray icon's window, as xwininfo reports it.
QRect trayIconGeometry()
{
    const QStringList ids =
        run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--classname", "nuboshot"})
            .split(u'\n', Qt::SkipEmptyParts);
    for (const QString& id : ids) {
        const QString info = run(QStringLiteral("xwininfo"), {"-id", id});
        const auto number = [&](const char* label) {
            const auto match =
                QRegularExpression(QString::fromLatin1(label) + QStringLiteral(":\\s+(-?\\d+)"))
                    .match(info);
            return match.hasMatch() ? match.captured(1).toInt() : -1;
        };
        const QRect rect(number("Absolute upper-left X"), number("Absolute upper-left Y"),
                         number("Width"), number("Height"));
        if (rect.width() > 4 && rect.width() < 100 && rect.height() > 4 && rect.height() < 100) {
            return rect;
        }
    }
    return {};
}

void saveArtifact(const QImage& image, const QString& name)
{
    const QString dir = qEnvironmentVariable("NUBOSHOT_TEST_ARTIFACTS");
    if (!dir.isEmpty() && QDir().mkpath(dir)) {
        image.save(dir + QLatin1Char('/') + name);
    }
}

class Tray : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("DISPLAY") ||
            !QDBusConnection::sessionBus().isConnected()) {
            GTEST_SKIP() << "needs the private desktop session of scripts/test";
        }
        ASSERT_FALSE(isRunning()) << "another Nubo Shot owns the bus name";
    }
    void TearDown() override
    {
        if (m_app.state() != QProcess::NotRunning) {
            m_app.terminate();
            m_app.waitForFinished(5000);
        }
    }
    static bool isRunning()
    {
        return QDBusConnection::sessionBus().interface()->isServiceRegistered(
            QLatin1String(busName));
    }

    QProcess m_app;
};

TEST_F(Tray, StartsOnceShowsItsIconAndQuitsFromItsMenu)
{
    m_app.start(QStringLiteral(NUBOSHOT_BINARY), {});
    ASSERT_TRUE(m_app.waitForStarted());
    ASSERT_TRUE(waitUntil(isRunning)) << "the bus name was never claimed";

    // The icon sits in the panel's tray and shows the program's blue cloud.
    QRect icon;
    ASSERT_TRUE(waitUntil([&] { return !(icon = trayIconGeometry()).isEmpty(); }))
        << "no tray icon window appeared";
    QScreen* screen = QGuiApplication::primaryScreen();
    EXPECT_GE(icon.top(), screen->geometry().height() - 40) << "the tint2 panel is at the bottom";
    QImage desktop;
    ASSERT_TRUE(waitUntil([&] {
        desktop = screen->grabWindow(0).toImage();
        int blue = 0;
        for (int y = icon.top(); y <= icon.bottom(); ++y) {
            for (int x = icon.left(); x <= icon.right(); ++x) {
                const QColor c = desktop.pixelColor(x, y);
                blue += c.blue() > 150 && c.blue() > c.red() + 60;
            }
        }
        return blue > icon.width() * icon.height() / 8;
    })) << "the icon never drew";
    saveArtifact(desktop, QStringLiteral("tray.png"));

    // A second start finds the first one and leaves it alone.
    const auto second = test::runNuboShot({});
    EXPECT_EQ(second.exitCode, 0) << second.err.toStdString();
    EXPECT_EQ(second.out.trimmed(), QStringLiteral("Nubo Shot is already running."));
    EXPECT_EQ(m_app.state(), QProcess::Running);

    // Right-click the icon and choose "Quit Nubo Shot" with the keyboard.
    const QPoint centre = icon.center();
    run(QStringLiteral("xdotool"),
        {"mousemove", QString::number(centre.x()), QString::number(centre.y())});
    run(QStringLiteral("xdotool"), {"click", "3"});
    QThread::msleep(400);
    saveArtifact(screen->grabWindow(0).toImage(), QStringLiteral("tray-menu.png"));
    run(QStringLiteral("xdotool"), {"key", "Up"});
    run(QStringLiteral("xdotool"), {"key", "Return"});
    ASSERT_TRUE(m_app.waitForFinished(10000)) << "the menu did not quit the program";
    EXPECT_EQ(m_app.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_app.exitCode(), 0);
    EXPECT_TRUE(waitUntil([] { return !isRunning(); })) << "the bus name outlived the program";
}

} // namespace
} // namespace nubo
