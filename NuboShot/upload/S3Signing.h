#pragma once

#include "upload/UploadTypes.h"

#include <QByteArray>
#include <QDateTime>
#include <QList>
#include <QUrl>

#include <utility>

namespace nubo {

// AWS Signature Version 4 for S3-compatible services, header-signed.
namespace s3 {

// RFC 3986 encoding as S3 wants it: every byte but A-Z a-z 0-9 - . _ ~
// as %XX (upper case); "/" kept unless `encodeSlash`.
QByteArray uriEncode(QByteArrayView bytes, bool encodeSlash);
QByteArray sha256Hex(QByteArrayView bytes);

// The object key of a file name under the settings' prefix.
QString objectKey(const S3Settings& settings, const QString& fileName);

// A request to send: where, and every header it must carry.
struct SignedRequest {
    QByteArray method;
    QUrl url;
    QList<std::pair<QByteArray, QByteArray>> headers;
    // The steps, for tests and logs (never the key or signature inputs).
    QByteArray canonicalRequest;
    QByteArray stringToSign;
};

// Signs `method` on the object `key` with the payload's SHA-256 (hex) and
// content type (may be empty), at `when` (UTC). Throws Error when the
// endpoint is not an http(s) address.
SignedRequest sign(const S3Settings& settings, const QByteArray& method, const QString& key,
                   const QByteArray& payloadSha256Hex, const QByteArray& contentType,
                   const QDateTime& when, const QString& secretAccessKey);

// The public link of an object, when the settings have a public base.
QString publicLink(const S3Settings& settings, const QString& key);

} // namespace s3
} // namespace nubo
