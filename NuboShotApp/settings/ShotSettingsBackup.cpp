#include "settings/ShotSettingsBackup.h"

#include "core/Error.h"
#include "core/FileWriting.h"
#include "core/Settings.h"
#include "document/ShotDocumentCoding.h"
#include "editor/ShotToolKind.h"
#include "export/ShotFormat.h"
#include "shortcuts/ShotGlobalShortcuts.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QKeySequence>

namespace nubo {

namespace {

constexpr char formatName[] = "nuboshot-settings";
constexpr qint64 largestBackup = 1 << 20;

enum class Kind { unknown, boolean, text, format, shortcut, toolStyle, destination, anything };

struct KnownKey {
    const char* key;
    bool prefix;
    Kind kind;
};

// Exact keys before the prefixes that would also match them.
constexpr KnownKey knownKeys[] = {
    {keys::copyRawOnCapture, false, Kind::boolean},
    {keys::returnToSelect, false, Kind::boolean},
    {keys::includePointer, false, Kind::boolean},
    {keys::adjustArea, false, Kind::boolean},
    {"shot.keyHelp.", true, Kind::boolean},
    {keys::saveAsFolder, false, Kind::text},
    {keys::emojiRecent, false, Kind::text},
    {keys::emojiSkinTone, false, Kind::anything},
    {keys::recentEnabled, false, Kind::boolean},
    {keys::closeAfterPrefix, true, Kind::boolean},
    {keys::quickSaveFormat, false, Kind::format},
    {keys::quickSaveFolder, false, Kind::text},
    {keys::uploadDestination, false, Kind::destination},
    {"shot.shortcut.", true, Kind::shortcut},
    {keys::styleColor, false, Kind::text},
    {keys::stylePrefix, true, Kind::toolStyle},
    {keys::customColors, false, Kind::text},
    {keys::redactMode, false, Kind::text},
    {keys::redactDefault, false, Kind::text},
    {"shot.recording.", true, Kind::anything},
};

Kind kindOf(const QString& key)
{
    for (const KnownKey& known : knownKeys) {
        const QLatin1String name(known.key);
        if (known.prefix ? key.startsWith(name) && key.size() > name.size() : key == name) {
            return known.kind;
        }
    }
    return Kind::unknown;
}

std::optional<bool> asBoolean(const QVariant& value)
{
    if (value.typeId() == QMetaType::Bool) {
        return value.toBool();
    }
    if (value.typeId() == QMetaType::QString) {
        if (value.toString() == QLatin1String("true")) {
            return true;
        }
        if (value.toString() == QLatin1String("false")) {
            return false;
        }
    }
    return std::nullopt;
}

// Why a value cannot be restored under its key; empty when it can.
QString refusal(const QString& key, const QJsonValue& value)
{
    switch (kindOf(key)) {
    case Kind::unknown:
        return QCoreApplication::translate("nubo::ShotSettingsBackup",
                                           "not a setting of this version");
    case Kind::boolean:
        return value.isBool()
                   ? QString()
                   : QCoreApplication::translate("nubo::ShotSettingsBackup", "not true or false");
    case Kind::text:
        return value.isString()
                   ? QString()
                   : QCoreApplication::translate("nubo::ShotSettingsBackup", "not a text");
    case Kind::format:
        return value.isString() && fromString<ShotFormat>(value.toString())
                   ? QString()
                   : QCoreApplication::translate("nubo::ShotSettingsBackup",
                                                 "not png, jpeg, heic or webp");
    case Kind::destination: {
        const QString text = value.toString();
        return text == QLatin1String("auto") || text == QLatin1String("r2") ||
                       text == QLatin1String("filebin")
                   ? QString()
                   : QCoreApplication::translate("nubo::ShotSettingsBackup",
                                                 "not auto, r2 or filebin");
    }
    case Kind::shortcut: {
        const auto mode = fromString<CaptureMode>(key.mid(int(qstrlen("shot.shortcut."))));
        if (!mode) {
            return QCoreApplication::translate("nubo::ShotSettingsBackup",
                                               "not a capture of this version");
        }
        if (!value.isString()) {
            return QCoreApplication::translate("nubo::ShotSettingsBackup", "not a key");
        }
        const QKeySequence keys =
            QKeySequence::fromString(value.toString(), QKeySequence::PortableText);
        return value.toString().isEmpty() || keys.count() == 1
                   ? QString()
                   : QCoreApplication::translate("nubo::ShotSettingsBackup", "not a key");
    }
    case Kind::toolStyle: {
        if (!fromString<ShotToolKind>(key.mid(int(qstrlen(keys::stylePrefix))))) {
            return QCoreApplication::translate("nubo::ShotSettingsBackup",
                                               "not a tool of this version");
        }
        const QJsonDocument style = QJsonDocument::fromJson(value.toString().toUtf8());
        if (!value.isString() || !style.isObject()) {
            return QCoreApplication::translate("nubo::ShotSettingsBackup", "not a style");
        }
        try {
            coding::decodeStyle(style.object());
        } catch (const coding::DecodingFailure&) {
            return QCoreApplication::translate("nubo::ShotSettingsBackup", "not a style");
        }
        return {};
    }
    case Kind::anything:
        return value.isBool() || value.isDouble() || value.isString()
                   ? QString()
                   : QCoreApplication::translate("nubo::ShotSettingsBackup", "not a plain value");
    }
    return {};
}

} // namespace

bool ShotSettingsBackup::isSecret(const QString& key)
{
    for (const char* word : {"secret", "password", "token", "credential", "accesskey"}) {
        if (key.contains(QLatin1String(word), Qt::CaseInsensitive)) {
            return true;
        }
    }
    return false;
}

QByteArray ShotSettingsBackup::backup(const ShotPreferences& preferences)
{
    QJsonObject settings;
    for (const QString& key : preferences.allKeys()) {
        if (!key.startsWith(QLatin1String("shot.")) || isSecret(key)) {
            continue;
        }
        const QVariant value = preferences.rawValue(key);
        switch (kindOf(key)) {
        case Kind::boolean:
            if (const auto on = asBoolean(value)) {
                settings.insert(key, *on);
            }
            break;
        case Kind::anything:
            if (const auto on = asBoolean(value)) {
                settings.insert(key, *on);
            } else {
                settings.insert(key, QJsonValue::fromVariant(value));
            }
            break;
        default:
            settings.insert(key, value.toString());
            break;
        }
    }
    QJsonObject file{{QStringLiteral("format"), QLatin1String(formatName)},
                     {QStringLiteral("version"), version},
                     {QStringLiteral("settings"), settings}};
    return QJsonDocument(file).toJson(QJsonDocument::Indented);
}

void ShotSettingsBackup::write(const ShotPreferences& preferences, const QString& path)
{
    FileWriting::writeAtomically(backup(preferences), path);
}

ShotSettingsBackup::Report ShotSettingsBackup::restore(ShotPreferences& preferences,
                                                       const QByteArray& data)
{
    Report report;
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(data, &error);
    if (json.isNull() || !json.isObject()) {
        report.problem =
            QCoreApplication::translate("nubo::ShotSettingsBackup", "The file is not a settings backup, or it is damaged "
                           "(%1): nothing was restored.")
                .arg(json.isNull() ? error.errorString()
                                   : QCoreApplication::translate("nubo::ShotSettingsBackup",
                                                                 "no settings in it"));
        return report;
    }
    const QJsonObject file = json.object();
    if (file.value(QStringLiteral("format")).toString() != QLatin1String(formatName) ||
        !file.value(QStringLiteral("settings")).isObject()) {
        report.problem = QCoreApplication::translate(
            "nubo::ShotSettingsBackup",
            "The file is not a Nubo Shot settings backup: nothing was restored.");
        return report;
    }
    report.newerVersion = file.value(QStringLiteral("version")).toInt(version) > version;
    const QJsonObject settings = file.value(QStringLiteral("settings")).toObject();
    for (auto it = settings.begin(); it != settings.end(); ++it) {
        const QString key = it.key();
        QString why = isSecret(key)
                          ? QCoreApplication::translate("nubo::ShotSettingsBackup",
                                                        "secrets are never restored from a file")
                          : refusal(key, it.value());
        if (!why.isEmpty()) {
            report.skipped << QStringLiteral("%1: %2").arg(key, why);
            continue;
        }
        preferences.setValue(key, it.value().toVariant());
        ++report.restored;
    }
    preferences.sync();
    return report;
}

ShotSettingsBackup::Report ShotSettingsBackup::restoreFile(ShotPreferences& preferences,
                                                           const QString& path)
{
    Report report;
    const QFileInfo info(path);
    if (!info.isFile()) {
        report.problem =
            QCoreApplication::translate("nubo::ShotSettingsBackup", "“%1” is not a file.")
                .arg(path);
        return report;
    }
    if (info.size() > largestBackup) {
        report.problem = QCoreApplication::translate("nubo::ShotSettingsBackup", "“%1” is larger than any settings backup "
                                        "(over 1 MiB): nothing was restored.")
                             .arg(info.fileName());
        return report;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        report.problem =
            QCoreApplication::translate("nubo::ShotSettingsBackup", "“%1” cannot be read: %2.")
                .arg(info.fileName(), file.errorString());
        return report;
    }
    return restore(preferences, file.read(largestBackup + 1));
}

QString ShotSettingsBackup::Report::summary() const
{
    if (!problem.isEmpty()) {
        return problem;
    }
    QString text = QCoreApplication::translate("nubo::ShotSettingsBackup",
                                               "%n setting(s) restored.", nullptr, restored);
    if (newerVersion) {
        text += QCoreApplication::translate("nubo::ShotSettingsBackup",
                                            " The backup comes from a newer Nubo Shot.");
    }
    if (!skipped.isEmpty()) {
        text += QCoreApplication::translate("nubo::ShotSettingsBackup", " Skipped: ") +
                skipped.join(QStringLiteral("; ")) + QLatin1Char('.');
    }
    return text;
}

} // namespace nubo
