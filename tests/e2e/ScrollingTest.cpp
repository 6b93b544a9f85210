// Scrolling capture end to end: the tray application, a real scrollable
// window with a sticky header and footer, the overlay framed with the
// pointer, the page scrolled by the wheel or by auto-scroll, Return from
// anywhere, and the stitched shot compared with the page's whole content.

#include "core/Settings.h"
#include "support/Process.h"
#include "support/RenderFixtures.h"
#include "support/TrayFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QMimeData>
#include <QPainter>
#include <QPixmap>
#include <QRegularExpression>
#include <QScreen>
#include <QScopeGuard>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::run;
using test::waitUntil;
using test::windowShown;

const QString panelName = QStringLiteral("Nubo Shot Scrolling Capture");

void xdotool(const QStringList& steps)
{
    run(QStringLiteral("xdotool"), steps);
}

// A window's geometry as xdotool reports it.
QRect windowGeometry(const QString& name)
{
    const QString id = run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", name})
                           .split(u'\n', Qt::SkipEmptyParts)
                           .value(0);
    const QString shell =
        run(QStringLiteral("xdotool"), {"getwindowgeometry", "--shell", id});
    const auto value = [&](const char* key) {
        const auto match =
            QRegularExpression(QString::fromLatin1(key) + QStringLiteral("=(-?\\d+)")).match(shell);
        return match.hasMatch() ? match.captured(1).toInt() : -1;
    };
    return id.isEmpty() ? QRect() : QRect(value("X"), value("Y"), value("WIDTH"), value("HEIGHT"));
}

QPoint pointer()
{
    const QString where = run(QStringLiteral("xdotool"), {"getmouselocation", "--shell"});
    const auto value = [&](const char* key) {
        const auto match =
            QRegularExpression(QString::fromLatin1(key) + QStringLiteral("=(\\d+)")).match(where);
        return match.hasMatch() ? match.captured(1).toInt() : -1;
    };
    return {value("X"), value("Y")};
}

QImage clipboardImage()
{
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    return mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG") : QImage();
}

// The screen's pixels of `area` once two looks a moment apart agree.
QImage settled(const QRect& area)
{
    QImage last;
    waitUntil([&] {
        const QImage now = QGuiApplication::primaryScreen()
                               ->grabWindow(0, area.x(), area.y(), area.width(), area.height())
                               .toImage()
                               .convertToFormat(QImage::Format_RGB32);
        const bool same = now == last;
        last = now;
        return same;
    }, 5000);
    return last;
}

class Scrolling : public test::Tray {
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(Tray::SetUp());
        ShotPreferences preferences; // the shot lands on the clipboard to be compared
        preferences.setValue(keys::copyRawOnCapture, true);
        preferences.sync();
        ASSERT_NO_FATAL_FAILURE(startTray());
    }
    void TearDown() override
    {
        if (m_page.state() != QProcess::NotRunning) {
            m_page.terminate();
            m_page.waitForFinished(5000);
        }
        Tray::TearDown();
    }

    // Opens the page (`pages` screens of content) and returns where it is;
    // its whole content is in m_truth.
    QRect openPage(int pages, const QRect& at = QRect(300, 160, 600, 500))
    {
        const QSize size = at.size();
        const QString truth = m_dir.filePath(QStringLiteral("truth.png"));
        m_page.start(QStringLiteral(NUBOSHOT_TEST_SCROLL_PAGE),
                     {"--at", QStringLiteral("%1x%2+%3+%4")
                                  .arg(size.width())
                                  .arg(size.height())
                                  .arg(at.x())
                                  .arg(at.y()),
                      "--pages", QString::number(pages), "--truth", truth});
        if (!m_page.waitForReadyRead(10000)) {
            return {};
        }
        const auto ready = QRegularExpression(QStringLiteral("ready (\\d+) (\\d+)"))
                               .match(QString::fromUtf8(m_page.readAllStandardOutput()));
        QImageReader::setAllocationLimit(1024); // MB: tall pages and their shots
        m_truth = QImage(truth);
        return ready.hasMatch()
                   ? QRect(QPoint(ready.captured(1).toInt(), ready.captured(2).toInt()), size)
                   : QRect();
    }

    // Starts a scrolling capture and frames `area` with the pointer; true
    // once the panel is up.
    bool frame(const QRect& area, bool byShortcut = false)
    {
        if (byShortcut) {
            xdotool({"key", "ctrl+shift+Print"});
        } else if (test::runNuboShot({"capture", "scrolling"}).exitCode != 0) {
            return false;
        }
        if (!waitUntil([] { return windowShown(QStringLiteral("Nubo Shot Capture")); })) {
            return false;
        }
        QThread::msleep(150);
        const QPoint end = area.topLeft() + QPoint(area.width(), area.height());
        xdotool({"mousemove", QString::number(area.x()), QString::number(area.y()), "mousedown",
                 "1", "mousemove", QString::number(area.center().x()),
                 QString::number(area.center().y()), "mousemove", QString::number(end.x()),
                 QString::number(end.y()), "mouseup", "1"});
        return waitUntil([] { return windowShown(panelName); });
    }

    // Return (from anywhere) ends the capture; the stitched shot opens in an
    // editor and lands on the clipboard.
    QImage finishAndTakeShot(const QSize& expected)
    {
        xdotool({"key", "Return"});
        return takeShot(expected);
    }
    QImage takeShot(const QSize& expected)
    {
        const QString title = QStringLiteral("%1 \u00d7 %2").arg(expected.width()).arg(expected.height());
        if (!waitUntil([&] { return windowShown(title); })) {
            ADD_FAILURE() << "no editor titled " << title.toStdString() << "; log:\n"
                          << m_log.toStdString();
            return {};
        }
        QImage shot;
        waitUntil([&] { return (shot = clipboardImage()).size() == expected; });
        return shot;
    }

    // Scrolls the program under `area` to its first line, frames it, scrolls
    // it to the end a notch every 0.15 s and checks the stitched shot: the
    // first and last screens, and every notch's screen where it belongs.
    void checkWholeLineScrolling(const QRect& area, int linesPerNotch, int notchesToEnd)
    {
        const auto wheel = [&](int button, int notches, int delay) {
            xdotool({"mousemove", QString::number(area.center().x()), QString::number(area.center().y()),
                     "click", "--repeat", QString::number(notches), "--delay", QString::number(delay),
                     QString::number(button)});
        };
        wheel(4, 80, 5); // to the first line
        const QImage top = settled(area);
        ASSERT_TRUE(frame(area)) << "no scrolling panel";
        wheel(5, notchesToEnd, 150); // as a user does: a notch every 0.15 s, to the end
        const QImage bottom = settled(area);
        xdotool({"key", "Return"});
        QImage shot;
        ASSERT_TRUE(waitUntil([&] { return (shot = clipboardImage()).height() > area.height(); }, 15000))
            << "no stitched shot; log:\n" << m_log.toStdString();
        shot = shot.convertToFormat(QImage::Format_RGB32);
        ASSERT_EQ(shot.width(), area.width());
        const auto at = [&](int y) { return shot.copy(0, y, area.width(), area.height()); };
        const auto same = [](const QImage& a, const QImage& b) {
            return a.size() == b.size() && test::compareImages(a, b, 0).pixelsOver == 0;
        };
        // Every screen on the way is in the shot where it belongs, but for the
        // scroll bar (stitched as it was at each step).
        const int bar = 24; // no wider than the strip left out of the comparison
        const auto content = [&](const QImage& image) {
            return image.copy(bar, 0, image.width() - 2 * bar, image.height()); // either side
        };
        EXPECT_TRUE(same(at(0), top)) << "the top is not the first screen";
        EXPECT_TRUE(same(content(at(shot.height() - area.height())), content(bottom)))
            << "stalled before the last line";

        // The screens between: scrolled back to the top and down a notch at a
        // time, the editor closed.
        const QString editor = QStringLiteral("%1 \u00d7 %2").arg(shot.width()).arg(shot.height());
        ASSERT_TRUE(waitUntil([&] { return windowShown(editor); }));
        xdotool({"search", "--onlyvisible", "--name", editor, "windowclose"});
        ASSERT_TRUE(waitUntil([&] { return !windowShown(editor); }));
        // Each screen is found in the shot below the one before, at most two
        // notches further (the first notch may also pass a margin).
        wheel(4, 80, 5);
        settled(area);
        const int lastTop = shot.height() - area.height();
        int y = 0, notches = 0;
        while (true) {
            wheel(5, 1, 0);
            const QImage screen = content(settled(area));
            int found = y + 1;
            while (found <= lastTop && found <= y + 2 * linesPerNotch * 24 &&
                   !same(content(at(found)), screen)) {
                ++found;
            }
            // (The last screens hold the terminal's cursor line, drawn
            // otherwise now that it has the focus: compared above.)
            if (found > lastTop || found > y + 2 * linesPerNotch * 24) {
                EXPECT_GE(y + area.height() + 2 * linesPerNotch * 24, shot.height())
                    << "notch " << notches + 1 << "'s screen is not in the shot below " << y;
                break;
            }
            y = found;
            ++notches;
        }
        EXPECT_GT(notches, 20);
        if (HasFailure()) {
            test::saveArtifact(shot, QStringLiteral("scrolling-lines-result.png"));
        }
    }

    QTemporaryDir m_dir;
    QProcess m_page;
    QImage m_truth;
};

TEST_F(Scrolling, TheWheelScrolledPageStitchesToItsWholeContent)
{
    const QRect page = openPage(4);
    ASSERT_FALSE(page.isEmpty());
    ASSERT_FALSE(m_truth.isNull());
    ASSERT_TRUE(frame(page)) << "no scrolling panel";

    // The panel sits beside the area, never over what is sampled.
    const QRect panel = windowGeometry(panelName);
    EXPECT_FALSE(panel.intersects(page)) << "panel at " << panel.x() << "," << panel.y();
    EXPECT_TRUE(QGuiApplication::primaryScreen()->geometry().contains(panel));

    // The user scrolls down a little, back up, and on to the end: the wheel
    // a notch at a time, and the keys.
    const QPoint inside = page.center();
    xdotool({"mousemove", QString::number(inside.x()), QString::number(inside.y())});
    xdotool({"click", "--repeat", "6", "--delay", "90", "5"});
    xdotool({"click", "--repeat", "3", "--delay", "90", "4"});
    xdotool({"click", "--repeat", "14", "--delay", "90", "5"});
    // A click into the page raises it: the panel and the outline stay on top.
    xdotool({"click", "1"});
    QImage screen;
    EXPECT_TRUE(waitUntil([&] {
        screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        return screen.pixelColor(page.left() - 2, page.center().y()) == QColor(0x2f, 0x80, 0xed);
    })) << "the outline is not on screen";
    test::saveArtifact(screen, QStringLiteral("scrolling-session.png"));
    // The page has the keyboard now: its arrow keys scroll it too.
    xdotool({"key", "--repeat", "6", "--delay", "60", "Down"});
    xdotool({"click", "--repeat", "20", "--delay", "60", "5"});
    settled(page); // at its end

    const QImage shot = finishAndTakeShot(m_truth.size());
    ASSERT_EQ(shot.size(), m_truth.size());
    const test::ImageDifference difference = test::compareImages(shot, m_truth, 0);
    if (difference.pixelsOver > 0) {
        test::saveArtifact(shot, QStringLiteral("scrolling-wheel-result.png"));
    }
    EXPECT_EQ(difference.pixelsOver, 0) << "the stitched page differs from its content";
    EXPECT_FALSE(windowShown(panelName));
}

TEST_F(Scrolling, ATerminalScrolledWholeLinesANotchStitchesEveryLine)
{
    // Programs that scroll whole lines a notch, with no smooth scrolling,
    // and a scroll bar whose thumb moves as they scroll: xterm (five lines
    // a notch; it moves its lines first and paints the new ones after).
    struct Case {
        const char* title;
        QString program;
        QStringList arguments;
        int linesPerNotch, notchesToEnd;
    };
    const Case cases[] = {
        {"Terminal Under Test", QStringLiteral("xterm"),
         {"-title", "Terminal Under Test", "-sb", "-fa", "DejaVu Sans Mono", "-fs", "10", "-geometry",
          "50x20+300+160", "-e", "sh", "-c", "seq 300; exec sleep 600"},
         5, 64},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.title);
        QProcess terminal;
        terminal.start(c.program, c.arguments);
        const auto stop = qScopeGuard([&] {
            terminal.kill();
            terminal.waitForFinished();
        });
        const QString title = QString::fromLatin1(c.title);
        ASSERT_TRUE(waitUntil([&] { return windowShown(title); }));
        const QRect area = test::windowGeometry(
            run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", title})
                .split(u'\n', Qt::SkipEmptyParts)
                .value(0));
        ASSERT_FALSE(area.isEmpty());
        ASSERT_NO_FATAL_FAILURE(checkWholeLineScrolling(area, c.linesPerNotch, c.notchesToEnd));
    }
}

TEST_F(Scrolling, AutoScrollAloneGivesTheSamePageAndPutsThePointerBack)
{
    const QRect page = openPage(6);
    ASSERT_FALSE(page.isEmpty());
    ASSERT_TRUE(frame(page)) << "no scrolling panel";
    const QRect panel = windowGeometry(panelName);
    // Auto-scroll is the wide button above Cancel and Done.
    const QPoint button(panel.center().x(), panel.bottom() - 64);
    xdotool({"mousemove", QString::number(button.x()), QString::number(button.y()), "click", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Auto-scroll started"), 5000))
        << "the click missed the button; log:\n" << m_log.toStdString();
    ASSERT_TRUE(waitForLog(QStringLiteral("Auto-scroll ended"), 30000)) << m_log.toStdString();
    EXPECT_TRUE(m_log.contains(QStringLiteral("Auto-scroll reached the end")))
        << m_log.toStdString();
    EXPECT_EQ(pointer(), button) << "the pointer was not put back";

    const QImage shot = finishAndTakeShot(m_truth.size());
    ASSERT_EQ(shot.size(), m_truth.size());
    const test::ImageDifference difference = test::compareImages(shot, m_truth, 0);
    if (difference.pixelsOver > 0) {
        test::saveArtifact(shot, QStringLiteral("scrolling-auto-result.png"));
    }
    EXPECT_EQ(difference.pixelsOver, 0);
}

TEST_F(Scrolling, TheSizeLimitEndsTheCaptureWithTheTopOfThePageAndItsFooter)
{
    // A page wider than there is room beside: the panel takes a strip at
    // the right of the area, which is not sampled.
    const QRect page = openPage(25, QRect(20, 20, 1800, 1000));
    ASSERT_FALSE(page.isEmpty());
    ASSERT_TRUE(frame(page)) << "no scrolling panel";
    const QRect panel = windowGeometry(panelName);
    EXPECT_TRUE(page.contains(panel));
    const int sampledWidth = panel.left() - 12 - page.left();
    xdotool({"mousemove", QString::number(panel.center().x()),
             QString::number(panel.bottom() - 64), "click", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Auto-scroll started"), 5000)) << m_log.toStdString();

    // 128 MiB of rows of that width; the capture finishes by itself.
    const int rows = int((qint64(128) << 20) / (qint64(sampledWidth) * 4));
    ASSERT_LT(rows, m_truth.height());
    const QImage shot = takeShot(QSize(sampledWidth, rows));
    ASSERT_EQ(shot.size(), QSize(sampledWidth, rows));
    constexpr int footer = 26; // the page's status bar
    QImage expected = m_truth.copy(0, 0, sampledWidth, rows);
    {
        QPainter p(&expected);
        p.drawImage(QPoint(0, rows - footer),
                    m_truth.copy(0, m_truth.height() - footer, sampledWidth, footer));
    }
    EXPECT_EQ(test::compareImages(shot, expected, 0).pixelsOver, 0)
        << "not the top of the page and its footer";
    EXPECT_TRUE(waitForLog(QStringLiteral("Scrolling capture stopped at its size limit: %1 rows")
                               .arg(rows)));
}

TEST_F(Scrolling, AKeyStopsAutoScrollAndEscapeLeavesNothingBehind)
{
    const QRect page = openPage(30);
    ASSERT_FALSE(page.isEmpty());
    ASSERT_TRUE(frame(page)) << "no scrolling panel";
    const QRect panel = windowGeometry(panelName);
    xdotool({"mousemove", QString::number(panel.center().x()),
             QString::number(panel.bottom() - 64), "click", "1"});
    ASSERT_TRUE(waitForLog(QStringLiteral("Auto-scroll started"), 5000)) << m_log.toStdString();
    QThread::msleep(400);
    xdotool({"key", "shift"}); // any key of the user's
    ASSERT_TRUE(waitForLog(QStringLiteral("Auto-scroll ended"), 5000)) << m_log.toStdString();
    EXPECT_TRUE(m_log.contains(QStringLiteral("Auto-scroll: the user pressed a key")));

    xdotool({"key", "Escape"});
    EXPECT_TRUE(waitUntil([] { return !windowShown(panelName); }));
    EXPECT_FALSE(windowShown(QStringLiteral("Nubo Shot Scrolling Area")));
    QThread::msleep(300);
    EXPECT_FALSE(windowShown(QStringLiteral("\u00d7"))) << "an editor opened";
    EXPECT_FALSE(windowShown(QStringLiteral("Could Not Capture Screen")));
    EXPECT_EQ(m_app.state(), QProcess::Running);
    // Return and Escape belong to everyone again, and a new capture can
    // start, from its shortcut this time.
    ASSERT_TRUE(frame(page, true)) << "Ctrl+Shift+Print did not start a scrolling capture";
    xdotool({"key", "Escape"});
    EXPECT_TRUE(waitUntil([] { return !windowShown(panelName); }));
}

} // namespace
} // namespace nubo
