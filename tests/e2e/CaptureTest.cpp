#include "capture/CaptureSelection.h"
#include "capture/xcb/XcbRegionStream.h"
#include "capture/xcb/XcbScreenCapturer.h"
#include "support/LiveProcess.h"
#include "support/Process.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QRasterWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <QThread>

#include <unistd.h>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <xcb/xcb.h>

namespace nubo {
namespace {

using test::settleUntil;

// One real X client showing one window, closed when the test is done.
class TestWindow {
public:
    explicit TestWindow(const QStringList& arguments)
    {
        m_process.start(QStringLiteral(NUBOSHOT_TEST_WINDOW), arguments);
        if (m_process.waitForReadyRead(5000)) {
            id = m_process.readLine().trimmed().toUInt();
        }
    }
    ~TestWindow() { close(); }
    void close()
    {
        m_process.terminate();
        m_process.waitForFinished(3000);
    }

    quint32 id = 0;

private:
    QProcess m_process;
};

bool isListed(XcbScreenCapturer& capturer, quint32 id)
{
    for (const auto& d : capturer.windowDescriptors()) {
        if (d.window.id == id && d.isOnScreen) {
            return true;
        }
    }
    return false;
}

QList<quint32> pickable(XcbScreenCapturer& capturer)
{
    QList<quint32> ids;
    for (const CapturableWindow& w : capturer.listWindows(false).windows) {
        ids << w.id;
    }
    return ids;
}

// Whether every pixel of the image (or of a part of it) has one colour.
bool allOf(const QImage& image, QColor color, QRect part = {})
{
    const QRect area = part.isNull() ? image.rect() : part;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            if (image.pixelColor(x, y) != color) {
                return false;
            }
        }
    }
    return true;
}

class Capture : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("DISPLAY")) {
            GTEST_FAIL() << "needs the private desktop session of scripts/test (DISPLAY and a session bus)";
        }
    }
    XcbScreenCapturer capturer;
    XcbRegionStreaming streaming{{}, {}};
};

TEST_F(Capture, OffersOnlyWindowsAUserWouldPick)
{
    TestWindow normal({"--geometry", "120x90+300+300", "--color", "ff0000", "--undecorated",
                       "--title", "Normal"});
    TestWindow dock(
        {"--geometry", "300x40+300+0", "--color", "0000ff", "--type", "dock", "--title", "Dock"});
    TestWindow hidden({"--geometry", "120x90+500+300", "--color", "00ff00", "--state", "hidden",
                       "--title", "Min"});
    TestWindow seven(
        {"--geometry", "7x7+700+300", "--color", "00ff00", "--undecorated", "--title", "Seven"});
    TestWindow eight(
        {"--geometry", "8x8+720+300", "--color", "00ff00", "--undecorated", "--title", "Eight"});
    TestWindow transparent(
        {"--geometry", "50x50+760+300", "--color", "00ff00", "--opacity", "0", "--title", "Clear"});
    ASSERT_TRUE(
        settleUntil([&] { return isListed(capturer, normal.id) && isListed(capturer, eight.id); }));

    const QList<quint32> ids = pickable(capturer);
    EXPECT_TRUE(ids.contains(normal.id));
    EXPECT_TRUE(ids.contains(eight.id));
    EXPECT_FALSE(ids.contains(dock.id));
    EXPECT_FALSE(ids.contains(hidden.id));
    EXPECT_FALSE(ids.contains(seven.id));
    EXPECT_FALSE(ids.contains(transparent.id));
    for (const CapturableWindow& w : capturer.listWindows(false).windows) {
        EXPECT_NE(w.applicationName, QStringLiteral("Tint2")) << "the panel is never offered";
    }
    // The newest window is in front.
    TestWindow front(
        {"--geometry", "60x60+310+310", "--color", "ffff00", "--undecorated", "--title", "Front"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, front.id); }));
    const QList<quint32> order = pickable(capturer);
    EXPECT_LT(order.indexOf(front.id), order.indexOf(normal.id));
    // Previews for picking show the window itself.
    const WindowCaptureSnapshot snapshot = capturer.listWindows(true);
    ASSERT_TRUE(snapshot.previews.contains(normal.id));
    EXPECT_EQ(snapshot.previews.value(normal.id).size(), QSize(120, 90));
    EXPECT_EQ(snapshot.previews.value(normal.id).pixelColor(60, 45), QColor(255, 0, 0));
    // A window's frame is where it is on screen.
    for (const CapturableWindow& w : capturer.listWindows(false).windows) {
        if (w.id == normal.id) {
            EXPECT_EQ(w.frame, QRectF(300, 300, 120, 90));
            EXPECT_EQ(w.title, QStringLiteral("Normal"));
            EXPECT_EQ(w.applicationName, QStringLiteral("testwindow"));
        }
    }
}

TEST_F(Capture, CoveredWindowsShowTheirOwnPixels)
{
    // Without prepareWindowPixels(): the first window capture redirects the
    // windows itself and waits for them to be drawn.
    TestWindow below({"--geometry", "200x150+100+500", "--color", "ff0000", "--undecorated"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, below.id); }));
    TestWindow above({"--geometry", "200x150+150+550", "--color", "00ff00", "--undecorated"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, above.id); }));
    QThread::msleep(100);

    const WindowCapture capture = capturer.captureWindow(below.id);
    EXPECT_EQ(capture.image.size(), QSize(200, 150));
    EXPECT_EQ(capture.scale, 1.0f);
    EXPECT_TRUE(allOf(capture.image, QColor(255, 0, 0)));
    // The display shows the green window over it.
    const QImage screen = capturer.captureDisplays().first().image;
    EXPECT_EQ(screen.pixelColor(250, 600), QColor(0, 255, 0));
    EXPECT_EQ(screen.pixelColor(120, 520), QColor(255, 0, 0));
    test::saveArtifact(screen, QStringLiteral("capture-display.png"));
}

TEST_F(Capture, ALargeCaptureReadInStripsKeepsEveryRowInItsPlace)
{
    // 2600 × 1800 pixels, 18 MB: read into a new segment in strips, each
    // strip's pages filled while the server copies the one before.
    TestWindow rows({"--geometry", "2600x1800+0+0", "--numbered-rows", "--override"});
    const auto expected = [](int y) { return QColor(y % 256, y / 256, 0x80); };
    QImage image;
    ASSERT_TRUE(settleUntil([&] {
        try {
            image = capturer.captureWindow(rows.id).image;
        } catch (const Error&) {
            return false;
        }
        return image.size() == QSize(2600, 1800) && image.pixelColor(2599, 1799) == expected(1799);
    }));
    int wrongRows = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (const int x : {0, 1300, 2599}) {
            if (image.pixelColor(x, y) != expected(y)) {
                ++wrongRows;
                break;
            }
        }
    }
    EXPECT_EQ(wrongRows, 0);
}

TEST_F(Capture, AWindowThatIsGoneHasNoContent)
{
    auto window = std::make_unique<TestWindow>(
        QStringList{"--geometry", "100x100+600+600", "--color", "0000ff"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, window->id); }));
    const quint32 id = window->id;
    window.reset();
    ASSERT_TRUE(settleUntil([&] { return !isListed(capturer, id); }));
    try {
        capturer.captureWindow(id);
        ADD_FAILURE() << "captured a closed window";
    } catch (const CaptureError& error) {
        EXPECT_EQ(error.code(), CaptureError::Code::noContent);
    }
}

TEST_F(Capture, OurOwnWindowsNeverShow)
{
    capturer.prepareWindowPixels(); // as the tray application does at start
    TestWindow under({"--geometry", "300x200+900+300", "--color", "ff0000", "--undecorated"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, under.id); }));

    // A window of this process, plainly visible over the red one.
    class Magenta : public QRasterWindow {
    protected:
        void paintEvent(QPaintEvent*) override
        {
            QPainter(this).fillRect(QRect(QPoint(0, 0), size()), QColor(255, 0, 255));
        }
    } ours;
    ours.setFlags(Qt::FramelessWindowHint);
    ours.setGeometry(950, 350, 150, 100);
    ours.show();
    QScreen* screen = QGuiApplication::primaryScreen();
    ASSERT_TRUE(settleUntil([&] {
        return screen->grabWindow(0, 1000, 400, 1, 1).toImage().pixelColor(0, 0) ==
               QColor(255, 0, 255);
    })) << "our window never showed";

    const QImage display = capturer.captureDisplays().first().image;
    test::saveArtifact(display, QStringLiteral("capture-without-own-window.png"));
    EXPECT_TRUE(allOf(display, QColor(255, 0, 0), QRect(950, 350, 150, 100)));
    const ScreenSpace space = capturer.displays().first().space;
    const ScreenCaptureRegion region = captureRegion(space, QRectF(975, 375, 100, 100));
    EXPECT_TRUE(allOf(capturer.captureRegion(space.displayID, region), QColor(255, 0, 0)));
    // The user still sees it.
    EXPECT_EQ(screen->grabWindow(0, 1000, 400, 1, 1).toImage().pixelColor(0, 0),
              QColor(255, 0, 255));
    // It is not offered, and capturing it by id is refused.
    EXPECT_FALSE(pickable(capturer).contains(quint32(ours.winId())));
    EXPECT_THROW(capturer.captureWindow(quint32(ours.winId())), CaptureError);
}

TEST_F(Capture, OurWindowEmbeddedInAnotherDoesNotMakeItOurs)
{
    // Like our tray icon inside the panel: a window of ours inside another
    // client's window. The other window must stay in captures.
    capturer.prepareWindowPixels();
    // An unframed host, as a panel may be: our window is its direct child.
    TestWindow host({"--geometry", "200x100+1300+200", "--color", "00ff00", "--override"});
    QThread::msleep(100); // override-redirect windows are never listed: just wait
    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    ASSERT_FALSE(xcb_connection_has_error(c));
    const xcb_window_t icon = xcb_generate_id(c);
    const uint32_t magenta = 0xff00ff;
    xcb_create_window(c, XCB_COPY_FROM_PARENT, icon, host.id, 10, 10, 22, 22, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &magenta);
    xcb_intern_atom_reply_t* pidAtom =
        xcb_intern_atom_reply(c, xcb_intern_atom(c, 0, 11, "_NET_WM_PID"), nullptr);
    const uint32_t pid = uint32_t(QCoreApplication::applicationPid());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, icon, pidAtom->atom, XCB_ATOM_CARDINAL, 32, 1,
                        &pid);
    std::free(pidAtom);
    xcb_map_window(c, icon);
    xcb_flush(c);
    QThread::msleep(100);

    const QImage display = capturer.captureDisplays().first().image;
    EXPECT_EQ(display.pixelColor(1400, 280), QColor(0, 255, 0))
        << "the host window was painted away";
    EXPECT_NO_THROW(capturer.captureWindow(host.id));
    xcb_disconnect(c);
}

TEST_F(Capture, MonitorsAreDisplaysAndSpanningWindowsAreFree)
{
    const auto xrandr = [](const QStringList& arguments) {
        QProcess process;
        process.start(QStringLiteral("xrandr"), arguments);
        process.waitForFinished(5000);
        return process.exitCode() == 0;
    };
    const auto original = capturer.displays();
    ASSERT_TRUE(xrandr({"--setmonitor", "nubo-left", "960/254x1080/286+0+0", "none"}));
    ASSERT_TRUE(xrandr({"--setmonitor", "nubo-right", "960/254x1080/286+960+0", "none"}));
    struct Restore {
        std::function<void()> undo;
        ~Restore() { undo(); }
    } restore{[&] {
        xrandr({"--delmonitor", "nubo-left"});
        xrandr({"--delmonitor", "nubo-right"});
    }};
    QList<QRect> geometries;
    for (const auto& m : capturer.displays()) {
        geometries << m.pixelGeometry;
    }
    EXPECT_TRUE(geometries.contains(QRect(0, 0, 960, 1080)));
    EXPECT_TRUE(geometries.contains(QRect(960, 0, 960, 1080)));

    // A window across both is captured whole, by itself.
    TestWindow across({"--geometry", "200x100+860+700", "--color", "00ffff", "--undecorated"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, across.id); }));
    QList<std::pair<quint32, QRectF>> bounds;
    for (const auto& m : capturer.displays()) {
        if (m.pixelGeometry.width() == 960) {
            bounds.append({m.id, QRectF(m.pixelGeometry)});
        }
    }
    ASSERT_EQ(bounds.size(), 2) << "both halves are displays";
    EXPECT_EQ(WindowCaptureFraming::forWindow({860, 700, 200, 100}, bounds),
              WindowCaptureFraming{WindowCaptureFraming::Free{}});
    const WindowCapture capture = capturer.captureWindow(across.id);
    EXPECT_EQ(capture.image.size(), QSize(200, 100));
    EXPECT_TRUE(allOf(capture.image, QColor(0, 255, 255)));
    // Each display captures its own half.
    int halves = 0;
    for (const DisplayCapture& display : capturer.captureDisplays()) {
        if (display.space.captureFrame.width() == 960) {
            EXPECT_EQ(display.image.size(), QSize(960, 1080));
            ++halves;
        }
    }
    EXPECT_EQ(halves, 2) << "a capture of each half";
    (void)original;
}

TEST_F(Capture, RegionStreamsDeliverFramesUntilStopped)
{
    TestWindow window({"--geometry", "200x100+40+700", "--color", "ff8000", "--undecorated"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, window.id); }));
    const ScreenSpace space = capturer.displays().first().space;
    const quint32 display = space.displayID;
    const ScreenCaptureRegion region = captureRegion(space, QRectF(60, 720, 100, 50));
    auto stream = streaming.streamRegion(display, region);
    for (int i = 0; i < 5; ++i) {
        const auto frame = stream->next();
        ASSERT_TRUE(frame.has_value());
        EXPECT_EQ(frame->image.size(), QSize(100, 50));
        EXPECT_TRUE(allOf(frame->image, QColor(255, 128, 0)));
    }
    QElapsedTimer stopping;
    stopping.start();
    stream->stopCapture();
    EXPECT_EQ(stream->next(), std::nullopt);
    stream.reset();
    EXPECT_LT(stopping.elapsed(), 500);
    const ScreenCaptureRegion outside{QRect(5000, 5000, 10, 10), QRectF(5000, 5000, 10, 10),
                                      QRectF()};
    EXPECT_THROW(streaming.streamRegion(display, outside), CaptureError);
    EXPECT_THROW(captureRegion(space, QRectF(5000, 5000, 10, 10)), CaptureError);
}

TEST_F(Capture, GrabCommandsWriteWhatIsOnScreen)
{
    TestWindow window({"--geometry", "160x120+1200+600", "--color", "8000ff", "--undecorated"});
    ASSERT_TRUE(settleUntil([&] { return isListed(capturer, window.id); }));
    QTemporaryDir dir;
    struct Case {
        QStringList arguments;
        int exitCode;
        QSize size;
        QPoint probe;
        QColor color;
    };
    const QString png = dir.filePath(QStringLiteral("grab.png"));
    const Case cases[] = {
        {{"grab", "window", QString::number(window.id), "-o", png},
         0,
         {160, 120},
         {80, 60},
         QColor(128, 0, 255)},
        {{"grab", "window", QStringLiteral("0x%1").arg(window.id, 0, 16), "-o", png},
         0,
         {160, 120},
         {0, 0},
         QColor(128, 0, 255)},
        {{"grab", "region", "1190,590,40,30", "-o", png},
         0,
         {40, 30},
         {20, 20},
         QColor(128, 0, 255)},
        {{"grab", "fullscreen", "-o", png}, 0, {1920, 1080}, {1250, 650}, QColor(128, 0, 255)},
        {{"grab", "window", "0x1", "-o", png}, 1, {}, {}, {}},
        {{"grab", "window", "-o", png}, 2, {}, {}, {}},
        {{"grab", "fullscreen", "-o", dir.filePath("x.gif")}, 2, {}, {}, {}},
        {{"grab", "fullscreen", "--display", "999999", "-o", png}, 1, {}, {}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        QFile::remove(png);
        const auto result = test::runNuboShot(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode) << result.err.toStdString();
        if (c.exitCode == 0) {
            const QImage image(png);
            EXPECT_EQ(image.size(), c.size);
            EXPECT_EQ(image.pixelColor(c.probe), c.color);
        }
    }
    const auto listed = test::runNuboShot({"windows"});
    EXPECT_TRUE(
        listed.out.contains(QStringLiteral("0x%1").arg(window.id, 8, 16, QLatin1Char('0'))));
    const auto displays = test::runNuboShot({"displays", "--json"});
    EXPECT_TRUE(displays.out.contains(QStringLiteral("\"pixels\"")));
}

// An X server of its own at a depth other than 24 bits: a 16-bit one once
// made grabs read past the server's reply.
class PrivateXServer {
public:
    explicit PrivateXServer(int depth)
    {
        int pipe[2];
        if (::pipe(pipe) != 0) {
            return;
        }
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.setChildProcessModifier([fd = pipe[1]] { ::dup2(fd, 3); });
        m_server.start(QStringLiteral("Xvfb"),
                       {"-displayfd", "3", "-screen", "0", QStringLiteral("320x240x%1").arg(depth),
                        "-nolisten", "tcp"});
        ::close(pipe[1]);
        QFile reader;
        if (m_server.waitForStarted(5000) && reader.open(pipe[0], QIODevice::ReadOnly)) {
            const QDeadlineTimer deadline(10000);
            QByteArray line;
            while (!line.endsWith('\n') && !deadline.hasExpired()) {
                char ch = 0;
                if (::read(pipe[0], &ch, 1) == 1) {
                    line += ch;
                } else {
                    break;
                }
            }
            display = QStringLiteral(":") + QString::fromLatin1(line.trimmed());
        }
        ::close(pipe[0]);
    }
    ~PrivateXServer()
    {
        m_server.terminate();
        m_server.waitForFinished(5000);
    }
    QString display; // ":N" once it runs

private:
    QProcess m_server;
};

TEST(XDisplayDepth, EveryCommonDepthIsReadInItsColours)
{
    for (const int depth : {16, 30}) {
        SCOPED_TRACE(depth);
        PrivateXServer server(depth);
        ASSERT_NE(server.display, QString()) << "Xvfb at depth " << depth << " did not start";
        QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
        env.insert(QStringLiteral("DISPLAY"), server.display);
        QProcess window;
        window.setProcessEnvironment(env);
        window.start(QStringLiteral(NUBOSHOT_TEST_WINDOW),
                     {"--geometry", "100x80+10+10", "--color", "ff8000", "--undecorated"});
        ASSERT_TRUE(window.waitForReadyRead(5000));
        QThread::msleep(200);
        QTemporaryDir dir;
        const QString png = dir.filePath(QStringLiteral("shot.png"));
        env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
        const test::ProcessResult r =
            test::runNuboShot({"grab", "fullscreen", "-o", png}, 30000, env);
        window.terminate();
        window.waitForFinished();
        ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
        const QImage shot(png);
        ASSERT_EQ(shot.size(), QSize(320, 240));
        // Orange as the depth can hold it, and the black desktop beside it.
        const QColor inside = shot.pixelColor(60, 50);
        EXPECT_NEAR(inside.red(), 255, 8);
        EXPECT_NEAR(inside.green(), 128, 8);
        EXPECT_NEAR(inside.blue(), 0, 8);
        EXPECT_EQ(shot.pixelColor(250, 200), QColor(Qt::black));
    }
}

} // namespace
} // namespace nubo
