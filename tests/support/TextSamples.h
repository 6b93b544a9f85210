#pragma once

// Screen text drawn with known words, for the recognition tests and the
// benchmark that scores the engine against the `tesseract` command.

#include <QFont>
#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QStringList>

#include <algorithm>

namespace nubo::test {

// Text as a screen shows it: a font at a pixel size (at one pixel a point),
// dark on light or light on dark, at a pixel ratio.
struct Sample {
    const char* what;
    const char* family;
    int pixelSize; // at one pixel a point
    bool dark;
    double ratio;
    double allowed; // character error rate
};

inline const char* const body =
    "The quick brown fox jumps over the lazy dog.\n"
    "Screenshots hold menus, labels and paragraphs of text;\n"
    "copying them by hand is slow and error-prone.\n"
    "Version 2.4.1 was released on 14 March 2026 at 09:30.";

inline QImage render(const Sample& sample, const QString& text)
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

// The screen texts the recognition is scored on, with the error rate each may have.
inline const Sample screenSamples[] = {
    {"body", "DejaVu Sans", 14, false, 1, 0.02},
    {"body", "DejaVu Sans", 14, true, 1, 0.02},
    {"body", "DejaVu Sans", 14, false, 2, 0.02},
    {"body", "Liberation Serif", 16, false, 1, 0.02},
    {"body", "Liberation Sans", 13, true, 2, 0.02},
    {"label", "DejaVu Sans", 11, false, 1, 0.05},
    {"label", "Liberation Sans", 11, true, 1, 0.05},
};

} // namespace nubo::test
