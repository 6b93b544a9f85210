#include "capture/ScrollStitcher.h"

#include "capture/CaptureTypes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace nubo {

namespace {

constexpr uint64_t fnvBasis = 0xcbf29ce484222325ull;
constexpr uint64_t fnvPrime = 0x100000001b3ull;

// No byte pair more than 2 apart, 16 bytes at a time (the compiler turns
// the inner loop into vector instructions).
bool nearlyEqual(const uint8_t* a, const uint8_t* b, int count)
{
    int i = 0;
    for (; i + 16 <= count; i += 16) {
        uint8_t worst = 0;
        for (int k = 0; k < 16; ++k) {
            const uint8_t x = a[i + k], y = b[i + k];
            const uint8_t d = x > y ? uint8_t(x - y) : uint8_t(y - x);
            worst = std::max(worst, d);
        }
        if (worst > 2) {
            return false;
        }
    }
    for (; i < count; ++i) {
        if (std::abs(int(a[i]) - int(b[i])) > 2) {
            return false;
        }
    }
    return true;
}

// Offsets voted for by rows whose hash is unique among the band's rows of
// both frames; votes[o + range] counts offset o.
void vote(const std::vector<uint64_t>& previous, const std::vector<uint64_t>& current, int top,
          int bottom, int overlap, std::vector<int>& votes, int range)
{
    using Entry = std::pair<uint64_t, int>;
    const auto sorted = [&](const std::vector<uint64_t>& hashes) {
        std::vector<Entry> entries;
        entries.reserve(size_t(bottom - top));
        for (int r = top; r < bottom; ++r) {
            entries.emplace_back(hashes[size_t(r)], r);
        }
        std::sort(entries.begin(), entries.end());
        return entries;
    };
    const std::vector<Entry> p = sorted(previous), c = sorted(current);
    const int largest = (bottom - top) - overlap;
    size_t i = 0, j = 0;
    while (i < p.size() && j < c.size()) {
        if (p[i].first < c[j].first) {
            ++i;
            continue;
        }
        if (c[j].first < p[i].first) {
            ++j;
            continue;
        }
        const uint64_t hash = p[i].first;
        size_t pi = i, cj = j;
        while (pi < p.size() && p[pi].first == hash) {
            ++pi;
        }
        while (cj < c.size() && c[cj].first == hash) {
            ++cj;
        }
        if (pi - i == 1 && cj - j == 1) {
            const int o = p[i].second - c[j].second;
            if (o != 0 && std::abs(o) <= largest) {
                ++votes[size_t(o + range)];
            }
        }
        i = pi;
        j = cj;
    }
}

} // namespace

ScrollStitcher::ScrollStitcher(qint64 maximumHeight, qint64 maximumBytes, double scale)
    : maximumHeight(maximumHeight), maximumBytes(maximumBytes), scale(scale)
{}

ScrollStitcher::Raster ScrollStitcher::pixels(const QImage& frame, double scale)
{
    Raster r;
    r.bytes = frame.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (r.bytes.isNull() && !frame.isNull()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("a frame could not be converted (out of memory)"));
    }
    r.width = r.bytes.width();
    r.height = r.bytes.height();
    r.stride = r.width * 4;
    if (r.bytes.bytesPerLine() != r.stride) {
        // Rows padded by the image: copy into a tight one.
        QImage tight(r.width, r.height, QImage::Format_RGBA8888_Premultiplied);
        for (int y = 0; y < r.height; ++y) {
            std::memcpy(tight.scanLine(y), r.bytes.constScanLine(y), size_t(r.stride));
        }
        r.bytes = tight;
    }
    const int left = std::min(r.width / 8, int(std::ceil(4 * scale)));
    const int right = std::min(r.width / 3, int(std::ceil(20 * scale)));
    r.matchingStart = left * 4;
    r.matchingWidth = std::max(0, (r.width - right) * 4 - r.matchingStart);
    return r;
}

void ScrollStitcher::hashRows(Raster& r)
{
    const int step = r.matchingWidth > 1023 ? (r.matchingWidth / 1024) * 4 : 4;
    r.rows.resize(size_t(r.height));
    r.inkRows.resize(size_t(r.height));
    const int end = r.matchingStart + r.matchingWidth;
    for (int y = 0; y < r.height; ++y) {
        const uint8_t* row = r.row(y);
        uint64_t colour = fnvBasis, ink = fnvBasis;
        for (int x = r.matchingStart; x < end; x += step) {
            const uint8_t red = row[x], green = row[x + 1], blue = row[x + 2];
            colour = (colour ^ (uint64_t(red) | uint64_t(green) << 8 | uint64_t(blue) << 16)) *
                     fnvPrime;
            const uint64_t code = (red < 128 ? 1 : 0) | (green < 128 ? 2 : 0) | (blue < 128 ? 4 : 0);
            ink = (ink ^ code) * fnvPrime;
        }
        r.rows[size_t(y)] = colour;
        r.inkRows[size_t(y)] = ink;
    }
}

void ScrollStitcher::leaveOutEdges(Raster& r, double scale)
{
    const int edge = std::min(r.width / 6, int(std::ceil(24 * scale)));
    r.matchingStart = edge * 4;
    r.matchingWidth = std::max(0, (r.width - edge) * 4 - r.matchingStart);
    hashRows(r);
}

ScrollStitcher::Raster ScrollStitcher::raster(const QImage& frame, double scale)
{
    Raster r = pixels(frame, scale);
    hashRows(r);
    return r;
}

bool ScrollStitcher::rowsMatch(const Raster& a, int rowA, const Raster& b, int rowB)
{
    const uint8_t* x = a.row(rowA) + a.matchingStart;
    const uint8_t* y = b.row(rowB) + b.matchingStart;
    return std::memcmp(x, y, size_t(a.matchingWidth)) == 0 ||
           nearlyEqual(x, y, a.matchingWidth);
}

qint64 ScrollStitcher::outputHeight() const
{
    return width > 0 ? qint64(output.size() + footer.size()) / (qint64(width) * 4) : 0;
}

ScrollStitcher::Update ScrollStitcher::start(Raster r)
{
    width = r.width;
    limit = std::min<qint64>(maximumBytes / std::max(r.stride, 1), maximumHeight);
    if (limit < 1 || r.width < 1 || r.height < 1) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the scrolling area admits no row within the limits"));
    }
    const qint64 rows = std::min<qint64>(limit, r.height);
    output.clear();
    // The whole allowance at once: appends never move the rows (no second
    // copy); pages are only used as rows arrive.
    output.reserve(size_t(limit) * size_t(r.stride));
    const uint8_t* first = r.row(0);
    output.insert(output.end(), first, first + rows * r.stride);
    footer.clear();
    headerRows = footerRows = 0;
    bandsEstablished = false;
    position = frontier = 0;
    reachedLimit = limit <= r.height;
    before.reset();
    edgesMove = false;
    previous = std::move(r);
    return reachedLimit ? Update::limitReached : Update::accepted;
}

std::optional<ScrollStitcher::Found> ScrollStitcher::findOffset(const Raster& prev,
                                                                const Raster& next, int header,
                                                                int footerBand) const
{
    const int bottom = next.height - footerBand;
    const int span = bottom - header;
    if (span < 12) {
        return std::nullopt;
    }
    const int overlap = span < 60 ? 12 : span / 5;
    const int range = span;
    std::vector<int> colour(size_t(2 * range + 1)), ink(size_t(2 * range + 1));
    vote(prev.rows, next.rows, header, bottom, overlap, colour, range);
    vote(prev.inkRows, next.inkRows, header, bottom, overlap, ink, range);
    std::optional<Found> found;
    for (int o = -range; o <= range; ++o) {
        const int votes = std::max(colour[size_t(o + range)], ink[size_t(o + range)]);
        if (votes < 4) {
            continue;
        }
        const int from = std::max(header - o, header), to = std::min(bottom - o, bottom);
        const int rows = to - from;
        if (rows <= 0) {
            continue;
        }
        // A shift that has already missed more than 2 % of its rows cannot
        // pass: its verification stops there.
        const int mayMiss = rows - (rows * 98 + 99) / 100;
        int matches = 0, misses = 0;
        for (int r = from; r < to && misses <= mayMiss; ++r) {
            const bool match = rowsMatch(prev, r + o, next, r);
            matches += match;
            misses += !match;
        }
        if (misses <= mayMiss && matches * 100 >= rows * 98) {
            if (found) {
                return std::nullopt; // two shifts verify: never guessed
            }
            found = Found{o, double(matches) / rows};
        }
    }
    return found;
}

ScrollStitcher::Update ScrollStitcher::add(const QImage& frame)
{
    lastOffset.reset();
    lastVerifiedRatio = 0;
    if (reachedLimit) {
        return Update::limitReached;
    }
    // The rows' hashes only once the frame is known not to be still: a
    // still frame is decided by its bytes alone, and read once.
    Raster next = pixels(frame, scale);
    if (!previous) {
        hashRows(next);
        return start(std::move(next));
    }
    if (next.width != previous->width || next.height != previous->height) {
        if (frontier == 0) {
            hashRows(next);
            return start(std::move(next));
        }
        return Update::incompatibleSize;
    }
    const int height = next.height;
    // A still frame: every row as it was.
    bool still = true;
    for (int r = 0; r < height && still; ++r) {
        still = rowsMatch(*previous, r, next, r);
    }
    if (still) {
        lastOffset = 0;
        lastVerifiedRatio = 1.0;
        return Update::unchanged;
    }
    if (edgesMove) {
        leaveOutEdges(next, scale);
    } else {
        hashRows(next);
    }
    int header = headerRows, footerBand = footerRows;
    if (!bandsEstablished) {
        header = headerRows;
        while (header < height / 3 && rowsMatch(*previous, header, next, header)) {
            ++header;
        }
        footerBand = 0;
        while (footerBand < height / 3 &&
               rowsMatch(*previous, height - 1 - footerBand, next, height - 1 - footerBand)) {
            ++footerBand;
        }
    }
    std::optional<Found> found = findOffset(*previous, next, header, footerBand);
    if (!found && !edgesMove) {
        // A scroll bar beside the content moves with it, and its rows no
        // longer match: compared without the edges from now on.
        Raster narrowPrevious = *previous, narrowNext = next;
        leaveOutEdges(narrowPrevious, scale);
        leaveOutEdges(narrowNext, scale);
        found = findOffset(narrowPrevious, narrowNext, header, footerBand);
        if (found) {
            edgesMove = true;
            *previous = std::move(narrowPrevious);
            next = std::move(narrowNext);
            if (before) {
                leaveOutEdges(before->raster, scale);
            }
        }
    }
    if (!found && before && bandsEstablished) {
        found = findOffset(before->raster, next, header, footerBand);
        if (found) {
            // The newest frame was torn: back to the state before it.
            output.resize(before->outputSize);
            footer = std::move(before->footer);
            position = before->position;
            frontier = before->frontier;
            previous = std::move(before->raster);
            before.reset();
            ++withdrawn;
        }
    }
    if (!found) {
        return Update::skipped;
    }
    lastOffset = found->offset;
    lastVerifiedRatio = found->ratio;
    const int stride = next.stride;
    if (!bandsEstablished) {
        headerRows = header;
        footerRows = footerBand;
        bandsEstablished = true;
        // The first frame's footer band leaves the middle of the image.
        const size_t band = std::min(output.size(), size_t(footerRows) * size_t(stride));
        footer.assign(output.end() - qsizetype(band), output.end());
        output.resize(output.size() - band);
    }
    before = Before{std::move(*previous), position, frontier, output.size(), footer};
    position += found->offset;
    previous = std::move(next);
    const Raster& current = *previous;
    const qint64 fresh = position - frontier;
    if (fresh < 1) {
        return Update::accepted;
    }
    const qint64 allowed = std::max<qint64>(0, std::min<qint64>(fresh, limit - outputHeight()));
    const qint64 first = qint64(height - footerRows) - fresh;
    if (first < headerRows) {
        return Update::skipped; // more moved than the area shows: rows would be missing
    }
    const uint8_t* from = current.row(int(first));
    output.insert(output.end(), from, from + allowed * stride);
    const uint8_t* band = current.row(height - footerRows);
    footer.assign(band, band + qsizetype(footerRows) * stride);
    frontier = position;
    if (allowed < fresh) {
        reachedLimit = true;
        return Update::limitReached;
    }
    reachedLimit = outputHeight() >= limit;
    return reachedLimit ? Update::limitReached : Update::accepted;
}

QImage ScrollStitcher::makeImage() const
{
    const qint64 height = outputHeight();
    if (width < 1 || height < 1) {
        return {};
    }
    QImage image(width, int(height), QImage::Format_RGBA8888_Premultiplied);
    if (image.isNull()) {
        return {};
    }
    std::memcpy(image.bits(), output.data(), output.size());
    std::memcpy(image.bits() + output.size(), footer.data(), footer.size());
    return image;
}

QImage ScrollStitcher::tail(qint64 rows) const
{
    const qint64 height = outputHeight();
    rows = std::min(rows, height);
    if (width < 1 || rows < 1) {
        return {};
    }
    QImage image(width, int(rows), QImage::Format_RGBA8888_Premultiplied);
    if (image.isNull()) {
        return {};
    }
    const size_t stride = size_t(width) * 4;
    const size_t fromFooter = std::min(footer.size(), size_t(rows) * stride);
    const size_t fromOutput = size_t(rows) * stride - fromFooter;
    std::memcpy(image.bits(), output.data() + output.size() - fromOutput, fromOutput);
    std::memcpy(image.bits() + fromOutput, footer.data() + footer.size() - fromFooter, fromFooter);
    return image;
}

QImage ScrollStitcher::takeImage()
{
    const qint64 height = outputHeight();
    if (width < 1 || height < 1) {
        return {};
    }
    // The footer joins the rows (within the reserved allowance or a last
    // growth), and the image takes the buffer over.
    output.insert(output.end(), footer.begin(), footer.end());
    footer.clear();
    auto* rows = new std::vector<uint8_t>(std::move(output));
    output.clear();
    QImage image(
        rows->data(), width, int(height), width * 4, QImage::Format_RGBA8888_Premultiplied,
        [](void* buffer) { delete static_cast<std::vector<uint8_t>*>(buffer); }, rows);
    previous.reset();
    before.reset();
    width = 0;
    return image;
}

void ScrollTrackingState::record(ScrollStitcher::Update update)
{
    switch (update) {
    case ScrollStitcher::Update::accepted:
    case ScrollStitcher::Update::incompatibleSize:
    case ScrollStitcher::Update::limitReached:
        consecutiveMisses = 0;
        isLost = false;
        break;
    case ScrollStitcher::Update::unchanged:
        consecutiveMisses = 0;
        break;
    case ScrollStitcher::Update::skipped:
        if (++consecutiveMisses >= 3) {
            consecutiveMisses = 3;
            isLost = true;
        }
        break;
    }
}

} // namespace nubo
