#include "upload/Uploader.h"

#include "core/Logging.h"
#include "upload/S3Signing.h"
#include "upload/UploadSecrets.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTimer>

#include <cstring>
#include <mutex>

namespace nubo {

namespace {

// The body, readable once. Qt Network sends a request again on its own when
// the connection closes before an answer; for an upload that would store
// the file twice behind the user's back. A body that cannot be rewound
// makes that a ContentReSendError instead, which is ours to judge.
class OnceBody : public QIODevice {
public:
    explicit OnceBody(const QByteArray& bytes) : m_bytes(bytes)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }
    qint64 size() const override { return m_bytes.size(); }
    bool reset() override { return pos() == 0; }
    bool seek(qint64 to) override { return to == pos() && QIODevice::seek(to); }

protected:
    qint64 readData(char* data, qint64 size) override
    {
        const qint64 n = std::max<qint64>(0, std::min(size, qint64(m_bytes.size()) - pos()));
        std::memcpy(data, m_bytes.constData() + pos(), size_t(n));
        return n;
    }
    qint64 writeData(const char*, qint64) override { return -1; }

private:
    const QByteArray& m_bytes;
};

// Filebin keeps files this long unless it says otherwise.
constexpr qint64 filebinDefaultLeaseDays = 6;

QString randomBin()
{
    static constexpr char alphabet[] = "abcdefghijklmnopqrstuvwxyz0123456789";
    QString bin;
    for (int i = 0; i < 16; ++i) {
        bin += QLatin1Char(alphabet[QRandomGenerator::system()->bounded(36)]);
    }
    return bin;
}

QString trimmedServer(const QString& server)
{
    QString s = server.trimmed();
    while (s.endsWith(u'/')) {
        s.chop(1);
    }
    return s;
}

// The service's own words on a refusal: S3's <Code> and <Message>, a JSON
// "message" or "error", else the start of the text.
QString serviceMessage(const QByteArray& body)
{
    const auto tag = [&](const char* name) {
        const QRegularExpression re(QStringLiteral("<%1>([^<]*)</%1>").arg(QLatin1String(name)));
        return re.match(QString::fromUtf8(body)).captured(1).trimmed();
    };
    if (const QString message = tag("Message"); !message.isEmpty()) {
        const QString code = tag("Code");
        return code.isEmpty() ? message : code + QStringLiteral(": ") + message;
    }
    const QJsonObject json = QJsonDocument::fromJson(body).object();
    for (const char* key : {"message", "error", "detail"}) {
        if (json.value(QLatin1String(key)).isString()) {
            return json.value(QLatin1String(key)).toString();
        }
    }
    QString text = QString::fromUtf8(body).simplified();
    if (text.size() > 200) {
        text = text.left(200) + u'\u2026';
    }
    return text;
}

} // namespace

// The request under way, reachable from cancel() on another thread.
struct Uploader::Exchange {
    QNetworkReply* reply = nullptr;
};

Uploader::Uploader(UploadRequest request, QString storePath)
    : m_request(std::move(request)), m_storePath(std::move(storePath))
{}

Uploader::~Uploader() = default;

void Uploader::cancel()
{
    m_cancelled = true;
    if (Exchange* exchange = m_exchange.load(); exchange && exchange->reply) {
        QMetaObject::invokeMethod(exchange->reply, &QNetworkReply::abort, Qt::QueuedConnection);
    }
}

UploadReceipt Uploader::run()
{
    const ShotUploadDestination destination = m_request.settings.effective();
    const QString destinationName =
        destination == ShotUploadDestination::r2 ? QStringLiteral("R2") : QStringLiteral("Filebin");
    QElapsedTimer clock;
    clock.start();

    // The store is the history, not the upload: without it the upload still goes.
    std::unique_ptr<UploadStore> store;
    try {
        store = std::make_unique<UploadStore>(m_storePath);
    } catch (const Error& error) {
        qCWarning(lcUpload, "Uploading without the shared store: %s", qUtf8Printable(error.message()));
    }
    const QString hash = QString::fromLatin1(s3::sha256Hex(m_request.bytes));
    QString id;
    const auto record = [&](UploadStore::Step step, const QString& detail = {}) {
        if (store && !id.isEmpty()) {
            try {
                store->recordStep(id, step, detail);
            } catch (const Error& error) {
                qCWarning(lcUpload, "Upload step not recorded: %s", qUtf8Printable(error.message()));
            }
        }
    };
    if (store) {
        try {
            id = store->beginUpload(destination, m_request.fileName, hash, m_request.bytes.size());
        } catch (const Error& error) {
            qCWarning(lcUpload, "Upload not recorded: %s", qUtf8Printable(error.message()));
        }
    }
    const auto fail = [&](ShotUploadError kind, const QString& message, bool cancelled = false) {
        record(cancelled ? UploadStore::Step::cancelled
               : kind == ShotUploadError::outcomeUnknown ? UploadStore::Step::outcomeUnknown
                                                         : UploadStore::Step::failed,
               message);
        qCWarning(lcUpload, "Upload to %s %s: %s", qUtf8Printable(destinationName),
                  cancelled ? "cancelled" : qUtf8Printable(toString(kind)), qUtf8Printable(message));
        return UploadFailure(kind, message, cancelled, id);
    };

    UploadReceipt receipt;
    receipt.uploadId = id;
    receipt.destination = destination;
    QNetworkRequest request;
    QByteArray method = "PUT";
    if (destination == ShotUploadDestination::r2) {
        const S3Settings& s3 = m_request.settings.s3;
        if (!s3.isComplete()) {
            throw fail(ShotUploadError::failed,
                       QCoreApplication::translate(
                           "nubo::Uploader",
                           "The S3 destination is not set up: give its endpoint, "
                           "region, bucket and access key id in the Uploads settings."));
        }
        QString secret = m_request.s3Secret;
        if (secret.isEmpty()) {
            try {
                secret = uploadSecrets::s3Secret(s3.accessKeyId).value_or(QString());
            } catch (const Error& error) {
                throw fail(ShotUploadError::failed, error.message());
            }
            if (secret.isEmpty()) {
                throw fail(ShotUploadError::failed,
                           QCoreApplication::translate(
                               "nubo::Uploader",
                               "The keyring holds no S3 secret for the access key id "
                               "“%1”: enter it in the Uploads settings.")
                               .arg(s3.accessKeyId));
            }
        }
        receipt.location = s3.bucket;
        receipt.key = s3::objectKey(s3, m_request.fileName);
        receipt.link = s3::publicLink(s3, receipt.key);
        s3::SignedRequest signedRequest;
        try {
            signedRequest = s3::sign(s3, method, receipt.key, hash.toLatin1(), m_request.contentType,
                                     QDateTime::currentDateTimeUtc(), secret);
        } catch (const Error& error) {
            throw fail(ShotUploadError::failed, error.message());
        }
        request.setUrl(signedRequest.url);
        for (const auto& [name, value] : signedRequest.headers) {
            request.setRawHeader(name, value);
        }
    } else {
        const FilebinSettings& filebin = m_request.settings.filebin;
        receipt.location = filebin.bin.trimmed().isEmpty() ? randomBin() : filebin.bin.trimmed();
        receipt.key = m_request.fileName;
        const QByteArray url = trimmedServer(filebin.server).toUtf8() + '/' +
                               s3::uriEncode(receipt.location.toUtf8(), true) + '/' +
                               s3::uriEncode(receipt.key.toUtf8(), true);
        request.setUrl(QUrl::fromEncoded(url, QUrl::StrictMode));
        if (!request.url().isValid() || request.url().host().isEmpty()) {
            throw fail(ShotUploadError::failed,
                       QCoreApplication::translate(
                           "nubo::Uploader", "The Filebin server “%1” is not an http or https "
                                             "address.")
                           .arg(filebin.server));
        }
        request.setHeader(QNetworkRequest::ContentTypeHeader, m_request.contentType);
        receipt.link = QString::fromUtf8(url);
    }
    request.setAttribute(QNetworkRequest::Http2AllowedAttribute, false);
    request.setTransferTimeout(answerTimeoutMs);
    if (m_cancelled) {
        throw fail(ShotUploadError::failed,
                   QCoreApplication::translate("nubo::Uploader", "The upload was cancelled."),
                   true);
    }

    QNetworkAccessManager network;
    network.setRedirectPolicy(QNetworkRequest::ManualRedirectPolicy);
    Exchange exchange;
    QEventLoop loop;
    record(UploadStore::Step::sending, request.url().toString(QUrl::RemoveUserInfo));
    request.setHeader(QNetworkRequest::ContentLengthHeader, m_request.bytes.size());
    OnceBody body(m_request.bytes);
    QNetworkReply* reply = network.sendCustomRequest(request, method, &body);
    exchange.reply = reply;
    m_exchange = &exchange;
    bool bodySent = false;
    QObject::connect(reply, &QNetworkReply::uploadProgress, reply, [&](qint64 sent, qint64 total) {
        if (progress) {
            progress(sent, total);
        }
        if (total > 0 && sent == total && !bodySent) {
            bodySent = true;
            record(UploadStore::Step::sent);
        }
    });
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    if (m_cancelled) {
        reply->abort();
    }
    if (!reply->isFinished()) {
        loop.exec();
    }
    m_exchange = nullptr;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QByteArray answer = reply->isOpen() ? reply->readAll() : QByteArray();
    const QNetworkReply::NetworkError error = reply->error();
    const QString errorText = error == QNetworkReply::ContentReSendError
                                  ? QStringLiteral("the connection closed without an answer")
                                  : reply->errorString();
    reply->deleteLater();

    if (m_cancelled) {
        throw fail(bodySent ? ShotUploadError::outcomeUnknown : ShotUploadError::failed,
                   QCoreApplication::translate("nubo::Uploader", "The upload was cancelled."),
                   true);
    }
    if (status == 0) {
        // No answer at all: once the whole file was out, the service may
        // have stored it before the line went quiet.
        throw fail(
            bodySent ? ShotUploadError::outcomeUnknown : ShotUploadError::failed,
            bodySent ? QStringLiteral("%1 did not answer after the file was sent (%2).")
                           .arg(destinationName, errorText)
                     : QCoreApplication::translate("nubo::Uploader", "The upload to %1 failed: %2.")
                           .arg(destinationName, errorText));
    }
    const bool stored = destination == ShotUploadDestination::r2 ? (status >= 200 && status < 300)
                                                                  : (status == 200 || status == 201);
    if (!stored || error != QNetworkReply::NoError) {
        const QString message = serviceMessage(answer);
        throw fail(ShotUploadError::failed,
                   QStringLiteral("%1 refused the upload (HTTP %2)%3")
                       .arg(destinationName)
                       .arg(status)
                       .arg(message.isEmpty() ? QStringLiteral(".") : QStringLiteral(": ") + message));
    }
    if (destination == ShotUploadDestination::filebin) {
        const QJsonObject bin = QJsonDocument::fromJson(answer).object().value(QLatin1String("bin")).toObject();
        QDateTime expires = QDateTime::fromString(bin.value(QLatin1String("expired_at")).toString(),
                                                  Qt::ISODateWithMs);
        if (!expires.isValid()) {
            expires = QDateTime::currentDateTimeUtc().addDays(filebinDefaultLeaseDays);
        }
        receipt.leaseEnds = expires.toUTC();
    }
    if (store && !id.isEmpty()) {
        try {
            store->recordFileUse({id, hash, m_request.fileName, m_request.bytes.size(), destination,
                                  receipt.location, receipt.key, receipt.link,
                                  QDateTime::currentDateTimeUtc(), receipt.leaseEnds, std::nullopt});
        } catch (const Error& error) {
            qCWarning(lcUpload, "Upload not kept in the history: %s", qUtf8Printable(error.message()));
        }
    }
    qCInfo(lcUpload, "Upload to %s finished in %lld ms bytes=%lld", qUtf8Printable(destinationName),
           qint64(clock.elapsed()), qint64(m_request.bytes.size()));
    return receipt;
}

void Uploader::deleteFromFilebin(const UploadStore::FileUse& use, const QString& server,
                                 const QString& storePath)
{
    if (use.destination != ShotUploadDestination::filebin) {
        throw Error(QCoreApplication::translate("nubo::Uploader",
                                                "Only Filebin uploads can be deleted from here."));
    }
    QNetworkAccessManager network;
    QNetworkRequest request(QUrl::fromEncoded(trimmedServer(server).toUtf8() + '/' +
                                                  s3::uriEncode(use.location.toUtf8(), true) + '/' +
                                                  s3::uriEncode(use.key.toUtf8(), true),
                                              QUrl::StrictMode));
    request.setTransferTimeout(answerTimeoutMs);
    QEventLoop loop;
    QNetworkReply* reply = network.deleteResource(request);
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    loop.exec();
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    const QByteArray body = reply->readAll();
    const QString errorText = reply->errorString();
    delete reply;
    if (status == 0) {
        throw Error(
            QCoreApplication::translate("nubo::Uploader", "Filebin could not be reached: %1.")
                .arg(errorText));
    }
    // Gone already is as good as deleted.
    if (status != 200 && status != 204 && status != 404) {
        const QString message = serviceMessage(body);
        throw Error(QStringLiteral("Filebin refused to delete the file (HTTP %1)%2")
                        .arg(status)
                        .arg(message.isEmpty() ? QStringLiteral(".") : QStringLiteral(": ") + message));
    }
    UploadStore(storePath).markDeleted(use.uploadId);
}

} // namespace nubo
