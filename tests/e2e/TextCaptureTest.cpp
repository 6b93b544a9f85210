// Capture Text from the tray, driven as a user does: a terminal shows known
// text, `nuboshot capture text` brings up the overlay, a drag frames the
// text; its words land on the clipboard and a notification counts them and
// opens the framed picture in an editor.

#include "support/Process.h"
#include "support/TextMeasures.h"
#include "support/TrayFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>
#include <QProcess>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QScreen>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::run;
using test::Tray;
using test::waitUntil;
using test::windowShown;

// Whether the screen's rectangle shows dark pixels (a terminal's text).
bool showsText(const QRect& area)
{
    const QImage picture = QGuiApplication::primaryScreen()->grabWindow(0, area.x(), area.y(),
                                                                        area.width(), area.height())
                               .toImage();
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < 80) {
                return true;
            }
        }
    }
    return false;
}

TEST_F(Tray, CaptureTextCopiesTheFramedWordsAndOffersTheEditor)
{
    const QString text = QStringLiteral("The quick brown fox jumps over the lazy dog.\n"
                                        "Pack my box with five dozen liquor jugs.\n"
                                        "    return sphinx.of(black, quartz);");
    run(QStringLiteral("dunstctl"), {"close-all"}); // another test's would answer for ours
    ASSERT_NO_FATAL_FAILURE(startTray());
    QProcess terminal;
    // The cursor hidden: a block after the text is no letter.
    terminal.start(QStringLiteral("xterm"),
                   {"-title", "Text Under Test", "-fa", "DejaVu Sans Mono", "-fs", "13", "-bg",
                    "white", "-fg", "black", "-geometry", "60x5+300+200", "-e", "sh", "-c",
                    "printf '\\033[?25l%s' \"$0\"; exec sleep 600", text});
    const auto stop = qScopeGuard([&] {
        terminal.kill();
        terminal.waitForFinished();
    });
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Text Under Test")); }));
    const QRect window = test::shownWindowGeometry(QStringLiteral("Text Under Test"));
    ASSERT_FALSE(window.isEmpty());
    ASSERT_TRUE(waitUntil([&] { return showsText(window); })) << "the terminal shows no text";
    QGuiApplication::clipboard()->clear();

    ASSERT_EQ(test::runNuboShot({"capture", "text"}).exitCode, 0);
    ASSERT_TRUE(waitUntil([] { return windowShown(QStringLiteral("Nubo Shot Capture")); }));
    const QRect framed = window.adjusted(1, 1, -1, -1);
    run(QStringLiteral("xdotool"),
        {"mousemove", QString::number(framed.left()), QString::number(framed.top()), "mousedown",
         "1", "mousemove", QString::number(framed.center().x()), QString::number(framed.center().y()),
         "mousemove", QString::number(framed.right() + 1), QString::number(framed.bottom() + 1),
         "mouseup", "1"});

    QString copied;
    ASSERT_TRUE(waitUntil([&] {
        copied = QGuiApplication::clipboard()->text();
        return !copied.isEmpty();
    }, 20000)) << "no text on the clipboard";
    EXPECT_LE(test::characterErrorRate(copied, text), 0.02) << copied.toStdString();
    // The code line keeps its indentation.
    EXPECT_TRUE(copied.contains(QStringLiteral("\n    return"))) << copied.toStdString();
    EXPECT_FALSE(windowShown(QStringLiteral("Nubo Shot Capture")));

    // The notification counts the words; its button opens the framed picture.
    const int words = int(text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts).size());
    const QString told = QStringLiteral("Copied %1 words").arg(words);
    ASSERT_TRUE(waitUntil([&] {
        return run(QStringLiteral("dunstctl"), {"count", "displayed"}).trimmed().toInt() > 0;
    })) << "no notification";
    run(QStringLiteral("dunstctl"), {"action", "0"});
    EXPECT_TRUE(waitUntil([&] {
        return windowShown(QStringLiteral("%1 \u00d7 %2").arg(framed.width()).arg(framed.height()));
    })) << "no editor for the framed picture";
    EXPECT_TRUE(waitUntil([&] {
        run(QStringLiteral("dunstctl"), {"close-all"});
        return run(QStringLiteral("dunstctl"), {"history"}).contains(told);
    }, 5000)) << "no \"" << told.toStdString() << "\" notification";
}

} // namespace
} // namespace nubo
