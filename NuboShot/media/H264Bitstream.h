#pragma once

// H.264 bitstream pieces the stream-copying export splices with: the avcC
// record that holds a stream's parameter sets, Annex B units, and the ids of
// parameter sets.

#include <QByteArray>

#include <cstdint>
#include <optional>
#include <vector>

namespace nubo::media::h264 {

// An avcC record taken apart.
struct AvcConfig {
    QByteArray header; // the first five bytes
    std::vector<QByteArray> sps, pps;
    QByteArray trailer; // the High profiles' extension
    int lengthSize = 4;
};

// Nothing when the record is cut short or not version 1.
std::optional<AvcConfig> parseAvcC(const uint8_t* data, int size);
QByteArray writeAvcC(const AvcConfig& config);
// The NAL units of an Annex B stream (start codes removed).
std::vector<QByteArray> annexBUnits(const uint8_t* data, int size);
// An unsigned Exp-Golomb number from bit `bit` of the unit on.
int readUe(const QByteArray& unit, int bit);
// The id a sequence or picture parameter set (with its NAL header) gives itself.
inline int spsId(const QByteArray& sps)
{
    return readUe(sps, 32);
}
inline int ppsId(const QByteArray& pps)
{
    return readUe(pps, 8);
}

} // namespace nubo::media::h264
