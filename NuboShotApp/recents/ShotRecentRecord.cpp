#include "recents/ShotRecentRecord.h"

#include <QJsonValue>

#include <openssl/sha.h>

namespace nubo {

namespace {

void putOptional(QJsonObject& object, const char* key, const std::optional<QString>& value)
{
    if (value) {
        object.insert(QLatin1String(key), *value);
    }
}

// Absent is fine; present must be a string.
bool takeOptional(const QJsonObject& object, const char* key, std::optional<QString>& into)
{
    const QJsonValue value = object.value(QLatin1String(key));
    if (value.isUndefined() || value.isNull()) {
        return true;
    }
    if (!value.isString()) {
        return false;
    }
    into = value.toString();
    return true;
}

} // namespace

QJsonObject ShotRecentRecord::toJson() const
{
    QJsonObject object{
        {QStringLiteral("id"), id.toString(QUuid::WithoutBraces)},
        {QStringLiteral("date"), date.toUTC().toString(Qt::ISODateWithMs)},
        {QStringLiteral("pixelWidth"), pixelWidth},
        {QStringLiteral("pixelHeight"), pixelHeight},
    };
    putOptional(object, "mode", mode);
    putOptional(object, "title", title);
    putOptional(object, "sourceApp", sourceApp);
    putOptional(object, "contentHash", contentHash);
    return object;
}

std::optional<ShotRecentRecord> ShotRecentRecord::fromJson(const QJsonObject& object)
{
    ShotRecentRecord r;
    r.id = QUuid::fromString(object.value(QLatin1String("id")).toString());
    r.date = QDateTime::fromString(object.value(QLatin1String("date")).toString(),
                                   Qt::ISODateWithMs);
    const QJsonValue width = object.value(QLatin1String("pixelWidth"));
    const QJsonValue height = object.value(QLatin1String("pixelHeight"));
    if (r.id.isNull() || !r.date.isValid() || !width.isDouble() || !height.isDouble()) {
        return std::nullopt;
    }
    r.pixelWidth = width.toInt(-1);
    r.pixelHeight = height.toInt(-1);
    if (r.pixelWidth < 1 || r.pixelHeight < 1 || !takeOptional(object, "mode", r.mode) ||
        !takeOptional(object, "title", r.title) || !takeOptional(object, "sourceApp", r.sourceApp) ||
        !takeOptional(object, "contentHash", r.contentHash)) {
        return std::nullopt;
    }
    return r;
}

ShotRecentError::ShotRecentError(Code code, QString detail)
    : Error(QStringLiteral("The recent image could not be used (%1): %2")
                .arg(toString(code), detail)),
      m_code(code)
{}

QString sha256Hex(const char* data, qsizetype size)
{
    unsigned char digest[SHA256_DIGEST_LENGTH];
    SHA256(reinterpret_cast<const unsigned char*>(data), size_t(size), digest);
    return QString::fromLatin1(
        QByteArray(reinterpret_cast<const char*>(digest), SHA256_DIGEST_LENGTH).toHex());
}

} // namespace nubo
