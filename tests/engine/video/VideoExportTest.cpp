#include "support/CounterMovie.h"
#include "support/MovieDecoder.h"
#include "video/VideoEditExport.h"
#include "video/VideoEditRenderer.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QLoggingCategory>
#include <QTemporaryDir>

extern "C" {
#include <libavformat/avformat.h>
}

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cmath>

namespace nubo {
namespace {

VideoTime s(double seconds) { return *VideoTime::parse(QString::number(seconds, 'f', 3)); }

// One 10 s, 640 × 360, 30 fps recording with sound for the whole suite.
const QString& counterMovie()
{
    static QTemporaryDir dir;
    static const QString file = [] {
        const QString path = dir.filePath("recording.mp4");
        const QString error = test::writeCounterMovie(path);
        EXPECT_TRUE(error.isEmpty()) << error.toStdString();
        return path;
    }();
    return file;
}

// The video packets of a movie, as stored.
QList<QByteArray> videoPackets(const QString& path)
{
    QList<QByteArray> packets;
    AVFormatContext* format = nullptr;
    if (avformat_open_input(&format, QFile::encodeName(path).constData(), nullptr, nullptr) < 0) {
        return packets;
    }
    avformat_find_stream_info(format, nullptr);
    const int video = av_find_best_stream(format, AVMEDIA_TYPE_VIDEO, -1, -1, nullptr, 0);
    AVPacket* packet = av_packet_alloc();
    while (av_read_frame(format, packet) >= 0) {
        if (packet->stream_index == video) {
            packets.append(QByteArray(reinterpret_cast<const char*>(packet->data), packet->size));
        }
        av_packet_unref(packet);
    }
    av_packet_free(&packet);
    avformat_close_input(&format);
    return packets;
}

bool hasAudioStream(const QString& path)
{
    AVFormatContext* format = nullptr;
    if (avformat_open_input(&format, QFile::encodeName(path).constData(), nullptr, nullptr) < 0) {
        return false;
    }
    avformat_find_stream_info(format, nullptr);
    const bool audio = av_find_best_stream(format, AVMEDIA_TYPE_AUDIO, -1, -1, nullptr, 0) >= 0;
    avformat_close_input(&format);
    return audio;
}

QList<int> counters(const test::DecodedMovie& movie)
{
    QList<int> numbers;
    for (const QImage& frame : movie.frames) {
        numbers.append(test::readCounter(frame, QPoint(16, 16)));
    }
    return numbers;
}

// The source frames (30 fps) whose time lies in one of the kept ranges.
QList<int> expectedFrames(const VideoEditList& list, int frames = 300)
{
    QList<int> numbers;
    for (int k = 0; k < frames; ++k) {
        const VideoTime t(k, 30);
        for (const VideoTimeRange& range : list.keptRanges()) {
            if (range.contains(t)) {
                numbers.append(k);
            }
        }
    }
    return numbers;
}

std::optional<VideoExportResult> exportTo(const VideoEditList& list, const QString& file)
{
    std::atomic<bool> cancelled{false};
    return VideoEditExportSession::run(list, file, cancelled);
}

TEST(VideoSource, InfoAndPicturesAtAnyTime)
{
    const VideoSourceInfo info = VideoSourceInfo::read(counterMovie());
    EXPECT_EQ(info.size, QSize(640, 360));
    EXPECT_EQ(info.frameDuration, VideoTime(1, 30));
    EXPECT_NEAR(info.duration.toSeconds(), 10.0, 0.04);
    EXPECT_TRUE(info.hasAudio);
    EXPECT_EQ(info.codec, QStringLiteral("avc1"));
    EXPECT_EQ(info.byteCount, QFileInfo(counterMovie()).size());
    EXPECT_GT(info.videoBitRate, 10'000);

    VideoFrameReader reader(counterMovie());
    EXPECT_EQ(reader.keyFrameTimes(), (std::vector{s(0), s(2), s(4), s(6), s(8)}));
    // Forward, backward, across key frames, between frames, at the end.
    const std::pair<double, int> probes[] = {{0, 0}, {0.5, 15}, {0.51, 15}, {0.4, 12}, {3.99, 119}, {4.0, 120},
                                            {9.0, 270}, {1.0, 30}, {9.99, 299}, {20, 299}};
    for (const auto& [time, expected] : probes) {
        const VideoFrame frame = reader.frameAt(s(time));
        EXPECT_EQ(test::readCounter(frame.image, QPoint(16, 16)), expected) << "at " << time;
        EXPECT_EQ(frame.time, VideoTime(expected, 30)) << "at " << time;
    }
    EXPECT_EQ(reader.frameAt(s(2), QSize(320, 320)).image.size(), QSize(320, 180)) << "fitted, aspect kept";

    EXPECT_THROW(VideoSourceInfo::read(QStringLiteral(NUBOSHOT_TEST_DATA "/does-not-exist.mp4")), VideoEditError);
}

TEST(VideoExport, CutsCopyTheRecordingAndEncodeOnlyUpToTheNextKeyFrame)
{
    QTemporaryDir dir;
    const QString out = dir.filePath("edited.mp4");
    const VideoSourceInfo info = VideoSourceInfo::read(counterMovie());
    VideoEditList list = VideoEditList::opened(counterMovie(), info.duration);
    // Kept: 0–2.5, 3.5–5, 6.2–10 s. Key frames every 2 s: the stretches
    // 3.5–4 s (15 pictures) and 6.2–8 s (54 pictures) start between key frames.
    list.removedRanges = {VideoTimeRange::between(s(2.5), s(3.5)), VideoTimeRange::between(s(5), s(6.2))};
    const auto result = exportTo(list, out);
    ASSERT_TRUE(result);
    EXPECT_TRUE(result->streamCopied);
    EXPECT_EQ(result->encodedFrames, 15 + 54);

    const test::DecodedMovie movie = test::decodeMovie(out);
    ASSERT_TRUE(movie.opened) << movie.error.toStdString();
    EXPECT_TRUE(movie.moovBeforeMdat);
    EXPECT_EQ(counters(movie), expectedFrames(list)) << "every kept picture, in order, none twice";
    ASSERT_EQ(movie.times.size(), 234);
    for (int i = 0; i < movie.times.size(); ++i) {
        EXPECT_NEAR(movie.times[i], i / 30.0, 0.002) << "picture " << i << " starts at its edited time";
    }
    // The pictures stored as the recording stored them, independently counted.
    const QList<QByteArray> source = videoPackets(counterMovie());
    const QSet<QByteArray> sourceSet(source.begin(), source.end());
    const QList<QByteArray> edited = videoPackets(out);
    const auto copied = std::count_if(edited.begin(), edited.end(), [&](const QByteArray& p) { return sourceSet.contains(p); });
    EXPECT_EQ(copied, 234 - 69);
    EXPECT_EQ(result->copiedPackets, 234 - 69);

    // The sound follows the picture: second s of the recording carries
    // toneAt(s); edited 1 s is source 1 s, edited 3.2 s is source 4.2 s,
    // edited 5 s is source 7.2 s.
    const test::DecodedSound sound = test::decodeSound(out);
    ASSERT_TRUE(sound.opened) << sound.error.toStdString();
    EXPECT_NEAR(sound.seconds(), 7.8, 0.05);
    const std::pair<double, int> tones[] = {{1.2, 1}, {3.3, 4}, {5.1, 7}, {0.4, 0}, {7.5, 9}};
    for (const auto& [at, second] : tones) {
        const size_t from = size_t(at * 48000);
        const double right = test::toneLevel(sound.mono, test::CounterMovie::toneAt(second), from, 4800);
        const double wrong = test::toneLevel(sound.mono, test::CounterMovie::toneAt(second) + 100, from, 4800);
        EXPECT_GT(right, 10 * wrong) << "edited " << at << " s";
    }
}

TEST(VideoExport, BlurCropScaleAndMuteChangeOnlyWhatTheySay)
{
    QTemporaryDir dir;
    const VideoSourceInfo info = VideoSourceInfo::read(counterMovie());
    const test::DecodedMovie source = test::decodeMovie(counterMovie());
    ASSERT_EQ(source.frames.size(), 300);

    // A blur over the right half's middle from 2 s to 4 s.
    VideoEditList list = VideoEditList::opened(counterMovie(), info.duration);
    list.addBlur(QRectF(0.5, 0.25, 0.25, 0.5), VideoTimeRange::between(s(2), s(4)));
    const QString blurred = dir.filePath("blurred.mp4");
    const auto result = exportTo(list, blurred);
    ASSERT_TRUE(result);
    EXPECT_FALSE(result->streamCopied);
    const test::DecodedMovie movie = test::decodeMovie(blurred);
    ASSERT_EQ(movie.frames.size(), 300);
    const QRect region(320, 90, 160, 180);
    auto difference = [](const QImage& a, const QImage& b, const QRect& area) {
        double sum = 0;
        for (int y = area.top(); y <= area.bottom(); ++y) {
            for (int x = area.left(); x <= area.right(); ++x) {
                const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
                sum += std::abs(qGreen(p) - qGreen(q)) + std::abs(qRed(p) - qRed(q));
            }
        }
        return sum / (2.0 * area.width() * area.height());
    };
    for (int k : {0, 59, 60, 90, 119, 120, 200}) {
        const bool live = k >= 60 && k < 120;
        const double inside = difference(movie.frames[k], source.frames[k], region.adjusted(4, 4, -4, -4));
        const double outside = difference(movie.frames[k], source.frames[k], QRect(0, 0, 300, 360));
        EXPECT_LT(outside, 3) << "frame " << k << ": nothing changes outside the region";
        if (live) {
            EXPECT_GT(inside, 8) << "frame " << k << ": the grid under the region is gone";
        } else {
            EXPECT_LT(inside, 3) << "frame " << k << ": nothing changes outside the region's time";
        }
        EXPECT_EQ(test::readCounter(movie.frames[k], QPoint(16, 16)), k);
    }

    // Crop, mute: the size of the crop, no sound stream at all.
    VideoEditList cropped = VideoEditList::opened(counterMovie(), info.duration);
    cropped.setCrop(QRectF(0, 0, 0.5, 1));
    cropped.setMuted(true);
    cropped.removedRanges = {VideoTimeRange::between(s(1), s(9))};
    const QString croppedFile = dir.filePath("cropped.mp4");
    ASSERT_TRUE(exportTo(cropped, croppedFile));
    const test::DecodedMovie small = test::decodeMovie(croppedFile);
    EXPECT_EQ(QSize(small.width, small.height), QSize(320, 360));
    EXPECT_EQ(counters(small), expectedFrames(cropped));
    EXPECT_FALSE(hasAudioStream(croppedFile));

    // A muted cut-only export: copied, without sound.
    VideoEditList muted = VideoEditList::opened(counterMovie(), info.duration);
    muted.setMuted(true);
    muted.setOutPoint(s(4), info.duration, info.frameDuration);
    const QString mutedFile = dir.filePath("muted.mp4");
    const auto copied = exportTo(muted, mutedFile);
    ASSERT_TRUE(copied);
    EXPECT_TRUE(copied->streamCopied);
    EXPECT_EQ(copied->encodedFrames, 0);
    EXPECT_FALSE(hasAudioStream(mutedFile));
    EXPECT_EQ(counters(test::decodeMovie(mutedFile)), expectedFrames(muted));
}

// FFmpeg's own lines (x264's statistics among them) reach the log only in
// the media category at debug level, never as warnings or on the terminal.
TEST(VideoExport, FFmpegsOwnLinesAreDebugLinesOfTheMediaCategory)
{
    static QStringList seen;
    const QtMessageHandler previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext& context, const QString& text) {
            seen << QStringLiteral("%1 %2 %3").arg(int(type)).arg(QLatin1String(context.category), text);
        });
    QTemporaryDir dir;
    const VideoSourceInfo info = VideoSourceInfo::read(counterMovie());
    VideoEditList list = VideoEditList::opened(counterMovie(), info.duration);
    list.addBlur(QRectF(0.5, 0.25, 0.25, 0.5), VideoTimeRange::between(s(1), s(2)));
    list.setOutPoint(s(3), info.duration, info.frameDuration);
    struct Case {
        const char* rules;
        bool x264Seen;
    };
    const Case cases[] = {{"", false}, {"com.corvane.lab.nuboshot.media.debug=true", true}};
    for (const Case& c : cases) {
        seen.clear();
        QLoggingCategory::setFilterRules(QString::fromUtf8(c.rules));
        ASSERT_TRUE(exportTo(list, dir.filePath("out.mp4"))) << c.rules;
        const QStringList x264 = seen.filter(QStringLiteral("libx264"));
        EXPECT_EQ(!x264.isEmpty(), c.x264Seen) << c.rules << ": " << seen.join(u'\n').toStdString();
        for (const QString& line : x264) {
            EXPECT_TRUE(line.startsWith(QStringLiteral("0 com.corvane.lab.nuboshot.media ")))
                << line.toStdString(); // QtDebugMsg is 0
        }
    }
    QLoggingCategory::setFilterRules({});
    qInstallMessageHandler(previous);
}

TEST(VideoExport, ScalesTallRecordingsTo720Lines)
{
    QTemporaryDir dir;
    const QString tall = dir.filePath("tall.mp4");
    test::CounterMovie movie1080;
    movie1080.seconds = 1;
    movie1080.size = QSize(1920, 1080);
    movie1080.sound = false;
    ASSERT_EQ(test::writeCounterMovie(tall, movie1080), QString());
    VideoEditList list = VideoEditList::opened(tall, VideoSourceInfo::read(tall).duration);
    list.setQuality(VideoExportQuality::p720);
    const QString out = dir.filePath("720.mp4");
    ASSERT_TRUE(exportTo(list, out));
    const test::DecodedMovie movie = test::decodeMovie(out, false);
    EXPECT_EQ(QSize(movie.width, movie.height), QSize(1280, 720));
    EXPECT_EQ(movie.times.size(), 30);
    EXPECT_EQ(movie.codec, QStringLiteral("h264"));
}

TEST(VideoExport, RefusesWhatItCannotDoAndLeavesNothingBehind)
{
    QTemporaryDir dir;
    const VideoSourceInfo info = VideoSourceInfo::read(counterMovie());
    const VideoEditList list = VideoEditList::opened(counterMovie(), info.duration);
    QFile notAMovie(dir.filePath("notes.mp4"));
    ASSERT_TRUE(notAMovie.open(QIODevice::WriteOnly));
    notAMovie.write("these are not pictures");
    notAMovie.close();
    VideoEditList broken = list;
    broken.source = notAMovie.fileName();
    VideoEditList nothing = list;
    nothing.removedRanges = {VideoTimeRange::between(s(0), s(10))};
    // Pipes another program made: never opened (a reader would wait for a
    // writer) nor replaced.
    const QString pipeIn = dir.filePath("in.mp4"), pipeOut = dir.filePath("out-pipe.mp4");
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipeIn).constData(), 0600), 0);
    ASSERT_EQ(::mkfifo(QFile::encodeName(pipeOut).constData(), 0600), 0);
    VideoEditList fromPipe = list;
    fromPipe.source = pipeIn;
    VideoEditList still = list;
    still.source = dir.filePath("still.mp4");
    ASSERT_TRUE(QImage(64, 48, QImage::Format_RGB32).save(still.source, "PNG"));
    struct Case {
        const char* name;
        VideoEditList list;
        QString destination;
        VideoEditError::Code code;
        const char* message;
    };
    const Case cases[] = {
        {"onto itself", list, counterMovie(), VideoEditError::Code::sourceIsDestination, "cannot be saved over"},
        {"a missing folder", list, dir.filePath("gone/out.mp4"), VideoEditError::Code::cannotCreateExport, "does not exist"},
        {"not a movie", broken, dir.filePath("out.mp4"), VideoEditError::Code::exportFailed, "could not be read"},
        {"everything cut", nothing, dir.filePath("out.mp4"), VideoEditError::Code::exportFailed, "nothing to export"},
        {"a still image", still, dir.filePath("out.mp4"), VideoEditError::Code::exportFailed, "still.mp4 is a still image (PNG), not a video"},
        {"from a pipe", fromPipe, dir.filePath("out.mp4"), VideoEditError::Code::exportFailed, "in.mp4 is a pipe (FIFO), not a video file"},
        {"onto a pipe", list, pipeOut, VideoEditError::Code::cannotCreateExport, "is a pipe (FIFO), not a file"},
    };
    for (const Case& c : cases) {
        try {
            exportTo(c.list, c.destination);
            ADD_FAILURE() << c.name << ": exported";
        } catch (const VideoEditError& error) {
            EXPECT_EQ(error.code(), c.code) << c.name;
            EXPECT_TRUE(error.message().contains(QLatin1String(c.message))) << c.name << ": " << error.message().toStdString();
        }
    }
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), (QStringList{"notes.mp4", "still.mp4"}));
    EXPECT_TRUE(QFileInfo(pipeOut).exists() && !QFileInfo(pipeOut).isFile()) << "the pipe was replaced";
    EXPECT_THROW(VideoSourceInfo::read(pipeIn), VideoEditError) << "a pipe read as a video";

    // Cancelled half way, on the export's own thread: no file, no partial file.
    VideoEditList blurred = list;
    blurred.addBlur(QRectF(0, 0, 0.5, 0.5), VideoTimeRange::between(s(0), s(10)));
    VideoEditExportSession session(blurred, dir.filePath("cancelled.mp4"));
    std::atomic<bool> ended{false};
    std::optional<VideoExportOutcome> outcome;
    session.start([&](double fraction) {
        if (fraction > 0.3) {
            session.cancel();
        }
    }, [&](const VideoExportOutcome& o) { outcome = o; ended = true; });
    session.wait();
    ASSERT_TRUE(ended);
    EXPECT_TRUE(outcome->cancelled);
    EXPECT_FALSE(outcome->result);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden), (QStringList{"notes.mp4", "still.mp4"}));
}

} // namespace
} // namespace nubo
