#pragma once

#include "core/EnumStrings.h"

#include <QDateTime>
#include <QString>

#include <array>
#include <optional>

namespace nubo {

// Where uploads go: `auto` is S3 (the R2 destination: any S3-compatible
// bucket) when that is fully configured, else Filebin.
enum class ShotUploadDestination { auto_, r2, filebin };
template <> struct EnumNames<ShotUploadDestination> {
    static constexpr std::array names{"auto", "r2", "filebin"};
};

// How an upload that did not finish ended: `outcomeUnknown` when the whole
// request was sent and no answer came (the object may exist), `failed`
// when it certainly was not stored.
enum class ShotUploadError { outcomeUnknown, failed };
template <> struct EnumNames<ShotUploadError> {
    static constexpr std::array names{"outcomeUnknown", "failed"};
};

// An S3-compatible bucket. Everything but the secret, which lives in the
// desktop's keyring.
struct S3Settings {
    QString endpoint;      // "https://ACCOUNT.r2.cloudflarestorage.com", ports allowed
    QString region = QStringLiteral("auto");
    QString bucket;
    QString keyPrefix;     // put before the file name; a "/" is added between
    QString publicUrlBase; // empty: the object key is what the user gets
    QString accessKeyId;
    bool virtualHosted = false; // bucket in the host name instead of the path
    bool isComplete() const
    {
        return !endpoint.isEmpty() && !region.isEmpty() && !bucket.isEmpty() &&
               !accessKeyId.isEmpty();
    }
    bool operator==(const S3Settings&) const = default;
};

struct FilebinSettings {
    static constexpr char publicServer[] = "https://filebin.net";
    QString server = QLatin1String(publicServer);
    QString bin; // empty: a fresh random bin for every upload
    bool operator==(const FilebinSettings&) const = default;
};

struct UploadSettings {
    ShotUploadDestination destination = ShotUploadDestination::auto_;
    S3Settings s3;
    FilebinSettings filebin;
    // The destination an upload goes to now: never `auto_`.
    ShotUploadDestination effective() const
    {
        if (destination != ShotUploadDestination::auto_) {
            return destination;
        }
        return s3.isComplete() ? ShotUploadDestination::r2 : ShotUploadDestination::filebin;
    }
    bool operator==(const UploadSettings&) const = default;
};

// A finished upload: what the user gets (a link, or the object key where
// the bucket has no public address) and where the file now lives.
struct UploadReceipt {
    QString uploadId;
    ShotUploadDestination destination = ShotUploadDestination::filebin;
    QString location; // the Filebin bin or the S3 bucket
    QString key;      // the file's name in the bin, the object's key in the bucket
    QString link;     // empty when the bucket has no public address
    std::optional<QDateTime> leaseEnds; // when the service forgets the file
    // What goes on the clipboard.
    const QString& handle() const { return link.isEmpty() ? key : link; }
    bool operator==(const UploadReceipt&) const = default;
};

} // namespace nubo
