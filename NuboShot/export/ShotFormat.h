#pragma once

#include "core/EnumStrings.h"

#include <QString>

#include <array>
#include <cstdint>

namespace nubo {

// What a shot is exported as. The raw values are stored in preferences.
enum class ShotFormat { png, jpeg, heic, webp };
template <> struct EnumNames<ShotFormat> {
    static constexpr std::array names{"png", "jpeg", "heic", "webp"};
};

// The image writer's own formats, in its order; shots use the first four.
enum class ImageWriterFormat : uint8_t { jpg, png, webp, heic, pdf, avif, tiff, gif, bmp };
template <> struct EnumNames<ImageWriterFormat> {
    static constexpr std::array names{"jpg",  "png",  "webp", "heic", "pdf",
                                      "avif", "tiff", "gif",  "bmp"};
};

// png → 1, jpeg → 0, heic → 3, webp → 2.
constexpr std::array<uint8_t, 4> shotFormatWriterTable{1, 0, 3, 2};

constexpr ImageWriterFormat writerFormat(ShotFormat format)
{
    return ImageWriterFormat(shotFormatWriterTable[size_t(format)]);
}

// The file extension without the dot: "jpg" for jpeg, the raw value otherwise.
inline QString fileExtension(ShotFormat format)
{
    return toString(writerFormat(format));
}

// The format a file name's extension stands for (case-insensitive; "jpeg",
// "jpg" and "heif" included).
std::optional<ShotFormat> formatForFileName(const QString& fileName);

} // namespace nubo
