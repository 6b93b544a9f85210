#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace nubo::FileWriting {

// Why writing into `path` failed with `errorNumber`, in words that name the
// real cause and the place: "the disk holding “/home/ann/Pictures” is full".
QString reason(int errorNumber, const QString& path);

// What a path that exists and is not a regular file is ("a pipe (FIFO)",
// "a device", …, following links); nothing for a regular file or no file.
std::optional<QString> specialKind(const QString& path);

// Refuses, with a FileError, a path that exists and is not a regular file
// (following links): a FIFO, a device, a socket or a folder is never opened
// for writing or replaced.
void refuseSpecialTarget(const QString& path);

// The process's umask, read without changing it (022 when it cannot be
// read), and the permissions a new file of the user gets (0666 less it):
// for files and folders first made under a private temporary name.
unsigned userUmask();
unsigned newFileMode();

// Writes `data` to `path` through a new temporary sibling that is synced and
// then renamed over it: a failure leaves neither a partial file nor a
// damaged old one. A link is written through to the file it names. Throws
// FileError with reason().
void writeAtomically(const QByteArray& data, const QString& path);

// Writes `data` into a new file at `path` (which must not exist) and syncs
// it. Throws FileError with reason(); a partial file is removed.
void writeNewFile(const QByteArray& data, const QString& path);

} // namespace nubo::FileWriting
