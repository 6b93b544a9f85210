#include "codec/DeflateSplice.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>
#include <libdeflate.h>
#include <memory>

namespace nubo {
namespace {

std::vector<uint8_t> compress(const std::vector<uint8_t>& data, int level)
{
    std::unique_ptr<libdeflate_compressor, void (*)(libdeflate_compressor*)> c(
        libdeflate_alloc_compressor(level), libdeflate_free_compressor);
    std::vector<uint8_t> out(libdeflate_deflate_compress_bound(c.get(), data.size()));
    out.resize(
        libdeflate_deflate_compress(c.get(), data.data(), data.size(), out.data(), out.size()));
    return out;
}

std::optional<std::vector<uint8_t>> inflate(const std::vector<uint8_t>& stream, size_t expected)
{
    std::unique_ptr<libdeflate_decompressor, void (*)(libdeflate_decompressor*)> d(
        libdeflate_alloc_decompressor(), libdeflate_free_decompressor);
    std::vector<uint8_t> out(expected);
    size_t actual = 0;
    if (libdeflate_deflate_decompress(d.get(), stream.data(), stream.size(), out.data(), out.size(),
                                      &actual) != LIBDEFLATE_SUCCESS ||
        actual != expected) {
        return std::nullopt;
    }
    return out;
}

// Data of the kinds deflate codes differently: runs (dynamic blocks), noise
// (stored blocks), a few bytes (fixed blocks).
std::vector<uint8_t> sample(int kind, size_t size, quint32 seed)
{
    QRandomGenerator random(seed);
    std::vector<uint8_t> data(size);
    for (size_t i = 0; i < size; ++i) {
        switch (kind) {
        case 0:
            data[i] = uint8_t((i / 37) % 7 + (i % 5 == 0 ? random.bounded(3) : 0));
            break;
        case 1:
            data[i] = uint8_t(random.generate());
            break;
        default:
            data[i] = uint8_t("screenshot"[i % 10]);
            break;
        }
    }
    return data;
}

TEST(DeflateSplice, JoinedStreamsInflateToTheJoinedData)
{
    // Many sizes and levels, so every way a stream can end meets the splice:
    // with and without room for the stored block's header in its last byte.
    for (int kind = 0; kind < 3; ++kind) {
        for (const int level : {1, 5, 9}) {
            for (size_t size :
                 {size_t(1), size_t(3), size_t(17), size_t(1000), size_t(70000), size_t(300001)}) {
                for (quint32 seed = 0; seed < 3; ++seed) {
                    const std::vector<uint8_t> a = sample(kind, size + seed, seed);
                    const std::vector<uint8_t> b =
                        sample((kind + seed) % 3, size / 2 + 5, seed + 100);
                    const std::vector<uint8_t> c = sample(kind, 999, seed + 7);
                    const auto joined = spliceDeflateStreams(
                        {compress(a, level), compress(b, level), compress(c, level)});
                    ASSERT_FALSE(joined.empty());
                    std::vector<uint8_t> expected = a;
                    expected.insert(expected.end(), b.begin(), b.end());
                    expected.insert(expected.end(), c.begin(), c.end());
                    const auto inflated = inflate(joined, expected.size());
                    ASSERT_TRUE(inflated.has_value())
                        << kind << " " << level << " " << size << " " << seed;
                    EXPECT_TRUE(*inflated == expected);
                }
            }
        }
    }
}

TEST(DeflateSplice, DamagedStreamsAreRefusedNotFollowed)
{
    const std::vector<uint8_t> good = compress(sample(0, 50000, 1), 6);
    const auto end = findDeflateStreamEnd(good.data(), good.size());
    ASSERT_TRUE(end.has_value());
    EXPECT_LE((end->endBit + 7) / 8, good.size());
    EXPECT_LT(end->lastBlockBit, end->endBit);

    struct Case {
        const char* name;
        std::vector<uint8_t> stream;
    };
    std::vector<uint8_t> truncated(good.begin(), good.begin() + std::ptrdiff_t(good.size() / 2));
    std::vector<uint8_t> reserved{0x07}; // final block of the reserved type 3
    std::vector<uint8_t> badStored{0x01, 0x05, 0x00, 0x00, 0x00}; // length and complement disagree
    const Case cases[] = {{"truncated", truncated},
                          {"reserved block type", reserved},
                          {"bad stored length", badStored},
                          {"nothing", {}}};
    for (const Case& c : cases) {
        EXPECT_FALSE(findDeflateStreamEnd(c.stream.data(), c.stream.size()).has_value()) << c.name;
        EXPECT_TRUE(spliceDeflateStreams({c.stream, good}).empty()) << c.name;
    }
}

} // namespace
} // namespace nubo
