#include "codec/PngEncoder.h"

#include "codec/DeflateSplice.h"

#include <QtEndian>

#include <libdeflate.h>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <thread>
#include <vector>

namespace nubo {

namespace {

// Rows are filtered and deflated in bands of about this many bytes.
constexpr size_t bandBytes = size_t(1) << 20;

struct CompressorDeleter {
    void operator()(libdeflate_compressor* c) const { libdeflate_free_compressor(c); }
};

void appendChunk(QByteArray& out, const char type[4], const uchar* data, size_t size)
{
    uchar length[4];
    qToBigEndian(quint32(size), length);
    out.append(reinterpret_cast<const char*>(length), 4);
    const qsizetype typeAt = out.size();
    out.append(type, 4);
    if (size > 0) {
        out.append(reinterpret_cast<const char*>(data), qsizetype(size));
    }
    const uint32_t crc = libdeflate_crc32(0, out.constData() + typeAt, size + 4);
    uchar crcBytes[4];
    qToBigEndian(crc, crcBytes);
    out.append(reinterpret_cast<const char*>(crcBytes), 4);
}

inline int paeth(int a, int b, int c)
{
    const int pa = std::abs(b - c);
    const int pb = std::abs(a - c);
    const int pc = std::abs(a + b - 2 * c);
    return pa <= pb && pa <= pc ? a : pb <= pc ? b : c;
}

inline uint32_t magnitude(int filtered)
{
    return uint32_t(std::abs(int(int8_t(uint8_t(filtered)))));
}

#if defined(__SSE2__)
// Sum of |int8| over 16 filtered bytes, as two 64-bit halves.
inline __m128i magnitudes(__m128i d)
{
    const __m128i absolute = _mm_min_epu8(d, _mm_sub_epi8(_mm_setzero_si128(), d));
    return _mm_sad_epu8(absolute, _mm_setzero_si128());
}

// The Paeth predictor of 16 bytes, worked in two halves of 16-bit lanes.
inline __m128i paethPredictor(__m128i a, __m128i b, __m128i c)
{
    const __m128i zero = _mm_setzero_si128();
    const auto half = [&](__m128i a8, __m128i b8, __m128i c8) {
        const __m128i pa = _mm_sub_epi16(b8, c8);
        const __m128i pb = _mm_sub_epi16(a8, c8);
        const __m128i pc = _mm_add_epi16(pa, pb);
        const auto absolute = [&](__m128i v) {
            return _mm_max_epi16(v, _mm_sub_epi16(zero, v));
        };
        const __m128i aa = absolute(pa), ab = absolute(pb), ac = absolute(pc);
        // a when pa <= pb and pa <= pc, else b when pb <= pc, else c
        const __m128i notA = _mm_or_si128(_mm_cmpgt_epi16(aa, ab), _mm_cmpgt_epi16(aa, ac));
        const __m128i notB = _mm_cmpgt_epi16(ab, ac);
        const __m128i bOrC = _mm_or_si128(_mm_and_si128(notB, c8), _mm_andnot_si128(notB, b8));
        return _mm_or_si128(_mm_and_si128(notA, bOrC), _mm_andnot_si128(notA, a8));
    };
    const __m128i low =
        half(_mm_unpacklo_epi8(a, zero), _mm_unpacklo_epi8(b, zero), _mm_unpacklo_epi8(c, zero));
    const __m128i high =
        half(_mm_unpackhi_epi8(a, zero), _mm_unpackhi_epi8(b, zero), _mm_unpackhi_epi8(c, zero));
    return _mm_packus_epi16(low, high);
}

inline __m128i averageFloor(__m128i a, __m128i b)
{
    // _mm_avg_epu8 rounds up; take the lost bit back.
    return _mm_sub_epi8(_mm_avg_epu8(a, b), _mm_and_si128(_mm_xor_si128(a, b), _mm_set1_epi8(1)));
}

inline __m128i load(const uint8_t* p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

inline uint32_t total(__m128i sums)
{
    return uint32_t(_mm_cvtsi128_si32(sums) + _mm_cvtsi128_si32(_mm_srli_si128(sums, 8)));
}
#endif

// The filtered byte of each filter type at position i ≥ bpp.
inline uint8_t filtered(int type, const uint8_t* row, const uint8_t* prior, size_t i, size_t bpp)
{
    const int x = row[i];
    const int a = i >= bpp ? row[i - bpp] : 0;
    const int b = prior[i];
    const int c = i >= bpp ? prior[i - bpp] : 0;
    switch (type) {
    case 0:
        return uint8_t(x);
    case 1:
        return uint8_t(x - a);
    case 2:
        return uint8_t(x - b);
    case 3:
        return uint8_t(x - ((a + b) >> 1));
    default:
        return uint8_t(x - paeth(a, b, c));
    }
}

// Filters one row (bpp bytes a pixel) into out[1..], out[0] taking the filter
// type whose output has the smallest sum of magnitudes (bytes taken as
// signed), the heuristic libpng uses too. All five costs come from one pass
// over a sample of the row; only the chosen filter is written.
void filterRow(const uint8_t* row, const uint8_t* prior, size_t size, size_t bpp, uint8_t* out)
{
    std::array<uint32_t, 5> costs{};
    size_t i = 0;
    // The first pixel has no left neighbour: a and c are zero.
    for (; i < std::min(bpp, size); ++i) {
        for (int f = 0; f < 5; ++f) {
            costs[size_t(f)] += magnitude(filtered(f, row, prior, i, bpp));
        }
    }
#if defined(__SSE2__)
    // The costs are taken over one 16-byte block in four: the same choice
    // on nearly every row of a screenshot (files 0.3–0.8 % larger on
    // bench/data) for an eighth less CPU.
    constexpr size_t sampledEvery = 4 * 16;
    __m128i none = _mm_setzero_si128(), sub = none, up = none, average = none, pae = none;
    for (; i + 16 <= size; i += sampledEvery) {
        const __m128i x = load(row + i), a = load(row + i - bpp), b = load(prior + i),
                      c = load(prior + i - bpp);
        none = _mm_add_epi64(none, magnitudes(x));
        sub = _mm_add_epi64(sub, magnitudes(_mm_sub_epi8(x, a)));
        up = _mm_add_epi64(up, magnitudes(_mm_sub_epi8(x, b)));
        average = _mm_add_epi64(average, magnitudes(_mm_sub_epi8(x, averageFloor(a, b))));
        pae = _mm_add_epi64(pae, magnitudes(_mm_sub_epi8(x, paethPredictor(a, b, c))));
    }
    costs[0] += total(none);
    costs[1] += total(sub);
    costs[2] += total(up);
    costs[3] += total(average);
    costs[4] += total(pae);
#endif
    for (; i < size; ++i) {
        for (int f = 0; f < 5; ++f) {
            costs[size_t(f)] += magnitude(filtered(f, row, prior, i, bpp));
        }
    }
    const int best = int(std::min_element(costs.begin(), costs.end()) - costs.begin());
    out[0] = uint8_t(best);
    uint8_t* o = out + 1;
    i = 0;
    for (; i < std::min(bpp, size); ++i) {
        o[i] = filtered(best, row, prior, i, bpp);
    }
#if defined(__SSE2__)
    for (; i + 16 <= size; i += 16) {
        const __m128i x = load(row + i), a = load(row + i - bpp), b = load(prior + i);
        __m128i result;
        switch (best) {
        case 0:
            result = x;
            break;
        case 1:
            result = _mm_sub_epi8(x, a);
            break;
        case 2:
            result = _mm_sub_epi8(x, b);
            break;
        case 3:
            result = _mm_sub_epi8(x, averageFloor(a, b));
            break;
        default:
            result = _mm_sub_epi8(x, paethPredictor(a, b, load(prior + i - bpp)));
            break;
        }
        _mm_storeu_si128(reinterpret_cast<__m128i*>(o + i), result);
    }
#endif
    for (; i < size; ++i) {
        o[i] = filtered(best, row, prior, i, bpp);
    }
}

// zlib's Adler-32 of two pieces joined, from the sums of each and the
// second's length.
uint32_t adler32Joined(uint32_t first, uint32_t second, size_t secondLength)
{
    constexpr uint64_t base = 65521;
    const uint64_t length = secondLength % base;
    const uint64_t low1 = first & 0xFFFF, high1 = first >> 16;
    const uint64_t low2 = second & 0xFFFF, high2 = second >> 16;
    const uint64_t low = (low1 + low2 + base - 1) % base;
    const uint64_t high = (high1 + high2 + length * low1 % base + base - length) % base;
    return uint32_t(low | (high << 16));
}

// One band of rows filtered and deflated on its own.
struct Band {
    std::vector<uint8_t> deflated;
    uint32_t adler = 1;
    size_t size = 0;
};

} // namespace

std::vector<uint8_t> PngEncoder::filteredZlibStream(const QImage& pixels, bool opaque, int level)
{
    const int width = pixels.width();
    const int height = pixels.height();
    const size_t bpp = opaque ? 3 : 4;
    const size_t rowSize = size_t(width) * bpp;
    // Rows are filtered and deflated a band at a time, each band on
    // whichever of two threads is free: the filtered image never exists
    // whole (a 4K screen's would be 25 MB of fresh memory to fault in), and
    // the bands' deflate streams are joined into one afterwards, as pigz
    // does. Each band starts without the window of the one before, which
    // costs a few bytes a band.
    const int rowsPerBand = int(std::clamp<size_t>(bandBytes / (rowSize + 1), 1, size_t(height)));
    const int bandCount = (height + rowsPerBand - 1) / rowsPerBand;
    std::vector<Band> bands(static_cast<size_t>(bandCount));
    std::atomic<int> next{0};
    std::atomic<bool> failed{false};
    const auto work = [&] {
        try {
            std::unique_ptr<libdeflate_compressor, CompressorDeleter> compressor(
                libdeflate_alloc_compressor(level));
            const size_t most = size_t(rowsPerBand) * (rowSize + 1);
            if (!compressor) {
                failed = true;
                return;
            }
            const size_t bound = libdeflate_deflate_compress_bound(compressor.get(), most);
            const auto filtered = std::make_unique_for_overwrite<uint8_t[]>(most);
            const auto deflated = std::make_unique_for_overwrite<uint8_t[]>(bound);
            // Packed rows (one spare byte for the four-byte stores) when opaque.
            std::vector<uint8_t> current(rowSize + 1), previous(rowSize + 1);
            const auto row = [&](int y, std::vector<uint8_t>& into) -> const uint8_t* {
                const uint8_t* source = pixels.constScanLine(y);
                if (!opaque) {
                    return source;
                }
                uint8_t* out = into.data();
                for (int x = 0; x < width; ++x) {
                    uint32_t pixel;
                    std::memcpy(&pixel, source + 4 * size_t(x), 4);
                    std::memcpy(out + 3 * size_t(x), &pixel, 4);
                }
                return out;
            };
            for (int b = next++; b < bandCount && !failed; b = next++) {
                const int first = b * rowsPerBand;
                const int last = std::min(height, first + rowsPerBand);
                std::fill(previous.begin(), previous.end(), 0);
                const uint8_t* prior = first == 0 ? previous.data() : row(first - 1, previous);
                for (int y = first; y < last; ++y) {
                    const uint8_t* line = row(y, current);
                    filterRow(line, prior, rowSize, bpp,
                              filtered.get() + size_t(y - first) * (rowSize + 1));
                    if (opaque) {
                        std::swap(current, previous);
                        prior = previous.data();
                    } else {
                        prior = line;
                    }
                }
                Band& band = bands[size_t(b)];
                band.size = size_t(last - first) * (rowSize + 1);
                const size_t n = libdeflate_deflate_compress(compressor.get(), filtered.get(),
                                                             band.size, deflated.get(), bound);
                if (n == 0) {
                    failed = true;
                    return;
                }
                band.deflated.assign(deflated.get(), deflated.get() + n);
                band.adler = libdeflate_adler32(1, filtered.get(), band.size);
                // Every band's stream but the last is made ready to be followed here,
                // on the worker, which costs a decode of its blocks' headers.
                if (b + 1 < bandCount && !endForJoining(band.deflated)) {
                    failed = true;
                    return;
                }
            }
        } catch (const std::bad_alloc&) {
            failed = true;
        }
    };
    if (bandCount > 1) {
        std::thread second(work);
        work();
        second.join();
    } else {
        work();
    }
    if (failed) {
        return {};
    }
    std::vector<uint8_t> deflated;
    uint32_t adler = bands.front().adler;
    try {
        if (bandCount == 1) {
            deflated = std::move(bands.front().deflated);
        } else {
            size_t total = 0;
            for (const Band& band : bands) {
                total += band.deflated.size();
            }
            deflated.reserve(total);
            for (size_t i = 0; i < bands.size(); ++i) {
                if (i > 0) {
                    adler = adler32Joined(adler, bands[i].adler, bands[i].size);
                }
                deflated.insert(deflated.end(), bands[i].deflated.begin(), bands[i].deflated.end());
            }
        }
    } catch (const std::bad_alloc&) {
        return {};
    }
    if (deflated.empty()) {
        return {};
    }
    std::vector<uint8_t> out;
    out.reserve(deflated.size() + 6);
    out.push_back(0x78); // deflate, 32 KiB window
    out.push_back(0x9C); // default level; header check
    out.insert(out.end(), deflated.begin(), deflated.end());
    for (int shift = 24; shift >= 0; shift -= 8) {
        out.push_back(uint8_t(adler >> shift));
    }
    return out;
}

bool PngEncoder::isOpaque(const QImage& image)
{
    if (!image.hasAlphaChannel()) {
        return true;
    }
    const QImage rgba = image.format() == QImage::Format_RGBA8888_Premultiplied ||
                                image.format() == QImage::Format_RGBA8888
                            ? image
                            : image.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const int width = rgba.width();
    const int height = rgba.height();
    // Whole pixels ANDed together (R, G, B, A in memory: alpha is the top
    // byte of each word), which the compiler vectorises; a large image in
    // two halves on two threads.
    std::atomic<bool> translucent{false};
    const auto scan = [&](int first, int last) {
        for (int y = first; y < last && !translucent; ++y) {
            const auto* p = reinterpret_cast<const uint32_t*>(rgba.constScanLine(y));
            uint32_t all = 0xFFFFFFFFu;
            for (int x = 0; x < width; ++x) {
                all &= p[x];
            }
            if ((all >> 24) != 0xFF) {
                translucent = true;
            }
        }
    };
    if (qsizetype(width) * height >= (qsizetype(1) << 20)) {
        std::thread lower(scan, height / 2, height);
        scan(0, height / 2);
        lower.join();
    } else {
        scan(0, height);
    }
    return !translucent;
}

QByteArray PngEncoder::encode(const QImage& image, const Options& options)
{
    if (image.isNull()) {
        return {};
    }
    const bool opaque = isOpaque(image);
    // Straight (unpremultiplied) RGBA, as PNG stores it; opaque images
    // need no conversion and are packed to RGB row by row below.
    const bool rgbaAlready = image.format() == QImage::Format_RGBA8888 ||
                             (opaque && (image.format() == QImage::Format_RGBA8888_Premultiplied ||
                                         image.format() == QImage::Format_RGBX8888));
    const QImage pixels = rgbaAlready ? image : image.convertToFormat(QImage::Format_RGBA8888);
    if (pixels.isNull()) {
        return {};
    }
    const int width = pixels.width();
    const int height = pixels.height();
    const std::vector<uint8_t> compressed = filteredZlibStream(pixels, opaque, options.level);
    if (compressed.empty()) {
        return {};
    }
    const size_t compressedSize = compressed.size();

    QByteArray out;
    out.reserve(qsizetype(compressedSize) + 128);
    out.append("\x89PNG\r\n\x1a\n", 8);
    uchar header[13];
    qToBigEndian(quint32(width), header);
    qToBigEndian(quint32(height), header + 4);
    header[8] = 8;              // bits per sample
    header[9] = opaque ? 2 : 6; // truecolour, with or without alpha
    header[10] = 0;             // deflate
    header[11] = 0;             // adaptive filtering
    header[12] = 0;             // not interlaced
    appendChunk(out, "IHDR", header, sizeof header);
    const uchar srgb = 0; // perceptual
    appendChunk(out, "sRGB", &srgb, 1);
    if (options.pixelsPerPoint > 0) {
        const quint32 perMetre = quint32(std::lround(options.pixelsPerPoint * 72 / 0.0254));
        uchar phys[9];
        qToBigEndian(perMetre, phys);
        qToBigEndian(perMetre, phys + 4);
        phys[8] = 1; // metres
        appendChunk(out, "pHYs", phys, sizeof phys);
    }
    // One IDAT chunk holds at most 2^31 - 1 bytes.
    constexpr size_t maximumChunk = 0x7FFFFFFF;
    for (size_t at = 0; at < compressedSize; at += maximumChunk) {
        appendChunk(out, "IDAT", compressed.data() + at,
                    std::min(maximumChunk, compressedSize - at));
    }
    appendChunk(out, "IEND", nullptr, 0);
    return out;
}

} // namespace nubo
