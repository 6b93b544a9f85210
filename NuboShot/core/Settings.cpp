#include "core/Settings.h"

#include "core/Logging.h"

#include <QSettings>

#include <cmath>

namespace nubo {

namespace {
QString keyString(QAnyStringView key)
{
    return key.toString();
}
} // namespace

ShotPreferences::ShotPreferences()
    : m_settings(std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope,
                                             QStringLiteral("NuboShot"),
                                             QStringLiteral("NuboShot")))
{}

ShotPreferences::ShotPreferences(const QString& path)
    : m_settings(std::make_unique<QSettings>(path, QSettings::IniFormat))
{}

ShotPreferences::~ShotPreferences() = default;

QString ShotPreferences::defaultPath()
{
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("NuboShot"),
                     QStringLiteral("NuboShot"))
        .fileName();
}

QString ShotPreferences::path() const
{
    return m_settings->fileName();
}

bool ShotPreferences::boolean(QAnyStringView key, bool fallback) const
{
    const QVariant value = m_settings->value(keyString(key));
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool();
    }
    if (value.typeId() == QMetaType::QString) {
        const QString text = value.toString();
        if (text == QLatin1String("true")) {
            return true;
        }
        if (text == QLatin1String("false")) {
            return false;
        }
    }
    if (value.isValid()) {
        qCDebug(lcSettings) << "Ignoring" << keyString(key) << "that is not a Boolean";
    }
    return fallback;
}

double ShotPreferences::number(QAnyStringView key, double fallback) const
{
    const QVariant value = m_settings->value(keyString(key));
    bool ok = false;
    double result = 0;
    if (value.typeId() == QMetaType::QString) {
        result = value.toString().trimmed().toDouble(&ok);
    } else if (value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Int ||
               value.typeId() == QMetaType::LongLong) {
        result = value.toDouble(&ok);
    }
    return ok && std::isfinite(result) ? result : fallback;
}

std::optional<qint64> ShotPreferences::integer(QAnyStringView key) const
{
    const QVariant value = m_settings->value(keyString(key));
    bool ok = false;
    qint64 result = 0;
    if (value.typeId() == QMetaType::QString) {
        result = value.toString().trimmed().toLongLong(&ok);
    } else if (value.typeId() == QMetaType::Int || value.typeId() == QMetaType::LongLong) {
        result = value.toLongLong(&ok);
    }
    return ok ? std::optional(result) : std::nullopt;
}

std::optional<QString> ShotPreferences::string(QAnyStringView key) const
{
    const QVariant value = m_settings->value(keyString(key));
    if (value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return value.toString();
}

void ShotPreferences::setValue(QAnyStringView key, const QVariant& value)
{
    m_settings->setValue(keyString(key), value);
}

void ShotPreferences::remove(QAnyStringView key)
{
    m_settings->remove(keyString(key));
}

bool ShotPreferences::contains(QAnyStringView key) const
{
    return m_settings->contains(keyString(key));
}

QStringList ShotPreferences::allKeys() const
{
    return m_settings->allKeys();
}

QVariant ShotPreferences::rawValue(QAnyStringView key) const
{
    return m_settings->value(keyString(key));
}

bool ShotPreferences::sync()
{
    m_settings->sync();
    if (m_settings->status() != QSettings::NoError) {
        qCWarning(lcSettings) << "Could not write preferences to" << m_settings->fileName();
        return false;
    }
    return true;
}

} // namespace nubo
