#pragma once

#include "core/EnumStrings.h"

#include <QAnyStringView>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVariant>

#include <memory>
#include <optional>

class QSettings;

namespace nubo {

// The preference keys, exactly as they are stored.
namespace keys {
inline constexpr char copyRawOnCapture[] = "shot.copyRawOnCapture";
// Whether captures show the pointer where it was.
inline constexpr char includePointer[] = "shot.includePointer";
// Whether a dragged area waits for Return or a double click (adjustable meanwhile).
inline constexpr char adjustArea[] = "shot.adjustArea";
// Whether the capture overlay's and the editor's cards of keys were clicked away.
inline constexpr char overlayKeyHelpSeen[] = "shot.keyHelp.overlaySeen";
inline constexpr char editorKeyHelpSeen[] = "shot.keyHelp.editorSeen";
inline constexpr char returnToSelect[] = "shot.returnToSelect";
inline constexpr char recordWindow[] = "shot.recordWindow";
inline constexpr char quickSaveFormat[] = "shot.quickSaveFormat";
inline constexpr char quickSaveFolder[] = "shot.quickSaveFolder";
// The folder the last Save As wrote into: the next one opens there.
inline constexpr char saveAsFolder[] = "shot.saveAsFolder";
inline constexpr char closeAfterPrefix[] = "shot.closeAfter.";
inline constexpr char recentEnabled[] = "shot.recent.enabled";
inline constexpr char uploadDestination[] = "shot.uploadDestination";
// The shortcut problems last told at start (told again only when they change).
inline constexpr char shortcutProblemsTold[] = "shot.shortcut.problemsTold";
// Whether the editor has told that Filebin links are public (told once).
inline constexpr char filebinPublicToldKey[] = "shot.upload.filebinPublicTold";
// The desktop portal's screen-cast grants (restore tokens and their screens), as JSON.
inline constexpr char portalScreenCastGrants[] = "shot.portal.screenCastGrants";
inline constexpr char stylePrefix[] = "shot.style.";
inline constexpr char styleColor[] = "shot.style.color";
// Colours the user chose beyond the palette, newest first ("#AARRGGBB",
// separated by spaces).
inline constexpr char customColors[] = "shot.palette.customColors";
// The emoji placed last, newest first, separated by spaces.
inline constexpr char emojiRecent[] = "shot.emoji.recent";
// The picker's skin tone: 0 none, 1 to 5 light to dark.
inline constexpr char emojiSkinTone[] = "shot.emoji.skinTone";
inline constexpr char redactMode[] = "shot.redact.mode";
inline constexpr char redactDefault[] = "shot.redact.default.v2";
inline constexpr char recordingCodec[] = "shot.recording.codec";
inline constexpr char recordingResolution[] = "shot.recording.resolution";
inline constexpr char recordingFrameRate[] = "shot.recording.frameRate";
inline constexpr char recordingSystemAudio[] = "shot.recording.systemAudio";
inline constexpr char recordingMicrophone[] = "shot.recording.microphone";
inline constexpr char recordingMicrophoneDeviceID[] = "shot.recording.microphoneDeviceID";
inline constexpr char recordingShowsCursor[] = "shot.recording.showsCursor";
inline constexpr char recordingHighlightsClicks[] = "shot.recording.highlightsClicks";
inline constexpr char recordingCountdown[] = "shot.recording.countdown";
inline constexpr char recordingCamera[] = "shot.recording.camera";
inline constexpr char recordingFolder[] = "shot.recording.folder";
inline constexpr char recordingCameraFrame[] = "shot.recording.camera.frame";
inline constexpr char recordingAvatarSource[] = "shot.recording.avatar.source";
inline constexpr char recordingAvatarCameraDeviceID[] = "shot.recording.avatar.cameraDeviceID";
// Tesseract's names joined by "+" ("deu+eng"); absent: the desktop's language.
inline constexpr char recognitionLanguages[] = "shot.recognition.languages";
// The last framed area: "DISPLAY X Y WIDTH HEIGHT DISPLAY_WIDTH DISPLAY_HEIGHT" in pixels.
inline constexpr char lastArea[] = "shot.lastArea";
// Seconds the menu's and the shortcuts' captures wait before the screen is frozen.
inline constexpr char captureDelay[] = "shot.captureDelay";
} // namespace keys

// Typed reads over the user's preferences (an INI file under
// $XDG_CONFIG_HOME/NuboShot/). A value that is missing or of the wrong kind
// reads as the caller's default, so a hand-edited file can never break a
// feature; the file itself is left as it is.
class ShotPreferences {
public:
    // The user's own preferences file.
    ShotPreferences();
    // A preferences file at a given path (created on first write).
    explicit ShotPreferences(const QString& path);
    ~ShotPreferences();
    ShotPreferences(const ShotPreferences&) = delete;
    ShotPreferences& operator=(const ShotPreferences&) = delete;

    static QString defaultPath();
    QString path() const;

    // true/false only; anything else is the default.
    bool boolean(QAnyStringView key, bool fallback) const;
    // A finite number written as such; anything else is the default.
    double number(QAnyStringView key, double fallback) const;
    std::optional<qint64> integer(QAnyStringView key) const;
    std::optional<QString> string(QAnyStringView key) const;

    // A stored case name of E; a missing or unknown name is the default.
    template <class E> E enumeration(QAnyStringView key, E fallback) const
    {
        const auto text = string(key);
        if (!text) {
            return fallback;
        }
        return fromString<E>(*text).value_or(fallback);
    }

    void setValue(QAnyStringView key, const QVariant& value);
    template <class E>
    requires std::is_enum_v<E>
    void setEnumeration(QAnyStringView key, E value) { setValue(key, toString(value)); }
    void remove(QAnyStringView key);
    bool contains(QAnyStringView key) const;
    // Every stored key, and a value as stored (for a backup).
    QStringList allKeys() const;
    QVariant rawValue(QAnyStringView key) const;
    // Writes pending changes; false when the file could not be written.
    bool sync();

private:
    std::unique_ptr<QSettings> m_settings;
};

} // namespace nubo
