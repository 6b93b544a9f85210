#include "core/Settings.h"
#include "recording/ShotRecordingControls.h"
#include "recording/ShotRecordingWindows.h"
#include "support/LiveProcess.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QPushButton>
#include <QStandardItemModel>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace nubo {
namespace {

// A bar goes beside what is recorded, never over it, in the order below,
// above, right, left; with no room outside, at the target's bottom edge.
TEST(ShotRecordingLayout, BarsGoBesideTheTargetElseAtItsBottomEdge)
{
    const QRectF display(0, 0, 1920, 1080);
    const QSizeF bar(600, 40);
    constexpr double gap = ShotRecordingLayout::gap;
    struct Case {
        const char* name;
        QRectF target;
        QPointF expected;
    };
    const Case cases[] = {
        {"room below", {400, 200, 800, 500}, {500, 700 + gap}},
        {"at the bottom: above", {400, 600, 800, 470}, {500, 600 - gap - 40}},
        {"full height: right", {100, 0, 800, 1080}, {900 + gap, 520}},
        {"full height at the right: left", {1100, 0, 820, 1080}, {1100 - gap - 600, 520}},
        {"below, kept on the display", {1700, 100, 200, 300}, {1320, 400 + gap}},
        {"the whole display: inside at the bottom", display, {660, 1080 - gap - 40}},
    };
    for (const Case& c : cases) {
        const QPointF at = ShotRecordingLayout::beside(c.target, bar, display);
        EXPECT_EQ(at, c.expected) << c.name;
        const QRectF placed(at, bar);
        EXPECT_TRUE(display.contains(placed)) << c.name;
        if (c.target != display) {
            EXPECT_FALSE(placed.intersects(c.target)) << c.name << ": covers the target";
        }
    }
}

// The options bar's toggles store their keys at once; what this computer
// cannot record is disabled with its reason and never asked of the
// recorder; Return starts and Escape cancels.
TEST(ShotRecordingOptionsBar, ChoicesAreStoredAndUnavailableOnesSayWhy)
{
    ASSERT_FALSE(qEnvironmentVariableIsEmpty("DISPLAY")) << "runs in the private X session";
    QTemporaryDir home;
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(home.path()));
    ShotPreferences preferences;
    preferences.setValue(keys::recordingMicrophone, true);      // stored earlier, where it worked
    preferences.setValue(keys::recordingCodec, QStringLiteral("hevc"));
    ShotRecordingOptionsBar bar(preferences, {false, true, false}, QStringLiteral("600 \u00d7 400"));
    bar.setAttribute(Qt::WA_DeleteOnClose, false);
    bar.move(0, 200);
    bar.show();
    bar.activateWindow();
    test::settle(600); // the microphone list has come, the bar has its size
    ShotRecordingControls& c = bar.controls();

    EXPECT_FALSE(c.microphone->isEnabled());
    EXPECT_EQ(c.microphone->toolTip(),
              QStringLiteral("Microphone recording requires a running audio server."));
    EXPECT_FALSE(c.camera->isEnabled()) << "a camera on a machine without one";
    EXPECT_EQ(c.camera->toolTip(), QStringLiteral("No camera is available."));
    EXPECT_FALSE(c.options().camera);
    EXPECT_TRUE(c.clicks->isEnabled());
    const auto* model = qobject_cast<const QStandardItemModel*>(c.codec->model());
    EXPECT_FALSE(model->item(1)->isEnabled()) << "HEVC offered without an encoder";
    EXPECT_EQ(c.codec->currentIndex(), 0);
    // What the recorder gets: nothing this computer cannot do.
    const RecordingOptions asked = c.options();
    EXPECT_FALSE(asked.microphone);
    EXPECT_EQ(asked.codec, RecordingCodec::h264);

    const auto press = [](QWidget* w) {
        // xdotool speaks the screen's pixels; the widgets, points.
        const QPoint p = w->mapToGlobal(w->rect().center()) * w->devicePixelRatioF();
        test::xdotool({"mousemove", QString::number(p.x()), QString::number(p.y()), "click", "1"});
        test::settle(150);
    };
    press(c.systemAudio);
    press(c.clicks);
    press(c.cursor);
    EXPECT_TRUE(preferences.boolean(keys::recordingSystemAudio, false));
    EXPECT_TRUE(preferences.boolean(keys::recordingHighlightsClicks, false));
    EXPECT_FALSE(preferences.boolean(keys::recordingShowsCursor, true));
    // The disabled microphone keeps what was stored for a computer with a server.
    EXPECT_TRUE(preferences.boolean(keys::recordingMicrophone, false));
    test::saveArtifact(bar.grab().toImage(), QStringLiteral("recording-options-bar.png"));

    // Start hands the flow the options as chosen, nothing it cannot do.
    QList<RecordingOptions> started;
    int cancelled = 0;
    QObject::connect(&bar, &ShotRecordingOptionsBar::startRequested,
                     [&](const RecordingOptions& options) { started << options; });
    QObject::connect(&bar, &ShotRecordingOptionsBar::cancelled, [&] { ++cancelled; });
    bar.activateWindow();
    test::settle(200);
    test::xdotool({"key", "Return"});
    EXPECT_TRUE(test::settleUntil([&] { return !started.isEmpty(); }));
    test::xdotool({"key", "Escape"});
    EXPECT_TRUE(test::settleUntil([&] { return cancelled > 0; }));
    ASSERT_EQ(started.size(), 1);
    EXPECT_EQ(cancelled, 1);
    EXPECT_TRUE(started[0].systemAudio && started[0].highlightsClicks);
    EXPECT_FALSE(started[0].showsCursor || started[0].microphone);
    EXPECT_EQ(started[0].codec, RecordingCodec::h264);
}

// The control bar shows the elapsed time, and pause turns into resume.
TEST(ShotRecordingControlBar, ShowsTheTimeAndWhetherItIsPaused)
{
    ShotRecordingControlBar bar(true);
    bar.setAttribute(Qt::WA_DeleteOnClose, false);
    bar.show();
    test::settle(100);
    bar.showState({RecordingState::Recording{std::chrono::seconds(75)}});
    EXPECT_EQ(bar.elapsedText(), QStringLiteral("01:15"));
    auto* pause = bar.findChild<QAbstractButton*>(QStringLiteral("recording.pause"));
    ASSERT_TRUE(pause);
    EXPECT_EQ(pause->toolTip(), QStringLiteral("Pause Recording"));
    bar.showState({RecordingState::Paused{std::chrono::seconds(80)}});
    EXPECT_EQ(bar.elapsedText(), QStringLiteral("01:20"));
    EXPECT_EQ(pause->toolTip(), QStringLiteral("Resume Recording"));
    bar.setMicrophoneLevel(0.5f);
    test::saveArtifact(bar.grab().toImage(), QStringLiteral("recording-control-bar.png"));
    bar.showState({RecordingState::Finishing{}});
    EXPECT_FALSE(pause->isEnabled());
}

} // namespace
} // namespace nubo
