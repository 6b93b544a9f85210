#pragma once

#include "core/SerialQueue.h"
#include "document/ShotDocument.h"
#include "recents/ShotRecentDisk.h"

#include <QDateTime>
#include <QHash>
#include <QImage>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>
#include <optional>

namespace nubo {

class ShotClipboard;
class ShotPreferences;
class ShotRecentClipboardWatcher;
class ShotRenderer;

// What the menu shows of a recent image.
struct ShotRecentEntry {
    ShotRecentRecord record;
    QImage thumbnail;
};

// The recent images of the status menu: every capture, and every image
// copied in another application while the feature ("shot.recent.enabled")
// is on. The list and thumbnails live here, on the main thread; the files
// belong to a ShotRecentDisk on a thread of its own, one operation at a
// time. The menu shows the five newest; entries that fall out of the five
// are deleted from disk after a grace period (at once when the store loads).
class ShotRecentStore : public QObject {
    Q_OBJECT
public:
    static constexpr int menuCount = 5;

    ShotRecentStore(ShotPreferences& preferences, ShotClipboard& clipboard,
                    ShotRenderer& renderer, QString root = ShotRecentDisk::defaultRoot(),
                    QObject* parent = nullptr);
    ~ShotRecentStore() override;

    // How long an entry that fell out of the five stays on disk.
    qint64 graceSeconds = 600;
    // Deletes the entries that have been out of the five for longer than
    // that (every minute while running).
    void prune();

    // The application owning the clipboard, for copied entries.
    std::function<std::optional<QString>()> sourceApp;

    // Follows the preference: loads and watches when on, stops when off.
    void applyPreference();
    bool isEnabled() const { return m_enabled; }
    // The menu's entries, newest first, at most five.
    const QList<ShotRecentEntry>& entries() const { return m_entries; }

    // Records a capture (off the main thread); the id its entry has. Null
    // when recents are off.
    QUuid recordCapture(const ShotDocument& document, const QString& mode);
    // The capture's entry follows an edited output of it; an unchanged
    // document writes nothing.
    void recordOutput(const QUuid& id, const ShotDocument& document);
    // Reads an entry as a document to edit; `done` on the main thread.
    void open(const QUuid& id,
              std::function<void(std::optional<ShotDocument> document, const QString& error)> done);
    void clear();

    ShotRecentClipboardWatcher* watcher() const { return m_watcher.get(); }
    quint64 queueVersion() const { return m_queueVersion; }
    quint64 completedVersion() const { return m_completedVersion; }
    int generation() const { return m_generation; }
    // Waits until the disk has done what was asked before, then takes its
    // answers (tests, and quitting).
    void waitForDisk();

signals:
    // The entries changed.
    void changed();

private:
    struct Listing {
        QList<ShotRecentRecord> records; // newest first, all of them
        QHash<QUuid, QImage> thumbnails;  // of the newest five
    };
    // Runs `work` on the disk thread, then publishes its listing.
    void submit(const char* what, std::function<void(ShotRecentDisk&)> work);
    void publish(const Listing& listing, quint64 version);

    ShotPreferences& m_preferences;
    ShotClipboard& m_clipboard;
    std::unique_ptr<ShotRecentDisk> m_disk; // used on the queue's thread only
    std::unique_ptr<SerialQueue> m_queue;
    std::unique_ptr<ShotRecentClipboardWatcher> m_watcher;
    QList<ShotRecentEntry> m_entries;
    QList<ShotRecentRecord> m_records;
    QHash<QUuid, QImage> m_thumbnails;
    QHash<QUuid, ShotDocument> m_revisions; // the last document written of a capture
    QHash<QUuid, QDateTime> m_outSince;     // when an entry fell out of the five
    QTimer m_pruneTimer;
    bool m_enabled = false;
    bool m_running = false;
    bool m_loaded = false;
    int m_generation = 0;
    quint64 m_queueVersion = 0;
    quint64 m_completedVersion = 0;
};

} // namespace nubo
