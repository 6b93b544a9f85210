// Undo history over a large shot: 10,000 recorded steps of a document with
// 1,000 annotations over a 5K image. Reports the time per step and the heap
// the kept steps take, which stays small only while every step shares the
// image instead of copying it.
//
//   build/bench/history_bench --benchmark_counters_tabular=true

#include "document/ShotHistory.h"

#include <QCoreApplication>
#include <QSet>

#include <benchmark/benchmark.h>
#include <malloc.h>

namespace {

using namespace nubo;

ShotDocument largeDocument()
{
    QImage image(5120, 2880, QImage::Format_RGBA8888_Premultiplied);
    image.fill(Qt::white);
    ShotDocument document = ShotDocument::fromImage(image, 2);
    for (int i = 0; i < 1000; ++i) {
        const double x = i % 100 * 25.0, y = i / 100 * 140.0;
        AnnotationKind kind;
        switch (i % 5) {
        case 0:
            kind = ArrowAnnotation{{x, y}, {x + 20, y + 30}};
            break;
        case 1:
            kind = ShapeAnnotation{ShapeVariant::rect, {x, y, 20, 12}};
            break;
        case 2:
            kind = TextAnnotation{{QStringLiteral("Label %1").arg(i), {x, y, 80, 20}}};
            break;
        case 3:
            kind = CounterAnnotation{{x, y}};
            break;
        default:
            kind = PenAnnotation{{{x, y}, {x + 3, y + 4}, {x + 9, y + 2}, {x + 12, y + 8}}};
            break;
        }
        document.annotations.append(Annotation{QUuid::createUuid(), std::move(kind), ShotStyle()});
    }
    return document;
}

// One editor step: move one annotation a little, as a drag would.
ShotDocument moved(const ShotDocument& current, int step)
{
    ShotDocument next = current;
    Annotation& a = next.annotations[step % next.annotations.size()];
    if (auto* shape = std::get_if<ShapeAnnotation>(&a.kind)) {
        shape->rect.translate(1, 0);
    } else {
        a.style.lineWidth += 0.5;
    }
    return next;
}

size_t heapInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd; // small blocks and mapped large ones
}

void BM_RecordSteps(benchmark::State& state)
{
    const ShotDocument opened = largeDocument();
    const int steps = int(state.range(0));
    size_t keptBytes = 0;
    qsizetype imageCopies = 0;
    for (auto _ : state) {
        const size_t before = heapInUse();
        ShotHistory history(opened);
        for (int i = 0; i < steps; ++i) {
            history.record(moved(history.current, i));
        }
        state.PauseTiming();
        keptBytes = heapInUse() - before;
        QSet<const uchar*> images;
        for (const ShotDocument& d : history.past) {
            images.insert(d.layers[0].image.constBits());
        }
        imageCopies = images.size() - 1;
        benchmark::DoNotOptimize(history);
        state.ResumeTiming();
    }
    state.counters["steps"] = steps;
    state.counters["per_step_us"] = benchmark::Counter(
        double(steps), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
    state.counters["kept_MB"] = double(keptBytes) / 1e6;
    state.counters["kept_KB_per_step"] =
        double(keptBytes) / 1e3 / double(ShotHistory::maximumDepth);
    state.counters["image_copies"] = double(imageCopies);
    state.counters["image_MB"] = double(opened.layers[0].image.sizeInBytes()) / 1e6;
}
BENCHMARK(BM_RecordSteps)->Arg(10000)->Unit(benchmark::kMillisecond);

void BM_RecordEqualDocument(benchmark::State& state)
{
    ShotHistory history(largeDocument());
    // Equal but not shared: a copy of the annotation array made element by
    // element, as an edit that changes nothing produces it. (A shared copy
    // would compare equal by its pointer alone.)
    ShotDocument same = history.current;
    same.annotations = QList<Annotation>(history.current.annotations.cbegin(),
                                         history.current.annotations.cend());
    for (auto _ : state) {
        history.record(same);
    }
    state.counters["annotations"] = double(same.annotations.size());
}
BENCHMARK(BM_RecordEqualDocument);

void BM_UndoRedo(benchmark::State& state)
{
    ShotHistory history(largeDocument());
    for (int i = 0; i < 100; ++i) {
        history.record(moved(history.current, i));
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(history.undo());
        benchmark::DoNotOptimize(history.redo());
    }
}
BENCHMARK(BM_UndoRedo);

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
