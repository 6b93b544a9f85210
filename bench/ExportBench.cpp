// Encoding real screenshots: our PNG writer against Qt's own (QImageWriter
// with libpng's defaults, handed RGB888 as a careful Qt user would) and
// libspng (RGB8 in, its defaults) on the same images in one run, the
// libdeflate level sweep that chose our default, and the lossy formats at
// quality 0.9. Wall time and the CPU time of the whole process (every
// thread) are both reported: ours uses two threads, the others one.
//
//   build/bench/export_bench --benchmark_counters_tabular=true

#include "export/ImageWriter.h"
#include "codec/PngEncoder.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageWriter>

#include <benchmark/benchmark.h>
#include <cstring>
#include <spng.h>
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

QByteArray spngPng(const QImage& rgb)
{
    spng_ctx* ctx = spng_ctx_new(SPNG_CTX_ENCODER);
    spng_set_option(ctx, SPNG_ENCODE_TO_BUFFER, 1);
    spng_ihdr ihdr{};
    ihdr.width = uint32_t(rgb.width());
    ihdr.height = uint32_t(rgb.height());
    ihdr.bit_depth = 8;
    ihdr.color_type = SPNG_COLOR_TYPE_TRUECOLOR;
    spng_set_ihdr(ctx, &ihdr);
    // libspng takes tightly packed rows.
    QByteArray packed;
    const qsizetype row = qsizetype(rgb.width()) * 3;
    const uchar* pixels = rgb.constBits();
    if (rgb.bytesPerLine() != row) {
        packed.resize(row * rgb.height());
        for (int y = 0; y < rgb.height(); ++y) {
            std::memcpy(packed.data() + row * y, rgb.constScanLine(y), size_t(row));
        }
        pixels = reinterpret_cast<const uchar*>(packed.constData());
    }
    QByteArray out;
    if (spng_encode_image(ctx, pixels, size_t(row) * size_t(rgb.height()), SPNG_FMT_PNG,
                          SPNG_ENCODE_FINALIZE) == 0) {
        size_t size = 0;
        int error = 0;
        void* buffer = spng_get_png_buffer(ctx, &size, &error);
        if (buffer) {
            out = QByteArray(static_cast<const char*>(buffer), qsizetype(size));
            std::free(buffer);
        }
    }
    spng_ctx_free(ctx);
    return out;
}

// A peer's writer, handed opaque screenshots as RGB so that it converts
// nothing per row, as a careful user of it would.
void peerPng(benchmark::State& state, const char* name, QByteArray (*encode)(const QImage&))
{
    const QImage image = screenshot(name).convertToFormat(QImage::Format_RGB888);
    qsizetype bytes = 0;
    for (auto _ : state) {
        bytes = encode(image).size();
    }
    report(state, image, bytes);
}

void BM_PngQt(benchmark::State& state, const char* name)
{
    peerPng(state, name, qtPng);
}

void BM_PngSpng(benchmark::State& state, const char* name)
{
    peerPng(state, name, spngPng);
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
        using Run = void (*)(benchmark::State&, const char*);
        const std::pair<const char*, Run> encoders[] = {
            {"BM_PngOurs/", BM_PngOurs}, {"BM_PngQt/", BM_PngQt}, {"BM_PngSpng/", BM_PngSpng}};
        for (const auto& [label, run] : encoders) {
            benchmark::RegisterBenchmark((std::string(label) + name).c_str(), run, name)
                ->Unit(benchmark::kMillisecond)
                ->UseRealTime()
                ->MeasureProcessCPUTime();
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
