// The camera bubble, on one core:
//
//   build/bench/camera_bench
//
// Compositing a 360-pixel bubble into 1920 × 1080 and 3840 × 2160 screen
// pictures (a new camera picture every frame, as at 30 fps against a
// still screen, and the same one, as when the screen runs faster than the
// camera), against a plain copy of the frame (the floor: every bubble frame
// is a new buffer). And the camera path as a whole at 30 fps: an MJPEG
// 640 × 360 stream decoded and converted by the camera thread, plus one
// composite a picture, as a share of one core.

#include "recording/CameraOverlay.h"
#include "recording/CameraStreamSource.h"
#include "support/CameraStream.h"

#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>
#include <ctime>
#include <thread>

namespace {

using namespace nubo;

QImage screen(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            row[x] = qRgb(x & 255, y & 255, (x ^ y) & 255);
        }
    }
    return image;
}

CameraFrame camera(quint64 sequence)
{
    QImage image(640, 360, QImage::Format_RGB32);
    image.fill(qRgb(40, 200, 90));
    return {image, sequence};
}

void BM_Composite(benchmark::State& state)
{
    const QSize size(int(state.range(0)), int(state.range(0)) * 9 / 16);
    const bool newPicture = state.range(1) != 0;
    const QImage picture = screen(size);
    CameraFrameCompositor compositor(size);
    const QRectF frame(0.7, 0.6, 360.0 / size.width(), 360.0 / size.height());
    CameraFrame shot = camera(1);
    for (auto _ : state) {
        if (newPicture) {
            ++shot.sequence;
        }
        QImage out = compositor.composite(picture, shot, frame, true);
        benchmark::DoNotOptimize(out.constBits());
    }
    state.SetLabel(newPicture ? "new camera picture each frame" : "same camera picture");
}
BENCHMARK(BM_Composite)->Args({1920, 1})->Args({1920, 0})->Args({3840, 1})->Args({3840, 0})
    ->Unit(benchmark::kMillisecond);

// The floor: the frame copied into a buffer of a six-buffer ring.
void BM_FrameCopy(benchmark::State& state)
{
    const QSize size(int(state.range(0)), int(state.range(0)) * 9 / 16);
    const QImage picture = screen(size);
    std::vector<QImage> ring(6, QImage(size, QImage::Format_RGB32));
    size_t i = 0;
    for (auto _ : state) {
        QImage& target = ring[i++ % ring.size()];
        std::memcpy(target.bits(), picture.constBits(), size_t(picture.sizeInBytes()));
        benchmark::DoNotOptimize(target.constBits());
    }
}
BENCHMARK(BM_FrameCopy)->Arg(1920)->Arg(3840)->Unit(benchmark::kMillisecond);

double processSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

// Three seconds of a 30 fps MJPEG camera: the camera thread decodes and
// converts each picture; each is composited into a 1920 × 1080 frame here.
void BM_CameraPathAt30fps(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString stream = dir.filePath(QStringLiteral("camera.avi"));
    if (const QString failure = nubo::test::writeCameraStream(stream, 90); !failure.isEmpty()) {
        state.SkipWithError(failure.toStdString().c_str());
        return;
    }
    const QImage picture = screen(QSize(1920, 1080));
    const QRectF frame(0.7, 0.6, 360.0 / 1920, 360.0 / 1080);
    double share = 0;
    for (auto _ : state) {
        CameraFrameCompositor compositor(picture.size());
        const double cpuBefore = processSeconds();
        const auto wallBefore = std::chrono::steady_clock::now();
        {
            CameraStreamSource source(stream);
            quint64 last = 0;
            while (source.framesDecoded() < 90) {
                if (const std::optional<CameraFrame> shot = source.latestFrame();
                    shot && shot->sequence != last) {
                    last = shot->sequence;
                    QImage out = compositor.composite(picture, *shot, frame, true);
                    benchmark::DoNotOptimize(out.constBits());
                }
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        }
        const double wall =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - wallBefore).count();
        share = (processSeconds() - cpuBefore) / wall;
    }
    state.counters["core_share_percent"] = share * 100;
}
BENCHMARK(BM_CameraPathAt30fps)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
