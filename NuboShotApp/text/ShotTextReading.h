#pragma once

#include "recognition/CodeReading.h"
#include "recognition/TextRecognition.h"

#include <QImage>
#include <QObject>
#include <QStringList>

#include <functional>

namespace nubo {

class ShotPreferences;

// What was read in a picture: its text, its codes, and why the text could
// not be read (a missing language's package), empty when it was.
struct ShotReading {
    RecognizedText text;
    QList<ReadCode> codes;
    QString error;
};

// The recognition languages the user chose in Settings that are still
// installed, else the desktop's language (where installed) and English.
QStringList recognitionLanguages(const ShotPreferences& preferences);
void setRecognitionLanguages(ShotPreferences& preferences, const QStringList& languages);

// Reads the picture's text (when `withText`) and codes on a worker thread;
// `done` runs on `context`'s thread afterwards, unless `context` is gone.
// The picture's device pixel ratio is its pixels per point.
void readShot(const QImage& picture, const QStringList& languages, bool withText, QObject* context,
              std::function<void(const ShotReading&)> done);

} // namespace nubo
