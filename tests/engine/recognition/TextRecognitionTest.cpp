// Text recognised in screenshots rendered here with known text: body text,
// small labels and a code block, in several fonts and sizes, dark on light
// and light on dark, at one and two pixels a point; scored by character
// error rate (edits over the known text's characters, spaces folded).

#include "recognition/TextRecognition.h"

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>

#include "core/Error.h"
#include "support/TextMeasures.h"
#include "support/TextSamples.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace nubo {
namespace {

// The kept engine goes before Tesseract's own caches do, as in the programs.
class ReleaseTheEngine : public testing::Environment {
    void TearDown() override { releaseRecognitionEngine(); }
};
[[maybe_unused]] testing::Environment* const released =
    testing::AddGlobalTestEnvironment(new ReleaseTheEngine);

using test::body;
using test::characterErrorRate;
using test::render;
using test::Sample;

TEST(TextRecognition, ScreenTextIsReadWithinItsErrorRate)
{
    for (const Sample& sample : test::screenSamples) {
        const RecognizedText text = recognizeText(render(sample, QString::fromLatin1(body)), {"eng"});
        const double rate = characterErrorRate(text.text(), QString::fromLatin1(body));
        EXPECT_LE(rate, sample.allowed)
            << sample.what << " " << sample.family << " " << sample.pixelSize << " px"
            << (sample.dark ? " light on dark" : " dark on light") << " at " << sample.ratio
            << "x: " << rate * 100 << " % errors in\n"
            << text.text().toStdString();
    }
}

TEST(TextRecognition, CodeKeepsItsLinesAndIndentation)
{
    const QString code = QStringLiteral("fn main() {\n"
                                        "    let answer = 42;\n"
                                        "    if answer > 0 {\n"
                                        "        println!(\"{}\", answer);\n"
                                        "    }\n"
                                        "}");
    const RecognizedText text =
        recognizeText(render({"code", "DejaVu Sans Mono", 14, true, 1, 0.02}, code), {"eng"});
    const QStringList lines = text.text().split(u'\n');
    ASSERT_EQ(lines.size(), 6) << text.text().toStdString();
    const int indents[] = {0, 4, 4, 8, 4, 0};
    for (int i = 0; i < 6; ++i) {
        const qsizetype indent = lines[i].size() - QString(lines[i]).remove(QRegularExpression(QStringLiteral("^ +"))).size();
        EXPECT_NEAR(double(indent), indents[i], 1.0) << "line " << i << ": " << lines[i].toStdString();
    }
    EXPECT_LE(characterErrorRate(text.text(), code), 0.05) << text.text().toStdString();
}

TEST(TextRecognition, AMissingLanguageNamesItsPackage)
{
    try {
        recognizeText(QImage(10, 10, QImage::Format_RGB32), {"klingon"});
        FAIL() << "no error";
    } catch (const Error& error) {
        EXPECT_TRUE(error.message().contains(QStringLiteral("tesseract-ocr-klingon"))) << error.message().toStdString();
    }
}

} // namespace
} // namespace nubo
