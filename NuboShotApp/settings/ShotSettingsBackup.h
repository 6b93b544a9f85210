#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace nubo {

class ShotPreferences;

// Every preference in one file and back. The file is JSON:
// {"format": "nuboshot-settings", "version": 1, "settings": {key: value}}.
// Secrets are never written. Restoring takes each known key whose value has
// the right type, and says what it skipped and why: a file from a newer
// version or edited by hand restores what it can.
class ShotSettingsBackup {
public:
    static constexpr int version = 1;

    struct Report {
        int restored = 0;
        QStringList skipped; // "key: why"
        QString problem;     // the whole file could not be used
        bool newerVersion = false;
        // One paragraph for the user.
        QString summary() const;
    };

    static QByteArray backup(const ShotPreferences& preferences);
    // Writes the backup to `path`; throws FileError.
    static void write(const ShotPreferences& preferences, const QString& path);
    static Report restore(ShotPreferences& preferences, const QByteArray& data);
    // Reads `path` (a regular file of at most 1 MiB) and restores it.
    static Report restoreFile(ShotPreferences& preferences, const QString& path);

    // Keys whose values are secrets: never in a backup.
    static bool isSecret(const QString& key);
};

} // namespace nubo
