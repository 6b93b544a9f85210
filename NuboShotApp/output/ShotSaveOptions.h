#pragma once

#include "export/ShotFormat.h"

#include <QString>

class QFileDialog;

namespace nubo {

// What Save As writes: the format, the quality of lossy formats and the scale.
struct ShotSaveOptions {
    ShotFormat format = ShotFormat::png;
    double quality = 0.9;
    double scale = 1;

    static bool isLossy(ShotFormat format) { return format != ShotFormat::png; }
    // The file name with its extension replaced by the format's one.
    static QString withExtension(const QString& fileName, ShotFormat format);
    // The name filter the dialog shows for a format, e.g. "PNG (*.png)".
    static QString nameFilter(ShotFormat format);
};

// A Save As dialog with the format, quality (lossy formats only) and scale
// beside the file list; changing the format changes the name's extension.
class ShotSaveDialog {
public:
    ShotSaveDialog(QFileDialog& dialog, const ShotSaveOptions& initial);
    // What was chosen; the format is the chosen file's when its extension
    // names one we write, else the type list's.
    ShotSaveOptions options() const;
    // The file to write: as chosen, with the format's extension added when
    // it has none of ours.
    QString chosenPath() const;

private:
    QFileDialog& m_dialog;
    ShotSaveOptions m_options;
    bool m_typing = false; // the type list follows what is being typed
};

} // namespace nubo
