#pragma once

#include <QImage>

#include <cstdint>
#include <optional>
#include <vector>

namespace nubo {

// Turns same-sized frames of one screen rectangle, taken while its content
// scrolls, into one tall image. The shift between two frames is found by
// votes of rows whose hashes are unique in both, verified row by row (98 %
// must match, exactly one candidate may pass); fixed header and footer
// bands are measured once and kept out of the middle; only rows below what
// is already stitched are appended, up to a row and a byte limit. A plain
// value: one thread at a time.
class ScrollStitcher {
public:
    struct Raster {
        int width = 0;
        int height = 0;
        int stride = 0;       // width × 4
        QImage bytes;         // RGBA8888 premultiplied, sRGB, rows of `stride` bytes
        std::vector<uint64_t> rows;    // colour hash per row
        std::vector<uint64_t> inkRows; // ink hash per row
        int matchingStart = 0;         // first compared byte of a row
        int matchingWidth = 0;         // compared bytes of a row

        const uint8_t* row(int y) const { return bytes.constScanLine(y); }
    };

    enum class Update { accepted, unchanged, skipped, incompatibleSize, limitReached };

    ScrollStitcher(qint64 maximumHeight, qint64 maximumBytes, double scale);

    // Throws CaptureError (noContent) when the first frame admits no row.
    Update add(const QImage& frame);
    // The stitched image (output, then the footer); null when empty.
    QImage makeImage() const;
    // The same, handing over the stitched rows without a copy; the stitcher
    // is empty afterwards.
    QImage takeImage();
    qint64 outputHeight() const;
    // A copy of the last `rows` rows of the stitched image (all of it when
    // shorter): what a preview of the newest content needs.
    QImage tail(qint64 rows) const;

    static Raster raster(const QImage& frame, double scale);
    // The two halves of a raster: its pixels and insets, then its hashes.
    static Raster pixels(const QImage& frame, double scale);
    static void hashRows(Raster& raster);
    // Row equality: equal bytes, or no byte pair more than 2 apart, over the
    // compared bytes.
    static bool rowsMatch(const Raster& a, int rowA, const Raster& b, int rowB);

    qint64 maximumHeight;
    qint64 maximumBytes;
    double scale;
    std::optional<Raster> previous;
    std::vector<uint8_t> output;
    std::vector<uint8_t> footer;
    int headerRows = 0;
    int footerRows = 0;
    bool bandsEstablished = false;
    qint64 position = 0;
    qint64 frontier = 0;
    qint64 limit = 0;
    bool reachedLimit = false;
    int width = 0;
    std::optional<int> lastOffset;
    double lastVerifiedRatio = 0;
    // Frames taken back: added, then contradicted by the frames after them.
    int withdrawn = 0;
    // Whether the area's edges change as it scrolls (a scroll bar beside
    // the content, as terminals and editors have): compared without them.
    bool edgesMove = false;
    // Compares a raster without the strips at its left and right edges
    // where scroll bars live; its rows hashed again.
    static void leaveOutEdges(Raster& raster, double scale);

private:
    struct Found {
        int offset;
        double ratio;
    };
    // The state before the newest frame was added: a frame caught while the
    // program was still drawing (a terminal moves its lines first and paints
    // the new ones after) verifies on the rows it shares with the one before
    // and brings wrong new rows. The next frame then matches only the frame
    // before it, and the torn one is withdrawn.
    struct Before {
        Raster raster;
        qint64 position = 0;
        qint64 frontier = 0;
        size_t outputSize = 0;
        std::vector<uint8_t> footer;
    };
    Update start(Raster raster);
    std::optional<Found> findOffset(const Raster& reference, const Raster& next, int header,
                                    int footerBand) const;
    std::optional<Before> before;
};

// Whether the user should be asked to scroll back: three skipped frames in
// a row, until a frame is accepted again.
struct ScrollTrackingState {
    int consecutiveMisses = 0;
    bool isLost = false;

    void record(ScrollStitcher::Update update);
    bool operator==(const ScrollTrackingState&) const = default;
};

} // namespace nubo
