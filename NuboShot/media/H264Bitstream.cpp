#include "media/H264Bitstream.h"

namespace nubo::media::h264 {

std::optional<AvcConfig> parseAvcC(const uint8_t* data, int size)
{
    if (size < 7 || data[0] != 1) {
        return std::nullopt;
    }
    AvcConfig config;
    config.header = QByteArray(reinterpret_cast<const char*>(data), 5);
    config.lengthSize = (data[4] & 3) + 1;
    int at = 5;
    auto sets = [&](int count, std::vector<QByteArray>& into) {
        for (int i = 0; i < count; ++i) {
            if (at + 2 > size) {
                return false;
            }
            const int length = (data[at] << 8) | data[at + 1];
            at += 2;
            if (at + length > size) {
                return false;
            }
            into.emplace_back(reinterpret_cast<const char*>(data + at), length);
            at += length;
        }
        return true;
    };
    if (!sets(data[at++] & 0x1f, config.sps) || at >= size || !sets(data[at++], config.pps)) {
        return std::nullopt;
    }
    config.trailer = QByteArray(reinterpret_cast<const char*>(data + at), size - at);
    return config;
}

QByteArray writeAvcC(const AvcConfig& config)
{
    QByteArray out = config.header;
    out.append(char(0xe0 | int(config.sps.size())));
    for (const QByteArray& set : config.sps) {
        out.append(char(set.size() >> 8)).append(char(set.size() & 0xff)).append(set);
    }
    out.append(char(config.pps.size()));
    for (const QByteArray& set : config.pps) {
        out.append(char(set.size() >> 8)).append(char(set.size() & 0xff)).append(set);
    }
    return out + config.trailer;
}

std::vector<QByteArray> annexBUnits(const uint8_t* data, int size)
{
    std::vector<QByteArray> units;
    int start = -1;
    for (int i = 0; i + 2 < size; ++i) {
        if (data[i] == 0 && data[i + 1] == 0 && data[i + 2] == 1) {
            if (start >= 0) {
                int end = i;
                while (end > start && data[end - 1] == 0) {
                    --end;
                }
                units.emplace_back(reinterpret_cast<const char*>(data + start), end - start);
            }
            start = i + 3;
            i += 2;
        }
    }
    if (start >= 0 && start < size) {
        units.emplace_back(reinterpret_cast<const char*>(data + start), size - start);
    }
    return units;
}

int readUe(const QByteArray& unit, int bit)
{
    auto bitAt = [&](int b) {
        return b / 8 < unit.size() ? (uint8_t(unit[b / 8]) >> (7 - b % 8)) & 1 : 1;
    };
    int zeros = 0;
    while (bitAt(bit) == 0 && zeros < 31) {
        ++zeros;
        ++bit;
    }
    ++bit;
    int value = 0;
    for (int i = 0; i < zeros; ++i) {
        value = (value << 1) | bitAt(bit++);
    }
    return (1 << zeros) - 1 + value;
}

} // namespace nubo::media::h264
