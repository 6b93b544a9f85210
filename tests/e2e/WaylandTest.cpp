// The program in a Wayland session: sway on its headless backend with the
// desktop portal and its wlroots backend (scripts/headless-session
// --wayland), checked against the compositor's own screenshots (grim).
#include "support/MovieDecoder.h"
#include "support/Process.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QElapsedTimer>
#include <QDirIterator>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QRandomGenerator>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>
#include <QThread>

#include <array>
#include <csignal>
#include <functional>
#include <gtest/gtest.h>

namespace nubo {
namespace {

QString run(const QString& program, const QStringList& arguments)
{
    QProcess p;
    p.start(program, arguments);
    if (!p.waitForFinished(20000) || p.exitStatus() != QProcess::NormalExit || p.exitCode() != 0) {
        ADD_FAILURE() << program.toStdString() << " " << arguments.join(u' ').toStdString()
                      << " failed: " << p.readAllStandardError().toStdString()
                      << p.readAllStandardOutput().toStdString();
    }
    return QString::fromUtf8(p.readAllStandardOutput());
}

// The compositor's own picture of an output, or of a region in points.
QImage grim(const QString& dir, const QStringList& arguments)
{
    const QString file =
        dir + QStringLiteral("/grim-%1.png").arg(QRandomGenerator::global()->generate());
    run(QStringLiteral("grim"), arguments + QStringList{file});
    return QImage(file).convertToFormat(QImage::Format_RGB32);
}

// The whole screen once two looks in a row agree (what opened is drawn).
QImage settledGrim(const QString& dir)
{
    QImage last = grim(dir, {"-o", "HEADLESS-1"});
    for (int look = 0; look < 50; ++look) {
        QImage now = grim(dir, {"-o", "HEADLESS-1"});
        if (now == last) {
            break;
        }
        last = std::move(now);
    }
    return last;
}

QImage noise(QSize size, quint32 seed)
{
    QImage image(size, QImage::Format_RGB32);
    QRandomGenerator random(seed);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<quint32*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            row[x] = 0xff000000u | (random.generate() & 0xffffffu);
        }
    }
    return image;
}

// Where two pictures of one size first differ, and how; empty when equal.
QString firstDifference(const QImage& a, const QImage& b, const QRect& leftOut = {})
{
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            if (a.pixel(x, y) != b.pixel(x, y) && !leftOut.contains(x, y)) {
                return QStringLiteral("at %1,%2: %3 instead of %4")
                    .arg(x)
                    .arg(y)
                    .arg(a.pixel(x, y) & 0xffffff, 6, 16, QLatin1Char('0'))
                    .arg(b.pixel(x, y) & 0xffffff, 6, 16, QLatin1Char('0'));
            }
        }
    }
    return {};
}

class Wayland : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
            << "runs in scripts/headless-session --wayland";
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("SWAYSOCK"));
        // The compositor runs as another user where the tests run as root:
        // the backgrounds it draws must be readable by it.
        ASSERT_TRUE(m_dir.isValid());
        QFile::setPermissions(m_dir.path(), QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                                QFileDevice::ExeOwner | QFileDevice::ReadOther |
                                                QFileDevice::ExeOther);
    }

    // A second output right of the first, at the given scale, and both
    // covered in noise that any resampling would change.
    void twoOutputsOfNoise(double scale = 2)
    {
        if (!run(QStringLiteral("swaymsg"), {"-t", "get_outputs"}).contains(u"HEADLESS-2")) {
            run(QStringLiteral("swaymsg"), {"create_output"});
        }
        run(QStringLiteral("swaymsg"), {"output", "HEADLESS-2", "mode", "1280x720", "position",
                                        "1920", "0", "scale", QString::number(scale)});
        const struct {
            const char* output;
            QSize size;
        } outputs[] = {{"HEADLESS-1", {1920, 1080}}, {"HEADLESS-2", {1280, 720}}};
        quint32 seed = 7;
        for (const auto& o : outputs) {
            const QString file =
                m_dir.filePath(QStringLiteral("%1.png").arg(QLatin1String(o.output)));
            ASSERT_TRUE(noise(o.size, ++seed).save(file));
            QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadOther);
            run(QStringLiteral("swaymsg"), {"output", o.output, "bg", file, "fill"});
        }
        // Drawn once three pictures of the whole desktop in a row agree and
        // show noise on both screens (swaybg draws each in its own time).
        QImage before;
        int agreeing = 0;
        for (int i = 0; i < 100; ++i) {
            const QImage now = grim(m_dir.path(), {});
            const bool noise = !now.isNull() && now.pixel(10, 10) != now.pixel(11, 10) &&
                               now.pixel(now.width() - 10, 10) != now.pixel(now.width() - 11, 10);
            agreeing = noise && now == before ? agreeing + 1 : 0;
            if (agreeing == 2) {
                return;
            }
            before = now;
            QThread::msleep(100);
        }
        FAIL() << "the backgrounds were never drawn";
    }

    // Keeps both outputs of twoOutputsOfNoise drawing: the pointer jumping
    // between a spot of each (a screen cast sends a picture only when
    // something was drawn), without taking the focus along. Without a GPU
    // the pointer is part of every picture, grim's too, so the box around its
    // spot is left out of comparisons (pointerBox). Until the returned
    // process ends.
    std::unique_ptr<QProcess> keepDrawing(double secondScale)
    {
        run(QStringLiteral("swaymsg"), {"focus_follows_mouse", "no"});
        const int width = 1920 + int(1280 / secondScale);
        auto wiggle = std::make_unique<QProcess>();
        wiggle->start(QStringLiteral("bash"),
                      {"-c", QStringLiteral("while :; do echo 'at %1 %1'; sleep 0.05; "
                                            "echo 'at %2 %1'; sleep 0.05; done | '%3' %4 1080")
                                 .arg(pointerSpot)
                                 .arg(1920 + pointerSpot)
                                 .arg(QStringLiteral(NUBOSHOT_VIRTUAL_POINTER))
                                 .arg(width)});
        EXPECT_TRUE(wiggle->waitForStarted());
        return wiggle;
    }
    // Where the pointer may be drawn on an output of this scale, in its pixels.
    static QRect pointerBox(int scale)
    {
        return QRect((pointerSpot - 32) * scale, (pointerSpot - 32) * scale, 96 * scale, 96 * scale);
    }

    static constexpr int pointerSpot = 200; // points from each output's top-left corner

    static QString tree() { return run(QStringLiteral("swaymsg"), {"-t", "get_tree"}); }
    static bool waitFor(const std::function<bool()>& done)
    {
        for (int i = 0; i < 150 && !done(); ++i) {
            QThread::msleep(100);
        }
        return done();
    }
    // The headless compositor has no mouse: a virtual one over a layout of
    // this size in points, moved as a user would.
    void startPointer(int width, int height)
    {
        m_mouse.start(QStringLiteral(NUBOSHOT_VIRTUAL_POINTER),
                      {QString::number(width), QString::number(height)});
        ASSERT_TRUE(m_mouse.waitForReadyRead(5000)) << m_mouse.readAllStandardError().toStdString();
        ASSERT_EQ(m_mouse.readLine().trimmed(), "ready");
    }
    void pointer(const QList<QByteArray>& steps)
    {
        for (const QByteArray& step : steps) {
            m_mouse.write(step + '\n');
            ASSERT_TRUE(m_mouse.waitForReadyRead(5000)) << step.constData();
            ASSERT_EQ(m_mouse.readLine().trimmed(), "ok") << step.constData();
            QThread::msleep(30);
        }
    }
    // Where sway shows the window whose title starts so; empty when none.
    static QRect windowRect(const QString& titleStart)
    {
        QRect found;
        const std::function<void(const QJsonObject&)> find = [&](const QJsonObject& node) {
            if (node["name"].toString().startsWith(titleStart)) {
                const QJsonObject r = node["rect"].toObject();
                found = QRect(r["x"].toInt(), r["y"].toInt(), r["width"].toInt(), r["height"].toInt());
            }
            for (const char* key : {"nodes", "floating_nodes"}) {
                for (const QJsonValue& child : node[QLatin1String(key)].toArray()) {
                    find(child.toObject());
                }
            }
        };
        find(QJsonDocument::fromJson(tree().toUtf8()).object());
        return found;
    }
    // The newest recent shot's picture of this size, once it is there.
    static QString recentShot(QSize size, const QSet<QString>& before = {})
    {
        const QString recent =
            qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/NuboShot/Recent");
        QString shot;
        waitFor([&] {
            // A capture is kept as an editable shot: its base picture is one of its PNGs.
            QDirIterator images(recent, {QStringLiteral("*.png")}, QDir::Files,
                                QDirIterator::Subdirectories);
            while (images.hasNext()) {
                const QString file = images.next();
                if (!before.contains(file) && QImage(file).size() == size &&
                    !file.endsWith(u"thumbnail.png")) {
                    shot = file;
                }
            }
            return !shot.isEmpty();
        });
        return shot;
    }

    // The tray application, as a user starts it; ended with the test.
    void startTray(QProcess::ProcessChannelMode output = QProcess::ForwardedChannels)
    {
        {
            // Told on an earlier start: no notification over what is captured.
            QSettings preferences(QSettings::IniFormat, QSettings::UserScope,
                                  QStringLiteral("NuboShot"), QStringLiteral("NuboShot"));
            preferences.setValue(QStringLiteral("shot.shortcut.problemsTold"),
                                 QStringLiteral("Global shortcuts are not available on this desktop."));
        }
        m_tray.setProcessChannelMode(output);
        m_tray.start(QStringLiteral(NUBOSHOT_BINARY), {});
        ASSERT_TRUE(m_tray.waitForStarted());
    }
    // The running tray asked for a capture, as its menu does; once its
    // overlay is up.
    static void openOverlay(const char* mode)
    {
        ASSERT_EQ(test::runNuboShot({"capture", QLatin1String(mode)}).exitCode, 0);
        ASSERT_TRUE(waitFor([] { return tree().contains(u"Nubo Shot Capture"); })) << "no overlay";
    }

    void TearDown() override
    {
        if (m_tray.state() != QProcess::NotRunning) {
            m_tray.terminate();
            m_tray.waitForFinished(5000);
        }
        if (m_mouse.state() != QProcess::NotRunning) {
            m_mouse.closeWriteChannel();
            m_mouse.waitForFinished(5000);
        }
    }

    QTemporaryDir m_dir;
    QProcess m_mouse;
    QProcess m_tray;
};

// Each screen at its own scale, fractional ones too: Qt before 6.5 is told
// the next whole number (2 for 1.25 and 1.5), the compositor's mode has the
// real pixels. A fractional screen records at its own pixels.
TEST_F(Wayland, ThePortalBackendListsEveryScreenAtItsScale)
{
    const struct {
        double scale;
        QJsonArray frame; // the second screen's, in points
    } cases[] = {{2, {1920, 0, 640, 360}}, {1.5, {1920, 0, 853, 480}}, {1.25, {1920, 0, 1024, 576}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(QStringLiteral("the second screen at scale %1").arg(c.scale).toStdString());
        ASSERT_NO_FATAL_FAILURE(twoOutputsOfNoise(c.scale));
        const test::ProcessResult r = test::runNuboShot({"displays", "--json"});
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        const QJsonArray displays = QJsonDocument::fromJson(r.out.toUtf8()).array();
        ASSERT_EQ(displays.size(), 2) << r.out.toStdString();
        const QJsonObject first = displays[0].toObject();
        EXPECT_EQ(first["frame"].toArray(), QJsonArray({0, 0, 1920, 1080}));
        EXPECT_EQ(first["scale"].toDouble(), 1);
        const QJsonObject second = displays[1].toObject();
        EXPECT_EQ(second["name"].toString(), QStringLiteral("HEADLESS-2"));
        EXPECT_EQ(second["frame"].toArray(), c.frame);
        EXPECT_NEAR(second["scale"].toDouble(), c.scale, 0.002);
        // Side by side in pixels too: no gap where the scales differ.
        EXPECT_EQ(second["pixels"].toArray(), QJsonArray({1920, 0, 1280, 720}));

        // Recorded at its native pixels, through its screen cast.
        const std::unique_ptr<QProcess> drawing = keepDrawing(c.scale);
        const QString folder = m_dir.filePath(QStringLiteral("movies"));
        QDir(folder).removeRecursively();
        const test::ProcessResult recorded = test::runNuboShot(
            {"record", "display", QString::number(second["id"].toInteger()), "--duration", "1",
             "-o", folder},
            60000);
        ASSERT_EQ(recorded.exitCode, 0) << recorded.err.toStdString();
        const test::DecodedMovie movie = test::decodeMovie(recorded.out.trimmed());
        ASSERT_TRUE(movie.opened) << movie.error.toStdString();
        EXPECT_EQ(QSize(movie.width, movie.height), QSize(1280, 720));
    }
}

// Whole screens and regions equal what the compositor itself shows, pixel
// for pixel. Stills come from each screen's own screen cast, exact at every
// scale. Where casts fail (the session without its portal shim,
// NUBOSHOT_TEST_CASTS_FAIL), they come from the Screenshot portal: one
// picture of the whole desktop at the largest scale, cut into the screens; a
// screen at that scale is exact, one of a smaller scale was drawn larger
// (filtered) by the desktop and is brought back to its own size.
TEST_F(Wayland, GrabsEqualTheCompositorsOwnPixels)
{
    const bool casts = qEnvironmentVariableIsEmpty("NUBOSHOT_TEST_CASTS_FAIL");
    for (const int scale : {1, 2}) {
        SCOPED_TRACE(QStringLiteral("the second screen at scale %1").arg(scale).toStdString());
        ASSERT_NO_FATAL_FAILURE(twoOutputsOfNoise(scale));
        QHash<QString, QString> ids;
        for (const QString& line :
             test::runNuboShot({"displays"}).out.split(u'\n', Qt::SkipEmptyParts)) {
            ids.insert(line.section(u'\t', 1, 1), line.section(u'\t', 0, 0));
        }
        ASSERT_EQ(ids.size(), 2);
        const QImage first = grim(m_dir.path(), {"-o", "HEADLESS-1"});
        const QImage second = grim(m_dir.path(), {"-o", "HEADLESS-2"});
        ASSERT_EQ(first.size(), QSize(1920, 1080));
        ASSERT_EQ(second.size(), QSize(1280, 720));
        const std::unique_ptr<QProcess> drawing = casts ? keepDrawing(scale) : nullptr;
        const struct {
            const char* name;
            QStringList arguments;
            QImage expected;
            bool exact;
            QRect pointer; // where the pointer may be, in the picture
        } cases[] = {
            {"the first screen",
             {"grab", "fullscreen", "--display", ids["HEADLESS-1"]},
             first,
             casts || scale == 1,
             pointerBox(1)},
            {"the second screen",
             {"grab", "fullscreen", "--display", ids["HEADLESS-2"]},
             second,
             true,
             pointerBox(scale)},
            {"a region of the first",
             {"grab", "region", "100,50,333,222"},
             first.copy(100, 50, 333, 222),
             casts || scale == 1,
             pointerBox(1).translated(-100, -50)},
            // Regions are in the desktop's pixels, the second screen's from 1920 on.
            {"a region of the second",
             {"grab", "region", "1950,20,300,200"},
             second.copy(30, 20, 300, 200),
             true,
             pointerBox(scale).translated(-30, -20)},
        };
        for (const auto& c : cases) {
            SCOPED_TRACE(c.name);
            const QString out = m_dir.filePath(QStringLiteral("grab.png"));
            QFile::remove(out);
            QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
            environment.insert(QStringLiteral("QT_LOGGING_RULES"),
                               QStringLiteral("com.corvane.lab.nuboshot.capture.info=true"));
            const test::ProcessResult r =
                test::runNuboShot(c.arguments + QStringList{"-o", out}, 30000, environment);
            ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
            EXPECT_TRUE(r.err.contains(casts ? QStringLiteral("Screen cast: ")
                                             : QStringLiteral("Screenshot portal: ")))
                << "not the path this session takes: " << r.err.toStdString();
            const QImage got = QImage(out).convertToFormat(QImage::Format_RGB32);
            ASSERT_EQ(got.size(), c.expected.size());
            if (c.exact) {
                EXPECT_EQ(firstDifference(got, c.expected, casts ? c.pointer : QRect()), QString())
                    << "the pixels differ from the compositor's";
            }
        }
    }
}

// The tray under sway: an area framed over the frozen desktop with the
// seat's own pointer lands in the editor and in the recent shots with the
// compositor's pixels.
TEST_F(Wayland, AnAreaFramedWithThePointerIsTheCompositorsPixels)
{
    ASSERT_NO_FATAL_FAILURE(twoOutputsOfNoise(1));
    const QImage desktop = grim(m_dir.path(), {"-o", "HEADLESS-1"});
    {
        // Every capture goes to the clipboard too, as the user can ask.
        QSettings preferences(QSettings::IniFormat, QSettings::UserScope,
                              QStringLiteral("NuboShot"), QStringLiteral("NuboShot"));
        preferences.setValue(QStringLiteral("shot.copyRawOnCapture"), true);
    }
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_NO_FATAL_FAILURE(startPointer(3200, 1080)); // both screens
    const auto artifact = [&](const QString& name) {
        QDir().mkpath(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS));
        settledGrim(m_dir.path()).save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/") + name);
    };

    // Twice: the first capture starts the screen cast, the second is the
    // kept cast's newest picture, taken after the desktop changed.
    QSet<QString> shotsBefore;
    QImage expected = desktop;
    for (int round = 1; round <= 2; ++round) {
        SCOPED_TRACE(round == 1 ? "a new screen cast" : "the kept screen cast");
        if (round == 2) {
            const QString file = m_dir.filePath(QStringLiteral("changed.png"));
            ASSERT_TRUE(noise(QSize(1920, 1080), 99).save(file));
            QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadOther);
            run(QStringLiteral("swaymsg"), {"output", "HEADLESS-1", "bg", file, "fill"});
            ASSERT_TRUE(waitFor([&] {
                expected = grim(m_dir.path(), {"-o", "HEADLESS-1"});
                return expected.pixel(700, 10) != desktop.pixel(700, 10) &&
                       expected == grim(m_dir.path(), {"-o", "HEADLESS-1"});
            })) << "the new background was never drawn";
        }
        ASSERT_NO_FATAL_FAILURE(openOverlay("area"));
        ASSERT_NO_FATAL_FAILURE(pointer({"at 700 500"}));
        if (round == 1) {
            artifact(QStringLiteral("wayland-overlay-area.png"));
        }
        ASSERT_NO_FATAL_FAILURE(
            pointer({"at 420 380", "press", "move 50 40", "move 50 40", "release"}));
        ASSERT_TRUE(waitFor([&] { return tree().contains(u"100 \u00d7 80"); })) << "no editor";
        if (round == 1) {
            artifact(QStringLiteral("wayland-editor.png"));
        }
        const QString shot = recentShot(QSize(100, 80), shotsBefore);
        ASSERT_FALSE(shot.isEmpty()) << "no recent shot";
        shotsBefore.insert(shot);
        const QImage got = QImage(shot).convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(got.size(), QSize(100, 80));
        EXPECT_EQ(firstDifference(got, expected.copy(420, 380, 100, 80)), QString());
        // On the desktop's clipboard for any program (read as a clipboard
        // manager does, without the keyboard).
        QImage copied;
        ASSERT_TRUE(waitFor([&] {
            QProcess paste;
            paste.start(QStringLiteral("wl-paste"), {"--no-newline", "--type", "image/png"});
            paste.waitForFinished(5000);
            copied = QImage::fromData(paste.readAllStandardOutput(), "PNG");
            return copied.size() == QSize(100, 80) &&
                   firstDifference(copied.convertToFormat(QImage::Format_RGB32),
                                   expected.copy(420, 380, 100, 80))
                       .isEmpty();
        })) << "the clipboard holds no copy of the shot";
        // The editor goes, as a user closes it.
        run(QStringLiteral("swaymsg"), {"[title=\"100 \u00d7 80\"]", "kill"});
        ASSERT_TRUE(waitFor([&] { return !tree().contains(u"100 \u00d7 80"); }));
    }
}

// A pin under sway: the desktop, not the client, decides what stays on top,
// so the pin is a normal window, and the user is told so once. The screen
// is taken when the delay ends: a background changed during the delay is
// in the pin. A drag moves it through the desktop's own move; Escape closes
// it. P on the overlay pins the area being framed.
TEST_F(Wayland, PinsShowTheScreenPixelForPixelFromADelayOrTheOverlaysKey)
{
    ASSERT_NO_FATAL_FAILURE(twoOutputsOfNoise(1));
    const QJsonArray displays =
        QJsonDocument::fromJson(test::runNuboShot({"displays", "--json"}).out.toUtf8()).array();
    ASSERT_FALSE(displays.isEmpty());
    const QJsonObject first = displays.first().toObject();
    const QJsonArray pixels = first["pixels"].toArray();
    ASSERT_EQ(pixels.size(), 4);
    {
        // The area framed last: 120 × 90 pixels at (300, 200) of the first screen.
        QSettings preferences(QSettings::IniFormat, QSettings::UserScope,
                              QStringLiteral("NuboShot"), QStringLiteral("NuboShot"));
        preferences.setValue(QStringLiteral("shot.lastArea"), QStringLiteral("%1 300 200 120 90 %2 %3")
                                                                  .arg(first["id"].toInteger())
                                                                  .arg(pixels[2].toInt())
                                                                  .arg(pixels[3].toInt()));
    }
    ASSERT_NO_FATAL_FAILURE(startTray());
    const auto background = [&](quint32 seed) {
        const QString file = m_dir.filePath(QStringLiteral("background-%1.png").arg(seed));
        EXPECT_TRUE(noise(QSize(1920, 1080), seed).save(file));
        QFile::setPermissions(file, QFileDevice::ReadOwner | QFileDevice::ReadOther);
        const QImage before = grim(m_dir.path(), {"-o", "HEADLESS-1"});
        run(QStringLiteral("swaymsg"), {"output", "HEADLESS-1", "bg", file, "fill"});
        // Drawn once two pictures in a row agree on the area the pin takes
        // (the bar beside it counts the delay down).
        QImage now;
        const QRect area(300, 200, 120, 90);
        EXPECT_TRUE(waitFor([&] {
            now = grim(m_dir.path(), {"-o", "HEADLESS-1"});
            return now.copy(area) != before.copy(area) &&
                   now.copy(area) == grim(m_dir.path(), {"-o", "HEADLESS-1"}).copy(area);
        })) << "the new background was never drawn";
        return now;
    };

    // The tray icon at the right end of swaybar, which shows it through
    // StatusNotifierItem: it counts the delay down, then rests again.
    const QRect trayEnd(1720, 1058, 200, 22);
    const auto trayIcon = [&] { return grim(m_dir.path(), {"-o", "HEADLESS-1"}).copy(trayEnd); };
    QImage resting;
    ASSERT_TRUE(waitFor([&] {
        resting = trayIcon();
        return resting == trayIcon();
    }));
    QElapsedTimer asked;
    asked.start();
    ASSERT_EQ(test::runNuboShot({"capture", "last-area", "--pin", "--delay", "5"}).exitCode, 0);
    const QImage during = background(41); // within the delay
    const QImage counting = trayIcon();
    EXPECT_NE(counting, resting) << "the tray icon does not count down";
    QDir().mkpath(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS));
    counting.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/wayland-tray-countdown.png"));
    ASSERT_LT(asked.elapsed(), 4500) << "the background took too long to be drawn for this test";
    ASSERT_FALSE(tree().contains(u"Pinned Shot")) << "pinned before its delay ended";
    ASSERT_TRUE(waitFor([] { return tree().contains(u"Pinned Shot"); })) << "no pin";
    EXPECT_TRUE(waitFor([&] { return trayIcon() == resting; })) << "the tray icon kept counting";
    const QRect window = windowRect(QStringLiteral("Pinned Shot"));
    ASSERT_FALSE(window.isEmpty());
    // The picture in the middle of the window, the shadow round it.
    const QRect picture(window.topLeft() + QPoint((window.width() - 120) / 2, (window.height() - 90) / 2),
                        QSize(120, 90));
    EXPECT_GT(window.width(), 120 + 8) << "no room for a shadow round the pin";
    QDir().mkpath(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS));
    grim(m_dir.path(), {"-g", QStringLiteral("%1,%2 %3x%4").arg(window.x() - 20).arg(window.y() - 20)
                                  .arg(window.width() + 40).arg(window.height() + 40)})
        .save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/wayland-pin.png"));
    QImage shown;
    EXPECT_TRUE(waitFor([&] {
        shown = grim(m_dir.path(), {"-g", QStringLiteral("%1,%2 %3x%4").arg(picture.x()).arg(picture.y())
                                                 .arg(picture.width()).arg(picture.height())});
        return firstDifference(shown, during.copy(300, 200, 120, 90)).isEmpty();
    })) << firstDifference(shown, during.copy(300, 200, 120, 90)).toStdString();
    EXPECT_TRUE(waitFor([] {
        return run(QStringLiteral("dunstctl"), {"history"}).contains(QStringLiteral("Pinned as a normal window"));
    })) << "the user was not told the pin cannot stay on top";

    // Dragged, it is moved by the desktop itself, as far as the pointer went.
    ASSERT_NO_FATAL_FAILURE(startPointer(3200, 1080));
    const QPoint grip = picture.center();
    ASSERT_NO_FATAL_FAILURE(pointer({QStringLiteral("at %1 %2").arg(grip.x()).arg(grip.y()).toUtf8(),
                                     "press", "move 60 40", "move 60 40", "release"}));
    QRect moved;
    EXPECT_TRUE(waitFor([&] {
        moved = windowRect(QStringLiteral("Pinned Shot"));
        return moved.topLeft() == window.topLeft() + QPoint(120, 80);
    })) << "the pin went from " << window.x() << "," << window.y() << " to " << moved.x() << ","
        << moved.y();

    // Escape closes the pin the user just moved.
    ASSERT_NO_FATAL_FAILURE(pointer({"key Escape"}));
    EXPECT_TRUE(waitFor([] { return !tree().contains(u"Pinned Shot"); })) << "Escape left the pin";

    // P on the overlay, while the area is being framed, pins it: no editor.
    ASSERT_NO_FATAL_FAILURE(openOverlay("area"));
    ASSERT_NO_FATAL_FAILURE(
        pointer({"at 500 300", "press", "move 80 60", "move 80 60", "key p", "release"}));
    ASSERT_TRUE(waitFor([] { return tree().contains(u"Pinned Shot"); })) << "P pinned nothing";
    const QRect framed = windowRect(QStringLiteral("Pinned Shot"));
    const QRect inside(framed.topLeft() + QPoint((framed.width() - 160) / 2, (framed.height() - 120) / 2),
                       QSize(160, 120));
    EXPECT_TRUE(waitFor([&] {
        shown = grim(m_dir.path(), {"-g", QStringLiteral("%1,%2 %3x%4").arg(inside.x()).arg(inside.y())
                                                 .arg(inside.width()).arg(inside.height())});
        return firstDifference(shown, during.copy(500, 300, 160, 120)).isEmpty();
    })) << firstDifference(shown, during.copy(500, 300, 160, 120)).toStdString();
    EXPECT_FALSE(tree().contains(u"160 \u00d7 120")) << "an editor opened";
}

// Recording under sway through the screen cast: the tests' counter window
// fills the first screen and paints a new number on every frame; every
// movie holds those numbers in order, at the size the screen's pixels (or,
// for "standard", its points) give, at scale 1 and 2, and an area is cut
// from the screen's own pixels.
TEST_F(Wayland, RecordingsHoldEveryPaintInOrderAtTheScreensSize)
{
    QProcess counter;
    counter.start(QStringLiteral(NUBOSHOT_TEST_COUNTER_WINDOW), {"--at", "640x480+0+0", "--fill"});
    ASSERT_TRUE(counter.waitForReadyRead(10000)) << "the counter window did not open";
    run(QStringLiteral("swaymsg"), {"fullscreen", "enable"}); // the window just opened has the focus
    const struct {
        const char* name;
        int scale;
        QStringList target;
        QSize size;
        QPoint counterAt; // in the movie's pixels
    } cases[] = {
        {"the screen at scale 1", 1, {"display"}, {1920, 1080}, {16, 16}},
        {"an area at scale 1", 1, {"area", "0,0,401,301"}, {400, 300}, {16, 16}},
        {"the screen at scale 2", 2, {"display"}, {1920, 1080}, {32, 32}},
        {"the screen at scale 2 in points", 2, {"display", "--resolution", "standard"},
         {960, 540}, {16, 16}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        run(QStringLiteral("swaymsg"), {"output", "HEADLESS-1", "scale", QString::number(c.scale)});
        const QString folder = m_dir.filePath(QStringLiteral("movies"));
        QDir(folder).removeRecursively();
        const test::ProcessResult r = test::runNuboShot(
            QStringList{"record"} + c.target + QStringList{"--duration", "2", "--no-cursor", "-o", folder},
            60000);
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        const test::DecodedMovie movie = test::decodeMovie(r.out.trimmed());
        ASSERT_TRUE(movie.opened) << movie.error.toStdString();
        EXPECT_EQ(QSize(movie.width, movie.height), c.size);
        EXPECT_NEAR(movie.times.last() + 1 / 30.0, 2.0, 0.3);
        // Blocks of 24 points: twice as many pixels at twice the scale.
        const int pixelsAPoint = c.counterAt.x() / 16;
        QList<int> seen;
        for (const QImage& frame : movie.frames) {
            const QImage points = frame.scaled(frame.size() / pixelsAPoint, Qt::IgnoreAspectRatio,
                                               Qt::FastTransformation);
            seen.append(test::readCounter(points, QPoint(16, 16)));
        }
        ASSERT_GE(seen.size(), 30) << "a changing screen gave few pictures";
        // In order; a picture may come twice (the desktop sent one for a
        // change elsewhere), rarely.
        qsizetype disorder = 0, repeated = 0;
        for (qsizetype i = 1; i < seen.size() - 1; ++i) { // the last holds the end
            disorder += seen[i] < seen[i - 1] ? 1 : 0;
            repeated += seen[i] == seen[i - 1] ? 1 : 0;
        }
        EXPECT_LE(repeated, seen.size() / 10) << "pictures that came again";
        QStringList numbers;
        for (const int n : seen) {
            numbers << QString::number(n);
        }
        EXPECT_EQ(disorder, 0) << "pictures out of order: " << numbers.join(u' ').toStdString();
    }
    run(QStringLiteral("swaymsg"), {"output", "HEADLESS-1", "scale", "1"});

    // Clicks: the portals tell no program the pointer's clicks, and the
    // refusal says so (not the X11 reason).
    const test::ProcessResult clicks = test::runNuboShot(
        {"record", "display", "--duration", "1", "--highlight-clicks", "-o", m_dir.path()});
    EXPECT_EQ(clicks.exitCode, 1);
    EXPECT_EQ(clicks.err.trimmed().section(u'\n', -1),
              QStringLiteral("nuboshot: Click highlighting needs the pointer's clicks, and this "
                             "Wayland desktop tells them to no program."));
    counter.kill();
    counter.waitForFinished();
}

// Sound and pauses on Wayland: the system audio of the session's sound
// server in the movie, a pause left out of picture and sound alike.
TEST_F(Wayland, RecordingsCarryTheSystemAudioAndLeaveOutAPause)
{
    QProcess counter;
    counter.start(QStringLiteral(NUBOSHOT_TEST_COUNTER_WINDOW), {"--at", "640x480+0+0"});
    ASSERT_TRUE(counter.waitForReadyRead(10000)) << "the counter window did not open";
    QProcess tone;
    tone.start(QStringLiteral(NUBOSHOT_TEST_SOUND),
               {"tone", "--device", "speakers", "--frequency", "440", "--rate", "44100",
                "--channels", "1", "--amplitude", "0.3", "--seconds", "12"});
    ASSERT_TRUE(tone.waitForReadyRead(10000) && tone.readAllStandardOutput().contains("playing"));

    QProcess recorder;
    recorder.start(QStringLiteral(NUBOSHOT_BINARY),
                   {"record", "area", "0,0,320,240", "--system-audio", "--no-cursor", "-o",
                    m_dir.filePath(QStringLiteral("movies"))});
    ASSERT_TRUE(recorder.waitForStarted());
    QString log;
    QElapsedTimer waited;
    waited.start();
    while (!log.contains(QStringLiteral("Writing ")) && recorder.state() == QProcess::Running &&
           waited.elapsed() < 30000) {
        recorder.waitForReadyRead(50);
        log += QString::fromUtf8(recorder.readAllStandardError());
    }
    ASSERT_EQ(recorder.state(), QProcess::Running) << log.toStdString();
    // The stretches of the movie: 1.5 s, a pause of 1.5 s, 1.5 s.
    QThread::msleep(1500);
    ::kill(pid_t(recorder.processId()), SIGUSR1);
    QThread::msleep(1500);
    ::kill(pid_t(recorder.processId()), SIGUSR1);
    QThread::msleep(1500);
    ::kill(pid_t(recorder.processId()), SIGINT);
    ASSERT_TRUE(recorder.waitForFinished(60000));
    log += QString::fromUtf8(recorder.readAllStandardError());
    ASSERT_EQ(recorder.exitCode(), 0) << log.toStdString();
    const QString file = QString::fromUtf8(recorder.readAllStandardOutput()).trimmed();

    const test::DecodedSound sound = test::decodeSound(file);
    ASSERT_TRUE(sound.opened) << sound.error.toStdString();
    EXPECT_NEAR(sound.seconds(), 3.0, 0.35) << "the pause is left out";
    constexpr size_t rate = 48000;
    size_t quiet = 0, windows = 0;
    for (size_t at = rate / 10; at + rate / 10 <= sound.mono.size() - rate / 10; at += rate / 10) {
        quiet += test::toneLevel(sound.mono, 440, at, rate / 10) < 0.15 ? 1 : 0;
        ++windows;
    }
    EXPECT_GE(windows, 20u);
    EXPECT_LE(quiet, 1u) << "the system audio is missing from the movie";
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(320, 240));
    EXPECT_NEAR(movie.times.last(), sound.seconds(), 0.3) << "picture and sound of one length";
    tone.kill();
    tone.waitForFinished();
    counter.kill();
    counter.waitForFinished();
}

// Scrolling capture under sway: a page framed on the overlay, scrolled with
// the wheel a notch at a time, stitched from the screen cast to the page's
// whole content. Windows cannot place themselves here, so no panel shows;
// asking for the capture again ends it. (Without a GPU sway draws the
// pointer into the pictures: it wheels from the page's footer, below the area.)
TEST_F(Wayland, AScrolledPageStitchesToItsWholeContent)
{
    run(QStringLiteral("swaymsg"), {"default_floating_border none"});
    run(QStringLiteral("swaymsg"), {"for_window [app_id=\"test-scroll-page\"] floating enable"});
    run(QStringLiteral("swaymsg"), {"focus_follows_mouse", "no"});
    const QString truthFile = m_dir.filePath(QStringLiteral("truth.png"));
    QProcess page;
    page.start(QStringLiteral(NUBOSHOT_TEST_SCROLL_PAGE),
               {"--at", "600x500+300+160", "--pages", "4", "--truth", truthFile});
    ASSERT_TRUE(page.waitForReadyRead(10000)) << "the page did not open";
    run(QStringLiteral("swaymsg"), {"[app_id=\"test-scroll-page\"] move position 300 160"});
    const QImage truth = QImage(truthFile).convertToFormat(QImage::Format_RGB32);
    ASSERT_FALSE(truth.isNull());
    ASSERT_TRUE(waitFor([&] {
        return firstDifference(grim(m_dir.path(), {"-g", "300,160 600x200"}),
                               truth.copy(0, 0, 600, 200))
            .isEmpty();
    })) << "the page is not where it was put";

    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_NO_FATAL_FAILURE(startPointer(1920, 1080));
    ASSERT_NO_FATAL_FAILURE(openOverlay("scrolling"));
    // The page without its last 60 points (its footer among them) is framed.
    ASSERT_NO_FATAL_FAILURE(pointer({"at 300 160", "press", "move 300 220", "move 300 220", "release"}));
    ASSERT_TRUE(waitFor([&] { return !tree().contains(u"Nubo Shot Capture"); }));
    // Scrolled at once, before the compositor has drawn the overlay away:
    // the stitching starts from the framed area, so nothing is lost.
    ASSERT_NO_FATAL_FAILURE(pointer({"at 600 640"}));
    for (int notch = 0; notch < 30; ++notch) {
        ASSERT_NO_FATAL_FAILURE(pointer({"scroll 1"}));
        QThread::msleep(120);
    }
    // Stopped as soon as the page shows its end below the header.
    const QSize expected(600, truth.height() - 60);
    ASSERT_TRUE(waitFor([&] {
        return firstDifference(grim(m_dir.path(), {"-g", "300,208 600x392"}),
                               truth.copy(0, expected.height() - 392, 600, 392))
            .isEmpty();
    })) << "the page did not scroll to its end";
    ASSERT_EQ(test::runNuboShot({"capture", "scrolling"}).exitCode, 0);

    const QString shot = recentShot(expected);
    ASSERT_FALSE(shot.isEmpty()) << "no stitched shot of " << expected.height() << " rows";
    const QImage got = QImage(shot).convertToFormat(QImage::Format_RGB32);
    EXPECT_EQ(firstDifference(got, truth.copy(QRect(QPoint(), expected))), QString());
    page.kill();
    page.waitForFinished();
}

// The tray's recording flow under sway: framed on the overlay, started from
// the options bar (a floating window of its own size), stopped by asking
// again. Windows cannot stand aside here and the cast shows every window,
// so nothing of ours is on the screen while it records: no control bar, no
// outline; the movie holds the desktop alone.
TEST_F(Wayland, TheTraysRecordingKeepsItsOwnWindowsOutOfTheMovie)
{
    QProcess counter;
    counter.start(QStringLiteral(NUBOSHOT_TEST_COUNTER_WINDOW), {"--at", "640x480+0+0", "--fill"});
    ASSERT_TRUE(counter.waitForReadyRead(10000)) << "the counter window did not open";
    ASSERT_NO_FATAL_FAILURE(startTray(QProcess::MergedChannels));
    QString log;
    const auto logged = [&](const QString& line) {
        return waitFor([&] {
            m_tray.waitForReadyRead(10);
            log += QString::fromUtf8(m_tray.readAll());
            return log.contains(line);
        });
    };
    ASSERT_TRUE(logged(QStringLiteral("Nubo Shot started"))) << log.toStdString();
    ASSERT_NO_FATAL_FAILURE(startPointer(1920, 1080));
    ASSERT_EQ(test::runNuboShot({"capture", "recording"}).exitCode, 0);
    ASSERT_TRUE(logged(QStringLiteral("Recording overlay shown"))) << log.toStdString();
    ASSERT_NO_FATAL_FAILURE(pointer({"at 700 500", "press", "release"})); // the whole screen

    // The options bar floats at its own size; Start Recording is at its right end.
    QRect bar;
    ASSERT_TRUE(waitFor([&] {
        bar = windowRect(QStringLiteral("Nubo Shot Recording Options"));
        return !bar.isEmpty();
    })) << "no options bar";
    EXPECT_LT(bar.width(), 1920 * 3 / 4) << "the bar is stretched over the screen";
    EXPECT_LT(bar.height(), 100) << "the bar is stretched over the screen";
    ASSERT_NO_FATAL_FAILURE(pointer({QStringLiteral("at %1 %2")
                                         .arg(bar.right() - 80)
                                         .arg(bar.center().y())
                                         .toUtf8(),
                                     "press", "release", "at 1850 1000"}));
    ASSERT_TRUE(logged(QStringLiteral("Recording without a control bar"))) << log.toStdString();
    EXPECT_FALSE(tree().contains(u"Nubo Shot Recording")) << "a window of ours is on the screen";
    QThread::msleep(1500); // recorded: the desktop alone
    const QImage desktop = grim(m_dir.path(), {"-o", "HEADLESS-1"});
    ASSERT_EQ(test::runNuboShot({"capture", "recording"}).exitCode, 0);
    ASSERT_TRUE(logged(QStringLiteral("Recording saved to "))) << log.toStdString();
    const QString file =
        log.section(QStringLiteral("Recording saved to "), 1).section(u'\n', 0, 0).trimmed();
    // The desktop's notification service was told, as on X11 (dunst lists
    // a notification once it has been shown and gone, 10 s on).
    QElapsedTimer told;
    told.start();
    while (!run(QStringLiteral("dunstctl"), {"history"}).contains(u"Recording saved") &&
           told.elapsed() < 30000) {
        QThread::msleep(200);
    }
    EXPECT_LT(told.elapsed(), 30000) << "no notification of the saved recording";

    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    ASSERT_GE(movie.frames.size(), 10);
    // The last picture is the desktop as the compositor drew it while
    // recording, but for the counter's own row and where the pointer was left.
    // Compared by blocks of 16 pixels: the encoding blurs thin lines and
    // text, a window of ours would change whole blocks.
    const QImage last = movie.frames.last().convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(last.size(), desktop.size());
    const QRect pointerLeft(1808, 960, 112, 120);
    const auto mean = [](const QImage& image, const QRect& block) {
        double sum[3] = {};
        for (int y = block.top(); y <= block.bottom(); ++y) {
            for (int x = block.left(); x <= block.right(); ++x) {
                const QRgb c = image.pixel(x, y);
                sum[0] += qRed(c);
                sum[1] += qGreen(c);
                sum[2] += qBlue(c);
            }
        }
        const double n = double(block.width()) * block.height();
        return std::array<double, 3>{sum[0] / n, sum[1] / n, sum[2] / n};
    };
    int foreign = 0;
    QRect where;
    for (int y = 80; y + 16 <= last.height(); y += 16) { // below the counter
        for (int x = 0; x + 16 <= last.width(); x += 16) {
            const QRect block(x, y, 16, 16);
            if (block.intersects(pointerLeft)) {
                continue;
            }
            const auto a = mean(last, block), b = mean(desktop, block);
            if (std::abs(a[0] - b[0]) > 12 || std::abs(a[1] - b[1]) > 12 ||
                std::abs(a[2] - b[2]) > 12) {
                ++foreign;
                where |= block;
            }
        }
    }
    if (foreign > 0) {
        last.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/wayland-tray-recording.png"));
    }
    EXPECT_EQ(foreign, 0) << "something besides the desktop is in the movie, within "
                          << where.x() << "," << where.y() << " " << where.width() << "x"
                          << where.height();
    counter.kill();
    counter.waitForFinished();
}

// sway lists its windows to the programs of its session: `nuboshot windows`
// has them with their frames, a window is grabbed by its id, and the tray's
// Capture Window points at it on the overlay; each is the compositor's own
// pixels of the window.
TEST_F(Wayland, WindowsSwayListsAreGrabbedAndPointedAt)
{
    run(QStringLiteral("swaymsg"), {"for_window [app_id=\"test-counter-window\"] floating enable"});
    run(QStringLiteral("swaymsg"), {"focus_follows_mouse", "no"});
    QProcess counter;
    counter.start(QStringLiteral(NUBOSHOT_TEST_COUNTER_WINDOW),
                  {"--at", "400x300+0+0", "--still"});
    ASSERT_TRUE(counter.waitForReadyRead(10000)) << "the counter window did not open";
    run(QStringLiteral("swaymsg"), {"[app_id=\"test-counter-window\"] move position 300 200"});
    const QRect frame(300, 200, 400, 300);
    QImage expected;
    ASSERT_TRUE(waitFor([&] {
        expected = grim(m_dir.path(), {"-g", "300,200 400x300"});
        return expected.pixel(200, 150) == qRgb(40, 90, 160);
    })) << "the window is not where it was put";

    const test::ProcessResult listed = test::runNuboShot({"windows", "--json"});
    ASSERT_EQ(listed.exitCode, 0) << listed.err.toStdString();
    QString id;
    for (const QJsonValue& w : QJsonDocument::fromJson(listed.out.toUtf8()).array()) {
        if (w["application"].toString() == QLatin1String("test-counter-window")) {
            EXPECT_EQ(w["frame"].toArray(), QJsonArray({300, 200, 400, 300}));
            id = QString::number(w["id"].toInteger());
        }
    }
    ASSERT_FALSE(id.isEmpty()) << "the window is not listed: " << listed.out.toStdString();

    ASSERT_NO_FATAL_FAILURE(startPointer(1920, 1080));
    ASSERT_NO_FATAL_FAILURE(pointer({"at 1850 950"})); // away from the window
    const QString grabbed = m_dir.filePath(QStringLiteral("window.png"));
    const test::ProcessResult grab = test::runNuboShot({"grab", "window", id, "-o", grabbed});
    ASSERT_EQ(grab.exitCode, 0) << grab.err.toStdString();
    EXPECT_EQ(firstDifference(QImage(grabbed).convertToFormat(QImage::Format_RGB32), expected),
              QString());

    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_NO_FATAL_FAILURE(openOverlay("window"));
    ASSERT_NO_FATAL_FAILURE(pointer({"at 500 350", "move 5 5", "press", "release"}));
    const QString shot = recentShot(frame.size());
    ASSERT_FALSE(shot.isEmpty()) << "no recent shot of the window";
    EXPECT_EQ(firstDifference(QImage(shot).convertToFormat(QImage::Format_RGB32), expected),
              QString());
    counter.kill();
    counter.waitForFinished();
}

// Drag and drop under sway: the editor's Drag Me handle dragged with the
// seat's pointer onto another program's window hands it the shot's file.
TEST_F(Wayland, AShotIsDraggedOutOfTheEditorIntoAnotherProgram)
{
    const QString drops = m_dir.filePath(QStringLiteral("drops"));
    QDir().mkpath(drops);
    QProcess target;
    target.start(QStringLiteral(NUBOSHOT_TEST_DROP_TARGET),
                 {drops, "--geometry", "300x200+1200+100"});
    ASSERT_TRUE(target.waitForReadyRead(10000)) << "the drop target did not open";
    ASSERT_EQ(target.readLine().trimmed(), "ready");
    ASSERT_NO_FATAL_FAILURE(startTray());
    ASSERT_NO_FATAL_FAILURE(startPointer(1920, 1080));
    ASSERT_NO_FATAL_FAILURE(openOverlay("area"));
    ASSERT_NO_FATAL_FAILURE(pointer({"at 100 100", "press", "move 100 80", "move 100 80", "release"}));
    QRect editor;
    ASSERT_TRUE(waitFor([&] {
        editor = windowRect(QStringLiteral("200 \u00d7 160"));
        return !editor.isEmpty();
    })) << "no editor";
    settledGrim(m_dir.path()); // drawn
    // Drag Me sits in the bottom bar after Copy, Save and Save As.
    const QPoint handle(editor.left() + 318, editor.bottom() - 22);
    const QRect drop = windowRect(QStringLiteral("Drop Target"));
    ASSERT_FALSE(drop.isEmpty());
    QList<QByteArray> drag{QStringLiteral("at %1 %2").arg(handle.x()).arg(handle.y()).toUtf8(),
                           "press"};
    for (int i = 0; i < 10; ++i) {
        drag << QStringLiteral("move %1 %2")
                    .arg((drop.center().x() - handle.x()) / 10)
                    .arg((drop.center().y() - handle.y()) / 10)
                    .toUtf8();
    }
    drag << QStringLiteral("at %1 %2").arg(drop.center().x()).arg(drop.center().y()).toUtf8()
         << "release";
    ASSERT_NO_FATAL_FAILURE(pointer(drag));
    ASSERT_TRUE(target.waitForReadyRead(10000)) << "nothing was dropped";
    const QString copied = QString::fromUtf8(target.readLine()).section(u'\t', 0, 0);
    const QImage dropped(copied);
    EXPECT_EQ(dropped.size(), QSize(200, 160)) << copied.toStdString();
    target.kill();
    target.waitForFinished();
}

} // namespace
} // namespace nubo
