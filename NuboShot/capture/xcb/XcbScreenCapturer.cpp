#include "capture/xcb/XcbScreenCapturer.h"

#include "capture/WindowCaptureFilter.h"
#include "capture/PixelConversion.h"
#include "capture/xcb/XcbConnection.h"
#include "capture/xcb/XcbWindowList.h"
#include "core/Logging.h"

#include <QPainter>
#include <QRegion>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <thread>
#include <unistd.h>
#include <xcb/composite.h>
#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/xfixes.h>

namespace nubo {

namespace {

// The engine's format: RGBA, premultiplied. Opaque pixels get alpha 255
// whatever the server left in the padding byte. Converted where they lie:
// `pixels` holds its own memory (an owned grab).
QImage toEngineFormat(QImage pixels)
{
    const bool keepAlpha = pixels.format() == QImage::Format_ARGB32_Premultiplied;
    return xPixelsToRgbaInPlace(std::move(pixels), keepAlpha);
}

constexpr auto owned = XcbConnection::Pixels::owned;

qint32 ownProcessID()
{
    return qint32(::getpid());
}

} // namespace


XcbScreenCapturer::XcbScreenCapturer(QByteArray displayName, ScaleLookup scale)
    : m_displayName(std::move(displayName)), m_scale(std::move(scale))
{}

XcbScreenCapturer::~XcbScreenCapturer() = default;

XcbConnection& XcbScreenCapturer::connection()
{
    if (m_connection && m_connection->broken()) {
        m_connection.reset();
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the connection to the X display broke"));
    }
    if (!m_connection) {
        m_connection = std::make_unique<XcbConnection>(m_displayName);
    }
    return *m_connection;
}

void XcbScreenCapturer::connect()
{
    const std::lock_guard lock(m_lock);
    connection();
}

bool XcbScreenCapturer::usesSharedMemory()
{
    const std::lock_guard lock(m_lock);
    return connection().shm;
}

QList<CaptureDisplay> XcbScreenCapturer::displays()
{
    const std::lock_guard lock(m_lock);
    return displaysLocked();
}

QList<CaptureDisplay> XcbScreenCapturer::displaysLocked()
{
    XcbConnection& x = connection();
    QList<CaptureDisplay> list;
    auto r = xcbReply(
        xcb_randr_get_monitors_reply(x.c, xcb_randr_get_monitors(x.c, x.root, 1), nullptr));
    if (r) {
        for (auto it = xcb_randr_get_monitors_monitors_iterator(r.get()); it.rem;
             xcb_randr_monitor_info_next(&it)) {
            CaptureDisplay m;
            m.id = it.data->name;
            m.name = x.atomName(it.data->name);
            m.pixelGeometry = QRect(it.data->x, it.data->y, it.data->width, it.data->height);
            m.primary = it.data->primary;
            list.append(m);
        }
    }
    if (list.isEmpty() && x.screen->width_in_pixels > 0) {
        // No RandR: the whole screen is one display.
        list.append({0,
                     QStringLiteral("screen"),
                     QRect(0, 0, x.screen->width_in_pixels, x.screen->height_in_pixels),
                     true,
                     {}});
    }
    for (CaptureDisplay& m : list) {
        double scale = m_scale ? m_scale(m.pixelGeometry) : 1.0;
        if (!std::isfinite(scale) || scale <= 0) {
            scale = 1.0;
        }
        const QRectF points(QPointF(m.pixelGeometry.topLeft()) / scale,
                            QSizeF(m.pixelGeometry.size()) / scale);
        m.space = ScreenSpace{m.id, points, QRectF(m.pixelGeometry), scale};
    }
    if (list.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the X screen has no monitors"));
    }
    return list;
}

QList<WindowCaptureDescriptor> XcbScreenCapturer::windowDescriptors()
{
    const std::lock_guard lock(m_lock);
    return XcbWindowList::descriptors(connection(), displaysLocked());
}

WindowCaptureSnapshot XcbScreenCapturer::listWindows(bool withPreviews)
{
    const std::lock_guard lock(m_lock);
    XcbConnection& x = connection();
    const QList<CaptureDisplay> displays = displaysLocked();
    WindowCaptureSnapshot snapshot;
    snapshot.windows =
        WindowCaptureFilter::filter(XcbWindowList::descriptors(x, displays),
                                    XcbWindowList::filterDisplays(x, displays), ownProcessID());
    if (withPreviews) {
        for (const CapturableWindow& window : snapshot.windows) {
            try {
                const QImage image = captureWindowLocked(window.id).image;
                snapshot.previews.insert(
                    window.id,
                    image.width() > 320 || image.height() > 320
                        ? image.scaled(320, 320, Qt::KeepAspectRatio, Qt::SmoothTransformation)
                        : image);
            } catch (const Error&) {
                // A window that closed meanwhile simply has no preview.
            }
        }
    }
    return snapshot;
}

QImage XcbScreenCapturer::grabRoot(const QRect& pixels)
{
    XcbConnection& x = connection();
    QImage image = m_native ? x.grab(x.root, pixels, x.screen->root_depth)
                            : toEngineFormat(x.grab(x.root, pixels, x.screen->root_depth, owned));

    // Paint our own windows away: their area is drawn again from the
    // background and the kept pixels of every other window, bottom first.
    // Frame after frame (a recording) the stacking is read again at most
    // twice a second: reading it costs a round trip for every window.
    if (!m_native || !m_childrenRead.isValid() || m_childrenRead.elapsed() > 500) {
        m_children = XcbWindowList::rootChildren(x, ownProcessID());
        m_childrenRead.start();
    }
    const QList<XcbWindowList::RootChild> children = m_children;
    QRegion own;
    for (const XcbWindowList::RootChild& child : children) {
        if (child.own) {
            own += child.rect.intersected(pixels);
        }
    }
    if (own.isEmpty()) {
        return image;
    }
    if (m_native) {
        image = image.copy(); // the grabs below reuse the shared segment
    }
    x.redirect();
    if (!x.composite) {
        // Nothing to paint them away with: the capture shows them, as the
        // screen did, and the log says why.
        qCWarning(lcCapture, "Our own windows stay in this capture: the X server has no "
                             "Composite extension to see what they cover");
        return image;
    }
    QImage wallpaper;
    const auto background =
        x.values<xcb_pixmap_t>(x.root, x.atoms[XcbConnection::rootPixmap], XCB_ATOM_PIXMAP);
    QString wallpaperProblem = QStringLiteral("the desktop names no background pixmap");
    if (!background.isEmpty()) {
        try {
            wallpaper = toEngineFormat(
                x.grab(background.first(), pixels, x.screen->root_depth, owned));
        } catch (const Error& error) {
            wallpaperProblem = error.message();
        }
    }
    QPainter painter(&image);
    painter.translate(-pixels.topLeft());
    painter.setClipRegion(own);
    if (wallpaper.isNull()) {
        // What lies under our windows where no other window is: the
        // desktop's background, which cannot be read. Black says "nothing"
        // there rather than showing our own window.
        qCInfo(lcCapture, "Under our own windows the background is drawn black: %s",
               qPrintable(wallpaperProblem));
        painter.fillRect(pixels, Qt::black);
    } else {
        painter.drawImage(pixels.topLeft(), wallpaper);
    }
    for (const XcbWindowList::RootChild& child : children) {
        const QRect part = child.rect.intersected(own.boundingRect());
        if (child.own || part.isEmpty()) {
            continue;
        }
        const xcb_pixmap_t pixmap = xcb_generate_id(x.c);
        if (xcbReply(xcb_request_check(
                x.c, xcb_composite_name_window_pixmap_checked(x.c, child.window, pixmap)))) {
            continue;
        }
        try {
            const auto geometry = x.geometry(child.window);
            const QImage pixelsOfChild = toEngineFormat(
                x.grab(pixmap, part.translated(-child.rect.topLeft()),
                       geometry ? geometry->second : 24, owned));
            painter.drawImage(part.topLeft(), pixelsOfChild);
        } catch (const Error& error) {
            // Most often a window that closed since the list was read.
            qCInfo(lcCapture, "Window 0x%x left out under our own windows: %s", child.window,
                   qPrintable(error.message()));
        }
        xcb_free_pixmap(x.c, pixmap);
    }
    return image;
}

QList<DisplayCapture> XcbScreenCapturer::captureDisplays(std::optional<quint32> display)
{
    const std::lock_guard lock(m_lock);
    QList<DisplayCapture> captures;
    for (const CaptureDisplay& m : displaysLocked()) {
        if (display && *display != m.id) {
            continue;
        }
        captures.append({m.id, grabRoot(m.pixelGeometry), m.space});
    }
    if (captures.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("there is no display %1").arg(*display));
    }
    return captures;
}

std::optional<ScreenFrameCursor> XcbScreenCapturer::pointerPicture()
{
    const std::lock_guard lock(m_lock);
    XcbConnection& x = connection();
    const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(x.c, &xcb_xfixes_id);
    if (!fixes || !fixes->present) {
        return std::nullopt;
    }
    // The version must be asked before the cursor's picture can be.
    std::free(xcb_xfixes_query_version_reply(x.c, xcb_xfixes_query_version(x.c, 4, 0), nullptr));
    auto reply = xcbReply(xcb_xfixes_get_cursor_image_reply(x.c, xcb_xfixes_get_cursor_image(x.c), nullptr));
    if (!reply || reply->width == 0 || reply->height == 0) {
        return std::nullopt;
    }
    // 32-bit ARGB, premultiplied: Qt's own layout.
    const QImage picture(reinterpret_cast<const uchar*>(xcb_xfixes_get_cursor_image_cursor_image(reply.get())),
                         reply->width, reply->height, QImage::Format_ARGB32_Premultiplied);
    return ScreenFrameCursor{picture.copy(), QPoint(reply->x - reply->xhot, reply->y - reply->yhot)};
}

WindowCapture XcbScreenCapturer::captureWindow(quint32 windowID)
{
    const std::lock_guard lock(m_lock);
    return captureWindowLocked(windowID);
}

WindowCapture XcbScreenCapturer::captureWindowLocked(quint32 windowID)
{
    XcbConnection& x = connection();
    const QList<CaptureDisplay> displays = displaysLocked();
    const auto frame = x.topLevel(windowID);
    const auto geometry = frame ? x.geometry(*frame) : std::nullopt;
    if (!geometry) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("window %1 is gone").arg(windowID));
    }
    if (XcbWindowList::belongsTo(x, *frame, ownProcessID())) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("window %1 is our own").arg(windowID));
    }
    const QRect rect = geometry->first;
    QList<std::pair<quint32, QRectF>> bounds;
    double freeScale = 1;
    for (const CaptureDisplay& m : displays) {
        bounds.append({m.id, QRectF(m.pixelGeometry)});
        if (QRectF(m.pixelGeometry).intersects(rect)) {
            freeScale = std::max(freeScale, m.space.scale);
        }
    }
    const WindowCaptureFraming framing = WindowCaptureFraming::forWindow(QRectF(rect), bounds);
    double scale = freeScale;
    if (const auto* onDisplay = std::get_if<WindowCaptureFraming::Display>(&framing.framing)) {
        for (const CaptureDisplay& m : displays) {
            if (m.id == onDisplay->id) {
                scale = m.space.scale;
            }
        }
    }

    QImage image;
    x.redirect();
    if (x.composite) {
        // Windows redirected only just now may still be repainting.
        if (x.redirected.isValid() && x.redirected.elapsed() < 150) {
            std::this_thread::sleep_for(std::chrono::milliseconds(150 - x.redirected.elapsed()));
        }
        const xcb_pixmap_t pixmap = xcb_generate_id(x.c);
        if (auto error = xcbReply(xcb_request_check(
                x.c, xcb_composite_name_window_pixmap_checked(x.c, *frame, pixmap)))) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("window %1 is not shown").arg(windowID));
        }
        try {
            image =
                toEngineFormat(x.grab(pixmap, QRect(QPoint(0, 0), rect.size()), geometry->second, owned));
        } catch (...) {
            xcb_free_pixmap(x.c, pixmap);
            throw;
        }
        xcb_free_pixmap(x.c, pixmap);
    } else {
        // Without Composite only what is on screen can be had: the window's
        // rectangle of the root, as far as it lies on the screen.
        const QRect visible =
            rect.intersected(QRect(0, 0, x.screen->width_in_pixels, x.screen->height_in_pixels));
        if (visible.isEmpty()) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("window %1 is off screen").arg(windowID));
        }
        image = toEngineFormat(x.grab(x.root, visible, x.screen->root_depth, owned));
    }

    // Outside its shape a window is transparent.
    if (x.shape) {
        auto shape = xcbReply(xcb_shape_get_rectangles_reply(
            x.c, xcb_shape_get_rectangles(x.c, *frame, XCB_SHAPE_SK_BOUNDING), nullptr));
        if (shape) {
            QRegion inside;
            const xcb_rectangle_t* r = xcb_shape_get_rectangles_rectangles(shape.get());
            for (int i = 0; i < xcb_shape_get_rectangles_rectangles_length(shape.get()); ++i) {
                inside += QRect(r[i].x, r[i].y, r[i].width, r[i].height);
            }
            const QRegion outside = QRegion(image.rect()) - inside;
            if (!outside.isEmpty()) {
                QPainter painter(&image);
                painter.setCompositionMode(QPainter::CompositionMode_Source);
                for (const QRect& part : outside) {
                    painter.fillRect(part, Qt::transparent);
                }
            }
        }
    }
    return {image, float(scale)};
}

QImage XcbScreenCapturer::captureRegion(quint32 display, const ScreenCaptureRegion& region)
{
    const std::lock_guard lock(m_lock);
    for (const CaptureDisplay& m : displaysLocked()) {
        if (m.id != display) {
            continue;
        }
        const QRect pixels =
            region.pixelRect.translated(m.pixelGeometry.topLeft()).intersected(m.pixelGeometry);
        if (pixels.isEmpty()) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the region lies outside display %1").arg(display));
        }
        return grabRoot(pixels);
    }
    throw CaptureError(CaptureError::Code::noContent,
                       QStringLiteral("there is no display %1").arg(display));
}

void XcbScreenCapturer::prepareWindowPixels()
{
    const std::lock_guard lock(m_lock);
    connection().redirect();
}

void XcbScreenCapturer::probe()
{
    const std::lock_guard lock(m_lock);
    XcbConnection& x = connection();
    x.grab(x.root, QRect(0, 0, 1, 1), x.screen->root_depth);
}

} // namespace nubo
