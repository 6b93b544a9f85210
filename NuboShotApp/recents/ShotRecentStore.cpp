#include "recents/ShotRecentStore.h"

#include "core/BackgroundThread.h"
#include "core/Logging.h"
#include "core/Settings.h"
#include "recents/ShotRecentClipboardWatcher.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QThread>

namespace nubo {

ShotRecentStore::ShotRecentStore(ShotPreferences& preferences, ShotClipboard& clipboard,
                                 ShotRenderer& renderer, QString root, QObject* parent)
    : QObject(parent), m_preferences(preferences), m_clipboard(clipboard),
      m_disk(std::make_unique<ShotRecentDisk>(std::move(root), renderer)),
      m_queue(std::make_unique<SerialQueue>(QStringLiteral("recents-disk")))
{
    // File work yields to the editor that opens at the same moment.
    m_queue->post([] { lowerCurrentThreadPriority(); });
    m_pruneTimer.setInterval(60'000);
    connect(&m_pruneTimer, &QTimer::timeout, this, &ShotRecentStore::prune);
}

ShotRecentStore::~ShotRecentStore()
{
    m_queue.reset(); // what was asked is done; its answers go nowhere
}

void ShotRecentStore::applyPreference()
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    m_enabled = m_preferences.boolean(keys::recentEnabled, true);
    if (m_enabled && !m_running) {
        m_running = true;
        if (!m_loaded) {
            m_loaded = true;
            submit("Loading the recent images", [](ShotRecentDisk& disk) {
                // Nothing can be open on the entries beyond the menu's five
                // in a new process: they go at once.
                const QList<ShotRecentRecord> records = disk.load();
                QList<QUuid> beyond;
                for (qsizetype i = menuCount; i < records.size(); ++i) {
                    beyond.append(records[i].id);
                }
                if (!beyond.isEmpty()) {
                    disk.remove(beyond);
                }
            });
        }
        if (!m_watcher) {
            m_watcher = std::make_unique<ShotRecentClipboardWatcher>(
                m_clipboard, [this] { return sourceApp ? sourceApp() : std::nullopt; },
                [this](const ShotRecentImagePayload& payload,
                       const std::optional<QString>& source) {
                    const QDateTime now = QDateTime::currentDateTime();
                    submit("Recording a copied image", [payload, source, now](ShotRecentDisk& disk) {
                        const ShotRecentRecord record = disk.addCopied(payload, source, now);
                        qCInfo(lcRecents, "Recent copied image %dx%d from %s",
                               record.pixelWidth, record.pixelHeight,
                               qPrintable(source.value_or(QStringLiteral("an unknown application"))));
                    });
                });
        }
        m_watcher->start();
        m_pruneTimer.start();
        qCInfo(lcRecents, "Recent images on");
        if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
            qCInfo(lcRecents, "On Wayland the clipboard is seen only while one of our windows "
                              "has the keyboard: images copied elsewhere join Recent then");
        }
    } else if (!m_enabled && m_running) {
        m_running = false;
        m_watcher->stop();
        m_pruneTimer.stop();
        qCInfo(lcRecents, "Recent images off");
    }
    emit changed();
}

QUuid ShotRecentStore::recordCapture(const ShotDocument& document, const QString& mode)
{
    if (!m_enabled) {
        return {};
    }
    const QUuid id = QUuid::createUuid();
    m_revisions.insert(id, document);
    const QDateTime now = QDateTime::currentDateTime();
    submit("Recording a capture", [id, document, mode, now](ShotRecentDisk& disk) {
        QElapsedTimer took;
        took.start();
        disk.addCapture(id, document, mode, now);
        qCInfo(lcRecents, "Recent capture recorded in %lld ms",
               static_cast<long long>(took.elapsed()));
    });
    return id;
}

void ShotRecentStore::recordOutput(const QUuid& id, const ShotDocument& document)
{
    if (!m_enabled || id.isNull()) {
        return;
    }
    const auto last = m_revisions.constFind(id);
    if (last != m_revisions.constEnd() && *last == document) {
        return; // output again as it is: the entry already shows it
    }
    m_revisions.insert(id, document);
    submit("Updating a recent capture", [id, document](ShotRecentDisk& disk) {
        disk.updateCapture(id, document);
        qCInfo(lcRecents, "Recent capture %s updated",
               qPrintable(id.toString(QUuid::WithoutBraces)));
    });
}

void ShotRecentStore::open(
    const QUuid& id,
    std::function<void(std::optional<ShotDocument> document, const QString& error)> done)
{
    const auto at = std::find_if(m_records.cbegin(), m_records.cend(),
                                 [&](const ShotRecentRecord& r) { return r.id == id; });
    if (at == m_records.cend()) {
        done(std::nullopt, ShotRecentError(ShotRecentError::Code::missingEntry,
                                           id.toString(QUuid::WithoutBraces))
                               .message());
        return;
    }
    const ShotRecentRecord record = *at;
    ++m_queueVersion;
    m_queue->post([this, disk = m_disk.get(), record, done = std::move(done)] {
        std::optional<ShotDocument> document;
        QString error;
        try {
            document = disk->open(record);
        } catch (const Error& e) {
            error = e.message();
            qCWarning(lcRecents, "Recent image not opened: %s", qPrintable(error));
        }
        QMetaObject::invokeMethod(
            this,
            [this, document, error, done] {
                ++m_completedVersion;
                done(document, error);
            },
            Qt::QueuedConnection);
    });
}

void ShotRecentStore::clear()
{
    m_revisions.clear();
    m_outSince.clear();
    submit("Clearing the recent images", [](ShotRecentDisk& disk) { disk.clear(); });
}

void ShotRecentStore::waitForDisk()
{
    m_queue->drain();
    QCoreApplication::sendPostedEvents(this);
}

void ShotRecentStore::submit(const char* what, std::function<void(ShotRecentDisk&)> work)
{
    const quint64 version = ++m_queueVersion;
    m_queue->post([this, disk = m_disk.get(), what, work = std::move(work), version] {
        Listing listing;
        try {
            work(*disk);
        } catch (const Error& error) {
            // One write failed (a full disk, a damaged entry): said, and the
            // store goes on with what it has.
            qCWarning(lcRecents, "%s failed: %s", what, qPrintable(error.message()));
        }
        try {
            listing.records = disk->load();
        } catch (const Error& error) {
            qCWarning(lcRecents, "Recent images not read: %s", qPrintable(error.message()));
        }
        for (qsizetype i = 0; i < std::min<qsizetype>(menuCount, listing.records.size()); ++i) {
            listing.thumbnails.insert(listing.records[i].id, disk->thumbnail(listing.records[i]));
        }
        QMetaObject::invokeMethod(
            this, [this, listing, version] { publish(listing, version); }, Qt::QueuedConnection);
    });
}

void ShotRecentStore::publish(const Listing& listing, quint64 version)
{
    m_completedVersion = std::max(m_completedVersion, version);
    // Newest first (the disk keeps them so); the menu holds five.
    m_records = listing.records;
    m_entries.clear();
    const QDateTime now = QDateTime::currentDateTime();
    QHash<QUuid, QImage> kept;
    for (qsizetype i = 0; i < m_records.size(); ++i) {
        const ShotRecentRecord& record = m_records[i];
        if (i < menuCount) {
            kept.insert(record.id, listing.thumbnails.value(record.id));
            m_entries.append({record, kept.value(record.id)});
            m_outSince.remove(record.id);
        } else if (!m_outSince.contains(record.id)) {
            m_outSince.insert(record.id, now);
        }
    }
    m_thumbnails = kept;
    // Revisions of entries beyond the five go; a capture still being
    // written is not listed yet and keeps its own.
    for (auto it = m_revisions.begin(); it != m_revisions.end();) {
        const bool beyond = !kept.contains(it.key()) &&
                            std::any_of(m_records.cbegin(), m_records.cend(),
                                        [&](const ShotRecentRecord& r) { return r.id == it.key(); });
        it = beyond ? m_revisions.erase(it) : std::next(it);
    }
    ++m_generation;
    emit changed();
}

void ShotRecentStore::prune()
{
    const QDateTime limit = QDateTime::currentDateTime().addSecs(-graceSeconds);
    QList<QUuid> expired;
    for (auto it = m_outSince.cbegin(); it != m_outSince.cend(); ++it) {
        if (it.value() <= limit) {
            expired.append(it.key());
        }
    }
    if (expired.isEmpty()) {
        return;
    }
    for (const QUuid& id : std::as_const(expired)) {
        m_outSince.remove(id);
    }
    submit("Removing older recent images", [expired](ShotRecentDisk& disk) { disk.remove(expired); });
}

} // namespace nubo
