// The scrolling capture's panel: where it goes beside the framed area, and
// how it looks and speaks to the user.

#include "scrolling/ShotScrollingPanel.h"
#include "scrolling/ShotScrollingSession.h"
#include "support/LiveProcess.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>

#include <gtest/gtest.h>

namespace nubo {
namespace {

TEST(ShotScrollingLayout, ThePanelNeverCoversWhatIsSampled)
{
    const QRectF screen(0, 0, 1920, 1080);
    const QRectF left(-1280, 0, 1280, 1024);
    const QSizeF panel(206, 330);
    struct Case {
        const char* name;
        QRectF area;
        QList<QRectF> others;
        ShotScrollingLayout expected;
    };
    const Case cases[] = {
        {"right of the area, level with its top", QRectF(300, 160, 600, 500), {},
         {QRectF(300, 160, 600, 500), QPointF(912, 160)}},
        {"left when the right is full", QRectF(1300, 100, 600, 500), {},
         {QRectF(1300, 100, 600, 500), QPointF(1082, 100)}},
        {"kept on the display near its bottom", QRectF(300, 900, 600, 170), {},
         {QRectF(300, 900, 600, 170), QPointF(912, 750)}},
        {"below a wide area", QRectF(10, 10, 1900, 500), {},
         {QRectF(10, 10, 1900, 500), QPointF(10, 522)}},
        {"above a wide area at the bottom", QRectF(10, 600, 1900, 470), {},
         {QRectF(10, 600, 1900, 470), QPointF(10, 258)}},
        {"on another display when this one is full", screen, {left},
         {screen, QPointF(-218, 12)}},
        {"a strip of a whole display is left out", screen, {},
         {QRectF(0, 0, 1690, 1080), QPointF(1702, 12)}},
        {"beside a narrow area of the full height", QRectF(860, 0, 300, 1080), {},
         {QRectF(860, 0, 300, 1080), QPointF(1172, 0)}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ShotScrollingLayout placed = ShotScrollingLayout::place(c.area, panel, screen, c.others);
        EXPECT_EQ(placed, c.expected);
        const QRectF at(placed.panel, panel);
        EXPECT_FALSE(at.intersects(placed.sampled.adjusted(-ShotScrollingLayout::frame,
                                                            -ShotScrollingLayout::frame,
                                                            ShotScrollingLayout::frame,
                                                            ShotScrollingLayout::frame)));
        bool onADisplay = screen.contains(at);
        for (const QRectF& other : c.others) {
            onADisplay = onADisplay || other.contains(at);
        }
        EXPECT_TRUE(onADisplay);
    }
    // Nowhere beside, and too narrow for a strip at the right: the bottom.
    const ShotScrollingLayout tall =
        ShotScrollingLayout::place(QRectF(0, 0, 250, 1080), panel, QRectF(0, 0, 250, 1080), {});
    EXPECT_EQ(tall.sampled, QRectF(0, 0, 250, 1080 - 330 - 24));
    EXPECT_EQ(tall.panel, QPointF(12, 1080 - 330 - 12));
}

// A striped page, as the preview would show one.
QImage stripes(int width, int height)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    QPainter p(&image);
    for (int y = 0; y < height; y += 20) {
        p.fillRect(0, y, width, 20, y / 20 % 2 ? QColor(250, 250, 250) : QColor(60, 110, 200));
    }
    return image;
}

TEST(ShotScrollingPanel, ShowsThePreviewTheHeightAndWhatToDo)
{
    ShotScrollingPanel panel({});
    const double ratio = panel.devicePixelRatioF();
    panel.setPreview(stripes(qRound(ShotScrollingPanel::previewWidth * ratio),
                             qRound(ShotScrollingPanel::previewHeight * ratio)));
    panel.setHeight(12345);
    panel.move(200, 200);
    panel.show();
    test::settle();
    EXPECT_EQ(panel.height()->text(), QStringLiteral("12,345 px tall"));
    EXPECT_TRUE(panel.autoScrollButton()->isEnabled());
    EXPECT_FALSE(panel.isActiveWindow()) << "the panel took the keyboard";
    test::saveArtifact(panel.grab().toImage(), QStringLiteral("scrolling-panel.png"));

    // Lost: the line turns red and asks to scroll back.
    panel.setStatus(QStringLiteral("Scroll back up a little"), true);
    EXPECT_EQ(panel.status()->palette().color(QPalette::WindowText), QColor(200, 40, 40));
    panel.setAutoScrolling(true);
    EXPECT_EQ(panel.autoScrollButton()->text(), QStringLiteral("Stop Auto-scroll"));
    test::settle();
    test::saveArtifact(panel.grab().toImage(), QStringLiteral("scrolling-panel-lost.png"));
    // The whole button row and the preview stay inside the panel.
    for (const QWidget* w : {static_cast<QWidget*>(panel.doneButton()),
                             static_cast<QWidget*>(panel.cancelButton()),
                             static_cast<QWidget*>(panel.autoScrollButton())}) {
        EXPECT_TRUE(panel.rect().contains(w->geometry())) << w->objectName().toStdString();
    }

    // Where auto-scroll cannot run the button says why.
    ShotScrollingPanel without(QStringLiteral("Auto-scroll is not available on this desktop: "
                                              "scroll by hand."));
    EXPECT_FALSE(without.autoScrollButton()->isEnabled());
    EXPECT_EQ(without.autoScrollButton()->toolTip(),
              QStringLiteral("Auto-scroll is not available on this desktop: scroll by hand."));
}

} // namespace
} // namespace nubo
