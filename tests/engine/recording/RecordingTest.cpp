// The recording vocabulary, the timeline and the writer, checked by decoding
// what was written with FFmpeg.

#include "core/Settings.h"
#include "recording/RecordingEncoder.h"
#include "recording/RecordingRecovery.h"
#include "recording/RecordingTimeline.h"
#include "recording/RecordingTypes.h"
#include "recording/RecordingWriter.h"
#include "support/MovieDecoder.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <gtest/gtest.h>

extern "C" {
#include <libavcodec/avcodec.h>
}

namespace nubo {
namespace {

using namespace std::chrono_literals;
using Code = RecordingError::Code;

RecordingDuration ms(qint64 milliseconds)
{
    return std::chrono::milliseconds(milliseconds);
}

TEST(RecordingTypes, BitRatesSizesAndTheOrderOfChecks)
{
    EXPECT_EQ(frameRateFromRawValue(25), std::nullopt);
    EXPECT_EQ(frameRateFromRawValue(30), RecordingFrameRate::fps30);
    EXPECT_EQ(frameRateFromRawValue(60), RecordingFrameRate::fps60);

    // Bit rates: the worked examples and both clamps.
    EXPECT_EQ(recordingBitRate(1920, 1080, RecordingFrameRate::fps30, RecordingCodec::h264), 9953280);
    EXPECT_EQ(recordingBitRate(1920, 1080, RecordingFrameRate::fps60, RecordingCodec::hevc), 12441600);
    EXPECT_EQ(recordingBitRate(100, 100, RecordingFrameRate::fps30, RecordingCodec::h264), 500000);
    EXPECT_EQ(recordingBitRate(15360, 8640, RecordingFrameRate::fps60, RecordingCodec::h264),
              100000000);

    // Sizes: even, at least 2.
    EXPECT_EQ(recordingOutputSize({1001, 701}, 1), QSize(1000, 700));
    EXPECT_EQ(recordingOutputSize({1001, 701}, 2), QSize(2002, 1402));
    EXPECT_EQ(recordingOutputSize({1, 1}, 1), QSize(2, 2));
    EXPECT_EQ(recordingOutputSize({0.4, 3.9}, 1), QSize(2, 2));

    // Validation: microphone first, then clicks, then the codec.
    struct Case {
        bool microphone, clicks;
        RecordingCodec codec;
        RecordingCapabilities capabilities;
        std::optional<Code> expected;
    };
    const Case cases[] = {
        {true, true, RecordingCodec::hevc, {false, false, false}, Code::microphoneUnsupported},
        {false, true, RecordingCodec::hevc, {false, false, false}, Code::clickHighlightUnsupported},
        {false, false, RecordingCodec::hevc, {true, true, false}, Code::codecUnsupported},
        {true, true, RecordingCodec::hevc, {true, true, true}, std::nullopt},
        {false, false, RecordingCodec::h264, {false, false, false}, std::nullopt},
    };
    for (const Case& c : cases) {
        RecordingOptions options;
        options.microphone = c.microphone;
        options.highlightsClicks = c.clicks;
        options.codec = c.codec;
        try {
            validate(options, c.capabilities);
            EXPECT_FALSE(c.expected);
        } catch (const RecordingError& error) {
            EXPECT_EQ(std::optional(error.code()), c.expected);
        }
    }
}

TEST(RecordingTypes, OptionsAreReadForgivinglyAndStoredUnderTheirKeys)
{
    QTemporaryDir dir;
    ShotPreferences preferences(dir.filePath("prefs.ini"));
    EXPECT_EQ(RecordingOptions::read(preferences), RecordingOptions());
    struct Case {
        const char* key;
        QVariant stored;
        std::function<bool(const RecordingOptions&)> holds;
    };
    const Case cases[] = {
        {"shot.recording.codec", "hevc", [](auto& o) { return o.codec == RecordingCodec::hevc; }},
        {"shot.recording.codec", "HEVC", [](auto& o) { return o.codec == RecordingCodec::h264; }},
        {"shot.recording.frameRate", "fps60", [](auto& o) { return o.frameRate == RecordingFrameRate::fps60; }},
        {"shot.recording.frameRate", 60, [](auto& o) { return o.frameRate == RecordingFrameRate::fps30; }},
        {"shot.recording.resolution", "standard", [](auto& o) { return o.resolution == RecordingResolution::standard; }},
        {"shot.recording.resolution", "tiny", [](auto& o) { return o.resolution == RecordingResolution::native; }},
        {"shot.recording.showsCursor", "perhaps", [](auto& o) { return o.showsCursor; }},
        {"shot.recording.showsCursor", false, [](auto& o) { return !o.showsCursor; }},
        {"shot.recording.systemAudio", true, [](auto& o) { return o.systemAudio; }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.key);
        preferences.setValue(QLatin1String(c.key), c.stored);
        EXPECT_TRUE(c.holds(RecordingOptions::read(preferences)));
        preferences.remove(QLatin1String(c.key));
    }
    RecordingOptions options;
    options.frameRate = RecordingFrameRate::fps60;
    options.camera = true;
    options.microphoneDeviceID = QStringLiteral("alsa_input.usb");
    options.write(preferences);
    EXPECT_EQ(preferences.string(keys::recordingFrameRate), QStringLiteral("fps60"));
    EXPECT_EQ(RecordingOptions::read(preferences), options);
    // JSON under the field names, and back.
    const QJsonObject json = options.toJson();
    EXPECT_EQ(json.keys(), (QStringList{"camera", "codec", "frameRate", "highlightsClicks",
                                        "microphone", "microphoneDeviceID", "resolution",
                                        "showsCursor", "systemAudio"}));
    EXPECT_EQ(json.value("frameRate").toInt(), 60);
    EXPECT_EQ(RecordingOptions::fromJson(json), options);
    QJsonObject wrong = json;
    wrong.insert("frameRate", 25);
    EXPECT_EQ(RecordingOptions::fromJson(wrong), std::nullopt);
}

TEST(RecordingTypes, FileNamesCountUpWithinASecond)
{
    QTemporaryDir dir;
    const QDateTime when = QDateTime::fromString("2026-11-23T09:05:07", Qt::ISODate);
    const QString first = recordingFileName(dir.path(), when);
    EXPECT_EQ(QFileInfo(first).fileName(), QStringLiteral("Nubo Shot Recording 2026-11-23 09.05.07.mp4"));
    QFile(first).open(QIODevice::WriteOnly);
    const QString second = recordingFileName(dir.path(), when);
    EXPECT_EQ(QFileInfo(second).fileName(), QStringLiteral("Nubo Shot Recording 2026-11-23 09.05.07 (2).mp4"));
    QFile(second).open(QIODevice::WriteOnly);
    EXPECT_TRUE(recordingFileName(dir.path(), when).endsWith(QStringLiteral(" (3).mp4")));
}

TEST(RecordingTimeline, PausesLeaveNoGapAndCountOnlyFromTheFirstFrame)
{
    struct Step {
        enum { offer, pause, resume } kind;
        qint64 at;
    };
    struct Case {
        const char* name;
        QList<Step> steps;
        qint64 removed;
        QList<std::pair<qint64, std::optional<qint64>>> maps;
    };
    const Case cases[] = {
        {"a 10 s pause", {{Step::offer, 1000}, {Step::pause, 3000}, {Step::resume, 13000}}, 10000,
         {{13000, 2000}, {15000, 4000}, {10999, std::nullopt}, {500, std::nullopt}}},
        {"a pause before the first frame, ending after it",
         {{Step::pause, 500}, {Step::offer, 1000}, {Step::resume, 1500}}, 500,
         {{1500, 0}, {2500, 1000}}},
        {"a pause ending before the first frame",
         {{Step::pause, 100}, {Step::resume, 400}, {Step::offer, 1000}}, 0, {{1000, 0}}},
        {"a second pause changes nothing; a resume without one neither",
         {{Step::offer, 0}, {Step::pause, 1000}, {Step::pause, 1500}, {Step::resume, 2000},
          {Step::resume, 9000}},
         1000, {{2000, 1000}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        RecordingTimeline timeline;
        for (const Step& s : c.steps) {
            if (s.kind == Step::offer) {
                timeline.offer(ms(s.at));
            } else if (s.kind == Step::pause) {
                timeline.pause(ms(s.at));
            } else {
                timeline.resume(ms(s.at));
            }
        }
        EXPECT_EQ(timeline.removed, ms(c.removed));
        for (const auto& [time, expected] : c.maps) {
            EXPECT_EQ(timeline.map(ms(time)),
                      expected ? std::optional(ms(*expected)) : std::nullopt)
                << time;
        }
    }
    RecordingTimeline paused;
    paused.offer(ms(0));
    paused.pause(ms(10));
    EXPECT_EQ(paused.map(ms(20)), std::nullopt) << "nothing is written while paused";
}

QImage counterFrame(int counter, QSize size = QSize(640, 360))
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(QColor(40, 90, 160));
    test::paintCounter(image, counter, QPoint(16, 16));
    return image;
}

TEST(RecordingWriter, FramesInOrderPausesCutExactlyAndTheIndexIsInFront)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("movie.mp4");
    RecordingWriter writer(file, QSize(640, 360), RecordingOptions());
    // 30 fps capture times from 5 s on (any clock); a pause from frame 60
    // to frame 90 (1 s) whose frames are never written.
    const auto at = [](int frame) { return ms(5000) + RecordingDuration(frame * 1000000 / 30); };
    for (int i = 0; i < 150; ++i) {
        if (i == 60) {
            writer.pause(at(i));
        }
        if (i == 90) {
            writer.resume(at(i));
        }
        const bool written = writer.appendVideo(counterFrame(i), at(i));
        EXPECT_EQ(written, i < 60 || i >= 90) << i;
    }
    EXPECT_EQ(writer.videoFrames(), 120);
    EXPECT_EQ(writer.finish(), file);
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_EQ(movie.codec, QStringLiteral("h264"));
    EXPECT_EQ(movie.profile, QStringLiteral("High"));
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(640, 360));
    EXPECT_EQ(movie.bFrames, 0);
    EXPECT_TRUE(movie.moovBeforeMdat && !movie.fragmented) << "the index is not at the front";
    EXPECT_EQ(movie.colorPrimaries, QStringLiteral("bt709"));
    EXPECT_EQ(movie.colorTransfer, QStringLiteral("iec61966-2-1"));
    EXPECT_EQ(movie.colorSpace, QStringLiteral("bt709"));
    ASSERT_EQ(movie.frames.size(), 120);
    for (int k = 0; k < 120; ++k) {
        const int counter = k < 60 ? k : k + 30;
        EXPECT_EQ(test::readCounter(movie.frames[k], QPoint(16, 16)), counter) << k;
        // The pause shortens the movie by exactly its length.
        EXPECT_NEAR(movie.times[k], k / 30.0, 1e-4) << k;
        EXPECT_EQ(movie.keyFrames[k], k % 60 == 0) << k;
    }
}

// Whichever encoder opens here (a GPU's where there is one, else libx264
// for H.264 and nothing for HEVC), it is set up alike.
TEST(RecordingVideoEncoder, TheBestEncoderThatOpensGetsTheRecordingSettings)
{
    const RecordingEncoderSupport& support = recordingEncoderSupport();
    if (!QDir(QStringLiteral("/dev/dri")).exists() && !QFile::exists(QStringLiteral("/dev/nvidiactl"))) {
        EXPECT_TRUE(support.h264Hardware.isEmpty() && support.hevc.isEmpty())
            << "a hardware encoder without a GPU";
    }
    struct Case {
        RecordingCodec codec;
        QString expected; // empty: none opens
        AVCodecID id;
        int profile;
    };
    const Case cases[] = {
        {RecordingCodec::h264,
         support.h264Hardware.isEmpty() ? QStringLiteral("libx264") : support.h264Hardware,
         AV_CODEC_ID_H264, FF_PROFILE_H264_HIGH},
        {RecordingCodec::hevc, support.hevc, AV_CODEC_ID_HEVC, FF_PROFILE_HEVC_MAIN},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(toString(c.codec).toStdString());
        const RecordingVideoEncoder::Settings settings{QSize(1000, 700), 60, 6'720'000, true};
        if (c.expected.isEmpty()) {
            try {
                RecordingVideoEncoder::open(c.codec, settings);
                ADD_FAILURE() << "an encoder opened that the probe did not find";
            } catch (const RecordingError& error) {
                EXPECT_EQ(error.code(), Code::codecUnsupported);
            }
            continue;
        }
        const auto encoder = RecordingVideoEncoder::open(c.codec, settings);
        EXPECT_EQ(encoder->name(), c.expected);
        EXPECT_EQ(encoder->isHardware(), c.expected != QLatin1String("libx264"));
        const AVCodecContext* context = encoder->context();
        EXPECT_EQ(context->codec_id, c.id);
        EXPECT_EQ(context->profile, c.profile);
        EXPECT_EQ(QSize(context->width, context->height), QSize(1000, 700));
        EXPECT_EQ(context->gop_size, 120) << "a key frame every two seconds";
        EXPECT_EQ(context->max_b_frames, 0);
        if (encoder->isHardware()) {
            EXPECT_EQ(context->bit_rate, 6'720'000);
        } else {
            // Constant quality under the recording's rate as a ceiling.
            EXPECT_EQ(context->bit_rate, 0);
            EXPECT_EQ(context->rc_max_rate, 6'720'000 * 3 / 2);
        }
        EXPECT_EQ(context->colorspace, AVCOL_SPC_BT709);
        EXPECT_TRUE(context->flags & AV_CODEC_FLAG_GLOBAL_HEADER);
        EXPECT_GT(context->extradata_size, 0) << "no parameter sets for the container";
        EXPECT_EQ(encoder->input()->format,
                  encoder->name().endsWith(QLatin1String("_vaapi")) ? AV_PIX_FMT_NV12
                                                                    : AV_PIX_FMT_YUV420P);
    }
    // The writer asks for the same and fails the same: HEVC without an
    // encoder leaves no file behind.
    if (support.hevc.isEmpty()) {
        QTemporaryDir dir;
        RecordingOptions options;
        options.codec = RecordingCodec::hevc;
        RecordingWriter writer(dir.filePath("hevc.mp4"), QSize(320, 240), options);
        EXPECT_THROW(writer.appendVideo(counterFrame(0, QSize(320, 240)), ms(0)), RecordingError);
        EXPECT_FALSE(QFileInfo::exists(dir.filePath("hevc.mp4")));
    }
}

TEST(RecordingWriter, FineColouredDetailKeepsItsColourOnAverage)
{
    // Coloured text is thin: columns one pixel wide, red and green by turns.
    // Each 2 × 2 block's chroma must be the mean of its pixels; one pixel's
    // chroma for all four turned the green columns orange.
    QImage stripes(320, 240, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(stripes.scanLine(y));
        for (int x = 0; x < stripes.width(); ++x) {
            row[x] = x % 2 ? qRgb(0, 255, 0) : qRgb(255, 0, 0);
        }
    }
    QTemporaryDir dir;
    const QString file = dir.filePath("stripes.mp4");
    RecordingWriter writer(file, stripes.size(), RecordingOptions());
    for (int i = 0; i < 10; ++i) {
        writer.appendVideo(stripes, ms(i * 100));
    }
    writer.finish();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_FALSE(movie.frames.isEmpty()) << qPrintable(movie.error);
    const QImage& picture = movie.frames.last();
    double red = 0, green = 0, blue = 0;
    const QRect inner = picture.rect().adjusted(16, 16, -16, -16);
    for (int y = inner.top(); y <= inner.bottom(); ++y) {
        for (int x = inner.left(); x <= inner.right(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            red += qRed(pixel);
            green += qGreen(pixel);
            blue += qBlue(pixel);
        }
    }
    const double pixels = double(inner.width()) * inner.height();
    EXPECT_NEAR(red / pixels, 127.5, 12);
    EXPECT_NEAR(green / pixels, 127.5, 12);
    EXPECT_LT(blue / pixels, 48); // 4:2:0 of such detail clips some blue in; one pixel of four gave 65
}

TEST(RecordingWriter, NothingWrittenIsNoVideoAndNoFile)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("empty.mp4");
    RecordingWriter writer(file, QSize(320, 240), RecordingOptions());
    writer.pause(ms(0));
    EXPECT_FALSE(writer.appendVideo(counterFrame(1, QSize(320, 240)), ms(10)));
    try {
        writer.finish();
        ADD_FAILURE() << "finished without a frame";
    } catch (const RecordingError& error) {
        EXPECT_EQ(error.code(), Code::noVideo);
        EXPECT_EQ(error.message(), QStringLiteral("No video frames were recorded."));
    }
    EXPECT_FALSE(QFileInfo::exists(file));
}

TEST(RecordingWriter, AMovieCutOffMidwayPlaysUpToItsLastKeyFrame)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("cut.mp4");
    const QString copy = dir.filePath("after-the-crash.mp4");
    {
        RecordingWriter writer(file, QSize(320, 240), RecordingOptions());
        for (int i = 0; i < 100; ++i) { // 3.3 s: key frames at 0 and 60
            writer.appendVideo(counterFrame(i, QSize(320, 240)), ms(i * 1000 / 30));
        }
        // What a killed process leaves: the file as it is on disk now.
        ASSERT_TRUE(QFile::copy(file, copy));
        writer.cancel();
    }
    EXPECT_FALSE(QFileInfo::exists(file)) << "cancel leaves the movie";
    const test::DecodedMovie cut = test::decodeMovie(copy, false);
    ASSERT_TRUE(cut.opened) << cut.error.toStdString();
    EXPECT_GE(cut.frames.size() + cut.times.size(), 60) << "less than the first fragment";
    EXPECT_GE(cut.times.last(), 59 / 30.0 - 1e-3);
    // Recovered: the index in front, the same frames.
    RecordingWriter::moveIndexToFront(copy);
    const test::DecodedMovie recovered = test::decodeMovie(copy);
    EXPECT_TRUE(recovered.moovBeforeMdat);
    // (The copy may end a frame early: the cut fragment's last frame has no
    // successor to give its length.)
    EXPECT_GE(recovered.times.size(), cut.times.size() - 1);
    EXPECT_GE(recovered.times.last(), 58 / 30.0 - 1e-2);
    EXPECT_EQ(test::readCounter(recovered.frames.last(), QPoint(16, 16)),
              int(recovered.times.size()) - 1);
}

TEST(RecordingWriter, AKilledRecordingKeepsItsFirstPictureAndNeverAnEmptyMovie)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("early.mp4");
    const QString empty = dir.filePath("empty.mp4"), first = dir.filePath("first.mp4");
    {
        RecordingWriter writer(file, QSize(320, 240), RecordingOptions());
        // What a process killed after each picture leaves on disk.
        for (int i = 0; i < 30 && !QFileInfo::exists(first); ++i) {
            writer.appendVideo(counterFrame(i, QSize(320, 240)), ms(i * 1000 / 30));
            const test::DecodedMovie now = test::decodeMovie(file, false);
            const QString copy = now.times.isEmpty() ? empty : first;
            ASSERT_TRUE(QFileInfo::exists(copy) || QFile::copy(file, copy));
        }
        writer.cancel();
    }
    ASSERT_TRUE(QFileInfo::exists(first)) << "no picture on disk within the first second";
    ASSERT_TRUE(QFileInfo::exists(empty)) << "the encoder holds no picture back";

    // The next start finds both behind markers of a process that is gone.
    for (const QString& movie : {empty, first}) {
        const QJsonObject marker{{"movie", movie}, {"pid", 0}};
        QDir().mkpath(RecordingRecovery::markerFolder());
        QFile markerFile(RecordingRecovery::markerFolder() + "/" + QFileInfo(movie).baseName() + ".json");
        ASSERT_TRUE(markerFile.open(QIODevice::WriteOnly));
        markerFile.write(QJsonDocument(marker).toJson());
    }
    const RecordingRecovery::Recovered recovered = RecordingRecovery::recoverInterrupted();
    EXPECT_EQ(recovered.movies, QStringList{first});
    EXPECT_EQ(recovered.empty, QStringList{empty});
    EXPECT_FALSE(QFileInfo::exists(empty)) << "an empty movie was kept";
    const test::DecodedMovie kept = test::decodeMovie(first);
    EXPECT_TRUE(kept.moovBeforeMdat);
    ASSERT_GE(kept.frames.size(), 1);
    EXPECT_EQ(test::readCounter(kept.frames.first(), QPoint(16, 16)), 0);
    EXPECT_TRUE(QDir(RecordingRecovery::markerFolder()).isEmpty());
}

TEST(RecordingWriter, AFullDiskFailsWithItsReasonAndTouchesNothingElse)
{
    // /dev/full takes the file's place: every write fails as on a full disk.
    RecordingWriter writer(QStringLiteral("/dev/full"), QSize(320, 240), RecordingOptions());
    try {
        for (int i = 0; i < 200; ++i) {
            writer.appendVideo(counterFrame(i, QSize(320, 240)), ms(i * 1000 / 30));
        }
        writer.finish();
        ADD_FAILURE() << "nothing refused the writes";
    } catch (const RecordingError& error) {
        EXPECT_EQ(error.code(), Code::writerFailed);
        EXPECT_EQ(error.message(),
                  QStringLiteral("The recording could not be saved. No space left on device."));
    }
    writer.cancel();
    EXPECT_TRUE(QFileInfo::exists(QStringLiteral("/dev/full"))) << "the device was removed";
}

} // namespace
} // namespace nubo
