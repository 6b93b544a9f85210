// Encoding real screenshots: our PNG writer against Qt's own (QImageWriter
// with libpng's defaults) on the same images in one run, the libdeflate level
// sweep that chose our default, and the lossy formats at quality 0.9.
//
//   build/bench/export_bench --benchmark_counters_tabular=true

#include "export/ImageWriter.h"
#include "export/PngEncoder.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>

#include <benchmark/benchmark.h>
#include <map>

namespace {

using namespace nubo;

const char* const corpus[] = {"code-5120x2880", "web-3840x2160", "desktop-3840x2160",
                              "web-1920x1080"};

const QImage& screenshot(const std::string& name)
{
    static std::map<std::string, QImage> images;
    auto& image = images[name];
    if (image.isNull()) {
        image =
            QImage(QStringLiteral(NUBOSHOT_BENCH_DATA "/%1.png").arg(QString::fromStdString(name)))
                .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    }
    return image;
}

QByteArray qtPng(const QImage& image)
{
    QByteArray data;
    QBuffer buffer(&data);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "png");
    writer.write(image);
    return data;
}

void report(benchmark::State& state, const QImage& image, qsizetype bytes)
{
    state.counters["bytes"] = double(bytes);
    state.counters["MPix_per_s"] =
        benchmark::Counter(double(image.width()) * image.height() / 1e6,
                           benchmark::Counter::kIsIterationInvariantRate);
}

void BM_PngOurs(benchmark::State& state, const char* name)
{
    const QImage& image = screenshot(name);
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = PngEncoder::encode(image).size();
    }
    report(state, image, bytes);
}

void BM_PngQt(benchmark::State& state, const char* name)
{
    const QImage& image = screenshot(name);
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = qtPng(image).size();
    }
    report(state, image, bytes);
}

void BM_PngLevel(benchmark::State& state)
{
    const QImage& image = screenshot("code-5120x2880");
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = PngEncoder::encode(image, {int(state.range(0)), 0}).size();
    }
    report(state, image, bytes);
}
BENCHMARK(BM_PngLevel)->DenseRange(1, 9)->Unit(benchmark::kMillisecond);

void BM_Lossy(benchmark::State& state, ImageWriterFormat format)
{
    const QImage& image = screenshot("code-5120x2880");
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = ImageWriter::encode(image, format, 0.9, 2, QStringLiteral("bench")).size();
    }
    report(state, image, bytes);
}
BENCHMARK_CAPTURE(BM_Lossy, jpeg, ImageWriterFormat::jpg)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Lossy, webp, ImageWriterFormat::webp)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Lossy, heic, ImageWriterFormat::heic)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    for (const char* name : corpus) {
        benchmark::RegisterBenchmark((std::string("BM_PngOurs/") + name).c_str(), BM_PngOurs, name)
            ->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((std::string("BM_PngQt/") + name).c_str(), BM_PngQt, name)
            ->Unit(benchmark::kMillisecond);
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
