#pragma once

#include <QObject>

#include <memory>
#include <optional>

namespace nubo {

class CapturePlatform;

// Holds the screen saver and idle sleep off while a recording runs: the
// window system's own screen saver (through the platform) and the
// desktop's, asked on the session bus (org.freedesktop.ScreenSaver) when
// one is there. Released by release() or when it goes; a crash releases
// both, as the bus and the window system notice the connection go.
class ShotScreenSaverInhibitor : public QObject {
    Q_OBJECT
public:
    explicit ShotScreenSaverInhibitor(std::shared_ptr<CapturePlatform> platform,
                                      QObject* parent = nullptr);
    ~ShotScreenSaverInhibitor() override;

    void hold(const QString& reason);
    void release();
    bool isHeld() const { return m_held; }

private:
    std::shared_ptr<CapturePlatform> m_platform;
    bool m_held = false;
    bool m_platformHeld = false;
    std::optional<uint> m_cookie; // the desktop's, once it answered
    int m_generation = 0;         // a late answer to an old hold is let go at once
};

} // namespace nubo
