// Text recognition and code reading.
//
//   recognition_bench [benchmark options]   times a framed selection's
//       recognition (800 × 200 points of text) and the code search of a 4K
//       capture, on one OpenMP thread (as the programs run it).
//   recognition_bench --accuracy             scores our recognition and the
//       `tesseract` command on the same pictures (the test's screen texts)
//       by character error rate, and prints a markdown table.

#include "recognition/CodeReading.h"
#include "recognition/TextRecognition.h"
#include "support/TextMeasures.h"
#include "support/TextSamples.h"

#include <QGuiApplication>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace nubo {
namespace {

// 800 × 200 points of body text, as a user frames a paragraph.
QImage selection()
{
    QImage image(800, 200, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(14);
    painter.setFont(font);
    painter.setPen(QColor(0x20, 0x20, 0x20));
    painter.drawText(QRect(16, 16, 768, 168), Qt::TextWordWrap,
                     QString::fromLatin1(test::body).replace(u'\n', u' ') + u' ' +
                         QString::fromLatin1(test::body).replace(u'\n', u' '));
    return image;
}

// A 4K screen: the web page of the test data at twice its size, a QR code
// on it.
QImage screenWithCode()
{
    QImage page(QStringLiteral(NUBOSHOT_TEST_DATA "/web-1920x1080.png"));
    QImage screen = page.scaled(3840, 2160).convertToFormat(QImage::Format_RGB32);
    const ZXing::BitMatrix matrix = ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode)
                                        .setMargin(0)
                                        .encode("https://example.org/a/rather/long/link?with=query", 0, 0);
    QPainter painter(&screen);
    const int module = 6;
    const QPoint at(2900, 1400);
    painter.fillRect(QRect(at, QSize(matrix.width() + 8, matrix.height() + 8) * module), Qt::white);
    for (int y = 0; y < matrix.height(); ++y) {
        for (int x = 0; x < matrix.width(); ++x) {
            if (matrix.get(x, y)) {
                painter.fillRect(at.x() + (x + 4) * module, at.y() + (y + 4) * module, module, module, Qt::black);
            }
        }
    }
    return screen;
}

// Argument 1: the engine loaded for each picture, as on the first reading
// (the programs keep it for the next one).
void BM_RecognizeSelection(benchmark::State& state)
{
    const QImage picture = selection();
    for (auto _ : state) {
        if (state.range(0)) {
            releaseRecognitionEngine();
        }
        const RecognizedText text = recognizeText(picture, {QStringLiteral("eng")});
        if (text.wordCount() < 60) {
            state.SkipWithError("the selection's words were not read");
        }
    }
    releaseRecognitionEngine();
}
BENCHMARK(BM_RecognizeSelection)->ArgName("first")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->MinTime(3);

void BM_ReadCodesOf4KScreen(benchmark::State& state)
{
    const QImage screen = screenWithCode();
    for (auto _ : state) {
        if (readCodes(screen).size() != 1) {
            state.SkipWithError("the code was not found");
        }
    }
}
BENCHMARK(BM_ReadCodesOf4KScreen)->Unit(benchmark::kMillisecond)->MinTime(3);

int accuracy()
{
    QTemporaryDir folder;
    std::printf("| text | font | size | ground | scale | ours CER | `tesseract` CER |\n"
                "|---|---|---|---|---|---|---|\n");
    double ours = 0, theirs = 0;
    int count = 0;
    for (const test::Sample& sample : test::screenSamples) {
        const QString truth = QString::fromLatin1(test::body);
        const QImage picture = test::render(sample, truth);
        const QString file = folder.filePath(QStringLiteral("sample.png"));
        picture.save(file);
        const double our = test::characterErrorRate(recognizeText(picture, {QStringLiteral("eng")}).text(), truth);
        QProcess tesseract;
        tesseract.start(QStringLiteral("tesseract"), {file, QStringLiteral("-"), QStringLiteral("-l"),
                                                      QStringLiteral("eng")});
        tesseract.waitForFinished(60000);
        const double their = test::characterErrorRate(QString::fromUtf8(tesseract.readAllStandardOutput()), truth);
        std::printf("| %s | %s | %d px | %s | %g× | %.2f %% | %.2f %% |\n", sample.what, sample.family,
                    sample.pixelSize, sample.dark ? "dark" : "light", sample.ratio, our * 100, their * 100);
        ours += our;
        theirs += their;
        ++count;
    }
    std::printf("| mean | | | | | %.2f %% | %.2f %% |\n", ours / count * 100, theirs / count * 100);
    releaseRecognitionEngine();
    return 0;
}

} // namespace
} // namespace nubo

int main(int argc, char** argv)
{
    // Tesseract's OpenMP threads spin against each other on two cores; the
    // programs run it on one (the command in front sets this), so do we.
    if (!std::getenv("OMP_THREAD_LIMIT")) {
        setenv("OMP_THREAD_LIMIT", "1", 1);
        execv("/proc/self/exe", argv);
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    QGuiApplication app(argc, argv); // fonts for the drawn text
    if (argc > 1 && std::strcmp(argv[1], "--accuracy") == 0) {
        return nubo::accuracy();
    }
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
