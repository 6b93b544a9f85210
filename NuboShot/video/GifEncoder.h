#pragma once

#include <QImage>
#include <QSize>
#include <QtGlobal>

#include <memory>

class QIODevice;

namespace nubo {

// An animated GIF written picture by picture, made for screen recordings.
//
// - Each scene gets a palette of its own, made from its first picture: the
//   colours most of the picture is made of exactly, the rest by median cut.
//   A picture that no longer fits the palette (most of it changed, or new
//   colours far from every entry) starts a new scene.
// - Colours not in the palette are dithered with a fixed 8 × 8 pattern, so a
//   pixel that does not change keeps its index from picture to picture.
// - Only the rectangle that changed is written, and inside it the pixels
//   that show what the screen already shows are transparent: a still
//   screen costs a few bytes a picture. A change of a few levels (the
//   compression noise of the recording) is not written either, except back
//   to a colour the palette holds exactly. A picture identical to the one
//   before lengthens it instead.
// - The timing follows the clock given, to the hundredth of a second GIF
//   counts in, without the error of the rounded delays adding up.
//
// Throws Error when the device does not take the bytes.
class GifEncoder {
public:
    struct Statistics {
        int pictures = 0; // written to the file (identical ones merged)
        int palettes = 0; // scenes
        qint64 bytes = 0;
    };

    // The pictures are `size`; `out` stays open and is the caller's.
    GifEncoder(QIODevice& out, QSize size);
    ~GifEncoder();
    GifEncoder(const GifEncoder&) = delete;
    GifEncoder& operator=(const GifEncoder&) = delete;

    // A picture of the encoder's size (any format; alpha is ignored) shown
    // from `startMs` until the next picture's start. Starts must increase.
    void add(const QImage& picture, qint64 startMs);
    // Ends the last picture at `endMs` and writes the file's end.
    void finish(qint64 endMs);
    Statistics statistics() const;

private:
    struct State;
    std::unique_ptr<State> d;
};

} // namespace nubo
