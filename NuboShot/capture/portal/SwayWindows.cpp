#include "capture/portal/SwayWindows.h"

#include "core/Logging.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace nubo {

namespace {

constexpr char magic[] = {'i', '3', '-', 'i', 'p', 'c'};
constexpr quint32 getTree = 4;
constexpr int answerWithin = 2000; // ms
constexpr qsizetype largestTree = 64 << 20;

bool sendAll(int fd, const char* data, size_t size)
{
    while (size > 0) {
        const ssize_t sent = ::send(fd, data, size, MSG_NOSIGNAL);
        if (sent <= 0) {
            return false;
        }
        data += sent;
        size -= size_t(sent);
    }
    return true;
}

bool readAll(int fd, char* data, size_t size)
{
    while (size > 0) {
        pollfd ready{fd, POLLIN, 0};
        if (::poll(&ready, 1, answerWithin) <= 0) {
            return false;
        }
        const ssize_t got = ::recv(fd, data, size, 0);
        if (got <= 0) {
            return false;
        }
        data += got;
        size -= size_t(got);
    }
    return true;
}

struct Found {
    CapturableWindow window;
    int rank = 0; // 2 fullscreen, 1 floating, 0 tiled
    int order = 0;
};

void collect(const QJsonObject& node, bool floating, qint64 leaveOutPid, QList<Found>& found)
{
    const bool isView = node.contains(QLatin1String("pid")) &&
                        (node[QLatin1String("type")].toString() == QLatin1String("con") ||
                         node[QLatin1String("type")].toString() == QLatin1String("floating_con"));
    if (isView && node[QLatin1String("visible")].toBool() &&
        node[QLatin1String("pid")].toInteger() != leaveOutPid) {
        const QJsonObject r = node[QLatin1String("rect")].toObject();
        const QJsonObject deco = node[QLatin1String("deco_rect")].toObject();
        QRectF frame(r[QLatin1String("x")].toDouble(), r[QLatin1String("y")].toDouble(),
                     r[QLatin1String("width")].toDouble(), r[QLatin1String("height")].toDouble());
        // The title bar lies above the window's rectangle.
        if (deco[QLatin1String("height")].toDouble() > 0) {
            frame.setTop(frame.top() - deco[QLatin1String("height")].toDouble());
        }
        CapturableWindow window;
        window.id = quint32(node[QLatin1String("id")].toInteger());
        window.title = node[QLatin1String("name")].toString();
        window.applicationName = node[QLatin1String("app_id")].toString();
        if (window.applicationName.isEmpty()) {
            window.applicationName = node[QLatin1String("window_properties")]
                                         .toObject()[QLatin1String("class")]
                                         .toString();
        }
        window.frame = frame;
        const int rank = node[QLatin1String("fullscreen_mode")].toInt() > 0 ? 2 : floating ? 1 : 0;
        window.layer = rank;
        if (!frame.isEmpty()) {
            found.append({window, rank, int(found.size())});
        }
    }
    for (const QJsonValue& child : node[QLatin1String("nodes")].toArray()) {
        collect(child.toObject(), floating, leaveOutPid, found);
    }
    for (const QJsonValue& child : node[QLatin1String("floating_nodes")].toArray()) {
        collect(child.toObject(), true, leaveOutPid, found);
    }
}

} // namespace

QList<CapturableWindow> swayWindowsFromTree(const QByteArray& tree, qint64 leaveOutPid)
{
    QList<Found> found;
    collect(QJsonDocument::fromJson(tree).object(), false, leaveOutPid, found);
    // Front-most first: by rank, and among floating windows the later ones
    // (sway keeps them in stacking order, the top last).
    std::stable_sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        if (a.rank != b.rank) {
            return a.rank > b.rank;
        }
        return a.rank == 1 && a.order > b.order;
    });
    QList<CapturableWindow> windows;
    for (const Found& f : std::as_const(found)) {
        windows.append(f.window);
    }
    return windows;
}

std::optional<QList<CapturableWindow>> swayWindows(qint64 leaveOutPid)
{
    const QByteArray path = qgetenv("SWAYSOCK");
    sockaddr_un address{};
    if (path.isEmpty() || size_t(path.size()) >= sizeof address.sun_path) {
        return std::nullopt;
    }
    address.sun_family = AF_UNIX;
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) {
        return std::nullopt;
    }
    std::optional<QList<CapturableWindow>> result;
    char header[sizeof magic + 8];
    std::memcpy(header, magic, sizeof magic);
    const quint32 none = 0;
    std::memcpy(header + sizeof magic, &none, 4);
    std::memcpy(header + sizeof magic + 4, &getTree, 4);
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0 &&
        sendAll(fd, header, sizeof header) && readAll(fd, header, sizeof header) &&
        std::memcmp(header, magic, sizeof magic) == 0) {
        quint32 length = 0;
        std::memcpy(&length, header + sizeof magic, 4);
        if (qsizetype(length) <= largestTree) {
            QByteArray tree(qsizetype(length), Qt::Uninitialized);
            if (readAll(fd, tree.data(), size_t(length))) {
                result = swayWindowsFromTree(tree, leaveOutPid);
            }
        }
    }
    ::close(fd);
    if (!result) {
        qCInfo(lcCapture, "sway's window list cannot be read from %s", path.constData());
    }
    return result;
}

} // namespace nubo
