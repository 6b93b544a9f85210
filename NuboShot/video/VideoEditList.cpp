#include "video/VideoEditList.h"

#include <algorithm>
#include <cmath>

namespace nubo {

QString videoExportQualityTitle(VideoExportQuality quality)
{
    switch (quality) {
    case VideoExportQuality::original: return QStringLiteral("Original");
    case VideoExportQuality::p1080: return QStringLiteral("1080p");
    case VideoExportQuality::p720: return QStringLiteral("720p");
    }
    return {};
}

VideoEditList VideoEditList::opened(const QString& source, VideoTime duration)
{
    VideoEditList list;
    list.source = source;
    list.outPoint = duration;
    return list;
}

std::vector<VideoTimeRange> VideoEditList::keptRanges() const
{
    std::vector<VideoTimeRange> kept{VideoTimeRange::between(inPoint, outPoint)};
    for (const VideoTimeRange& removed : removedRanges) {
        std::vector<VideoTimeRange> left;
        for (const VideoTimeRange& range : kept) {
            if (removed.start >= range.end() || removed.end() <= range.start) {
                left.push_back(range);
                continue;
            }
            if (removed.start > range.start) {
                left.push_back(VideoTimeRange::between(range.start, removed.start));
            }
            if (removed.end() < range.end()) {
                left.push_back(VideoTimeRange::between(removed.end(), range.end()));
            }
        }
        kept = std::move(left);
    }
    std::erase_if(kept, [](const VideoTimeRange& range) { return range.isEmpty(); });
    return kept;
}

VideoTime VideoEditList::keptDuration() const
{
    VideoTime total;
    for (const VideoTimeRange& range : keptRanges()) {
        total += range.duration;
    }
    return total;
}

std::optional<VideoTime> VideoEditList::editedTime(VideoTime source) const
{
    const auto kept = keptRanges();
    VideoTime accumulated;
    for (const VideoTimeRange& range : kept) {
        if (source >= range.start && source < range.end()) {
            return accumulated + (source - range.start);
        }
        accumulated += range.duration;
    }
    if (!kept.empty() && source == kept.back().end()) {
        return accumulated;
    }
    return std::nullopt;
}

VideoTime VideoEditList::sourceTime(VideoTime edited) const
{
    const auto kept = keptRanges();
    if (kept.empty()) {
        return inPoint;
    }
    edited = max(edited, VideoTime());
    VideoTime accumulated;
    for (const VideoTimeRange& range : kept) {
        if (edited < accumulated + range.duration) {
            return range.start + (edited - accumulated);
        }
        accumulated += range.duration;
    }
    return kept.back().end();
}

std::optional<VideoTime> VideoEditList::nextPlayableTime(VideoTime source) const
{
    for (const VideoTimeRange& range : keptRanges()) {
        if (range.end() > source) {
            return max(source, range.start);
        }
    }
    return std::nullopt;
}

bool VideoEditList::isRemoved(VideoTime source) const
{
    return std::any_of(removedRanges.begin(), removedRanges.end(),
                       [&](const VideoTimeRange& range) { return range.contains(source); });
}

QRectF VideoEditList::effectiveCrop() const
{
    return cropRect.value_or(QRectF(0, 0, 1, 1));
}

bool VideoEditList::split(VideoTime at, VideoTime duration)
{
    if (at <= VideoTime() || at >= duration) {
        return false;
    }
    if (std::find(splitPoints.begin(), splitPoints.end(), at) != splitPoints.end()) {
        return false;
    }
    splitPoints.push_back(at);
    std::sort(splitPoints.begin(), splitPoints.end());
    return true;
}

VideoTimeRange VideoEditList::segmentAt(VideoTime at, VideoTime duration) const
{
    VideoTime from, to = duration;
    for (const VideoTime& point : splitPoints) {
        if (point <= at) {
            from = point;
        } else {
            to = point;
            break;
        }
    }
    return VideoTimeRange::between(from, to);
}

bool VideoEditList::removeSegment(VideoTime at, VideoTime duration)
{
    const VideoTimeRange segment = segmentAt(at, duration);
    if (segment.isEmpty()) {
        return false;
    }
    const auto kept = keptRanges();
    const bool keepsSome = std::any_of(kept.begin(), kept.end(), [&](const VideoTimeRange& range) {
        return range.start < segment.end() && range.end() > segment.start;
    });
    if (!keepsSome) {
        return false;
    }
    removedRanges.push_back(segment);
    return true;
}

bool VideoEditList::restoreAt(VideoTime at)
{
    return std::erase_if(removedRanges, [&](const VideoTimeRange& range) { return range.contains(at); }) > 0;
}

bool VideoEditList::setInPoint(VideoTime at, VideoTime duration, VideoTime frameDuration)
{
    const VideoTime latest = max(VideoTime(), min(outPoint, duration) - frameDuration);
    const VideoTime clamped = std::clamp(at, VideoTime(), latest);
    if (clamped == inPoint) {
        return false;
    }
    inPoint = clamped;
    return true;
}

bool VideoEditList::setOutPoint(VideoTime at, VideoTime duration, VideoTime frameDuration)
{
    const VideoTime earliest = min(duration, inPoint + frameDuration);
    const VideoTime clamped = std::clamp(at, earliest, duration);
    if (clamped == outPoint) {
        return false;
    }
    outPoint = clamped;
    return true;
}

QRectF VideoEditList::clampNormalized(const QRectF& rect, double minimum)
{
    const QRectF r = rect.normalized();
    auto axis = [minimum](double from, double length) {
        if (!std::isfinite(from) || !std::isfinite(length)) {
            return std::pair{0.0, 1.0};
        }
        length = std::clamp(length, minimum, 1.0);
        from = std::clamp(from, 0.0, 1.0 - length);
        return std::pair{from, length};
    };
    const auto [x, w] = axis(r.x(), r.width());
    const auto [y, h] = axis(r.y(), r.height());
    return {x, y, w, h};
}

VideoTimeRange VideoEditList::clampToSpan(VideoTimeRange range) const
{
    const VideoTime shortest = VideoTime::milliseconds(1);
    VideoTime from = std::clamp(range.start, inPoint, outPoint);
    VideoTime to = std::clamp(range.end(), inPoint, outPoint);
    if (to - from < shortest) {
        to = min(from + shortest, outPoint);
        from = max(inPoint, to - shortest);
    }
    return VideoTimeRange::between(from, to);
}

int VideoEditList::addBlur(const QRectF& rect, VideoTimeRange timeRange)
{
    VideoBlurRegion region;
    region.id = QUuid::createUuid();
    region.number = nextBlurNumber++;
    region.rect = clampNormalized(rect);
    region.timeRange = clampToSpan(timeRange);
    blurs.push_back(region);
    return region.number;
}

bool VideoEditList::updateBlur(const QUuid& id, const QRectF& rect, VideoTimeRange timeRange)
{
    for (VideoBlurRegion& region : blurs) {
        if (region.id == id) {
            const QRectF r = clampNormalized(rect);
            const VideoTimeRange t = clampToSpan(timeRange);
            if (r == region.rect && t == region.timeRange) {
                return false;
            }
            region.rect = r;
            region.timeRange = t;
            return true;
        }
    }
    return false;
}

bool VideoEditList::removeBlur(const QUuid& id)
{
    return std::erase_if(blurs, [&](const VideoBlurRegion& region) { return region.id == id; }) > 0;
}

const VideoBlurRegion* VideoEditList::blur(const QUuid& id) const
{
    for (const VideoBlurRegion& region : blurs) {
        if (region.id == id) {
            return &region;
        }
    }
    return nullptr;
}

bool VideoEditList::setMuted(bool muted)
{
    if (muted == isMuted) {
        return false;
    }
    isMuted = muted;
    return true;
}

bool VideoEditList::setCrop(std::optional<QRectF> crop)
{
    std::optional<QRectF> next;
    if (crop) {
        const QRectF clamped = clampNormalized(*crop, 0.0);
        if (clamped != QRectF(0, 0, 1, 1)) {
            next = clamped;
        }
    }
    if (next == cropRect) {
        return false;
    }
    cropRect = next;
    return true;
}

bool VideoEditList::setQuality(VideoExportQuality next)
{
    if (next == quality) {
        return false;
    }
    quality = next;
    return true;
}

QSize videoOutputSize(QSize source, const std::optional<QRectF>& crop, VideoExportQuality quality)
{
    const QRectF c = crop.value_or(QRectF(0, 0, 1, 1));
    auto even = [](double length) { return std::max(2, 2 * int(std::floor(length * 0.5 + 0.000000001))); };
    int w = even(source.width() * c.width());
    int h = even(source.height() * c.height());
    const int target = quality == VideoExportQuality::p1080 ? 1080 : quality == VideoExportQuality::p720 ? 720 : 0;
    if (target > 0 && target < h) {
        w = even(double(w) * target / h);
        h = target;
    }
    return {w, h};
}

} // namespace nubo
