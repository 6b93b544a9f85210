#pragma once

#include "capture/GlobalShortcuts.h"

#include <QByteArray>

#include <memory>
#include <vector>

class QSocketNotifier;

namespace nubo {

class XcbConnection;

// Global shortcuts on X11: key grabs on the root window over a connection
// of their own, read on the main thread as the connection has events. Num
// Lock and Caps Lock do not stop a shortcut. A key another client grabbed
// first is reported, never fatal.
class XcbGlobalShortcuts : public GlobalShortcuts {
public:
    // Throws CaptureError naming the display when it cannot be reached.
    explicit XcbGlobalShortcuts(const QByteArray& displayName = {});
    ~XcbGlobalShortcuts() override;

    QStringList bind(const QList<GlobalShortcutBinding>& bindings) override;

private:
    struct Grab {
        uint8_t keycode;
        uint16_t modifiers;
        QString id;
    };
    void readEvents();
    void releaseGrabs();

    std::unique_ptr<XcbConnection> m_x;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<Grab> m_grabs;
};

} // namespace nubo
