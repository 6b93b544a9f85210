#include "export/ShotQuickSave.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "export/ImageWriter.h"
#include "export/ShotExporter.h"
#include "export/ShotFileName.h"
#include "render/ShotRenderer.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUuid>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace nubo {

QString ShotQuickSave::folder(const ShotPreferences& preferences)
{
    if (const auto chosen = preferences.string(keys::quickSaveFolder)) {
        if (isUsableFolder(*chosen)) {
            return QFileInfo(*chosen).absoluteFilePath();
        }
        qCInfo(lcExport) << "The quick-save folder" << *chosen
                         << "is gone or not writable; saving to Downloads";
    }
    const QString downloads = fallbackFolder();
    if (!QDir().mkpath(downloads)) {
        throw FileError(QStringLiteral("create the folder"), downloads, errno ? errno : EACCES);
    }
    return downloads;
}

QString ShotQuickSave::fallbackFolder()
{
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    return downloads.isEmpty() ? QDir::homePath() + QStringLiteral("/Downloads") : downloads;
}

QString ShotQuickSave::folderShown(const ShotPreferences& preferences)
{
    const auto chosen = preferences.string(keys::quickSaveFolder);
    return chosen && isUsableFolder(*chosen) ? QFileInfo(*chosen).absoluteFilePath()
                                             : fallbackFolder();
}

bool ShotQuickSave::isUsableFolder(const QString& path)
{
    const QFileInfo info(path);
    return info.isAbsolute() && info.isDir() && info.isWritable();
}

ShotFormat ShotQuickSave::format(const ShotPreferences& preferences)
{
    return preferences.enumeration(keys::quickSaveFormat, ShotFormat::png);
}

QString ShotQuickSave::save(const ShotDocument& document, double scale,
                            const ShotPreferences& preferences, const QDateTime& now)
{
    return saveInto(folder(preferences), format(preferences), document, scale, now);
}

QString ShotQuickSave::saveInto(const QString& folder, ShotFormat format,
                                const ShotDocument& document, double scale, const QDateTime& now,
                                double quality)
{
    // Nothing is claimed for options that cannot be exported.
    ShotExporter::validate(document, quality, scale);
    const QString name = ShotFileName::make(now, format, now.timeZone());
    QString path;
    for (int n = 1;; ++n) {
        path = QDir(folder).filePath(n == 1 ? name : ShotFileName::numbered(name, n));
        const int fd = ::open(QFile::encodeName(path).constData(),
                              O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0) {
            ::close(fd);
            break;
        }
        if (errno != EEXIST || n > 10000) {
            throw ImageWriterError(QFileInfo(path).fileName(),
                                   QString::fromLocal8Bit(std::strerror(errno)));
        }
    }
    try {
        ShotExporter::exportShot(document, format, path, quality, scale);
    } catch (...) {
        QFile::remove(path); // the empty placeholder that claimed the name
        throw;
    }
    qCDebug(lcExport) << "Saved" << path;
    return path;
}

QString ShotQuickSave::temporaryBase()
{
    QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.isEmpty() || !QFileInfo(runtime).isDir()) {
        runtime = QDir::tempPath();
    }
    return runtime + QStringLiteral("/NuboShot");
}

QString ShotQuickSave::temporaryExport(const ShotDocument& document, double scale,
                                       const QDateTime& now, QImage* drawn)
{
    const QString folder =
        temporaryBase() + QLatin1Char('/') + QUuid::createUuid().toString(QUuid::WithoutBraces);
    if (!QDir().mkpath(folder)) {
        throw FileError(QStringLiteral("create the folder"), folder, errno ? errno : EACCES);
    }
    const QString path =
        folder + QLatin1Char('/') + ShotFileName::make(now, ShotFormat::png, now.timeZone());
    try {
        ShotExporter::exportShot(ShotRenderer::shared(), document, ShotFormat::png, path, quality,
                                 scale, drawn);
    } catch (...) {
        if (!QDir(folder).removeRecursively()) {
            throw FileError(QStringLiteral("remove the folder"), folder,
                            QStringLiteral("it could not be removed"));
        }
        throw;
    }
    return path;
}

int ShotQuickSave::sweepTemporaryExports(const QDateTime& cutoff)
{
    QDir base(temporaryBase());
    int removed = 0;
    // Only our own folders: a UUID name, nothing else is touched.
    for (const QFileInfo& folder : base.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        if (QUuid::fromString(folder.fileName()).isNull() || folder.lastModified() >= cutoff) {
            continue;
        }
        if (QDir(folder.absoluteFilePath()).removeRecursively()) {
            ++removed;
        } else {
            qCWarning(lcExport, "Temporary export folder could not be removed: %s",
                      qPrintable(folder.absoluteFilePath()));
        }
    }
    return removed;
}

} // namespace nubo
