#include "capture/xcb/XcbScreenCapturer.h"

#include "capture/xcb/PixelConversion.h"
#include "core/Logging.h"

#include <QElapsedTimer>
#include <QHash>
#include <QPainter>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <cstring>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <thread>
#include <unistd.h>
#include <xcb/composite.h>
#include <xcb/randr.h>
#include <xcb/shape.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace nubo {

namespace {

template <class T> using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <class T> Reply<T> reply(T* raw)
{
    return Reply<T>(raw, &std::free);
}

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
enum Atom {
    clientListStacking,
    wmName,
    utf8String,
    wmPid,
    wmWindowType,
    wmState,
    wmStateHidden,
    wmStateAbove,
    wmStateBelow,
    wmWindowOpacity,
    workarea,
    rootPixmap,
    icccmState,
    atomCount
};

// A top-level window on the root as the stacking sees it.
struct RootChild {
    xcb_window_t window = 0;
    QRect rect; // root pixels, border included
    bool viewable = false;
    bool own = false;
};

} // namespace

struct XcbScreenCapturer::Connection {
    xcb_connection_t* c = nullptr;
    xcb_screen_t* screen = nullptr;
    xcb_window_t root = 0;
    xcb_atom_t atoms[atomCount]{};
    QHash<xcb_atom_t, QString> atomNameCache;
    bool shm = false;
    bool composite = false;
    bool shape = false;
    // One shared memory segment, grown as needed.
    int shmId = -1;
    uint8_t* shmData = nullptr;
    size_t shmSize = 0;
    xcb_shm_seg_t shmSeg = 0;
    QElapsedTimer redirected;

    explicit Connection()
    {
        int screenNumber = 0;
        c = xcb_connect(nullptr, &screenNumber);
        if (xcb_connection_has_error(c)) {
            xcb_disconnect(c);
            c = nullptr;
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the X display cannot be reached"));
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
            auto r = reply(xcb_intern_atom_reply(c, cookies[i], nullptr));
            atoms[i] = r ? r->atom : xcb_atom_t(XCB_ATOM_NONE);
        }
        shm = xcb_get_extension_data(c, &xcb_shm_id) &&
              xcb_get_extension_data(c, &xcb_shm_id)->present;
        shape = xcb_get_extension_data(c, &xcb_shape_id) &&
                xcb_get_extension_data(c, &xcb_shape_id)->present;
        const auto* compositeData = xcb_get_extension_data(c, &xcb_composite_id);
        if (compositeData && compositeData->present) {
            auto version = reply(xcb_composite_query_version_reply(
                c, xcb_composite_query_version(c, 0, 4), nullptr));
            composite = version && (version->major_version > 0 || version->minor_version >= 2);
        }
        if (!composite) {
            qCWarning(lcCapture)
                << "The X server has no Composite extension: covered windows cannot be captured";
        }
    }

    // Has the server keep every top-level window's pixels while we are
    // connected. Asked for only when needed: redirecting costs the server a
    // copy of every window.
    void redirect()
    {
        if (!composite || redirected.isValid()) {
            return;
        }
        if (reply(xcb_request_check(c, xcb_composite_redirect_subwindows_checked(
                                           c, root, XCB_COMPOSITE_REDIRECT_AUTOMATIC)))) {
            composite = false;
            return;
        }
        redirected.start();
    }

    ~Connection()
    {
        releaseSegment();
        xcb_disconnect(c);
    }

    void releaseSegment()
    {
        if (shmData) {
            xcb_shm_detach(c, shmSeg);
            shmdt(shmData);
            shmData = nullptr;
            shmSize = 0;
        }
    }

    // A segment of at least `size` bytes attached to the server; false when
    // shared memory cannot be used (a remote display).
    bool segment(size_t size)
    {
        if (!shm) {
            return false;
        }
        if (shmData && shmSize >= size) {
            return true;
        }
        releaseSegment();
        shmId = shmget(IPC_PRIVATE, size, IPC_CREAT | 0600);
        if (shmId < 0) {
            shm = false;
            return false;
        }
        shmData = static_cast<uint8_t*>(shmat(shmId, nullptr, 0));
        shmctl(shmId, IPC_RMID, nullptr); // freed when both sides detach
        if (shmData == reinterpret_cast<uint8_t*>(-1)) {
            shmData = nullptr;
            shm = false;
            return false;
        }
        // Touch the new segment on two threads, so that the server finds its
        // pages already there instead of faulting them in one by one.
        const size_t half = size / 2 / 4096 * 4096;
        std::thread second([this, half, size] { std::memset(shmData + half, 0, size - half); });
        std::memset(shmData, 0, half);
        second.join();
        shmSeg = xcb_generate_id(c);
        if (reply(xcb_request_check(c, xcb_shm_attach_checked(c, shmSeg, uint32_t(shmId), 0)))) {
            shmdt(shmData);
            shmData = nullptr;
            shm = false;
            return false;
        }
        shmSize = size;
        return true;
    }

    QString atomName(xcb_atom_t atom)
    {
        if (auto it = atomNameCache.find(atom); it != atomNameCache.end()) {
            return *it;
        }
        auto r = reply(xcb_get_atom_name_reply(c, xcb_get_atom_name(c, atom), nullptr));
        const QString name = r ? QString::fromLatin1(xcb_get_atom_name_name(r.get()),
                                                     xcb_get_atom_name_name_length(r.get()))
                               : QString();
        atomNameCache.insert(atom, name);
        return name;
    }

    QByteArray property(xcb_window_t window, xcb_atom_t atom, xcb_atom_t type,
                        uint32_t longs = 4096)
    {
        auto r = reply(xcb_get_property_reply(
            c, xcb_get_property(c, 0, window, atom, type, 0, longs), nullptr));
        if (!r || r->type == XCB_ATOM_NONE) {
            return {};
        }
        return QByteArray(static_cast<const char*>(xcb_get_property_value(r.get())),
                          xcb_get_property_value_length(r.get()));
    }

    template <class T> QList<T> values(xcb_window_t window, xcb_atom_t atom, xcb_atom_t type)
    {
        const QByteArray data = property(window, atom, type);
        QList<T> out(data.size() / qsizetype(sizeof(T)));
        std::memcpy(out.data(), data.constData(), size_t(out.size()) * sizeof(T));
        return out;
    }

    std::optional<quint32> cardinal(xcb_window_t window, xcb_atom_t atom)
    {
        const auto list = values<quint32>(window, atom, XCB_ATOM_CARDINAL);
        return list.isEmpty() ? std::nullopt : std::optional(list.first());
    }

    // The window's ancestor that is a child of the root: the frame the window
    // manager put around it (or the window itself).
    std::optional<xcb_window_t> topLevel(xcb_window_t window)
    {
        for (int depth = 0; depth < 64; ++depth) {
            auto tree = reply(xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
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

    std::optional<std::pair<QRect, uint8_t>> geometry(xcb_window_t window)
    {
        auto g = reply(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
        if (!g) {
            return std::nullopt;
        }
        auto t = reply(xcb_translate_coordinates_reply(
            c, xcb_translate_coordinates(c, window, root, 0, 0), nullptr));
        const int bw = g->border_width;
        const QPoint origin = t ? QPoint(t->dst_x - bw, t->dst_y - bw) : QPoint(g->x, g->y);
        return std::pair(QRect(origin, QSize(g->width + 2 * bw, g->height + 2 * bw)), g->depth);
    }

    // The root's children bottom first, with what the painter of own-window
    // areas needs to know.
    QList<RootChild> rootChildren(qint32 ownProcessID)
    {
        QList<RootChild> children;
        auto tree = reply(xcb_query_tree_reply(c, xcb_query_tree(c, root), nullptr));
        if (!tree) {
            return children;
        }
        const xcb_window_t* list = xcb_query_tree_children(tree.get());
        const int count = xcb_query_tree_children_length(tree.get());
        // Every request is sent before any reply is read: a handful of round
        // trips for the whole desktop instead of several per window.
        std::vector<xcb_get_window_attributes_cookie_t> attributes(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i) {
            attributes[size_t(i)] = xcb_get_window_attributes(c, list[i]);
        }
        std::vector<xcb_window_t> viewable;
        for (int i = 0; i < count; ++i) {
            auto a = reply(xcb_get_window_attributes_reply(c, attributes[size_t(i)], nullptr));
            if (a && a->map_state == XCB_MAP_STATE_VIEWABLE) {
                viewable.push_back(list[i]);
            }
        }
        std::vector<xcb_get_geometry_cookie_t> geometries;
        std::vector<xcb_get_property_cookie_t> pids;
        std::vector<xcb_query_tree_cookie_t> trees;
        for (const xcb_window_t window : viewable) {
            geometries.push_back(xcb_get_geometry(c, window));
            pids.push_back(xcb_get_property(c, 0, window, atoms[wmPid], XCB_ATOM_CARDINAL, 0, 1));
            trees.push_back(xcb_query_tree(c, window));
        }
        // A window manager's frame is ours when the client in it (the child
        // that carries WM_STATE) is; windows embedded deeper, like a tray
        // icon inside a panel, do not make the panel ours.
        struct ClientCookies {
            xcb_get_property_cookie_t state;
            xcb_get_property_cookie_t pid;
        };
        std::vector<std::vector<ClientCookies>> clients(viewable.size());
        for (size_t i = 0; i < viewable.size(); ++i) {
            RootChild child;
            child.window = viewable[i];
            child.viewable = true;
            if (auto g = reply(xcb_get_geometry_reply(c, geometries[i], nullptr))) {
                const int bw = g->border_width;
                child.rect = QRect(g->x, g->y, g->width + 2 * bw, g->height + 2 * bw);
            }
            child.own = pidOf(pids[i]) == quint32(ownProcessID);
            if (auto t = reply(xcb_query_tree_reply(c, trees[i], nullptr))) {
                const xcb_window_t* inner = xcb_query_tree_children(t.get());
                for (int k = 0; k < xcb_query_tree_children_length(t.get()); ++k) {
                    clients[i].push_back(
                        {xcb_get_property(c, 0, inner[k], atoms[icccmState], XCB_ATOM_ANY, 0, 0),
                         xcb_get_property(c, 0, inner[k], atoms[wmPid], XCB_ATOM_CARDINAL, 0, 1)});
                }
            }
            children.append(child);
        }
        for (size_t i = 0; i < viewable.size(); ++i) {
            for (const ClientCookies& cookies : clients[i]) {
                const bool client = isClient(cookies.state);
                const auto pid = pidOf(cookies.pid);
                if (client && pid == quint32(ownProcessID)) {
                    children[qsizetype(i)].own = true;
                }
            }
        }
        return children;
    }

    bool isClient(xcb_get_property_cookie_t wmState)
    {
        auto r = reply(xcb_get_property_reply(c, wmState, nullptr));
        return r && r->type != XCB_ATOM_NONE;
    }

    std::optional<quint32> pidOf(xcb_get_property_cookie_t cookie)
    {
        auto r = reply(xcb_get_property_reply(c, cookie, nullptr));
        if (!r || r->type != XCB_ATOM_CARDINAL || xcb_get_property_value_length(r.get()) < 4) {
            return std::nullopt;
        }
        return *static_cast<const quint32*>(xcb_get_property_value(r.get()));
    }

    // Whether a top-level window, or the client its window manager frame
    // holds, is ours.
    bool belongsTo(xcb_window_t topLevelWindow, qint32 processID)
    {
        if (cardinal(topLevelWindow, atoms[wmPid]) == quint32(processID)) {
            return true;
        }
        auto tree = reply(xcb_query_tree_reply(c, xcb_query_tree(c, topLevelWindow), nullptr));
        if (!tree) {
            return false;
        }
        const xcb_window_t* list = xcb_query_tree_children(tree.get());
        for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
            const bool client =
                isClient(xcb_get_property(c, 0, list[i], atoms[icccmState], XCB_ATOM_ANY, 0, 0));
            if (client && cardinal(list[i], atoms[wmPid]) == quint32(processID)) {
                return true;
            }
        }
        return false;
    }

    // Pixels of a drawable as a 32-bit image: RGB32 for opaque depths,
    // premultiplied ARGB32 for depth 32. Throws the X error.
    QImage grab(xcb_drawable_t drawable, const QRect& rect, uint8_t depth)
    {
        const QImage::Format format =
            depth == 32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
        const size_t size = size_t(rect.width()) * size_t(rect.height()) * 4;
        xcb_generic_error_t* error = nullptr;
        if (segment(size)) {
            auto r = reply(xcb_shm_get_image_reply(
                c,
                xcb_shm_get_image(c, drawable, int16_t(rect.x()), int16_t(rect.y()),
                                  uint16_t(rect.width()), uint16_t(rect.height()), ~0u,
                                  XCB_IMAGE_FORMAT_Z_PIXMAP, shmSeg, 0),
                &error));
            if (r) {
                return QImage(shmData, rect.width(), rect.height(), rect.width() * 4, format);
            }
        } else {
            auto r = reply(xcb_get_image_reply(c,
                                               xcb_get_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
                                                             int16_t(rect.x()), int16_t(rect.y()),
                                                             uint16_t(rect.width()),
                                                             uint16_t(rect.height()), ~0u),
                                               &error));
            if (r) {
                QImage wrapped(xcb_get_image_data(r.get()), rect.width(), rect.height(),
                               rect.width() * 4, format);
                return wrapped.copy(); // the reply is freed on return
            }
        }
        const auto owned = reply(error);
        if (owned && windowGone(owned.get())) {
            throw CaptureError(CaptureError::Code::noContent, QStringLiteral("the window is gone"));
        }
        throw Error(QStringLiteral("The screen could not be read: %1.")
                        .arg(owned ? errorText(owned.get()) : QStringLiteral("no reply")));
    }
};

namespace {

// The engine's format: RGBA, premultiplied. Opaque pixels get alpha 255
// whatever the server left in the padding byte.
QImage toEngineFormat(const QImage& pixels)
{
    return xPixelsToRgba(pixels, pixels.format() == QImage::Format_ARGB32_Premultiplied);
}

qint32 ownProcessID()
{
    return qint32(::getpid());
}

} // namespace

XcbScreenCapturer::XcbScreenCapturer(ScaleLookup scale) : m_scale(std::move(scale))
{}

XcbScreenCapturer::~XcbScreenCapturer() = default;

XcbScreenCapturer::Connection& XcbScreenCapturer::connection()
{
    if (!m_connection) {
        m_connection = std::make_unique<Connection>();
    }
    if (xcb_connection_has_error(m_connection->c)) {
        m_connection.reset();
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the connection to the X display broke"));
    }
    return *m_connection;
}

bool XcbScreenCapturer::usesSharedMemory()
{
    const std::lock_guard lock(m_lock);
    return connection().shm;
}

QList<XcbScreenCapturer::Monitor> XcbScreenCapturer::monitors()
{
    Connection& x = connection();
    QList<Monitor> list;
    auto r =
        reply(xcb_randr_get_monitors_reply(x.c, xcb_randr_get_monitors(x.c, x.root, 1), nullptr));
    if (r) {
        for (auto it = xcb_randr_get_monitors_monitors_iterator(r.get()); it.rem;
             xcb_randr_monitor_info_next(&it)) {
            Monitor m;
            m.id = it.data->name;
            m.name = x.atomName(it.data->name);
            m.geometry = QRect(it.data->x, it.data->y, it.data->width, it.data->height);
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
    for (Monitor& m : list) {
        double scale = m_scale ? m_scale(m.geometry) : 1.0;
        if (!std::isfinite(scale) || scale <= 0) {
            scale = 1.0;
        }
        const QRectF points(QPointF(m.geometry.topLeft()) / scale,
                            QSizeF(m.geometry.size()) / scale);
        m.space = ScreenSpace{m.id, points, QRectF(m.geometry), scale};
    }
    if (list.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("the X screen has no monitors"));
    }
    return list;
}

QList<WindowCaptureDisplay> XcbScreenCapturer::filterDisplays()
{
    Connection& x = connection();
    // The work area leaves out panels; the strip above it on a monitor at the
    // top of the work area is that monitor's panel strip.
    const auto area = x.values<quint32>(x.root, x.atoms[workarea], XCB_ATOM_CARDINAL);
    QList<WindowCaptureDisplay> displays;
    for (const Monitor& m : monitors()) {
        double strip = 0;
        if (area.size() >= 4) {
            const QRect work{static_cast<int>(area[0]), static_cast<int>(area[1]),
                             static_cast<int>(area[2]), static_cast<int>(area[3])};
            if (work.top() > m.geometry.top() && work.top() < m.geometry.bottom()) {
                strip = (work.top() - m.geometry.top()) / m.space.scale;
            }
        }
        displays.append({m.space.globalFrame, strip});
    }
    return displays;
}

QList<WindowCaptureDescriptor> XcbScreenCapturer::windowDescriptors()
{
    Connection& x = connection();
    const QList<Monitor> displays = monitors();
    const double scale = displays.first().space.scale;
    QList<xcb_window_t> clients =
        x.values<xcb_window_t>(x.root, x.atoms[clientListStacking], XCB_ATOM_WINDOW);
    std::reverse(clients.begin(), clients.end()); // front-most first
    QList<WindowCaptureDescriptor> descriptors;
    for (const xcb_window_t client : clients) {
        const auto frame = x.topLevel(client);
        const auto geometry = frame ? x.geometry(*frame) : std::nullopt;
        if (!geometry) {
            continue; // gone while we looked
        }
        WindowCaptureDescriptor d;
        d.window.id = client;
        d.window.title =
            QString::fromUtf8(x.property(client, x.atoms[wmName], x.atoms[utf8String]));
        if (d.window.title.isEmpty()) {
            d.window.title =
                QString::fromLocal8Bit(x.property(client, XCB_ATOM_WM_NAME, XCB_ATOM_STRING));
        }
        const QList<QByteArray> wmClass =
            x.property(client, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING).split('\0');
        d.window.applicationName =
            wmClass.size() > 1 ? QString::fromLocal8Bit(wmClass[1]) : QString();
        const QRect& r = geometry->first;
        d.window.frame = QRectF(QPointF(r.topLeft()) / scale, QSizeF(r.size()) / scale);
        if (const auto pid = x.cardinal(client, x.atoms[wmPid])) {
            d.processID = qint32(*pid);
        }
        for (const xcb_atom_t type :
             x.values<xcb_atom_t>(client, x.atoms[wmWindowType], XCB_ATOM_ATOM)) {
            d.windowTypes
                << x.atomName(type).remove(QStringLiteral("_NET_WM_WINDOW_TYPE_")).toLower();
        }
        const auto states = x.values<xcb_atom_t>(client, x.atoms[wmState], XCB_ATOM_ATOM);
        d.window.layer = states.contains(x.atoms[wmStateAbove])   ? 3
                         : states.contains(x.atoms[wmStateBelow]) ? -1
                                                                  : 0;
        auto attributes = reply(
            xcb_get_window_attributes_reply(x.c, xcb_get_window_attributes(x.c, *frame), nullptr));
        d.isOnScreen = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                       !states.contains(x.atoms[wmStateHidden]);
        auto opacity = x.cardinal(client, x.atoms[wmWindowOpacity]);
        if (!opacity) {
            opacity = x.cardinal(*frame, x.atoms[wmWindowOpacity]);
        }
        d.alpha = opacity ? double(*opacity) / 0xFFFFFFFFu : 1.0;
        descriptors.append(d);
    }
    return descriptors;
}

WindowCaptureSnapshot XcbScreenCapturer::listWindows(bool withPreviews)
{
    WindowCaptureSnapshot snapshot;
    {
        const std::lock_guard lock(m_lock);
        snapshot.windows =
            WindowCaptureFilter::filter(windowDescriptors(), filterDisplays(), ownProcessID());
    }
    if (withPreviews) {
        for (const CapturableWindow& window : snapshot.windows) {
            try {
                const QImage image = captureWindow(window.id).image;
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
    Connection& x = connection();
    QImage image = toEngineFormat(x.grab(x.root, pixels, x.screen->root_depth));

    // Paint our own windows away: their area is drawn again from the
    // background and the kept pixels of every other window, bottom first.
    const QList<RootChild> children = x.rootChildren(ownProcessID());
    QRegion own;
    for (const RootChild& child : children) {
        if (child.own) {
            own += child.rect.intersected(pixels);
        }
    }
    if (own.isEmpty()) {
        return image;
    }
    x.redirect();
    if (!x.composite) {
        return image;
    }
    QPainter painter(&image);
    painter.translate(-pixels.topLeft());
    painter.setClipRegion(own);
    const auto background = x.values<xcb_pixmap_t>(x.root, x.atoms[rootPixmap], XCB_ATOM_PIXMAP);
    QImage wallpaper;
    if (!background.isEmpty()) {
        try {
            wallpaper = toEngineFormat(x.grab(background.first(), pixels, x.screen->root_depth));
        } catch (const Error&) {
        }
    }
    if (wallpaper.isNull()) {
        painter.fillRect(pixels, Qt::black);
    } else {
        painter.drawImage(pixels.topLeft(), wallpaper);
    }
    for (const RootChild& child : children) {
        const QRect part = child.rect.intersected(own.boundingRect());
        if (child.own || part.isEmpty()) {
            continue;
        }
        const xcb_pixmap_t pixmap = xcb_generate_id(x.c);
        if (reply(xcb_request_check(
                x.c, xcb_composite_name_window_pixmap_checked(x.c, child.window, pixmap)))) {
            continue;
        }
        try {
            const auto geometry = x.geometry(child.window);
            const QImage pixelsOfChild = toEngineFormat(x.grab(
                pixmap, part.translated(-child.rect.topLeft()), geometry ? geometry->second : 24));
            painter.drawImage(part.topLeft(), pixelsOfChild);
        } catch (const Error&) {
        }
        xcb_free_pixmap(x.c, pixmap);
    }
    return image;
}

QList<DisplayCapture> XcbScreenCapturer::captureDisplays(std::optional<quint32> display)
{
    const std::lock_guard lock(m_lock);
    QList<DisplayCapture> captures;
    for (const Monitor& m : monitors()) {
        if (display && *display != m.id) {
            continue;
        }
        captures.append({m.id, grabRoot(m.geometry), m.space});
    }
    if (captures.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("there is no display %1").arg(*display));
    }
    return captures;
}

WindowCapture XcbScreenCapturer::captureWindow(quint32 windowID)
{
    const std::lock_guard lock(m_lock);
    Connection& x = connection();
    const QList<Monitor> displays = monitors();
    const auto frame = x.topLevel(windowID);
    const auto geometry = frame ? x.geometry(*frame) : std::nullopt;
    if (!geometry) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("window %1 is gone").arg(windowID));
    }
    if (x.belongsTo(*frame, ownProcessID())) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("window %1 is our own").arg(windowID));
    }
    const QRect rect = geometry->first;
    QList<std::pair<quint32, QRectF>> bounds;
    double freeScale = 1;
    for (const Monitor& m : displays) {
        bounds.append({m.id, QRectF(m.geometry)});
        if (QRectF(m.geometry).intersects(rect)) {
            freeScale = std::max(freeScale, m.space.scale);
        }
    }
    const WindowCaptureFraming framing = WindowCaptureFraming::forWindow(QRectF(rect), bounds);
    double scale = freeScale;
    if (const auto* onDisplay = std::get_if<WindowCaptureFraming::Display>(&framing.framing)) {
        for (const Monitor& m : displays) {
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
        if (auto error = reply(xcb_request_check(
                x.c, xcb_composite_name_window_pixmap_checked(x.c, *frame, pixmap)))) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("window %1 is not shown").arg(windowID));
        }
        try {
            image =
                toEngineFormat(x.grab(pixmap, QRect(QPoint(0, 0), rect.size()), geometry->second));
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
        image = toEngineFormat(x.grab(x.root, visible, x.screen->root_depth));
    }

    // Outside its shape a window is transparent.
    if (x.shape) {
        auto shape = reply(xcb_shape_get_rectangles_reply(
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

QRect XcbScreenCapturer::regionPixels(const Monitor& m, const ScreenCaptureRegion& region) const
{
    const double s = m.space.scale;
    const QRectF source(QPointF(m.geometry.topLeft()) + region.sourceRect.topLeft() * s,
                        region.sourceRect.size() * s);
    return source.toAlignedRect().intersected(m.geometry);
}

QImage XcbScreenCapturer::captureRegion(quint32 display, const ScreenCaptureRegion& region)
{
    const std::lock_guard lock(m_lock);
    for (const Monitor& m : monitors()) {
        if (m.id != display) {
            continue;
        }
        const QRect pixels = regionPixels(m, region);
        if (pixels.isEmpty() || region.pixelRect.isEmpty()) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the region lies outside the display"));
        }
        const QImage image = grabRoot(pixels);
        return image.size() == region.pixelRect.size()
                   ? image
                   : image.scaled(region.pixelRect.size(), Qt::IgnoreAspectRatio,
                                  Qt::SmoothTransformation);
    }
    throw CaptureError(CaptureError::Code::noContent,
                       QStringLiteral("there is no display %1").arg(display));
}

void XcbScreenCapturer::keepWindowPixels()
{
    const std::lock_guard lock(m_lock);
    connection().redirect();
}

void XcbScreenCapturer::probe()
{
    const std::lock_guard lock(m_lock);
    Connection& x = connection();
    x.grab(x.root, QRect(0, 0, 1, 1), x.screen->root_depth);
}

namespace {

// Takes frames of one region on its own thread, one frame ahead of the
// consumer, and hands them over one at a time.
class XcbRegionStream final : public ScreenRegionStream {
public:
    XcbRegionStream(XcbScreenCapturer::ScaleLookup scale, quint32 display,
                    ScreenCaptureRegion region)
        : m_capturer(std::move(scale)), m_display(display), m_region(region)
    {
        m_sampler = std::thread([this] { run(); });
    }

    ~XcbRegionStream() override
    {
        stopCapture();
        m_sampler.join();
    }

    std::optional<ScreenRegionFrame> next() override
    {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [this] { return m_frame || m_error || m_stopped; });
        if (m_error) {
            std::rethrow_exception(std::exchange(m_error, nullptr));
        }
        if (!m_frame) {
            return std::nullopt;
        }
        std::optional<ScreenRegionFrame> frame = std::move(m_frame);
        m_frame.reset();
        m_changed.notify_all();
        return frame;
    }

    void stopCapture() override
    {
        {
            const std::lock_guard lock(m_mutex);
            m_stopped = true;
        }
        m_changed.notify_all();
    }

private:
    void run()
    {
        QElapsedTimer clock; // monotonic
        clock.start();
        quint64 frames = 0;
        pthread_setname_np(pthread_self(), "scrolling");
        while (true) {
            {
                std::unique_lock lock(m_mutex);
                m_changed.wait(lock, [this] { return !m_frame || m_stopped; });
                if (m_stopped) {
                    break;
                }
            }
            try {
                ScreenRegionFrame frame{m_capturer.captureRegion(m_display, m_region)};
                const std::lock_guard lock(m_mutex);
                m_frame = std::move(frame);
                ++frames;
            } catch (...) {
                const std::lock_guard lock(m_mutex);
                m_error = std::current_exception();
                m_stopped = true;
            }
            m_changed.notify_all();
        }
        const double seconds = clock.nsecsElapsed() / 1e9;
        qCInfo(lcScrolling, "Region stream: %llu frames in %.2f s (%.1f per second)",
               static_cast<unsigned long long>(frames), seconds,
               seconds > 0 ? frames / seconds : 0.0);
    }

    XcbScreenCapturer m_capturer;
    quint32 m_display;
    ScreenCaptureRegion m_region;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::optional<ScreenRegionFrame> m_frame;
    std::exception_ptr m_error;
    bool m_stopped = false;
    std::thread m_sampler;
};

} // namespace

std::unique_ptr<ScreenRegionStream>
XcbScreenCapturer::streamRegion(quint32 display, const ScreenCaptureRegion& region)
{
    // Fail now, not in the first frame, when the region cannot be captured.
    {
        const std::lock_guard lock(m_lock);
        bool found = false;
        for (const Monitor& m : monitors()) {
            found = found || (m.id == display && !regionPixels(m, region).isEmpty());
        }
        if (!found) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the region lies outside every display"));
        }
    }
    return std::make_unique<XcbRegionStream>(m_scale, display, region);
}

} // namespace nubo
