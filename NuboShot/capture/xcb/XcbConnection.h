#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QImage>
#include <QList>
#include <QRect>
#include <QString>

#include <cstdlib>
#include <cstring>
#include <memory>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>
#include <xcb/xcb.h>

namespace nubo {

template <class T> using XcbReply = std::unique_ptr<T, decltype(&std::free)>;

template <class T> XcbReply<T> xcbReply(T* raw)
{
    return XcbReply<T>(raw, &std::free);
}

// One connection to an X server and what every part of the X11 backend
// needs of it: atoms, window properties, the geometry of windows, and
// pixels through one shared memory segment. Not thread-safe: its owner
// serialises the calls.
class XcbConnection {
public:
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

    // Connects to `displayName` (the DISPLAY variable's form; empty means
    // DISPLAY itself). Throws CaptureError (noContent) naming the display
    // when it cannot be reached.
    explicit XcbConnection(const QByteArray& displayName = {});
    ~XcbConnection();
    XcbConnection(const XcbConnection&) = delete;
    XcbConnection& operator=(const XcbConnection&) = delete;

    xcb_connection_t* c = nullptr;
    xcb_screen_t* screen = nullptr;
    int screenNumber = 0; // of `screen`, the display's default
    xcb_window_t root = 0;
    xcb_atom_t atoms[atomCount]{};
    bool shm = false;
    bool composite = false;
    bool shape = false;
    QElapsedTimer redirected; // since when windows keep their pixels

    bool broken() const { return xcb_connection_has_error(c) != 0; }

    // Has the server keep every top-level window's pixels while we are
    // connected. Asked for only when needed: redirecting costs the server a
    // copy of every window.
    void redirect();

    QString atomName(xcb_atom_t atom);
    QByteArray property(xcb_window_t window, xcb_atom_t atom, xcb_atom_t type,
                        uint32_t longs = 4096);
    template <class T> QList<T> values(xcb_window_t window, xcb_atom_t atom, xcb_atom_t type)
    {
        const QByteArray data = property(window, atom, type);
        QList<T> out(data.size() / qsizetype(sizeof(T)));
        std::memcpy(out.data(), data.constData(), size_t(out.size()) * sizeof(T));
        return out;
    }
    std::optional<quint32> cardinal(xcb_window_t window, xcb_atom_t atom);

    // The window's ancestor that is a child of the root: the frame the window
    // manager put around it (or the window itself).
    std::optional<xcb_window_t> topLevel(xcb_window_t window);
    // The window's rectangle in root pixels (border included) and its depth.
    std::optional<std::pair<QRect, uint8_t>> geometry(xcb_window_t window);

    // What a grab's image may point at.
    enum class Pixels {
        borrowed, // the shared segment, valid until the next grab
        owned,    // memory of its own: a large grab's segment is lent to the
                  // image until it goes (from any thread, also after the
                  // connection), a small one is copied out
    };
    // Pixels of a drawable as a 32-bit image: RGB32 for opaque depths,
    // premultiplied ARGB32 for depth 32. Throws CaptureError (noContent)
    // when the drawable is gone, Error naming the X error otherwise.
    QImage grab(xcb_drawable_t drawable, const QRect& rect, uint8_t depth,
                Pixels pixels = Pixels::borrowed);

private:
    struct Segment {
        uint8_t* data = nullptr;
        uint32_t seg = 0;
        size_t size = 0;
        bool fresh = false; // its pages not filled yet
    };
    // Segments lent to images, kept for the next grab once given back.
    struct LentSegments {
        struct Kept {
            uint8_t* data;
            uint32_t seg;
            size_t size;
            bool busy;
        };
        std::mutex lock;
        std::vector<Kept> segments;
        bool closed = false; // the connection is gone
    };

    // A new segment attached to the server; empty (and shm off) when shared
    // memory cannot be used (a remote display).
    Segment newSegment(size_t size);
    void releaseSegment();
    // The segment borrowed grabs use, of at least `size` bytes.
    bool segment(size_t size);
    // A segment of at least `size` bytes to lend to an image; empty when
    // shared memory cannot be used.
    Segment lendSegment(size_t size);
    static void giveBack(const std::shared_ptr<LentSegments>& lent, uint8_t* data);

    QHash<xcb_atom_t, QString> m_atomNames;
    Segment m_current;
    std::shared_ptr<LentSegments> m_lent = std::make_shared<LentSegments>();
};

} // namespace nubo
