// Screen recording end to end: `nuboshot record` in the private X session
// records a window that paints its own frame counter, and the movie is
// decoded with FFmpeg to see which paints it holds, in which order, at what
// size and times.

#include "capture/CapturePlatformLoader.h"
#include "core/Settings.h"
#include "recording/RecordingSession.h"
#include "support/CameraStream.h"
#include "support/MovieDecoder.h"
#include "support/Process.h"
#include "support/TrayFixture.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QSet>
#include <QThread>

#include <cmath>
#include <csignal>
#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::run;
using test::waitUntil;

class Recorder : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("DISPLAY")) << "runs in the private X session";
    }
    void TearDown() override
    {
        for (QProcess* p : {&m_window, &m_recorder}) {
            p->kill();
            p->waitForFinished();
        }
    }
    // A counter window; its top-left corner on screen (and its id).
    QPoint openCounter(const QRect& at, bool still = false)
    {
        QStringList arguments{"--at", QStringLiteral("%1x%2+%3+%4")
                                          .arg(at.width())
                                          .arg(at.height())
                                          .arg(at.x())
                                          .arg(at.y())};
        if (still) {
            arguments << "--still";
        }
        m_window.start(QStringLiteral(NUBOSHOT_TEST_COUNTER_WINDOW), arguments);
        if (!m_window.waitForReadyRead(10000)) {
            return {-1, -1};
        }
        const auto ready = QRegularExpression(QStringLiteral("ready (\\d+) (\\d+) (\\d+)"))
                               .match(QString::fromUtf8(m_window.readAllStandardOutput()));
        m_windowID = ready.captured(3);
        return {ready.captured(1).toInt(), ready.captured(2).toInt()};
    }
    // Starts `nuboshot record ...` into m_dir and waits until it records.
    bool startRecording(const QStringList& arguments)
    {
        return test::startRecordCommand(m_recorder, arguments, m_dir.path(), m_log);
    }
    // Waits for the command's end; the movie's path it printed.
    QString finished()
    {
        return test::finishRecordCommand(m_recorder, m_log, 30000);
    }

    QTemporaryDir m_dir;
    QProcess m_window, m_recorder;
    QString m_windowID;
    QString m_log;
};

QList<int> counters(const test::DecodedMovie& movie)
{
    QList<int> values;
    for (const QImage& frame : movie.frames) {
        values.append(test::readCounter(frame, QPoint(16, 16)));
    }
    return values;
}

TEST_F(Recorder, AnAreaHoldsEveryPaintItCaughtInOrderAtItsEvenSize)
{
    const QPoint at = openCounter(QRect(200, 150, 1001, 701));
    ASSERT_GE(at.x(), 0);
    const QString area = QStringLiteral("%1,%2,1001,701").arg(at.x()).arg(at.y());
    ASSERT_TRUE(startRecording({"area", area, "--duration", "3", "--no-cursor"})) << m_log.toStdString();
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    EXPECT_TRUE(QFileInfo(file).fileName().startsWith(QStringLiteral("Nubo Shot Recording ")));
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(1000, 700));
    EXPECT_TRUE(movie.moovBeforeMdat);
    const QList<int> seen = counters(movie);
    ASSERT_GE(seen.size(), 60);
    for (qsizetype i = 1; i < seen.size() - 1; ++i) { // the last holds the end
        EXPECT_GT(seen[i], seen[i - 1]) << "frame " << i << " out of order";
    }
    // About duration × 30 frames, and the movie lasts as long as the recording.
    const double duration = movie.times.last() + 1 / 30.0;
    EXPECT_NEAR(duration, 3.0, 0.25);
    EXPECT_LE(std::abs(seen.size() - duration * 30), 2.0) << seen.size() << " frames in " << duration;
}

TEST_F(Recorder, APauseLeavesNoGapAndNothingPaintedDuringIt)
{
    const QPoint at = openCounter(QRect(100, 100, 400, 300));
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"area", QStringLiteral("%1,%2,400,300").arg(at.x()).arg(at.y()),
                                "--no-cursor"}));
    QThread::msleep(1000);
    ::kill(pid_t(m_recorder.processId()), SIGUSR1); // pause
    QThread::msleep(2000);
    ::kill(pid_t(m_recorder.processId()), SIGUSR1); // resume
    QThread::msleep(1000);
    ::kill(pid_t(m_recorder.processId()), SIGINT); // stop, cleanly
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened);
    // Two seconds recorded out of four; the paints of the paused two are
    // missing (a jump of about 2 s × the window's paint rate).
    EXPECT_NEAR(movie.times.last() + 1 / 30.0, 2.0, 0.3);
    const QList<int> seen = counters(movie);
    int widest = 0;
    for (qsizetype i = 1; i < seen.size() - 1; ++i) {
        widest = std::max(widest, seen[i] - seen[i - 1]);
        EXPECT_GT(seen[i], seen[i - 1]);
    }
    int perFrame = (seen[seen.size() - 2] - seen[0] - widest) / int(seen.size() - 3);
    EXPECT_GT(widest, 20 * std::max(1, perFrame)) << "no gap of the pause in the paints";
}

TEST_F(Recorder, AStillScreenCostsAlmostNoFramesAndStillLastsTheWholeTime)
{
    const QPoint at = openCounter(QRect(300, 300, 300, 200), true);
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"area", QStringLiteral("%1,%2,300,200").arg(at.x()).arg(at.y()),
                                "--duration", "2", "--no-cursor"}));
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file);
    EXPECT_LE(movie.frames.size(), 3) << "a still screen gave new frames";
    EXPECT_NEAR(movie.times.last() + 1 / 30.0, 2.0, 0.25);
    const auto ticks = QRegularExpression(QStringLiteral("(\\d+) ticks without change")).match(m_log);
    ASSERT_TRUE(ticks.hasMatch()) << m_log.toStdString();
    EXPECT_GE(ticks.captured(1).toInt(), 50);
}

// The camera bubble (fed from an MJPEG stream file, as a camera sends its
// pictures) sits where the preferences put it, mirrored, and keeps moving
// while the screen under it is still.
TEST_F(Recorder, TheCameraBubbleSitsWhereItWasPutAndMovesOnAStillScreen)
{
    const QString stream = m_dir.filePath(QStringLiteral("camera.avi"));
    // Five seconds, the picture's number in its middle (inside the bubble).
    const QString written = test::writeCameraStream(stream, 150, QSize(640, 360), 30, QPoint(176, 168));
    ASSERT_TRUE(written.isEmpty()) << written.toStdString();
    {
        ShotPreferences preferences;
        preferences.setValue(keys::recordingAvatarCameraDeviceID, stream);
        // A 360-pixel bubble at (64, 48) of a 640 × 480 area.
        preferences.setValue(keys::recordingCameraFrame, QStringLiteral("0.1,0.1,0.5625,0.75"));
    }
    const QPoint at = openCounter(QRect(300, 200, 640, 480), true);
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"area", QStringLiteral("%1,%2,640,480").arg(at.x()).arg(at.y()),
                                "--duration", "3", "--no-cursor", "--camera", "-o",
                                m_dir.filePath(QStringLiteral("movies"))}))
        << m_log.toStdString();
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(640, 480));
    // The still screen alone would give a frame or two; the bubble keeps the movie going.
    EXPECT_GE(movie.frames.size(), 60) << m_log.toStdString();
    const auto counts = QRegularExpression(QStringLiteral("(\\d+) frames with the camera, (\\d+) by the camera alone"))
                            .match(m_log);
    ASSERT_TRUE(counts.hasMatch()) << m_log.toStdString();
    EXPECT_GE(counts.captured(2).toInt(), 50);

    const QRect square(64, 48, 360, 360);
    const QRgb screenCorner = movie.frames.first().pixel(square.topLeft());
    int previous = -1, increasing = 0;
    for (qsizetype i = 1; i < movie.frames.size() - 1; ++i) {
        const QImage& frame = movie.frames[i];
        const int row = square.top() + 100; // above the camera's counter
        const QRgb centre = frame.pixel(square.center().x(), row);
        EXPECT_GT(qGreen(centre), 160) << "frame " << i;
        EXPECT_LT(qRed(centre), 90) << "frame " << i;
        // Mirrored: the camera's blue band on the left, its red on the right.
        EXPECT_GT(qBlue(frame.pixel(square.left() + 40, row)), 160) << i;
        EXPECT_GT(qRed(frame.pixel(square.right() - 40, row)), 160) << i;
        // Corners of the bubble's square: the still screen.
        EXPECT_EQ(frame.pixel(square.topLeft()), screenCorner) << i;
        // The camera's own count goes on, read from the bubble turned back.
        const QImage bubble = frame.copy(square).mirrored(true, false);
        const int counter = test::readCounter(bubble, QPoint(36, 168));
        increasing += counter > previous;
        previous = counter;
    }
    EXPECT_GE(increasing, movie.frames.size() - 4) << "the bubble stood still";
}

TEST_F(Recorder, AreasAreClippedToTheirDisplayAndRefusedWhollyOffIt)
{
    // 1920 × 1080: an area running off the right and bottom edges.
    ASSERT_TRUE(startRecording({"area", "1800,1000,400,300", "--duration", "0.5"}));
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file, false);
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(120, 80));

    const auto off = test::runNuboShot({"record", "area", "3000,3000,100,100", "-o", m_dir.path(),
                                        "--duration", "1"});
    EXPECT_EQ(off.exitCode, 1);
    EXPECT_TRUE(off.err.contains(QStringLiteral("No screen content is available."))) << off.err.toStdString();
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Files).size(), 1) << "a file was left";
}

TEST_F(Recorder, AKilledRecordingLeavesAPlayableMovieThatTheNextStartRecovers)
{
    const QPoint at = openCounter(QRect(100, 100, 320, 240));
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"area", QStringLiteral("%1,%2,320,240").arg(at.x()).arg(at.y()),
                                "--no-cursor"}));
    QThread::msleep(5000);
    m_recorder.kill(); // SIGKILL: no chance to finish anything
    m_recorder.waitForFinished();
    const QStringList files = QDir(m_dir.path()).entryList({"*.mp4"}, QDir::Files);
    ASSERT_EQ(files.size(), 1);
    const test::DecodedMovie movie = test::decodeMovie(m_dir.filePath(files.first()), false);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    // At most the last two seconds are missing.
    EXPECT_GE(movie.times.last(), 5.0 - 2.0 - 0.5);
    EXPECT_TRUE(movie.fragmented);

    // The next start of the tray application finishes it, and says so.
    QProcess tray;
    tray.start(QStringLiteral(NUBOSHOT_BINARY), {});
    QString said;
    EXPECT_TRUE(waitUntil([&] {
        tray.waitForReadyRead(50);
        said += QString::fromUtf8(tray.readAllStandardError());
        return said.contains(QStringLiteral("Recovered an interrupted recording"));
    })) << said.toStdString();
    tray.terminate();
    tray.waitForFinished();
    const test::DecodedMovie recovered = test::decodeMovie(m_dir.filePath(files.first()), false);
    EXPECT_TRUE(recovered.moovBeforeMdat && !recovered.fragmented) << "not finalised";
    EXPECT_GE(recovered.times.size() + 1, movie.times.size());
    EXPECT_TRUE(QDir(m_dir.path()).entryList(QDir::Files | QDir::Hidden).size() == 1)
        << "something was left beside the movie";
}

TEST_F(Recorder, AWindowIsRecordedFromItsOwnPixelsEvenWhenCovered)
{
    const QPoint at = openCounter(QRect(200, 200, 400, 300));
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"window", m_windowID, "--duration", "2", "--no-cursor"}));
    QThread::msleep(500);
    QProcess cover; // a window over it, and back again
    cover.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
                {"--geometry", "500x400+150+150", "--color", "ff0000", "--undecorated"});
    cover.waitForReadyRead(5000);
    const QString file = finished();
    cover.kill();
    cover.waitForFinished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened);
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(400, 300));
    // The window's own paints in order; a window is taken at every tick, so
    // a paint that came late is taken twice.
    const QList<int> seen = counters(movie);
    for (qsizetype i = 1; i < seen.size() - 1; ++i) {
        EXPECT_GE(seen[i], seen[i - 1]) << "frame " << i << ": not the window's own paint";
    }
    EXPECT_GE(QSet<int>(seen.begin(), seen.end()).size(), seen.size() / 2);
    // Never the red cover.
    for (const QImage& frame : movie.frames) {
        EXPECT_LT(frame.pixelColor(200, 200).red(), 150);
    }
}

// A window that closes while it is recorded ends the recording, and what was
// recorded until then is kept and named, not thrown away.
TEST_F(Recorder, AWindowClosedWhileRecordedKeepsWhatWasRecorded)
{
    const QPoint at = openCounter(QRect(200, 200, 400, 300));
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"window", m_windowID, "--no-cursor"}));
    QThread::msleep(1500); // recorded for a while
    m_window.kill();
    m_window.waitForFinished();
    finished();
    EXPECT_EQ(m_recorder.exitCode(), 1) << m_log.toStdString();
    const auto kept = QRegularExpression(QStringLiteral("What was recorded until then is in “([^”]+)”"))
                          .match(m_log);
    ASSERT_TRUE(kept.hasMatch()) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(kept.captured(1));
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(400, 300));
    EXPECT_GE(movie.frames.size(), 20) << "the recorded second and a half";
    const QList<int> seen = counters(movie);
    for (qsizetype i = 1; i < seen.size() - 1; ++i) {
        EXPECT_GE(seen[i], seen[i - 1]) << "frame " << i;
    }
}

TEST_F(Recorder, WithTheTrayRunningTheTrayRecordsOverTheBus)
{
    const QPoint at = openCounter(QRect(100, 100, 400, 300));
    ASSERT_GE(at.x(), 0);
    QProcess tray;
    tray.start(QStringLiteral(NUBOSHOT_BINARY), {});
    QString trayLog;
    const auto trayWrote = [&](const QString& text) {
        return waitUntil([&] {
            tray.waitForReadyRead(50);
            trayLog += QString::fromUtf8(tray.readAllStandardError());
            return trayLog.contains(text);
        });
    };
    ASSERT_TRUE(trayWrote(QStringLiteral("Nubo Shot started"))) << trayLog.toStdString();
    m_recorder.start(QStringLiteral(NUBOSHOT_BINARY),
                     {"record", "area", QStringLiteral("%1,%2,400,300").arg(at.x()).arg(at.y()),
                      "--no-cursor", "-o", m_dir.path()});
    ASSERT_TRUE(trayWrote(QStringLiteral("Writing 400x300"))) << "the tray is not the one recording";
    QThread::msleep(800);
    ::kill(pid_t(m_recorder.processId()), SIGUSR1); // pause, over the bus
    QThread::msleep(1000);
    ::kill(pid_t(m_recorder.processId()), SIGUSR1);
    QThread::msleep(800);
    ::kill(pid_t(m_recorder.processId()), SIGINT);
    const QString file = finished();
    tray.terminate();
    tray.waitForFinished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString() << trayLog.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file, false);
    ASSERT_TRUE(movie.opened) << file.toStdString();
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(400, 300));
    EXPECT_NEAR(movie.times.last() + 1 / 30.0, 1.6, 0.35) << "the pause was not taken out";

    // Without a running tray a bad target is refused by the command itself.
    const auto refused = test::runNuboShot({"record", "window", "0x7", "-o", m_dir.path()});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.contains(QStringLiteral("There is no window 0x7 to record.")))
        << refused.err.toStdString();
}

TEST_F(Recorder, ClicksAreHighlightedWhenAsked)
{
    const QPoint at = openCounter(QRect(300, 300, 400, 300), true);
    ASSERT_GE(at.x(), 0);
    ASSERT_TRUE(startRecording({"area", QStringLiteral("%1,%2,400,300").arg(at.x()).arg(at.y()),
                                "--duration", "2", "--highlight-clicks"}));
    const QPoint click = at + QPoint(200, 180);
    run(QStringLiteral("xdotool"),
        {"mousemove", QString::number(click.x()), QString::number(click.y()), "click", "1"});
    const QString file = finished();
    ASSERT_EQ(m_recorder.exitCode(), 0) << m_log.toStdString();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened);
    // Somewhere in the movie a ring of amber around the click, on the blue.
    int best = 0;
    for (const QImage& frame : movie.frames) {
        for (const int radius : {16, 20, 24, 28}) {
            int amber = 0;
            for (int k = 0; k < 8; ++k) {
                const double a = k * M_PI / 4;
                const QColor c = frame.pixelColor(200 + int(radius * std::cos(a)),
                                                  180 + int(radius * std::sin(a)));
                amber += c.red() > 170 && c.green() > 120 && c.blue() < 110;
            }
            best = std::max(best, amber);
        }
    }
    EXPECT_GE(best, 6) << "no ring around the click in " << movie.frames.size() << " frames";
    EXPECT_GT(movie.frames.size(), 3) << "the growing ring gave no frames of its own";
}

TEST_F(Recorder, EveryTransitionAndEveryRefusedRequest)
{
    const QPoint at = openCounter(QRect(100, 100, 320, 240));
    ASSERT_GE(at.x(), 0);
    const auto platform = CapturePlatformLoader::load();
    std::unique_ptr<ScreenRecording> recorder = RecordingSession::forPlatform(*platform);
    ASSERT_TRUE(recorder);
    QList<RecordingState> seen;
    recorder->onStateChange = [&](const RecordingState& state) {
        if (!state.is<RecordingState::Recording>() || seen.isEmpty() ||
            !seen.last().is<RecordingState::Recording>()) {
            seen.append(state); // elapsed-time ticks aside
        }
    };
    const auto refused = [&](const std::function<void()>& request) {
        const RecordingState before = recorder->state();
        try {
            request();
            return false;
        } catch (const RecordingError& error) {
            return error.code() == RecordingError::Code::invalidState && recorder->state() == before;
        }
    };
    const auto settleUntil = [&](const std::function<bool()>& condition) {
        const QDeadlineTimer deadline(15000);
        while (!condition() && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        return condition();
    };
    const auto recordFor = [](int ms) {
        const QDeadlineTimer deadline(ms);
        while (!deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
    };
    EXPECT_TRUE(recorder->state().is<RecordingState::Idle>());
    EXPECT_TRUE(refused([&] { recorder->pause(); }));
    EXPECT_TRUE(refused([&] { recorder->resume(); }));
    EXPECT_TRUE(refused([&] { recorder->stop(); }));

    const QList<CaptureDisplay> displays = platform->capturer()->displays();
    ASSERT_FALSE(displays.isEmpty());
    const CaptureDisplay display = displays.first();
    RecordingOptions options;
    options.showsCursor = false;
    // Validation comes first and changes nothing.
    RecordingOptions hevc = options;
    hevc.codec = RecordingCodec::hevc;
    try {
        recorder->start({RecordingTarget::Area{display, QRectF(100, 100, 320, 240)}}, hevc, m_dir.path());
        ADD_FAILURE() << "HEVC without a hardware encoder was taken";
    } catch (const RecordingError& error) {
        EXPECT_EQ(error.message(), QStringLiteral("The selected recording codec is unavailable."));
    }
    EXPECT_TRUE(seen.isEmpty());
    // An area wholly off its display: starting, then failed.
    EXPECT_THROW(recorder->start({RecordingTarget::Area{display, QRectF(5000, 5000, 10, 10)}},
                                 options, m_dir.path()),
                 CaptureError);
    ASSERT_EQ(seen.size(), 2);
    EXPECT_TRUE(seen[0].is<RecordingState::Starting>());
    EXPECT_EQ(seen[1], RecordingState{RecordingState::Failed{QStringLiteral("No screen content is available.")}});

    // A recording from a failed recorder: every step of its life.
    seen.clear();
    const RecordingTarget area{RecordingTarget::Area{display, QRectF(at, QSizeF(320, 240))}};
    recorder->start(area, options, m_dir.path());
    EXPECT_TRUE(recorder->state().is<RecordingState::Recording>());
    EXPECT_TRUE(refused([&] { recorder->start(area, options, m_dir.path()); }));
    EXPECT_TRUE(refused([&] { recorder->resume(); }));
    recordFor(500);
    recorder->pause();
    EXPECT_TRUE(recorder->state().is<RecordingState::Paused>());
    EXPECT_TRUE(refused([&] { recorder->pause(); }));
    recorder->resume();
    recorder->stop();
    EXPECT_TRUE(recorder->state().is<RecordingState::Finishing>());
    EXPECT_TRUE(refused([&] { recorder->stop(); }));
    ASSERT_TRUE(settleUntil([&] { return recorder->state().is<RecordingState::Finished>(); }))
        << recorder->state().describe().toStdString();
    const QString file = std::get<RecordingState::Finished>(recorder->state().state).file;
    EXPECT_TRUE(QFileInfo::exists(file));
    QStringList names;
    for (const RecordingState& state : seen) {
        names << state.describe().section(QLatin1Char(' '), 0, 0).remove(QLatin1Char(':'));
    }
    EXPECT_EQ(names.join(u','), QStringLiteral("starting,recording,paused,recording,finishing,finished"));
    EXPECT_TRUE(refused([&] { recorder->pause(); }));

    // Cancel: back to idle, and the movie is gone.
    recorder->start(area, options, m_dir.path());
    recordFor(500);
    recorder->cancel();
    EXPECT_TRUE(recorder->state().is<RecordingState::Idle>());
    EXPECT_EQ(QDir(m_dir.path()).entryList({"*.mp4"}, QDir::Files), QStringList{QFileInfo(file).fileName()});
}

} // namespace
} // namespace nubo
