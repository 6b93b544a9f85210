#pragma once

#include <QByteArray>
#include <QString>

#include <exception>

namespace nubo {

// Every error the engine throws derives from this type. The message is one
// complete English sentence that the interface shows to the user as it stands.
class Error : public std::exception {
public:
    explicit Error(QString message);

    const QString& message() const noexcept { return m_message; }
    const char* what() const noexcept override { return m_utf8.constData(); }

private:
    QString m_message;
    QByteArray m_utf8;
};

// A failure of the file system, worded with the path and the system's reason.
class FileError : public Error {
public:
    FileError(const QString& action, const QString& path, int errorNumber);
    FileError(const QString& action, const QString& path, const QString& reason);

    const QString& path() const noexcept { return m_path; }

private:
    QString m_path;
};

} // namespace nubo
