#pragma once

#include <QString>
#include <QStringList>

namespace nubo {

// Recordings under way leave a marker (the movie's path and the recording
// process) in $XDG_STATE_HOME/NuboShot/recordings; a finished or cancelled
// recording takes it away. A marker whose process is gone belongs to an
// interrupted recording: its movie is a fragmented MP4 that plays up to its
// last fragment, and recovering it moves its index to the front.
namespace RecordingRecovery {

QString markerFolder();
// The marker of a recording into `movie` by this process; its path.
QString mark(const QString& movie);
void unmark(const QString& marker);
struct Recovered {
    QStringList movies;
    // Interrupted before their first picture reached the disk: removed.
    QStringList empty;
};
// Finalises every interrupted recording. Blocking (file work); any thread.
Recovered recoverInterrupted();

} // namespace RecordingRecovery

} // namespace nubo
