// The program on GNOME: its shell headless with GNOME's portal backend
// (scripts/headless-session --gnome). The portal's "Screen Share" dialog is
// answered with real input, and pictures are checked against the
// compositor's own (tests/support/MutterDesktop.cpp).
#include "support/MovieDecoder.h"
#include "support/Process.h"
#include "support/QtPrinters.h"

#include <QColorSpace>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <array>
#include <utility>

namespace nubo {
namespace {

constexpr QRgb dialogBody = 0xfffafafa; // the dialog's background
constexpr QRgb listRow = 0xffffffff;    // a row of its list
constexpr int topBar = 32;              // the shell's bar: a clock, and an icon while casting

bool bluish(QRgb pixel)
{
    return qBlue(pixel) > 0xc0 && qBlue(pixel) - qRed(pixel) > 0x30;
}

// A picture as read from a file, in 32-bit pixels, without the colour space
// our PNGs name (QImage's == would compare it).
QImage pixels(const QString& file)
{
    QImage image = QImage(file).convertToFormat(QImage::Format_RGB32);
    image.setColorSpace(QColorSpace());
    return image;
}

// Where a picture lies in a larger one, pixel for pixel; nothing where it
// does not.
std::optional<QPoint> findIn(const QImage& whole, const QImage& part)
{
    for (int y = 0; y + part.height() <= whole.height(); ++y) {
        for (int x = 0; x + part.width() <= whole.width(); ++x) {
            if (whole.pixel(x, y) != part.pixel(0, 0)) {
                continue;
            }
            if (whole.copy(x, y, part.width(), part.height()) == part) {
                return QPoint(x, y);
            }
        }
    }
    return std::nullopt;
}

class Gnome : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_EQ(qEnvironmentVariable("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"))
            << "runs in scripts/headless-session --gnome";
        ASSERT_TRUE(m_dir.isValid());
        // The shell starts in its overview: a user leaves it with Escape.
        ASSERT_TRUE(desktop({"key", "Escape", "wait", "400"}));
    }

    // Steps of tests/support/MutterDesktop.cpp, done as a user would.
    static bool desktop(const QStringList& steps)
    {
        QProcess p;
        p.start(QStringLiteral(NUBOSHOT_MUTTER_DESKTOP), steps);
        if (!p.waitForFinished(20000) || p.exitCode() != 0) {
            ADD_FAILURE() << "test-mutter-desktop " << steps.join(u' ').toStdString() << ": "
                          << p.readAllStandardError().toStdString();
            return false;
        }
        return true;
    }

    // The monitor as the compositor draws it, the pointer left out.
    QImage screen()
    {
        const QString file = m_dir.filePath(QStringLiteral("screen.png"));
        QFile::remove(file);
        desktop({"grab", file});
        return pixels(file);
    }

    // Waits for the portal's dialog, picks the first entry of its list (or,
    // `atSwitch`, turns on the switch at the end of that row: the remote
    // desktop's "Allow remote interaction") and presses Share, or presses
    // Cancel. False when no dialog came.
    bool answerScreenShare(bool share = true, bool atSwitch = false)
    {
        QElapsedTimer waited;
        waited.start();
        std::array<int, 4> seen{-1, -1, -1, -1}; // the dialog's place at the last look
        while (waited.elapsed() < 15000) {
            const QImage now = screen();
            // The dialog's body: the run of its background across the middle.
            const int middle = now.width() / 2;
            int bodyTop = -1;
            for (int y = topBar; y < now.height() && bodyTop < 0; ++y) {
                if (now.pixel(middle, y) == dialogBody && now.pixel(middle - 200, y) == dialogBody) {
                    bodyTop = y;
                }
            }
            int row = -1;
            for (int y = std::max(bodyTop, 0); bodyTop >= 0 && y < now.height() && row < 0; ++y) {
                row = now.pixel(middle, y) == listRow ? y : -1;
            }
            if (bodyTop < 0 || row < 0) {
                QThread::msleep(100);
                continue;
            }
            // Its edges, and its header bar above: Cancel at the left end, the
            // blue Share at the right end.
            int left = middle, right = middle;
            while (left > 0 && now.pixel(left - 1, bodyTop + 4) == dialogBody) {
                --left;
            }
            while (right + 1 < now.width() && now.pixel(right + 1, bodyTop + 4) == dialogBody) {
                ++right;
            }
            // Clicked only once the dialog stands still: two looks agree (it
            // grows into place, and lays its list out late under load).
            const std::array<int, 4> place{bodyTop, row, left, right};
            if (std::exchange(seen, place) != place) {
                QThread::msleep(100);
                continue;
            }
            const int header = bodyTop - 24;
            if (!bluish(now.pixel(right - 40, header))) {
                ADD_FAILURE() << "the dialog at " << bodyTop << " has no Share button";
                now.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-dialog.png"));
                return false;
            }
            const QString y = QString::number(header);
            int x = middle;
            while (atSwitch && x + 1 < now.width() && now.pixel(x + 1, row + 25) == listRow) {
                ++x; // to the switch, which is not white
            }
            x += atSwitch ? 24 : 0;
            const QStringList choose{"at", QString::number(x - 40), QString::number(row + 20),
                                     "wait", "150", "at", QString::number(x),
                                     QString::number(row + 25), "wait", "150", "click",
                                     "wait", "300"};
            const QStringList press{"at", QString::number(share ? right - 40 : left + 50), y,
                                    "wait", "150", "click", "wait", "200"};
            return desktop(share ? choose + press : press);
        }
        screen().save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-no-dialog.png"));
        ADD_FAILURE() << "the desktop's Screen Share dialog did not come";
        return false;
    }

    static std::unique_ptr<QProcess> nuboshot(const QStringList& arguments)
    {
        auto p = std::make_unique<QProcess>();
        p->start(QStringLiteral(NUBOSHOT_BINARY), arguments);
        EXPECT_TRUE(p->waitForStarted());
        return p;
    }
    static QString finished(QProcess& p, int exitCode = 0)
    {
        EXPECT_TRUE(p.waitForFinished(30000)) << "nuboshot did not end";
        const QString err = QString::fromUtf8(p.readAllStandardError());
        EXPECT_EQ(p.exitCode(), exitCode) << err.toStdString();
        return err;
    }

    std::unique_ptr<QProcess> counterWindow(bool still)
    {
        auto counter = std::make_unique<QProcess>();
        QStringList arguments{"--at", "400x300+100+100"};
        if (still) {
            arguments << "--still";
        }
        counter->start(QStringLiteral(NUBOSHOT_TEST_COUNTER_WINDOW), arguments);
        EXPECT_TRUE(counter->waitForReadyRead(10000)) << "the counter window did not open";
        return counter;
    }

    QTemporaryDir m_dir;
};

TEST_F(Gnome, StillsAskOnceThenComeFromTheKeptGrant)
{
    const auto counter = counterWindow(true);
    const QString first = m_dir.filePath(QStringLiteral("first.png"));
    const auto asked = nuboshot({"grab", "fullscreen", "-o", first});
    ASSERT_TRUE(answerScreenShare());
    finished(*asked);
    const QImage truth = screen();
    const QRect compared(0, topBar, truth.width(), truth.height() - topBar);
    const auto same = [&](const QString& file, const QImage& expected) {
        const QImage taken = pixels(file).copy(compared);
        if (taken != expected.copy(compared)) {
            const QString name = QFileInfo(file).completeBaseName();
            taken.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-%1.png").arg(name));
            expected.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-%1-expected.png").arg(name));
            QString where;
            for (int y = 0; y < taken.height() && where.isEmpty(); ++y) {
                for (int x = 0; x < taken.width() && where.isEmpty(); ++x) {
                    if (taken.pixel(x, y) != expected.pixel(x, y + topBar)) {
                        where = QStringLiteral("%1,%2").arg(x).arg(y + topBar);
                    }
                }
            }
            ADD_FAILURE() << name.toStdString() << " differs from the compositor's picture at "
                          << where.toStdString();
        }
    };
    same(first, truth);

    // The grant was remembered: the second still asks nobody.
    const QString second = m_dir.filePath(QStringLiteral("second.png"));
    const auto kept = nuboshot({"grab", "fullscreen", "-o", second});
    finished(*kept);
    same(second, screen());
}

TEST_F(Gnome, AWindowIsPickedInTheDesktopsDialog)
{
    const auto counter = counterWindow(true);
    const QString file = m_dir.filePath(QStringLiteral("window.png"));
    const auto grab = nuboshot({"grab", "window", "pick", "-o", file});
    ASSERT_TRUE(answerScreenShare());
    finished(*grab);
    const QImage window = pixels(file);
    // The window's own pixels, at its size, where the desktop shows it.
    ASSERT_EQ(window.size(), QSize(400, 300));
    // (once the dialog over it has faded out)
    QImage shown;
    QElapsedTimer waited;
    waited.start();
    std::optional<QPoint> at;
    while (!at && waited.elapsed() < 5000) {
        shown = screen();
        at = findIn(shown, window);
    }
    if (!at) {
        window.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-window.png"));
        shown.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-window-screen.png"));
        ADD_FAILURE() << "the picture is not the window's";
    }

    // Cancel in the dialog: nothing written, and the command says so.
    const QString declined = m_dir.filePath(QStringLiteral("declined.png"));
    const auto cancelled = nuboshot({"grab", "window", "pick", "-o", declined});
    ASSERT_TRUE(answerScreenShare(false));
    const QString err = finished(*cancelled, 1);
    EXPECT_TRUE(err.contains(QStringLiteral("cancelled"))) << err.toStdString();
    EXPECT_FALSE(QFile::exists(declined));
}

// From the running program: Capture Window goes straight to the desktop's
// dialog, and the editor opens on the window's pixels.
TEST_F(Gnome, TheTraysCaptureWindowAsksTheDesktopsDialog)
{
    auto counter = counterWindow(true);
    const QString file = m_dir.filePath(QStringLiteral("window.png"));
    const auto grab = nuboshot({"grab", "window", "pick", "-o", file});
    ASSERT_TRUE(answerScreenShare());
    finished(*grab);
    const QImage window = pixels(file);
    ASSERT_EQ(window.size(), QSize(400, 300));

    const auto tray = nuboshot({});
    const auto asked = nuboshot({"capture", "window"});
    finished(*asked);
    ASSERT_TRUE(answerScreenShare());
    // The window gone once its picture is taken: its pixels are then on the
    // screen only in the editor.
    QString log;
    QElapsedTimer waited;
    waited.start();
    while (!log.contains(QStringLiteral("Window picked by the desktop")) && waited.elapsed() < 20000) {
        tray->waitForReadyRead(500);
        log += QString::fromUtf8(tray->readAllStandardError());
    }
    counter->kill();
    counter->waitForFinished();
    std::optional<QPoint> shown;
    QImage now;
    waited.restart();
    while (!shown && waited.elapsed() < 10000) {
        now = screen();
        shown = findIn(now, window);
    }
    if (!shown) {
        now.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-tray-window.png"));
        log += QString::fromUtf8(tray->readAllStandardError());
        ADD_FAILURE() << "no editor shows the window's picture; the program's log:\n"
                      << log.toStdString();
    }
    tray->kill();
    tray->waitForFinished();
}

TEST_F(Gnome, AWindowPickedForARecordingHoldsEveryPaintInOrder)
{
    const auto counter = counterWindow(false);
    const QString folder = m_dir.filePath(QStringLiteral("movies"));
    const auto record =
        nuboshot({"record", "window", "pick", "--duration", "2", "--no-cursor", "-o", folder});
    ASSERT_TRUE(answerScreenShare());
    finished(*record);
    const test::DecodedMovie movie =
        test::decodeMovie(QString::fromUtf8(record->readAllStandardOutput()).trimmed());
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(400, 300));
    QList<int> seen;
    for (const QImage& frame : movie.frames) {
        seen.append(test::readCounter(frame, QPoint(16, 16)));
    }
    ASSERT_GE(seen.size(), 30) << "a changing window gave few pictures";
    qsizetype disorder = 0;
    for (qsizetype i = 1; i < seen.size(); ++i) {
        disorder += seen[i] < seen[i - 1] ? 1 : 0;
    }
    EXPECT_EQ(disorder, 0);
    EXPECT_GT(seen.last(), seen.first());
}

// Scrolling capture on GNOME, stitched from its screen cast to the page's
// whole content: the desktop is asked for its remote pointer (its "Remote
// desktop" dialog) and, granted, the wheel turns by itself and the capture
// ends at the end of the page; declined, the user scrolls with the wheel and
// asks again to finish.
TEST_F(Gnome, AScrolledPageStitchesToItsWholeContent)
{
    for (const bool granted : {true, false}) {
        SCOPED_TRACE(granted ? "auto-scroll" : "scrolled by hand");
        const QString truthFile = m_dir.filePath(QStringLiteral("truth.png"));
        QProcess page;
        page.start(QStringLiteral(NUBOSHOT_TEST_SCROLL_PAGE),
                   {"--at", "600x500+300+160", "--pages", "4", "--truth", truthFile});
        ASSERT_TRUE(page.waitForReadyRead(10000)) << "the page did not open";
        const QImage truth = pixels(truthFile);
        ASSERT_FALSE(truth.isNull());
        // Where GNOME put it: its header's pixels on the screen.
        const QImage header = truth.copy(0, 0, 600, 48);
        std::optional<QPoint> at;
        QElapsedTimer waited;
        waited.start();
        while (!at && waited.elapsed() < 10000) {
            at = findIn(screen(), header);
        }
        ASSERT_TRUE(at.has_value()) << "the page is not on the screen";
        const auto step = [](int v) { return QString::number(v); };

        const auto tray = std::make_unique<QProcess>();
        tray->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        tray->start(QStringLiteral(NUBOSHOT_BINARY), {});
        ASSERT_TRUE(tray->waitForStarted());
        finished(*nuboshot({"capture", "scrolling"}));
        if (granted) {
            ASSERT_TRUE(answerScreenShare()); // the first still of the overlay asks for the screen
        }
        waited.restart();
        while (findIn(screen(), header) && waited.elapsed() < 10000) {
            QThread::msleep(50); // until the overlay dims the page
        }
        // The page without its last 60 pixels (its footer among them) is framed.
        ASSERT_TRUE(desktop({"at", step(at->x()), step(at->y()), "wait", "100", "press", "at",
                             step(at->x() + 300), step(at->y() + 200), "at", step(at->x() + 600),
                             step(at->y() + 440), "wait", "100", "release", "wait", "300"}));
        ASSERT_TRUE(answerScreenShare(granted, true)); // the remote pointer
        if (!granted) {
            waited.restart();
            while (!findIn(screen(), header) && waited.elapsed() < 10000) {
                QThread::msleep(50); // until the dialog is gone
            }
            // Scrolled at once: the stitching starts from the framed page.
            QStringList wheel{"at", step(at->x() + 300), step(at->y() + 480)};
            for (int notch = 0; notch < 30; ++notch) {
                wheel << "scroll" << "1" << "wait" << "120";
            }
            ASSERT_TRUE(desktop(wheel));
            // Stopped as soon as the page shows its end.
            const QImage end = truth.copy(0, truth.height() - 60 - 392, 600, 392);
            waited.restart();
            while (screen().copy(QRect(*at + QPoint(0, 48), end.size())) != end &&
                   waited.elapsed() < 10000) {
                QThread::msleep(50);
            }
            finished(*nuboshot({"capture", "scrolling"}));
        }

        const QSize expected(600, truth.height() - 60);
        const QString recent =
            qEnvironmentVariable("XDG_DATA_HOME") + QStringLiteral("/NuboShot/Recent");
        QImage got;
        QString found;
        waited.restart();
        while (got.isNull() && waited.elapsed() < 20000) {
            QDirIterator images(recent, {QStringLiteral("*.png")}, QDir::Files,
                                QDirIterator::Subdirectories);
            while (images.hasNext()) {
                const QString file = images.next();
                if (!file.endsWith(u"thumbnail.png") && QImage(file).size() == expected) {
                    got = pixels(file);
                    found = file;
                }
            }
            QThread::msleep(100);
        }
        ASSERT_FALSE(got.isNull()) << "no stitched shot of " << expected.height() << " rows";
        QFile::remove(found); // the next round looks for its own
        if (got != truth.copy(QRect(QPoint(), expected))) {
            got.save(QStringLiteral(NUBOSHOT_TEST_ARTIFACTS "/gnome-scrolling.png"));
            ADD_FAILURE() << "the stitched page differs from its content";
        }
        tray->kill();
        tray->waitForFinished();
        page.kill();
        page.waitForFinished();
        // The editor the tray opened went with it.
    }
}

} // namespace
} // namespace nubo
