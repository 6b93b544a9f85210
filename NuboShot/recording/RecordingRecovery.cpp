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

#include <algorithm>

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

// Whether a fragmented movie holds any fragment: its top-level boxes are
// walked for a 'moof'. A recording killed before its first picture reached
// the disk has only its header ('ftyp', 'moov'), or less.
bool holdsFragment(const QString& movie)
{
    QFile file(movie);
    if (!file.open(QIODevice::ReadOnly)) {
        return true; // unknown: left for the reader to judge
    }
    const qint64 end = file.size();
    qint64 at = 0;
    while (at + 8 <= end && file.seek(at)) {
        const QByteArray head = file.read(16);
        if (head.size() < 8) {
            break;
        }
        const auto byte = [&](int i) { return quint64(quint8(head[i])); };
        quint64 size = byte(0) << 24 | byte(1) << 16 | byte(2) << 8 | byte(3);
        if (head.mid(4, 4) == "moof") {
            return true;
        }
        if (size == 1 && head.size() == 16) {
            size = 0;
            for (int i = 8; i < 16; ++i) {
                size = size << 8 | byte(i);
            }
        } else if (size == 0) {
            size = quint64(end - at); // to the end of the file
        }
        if (size < 8) {
            break;
        }
        at += qint64(std::min<quint64>(size, quint64(end)));
    }
    return false;
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

Recovered recoverInterrupted()
{
    Recovered recovered;
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
        if (!movie.isEmpty() && info.isFile() && !info.isSymLink()) {
            try {
                if (holdsFragment(movie) && RecordingWriter::moveIndexToFront(movie) > 0) {
                    recovered.movies.append(movie);
                    qCInfo(lcRecordingWriter, "Recovered an interrupted recording: %s",
                           qPrintable(movie));
                } else {
                    QFile::remove(movie);
                    recovered.empty.append(movie);
                    qCInfo(lcRecordingWriter, "An interrupted recording held no picture: %s",
                           qPrintable(movie));
                }
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
