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
    FileError(const QString& action, const QString& path, const QString& reason,
              int errorNumber = 0);

    const QString& path() const noexcept { return m_path; }
    // The cause alone, without the action and the path.
    const QString& reason() const noexcept { return m_reason; }
    // The system's error number behind it; 0 when there was none.
    int errorNumber() const noexcept { return m_errorNumber; }

private:
    QString m_path;
    QString m_reason;
    int m_errorNumber = 0;
};

} // namespace nubo
