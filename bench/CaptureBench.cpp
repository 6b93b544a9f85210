// Screen capture on X11, run inside a private session showing real content:
//
//   bench/capture-in-session   (a 3840 × 2160 session showing a real desktop)
//
// Display capture into memory (3840 × 2160) and the region stream's sustained
// frame rate over a 1920 × 1080 region.

#include "capture/CaptureSelection.h"
#include "capture/xcb/XcbRegionStream.h"
#include "capture/xcb/XcbScreenCapturer.h"

#include <QGuiApplication>

#include <benchmark/benchmark.h>

namespace {

using namespace nubo;

void BM_CaptureDisplay(benchmark::State& state)
{
    XcbScreenCapturer capturer;
    capturer.captureDisplays(); // connection and shared memory made once
    QSize size;
    for (auto _ : state) {
        const QList<DisplayCapture> captures = capturer.captureDisplays();
        size = captures.first().image.size();
        benchmark::DoNotOptimize(captures);
    }
    state.counters["width"] = size.width();
    state.counters["height"] = size.height();
    state.counters["shm"] = capturer.usesSharedMemory();
}
BENCHMARK(BM_CaptureDisplay)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_RegionStream1080p(benchmark::State& state)
{
    XcbScreenCapturer capturer;
    const ScreenSpace space = capturer.displays().first().space;
    const ScreenCaptureRegion region = captureRegion(space, QRectF(0, 0, 1920, 1080));
    auto stream = XcbRegionStreaming({}, {}).streamRegion(space.displayID, region);
    for (auto _ : state) {
        auto frame = stream->next();
        benchmark::DoNotOptimize(frame);
    }
    stream->stopCapture();
    state.counters["frames_per_s"] =
        benchmark::Counter(double(state.iterations()), benchmark::Counter::kIsRate);
}
BENCHMARK(BM_RegionStream1080p)->Unit(benchmark::kMillisecond)->UseRealTime()->MinTime(3);

} // namespace

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
