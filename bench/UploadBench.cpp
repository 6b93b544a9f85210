// Uploads: a 5 MB PNG put into a local S3 server (s3rver) by the resident
// engine, signed and hashed by hand, its steps written to the shared store;
// and the signing and hashing alone. Run by bench/upload, which starts the
// server and the peer (botocore, resident, the same file and server).
//
//   build/bench/upload_bench --make-png=FILE     writes the 5 MB PNG and ends
//   NUBOSHOT_BENCH_S3=http://127.0.0.1:PORT NUBOSHOT_BENCH_PNG=FILE build/bench/upload_bench

#include "upload/S3Signing.h"
#include "upload/Uploader.h"

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QRandomGenerator>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>

namespace {

using namespace nubo;

QByteArray png()
{
    static const QByteArray bytes = [] {
        QFile file(qEnvironmentVariable("NUBOSHOT_BENCH_PNG"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    return bytes;
}

S3Settings bucket()
{
    S3Settings s3;
    s3.endpoint = qEnvironmentVariable("NUBOSHOT_BENCH_S3");
    s3.region = QStringLiteral("us-east-1");
    s3.bucket = QStringLiteral("shots");
    s3.keyPrefix = QStringLiteral("bench");
    s3.accessKeyId = QStringLiteral("S3RVER");
    return s3;
}

void BM_SignAndHash5MB(benchmark::State& state)
{
    const QByteArray bytes = png();
    if (bytes.size() < 5'000'000) {
        state.SkipWithError("NUBOSHOT_BENCH_PNG is not the 5 MB PNG");
        return;
    }
    const S3Settings s3 = bucket();
    for (auto _ : state) {
        const QByteArray hash = s3::sha256Hex(bytes);
        auto request = s3::sign(s3, "PUT", s3::objectKey(s3, QStringLiteral("Nubo Shot 1.png")),
                                hash, "image/png", QDateTime::currentDateTimeUtc(),
                                QStringLiteral("S3RVER"));
        benchmark::DoNotOptimize(request);
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(BM_SignAndHash5MB)->Unit(benchmark::kMillisecond);

void BM_UploadToLocalS3(benchmark::State& state)
{
    const QByteArray bytes = png();
    if (bytes.size() < 5'000'000 || qEnvironmentVariableIsEmpty("NUBOSHOT_BENCH_S3")) {
        state.SkipWithError("needs NUBOSHOT_BENCH_S3 and NUBOSHOT_BENCH_PNG (bench/upload)");
        return;
    }
    QTemporaryDir dir;
    const QString store = dir.filePath(QStringLiteral("shared.sqlite"));
    UploadRequest request;
    request.bytes = bytes;
    request.settings.destination = ShotUploadDestination::r2;
    request.settings.s3 = bucket();
    request.s3Secret = QStringLiteral("S3RVER");
    int n = 0;
    for (auto _ : state) {
        request.fileName = QStringLiteral("Nubo Shot %1.png").arg(++n);
        try {
            benchmark::DoNotOptimize(Uploader(request, store).run());
        } catch (const Error& error) {
            state.SkipWithError(qPrintable(error.message()));
            return;
        }
    }
    state.SetBytesProcessed(state.iterations() * bytes.size());
}
BENCHMARK(BM_UploadToLocalS3)->Unit(benchmark::kMillisecond)->UseRealTime()->MeasureProcessCPUTime();

// What an editor reads when it opens, to name its upload button: the store
// opened and the destinations' settings read.
void BM_ReadUploadSettings(benchmark::State& state)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("shared.sqlite"));
    UploadStore(path).saveSettings(bucket(), FilebinSettings{});
    for (auto _ : state) {
        benchmark::DoNotOptimize(UploadStore(path).settings(ShotUploadDestination::auto_));
    }
}
BENCHMARK(BM_ReadUploadSettings)->Unit(benchmark::kMicrosecond);

// Noise compresses to nothing: 1300 × 1300 of it is a PNG just over 5 MB.
int makePng(const char* path)
{
    QImage image(1300, 1300, QImage::Format_RGB888);
    QRandomGenerator random(20261124);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<quint32*>(image.scanLine(y));
        for (int i = 0; i < image.bytesPerLine() / 4; ++i) {
            line[i] = random.generate();
        }
    }
    return image.save(QString::fromLocal8Bit(path), "PNG", 0) ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (std::strncmp(argv[i], "--make-png=", 11) == 0) {
            return makePng(argv[i] + 11);
        }
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
