// Recording from the tray as a user does it: the recording shortcut or the
// menu, the frozen screen to frame what is recorded, the options bar, the
// countdown, the control bar, and the movie at the end, decoded by FFmpeg.

#include "capture/CaptureTypes.h"
#include "core/Settings.h"
#include "recording/CameraOverlay.h"
#include "support/CameraStream.h"
#include "support/MovieDecoder.h"
#include "support/Process.h"
#include "support/RenderFixtures.h"
#include "support/TrayFixture.h"

#include <QDir>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QPixmap>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <xcb/screensaver.h>

namespace nubo {
namespace {

using test::run;
using test::saveArtifact;
using test::shownWindowGeometry;
using test::waitUntil;

// The control bar's buttons as it lays them out, right to left.
constexpr int buttonWidth = 30, buttonSpacing = 6, rightMargin = 6;

class RecordingFlow : public test::Tray {
protected:
    void SetUp() override
    {
        test::Tray::SetUp();
        ASSERT_TRUE(m_folder.isValid());
        ShotPreferences preferences;
        preferences.setValue(keys::recordingFolder, m_folder.path());
        preferences.remove(keys::recordingCountdown); // on, as a new user has it
        preferences.sync();
    }
    void TearDown() override
    {
        test::Tray::TearDown();
        for (QProcess* p : {&m_window}) {
            if (p->state() != QProcess::NotRunning) {
                p->kill();
                p->waitForFinished();
            }
        }
        run(QStringLiteral("xset"), {"s", "off"});
    }
    static void setPreference(const char* key, const QVariant& value)
    {
        ShotPreferences preferences;
        preferences.setValue(QLatin1String(key), value);
        preferences.sync();
    }
    // A window of one colour, from the test-window helper.
    void openWindow(const QRect& at, const QString& colour, const QString& title,
                    const QStringList& more = {})
    {
        m_window.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
                       QStringList{"--geometry",
                                   QStringLiteral("%1x%2+%3+%4")
                                       .arg(at.width())
                                       .arg(at.height())
                                       .arg(at.x())
                                       .arg(at.y()),
                                   "--color", colour, "--title", title}
                           << more);
        ASSERT_TRUE(m_window.waitForReadyRead(10000)) << "the test window did not open";
        ASSERT_TRUE(waitUntil([&] { return test::windowShown(QStringLiteral("^") + title + QStringLiteral("$")); }));
        QThread::msleep(300);
    }
    static void key(const QString& keys) { run(QStringLiteral("xdotool"), {"key", keys}); }
    // Opens the tray menu's "Record Window" submenu with the keyboard: the
    // item after the captures, Delay and Record Screen, its first entry (the
    // front-most window) active.
    bool openRecordWindowMenu()
    {
        if (!openTrayMenu()) {
            return false;
        }
        for (int i = 0; i < int(enumCount<CaptureMode>()) + 3; ++i) {
            key(QStringLiteral("Down"));
        }
        key(QStringLiteral("Right"));
        QThread::msleep(400);
        return true;
    }
    static void clickAt(QPoint p)
    {
        run(QStringLiteral("xdotool"),
            {"mousemove", QString::number(p.x()), QString::number(p.y()), "click", "1"});
    }
    // The control bar's button `fromRight` places from its right end (0: cancel).
    static QPoint controlButton(int fromRight)
    {
        const QRect bar = shownWindowGeometry(QStringLiteral("^Nubo Shot Recording$"));
        return {bar.right() - rightMargin - buttonWidth / 2 - fromRight * (buttonWidth + buttonSpacing),
                bar.center().y()};
    }
    // The path the log names once the movie is saved; empty when it never was.
    QString savedMovie(int timeoutMs = 20000)
    {
        if (!waitForLog(QStringLiteral("Recording saved to "), timeoutMs)) {
            return {};
        }
        const auto match = QRegularExpression(QStringLiteral("Recording saved to (.+\\.mp4)"))
                               .match(m_log);
        return match.captured(1);
    }
    QStringList moviesInFolder() const
    {
        return QDir(m_folder.path()).entryList({QStringLiteral("*.mp4")}, QDir::Files);
    }
    static QImage screen() { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }

    QTemporaryDir m_folder;
    QProcess m_window;
};

// Whether the X server's screen saver is on now.
bool screenSaverActive()
{
    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    const xcb_screen_t* root = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    auto* info = xcb_screensaver_query_info_reply(
        c, xcb_screensaver_query_info(c, root->root), nullptr);
    const bool on = info && info->state == XCB_SCREENSAVER_STATE_ON;
    free(info);
    xcb_disconnect(c);
    return on;
}

// Ctrl+Alt+R → drag an area → options → Return → countdown → control bar →
// pause → resume → stop: a movie of the framed size whose length leaves the
// pause out, the screen saver held off meanwhile, and "Recording saved".
TEST_F(RecordingFlow, AFramedAreaCountsDownPausesAndEndsInAMovieOfItsSize)
{
    ASSERT_NO_FATAL_FAILURE(openWindow(QRect(100, 80, 900, 600), QStringLiteral("3060c0"),
                                       QStringLiteral("Recorded Window")));
    run(QStringLiteral("xset"), {"s", "2", "2"}); // the screen saver would start after 2 s
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_TRUE(waitUntil([] { return !test::trayIconGeometry().isEmpty(); }));
    key(QStringLiteral("ctrl+alt+r"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording overlay shown"))) << m_log.toStdString();
    QThread::msleep(200);
    run(QStringLiteral("xdotool"), {"mousemove", "200", "150", "mousedown", "1", "mousemove", "500",
                                    "300", "mousemove", "840", "510"});
    QThread::msleep(200);
    saveArtifact(screen(), QStringLiteral("recording-overlay.png"));
    run(QStringLiteral("xdotool"), {"mouseup", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording options shown"))) << m_log.toStdString();
    QRect options;
    EXPECT_TRUE(waitUntil([&] {
        options = shownWindowGeometry(QStringLiteral("^Nubo Shot Recording Options$"));
        return !options.isEmpty();
    }));
    EXPECT_FALSE(options.intersects(QRect(200, 150, 640, 360))) << "the options cover the area";
    saveArtifact(screen(), QStringLiteral("recording-options.png"));

    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording countdown shown")));
    QThread::msleep(300);
    saveArtifact(screen(), QStringLiteral("recording-countdown.png"));
    EXPECT_FALSE(m_log.contains(QStringLiteral("Writing "))) << "recording before the countdown ended";
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording control bar shown"), 6000));
    QElapsedTimer running;
    running.start();
    QRect bar;
    ASSERT_TRUE(waitUntil([&] {
        bar = shownWindowGeometry(QStringLiteral("^Nubo Shot Recording$"));
        return !bar.isEmpty();
    })) << "no control bar";
    saveArtifact(screen(), QStringLiteral("recording-control-bar.png"));
    EXPECT_FALSE(bar.intersects(QRect(200, 150, 640, 360))) << "the control bar is in the area";
    QThread::msleep(2000);
    EXPECT_FALSE(screenSaverActive()) << "the screen saver started while recording";

    clickAt(controlButton(2)); // pause
    qint64 recorded = running.elapsed();
    QThread::msleep(2000);
    saveArtifact(screen(), QStringLiteral("recording-paused.png"));
    clickAt(controlButton(2)); // resume
    running.restart();
    QThread::msleep(1500);
    clickAt(controlButton(1)); // stop
    recorded += running.elapsed();
    const QString movie = savedMovie();
    ASSERT_FALSE(movie.isEmpty()) << m_log.toStdString();
    EXPECT_TRUE(movie.startsWith(m_folder.path()));
    EXPECT_TRUE(waitForLog(QStringLiteral("Screen saver released")));
    EXPECT_TRUE(waitUntil([&] { return screenSaverActive(); }, 8000))
        << "the screen saver stayed held after the recording";

    const test::DecodedMovie decoded = test::decodeMovie(movie, false);
    ASSERT_TRUE(decoded.opened) << decoded.error.toStdString();
    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    EXPECT_EQ(decoded.width, qRound(640 * scale));
    EXPECT_EQ(decoded.height, qRound(360 * scale));
    ASSERT_FALSE(decoded.times.isEmpty());
    // The last picture's time is the recording's length, the pause left out
    // (the movie ends at the last change on a still screen: never longer).
    EXPECT_LT(decoded.times.last(), recorded / 1000.0 + 0.3);
    EXPECT_GT(decoded.times.last(), recorded / 1000.0 - 2.0);
    EXPECT_TRUE(waitUntil([] {
        run(QStringLiteral("dunstctl"), {"close-all"});
        return run(QStringLiteral("dunstctl"), {"history"}).contains(QStringLiteral("Recording saved"));
    }, 5000)) << "no \"Recording saved\" notification";
}

// A click takes the whole display; without the countdown the recording
// starts at once; the control bar then sits inside the display and never
// shows in the movie; the shortcut stops it.
TEST_F(RecordingFlow, AWholeDisplayByClickNeverShowsTheControlBar)
{
    setPreference(keys::recordingCountdown, false);
    const QRect all = QGuiApplication::primaryScreen()->geometry();
    ASSERT_NO_FATAL_FAILURE(openWindow(all, QStringLiteral("f0e040"), QStringLiteral("Yellow"),
                                       {"--undecorated", "--state", "above"}));
    ASSERT_NO_FATAL_FAILURE(startTray());
    key(QStringLiteral("ctrl+alt+r"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording overlay shown")));
    QThread::msleep(200);
    clickAt(QPoint(700, 500));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording options shown")));
    QThread::msleep(300);
    key(QStringLiteral("KP_Enter"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording control bar shown"), 3000));
    EXPECT_FALSE(m_log.contains(QStringLiteral("Recording countdown shown")));
    QThread::msleep(300);
    const QRect bar = shownWindowGeometry(QStringLiteral("^Nubo Shot Recording$"));
    ASSERT_TRUE(all.contains(bar)) << "the bar is not on the recorded display";
    // Something to record: the pointer moves over the bar and around.
    for (int i = 0; i < 6; ++i) {
        run(QStringLiteral("xdotool"), {"mousemove", QString::number(bar.center().x() + i * 5),
                                        QString::number(bar.center().y())});
        QThread::msleep(200);
    }
    saveArtifact(screen(), QStringLiteral("recording-whole-display.png"));
    key(QStringLiteral("ctrl+alt+r"));
    const QString movie = savedMovie();
    ASSERT_FALSE(movie.isEmpty()) << m_log.toStdString();

    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    int pictures = 0, barSeen = 0;
    const test::DecodedMovie decoded =
        test::decodeMovie(movie, [&](const QImage& picture, double) {
            ++pictures;
            // The bar's dark glass, away from its edges and from the pointer
            // (drawn in), would be dark; the yellow window is under it.
            const QPoint probe((bar.left() + 6) * scale, (bar.top() + 6) * scale);
            barSeen += QColor(picture.pixel(probe)).lightness() < 100;
        });
    ASSERT_TRUE(decoded.opened) << decoded.error.toStdString();
    EXPECT_EQ(decoded.width, qRound(all.width() * scale));
    EXPECT_GT(pictures, 2);
    EXPECT_EQ(barSeen, 0) << "the control bar is in the movie";
}

// With the camera on, its round preview sits over the framed area where the
// bubble will be; the user drags it and turns the wheel over it; the movie
// has the bubble (mirrored, as the preview shows it) exactly there, moving
// while the screen is still, and never the preview window itself.
TEST_F(RecordingFlow, TheCameraPreviewIsMovedAndTheMovieHasTheBubbleThere)
{
    const QString stream = m_folder.filePath(QStringLiteral("camera.avi"));
    const QString written = test::writeCameraStream(stream, 150);
    ASSERT_TRUE(written.isEmpty()) << written.toStdString();
    setPreference(keys::recordingCountdown, false);
    setPreference(keys::recordingCamera, true);
    setPreference(keys::recordingAvatarCameraDeviceID, stream);
    ASSERT_NO_FATAL_FAILURE(openWindow(QRect(100, 80, 900, 600), QStringLiteral("f0e040"),
                                       QStringLiteral("Yellow"), {"--undecorated"}));
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_TRUE(waitUntil([] { return !test::trayIconGeometry().isEmpty(); }));
    key(QStringLiteral("ctrl+alt+r"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording overlay shown"))) << m_log.toStdString();
    QThread::msleep(200);
    run(QStringLiteral("xdotool"), {"mousemove", "200", "150", "mousedown", "1", "mousemove", "500",
                                    "300", "mousemove", "840", "510", "mouseup", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Camera preview shown"))) << m_log.toStdString();
    QThread::msleep(500);
    // A fifth of the area's smaller side across, near its bottom-left corner.
    const QRect first = shownWindowGeometry(QStringLiteral("^Nubo Shot Camera$"));
    EXPECT_EQ(first, QRect(211, 427, 72, 72));
    // Dragged up and right, then three notches of the wheel larger.
    const QPoint grab = first.center();
    run(QStringLiteral("xdotool"), {"mousemove", QString::number(grab.x()), QString::number(grab.y()),
                                    "mousedown", "1", "mousemove", QString::number(grab.x() + 100),
                                    QString::number(grab.y() - 50), "mousemove",
                                    QString::number(grab.x() + 200), QString::number(grab.y() - 150),
                                    "mouseup", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Camera bubble moved to 411,277, 72 across"))) << m_log.toStdString();
    for (int i = 0; i < 3; ++i) {
        run(QStringLiteral("xdotool"), {"click", "4"});
        QThread::msleep(60);
    }
    ASSERT_TRUE(waitForLog(QStringLiteral("Camera bubble moved to 399,265, 96 across"))) << m_log.toStdString();
    QThread::msleep(300);
    const QRect bubble = shownWindowGeometry(QStringLiteral("^Nubo Shot Camera$"));
    EXPECT_EQ(bubble, QRect(399, 265, 96, 96));
    saveArtifact(screen(), QStringLiteral("recording-camera-preview.png"));
    run(QStringLiteral("xdotool"), {"mousemove", "950", "650"}); // away, and still
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording control bar shown"), 3000)) << m_log.toStdString();
    QThread::msleep(2500);
    saveArtifact(screen(), QStringLiteral("recording-camera.png"));
    key(QStringLiteral("ctrl+alt+r"));
    const QString movie = savedMovie();
    ASSERT_FALSE(movie.isEmpty()) << m_log.toStdString();
    EXPECT_FALSE(shownWindowGeometry(QStringLiteral("^Nubo Shot Camera$")).isValid()) << "the preview stayed";
    {
        ShotPreferences preferences;
        // Where it was left, in 0…1 of the 640 × 360 area, for the next recording.
        const QRectF stored = recordingCameraFrame(preferences, QSizeF(640, 360));
        EXPECT_NEAR(stored.x(), 199 / 640.0, 1e-5);
        EXPECT_NEAR(stored.y(), 115 / 360.0, 1e-5);
        EXPECT_NEAR(stored.width(), 96 / 640.0, 1e-5);
        EXPECT_NEAR(stored.height(), 96 / 360.0, 1e-5);
    }

    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    const QRect inMovie(QPointF((bubble.topLeft() - QPoint(200, 150)) * scale).toPoint(),
                        QSizeF(bubble.size() * scale).toSize());
    int pictures = 0, withBubble = 0, previewSeen = 0;
    const test::DecodedMovie decoded = test::decodeMovie(movie, [&](const QImage& picture, double) {
        ++pictures;
        const int row = inMovie.center().y();
        const int reach = int(inMovie.width() * 0.38);
        const QColor centre = picture.pixel(inMovie.center());
        const QColor left = picture.pixel(inMovie.center().x() - reach, row);
        const QColor right = picture.pixel(inMovie.center().x() + reach, row);
        withBubble += centre.green() > 160 && centre.red() < 90 && left.blue() > 160 &&
                      right.red() > 160;
        // The preview's blue resize grip, on its rim at the lower right.
        const QPoint grip = inMovie.center() + QPoint(int(inMovie.width() / 2 * 0.7071) - 3,
                                                      int(inMovie.height() / 2 * 0.7071) - 3);
        const QColor g = picture.pixel(grip);
        previewSeen += g.blue() > 180 && g.red() < 90;
    });
    ASSERT_TRUE(decoded.opened) << decoded.error.toStdString();
    EXPECT_GE(pictures, 30) << "the bubble did not move on the still screen";
    EXPECT_GE(withBubble, pictures - 2);
    EXPECT_EQ(previewSeen, 0) << "the preview window is in the movie";
}

// Escape during the countdown: nothing is recorded, nothing is left.
TEST_F(RecordingFlow, EscapeDuringTheCountdownLeavesNothing)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    key(QStringLiteral("ctrl+alt+r"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording overlay shown")));
    QThread::msleep(200);
    run(QStringLiteral("xdotool"), {"mousemove", "300", "300", "mousedown", "1", "mousemove", "500",
                                    "400", "mousemove", "700", "600", "mouseup", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording options shown")));
    QThread::msleep(300);
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording countdown shown")));
    QThread::msleep(600);
    key(QStringLiteral("Escape"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording cancelled before it started")))
        << m_log.toStdString();
    QThread::msleep(3500); // past the countdown's end
    EXPECT_FALSE(m_log.contains(QStringLiteral("Writing "))) << m_log.toStdString();
    EXPECT_TRUE(moviesInFolder().isEmpty());
    EXPECT_TRUE(shownWindowGeometry(QStringLiteral("^Nubo Shot Countdown$")).isEmpty());
    EXPECT_TRUE(QDir(qEnvironmentVariable("HOME") + QStringLiteral("/.local/state/NuboShot/recordings"))
                    .entryList(QDir::Files)
                    .isEmpty())
        << "a recording marker was left";
    // The keys are everyone's again: Escape no longer belongs to us.
    EXPECT_FALSE(m_log.contains(QStringLiteral("Recording failed")));
}

// "Record Window" lists the windows when the menu opens; the one chosen is
// what the movie shows.
TEST_F(RecordingFlow, RecordWindowFromTheMenuRecordsThatWindow)
{
    setPreference(keys::recordingCountdown, false);
    ASSERT_NO_FATAL_FAILURE(openWindow(QRect(300, 200, 420, 260), QStringLiteral("20a040"),
                                       QStringLiteral("Green Notes")));
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_TRUE(openRecordWindowMenu());
    saveArtifact(screen(), QStringLiteral("recording-window-menu.png"));
    key(QStringLiteral("Return")); // the front-most window: ours
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording options shown"))) << m_log.toStdString();
    QThread::msleep(300);
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording control bar shown"), 3000));
    QThread::msleep(1500);
    key(QStringLiteral("ctrl+alt+r"));
    const QString movie = savedMovie();
    ASSERT_FALSE(movie.isEmpty()) << m_log.toStdString();
    const test::DecodedMovie decoded = test::decodeMovie(movie);
    ASSERT_TRUE(decoded.opened) << decoded.error.toStdString();
    ASSERT_FALSE(decoded.frames.isEmpty());
    const double scale = QGuiApplication::primaryScreen()->devicePixelRatio();
    // The window with its frame: at least the client's size, a border more at most.
    EXPECT_GE(decoded.width, qRound(420 * scale));
    EXPECT_LE(decoded.width, qRound(420 * scale) + 40);
    EXPECT_GE(decoded.height, qRound(260 * scale));
    EXPECT_LE(decoded.height, qRound(260 * scale) + 60);
    const QColor middle = decoded.frames.last().pixelColor(decoded.width / 2, decoded.height / 2);
    // (through 4:2:0 video in limited range: near, not exact)
    EXPECT_NEAR(middle.red(), 0x20, 24);
    EXPECT_NEAR(middle.green(), 0xa0, 24);
    EXPECT_NEAR(middle.blue(), 0x40, 24);
}

// A window that closes while its options are chosen: the recording cannot
// start, and an alert says so by its name; nothing is left.
TEST_F(RecordingFlow, AWindowGoneBeforeStartIsAClearAlert)
{
    setPreference(keys::recordingCountdown, false);
    ASSERT_NO_FATAL_FAILURE(openWindow(QRect(300, 200, 420, 260), QStringLiteral("a02020"),
                                       QStringLiteral("Short Lived")));
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_TRUE(openRecordWindowMenu());
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording options shown"))) << m_log.toStdString();
    m_window.kill();
    m_window.waitForFinished();
    QThread::msleep(500);
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitUntil([] {
        return !shownWindowGeometry(QStringLiteral("^Could Not Record Screen$")).isEmpty();
    })) << m_log.toStdString();
    saveArtifact(screen(), QStringLiteral("recording-failed-alert.png"));
    EXPECT_TRUE(waitForLog(QStringLiteral("Recording failed: No screen content is available. (")))
        << "the alert does not say what is missing: " << m_log.toStdString();
    EXPECT_TRUE(moviesInFolder().isEmpty());
    key(QStringLiteral("Return")); // OK
    EXPECT_TRUE(waitUntil([] {
        return shownWindowGeometry(QStringLiteral("^Could Not Record Screen$")).isEmpty();
    }));
    // The flow is ready again: the shortcut starts a new one.
    key(QStringLiteral("ctrl+alt+r"));
    EXPECT_TRUE(waitForLog(QStringLiteral("Recording overlay shown")));
    key(QStringLiteral("Escape"));
}

// Quitting while recording asks first; "Stop and Quit" keeps the movie.
TEST_F(RecordingFlow, QuittingWhileRecordingAsksAndKeepsTheMovie)
{
    setPreference(keys::recordingCountdown, false);
    ASSERT_NO_FATAL_FAILURE(startTray());
    key(QStringLiteral("ctrl+alt+r"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording overlay shown")));
    QThread::msleep(200);
    key(QStringLiteral("f"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording options shown")));
    QThread::msleep(300);
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitForLog(QStringLiteral("Recording control bar shown"), 3000));
    QThread::msleep(1000);
    ASSERT_TRUE(openTrayMenu());
    key(QStringLiteral("Up")); // Quit Nubo Shot, the last item
    key(QStringLiteral("Return"));
    ASSERT_TRUE(waitUntil([] {
        const QRect box = shownWindowGeometry(QStringLiteral("^Nubo Shot$"));
        return box.width() > 150;
    }, 5000)) << "no question";
    QThread::msleep(500);
    saveArtifact(screen(), QStringLiteral("recording-quit-question.png"));
    EXPECT_EQ(m_app.state(), QProcess::Running) << "quit without asking";
    EXPECT_TRUE(moviesInFolder().size() == 1);
    key(QStringLiteral("Return")); // Stop and Quit
    const bool quit = m_app.waitForFinished(20000);
    m_log += QString::fromUtf8(m_app.readAllStandardError());
    ASSERT_TRUE(quit) << "did not quit: " << m_log.toStdString();
    EXPECT_EQ(m_app.exitCode(), 0);
    m_log += QString::fromUtf8(m_app.readAllStandardError());
    EXPECT_TRUE(m_log.contains(QStringLiteral("Recording saved to "))) << m_log.toStdString();
    const QStringList movies = moviesInFolder();
    ASSERT_EQ(movies.size(), 1);
    const test::DecodedMovie decoded =
        test::decodeMovie(QDir(m_folder.path()).filePath(movies.first()), false);
    ASSERT_TRUE(decoded.opened) << decoded.error.toStdString();
    EXPECT_TRUE(decoded.moovBeforeMdat) << "not finished: the index is not in front";
}

} // namespace
} // namespace nubo
