#pragma once

#include <QImage>
#include <QList>
#include <QRect>
#include <QString>
#include <QStringList>

namespace nubo {

// Text recognised in a picture, in the picture's pixels, line by line in
// reading order.
struct RecognizedWord {
    QString text;
    QRect box;
    float confidence = 0; // 0–100
};

struct RecognizedLine {
    QRect box;
    QList<RecognizedWord> words;
};

struct RecognizedText {
    QList<RecognizedLine> lines;

    // The text with its layout kept: a line break after each line, an empty
    // line where a paragraph gap was, and the indentation of each line (code,
    // lists) as spaces.
    QString text() const;
    int wordCount() const;
};

// The recognition languages installed (Tesseract's trained data: "eng",
// "deu", …), sorted.
QStringList installedRecognitionLanguages();

// The languages to recognise when the user chose none: the desktop's
// language where its data is installed, else English.
QStringList defaultRecognitionLanguages();

// The picture as the engine reads it best: 8-bit grey, dark text on a light
// ground (light-on-dark screens are inverted), and scaled up by `scale`
// (screen text at one pixel a point is too small for it).
QImage prepareForRecognition(const QImage& picture, double scale);

// Recognises the text of a picture (a screenshot: columns, code, labels).
// Takes a while (a second for a full screen of text); call it off the UI
// thread. Throws Error naming the package to install when a language's
// data is missing.
// The engine and its models (tens of megabytes) are kept for the next call
// in the same languages; one call runs at a time, others wait.
RecognizedText recognizeText(const QImage& picture, const QStringList& languages);

// Frees the engine kept by recognizeText (waiting for a recognition under
// way). Programs call it before they end, and the tray when idle.
void releaseRecognitionEngine();

} // namespace nubo
