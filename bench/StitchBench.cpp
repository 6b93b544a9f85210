// Scrolling capture: adding one frame to the stitcher, as the session does for
// each frame of the region stream. The page is a real screenshot (a code
// editor, 5120 × 2880) cut to the frame's width; frames show it scrolled by
// 24 rows each. One core.
//
//   build/bench/stitch_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "capture/ScrollStitcher.h"

#include <QGuiApplication>
#include <QImage>

#include <benchmark/benchmark.h>

namespace {

using namespace nubo;

QImage page(int width)
{
    static const QImage code = QImage(QStringLiteral(NUBOSHOT_BENCH_DATA "/code-5120x2880.png"))
                                   .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    return code.copy(0, 0, width, code.height());
}

void BM_StitchFrame(benchmark::State& state)
{
    const int width = int(state.range(0)), height = width * 9 / 16;
    const QImage tall = page(width);
    std::vector<QImage> frames;
    for (int y = 0; y + height <= tall.height(); y += 24) {
        frames.push_back(tall.copy(0, y, width, height));
    }
    auto stitcher = std::make_unique<ScrollStitcher>(30000, 128 << 20, 1);
    size_t next = 0;
    qint64 accepted = 0, frames_added = 0;
    for (auto _ : state) {
        if (next == frames.size()) {
            state.PauseTiming();
            stitcher = std::make_unique<ScrollStitcher>(30000, 128 << 20, 1);
            next = 0;
            state.ResumeTiming();
        }
        accepted += stitcher->add(frames[next++]) == ScrollStitcher::Update::accepted;
        ++frames_added;
    }
    state.counters["accepted_share"] = double(accepted) / double(frames_added);
    state.counters["frames_per_second"] =
        benchmark::Counter(double(frames_added), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_StitchFrame)->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_StitchStillFrame(benchmark::State& state)
{
    const int width = int(state.range(0)), height = width * 9 / 16;
    // Each still frame is a capture of its own: the same pixels in a buffer
    // of its own, and more of them than the caches hold (no frame is read
    // from cache because an earlier add read it).
    const QImage frame = page(width).copy(0, 0, width, height);
    std::vector<QImage> captures;
    for (int i = 0; i < 8; ++i) {
        captures.push_back(frame.copy());
    }
    ScrollStitcher stitcher(30000, 128 << 20, 1);
    stitcher.add(frame);
    size_t next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(stitcher.add(captures[next]));
        next = (next + 1) % captures.size();
    }
}
BENCHMARK(BM_StitchStillFrame)->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
