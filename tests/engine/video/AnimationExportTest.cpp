// Recordings exported as GIF and animated WebP, read back by FFmpeg and by
// libwebp's own decoder: the pictures of the kept time at the chosen rate,
// each the source picture of its time, the blur only inside its rectangle
// and time, and the timing of the edited movie.

#include "support/CounterMovie.h"
#include "support/MovieDecoder.h"
#include "video/AnimatedExport.h"
#include "video/GifEncoder.h"
#include "video/NearestColour.h"
#include "video/VideoEditExport.h"

#include <QBuffer>
#include <QRandomGenerator>
#include <QFile>
#include <QTemporaryDir>

#include <webp/demux.h>

#include <gtest/gtest.h>

#include <cmath>

namespace nubo {
namespace {

VideoTime s(double seconds) { return *VideoTime::parse(QString::number(seconds, 'f', 3)); }

// An animation as its reader shows it: each picture and its start.
struct Animation {
    QSize size;
    QList<QImage> pictures;
    QList<double> starts; // seconds
    double end = 0;
};

Animation readWebp(const QString& file)
{
    Animation animation;
    QFile in(file);
    if (!in.open(QIODevice::ReadOnly)) {
        return animation;
    }
    const QByteArray bytes = in.readAll();
    WebPData data{reinterpret_cast<const uint8_t*>(bytes.constData()), size_t(bytes.size())};
    WebPAnimDecoderOptions options;
    WebPAnimDecoderOptionsInit(&options);
    options.color_mode = MODE_BGRA;
    WebPAnimDecoder* decoder = WebPAnimDecoderNew(&data, &options);
    if (!decoder) {
        return animation;
    }
    WebPAnimInfo info;
    WebPAnimDecoderGetInfo(decoder, &info);
    animation.size = QSize(int(info.canvas_width), int(info.canvas_height));
    int previous = 0;
    while (WebPAnimDecoderHasMoreFrames(decoder)) {
        uint8_t* pixels = nullptr;
        int end = 0;
        if (!WebPAnimDecoderGetNext(decoder, &pixels, &end)) {
            break;
        }
        animation.pictures << QImage(pixels, animation.size.width(), animation.size.height(),
                                     animation.size.width() * 4, QImage::Format_ARGB32)
                                  .convertToFormat(QImage::Format_RGB32);
        animation.starts << previous / 1000.0;
        previous = end;
    }
    animation.end = previous / 1000.0;
    WebPAnimDecoderDelete(decoder);
    return animation;
}

Animation readGif(const QString& file)
{
    const test::DecodedMovie movie = test::decodeMovie(file);
    Animation animation;
    animation.size = QSize(movie.width, movie.height);
    animation.pictures = movie.frames;
    animation.starts = movie.times;
    return animation;
}

// Mean difference of the green and red channels over an area.
double difference(const QImage& a, const QImage& b, const QRect& area)
{
    double sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            sum += std::abs(qGreen(p) - qGreen(q)) + std::abs(qRed(p) - qRed(q));
        }
    }
    return sum / (2.0 * area.width() * area.height());
}

TEST(AnimationExport, GifAndWebpShowTheEditedTimeBlurredWhereAndWhenAsked)
{
    QTemporaryDir dir;
    const QString movie = dir.filePath("recording.mp4");
    ASSERT_EQ(test::writeCounterMovie(movie), QString());
    const VideoSourceInfo info = VideoSourceInfo::read(movie);
    const test::DecodedMovie source = test::decodeMovie(movie);
    ASSERT_EQ(source.frames.size(), 300);

    // 3 s to 5 s cut out; a blur over the right half's middle from 6 s to 8 s.
    VideoEditList list = VideoEditList::opened(movie, info.duration);
    list.removedRanges = {VideoTimeRange::between(s(3), s(5))};
    list.addBlur(QRectF(0.5, 0.25, 0.25, 0.5), VideoTimeRange::between(s(6), s(8)));
    const QRect blurred(320 + 4, 90 + 4, 160 - 8, 180 - 8);

    const struct {
        const char* file;
        Animation (*read)(const QString&);
        double mostError; // mean error of a picture outside the blur, in levels
    } cases[] = {{"edited.gif", readGif, 2}, {"edited.webp", readWebp, 4}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const QString file = dir.filePath(QString::fromLatin1(c.file));
        std::atomic<bool> cancelled{false};
        const auto result = VideoEditExportSession::run(list, file, cancelled, {}, AnimationOptions{10, 0});
        ASSERT_TRUE(result);
        const Animation animation = c.read(file);
        EXPECT_EQ(animation.size, QSize(640, 360));
        // 8 s kept at 10 pictures a second: 80, each shown from k / 10 s.
        ASSERT_NEAR(animation.pictures.size(), 80, 1);
        for (qsizetype k = 0; k < animation.pictures.size(); ++k) {
            EXPECT_NEAR(animation.starts[k], k / 10.0, 0.1) << "picture " << k;
            // Picture k shows source time k / 10 s, or k / 10 + 2 s after the cut.
            const int frame = k < 30 ? int(3 * k) : int(3 * k + 60);
            const QImage& shown = animation.pictures[k];
            EXPECT_EQ(test::readCounter(shown, QPoint(16, 16)), frame) << "picture " << k;
            const bool live = frame >= 180 && frame < 240;
            EXPECT_LT(difference(shown, source.frames[frame], QRect(0, 0, 320, 360)), c.mostError)
                << "picture " << k << " far from its source picture";
            const double inside = difference(shown, source.frames[frame], blurred);
            if (live) {
                EXPECT_GT(inside, 5) << "picture " << k << ": the grid under the blur is still there";
            } else {
                EXPECT_LT(inside, c.mostError + 1) << "picture " << k << ": blurred outside its time";
            }
        }
        if (c.read == readWebp) {
            EXPECT_NEAR(animation.end, 8.0, 0.1) << "the last picture ends with the edited movie";
        }
    }

    // Narrowed, never widened: 320 wide keeps the shape; 1280 stays 640.
    for (const auto& [width, expected] : {std::pair{320, QSize(320, 180)}, std::pair{1280, QSize(640, 360)}}) {
        EXPECT_EQ(animationSize(list, info, width), expected);
    }
}

// The palette's nearest colour found by walking out along green gives what
// trying every colour gives, ties to the lowest index: with one colour,
// with greens all alike (no pruning), with repeated colours, a full palette.
TEST(NearestColour, AnswersAsTryingEveryColourInTurn)
{
    QRandomGenerator random(20261126);
    const auto any = [&] { return uint32_t(random.generate() & 0xffffff); };
    struct Case {
        const char* name;
        std::vector<uint32_t> colours;
    };
    std::vector<Case> cases = {{"one colour", {0x808080}}, {"greens alike", {}},
                               {"repeated colours", {}}, {"a full palette", {}}};
    for (int i = 0; i < 40; ++i) {
        cases[1].colours.push_back((any() & 0xff00ff) | 0x7700);
        cases[2].colours.push_back(i % 3 == 0 ? any() : cases[2].colours.back());
    }
    for (int i = 0; i < 255; ++i) {
        cases[3].colours.push_back(any());
    }
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const gif::NearestColour search(c.colours);
        for (int query = 0; query < 20000; ++query) {
            // The palette's own colours (ties among repeated ones), greys, any.
            const uint32_t q = size_t(query) < c.colours.size() ? c.colours[size_t(query)]
                               : query < 1000                   ? uint32_t(query % 256 * 0x010101)
                                                                : any();
            const int r = gif::redOf(q), g = gif::greenOf(q), b = gif::blueOf(q);
            int best = 0;
            for (size_t i = 1; i < c.colours.size(); ++i) {
                if (gif::distance(r, g, b, c.colours[i]) <
                    gif::distance(r, g, b, c.colours[size_t(best)])) {
                    best = int(i);
                }
            }
            const auto [found, distance] = search.find(r, g, b);
            ASSERT_EQ(found, best) << std::hex << q;
            ASSERT_EQ(distance, gif::distance(r, g, b, c.colours[size_t(best)]));
        }
    }
}

// A still screen costs next to nothing: identical pictures lengthen the one
// shown, and a small change writes only its rectangle, in its own colour
// even when the palette lacked it. The timing keeps to the clock although
// GIF counts hundredths.
TEST(GifEncoder, StillPicturesAreMergedAndChangesWrittenAlone)
{
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(QColor(240, 240, 236));
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    GifEncoder gif(out, picture.size());
    for (int k = 0; k < 30; ++k) {
        if (k == 20) {
            picture.setPixel(200, 150, qRgb(20, 40, 200)); // one pixel changes once
        }
        gif.add(picture, k * 1000 / 15);
    }
    gif.finish(2000);
    EXPECT_EQ(gif.statistics().pictures, 2);
    EXPECT_EQ(gif.statistics().palettes, 2) << "the new colour, far from every entry, needs a palette of its own";
    EXPECT_LT(gif.statistics().bytes, 1000);

    QTemporaryDir dir;
    const QString file = dir.filePath("still.gif");
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::WriteOnly));
    written.write(out.data());
    written.close();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_EQ(movie.frames.size(), 2);
    EXPECT_NEAR(movie.times[1], 20.0 / 15, 0.011);
    EXPECT_EQ(movie.frames[0].pixel(200, 150), qRgb(240, 240, 236));
    EXPECT_EQ(movie.frames[1].pixel(200, 150), qRgb(20, 40, 200));
    EXPECT_EQ(movie.frames[1].pixel(10, 10), qRgb(240, 240, 236));
}

// Every pixel comes back exactly where the colours are few and far apart:
// the LZW table filled, kept full, and cleared, and a change in three
// colours written with a table of its own.
TEST(GifEncoder, PicturesOfFewColoursComeBackExactly)
{
    const QSize size(640, 360);
    QList<QRgb> colours; // 216, 40 levels apart on every channel: none passes for another
    for (int r = 0; r < 6; ++r) {
        for (int g = 0; g < 6; ++g) {
            for (int b = 0; b < 6; ++b) {
                colours.append(qRgb(r * 40 + 20, g * 40 + 20, b * 40 + 20));
            }
        }
    }
    quint32 seed = 7;
    const auto noise = [&](int count) {
        seed = seed * 1664525u + 1013904223u;
        return colours[int((seed >> 8) % quint32(count))];
    };
    QImage first(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            // Cheap noise that fills the table, dear noise that gets it
            // cleared, then runs that a full table codes well.
            first.setPixel(x, y, y < 120 ? noise(4) : y < 240 ? noise(216) : colours[(x / 37 + y / 9) % 216]);
        }
    }
    QImage second = first;
    for (int y = 100; y < 300; ++y) {
        for (int x = 200; x < 500; ++x) {
            second.setPixel(x, y, colours[int(colours.size()) - 1 - (x * 7 + y * 3) % 3]);
        }
    }
    QImage third(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            third.setPixel(x, y, noise(216)); // a new scene
        }
    }
    const QList<QImage> pictures{first, second, third};

    QTemporaryDir dir;
    const QString file = dir.filePath("exact.gif");
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::WriteOnly));
    GifEncoder gif(written, size);
    for (int k = 0; k < pictures.size(); ++k) {
        gif.add(pictures[k], k * 100);
    }
    gif.finish(300);
    written.close();
    const test::DecodedMovie movie = test::decodeMovie(file);
    ASSERT_EQ(movie.frames.size(), pictures.size());
    for (int k = 0; k < pictures.size(); ++k) {
        const QImage decoded = movie.frames[k].convertToFormat(QImage::Format_RGB32);
        int wrong = 0;
        QPoint at;
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                if (decoded.pixel(x, y) != pictures[k].pixel(x, y) && wrong++ == 0) {
                    at = QPoint(x, y);
                }
            }
        }
        EXPECT_EQ(wrong, 0) << "picture " << k << " differs first at " << at.x() << "," << at.y();
    }
}

} // namespace
} // namespace nubo
