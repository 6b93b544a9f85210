#include "video/VideoEditRenderer.h"

#include "render/RedactionRenderer.h"
#include "video/MediaInput.h"

#include <QPainter>

extern "C" {
#include <libavutil/pixdesc.h>
}

#include <algorithm>
#include <cmath>
#include <limits>

namespace nubo {

int64_t videoSizeEstimate(const VideoEditList& list, const VideoSourceInfo& info)
{
    const QSize output = videoOutputSize(info.size, list.cropRect, list.quality);
    const QSize cropped = videoOutputSize(info.size, list.cropRect, VideoExportQuality::original);
    const double ratio = double(output.width()) * output.height() / (double(cropped.width()) * cropped.height());
    const double videoRate = ratio < 1 ? info.videoBitRate * ratio : info.videoBitRate;
    const double audioRate = !list.isMuted && info.hasAudio ? 192000.0 : 0.0;
    const double bytes = (videoRate + audioRate) * list.keptDuration().toSeconds() * 0.125;
    if (!(bytes < double(std::numeric_limits<int64_t>::max()))) {
        return std::isnan(bytes) ? 0 : std::numeric_limits<int64_t>::max();
    }
    if (bytes <= double(std::numeric_limits<int64_t>::min())) {
        return std::numeric_limits<int64_t>::min();
    }
    return int64_t(bytes);
}

int VideoEditRenderer::blurBlock(QSize source)
{
    const int shorter = std::min(source.width(), source.height());
    return std::max(6, 2 * ((shorter + 54) / 108));
}

VideoEditRenderer::VideoEditRenderer(VideoEditList list, VideoSourceInfo info)
    : m_list(std::move(list)), m_info(std::move(info))
{
    m_output = videoOutputSize(m_info.size, m_list.cropRect, m_list.quality);
    const QSize kept = videoOutputSize(m_info.size, m_list.cropRect, VideoExportQuality::original);
    const QRectF c = m_list.effectiveCrop();
    const int w = std::min(kept.width(), m_info.size.width() & ~1);
    const int h = std::min(kept.height(), m_info.size.height() & ~1);
    const int x = std::clamp(2 * int(std::floor(c.x() * m_info.size.width() / 2)), 0, (m_info.size.width() - w) & ~1);
    const int y = std::clamp(2 * int(std::floor(c.y() * m_info.size.height() / 2)), 0, (m_info.size.height() - h) & ~1);
    m_crop = QRect(x, y, w, h);
    m_block = blurBlock(m_info.size);
}

VideoEditRenderer::~VideoEditRenderer()
{
    sws_freeContext(m_scaler);
    sws_freeContext(m_converter);
    av_frame_free(&m_converted);
}

QRect VideoEditRenderer::blurPixels(const VideoBlurRegion& region) const
{
    const QSize s = m_info.size;
    const int left = std::clamp(2 * int(std::floor(region.rect.left() * s.width() / 2)), 0, s.width());
    const int top = std::clamp(2 * int(std::floor(region.rect.top() * s.height() / 2)), 0, s.height());
    const int right = std::clamp(2 * int(std::ceil(region.rect.right() * s.width() / 2)), 0, s.width() & ~1);
    const int bottom = std::clamp(2 * int(std::ceil(region.rect.bottom() * s.height() / 2)), 0, s.height() & ~1);
    return QRect(QPoint(left, top), QPoint(right - 1, bottom - 1));
}

bool VideoEditRenderer::changesPicture() const
{
    return !m_list.blurs.empty() || m_crop != QRect(QPoint(), m_info.size) || m_output != m_info.size;
}

namespace {

// Every cell × cell square of the plane inside `area` (anchored at its
// top-left) set to its average.
void pixelatePlane(uint8_t* data, int stride, const QRect& area, int cell)
{
    for (int top = area.top(); top <= area.bottom(); top += cell) {
        const int rows = std::min(cell, area.bottom() + 1 - top);
        for (int left = area.left(); left <= area.right(); left += cell) {
            const int columns = std::min(cell, area.right() + 1 - left);
            uint32_t sum = 0;
            for (int y = 0; y < rows; ++y) {
                const uint8_t* row = data + ptrdiff_t(top + y) * stride + left;
                for (int x = 0; x < columns; ++x) {
                    sum += row[x];
                }
            }
            const uint8_t average = uint8_t(sum / uint32_t(rows * columns));
            for (int y = 0; y < rows; ++y) {
                std::fill_n(data + ptrdiff_t(top + y) * stride + left, columns, average);
            }
        }
    }
}

} // namespace

void VideoEditRenderer::render(AVFrame* source, VideoTime sourceTime, AVFrame* out)
{
    const bool live = std::any_of(m_list.blurs.begin(), m_list.blurs.end(),
                                  [&](const VideoBlurRegion& region) { return region.timeRange.contains(sourceTime); });
    const bool planar420 = source->format == AV_PIX_FMT_YUV420P || source->format == AV_PIX_FMT_YUVJ420P;
    if (live && !planar420) {
        // Pixelation works on 8-bit 4:2:0 planes: anything else is converted
        // first, so a region is never left readable.
        if (!m_converted) {
            m_converted = av_frame_alloc();
        }
        av_frame_unref(m_converted);
        m_converted->format = AV_PIX_FMT_YUV420P;
        m_converted->width = source->width;
        m_converted->height = source->height;
        m_converter = sws_getCachedContext(m_converter, source->width, source->height, AVPixelFormat(source->format),
                                           source->width, source->height, AV_PIX_FMT_YUV420P, SWS_POINT, nullptr,
                                           nullptr, nullptr);
        if (!m_converter || av_frame_get_buffer(m_converted, 0) < 0 ||
            sws_scale(m_converter, source->data, source->linesize, 0, source->height, m_converted->data,
                      m_converted->linesize) <= 0) {
            throw VideoRenderError(VideoRenderError::Code::frameNotRendered);
        }
        source = m_converted;
    }
    bool blurred = false;
    for (const VideoBlurRegion& region : m_list.blurs) {
        if (!region.timeRange.contains(sourceTime)) {
            continue;
        }
        const QRect area = blurPixels(region);
        if (area.isEmpty()) {
            continue;
        }
        if (!blurred && av_frame_make_writable(source) < 0) {
            throw VideoRenderError(VideoRenderError::Code::frameNotRendered);
        }
        blurred = true;
        pixelatePlane(source->data[0], source->linesize[0], area, m_block);
        const QRect half(area.left() / 2, area.top() / 2, area.width() / 2, area.height() / 2);
        pixelatePlane(source->data[1], source->linesize[1], half, m_block / 2);
        pixelatePlane(source->data[2], source->linesize[2], half, m_block / 2);
    }
    m_scaler = sws_getCachedContext(m_scaler, m_crop.width(), m_crop.height(), AVPixelFormat(source->format),
                                    out->width, out->height, AVPixelFormat(out->format), SWS_BICUBIC, nullptr,
                                    nullptr, nullptr);
    if (!m_scaler) {
        throw VideoRenderError(VideoRenderError::Code::frameNotRendered);
    }
    const AVPixFmtDescriptor* format = av_pix_fmt_desc_get(AVPixelFormat(source->format));
    const uint8_t* planes[4] = {};
    for (int i = 0; i < 4 && source->data[i]; ++i) {
        const bool chroma = i == 1 || i == 2;
        const int x = chroma ? m_crop.x() >> format->log2_chroma_w : m_crop.x();
        const int y = chroma ? m_crop.y() >> format->log2_chroma_h : m_crop.y();
        planes[i] = source->data[i] + ptrdiff_t(y) * source->linesize[i] + x * (format->comp[i < format->nb_components ? i : 0].step);
    }
    if (av_frame_make_writable(out) < 0 ||
        sws_scale(m_scaler, planes, source->linesize, 0, m_crop.height(), out->data, out->linesize) <= 0) {
        throw VideoRenderError(VideoRenderError::Code::frameNotRendered);
    }
}

void VideoEditRenderer::blurImage(QImage& picture, VideoTime sourceTime) const
{
    const double sx = double(picture.width()) / m_info.size.width();
    const double sy = double(picture.height()) / m_info.size.height();
    const int cell = std::max(2, int(std::lround(m_block * sx)));
    for (const VideoBlurRegion& region : m_list.blurs) {
        if (!region.timeRange.contains(sourceTime)) {
            continue;
        }
        const QRect pixels = blurPixels(region);
        const QRect area = QRect(int(pixels.x() * sx), int(pixels.y() * sy), std::max(1, int(pixels.width() * sx)),
                                 std::max(1, int(pixels.height() * sy)))
                               .intersected(picture.rect());
        if (area.isEmpty()) {
            continue;
        }
        const QImage pixelated = RedactionRenderer::pixelate(picture.copy(area), std::min({cell, area.width(), area.height()}));
        QPainter painter(&picture);
        painter.drawImage(area.topLeft(), pixelated);
    }
}

QImage VideoEditRenderer::still(VideoFrameReader& reader, VideoTime sourceTime, QSize fit) const
{
    VideoFrame frame = reader.frameAt(sourceTime, m_info.size.scaled(fit.isEmpty() ? m_info.size : fit, Qt::KeepAspectRatio));
    blurImage(frame.image, sourceTime);
    const double sx = double(frame.image.width()) / m_info.size.width();
    const double sy = double(frame.image.height()) / m_info.size.height();
    const QRect crop(int(m_crop.x() * sx), int(m_crop.y() * sy), std::max(1, int(m_crop.width() * sx)),
                     std::max(1, int(m_crop.height() * sy)));
    QImage picture = frame.image.copy(crop);
    if (picture.isNull()) {
        throw VideoRenderError(VideoRenderError::Code::frameNotRendered);
    }
    return picture;
}

} // namespace nubo
