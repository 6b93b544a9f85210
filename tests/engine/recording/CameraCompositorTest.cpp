#include "recording/CameraOverlay.h"

#include <QMutex>
#include <QStringList>

#include <gtest/gtest.h>

#include <cmath>

namespace nubo {
namespace {

// Warnings logged while it lives.
class LoggedLines {
public:
    LoggedLines() { s_lines.clear(); m_previous = qInstallMessageHandler(&LoggedLines::handle); }
    ~LoggedLines() { qInstallMessageHandler(m_previous); }
    QStringList lines() const
    {
        const QMutexLocker lock(&s_mutex);
        return s_lines;
    }

private:
    static void handle(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        const QMutexLocker lock(&s_mutex);
        s_lines << message;
    }
    static inline QMutex s_mutex;
    static inline QStringList s_lines;
    QtMessageHandler m_previous = nullptr;
};

const QRgb screenColour = qRgb(200, 120, 60);
const QRgb red = qRgb(230, 20, 20), green = qRgb(20, 220, 40), blue = qRgb(30, 40, 230);

QImage screenPicture(QSize size = QSize(1920, 1080))
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(screenColour);
    return image;
}

// A 640 × 360 camera picture in three upright bands: red, green, blue.
CameraFrame cameraPicture(quint64 sequence = 1)
{
    QImage image(640, 360, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            image.setPixel(x, y, x < 213 ? red : x < 426 ? green : blue);
        }
    }
    return {image, sequence};
}

QRectF normalized(const QRect& pixels, QSize size = QSize(1920, 1080))
{
    return QRectF(double(pixels.x()) / size.width(), double(pixels.y()) / size.height(),
                  double(pixels.width()) / size.width(), double(pixels.height()) / size.height());
}

bool near(QRgb a, QRgb b, int tolerance = 2)
{
    return std::abs(qRed(a) - qRed(b)) <= tolerance && std::abs(qGreen(a) - qGreen(b)) <= tolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= tolerance;
}

QRgb darkened(QRgb colour, double alpha)
{
    return qRgb(int(qRed(colour) * (1 - alpha)), int(qGreen(colour) * (1 - alpha)),
                int(qBlue(colour) * (1 - alpha)));
}

TEST(CameraBubbleGeometry, RadiusEdgeAndShadowFollowTheBubblesSize)
{
    struct Case {
        QRect frame;
        double radius;
        int edgePixels; // along a radius, neither opaque nor clear
        QRect square;
    };
    const Case cases[] = {
        {QRect(100, 100, 180, 180), 90, 1, QRect(100, 100, 180, 180)},
        {QRect(500, 100, 900, 900), 450, 5, QRect(500, 100, 900, 900)},
        // Not square: the smaller side, centred.
        {QRect(40, 40, 300, 120), 60, 1, QRect(130, 40, 120, 120)},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.radius);
        const CameraBubbleGeometry g = CameraBubbleGeometry::make(c.frame, QSize(1920, 1080));
        EXPECT_EQ(g.radius, c.radius);
        EXPECT_EQ(g.square, c.square);
        EXPECT_DOUBLE_EQ(g.softening, std::max(1.0, c.radius / 90));
        EXPECT_DOUBLE_EQ(g.shadowOffset, c.radius / 45);
        EXPECT_DOUBLE_EQ(g.shadowRadius, c.radius + c.radius / 12);
        const QPoint centre = g.square.topLeft() + QPoint(int(c.radius), int(c.radius));
        int edge = 0;
        for (int x = centre.x(); x < g.square.right() + 3; ++x) {
            const int mask = g.maskAt(QPoint(x, centre.y()));
            edge += mask > 0 && mask < 256;
        }
        EXPECT_EQ(edge, c.edgePixels);
        EXPECT_EQ(g.maskAt(centre), 256);
        EXPECT_EQ(g.maskAt(g.square.topLeft()), 0);
        EXPECT_EQ(g.maskAt(g.square.bottomRight()), 0);
        // The rim lights the edge and ends one pixel out.
        EXPECT_EQ(g.rimAt(QPoint(g.square.right(), centre.y())), 128);
        EXPECT_EQ(g.rimAt(QPoint(g.square.right() + 1, centre.y())), 0);
        // The shadow reaches further below than above.
        EXPECT_GT(g.shadowAt(QPoint(centre.x(), g.square.bottom() + 2)),
                  g.shadowAt(QPoint(centre.x(), g.square.top() - 2)));
    }
    // Clipped to the picture; too small or wholly off: nothing to draw.
    EXPECT_EQ(CameraBubbleGeometry::make(QRect(1800, 1000, 240, 240), QSize(1920, 1080)).box.bottomRight(),
              QPoint(1919, 1079));
    EXPECT_TRUE(CameraBubbleGeometry::make(QRect(10, 10, 1, 1), QSize(100, 100)).box.isEmpty());
    EXPECT_TRUE(CameraBubbleGeometry::make(QRect(200, 200, 50, 50), QSize(100, 100)).box.isEmpty());
}

TEST(CameraFrameCompositor, DrawsTheCameraInsideTheScreenOutsideAndTheShadowBelow)
{
    struct Case {
        QRect frame;
        bool mirrored;
    };
    const Case cases[] = {
        {QRect(1500, 660, 360, 360), false},
        {QRect(1500, 660, 360, 360), true},
        {QRect(60, 700, 180, 180), false},
    };
    const QImage screen = screenPicture();
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.frame.width() << (c.mirrored ? " mirrored" : ""));
        CameraFrameCompositor compositor(screen.size());
        const QImage out = compositor.composite(screen, cameraPicture(), normalized(c.frame), c.mirrored);
        ASSERT_NE(out.cacheKey(), screen.cacheKey()) << "the raw screen was written";
        const double r = c.frame.width() / 2.0;
        const QPoint centre = c.frame.center() + QPoint(1, 1);
        // The camera's middle band in the middle; the outer bands at the sides, swapped in a mirror.
        EXPECT_TRUE(near(out.pixel(centre), green)) << std::hex << out.pixel(centre);
        const QPoint left = centre - QPoint(int(r * 0.8), 0), right = centre + QPoint(int(r * 0.8), 0);
        EXPECT_TRUE(near(out.pixel(left), c.mirrored ? blue : red)) << std::hex << out.pixel(left);
        EXPECT_TRUE(near(out.pixel(right), c.mirrored ? red : blue)) << std::hex << out.pixel(right);
        // The square's corners and everything away from the bubble: the screen.
        for (const QPoint p : {c.frame.topLeft(), c.frame.topRight(), c.frame.bottomLeft(),
                               c.frame.bottomRight(), QPoint(0, 0), QPoint(1000, 300)}) {
            EXPECT_EQ(out.pixel(p), screenColour) << p.x() << "," << p.y();
        }
        // Just below the bubble, the shadow: black at 0.22 fading from r − 2 to r + r / 12
        // around a centre r / 45 below the bubble's.
        const QPoint below(centre.x(), int(c.frame.y() + r + r + 1.5));
        const double fromShadow = below.y() + 0.5 - (c.frame.y() + r + r / 45);
        const double alpha = 0.22 * std::clamp((r + r / 12 - fromShadow) / (r / 12 + 2), 0.0, 1.0);
        EXPECT_GT(alpha, 0.1);
        EXPECT_TRUE(near(out.pixel(below), darkened(screenColour, alpha)))
            << std::hex << out.pixel(below) << " for " << alpha;
        // As far above, less dark.
        const QPoint above(centre.x(), int(c.frame.y() - 2));
        EXPECT_GT(qRed(out.pixel(above)), qRed(out.pixel(below)));
        // The screen itself is untouched.
        EXPECT_EQ(screen.pixel(centre), screenColour);
    }
}

TEST(CameraFrameCompositor, BuildsTheShapeOnlyWhenTheBubbleMovesAndScalesEachPictureOnce)
{
    const QImage screen = screenPicture(QSize(1280, 720));
    CameraFrameCompositor compositor(screen.size());
    const QRectF still = normalized(QRect(100, 100, 240, 240), screen.size());
    const QRectF moved = normalized(QRect(400, 300, 240, 240), screen.size());
    struct Step {
        QRectF frame;
        quint64 camera;
        int geometryBuilds;
        int bubblePictures;
    };
    const Step steps[] = {
        {still, 1, 1, 1}, {still, 1, 1, 1}, {still, 2, 1, 2}, // a new camera picture
        {moved, 2, 2, 3}, {moved, 3, 2, 4}, {moved, 3, 2, 4},
    };
    const CameraFrame pictures[] = {cameraPicture(1), cameraPicture(2), cameraPicture(3)};
    for (const Step& step : steps) {
        const QImage out =
            compositor.composite(screen, pictures[step.camera - 1], step.frame, false);
        EXPECT_NE(out.cacheKey(), screen.cacheKey());
        EXPECT_EQ(compositor.geometryBuilds(), step.geometryBuilds);
        EXPECT_EQ(compositor.bubblePictures(), step.bubblePictures);
    }
    // The moved bubble is where it was moved to.
    const QImage out = compositor.composite(screen, pictures[2], moved, false);
    EXPECT_TRUE(near(out.pixel(520, 420), green));
    EXPECT_EQ(out.pixel(220, 220), screenColour);
    EXPECT_EQ(compositor.buffersAllocated(), 1) << "a released buffer is not reused";
}

TEST(CameraFrameCompositor, FailuresWriteTheRawScreenWithTheirLogLine)
{
    const QImage screen = screenPicture(QSize(640, 360));
    const QRectF frame = normalized(QRect(20, 20, 120, 120), screen.size());
    struct Case {
        const char* name;
        std::function<QImage(CameraFrameCompositor&, std::vector<QImage>&)> run;
        const char* line; // empty: no line, the bubble is drawn
    };
    const Case cases[] = {
        {"six held, the seventh has none",
         [&](CameraFrameCompositor& c, std::vector<QImage>& held) {
             for (int i = 0; i < CameraFrameCompositor::allocationLimit; ++i) {
                 held.push_back(c.composite(screen, cameraPicture(), frame, false));
             }
             return c.composite(screen, cameraPicture(), frame, false);
         },
         "Camera output unavailable; encoding raw screen: CVReturn="},
        {"one released, it comes back",
         [&](CameraFrameCompositor& c, std::vector<QImage>& held) {
             for (int i = 0; i < CameraFrameCompositor::allocationLimit; ++i) {
                 held.push_back(c.composite(screen, cameraPicture(), frame, false));
             }
             held.erase(held.begin());
             return c.composite(screen, cameraPicture(), frame, false);
         },
         ""},
        {"the renderer fails",
         [&](CameraFrameCompositor& c, std::vector<QImage>&) {
             c.renderFrame = [](const QImage&, QImage&) { throw Error(QStringLiteral("Out of paint.")); };
             return c.composite(screen, cameraPicture(), frame, false);
         },
         "Camera render failed (software=true); encoding raw screen: Out of paint."},
        {"a screen picture of another size",
         [&](CameraFrameCompositor& c, std::vector<QImage>&) {
             return c.composite(screenPicture(QSize(320, 200)), cameraPicture(), frame, false);
         },
         "Camera render failed (software=true); encoding raw screen: The screen picture (320×200"},
        {"a camera picture that is not 32-bit",
         [&](CameraFrameCompositor& c, std::vector<QImage>&) {
             CameraFrame grey = cameraPicture();
             grey.image = grey.image.convertToFormat(QImage::Format_Grayscale8);
             return c.composite(screen, grey, frame, false);
         },
         "Camera render failed (software=true); encoding raw screen: The camera picture is not 32-bit"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        CameraFrameCompositor compositor(screen.size());
        std::vector<QImage> held;
        LoggedLines log;
        const QImage out = c.run(compositor, held);
        const QString line = QString::fromUtf8(c.line);
        if (line.isEmpty()) {
            EXPECT_TRUE(log.lines().isEmpty()) << log.lines().join('\n').toStdString();
            EXPECT_TRUE(near(out.pixel(80, 80), green));
        } else {
            EXPECT_EQ(out.pixel(80, 80), out.size() == screen.size() ? screenColour : screenColour);
            ASSERT_EQ(log.lines().size(), 1);
            EXPECT_TRUE(log.lines()[0].startsWith(line)) << log.lines()[0].toStdString();
        }
        EXPECT_LE(compositor.buffersAllocated(), CameraFrameCompositor::allocationLimit);
    }
    // A picture of no size cannot have a pool.
    for (const QSize size : {QSize(0, 10), QSize(10, 0), QSize(-1, -1)}) {
        LoggedLines log;
        try {
            CameraFrameCompositor compositor(size);
            ADD_FAILURE() << "made for " << size.width() << "×" << size.height();
        } catch (const CameraFrameCompositor::CompositorError& error) {
            EXPECT_EQ(error.code(), CameraFrameCompositor::CompositorError::Code::poolCreation);
            EXPECT_EQ(log.lines().value(0), QStringLiteral("Camera output pool creation failed: CVReturn=-22"));
        }
    }
}

} // namespace
} // namespace nubo
