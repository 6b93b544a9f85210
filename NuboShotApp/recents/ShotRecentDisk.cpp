#include "recents/ShotRecentDisk.h"

#include "core/FileWriting.h"
#include "core/Logging.h"
#include "codec/PngEncoder.h"
#include "document/ShotDocumentArchive.h"
#include "document/ShotImageFile.h"
#include "render/ShotRenderer.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <QJsonArray>
#include <QJsonDocument>
#include <QStandardPaths>

#include <algorithm>
#include <future>

namespace nubo {

namespace {

const QString indexName = QStringLiteral("index.json");
const QString recordName = QStringLiteral("record.json");
const QString thumbnailName = QStringLiteral("thumbnail.png");
const QString archiveName = QStringLiteral("shot");
const QString imageBase = QStringLiteral("image.");
constexpr qint64 largestSmallFile = 1 << 20; // index, records: far below this

QString kindFolder(bool capture)
{
    return capture ? QStringLiteral("shots") : QStringLiteral("copied");
}

QByteArray pngOf(const QImage& image)
{
    QByteArray bytes = PngEncoder::encode(image);
    if (bytes.isEmpty()) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage,
                              QStringLiteral("the thumbnail could not be encoded"));
    }
    return bytes;
}

// Removes an entry folder; a link in its place goes, never what it names.
void removeEntry(const QString& path)
{
    if (QFileInfo(path).isSymLink()) {
        QFile::remove(path);
    } else {
        QDir(path).removeRecursively();
    }
}

void newestFirst(QList<ShotRecentRecord>& records)
{
    std::stable_sort(records.begin(), records.end(),
                     [](const ShotRecentRecord& a, const ShotRecentRecord& b) {
                         return a.date > b.date;
                     });
}

std::optional<QJsonDocument> readJson(const QString& path)
{
    try {
        const QByteArray bytes = ShotImageFile::readBytes(path, largestSmallFile);
        QJsonParseError error{};
        QJsonDocument json = QJsonDocument::fromJson(bytes, &error);
        if (error.error != QJsonParseError::NoError || !json.isObject()) {
            return std::nullopt;
        }
        return json;
    } catch (const Error&) {
        return std::nullopt;
    }
}

} // namespace

ShotRecentDisk::ShotRecentDisk(QString root, ShotRenderer& renderer)
    : m_root(QDir::cleanPath(QDir(root).absolutePath())), m_renderer(renderer)
{}

QString ShotRecentDisk::defaultRoot()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/NuboShot/Recent");
}

QList<ShotRecentRecord> ShotRecentDisk::load()
{
    if (m_didLoad) {
        return m_records;
    }
    if (!QDir().mkpath(m_root)) {
        throw FileError(QStringLiteral("create the folder"), m_root, errno ? errno : EACCES);
    }
    m_resolvedRoot = QFileInfo(m_root).canonicalFilePath();
    m_didLoad = true;
    std::optional<QList<ShotRecentRecord>> indexed = readIndex();
    if (!indexed && QFileInfo::exists(m_resolvedRoot + QLatin1Char('/') + indexName)) {
        qCWarning(lcRecents, "Recent index damaged; rebuilding it from the entries");
    }
    // The entries on disk: the index's, and any it does not know (a write
    // of the index that never happened).
    QList<ShotRecentRecord> found = rebuild();
    QList<ShotRecentRecord> records = indexed.value_or(QList<ShotRecentRecord>());
    for (const ShotRecentRecord& record : std::as_const(found)) {
        const bool listed = std::any_of(records.begin(), records.end(),
                                        [&](const ShotRecentRecord& r) { return r.id == record.id; });
        if (!listed) {
            records.append(record);
        }
    }
    m_records.clear();
    for (const ShotRecentRecord& record : std::as_const(records)) {
        if (entryIsWhole(record)) {
            m_records.append(record);
            if (record.isCapture() && record.contentHash) {
                m_captureHashes.insert(record.id, *record.contentHash);
            }
            continue;
        }
        qCWarning(lcRecents, "Recent entry %s is damaged and was dropped",
                  qPrintable(record.id.toString(QUuid::WithoutBraces)));
        try {
            removeEntry(entryFolder(record));
        } catch (const Error&) {
            // It leads outside the root: only a link in the root goes,
            // never anything it names.
            const QString link = m_resolvedRoot + QLatin1Char('/') +
                                 kindFolder(record.isCapture()) + QLatin1Char('/') +
                                 record.id.toString(QUuid::WithoutBraces);
            if (QFileInfo(link).isSymLink()) {
                QFile::remove(link);
            }
        }
    }
    newestFirst(m_records);
    if (!indexed && !m_records.isEmpty()) {
        qCInfo(lcRecents, "Recent index rebuilt from %lld entries",
               static_cast<long long>(m_records.size()));
    }
    if (!indexed || *indexed != m_records) {
        try {
            writeIndex();
        } catch (const Error& error) {
            qCWarning(lcRecents, "Recent index not written: %s", qPrintable(error.message()));
        }
    }
    return m_records;
}

std::optional<QList<ShotRecentRecord>> ShotRecentDisk::readIndex() const
{
    const auto json = readJson(m_resolvedRoot + QLatin1Char('/') + indexName);
    if (!json) {
        return std::nullopt;
    }
    const QJsonObject object = json->object();
    if (!object.value(QLatin1String("version")).isDouble() ||
        !object.value(QLatin1String("entries")).isArray()) {
        return std::nullopt;
    }
    QList<ShotRecentRecord> records;
    for (const QJsonValue& value : object.value(QLatin1String("entries")).toArray()) {
        const auto record = ShotRecentRecord::fromJson(value.toObject());
        if (!record) {
            return std::nullopt;
        }
        records.append(*record);
    }
    return records;
}

QList<ShotRecentRecord> ShotRecentDisk::rebuild() const
{
    QList<ShotRecentRecord> records;
    for (const bool capture : {true, false}) {
        const QDir kind(m_resolvedRoot + QLatin1Char('/') + kindFolder(capture));
        for (const QString& name : kind.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const auto json = readJson(kind.filePath(name) + QLatin1Char('/') + recordName);
            const auto record = json ? ShotRecentRecord::fromJson(json->object()) : std::nullopt;
            if (!record || record->id != QUuid::fromString(name) || record->isCapture() != capture) {
                qCWarning(lcRecents, "Recent entry %s has no readable record and was removed",
                          qPrintable(name));
                if (!QUuid::fromString(name).isNull() &&
                    QFileInfo(kind.absolutePath()).canonicalFilePath() == kind.absolutePath()) {
                    removeEntry(kind.filePath(name));
                }
                continue;
            }
            records.append(*record);
        }
    }
    return records;
}

bool ShotRecentDisk::entryIsWhole(const ShotRecentRecord& record) const
{
    try {
        const QDir folder(entryFolder(record));
        if (!QFileInfo(folder.filePath(thumbnailName)).isFile()) {
            return false;
        }
        if (record.isCapture()) {
            return QFileInfo(folder.filePath(archiveName) + QLatin1Char('/') +
                             QLatin1String(ShotDocumentArchive::manifestName))
                .isFile();
        }
        return !folder.entryList({imageBase + QLatin1Char('*')}, QDir::Files).isEmpty();
    } catch (const Error&) {
        return false;
    }
}

QString ShotRecentDisk::entryFolder(const ShotRecentRecord& record) const
{
    const QString kind = m_resolvedRoot + QLatin1Char('/') + kindFolder(record.isCapture());
    const QString path = QDir::cleanPath(kind + QLatin1Char('/') +
                                         record.id.toString(QUuid::WithoutBraces));
    // Resolved through links: the folder itself when it exists, else its parent.
    const QFileInfo info(path);
    const QString resolved =
        info.exists() ? info.canonicalFilePath()
                      : QFileInfo(kind).canonicalFilePath() + QLatin1Char('/') + info.fileName();
    if (record.id.isNull() || !resolved.startsWith(kind + QLatin1Char('/'))) {
        throw ShotRecentError(ShotRecentError::Code::corruptEntry,
                              QStringLiteral("“%1” lies outside the recent images' folder")
                                  .arg(path));
    }
    return resolved;
}

QString ShotRecentDisk::prepareFolder(const ShotRecentRecord& record)
{
    load();
    const QString kind = m_resolvedRoot + QLatin1Char('/') + kindFolder(record.isCapture());
    if (!QDir().mkpath(kind)) {
        throw FileError(QStringLiteral("create the folder"), kind, errno ? errno : EACCES);
    }
    const QString folder = entryFolder(record);
    if (!QDir().mkpath(folder)) {
        throw FileError(QStringLiteral("create the folder"), folder, errno ? errno : EACCES);
    }
    return entryFolder(record);
}

void ShotRecentDisk::writeRecordFiles(const ShotRecentRecord& record, const QString& folder,
                                      const QImage& thumbnail)
{
    FileWriting::writeAtomically(pngOf(thumbnail), folder + QLatin1Char('/') + thumbnailName);
    FileWriting::writeAtomically(QJsonDocument(record.toJson()).toJson(QJsonDocument::Compact),
                                 folder + QLatin1Char('/') + recordName);
}

void ShotRecentDisk::writeIndex()
{
    QJsonArray entries;
    for (const ShotRecentRecord& record : std::as_const(m_records)) {
        entries.append(record.toJson());
    }
    const QJsonObject index{{QStringLiteral("version"), indexVersion},
                            {QStringLiteral("entries"), entries}};
    FileWriting::writeAtomically(QJsonDocument(index).toJson(QJsonDocument::Compact),
                                 m_resolvedRoot + QLatin1Char('/') + indexName);
}

QImage ShotRecentDisk::drawThumbnail(const QImage& image)
{
    QImage square(thumbnailSide, thumbnailSide, QImage::Format_RGBA8888_Premultiplied);
    square.fill(Qt::transparent);
    if (image.isNull()) {
        return square;
    }
    // Fill the square: the shorter side fits, the other is cut, across from
    // the middle, down from the top.
    const double fit = double(thumbnailSide) / std::min(image.width(), image.height());
    QImage source = image;
    if (fit < 0.25) {
        // A cheap first step down to four times the size; the smooth step
        // after it decides the look.
        source = image.scaled(std::max(1, int(image.width() * fit * 4)),
                              std::max(1, int(image.height() * fit * 4)), Qt::IgnoreAspectRatio,
                              Qt::FastTransformation);
    }
    const QImage scaled =
        source.scaled(std::max(thumbnailSide, int(std::lround(image.width() * fit))),
                      std::max(thumbnailSide, int(std::lround(image.height() * fit))),
                      Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const int x = (scaled.width() - thumbnailSide) / 2;
    for (int y = 0; y < thumbnailSide; ++y) {
        std::memcpy(square.scanLine(y), scaled.constScanLine(y) + x * 4, thumbnailSide * 4);
    }
    return square;
}

QImage ShotRecentDisk::thumbnailOf(const ShotDocument& document) const
{
    // Drawn by the renderer (annotations and all) at a few hundred pixels
    // across its shorter side, then made square.
    const QRectF visible = document.visibleRect();
    const double shorter = std::max(1.0, std::min(visible.width(), visible.height()));
    const QImage drawn = m_renderer.render(document, std::clamp(400.0 / shorter, 0.01, 2.0));
    return drawThumbnail(drawn);
}

ShotRecentRecord ShotRecentDisk::addCapture(const QUuid& id, const ShotDocument& document,
                                            const QString& mode, const QDateTime& date)
{
    if (document.layers.isEmpty()) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage, QStringLiteral("no image"));
    }
    const QImage& image = document.layers.first().image;
    ShotRecentRecord record;
    record.id = id;
    record.date = date;
    record.mode = mode;
    record.pixelWidth = image.width();
    record.pixelHeight = image.height();
    // The digest on a second core while the archive is written.
    std::future<QString> digest = std::async(std::launch::async, [image] {
        return sha256Hex(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
    });
    const QString folder = prepareFolder(record);
    try {
        ShotDocumentArchive::write(document, folder + QLatin1Char('/') + archiveName);
        record.contentHash = digest.get();
        writeRecordFiles(record, folder, thumbnailOf(document));
        m_records.prepend(record);
        newestFirst(m_records);
        writeIndex();
    } catch (...) {
        m_records.removeIf([&](const ShotRecentRecord& r) { return r.id == id; });
        QDir(folder).removeRecursively();
        throw;
    }
    m_captureHashes.insert(id, *record.contentHash);
    return record;
}

ShotRecentRecord ShotRecentDisk::updateCapture(const QUuid& id, const ShotDocument& document)
{
    load();
    const auto at = std::find_if(m_records.begin(), m_records.end(),
                                 [&](const ShotRecentRecord& r) { return r.id == id; });
    if (at == m_records.end() || !entryIsWhole(*at)) {
        throw ShotRecentError(ShotRecentError::Code::missingEntry,
                              id.toString(QUuid::WithoutBraces));
    }
    const QString folder = entryFolder(*at);
    ShotDocumentArchive::write(document, folder + QLatin1Char('/') + archiveName);
    writeRecordFiles(*at, folder, thumbnailOf(document));
    return *at;
}

QImage ShotRecentDisk::decodeCopied(const QByteArray& bytes, QByteArray* format)
{
    if (bytes.size() > maximumBytes) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage,
                              QStringLiteral("%1 bytes, more than %2")
                                  .arg(bytes.size())
                                  .arg(maximumBytes));
    }
    try {
        if (std::optional<QImage> own = ShotImageFile::decodeOwnFormats(bytes, QStringLiteral("The copied image"))) {
            if (qint64(own->width()) * own->height() > maximumPixels) {
                throw ShotRecentError(ShotRecentError::Code::invalidImage,
                                      QStringLiteral("%1 × %2 pixels, more than allowed")
                                          .arg(own->width())
                                          .arg(own->height()));
            }
            if (format) {
                *format = bytes.startsWith("RIFF") ? "webp" : "heic";
            }
            return *own;
        }
    } catch (const ShotRecentError&) {
        throw;
    } catch (const Error& error) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage, error.message());
    }
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(true);
    const QSize size = reader.size();
    if (!size.isValid()) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage, QStringLiteral("not an image"));
    }
    if (qint64(size.width()) * size.height() > maximumPixels ||
        size.width() > ShotLimits::maximumImageSide || size.height() > ShotLimits::maximumImageSide) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage,
                              QStringLiteral("%1 × %2 pixels, more than allowed")
                                  .arg(size.width())
                                  .arg(size.height()));
    }
    if (format) {
        *format = reader.format();
    }
    ShotDocumentArchive::allowLargeImages();
    QImage image = reader.read();
    if (image.isNull()) {
        throw ShotRecentError(ShotRecentError::Code::invalidImage, reader.errorString());
    }
    return image;
}

ShotRecentRecord ShotRecentDisk::addCopied(const ShotRecentImagePayload& payload,
                                           const std::optional<QString>& sourceApp,
                                           const QDateTime& date)
{
    QByteArray bytes;
    if (const auto* data = std::get_if<ShotRecentImagePayload::Data>(&payload.payload)) {
        bytes = data->bytes;
    } else {
        const auto& file = std::get<ShotRecentImagePayload::File>(payload.payload);
        try {
            bytes = ShotImageFile::readBytes(file.path, maximumBytes);
        } catch (const Error& error) {
            throw ShotRecentError(ShotRecentError::Code::invalidImage, error.message());
        }
    }
    QByteArray format;
    const QImage image = decodeCopied(bytes, &format);
    ShotRecentRecord record;
    record.id = QUuid::createUuid();
    record.date = date;
    record.sourceApp = sourceApp;
    record.pixelWidth = image.width();
    record.pixelHeight = image.height();
    record.contentHash = sha256Hex(bytes.constData(), bytes.size());
    const QString folder = prepareFolder(record);
    try {
        const QString extension = format.isEmpty() ? QStringLiteral("png")
                                                   : QString::fromLatin1(format).toLower();
        FileWriting::writeAtomically(bytes, folder + QLatin1Char('/') + imageBase + extension);
        writeRecordFiles(record, folder, drawThumbnail(image));
        m_records.prepend(record);
        newestFirst(m_records);
        writeIndex();
    } catch (...) {
        m_records.removeIf([&](const ShotRecentRecord& r) { return r.id == record.id; });
        QDir(folder).removeRecursively();
        throw;
    }
    return record;
}

QImage ShotRecentDisk::thumbnail(const ShotRecentRecord& record) const
{
    try {
        return ShotImageFile::read(entryFolder(record) + QLatin1Char('/') + thumbnailName);
    } catch (const Error& error) {
        qCWarning(lcRecents, "Recent thumbnail not read: %s", qPrintable(error.message()));
        return {};
    }
}

ShotDocument ShotRecentDisk::open(const ShotRecentRecord& record) const
{
    const QDir folder(entryFolder(record));
    if (record.isCapture()) {
        return ShotDocumentArchive::read(folder.filePath(archiveName));
    }
    const QStringList images = folder.entryList({imageBase + QLatin1Char('*')}, QDir::Files);
    if (images.isEmpty()) {
        throw ShotRecentError(ShotRecentError::Code::missingEntry,
                              record.id.toString(QUuid::WithoutBraces));
    }
    return ShotImageFile::readDocument(folder.filePath(images.first()));
}

void ShotRecentDisk::remove(const QList<QUuid>& ids)
{
    load();
    for (const QUuid& id : ids) {
        const auto at = std::find_if(m_records.begin(), m_records.end(),
                                     [&](const ShotRecentRecord& r) { return r.id == id; });
        if (at == m_records.end()) {
            continue;
        }
        try {
            removeEntry(entryFolder(*at));
        } catch (const Error& error) {
            qCWarning(lcRecents, "%s", qPrintable(error.message()));
        }
        m_captureHashes.remove(id);
        m_records.erase(at);
    }
    writeIndex();
}

void ShotRecentDisk::clear()
{
    load();
    QList<QUuid> all;
    for (const ShotRecentRecord& record : std::as_const(m_records)) {
        all.append(record.id);
    }
    remove(all);
}

} // namespace nubo
