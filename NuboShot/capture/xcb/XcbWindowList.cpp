#include "capture/xcb/XcbWindowList.h"

#include <algorithm>
#include <vector>

namespace nubo {

namespace {

using X = XcbConnection;

bool isClient(X& x, xcb_get_property_cookie_t wmState)
{
    auto r = xcbReply(xcb_get_property_reply(x.c, wmState, nullptr));
    return r && r->type != XCB_ATOM_NONE;
}

std::optional<quint32> pidOf(X& x, xcb_get_property_cookie_t cookie)
{
    auto r = xcbReply(xcb_get_property_reply(x.c, cookie, nullptr));
    if (!r || r->type != XCB_ATOM_CARDINAL || xcb_get_property_value_length(r.get()) < 4) {
        return std::nullopt;
    }
    return *static_cast<const quint32*>(xcb_get_property_value(r.get()));
}

} // namespace

QList<XcbWindowList::RootChild> XcbWindowList::rootChildren(X& x, qint32 ownProcessID)
{
    QList<RootChild> children;
    auto tree = xcbReply(xcb_query_tree_reply(x.c, xcb_query_tree(x.c, x.root), nullptr));
    if (!tree) {
        return children;
    }
    const xcb_window_t* list = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());
    // Every request is sent before any reply is read: a handful of round
    // trips for the whole desktop instead of several per window.
    std::vector<xcb_get_window_attributes_cookie_t> attributes(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i) {
        attributes[size_t(i)] = xcb_get_window_attributes(x.c, list[i]);
    }
    std::vector<xcb_window_t> viewable;
    for (int i = 0; i < count; ++i) {
        auto a = xcbReply(xcb_get_window_attributes_reply(x.c, attributes[size_t(i)], nullptr));
        if (a && a->map_state == XCB_MAP_STATE_VIEWABLE) {
            viewable.push_back(list[i]);
        }
    }
    std::vector<xcb_get_geometry_cookie_t> geometries;
    std::vector<xcb_get_property_cookie_t> pids;
    std::vector<xcb_query_tree_cookie_t> trees;
    for (const xcb_window_t window : viewable) {
        geometries.push_back(xcb_get_geometry(x.c, window));
        pids.push_back(xcb_get_property(x.c, 0, window, x.atoms[X::wmPid], XCB_ATOM_CARDINAL, 0, 1));
        trees.push_back(xcb_query_tree(x.c, window));
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
        if (auto g = xcbReply(xcb_get_geometry_reply(x.c, geometries[i], nullptr))) {
            const int bw = g->border_width;
            child.rect = QRect(g->x, g->y, g->width + 2 * bw, g->height + 2 * bw);
        }
        child.own = pidOf(x, pids[i]) == quint32(ownProcessID);
        if (auto t = xcbReply(xcb_query_tree_reply(x.c, trees[i], nullptr))) {
            const xcb_window_t* inner = xcb_query_tree_children(t.get());
            for (int k = 0; k < xcb_query_tree_children_length(t.get()); ++k) {
                clients[i].push_back(
                    {xcb_get_property(x.c, 0, inner[k], x.atoms[X::icccmState], XCB_ATOM_ANY, 0,
                                      0),
                     xcb_get_property(x.c, 0, inner[k], x.atoms[X::wmPid], XCB_ATOM_CARDINAL, 0,
                                      1)});
            }
        }
        children.append(child);
    }
    for (size_t i = 0; i < viewable.size(); ++i) {
        for (const ClientCookies& cookies : clients[i]) {
            const bool client = isClient(x, cookies.state);
            if (client && pidOf(x, cookies.pid) == quint32(ownProcessID)) {
                children[qsizetype(i)].own = true;
            }
        }
    }
    return children;
}

bool XcbWindowList::belongsTo(X& x, xcb_window_t topLevelWindow, qint32 processID)
{
    if (x.cardinal(topLevelWindow, x.atoms[X::wmPid]) == quint32(processID)) {
        return true;
    }
    auto tree = xcbReply(xcb_query_tree_reply(x.c, xcb_query_tree(x.c, topLevelWindow), nullptr));
    if (!tree) {
        return false;
    }
    const xcb_window_t* list = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const bool client = isClient(
            x, xcb_get_property(x.c, 0, list[i], x.atoms[X::icccmState], XCB_ATOM_ANY, 0, 0));
        if (client && x.cardinal(list[i], x.atoms[X::wmPid]) == quint32(processID)) {
            return true;
        }
    }
    return false;
}

QList<WindowCaptureDisplay> XcbWindowList::filterDisplays(X& x,
                                                          const QList<CaptureDisplay>& displays)
{
    // The work area leaves out panels; the strip above it on a monitor at the
    // top of the work area is that monitor's panel strip.
    const auto area = x.values<quint32>(x.root, x.atoms[X::workarea], XCB_ATOM_CARDINAL);
    QList<WindowCaptureDisplay> filtered;
    for (const CaptureDisplay& m : displays) {
        double strip = 0;
        if (area.size() >= 4) {
            const QRect work{static_cast<int>(area[0]), static_cast<int>(area[1]),
                             static_cast<int>(area[2]), static_cast<int>(area[3])};
            const QRect& g = m.pixelGeometry;
            if (work.top() > g.top() && work.top() < g.bottom()) {
                strip = (work.top() - g.top()) / m.space.scale;
            }
        }
        filtered.append({m.space.globalFrame, strip});
    }
    return filtered;
}

QList<WindowCaptureDescriptor> XcbWindowList::descriptors(X& x,
                                                          const QList<CaptureDisplay>& displays)
{
    const double scale = displays.isEmpty() ? 1.0 : displays.first().space.scale;
    QList<xcb_window_t> clients =
        x.values<xcb_window_t>(x.root, x.atoms[X::clientListStacking], XCB_ATOM_WINDOW);
    std::reverse(clients.begin(), clients.end()); // front-most first
    QList<WindowCaptureDescriptor> found;
    for (const xcb_window_t client : clients) {
        const auto frame = x.topLevel(client);
        const auto geometry = frame ? x.geometry(*frame) : std::nullopt;
        if (!geometry) {
            continue; // gone while we looked
        }
        WindowCaptureDescriptor d;
        d.window.id = client;
        d.window.title =
            QString::fromUtf8(x.property(client, x.atoms[X::wmName], x.atoms[X::utf8String]));
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
        if (const auto pid = x.cardinal(client, x.atoms[X::wmPid])) {
            d.processID = qint32(*pid);
        }
        for (const xcb_atom_t type :
             x.values<xcb_atom_t>(client, x.atoms[X::wmWindowType], XCB_ATOM_ATOM)) {
            d.windowTypes
                << x.atomName(type).remove(QStringLiteral("_NET_WM_WINDOW_TYPE_")).toLower();
        }
        const auto states = x.values<xcb_atom_t>(client, x.atoms[X::wmState], XCB_ATOM_ATOM);
        d.window.layer = states.contains(x.atoms[X::wmStateAbove])   ? 3
                         : states.contains(x.atoms[X::wmStateBelow]) ? -1
                                                                     : 0;
        auto attributes = xcbReply(
            xcb_get_window_attributes_reply(x.c, xcb_get_window_attributes(x.c, *frame), nullptr));
        d.isOnScreen = attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
                       !states.contains(x.atoms[X::wmStateHidden]);
        auto opacity = x.cardinal(client, x.atoms[X::wmWindowOpacity]);
        if (!opacity) {
            opacity = x.cardinal(*frame, x.atoms[X::wmWindowOpacity]);
        }
        d.alpha = opacity ? double(*opacity) / 0xFFFFFFFFu : 1.0;
        found.append(d);
    }
    return found;
}

} // namespace nubo
