#pragma once

#include "document/ShotDocument.h"
#include "export/ShotFormat.h"

#include <QDateTime>
#include <QString>

namespace nubo {

class ShotPreferences;
class ShotRenderer;

// Where shots go without asking: the quick-save folder with dated,
// never-overwriting names, and private temporary files for drag and share.
class ShotQuickSave {
public:
    static constexpr double quality = 0.9;

    // The folder in "shot.quickSaveFolder" when it is an existing, writable
    // folder; otherwise the Downloads folder (made when missing).
    static QString folder(const ShotPreferences& preferences);
    // The Downloads folder, where shots go when no usable folder is chosen.
    static QString fallbackFolder();
    static bool isUsableFolder(const QString& path);
    // The folder a quick save goes to now, without making anything.
    static QString folderShown(const ShotPreferences& preferences);
    // "shot.quickSaveFormat"; missing or unknown is PNG.
    static ShotFormat format(const ShotPreferences& preferences);

    // Saves into the quick-save folder under the dated name, or the first of
    // " (2)", " (3)", … that is free. The name is claimed by creating it
    // exclusively, so saves in the same second never overwrite each other,
    // even from two processes. Returns the saved file's path.
    static QString save(const ShotDocument& document, double scale,
                        const ShotPreferences& preferences,
                        const QDateTime& now = QDateTime::currentDateTime());
    static QString saveInto(const QString& folder, ShotFormat format, const ShotDocument& document,
                            double scale, const QDateTime& now,
                            double quality = ShotQuickSave::quality);

    // A PNG of the shot, alone in a fresh private folder under the runtime
    // directory; the folder is removed again when the export fails.
    // `drawn`, when given, receives the drawn shot (for a drag's picture).
    static QString temporaryExport(const ShotDocument& document, double scale,
                                   const QDateTime& now = QDateTime::currentDateTime(),
                                   QImage* drawn = nullptr);
    static QString temporaryBase();
    // Removes the private folders of temporary exports last changed before
    // `cutoff` (a receiver of a drop may still read a recent one). Returns
    // how many went.
    static int sweepTemporaryExports(const QDateTime& cutoff);
};

} // namespace nubo
