#include "video/AnimatedExport.h"

#include "core/Logging.h"
#include "video/GifEncoder.h"
#include "video/MediaInput.h"
#include "video/VideoEditRenderer.h"

#include <QFile>
#include <QFileInfo>

extern "C" {
#include <libavutil/frame.h>
}

#include <webp/encode.h>
#include <webp/mux.h>

#include <cmath>
#include <memory>

namespace nubo {

namespace {

struct Cancelled {};

// libwebp's animation encoder, picture by picture, assembled at the end.
class WebpAnimation {
public:
    explicit WebpAnimation(QSize size) : m_size(size)
    {
        WebPAnimEncoderOptions options;
        if (!WebPAnimEncoderOptionsInit(&options) || !WebPConfigInit(&m_config)) {
            throw VideoEditError(VideoEditError::Code::cannotCreateExport,
                                 QStringLiteral("libwebp does not match the version it was built against."));
        }
        options.anim_params.loop_count = 0;
        // Screen pictures: lossy at a quality that keeps text readable, the
        // encoder's middle effort.
        m_config.quality = 80;
        m_config.method = 3;
        m_encoder = WebPAnimEncoderNew(size.width(), size.height(), &options);
        if (!m_encoder) {
            throw VideoEditError(VideoEditError::Code::cannotCreateExport,
                                 QStringLiteral("libwebp could not start an animation of %1 × %2.")
                                     .arg(size.width())
                                     .arg(size.height()));
        }
    }
    ~WebpAnimation() { WebPAnimEncoderDelete(m_encoder); }

    void add(const QImage& picture, qint64 startMs)
    {
        WebPPicture frame;
        WebPPictureInit(&frame);
        frame.use_argb = 1;
        frame.width = m_size.width();
        frame.height = m_size.height();
        const bool imported = WebPPictureImportBGRX(&frame, picture.constBits(), int(picture.bytesPerLine()));
        const bool added = imported && WebPAnimEncoderAdd(m_encoder, &frame, int(startMs), &m_config);
        WebPPictureFree(&frame);
        if (!added) {
            fail();
        }
    }
    QByteArray finish(qint64 endMs)
    {
        WebPData data;
        WebPDataInit(&data);
        if (!WebPAnimEncoderAdd(m_encoder, nullptr, int(endMs), nullptr) ||
            !WebPAnimEncoderAssemble(m_encoder, &data)) {
            fail();
        }
        QByteArray bytes(reinterpret_cast<const char*>(data.bytes), qsizetype(data.size));
        WebPDataClear(&data);
        return bytes;
    }

private:
    [[noreturn]] void fail()
    {
        throw VideoEditError(VideoEditError::Code::exportFailed,
                             QStringLiteral("libwebp: %1").arg(QString::fromUtf8(WebPAnimEncoderGetError(m_encoder))));
    }

    QSize m_size;
    WebPConfig m_config;
    WebPAnimEncoder* m_encoder = nullptr;
};

} // namespace

std::optional<AnimationFormat> animationFormatOf(const QString& file)
{
    const QString suffix = QFileInfo(file).suffix().toLower();
    if (suffix == QLatin1String("gif")) {
        return AnimationFormat::gif;
    }
    if (suffix == QLatin1String("webp")) {
        return AnimationFormat::webp;
    }
    return std::nullopt;
}

QSize animationSize(const VideoEditList& list, const VideoSourceInfo& info, int width)
{
    const QSize kept = videoOutputSize(info.size, list.cropRect, VideoExportQuality::original);
    if (width <= 0 || width >= kept.width()) {
        return kept;
    }
    return QSize(width, std::max(1, int(std::lround(double(kept.height()) * width / kept.width()))));
}

int64_t animationSizeEstimate(const VideoEditList& list, const VideoSourceInfo& info, AnimationFormat format,
                              const AnimationOptions& options)
{
    // Measured on screen recordings (typing, scrolling, windows moving): a
    // first picture of about a byte a pixel for GIF, then a few per cent of
    // it for each later one; WebP about a third of that.
    const QSize size = animationSize(list, info, options.width);
    const double pixels = double(size.width()) * size.height();
    const double pictures = std::max(1.0, list.keptDuration().toSeconds() * options.framesPerSecond);
    const double gif = pixels * (0.9 + 0.06 * (pictures - 1));
    return int64_t(format == AnimationFormat::gif ? gif : gif / 3);
}

std::optional<int64_t> exportAnimation(const VideoEditList& list, const QString& file, AnimationFormat format,
                                       const AnimationOptions& options, const std::atomic<bool>& cancelled,
                                       const std::function<void(double)>& progress)
{
    media::Input input(list.source);
    const VideoSourceInfo info = input.info(list.source);
    VideoEditRenderer renderer(list, info);
    const QSize size = animationSize(list, info, options.width);
    const int rate = std::clamp(options.framesPerSecond, 1, 60);

    QFile out(file);
    if (!out.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        throw VideoEditError(VideoEditError::Code::cannotCreateExport, out.errorString());
    }
    std::unique_ptr<GifEncoder> gif;
    std::unique_ptr<WebpAnimation> webp;
    if (format == AnimationFormat::gif) {
        gif = std::make_unique<GifEncoder>(out, size);
    } else {
        webp = std::make_unique<WebpAnimation>(size);
    }

    // Picture k shows the edited movie at k / rate seconds: the source
    // picture nearest that time (the last one that starts before it and half
    // a source picture later).
    const VideoTime kept = list.keptDuration();
    const int64_t pictures = std::max<int64_t>(1, int64_t(std::ceil(kept.toSeconds() * rate - 1e-9)));
    const VideoTime half = VideoTime::ofTicks(info.frameDuration.ticks(1, 2000), 1, 4000);
    const auto sourceOf = [&](int64_t k) { return list.sourceTime(VideoTime::ofTicks(k, 1, rate)) + half; };
    const auto startOf = [rate](int64_t k) { return k * 1000 / rate; };
    media::Frame target = media::frame();
    target->format = AV_PIX_FMT_BGRA;
    target->width = size.width();
    target->height = size.height();
    if (const int status = av_frame_get_buffer(target.get(), 32); status < 0) {
        media::fail(status);
    }
    media::Frame held = media::frame();
    VideoTime heldTime;
    bool haveHeld = false, rendered = false;
    QImage picture;
    int64_t k = 0;
    const auto emitPicture = [&] {
        if (!rendered) {
            renderer.render(held.get(), heldTime, target.get());
            picture = QImage(target->data[0], target->width, target->height, target->linesize[0],
                             QImage::Format_RGB32);
            rendered = true;
        }
        if (gif) {
            gif->add(picture, startOf(k));
        } else {
            webp->add(picture, startOf(k));
        }
        ++k;
        if (progress) {
            progress(double(k) / double(pictures));
        }
    };
    const auto poll = [&cancelled] {
        if (cancelled.load(std::memory_order_relaxed)) {
            throw Cancelled{};
        }
    };
    try {
        for (const VideoTimeRange& range : list.keptRanges()) {
            haveHeld = false;
            media::decodeStretch(input, range, poll, [&](AVFrame* decoded, VideoTime t) {
                while (haveHeld && k < pictures && sourceOf(k) < t) {
                    emitPicture();
                }
                av_frame_unref(held.get());
                if (const int status = av_frame_ref(held.get(), decoded); status < 0) {
                    media::fail(status);
                }
                heldTime = t;
                haveHeld = true;
                rendered = false;
            });
            while (haveHeld && k < pictures && sourceOf(k) < range.end()) {
                emitPicture();
            }
        }
        if (k == 0) {
            throw VideoEditError(VideoEditError::Code::exportFailed,
                                 QStringLiteral("No picture of the recording lies in the kept time."));
        }
        const qint64 end = qint64(std::llround(kept.toSeconds() * 1000));
        if (gif) {
            gif->finish(end);
            qCInfo(lcVideoEdit, "GIF of %lld pictures (%d written, %d palettes), %lld bytes",
                   static_cast<long long>(k), gif->statistics().pictures, gif->statistics().palettes,
                   static_cast<long long>(gif->statistics().bytes));
        } else {
            const QByteArray bytes = webp->finish(end);
            if (out.write(bytes) != bytes.size()) {
                throw VideoEditError(VideoEditError::Code::exportFailed, out.errorString());
            }
        }
        if (!out.flush()) {
            throw VideoEditError(VideoEditError::Code::exportFailed, out.errorString());
        }
    } catch (const Cancelled&) {
        return std::nullopt;
    } catch (const VideoRenderError& error) {
        throw VideoEditError(VideoEditError::Code::exportFailed, error.message());
    } catch (const VideoEditError&) {
        throw;
    } catch (const Error& error) {
        throw VideoEditError(VideoEditError::Code::exportFailed, error.message());
    }
    return k;
}

} // namespace nubo
