#pragma once

#include "recording/CameraStreamSource.h"
#include "recording/RecordingAudioServer.h"
#include "recording/RecordingTypes.h"

#include <QObject>

class QAbstractButton;
class QComboBox;
class QWidget;

namespace nubo {

class ShotPreferences;

// Why an option cannot be chosen on this computer; empty when it can.
namespace ShotRecordingProblems {
QString microphone(const RecordingCapabilities& capabilities);
QString clickHighlight(const RecordingCapabilities& capabilities);
QString hevc(const RecordingCapabilities& capabilities);
QString camera();
} // namespace ShotRecordingProblems

// The controls of the recording options, each bound to its "shot.recording.…"
// key: written the moment it changes, shown again by reload(). The options
// bar lays them out as compact toggles, the settings page as a form; an
// option this computer cannot record is disabled with its reason as tip.
class ShotRecordingControls : public QObject {
    Q_OBJECT
public:
    enum class Look { toggles, form };

    ShotRecordingControls(ShotPreferences& preferences, RecordingCapabilities capabilities,
                          Look look, QWidget* parent);

    // The options as the controls show them (the preferences' values).
    RecordingOptions options() const;
    void reload();
    // Fills the device list (asked of the audio server off the main thread
    // by the caller); a stored device that is missing stays listed as such.
    void setMicrophones(const QList<RecordingAudioDevice>& devices, const QString& problem = {});
    // The microphone list from the audio server, off the main thread.
    void loadMicrophones();
    // The cameras (the system's, and a stored stream file); the camera
    // option is disabled without any.
    void setCameras(const QList<CameraDevice>& cameras);

    QAbstractButton* systemAudio = nullptr;
    QAbstractButton* microphone = nullptr;
    QComboBox* microphoneDevice = nullptr;
    QAbstractButton* camera = nullptr;
    QComboBox* cameraDevice = nullptr;
    QAbstractButton* cursor = nullptr;
    QAbstractButton* clicks = nullptr;
    QComboBox* frameRate = nullptr;
    QComboBox* resolution = nullptr;
    QComboBox* codec = nullptr;

signals:
    void changed();

private:
    QAbstractButton* makeToggle(const QString& text, const QString& icon, const QString& name);
    void write();

    ShotPreferences& m_preferences;
    RecordingCapabilities m_capabilities;
    Look m_look;
    QWidget* m_parent;
    bool m_loading = false;
    QList<CameraDevice> m_cameras; // what the camera list offers
    bool m_hasCamera = false;
};

} // namespace nubo
