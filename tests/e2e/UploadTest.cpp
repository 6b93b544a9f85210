// Uploads against real servers in the test session: s3rver for S3 (behind
// a front that checks Signature Version 4 with botocore), a local server speaking Filebin's protocol,
// gnome-keyring for the secret, and the shared SQLite store on disk.
#include "support/FilebinServer.h"
#include "support/Process.h"
#include "support/TrayFixture.h"
#include "upload/S3Signing.h"
#include "upload/UploadSecrets.h"
#include "upload/UploadStore.h"
#include "upload/Uploader.h"

#include <QDir>
#include <QDirIterator>
#include <QEventLoop>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QProcess>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QThread>

#include <future>
#include <gtest/gtest.h>

namespace nubo {
namespace {

// s3rver's own account.
constexpr char accessKeyId[] = "S3RVER";
constexpr char secretKey[] = "S3RVER";

// s3rver on a free port with the bucket "shots", for one test, behind a
// front that checks every request's Signature Version 4 as S3 does (s3rver
// only parses it).
class S3Server {
public:
    S3Server()
    {
        const int storage = start(m_storage, QStringLiteral("node"),
                                  {QStringLiteral(NUBOSHOT_S3RVER), "-d", m_data.path(), "-a",
                                   "127.0.0.1", "-p", "0", "--configure-bucket", "shots"});
        if (storage != 0) {
            m_port = start(m_front, QStringLiteral("/usr/bin/python3"),
                           {QStringLiteral(NUBOSHOT_S3_VERIFIER), QString::number(storage),
                            QLatin1String(accessKeyId), QLatin1String(secretKey)});
        }
    }
    ~S3Server()
    {
        for (QProcess* p : {&m_front, &m_storage}) {
            p->kill();
            p->waitForFinished();
        }
    }
    QString endpoint() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_port); }
    S3Settings settings() const
    {
        S3Settings s3;
        s3.endpoint = endpoint();
        s3.region = QStringLiteral("us-east-1");
        s3.bucket = QStringLiteral("shots");
        s3.accessKeyId = QLatin1String(accessKeyId);
        return s3;
    }
    // The object as the server gives it back (a signed GET).
    QByteArray get(const QString& key, int* status = nullptr) const
    {
        const s3::SignedRequest request =
            s3::sign(settings(), "GET", key, s3::sha256Hex(""), {}, QDateTime::currentDateTimeUtc(),
                     QLatin1String(secretKey));
        QNetworkAccessManager network;
        QNetworkRequest get(request.url);
        for (const auto& [name, value] : request.headers) {
            get.setRawHeader(name, value);
        }
        QNetworkReply* reply = network.get(get);
        QEventLoop loop;
        QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        loop.exec();
        if (status) {
            *status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        }
        const QByteArray body = reply->readAll();
        delete reply;
        return body;
    }

private:
    // The port a server says it listens on; 0 (and a failure) when it does not.
    static int start(QProcess& process, const QString& program, const QStringList& arguments)
    {
        process.start(program, arguments);
        QByteArray said;
        const QRegularExpression listening(QStringLiteral("listening on 127\\.0\\.0\\.1:(\\d+)"));
        for (int i = 0; i < 100; ++i) {
            process.waitForReadyRead(100);
            said += process.readAllStandardOutput();
            const auto match = listening.match(QString::fromUtf8(said));
            if (match.hasMatch()) {
                return match.captured(1).toInt();
            }
        }
        ADD_FAILURE() << program.toStdString() << " did not start: " << said.toStdString()
                      << process.readAllStandardError().toStdString();
        return 0;
    }

    QTemporaryDir m_data;
    QProcess m_storage;
    QProcess m_front;
    int m_port = 0;
};

QByteArray randomBytes(qsizetype size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    QRandomGenerator random(size);
    random.fillRange(reinterpret_cast<quint32*>(bytes.data()), size / 4);
    return bytes;
}

QString storePath()
{
    return UploadStore::defaultPath();
}

// Our signatures equal botocore's for the same requests, over keys that
// need encoding, regions, ports and both URL styles.
TEST(Upload, SignaturesEqualBotocoresForTheSameRequests)
{
    const struct {
        const char* endpoint;
        const char* region;
        const char* key;
        bool virtualHosted;
    } cases[] = {
        {"http://127.0.0.1:4568", "us-east-1", "shot.png", false},
        {"http://localhost:9000", "auto", "Screenshot 2026-11-24 at 10.00.00.png", false},
        {"https://abc123.r2.cloudflarestorage.com", "auto", "a+b/c%d/e=f&g.png", false},
        {"https://s3.eu-central-1.amazonaws.com", "eu-central-1", "nested/deeper/\u00fcber \u65e5\u672c.png", true},
        {"https://minio.example.org:9443", "us-west-2", "x~y_z-1.2/(copy) [2].png", true},
        {"http://s3.example.com:8080", "ap-south-1", "emoji \U0001F600/#hash?.png", false},
    };
    QJsonArray requests;
    QList<s3::SignedRequest> ours;
    const QDateTime when = QDateTime::fromString(QStringLiteral("2026-11-24T09:30:15Z"), Qt::ISODate);
    for (const auto& c : cases) {
        S3Settings s3;
        s3.endpoint = QLatin1String(c.endpoint);
        s3.region = QLatin1String(c.region);
        s3.bucket = QStringLiteral("shots");
        s3.accessKeyId = QStringLiteral("AKIDEXAMPLE");
        s3.virtualHosted = c.virtualHosted;
        const QString key = QString::fromUtf8(c.key);
        ours.append(s3::sign(s3, "PUT", key, s3::sha256Hex("payload"), "image/png", when,
                             QStringLiteral("wJalrXUtnFEMI/K7MDENG+bPxRfiCYEXAMPLEKEY")));
        requests.append(QJsonObject{{"endpoint", s3.endpoint}, {"region", s3.region},
                                    {"bucket", s3.bucket}, {"key", key},
                                    {"accessKeyId", s3.accessKeyId},
                                    {"secret", "wJalrXUtnFEMI/K7MDENG+bPxRfiCYEXAMPLEKEY"},
                                    {"virtualHosted", c.virtualHosted},
                                    {"amzDate", "20261124T093015Z"}, {"body", "payload"},
                                    {"contentType", "image/png"}});
    }
    QProcess botocore;
    botocore.start(QStringLiteral("/usr/bin/python3"), {QStringLiteral(NUBOSHOT_BOTOCORE_SIGN)});
    botocore.write(QJsonDocument(requests).toJson());
    botocore.closeWriteChannel();
    ASSERT_TRUE(botocore.waitForFinished(30000));
    ASSERT_EQ(botocore.exitCode(), 0) << botocore.readAllStandardError().toStdString();
    const QJsonArray theirs = QJsonDocument::fromJson(botocore.readAllStandardOutput()).array();
    ASSERT_EQ(theirs.size(), requests.size());
    for (qsizetype i = 0; i < theirs.size(); ++i) {
        SCOPED_TRACE(cases[i].key);
        QByteArray authorization;
        for (const auto& [name, value] : ours[i].headers) {
            if (name == "authorization") {
                authorization = value;
            }
        }
        EXPECT_EQ(QString::fromLatin1(ours[i].url.toEncoded()), theirs[i][QLatin1String("url")].toString());
        EXPECT_EQ(QString::fromLatin1(authorization), theirs[i][QLatin1String("authorization")].toString())
            << ours[i].canonicalRequest.toStdString();
    }
}

// Uploads land byte for byte under keys that need encoding; a wrong secret
// is refused with the server's reason; the command line prints the key, or
// the link where the bucket has a public address.
TEST(Upload, S3ObjectsLandByteIdenticalUnderTheirKeys)
{
    S3Server server;
    const QByteArray bytes = randomBytes(300'000);
    const struct {
        const char* prefix;
        const char* fileName;
    } cases[] = {
        {"", "plain.png"},
        {"shots/2026", "with space.png"},
        {"a/b/c/", "plus+percent%25 and & more.png"},
        {"\u00fcnicode", "\u65e5\u672c\u8a9e \U0001F600.png"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.fileName);
        UploadRequest request;
        request.bytes = bytes;
        request.fileName = QString::fromUtf8(c.fileName);
        request.settings.destination = ShotUploadDestination::r2;
        request.settings.s3 = server.settings();
        request.settings.s3.keyPrefix = QString::fromUtf8(c.prefix);
        request.s3Secret = QLatin1String(secretKey);
        const UploadReceipt receipt = Uploader(request).run();
        EXPECT_EQ(receipt.key, s3::objectKey(request.settings.s3, request.fileName));
        EXPECT_TRUE(receipt.link.isEmpty());
        EXPECT_EQ(receipt.handle(), receipt.key);
        int status = 0;
        EXPECT_EQ(server.get(receipt.key, &status), bytes) << "HTTP " << status;
    }

    UploadRequest wrong;
    wrong.bytes = bytes;
    wrong.fileName = QStringLiteral("refused.png");
    wrong.settings.destination = ShotUploadDestination::r2;
    wrong.settings.s3 = server.settings();
    wrong.s3Secret = QStringLiteral("not the secret");
    try {
        Uploader(wrong).run();
        ADD_FAILURE() << "a wrong secret was accepted";
    } catch (const UploadFailure& failure) {
        EXPECT_EQ(failure.kind(), ShotUploadError::failed);
        EXPECT_TRUE(failure.message().contains(u"SignatureDoesNotMatch")) << failure.what();
    }

    // Through the command line: the settings in the shared store, the
    // secret in the keyring; the link when there is a public base.
    S3Settings s3 = server.settings();
    s3.keyPrefix = QStringLiteral("cli");
    UploadStore(storePath()).saveSettings(s3, {});
    uploadSecrets::storeS3Secret(QLatin1String(accessKeyId), QLatin1String(secretKey));
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("From the shell.png"));
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes);
    out.close();
    test::ProcessResult r = test::runNuboShot({"upload", file});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(r.out.trimmed(), QStringLiteral("cli/From the shell.png"));
    EXPECT_EQ(server.get(QStringLiteral("cli/From the shell.png")), bytes);
    s3.publicUrlBase = QStringLiteral("https://shots.example.com/");
    UploadStore(storePath()).saveSettings(s3, {});
    r = test::runNuboShot({"upload", file, "--destination", "auto"});
    ASSERT_EQ(r.exitCode, 0) << r.err.toStdString();
    EXPECT_EQ(r.out.trimmed(), QStringLiteral("https://shots.example.com/cli/From%20the%20shell.png"));
    const QList<UploadStore::FileUse> uses = UploadStore(storePath()).fileUses();
    ASSERT_GE(uses.size(), 2);
    EXPECT_EQ(uses.first().link, QStringLiteral("https://shots.example.com/cli/From%20the%20shell.png"));
    EXPECT_EQ(uses.first().destination, ShotUploadDestination::r2);
    EXPECT_EQ(uses.first().contentSha256, QString::fromLatin1(s3::sha256Hex(bytes)));
}

// Filebin's protocol, also when it refuses, goes quiet after the body, or
// the user cancels.
TEST(Upload, FilebinAnswersRefusalsSilenceAndCancelEachEndAsTheyShould)
{
    test::FilebinServer server;
    const auto request = [&] {
        UploadRequest r;
        r.bytes = randomBytes(200'000);
        r.fileName = QStringLiteral("Shot 1.png");
        r.settings.destination = ShotUploadDestination::filebin;
        r.settings.filebin.server = server.address();
        return r;
    };
    // Stored: the link names the bin and the file; the lease is Filebin's expiry.
    const UploadReceipt receipt = Uploader(request()).run();
    EXPECT_EQ(receipt.link, server.address() + u'/' + receipt.location + QStringLiteral("/Shot%201.png"));
    EXPECT_TRUE(QRegularExpression(QStringLiteral("^[a-z0-9]{16}$")).match(receipt.location).hasMatch());
    EXPECT_EQ(receipt.leaseEnds, QDateTime::fromString(QLatin1String(test::FilebinServer::expiry), Qt::ISODate));
    ASSERT_EQ(server.received().size(), 1);
    EXPECT_EQ(server.received().first().method, "PUT");
    EXPECT_EQ(server.received().first().body, request().bytes);
    EXPECT_EQ(server.received().first().contentType, "image/png");

    const struct {
        const char* name;
        test::FilebinServer::Mode mode;
        bool cancel;
        ShotUploadError kind;
        UploadStore::Step lastStep;
        const char* says;
    } cases[] = {
        {"refused", test::FilebinServer::Mode::refused, false, ShotUploadError::failed,
         UploadStore::Step::failed, test::FilebinServer::refusal},
        {"dropped after the body", test::FilebinServer::Mode::dropAfterBody, false,
         ShotUploadError::outcomeUnknown, UploadStore::Step::outcomeUnknown, "did not answer"},
        {"cancelled while waiting", test::FilebinServer::Mode::silent, true,
         ShotUploadError::outcomeUnknown, UploadStore::Step::cancelled, "cancelled"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        server.setMode(c.mode);
        const qsizetype before = server.received().size();
        Uploader uploader(request());
        std::promise<void> sent;
        bool once = false;
        uploader.progress = [&](qint64 done, qint64 total) {
            if (done == total && !std::exchange(once, true)) {
                sent.set_value();
            }
        };
        auto result = std::async(std::launch::async, [&] { return uploader.run(); });
        if (c.cancel) {
            ASSERT_EQ(sent.get_future().wait_for(std::chrono::seconds(20)), std::future_status::ready);
            QThread::msleep(200);
            uploader.cancel();
        }
        ASSERT_EQ(result.wait_for(std::chrono::seconds(30)), std::future_status::ready);
        try {
            result.get();
            ADD_FAILURE() << "no failure";
        } catch (const UploadFailure& failure) {
            EXPECT_EQ(failure.kind(), c.kind);
            EXPECT_EQ(failure.cancelled(), c.cancel);
            EXPECT_TRUE(failure.message().contains(QLatin1String(c.says))) << failure.what();
            // The store's steps end as the upload did.
            const auto steps = UploadStore(storePath()).steps(failure.uploadId());
            ASSERT_FALSE(steps.isEmpty());
            EXPECT_EQ(steps.last().first, c.lastStep);
        }
        // Sent once: never again behind the user's back (an HTTP stack's
        // quiet resend after a dropped connection stores the file twice).
        EXPECT_EQ(server.received().size(), before + 1);
    }
}

// The secret lives in the keyring only: not in the settings, the store or
// the program's output.
TEST(Upload, TheSecretIsInTheKeyringAndNowhereElse)
{
    S3Server server;
    const QString secret = QStringLiteral("kept-only-in-the-keyring-%1").arg(QRandomGenerator::global()->generate());
    S3Settings s3 = server.settings();
    s3.accessKeyId = QStringLiteral("NUBOKEY%1").arg(QRandomGenerator::global()->generate());
    uploadSecrets::storeS3Secret(s3.accessKeyId, secret);
    EXPECT_EQ(uploadSecrets::s3Secret(s3.accessKeyId), secret);
    EXPECT_EQ(uploadSecrets::s3Secret(QStringLiteral("no such key")), std::nullopt);
    UploadStore(storePath()).saveSettings(s3, {});
    QTemporaryDir dir;
    const QString file = dir.filePath(QStringLiteral("a.png"));
    QFile(file).open(QIODevice::WriteOnly);
    // s3rver knows only its own account: refused, and the refusal says so.
    const test::ProcessResult r = test::runNuboShot({"upload", file, "--destination", "r2"});
    EXPECT_EQ(r.exitCode, 1);
    EXPECT_TRUE(r.err.contains(u"refused")) << r.err.toStdString();
    EXPECT_FALSE((r.out + r.err).contains(secret));
    const QByteArray clear = secret.toUtf8();
    for (const QString& root : {QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                                QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation),
                                qEnvironmentVariable("NUBOSHOT_TEST_KEYRING_DATA")}) {
        ASSERT_FALSE(root.isEmpty());
        QDirIterator files(root, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            QFile f(files.next());
            ASSERT_TRUE(f.open(QIODevice::ReadOnly)) << f.fileName().toStdString();
            EXPECT_FALSE(f.readAll().contains(clear)) << "the secret in clear in " << f.fileName().toStdString();
        }
    }
    uploadSecrets::forgetS3Secret(s3.accessKeyId);
    EXPECT_EQ(uploadSecrets::s3Secret(s3.accessKeyId), std::nullopt);
}

// Several programs write the store at once; one killed mid-upload leaves a
// row the next start reports, once; an unreadable file is set aside.
TEST(UploadStore, SharedByProgramsAndSurvivesCrashesAndCorruption)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("shared.sqlite"));
    {
        QProcess a, b;
        a.start(QStringLiteral(NUBOSHOT_STORE_WRITER), {path, "200"});
        b.start(QStringLiteral(NUBOSHOT_STORE_WRITER), {path, "200"});
        ASSERT_TRUE(a.waitForFinished(60000) && b.waitForFinished(60000));
        EXPECT_EQ(a.exitCode(), 0) << a.readAllStandardError().toStdString();
        EXPECT_EQ(b.exitCode(), 0) << b.readAllStandardError().toStdString();
        EXPECT_EQ(UploadStore(path).fileUses(1000).size(), 400);
    }
    {
        QProcess crash;
        crash.start(QStringLiteral(NUBOSHOT_STORE_WRITER), {path, "crash"});
        ASSERT_TRUE(crash.waitForFinished(20000));
        EXPECT_EQ(crash.exitStatus(), QProcess::CrashExit);
        const QString id = QString::fromLatin1(crash.readAllStandardOutput().trimmed());
        UploadStore store(path);
        const QList<UploadStore::Interrupted> interrupted = store.takeInterrupted();
        ASSERT_EQ(interrupted.size(), 1);
        EXPECT_EQ(interrupted.first().uploadId, id);
        EXPECT_EQ(interrupted.first().lastStep, UploadStore::Step::sent);
        EXPECT_EQ(interrupted.first().fileName, QStringLiteral("cut-short.png"));
        EXPECT_TRUE(store.takeInterrupted().isEmpty()) << "reported once";
        // An upload of this (living) process is not someone else's crash.
        const QString mine = store.beginUpload(ShotUploadDestination::filebin, "mine.png", "00", 1);
        EXPECT_TRUE(store.takeInterrupted().isEmpty());
        store.recordStep(mine, UploadStore::Step::cancelled);
        EXPECT_EQ(store.steps(mine).last().first, UploadStore::Step::cancelled);
    }
    {
        QFile garbage(path);
        ASSERT_TRUE(garbage.open(QIODevice::WriteOnly | QIODevice::Truncate));
        garbage.write(QByteArray(8192, 'x'));
        garbage.close();
        QFile::remove(path + QStringLiteral("-wal"));
        QFile::remove(path + QStringLiteral("-shm"));
        UploadStore store(path);
        EXPECT_FALSE(store.movedAside().isEmpty());
        EXPECT_TRUE(QFile::exists(store.movedAside()));
        EXPECT_TRUE(store.fileUses().isEmpty());
        store.saveSettings(S3Settings{}, FilebinSettings{});
        EXPECT_EQ(store.settings(ShotUploadDestination::auto_).effective(), ShotUploadDestination::filebin);
    }
}

} // namespace
} // namespace nubo
