#pragma once

#include "capture/CaptureTypes.h"
#include "recents/ShotRecentStore.h"
#include "recording/RecordingTypes.h"

#include <QMenu>
#include <QObject>
#include <QTimer>

#include <functional>

namespace nubo {

class ShotFeature;

// The tray icon's menu: the capture modes, recording (and, while a
// recording runs, its elapsed time, pause or resume, stop and cancel),
// opening an image, recent images, settings, quit.
class ShotStatusMenu : public QObject {
    Q_OBJECT
public:
    struct PinnedItem {
        QString label;
        QImage thumbnail;
    };
    struct Actions {
        std::function<void(CaptureMode)> capture;
        std::function<void()> openImage;
        std::function<void()> settings;
        std::function<void()> quit;
        // Whether a capture mode can be chosen; every one when not given.
        std::function<bool(CaptureMode)> isOffered;
        // The Recent submenu: shown while recentEnabled() answers true.
        std::function<bool()> recentEnabled;
        std::function<QList<ShotRecentEntry>()> recentItems;
        std::function<void(const QUuid& id)> openRecent;
        std::function<void()> clearRecent;
        // The upload history window; no item when not given.
        std::function<void()> uploads;
        // Recording: shown disabled without canRecord.
        std::function<bool()> canRecord;
        std::function<void()> recordScreen;
        // The windows a recording can take, asked when the submenu opens.
        std::function<QList<CapturableWindow>()> recordableWindows;
        std::function<void(const CapturableWindow&)> recordWindow;
        std::function<RecordingState()> recordingState;
        std::function<void()> pauseRecording;
        std::function<void()> resumeRecording;
        std::function<void()> stopRecording;
        std::function<void()> cancelRecording;
        // The Delay submenu: the seconds the menu's and the shortcuts'
        // captures wait; while one waits, its seconds and how to cancel it.
        std::function<int()> captureDelay;
        std::function<void(int seconds)> setCaptureDelay;
        std::function<int()> delayLeft;
        std::function<void()> cancelDelay;
        // The Pinned submenu, shown while shots are pinned.
        std::function<QList<PinnedItem>()> pinnedItems;
        std::function<void(int index)> raisePin;
        std::function<void()> closePins;
    };

    ShotStatusMenu(Actions actions, QObject* parent = nullptr);

    QMenu& menu() { return m_menu; }
    // Shows the global shortcut of a capture item beside its title.
    void setCaptureShortcut(CaptureMode mode, const QKeySequence& keys);
    QAction* captureItem(CaptureMode mode) const;
    static QString captureTitle(CaptureMode mode);
    // Fills the Recent submenu again (also done each time the menu opens).
    void refreshRecent();
    QMenu& recentMenu() { return m_recent; }
    // Shows the recording items as the recording stands (also done while
    // the menu is open, four times a second).
    void refreshRecording();
    QMenu& recordWindowMenu() { return m_recordWindow; }
    QMenu& delayMenu() { return m_delay; }
    QMenu& pinnedMenu() { return m_pinned; }
    // Shows the delay under way, or hides its item.
    void refreshDelay();
    // Fills the Pinned submenu again (also done each time the menu opens).
    void refreshPinned();
    // Shows the recording shortcut beside "Record Screen".
    void setRecordingShortcut(const QKeySequence& keys);
    // "Title — Application", or whichever of the two the window has.
    static QString windowLabel(const CapturableWindow& window);
    // "Area · 14:05", "Firefox · 22 Nov, 09:30".
    static QString recentLabel(const ShotRecentRecord& record, const QDateTime& now);

private:
    void fillRecordWindow();

    QMenu m_menu;
    QMenu m_recent;
    QMenu m_recordWindow;
    QMenu m_delay;
    QMenu m_pinned;
    QAction* m_cancelDelay = nullptr;
    QAction* m_recordScreen = nullptr;
    QAction* m_elapsed = nullptr;
    QAction* m_pause = nullptr;
    QAction* m_stop = nullptr;
    QAction* m_cancel = nullptr;
    QTimer m_clock; // the elapsed time while the menu is open
    Actions m_actions;
};

} // namespace nubo
