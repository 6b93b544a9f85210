#pragma once

#include "recents/ShotRecentRecord.h"

#include <QObject>

#include <functional>
#include <optional>

class QMimeData;

namespace nubo {

class ShotClipboard;

// Watches the clipboard for images copied in other applications: on each
// change the window system reports, it compares the clipboard's change
// count with the last one seen and only then looks at the content. Nothing
// runs while the clipboard stays as it is. Whatever is on the clipboard when it
// starts is never taken; our own writes, concealed or transient content
// (password managers), oversized data and anything that is not an image are
// passed over silently. Main thread.
class ShotRecentClipboardWatcher : public QObject {
    Q_OBJECT
public:
    static constexpr qint64 maximumBytes = 200'000'000;
    static constexpr qint64 maximumPixels = 100'000'000;

    using Receive = std::function<void(const ShotRecentImagePayload& payload,
                                       const std::optional<QString>& sourceApp)>;
    ShotRecentClipboardWatcher(ShotClipboard& clipboard,
                               std::function<std::optional<QString>()> sourceApp, Receive receive,
                               QObject* parent = nullptr);

    // Optional: content is only read while it answers true.
    std::function<bool()> accessAllowed;

    void start();
    void stop();
    bool isRunning() const { return m_isRunning; }
    // One look, made after each change of the clipboard.
    void poll();
    // How many ticks found a change and looked at the clipboard's content.
    qint64 pollsThatLooked() const { return m_looked; }

    // The image payload of clipboard content, or nothing when it is to be
    // passed over (checked in the order of a tick, without the change count).
    static std::optional<ShotRecentImagePayload> payloadOf(const QMimeData& content);
    // Whether image data of this size may be taken at all.
    static bool acceptsBytes(qint64 bytes) { return bytes <= maximumBytes; }

private:
    ShotClipboard& m_clipboard;
    std::function<std::optional<QString>()> m_sourceApp;
    Receive m_receive;
    long m_lastChange = 0;
    int m_generation = 0;
    bool m_isRunning = false;
    qint64 m_looked = 0;
};

} // namespace nubo
