#pragma once

#include "upload/UploadTypes.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <memory>
#include <optional>

struct sqlite3;

namespace nubo {

// The store the suite's programs share, in "$XDG_DATA_HOME/NuboSharedGroup/":
// one SQLite database in WAL mode that several programs open at once.
//   configuration  upload destinations and their settings (never secrets)
//   file_uses      every uploaded file: hash, destination, key, link, lease
//   steps          every upload's steps, so an upload a crash cut short is
//                  told apart from a finished one at the next start
// A database that cannot be read is moved aside and made anew. One object
// per thread; SQLite serialises the writers of all processes (busy timeout).
class UploadStore {
public:
    static constexpr int schemaVersion = 1;
    static constexpr int busyTimeoutMs = 5000;

    // The steps of an upload. The last four end it.
    enum class Step { started, sending, sent, confirmed, failed, outcomeUnknown, cancelled, interrupted };

    struct FileUse {
        QString uploadId;
        QString contentSha256;
        QString fileName;
        qint64 bytes = 0;
        ShotUploadDestination destination = ShotUploadDestination::filebin;
        QString location;
        QString key;
        QString link;
        QDateTime uploadedAt;
        std::optional<QDateTime> leaseEnds;
        std::optional<QDateTime> deletedAt;
        bool operator==(const FileUse&) const = default;
    };

    // An upload whose last step does not end it and whose program is gone.
    struct Interrupted {
        QString uploadId;
        Step lastStep = Step::started;
        QString fileName;
        QDateTime at;
    };

    // Opens (or makes) the database at `path`; the default is the shared
    // group folder. Throws Error when even a fresh database cannot be made.
    explicit UploadStore(const QString& path = defaultPath());
    ~UploadStore();
    UploadStore(const UploadStore&) = delete;
    UploadStore& operator=(const UploadStore&) = delete;

    static QString defaultPath();
    const QString& path() const { return m_path; }
    // Where a database that could not be read was moved to; empty when none.
    const QString& movedAside() const { return m_movedAside; }

    // Upload settings (their non-secret part).
    UploadSettings settings(ShotUploadDestination chosen) const;
    void saveSettings(const S3Settings& s3, const FilebinSettings& filebin);

    // A new upload of a file; its first step is `started`, with this
    // process as its owner. Returns the upload's id.
    QString beginUpload(ShotUploadDestination destination, const QString& fileName,
                        const QString& contentSha256, qint64 bytes);
    void recordStep(const QString& uploadId, Step step, const QString& detail = {});
    // The upload succeeded: its file use and its `confirmed` step, at once.
    void recordFileUse(const FileUse& use);
    void markDeleted(const QString& uploadId);
    // The latest first.
    QList<FileUse> fileUses(int limit = 50) const;
    QList<std::pair<Step, QString>> steps(const QString& uploadId) const;

    // Uploads left unfinished by programs that are gone. Each is then given
    // the step `interrupted`, so it is reported once.
    QList<Interrupted> takeInterrupted();

private:
    void open();
    void exec(const char* sql) const;

    QString m_path;
    QString m_movedAside;
    sqlite3* m_db = nullptr;
};

template <> struct EnumNames<UploadStore::Step> {
    static constexpr std::array names{"started",  "sending",        "sent",      "confirmed",
                                      "failed",   "outcomeUnknown", "cancelled", "interrupted"};
};

} // namespace nubo
