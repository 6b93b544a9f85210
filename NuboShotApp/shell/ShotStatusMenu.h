#pragma once

#include "capture/CaptureTypes.h"

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
    };

    ShotStatusMenu(Actions actions, QObject* parent = nullptr);

    QMenu& menu() { return m_menu; }
    // Shows the global shortcut of a capture item beside its title.
    void setCaptureShortcut(CaptureMode mode, const QKeySequence& keys);
    QAction* captureItem(CaptureMode mode) const;
    static QString captureTitle(CaptureMode mode);

private:
    QMenu m_menu;
    Actions m_actions;
};

} // namespace nubo
