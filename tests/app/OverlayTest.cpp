#include "overlay/ShotCaptureOverlay.h"
#include "overlay/ShotOverlayController.h"
#include "shell/GrabRequest.h"
#include "support/LiveProcess.h"
#include "support/ArchiveFixtures.h"
#include "support/QtPrinters.h"
#include "core/Settings.h"
#include "support/RenderFixtures.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryDir>
#include <QtMath>

#include <cmath>

#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(ShotCaptureOverlay, CornerHandlesByTheEightPointRule)
{
    const QRectF selection(100, 100, 200, 100);
    struct Case {
        const char* name;
        QPointF pointer;
        std::optional<ResizeHandle> expected;
    };
    const Case cases[] = {
        {"8 right and 8 below a corner", {308, 208}, ResizeHandle::bottomRight},
        {"8.1 away on one axis", {308.1, 200}, std::nullopt},
        {"on the top-left corner", {100, 100}, ResizeHandle::topLeft},
        {"inside, far from corners", {200, 150}, std::nullopt},
        {"nearest of two candidates", {102, 100}, ResizeHandle::topLeft},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ShotCaptureOverlay::cornerAt(selection, c.pointer), c.expected) << c.name;
    }
    // Equally close to two corners: the earlier one in the order wins.
    const QRectF thin(0, 0, 10, 4);
    EXPECT_EQ(ShotCaptureOverlay::cornerAt(thin, {5, 0}), ResizeHandle::topLeft);
    EXPECT_EQ(ShotCaptureOverlay::cornerAt(thin, {5, 4}), ResizeHandle::bottomRight);
}

TEST(ShotCaptureOverlay, ArrowKeysMoveAndStopAtTheEdges)
{
    const QSizeF view(1000, 600);
    struct Case {
        QRectF selection;
        QPointF by;
        QRectF expected;
    };
    const Case cases[] = {
        {{895, 10, 100, 50}, {10, 0}, {900, 10, 100, 50}},
        {{5, 10, 100, 50}, {-10, 0}, {0, 10, 100, 50}},
        {{5, 545, 100, 50}, {0, 10}, {5, 550, 100, 50}},
        {{5, 100, 100, 50}, {0, -1}, {5, 99, 100, 50}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ShotCaptureOverlay::nudged(c.selection, c.by, view), c.expected);
    }
    // Where windows cannot be picked, Space is not offered.
    EXPECT_FALSE(ShotCaptureOverlay::instruction(ShotCaptureOverlay::Mode::area, false, false)
                     .contains(QLatin1String("Space")));
    EXPECT_FALSE(ShotCaptureOverlay::instruction(ShotCaptureOverlay::Mode::area, true, false)
                     .contains(QLatin1String("Space")));
}


// The framing the overlay answers with is the one the command line builds
// for the same rectangle, so stills, streams and recordings of either agree.
class OverlayFraming : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("DISPLAY"))
            << "runs in the private X session of scripts/test";
        const QScreen* screen = QGuiApplication::primaryScreen();
        const double scale = screen->devicePixelRatio();
        const QRectF global = screen->geometry();
        m_display.id = 7;
        m_display.space.displayID = 7;
        m_display.space.globalFrame = global;
        m_display.space.scale = scale;
        m_display.space.captureFrame =
            QRectF(global.topLeft() * scale, global.size() * scale);
        m_display.image = test::patternImage(int(global.width() * scale),
                                             int(global.height() * scale));
        QObject::connect(&m_overlay, &ShotOverlayController::answered,
                         [this](const ShotOverlayOutcome& o) { m_outcome = o; });
    }

    // The overlay's answer to real pointer input; nullopt when none came.
    std::optional<ShotCaptureSelection> frame(CaptureMode mode, const QStringList& input)
    {
        m_overlay.present({m_display}, {m_window}, mode);
        const QDeadlineTimer shown(5000);
        while (m_overlay.overlays().isEmpty() || !m_overlay.overlays().first()->isVisible()) {
            if (shown.hasExpired()) {
                return std::nullopt;
            }
            test::settle(20);
        }
        test::settle();
        test::xdotool(input);
        const QDeadlineTimer answered(5000);
        while (!m_outcome && !answered.hasExpired()) {
            test::settle(20);
        }
        if (!m_outcome) {
            return std::nullopt;
        }
        return std::get<ShotOverlayOutcome::Capture>(m_outcome->outcome).selection;
    }

    // What `nuboshot grab region X,Y,W,H` frames for a global rectangle.
    ShotCaptureSelection commandLine(const QRectF& global) const
    {
        GrabRequest request;
        request.mode = GrabRequest::Mode::region;
        const double s = m_display.space.scale;
        request.region = QRectF(global.topLeft() * s, global.size() * s);
        return request.framing({m_display.space});
    }

    DisplayCapture m_display;
    CapturableWindow m_window{4242, QStringLiteral("Notes"), QStringLiteral("notes"),
                              QRectF(300, 200, 333, 211), 0};
    ShotOverlayController m_overlay;
    std::optional<ShotOverlayOutcome> m_outcome;
};

TEST_F(OverlayFraming, AnAreaIsWhatTheCommandLineFramesForItsRectangle)
{
    const auto framed = frame(CaptureMode::area, {"mousemove", "100", "50", "mousedown", "1",
                                                  "mousemove", "250", "150", "mousemove", "400",
                                                  "250", "mouseup", "1"});
    ASSERT_TRUE(framed) << "the overlay did not answer";
    const QRectF dragged(100, 50, 300, 200);
    EXPECT_EQ(*framed, (ShotCaptureSelection{ShotCaptureSelection::Area{7, dragged}}));
    EXPECT_EQ(*framed, commandLine(dragged));
    EXPECT_EQ(captureRegion(*framed, {m_display.space}),
              captureRegion(commandLine(dragged), {m_display.space}));
}

// With "Adjust the area before capturing" a released drag waits: handles,
// a drag inside and the arrow keys change it, Return or a double click takes
// it, Escape drops it. Each case would have been taken at the release before.
TEST_F(OverlayFraming, AnAdjustableAreaWaitsForReturnOrADoubleClick)
{
    m_overlay.setAdjustsArea(true);
    bool cancelled = false;
    QObject::connect(&m_overlay, &ShotOverlayController::cancelled, [&] { cancelled = true; });
    const QStringList drag{"mousemove", "100", "50",  "mousedown", "1",     "mousemove", "250",
                           "150",       "mousemove", "400", "250",  "mouseup", "1"};
    struct Case {
        const char* name;
        QStringList then;
        std::optional<QRectF> expected; // nullopt: cancelled
    };
    const Case cases[] = {
        {"Return", {"key", "Return"}, QRectF(100, 50, 300, 200)},
        {"arrows move a point, Shift ten",
         {"key", "Right", "key", "Right", "key", "shift+Down", "key", "Return"},
         QRectF(102, 60, 300, 200)},
        {"Alt and the arrows resize",
         {"key", "alt+Right", "key", "alt+shift+Down", "key", "alt+Up", "key", "Return"},
         QRectF(100, 50, 301, 209)},
        {"the bottom-right handle",
         {"mousemove", "400", "250", "mousedown", "1", "mousemove", "430", "280", "mousemove",
          "450", "300", "mouseup", "1", "key", "Return"},
         QRectF(100, 50, 350, 250)},
        {"the right edge's handle, then a double click",
         {"mousemove", "400", "150", "mousedown", "1", "mousemove", "410", "150", "mousemove",
          "420", "150", "mouseup", "1", "mousemove", "250", "150", "click", "--repeat", "2", "1"},
         QRectF(100, 50, 320, 200)},
        {"a drag inside moves it",
         {"mousemove", "200", "100", "mousedown", "1", "mousemove", "230", "120", "mousemove",
          "260", "140", "mouseup", "1", "key", "Return"},
         QRectF(160, 90, 300, 200)},
        {"a new drag outside replaces it",
         {"mousemove", "600", "400", "mousedown", "1", "mousemove", "650", "450", "mousemove",
          "700", "480", "mouseup", "1", "key", "Return"},
         QRectF(600, 400, 100, 80)},
        {"Escape", {"key", "Escape"}, std::nullopt},
    };
    for (const Case& c : cases) {
        m_outcome.reset();
        cancelled = false;
        m_overlay.present({m_display}, {m_window}, CaptureMode::area);
        const QDeadlineTimer shown(5000);
        while ((m_overlay.overlays().isEmpty() || !m_overlay.overlays().first()->isVisible()) &&
               !shown.hasExpired()) {
            test::settle(20);
        }
        ASSERT_FALSE(m_overlay.overlays().isEmpty()) << c.name;
        test::settle();
        test::xdotool(drag);
        test::settle(100);
        ASSERT_FALSE(m_outcome) << c.name << ": taken at the release";
        ASSERT_TRUE(m_overlay.overlays().first()->selection()) << c.name;
        if (c.then.first() == QLatin1String("key") && c.then.at(1) == QLatin1String("Return")) {
            const QImage seen = m_overlay.overlays().first()->grab().toImage();
            test::saveArtifact(seen, QStringLiteral("overlay-adjusting.png"));
        }
        test::xdotool(c.then);
        const QDeadlineTimer answered(5000);
        while (!m_outcome && !cancelled && !answered.hasExpired()) {
            test::settle(20);
        }
        if (!c.expected) {
            EXPECT_TRUE(cancelled) << c.name;
            EXPECT_FALSE(m_outcome) << c.name;
            continue;
        }
        ASSERT_TRUE(m_outcome) << c.name << ": no answer";
        EXPECT_EQ(std::get<ShotOverlayOutcome::Capture>(m_outcome->outcome).selection,
                  (ShotCaptureSelection{ShotCaptureSelection::Area{7, *c.expected}}))
            << c.name;
    }
}

// The first overlay shows its keys; a click on the card hides it for good
// and frames nothing.
TEST_F(OverlayFraming, TheCardOfKeysGoesForGoodWithAClick)
{
    QTemporaryDir dir;
    ShotPreferences preferences(dir.filePath(QStringLiteral("prefs.ini")));
    m_overlay.followPreferences(&preferences);
    const auto present = [&] {
        m_overlay.present({m_display}, {m_window}, CaptureMode::area);
        const QDeadlineTimer shown(5000);
        while ((m_overlay.overlays().isEmpty() || !m_overlay.overlays().first()->isVisible()) &&
               !shown.hasExpired()) {
            test::settle(20);
        }
        test::settle();
        return m_overlay.overlays().isEmpty() ? nullptr : m_overlay.overlays().first();
    };
    ShotCaptureOverlay* overlay = present();
    ASSERT_TRUE(overlay);
    ASSERT_TRUE(overlay->showsKeyHelp());
    const QImage seen = overlay->grab().toImage();
    test::saveArtifact(seen, QStringLiteral("overlay-keys.png"));
    const QPoint card = overlay->mapToGlobal(overlay->keyHelpArea().center().toPoint());
    // The card is drawn where it answers clicks: dark, unlike the dimmed pattern.
    EXPECT_LT(seen.pixelColor((overlay->keyHelpArea().topLeft() + QPointF(40, 6)).toPoint() *
                              overlay->devicePixelRatioF())
                  .lightness(),
              40);
    test::xdotool({"mousemove", QString::number(card.x()), QString::number(card.y()), "click", "1"});
    const QDeadlineTimer gone(3000);
    while (overlay->showsKeyHelp() && !gone.hasExpired()) {
        test::settle(20);
    }
    EXPECT_FALSE(overlay->showsKeyHelp());
    EXPECT_TRUE(preferences.boolean(keys::overlayKeyHelpSeen, false));
    EXPECT_FALSE(overlay->selection()) << "the click framed something";
    test::xdotool({"key", "Escape"});
    const QDeadlineTimer closed(3000);
    while (m_overlay.isPresenting() && !closed.hasExpired()) {
        test::settle(20);
    }
    overlay = present();
    ASSERT_TRUE(overlay);
    EXPECT_FALSE(overlay->showsKeyHelp()) << "shown again";
    m_overlay.cancel();
}

// Over a white screen the magnifier still stands out (a dark rim around a
// light one), marks the middle pixel, and the size label stays readable.
TEST_F(OverlayFraming, TheMagnifierShowsOnWhite)
{
    m_display.image.fill(Qt::white);
    m_overlay.present({m_display}, {m_window}, CaptureMode::area);
    const QDeadlineTimer shown(5000);
    while ((m_overlay.overlays().isEmpty() || !m_overlay.overlays().first()->isVisible()) &&
           !shown.hasExpired()) {
        test::settle(20);
    }
    ASSERT_FALSE(m_overlay.overlays().isEmpty());
    QWidget* overlay = m_overlay.overlays().first();
    const double ratio = overlay->devicePixelRatioF();
    // The lens lies right of and below the pointer: dark rim pixels on a
    // ring around it, of 36 looked at.
    const auto rimSeen = [&](const QImage& seen, QPointF pointer) {
        const QRectF lens(pointer + QPointF(24, 24), QSizeF(110, 110));
        int dark = 0;
        for (int degree = 0; degree < 360; degree += 10) {
            const double a = qDegreesToRadians(double(degree));
            const QPointF rim = lens.center() + QPointF(std::cos(a), std::sin(a)) * (lens.width() / 2 + 2);
            dark += seen.pixelColor((rim * ratio).toPoint()).lightness() < 128;
        }
        return dark;
    };
    // Before the drag: where it will start, to the pixel.
    test::xdotool({"mousemove", "390", "290", "mousemove", "400", "300"});
    QImage seen;
    const QDeadlineTimer before(3000);
    while (rimSeen(seen = overlay->grab().toImage(), overlay->mapFromGlobal(QPoint(400, 300))) < 27 &&
           !before.hasExpired()) {
        test::settle(20);
    }
    EXPECT_GE(rimSeen(seen, overlay->mapFromGlobal(QPoint(400, 300))), 27) << "no lens before the drag";
    test::xdotool({"mousedown", "1", "mousemove", "500", "380", "mousemove", "600", "420"});
    test::settle(200);
    seen = overlay->grab().toImage();
    const QPointF pointer = overlay->mapFromGlobal(QPoint(600, 420));
    test::xdotool({"mouseup", "1", "key", "Escape"}); // the overlay goes
    test::saveArtifact(seen, QStringLiteral("overlay-magnifier-white.png"));
    EXPECT_GE(rimSeen(seen, pointer), 27) << "the rim does not stand out on white";
    // The middle cell is ringed: black just outside it, white just inside.
    const QPointF middle = pointer + QPointF(24, 24) + QPointF(5 * 10, 5 * 10);
    EXPECT_LT(seen.pixelColor(((middle + QPointF(-1, 5)) * ratio).toPoint()).lightness(), 60)
        << "the middle pixel is not marked";
}

TEST_F(OverlayFraming, AWindowTakesTheRegionTheCommandLineTakesForItsFrame)
{
    const auto framed = frame(CaptureMode::window,
                              {"mousemove", "350", "250", "mousemove", "360", "260", "click", "1"});
    ASSERT_TRUE(framed) << "the overlay did not answer";
    EXPECT_EQ(*framed, (ShotCaptureSelection{ShotCaptureSelection::Window{7, m_window}}));
    const ScreenCaptureRegion region = captureRegion(*framed, {m_display.space});
    EXPECT_EQ(region, captureRegion(commandLine(m_window.frame), {m_display.space}));
    const double s = m_display.space.scale;
    EXPECT_EQ(region.pixelRect,
              QRectF(m_window.frame.topLeft() * s, m_window.frame.size() * s).toAlignedRect());
}

} // namespace
} // namespace nubo

#include "shell/ShotStatusMenu.h"

namespace nubo {
namespace {

// A scrolling area is always dragged: Space does not switch to windows.
TEST_F(OverlayFraming, TheScrollingVariantTakesOnlyAnArea)
{
    const auto framed = frame(CaptureMode::scrolling,
                              {"mousemove", "310", "210", "key", "space", "mousedown", "1",
                               "mousemove", "400", "300", "mousemove", "500", "350", "mouseup", "1"});
    ASSERT_TRUE(framed);
    const auto* area = std::get_if<ShotCaptureSelection::Area>(&framed->framing);
    ASSERT_TRUE(area) << "took a window";
    EXPECT_EQ(area->rect, QRectF(310, 210, 190, 140));
}

TEST(ShotStatusMenu, OffersItsItemsInOrderAndRunsThem)
{
    CaptureMode chosen = CaptureMode::fullscreen;
    bool opened = false, quit = false;
    ShotStatusMenu menu({[&](CaptureMode mode) { chosen = mode; }, [&] { opened = true; }, [] {},
                         [&] {
                             quit = true;
                         }});
    QStringList titles;
    QList<QAction*> shown;
    for (QAction* action : menu.menu().actions()) {
        if (action->isVisible()) {
            titles << (action->isSeparator() ? QStringLiteral("-") : action->text());
            shown << action;
        }
    }
    EXPECT_EQ(titles.join(u'|'),
              QStringLiteral("Capture Area|Capture Window|Capture Fullscreen|Capture Scrolling|"
                             "Capture Text|Capture Previous Area|Delay|Record Screen|Record Window|-|"
                             "Open Image in Nubo Shot\u2026|-|Settings\u2026|-|Quit Nubo Shot"))
        << titles.join(u'|').toStdString(); // Recent shows only while recents are on
    EXPECT_EQ(shown[0]->data().toString(), QStringLiteral("area"));
    EXPECT_EQ(shown[2]->data().toString(), QStringLiteral("fullscreen"));
    EXPECT_EQ(shown[3]->data().toString(), QStringLiteral("scrolling"));
    EXPECT_EQ(shown[4]->data().toString(), QStringLiteral("text"));
    EXPECT_EQ(shown[5]->data().toString(), QStringLiteral("last-area"));
    ASSERT_EQ(shown.size(), 15);
    EXPECT_EQ(shown[6]->menu()->objectName(), QStringLiteral("shot.delay"));
    EXPECT_EQ(shown[8]->menu()->objectName(), QStringLiteral("shot.recordWindow"));
    EXPECT_EQ(shown[10]->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
    EXPECT_EQ(shown.last()->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
    shown[1]->trigger();
    EXPECT_EQ(chosen, CaptureMode::window);
    shown[10]->trigger();
    EXPECT_TRUE(opened);
    shown.last()->trigger();
    EXPECT_TRUE(quit);

    // Where uploads can be listed, their window is one item above the settings.
    bool uploads = false;
    ShotStatusMenu::Actions withUploads{[](CaptureMode) {}, [] {}, [] {}, [] {}};
    withUploads.uploads = [&] { uploads = true; };
    ShotStatusMenu second(withUploads);
    QStringList tail;
    for (QAction* action : second.menu().actions()) {
        if (action->isVisible()) {
            tail << (action->isSeparator() ? QStringLiteral("-") : action->text());
            if (action->text() == QStringLiteral("Recent Uploads\u2026")) {
                action->trigger();
            }
        }
    }
    EXPECT_EQ(tail.mid(tail.indexOf(QStringLiteral("Open Image in Nubo Shot\u2026"))).join(u'|'),
              QStringLiteral("Open Image in Nubo Shot\u2026|Recent Uploads\u2026|-|Settings\u2026|-|"
                             "Quit Nubo Shot"));
    EXPECT_TRUE(uploads);
}

// While a recording runs the menu offers what can be done with it and its
// elapsed time; "Record Window" lists the windows when it opens.
TEST(ShotStatusMenu, RecordingItemsFollowTheRecording)
{
    RecordingState state;
    QStringList done;
    ShotStatusMenu::Actions actions;
    actions.recordingState = [&] { return state; };
    actions.recordableWindows = [] {
        return QList<CapturableWindow>{{11, QStringLiteral("Notes & Plans"), QStringLiteral("Writer"), {}, 0},
                                       {12, QString(), QStringLiteral("Terminal"), {}, 0}};
    };
    actions.recordWindow = [&](const CapturableWindow& w) { done << QString::number(w.id); };
    actions.pauseRecording = [&] { done << QStringLiteral("pause"); };
    actions.resumeRecording = [&] { done << QStringLiteral("resume"); };
    actions.stopRecording = [&] { done << QStringLiteral("stop"); };
    actions.cancelRecording = [&] { done << QStringLiteral("cancel"); };
    ShotStatusMenu menu(std::move(actions));
    // The items before the recording's: the captures, Delay and its cancel item.
    const auto captures = qsizetype(enumCount<CaptureMode>()) + 2;
    const auto visible = [&] {
        QStringList titles;
        for (const QAction* action : menu.menu().actions()) {
            if (action->isVisible() && !action->isSeparator() &&
                menu.menu().actions().indexOf(action) >= captures &&
                menu.menu().actions().indexOf(action) < captures + 6) {
                titles << action->text();
            }
        }
        return titles.join(u'|');
    };
    const auto item = [&](const QString& title) {
        for (QAction* action : menu.menu().actions()) {
            if (action->isVisible() && action->text() == title) {
                return action;
            }
        }
        return static_cast<QAction*>(nullptr);
    };
    struct Step {
        RecordingState state;
        const char* items;
    };
    using std::chrono::seconds;
    const Step steps[] = {
        {{RecordingState::Idle{}}, "Record Screen|Record Window"},
        {{RecordingState::Recording{seconds(65)}},
         "01:05|Pause Recording|Stop Recording|Cancel Recording"},
        {{RecordingState::Paused{seconds(3599)}},
         "59:59|Resume Recording|Stop Recording|Cancel Recording"},
        {{RecordingState::Recording{seconds(6001)}},
         "100:01|Pause Recording|Stop Recording|Cancel Recording"},
        {{RecordingState::Finishing{}}, "Saving the recording\u2026"},
        {{RecordingState::Finished{QStringLiteral("/tmp/a.mp4")}}, "Record Screen|Record Window"},
    };
    for (const Step& step : steps) {
        state = step.state;
        menu.refreshRecording();
        EXPECT_EQ(visible(), QString::fromUtf8(step.items)) << state.describe().toStdString();
    }
    state = {RecordingState::Recording{seconds(2)}};
    menu.refreshRecording();
    item(QStringLiteral("Pause Recording"))->trigger();
    state = {RecordingState::Paused{seconds(2)}};
    menu.refreshRecording();
    item(QStringLiteral("Resume Recording"))->trigger();
    item(QStringLiteral("Stop Recording"))->trigger();
    item(QStringLiteral("Cancel Recording"))->trigger();
    EXPECT_EQ(done.join(u','), QStringLiteral("pause,resume,stop,cancel"));

    emit menu.recordWindowMenu().aboutToShow();
    QStringList windows;
    for (QAction* action : menu.recordWindowMenu().actions()) {
        windows << action->text();
    }
    EXPECT_EQ(windows.join(u'|'), QStringLiteral("Notes && Plans \u2014 Writer|Terminal"));
    menu.recordWindowMenu().actions().at(1)->trigger();
    EXPECT_EQ(done.last(), QStringLiteral("12"));
}

// The Delay submenu shows the stored delay and stores the one chosen; while
// a delay runs, its seconds and its cancel item show. The Pinned submenu
// lists the pins only while there are some.
TEST(ShotStatusMenu, DelayAndPinnedFollowWhatIsUnderWay)
{
    int stored = 5, left = 0, raised = -1;
    bool cancelled = false, closed = false;
    QList<ShotStatusMenu::PinnedItem> pinned;
    ShotStatusMenu::Actions actions;
    actions.captureDelay = [&] { return stored; };
    actions.setCaptureDelay = [&](int seconds) { stored = seconds; };
    actions.delayLeft = [&] { return left; };
    actions.cancelDelay = [&] { cancelled = true; };
    actions.pinnedItems = [&] { return pinned; };
    actions.raisePin = [&](int index) { raised = index; };
    actions.closePins = [&] { closed = true; };
    ShotStatusMenu menu(std::move(actions));

    emit menu.delayMenu().aboutToShow();
    QStringList checked;
    for (const QAction* item : menu.delayMenu().actions()) {
        checked << (item->isChecked() ? QStringLiteral("[%1]") : QStringLiteral("%1")).arg(item->data().toInt());
    }
    EXPECT_EQ(checked.join(u'|'), QStringLiteral("0|3|[5]|10"));
    menu.delayMenu().actions().at(1)->trigger();
    EXPECT_EQ(stored, 3);

    const auto cancelItem = [&]() -> QAction* {
        for (QAction* item : menu.menu().actions()) {
            if (item->text().startsWith(QStringLiteral("Cancel Delayed Capture"))) {
                return item;
            }
        }
        return nullptr;
    };
    ASSERT_NE(cancelItem(), nullptr);
    menu.refreshDelay();
    EXPECT_FALSE(cancelItem()->isVisible());
    left = 4;
    menu.refreshDelay();
    EXPECT_TRUE(cancelItem()->isVisible());
    EXPECT_EQ(cancelItem()->text(), QStringLiteral("Cancel Delayed Capture (4 s)"));
    cancelItem()->trigger();
    EXPECT_TRUE(cancelled);

    menu.refreshPinned();
    EXPECT_FALSE(menu.pinnedMenu().menuAction()->isVisible());
    pinned = {{QStringLiteral("120 × 90 · 10:04"), QImage(40, 30, QImage::Format_RGB32)},
              {QStringLiteral("1920 × 1080 · 10:05"), QImage(40, 22, QImage::Format_RGB32)}};
    emit menu.menu().aboutToShow();
    EXPECT_TRUE(menu.pinnedMenu().menuAction()->isVisible());
    QStringList titles;
    for (const QAction* item : menu.pinnedMenu().actions()) {
        titles << (item->isSeparator() ? QStringLiteral("-") : item->text());
    }
    EXPECT_EQ(titles.join(u'|'), QStringLiteral("120 × 90 · 10:04|1920 × 1080 · 10:05|-|Close All Pins"));
    menu.pinnedMenu().actions().at(1)->trigger();
    EXPECT_EQ(raised, 1);
    menu.pinnedMenu().actions().last()->trigger();
    EXPECT_TRUE(closed);
}

// The recording variant answers with what to record: the dragged area, the
// whole display for a click or F, a window picked after Space.
TEST_F(OverlayFraming, TheRecordingVariantAnswersWithATarget)
{
    CaptureDisplay target;
    target.id = m_display.id;
    target.space = m_display.space;
    target.pixelGeometry = m_display.space.captureFrame.toRect();
    struct Case {
        const char* name;
        QStringList input;
        RecordingTarget expected;
    };
    const Case cases[] = {
        {"a drag",
         {"mousemove", "100", "50", "mousedown", "1", "mousemove", "250", "150", "mousemove", "400",
          "250", "mouseup", "1"},
         {RecordingTarget::Area{target, QRectF(100, 50, 300, 200)}}},
        {"a click", {"mousemove", "500", "400", "click", "1"}, {RecordingTarget::Display{target}}},
        {"F", {"mousemove", "500", "400", "key", "f"}, {RecordingTarget::Display{target}}},
        {"Space, then a window",
         {"mousemove", "350", "250", "key", "space", "mousemove", "360", "260", "click", "1"},
         {RecordingTarget::Window{m_window}}},
        {"Space, then F", {"mousemove", "10", "10", "key", "space", "key", "f"},
         {RecordingTarget::Display{target}}},
    };
    for (const Case& c : cases) {
        m_outcome.reset();
        m_overlay.presentRecording({m_display}, {target}, {m_window});
        const QDeadlineTimer shown(5000);
        while ((m_overlay.overlays().isEmpty() || !m_overlay.overlays().first()->isVisible()) &&
               !shown.hasExpired()) {
            test::settle(20);
        }
        ASSERT_FALSE(m_overlay.overlays().isEmpty()) << c.name;
        EXPECT_TRUE(m_overlay.overlays().first()->isRecording());
        test::settle();
        test::xdotool(c.input);
        const QDeadlineTimer answered(5000);
        while (!m_outcome && !answered.hasExpired()) {
            test::settle(20);
        }
        ASSERT_TRUE(m_outcome) << c.name << ": no answer";
        const auto* recording = std::get_if<ShotOverlayOutcome::Recording>(&m_outcome->outcome);
        ASSERT_TRUE(recording) << c.name << ": answered for a still";
        EXPECT_EQ(recording->target, c.expected) << c.name;
    }
}

} // namespace
} // namespace nubo
