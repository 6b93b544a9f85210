#include "video/GifEncoder.h"

#include "core/Error.h"
#include "video/NearestColour.h"

#include <QIODevice>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace nubo {

namespace {

constexpr int maximumColours = 255; // one index stays free for transparency
constexpr uint32_t noColour = 0xff000000u; // never a colour: pixels are 0x00RRGGBB

// The 8 × 8 ordered-dither pattern (0…63).
constexpr uint8_t bayer[8][8] = {
    {0, 32, 8, 40, 2, 34, 10, 42},  {48, 16, 56, 24, 50, 18, 58, 26},
    {12, 44, 4, 36, 14, 46, 6, 38}, {60, 28, 52, 20, 62, 30, 54, 22},
    {3, 35, 11, 43, 1, 33, 9, 41},  {51, 19, 59, 27, 49, 17, 57, 25},
    {15, 47, 7, 39, 13, 45, 5, 37}, {63, 31, 55, 23, 61, 29, 53, 21}};
// How far the pattern moves a colour, in levels, from one end to the other.
constexpr int ditherSpan = 16;
// The distance (as distance() counts it) under which a colour takes its
// nearest entry without dithering: about five levels on each channel.
constexpr int closeEnough = 9 * 5 * 5;
// A pixel already shown is left as it is when the picture's brightness there
// is within this many levels of it, and each channel within the second:
// a movie's compression noise, which would otherwise be written again and
// again.
constexpr int stillLuma = 3;
constexpr int stillChannel = 16;
// A colour the palette holds exactly (a background, the text) comes back
// when it is more than two levels of brightness from what is shown.
constexpr int stillLumaExact = 2;

using gif::blueOf;
using gif::distance;
using gif::greenOf;
using gif::NearestColour;
using gif::redOf;

// Whether a pixel's new colour may go unwritten where `shown` is shown: the
// brightness within `lumaLimit` levels, each channel within stillChannel.
inline bool isStill(uint32_t colour, uint32_t shown, int lumaLimit)
{
    const int dr = redOf(colour) - redOf(shown), dg = greenOf(colour) - greenOf(shown),
              db = blueOf(colour) - blueOf(shown);
    const int luma = ((77 * redOf(colour) + 150 * greenOf(colour) + 29 * blueOf(colour)) >> 8) -
                     ((77 * redOf(shown) + 150 * greenOf(shown) + 29 * blueOf(shown)) >> 8);
    return std::abs(luma) <= lumaLimit && std::max({std::abs(dr), std::abs(dg), std::abs(db)}) <= stillChannel;
}

// Spreads a key over a table: the high half of a Fibonacci product.
inline size_t hashOf(uint32_t key) { return size_t((uint64_t(key) * 0x9e3779b97f4a7c15ull) >> 32); }

// Exact colours and how often they occur, in a table of open addressing.
class ColourCounts {
public:
    explicit ColourCounts(size_t pixels)
    {
        size_t size = 1024;
        while (size < pixels * 2) {
            size *= 2;
        }
        m_mask = size - 1;
        m_keys.assign(size, noColour);
        m_counts.assign(size, 0);
    }
    void add(uint32_t colour)
    {
        size_t at = hashOf(colour) & m_mask;
        while (m_keys[at] != colour && m_keys[at] != noColour) {
            at = (at + 1) & m_mask;
        }
        if (m_keys[at] == noColour) {
            m_keys[at] = colour;
            ++m_distinct;
        }
        ++m_counts[at];
    }
    size_t distinct() const { return m_distinct; }
    struct Entry {
        uint32_t colour;
        uint32_t count;
    };
    std::vector<Entry> entries() const
    {
        std::vector<Entry> all;
        all.reserve(m_distinct);
        for (size_t i = 0; i < m_keys.size(); ++i) {
            if (m_keys[i] != noColour) {
                all.push_back({m_keys[i], m_counts[i]});
            }
        }
        return all;
    }

private:
    size_t m_mask = 0;
    size_t m_distinct = 0;
    std::vector<uint32_t> m_keys;
    std::vector<uint32_t> m_counts;
};

// Splits colours into `boxes` boxes along their longest side at the
// weighted median; each box gives its weighted mean.
std::vector<uint32_t> medianCut(std::vector<ColourCounts::Entry> entries, int boxes)
{
    struct Box {
        size_t begin, end;
        uint64_t weight;
        int channel, span;
    };
    const auto measure = [&entries](size_t begin, size_t end) {
        int low[3] = {255, 255, 255}, high[3] = {0, 0, 0};
        uint64_t weight = 0;
        for (size_t i = begin; i < end; ++i) {
            const uint32_t c = entries[i].colour;
            const int v[3] = {redOf(c), greenOf(c), blueOf(c)};
            for (int k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], v[k]);
                high[k] = std::max(high[k], v[k]);
            }
            weight += entries[i].count;
        }
        // Green's differences show most, blue's least.
        const int spans[3] = {(high[0] - low[0]) * 3, (high[1] - low[1]) * 4, (high[2] - low[2]) * 2};
        const int channel = int(std::max_element(spans, spans + 3) - spans);
        return Box{begin, end, weight, channel, spans[channel]};
    };
    std::vector<Box> all{measure(0, entries.size())};
    while (int(all.size()) < boxes) {
        // The box whose colours spread most, by how many pixels it holds.
        Box* widest = nullptr;
        double widestScore = 0;
        for (Box& box : all) {
            const double score = double(box.span) * std::sqrt(double(box.weight));
            if (box.end - box.begin > 1 && box.span > 0 && score > widestScore) {
                widest = &box;
                widestScore = score;
            }
        }
        if (!widest) {
            break;
        }
        const Box box = *widest;
        const int shift = box.channel == 0 ? 16 : box.channel == 1 ? 8 : 0;
        const auto begin = entries.begin() + ptrdiff_t(box.begin), end = entries.begin() + ptrdiff_t(box.end);
        std::sort(begin, end, [shift](const ColourCounts::Entry& a, const ColourCounts::Entry& b) {
            return ((a.colour >> shift) & 0xff) < ((b.colour >> shift) & 0xff);
        });
        uint64_t half = 0;
        size_t split = box.begin;
        while (split < box.end - 1 && (half + entries[split].count) * 2 <= box.weight) {
            half += entries[split++].count;
        }
        split = std::max(split, box.begin + 1);
        *widest = measure(box.begin, split);
        all.push_back(measure(split, box.end));
    }
    std::vector<uint32_t> colours;
    for (const Box& box : all) {
        uint64_t r = 0, g = 0, b = 0;
        for (size_t i = box.begin; i < box.end; ++i) {
            r += uint64_t(redOf(entries[i].colour)) * entries[i].count;
            g += uint64_t(greenOf(entries[i].colour)) * entries[i].count;
            b += uint64_t(blueOf(entries[i].colour)) * entries[i].count;
        }
        const uint64_t w = std::max<uint64_t>(box.weight, 1);
        colours.push_back(uint32_t(((r + w / 2) / w) << 16 | ((g + w / 2) / w) << 8 | ((b + w / 2) / w)));
    }
    return colours;
}

// One scene's colours and the ways to find a pixel's index among them.
class Palette {
public:
    explicit Palette(std::vector<uint32_t> colours)
        : m_colours(std::move(colours)), m_search(m_colours)
    {
        m_exact.assign(1024, noColour);
        m_exactIndex.assign(1024, 0);
        for (size_t i = 0; i < m_colours.size(); ++i) {
            size_t at = hashOf(m_colours[i]) & 1023;
            while (m_exact[at] != noColour && m_exact[at] != m_colours[i]) {
                at = (at + 1) & 1023;
            }
            if (m_exact[at] == noColour) {
                m_exact[at] = m_colours[i];
                m_exactIndex[at] = uint8_t(i);
            }
        }
        m_nearestKeys.assign(nearestMask + 1, noColour);
        m_nearestValues.assign(nearestMask + 1, 0);
    }
    Palette(const Palette&) = delete; // its search refers to its colours
    Palette& operator=(const Palette&) = delete;

    const std::vector<uint32_t>& colours() const { return m_colours; }
    int transparent() const { return int(m_colours.size()); }
    // Bits of the colour table written with it (1 to 8).
    int tableBits() const;

    // The index of an exact colour, or -1.
    int exactIndex(uint32_t colour) const
    {
        size_t at = hashOf(colour) & 1023;
        while (m_exact[at] != noColour) {
            if (m_exact[at] == colour) {
                return m_exactIndex[at];
            }
            at = (at + 1) & 1023;
        }
        return -1;
    }
    // The nearest entry to a colour, remembered for the colours met.
    int nearest(int r, int g, int b)
    {
        const uint32_t colour = uint32_t(r) << 16 | uint32_t(g) << 8 | uint32_t(b);
        size_t at = hashOf(colour) & nearestMask;
        while (m_nearestKeys[at] != colour) {
            if (m_nearestKeys[at] == noColour) {
                if (++m_nearestCount * 4 > (nearestMask + 1) * 3) {
                    // Full of a movie's noise: forgotten, and found again.
                    std::fill(m_nearestKeys.begin(), m_nearestKeys.end(), noColour);
                    m_nearestCount = 1;
                    at = hashOf(colour) & nearestMask;
                }
                const int best = m_search.find(r, g, b).first;
                m_nearestKeys[at] = colour;
                m_nearestValues[at] = uint8_t(best);
                return best;
            }
            at = (at + 1) & nearestMask;
        }
        return m_nearestValues[at];
    }
    // A pixel's index: its own colour when the palette has it, else the
    // nearest to the colour moved by the dither pattern at (x, y).
    // `exact` is exactIndex(colour), looked up by the caller already.
    int index(uint32_t colour, int exact, int x, int y)
    {
        if (exact >= 0) {
            return exact;
        }
        // Near enough an entry: that entry, undithered, so flat areas and
        // text edges stay clean; far from all: the dither pattern.
        const int r = redOf(colour), g = greenOf(colour), b = blueOf(colour);
        const int near = nearest(r, g, b);
        if (distance(r, g, b, m_colours[size_t(near)]) <= closeEnough) {
            return near;
        }
        const int offset = (int(bayer[y & 7][x & 7]) * 2 - 63) * ditherSpan / 128;
        return nearest(std::clamp(redOf(colour) + offset, 0, 255), std::clamp(greenOf(colour) + offset, 0, 255),
                       std::clamp(blueOf(colour) + offset, 0, 255));
    }
    // How far a colour lies from the palette (0 when it is in it).
    int error(uint32_t colour)
    {
        if (exactIndex(colour) >= 0) {
            return 0;
        }
        const int r = redOf(colour), g = greenOf(colour), b = blueOf(colour);
        return distance(r, g, b, m_colours[size_t(nearest(r, g, b))]);
    }

private:
    std::vector<uint32_t> m_colours;
    NearestColour m_search; // over m_colours
    std::vector<uint32_t> m_exact;
    std::vector<uint8_t> m_exactIndex;
    static constexpr size_t nearestMask = (size_t(1) << 18) - 1;
    std::vector<uint32_t> m_nearestKeys;
    std::vector<uint8_t> m_nearestValues;
    size_t m_nearestCount = 0;
};

// The colours of a picture: every one when there are few, else those that
// cover much of it exactly and the rest by median cut.
std::vector<uint32_t> paletteOf(const std::vector<uint32_t>& pixels)
{
    ColourCounts counts(pixels.size());
    for (const uint32_t pixel : pixels) {
        counts.add(pixel);
    }
    std::vector<ColourCounts::Entry> entries = counts.entries();
    std::sort(entries.begin(), entries.end(),
              [](const ColourCounts::Entry& a, const ColourCounts::Entry& b) { return a.count > b.count; });
    std::vector<uint32_t> colours;
    if (entries.size() <= size_t(maximumColours)) {
        for (const ColourCounts::Entry& entry : entries) {
            colours.push_back(entry.colour);
        }
        return colours;
    }
    // Backgrounds, text and the flat fills of a screen stay exact.
    // (A third of a per cent of the picture each, at most 100 of them: more
    // exact colours leave too few entries for the rest and cost more than
    // they give.)
    const uint64_t common = std::max<uint64_t>(pixels.size() / 300, 16);
    size_t popular = 0;
    while (popular < entries.size() && popular < 100 && entries[popular].count >= common) {
        colours.push_back(entries[popular++].colour);
    }
    const std::vector<uint32_t> rest = medianCut(
        std::vector<ColourCounts::Entry>(entries.begin() + ptrdiff_t(popular), entries.end()),
        maximumColours - int(popular));
    colours.insert(colours.end(), rest.begin(), rest.end());
    // Each cut colour moved to the mean of the colours nearest it, five
    // times over, from the 20000 most common colours: less error than the
    // boxes' means, which the unwritten noise then spends.
    const size_t sample = std::min(entries.size(), size_t(20000));
    for (int round = 0; round < 5; ++round) {
        std::vector<uint64_t> sums(colours.size() * 4, 0);
        const NearestColour search(colours);
        for (size_t e = popular; e < sample; ++e) {
            const uint32_t c = entries[e].colour;
            const int r = redOf(c), g = greenOf(c), b = blueOf(c);
            const auto best = size_t(search.find(r, g, b).first);
            uint64_t* sum = &sums[best * 4];
            sum[0] += uint64_t(r) * entries[e].count;
            sum[1] += uint64_t(g) * entries[e].count;
            sum[2] += uint64_t(b) * entries[e].count;
            sum[3] += entries[e].count;
        }
        for (size_t k = popular; k < colours.size(); ++k) {
            const uint64_t* sum = &sums[k * 4];
            if (sum[3] > 0) {
                const uint64_t w = sum[3];
                colours[k] = uint32_t(((sum[0] + w / 2) / w) << 16 | ((sum[1] + w / 2) / w) << 8 |
                                      ((sum[2] + w / 2) / w));
            }
        }
    }
    return colours;
}

// GIF's variable-length LZW, in blocks of up to 255 bytes.
class LzwWriter {
public:
    LzwWriter(QByteArray& out, int minimumBits) : m_out(out), m_minimumBits(minimumBits)
    {
        m_out.append(char(minimumBits));
        m_keys.assign(tableSize, 0);
        m_codes.assign(tableSize, 0);
    }

    void encode(const uint8_t* indices, size_t count)
    {
        const int clear = 1 << m_minimumBits;
        reset();
        put(clear);
        int prefix = indices[0];
        for (size_t i = 1; i < count; ++i) {
            const int next = indices[i];
            const uint32_t key = (uint32_t(prefix) << 8 | uint32_t(next)) + 1;
            size_t at = hashOf(key) & (tableSize - 1);
            while (m_keys[at] != 0 && m_keys[at] != key) {
                at = (at + 1) & (tableSize - 1);
            }
            if (m_keys[at] == key) {
                prefix = m_codes[at];
                continue;
            }
            put(prefix);
            if (m_available < 4096) {
                if (m_available == (1 << m_bits)) {
                    ++m_bits;
                }
                m_keys[at] = key;
                m_codes[at] = uint16_t(m_available++);
            } else if (worthClearing(i)) {
                put(clear);
                reset();
            }
            prefix = next;
        }
        put(prefix);
        put(clear + 1);
        if (m_filled > 0) {
            m_block.append(char(m_buffer & 0xff));
        }
        flushBlock();
        m_out.append(char(0));
    }

private:
    static constexpr size_t tableSize = 1 << 14;
    static constexpr size_t clearCheck = 16384;
    static constexpr double clearWorse = 1.5;

    void reset()
    {
        std::fill(m_keys.begin(), m_keys.end(), 0);
        m_bits = m_minimumBits + 1;
        m_available = (1 << m_minimumBits) + 2;
        m_checkedAt = 0;
    }
    size_t written() const { return size_t(m_out.size() + m_block.size()) * 8 + size_t(m_filled); }
    // A full table is kept while it codes as well as it did: a screen's
    // runs of unchanged pixels stay one code each. Cleared (and filled
    // anew) once a stretch costs more bits a pixel than the best before.
    bool worthClearing(size_t at)
    {
        if (m_checkedAt == 0) {
            m_checkedAt = at;
            m_checkedBits = written();
            m_bestCost = 1e9;
            return false;
        }
        if (at - m_checkedAt < clearCheck) {
            return false;
        }
        const double cost = double(written() - m_checkedBits) / double(at - m_checkedAt);
        m_checkedAt = at;
        m_checkedBits = written();
        m_bestCost = std::min(m_bestCost, cost);
        return cost > m_bestCost * clearWorse;
    }
    void put(int code)
    {
        m_buffer |= uint32_t(code) << m_filled;
        m_filled += m_bits;
        while (m_filled >= 8) {
            m_block.append(char(m_buffer & 0xff));
            m_buffer >>= 8;
            m_filled -= 8;
            if (m_block.size() == 255) {
                flushBlock();
            }
        }
    }
    void flushBlock()
    {
        if (!m_block.isEmpty()) {
            m_out.append(char(m_block.size()));
            m_out.append(m_block);
            m_block.clear();
        }
    }

    QByteArray& m_out;
    QByteArray m_block;
    int m_minimumBits;
    int m_bits = 0;
    int m_available = 0;
    uint32_t m_buffer = 0;
    int m_filled = 0;
    size_t m_checkedAt = 0;
    size_t m_checkedBits = 0;
    double m_bestCost = 0;
    std::vector<uint32_t> m_keys;
    std::vector<uint16_t> m_codes;
};

void putShort(QByteArray& out, int value)
{
    out.append(char(value & 0xff));
    out.append(char((value >> 8) & 0xff));
}

void putTable(QByteArray& out, const std::vector<uint32_t>& colours, int bits)
{
    for (int i = 0; i < (1 << bits); ++i) {
        const uint32_t c = i < int(colours.size()) ? colours[size_t(i)] : 0;
        out.append(char(redOf(c)));
        out.append(char(greenOf(c)));
        out.append(char(blueOf(c)));
    }
}

// Bits of a colour table holding `colours` and the transparent index.
int tableBits(size_t colours)
{
    int bits = 1;
    while ((size_t(1) << bits) < colours + 1) {
        ++bits;
    }
    return bits;
}

// An image's packed field, its own colour table when it has one, and its
// pixels' LZW.
QByteArray imageData(const std::vector<uint8_t>& indices, const std::vector<uint32_t>* table, int bits)
{
    QByteArray data;
    if (table) {
        data.append(char(0x80 | (bits - 1)));
        putTable(data, *table, bits);
    } else {
        data.append(char(0));
    }
    LzwWriter(data, std::max(2, bits)).encode(indices.data(), indices.size());
    return data;
}

int Palette::tableBits() const
{
    return nubo::tableBits(m_colours.size());
}

// A hundredth of a second, GIF's unit of time, rounded.
qint64 hundredths(qint64 ms) { return (ms + 5) / 10; }

} // namespace

struct GifEncoder::State {
    QIODevice& out;
    QSize size;
    std::vector<uint32_t> previous; // the last picture given
    std::vector<uint32_t> current;
    std::vector<uint32_t> canvas; // what a viewer shows now
    std::vector<uint8_t> indices;
    std::unique_ptr<Palette> palette;
    const Palette* global = nullptr; // the file's own colour table
    std::vector<std::unique_ptr<Palette>> kept; // the global one stays alive
    bool started = false;
    // The picture written last: its start and its bytes after the control block.
    QByteArray pending;
    qint64 pendingStart = 0;
    bool hasPending = false;
    Statistics statistics;

    void write(const QByteArray& bytes)
    {
        if (out.write(bytes) != bytes.size()) {
            throw Error(QStringLiteral("The animation could not be written: %1").arg(out.errorString()));
        }
        statistics.bytes += bytes.size();
    }

    void writeHeader()
    {
        QByteArray header("GIF89a");
        putShort(header, size.width());
        putShort(header, size.height());
        const int bits = palette->tableBits();
        header.append(char(0x80 | (7 << 4) | (bits - 1)));
        header.append(char(0));
        header.append(char(0));
        putTable(header, palette->colours(), bits);
        // Played in a loop.
        header.append("\x21\xff\x0bNETSCAPE2.0\x03\x01\x00\x00\x00", 19);
        write(header);
        started = true;
    }

    void flushPending(qint64 endMs)
    {
        if (!hasPending) {
            return;
        }
        const qint64 delay = std::clamp<qint64>(hundredths(endMs) - hundredths(pendingStart), 2, 65535);
        QByteArray control("\x21\xf9\x04", 3);
        control.append(char((1 << 2) | 1)); // keep what is shown; one index is transparent
        putShort(control, int(delay));
        control.append(char(pending.at(0))); // the transparent index, kept in front
        control.append(char(0));
        write(control + pending.mid(1));
        hasPending = false;
        ++statistics.pictures;
    }
};

GifEncoder::GifEncoder(QIODevice& out, QSize size) : d(std::make_unique<State>(State{out, size}))
{
    const size_t pixels = size_t(size.width()) * size_t(size.height());
    d->previous.assign(pixels, noColour);
    d->current.resize(pixels);
    d->canvas.assign(pixels, noColour);
    d->indices.resize(pixels);
}

GifEncoder::~GifEncoder() = default;

void GifEncoder::add(const QImage& picture, qint64 startMs)
{
    const int width = d->size.width(), height = d->size.height();
    const QImage rgb = picture.format() == QImage::Format_RGB32 || picture.format() == QImage::Format_ARGB32
                           ? picture
                           : picture.convertToFormat(QImage::Format_RGB32);
    if (rgb.size() != d->size) {
        throw Error(QStringLiteral("A picture of %1 × %2 pixels does not fit an animation of %3 × %4.")
                        .arg(rgb.width())
                        .arg(rgb.height())
                        .arg(width)
                        .arg(height));
    }
    size_t changed = 0;
    for (int y = 0; y < height; ++y) {
        const auto* row = reinterpret_cast<const uint32_t*>(rgb.constScanLine(y));
        uint32_t* into = d->current.data() + size_t(y) * size_t(width);
        const uint32_t* before = d->previous.data() + size_t(y) * size_t(width);
        for (int x = 0; x < width; ++x) {
            into[x] = row[x] & 0xffffffu;
            changed += into[x] != before[x];
        }
    }
    if (changed == 0 && d->hasPending) {
        return; // the same picture again: the one shown lasts longer
    }

    // A new scene: most of the picture changed, or its new colours are far
    // from every entry of the palette.
    bool newPalette = !d->palette || changed * 2 > d->current.size();
    if (!newPalette) {
        // Every changed pixel of a small change, every seventh of a large one.
        const size_t step = changed > 20000 ? 7 : 1;
        uint64_t error = 0, sampled = 0;
        for (size_t i = 0; i < d->current.size(); i += step) {
            if (d->current[i] != d->previous[i]) {
                error += uint64_t(d->palette->error(d->current[i]));
                ++sampled;
            }
        }
        newPalette = sampled > 0 && error / sampled > 9 * 12 * 12; // 12 levels on each channel
    }
    if (newPalette) {
        if (d->palette && d->palette.get() == d->global) {
            d->kept.push_back(std::move(d->palette));
        }
        d->palette = std::make_unique<Palette>(paletteOf(d->current));
        ++d->statistics.palettes;
    }
    Palette& palette = *d->palette;
    if (!d->started) {
        d->global = d->palette.get();
        d->writeHeader();
    }

    // The pixels that show something else now, and where they lie.
    const uint8_t transparent = uint8_t(palette.transparent());
    int left = width, top = height, right = -1, bottom = -1;
    for (int y = 0; y < height; ++y) {
        const size_t row = size_t(y) * size_t(width);
        for (int x = 0; x < width; ++x) {
            const size_t i = row + size_t(x);
            if (!newPalette && d->current[i] == d->previous[i]) {
                d->indices[i] = transparent;
                continue;
            }
            // Compression noise over what is shown already: left unwritten.
            const uint32_t was = d->canvas[i];
            const int exact = palette.exactIndex(d->current[i]);
            if (was != noColour && isStill(d->current[i], was, exact >= 0 ? stillLumaExact : stillLuma)) {
                d->indices[i] = transparent;
                continue;
            }
            const int index = palette.index(d->current[i], exact, x, y);
            const uint32_t shown = palette.colours()[size_t(index)];
            if (shown == d->canvas[i]) {
                d->indices[i] = transparent;
                continue;
            }
            d->indices[i] = uint8_t(index);
            d->canvas[i] = shown;
            left = std::min(left, x);
            right = std::max(right, x);
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    }
    std::swap(d->previous, d->current);
    if (right < 0) {
        if (d->hasPending) {
            return; // nothing shows differently
        }
        left = top = right = bottom = 0; // the first picture is written all the same
    }

    std::vector<uint8_t> part;
    part.reserve(size_t(right - left + 1) * size_t(bottom - top + 1));
    for (int y = top; y <= bottom; ++y) {
        const uint8_t* row = d->indices.data() + size_t(y) * size_t(width);
        part.insert(part.end(), row + left, row + right + 1);
    }
    QByteArray frame;
    frame.append(char(transparent)); // read back by flushPending
    frame.append(char(0x2c));
    putShort(frame, left);
    putShort(frame, top);
    putShort(frame, right - left + 1);
    putShort(frame, bottom - top + 1);
    const int bits = palette.tableBits();
    QByteArray pixels = imageData(part, &palette == d->global ? nullptr : &palette.colours(), bits);

    // A change in a few of the palette's colours: a table of just those
    // gives shorter codes, and is taken when the whole comes out smaller.
    std::array<int, 256> local;
    local.fill(-1);
    std::vector<uint32_t> used;
    for (uint8_t& index : part) {
        if (index != transparent) {
            if (local[index] < 0) {
                local[index] = int(used.size());
                used.push_back(palette.colours()[index]);
            }
            index = uint8_t(local[index]);
        } else {
            index = 0xff; // renumbered below, once the count is known
        }
    }
    const int fewBits = tableBits(used.size());
    if (fewBits < bits) {
        const auto localTransparent = uint8_t(used.size());
        for (uint8_t& index : part) {
            index = index == 0xff ? localTransparent : index;
        }
        QByteArray few = imageData(part, &used, fewBits);
        if (few.size() < pixels.size()) {
            pixels = std::move(few);
            frame[0] = char(localTransparent);
        }
    }
    frame.append(pixels);

    d->flushPending(startMs);
    d->pending = std::move(frame);
    d->pendingStart = startMs;
    d->hasPending = true;
}

void GifEncoder::finish(qint64 endMs)
{
    if (!d->started) {
        throw Error(QStringLiteral("An animation needs at least one picture."));
    }
    d->flushPending(endMs);
    d->write(QByteArray(1, char(0x3b)));
}

GifEncoder::Statistics GifEncoder::statistics() const
{
    return d->statistics;
}

} // namespace nubo
