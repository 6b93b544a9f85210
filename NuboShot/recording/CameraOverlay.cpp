#include "recording/CameraOverlay.h"

#include "core/Logging.h"
#include "core/Settings.h"

#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstring>

extern "C" {
#include <libswscale/swscale.h>
}

namespace nubo {

namespace {

constexpr double shadowAlpha = 0.22;
constexpr double rimAlpha = 0.5; // a light line, white at half strength

uint16_t weight(double fraction)
{
    return uint16_t(std::lround(std::clamp(fraction, 0.0, 1.0) * 256));
}

} // namespace

// ---- Place ----

QRectF recordingCameraFrame(const ShotPreferences& preferences, QSizeF target)
{
    if (const std::optional<QString> stored = preferences.string(keys::recordingCameraFrame)) {
        const QStringList parts = stored->split(QLatin1Char(','));
        std::array<double, 4> v{};
        bool ok = parts.size() == 4;
        for (int i = 0; ok && i < 4; ++i) {
            v[size_t(i)] = parts[i].trimmed().toDouble(&ok);
            ok = ok && std::isfinite(v[size_t(i)]);
        }
        // At least partly on the target, and neither vanishing nor larger than it.
        if (ok && v[2] > 0.005 && v[3] > 0.005 && v[2] <= 1 && v[3] <= 1 && v[0] > -v[2] &&
            v[1] > -v[3] && v[0] < 1 && v[1] < 1) {
            return QRectF(v[0], v[1], v[2], v[3]);
        }
    }
    const double width = std::max(1.0, target.width());
    const double height = std::max(1.0, target.height());
    const double side = std::min(width, height) / 5;
    const double margin = std::min(width, height) * 0.03;
    return QRectF(margin / width, (height - margin - side) / height, side / width, side / height);
}

void storeRecordingCameraFrame(ShotPreferences& preferences, const QRectF& frame)
{
    preferences.setValue(keys::recordingCameraFrame,
                         QStringLiteral("%1,%2,%3,%4")
                             .arg(frame.x(), 0, 'g', 6)
                             .arg(frame.y(), 0, 'g', 6)
                             .arg(frame.width(), 0, 'g', 6)
                             .arg(frame.height(), 0, 'g', 6));
}

// ---- Geometry ----

CameraBubbleGeometry CameraBubbleGeometry::make(const QRect& frame, const QSize& bounds)
{
    CameraBubbleGeometry g;
    g.frame = frame;
    const int side = std::max(0, std::min(frame.width(), frame.height()));
    g.square = QRect(frame.x() + (frame.width() - side) / 2,
                     frame.y() + (frame.height() - side) / 2, side, side);
    g.radius = side / 2.0;
    const double r = g.radius;
    g.softening = std::max(1.0, r / 90);
    g.shadowOffset = r / 45;
    g.shadowRadius = r + r / 12;
    const double cx = g.square.x() + r;
    const double cy = g.square.y() + r;
    const QRect shadowBounds(int(std::floor(cx - g.shadowRadius)),
                             int(std::floor(cy + g.shadowOffset - g.shadowRadius)),
                             int(std::ceil(2 * g.shadowRadius)) + 1,
                             int(std::ceil(2 * g.shadowRadius)) + 1);
    g.box = (g.square | shadowBounds).intersected(QRect(QPoint(0, 0), bounds));
    if (side < 2 || g.box.isEmpty()) {
        g.box = QRect();
        return g;
    }
    const size_t count = size_t(g.box.width()) * size_t(g.box.height());
    g.mask.resize(count);
    g.rim.resize(count);
    g.shadow.resize(count);
    // Mask: clear from r on, opaque within r − softening, straight between.
    const double maskInner = std::max(0.0, r - g.softening);
    const double maskOuter = std::max(1.0, r);
    // Shadow: black at 0.22 within r − 2 of its centre, fading out at r + r / 12.
    const double shadowInner = std::max(0.0, r - 2);
    const double shadowOuter = g.shadowRadius;
    size_t i = 0;
    for (int y = g.box.top(); y <= g.box.bottom(); ++y) {
        const double dy = y + 0.5 - cy;
        const double sy = dy - g.shadowOffset;
        for (int x = g.box.left(); x <= g.box.right(); ++x, ++i) {
            const double dx = x + 0.5 - cx;
            const double d = std::sqrt(dx * dx + dy * dy);
            const double ds = std::sqrt(dx * dx + sy * sy);
            g.mask[i] = weight((maskOuter - d) / (maskOuter - maskInner));
            // The rim: light within r − 0.5, gone at r + 0.5. It lies under
            // the bubble, so it shows only where the edge lets it through.
            g.rim[i] = weight(rimAlpha * (r + 0.5 - d));
            g.shadow[i] = weight(shadowAlpha * (shadowOuter - ds) / (shadowOuter - shadowInner));
        }
    }
    return g;
}

// ---- Compositor ----

CameraFrameCompositor::CompositorError::CompositorError(Code code, int status)
    : Error(QStringLiteral("The camera bubble cannot be drawn (status %1).").arg(status)),
      m_code(code), m_status(status)
{
}

CameraFrameCompositor::CameraFrameCompositor(QSize size) : m_bounds(QPoint(0, 0), size)
{
    if (size.width() < 1 || size.height() < 1) {
        qCWarning(lcCameraCompositor, "Camera output pool creation failed: CVReturn=%d", -EINVAL);
        throw CompositorError(CompositorError::Code::poolCreation, -EINVAL);
    }
    m_pool.reserve(allocationLimit);
    renderFrame = [this](const QImage& screen, QImage& target) { render(screen, target); };
}

CameraFrameCompositor::~CameraFrameCompositor()
{
    sws_freeContext(m_scaler);
}

std::optional<QImage> CameraFrameCompositor::buffer(int& status)
{
    for (QImage& image : m_pool) {
        if (image.isDetached()) { // nobody else holds it: free again
            return image;
        }
    }
    if (int(m_pool.size()) >= allocationLimit) {
        status = -EAGAIN;
        return std::nullopt;
    }
    QImage image(m_bounds.size(), QImage::Format_RGB32);
    if (image.isNull()) {
        status = -ENOMEM;
        return std::nullopt;
    }
    m_pool.push_back(image);
    return image;
}

void CameraFrameCompositor::prepareBubble(const CameraFrame& camera, bool mirrored)
{
    const CameraBubbleGeometry& g = m_geometry;
    const auto key = std::tuple(camera.sequence, camera.image.cacheKey(), g.square, mirrored, g.box);
    if (m_bubbleKey == key) {
        return;
    }
    const QImage& picture = camera.image;
    if (picture.isNull() || picture.depth() != 32) {
        throw Error(QStringLiteral("The camera picture is not 32-bit (format %1).")
                        .arg(int(picture.format())));
    }
    // The middle of the picture, as large a square as it has, scaled to the bubble's square.
    const int side = std::min(picture.width(), picture.height());
    const QPoint from((picture.width() - side) / 2, (picture.height() - side) / 2);
    const int d = g.square.width();
    std::vector<uint32_t> scaled(size_t(d) * size_t(d));
    const uint8_t* corner = picture.constBits() + qsizetype(from.y()) * picture.bytesPerLine() + from.x() * 4;
    if (side == d) { // the picture's square is the bubble's: copied as it is
        for (int y = 0; y < d; ++y) {
            std::memcpy(scaled.data() + qsizetype(y) * d, corner + qsizetype(y) * picture.bytesPerLine(),
                        size_t(d) * 4);
        }
    } else {
        m_scaler = sws_getCachedContext(m_scaler, side, side, AV_PIX_FMT_BGRA, d, d, AV_PIX_FMT_BGRA,
                                        SWS_BILINEAR, nullptr, nullptr, nullptr);
        if (!m_scaler) {
            throw Error(QStringLiteral("The camera picture cannot be scaled to %1 pixels.").arg(d));
        }
        const uint8_t* source[1] = {corner};
        const int sourceStride[1] = {int(picture.bytesPerLine())};
        uint8_t* target[1] = {reinterpret_cast<uint8_t*>(scaled.data())};
        const int targetStride[1] = {d * 4};
        sws_scale(m_scaler, source, sourceStride, 0, side, target, targetStride);
    }
    if (mirrored) {
        for (int y = 0; y < d; ++y) {
            std::reverse(scaled.begin() + qsizetype(y) * d, scaled.begin() + qsizetype(y + 1) * d);
        }
    }
    // Laid over the box: black where the square does not reach.
    m_bubble.assign(size_t(g.box.width()) * size_t(g.box.height()), 0xff000000u);
    const QRect over = g.square.intersected(g.box);
    for (int y = over.top(); y <= over.bottom(); ++y) {
        std::memcpy(m_bubble.data() + qsizetype(y - g.box.y()) * g.box.width() + (over.x() - g.box.x()),
                    scaled.data() + qsizetype(y - g.square.y()) * d + (over.x() - g.square.x()),
                    size_t(over.width()) * 4);
    }
    m_bubbleKey = key;
    ++m_bubblePictures;
}

// The screen into the target, then in the box: the shadow darkens the
// screen, the rim lightens it around the edge and the bubble covers both
// through the mask. Weights are 0…256; the loop is plain arithmetic for the vectoriser.
void CameraFrameCompositor::render(const QImage& screen, QImage& target) const
{
    if (screen.size() != m_bounds.size() || screen.depth() != 32 || target.size() != screen.size()) {
        throw Error(QStringLiteral("The screen picture (%1×%2, %3 bits) does not fit the bubble's "
                                   "%4×%5 output.")
                        .arg(screen.width())
                        .arg(screen.height())
                        .arg(screen.depth())
                        .arg(m_bounds.width())
                        .arg(m_bounds.height()));
    }
    const qsizetype rowBytes = qsizetype(screen.width()) * 4;
    uchar* out = const_cast<uchar*>(target.constBits()); // the pool's own buffer
    if (screen.bytesPerLine() == target.bytesPerLine()) {
        std::memcpy(out, screen.constBits(), size_t(screen.sizeInBytes()));
    } else {
        for (int y = 0; y < screen.height(); ++y) {
            std::memcpy(out + y * target.bytesPerLine(), screen.constScanLine(y), size_t(rowBytes));
        }
    }
    const CameraBubbleGeometry& g = m_geometry;
    const int w = g.box.width();
    // Two 8-bit channels a 32-bit word, each in a 16-bit lane: every
    // product below stays under 2^16, so the lanes never spill.
    constexpr uint32_t lanes = 0x00ff00ffu;
    for (int y = 0; y < g.box.height(); ++y) {
        const size_t row = size_t(y) * size_t(w);
        const auto* __restrict s =
            reinterpret_cast<const uint32_t*>(screen.constScanLine(g.box.y() + y)) + g.box.x();
        auto* __restrict o =
            reinterpret_cast<uint32_t*>(out + (g.box.y() + y) * target.bytesPerLine()) + g.box.x();
        const uint32_t* __restrict c = m_bubble.data() + row;
        const uint16_t* __restrict m = g.mask.data() + row;
        const uint16_t* __restrict sh = g.shadow.data() + row;
        const uint16_t* __restrict rim = g.rim.data() + row;
        for (int x = 0; x < w; ++x) {
            const uint32_t keep = 256u - sh[x];
            const uint32_t cover = m[x];
            const uint32_t light = rim[x];
            const uint32_t p = s[x];
            const uint32_t q = c[x];
            // The shadow darkens, the rim lightens, the bubble covers.
            uint32_t rb = ((p & lanes) * keep >> 8) & lanes;
            uint32_t ga = (((p >> 8) & lanes) * keep >> 8) & lanes;
            rb += ((lanes - rb) * light >> 8) & lanes;
            ga += ((lanes - ga) * light >> 8) & lanes;
            rb = ((rb * (256u - cover) + (q & lanes) * cover) >> 8) & lanes;
            ga = ((ga * (256u - cover) + ((q >> 8) & lanes) * cover) >> 8) & lanes;
            o[x] = rb | (ga << 8) | 0xff000000u;
        }
    }
}

QImage CameraFrameCompositor::composite(const QImage& screen, const CameraFrame& camera,
                                        const QRectF& normalizedFrame, bool mirrored)
{
    if (camera.image.isNull()) {
        return screen; // no picture yet
    }
    const QRectF scaled(normalizedFrame.x() * m_bounds.width(), normalizedFrame.y() * m_bounds.height(),
                        normalizedFrame.width() * m_bounds.width(),
                        normalizedFrame.height() * m_bounds.height());
    if (!std::isfinite(scaled.x()) || !std::isfinite(scaled.y()) ||
        !std::isfinite(scaled.width()) || !std::isfinite(scaled.height()) ||
        std::abs(scaled.x()) > 1e6 || std::abs(scaled.y()) > 1e6 || scaled.width() > 1e5 ||
        scaled.height() > 1e5) {
        return screen;
    }
    const QRect frame(int(std::lround(scaled.x())), int(std::lround(scaled.y())),
                      int(std::lround(scaled.width())), int(std::lround(scaled.height())));
    if (m_cachedFrame != frame) {
        m_geometry = CameraBubbleGeometry::make(frame, m_bounds.size());
        m_cachedFrame = frame;
        m_bubbleKey.reset();
        ++m_geometryBuilds;
    }
    if (m_geometry.box.isEmpty()) {
        return screen; // too small, or off the picture
    }
    int status = 0;
    std::optional<QImage> target = buffer(status);
    if (!target) {
        qCWarning(lcCameraCompositor, "Camera output unavailable; encoding raw screen: CVReturn=%d",
                  status);
        return screen;
    }
    try {
        prepareBubble(camera, mirrored);
        renderFrame(screen, *target);
    } catch (const Error& error) {
        qCWarning(lcCameraCompositor, "Camera render failed (software=true); encoding raw screen: %s",
                  qPrintable(error.message()));
        return screen;
    }
    return *target;
}

} // namespace nubo
