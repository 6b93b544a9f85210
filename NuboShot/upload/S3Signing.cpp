#include "upload/S3Signing.h"

#include "core/Error.h"

#include <QCoreApplication>

#include <algorithm>
#include <openssl/evp.h>
#include <openssl/hmac.h>
#include <openssl/sha.h>

namespace nubo::s3 {

namespace {

QByteArray hmac(QByteArrayView key, QByteArrayView data)
{
    unsigned char out[EVP_MAX_MD_SIZE];
    unsigned int length = 0;
    HMAC(EVP_sha256(), key.data(), int(key.size()),
         reinterpret_cast<const unsigned char*>(data.data()), size_t(data.size()), out, &length);
    return QByteArray(reinterpret_cast<const char*>(out), int(length));
}

// "host" or "host:port", as the Host header carries it (no default port).
QByteArray hostHeader(const QUrl& url)
{
    QByteArray host = url.host(QUrl::FullyEncoded).toLatin1();
    if (host.contains(':')) {
        host = '[' + host + ']'; // IPv6
    }
    const int port = url.port();
    const bool defaultPort = port < 0 || (url.scheme() == QLatin1String("http") && port == 80) ||
                             (url.scheme() == QLatin1String("https") && port == 443);
    return defaultPort ? host : host + ':' + QByteArray::number(port);
}

} // namespace

QByteArray uriEncode(QByteArrayView bytes, bool encodeSlash)
{
    static constexpr char hex[] = "0123456789ABCDEF";
    QByteArray out;
    out.reserve(bytes.size() * 3);
    for (const char c : bytes) {
        const auto u = static_cast<unsigned char>(c);
        const bool unreserved = (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') ||
                                (u >= '0' && u <= '9') || u == '-' || u == '.' || u == '_' ||
                                u == '~';
        if (unreserved || (u == '/' && !encodeSlash)) {
            out.append(c);
        } else {
            out.append('%').append(hex[u >> 4]).append(hex[u & 15]);
        }
    }
    return out;
}

QByteArray sha256Hex(QByteArrayView bytes)
{
    unsigned char digest[SHA256_DIGEST_LENGTH];
    SHA256(reinterpret_cast<const unsigned char*>(bytes.data()), size_t(bytes.size()), digest);
    return QByteArray(reinterpret_cast<const char*>(digest), SHA256_DIGEST_LENGTH).toHex();
}

QString objectKey(const S3Settings& settings, const QString& fileName)
{
    QString prefix = settings.keyPrefix;
    while (prefix.startsWith(u'/')) {
        prefix.remove(0, 1);
    }
    if (!prefix.isEmpty() && !prefix.endsWith(u'/')) {
        prefix += u'/';
    }
    return prefix + fileName;
}

SignedRequest sign(const S3Settings& settings, const QByteArray& method, const QString& key,
                   const QByteArray& payloadSha256Hex, const QByteArray& contentType,
                   const QDateTime& when, const QString& secretAccessKey)
{
    QUrl endpoint(settings.endpoint.trimmed(), QUrl::StrictMode);
    if (!endpoint.isValid() || endpoint.host().isEmpty() ||
        (endpoint.scheme() != QLatin1String("http") && endpoint.scheme() != QLatin1String("https"))) {
        throw Error(QCoreApplication::translate(
                        "nubo::S3Signing", "The S3 endpoint “%1” is not an http or https address.")
                        .arg(settings.endpoint));
    }
    // The key is encoded once, here; the URL carries exactly these bytes.
    QByteArray basePath = endpoint.path(QUrl::FullyEncoded).toLatin1();
    while (basePath.endsWith('/')) {
        basePath.chop(1);
    }
    const QByteArray encodedKey = uriEncode(key.toUtf8(), false);
    QByteArray path;
    QByteArray authority;
    if (settings.virtualHosted) {
        endpoint.setHost(settings.bucket + u'.' + endpoint.host());
        path = basePath + '/' + encodedKey;
    } else {
        path = basePath + '/' + uriEncode(settings.bucket.toUtf8(), true) + '/' + encodedKey;
    }
    const QByteArray host = hostHeader(endpoint);
    const QByteArray origin = endpoint.scheme().toLatin1() + "://" + host;

    const QDateTime utc = when.toUTC();
    const QByteArray amzDate = utc.toString(QStringLiteral("yyyyMMdd'T'HHmmss'Z'")).toLatin1();
    const QByteArray day = amzDate.left(8);
    const QByteArray region = settings.region.toUtf8();
    const QByteArray scope = day + '/' + region + "/s3/aws4_request";

    QList<std::pair<QByteArray, QByteArray>> headers;
    if (!contentType.isEmpty()) {
        headers.append({"content-type", contentType});
    }
    headers.append({"host", host});
    headers.append({"x-amz-content-sha256", payloadSha256Hex});
    headers.append({"x-amz-date", amzDate});
    QByteArray canonicalHeaders;
    QByteArray signedHeaders;
    for (const auto& [name, value] : headers) {
        canonicalHeaders += name + ':' + value.trimmed() + '\n';
        signedHeaders += (signedHeaders.isEmpty() ? "" : ";") + name;
    }

    SignedRequest request;
    request.method = method;
    request.canonicalRequest = method + '\n' + path + "\n\n" + canonicalHeaders + '\n' +
                               signedHeaders + '\n' + payloadSha256Hex;
    request.stringToSign = "AWS4-HMAC-SHA256\n" + amzDate + '\n' + scope + '\n' +
                           sha256Hex(request.canonicalRequest);
    const QByteArray dateKey = hmac("AWS4" + secretAccessKey.toUtf8(), day);
    const QByteArray signingKey = hmac(hmac(hmac(dateKey, region), "s3"), "aws4_request");
    const QByteArray signature = hmac(signingKey, request.stringToSign).toHex();

    request.url = QUrl::fromEncoded(origin + path, QUrl::StrictMode);
    request.headers = headers;
    request.headers.removeIf([](const auto& header) { return header.first == "host"; });
    request.headers.append(
        {"authorization", "AWS4-HMAC-SHA256 Credential=" + settings.accessKeyId.toUtf8() + '/' +
                              scope + ", SignedHeaders=" + signedHeaders +
                              ", Signature=" + signature});
    return request;
}

QString publicLink(const S3Settings& settings, const QString& key)
{
    if (settings.publicUrlBase.trimmed().isEmpty()) {
        return {};
    }
    QString base = settings.publicUrlBase.trimmed();
    while (base.endsWith(u'/')) {
        base.chop(1);
    }
    return base + u'/' + QString::fromLatin1(uriEncode(key.toUtf8(), false));
}

} // namespace nubo::s3
