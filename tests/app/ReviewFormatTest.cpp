// The review window's export as an animation, chosen in its format menu
// with the pointer and exported with Ctrl+E; the GIF is read back by FFmpeg.

#include "support/CounterMovie.h"
#include "support/EditorFixture.h"
#include "support/LiveProcess.h"
#include "support/MovieDecoder.h"
#include "support/RenderFixtures.h"

#include "core/Settings.h"
#include "review/ShotReviewWindow.h"

#include <QLabel>
#include <QMenu>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QToolButton>

namespace nubo {
namespace {

using test::settleUntil;
using test::xdotool;

QStringList at(QPoint point)
{
    const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    return {"mousemove", QString::number(int(point.x() * ratio)), QString::number(int(point.y() * ratio))};
}

// Opens the format menu with a click and clicks its item `title` from a
// timer (the menu runs a loop of its own); the menu's items as shown.
QStringList chooseFormat(QToolButton& button, const QString& title)
{
    QStringList items;
    bool clicked = false;
    QTimer answer;
    answer.setInterval(50);
    QObject::connect(&answer, &QTimer::timeout, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (!menu || clicked) {
            return;
        }
        if (title == QStringLiteral("GIF")) {
            const bool twice = QGuiApplication::primaryScreen()->devicePixelRatio() > 1;
            test::saveArtifact(QGuiApplication::primaryScreen()->grabWindow(0).toImage(),
                               twice ? QStringLiteral("review-format@2x.png") : QStringLiteral("review-format.png"));
        }
        for (QAction* action : menu->actions()) {
            items << (action->isSeparator() ? QStringLiteral("-") : action->text());
            if (action->text() == title) {
                const QPoint centre = menu->mapToGlobal(menu->actionGeometry(action).center());
                QProcess::startDetached(QStringLiteral("xdotool"), at(centre) << "click" << "1");
                clicked = true;
            }
        }
        if (!clicked) {
            menu->close(); // no such item: the test fails on the list
        }
    });
    answer.start();
    xdotool(at(button.mapToGlobal(button.rect().center())) << "click" << "1");
    settleUntil([&] { return QApplication::activePopupWidget() == nullptr; });
    return items;
}

class ReviewFormat : public test::EditorFixture {};

TEST_F(ReviewFormat, AGifOfTheEditIsChosenInTheMenuAndExported)
{
    const QString movie = m_dir.filePath(QStringLiteral("movie.mp4"));
    ASSERT_EQ(test::writeCounterMovie(movie, {4, QSize(640, 360), 30, false}), QString());
    QDir(m_dir.path()).mkdir(QStringLiteral("out"));
    m_preferences->setValue(keys::recordingFolder, m_dir.filePath(QStringLiteral("out")));
    ShotReviewWindow window(movie, *m_preferences);
    window.resize(900, 640);
    activate(window);
    auto* format = window.findChild<QToolButton*>(QStringLiteral("reviewQuality"));
    ASSERT_NE(format, nullptr);
    EXPECT_TRUE(format->text().startsWith(QStringLiteral("MP4"))) << format->text().toStdString();

    const QStringList items = chooseFormat(*format, QStringLiteral("GIF"));
    EXPECT_TRUE(items.contains(QStringLiteral("Animated WebP"))) << items.join(u'|').toStdString();
    ASSERT_EQ(window.exportFormat(), AnimationFormat::gif) << items.join(u'|').toStdString();
    EXPECT_EQ(format->text(), QStringLiteral("GIF · 15 fps · 640 px"));
    // Wider than the recording cannot be chosen; a rate can.
    QStringList widths;
    QAction* wider = nullptr;
    emit format->menu()->aboutToShow();
    for (QAction* action : format->menu()->actions()) {
        if (action->text() == QStringLiteral("1280 px")) {
            wider = action;
        }
    }
    ASSERT_NE(wider, nullptr);
    EXPECT_FALSE(wider->isEnabled());
    chooseFormat(*format, QStringLiteral("10 fps"));
    EXPECT_EQ(format->text(), QStringLiteral("GIF · 10 fps · 640 px"));
    EXPECT_TRUE(window.exportPath().endsWith(QStringLiteral("movie (edited).gif")));
    const auto* estimate = window.findChild<QLabel*>(QStringLiteral("reviewEstimate"));
    ASSERT_NE(estimate, nullptr);
    EXPECT_TRUE(estimate->text().startsWith(QStringLiteral("640 × 360 · about "))) << estimate->text().toStdString();

    QString exported, failure;
    QObject::connect(&window, &ShotReviewWindow::exportFinished, [&](const QString& file, const QString& error) {
        exported = file;
        failure = error;
    });
    xdotool({"key", "ctrl+e"});
    ASSERT_TRUE(settleUntil([&] { return !exported.isEmpty() || !failure.isEmpty(); }, 30000));
    ASSERT_EQ(failure, QString());
    const test::DecodedMovie gif = test::decodeMovie(exported);
    EXPECT_EQ(gif.codec, QStringLiteral("gif"));
    EXPECT_EQ(QSize(gif.width, gif.height), QSize(640, 360));
    EXPECT_NEAR(gif.frames.size(), 40, 1) << "4 s at 10 pictures a second";
}

} // namespace
} // namespace nubo
