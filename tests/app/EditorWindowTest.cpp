#include "core/Settings.h"
#include "editor/ShotCropBar.h"
#include "editor/ShotEditorWindow.h"
#include "editor/ShotCanvasView.h"
#include "editor/ShotEmojiPicker.h"
#include "editor/ShotStyleBar.h"
#include "render/ShotRenderer.h"
#include "support/ArchiveFixtures.h"
#include "support/EditorFixture.h"
#include "support/LiveProcess.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>
#include <QProcess>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::settle;
using test::xdotool;

class EditorWindow : public test::EditorFixture {
protected:
    void SetUp() override
    {
        test::EditorFixture::SetUp();
        if (!IsSkipped() && !HasFatalFailure()) {
            openEditor(test::patternImage(800, 500), 1);
        }
    }

    // A point of the document on the screen.
    QPoint onScreen(QPointF documentPoint)
    {
        ShotCanvas& canvas = m_window->canvas();
        return canvas.mapToGlobal(
            canvas.toWidget(QRectF(documentPoint, QSizeF(0, 0))).topLeft().toPoint());
    }
    void dragOnScreen(QPointF from, QPointF to)
    {
        const QPoint a = onScreen(from), b = onScreen(to), middle = (a + b) / 2;
        xdotool({"mousemove", QString::number(a.x()), QString::number(a.y()), "mousedown", "1",
                 "mousemove", QString::number(middle.x()), QString::number(middle.y()), "mousemove",
                 QString::number(b.x()), QString::number(b.y()), "mouseup", "1"});
    }
};

TEST_F(EditorWindow, DrawsWithRealMouseAndKeys)
{
    ShotEditorModel& model = m_window->model();
    xdotool({"key", "a"}); // Arrow
    EXPECT_EQ(model.activeTool(), ShotToolKind::arrow);
    dragOnScreen({100, 100}, {300, 200});
    ASSERT_EQ(model.document().annotations.size(), 1);
    const auto* arrow = std::get_if<ArrowAnnotation>(&model.document().annotations.first().kind);
    ASSERT_NE(arrow, nullptr);
    const double tolerance = 2 / m_window->canvas().zoom();
    EXPECT_NEAR(arrow->from.x(), 100, tolerance);
    EXPECT_NEAR(arrow->to.y(), 200, tolerance);
    EXPECT_EQ(model.history().past.size(), 1) << "one drag, one step";

    xdotool({"key", "r"}); // Rectangle
    dragOnScreen({400, 100}, {600, 300});
    xdotool({"key", "n"}); // Number: two clicks, two counters
    for (const QPointF p : {QPointF(150, 350), QPointF(250, 350)}) {
        const QPoint s = onScreen(p);
        xdotool({"mousemove", QString::number(s.x()), QString::number(s.y()), "click", "1"});
    }
    ASSERT_EQ(model.document().annotations.size(), 4);
    test::saveArtifact(m_window->grab().toImage(), QStringLiteral("editor-tools.png"));

    xdotool({"key", "ctrl+z"});
    EXPECT_EQ(model.document().annotations.size(), 3);
    xdotool({"key", "ctrl+shift+z"});
    EXPECT_EQ(model.document().annotations.size(), 4);

    // Select the rectangle by clicking its edge (away from the handles), move
    // it, delete it.
    xdotool({"key", "v"});
    const QPoint edge = onScreen({400, 150});
    xdotool({"mousemove", QString::number(edge.x()), QString::number(edge.y()), "click", "1"});
    ASSERT_EQ(model.selection().size(), 1);
    dragOnScreen({400, 150}, {420, 170});
    const auto* rect = std::get_if<ShapeAnnotation>(&model.document().annotations[1].kind);
    ASSERT_NE(rect, nullptr);
    EXPECT_NEAR(rect->rect.x(), 420, 2 * tolerance);
    xdotool({"key", "Right", "Right", "shift+Down"});
    EXPECT_NEAR(rect->rect.x(), 420, 2 * tolerance) << "the old value is kept by the copy";
    const auto* nudged = std::get_if<ShapeAnnotation>(&model.document().annotations[1].kind);
    EXPECT_NEAR(nudged->rect.x(), 422, 2 * tolerance);
    EXPECT_NEAR(nudged->rect.y(), 130, 2 * tolerance);
    xdotool({"key", "Delete"});
    EXPECT_EQ(model.document().annotations.size(), 3);
}

TEST_F(EditorWindow, ResizesBySelectionHandles)
{
    ShotEditorModel& model = m_window->model();
    xdotool({"key", "r"});
    dragOnScreen({100, 100}, {300, 200});
    xdotool({"key", "v"});
    const QPoint edge = onScreen({100, 150});
    xdotool({"mousemove", QString::number(edge.x()), QString::number(edge.y()), "click", "1"});
    ASSERT_EQ(model.selection().size(), 1);
    const qsizetype steps = model.history().past.size();
    dragOnScreen({300, 200}, {400, 300}); // the bottom-right handle
    test::saveArtifact(m_window->grab().toImage(), QStringLiteral("editor-resize.png"));
    const auto& rect = std::get<ShapeAnnotation>(model.document().annotations.first().kind).rect;
    const double tolerance = 3 / m_window->canvas().zoom();
    EXPECT_NEAR(rect.right(), 400, tolerance);
    EXPECT_NEAR(rect.bottom(), 300, tolerance);
    EXPECT_NEAR(rect.left(), 100, tolerance);
    EXPECT_EQ(model.history().past.size(), steps + 1);

    // A rubber band over empty space selects what it touches.
    xdotool({"key", "Escape"});
    dragOnScreen({50, 50}, {150, 120});
    EXPECT_EQ(model.selection().size(), 1);
    dragOnScreen({600, 400}, {700, 450});
    EXPECT_TRUE(model.selection().isEmpty());
    dragOnScreen({50, 50}, {150, 120});

    // Copy and paste through the real clipboard.
    xdotool({"key", "ctrl+c"});
    xdotool({"key", "ctrl+v"});
    EXPECT_EQ(model.document().annotations.size(), 2);
}

TEST_F(EditorWindow, PicksColoursAndZoomsWithCtrlScroll)
{
    xdotool({"key", "p"});
    const QPoint at = onScreen({200, 150});
    xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
    const QColor expected = test::patternImage(800, 500).pixelColor(200, 150);
    const QString name = expected.name(QColor::HexRgb).toUpper();
    EXPECT_EQ(m_window->lastNotice(), name + QStringLiteral(" copied"));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), name);
    EXPECT_EQ(m_window->model()
                  .style(ShotToolKind::arrow)
                  .color.toQColor()
                  .name(QColor::HexRgb)
                  .toUpper(),
              name);

    const double before = m_window->canvas().zoom();
    xdotool({"keydown", "ctrl", "click", "4", "keyup", "ctrl"});
    EXPECT_GT(m_window->canvas().zoom(), before);
}

TEST_F(EditorWindow, ATallShotOpensReadableFromItsTopAndTheZoomKeysWork)
{
    // A scrolled page, 30 times as tall as the screen's share of it.
    openEditor(test::patternImage(1200, 16000), 1);
    ShotCanvas& canvas = m_window->canvas();
    const double width = canvas.width() / canvas.zoom();
    EXPECT_GE(canvas.zoom(), 0.5) << "opened at " << canvas.zoom();
    EXPECT_LE(width * canvas.zoom(), m_window->screen()->availableGeometry().width())
        << "wider than the screen";
    EXPECT_EQ(canvas.mapTo(m_window.get(), QPoint(0, 0)).y() >= 0, true) << "not at the top";
    xdotool({"key", "ctrl+9"});
    EXPECT_LT(canvas.zoom(), 0.1);
    xdotool({"key", "ctrl+1"});
    EXPECT_DOUBLE_EQ(canvas.zoom(), 1);
    xdotool({"key", "ctrl+9", "ctrl+0"});
    EXPECT_DOUBLE_EQ(canvas.zoom(), 1);
}

TEST_F(EditorWindow, TheArrowsWidthIsInPointsAsEveryOtherWidth)
{
    xdotool({"key", "a"});
    auto* widths = m_window->findChild<QComboBox*>(QStringLiteral("arrowWidth"));
    ASSERT_NE(widths, nullptr);
    for (int i = 0; i < widths->count(); ++i) {
        EXPECT_TRUE(widths->itemText(i).endsWith(QLatin1String(" pt"))) << widths->itemText(i).toStdString();
    }
    const int widest = widths->count() - 1;
    widths->setCurrentIndex(widest);
    emit widths->activated(widest);
    EXPECT_DOUBLE_EQ(m_window->model().style(ShotToolKind::arrow).lineWidth,
                     widths->itemText(widest).chopped(3).toDouble());
}

TEST_F(EditorWindow, TheHighlighterMarksAStrokeInItsYellow)
{
    ShotEditorModel& model = m_window->model();
    xdotool({"key", "h"});
    ASSERT_EQ(model.activeTool(), ShotToolKind::highlighter);
    dragOnScreen({100, 200}, {400, 200});
    ASSERT_EQ(model.document().annotations.size(), 1);
    const Annotation& mark = model.document().annotations.first();
    const auto* stroke = std::get_if<PenAnnotation>(&mark.kind);
    ASSERT_NE(stroke, nullptr);
    EXPECT_TRUE(stroke->highlighter);
    EXPECT_GE(stroke->points.size(), 2);
    EXPECT_EQ(mark.style.lineWidth, 16);
    EXPECT_EQ(model.activeTool(), ShotToolKind::highlighter) << "the marker stays in hand";
}

TEST_F(EditorWindow, TheWheelSizesTheToolWhileTheShotFitsAndScrollsOtherwise)
{
    ShotEditorModel& model = m_window->model();
    xdotool({"key", "r"});
    const double before = model.style(ShotToolKind::rect).lineWidth;
    const QPoint at = onScreen({400, 250});
    xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "4", "click", "4",
             "click", "5", "click", "4"});
    settle();
    EXPECT_DOUBLE_EQ(model.style(ShotToolKind::rect).lineWidth, before + 2);
    EXPECT_EQ(m_window->lastNotice(), QStringLiteral("Width %1 pt").arg(before + 2));
    xdotool({"key", "e", "click", "5"}); // the emoji's size, in its own steps
    settle();
    EXPECT_EQ(m_window->lastNotice(),
              QStringLiteral("Size %1 pt").arg(model.style(ShotToolKind::emoji).fontSize));

    // Zoomed in, the wheel scrolls the shot as before.
    xdotool({"key", "r", "ctrl+1", "ctrl+plus", "ctrl+plus"});
    settle();
    const double width = model.style(ShotToolKind::rect).lineWidth;
    const QPoint origin = m_window->canvas().mapToGlobal(QPoint(0, 0));
    xdotool({"click", "5", "click", "5"});
    settle();
    EXPECT_DOUBLE_EQ(model.style(ShotToolKind::rect).lineWidth, width);
    EXPECT_LT(m_window->canvas().mapToGlobal(QPoint(0, 0)).y(), origin.y()) << "did not scroll";
}

// A first editor shows its keys beside the shot, whole; a click on the card
// hides it for good and draws nothing.
TEST_F(EditorWindow, TheCardOfKeysGoesForGoodWithAClick)
{
    m_preferences->remove(keys::editorKeyHelpSeen);
    openEditor(test::patternImage(800, 500), 1);
    xdotool({"key", "r"});
    QLabel* card = m_window->view().keyHelp();
    ASSERT_TRUE(card && card->isVisible()) << "no card of keys";
    test::saveArtifact(m_window->grab().toImage(), QStringLiteral("editor-keys.png"));
    EXPECT_TRUE(m_window->view().rect().contains(card->geometry()))
        << "the card does not fit the view";
    const QPoint at = card->mapToGlobal(card->rect().center());
    xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "mousedown", "1",
             "mousemove", QString::number(at.x() + 30), QString::number(at.y() + 30), "mouseup",
             "1"});
    settle();
    EXPECT_FALSE(card->isVisible());
    EXPECT_TRUE(m_preferences->boolean(keys::editorKeyHelpSeen, false));
    EXPECT_TRUE(m_window->model().document().annotations.isEmpty()) << "the click drew";
    openEditor(test::patternImage(800, 500), 1);
    EXPECT_FALSE(m_window->view().keyHelp() && m_window->view().keyHelp()->isVisible())
        << "shown again";
}

// The emoji tool's picker: a search by name with the keyboard, skin tones,
// the recently used ones first next time, each drawn in colour.
TEST_F(EditorWindow, TheEmojiPickerFindsByNameInTheChosenTone)
{
    xdotool({"key", "e"});
    auto* button = m_window->findChild<QToolButton*>(QStringLiteral("emoji"));
    ASSERT_TRUE(button && button->isVisible());
    const auto open = [&] {
        const QPoint at = button->mapToGlobal(button->rect().center());
        xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
        settle();
        auto* bar = m_window->findChild<ShotStyleBar*>();
        return bar ? bar->emojiPicker() : nullptr;
    };
    ShotEmojiPicker* picker = open();
    ASSERT_TRUE(picker && picker->isVisible()) << "no picker";
    test::saveArtifact(picker->grab().toImage(), QStringLiteral("emoji-picker.png"));
    // Drawn in colour and large enough to read: a cell holds saturated pixels
    // over at least 20 rows.
    const QImage cells = picker->grid()->viewport()->grab().toImage();
    int colourRows = 0;
    for (int y = 0; y < std::min(cells.height(), int(44 * cells.devicePixelRatio())); ++y) {
        bool colour = false;
        for (int x = 0; x < std::min(cells.width(), int(44 * cells.devicePixelRatio())); ++x) {
            colour |= cells.pixelColor(x, y).hsvSaturation() > 120;
        }
        colourRows += colour;
    }
    EXPECT_GE(colourRows, 20 * cells.devicePixelRatio()) << "the first emoji is small or grey";

    xdotool({"type", "waving"});
    settle();
    EXPECT_EQ(picker->shown().value(0), QStringLiteral("\U0001F44B"));
    picker->setTone(4);
    EXPECT_EQ(picker->shown().value(0), QStringLiteral("\U0001F44B\U0001F3FE"));
    xdotool({"key", "Return"});
    settle();
    EXPECT_FALSE(picker->isVisible());
    EXPECT_EQ(m_window->model().selectedEmoji(), QStringLiteral("\U0001F44B\U0001F3FE"));
    EXPECT_EQ(button->text(), QStringLiteral("\U0001F44B\U0001F3FE"));

    picker = open();
    ASSERT_TRUE(picker && picker->isVisible());
    EXPECT_EQ(picker->shown().value(0), QStringLiteral("\U0001F44B\U0001F3FE")) << "not in Recent";
    xdotool({"type", "rocket"}); // type takes every word after it
    xdotool({"key", "Return"});
    settle();
    EXPECT_EQ(m_window->model().selectedEmoji(), QStringLiteral("\U0001F680"));
    picker = open();
    EXPECT_EQ(picker->shown().mid(0, 2),
              (QStringList{QStringLiteral("\U0001F680"), QStringLiteral("\U0001F44B\U0001F3FE")}));
    xdotool({"key", "Escape"});
}

TEST_F(EditorWindow, TypesTextInPlace)
{
    ShotEditorModel& model = m_window->model();
    xdotool({"key", "t"});
    const QPoint at = onScreen({120, 120});
    xdotool({"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
    ASSERT_TRUE(model.isEditingText());
    xdotool({"type", "--delay", "20", "Look here"});
    test::saveArtifact(m_window->grab().toImage(), QStringLiteral("editor-typing.png"));
    xdotool({"key", "Escape"});
    EXPECT_FALSE(model.isEditingText());
    ASSERT_EQ(model.document().annotations.size(), 1);
    EXPECT_EQ(std::get<TextAnnotation>(model.document().annotations.first().kind).content.text,
              QStringLiteral("Look here"));
    EXPECT_EQ(model.history().past.size(), 1);
    test::saveArtifact(m_window->grab().toImage(), QStringLiteral("editor-text.png"));
}

TEST_F(EditorWindow, CropsWithTheCropTool)
{
    ShotEditorModel& model = m_window->model();
    xdotool({"key", "c"});
    ASSERT_TRUE(model.cropSession().has_value());
    dragOnScreen({100, 50}, {500, 350});
    test::saveArtifact(m_window->grab().toImage(), QStringLiteral("editor-crop.png"));
    // The crop bar shows the size in pixels and takes a typed one with the aspect.
    auto* bar = m_window->findChild<ShotCropBar*>();
    ASSERT_NE(bar, nullptr);
    EXPECT_TRUE(bar->isVisible());
    model.setCropAspect(CropAspect::square);
    EXPECT_NEAR(model.cropSession()->rect.width(), model.cropSession()->rect.height(), 1e-9);
    model.setCropAspect(CropAspect::free);
    model.setCropRect({100, 50, 400, 300});
    // The handles resize the proposal, dragging inside moves it.
    dragOnScreen({500, 350}, {550, 400});
    EXPECT_NEAR(model.cropSession()->rect.right(), 550, 3 / m_window->canvas().zoom());
    dragOnScreen({300, 200}, {250, 200});
    EXPECT_NEAR(model.cropSession()->rect.x(), 50, 3 / m_window->canvas().zoom());
    model.setCropRect({100, 50, 400, 300});
    xdotool({"key", "Return"});
    ASSERT_TRUE(model.document().crop.has_value());
    const double tolerance = 3 / m_window->canvas().zoom();
    EXPECT_NEAR(model.document().crop->x(), 100, tolerance);
    EXPECT_NEAR(model.document().crop->width(), 400, 2 * tolerance);
    EXPECT_EQ(model.activeTool(), ShotToolKind::select);
    EXPECT_TRUE(m_window->windowTitle().startsWith(QStringLiteral("40")));
    xdotool({"key", "ctrl+z"});
    EXPECT_FALSE(model.document().crop.has_value());
}

TEST_F(EditorWindow, CutTakesOnlyWhatTheUserSelected)
{
    ShotEditorModel& model = m_window->model();
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    test::settle();
    xdotool({"key", "r"});
    dragOnScreen({100, 100}, {300, 200});
    ASSERT_EQ(model.document().annotations.size(), 1);
    // The new rectangle is selected by itself: Ctrl+X is no choice to cut it,
    // nor to copy the whole shot and close.
    xdotool({"key", "ctrl+x"});
    EXPECT_EQ(model.document().annotations.size(), 1);
    EXPECT_TRUE(m_window->isVisible());
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("before"));
    EXPECT_EQ(m_window->lastNotice(), QStringLiteral("Select annotations to cut them"));
    // Chosen with Select, it is cut, and comes back with Ctrl+V.
    xdotool({"key", "v"});
    const QPoint edge = onScreen({150, 100}); // on its top edge, between two handles
    xdotool({"mousemove", QString::number(edge.x()), QString::number(edge.y()), "click", "1"});
    ASSERT_TRUE(model.selectionIsExplicit());
    xdotool({"key", "ctrl+x"});
    EXPECT_TRUE(model.document().annotations.isEmpty());
    EXPECT_TRUE(m_window->isVisible());
    xdotool({"key", "ctrl+v"});
    EXPECT_EQ(model.document().annotations.size(), 1);
}

} // namespace
} // namespace nubo
