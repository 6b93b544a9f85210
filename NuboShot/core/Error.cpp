#include "core/Error.h"

#include <cstring>

namespace nubo {

Error::Error(QString message) : m_message(std::move(message)), m_utf8(m_message.toUtf8())
{}

FileError::FileError(const QString& action, const QString& path, int errorNumber)
    : FileError(action, path, QString::fromLocal8Bit(std::strerror(errorNumber)), errorNumber)
{}

FileError::FileError(const QString& action, const QString& path, const QString& reason,
                     int errorNumber)
    : Error(QStringLiteral("Could not %1 \u201c%2\u201d: %3.").arg(action, path, reason)),
      m_path(path), m_reason(reason), m_errorNumber(errorNumber)
{}

} // namespace nubo
