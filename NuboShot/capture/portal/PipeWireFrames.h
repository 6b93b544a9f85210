#pragma once

#include <QImage>
#include <QPoint>

#include <chrono>
#include <memory>
#include <optional>

namespace nubo {

// Pictures of PipeWire video nodes over one connection (the descriptor a
// portal gives), in shared memory only: DMA-BUF buffers would need the GPU
// to read. Pictures arrive on PipeWire's own thread and are copied out
// there; every call here is safe from any thread.
class PipeWireFrames {
public:
    // The pointer as a stream's metadata has it, where the desktop sends it.
    struct Cursor {
        QPoint position; // of the hot spot, in the stream's pixels
        QPoint hotspot;
        QImage image;    // the last bitmap sent (sent only when it changes)
        bool visible = false;
    };
    struct Frame {
        // 32-bit pixels, B, G, R, X in memory (Format_RGB32), alpha set opaque.
        QImage image;
        std::optional<Cursor> cursor;
        std::chrono::steady_clock::time_point arrived;
        quint64 sequence = 0;
    };

    // Takes the descriptor. Throws Error when PipeWire cannot be reached.
    explicit PipeWireFrames(int fd);
    ~PipeWireFrames();
    PipeWireFrames(const PipeWireFrames&) = delete;
    PipeWireFrames& operator=(const PipeWireFrames&) = delete;

    // Starts receiving a node's pictures; returns the stream's index. With
    // `framesPerSecond`, the desktop is asked for no more pictures a second
    // than that.
    int connect(quint32 node, int framesPerSecond = 0);
    // Unlinks the stream and links it to its node again. GNOME sends a
    // window's picture only when the window draws or the stream starts, and
    // may miss the start: a still window then sends nothing until linked again.
    void relink(int stream);
    // The stream's first picture newer than `after` (a sequence number;
    // 0 takes any), waiting up to `timeout`. Nothing on time-out or once
    // stopped; throws Error when the stream failed or ended.
    std::optional<Frame> next(int stream, quint64 after, std::chrono::milliseconds timeout);
    // Wakes every waiter; later calls to next() return nothing at once.
    void stop();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace nubo
