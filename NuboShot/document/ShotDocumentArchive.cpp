#include "document/ShotDocumentArchive.h"

#include "codec/PngEncoder.h"

#include "core/FileWriting.h"
#include "core/Geometry.h"
#include "core/Logging.h"
#include "document/ShotDocumentCoding.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QColorSpace>
#include <QImageReader>
#include <QImageWriter>
#include <QJsonDocument>
#include <QSet>
#include <QTemporaryDir>

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace nubo {

using Code = ArchiveError::Code;

ArchiveError::ArchiveError(Code code, QString detail, qint64 foundVersion)
    : Error(messageFor(code, foundVersion)), m_code(code), m_detail(std::move(detail)),
      m_foundVersion(foundVersion)
{}

QString ArchiveError::messageFor(Code code, qint64 foundVersion)
{
    switch (code) {
    case Code::unsupportedVersion:
        return QStringLiteral("This shot was saved in format version %1, which this version of "
                              "Nubo Shot cannot open.")
            .arg(foundVersion);
    case Code::invalidManifest:
        return QStringLiteral("The shot archive\u2019s manifest is damaged.");
    case Code::invalidDocument:
        return QStringLiteral("The shot holds geometry that cannot be stored or opened.");
    case Code::invalidImage:
        return QStringLiteral("An image of the shot is missing or damaged.");
    case Code::imageTooLarge:
        return QStringLiteral("An image of the shot is too large.");
    case Code::archiveTooLarge:
        return QStringLiteral("The shot archive is larger than 200 MB.");
    }
    return {};
}

void ShotDocumentArchive::allowLargeImages()
{
    constexpr int megabytes = int(maximumImagePixels * 4 / (1 << 20)) + 64;
    if (QImageReader::allocationLimit() < megabytes) {
        QImageReader::setAllocationLimit(megabytes);
    }
}

QString ShotDocumentArchive::layerFileName(const QUuid& id)
{
    return coding::encodeUuid(id) + QStringLiteral(".png");
}

namespace {

bool imageTooLarge(QSize size)
{
    return size.width() > ShotDocumentArchive::maximumImageSide ||
           size.height() > ShotDocumentArchive::maximumImageSide ||
           qint64(size.width()) * size.height() > ShotDocumentArchive::maximumImagePixels;
}

void validate(const ShotDocument& document)
{
    if (!document.isFinite()) {
        throw ArchiveError(Code::invalidDocument, QStringLiteral("a coordinate is not finite"));
    }
    QSet<QUuid> ids;
    for (const ImageLayer& layer : document.layers) {
        if (layer.image.isNull()) {
            throw ArchiveError(Code::invalidDocument, QStringLiteral("a layer has no image"));
        }
        if (imageTooLarge(layer.image.size())) {
            throw ArchiveError(Code::imageTooLarge, QStringLiteral("a layer is %1 × %2 pixels")
                                                        .arg(layer.image.width())
                                                        .arg(layer.image.height()));
        }
        if (ids.contains(layer.id)) {
            throw ArchiveError(Code::invalidDocument, QStringLiteral("two layers share one id"));
        }
        ids.insert(layer.id);
    }
    qint64 total = 0;
    for (const ImageLayer& layer : document.layers) {
        total += qint64(layer.image.width()) * layer.image.height();
    }
    if (total > ShotLimits::maximumTotalPixels) {
        throw ArchiveError(Code::imageTooLarge,
                           QStringLiteral("the layers hold more than %L1 pixels together")
                               .arg(ShotLimits::maximumTotalPixels));
    }
}

// QTemporaryDir makes private folders; an archive gets the permissions any
// new folder of the user would get.
void applyUmask(const QString& path)
{
    ::chmod(QFile::encodeName(path).constData(), mode_t(0777 & ~FileWriting::userUmask()));
}

void syncPath(const QString& path)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
    if (fd >= 0) {
        ::fsync(fd);
        ::close(fd);
    }
}

void writeFile(const QString& path, const QByteArray& data)
{
    FileWriting::writeNewFile(data, path);
}

QByteArray encodePng(const QImage& image)
{
    // Our own encoder: several times faster than Qt's on screenshots, which
    // keeps recording a capture in the recent images short.
    QByteArray data = PngEncoder::encode(image);
    if (data.isEmpty()) {
        throw ArchiveError(Code::invalidImage,
                           QStringLiteral("could not encode a layer of %1 \u00d7 %2 pixels")
                               .arg(image.width())
                               .arg(image.height()));
    }
    return data;
}

// Puts the finished folder where the archive belongs. An existing archive is
// exchanged atomically and left at `staged` for removal.
void swapIntoPlace(const QString& staged, const QString& target, bool targetExists)
{
    const QByteArray from = QFile::encodeName(staged);
    const QByteArray to = QFile::encodeName(target);
    const unsigned flags = targetExists ? RENAME_EXCHANGE : RENAME_NOREPLACE;
    if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), flags) == 0) {
        return;
    }
    if (errno != EINVAL && errno != ENOSYS && errno != ENOTSUP) {
        throw FileError(QStringLiteral("save"), target, errno);
    }
    // The file system cannot exchange: move the old archive aside first and
    // put it back if the new one cannot take its place.
    if (!targetExists) {
        if (::rename(from.constData(), to.constData()) != 0) {
            throw FileError(QStringLiteral("save"), target, errno);
        }
        return;
    }
    const QByteArray aside = from + ".old";
    if (::rename(to.constData(), aside.constData()) != 0) {
        throw FileError(QStringLiteral("replace"), target, errno);
    }
    if (::rename(from.constData(), to.constData()) != 0) {
        const int error = errno;
        ::rename(aside.constData(), to.constData());
        throw FileError(QStringLiteral("replace"), target, error);
    }
    if (::rename(aside.constData(), from.constData()) != 0) {
        QDir(QFile::decodeName(aside)).removeRecursively();
    }
}

// The files of an archive folder that the archive itself wrote: the
// manifest and the layer files it names.
QSet<QString> archiveOwnFiles(const QString& folder)
{
    QSet<QString> own{QLatin1String(ShotDocumentArchive::manifestName)};
    QFile file(folder + QLatin1Char('/') + QLatin1String(ShotDocumentArchive::manifestName));
    if (file.open(QIODevice::ReadOnly)) {
        const QJsonArray layers =
            QJsonDocument::fromJson(file.read(ShotDocumentArchive::maximumBytes))
                .object()
                .value(QStringLiteral("layers"))
                .toArray();
        for (const QJsonValue& layer : layers) {
            own.insert(layer.toObject().value(QStringLiteral("filename")).toString());
        }
    }
    return own;
}

// Moves every entry of the old archive folder that the archive did not own
// into the new one. A name the new archive uses itself stays behind (and is
// removed with the old archive): that can only be the manifest or a layer.
void keepForeignFiles(const QString& oldArchive, const QString& newArchive)
{
    const QSet<QString> own = archiveOwnFiles(oldArchive);
    const QStringList entries =
        QDir(oldArchive)
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString& entry : entries) {
        if (own.contains(entry)) {
            continue;
        }
        const QByteArray from = QFile::encodeName(oldArchive + QLatin1Char('/') + entry);
        const QByteArray to = QFile::encodeName(newArchive + QLatin1Char('/') + entry);
        if (::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) ==
            0) {
            continue;
        }
        const bool cannotRefuse = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
        if (cannotRefuse && !QFileInfo::exists(QFile::decodeName(to))) {
            ::rename(from.constData(), to.constData());
        } else {
            qCWarning(lcArchive, "Kept %s out of the new archive: %s", from.constData(),
                      std::strerror(errno));
        }
    }
}

} // namespace

void ShotDocumentArchive::write(const ShotDocument& document, const QString& folder)
{
    validate(document);

    const QFileInfo target(QDir::cleanPath(QDir(folder).absolutePath()));
    const QString targetPath = target.absoluteFilePath();
    const QString parent = target.absolutePath();
    if (!QDir().mkpath(parent)) {
        throw FileError(QStringLiteral("create the folder"), parent, errno ? errno : EACCES);
    }
    const bool targetExists = target.exists() || target.isSymLink();
    if (targetExists) {
        if (target.isSymLink() || !target.isDir()) {
            throw FileError(QStringLiteral("save"), targetPath,
                            QStringLiteral("something that is not a shot archive is in the way"));
        }
        const QDir existing(targetPath);
        if (!existing.isEmpty(QDir::AllEntries | QDir::Hidden | QDir::System |
                              QDir::NoDotAndDotDot)) {
            // Only a folder that reads as a shot archive is replaced; any
            // other folder with a manifest.json in it is somebody's files.
            try {
                read(targetPath);
            } catch (const Error& error) {
                throw FileError(
                    QStringLiteral("save"), targetPath,
                    QStringLiteral("the folder holds other files and is not a shot archive (%1)")
                        .arg(error.message()));
            }
        }
    }

    QTemporaryDir staged(parent + QStringLiteral("/.") + target.fileName() +
                         QStringLiteral(".XXXXXX"));
    if (!staged.isValid()) {
        throw FileError(QStringLiteral("create a folder in"), parent, staged.errorString());
    }
    applyUmask(staged.path());

    try {
        qint64 total = 0;
        QJsonArray layers;
        for (const ImageLayer& layer : document.layers) {
            const QString name = layerFileName(layer.id);
            const QByteArray png = encodePng(layer.image);
            total += png.size();
            if (total > maximumBytes) {
                throw ArchiveError(
                    Code::archiveTooLarge,
                    QStringLiteral("the layers take more than %1 bytes").arg(maximumBytes));
            }
            writeFile(staged.filePath(name), png);
            layers.append(QJsonObject{{QStringLiteral("id"), coding::encodeUuid(layer.id)},
                                      {QStringLiteral("frame"), coding::encodeRect(layer.frame)},
                                      {QStringLiteral("filename"), name}});
        }

        QJsonArray annotations;
        for (const Annotation& annotation : document.annotations) {
            annotations.append(coding::encodeAnnotation(annotation));
        }
        QJsonObject manifest{
            {QStringLiteral("version"), version},
            {QStringLiteral("layers"), layers},
            {QStringLiteral("annotations"), annotations},
            {QStringLiteral("canvasBounds"), coding::encodeRect(document.canvasBounds)}};
        if (document.crop) {
            manifest.insert(QStringLiteral("crop"), coding::encodeRect(*document.crop));
        }
        if (document.frame) {
            manifest.insert(QStringLiteral("frame"),
                            QJsonObject{{QStringLiteral("padding"), document.frame->padding}});
        }
        // QJsonObject keeps its keys sorted, so the file has them sorted too.
        const QByteArray data = QJsonDocument(manifest).toJson(QJsonDocument::Indented);
        // The whole archive has to stay readable, so the manifest counts too.
        if (data.size() > maximumBytes || total + data.size() > maximumBytes) {
            throw ArchiveError(Code::archiveTooLarge, QStringLiteral("the manifest is too large"));
        }
        writeFile(staged.filePath(QLatin1String(manifestName)), data);
        syncPath(staged.path());
    } catch (const FileError& error) {
        // Named by the archive, not by its staging folder.
        if (error.errorNumber() == 0) {
            throw;
        }
        throw FileError(QStringLiteral("save"), targetPath,
                        FileWriting::reason(error.errorNumber(), targetPath), error.errorNumber());
    }

    swapIntoPlace(staged.path(), targetPath, targetExists);
    if (targetExists) {
        // The old archive is at `staged` now. What it did not write (files
        // the user put beside the manifest) moves into the new archive.
        keepForeignFiles(staged.path(), targetPath);
    }
    syncPath(parent);
    qCDebug(lcArchive) << "Wrote archive" << targetPath << "with" << document.layers.size()
                       << "layers and" << document.annotations.size() << "annotations";
}

namespace {

// A file named by the manifest: a plain name of a regular file that really
// lies in the archive folder, also when it is a symbolic link. Empty when
// there is no such file at all.
QString containedFile(const QString& root, const QString& name, Code missingCode)
{
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String("..") ||
        name.contains(QLatin1Char('/')) || name.contains(QChar(0))) {
        throw ArchiveError(Code::invalidManifest,
                           QStringLiteral("\u201c%1\u201d is not a plain file name").arg(name));
    }
    const QFileInfo info(root + QLatin1Char('/') + name);
    if (!info.exists()) {
        throw ArchiveError(missingCode, QStringLiteral("\u201c%1\u201d is missing").arg(name));
    }
    const QString canonical = info.canonicalFilePath();
    if (QFileInfo(canonical).absolutePath() != root) {
        throw ArchiveError(Code::invalidManifest,
                           QStringLiteral("\u201c%1\u201d leads out of the archive").arg(name));
    }
    if (!info.isFile()) {
        throw ArchiveError(missingCode, QStringLiteral("\u201c%1\u201d is not a file").arg(name));
    }
    return canonical;
}

struct StoredLayer {
    QUuid id;
    QRectF frame;
    QString filename;
};

// `total` counts the pixels of the layers read so far.
QImage readLayerImage(const QString& path, const QString& name, qint64& total)
{
    ShotDocumentArchive::allowLargeImages();
    QImageReader reader(path, "png");
    reader.setDecideFormatFromContent(false);
    const QSize size = reader.size();
    if (!size.isValid()) {
        throw ArchiveError(Code::invalidImage,
                           QStringLiteral("\u201c%1\u201d is not a PNG image").arg(name));
    }
    if (imageTooLarge(size)) {
        throw ArchiveError(Code::imageTooLarge, QStringLiteral("\u201c%1\u201d is %2 × %3 pixels")
                                                    .arg(name)
                                                    .arg(size.width())
                                                    .arg(size.height()));
    }
    total += qint64(size.width()) * size.height();
    if (total > ShotLimits::maximumTotalPixels) {
        throw ArchiveError(Code::imageTooLarge,
                           QStringLiteral("the layers hold more than %L1 pixels together")
                               .arg(ShotLimits::maximumTotalPixels));
    }
    const QImage image = reader.read();
    if (image.isNull()) {
        throw ArchiveError(
            Code::invalidImage,
            QStringLiteral("\u201c%1\u201d does not decode: %2").arg(name, reader.errorString()));
    }
    QImage converted = image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (converted.colorSpace() == QColorSpace(QColorSpace::SRgb)) {
        // Layers are sRGB, which documents say by leaving the space unset.
        converted.setColorSpace(QColorSpace());
    }
    if (converted.isNull() || converted.size() != size) {
        // A layer that could not be converted is never a smaller layer.
        throw ArchiveError(Code::invalidImage,
                           QStringLiteral("there is not enough memory for \u201c%1\u201d (%2 "
                                          "\u00d7 %3 pixels)")
                               .arg(name)
                               .arg(size.width())
                               .arg(size.height()));
    }
    return converted;
}

} // namespace

ShotDocument ShotDocumentArchive::read(const QString& folder)
{
    const QFileInfo info(folder);
    if (!info.exists()) {
        throw FileError(QStringLiteral("open"), folder, ENOENT);
    }
    if (!info.isDir()) {
        throw FileError(QStringLiteral("open"), folder, QStringLiteral("it is not a folder"));
    }
    const QString root = info.canonicalFilePath();
    const QDir dir(root);
    if (!dir.isReadable()) {
        throw FileError(QStringLiteral("open"), folder, EACCES);
    }

    // Sizes first: nothing of an oversized archive is read.
    qint64 total = 0;
    const QFileInfoList entries =
        dir.entryInfoList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QFileInfo& entry : entries) {
        total += std::max<qint64>(entry.size(), 0);
        if (total > maximumBytes) {
            throw ArchiveError(
                Code::archiveTooLarge,
                QStringLiteral("the folder holds more than %1 bytes").arg(maximumBytes));
        }
    }

    const QString manifestPath =
        containedFile(root, QLatin1String(manifestName), Code::invalidManifest);
    QFile manifestFile(manifestPath);
    if (!manifestFile.open(QIODevice::ReadOnly)) {
        throw FileError(QStringLiteral("read"), manifestPath, manifestFile.errorString());
    }
    const QByteArray data = manifestFile.read(maximumBytes + 1);
    if (data.size() > maximumBytes) {
        throw ArchiveError(Code::archiveTooLarge,
                           QStringLiteral("the manifest grew while reading"));
    }

    QJsonParseError parseError;
    const QJsonDocument json = QJsonDocument::fromJson(data, &parseError);
    if (parseError.error != QJsonParseError::NoError || !json.isObject()) {
        throw ArchiveError(Code::invalidManifest, parseError.error != QJsonParseError::NoError
                                                      ? QStringLiteral("not JSON: %1 at byte %2")
                                                            .arg(parseError.errorString())
                                                            .arg(parseError.offset)
                                                      : QStringLiteral("not a JSON object"));
    }
    const QJsonObject manifest = json.object();

    // The version decides how to read the rest, so it comes first.
    const QJsonValue versionValue = manifest.value(QStringLiteral("version"));
    const double versionNumber = versionValue.toDouble(std::nan(""));
    if (!versionValue.isDouble() || std::trunc(versionNumber) != versionNumber ||
        std::abs(versionNumber) > 9.0e15) {
        throw ArchiveError(Code::invalidManifest,
                           QStringLiteral("the version is not a whole number"));
    }
    if (versionNumber != version) {
        throw ArchiveError(Code::unsupportedVersion,
                           QStringLiteral("version %1").arg(qint64(versionNumber)),
                           qint64(versionNumber));
    }

    ShotDocument document;
    QList<StoredLayer> layers;
    try {
        using namespace coding;
        for (const QJsonValue& value : decodeArray(required(manifest, "layers"), "layers")) {
            const QJsonObject o = decodeObject(value, "a layer");
            layers.append({decodeUuid(required(o, "id"), "a layer id"),
                           decodeRect(required(o, "frame"), "a layer frame"),
                           decodeString(required(o, "filename"), "a layer file name")});
        }
        for (const QJsonValue& value :
             decodeArray(required(manifest, "annotations"), "annotations")) {
            document.annotations.append(decodeAnnotation(value));
        }
        const QJsonValue crop = manifest.value(QStringLiteral("crop"));
        if (!crop.isUndefined() && !crop.isNull()) {
            document.crop = decodeRect(crop, "the crop");
        }
        const QJsonValue frame = manifest.value(QStringLiteral("frame"));
        if (!frame.isUndefined() && !frame.isNull()) {
            document.frame = FrameStyle{
                decodeNumber(required(decodeObject(frame, "the frame"), "padding"), "padding")};
        }
        document.canvasBounds = decodeRect(required(manifest, "canvasBounds"), "canvasBounds");
    } catch (const coding::DecodingFailure& failure) {
        throw ArchiveError(Code::invalidManifest, failure.reason);
    }

    QSet<QUuid> ids;
    for (const StoredLayer& layer : layers) {
        if (!ShotGeometry::isFinite(layer.frame)) {
            throw ArchiveError(Code::invalidDocument,
                               QStringLiteral("a layer frame is not finite"));
        }
        if (ids.contains(layer.id)) {
            throw ArchiveError(Code::invalidDocument, QStringLiteral("two layers share one id"));
        }
        ids.insert(layer.id);
    }
    if (!document.isFinite()) {
        throw ArchiveError(Code::invalidDocument, QStringLiteral("a coordinate is not finite"));
    }

    qint64 pixels = 0;
    for (const StoredLayer& layer : layers) {
        const QString path = containedFile(root, layer.filename, Code::invalidImage);
        document.layers.append(
            ImageLayer{layer.id, readLayerImage(path, layer.filename, pixels), layer.frame});
    }
    return document;
}

} // namespace nubo
