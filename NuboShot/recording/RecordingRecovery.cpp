#include "recording/RecordingRecovery.h"

#include "core/FileWriting.h"
#include "core/Logging.h"
#include "recording/RecordingWriter.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <unistd.h>

namespace nubo::RecordingRecovery {

namespace {

// Whether the process that wrote a marker still runs (and is one of ours).
bool stillRecording(qint64 pid)
{
    if (pid <= 0) {
        return false;
    }
    if (pid == ::getpid()) {
        return true;
    }
    QFile comm(QStringLiteral("/proc/%1/comm").arg(pid));
    return comm.open(QIODevice::ReadOnly) && comm.readAll().trimmed() == "nuboshot";
}

} // namespace

QString markerFolder()
{
    QString state = qEnvironmentVariable("XDG_STATE_HOME");
    if (state.isEmpty()) {
        state = QDir::homePath() + QStringLiteral("/.local/state");
    }
    return state + QStringLiteral("/NuboShot/recordings");
}

QString mark(const QString& movie)
{
    const QString folder = markerFolder();
    QDir().mkpath(folder);
    const QString path =
        folder + QLatin1Char('/') +
        QString::fromLatin1(
            QCryptographicHash::hash(QFile::encodeName(movie), QCryptographicHash::Sha1).toHex()) +
        QStringLiteral(".json");
    const QJsonObject marker{{QStringLiteral("movie"), QFileInfo(movie).absoluteFilePath()},
                             {QStringLiteral("pid"), qint64(::getpid())}};
    try {
        FileWriting::writeAtomically(QJsonDocument(marker).toJson(QJsonDocument::Compact), path);
    } catch (const Error& error) {
        // The recording goes on; only its recovery after a crash is lost.
        qCWarning(lcRecordingWriter, "No recovery marker: %s", qPrintable(error.message()));
        return {};
    }
    return path;
}

void unmark(const QString& marker)
{
    if (!marker.isEmpty()) {
        QFile::remove(marker);
    }
}

QStringList recoverInterrupted()
{
    QStringList recovered;
    const QDir folder(markerFolder());
    for (const QString& name : folder.entryList({QStringLiteral("*.json")}, QDir::Files)) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly) || file.size() > 65536) {
            continue;
        }
        const QJsonObject marker = QJsonDocument::fromJson(file.readAll()).object();
        file.close();
        const QString movie = marker.value(QLatin1String("movie")).toString();
        if (stillRecording(marker.value(QLatin1String("pid")).toInteger())) {
            continue;
        }
        const QFileInfo info(movie);
        if (!movie.isEmpty() && info.isFile() && !info.isSymLink() && info.size() > 0) {
            try {
                RecordingWriter::moveIndexToFront(movie);
                recovered.append(movie);
                qCInfo(lcRecordingWriter, "Recovered an interrupted recording: %s",
                       qPrintable(movie));
            } catch (const Error& error) {
                // Left as it is: a fragmented movie still plays in most players.
                qCWarning(lcRecordingWriter, "Interrupted recording %s not recovered: %s",
                          qPrintable(movie), qPrintable(error.message()));
            }
        }
        QFile::remove(folder.filePath(name));
    }
    return recovered;
}

} // namespace nubo::RecordingRecovery
