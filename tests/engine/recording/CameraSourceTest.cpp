#include "core/Settings.h"
#include "recording/CameraStreamSource.h"
#include "support/CameraStream.h"
#include "support/MovieDecoder.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <thread>

namespace nubo {
namespace {

using namespace std::chrono_literals;

// Waits (at most 10 s) for `done`; false when it never came.
template <class F> bool waitFor(F done)
{
    QElapsedTimer timer;
    timer.start();
    while (!done()) {
        if (timer.elapsed() > 10000) {
            return false;
        }
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

class CameraSource : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_stream = m_dir.filePath(QStringLiteral("camera.avi"));
        const QString failure = test::writeCameraStream(m_stream, 30); // one second
        ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();
    }
    QTemporaryDir m_dir;
    QString m_stream;
};

// A camera's MJPEG pictures decoded, at the stream's own pace, the newest
// kept and the ones nobody took counted as dropped.
TEST_F(CameraSource, DecodesAtTheStreamsPaceKeepsTheNewestAndDropsTheRest)
{
    CameraStreamSource source(m_stream);
    EXPECT_EQ(source.description(), QStringLiteral("mjpeg 640x360 at 30 fps"));
    QElapsedTimer clock;
    clock.start();
    std::optional<CameraFrame> first;
    ASSERT_TRUE(waitFor([&] { return (first = source.latestFrame()).has_value(); }));
    EXPECT_EQ(first->image.size(), QSize(640, 360));
    EXPECT_EQ(first->image.format(), QImage::Format_RGB32);
    // The three bands, left to right, and the picture's own number.
    const QRgb bands[] = {first->image.pixel(100, 300), first->image.pixel(320, 300),
                          first->image.pixel(540, 300)};
    EXPECT_GT(qRed(bands[0]), 200);
    EXPECT_GT(qGreen(bands[1]), 190);
    EXPECT_GT(qBlue(bands[2]), 200);
    EXPECT_EQ(test::readCounter(first->image, QPoint(16, 16)), int(first->sequence - 1));

    // A reader that looks only now and then gets the newest picture; the others are dropped.
    const qint64 decodedBefore = source.framesDecoded();
    ASSERT_TRUE(waitFor([&] { return source.framesDecoded() >= decodedBefore + 10; }));
    const std::optional<CameraFrame> later = source.latestFrame();
    ASSERT_TRUE(later);
    EXPECT_GE(later->sequence, first->sequence + 10);
    EXPECT_EQ(test::readCounter(later->image, QPoint(16, 16)), int(later->sequence - 1) % 30);
    EXPECT_GE(source.framesDropped(), 9);
    // Taken: the same picture again until a new one comes, never an older one.
    const std::optional<CameraFrame> again = source.latestFrame();
    EXPECT_GE(again->sequence, later->sequence);

    // Played at its pace (never faster than 30 a second), and from the start again after its end.
    ASSERT_TRUE(waitFor([&] { return source.framesDecoded() >= 40; }));
    EXPECT_GE(clock.elapsed(), 39 * 1000 / 30 - 50);
    const std::optional<CameraFrame> looped = source.latestFrame();
    EXPECT_GE(looped->sequence, 40u);
    EXPECT_EQ(test::readCounter(looped->image, QPoint(16, 16)), int(looped->sequence - 1) % 30);
    EXPECT_TRUE(source.failure().isEmpty());
}

// What is not a camera is said as such, and nothing hostile crashes it.
TEST_F(CameraSource, NoCameraAndBadStreamsAreErrorsNamingTheCause)
{
    QFile garbage(m_dir.filePath(QStringLiteral("garbage.avi")));
    ASSERT_TRUE(garbage.open(QIODevice::WriteOnly));
    QByteArray noise(200000, '\0');
    for (int i = 0; i < noise.size(); ++i) {
        noise[i] = char((i * 7919 + 13) ^ (i >> 3));
    }
    garbage.write(noise);
    garbage.close();
    // A stream cut in the middle of a picture plays what it has.
    QFile whole(m_stream);
    ASSERT_TRUE(whole.open(QIODevice::ReadOnly));
    QFile cut(m_dir.filePath(QStringLiteral("cut.avi")));
    ASSERT_TRUE(cut.open(QIODevice::WriteOnly));
    cut.write(whole.read(whole.size() / 2 + 1234));
    cut.close();
    struct Case {
        QString id;
        QString error; // empty: it opens
    };
    const Case cases[] = {
        {QStringLiteral("/dev/video97"), QStringLiteral("The camera “/dev/video97” is not connected.")},
        {m_dir.filePath(QStringLiteral("missing.avi")), QStringLiteral("is not connected.")},
        {garbage.fileName(), QStringLiteral("cannot be opened")},
        {cut.fileName(), QString()},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.id.toStdString());
        try {
            CameraStreamSource source(c.id);
            EXPECT_TRUE(c.error.isEmpty()) << "opened";
            EXPECT_TRUE(waitFor([&] { return source.framesDecoded() >= 20; }));
        } catch (const Error& error) {
            EXPECT_FALSE(c.error.isEmpty()) << error.message().toStdString();
            EXPECT_TRUE(error.message().contains(c.error)) << error.message().toStdString();
        }
    }

    // A device goes through FFmpeg's device library, loaded on first use
    // (not linked): /dev/null is a device, not a camera, and says so.
    try {
        CameraStreamSource source(QStringLiteral("/dev/null"));
        ADD_FAILURE() << "/dev/null opened as a camera";
    } catch (const Error& error) {
        const QString message = error.message();
        EXPECT_TRUE(message.startsWith(QStringLiteral("The camera \u201c/dev/null\u201d cannot be opened: ")))
            << message.toStdString();
        EXPECT_FALSE(message.contains(QLatin1String("video4linux2")) ||
                     message.contains(QLatin1String("could not be loaded")))
            << "the device library is not there: " << message.toStdString();
    }

    // This machine has no camera: none is listed and none is chosen, unless
    // the stored one is a stream file.
    const bool anyVideoDevice =
        !QDir(QStringLiteral("/dev")).entryList({QStringLiteral("video*")}, QDir::System).isEmpty();
    const QList<CameraDevice> cameras = CameraStreamSource::cameras();
    if (!anyVideoDevice) {
        EXPECT_TRUE(cameras.isEmpty());
    }
    ShotPreferences preferences(m_dir.filePath(QStringLiteral("prefs.ini")));
    EXPECT_EQ(CameraStreamSource::chosen(preferences, {}), std::nullopt);
    const QList<CameraDevice> two{{QStringLiteral("/dev/v4l/by-id/usb-A"), QStringLiteral("A")},
                                  {QStringLiteral("/dev/video2"), QStringLiteral("B")}};
    EXPECT_EQ(CameraStreamSource::chosen(preferences, two)->name, QStringLiteral("A"));
    preferences.setValue(keys::recordingAvatarCameraDeviceID, QStringLiteral("/dev/video2"));
    EXPECT_EQ(CameraStreamSource::chosen(preferences, two)->name, QStringLiteral("B"));
    preferences.setValue(keys::recordingAvatarCameraDeviceID, QStringLiteral("/dev/video9"));
    EXPECT_EQ(CameraStreamSource::chosen(preferences, two)->name, QStringLiteral("A")) << "gone: the first";
    preferences.setValue(keys::recordingAvatarCameraDeviceID, m_stream);
    EXPECT_EQ(CameraStreamSource::chosen(preferences, {}),
              (CameraDevice{m_stream, QStringLiteral("camera.avi")}));
}

} // namespace
} // namespace nubo
