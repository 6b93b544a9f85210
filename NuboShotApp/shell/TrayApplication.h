#pragma once

#include "shell/BusNames.h"

#include "capture/CaptureTypes.h"
#include "recording/RecordingTypes.h"
#include "shell/ShotStatusMenu.h"

#include <QIcon>
#include <QMenu>
#include <QObject>
#include <QSystemTrayIcon>

#include <memory>

namespace nubo {

class CapturePlatform;
class ShotBusService;
class ShotFeature;
class ShotPreferences;
class ShotRecentStore;
class ShotRecordingFlow;
class ShotGlobalShortcuts;
class ShotSettingsWindow;
class ShotUploadHistory;

// The program as it lives in the tray: one instance per session, found by
// its name on the session bus.
class TrayApplication : public QObject {
    Q_OBJECT
public:
    static constexpr const char* busName = bus::name;

    enum class Start { started, alreadyRunning };

    explicit TrayApplication(QObject* parent = nullptr);
    ~TrayApplication() override;

    // Claims the bus name and shows the tray icon.
    Start start();

    ShotFeature* feature() { return m_feature.get(); }

private:
    // The steps of start(), in order.
    bool claimBusName(); // false: another instance has it
    void loadPlatform();
    void makeFeatures();
    ShotStatusMenu::Actions menuActions();
    void makeMenu();
    void bindShortcuts();
    void offerBusService();
    void recoverRecordings();
    void tellInterruptedUploads();

    void openImage();
    void showSettings();
    void showUploads();
    void quit();
    // A capture the menu or a shortcut asks for, unless a recording is being framed.
    void capture(CaptureMode mode);
    void shortcutPressed(const QString& action);
    // The tray icon shows whether a recording runs, and whether it is paused.
    void showRecordingState(const RecordingState& state);
    // The tray icon counts a delayed capture's seconds down.
    void showDelay(int secondsLeft);

    QSystemTrayIcon m_tray;
    QIcon m_icon; // the program's own, at rest
    std::unique_ptr<ShotPreferences> m_preferences;
    std::unique_ptr<ShotRecentStore> m_recents;
    std::unique_ptr<ShotFeature> m_feature;
    std::unique_ptr<ShotRecordingFlow> m_recording;
    std::unique_ptr<ShotStatusMenu> m_menu;
    std::unique_ptr<ShotGlobalShortcuts> m_shortcuts;
    std::shared_ptr<CapturePlatform> m_platform;
    std::unique_ptr<ShotBusService> m_service;
    // Uses the preferences and shortcuts above: declared after them, it goes first.
    std::unique_ptr<ShotSettingsWindow> m_settings;
    std::unique_ptr<ShotUploadHistory> m_uploads;
};

} // namespace nubo
