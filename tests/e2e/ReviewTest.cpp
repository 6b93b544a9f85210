// The review window as a user drives it: keys to step, split and cut, a
// blur region dragged over the picture, export, and the discard question;
// the exported movie decoded by FFmpeg.

#include "core/Settings.h"
#include "support/CounterMovie.h"
#include "support/MovieDecoder.h"
#include "support/Process.h"
#include "support/RenderFixtures.h"
#include "support/TrayFixture.h"

#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>
#include <QUrl>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::run;
using test::waitUntil;

class Review : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        QDir(m_dir.path()).mkdir(QStringLiteral("out"));
        ShotPreferences preferences;
        preferences.setValue(keys::recordingFolder, m_dir.filePath("out"));
        preferences.sync();
        m_movie = m_dir.filePath("movie.mp4");
        ASSERT_EQ(test::writeCounterMovie(m_movie), QString());
        m_app.setProcessChannelMode(QProcess::MergedChannels);
        m_app.start(QStringLiteral(NUBOSHOT_BINARY), {"review", m_movie});
        ASSERT_TRUE(waitForLog(QStringLiteral("Review picture at"))) << m_log.toStdString();
        const auto match = QRegularExpression(QStringLiteral("Review picture at (\\d+),(\\d+), (\\d+)x(\\d+); "
                                                             "timeline from (\\d+) to (\\d+) at (\\d+)"))
                               .match(m_log);
        ASSERT_TRUE(match.hasMatch());
        m_picture = QRect(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
                          match.captured(4).toInt());
        m_timelineFrom = match.captured(5).toInt();
        m_timelineTo = match.captured(6).toInt();
        m_timelineY = match.captured(7).toInt();
    }
    void TearDown() override
    {
        if (m_app.state() != QProcess::NotRunning) {
            m_app.kill();
            m_app.waitForFinished();
        }
    }
    bool waitForLog(const QString& text, int timeoutMs = 10000)
    {
        return waitUntil([&] {
            m_app.waitForReadyRead(50);
            m_log += QString::fromUtf8(m_app.readAll());
            return m_log.contains(text);
        }, timeoutMs);
    }
    static void keys(const QString& key, int times)
    {
        QStringList arguments{"key", "--delay", "15"};
        for (int i = 0; i < times; ++i) {
            arguments << key;
        }
        run(QStringLiteral("xdotool"), arguments);
    }
    QPoint onPicture(double x, double y) const
    {
        return {m_picture.x() + int(x * m_picture.width()), m_picture.y() + int(y * m_picture.height())};
    }
    static void drag(QPoint from, QPoint to)
    {
        run(QStringLiteral("xdotool"), {"mousemove", QString::number(from.x()), QString::number(from.y()), "mousedown",
                                        "1", "mousemove", QString::number((from.x() + to.x()) / 2),
                                        QString::number((from.y() + to.y()) / 2), "mousemove", QString::number(to.x()),
                                        QString::number(to.y()), "mouseup", "1"});
    }

    // The region over the right half's middle is pixelated on screen: the
    // grid's thin lines are gone inside it, still there beside it.
    static QImage screen() { return QGuiApplication::primaryScreen()->grabWindow(0).toImage(); }
    void expectPixelatedOnScreen(const QImage& screen) const
    {
        auto lines = [&](QRect area) {
            int bright = 0;
            for (int y = area.top(); y <= area.bottom(); ++y) {
                for (int x = area.left(); x <= area.right(); ++x) {
                    bright += qGreen(screen.pixel(x, y)) > 180;
                }
            }
            return bright;
        };
        const QRect inside(onPicture(0.53, 0.3), onPicture(0.72, 0.7));
        const QRect beside(onPicture(0.25, 0.3), onPicture(0.44, 0.7));
        EXPECT_GT(lines(beside), 200);
        EXPECT_LT(lines(inside), lines(beside) / 10);
    }

    QTemporaryDir m_dir;
    QString m_movie;
    QProcess m_app;
    QString m_log;
    QRect m_picture;
    int m_timelineFrom = 0, m_timelineTo = 0, m_timelineY = 0;
};

TEST_F(Review, SplitCutBlurAndExportAsAUserDoes)
{
    // Frame by frame to 2 s and split; to 3 s and split; back into the
    // segment between and cut it out.
    keys(QStringLiteral("Right"), 60);
    keys(QStringLiteral("s"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Split at 2 s"))) << m_log.toStdString();
    keys(QStringLiteral("Right"), 30);
    keys(QStringLiteral("s"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Split at 3 s"))) << m_log.toStdString();
    keys(QStringLiteral("Left"), 15);
    keys(QStringLiteral("Delete"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Removed 2 s to 3 s"))) << m_log.toStdString();

    // The playhead is now at 3 s: a blur region over the right half's
    // middle, for three seconds from there.
    keys(QStringLiteral("b"), 1);
    drag(onPicture(0.5, 0.25), onPicture(0.75, 0.75));
    ASSERT_TRUE(waitForLog(QStringLiteral("Blur 1 added at 3 s"))) << m_log.toStdString();
    // Scrub to 4 s on the timeline: the region is live there.
    const int x4 = m_timelineFrom + (m_timelineTo - m_timelineFrom) * 4 / 10;
    run(QStringLiteral("xdotool"), {"mousemove", QString::number(x4), QString::number(m_timelineY), "click", "1"});
    QThread::msleep(500);
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    test::saveArtifact(screen, QStringLiteral("review-window.png"));
    expectPixelatedOnScreen(screen);

    keys(QStringLiteral("ctrl+e"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Exported "), 30000)) << m_log.toStdString();
    const QString exported = m_dir.filePath("out/movie (edited).mp4");
    ASSERT_TRUE(QFileInfo::exists(exported)) << m_log.toStdString();

    const test::DecodedMovie movie = test::decodeMovie(exported);
    ASSERT_TRUE(movie.opened);
    QList<int> numbers, expected;
    for (const QImage& frame : movie.frames) {
        numbers << test::readCounter(frame, QPoint(16, 16));
    }
    for (int k = 0; k < 300; ++k) {
        if (k < 60 || k >= 90) {
            expected << k;
        }
    }
    EXPECT_EQ(numbers, expected) << "2 s to 3 s cut out, nothing else";
    const test::DecodedMovie source = test::decodeMovie(m_movie);
    auto changed = [&](int editedIndex) {
        const QImage& a = movie.frames[editedIndex];
        const QImage& b = source.frames[expected[editedIndex]];
        double sum = 0;
        for (int y = 100; y < 260; ++y) {
            for (int x = 330; x < 470; ++x) {
                sum += std::abs(qGreen(a.pixel(x, y)) - qGreen(b.pixel(x, y)));
            }
        }
        return sum / (160.0 * 140.0);
    };
    EXPECT_GT(changed(90), 8) << "source 4 s: blurred";
    EXPECT_LT(changed(50), 3) << "source 1.67 s: before the region";
    EXPECT_LT(changed(200), 3) << "source 7.67 s: after it";

    // An edit not exported yet: closing asks first; Escape keeps the window.
    keys(QStringLiteral("m"), 1);
    keys(QStringLiteral("alt+F4"), 1);
    EXPECT_TRUE(waitUntil([] { return test::windowShown(QStringLiteral("^Discard Edits\\?")); }, 5000));
    keys(QStringLiteral("Escape"), 1);
    QThread::msleep(300);
    EXPECT_EQ(m_app.state(), QProcess::Running);
    EXPECT_TRUE(test::windowShown(QStringLiteral("Review")));
}

TEST_F(Review, ABlurDrawnAfterAScrubCoversThePictureOnScreen)
{
    // A click on the timeline lands inside a picture's time, rarely at its
    // start: the region drawn then covers the picture the user sees.
    const int x = m_timelineFrom + (m_timelineTo - m_timelineFrom) * 45 / 100 + 1;
    const QImage first = screen().copy(m_picture);
    run(QStringLiteral("xdotool"), {"mousemove", QString::number(x), QString::number(m_timelineY), "click", "1"});
    ASSERT_TRUE(waitUntil([&] { return screen().copy(m_picture) != first; }, 5000))
        << "the picture at the new place never showed";
    keys(QStringLiteral("b"), 1);
    drag(onPicture(0.5, 0.25), onPicture(0.75, 0.75));
    ASSERT_TRUE(waitForLog(QStringLiteral("Blur 1 added at"))) << m_log.toStdString();
    const QImage drawn = screen();
    keys(QStringLiteral("b"), 1); // back to viewing: no drawing aids over it
    QImage shown;
    waitUntil([&] { return (shown = screen()) != drawn; }, 3000);
    expectPixelatedOnScreen(shown);
}

TEST_F(Review, CopyTakesTheRecordingExportsKeepSizeAndModeAndEscapeCloses)
{
    // Nothing edited: Copy puts the recording itself on the clipboard and
    // writes no "(edited)" copy.
    keys(QStringLiteral("ctrl+c"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Copied ") + m_movie)) << m_log.toStdString();
    EXPECT_TRUE(QDir(m_dir.filePath("out")).isEmpty());
    EXPECT_TRUE(waitUntil([&] {
        return run(QStringLiteral("xclip"), {"-selection", "clipboard", "-o", "-t", "text/uri-list"})
            .contains(QUrl::fromLocalFile(m_movie).toEncoded());
    }));

    // An export's status line leaves the window as wide as it was; the
    // edited movie is readable as the recording is.
    const QRect before = test::shownWindowGeometry(QStringLiteral("Review"));
    keys(QStringLiteral("Right"), 30);
    keys(QStringLiteral("s"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Split at 1 s"))) << m_log.toStdString();
    keys(QStringLiteral("ctrl+e"), 1);
    ASSERT_TRUE(waitForLog(QStringLiteral("Exported "), 30000)) << m_log.toStdString();
    QThread::msleep(200); // the status line is laid out after the log line
    const QString exported = m_dir.filePath("out/movie (edited).mp4");
    EXPECT_EQ(QFileInfo(exported).permissions(), QFileInfo(m_movie).permissions());
    EXPECT_EQ(test::shownWindowGeometry(QStringLiteral("Review")).size(), before.size());

    // Everything exported: Escape closes the window, and the command ends.
    keys(QStringLiteral("Escape"), 1);
    EXPECT_TRUE(m_app.waitForFinished(5000)) << "Escape left the window open";
}

TEST(VideoCommand, ExportsWhatTheOptionsSayAndPrintsTheFile)
{
    QTemporaryDir dir;
    const QString movie = dir.filePath("movie.mp4");
    ASSERT_EQ(test::writeCounterMovie(movie), QString());
    const QString out = dir.filePath("cut.mp4");
    const test::ProcessResult exported = test::runNuboShot(
        {"video", "export", movie, "-o", out, "--cut", "2.5-3.5", "--cut", "5-6.2", "--out", "9", "--mute"});
    ASSERT_EQ(exported.exitCode, 0) << exported.err.toStdString();
    EXPECT_EQ(exported.out.trimmed(), out);
    const test::DecodedMovie cut = test::decodeMovie(out);
    QList<int> numbers, expected;
    for (const QImage& frame : cut.frames) {
        numbers << test::readCounter(frame, QPoint(16, 16));
    }
    for (int k = 0; k < 270; ++k) {
        if (k < 75 || (k >= 105 && k < 150) || k >= 186) {
            expected << k;
        }
    }
    EXPECT_EQ(numbers, expected);
    EXPECT_FALSE(test::decodeSound(out).opened) << "muted: no sound at all";

    // An animation of the first two seconds, 10 pictures a second; asked
    // 1280 wide, it stays as wide as the recording.
    const QString gif = dir.filePath("start.gif");
    const test::ProcessResult animated =
        test::runNuboShot({"video", "export", movie, "-o", gif, "--out", "2", "--fps", "10", "--width", "1280"});
    ASSERT_EQ(animated.exitCode, 0) << animated.err.toStdString();
    EXPECT_EQ(animated.out.trimmed(), gif);
    const test::DecodedMovie pictures = test::decodeMovie(gif);
    EXPECT_EQ(QSize(pictures.width, pictures.height), QSize(640, 360));
    EXPECT_EQ(pictures.frames.size(), 20);

    const test::ProcessResult info = test::runNuboShot({"video", "info", movie});
    EXPECT_EQ(info.exitCode, 0);
    EXPECT_TRUE(info.out.contains("size: 640x360")) << info.out.toStdString();
    EXPECT_TRUE(info.out.contains("hasAudio: true")) << info.out.toStdString();

    // In and out points that keep nothing are bad usage, and nothing is written.
    const struct {
        QStringList points;
        const char* says;
    } empty[] = {
        {{"--in", "3", "--out", "1"}, "the in point (--in 3) must come before the out point (--out 1)"},
        {{"--in", "2", "--out", "2"}, "the in point (--in 2) must come before the out point (--out 2)"},
        {{"--in", "2", "--out", "2.01"}, "between --in 2 and --out 2.01 there is not one picture"},
    };
    const QString none = dir.filePath("none.mp4");
    for (const auto& c : empty) {
        SCOPED_TRACE(c.says);
        const test::ProcessResult r =
            test::runNuboShot(QStringList{"video", "export", movie, "-o", none} + c.points);
        EXPECT_EQ(r.exitCode, 2);
        EXPECT_TRUE(r.err.contains(QLatin1String(c.says))) << r.err.toStdString();
        EXPECT_FALSE(QFile::exists(none));
    }
}

} // namespace
} // namespace nubo
