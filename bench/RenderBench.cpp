// Rendering a marked-up capture: a 1440 × 900-point document over a
// 2880 × 1800-pixel desktop capture with 200 annotations (20 outlined texts,
// 10 redactions, arrows, shapes, pen strokes, counters, emoji), at scale 2.
// "Warm" keeps the renderer's caches between renders, as the editor does;
// "cold" starts each render with a new renderer.
//
//   build/bench/render_bench --benchmark_counters_tabular=true

#include "render/RedactionRenderer.h"
#include "render/ShotRenderer.h"
#include "render/ShotTextLayoutManager.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

namespace {

using namespace nubo;

ShotDocument markedUpCapture()
{
    const QImage capture(QStringLiteral(NUBOSHOT_BENCH_DATA "/desktop-2880x1800.png"));
    Q_ASSERT(!capture.isNull());
    ShotDocument d = ShotDocument::fromImage(capture, 2);
    const auto add = [&](AnnotationKind kind, ShotColor color, double lineWidth,
                         double fontSize = 20) {
        d.annotations.append(Annotation{QUuid::createUuid(), std::move(kind),
                                        ShotStyle(color, lineWidth, fontSize, true, 12)});
    };
    const ShotColor red{0.93, 0.2, 0.2, 1}, blue{0.15, 0.4, 0.95, 1}, white{1, 1, 1, 1};
    for (int i = 0; i < 200; ++i) {
        const double x = 40 + (i % 20) * 68.0, y = 40 + (i / 20) * 84.0;
        switch (i % 20) {
        case 0:
        case 10:
            add(TextAnnotation{{QStringLiteral("Step %1:\nclick Save").arg(i), {x, y, 140, 50}}},
                i % 40 ? white : red, 4, 18);
            break;
        case 5:
            add(RedactAnnotation{{x, y, 120, 30}}, red, 4);
            break;
        case 1:
        case 2:
        case 3:
        case 4:
        case 6:
            add(ArrowAnnotation{{x, y}, {x + 50, y + 30}}, red, 4);
            break;
        case 7:
        case 8:
        case 9:
        case 11:
            add(ShapeAnnotation{ShapeVariant(i % 3), {x, y, 60, 40}}, blue, 3);
            break;
        case 12:
        case 13:
        case 14:
        case 15:
            add(
                PenAnnotation{
                    {{x, y}, {x + 10, y + 12}, {x + 24, y + 6}, {x + 35, y + 20}, {x + 50, y + 9}}},
                red, 3);
            break;
        case 16:
        case 17:
        case 18:
            add(CounterAnnotation{{x + 20, y + 20}}, red, 4, 16);
            break;
        default:
            add(EmojiAnnotation{QStringLiteral("\U0001F44D"), {x, y, 32, 32}}, white, 4);
            break;
        }
    }
    return d;
}

const ShotDocument& document()
{
    static const ShotDocument d = markedUpCapture();
    return d;
}

void BM_RenderWarm(benchmark::State& state)
{
    ShotRenderer renderer;
    renderer.render(document(), 2);
    const quint64 hits = renderer.tileCache().hits(), misses = renderer.tileCache().misses();
    for (auto _ : state) {
        benchmark::DoNotOptimize(renderer.render(document(), 2));
    }
    state.counters["tile_hits_per_render"] =
        double(renderer.tileCache().hits() - hits) / double(state.iterations());
    state.counters["tile_misses_per_render"] =
        double(renderer.tileCache().misses() - misses) / double(state.iterations());
}
BENCHMARK(BM_RenderWarm)->Unit(benchmark::kMillisecond);

void BM_RenderCold(benchmark::State& state)
{
    for (auto _ : state) {
        ShotRenderer renderer;
        benchmark::DoNotOptimize(renderer.render(document(), 2));
    }
}
BENCHMARK(BM_RenderCold)->Unit(benchmark::kMillisecond);

// The same with a frame: the shadow's blur runs over the whole output.
void BM_RenderFramedWarm(benchmark::State& state)
{
    ShotDocument framed = document();
    framed.frame = FrameStyle{};
    ShotRenderer renderer;
    renderer.render(framed, 2);
    for (auto _ : state) {
        benchmark::DoNotOptimize(renderer.render(framed, 2));
    }
}
BENCHMARK(BM_RenderFramedWarm)->Unit(benchmark::kMillisecond);

void BM_Pixelate1000(benchmark::State& state)
{
    QImage area = QImage(QStringLiteral(NUBOSHOT_BENCH_DATA "/desktop-2880x1800.png"))
                      .copy(0, 0, 1000, 1000)
                      .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    for (auto _ : state) {
        benchmark::DoNotOptimize(RedactionRenderer::pixelate(area, 12));
    }
    state.counters["pixels"] = 1e6;
}
BENCHMARK(BM_Pixelate1000)->Unit(benchmark::kMillisecond);

// Redrawing one unchanged redaction: counts what each redraw did.
void BM_RedrawUnchangedRedaction(benchmark::State& state)
{
    ShotDocument d = ShotDocument::fromImage(document().layers[0].image, 2);
    d.annotations = {
        Annotation{QUuid::createUuid(), RedactAnnotation{{100, 100, 300, 200}}, ShotStyle()}};
    ShotRenderer renderer;
    QImage canvas(1000, 800, QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&canvas);
    painter.scale(2, 2);
    const QRectF visible = d.canvasBounds;
    renderer.drawRedaction(painter, d, d.annotations[0], visible);
    const quint64 draws = renderer.tileDraws(), hits = renderer.tileCache().hits(),
                  misses = renderer.tileCache().misses();
    for (auto _ : state) {
        renderer.drawRedaction(painter, d, d.annotations[0], visible);
    }
    const double n = double(state.iterations());
    state.counters["image_draws_per_redraw"] = double(renderer.tileDraws() - draws) / n;
    state.counters["cache_hits_per_redraw"] = double(renderer.tileCache().hits() - hits) / n;
    state.counters["pixelations_per_redraw"] = double(renderer.tileCache().misses() - misses) / n;
}
BENCHMARK(BM_RedrawUnchangedRedaction)->Unit(benchmark::kMicrosecond);

// Typing into a long text: each keystroke lays the whole text out again
// (wrapped to 600 points) and measures its height, as the editor's text box
// does. Arg: characters, up to the text limit; words or emoji.
void BM_TypeIntoLongText(benchmark::State& state, bool emoji)
{
    const int length = int(state.range(0));
    QString text;
    while (text.size() < length) {
        text += emoji ? QStringLiteral("\U0001F44D") : QStringLiteral("word ");
    }
    text.truncate(length);
    ShotTextLayoutManager layout;
    layout.setContainerWidth(600);
    int keystroke = 0;
    for (auto _ : state) {
        // A different last character each time: nothing is reused.
        text[text.size() - 1] = QChar(u'a' + keystroke++ % 26);
        layout.setText(text, 18, Qt::black);
        benchmark::DoNotOptimize(layout.usedHeight());
    }
}
BENCHMARK_CAPTURE(BM_TypeIntoLongText, words, false)
    ->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_TypeIntoLongText, emoji, true)
    ->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

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
