#include "capture/CapturePlatformLoader.h"
#include "support/Process.h"
#include "support/QtPrinters.h"

#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace nubo {
namespace {

// A display number nothing listens on in the private session.
const QString unreachable = QStringLiteral(":4242");
// The private X session's bus has no desktop portal.
const QString noPortal = QStringLiteral(
    "This Wayland desktop has no screen-cast portal to capture through: install the desktop's "
    "portal backend (xdg-desktop-portal-gnome, -kde or -wlr) and log in again.");

TEST(CapturePlatformLoader, PicksTheBackendTheDesktopHasOrSaysWhyNone)
{
    const QString session = qEnvironmentVariable("DISPLAY");
    ASSERT_FALSE(session.isEmpty()) << "runs in the private X session of scripts/test";
    struct Case {
        const char* name;
        CapturePlatformEnvironment environment;
        QString backend; // empty: refused
        QString message; // the refusal, word for word
    };
    const Case cases[] = {
        {"an X session", {{}, session, {}, QStringLiteral("x11")}, QStringLiteral("x11"), {}},
        {"the override names X11", {QStringLiteral("x11"), session, {}, {}}, QStringLiteral("x11"),
         {}},
        {"the override beats a Wayland session",
         {QStringLiteral("x11"), session, QStringLiteral("wayland-0"), QStringLiteral("wayland")},
         QStringLiteral("x11"),
         {}},
        {"the override names a backend this build lacks",
         {QStringLiteral("quartz"), session, {}, {}},
         {},
         QStringLiteral("There is no capture backend \u201cquartz\u201d "
                        "(NUBOSHOT_CAPTURE_PLATFORM); this build has: x11, portal.")},
        {"the override names the portals, and the bus has none",
         {QStringLiteral("portal"), session, {}, {}},
         {},
         noPortal},
        {"no display at all",
         {{}, {}, {}, {}},
         {},
         QStringLiteral("No display to capture: neither DISPLAY nor WAYLAND_DISPLAY is set.")},
        {"an X display nobody serves",
         {{}, unreachable, {}, {}},
         {},
         QStringLiteral("The X display \u201c:4242\u201d (DISPLAY) cannot be reached.")},
        {"the override, and an X display nobody serves",
         {QStringLiteral("x11"), unreachable, {}, {}},
         {},
         QStringLiteral("The X display \u201c:4242\u201d (DISPLAY) cannot be reached.")},
        {"a Wayland session (even with XWayland's display) without a portal",
         {{}, session, QStringLiteral("wayland-0"), QStringLiteral("wayland")},
         {},
         noPortal},
        {"a session type of wayland alone", {{}, session, {}, QStringLiteral("wayland")}, {}, noPortal},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        try {
            const auto platform = CapturePlatformLoader::load(c.environment);
            ASSERT_TRUE(platform);
            EXPECT_EQ(platform->name(), c.backend);
            EXPECT_FALSE(c.backend.isEmpty()) << "loaded where it had to refuse";
            if (c.backend == QLatin1String("x11")) {
                // What the X11 backend declares, and that it really captures.
                const CapturePlatformFeatures f = platform->features();
                EXPECT_EQ(f.modes, (QList<CaptureMode>{CaptureMode::area, CaptureMode::window,
                                                       CaptureMode::fullscreen,
                                                       CaptureMode::scrolling, CaptureMode::text,
                                                       CaptureMode::lastArea}));
                EXPECT_TRUE(f.windowCapture && f.regionStreams && f.globalShortcuts &&
                            f.autoScroll);
                EXPECT_TRUE(f.recording);
                EXPECT_TRUE(platform->makeFrameSource());
                EXPECT_FALSE(platform->capturer()->displays().isEmpty());
                EXPECT_TRUE(platform->regionStreaming());
                EXPECT_TRUE(platform->scrollDriving());
            }
        } catch (const CapturePlatformError& error) {
            EXPECT_TRUE(c.backend.isEmpty()) << error.message().toStdString();
            EXPECT_EQ(error.message(), c.message);
        }
    }
}

TEST(CapturePlatformLoader, CommandsSayInOneLineWhyTheyCannotCapture)
{
    struct Case {
        const char* name;
        QStringList unset;
        QList<std::pair<QString, QString>> set;
        QString message;
    };
    const Case cases[] = {
        {"an X display nobody serves",
         {QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("XDG_SESSION_TYPE")},
         {{QStringLiteral("DISPLAY"), unreachable}},
         QStringLiteral("The X display \u201c:4242\u201d (DISPLAY) cannot be reached.")},
        {"an unknown backend",
         {},
         {{QStringLiteral("NUBOSHOT_CAPTURE_PLATFORM"), QStringLiteral("quartz")}},
         QStringLiteral("There is no capture backend \u201cquartz\u201d "
                        "(NUBOSHOT_CAPTURE_PLATFORM); this build has: x11, portal.")},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        for (const QString& name : c.unset) {
            env.remove(name);
        }
        for (const auto& [name, value] : c.set) {
            env.insert(name, value);
        }
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        const test::ProcessResult r = test::runNuboShot({QStringLiteral("displays")}, 30000, env);
        EXPECT_EQ(r.exitCode, 1) << r.err.toStdString();
        EXPECT_EQ(r.err.trimmed(), QStringLiteral("nuboshot: ") + c.message);
        EXPECT_EQ(r.err.count(QLatin1Char('\n')), 1) << "one line";
    }
}

TEST(CapturePlatformLoader, GrabFailuresNameTheirRealCause)
{
    // The capture message stays first; the command line adds the cause.
    QTemporaryDir dir;
    const QString out = dir.filePath(QStringLiteral("x.png"));
    struct Case {
        QStringList arguments;
        const char* message;
    };
    const Case cases[] = {
        {{"grab", "window", "0x1", "-o", out},
         "No screen content is available. (window 1 is gone)"},
        {{"grab", "fullscreen", "--display", "99", "-o", out},
         "No screen content is available. (there is no display 99)"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        const test::ProcessResult r = test::runNuboShot(c.arguments);
        EXPECT_EQ(r.exitCode, 1);
        EXPECT_EQ(r.err.trimmed(), QStringLiteral("nuboshot: ") + QString::fromUtf8(c.message));
        EXPECT_FALSE(QFileInfo::exists(out));
    }
}

} // namespace
} // namespace nubo
