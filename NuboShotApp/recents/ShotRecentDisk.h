#pragma once

#include "document/ShotDocument.h"
#include "recents/ShotRecentRecord.h"

#include <QHash>
#include <QImage>
#include <QList>

namespace nubo {

class ShotRenderer;

// The files of the recent images, under one root: "index.json", and one
// folder an entry under "shots" (captures: a shot archive) or "copied"
// (clipboard images: the image as copied), each with "thumbnail.png" and its
// own "record.json" (from which a lost index is rebuilt). Every file is
// written under a fresh name beside its place and moved in. Used from one
// thread at a time (the store's disk thread).
class ShotRecentDisk {
public:
    struct Index {
        int version = 1;
        QList<ShotRecentRecord> entries;
        bool operator==(const Index&) const = default;
    };
    static constexpr int indexVersion = 1;
    static constexpr int thumbnailSide = 100; // pixels
    static constexpr qint64 maximumBytes = 200'000'000;
    static constexpr qint64 maximumPixels = 100'000'000;

    ShotRecentDisk(QString root, ShotRenderer& renderer);

    // $XDG_DATA_HOME/NuboShot/Recent.
    static QString defaultRoot();

    // The records, newest first, read once: from "index.json", or, when it
    // is missing or damaged, from the entries' own records. Entries whose
    // files are damaged are dropped (and their folders removed) with a log
    // line.
    QList<ShotRecentRecord> load();
    const QList<ShotRecentRecord>& records() const { return m_records; }

    // A capture as a shot archive with its thumbnail, added to the index.
    ShotRecentRecord addCapture(const QUuid& id, const ShotDocument& document,
                                const QString& mode, const QDateTime& date);
    // The capture's archive and thumbnail replaced by an edited document.
    // Throws missingEntry when the entry is gone.
    ShotRecentRecord updateCapture(const QUuid& id, const ShotDocument& document);
    // An image copied elsewhere. Throws invalidImage for what is not an
    // image within the limits.
    ShotRecentRecord addCopied(const ShotRecentImagePayload& payload,
                               const std::optional<QString>& sourceApp, const QDateTime& date);

    QImage thumbnail(const ShotRecentRecord& record) const;
    // The entry as a document to edit: the archive of a capture (annotations
    // editable), the image of a copied entry.
    ShotDocument open(const ShotRecentRecord& record) const;
    void remove(const QList<QUuid>& ids);
    void clear();

    // The entry's folder, standardised and resolved through links; throws
    // corruptEntry when it would lie outside "shots" or "copied".
    QString entryFolder(const ShotRecentRecord& record) const;

    // The square thumbnail of an image: filled, centred across, from the top
    // down (a tall page shows its top).
    static QImage drawThumbnail(const QImage& image);
    // Whether the bytes are an image within the limits; throws invalidImage.
    static QImage decodeCopied(const QByteArray& bytes, QByteArray* format = nullptr);

    const QHash<QUuid, QString>& captureHashes() const { return m_captureHashes; }

private:
    void writeIndex();
    std::optional<QList<ShotRecentRecord>> readIndex() const;
    QList<ShotRecentRecord> rebuild() const;
    bool entryIsWhole(const ShotRecentRecord& record) const;
    QString prepareFolder(const ShotRecentRecord& record);
    void writeRecordFiles(const ShotRecentRecord& record, const QString& folder,
                          const QImage& thumbnail);
    QImage thumbnailOf(const ShotDocument& document) const;

    QString m_root;
    QString m_resolvedRoot;
    ShotRenderer& m_renderer;
    QList<ShotRecentRecord> m_records; // newest first
    bool m_didLoad = false;
    QHash<QUuid, QString> m_captureHashes;
};

} // namespace nubo
