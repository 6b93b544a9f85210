#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace nubo {

// Where a complete raw deflate stream ends: the bit at which its last block
// begins (that block's BFINAL bit) and the bit just after the last block's
// end-of-block code. Nothing when the stream is damaged.
struct DeflateStreamEnd {
    size_t lastBlockBit = 0;
    size_t endBit = 0;
};
std::optional<DeflateStreamEnd> findDeflateStreamEnd(const uint8_t* data, size_t size);

// Makes a complete raw deflate stream one that another can follow: it loses
// its final flag and ends with an empty stored block, which byte-aligns what
// comes next (what zlib's sync flush writes). False when it is damaged.
bool endForJoining(std::vector<uint8_t>& stream);

// Joins raw deflate streams into one: every stream but the last ended for
// joining, then all put one after the other. Empty result when a stream is
// damaged.
std::vector<uint8_t> spliceDeflateStreams(std::vector<std::vector<uint8_t>> streams);

} // namespace nubo
