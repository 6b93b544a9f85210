#pragma once

#include "core/Error.h"

#include <QImage>
#include <QRect>
#include <QRectF>

#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

struct SwsContext;

namespace nubo {

// A picture of the camera: 32-bit BGRA (QImage::Format_RGB32); `sequence`
// grows with every new picture.
struct CameraFrame {
    QImage image;
    quint64 sequence = 0;
};

// Where camera pictures come from. Any thread.
class CameraFrameSource {
public:
    virtual ~CameraFrameSource() = default;
    // The newest picture, or nothing before the first.
    virtual std::optional<CameraFrame> latestFrame() const = 0;
};

// Where the bubble sits, in 0…1 of the recorded target on each axis: set
// by the preview the user moves, read by the recorder at every frame.
class CameraBubblePlace {
public:
    explicit CameraBubblePlace(QRectF frame = {}) : m_frame(frame) {}
    void set(const QRectF& frame)
    {
        const std::lock_guard lock(m_mutex);
        m_frame = frame;
    }
    QRectF get() const
    {
        const std::lock_guard lock(m_mutex);
        return m_frame;
    }

private:
    mutable std::mutex m_mutex;
    QRectF m_frame;
};

class ShotPreferences;
// The bubble's frame as stored under "shot.recording.camera.frame" ("x,y,w,h"
// in 0…1 of the target); without a sound one, a bubble a fifth of the
// target's smaller side across, 3 % in from its bottom-left corner.
QRectF recordingCameraFrame(const ShotPreferences& preferences, QSizeF target);
void storeRecordingCameraFrame(ShotPreferences& preferences, const QRectF& frame);

// The camera bubble of a recording: its pictures, where it sits (read at
// every frame, in 0…1 of the movie on each axis, so it can move while
// recording) and whether the picture is flipped like a mirror.
struct CameraOverlay {
    std::shared_ptr<CameraFrameSource> source;
    std::function<QRectF()> normalizedFrame;
    bool mirrored = false;
};

// The bubble's shape for one frame in pixels: the mask (opaque inside r
// minus the softening, clear from r on), the rim (a light disc fading out
// over one pixel at r, under the bubble: it shows through the soft edge) and
// the shadow below, as weights of 0…256 over `box` (the bubble's
// square and its shadow, within the movie). Built only when the frame moves.
struct CameraBubbleGeometry {
    QRect frame;  // the bubble's frame in pixels, as asked
    QRect square; // the camera picture's square: the frame's smaller side, centred
    double radius = 0;
    double softening = 0;
    double shadowOffset = 0; // how far below the centre the shadow sits
    double shadowRadius = 0; // where the shadow has faded out
    QRect box;               // what the bubble and its shadow cover
    std::vector<uint16_t> mask, rim, shadow; // per pixel of `box`, row by row

    static CameraBubbleGeometry make(const QRect& frame, const QSize& bounds);
    // The weights at a pixel of the movie (0 outside the box).
    int maskAt(QPoint pixel) const { return at(mask, pixel); }
    int rimAt(QPoint pixel) const { return at(rim, pixel); }
    int shadowAt(QPoint pixel) const { return at(shadow, pixel); }

private:
    int at(const std::vector<uint16_t>& weights, QPoint pixel) const
    {
        return box.contains(pixel)
                   ? weights[size_t((pixel.y() - box.y()) * box.width() + pixel.x() - box.x())]
                   : 0;
    }
};

// Draws the camera bubble into screen pictures, on the CPU, into buffers of
// a small pool of its own. It never fails a recording: what cannot be drawn
// leaves the raw screen picture, with a line in the log.
class CameraFrameCompositor {
public:
    class CompositorError : public Error {
    public:
        enum class Code { poolCreation };
        CompositorError(Code code, int status);
        Code code() const { return m_code; }
        int status() const { return m_status; }

    private:
        Code m_code;
        int m_status;
    };

    static constexpr int allocationLimit = 6;

    // Pictures of `size` (both sides at least 1, else poolCreation).
    explicit CameraFrameCompositor(QSize size);
    ~CameraFrameCompositor();
    CameraFrameCompositor(const CameraFrameCompositor&) = delete;
    CameraFrameCompositor& operator=(const CameraFrameCompositor&) = delete;

    // The screen with the bubble (`normalizedFrame` in 0…1 of the picture)
    // in a buffer of the pool, or `screen` itself when it cannot be drawn.
    // A buffer goes back to the pool when nothing else holds its picture.
    QImage composite(const QImage& screen, const CameraFrame& camera, const QRectF& normalizedFrame,
                     bool mirrored);

    // Draws `screen` with the bubble into `target`; throws Error when it
    // cannot. Replaceable, so a failing renderer can be tried.
    std::function<void(const QImage& screen, QImage& target)> renderFrame;

    QSize size() const { return m_bounds.size(); }
    const CameraBubbleGeometry& geometry() const { return m_geometry; }
    int geometryBuilds() const { return m_geometryBuilds; }
    int buffersAllocated() const { return int(m_pool.size()); }
    // The camera pictures scaled into the bubble so far (each new picture,
    // size or mirroring once).
    int bubblePictures() const { return m_bubblePictures; }

private:
    void render(const QImage& screen, QImage& target) const;
    std::optional<QImage> buffer(int& status);
    void prepareBubble(const CameraFrame& camera, bool mirrored);

    QRect m_bounds;
    std::vector<QImage> m_pool;
    CameraBubbleGeometry m_geometry;
    std::optional<QRect> m_cachedFrame;
    int m_geometryBuilds = 0;
    // The camera picture over the box: scaled to cover the square, centred,
    // mirrored when asked, black outside the square (where the mask is 0).
    std::vector<uint32_t> m_bubble;
    std::optional<std::tuple<quint64, qint64, QRect, bool, QRect>> m_bubbleKey;
    int m_bubblePictures = 0;
    SwsContext* m_scaler = nullptr;
};

} // namespace nubo
