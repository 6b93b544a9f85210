#include "media/H264Bitstream.h"

#include <gtest/gtest.h>

namespace nubo {
namespace {

using namespace media::h264;

QByteArray bytes(std::initializer_list<int> values)
{
    QByteArray out;
    for (int v : values) {
        out.append(char(v));
    }
    return out;
}

const uint8_t* data(const QByteArray& b)
{
    return reinterpret_cast<const uint8_t*>(b.constData());
}

TEST(H264Bitstream, ExpGolombNumbersAndParameterSetIds)
{
    struct Case {
        const char* name;
        QByteArray unit;
        int bit;
        int expected;
    };
    const Case cases[] = {
        {"1 is 0", bytes({0x80}), 0, 0},
        {"010 is 1", bytes({0x40}), 0, 1},
        {"011 is 2", bytes({0x60}), 0, 2},
        {"00100 is 3", bytes({0x20}), 0, 3},
        {"0001000 is 7", bytes({0x10}), 0, 7},
        {"across a byte: 000010001 is 16", bytes({0x08, 0x80}), 0, 16},
        {"from the middle of a byte", bytes({0xf4}), 4, 1},
        {"past the end reads ones: 0", bytes({}), 0, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        EXPECT_EQ(readUe(c.unit, c.bit), c.expected);
    }
    // An SPS: NAL header, profile, constraints, level, then its id (ue 3).
    EXPECT_EQ(spsId(bytes({0x67, 0x64, 0x00, 0x1f, 0x20})), 3);
    // A PPS: NAL header, then its id (ue 2), then the SPS's.
    EXPECT_EQ(ppsId(bytes({0x68, 0x6c})), 2);
}

TEST(H264Bitstream, AnnexBUnitsLoseTheirStartCodesAndTrailingZeros)
{
    const QByteArray stream =
        bytes({0, 0, 0, 1, 0x67, 0xaa, 0, 0, 1, 0x68, 0xbb, 0, 0, 0, 0, 1, 0x65, 0xcc});
    const std::vector<QByteArray> units = annexBUnits(data(stream), int(stream.size()));
    ASSERT_EQ(units.size(), 3u);
    EXPECT_EQ(units[0], bytes({0x67, 0xaa}));
    EXPECT_EQ(units[1], bytes({0x68, 0xbb}));
    EXPECT_EQ(units[2], bytes({0x65, 0xcc}));
    EXPECT_TRUE(annexBUnits(data(bytes({0x67, 0xaa})), 2).empty()) << "no start code, no unit";
}

TEST(H264Bitstream, AvcCRecordsRoundTripAndCutOnesAreRefused)
{
    const QByteArray sps = bytes({0x67, 0x64, 0x00, 0x1f, 0xac});
    const QByteArray pps = bytes({0x68, 0xee, 0x3c, 0xb0});
    QByteArray record = bytes({1, 0x64, 0x00, 0x1f, 0xff, 0xe1, 0, 5});
    record += sps;
    record += bytes({1, 0, 4});
    record += pps;
    record += bytes({0xfd, 0xf8, 0xf8, 0x00}); // High profile extension
    const std::optional<AvcConfig> config = parseAvcC(data(record), int(record.size()));
    ASSERT_TRUE(config);
    EXPECT_EQ(config->lengthSize, 4);
    ASSERT_EQ(config->sps.size(), 1u);
    ASSERT_EQ(config->pps.size(), 1u);
    EXPECT_EQ(config->sps[0], sps);
    EXPECT_EQ(config->pps[0], pps);
    EXPECT_EQ(writeAvcC(*config), record);

    for (int length : {0, 6, 10, 14}) {
        SCOPED_TRACE(length);
        EXPECT_FALSE(parseAvcC(data(record), length)) << "a record cut at " << length;
    }
    QByteArray version2 = record;
    version2[0] = 2;
    EXPECT_FALSE(parseAvcC(data(version2), int(version2.size())));
}

} // namespace
} // namespace nubo
