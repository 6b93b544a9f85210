#pragma once

#include "recording/CameraOverlay.h"

#include <QList>
#include <QString>

#include <atomic>
#include <memory>
#include <mutex>
#include <thread>

namespace nubo {

class ShotPreferences;

// A camera the user can pick: its lasting ID (a /dev/v4l/by-id link where
// the system has one, else the device's path) and the name it gives itself.
struct CameraDevice {
    QString id;
    QString name;
    bool operator==(const CameraDevice&) const = default;
};

// Camera pictures read through FFmpeg on a thread of their own: a V4L2
// camera (MJPEG asked for first, about 640 × 360 at up to 30 frames a
// second), or a file holding a video stream, played at its own pace and
// from the start again at its end. Each picture is decoded and converted to
// BGRA as it comes; only the newest is kept, so a reader that takes fewer
// pictures than the camera makes gets the latest and the others are dropped.
class CameraStreamSource : public CameraFrameSource {
public:
    // Opens the camera or file; throws Error naming the cause.
    explicit CameraStreamSource(const QString& id);
    ~CameraStreamSource() override;
    CameraStreamSource(const CameraStreamSource&) = delete;
    CameraStreamSource& operator=(const CameraStreamSource&) = delete;

    std::optional<CameraFrame> latestFrame() const override;

    const QString& id() const { return m_id; }
    // What is read: "mjpeg 640x360 at 30 fps".
    const QString& description() const { return m_description; }
    // Pictures decoded, and those replaced before anyone took them.
    qint64 framesDecoded() const { return m_decoded; }
    qint64 framesDropped() const { return m_dropped; }
    // Why the pictures stopped (the camera was unplugged…); empty while they come.
    QString failure() const;

    // The system's cameras (V4L2 devices that capture video), by name.
    static QList<CameraDevice> cameras();
    // The camera to use: the stored one ("shot.recording.avatar.cameraDeviceID")
    // while it is there (a camera, or a readable file of a video stream),
    // else the first camera; nothing without one.
    static std::optional<CameraDevice> chosen(const ShotPreferences& preferences,
                                              const QList<CameraDevice>& cameras);
    // A stored ID that names no camera but a file: offered under its file name.
    static std::optional<CameraDevice> streamFile(const QString& id);

private:
    struct Stream;
    void run();

    QString m_id;
    QString m_description;
    std::unique_ptr<Stream> m_stream;
    std::thread m_thread;
    std::atomic<bool> m_stop{false};
    mutable std::mutex m_mutex; // the newest picture and the failure
    CameraFrame m_latest;
    mutable bool m_taken = true;
    QString m_failure;
    std::atomic<qint64> m_decoded{0};
    mutable std::atomic<qint64> m_dropped{0};
};

} // namespace nubo
