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

// Joins raw deflate streams into one: every stream but the last loses its
// final flag and is followed by an empty stored block, which byte-aligns the
// next (what zlib's sync flush writes). Empty result when a stream is damaged.
std::vector<uint8_t> spliceDeflateStreams(const std::vector<std::vector<uint8_t>>& streams);

} // namespace nubo
