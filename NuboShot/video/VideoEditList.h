#pragma once

#include "video/VideoTime.h"

#include <QRectF>
#include <QSize>
#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace nubo {

// The export presets: the cropped source size, or its height capped at 1080
// or 720 lines (never upscaled, aspect kept).
enum class VideoExportQuality { original, p1080, p720 };
// "Original", "1080p", "720p"; the menu's caption under them.
QString videoExportQualityTitle(VideoExportQuality quality);
inline const QString videoExportQualityCaption = QStringLiteral("Keep aspect ratio · Never upscale");

// A rectangle of the picture pixelated over a stretch of source time. The
// rectangle is normalised to the source frame (0…1 on each axis).
struct VideoBlurRegion {
    QUuid id;
    int number = 0; // the label the user sees: 1, 2, 3…
    QRectF rect;
    VideoTimeRange timeRange;
    bool operator==(const VideoBlurRegion&) const = default;
};

// What the user made of one recording: a small value; the recording itself is
// never changed. Every time is a source time.
struct VideoEditList {
    QString source; // the recording's path
    VideoTime inPoint;
    VideoTime outPoint;
    std::vector<VideoTime> splitPoints; // ascending, no duplicates
    std::vector<VideoTimeRange> removedRanges;
    bool isMuted = false;
    std::optional<QRectF> cropRect; // normalised; none is the whole frame
    std::vector<VideoBlurRegion> blurs;
    VideoExportQuality quality = VideoExportQuality::original;
    int nextBlurNumber = 1;

    bool operator==(const VideoEditList&) const = default;

    // A fresh list: everything from 0 to the duration kept.
    static VideoEditList opened(const QString& source, VideoTime duration);

    // What is kept, in source order, never overlapping: the in–out span less
    // every removed range.
    std::vector<VideoTimeRange> keptRanges() const;
    VideoTime keptDuration() const;
    // The edited time of a source time; none inside a cut.
    std::optional<VideoTime> editedTime(VideoTime source) const;
    // The source time of an edited time (the in point when nothing is kept).
    VideoTime sourceTime(VideoTime edited) const;
    // Where playback at `source` goes on: `source` itself when it is kept,
    // else the start of the next kept range; none at the end.
    std::optional<VideoTime> nextPlayableTime(VideoTime source) const;
    // Whether a removed range covers this source time.
    bool isRemoved(VideoTime source) const;
    // The crop rectangle, the whole frame when none.
    QRectF effectiveCrop() const;
    // The cut-only case: nothing but the stretches kept changes the picture.
    bool isCutOnly() const { return !cropRect && blurs.empty() && quality == VideoExportQuality::original; }

    // Edits. Each returns whether the list changed; `duration` is the
    // source's.
    bool split(VideoTime at, VideoTime duration);
    // The stretch between the split points (or the movie's ends) around `at`.
    VideoTimeRange segmentAt(VideoTime at, VideoTime duration) const;
    // Removes that stretch; nothing when it is removed already.
    bool removeSegment(VideoTime at, VideoTime duration);
    // Takes back every removed range that covers `at`.
    bool restoreAt(VideoTime at);
    // In and out points, clamped to the movie and kept one frame apart.
    bool setInPoint(VideoTime at, VideoTime duration, VideoTime frameDuration);
    bool setOutPoint(VideoTime at, VideoTime duration, VideoTime frameDuration);
    // A new blur region (rectangle and time clamped as below); its number.
    int addBlur(const QRectF& rect, VideoTimeRange timeRange);
    // Moves or resizes a region, or changes its time; false for an unknown id.
    bool updateBlur(const QUuid& id, const QRectF& rect, VideoTimeRange timeRange);
    bool removeBlur(const QUuid& id);
    const VideoBlurRegion* blur(const QUuid& id) const;
    bool setMuted(bool muted);
    // A normalised crop, clamped to the frame; the whole frame (or none) clears it.
    bool setCrop(std::optional<QRectF> crop);
    bool setQuality(VideoExportQuality quality);

    // A normalised rectangle kept inside the unit square, at least `minimum`
    // on each side.
    static QRectF clampNormalized(const QRectF& rect, double minimum = 0.01);
    // A time range kept inside the in–out span, at least a millisecond long.
    VideoTimeRange clampToSpan(VideoTimeRange range) const;
};

// The exported picture's size for a source size, crop and quality: even,
// at least 2, capped at the quality's height without upscaling.
QSize videoOutputSize(QSize source, const std::optional<QRectF>& crop, VideoExportQuality quality);

} // namespace nubo
