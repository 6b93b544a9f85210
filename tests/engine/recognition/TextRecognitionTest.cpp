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

#include <algorithm>
#include <gtest/gtest.h>
#include <vector>

namespace nubo {
namespace {

using test::characterErrorRate;

struct Sample {
    const char* what;
    const char* family;
    int pixelSize; // at one pixel a point
    bool dark;
    double ratio;
    double allowed; // character error rate
};

const char* const body =
    "The quick brown fox jumps over the lazy dog.\n"
    "Screenshots hold menus, labels and paragraphs of text;\n"
    "copying them by hand is slow and error-prone.\n"
    "Version 2.4.1 was released on 14 March 2026 at 09:30.";

QImage render(const Sample& sample, const QString& text)
{
    QFont font(QString::fromLatin1(sample.family));
    font.setPixelSize(sample.pixelSize);
    const QFontMetrics metrics(font);
    const QStringList lines = text.split(u'\n');
    int width = 0;
    for (const QString& line : lines) {
        width = std::max(width, metrics.horizontalAdvance(line));
    }
    const QSize points(width + 40, int(lines.size()) * metrics.lineSpacing() + 40);
    QImage image(points * sample.ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(sample.ratio);
    image.fill(sample.dark ? QColor(0x1e, 0x1e, 0x1e) : QColor(Qt::white));
    QPainter painter(&image);
    painter.setFont(font);
    painter.setPen(sample.dark ? QColor(0xe0, 0xe0, 0xe0) : QColor(0x20, 0x20, 0x20));
    for (qsizetype i = 0; i < lines.size(); ++i) {
        painter.drawText(20, 20 + metrics.ascent() + int(i) * metrics.lineSpacing(), lines[i]);
    }
    return image;
}

TEST(TextRecognition, ScreenTextIsReadWithinItsErrorRate)
{
    const Sample samples[] = {
        {"body", "DejaVu Sans", 14, false, 1, 0.02},
        {"body", "DejaVu Sans", 14, true, 1, 0.02},
        {"body", "DejaVu Sans", 14, false, 2, 0.02},
        {"body", "Liberation Serif", 16, false, 1, 0.02},
        {"body", "Liberation Sans", 13, true, 2, 0.02},
        {"label", "DejaVu Sans", 11, false, 1, 0.05},
        {"label", "Liberation Sans", 11, true, 1, 0.05},
    };
    for (const Sample& sample : samples) {
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
