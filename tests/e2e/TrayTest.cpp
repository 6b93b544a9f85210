#include "core/Settings.h"
#include "support/Process.h"
#include "support/TrayFixture.h"
#include "support/RenderFixtures.h"

#include <QClipboard>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDeadlineTimer>
#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScreen>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QThread>

#include <cmath>
#include <functional>
#include <csignal>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nubo {
namespace {

using test::run;
using test::saveArtifact;
using test::trayIconGeometry;
using test::Tray;
using test::waitUntil;
using test::windowShown;
constexpr char busName[] = "com.corvane.lab.nuboshot";

TEST_F(Tray, StartsOnceShowsItsIconAndQuitsFromItsMenu)
{
    ASSERT_NO_FATAL_FAILURE(startTray());

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

    // A left click opens the menu (a right click does too); "Quit Nubo Shot"
    // is chosen with the keyboard.
    const QPoint centre = icon.center();
    run(QStringLiteral("xdotool"),
        {"mousemove", QString::number(centre.x()), QString::number(centre.y())});
    const auto menuShown = [this] { return trayMenuShown(); };
    run(QStringLiteral("xdotool"), {"click", "1"});
    ASSERT_TRUE(waitUntil(menuShown, 5000)) << "a left click opened no menu";
    QThread::msleep(300);
    saveArtifact(screen->grabWindow(0).toImage(), QStringLiteral("tray-menu.png"));

    // "Settings…" (just above Quit) opens one settings window; choosing it
    // again brings the same window forward instead of a second one.
    const auto settingsWindows = [] {
        return run(QStringLiteral("xdotool"),
                   {"search", "--onlyvisible", "--name", "^Nubo Shot Settings$"})
            .split(u'\n', Qt::SkipEmptyParts)
            .size();
    };
    run(QStringLiteral("xdotool"), {"key", "Up", "Up", "Return"});
    ASSERT_TRUE(waitUntil([&] { return settingsWindows() == 1; }, 5000))
        << "Settings… opened no window";
    run(QStringLiteral("xdotool"),
        {"mousemove", QString::number(centre.x()), QString::number(centre.y()), "click", "1"});
    ASSERT_TRUE(waitUntil(menuShown, 5000));
    QThread::msleep(300);
    run(QStringLiteral("xdotool"), {"key", "Up", "Up", "Return"});
    QThread::msleep(500);
    EXPECT_EQ(settingsWindows(), 1);
    run(QStringLiteral("xdotool"),
        {"mousemove", QString::number(centre.x()), QString::number(centre.y()), "click", "1"});
    ASSERT_TRUE(waitUntil(menuShown, 5000));
    QThread::msleep(300);
    run(QStringLiteral("xdotool"), {"key", "Up"});
    run(QStringLiteral("xdotool"), {"key", "Return"});
    ASSERT_TRUE(m_app.waitForFinished(10000)) << "the menu did not quit the program";
    EXPECT_EQ(m_app.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(m_app.exitCode(), 0);
    EXPECT_TRUE(waitUntil([] { return !isRunning(); })) << "the bus name outlived the program";
}

TEST_F(Tray, GrabsAskTheRunningInstance)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    QProcess window;
    window.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
                 {"--geometry", "160x120+600+400", "--color", "ff8000", "--undecorated"});
    ASSERT_TRUE(window.waitForReadyRead(5000));
    const QString id = QString::fromLatin1(window.readLine().trimmed());
    QThread::msleep(300);

    QTemporaryDir dir;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                       QStringLiteral("com.corvane.lab.nuboshot.capture.debug=true"));
    const QString png = dir.filePath(QStringLiteral("window.png"));
    const auto grabbed = test::runNuboShot({"grab", "window", id, "-o", png}, 30000, environment);
    EXPECT_EQ(grabbed.exitCode, 0) << grabbed.err.toStdString();
    EXPECT_TRUE(grabbed.err.contains(QStringLiteral("Grabbed by the running instance")))
        << grabbed.err.toStdString();
    EXPECT_EQ(QImage(png).size(), QSize(160, 120));
    EXPECT_EQ(QImage(png).pixelColor(80, 60), QColor(255, 128, 0));

    // The instance's failures come back as the command's.
    const auto refused =
        test::runNuboShot({"grab", "window", "0x1", "-o", png}, 30000, environment);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.contains(QStringLiteral("No screen content is available.")))
        << refused.err.toStdString();
    // A relative file is the caller's, not the tray's; usage and help come
    // back as the command prints them.
    struct Case {
        QStringList arguments;
        int exitCode;
        const char* out;
        const char* err;
    };
    const Case cases[] = {
        {{"grab", "region", "600,400,40,30", "-o", "relative.png"}, 0, "/relative.png", "Grabbed by the running instance"},
        {{"grab", "region", "1,2,3", "-o", "x.png"}, 2, "", "a region is X,Y,WIDTH,HEIGHT\nTry \u201cnuboshot grab --help\u201d."},
        {{"grab", "--help"}, 0, "Usage: nuboshot grab fullscreen", ""},
    };
    for (const Case& c : cases) {
        QProcess command;
        command.setProcessEnvironment(environment);
        command.setWorkingDirectory(dir.path());
        command.start(QStringLiteral(NUBOSHOT_BINARY), c.arguments);
        ASSERT_TRUE(command.waitForFinished(30000));
        const QString out = QString::fromUtf8(command.readAllStandardOutput());
        const QString err = QString::fromUtf8(command.readAllStandardError());
        EXPECT_EQ(command.exitCode(), c.exitCode) << err.toStdString();
        EXPECT_TRUE(out.contains(QString::fromUtf8(c.out))) << out.toStdString();
        EXPECT_TRUE(err.contains(QString::fromUtf8(c.err))) << err.toStdString();
    }
    EXPECT_EQ(QImage(dir.filePath(QStringLiteral("relative.png"))).size(), QSize(40, 30));

    // Our tray icon lives inside the panel; the panel still shows in captures.
    const QString full = dir.filePath(QStringLiteral("full.png"));
    ASSERT_EQ(test::runNuboShot({"grab", "fullscreen", "-o", full}, 30000, environment).exitCode,
              0);
    const QImage screen(full);
    QScreen* primary = QGuiApplication::primaryScreen();
    const QImage truth = primary->grabWindow(0).toImage();
    const QRect panel(0, screen.height() - 30, 300, 30);
    int same = 0;
    for (int x = panel.left(); x < panel.right(); x += 3) {
        same += screen.pixelColor(x, panel.center().y()) == truth.pixelColor(x, panel.center().y());
    }
    EXPECT_GT(same, 90) << "the panel was painted away";
    window.terminate();
    window.waitForFinished();
}

TEST_F(Tray, CaptureFromTheShellOpensAnEditor)
{
    ASSERT_NO_FATAL_FAILURE(startTray());

    const auto captured = test::runNuboShot({"capture", "fullscreen"});
    EXPECT_EQ(captured.exitCode, 0) << captured.err.toStdString();
    // The editor shows the whole display, titled with its size in pixels.
    QString editor;
    ASSERT_TRUE(waitUntil([&] {
        editor =
            run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", "1920 × 1080"})
                .trimmed();
        return !editor.isEmpty();
    })) << "no editor window appeared";
    saveArtifact(QGuiApplication::primaryScreen()->grabWindow(0).toImage(),
                 QStringLiteral("capture-editor.png"));

    struct Case {
        QStringList arguments;
        int exitCode;
        const char* inErr;
    };
    const Case cases[] = {
        {{"capture", "sideways"}, 2, "capture takes area, window, fullscreen, scrolling, text, last-area or recording"},
        {{"capture"}, 2, "capture takes area, window, fullscreen, scrolling, text, last-area or recording"},
    };
    for (const Case& c : cases) {
        const auto result = test::runNuboShot(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode) << c.arguments.join(u' ').toStdString();
        EXPECT_TRUE(result.err.contains(QString::fromUtf8(c.inErr))) << result.err.toStdString();
    }

    // Opening images goes to the running instance too; a non-image is refused with a message.
    QTemporaryDir dir;
    QImage(640, 400, QImage::Format_RGB32).save(dir.filePath(QStringLiteral("small.png")));
    const auto opened = test::runNuboShot({"open", dir.filePath(QStringLiteral("small.png"))});
    EXPECT_EQ(opened.exitCode, 0) << opened.err.toStdString();
    EXPECT_TRUE(waitUntil([&] {
        return !run(QStringLiteral("xdotool"),
                    {"search", "--onlyvisible", "--name", "640 \u00d7 400"})
                    .trimmed()
                    .isEmpty();
    }));
    QFile notImage(dir.filePath(QStringLiteral("notes.png")));
    ASSERT_TRUE(notImage.open(QIODevice::WriteOnly));
    notImage.write("text");
    notImage.close();
    const auto refused = test::runNuboShot({"annotate", notImage.fileName()});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.contains(QStringLiteral("is not an image Nubo Shot can open.")))
        << refused.err.toStdString();

    // A FIFO (or any file that is not a regular one) is refused at once; the
    // tray's thread was once stuck on one for good, answering nothing more.
    const QString fifo = dir.filePath(QStringLiteral("pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    for (const char* command : {"open", "annotate"}) {
        const auto special = test::runNuboShot({command, fifo}, 15000);
        EXPECT_FALSE(special.crashed) << command << " blocked";
        EXPECT_EQ(special.exitCode, 1) << command;
        EXPECT_TRUE(special.err.contains(QStringLiteral("is a pipe (FIFO), not an image file")))
            << special.err.toStdString();
    }
    const auto stillThere = test::runNuboShot({"open", dir.filePath(QStringLiteral("small.png"))});
    EXPECT_EQ(stillThere.exitCode, 0) << stillThere.err.toStdString();
}

// `nuboshot` is a small program in front of the others: it becomes the whole
// program (the same process) for the tray and its windows, a lean one for
// the commands that need no window, and says so plainly when one is missing.
TEST_F(Tray, TheCommandInFrontBecomesTheWholeProgram)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    const QString pid = QString::number(m_app.processId());
    EXPECT_EQ(QFileInfo(QStringLiteral("/proc/%1/exe").arg(pid)).symLinkTarget(),
              QFileInfo(QStringLiteral(NUBOSHOT_BINARY)).absolutePath() +
                  QStringLiteral("/nuboshot-app"));
    QFile environ(QStringLiteral("/proc/%1/environ").arg(pid));
    ASSERT_TRUE(environ.open(QIODevice::ReadOnly));
    // Commands it shows and starts name the front, as users run it.
    EXPECT_TRUE(environ.readAll().split('\0').contains(
        "NUBOSHOT_PROGRAM=" + QFileInfo(QStringLiteral(NUBOSHOT_BINARY)).canonicalFilePath().toLocal8Bit()));

    // What the tray cannot take goes to the whole program, which explains.
    const auto bogus = test::runNuboShot({"capture", "sideways"});
    EXPECT_EQ(bogus.exitCode, 2);
    EXPECT_TRUE(bogus.err.contains(QStringLiteral("capture takes area, window"))) << bogus.err.toStdString();

    // Alone, the front still answers what it answers itself, and names the
    // program of the suite it cannot find for the rest.
    QTemporaryDir alone;
    const QString front = alone.filePath(QStringLiteral("nuboshot"));
    ASSERT_TRUE(QFile::copy(QStringLiteral(NUBOSHOT_BINARY), front));
    struct Case {
        QStringList arguments;
        int exitCode;
        QByteArray says; // in its output, or its error
    };
    const Case cases[] = {
        {{"--version"}, 0, "nuboshot 0."},
        {{"--help"}, 0, "Usage: nuboshot"},
        {{"displays", "--help"}, 1, "/nuboshot-stills: No such file or directory"},
        {{"grab", "--help"}, 1, "/nuboshot-ask: No such file or directory"}, // a tray runs: it is asked
        {{"video", "info", "x.mp4"}, 1, "/nuboshot-media: No such file or directory"},
        {{"upload", "x.png"}, 1, "/nuboshot-upload: No such file or directory"},
        {{"open", "x.png"}, 1, "/nuboshot-app: No such file or directory"},
    };
    for (const Case& c : cases) {
        QProcess lonely;
        lonely.start(front, c.arguments);
        ASSERT_TRUE(lonely.waitForFinished(10000));
        EXPECT_EQ(lonely.exitCode(), c.exitCode) << c.arguments.join(u' ').toStdString();
        const QByteArray said = lonely.readAllStandardOutput() + lonely.readAllStandardError();
        EXPECT_TRUE(said.contains(c.says)) << c.arguments.join(u' ').toStdString() << ": " << said.toStdString();
        if (c.exitCode == 1) {
            EXPECT_TRUE(said.contains("cannot start " + QFile::encodeName(alone.path()))) << said.toStdString();
        }
    }

    // A grab goes to the running tray; once the tray is killed outright, the
    // front grabs itself (the lock the tray held went with it).
    QProcessEnvironment debug = QProcessEnvironment::systemEnvironment();
    debug.insert(QStringLiteral("NUBOSHOT_DEBUG"), QStringLiteral("1"));
    const QString shot = alone.filePath(QStringLiteral("shot.png"));
    const auto byTray = test::runNuboShot({"grab", "fullscreen", "-o", shot}, 30000, debug);
    EXPECT_EQ(byTray.exitCode, 0) << byTray.err.toStdString();
    EXPECT_TRUE(byTray.err.contains(QStringLiteral("Grabbed by the running instance"))) << byTray.err.toStdString();
    ::kill(pid_t(m_app.processId()), SIGKILL);
    m_app.waitForFinished();
    QFile::remove(shot);
    const auto byItself = test::runNuboShot({"grab", "fullscreen", "-o", shot}, 30000, debug);
    EXPECT_EQ(byItself.exitCode, 0) << byItself.err.toStdString();
    EXPECT_FALSE(byItself.err.contains(QStringLiteral("Grabbed by the running instance")));
    EXPECT_EQ(QImage(shot).size(), QSize(1920, 1080));
}

TEST_F(Tray, PrintScreenKeysCaptureFromAnywhere)
{
    {
        ShotPreferences preferences; // a shortcut of the user's own choice
        preferences.setValue(QStringLiteral("shot.shortcut.fullscreen"),
                             QStringLiteral("Ctrl+Shift+F12"));
        preferences.remove(keys::shortcutProblemsTold); // a first start: told
        preferences.sync();
    }
    // Notifications other tests of the session left would answer for ours.
    run(QStringLiteral("dunstctl"), {"close-all"});
    ASSERT_NO_FATAL_FAILURE(startTray());
    QThread::msleep(300);
    const auto shown = [&](const QString& name) {
        return !run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", name})
                    .trimmed()
                    .isEmpty();
    };
    run(QStringLiteral("xdotool"), {"key", "shift+Print"});
    EXPECT_TRUE(waitUntil([&] { return shown(QStringLiteral("Nubo Shot Capture")); }))
        << "Shift+Print: the overlay";
    run(QStringLiteral("xdotool"), {"key", "Escape"});
    EXPECT_TRUE(waitUntil([&] { return !shown(QStringLiteral("Nubo Shot Capture")); }));
    run(QStringLiteral("xdotool"), {"key", "ctrl+shift+F12"});
    EXPECT_TRUE(waitUntil([&] { return shown(QStringLiteral("1920 \u00d7 1080")); }))
        << "the user's shortcut";
    // openbox binds Alt+Print to scrot: ours is skipped and said so in a
    // notification whose button opens the settings.
    EXPECT_TRUE(waitUntil([&] {
        return run(QStringLiteral("dunstctl"), {"count", "displayed"}).trimmed().toInt() > 0;
    })) << "no notification";
    run(QStringLiteral("dunstctl"), {"action", "0"});
    EXPECT_TRUE(waitUntil([&] { return shown(QStringLiteral("Nubo Shot Settings")); }))
        << "the notification's button opens no settings";
    m_app.terminate();
    m_app.waitForFinished(5000);
    EXPECT_TRUE(
        QString::fromUtf8(m_app.readAllStandardError())
            .contains(QStringLiteral("The shortcut Alt+Print is used by another program.")));
    {
        ShotPreferences preferences;
        preferences.remove(QStringLiteral("shot.shortcut.fullscreen"));
        preferences.sync();
    }
}

TEST_F(Tray, ThePointerIsInTheShotWhereItWasOnlyWhenAsked)
{
    QProcess red;
    red.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
              {"--geometry", "200x150+300+300", "--color", "ff0000", "--undecorated"});
    ASSERT_TRUE(red.waitForReadyRead(5000));
    for (const bool include : {false, true}) {
        SCOPED_TRACE(include ? "with the pointer" : "without");
        {
            ShotPreferences preferences;
            preferences.setValue(keys::copyRawOnCapture, true);
            preferences.setValue(keys::includePointer, include);
            preferences.sync();
        }
        ASSERT_NO_FATAL_FAILURE(startTray());
        QGuiApplication::clipboard()->clear();
        // The pointer rests over the red window when the screen freezes;
        // the area is framed around where it was.
        run(QStringLiteral("xdotool"), {"mousemove", "360", "360"});
        ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
        ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Nubo Shot Capture")); }));
        run(QStringLiteral("xdotool"), {"mousemove", "330", "330", "mousedown", "1", "mousemove", "380",
                                        "380", "mousemove", "430", "430", "mouseup", "1"});
        QImage copied;
        ASSERT_TRUE(waitUntil([&] {
            const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
            copied = mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG") : QImage();
            return !copied.isNull();
        }));
        int notRed = 0;
        for (int y = 0; y < copied.height(); ++y) {
            for (int x = 0; x < copied.width(); ++x) {
                notRed += copied.pixel(x, y) != qRgb(255, 0, 0);
            }
        }
        if (include) {
            EXPECT_GT(notRed, 20) << "no pointer in the shot";
            // Where it was: around (30, 30) of the area, nowhere far off.
            EXPECT_NE(copied.pixel(30, 30), qRgb(255, 0, 0));
            EXPECT_EQ(copied.pixel(80, 80), qRgb(255, 0, 0));
        } else {
            EXPECT_EQ(notRed, 0) << "a pointer in the shot";
        }
        run(QStringLiteral("xdotool"), {"key", "Escape"});
        m_app.terminate();
        m_app.waitForFinished(5000);
    }
}

TEST_F(Tray, TheOverlayTakesExactlyTheFramedPixels)
{
    {
        ShotPreferences preferences; // the tray application reads the same file
        preferences.setValue(keys::copyRawOnCapture, true);
        preferences.sync();
    }
    ASSERT_NO_FATAL_FAILURE(startTray());
    QProcess red, green;
    red.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
              {"--geometry", "200x150+300+300", "--color", "ff0000", "--undecorated"});
    green.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
                {"--geometry", "100x100+450+400", "--color", "00ff00", "--undecorated"});
    ASSERT_TRUE(red.waitForReadyRead(5000) && green.waitForReadyRead(5000));
    QThread::msleep(400);
    QScreen* screen = QGuiApplication::primaryScreen();
    const QImage before = screen->grabWindow(0, 420, 380, 100, 80).toImage();

    const auto shown = [&](const QString& name) {
        return !run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", name})
                    .trimmed()
                    .isEmpty();
    };
    const auto overlayShown = [&] {
        return shown(QStringLiteral("Nubo Shot Capture"));
    };
    const auto xdotool = [&](const QStringList& steps) {
        run(QStringLiteral("xdotool"), steps);
    };

    // Escape ends it silently.
    ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
    ASSERT_TRUE(waitUntil(overlayShown));
    QThread::msleep(200);
    saveArtifact(screen->grabWindow(0).toImage(), QStringLiteral("overlay-area.png"));
    xdotool({"mousemove", "600", "600", "key", "Escape"});
    EXPECT_TRUE(waitUntil([&] { return !overlayShown(); }));
    EXPECT_FALSE(shown(QStringLiteral("Could Not Capture Screen")));

    // A 3 × 50 drag is not taken; a 100 × 80 one is, pixel for pixel.
    ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
    ASSERT_TRUE(waitUntil(overlayShown));
    xdotool({"mousemove", "100", "100", "mousedown", "1", "mousemove", "102", "130", "mousemove",
             "103", "150", "mouseup", "1"});
    QThread::msleep(200);
    EXPECT_TRUE(overlayShown());
    xdotool({"mousemove", "420", "380", "mousedown", "1", "mousemove", "470", "420", "mousemove",
             "520", "460", "mouseup", "1"});
    ASSERT_TRUE(waitUntil([&] { return shown(QStringLiteral("100 \u00d7 80")); }))
        << "no editor for the area";
    QImage copied;
    ASSERT_TRUE(waitUntil([&] {
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        copied = mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG") : QImage();
        return !copied.isNull();
    }));
    EXPECT_EQ(test::compareImages(copied, before, 0).pixelsOver, 0) << "the framed pixels, exactly";

    // Drawing on that shot and closing its editor leaves the edited shot on
    // the clipboard in place of the raw one.
    const QString editor =
        run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", "100 \u00d7 80"})
            .split(u'\n', Qt::SkipEmptyParts)
            .value(0);
    ASSERT_FALSE(editor.isEmpty());
    xdotool({"windowactivate", "--sync", editor});
    // The shot sits in the middle of the editor: an arrow across its middle.
    const QString geometry =
        run(QStringLiteral("xdotool"), {"getwindowgeometry", "--shell", editor});
    const auto value = [&](const char* key) {
        const auto match =
            QRegularExpression(QString::fromLatin1(key) + QStringLiteral("=(\\d+)")).match(geometry);
        return match.hasMatch() ? match.captured(1).toInt() : 0;
    };
    const int mx = value("WIDTH") / 2, my = value("HEIGHT") / 2;
    ASSERT_GT(mx, 0) << geometry.toStdString();
    xdotool({"mousemove", "--window", editor, QString::number(mx - 35), QString::number(my - 15),
             "mousedown", "1", "mousemove", "--window", editor, QString::number(mx),
             QString::number(my), "mousemove", "--window", editor, QString::number(mx + 35),
             QString::number(my + 15), "mouseup", "1"});
    QThread::msleep(200);
    xdotool({"key", "alt+F4"});
    ASSERT_TRUE(waitUntil([&] { return !shown(QStringLiteral("100 \u00d7 80")); }));
    QImage edited;
    ASSERT_TRUE(waitUntil([&] {
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        edited = mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG") : QImage();
        return !edited.isNull() && test::compareImages(edited, before, 0).pixelsOver > 0;
    })) << "the clipboard still holds the raw shot";
    EXPECT_EQ(edited.size(), before.size());
    saveArtifact(edited, QStringLiteral("clipboard-after-edit.png"));

    // Space switches to windows; a click takes the one under the pointer.
    ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
    ASSERT_TRUE(waitUntil(overlayShown));
    xdotool({"mousemove", "350", "350"});
    xdotool({"key", "space"});
    xdotool({"mousemove", "355", "355"});
    QThread::msleep(200);
    saveArtifact(screen->grabWindow(0).toImage(), QStringLiteral("overlay-window.png"));
    xdotool({"click", "1"});
    EXPECT_TRUE(waitUntil([&] { return shown(QStringLiteral("200 \u00d7 150")); }))
        << "no editor for the window";
    red.terminate();
    green.terminate();
    red.waitForFinished();
    green.waitForFinished();
}

// Capture Previous Area takes the pixels of the area framed last again,
// from the screen as it is now, without the overlay; a display whose size
// changed since is refused.
TEST_F(Tray, ThePreviousAreaIsTakenAgainFromTheScreenAsItIsNow)
{
    {
        ShotPreferences preferences; // the tray application reads the same file
        preferences.setValue(keys::copyRawOnCapture, true);
        // An area framed on this display when it was narrower.
        const QJsonObject display =
            QJsonDocument::fromJson(test::runNuboShot({"displays", "--json"}).out.toUtf8()).array().first().toObject();
        const QJsonArray pixels = display.value(QStringLiteral("pixels")).toArray();
        ASSERT_EQ(pixels.size(), 4);
        preferences.setValue(keys::lastArea, QStringLiteral("%1 10 10 50 50 %2 %3")
                                                 .arg(display.value(QStringLiteral("id")).toInteger())
                                                 .arg(pixels[2].toInt() - 100)
                                                 .arg(pixels[3].toInt()));
        preferences.sync();
    }
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_EQ(test::runNuboShot({"capture", "last-area"}).exitCode, 0);
    ASSERT_TRUE(waitUntil([&] { return windowShown(QStringLiteral("Could Not Capture Screen")); }))
        << m_log.toStdString();
    EXPECT_TRUE(waitForLog(QStringLiteral("changed its size"))) << m_log.toStdString();
    const QString alert = run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name",
                                                          "Could Not Capture Screen"})
                              .split(u'\n', Qt::SkipEmptyParts)
                              .value(0);
    run(QStringLiteral("xdotool"), {"windowactivate", "--sync", alert});
    run(QStringLiteral("xdotool"), {"key", "Return"});
    ASSERT_TRUE(waitUntil([&] { return !windowShown(QStringLiteral("Could Not Capture Screen")); }));

    // Rows of their own colour each: a rectangle one row off differs.
    QProcess rows;
    rows.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
               {"--geometry", "400x300+300+250", "--numbered-rows", "--undecorated"});
    ASSERT_TRUE(rows.waitForReadyRead(5000));
    const auto stop = qScopeGuard([&] {
        rows.terminate();
        rows.waitForFinished();
    });
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Test Window")); }));
    const auto clipboardImage = [](const QImage& unlike) {
        QImage copied;
        waitUntil([&] {
            const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
            copied = mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG") : QImage();
            return !copied.isNull() && copied != unlike;
        });
        return copied;
    };

    ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Nubo Shot Capture")); }));
    run(QStringLiteral("xdotool"), {"mousemove", "350", "300", "mousedown", "1", "mousemove", "400",
                                    "350", "mousemove", "470", "390", "mouseup", "1"});
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("120 \u00d7 90")); }));
    const QImage framed = clipboardImage({});
    ASSERT_EQ(framed.size(), QSize(120, 90));

    // Again, without the overlay: the same pixels, in a second editor.
    QGuiApplication::clipboard()->clear();
    ASSERT_EQ(test::runNuboShot({"capture", "last-area"}).exitCode, 0);
    const QImage again = clipboardImage({});
    EXPECT_FALSE(windowShown(QStringLiteral("Nubo Shot Capture")));
    EXPECT_EQ(test::compareImages(again, framed, 0).pixelsOver, 0) << "not the same rectangle";

    // The screen changed under the area: the new pixels are taken.
    rows.terminate();
    rows.waitForFinished();
    ASSERT_TRUE(waitUntil([] { return !windowShown(QStringLiteral("Test Window")); }));
    const QImage shown = QGuiApplication::primaryScreen()->grabWindow(0, 350, 300, 120, 90).toImage();
    ASSERT_GT(test::compareImages(shown, framed, 0).pixelsOver, 0) << "the screen did not change";
    ASSERT_EQ(test::runNuboShot({"capture", "last-area"}).exitCode, 0);
    const QImage later = clipboardImage(again);
    EXPECT_EQ(test::compareImages(later, shown, 0).pixelsOver, 0) << "not the screen as it is now";
    {
        ShotPreferences preferences; // the next tests start without these
        preferences.remove(keys::copyRawOnCapture);
        preferences.remove(keys::lastArea);
        preferences.sync();
    }
}

// The pixels of `a` (top-left `at` of the screen) that differ from `b`,
// bottom panel left out: the tray icon counts down there.
QList<QPoint> changedPixels(const QImage& a, const QImage& b, int panelTop)
{
    QList<QPoint> changed;
    for (int y = 0; y < std::min(a.height(), panelTop); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y)) {
                changed << QPoint(x, y);
            }
        }
    }
    return changed;
}

TEST_F(Tray, ADelayedCaptureCountsDownThenTakesTheScreenAsItIsThen)
{
    {
        ShotPreferences preferences;
        preferences.setValue(keys::copyRawOnCapture, true);
        preferences.sync();
    }
    ASSERT_NO_FATAL_FAILURE(startTray());
    QScreen* screen = QGuiApplication::primaryScreen();
    QRect icon;
    ASSERT_TRUE(waitUntil([&] { return !(icon = trayIconGeometry()).isEmpty(); }));
    const auto iconNow = [&] { return screen->grabWindow(0, icon.x(), icon.y(), icon.width(), icon.height()).toImage(); };
    QImage resting;
    ASSERT_TRUE(waitUntil([&] {
        const QImage a = iconNow();
        QThread::msleep(100);
        resting = iconNow();
        return a == resting; // drawn and settled
    }));

    // Cancelled with Escape: the icon counts, then rests again, and nothing is taken.
    ASSERT_EQ(test::runNuboShot({"capture", "fullscreen", "--delay", "3"}).exitCode, 0);
    ASSERT_TRUE(waitUntil([&] { return iconNow() != resting; }, 3000)) << "the icon does not count down";
    saveArtifact(screen->grabWindow(0).toImage(), QStringLiteral("delay-countdown.png"));
    run(QStringLiteral("xdotool"), {"key", "Escape"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Delayed capture cancelled"), 2500)) << m_log.toStdString();
    EXPECT_TRUE(waitUntil([&] { return iconNow() == resting; }, 3000)) << "the icon kept counting";
    EXPECT_FALSE(waitUntil([] { return windowShown(QStringLiteral("1920 \u00d7 1080")); }, 4000))
        << "the cancelled capture was taken";

    // A menu opened during the delay is in the shot.
    QProcess terminal;
    terminal.start(QStringLiteral("xterm"), {"-geometry", "60x12+200+200", "-e", "sleep 60"});
    const auto stop = qScopeGuard([&] {
        terminal.terminate();
        terminal.waitForFinished();
    });
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("sleep 60")); }));
    QImage before;
    ASSERT_TRUE(waitUntil([&] {
        const QImage a = screen->grabWindow(0).toImage();
        QThread::msleep(100);
        before = screen->grabWindow(0).toImage();
        return a == before;
    }));
    const int panelTop = icon.top() - 8;
    ASSERT_EQ(test::runNuboShot({"capture", "fullscreen", "--delay", "2"}).exitCode, 0);
    // xterm's main menu shows while Ctrl and the button are held.
    run(QStringLiteral("xdotool"), {"mousemove", "260", "260", "keydown", "ctrl", "mousedown", "1"});
    QImage during;
    ASSERT_TRUE(waitUntil([&] {
        during = screen->grabWindow(0).toImage();
        return changedPixels(during, before, panelTop).size() > 2000;
    }, 1500)) << "xterm's menu did not open";
    const bool frozen = waitForLog(QStringLiteral("Frozen displays ready"), 5000);
    run(QStringLiteral("xdotool"), {"mousemove", "1200", "700", "mouseup", "1", "keyup", "ctrl"});
    ASSERT_TRUE(frozen) << m_log.toStdString();
    QImage shot;
    ASSERT_TRUE(waitUntil([&] {
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        shot = mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG") : QImage();
        return shot.size() == before.size();
    })) << "no shot on the clipboard";
    saveArtifact(shot, QStringLiteral("delay-shot.png"));
    const QList<QPoint> menu = changedPixels(during, before, panelTop);
    qsizetype missing = 0;
    for (const QPoint& p : menu) {
        missing += shot.pixel(p) != during.pixel(p);
    }
    EXPECT_EQ(missing, 0) << "of the menu's " << menu.size() << " pixels";
    {
        ShotPreferences preferences;
        preferences.remove(keys::copyRawOnCapture);
        preferences.sync();
    }
}

TEST_F(Tray, PKeyPinsTheFramedAreaWhereItWasAndTheTrayClosesThePins)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    QProcess rows;
    rows.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
               {"--geometry", "400x300+300+250", "--numbered-rows", "--undecorated"});
    ASSERT_TRUE(rows.waitForReadyRead(5000));
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Test Window")); }));
    QScreen* screen = QGuiApplication::primaryScreen();
    const QImage framed = screen->grabWindow(0, 350, 300, 120, 90).toImage();

    ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Nubo Shot Capture")); }));
    run(QStringLiteral("xdotool"), {"mousemove", "350", "300", "mousedown", "1", "mousemove", "400",
                                    "350", "mousemove", "470", "390"});
    run(QStringLiteral("xdotool"), {"key", "p"});
    run(QStringLiteral("xdotool"), {"mouseup", "1"});
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Pinned Shot")); })) << m_log.toStdString();
    EXPECT_FALSE(windowShown(QStringLiteral("Nubo Shot Capture")));
    EXPECT_FALSE(windowShown(QStringLiteral("120 \u00d7 90"))) << "an editor opened too";
    // The pin covers the area exactly; the window under it moves away and
    // the pin still shows what was framed.
    rows.terminate();
    rows.waitForFinished();
    ASSERT_TRUE(waitUntil([] { return !windowShown(QStringLiteral("Test Window")); }));
    QImage shown;
    EXPECT_TRUE(waitUntil([&] {
        shown = screen->grabWindow(0, 350, 300, 120, 90).toImage();
        return test::compareImages(shown, framed, 0).pixelsOver == 0;
    })) << "the pin does not show the framed pixels where they were";
    EXPECT_EQ(test::shownWindowGeometry(QStringLiteral("^Pinned Shot$")), QRect(349, 299, 122, 92));

    // The command line pins too; the tray's Pinned submenu closes them all.
    ASSERT_EQ(test::runNuboShot({"capture", "last-area", "--pin"}).exitCode, 0);
    const auto pinCount = [] {
        return run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", "^Pinned Shot$"})
            .split(u'\n', Qt::SkipEmptyParts)
            .size();
    };
    ASSERT_TRUE(waitUntil([&] { return pinCount() == 2; })) << m_log.toStdString();
    ASSERT_TRUE(openTrayMenu());
    // From the bottom: Quit, Settings, Recent Uploads, Pinned; its last item.
    run(QStringLiteral("xdotool"), {"key", "Up", "Up", "Up", "Up", "Right", "Up", "Return"});
    EXPECT_TRUE(waitUntil([&] { return pinCount() == 0; })) << "the pins stayed";
}

TEST_F(Tray, TheBusGrabRefusesWhatItCannotDoAsAsked)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString good = dir.filePath(QStringLiteral("good.png"));
    const double nan = std::nan("");
    const QVariant none = qlonglong(-1), noWindow = qlonglong(0);
    const QVariantList region{10.0, 10.0, 50.0, 40.0};
    struct Case {
        const char* name;
        QVariantList arguments; // mode, display, window, region, output, quality
        const char* inError;    // nullptr: it grabs
    };
    const Case cases[] = {
        {"a mode that is none", {7, none, noWindow, region, good, 0.9}, "is not a grab mode"},
        {"a relative path",
         {2, none, noWindow, region, QStringLiteral("x.png"), 0.9},
         "not an absolute"},
        {"a FIFO", {2, none, noWindow, region, fifo, 0.9}, "it is a pipe (FIFO), not a file"},
        {"a device",
         {2, none, noWindow, region, QStringLiteral("/dev/null"), 0.9},
         "it is a device, not a file"},
        {"a missing folder",
         {2, none, noWindow, region, dir.filePath(QStringLiteral("no/such/x.png")), 0.9},
         "does not exist"},
        {"no format",
         {2, none, noWindow, region, dir.filePath(QStringLiteral("x.txt")), 0.9},
         "cannot tell the image format"},
        {"a region of NaN",
         {2, none, noWindow, QVariantList{nan, 0.0, 5.0, 5.0}, good, 0.9},
         "not a rectangle on a desktop"},
        {"a huge region",
         {2, none, noWindow, QVariantList{0.0, 0.0, 1e12, 1e12}, good, 0.9},
         "not a rectangle on a desktop"},
        {"a quality of NaN", {2, none, noWindow, region, good, nan}, "not between 0 and 1"},
        {"a window without id", {1, none, noWindow, QVariantList{}, good, 0.9}, "no window id"},
        {"a good one", {2, none, noWindow, region, good, 0.9}, nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QDBusMessage call = QDBusMessage::createMethodCall(
            QLatin1String(busName), QStringLiteral("/com/corvane/lab/nuboshot"),
            QLatin1String(busName), QStringLiteral("Grab"));
        call.setArguments(QVariantList(c.arguments) << qEnvironmentVariable("DISPLAY"));
        const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, 20000);
        if (c.inError) {
            EXPECT_EQ(reply.type(), QDBusMessage::ErrorMessage);
            EXPECT_TRUE(reply.errorMessage().contains(QLatin1String(c.inError)))
                << reply.errorMessage().toStdString();
            EXPECT_FALSE(QFileInfo::exists(good));
        } else {
            EXPECT_EQ(reply.type(), QDBusMessage::ReplyMessage)
                << reply.errorMessage().toStdString();
            EXPECT_EQ(QImage(good).size(), QSize(50, 40));
        }
    }
    struct stat info {};
    EXPECT_TRUE(::lstat(QFile::encodeName(fifo).constData(), &info) == 0 && S_ISFIFO(info.st_mode));
}

TEST_F(Tray, ConcurrentBusGrabsDuringAnOpenOverlayAllSucceed)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    QProcess window;
    window.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
                 {"--geometry", "300x200+100+100", "--color", "3366cc", "--undecorated"});
    ASSERT_TRUE(window.waitForReadyRead(5000));
    ASSERT_TRUE(waitUntil([] {
        return QGuiApplication::primaryScreen()->grabWindow(0, 250, 200, 1, 1).toImage().pixelColor(0, 0) ==
               QColor(0x33, 0x66, 0xcc);
    })) << "the window never showed";
    // The main thread freezes the displays and shows the overlay while the
    // bus's workers capture: the capturer is shared by all of them.
    ASSERT_EQ(test::runNuboShot({"capture", "area"}).exitCode, 0);
    QTemporaryDir dir;
    constexpr int grabs = 20;
    QList<QDBusPendingCall> calls;
    for (int i = 0; i < grabs; ++i) {
        QDBusMessage call = QDBusMessage::createMethodCall(
            QLatin1String(busName), QStringLiteral("/com/corvane/lab/nuboshot"),
            QLatin1String(busName), QStringLiteral("Grab"));
        const bool whole = i % 4 == 0;
        call.setArguments({whole ? 0 : 2, qlonglong(-1), qlonglong(0),
                           QVariantList{120.0 + i, 120.0, 100.0, 50.0},
                           dir.filePath(QStringLiteral("grab-%1.png").arg(i)), 0.9,
                           qEnvironmentVariable("DISPLAY")});
        calls.append(QDBusConnection::sessionBus().asyncCall(call, 30000));
    }
    for (int i = 0; i < grabs; ++i) {
        SCOPED_TRACE(i);
        QDBusPendingCall& call = calls[i];
        call.waitForFinished();
        EXPECT_FALSE(call.isError()) << call.error().message().toStdString();
        const QImage shot(dir.filePath(QStringLiteral("grab-%1.png").arg(i)));
        if (i % 4 == 0) {
            EXPECT_EQ(shot.size(), QGuiApplication::primaryScreen()->size());
        } else {
            ASSERT_EQ(shot.size(), QSize(100, 50));
            EXPECT_EQ(shot.pixelColor(50, 25), QColor(0x33, 0x66, 0xcc));
        }
    }
    // The tray still answers and the overlay still takes the keyboard.
    EXPECT_EQ(m_app.state(), QProcess::Running);
    run(QStringLiteral("xdotool"), {"mousemove", "600", "600", "key", "Escape"});
    EXPECT_TRUE(waitUntil([] {
        return run(QStringLiteral("xdotool"),
                   {"search", "--onlyvisible", "--name", "Nubo Shot Capture"})
            .trimmed()
            .isEmpty();
    }));
    window.terminate();
    window.waitForFinished();
}

} // namespace
} // namespace nubo
