// The review and export of a 60 s 1080p30 recording (made once by the real
// writer with the tests' frame-counter pattern and kept in the temporary
// folder): a cut-only export, an export with a blur and a crop, opening to
// the first picture, and scrubbing to a picture far from the last one.

#include "support/CounterMovie.h"
#include "video/VideoEditExport.h"
#include "video/VideoEditRenderer.h"

#include <QDir>
#include <QFileInfo>

#include <benchmark/benchmark.h>

#include <random>

namespace {

using namespace nubo;

const QString& recording()
{
    static const QString file = [] {
        const QString path = QDir::temp().filePath(QStringLiteral("nuboshot-bench-60s-1080p30.mp4"));
        if (!QFileInfo::exists(path)) {
            test::CounterMovie movie;
            movie.seconds = 60;
            movie.size = QSize(1920, 1080);
            const QString error = test::writeCounterMovie(path, movie);
            if (!error.isEmpty()) {
                qFatal("The bench recording could not be made: %s", qPrintable(error));
            }
        }
        return path;
    }();
    return file;
}

VideoTime seconds(double s) { return *VideoTime::parse(QString::number(s, 'f', 3)); }

void exportOnce(benchmark::State& state, const VideoEditList& list)
{
    const QString out = QDir::temp().filePath(QStringLiteral("nuboshot-bench-export.mp4"));
    std::atomic<bool> cancelled{false};
    std::optional<VideoExportResult> result;
    for (auto _ : state) {
        result = VideoEditExportSession::run(list, out, cancelled);
    }
    const double kept = list.keptDuration().toSeconds();
    state.counters["kept_s"] = kept;
    state.counters["encoded"] = double(result->encodedFrames);
    state.counters["copied"] = double(result->copiedPackets);
    state.counters["x_realtime"] =
        benchmark::Counter(kept * double(state.iterations()), benchmark::Counter::kIsRate);
    QFile::remove(out);
}

void BM_CutOnlyExport(benchmark::State& state)
{
    const VideoSourceInfo info = VideoSourceInfo::read(recording());
    VideoEditList list = VideoEditList::opened(recording(), info.duration);
    list.removedRanges = {VideoTimeRange::between(seconds(10.5), seconds(12.3)),
                          VideoTimeRange::between(seconds(40.2), seconds(41))};
    exportOnce(state, list);
}
BENCHMARK(BM_CutOnlyExport)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(3);

void BM_BlurAndCropExport(benchmark::State& state)
{
    const VideoSourceInfo info = VideoSourceInfo::read(recording());
    VideoEditList list = VideoEditList::opened(recording(), info.duration);
    list.setCrop(QRectF(0.1, 0.1, 0.8, 0.8));
    list.addBlur(QRectF(0.5, 0.3, 0.3, 0.3), VideoTimeRange::between(seconds(10), seconds(50)));
    exportOnce(state, list);
}
BENCHMARK(BM_BlurAndCropExport)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(1);

// Opening a recording and decoding its first picture at the review's size.
void BM_OpenToFirstPicture(benchmark::State& state)
{
    for (auto _ : state) {
        VideoFrameReader reader(recording());
        benchmark::DoNotOptimize(reader.frameAt(VideoTime(), QSize(1280, 720)));
    }
}
BENCHMARK(BM_OpenToFirstPicture)->Unit(benchmark::kMillisecond)->UseRealTime();

// Scrubbing: pictures at random times (each mostly in another group of
// pictures than the last); and the worst case, the picture just before a
// key frame reached from far away.
void BM_ScrubToRandomPicture(benchmark::State& state)
{
    VideoFrameReader reader(recording());
    std::mt19937 random(7);
    std::uniform_int_distribution<int> frame(0, 1799);
    for (auto _ : state) {
        benchmark::DoNotOptimize(reader.frameAt(VideoTime(frame(random), 30), QSize(1280, 720)));
    }
}
BENCHMARK(BM_ScrubToRandomPicture)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_ScrubWorstCase(benchmark::State& state)
{
    VideoFrameReader reader(recording());
    int at = 0;
    for (auto _ : state) {
        at = (at + 7) % 29; // a group of pictures far from the last
        benchmark::DoNotOptimize(reader.frameAt(VideoTime(at * 60 + 59, 30), QSize(1280, 720)));
    }
}
BENCHMARK(BM_ScrubWorstCase)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
