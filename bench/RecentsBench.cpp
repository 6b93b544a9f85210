// Recent images: recording a 5K capture as an entry (shot archive,
// thumbnail, record, index) as the store's disk thread does, and the
// clipboard watcher's idle tick (no change since the last one).
//
//   QT_QPA_PLATFORM=offscreen build/bench/recents_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true

#include "output/ShotClipboard.h"
#include "recents/ShotRecentClipboardWatcher.h"
#include "recents/ShotRecentDisk.h"
#include "render/ShotRenderer.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

using namespace nubo;

void BM_RecordCapture5K(benchmark::State& state)
{
    static const QImage code = QImage(QStringLiteral(NUBOSHOT_BENCH_DATA "/code-5120x2880.png"))
                                   .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const ShotDocument document = ShotDocument::fromImage(code, 2);
    ShotRenderer renderer;
    QTemporaryDir dir;
    ShotRecentDisk disk(dir.filePath(QStringLiteral("Recent")), renderer);
    disk.load();
    QList<QUuid> written;
    for (auto _ : state) {
        const QUuid id = QUuid::createUuid();
        disk.addCapture(id, document, QStringLiteral("fullscreen"), QDateTime::currentDateTime());
        written.append(id);
        if (written.size() == 5) {
            state.PauseTiming(); // the store keeps five; the rest go later
            disk.remove(written);
            written.clear();
            state.ResumeTiming();
        }
    }
}
BENCHMARK(BM_RecordCapture5K)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_WatcherIdleTick(benchmark::State& state)
{
    ShotRecentClipboardWatcher watcher(
        ShotClipboard::shared(), [] { return std::optional<QString>(); },
        [](const ShotRecentImagePayload&, const std::optional<QString>&) {});
    watcher.start();
    watcher.stop(); // ticks are driven here, not by the timer
    for (auto _ : state) {
        watcher.poll();
    }
    // Share of one core at the watcher's 2.5 ticks a second.
    state.counters["core_share_percent"] = benchmark::Counter(
        2.5 * 100, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(BM_WatcherIdleTick)->Unit(benchmark::kNanosecond);

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
