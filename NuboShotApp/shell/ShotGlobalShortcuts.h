#pragma once

#include "capture/CaptureTypes.h"

#include <QObject>

#include <functional>
#include <memory>

class QSocketNotifier;

namespace nubo {

class ShotPreferences;

// Capture shortcuts that work wherever the focus is: key grabs on the X root
// window, one per capture mode, read from "shot.shortcut.<mode>" with
// defaults Print (fullscreen), Shift+Print (area), Alt+Print (window) and
// Ctrl+Shift+Print (scrolling). A key another program holds is skipped and
// reported once, never fatal.
class ShotGlobalShortcuts : public QObject {
    Q_OBJECT
public:
    ShotGlobalShortcuts(ShotPreferences& preferences, std::function<void(CaptureMode)> capture,
                        QObject* parent = nullptr);
    ~ShotGlobalShortcuts() override;

    static QString defaultShortcut(CaptureMode mode);
    // The shortcuts that could not be had, with the reason, in words.
    const QStringList& problems() const { return m_problems; }

private:
    struct Grab;
    void readEvents();

    std::function<void(CaptureMode)> m_capture;
    struct Connection;
    std::unique_ptr<Connection> m_x;
    std::unique_ptr<QSocketNotifier> m_notifier;
    QStringList m_problems;
};

} // namespace nubo
