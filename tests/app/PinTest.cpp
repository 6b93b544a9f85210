// Shots pinned to the screen, driven with real input: shown pixel for
// pixel at the screen's scale, moved, zoomed, faded, copied, opened in an
// editor and closed.

#include "support/ArchiveFixtures.h"
#include "support/EditorFixture.h"
#include "support/LiveProcess.h"
#include "support/RenderFixtures.h"

#include "capture/CapturePlatformLoader.h"
#include "pin/ShotPinWindow.h"
#include "pin/ShotPins.h"

#include <QClipboard>
#include <QMenu>
#include <QMimeData>
#include <QProcess>
#include <QScreen>
#include <QTimer>

namespace nubo {
namespace {

using test::settleUntil;
using test::xdotool;

class Pins : public test::EditorFixture {
protected:
    // xdotool speaks in the screen's pixels, Qt in points.
    static QStringList at(QPoint point)
    {
        const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
        return {"mousemove", QString::number(int(point.x() * ratio)),
                QString::number(int(point.y() * ratio))};
    }
    // What the screen shows where the pin's picture is, in the screen's pixels.
    static QImage shownPicture(const ShotPinWindow& pin)
    {
        const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
        const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
        const QRect inside = pin.geometry().adjusted(pin.margin(), pin.margin(),
                                                     -pin.margin(), -pin.margin());
        return screen
            .copy(QRect((QPointF(inside.topLeft()) * ratio).toPoint(),
                        (QSizeF(inside.size()) * ratio).toSize()))
            .convertToFormat(QImage::Format_RGB32);
    }
    static QImage clipboardImage()
    {
        const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
        return mime ? QImage::fromData(mime->data(QStringLiteral("image/png")), "PNG")
                          .convertToFormat(QImage::Format_RGB32)
                    : QImage();
    }
};

// Under a real compositing manager the pin casts a soft shadow over what
// lies beneath and its picture stays pixel for pixel; once the manager is
// gone the next pin has the frame again (a shadow would be drawn black).
TEST_F(Pins, AShadowWhereACompositingManagerRunsAndAFrameWhereNone)
{
    const std::shared_ptr<CapturePlatform> platform = CapturePlatformLoader::load();
    ASSERT_FALSE(platform->windowsComposited()) << "the test desktop composites already";
    QProcess compositor;
    compositor.start(QStringLiteral("xcompmgr"), QStringList());
    ASSERT_TRUE(compositor.waitForStarted()) << "xcompmgr is missing";
    ASSERT_TRUE(settleUntil([&] { return platform->windowsComposited(); }))
        << "xcompmgr never announced itself";

    // A white window under the pin, for the shadow to darken.
    QWidget under;
    under.setWindowFlags(Qt::FramelessWindowHint);
    under.setAutoFillBackground(true);
    under.setPalette(QPalette(Qt::white));
    under.setGeometry(250, 150, 400, 300);
    under.show();
    const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    const QImage shot = test::patternImage(int(200 * ratio), int(120 * ratio))
                            .convertToFormat(QImage::Format_RGB32);
    ShotPins pins(*m_preferences);
    pins.composited = [&] { return platform->windowsComposited(); };
    ShotPinWindow* pin = pins.pin(ShotDocument::fromImage(shot, ratio), shot, QPoint(300, 200));
    activate(*pin);
    EXPECT_EQ(pin->margin(), ShotPinWindow::shadow);
    QImage shown;
    ASSERT_TRUE(settleUntil([&] {
        shown = shownPicture(*pin);
        return test::compareImages(shown, shot, 0).maximum == 0;
    })) << "not pixel for pixel: " << test::compareImages(shown, shot, 0).pixelsOver << " differ";
    // Below the picture the white is darkened, less further out, and not
    // at all past the shadow.
    const QImage screen = QGuiApplication::primaryScreen()->grabWindow(0).toImage();
    test::saveArtifact(screen, ratio > 1 ? QStringLiteral("pin-shadow@2x.png") : QStringLiteral("pin-shadow.png"));
    const auto below = [&](int points) { // under the middle of the picture's bottom edge
        return qGray(screen.pixel(int(400 * ratio), int((320 + points) * ratio)));
    };
    EXPECT_LT(below(3), 245) << "no shadow under the pin";
    EXPECT_GT(below(3), 150) << "a shadow drawn solid";
    EXPECT_LT(below(3), below(9));
    EXPECT_EQ(below(ShotPinWindow::shadow + 6), 255);
    pin->close();

    compositor.kill();
    compositor.waitForFinished();
    ASSERT_TRUE(settleUntil([&] { return !platform->windowsComposited(); }));
    ShotPinWindow* framed = pins.pin(ShotDocument::fromImage(shot, ratio), shot, QPoint(300, 200));
    EXPECT_EQ(framed->margin(), ShotPinWindow::frame);
    framed->close();
}

TEST_F(Pins, APinShowsTheShotPixelForPixelAndAnswersThePointerAndTheKeys)
{
    const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
    const QImage shot = test::patternImage(int(240 * ratio), int(160 * ratio))
                            .convertToFormat(QImage::Format_RGB32);
    ShotPins pins(*m_preferences);
    QList<ShotDocument> edited;
    pins.openInEditor = [&](const ShotDocument& document) { edited << document; };
    ShotPinWindow* pin = pins.pin(ShotDocument::fromImage(shot, ratio), shot, QPoint(200, 150));
    activate(*pin);
    ASSERT_TRUE(settleUntil([&] { return pin->geometry().topLeft() == QPoint(199, 149); }))
        << "placed at " << pin->geometry().x() << "," << pin->geometry().y();
    EXPECT_TRUE(pin->windowFlags() & Qt::WindowStaysOnTopHint);

    // Each pixel of the shot on one pixel of the screen.
    QImage shown;
    ASSERT_TRUE(settleUntil([&] {
        shown = shownPicture(*pin);
        return test::compareImages(shown, shot, 0).maximum == 0;
    })) << "not pixel for pixel: " << test::compareImages(shown, shot, 0).pixelsOver << " differ";
    test::saveArtifact(QGuiApplication::primaryScreen()->grabWindow(0).toImage(),
                       ratio > 1 ? QStringLiteral("pin@2x.png") : QStringLiteral("pin.png"));

    // Ctrl+C puts the shot's own pixels on the clipboard.
    QGuiApplication::clipboard()->clear();
    xdotool({"key", "ctrl+c"});
    QImage copied;
    ASSERT_TRUE(settleUntil([&] { return !(copied = clipboardImage()).isNull(); }));
    EXPECT_EQ(copied.size(), shot.size());
    EXPECT_EQ(test::compareImages(copied, shot, 0).maximum, 0);

    // A drag moves it by as much as the pointer went.
    const QPoint grip = pin->geometry().center();
    const QPoint start = pin->pos();
    xdotool(at(grip) << "mousedown" << "1" << at(grip + QPoint(30, 20)) << at(grip + QPoint(60, 40))
                     << "mouseup" << "1");
    EXPECT_TRUE(settleUntil([&] { return pin->pos() == start + QPoint(60, 40); }))
        << "at " << pin->pos().x() << "," << pin->pos().y();

    // The wheel zooms about the pointer, and back to the exact size.
    const QPoint over = pin->geometry().topLeft() + QPoint(41, 31);
    xdotool(at(over) << "click" << "4");
    EXPECT_DOUBLE_EQ(pin->zoom(), 1.25);
    EXPECT_TRUE(settleUntil([&] {
        return pin->width() == 300 + 2 * pin->margin() && pin->height() == 200 + 2 * pin->margin();
    })) << pin->width() << "x" << pin->height();
    xdotool(at(over) << "click" << "5");
    EXPECT_DOUBLE_EQ(pin->zoom(), 1);
    ASSERT_TRUE(settleUntil([&] {
        return pin->pos() == start + QPoint(60, 40) &&
               test::compareImages(shownPicture(*pin), shot, 0).maximum == 0;
    })) << "not back where it was, pixel for pixel";

    // Ctrl+wheel fades it, down to a floor that keeps it findable; the
    // desktop is told through the window's opacity property.
    xdotool(at(over) << "keydown" << "ctrl" << "click" << "5" << "keyup" << "ctrl");
    EXPECT_NEAR(pin->windowOpacity(), 0.9, 0.01);
    xdotool(at(over) << "keydown" << "ctrl" << "click" << "5" << "click" << "5" << "click" << "5"
                     << "click" << "5" << "click" << "5" << "click" << "5" << "click" << "5"
                     << "click" << "5" << "keyup" << "ctrl");
    EXPECT_NEAR(pin->windowOpacity(), ShotPinWindow::minimumOpacity, 0.01);
    const QString property = QString::fromUtf8(test::runServing(
        QStringLiteral("xprop"), {"-id", QString::number(pin->winId()), "_NET_WM_WINDOW_OPACITY"}));
    EXPECT_TRUE(property.contains(QString::number(quint32(ShotPinWindow::minimumOpacity * 0xffffffffu))))
        << property.toStdString();

    // Its menu opens the shot in an editor, which takes the pin's place.
    // The menu runs its own loop: it is answered from a timer, with keys,
    // and closed should the keys not do it.
    QStringList items;
    QDeadlineTimer leftOpen(QDeadlineTimer::Forever);
    QTimer answer;
    answer.setInterval(50);
    QObject::connect(&answer, &QTimer::timeout, [&] {
        QWidget* popup = QApplication::activePopupWidget();
        if (popup && items.isEmpty()) {
            for (const QAction* item : popup->actions()) {
                items << item->text();
            }
            QProcess::startDetached(QStringLiteral("xdotool"), {"key", "Down", "Down", "Down", "Return"});
            leftOpen.setRemainingTime(5000);
        } else if (popup && leftOpen.hasExpired()) {
            popup->close();
        }
    });
    answer.start();
    xdotool(at(over) << "click" << "3");
    EXPECT_EQ(items.join(u'|'), QStringLiteral("Copy|Save|Open in Editor|Opacity||Close"));
    ASSERT_TRUE(settleUntil([&] { return edited.size() == 1 && pins.pins().isEmpty(); }));
    ASSERT_EQ(edited.first().layers.size(), 1);
    EXPECT_EQ(edited.first().layers.first().frame, QRectF(0, 0, 240, 160)) << "not the shot's size in points";
    EXPECT_EQ(test::compareImages(edited.first().layers.first().image.convertToFormat(QImage::Format_RGB32), shot, 0).maximum, 0);
}

TEST_F(Pins, EscapeADoubleClickOrTheTrayCloseThem)
{
    const QImage shot = test::patternImage(120, 90).convertToFormat(QImage::Format_RGB32);
    ShotPins pins(*m_preferences);
    int changes = 0;
    QObject::connect(&pins, &ShotPins::changed, [&] { ++changes; });
    const auto pinAt = [&](QPoint where) {
        ShotPinWindow* pin = pins.pin(ShotDocument::fromImage(shot, 1), shot, where);
        activate(*pin);
        return pin;
    };
    pinAt(QPoint(100, 100));
    xdotool({"key", "Escape"});
    ASSERT_TRUE(settleUntil([&] { return pins.pins().isEmpty(); })) << "Escape left it open";

    const ShotPinWindow* second = pinAt(QPoint(300, 100));
    xdotool(at(second->geometry().center()) << "click" << "--repeat" << "2" << "--delay" << "80" << "1");
    ASSERT_TRUE(settleUntil([&] { return pins.pins().isEmpty(); })) << "a double click left it open";

    // Several at once, all closed from the tray's menu.
    pinAt(QPoint(100, 300));
    pinAt(QPoint(300, 300));
    pinAt(QPoint(500, 300));
    ASSERT_EQ(pins.pins().size(), 3);
    pins.closeAll();
    EXPECT_TRUE(settleUntil([&] { return pins.pins().isEmpty(); }));
    EXPECT_EQ(changes, 10) << "every pin and every close is told to the menu";
}

} // namespace
} // namespace nubo
