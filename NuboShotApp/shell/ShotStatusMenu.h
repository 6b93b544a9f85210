#pragma once

#include "capture/CaptureTypes.h"
#include "recents/ShotRecentStore.h"

#include <QMenu>
#include <QObject>

#include <functional>

namespace nubo {

class ShotFeature;

// The tray icon's menu: the capture modes, opening an image, settings, quit.
class ShotStatusMenu : public QObject {
    Q_OBJECT
public:
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
    // "Area · 14:05", "Firefox · 22 Nov, 09:30".
    static QString recentLabel(const ShotRecentRecord& record, const QDateTime& now);

private:
    QMenu m_menu;
    QMenu m_recent;
    Actions m_actions;
};

} // namespace nubo
