#pragma once

#include "core/Error.h"
#include "upload/UploadStore.h"
#include "upload/UploadTypes.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <memory>

namespace nubo {

// An upload that did not end with the file stored.
class UploadFailure : public Error {
public:
    UploadFailure(ShotUploadError kind, QString message, bool cancelled = false,
                  QString uploadId = {})
        : Error(std::move(message)), m_kind(kind), m_cancelled(cancelled),
          m_uploadId(std::move(uploadId))
    {}
    ShotUploadError kind() const { return m_kind; }
    bool cancelled() const { return m_cancelled; }
    // The upload's id in the shared store; empty when it was not recorded.
    const QString& uploadId() const { return m_uploadId; }

private:
    ShotUploadError m_kind;
    bool m_cancelled;
    QString m_uploadId;
};

struct UploadRequest {
    QByteArray bytes;
    QString fileName;
    QByteArray contentType = "image/png";
    UploadSettings settings;
    // The S3 secret; when empty it is read from the keyring.
    QString s3Secret;
};

// One upload, to Filebin or an S3 bucket, over Qt Network. run() blocks
// until it ends: call it on a worker thread (it runs its own event loop
// there). Each step is written to the shared store as it happens.
class Uploader {
public:
    static constexpr int answerTimeoutMs = 60000;

    explicit Uploader(UploadRequest request, QString storePath = UploadStore::defaultPath());
    ~Uploader();

    // The body, when it is read only on the worker thread.
    void setBytes(QByteArray bytes) { m_request.bytes = std::move(bytes); }
    // Bytes of the body sent so far; on the worker thread.
    std::function<void(qint64 sent, qint64 total)> progress;

    // The receipt; throws UploadFailure (also for a cancel).
    UploadReceipt run();
    // From any thread: the upload stops as soon as it can.
    void cancel();

    // Removes a Filebin upload from its bin (where the service allows it);
    // blocks like run(). Throws Error with the service's answer.
    static void deleteFromFilebin(const UploadStore::FileUse& use, const QString& server,
                                  const QString& storePath = UploadStore::defaultPath());

private:
    struct Exchange;
    UploadRequest m_request;
    QString m_storePath;
    std::atomic<bool> m_cancelled{false};
    std::atomic<Exchange*> m_exchange{nullptr};
};

} // namespace nubo
