#include "support/Decoders.h"

#include <libheif/heif.h>
#include <webp/decode.h>

namespace nubo::test {

QImage decodeWebp(const QByteArray& data)
{
    int width = 0, height = 0;
    uint8_t* pixels = WebPDecodeRGBA(reinterpret_cast<const uint8_t*>(data.constData()),
                                     size_t(data.size()), &width, &height);
    if (!pixels) {
        return {};
    }
    QImage image(pixels, width, height, width * 4, QImage::Format_RGBA8888);
    QImage copy = image.copy();
    WebPFree(pixels);
    return copy;
}

QImage decodeHeic(const QByteArray& data)
{
    heif_context* ctx = heif_context_alloc();
    QImage out;
    heif_image_handle* handle = nullptr;
    heif_image* image = nullptr;
    if (heif_context_read_from_memory_without_copy(ctx, data.constData(), size_t(data.size()),
                                                   nullptr)
                .code == heif_error_Ok &&
        heif_context_get_primary_image_handle(ctx, &handle).code == heif_error_Ok &&
        heif_decode_image(handle, &image, heif_colorspace_RGB, heif_chroma_interleaved_RGBA,
                          nullptr)
                .code == heif_error_Ok) {
        int stride = 0;
        const uint8_t* plane =
            heif_image_get_plane_readonly(image, heif_channel_interleaved, &stride);
        const int width = heif_image_get_width(image, heif_channel_interleaved);
        const int height = heif_image_get_height(image, heif_channel_interleaved);
        out = QImage(plane, width, height, stride, QImage::Format_RGBA8888).copy();
    }
    heif_image_release(image);
    heif_image_handle_release(handle);
    heif_context_free(ctx);
    return out;
}

} // namespace nubo::test
