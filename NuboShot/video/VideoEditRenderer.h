#pragma once

#include "video/VideoEditList.h"
#include "video/VideoSource.h"

#include <QImage>
#include <QRect>
#include <QSize>

#include <cstdint>

struct AVFrame;
struct SwsContext;

namespace nubo {

// Bytes the export of `list` is expected to take: the source's video rate
// (scaled down with the picture), 192 kb/s of sound unless muted, over the
// kept duration.
int64_t videoSizeEstimate(const VideoEditList& list, const VideoSourceInfo& info);

// The picture of the edited movie: the blur regions live at a frame's
// source time pixelated, then the crop cut out and scaled to the output
// size. Pixelation cells are square, a 54th of the frame's shorter side (at
// least 6 pixels): text under them cannot be read, as with a still's
// redaction.
class VideoEditRenderer {
public:
    VideoEditRenderer(VideoEditList list, VideoSourceInfo info);
    ~VideoEditRenderer();
    VideoEditRenderer(const VideoEditRenderer&) = delete;
    VideoEditRenderer& operator=(const VideoEditRenderer&) = delete;

    const VideoEditList& list() const { return m_list; }
    QSize outputSize() const { return m_output; }
    // The source pixels kept by the crop (even origin and size).
    QRect cropPixels() const { return m_crop; }
    int blurBlock() const { return m_block; }
    static int blurBlock(QSize source);
    // A region's rectangle in source pixels, widened to even edges.
    QRect blurPixels(const VideoBlurRegion& region) const;
    // Whether the picture needs more than the source frame as it is.
    bool changesPicture() const;

    // Pixelates the regions live at `sourceTime` in a planar 4:2:0 frame of
    // the source size (made writable first), then writes the cropped,
    // scaled picture into `out` (allocated, of the output size and the
    // encoder's format). Throws VideoRenderError (frameNotRendered).
    void render(AVFrame* source, VideoTime sourceTime, AVFrame* out);

    // The same on a picture for the screen: regions live at `sourceTime`
    // pixelated in place (the picture may be scaled from the source).
    void blurImage(QImage& picture, VideoTime sourceTime) const;
    // A still of the edited movie at a source time, fitted into `fit`.
    QImage still(VideoFrameReader& reader, VideoTime sourceTime, QSize fit) const;

private:
    VideoEditList m_list;
    VideoSourceInfo m_info;
    QSize m_output;
    QRect m_crop;
    int m_block = 8;
    SwsContext* m_scaler = nullptr;
    SwsContext* m_converter = nullptr; // to 4:2:0 where a blur needs it
    AVFrame* m_converted = nullptr;
};

} // namespace nubo
