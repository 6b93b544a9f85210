#include "upload/UploadStore.h"

#include "core/Error.h"
#include "core/Logging.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <sqlite3.h>
#include <unistd.h>

namespace nubo {

namespace {

constexpr char appName[] = "NuboShot";

class StoreError : public Error {
public:
    StoreError(const QString& what, sqlite3* db)
        : Error(QStringLiteral("The shared upload store could not %1: %2.")
                    .arg(what, db ? QString::fromUtf8(sqlite3_errmsg(db))
                                  : QStringLiteral("out of memory"))),
          code(db ? sqlite3_errcode(db) : SQLITE_NOMEM)
    {}
    int code;
};

// One prepared statement, finalised when it goes.
class Statement {
public:
    Statement(sqlite3* db, const char* sql) : m_db(db)
    {
        if (sqlite3_prepare_v2(db, sql, -1, &m_statement, nullptr) != SQLITE_OK) {
            throw StoreError(QStringLiteral("prepare a query"), db);
        }
    }
    ~Statement() { sqlite3_finalize(m_statement); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& bind(int index, const QString& text)
    {
        const QByteArray utf8 = text.toUtf8();
        sqlite3_bind_text(m_statement, index, utf8.constData(), int(utf8.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& bind(int index, qint64 value)
    {
        sqlite3_bind_int64(m_statement, index, value);
        return *this;
    }
    Statement& bind(int index, const std::optional<QDateTime>& time)
    {
        if (time) {
            sqlite3_bind_int64(m_statement, index, time->toMSecsSinceEpoch());
        } else {
            sqlite3_bind_null(m_statement, index);
        }
        return *this;
    }
    // True while there is a row.
    bool step()
    {
        const int status = sqlite3_step(m_statement);
        if (status == SQLITE_ROW) {
            return true;
        }
        if (status != SQLITE_DONE) {
            throw StoreError(QStringLiteral("read or write"), m_db);
        }
        return false;
    }
    QString text(int column) const
    {
        return QString::fromUtf8(
            reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column)),
            sqlite3_column_bytes(m_statement, column));
    }
    qint64 integer(int column) const { return sqlite3_column_int64(m_statement, column); }
    std::optional<QDateTime> time(int column) const
    {
        if (sqlite3_column_type(m_statement, column) == SQLITE_NULL) {
            return std::nullopt;
        }
        return QDateTime::fromMSecsSinceEpoch(integer(column), Qt::UTC);
    }

private:
    sqlite3* m_db;
    sqlite3_stmt* m_statement = nullptr;
};

qint64 nowMs()
{
    return QDateTime::currentMSecsSinceEpoch();
}

// The kernel's start time of a process: with the pid, who it is (pids are reused).
QString processStart(qint64 pid)
{
    QFile stat(QStringLiteral("/proc/%1/stat").arg(pid));
    if (!stat.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QByteArray line = stat.readAll();
    // Field 22, counted after the command name's closing parenthesis.
    const QList<QByteArray> fields = line.mid(line.lastIndexOf(')') + 2).split(' ');
    return fields.size() > 19 ? QString::fromLatin1(fields[19]) : QString();
}

QString owner()
{
    const qint64 pid = ::getpid();
    return QStringLiteral("pid=%1 start=%2").arg(pid).arg(processStart(pid));
}

bool ownerAlive(const QString& detail)
{
    const QStringList words = detail.split(u' ');
    if (words.size() < 2 || !words[0].startsWith(u"pid=") || !words[1].startsWith(u"start=")) {
        return false;
    }
    const qint64 pid = words[0].mid(4).toLongLong();
    return pid > 0 && processStart(pid) == words[1].mid(6);
}

bool ends(UploadStore::Step step)
{
    return step >= UploadStore::Step::confirmed;
}

} // namespace

QString UploadStore::defaultPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/NuboSharedGroup/shared.sqlite");
}

UploadStore::UploadStore(const QString& path) : m_path(path)
{
    QDir().mkpath(QFileInfo(m_path).absolutePath());
    try {
        open();
    } catch (const StoreError& error) {
        if (error.code != SQLITE_NOTADB && error.code != SQLITE_CORRUPT) {
            throw;
        }
        // Unreadable: kept aside for whoever wants to look, and begun anew.
        sqlite3_close(std::exchange(m_db, nullptr));
        m_movedAside = m_path + QStringLiteral(".unreadable-") +
                       QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMdd-HHmmss"));
        QFile::rename(m_path, m_movedAside);
        for (const char* companion : {"-wal", "-shm"}) {
            QFile::rename(m_path + QLatin1String(companion), m_movedAside + QLatin1String(companion));
        }
        qCWarning(lcUpload, "The shared store %s could not be read, so it was moved to %s and made "
                            "anew. %s",
                  qUtf8Printable(m_path), qUtf8Printable(m_movedAside),
                  qUtf8Printable(error.message()));
        open();
    }
}

UploadStore::~UploadStore()
{
    sqlite3_close(m_db);
}

void UploadStore::exec(const char* sql) const
{
    if (sqlite3_exec(m_db, sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw StoreError(QStringLiteral("update itself"), m_db);
    }
}

void UploadStore::open()
{
    const QByteArray file = QFile::encodeName(m_path);
    if (sqlite3_open_v2(file.constData(), &m_db,
                        SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_NOMUTEX,
                        nullptr) != SQLITE_OK) {
        throw StoreError(QStringLiteral("be opened at %1").arg(m_path), m_db);
    }
    sqlite3_busy_timeout(m_db, busyTimeoutMs);
    // Two programs making the file at once race for the switch to WAL,
    // which SQLite does not wait for by itself.
    for (int waited = 0;; waited += 20) {
        const int status = sqlite3_exec(m_db, "PRAGMA journal_mode=WAL", nullptr, nullptr, nullptr);
        if (status == SQLITE_OK) {
            break;
        }
        if (status != SQLITE_BUSY || waited > busyTimeoutMs) {
            throw StoreError(QStringLiteral("switch to write-ahead logging"), m_db);
        }
        sqlite3_sleep(20);
    }
    const qint64 found = [this] {
        Statement version(m_db, "PRAGMA user_version");
        version.step();
        return version.integer(0);
    }();
    if (found > schemaVersion) {
        // A newer program's store: its tables are a superset; use them as they are.
        return;
    }
    // Migrations, one version at a time, each in one transaction that waits
    // for other writers.
    if (found < 1) {
        exec("BEGIN IMMEDIATE");
        try {
            exec(R"(
CREATE TABLE IF NOT EXISTS configuration (
    destination TEXT NOT NULL,
    name TEXT NOT NULL,
    value TEXT NOT NULL,
    updated_at INTEGER NOT NULL,
    PRIMARY KEY (destination, name));
CREATE TABLE IF NOT EXISTS file_uses (
    upload_id TEXT PRIMARY KEY,
    app TEXT NOT NULL,
    content_sha256 TEXT NOT NULL,
    file_name TEXT NOT NULL,
    byte_count INTEGER NOT NULL,
    destination TEXT NOT NULL,
    location TEXT NOT NULL,
    object_key TEXT NOT NULL,
    link TEXT NOT NULL,
    uploaded_at INTEGER NOT NULL,
    lease_ends_at INTEGER,
    deleted_at INTEGER);
CREATE INDEX IF NOT EXISTS file_uses_by_hash ON file_uses (content_sha256);
CREATE TABLE IF NOT EXISTS steps (
    upload_id TEXT NOT NULL,
    seq INTEGER NOT NULL,
    step TEXT NOT NULL,
    at INTEGER NOT NULL,
    detail TEXT NOT NULL,
    app TEXT NOT NULL,
    file_name TEXT NOT NULL,
    PRIMARY KEY (upload_id, seq));
PRAGMA user_version = 1;
)");
            exec("COMMIT");
        } catch (...) {
            sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
            throw;
        }
    }
}

UploadSettings UploadStore::settings(ShotUploadDestination chosen) const
{
    UploadSettings settings;
    settings.destination = chosen;
    Statement query(m_db, "SELECT destination, name, value FROM configuration");
    while (query.step()) {
        const QString destination = query.text(0), name = query.text(1), value = query.text(2);
        if (destination == QLatin1String("r2")) {
            S3Settings& s3 = settings.s3;
            if (name == QLatin1String("endpoint")) s3.endpoint = value;
            else if (name == QLatin1String("region")) s3.region = value;
            else if (name == QLatin1String("bucket")) s3.bucket = value;
            else if (name == QLatin1String("keyPrefix")) s3.keyPrefix = value;
            else if (name == QLatin1String("publicUrlBase")) s3.publicUrlBase = value;
            else if (name == QLatin1String("accessKeyId")) s3.accessKeyId = value;
            else if (name == QLatin1String("virtualHosted")) s3.virtualHosted = value == QLatin1String("1");
        } else if (destination == QLatin1String("filebin")) {
            if (name == QLatin1String("server") && !value.isEmpty()) settings.filebin.server = value;
            else if (name == QLatin1String("bin")) settings.filebin.bin = value;
        }
    }
    return settings;
}

void UploadStore::saveSettings(const S3Settings& s3, const FilebinSettings& filebin)
{
    const std::pair<const char*, QString> rows[] = {
        {"r2/endpoint", s3.endpoint.trimmed()},
        {"r2/region", s3.region.trimmed()},
        {"r2/bucket", s3.bucket.trimmed()},
        {"r2/keyPrefix", s3.keyPrefix},
        {"r2/publicUrlBase", s3.publicUrlBase.trimmed()},
        {"r2/accessKeyId", s3.accessKeyId.trimmed()},
        {"r2/virtualHosted", s3.virtualHosted ? QStringLiteral("1") : QStringLiteral("0")},
        {"filebin/server", filebin.server.trimmed()},
        {"filebin/bin", filebin.bin.trimmed()},
    };
    exec("BEGIN IMMEDIATE");
    try {
        for (const auto& [name, value] : rows) {
            const QString full = QLatin1String(name);
            Statement write(m_db, "INSERT INTO configuration (destination, name, value, updated_at) "
                                  "VALUES (?1, ?2, ?3, ?4) ON CONFLICT (destination, name) DO "
                                  "UPDATE SET value = excluded.value, updated_at = excluded.updated_at");
            write.bind(1, full.section(u'/', 0, 0)).bind(2, full.section(u'/', 1)).bind(3, value).bind(4, nowMs());
            write.step();
        }
        exec("COMMIT");
    } catch (...) {
        sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

QString UploadStore::beginUpload(ShotUploadDestination destination, const QString& fileName,
                                 const QString& contentSha256, qint64 bytes)
{
    const QString id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    Statement write(m_db, "INSERT INTO steps (upload_id, seq, step, at, detail, app, file_name) "
                          "VALUES (?1, 0, 'started', ?2, ?3, ?4, ?5)");
    write.bind(1, id).bind(2, nowMs())
        .bind(3, owner() + QStringLiteral(" destination=%1 sha256=%2 bytes=%3")
                               .arg(toString(destination), contentSha256)
                               .arg(bytes))
        .bind(4, QLatin1String(appName)).bind(5, fileName);
    write.step();
    return id;
}

void UploadStore::recordStep(const QString& uploadId, Step step, const QString& detail)
{
    Statement write(m_db, "INSERT INTO steps (upload_id, seq, step, at, detail, app, file_name) "
                          "SELECT upload_id, MAX(seq) + 1, ?2, ?3, ?4, app, file_name FROM steps "
                          "WHERE upload_id = ?1 GROUP BY upload_id");
    write.bind(1, uploadId).bind(2, toString(step)).bind(3, nowMs()).bind(4, detail);
    write.step();
}

void UploadStore::recordFileUse(const FileUse& use)
{
    exec("BEGIN IMMEDIATE");
    try {
        Statement write(m_db,
                        "INSERT INTO file_uses (upload_id, app, content_sha256, file_name, "
                        "byte_count, destination, location, object_key, link, uploaded_at, "
                        "lease_ends_at, deleted_at) VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9, "
                        "?10, ?11, NULL)");
        write.bind(1, use.uploadId).bind(2, QLatin1String(appName)).bind(3, use.contentSha256)
            .bind(4, use.fileName).bind(5, use.bytes).bind(6, toString(use.destination))
            .bind(7, use.location).bind(8, use.key).bind(9, use.link)
            .bind(10, use.uploadedAt.toMSecsSinceEpoch()).bind(11, use.leaseEnds);
        write.step();
        recordStep(use.uploadId, Step::confirmed, use.link.isEmpty() ? use.key : use.link);
        exec("COMMIT");
    } catch (...) {
        sqlite3_exec(m_db, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

void UploadStore::markDeleted(const QString& uploadId)
{
    Statement write(m_db, "UPDATE file_uses SET deleted_at = ?2 WHERE upload_id = ?1");
    write.bind(1, uploadId).bind(2, nowMs());
    write.step();
}

QList<UploadStore::FileUse> UploadStore::fileUses(int limit) const
{
    Statement query(m_db, "SELECT upload_id, content_sha256, file_name, byte_count, destination, "
                          "location, object_key, link, uploaded_at, lease_ends_at, deleted_at "
                          "FROM file_uses ORDER BY uploaded_at DESC, rowid DESC LIMIT ?1");
    query.bind(1, qint64(limit));
    QList<FileUse> uses;
    while (query.step()) {
        FileUse use;
        use.uploadId = query.text(0);
        use.contentSha256 = query.text(1);
        use.fileName = query.text(2);
        use.bytes = query.integer(3);
        use.destination = fromString<ShotUploadDestination>(query.text(4))
                              .value_or(ShotUploadDestination::filebin);
        use.location = query.text(5);
        use.key = query.text(6);
        use.link = query.text(7);
        use.uploadedAt = *query.time(8);
        use.leaseEnds = query.time(9);
        use.deletedAt = query.time(10);
        uses.append(use);
    }
    return uses;
}

QList<std::pair<UploadStore::Step, QString>> UploadStore::steps(const QString& uploadId) const
{
    Statement query(m_db, "SELECT step, detail FROM steps WHERE upload_id = ?1 ORDER BY seq");
    query.bind(1, uploadId);
    QList<std::pair<Step, QString>> steps;
    while (query.step()) {
        if (const auto step = fromString<Step>(query.text(0))) {
            steps.append({*step, query.text(1)});
        }
    }
    return steps;
}

QList<UploadStore::Interrupted> UploadStore::takeInterrupted()
{
    // Each upload's first step names its owner; its last says how far it got.
    Statement query(m_db,
                    "SELECT s.upload_id, s.step, s.at, s.file_name, f.detail FROM steps s "
                    "JOIN steps f ON f.upload_id = s.upload_id AND f.seq = 0 "
                    "WHERE s.seq = (SELECT MAX(seq) FROM steps WHERE upload_id = s.upload_id) "
                    "AND s.app = ?1");
    query.bind(1, QLatin1String(appName));
    QList<Interrupted> found;
    while (query.step()) {
        const auto step = fromString<Step>(query.text(1));
        if (!step || ends(*step) || ownerAlive(query.text(4))) {
            continue;
        }
        found.append({query.text(0), *step, query.text(3), *query.time(2)});
    }
    for (const Interrupted& upload : found) {
        // Sent but never answered: the file may well be there.
        recordStep(upload.uploadId, Step::interrupted,
                   upload.lastStep == Step::sent
                       ? QStringLiteral("the program ended while the file was being sent; it may "
                                        "have been stored")
                       : QStringLiteral("the program ended before the file was sent"));
        qCWarning(lcUpload, "Upload %s of %s was interrupted after step %s",
                  qUtf8Printable(upload.uploadId), qUtf8Printable(upload.fileName),
                  qUtf8Printable(toString(upload.lastStep)));
    }
    return found;
}

} // namespace nubo
