#pragma once

#include "video/VideoEditList.h"
#include "video/VideoSource.h"

#include <QSize>
#include <QString>

#include <array>
#include <atomic>
#include <cstdint>
#include <functional>
#include <optional>

namespace nubo {

// Recordings shared as animated pictures rather than movies.
enum class AnimationFormat { gif, webp };

// The animation a file name asks for by its suffix (".gif", ".webp"); none
// for a movie.
std::optional<AnimationFormat> animationFormatOf(const QString& file);

struct AnimationOptions {
    static constexpr std::array<int, 4> frameRates{10, 15, 24, 30};
    static constexpr std::array<int, 4> widths{0, 1280, 960, 640}; // 0: the picture's own

    int framesPerSecond = 15;
    int width = 0; // never wider than the (cropped) recording
    bool operator==(const AnimationOptions&) const = default;
};

// The animation's pictures: the crop's size, narrowed to `width` with the
// same shape (never widened).
QSize animationSize(const VideoEditList& list, const VideoSourceInfo& info, int width);

// Bytes an animation of the edit is expected to take, for the export's
// estimate: screen recordings change little from picture to picture.
int64_t animationSizeEstimate(const VideoEditList& list, const VideoSourceInfo& info, AnimationFormat format,
                              const AnimationOptions& options);

// Writes the edited movie (kept ranges, crop, blurs; no sound) into `file`
// as an animation of `options.framesPerSecond` pictures a second. GIF goes
// through GifEncoder, WebP through libwebp's animation encoder. Returns the
// pictures encoded; nothing when `cancelled` was set. Throws VideoEditError.
std::optional<int64_t> exportAnimation(const VideoEditList& list, const QString& file, AnimationFormat format,
                                       const AnimationOptions& options, const std::atomic<bool>& cancelled,
                                       const std::function<void(double)>& progress);

} // namespace nubo
