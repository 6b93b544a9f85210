#include "capture/xcb/XcbConnection.h"

#include "capture/CaptureTypes.h"
#include "core/Logging.h"

#include <QCoreApplication>
#include <QScopeGuard>

#include <algorithm>
#include <optional>
#include <sys/ipc.h>
#include <sys/mman.h>
#include <sys/shm.h>
#include <thread>
#include <vector>
#include <xcb/composite.h>
#include <xcb/shape.h>
#include <xcb/shm.h>

#ifndef MADV_POPULATE_WRITE
#define MADV_POPULATE_WRITE 23
#endif

namespace nubo {

namespace {

const char* const atomNames[] = {
    "_NET_CLIENT_LIST_STACKING",
    "_NET_WM_NAME",
    "UTF8_STRING",
    "_NET_WM_PID",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_STATE",
    "_NET_WM_STATE_HIDDEN",
    "_NET_WM_STATE_ABOVE",
    "_NET_WM_STATE_BELOW",
    "_NET_WM_WINDOW_OPACITY",
    "_NET_WORKAREA",
    "_XROOTPMAP_ID",
    "WM_STATE",
};
static_assert(std::size(atomNames) == XcbConnection::atomCount);

QString errorText(const xcb_generic_error_t* error)
{
    return QStringLiteral("X error %1 (request %2.%3)")
        .arg(error->error_code)
        .arg(error->major_code)
        .arg(error->minor_code);
}

// Errors that mean the window is gone or cannot be drawn any more.
bool windowGone(const xcb_generic_error_t* error)
{
    return error->error_code == XCB_WINDOW || error->error_code == XCB_DRAWABLE ||
           error->error_code == XCB_MATCH || error->error_code == XCB_PIXMAP;
}

} // namespace

XcbConnection::XcbConnection(const QByteArray& displayName)
{
    c = xcb_connect(displayName.isEmpty() ? nullptr : displayName.constData(), &screenNumber);
    if (xcb_connection_has_error(c)) {
        xcb_disconnect(c);
        c = nullptr;
        const QByteArray shown = displayName.isEmpty() ? qgetenv("DISPLAY") : displayName;
        throw CaptureError(
            CaptureError::Code::noContent,
            shown.isEmpty()
                ? QStringLiteral("no X display is set (DISPLAY is empty)")
                : QStringLiteral("the X display \u201c%1\u201d cannot be reached")
                      .arg(QString::fromLocal8Bit(shown)));
    }
    xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(c));
    for (int i = 0; i < screenNumber && it.rem; ++i) {
        xcb_screen_next(&it);
    }
    screen = it.data;
    root = screen->root;
    xcb_intern_atom_cookie_t cookies[atomCount];
    for (int i = 0; i < atomCount; ++i) {
        cookies[i] = xcb_intern_atom(c, 0, uint16_t(strlen(atomNames[i])), atomNames[i]);
    }
    for (int i = 0; i < atomCount; ++i) {
        auto r = xcbReply(xcb_intern_atom_reply(c, cookies[i], nullptr));
        atoms[i] = r ? r->atom : xcb_atom_t(XCB_ATOM_NONE);
    }
    shm = xcb_get_extension_data(c, &xcb_shm_id) && xcb_get_extension_data(c, &xcb_shm_id)->present;
    shape = xcb_get_extension_data(c, &xcb_shape_id) &&
            xcb_get_extension_data(c, &xcb_shape_id)->present;
    const auto* compositeData = xcb_get_extension_data(c, &xcb_composite_id);
    if (compositeData && compositeData->present) {
        auto version = xcbReply(
            xcb_composite_query_version_reply(c, xcb_composite_query_version(c, 0, 4), nullptr));
        composite = version && (version->major_version > 0 || version->minor_version >= 2);
    }
    if (!composite) {
        qCWarning(lcCapture)
            << "The X server has no Composite extension: covered windows cannot be captured";
    }
}

XcbConnection::~XcbConnection()
{
    releaseSegment();
    {
        // Segments images still hold are detached by those images.
        const std::lock_guard lock(m_lent->lock);
        m_lent->closed = true;
        auto& kept = m_lent->segments;
        for (auto it = kept.begin(); it != kept.end();) {
            if (it->busy) {
                ++it;
                continue;
            }
            xcb_shm_detach(c, it->seg);
            shmdt(it->data);
            it = kept.erase(it);
        }
    }
    xcb_disconnect(c);
}

void XcbConnection::redirect()
{
    if (!composite || redirected.isValid()) {
        return;
    }
    if (xcbReply(xcb_request_check(c, xcb_composite_redirect_subwindows_checked(
                                          c, root, XCB_COMPOSITE_REDIRECT_AUTOMATIC)))) {
        composite = false;
        return;
    }
    redirected.start();
}

void XcbConnection::releaseSegment()
{
    if (m_current.data) {
        xcb_shm_detach(c, m_current.seg);
        shmdt(m_current.data);
        m_current = {};
    }
}

namespace {

// Fills pages of a new segment, so that the server finds them there instead
// of faulting them in one by one: one call where the kernel populates
// ranges (Linux 5.14), else a touch a page.
void populate(uint8_t* from, size_t length)
{
    if (length > 0 && ::madvise(from, length, MADV_POPULATE_WRITE) != 0) {
        std::memset(from, 0, length);
    }
}

void populateOnTwoThreads(uint8_t* from, size_t length)
{
    const size_t half = length / 2 / 4096 * 4096;
    std::thread second([&] { populate(from + half, length - half); });
    populate(from, half);
    second.join();
}

} // namespace

XcbConnection::Segment XcbConnection::newSegment(size_t size)
{
    Segment made;
    const int id = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
    if (id < 0) {
        shm = false;
        return made;
    }
    auto* data = static_cast<uint8_t*>(shmat(id, nullptr, 0));
    shmctl(id, IPC_RMID, nullptr); // freed when both sides detach
    if (data == reinterpret_cast<uint8_t*>(-1)) {
        shm = false;
        return made;
    }
    const uint32_t seg = xcb_generate_id(c);
    if (xcbReply(xcb_request_check(c, xcb_shm_attach_checked(c, seg, uint32_t(id), 0)))) {
        shmdt(data);
        shm = false;
        return made;
    }
    return Segment{data, seg, size, true};
}

bool XcbConnection::segment(size_t size)
{
    if (!shm) {
        return false;
    }
    if (m_current.data && m_current.size >= size) {
        return true;
    }
    releaseSegment();
    m_current = newSegment(size);
    return m_current.data != nullptr;
}

XcbConnection::Segment XcbConnection::lendSegment(size_t size)
{
    if (!shm) {
        return {};
    }
    {
        const std::lock_guard lock(m_lent->lock);
        auto& kept = m_lent->segments;
        // The smallest free one that is large enough; of the other free
        // ones one is kept for the next size, the rest let go.
        LentSegments::Kept* best = nullptr;
        for (LentSegments::Kept& k : kept) {
            if (!k.busy && k.size >= size && (!best || k.size < best->size)) {
                best = &k;
            }
        }
        std::optional<Segment> chosen;
        if (best) {
            best->busy = true;
            chosen = Segment{best->data, best->seg, best->size, false};
        }
        bool spare = false;
        std::erase_if(kept, [&](const LentSegments::Kept& k) {
            if (k.busy || !std::exchange(spare, true)) {
                return false;
            }
            xcb_shm_detach(c, k.seg);
            shmdt(k.data);
            return true;
        });
        if (chosen) {
            return *chosen;
        }
    }
    const Segment made = newSegment(size);
    if (made.data) {
        const std::lock_guard lock(m_lent->lock);
        m_lent->segments.push_back({made.data, made.seg, made.size, true});
    }
    return made;
}

void XcbConnection::giveBack(const std::shared_ptr<LentSegments>& lent, uint8_t* data)
{
    const std::lock_guard lock(lent->lock);
    for (auto it = lent->segments.begin(); it != lent->segments.end(); ++it) {
        if (it->data == data) {
            if (lent->closed) {
                shmdt(data); // the server let go with the connection
                lent->segments.erase(it);
            } else {
                it->busy = false;
            }
            return;
        }
    }
}

QString XcbConnection::atomName(xcb_atom_t atom)
{
    if (auto it = m_atomNames.find(atom); it != m_atomNames.end()) {
        return *it;
    }
    auto r = xcbReply(xcb_get_atom_name_reply(c, xcb_get_atom_name(c, atom), nullptr));
    const QString name = r ? QString::fromLatin1(xcb_get_atom_name_name(r.get()),
                                                 xcb_get_atom_name_name_length(r.get()))
                           : QString();
    m_atomNames.insert(atom, name);
    return name;
}

QByteArray XcbConnection::property(xcb_window_t window, xcb_atom_t atom, xcb_atom_t type,
                                   uint32_t longs)
{
    auto r = xcbReply(
        xcb_get_property_reply(c, xcb_get_property(c, 0, window, atom, type, 0, longs), nullptr));
    if (!r || r->type == XCB_ATOM_NONE) {
        return {};
    }
    return QByteArray(static_cast<const char*>(xcb_get_property_value(r.get())),
                      xcb_get_property_value_length(r.get()));
}

std::optional<quint32> XcbConnection::cardinal(xcb_window_t window, xcb_atom_t atom)
{
    const auto list = values<quint32>(window, atom, XCB_ATOM_CARDINAL);
    return list.isEmpty() ? std::nullopt : std::optional(list.first());
}

std::optional<xcb_window_t> XcbConnection::topLevel(xcb_window_t window)
{
    for (int depth = 0; depth < 64; ++depth) {
        auto tree = xcbReply(xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
        if (!tree) {
            return std::nullopt;
        }
        if (tree->parent == root || tree->parent == XCB_WINDOW_NONE) {
            return window;
        }
        window = tree->parent;
    }
    return std::nullopt;
}

std::optional<std::pair<QRect, uint8_t>> XcbConnection::geometry(xcb_window_t window)
{
    auto g = xcbReply(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    if (!g) {
        return std::nullopt;
    }
    auto t = xcbReply(xcb_translate_coordinates_reply(
        c, xcb_translate_coordinates(c, window, root, 0, 0), nullptr));
    const int bw = g->border_width;
    const QPoint origin = t ? QPoint(t->dst_x - bw, t->dst_y - bw) : QPoint(g->x, g->y);
    return std::pair(QRect(origin, QSize(g->width + 2 * bw, g->height + 2 * bw)), g->depth);
}

namespace {

// How the server lays out pixels of a depth: bits per pixel and row padding.
struct PixelLayout {
    int bitsPerPixel = 0;
    int scanlinePad = 0;
};

PixelLayout layoutFor(xcb_connection_t* c, uint8_t depth)
{
    const xcb_setup_t* setup = xcb_get_setup(c);
    for (auto it = xcb_setup_pixmap_formats_iterator(setup); it.rem; xcb_format_next(&it)) {
        if (it.data->depth == depth) {
            return {it.data->bits_per_pixel, it.data->scanline_pad};
        }
    }
    return {};
}

// The Qt format of the server's pixels at a depth; nothing for layouts we
// cannot read.
std::optional<QImage::Format> formatFor(uint8_t depth, int bitsPerPixel)
{
    switch (depth) {
    case 32:
        return bitsPerPixel == 32 ? std::optional(QImage::Format_ARGB32_Premultiplied)
                                  : std::nullopt;
    case 24:
        return bitsPerPixel == 32   ? std::optional(QImage::Format_RGB32)
               : bitsPerPixel == 24 ? std::optional(QImage::Format_BGR888)
                                    : std::nullopt;
    case 30:
        return bitsPerPixel == 32 ? std::optional(QImage::Format_RGB30) : std::nullopt;
    case 16:
        return bitsPerPixel == 16 ? std::optional(QImage::Format_RGB16) : std::nullopt;
    case 15:
        return bitsPerPixel == 16 ? std::optional(QImage::Format_RGB555) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

QImage XcbConnection::grab(xcb_drawable_t drawable, const QRect& rect, uint8_t depth,
                           Pixels pixels)
{
    const PixelLayout layout = layoutFor(c, depth);
    const auto format = formatFor(depth, layout.bitsPerPixel);
    if (!format || layout.scanlinePad <= 0 ||
        xcb_get_setup(c)->image_byte_order != XCB_IMAGE_ORDER_LSB_FIRST) {
        throw Error(QCoreApplication::translate(
                        "nubo::XcbConnection",
                        "The X display stores pixels at a depth of %1 bits (%2 bits a "
                        "pixel), which Nubo Shot cannot read; it reads depths 15, 16, "
                        "24, 30 and 32.")
                        .arg(depth)
                        .arg(layout.bitsPerPixel));
    }
    const qsizetype rowBits = qsizetype(rect.width()) * layout.bitsPerPixel;
    const qsizetype stride =
        (rowBits + layout.scanlinePad - 1) / layout.scanlinePad * layout.scanlinePad / 8;
    const size_t size = size_t(stride) * size_t(rect.height());
    // Anything but the layout the engine converts from is converted here.
    const auto asRgb32 = [&](const QImage& pixels) {
        if (*format == QImage::Format_RGB32 || *format == QImage::Format_ARGB32_Premultiplied) {
            return pixels;
        }
        QImage converted = pixels.convertToFormat(QImage::Format_RGB32);
        if (converted.isNull()) {
            throw Error(QCoreApplication::translate(
                "nubo::XcbConnection", "There is not enough memory to read the screen."));
        }
        return converted;
    };
    const auto shortReply = [&](size_t got) {
        return Error(QCoreApplication::translate(
                         "nubo::XcbConnection",
                         "The X server sent %1 bytes of pixels where %2 were asked for.")
                         .arg(got)
                         .arg(size));
    };
    xcb_generic_error_t* error = nullptr;
    const size_t needed = std::max(size, size_t(rect.width()) * size_t(rect.height()) * 4);
    // Owned pixels of a large grab stay in the segment they were read into,
    // lent to the image and given back when it goes: the next grab reuses
    // it, its pages already there on both sides. Below a few megabytes a
    // copy costs less.
    constexpr size_t lentFrom = size_t(4) << 20;
    const bool lend = pixels == Pixels::owned && size >= lentFrom &&
                      (*format == QImage::Format_RGB32 ||
                       *format == QImage::Format_ARGB32_Premultiplied);
    Segment lent = lend ? lendSegment(needed) : Segment();
    const auto giveBackLent = qScopeGuard([&] {
        if (lent.data) {
            giveBack(m_lent, lent.data);
        }
    });
    Segment* used = lent.data ? &lent : segment(needed) ? &m_current : nullptr;
    if (used) {
        // A new segment's pages are filled before the server writes them.
        // A large one is read in strips: the server copies one strip while
        // the next one's pages are filled here, and the server is grabbed
        // from the first request to the last so that the strips show one
        // moment of the screen.
        const bool fresh = std::exchange(used->fresh, false);
        const int strips = fresh && size >= (size_t(16) << 20) ? 4 : 1;
        const int stripRows = (rect.height() + strips - 1) / strips;
        const auto stripBytes = [&](int strip) {
            const int rows = std::min(stripRows, rect.height() - strip * stripRows);
            return std::pair(size_t(strip) * size_t(stripRows) * size_t(stride),
                             size_t(std::max(rows, 0)) * size_t(stride));
        };
        if (fresh) {
            populateOnTwoThreads(used->data, strips == 1 ? size : stripBytes(0).second);
        }
        if (strips > 1) {
            xcb_grab_server(c);
        }
        std::vector<xcb_shm_get_image_cookie_t> cookies;
        for (int strip = 0; strip < strips; ++strip) {
            const int top = strip * stripRows;
            const int rows = std::min(stripRows, rect.height() - top);
            cookies.push_back(xcb_shm_get_image(
                c, drawable, int16_t(rect.x()), int16_t(rect.y() + top), uint16_t(rect.width()),
                uint16_t(rows), ~0u, XCB_IMAGE_FORMAT_Z_PIXMAP, used->seg,
                uint32_t(stripBytes(strip).first)));
            if (strip + 1 == strips && strips > 1) {
                xcb_ungrab_server(c);
            }
            xcb_flush(c);
            if (strip + 1 < strips) {
                const auto [offset, bytes] = stripBytes(strip + 1);
                populate(used->data + offset, bytes);
            }
        }
        size_t got = 0;
        bool replied = true;
        for (const xcb_shm_get_image_cookie_t& cookie : cookies) {
            xcb_generic_error_t* stripError = nullptr;
            auto r = xcbReply(xcb_shm_get_image_reply(c, cookie, &stripError));
            if (!r) {
                if (!error) {
                    error = stripError;
                } else {
                    std::free(stripError);
                }
                replied = false;
                continue;
            }
            got += r->size;
        }
        if (replied) {
            if (got < size) {
                throw shortReply(got);
            }
            if (lent.data) {
                struct Loan {
                    std::shared_ptr<LentSegments> lent;
                    uint8_t* data;
                };
                auto* loan = new Loan{m_lent, std::exchange(lent.data, nullptr)};
                return QImage(
                    loan->data, rect.width(), rect.height(), stride, *format,
                    [](void* info) {
                        const std::unique_ptr<Loan> ended(static_cast<Loan*>(info));
                        giveBack(ended->lent, ended->data);
                    },
                    loan);
            }
            const QImage wrapped(used->data, rect.width(), rect.height(), stride, *format);
            if (pixels == Pixels::borrowed) {
                return asRgb32(wrapped);
            }
            QImage converted = asRgb32(wrapped);
            if (converted.constBits() == wrapped.constBits()) {
                converted = wrapped.copy();
                if (converted.isNull()) {
                    throw Error(QCoreApplication::translate(
                        "nubo::XcbConnection", "There is not enough memory to read the screen."));
                }
            }
            return converted;
        }
    } else {
        auto r = xcbReply(xcb_get_image_reply(
            c,
            xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable, int16_t(rect.x()),
                          int16_t(rect.y()), uint16_t(rect.width()), uint16_t(rect.height()), ~0u),
            &error));
        if (r) {
            const size_t got = size_t(xcb_get_image_data_length(r.get()));
            if (got < size) {
                throw shortReply(got);
            }
            QImage wrapped(xcb_get_image_data(r.get()), rect.width(), rect.height(), stride,
                           *format);
            QImage copy = asRgb32(wrapped);
            // The reply is freed on return: a plain wrap must be copied.
            return copy.constBits() == wrapped.constBits() ? copy.copy() : copy;
        }
    }
    const auto owned = xcbReply(error);
    if (owned && windowGone(owned.get())) {
        throw CaptureError(CaptureError::Code::noContent, QStringLiteral("the window is gone"));
    }
    throw Error(
        QCoreApplication::translate("nubo::XcbConnection", "The screen could not be read: %1.")
            .arg(owned ? errorText(owned.get()) : QStringLiteral("no reply")));
}

} // namespace nubo
