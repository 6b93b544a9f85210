#include "editor/ShotToolStyles.h"

#include "core/Settings.h"
#include "document/ShotDocumentCoding.h"

#include <QJsonDocument>
#include <QJsonObject>

namespace nubo {

ShotStyle defaultToolStyle(ShotToolKind tool)
{
    ShotStyle style;
    if (tool == ShotToolKind::text) {
        style.fontSize = 20;
    } else if (tool == ShotToolKind::emoji) {
        style.fontSize = 48; // a click places an emoji big enough to read
    } else if (tool == ShotToolKind::highlighter) {
        style.color = ShotColor::fromQColor(QColor(255, 214, 10)); // the palette's yellow
        // over a line of text
        style.lineWidth = 16;
    }
    return style;
}

ShotStyle storedToolStyle(const ShotPreferences& preferences, ShotToolKind tool)
{
    const auto stored = preferences.string(QLatin1String(keys::stylePrefix) + toString(tool));
    if (stored) {
        const QJsonDocument json = QJsonDocument::fromJson(stored->toUtf8());
        if (json.isObject()) {
            try {
                return coding::decodeStyle(json.object());
            } catch (const coding::DecodingFailure&) {
                // A damaged value reads as the default style.
            }
        }
    }
    return defaultToolStyle(tool);
}

void storeToolStyle(ShotPreferences& preferences, ShotToolKind tool, const ShotStyle& style)
{
    preferences.setValue(
        QLatin1String(keys::stylePrefix) + toString(tool),
        QString::fromUtf8(
            QJsonDocument(coding::encodeStyle(style)).toJson(QJsonDocument::Compact)));
    preferences.setValue(
        keys::styleColor,
        QString::fromUtf8(
            QJsonDocument(coding::encodeColor(style.color)).toJson(QJsonDocument::Compact)));
}

} // namespace nubo
