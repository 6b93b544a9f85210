#include "codec/DeflateSplice.h"

#include <array>

namespace nubo {

namespace {

class BitReader {
public:
    BitReader(const uint8_t* data, size_t size) : m_data(data), m_bits(size * 8) {}

    // Up to 24 bits, least significant first; past the end reads zeros.
    uint32_t peek(int count) const
    {
        uint32_t value = 0;
        const size_t byte = m_position >> 3;
        for (int i = 0; i < 4; ++i) {
            if (byte + size_t(i) < m_bits / 8) {
                value |= uint32_t(m_data[byte + size_t(i)]) << (8 * i);
            }
        }
        return (value >> (m_position & 7)) & ((1u << count) - 1);
    }
    uint32_t read(int count)
    {
        const uint32_t value = peek(count);
        m_position += size_t(count);
        return value;
    }
    void skip(size_t count) { m_position += count; }
    void alignToByte() { m_position = (m_position + 7) & ~size_t(7); }
    size_t position() const { return m_position; }
    bool overrun() const { return m_position > m_bits; }

private:
    const uint8_t* m_data;
    size_t m_bits;
    size_t m_position = 0;
};

// A canonical Huffman code as a lookup table over its longest code length.
class HuffmanTable {
public:
    bool build(const uint8_t* lengths, int count)
    {
        m_maxBits = 0;
        std::array<int, 16> perLength{};
        for (int i = 0; i < count; ++i) {
            perLength[lengths[i]]++;
            m_maxBits = std::max(m_maxBits, int(lengths[i]));
        }
        if (m_maxBits == 0) {
            m_entries.assign(2, 0); // an unused code: nothing decodes
            m_maxBits = 1;
            return true;
        }
        perLength[0] = 0;
        std::array<uint32_t, 16> next{};
        uint32_t code = 0;
        for (int bits = 1; bits <= 15; ++bits) {
            code = (code + uint32_t(perLength[bits - 1])) << 1;
            next[bits] = code;
        }
        m_entries.assign(size_t(1) << m_maxBits, 0);
        for (int symbol = 0; symbol < count; ++symbol) {
            const int length = lengths[symbol];
            if (length == 0) {
                continue;
            }
            uint32_t c = next[length]++;
            uint32_t reversed = 0;
            for (int i = 0; i < length; ++i) {
                reversed = (reversed << 1) | (c & 1);
                c >>= 1;
            }
            if (reversed >= (1u << length)) {
                return false; // over-subscribed
            }
            // entry: symbol << 4 | length; 0 means no code.
            for (size_t index = reversed; index < m_entries.size(); index += size_t(1) << length) {
                m_entries[index] = uint32_t(symbol) << 4 | uint32_t(length);
            }
        }
        return true;
    }

    // The next symbol, or -1 for bits that are no code.
    int decode(BitReader& in) const
    {
        const uint32_t entry = m_entries[in.peek(m_maxBits)];
        if (entry == 0) {
            return -1;
        }
        in.skip(entry & 15);
        return int(entry >> 4);
    }

private:
    std::vector<uint32_t> m_entries;
    int m_maxBits = 0;
};

constexpr std::array<uint8_t, 29> lengthExtra{0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 2, 2, 2,
                                              2, 3, 3, 3, 3, 4, 4, 4, 4, 5, 5, 5, 5, 0};
constexpr std::array<uint8_t, 30> distanceExtra{0, 0, 0,  0,  1,  1,  2,  2,  3,  3,
                                                4, 4, 5,  5,  6,  6,  7,  7,  8,  8,
                                                9, 9, 10, 10, 11, 11, 12, 12, 13, 13};

// Reads the two codes of a dynamic block's header.
bool readDynamicCodes(BitReader& in, HuffmanTable& literals, HuffmanTable& distances)
{
    const int literalCount = int(in.read(5)) + 257;
    const int distanceCount = int(in.read(5)) + 1;
    const int codeLengthCount = int(in.read(4)) + 4;
    static constexpr std::array<uint8_t, 19> order{16, 17, 18, 0, 8,  7, 9,  6, 10, 5,
                                                   11, 4,  12, 3, 13, 2, 14, 1, 15};
    std::array<uint8_t, 19> codeLengths{};
    for (int i = 0; i < codeLengthCount; ++i) {
        codeLengths[order[size_t(i)]] = uint8_t(in.read(3));
    }
    HuffmanTable lengthCode;
    if (!lengthCode.build(codeLengths.data(), 19)) {
        return false;
    }
    std::array<uint8_t, 320> lengths{};
    int filled = 0;
    while (filled < literalCount + distanceCount) {
        const int symbol = lengthCode.decode(in);
        if (symbol < 0 || in.overrun()) {
            return false;
        }
        if (symbol < 16) {
            lengths[size_t(filled++)] = uint8_t(symbol);
            continue;
        }
        int repeat = 0;
        uint8_t value = 0;
        if (symbol == 16) {
            if (filled == 0) {
                return false;
            }
            value = lengths[size_t(filled - 1)];
            repeat = 3 + int(in.read(2));
        } else if (symbol == 17) {
            repeat = 3 + int(in.read(3));
        } else {
            repeat = 11 + int(in.read(7));
        }
        if (filled + repeat > literalCount + distanceCount) {
            return false;
        }
        while (repeat-- > 0) {
            lengths[size_t(filled++)] = value;
        }
    }
    return literals.build(lengths.data(), literalCount) &&
           distances.build(lengths.data() + literalCount, distanceCount);
}

} // namespace

std::optional<DeflateStreamEnd> findDeflateStreamEnd(const uint8_t* data, size_t size)
{
    BitReader in(data, size);
    HuffmanTable literals, distances;
    while (true) {
        const size_t blockBit = in.position();
        const bool final = in.read(1) != 0;
        const uint32_t type = in.read(2);
        if (type == 0) {
            in.alignToByte();
            const uint32_t length = in.read(16);
            const uint32_t complement = in.read(16);
            if ((length ^ 0xFFFFu) != complement) {
                return std::nullopt;
            }
            in.skip(size_t(length) * 8);
        } else {
            if (type == 1) {
                std::array<uint8_t, 288 + 32> fixed{};
                std::fill(fixed.begin(), fixed.begin() + 144, 8);
                std::fill(fixed.begin() + 144, fixed.begin() + 256, 9);
                std::fill(fixed.begin() + 256, fixed.begin() + 280, 7);
                std::fill(fixed.begin() + 280, fixed.begin() + 288, 8);
                std::fill(fixed.begin() + 288, fixed.end(), 5);
                literals.build(fixed.data(), 288);
                distances.build(fixed.data() + 288, 32);
            } else if (type != 2 || !readDynamicCodes(in, literals, distances)) {
                return std::nullopt;
            }
            // Walk the symbols to the end of the block; nothing is decoded.
            while (true) {
                const int symbol = literals.decode(in);
                if (symbol < 0 || symbol > 285 || in.overrun()) {
                    return std::nullopt;
                }
                if (symbol == 256) {
                    break;
                }
                if (symbol > 256) {
                    in.skip(lengthExtra[size_t(symbol - 257)]);
                    const int distance = distances.decode(in);
                    if (distance < 0 || distance > 29) {
                        return std::nullopt;
                    }
                    in.skip(distanceExtra[size_t(distance)]);
                }
            }
        }
        if (in.overrun()) {
            return std::nullopt;
        }
        if (final) {
            return DeflateStreamEnd{blockBit, in.position()};
        }
    }
}

bool endForJoining(std::vector<uint8_t>& stream)
{
    const auto end = findDeflateStreamEnd(stream.data(), stream.size());
    if (!end) {
        return false;
    }
    const size_t usedBytes = (end->endBit + 7) / 8;
    stream.resize(usedBytes);
    stream[end->lastBlockBit / 8] &= uint8_t(~(1u << (end->lastBlockBit % 8)));
    // An empty stored block: three zero header bits (the padding after
    // the end-of-block code when it has room), byte alignment, 0000 FFFF.
    const size_t padding = usedBytes * 8 - end->endBit;
    if (padding < 3) {
        stream.push_back(0);
    }
    stream.insert(stream.end(), {0x00, 0x00, 0xFF, 0xFF});
    return true;
}

std::vector<uint8_t> spliceDeflateStreams(std::vector<std::vector<uint8_t>> streams)
{
    std::vector<uint8_t> out;
    size_t total = 0;
    for (size_t i = 0; i + 1 < streams.size(); ++i) {
        if (!endForJoining(streams[i])) {
            return {};
        }
    }
    for (const auto& s : streams) {
        total += s.size();
    }
    out.reserve(total);
    for (const auto& s : streams) {
        out.insert(out.end(), s.begin(), s.end());
    }
    return out;
}

} // namespace nubo
