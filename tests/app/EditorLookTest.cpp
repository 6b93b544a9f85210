// What a user sees and touches in the editor: the tool and style bars, the
// view (placement, zoom, scrolling, panning), and the keys and clicks a
// desktop program is expected to answer. Driven with real input.

#include "core/Settings.h"
#include "editor/ShotCanvas.h"
#include "editor/ShotCanvasView.h"
#include "editor/ShotEditorWindow.h"
#include "editor/ShotStyleBar.h"
#include "editor/ShotZoomControls.h"
#include "output/ShotBottomBar.h"
#include "output/ShotOutputActions.h"
#include "support/ArchiveFixtures.h"
#include "support/EditorFixture.h"
#include "support/LiveProcess.h"
#include "support/ModalAnswer.h"
#include "support/RenderFixtures.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QSpinBox>
#include <QToolBar>
#include <QToolButton>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::settle;
using test::xdotool;

class EditorLook : public test::EditorFixture {
protected:
    // An editor placed as the tray places it (not resized by the fixture).
    ShotEditorWindow& place(const QImage& image, double scale)
    {
        m_window = std::make_unique<ShotEditorWindow>(ShotDocument::fromImage(image, scale),
                                                      *m_preferences, m_renderer);
        activate(*m_window);
        settle();
        return *m_window;
    }
    QPoint onScreen(QPointF documentPoint)
    {
        ShotCanvas& canvas = m_window->canvas();
        return canvas.mapToGlobal(
            canvas.toWidget(QRectF(documentPoint, QSizeF(0, 0))).topLeft().toPoint());
    }
    static QStringList at(QPoint p)
    {
        return {"mousemove", QString::number(p.x()), QString::number(p.y())};
    }
    void clickAt(QPointF documentPoint, const QString& modifier = {})
    {
        QStringList steps = at(onScreen(documentPoint));
        if (!modifier.isEmpty()) {
            steps << "keydown" << modifier << "click" << "1" << "keyup" << modifier;
        } else {
            steps << "click" << "1";
        }
        xdotool(steps);
    }
    void dragOnScreen(QPointF from, QPointF to)
    {
        const QPoint a = onScreen(from), b = onScreen(to);
        xdotool(at(a) << "mousedown" << "1" << at((a + b) / 2) << at(b) << "mouseup" << "1");
    }
    QToolButton* toolButton(ShotToolKind tool)
    {
        auto* bar = m_window->findChild<QToolBar*>(QStringLiteral("toolBar"));
        auto* action = m_window->findChild<QAction*>(QStringLiteral("tool.") + toString(tool));
        return bar && action ? qobject_cast<QToolButton*>(bar->widgetForAction(action)) : nullptr;
    }
    ShotStyleBar* styleBar() { return m_window->findChild<ShotStyleBar*>(); }
};

// Every tool shows its icon, answers with its title and key, stays in sight
// at the editor's narrowest, and the active one stands out. A picture of the
// editor with each tool active is kept (at 1×, and at 2× in the run with
// QT_SCALE_FACTOR=2).
TEST_F(EditorLook, EveryToolHasAnIconAndStaysInSight)
{
    ShotEditorWindow& window = place(test::patternImage(700, 420), 1);
    window.resize(window.minimumWidth(), window.height());
    settle(300);
    const QRect inside = window.rect();
    const QColor highlight = window.palette().color(QPalette::Highlight);
    const double ratio = window.devicePixelRatioF();
    for (const ShotToolKind tool : allCases<ShotToolKind>()) {
        SCOPED_TRACE(toString(tool).toStdString());
        QToolButton* button = toolButton(tool);
        ASSERT_NE(button, nullptr);
        EXPECT_FALSE(button->icon().isNull());
        EXPECT_EQ(button->toolButtonStyle(), Qt::ToolButtonIconOnly);
        EXPECT_EQ(button->toolTip(),
                  QStringLiteral("%1 (%2)").arg(toolTitle(tool)).arg(toolShortcut(tool)));
        EXPECT_TRUE(button->isVisible()) << "hidden behind the overflow at the minimum width";
        EXPECT_TRUE(inside.contains(QRect(button->mapTo(&window, QPoint()), button->size())));
        // The icon is drawn at the screen's pixel ratio: crisp, not scaled up.
        const QPixmap pixmap = button->icon().pixmap(QSize(20, 20), ratio);
        EXPECT_EQ(pixmap.size(), QSize(20, 20) * ratio);
        if (isActionTool(tool)) {
            continue;
        }
        xdotool({"key", QString(toolShortcut(tool)).toLower()});
        if (window.model().cropSession()) {
            window.model().abandonCrop(); // the crop tool begins a session
            window.model().setActiveTool(tool);
        }
        settle(150);
        // The active tool's button wears the highlight; the others do not.
        const QImage bar = window.grab().toImage();
        const auto wearsHighlight = [&](QToolButton* b) {
            const QPoint corner = b->mapTo(&window, QPoint(3, b->height() / 2));
            const QColor c = bar.pixelColor(corner * ratio);
            return std::abs(c.red() - highlight.red()) + std::abs(c.green() - highlight.green()) +
                       std::abs(c.blue() - highlight.blue()) <
                   40;
        };
        EXPECT_TRUE(wearsHighlight(button));
        EXPECT_FALSE(wearsHighlight(toolButton(tool == ShotToolKind::select ? ShotToolKind::rect
                                                                            : ShotToolKind::select)));
        test::saveArtifact(bar, QStringLiteral("editor-tool-%1.png").arg(toString(tool)));
    }
}

TEST_F(EditorLook, TheStyleBarShowsOnlyWhatTheToolUses)
{
    ShotEditorWindow& window = place(test::patternImage(700, 420), 1);
    ShotStyleBar* bar = styleBar();
    ASSERT_NE(bar, nullptr);
    // Whether a control of that name shows (two tools call theirs "Size").
    const auto shown = [&](const char* name) {
        for (QLabel* label : bar->findChildren<QLabel*>()) {
            if (label->text().remove(u'&') == QLatin1String(name) && label->isVisible()) {
                return true;
            }
        }
        for (QCheckBox* box : bar->findChildren<QCheckBox*>()) {
            if (box->text().remove(u'&') == QLatin1String(name)) {
                return box->isVisible();
            }
        }
        return false;
    };
    struct Case {
        ShotToolKind tool;
        bool colour, width, size, outline, strength, emoji;
    };
    const Case cases[] = {
        {ShotToolKind::rect, true, true, false, false, false, false},
        {ShotToolKind::filledRect, true, false, false, false, false, false},
        {ShotToolKind::arrow, true, true, false, false, false, false},
        {ShotToolKind::text, true, false, true, true, false, false},
        {ShotToolKind::blur, false, false, false, false, true, false},
        {ShotToolKind::number, true, false, true, false, false, false},
        {ShotToolKind::draw, true, true, false, false, false, false},
        {ShotToolKind::highlighter, true, true, false, false, false, false},
        {ShotToolKind::emoji, false, false, true, false, false, true},
        {ShotToolKind::select, false, false, false, false, false, false},
        {ShotToolKind::colorPicker, false, false, false, false, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(toString(c.tool).toStdString());
        window.model().setActiveTool(c.tool);
        settle(50);
        EXPECT_EQ(bar->checkedSwatch() != nullptr || !c.colour, true);
        EXPECT_EQ(shown("Width"), c.width);
        EXPECT_EQ(shown("Size"), c.size);
        EXPECT_EQ(shown("Outline"), c.outline);
        EXPECT_EQ(shown("Strength"), c.strength);
        EXPECT_EQ(shown("Emoji"), c.emoji);
        EXPECT_EQ(bool(bar->visibleControls() & colorControl), c.colour);
    }

    // The selection's own controls, whatever tool is active.
    window.model().setActiveTool(ShotToolKind::text);
    dragOnScreen({50, 50}, {200, 120});
    xdotool({"type", "Hi"});
    xdotool({"key", "Escape"});
    window.model().setActiveTool(ShotToolKind::arrow);
    window.model().select({window.model().document().annotations.first().id});
    settle(50);
    EXPECT_TRUE(shown("Outline")) << "a selected text shows the text's controls";

    // The colour in use is the checked swatch; a click on another checks it.
    window.model().select({});
    window.model().setActiveTool(ShotToolKind::arrow);
    settle(50);
    QToolButton* checked = bar->checkedSwatch();
    ASSERT_NE(checked, nullptr);
    EXPECT_EQ(checked->toolTip(), QStringLiteral("#F54236"));
    QToolButton* blue = nullptr;
    for (QToolButton* b : bar->findChildren<QToolButton*>()) {
        if (b->toolTip() == QStringLiteral("#0A84FF")) {
            blue = b;
        }
    }
    ASSERT_NE(blue, nullptr);
    xdotool(at(blue->mapToGlobal(blue->rect().center())) << "click" << "1");
    EXPECT_EQ(bar->checkedSwatch(), blue);
    EXPECT_EQ(window.model().style(ShotToolKind::arrow).color.toQColor().name(),
              QStringLiteral("#0a84ff"));

    // A colour chosen in the dialog joins the palette, checked, and stays
    // there for the next editor.
    auto* other = bar->findChild<QToolButton*>();
    for (QToolButton* b : bar->findChildren<QToolButton*>()) {
        if (b->accessibleName() == QStringLiteral("Other Colour")) {
            other = b;
        }
    }
    {
        test::ModalAnswer choose([](QDialog& dialog) {
            static_cast<QColorDialog&>(dialog).setCurrentColor(QColor(0x12, 0x34, 0x56));
            dialog.accept();
        });
        xdotool(at(other->mapToGlobal(other->rect().center())) << "click" << "1");
        settle(300);
        EXPECT_TRUE(choose.answered());
    }
    ASSERT_NE(bar->checkedSwatch(), nullptr);
    EXPECT_EQ(bar->checkedSwatch()->toolTip(), QStringLiteral("#123456"));
    EXPECT_EQ(bar->customColors(), QList<QColor>{QColor(0x12, 0x34, 0x56)});
    test::saveArtifact(window.grab().toImage(), QStringLiteral("editor-custom-colour.png"));
    m_window.reset();
    ShotEditorWindow& next = place(test::patternImage(300, 200), 1);
    EXPECT_EQ(next.findChild<ShotStyleBar*>()->customColors().size(), 1);
}

// Opened as the tray opens it: at 100 % centred on the screen when the shot
// fits in 90 % of its free area, else that 90 % with the shot fitted.
TEST_F(EditorLook, OpensAtHundredPercentWhenTheShotFits)
{
    QScreen* screen = QGuiApplication::primaryScreen();
    const QRect available = screen->availableGeometry();
    struct Case {
        const char* name;
        QSize pixels;
        double scale;
        bool fits;
    };
    const Case cases[] = {
        {"small", {640, 400}, 1, true},
        {"a 2x shot of 800 x 500 points", {1600, 1000}, 2, true},
        {"larger than the screen", {3000, 2000}, 1, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ShotEditorWindow& window = place(test::patternImage(c.pixels.width(), c.pixels.height()), c.scale);
        const double zoom = window.canvas().zoom();
        if (c.fits) {
            EXPECT_DOUBLE_EQ(zoom, 1);
            EXPECT_FALSE(window.canvas().fitsWindow());
        } else {
            EXPECT_LT(zoom, 1);
            EXPECT_TRUE(window.canvas().fitsWindow());
            EXPECT_LE(window.width(), available.width() * 9 / 10 + 1);
            EXPECT_LE(window.height(), available.height() * 9 / 10 + 1);
        }
        // The whole shot in view, with no scroll bar.
        const QSize shot = window.canvas().size();
        const QSize room = window.view().viewport()->size();
        EXPECT_LE(shot.width(), room.width());
        EXPECT_LE(shot.height(), room.height());
        EXPECT_FALSE(window.view().horizontalScrollBar()->isVisible());
        // Centred on the screen, and the shot centred in the view.
        const QPoint middle = window.geometry().center();
        EXPECT_NEAR(middle.x(), available.center().x(), 40);
        EXPECT_NEAR(middle.y(), available.center().y(), 60);
        const QPoint shotMiddle = window.canvas().geometry().center();
        EXPECT_NEAR(shotMiddle.x(), window.view().viewport()->rect().center().x(), 2);
        EXPECT_NEAR(shotMiddle.y(), window.view().viewport()->rect().center().y(), 2);
        test::saveArtifact(window.grab().toImage(),
                           QStringLiteral("editor-opened-%1.png").arg(c.pixels.width()));
    }
}

// At 100 % a shot taken at the screen's own density lands pixel for pixel:
// sharp on a 2x screen as on a 1x one (this runs at both scales).
TEST_F(EditorLook, AShotAtTheScreensDensityIsPixelExactAtHundredPercent)
{
    const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    const QImage shot = test::patternImage(int(300 * ratio), int(160 * ratio))
                            .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    ShotEditorWindow& window = place(shot, ratio);
    ASSERT_DOUBLE_EQ(window.canvas().zoom(), 1);
    const QImage shown = window.canvas().grab().toImage().convertToFormat(
        QImage::Format_RGBA8888_Premultiplied);
    ASSERT_EQ(shown.size(), shot.size());
    EXPECT_EQ(test::compareImages(shown, shot, 0).maximum, 0) << "resampled at 100 %";
}

TEST_F(EditorLook, ZoomStepsPassHundredAndLargeShotsScrollAndPan)
{
    EXPECT_TRUE(ShotCanvasView::zoomSteps().contains(1.0));
    EXPECT_DOUBLE_EQ(ShotCanvasView::nextZoomStep(0.87, 1), 1.0);
    EXPECT_DOUBLE_EQ(ShotCanvasView::nextZoomStep(1.1, -1), 1.0);
    EXPECT_DOUBLE_EQ(ShotCanvasView::nextZoomStep(1.0, 1), 1.25);

    ShotEditorWindow& window = place(test::patternImage(3000, 2000), 1);
    ShotCanvasView& view = window.view();
    const double fitted = window.canvas().zoom();
    ASSERT_LT(fitted, 1);
    // Zooming in from the fit walks the steps and lands on 100 %.
    QList<double> seen;
    while (window.canvas().zoom() < 1 && seen.size() < 20) {
        xdotool({"key", "ctrl+plus"});
        seen << window.canvas().zoom();
    }
    EXPECT_DOUBLE_EQ(seen.last(), 1.0);
    EXPECT_EQ(window.zoomControls().percentButton()->text(), QStringLiteral("100 %"));
    EXPECT_TRUE(view.horizontalScrollBar()->isVisible());
    EXPECT_TRUE(view.verticalScrollBar()->isVisible());

    // The wheel scrolls; Ctrl+wheel zooms about the pointer.
    const QPoint middle = view.viewport()->mapToGlobal(view.viewport()->rect().center());
    const int top = view.verticalScrollBar()->value();
    xdotool(at(middle) << "click" << "5" << "click" << "5");
    EXPECT_GT(view.verticalScrollBar()->value(), top);
    const QPointF under = window.canvas().toDocument(window.canvas().mapFromGlobal(middle));
    xdotool(at(middle) << "keydown" << "ctrl" << "click" << "4" << "keyup" << "ctrl");
    EXPECT_DOUBLE_EQ(window.canvas().zoom(), 1.25);
    const QPointF still = window.canvas().toDocument(window.canvas().mapFromGlobal(middle));
    EXPECT_NEAR(still.x(), under.x(), 2);
    EXPECT_NEAR(still.y(), under.y(), 2);

    // Middle-drag and Space-drag pan; neither draws.
    const auto scroll = [&] {
        return QPoint(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
    };
    QPoint before = scroll();
    xdotool(at(middle) << "mousedown" << "2" << at(middle + QPoint(-60, -40)) << at(middle + QPoint(-120, -80))
                       << "mouseup" << "2");
    EXPECT_EQ(scroll(), before + QPoint(120, 80));
    before = scroll();
    window.model().setActiveTool(ShotToolKind::rect);
    xdotool(at(middle) << "keydown" << "space");
    ASSERT_EQ(window.canvas().cursor().shape(), Qt::OpenHandCursor)
        << "Space did not reach the shot; the focus is on "
        << (QApplication::focusWidget() ? QApplication::focusWidget()->metaObject()->className()
                                        : "nothing");
    xdotool(QStringList{} << at(middle) << "mousedown" << "1"
                                             << at(middle + QPoint(50, 30)) << at(middle + QPoint(100, 60))
                                             << "mouseup" << "1" << "keyup" << "space");
    EXPECT_EQ(scroll(), before - QPoint(100, 60));
    EXPECT_TRUE(window.model().document().annotations.isEmpty());

    // Fit goes back to the whole shot.
    xdotool({"key", "ctrl+9"});
    EXPECT_DOUBLE_EQ(window.canvas().zoom(), fitted);
}

TEST_F(EditorLook, KeysADesktopProgramAnswers)
{
    ShotEditorWindow& window = place(test::patternImage(600, 400), 1);
    ShotEditorModel& model = window.model();
    model.setActiveTool(ShotToolKind::rect);
    dragOnScreen({50, 50}, {150, 120});
    ASSERT_EQ(model.document().annotations.size(), 1);
    // Ctrl+Y redoes as Ctrl+Shift+Z does.
    xdotool({"key", "ctrl+z"});
    EXPECT_TRUE(model.document().annotations.isEmpty());
    xdotool({"key", "ctrl+y"});
    EXPECT_EQ(model.document().annotations.size(), 1);
    // The first Escape deselects; the next one closes, asking first since
    // the rectangle was neither copied nor saved.
    ASSERT_FALSE(model.selection().isEmpty());
    xdotool({"key", "Escape"});
    EXPECT_TRUE(model.selection().isEmpty());
    EXPECT_TRUE(window.isVisible());
    {
        test::ModalAnswer keep(QStringLiteral("Cancel"));
        xdotool({"key", "Escape"});
        settle(200);
        EXPECT_TRUE(keep.answered());
        EXPECT_EQ(keep.title(), QStringLiteral("Discard this screenshot?"));
    }
    EXPECT_TRUE(window.isVisible());
    activate(window);
    {
        test::ModalAnswer discard(QStringLiteral("Discard"));
        xdotool({"key", "ctrl+w"});
        settle(200);
        EXPECT_TRUE(discard.answered());
    }
    EXPECT_FALSE(window.isVisible());
}

TEST_F(EditorLook, ClicksReplaceTheSelectionAndLeaveNoStaleHandles)
{
    QImage light(600, 400, QImage::Format_RGBA8888_Premultiplied);
    light.fill(QColor(250, 250, 250));
    ShotEditorWindow& window = place(light, 1);
    ShotEditorModel& model = window.model();
    model.setActiveTool(ShotToolKind::rect);
    dragOnScreen({40, 40}, {160, 120});
    dragOnScreen({300, 200}, {420, 300});
    ASSERT_EQ(model.document().annotations.size(), 2);
    const QUuid first = model.document().annotations[0].id;
    const QUuid second = model.document().annotations[1].id;
    model.setActiveTool(ShotToolKind::select);
    xdotool({"key", "ctrl+a"});
    EXPECT_EQ(model.selection().size(), 2);
    clickAt({100, 40}); // the first one's top edge
    EXPECT_EQ(model.selection(), QSet<QUuid>{first}) << "a click picks one of several";
    clickAt({360, 200}, QStringLiteral("shift"));
    EXPECT_EQ(model.selection(), (QSet<QUuid>{first, second})) << "Shift adds";
    clickAt({360, 200});
    EXPECT_EQ(model.selection(), QSet<QUuid>{second}) << "a plain click replaces";
    settle(200);
    // The first one's handles went with its selection: no handle white is
    // left at its corners on screen.
    const QImage shown = window.canvas().grab().toImage();
    const double ratio = window.canvas().devicePixelRatioF();
    const QPoint corner = window.canvas().toWidget(QRectF(160, 120, 0, 0)).topLeft().toPoint();
    int blue = 0;
    for (int dy = -5; dy <= 5; ++dy) {
        for (int dx = -5; dx <= 5; ++dx) {
            const QColor c = shown.pixelColor((corner + QPoint(dx, dy)) * ratio);
            blue += c.blue() > 200 && c.red() < 120;
        }
    }
    EXPECT_EQ(blue, 0) << "selection marks stayed painted at the first rectangle";
}

TEST_F(EditorLook, TextGrowsOnOneLineAndEmojiAreReadable)
{
    ShotEditorWindow& window = place(test::patternImage(900, 400), 1);
    ShotEditorModel& model = window.model();
    model.setActiveTool(ShotToolKind::text);
    clickAt({40, 60});
    ASSERT_TRUE(model.isEditingText());
    xdotool({"type", "--delay", "5", "A one-line caption that runs well past the box"});
    test::saveArtifact(window.grab().toImage(), QStringLiteral("editor-caption.png"));
    xdotool({"key", "Escape"});
    ASSERT_EQ(model.document().annotations.size(), 1);
    const TextAnnotation& text = std::get<TextAnnotation>(model.document().annotations[0].kind);
    const double size = model.document().annotations[0].style.fontSize;
    EXPECT_GT(text.content.rect.width(), 160) << "the box grew with the text";
    EXPECT_LT(text.content.rect.height(), size * 2.2) << "and stayed one line";
    EXPECT_LE(text.content.rect.right(), 900.5) << "never past the shot's edge";

    // An emoji by a click is big enough to read; a drag sizes it.
    model.setActiveTool(ShotToolKind::emoji);
    clickAt({200, 250});
    model.setActiveTool(ShotToolKind::emoji);
    dragOnScreen({400, 200}, {520, 290});
    ASSERT_EQ(model.document().annotations.size(), 3);
    const QRectF clicked = std::get<EmojiAnnotation>(model.document().annotations[1].kind).rect;
    const QRectF dragged = std::get<EmojiAnnotation>(model.document().annotations[2].kind).rect;
    EXPECT_GE(clicked.width(), 40);
    EXPECT_NEAR(clicked.center().x(), 200, 2);
    EXPECT_NEAR(dragged.width(), 120, 3);
    EXPECT_NEAR(dragged.height(), 120, 3);
    EXPECT_NEAR(dragged.left(), 400, 2);
}

TEST_F(EditorLook, ThePickerShowsALoupeAndItsNoticeMovesNothing)
{
    ShotEditorWindow& window = place(test::patternImage(600, 400), 1);
    xdotool({"key", "p"});
    EXPECT_EQ(window.canvas().cursor().shape(), Qt::BitmapCursor) << "an eyedropper";
    xdotool(at(onScreen({200, 150})) << at(onScreen({210, 155})));
    ASSERT_TRUE(window.canvas().loupePosition().has_value());
    test::saveArtifact(window.grab().toImage(), QStringLiteral("editor-loupe.png"));
    const QSize canvas = window.canvas().size();
    const QPoint place = window.canvas().mapTo(&window, QPoint());
    xdotool({"click", "1"});
    EXPECT_TRUE(window.lastNotice().endsWith(QStringLiteral(" copied")));
    EXPECT_TRUE(window.view().notice()->isVisible());
    EXPECT_EQ(window.canvas().size(), canvas);
    EXPECT_EQ(window.canvas().mapTo(&window, QPoint()), place) << "the notice moved the shot";
    xdotool({"key", "v"});
    EXPECT_NE(window.canvas().cursor().shape(), Qt::BitmapCursor);
    EXPECT_FALSE(window.canvas().loupePosition().has_value());
}

TEST_F(EditorLook, AnAddedImageLandsInTheMiddleOnTop)
{
    ShotEditorWindow& window = place(test::patternImage(800, 500), 1);
    QImage pasted(100, 60, QImage::Format_RGB32);
    pasted.fill(Qt::magenta);
    QGuiApplication::clipboard()->setImage(pasted);
    settle();
    xdotool({"key", "ctrl+v"});
    const auto& layers = window.model().document().layers;
    ASSERT_EQ(layers.size(), 2);
    EXPECT_EQ(layers.last().image.size(), QSize(100, 60)) << "on top of the others";
    EXPECT_NEAR(layers.last().frame.center().x(), 400, 1);
    EXPECT_NEAR(layers.last().frame.center().y(), 250, 1);
    EXPECT_EQ(window.model().selection(), QSet<QUuid>{layers.last().id}) << "selected";
    // Selected, it moves with the pointer and goes with Delete; the captured
    // image under it stays put.
    window.model().setActiveTool(ShotToolKind::select);
    dragOnScreen({400, 250}, {450, 280});
    EXPECT_NEAR(window.model().document().layers.last().frame.center().x(), 450, 2);
    EXPECT_EQ(window.model().document().layers.first().frame, QRectF(0, 0, 800, 500));
    xdotool({"key", "Delete"});
    EXPECT_EQ(window.model().document().layers.size(), 1);
}

TEST_F(EditorLook, ASixteenByNineCropIsExactlyTheSizeShown)
{
    ShotEditorWindow& window = place(test::patternImage(900, 600), 1);
    m_preferences->setValue(closeAfterKey(ShotOutputAction::copy), false);
    xdotool({"key", "c"});
    ASSERT_TRUE(window.model().cropSession());
    window.model().setCropAspect(CropAspect::sixteenNine);
    const QSizeF shown = *window.model().cropSizeInPixels();
    EXPECT_EQ(qRound(shown.width()), 900);
    EXPECT_EQ(qRound(shown.height()), 506);
    xdotool({"key", "Return"});
    xdotool({"key", "ctrl+c"});
    ASSERT_TRUE(outputDone(window));
    const QImage copied = QImage::fromData(
        test::runServing(QStringLiteral("xclip"),
                         {"-selection", "clipboard", "-t", "image/png", "-o"}),
        "PNG");
    ASSERT_EQ(copied.size(), QSize(900, 506));
    int seeThrough = 0;
    for (int x = 0; x < copied.width(); ++x) {
        seeThrough += qAlpha(copied.pixel(x, 0)) < 255;
        seeThrough += qAlpha(copied.pixel(x, copied.height() - 1)) < 255;
    }
    EXPECT_EQ(seeThrough, 0) << "a partly covered row at an edge";
}

TEST_F(EditorLook, TheBottomBarSpeaksInOneFont)
{
    ShotEditorWindow& window = place(test::patternImage(600, 400), 1);
    ShotBottomBar& bar = window.output().bar();
    const QFont font = bar.copyButton()->font();
    for (QWidget* widget : {static_cast<QWidget*>(bar.saveButton()), static_cast<QWidget*>(bar.saveAsButton()),
                            static_cast<QWidget*>(bar.dragHandle()),
                            static_cast<QWidget*>(bar.uploadButton())}) {
        EXPECT_EQ(widget->font(), font) << widget->metaObject()->className();
        EXPECT_EQ(widget->height(), bar.copyButton()->height());
    }
    test::saveArtifact(bar.grab().toImage(), QStringLiteral("editor-bottom-bar.png"));
}

} // namespace
} // namespace nubo
