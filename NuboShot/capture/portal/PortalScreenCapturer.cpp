#include "capture/portal/PortalScreenCapturer.h"

#include "capture/CaptureSelection.h"
#include "capture/PixelConversion.h"
#include "capture/portal/PipeWireFrames.h"
#include "capture/portal/PortalRequest.h"
#include "capture/portal/PortalScreenCast.h"
#include "capture/portal/SwayWindows.h"
#include "capture/portal/WaylandOutputs.h"
#include "core/Logging.h"
#include "core/Settings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImageReader>
#include <QUrl>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cmath>

namespace nubo {

namespace {

constexpr const char* grantsKey = keys::portalScreenCastGrants;
// A stream's first picture comes within a frame or two of its start.
constexpr std::chrono::seconds firstPictureTimeout{3};

QSize pixelSize(const DesktopScreen& screen)
{
    return QSize(qRound(screen.geometry.width() * screen.scale),
                 qRound(screen.geometry.height() * screen.scale));
}

// Where a screen starts in the desktop's pixels: next to the screen it
// touches on the left (above), in that screen's pixels, so that side by
// side screens of different scales stay side by side without a gap.
QPoint pixelOrigin(const QList<DesktopScreen>& screens, const DesktopScreen& screen, int depth = 0)
{
    QPoint origin = (QPointF(screen.geometry.topLeft()) * screen.scale).toPoint();
    if (depth > screens.size()) {
        return origin;
    }
    for (const DesktopScreen& other : screens) {
        const QRect g = other.geometry, s = screen.geometry;
        if (g.right() + 1 == s.left() && g.top() < s.bottom() && s.top() < g.bottom()) {
            origin.setX(pixelOrigin(screens, other, depth + 1).x() + pixelSize(other).width());
        }
        if (g.bottom() + 1 == s.top() && g.left() < s.right() && s.left() < g.right()) {
            origin.setY(pixelOrigin(screens, other, depth + 1).y() + pixelSize(other).height());
        }
    }
    return origin;
}

// A stream's picture once the desktop's dialog has gone: just after the
// user answered it, its closing is still being drawn. A cast sends pictures
// only when something was drawn, so the screen has settled when none came
// for a moment; a screen that keeps changing is taken after a second.
PipeWireFrames::Frame settledPicture(PipeWireFrames& frames, int stream, PipeWireFrames::Frame frame)
{
    constexpr std::chrono::milliseconds quiet{150};
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(1);
    while (std::chrono::steady_clock::now() < deadline) {
        std::optional<PipeWireFrames::Frame> newer = frames.next(stream, frame.sequence, quiet);
        if (!newer) {
            break;
        }
        frame = std::move(*newer);
    }
    return frame;
}

// One granted session's pictures.
struct Taken {
    PortalStreamPicture picture;
    QImage image; // B, G, R, X
    int grant = -1;
    // The session and stream it came from, to keep running.
    std::shared_ptr<PortalScreenCast> cast;
    std::shared_ptr<PipeWireFrames> frames;
    int stream = -1;
};

} // namespace

std::optional<double> fractionalScale(const DesktopScreen& screen, QSize pixels)
{
    if (screen.geometry.isEmpty() || pixels.isEmpty()) {
        return std::nullopt;
    }
    const double across = double(pixels.width()) / screen.geometry.width();
    const double down = double(pixels.height()) / screen.geometry.height();
    // Logical sizes are whole points: the two ways may differ by a point's worth.
    const double slack = across / std::min(screen.geometry.width(), screen.geometry.height()) + 1e-6;
    if (std::abs(across - down) > slack || across < 1 || across > screen.scale ||
        across <= screen.scale - 1) {
        return std::nullopt;
    }
    return across;
}

QList<int> matchPortalStreams(const QList<DesktopScreen>& screens,
                              const QList<PortalStreamPicture>& streams)
{
    QList<int> match(streams.size(), -1);
    QList<bool> taken(screens.size(), false);
    const auto assign = [&](qsizetype stream, const std::function<bool(const DesktopScreen&)>& fits) {
        for (qsizetype s = 0; s < screens.size(); ++s) {
            if (!taken[s] && fits(screens[s])) {
                match[stream] = int(s);
                taken[s] = true;
                return;
            }
        }
    };
    // Where the desktop places its streams, the place decides. Desktops give
    // the size in points (as the portal asks) or in pixels (wlroots').
    for (qsizetype i = 0; i < streams.size(); ++i) {
        if (const auto& at = streams[i].position) {
            assign(i, [&](const DesktopScreen& screen) {
                const auto& size = streams[i].size;
                return screen.geometry.topLeft() == *at &&
                       (!size || screen.geometry.size() == *size || pixelSize(screen) == *size);
            });
        }
    }
    // Else the picture's size: the screen this grant showed before first.
    for (qsizetype i = 0; i < streams.size(); ++i) {
        if (match[i] < 0 && !streams[i].screenBefore.isEmpty()) {
            assign(i, [&](const DesktopScreen& screen) {
                return screen.name == streams[i].screenBefore && pixelSize(screen) == streams[i].pixels;
            });
        }
    }
    for (qsizetype i = 0; i < streams.size(); ++i) {
        if (match[i] < 0) {
            assign(i, [&](const DesktopScreen& screen) { return pixelSize(screen) == streams[i].pixels; });
        }
    }
    // Last, a screen at a fractional scale: the application is told the
    // next whole number (Qt before 6.5 knows no other) and the desktop draws
    // it smaller; its picture has the screen's shape at a scale between.
    for (qsizetype i = 0; i < streams.size(); ++i) {
        if (match[i] < 0) {
            assign(i, [&](const DesktopScreen& screen) {
                return fractionalScale(screen, streams[i].pixels).has_value();
            });
        }
    }
    return match;
}

QList<PortalGrant> loadPortalGrants()
{
    ShotPreferences preferences;
    QList<PortalGrant> grants;
    const QJsonArray stored =
        QJsonDocument::fromJson(preferences.string(grantsKey).value_or(QString()).toUtf8()).array();
    for (const QJsonValue& value : stored) {
        PortalGrant grant;
        grant.token = value[QLatin1String("token")].toString();
        for (const QJsonValue& screen : value[QLatin1String("screens")].toArray()) {
            grant.screens.append(screen.toString());
        }
        if (!grant.token.isEmpty()) {
            grants.append(grant);
        }
    }
    return grants;
}

void savePortalGrants(const QList<PortalGrant>& grants)
{
    QJsonArray stored;
    for (const PortalGrant& grant : grants) {
        stored.append(QJsonObject{{"token", grant.token},
                                  {"screens", QJsonArray::fromStringList(grant.screens)}});
    }
    ShotPreferences preferences;
    if (grants.isEmpty()) {
        preferences.remove(grantsKey);
    } else {
        preferences.setValue(grantsKey, QString::fromUtf8(QJsonDocument(stored).toJson(QJsonDocument::Compact)));
    }
    if (!preferences.sync()) {
        qCWarning(lcCapture, "The screen-cast grant was not kept: the preferences cannot be written");
    }
}

PortalScreenCapturer::PortalScreenCapturer(ScreenLookup screens) : m_screens(std::move(screens)) {}

quint32 PortalScreenCapturer::displayID(const QString& name)
{
    return quint32(qHash(name, 0) & 0x7fffffff);
}

QList<DesktopScreen> PortalScreenCapturer::screens()
{
    QList<DesktopScreen> list = m_screens ? m_screens() : QList<DesktopScreen>();
    if (list != m_outputsFor) {
        // The monitors' own modes, read again whenever the screens change.
        m_outputsFor = list;
        m_outputs = readWaylandOutputs();
    }
    for (DesktopScreen& screen : list) {
        if (!std::isfinite(screen.scale) || screen.scale <= 0) {
            screen.scale = 1;
        }
    }
    // A fractional scale, as the compositor's mode shows it. A monitor is
    // known by its place where the compositor says it (wlroots says 0,0 for
    // all), else as the only mode left that fits the screen.
    QList<WaylandOutput> left = m_outputs;
    QList<bool> settled(list.size(), false);
    for (bool progress = true; progress;) {
        progress = false;
        for (qsizetype i = 0; i < list.size(); ++i) {
            if (settled[i]) {
                continue;
            }
            QList<qsizetype> fits;
            qsizetype placed = -1;
            for (qsizetype o = 0; o < left.size(); ++o) {
                if (fractionalScale(list[i], left[o].pixels)) {
                    fits.append(o);
                    placed = left[o].position == list[i].geometry.topLeft() ? o : placed;
                }
            }
            const qsizetype chosen = placed >= 0 ? placed : fits.size() == 1 ? fits[0] : -1;
            if (chosen >= 0) {
                list[i].scale = *fractionalScale(list[i], left[chosen].pixels);
                left.removeAt(chosen);
                settled[i] = progress = true;
            }
        }
    }
    for (DesktopScreen& screen : list) {
        if (const auto measured = m_measured.constFind(screen.name); measured != m_measured.cend()) {
            screen.scale = fractionalScale(screen, *measured).value_or(screen.scale);
        }
    }
    return list.isEmpty() ? m_seen : list;
}

QList<CaptureDisplay> PortalScreenCapturer::displays()
{
    QList<DesktopScreen> list;
    {
        const std::lock_guard lock(m_lock);
        list = screens();
    }
    if (list.isEmpty()) {
        // Nothing tells the screens but the streams themselves.
        for (const DisplayCapture& capture : captureDisplays()) {
            list.append({QStringLiteral("screen %1").arg(capture.id),
                         capture.space.globalFrame.toRect(), capture.space.scale});
        }
    }
    QList<CaptureDisplay> displays;
    for (qsizetype i = 0; i < list.size(); ++i) {
        const DesktopScreen& screen = list[i];
        CaptureDisplay display;
        display.id = displayID(screen.name);
        display.name = screen.name;
        display.pixelGeometry = QRect(pixelOrigin(list, screen), pixelSize(screen));
        display.primary = i == 0;
        display.space = ScreenSpace{display.id, QRectF(screen.geometry),
                                    QRectF(display.pixelGeometry), screen.scale};
        displays.append(display);
    }
    return displays;
}

WindowCaptureSnapshot PortalScreenCapturer::listWindows(bool)
{
    // The portals show no window list; sway shows its own to its session.
    return {swayWindows(QCoreApplication::applicationPid()).value_or(QList<CapturableWindow>()), {}};
}

WindowCapture PortalScreenCapturer::captureWindow(quint32 windowID)
{
    std::optional<CapturableWindow> window;
    for (const CapturableWindow& w : listWindows(false).windows) {
        if (w.id == windowID) {
            window = w;
        }
    }
    if (!window) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("there is no window %1 on this desktop").arg(windowID));
    }
    // Its place on the screen as the screen's cast shows it: a window
    // covered by another is seen covered.
    for (const DisplayCapture& display : captureDisplays()) {
        const QRectF on = window->frame.intersected(display.space.globalFrame);
        if (display.space.globalFrame.contains(window->frame.center()) && !on.isEmpty()) {
            const QRect pixels = nubo::captureRegion(display.space, on).pixelRect;
            return {display.image.copy(pixels), float(display.space.scale)};
        }
    }
    throw CaptureError(CaptureError::Code::noContent,
                       QStringLiteral("window %1 is on no screen").arg(windowID));
}

PortalScreenCapturer::DisplayCast PortalScreenCapturer::castWindow(PortalScreenCast::Cursor cursor,
                                                                    int framesPerSecond)
{
    if (!PortalScreenCast::castsWindows()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("this desktop casts no single windows"));
    }
    DisplayCast result;
    PortalScreenCast::Options options;
    options.multiple = false;
    options.cursor = cursor;
    options.source = PortalScreenCast::Source::window;
    result.cast = std::make_shared<PortalScreenCast>(options);
    result.frames = std::make_shared<PipeWireFrames>(result.cast->openPipeWireRemote());
    result.stream = result.frames->connect(result.cast->streams().constFirst().node, framesPerSecond);
    // A still window draws nothing: its picture is sent when the stream
    // starts, and GNOME can miss that moment. Linked again, it sends it.
    constexpr std::chrono::milliseconds relinkAfter{800};
    const auto deadline = std::chrono::steady_clock::now() + firstPictureTimeout;
    while (!result.frames->next(result.stream, 0, relinkAfter)) {
        if (std::chrono::steady_clock::now() >= deadline) {
            throw Error(QStringLiteral("The window's cast sent no picture within %1 s.")
                            .arg(firstPictureTimeout.count()));
        }
        qCInfo(lcCapture, "No picture of the window yet: its stream is linked again");
        result.frames->relink(result.stream);
    }
    return result;
}

PortalScreenCapturer::DisplayCast PortalScreenCapturer::keptCast(quint32 display)
{
    const std::lock_guard lock(m_lock);
    for (const KeptStream& kept : std::as_const(m_kept)) {
        if (displayID(kept.screen.name) == display) {
            return {kept.cast, kept.frames, kept.stream};
        }
    }
    return {};
}

double PortalScreenCapturer::windowScale()
{
    // A window's stream says nothing of its scale (GNOME gives the size of
    // the largest picture it may send): the screens' scale, where they share one.
    QList<DesktopScreen> known;
    {
        const std::lock_guard lock(m_lock);
        known = screens();
    }
    double scale = known.isEmpty() ? 1 : known.constFirst().scale;
    for (const DesktopScreen& screen : std::as_const(known)) {
        if (screen.scale != scale) {
            return 1;
        }
    }
    return scale;
}

WindowCapture PortalScreenCapturer::pickWindow()
{
    QElapsedTimer clock;
    clock.start();
    DisplayCast cast = castWindow(PortalScreenCast::Cursor::hidden, 0);
    const auto frame = cast.frames->next(cast.stream, 0, std::chrono::milliseconds(0));
    if (!frame) {
        throw Error(QStringLiteral("The window's cast ended before its first picture."));
    }
    const double scale = windowScale();
    qCInfo(lcCapture, "Window picked by the desktop: %d×%d pixels at scale %.2f in %lld ms",
           frame->image.width(), frame->image.height(), scale,
           static_cast<long long>(clock.elapsed()));
    cast.frames.reset(); // before the session its stream belongs to
    return {xPixelsToRgba(frame->image, false), float(scale)};
}

void PortalScreenCapturer::prepareWindowPixels()
{
    const std::lock_guard lock(m_lock);
    m_keep = true;
}

void PortalScreenCapturer::probe()
{
    if (portal::interfaceVersion(QStringLiteral("org.freedesktop.portal.ScreenCast")) == 0) {
        throw CaptureError(CaptureError::Code::permissionDenied,
                           QStringLiteral("the desktop portal offers no screen casting"));
    }
}

QList<DisplayCapture> PortalScreenCapturer::captureDisplays(std::optional<quint32> display)
{
    const std::lock_guard lock(m_lock);
    const QList<DesktopScreen> known = screens();
    const bool screenshots =
        portal::interfaceVersion(QStringLiteral("org.freedesktop.portal.Screenshot")) > 0;
    if (!m_castsFail) {
        try {
            return castDisplays(known, display);
        } catch (const CaptureError& error) {
            if (error.code() == CaptureError::Code::cancelled || !screenshots) {
                throw;
            }
            qCWarning(lcCapture, "Screen casts fail on this desktop (%s): stills come from its "
                                 "Screenshot portal from now on", qPrintable(error.detail()));
        } catch (const Error& error) {
            if (!screenshots) {
                throw;
            }
            qCWarning(lcCapture, "Screen casts fail on this desktop (%s): stills come from its "
                                 "Screenshot portal from now on", qPrintable(error.message()));
        }
        m_castsFail = true;
    }
    return screenshotDisplays(known, display);
}

QList<DisplayCapture> PortalScreenCapturer::screenshotDisplays(const QList<DesktopScreen>& listed,
                                                               std::optional<quint32> display)
{
    QElapsedTimer clock;
    clock.start();
    // Some portals write every screenshot to one fixed file (wlroots' writes
    // /tmp/out.png): another program's screenshot at the same moment can
    // leave it half written. A picture that cannot be read is asked for once
    // more before the capture fails.
    QImage desktop;
    for (int attempt = 1; desktop.isNull(); ++attempt) {
        const QVariantMap results = portal::request(
            QStringLiteral("org.freedesktop.portal.Screenshot"), QStringLiteral("Screenshot"),
            {QString()}, {{QStringLiteral("interactive"), false}}, std::chrono::minutes(5));
        const QUrl uri(results.value(QStringLiteral("uri")).toString());
        if (!uri.isLocalFile()) {
            throw Error(QStringLiteral("The desktop's screenshot is not a local file (%1).")
                            .arg(uri.toString()));
        }
        QImageReader reader(uri.toLocalFile());
        reader.setAutoTransform(false);
        desktop = reader.read().convertToFormat(QImage::Format_RGBA8888_Premultiplied);
        const QString why = reader.errorString();
        reader.setFileName(QString());
        QFile::remove(uri.toLocalFile()); // the desktop's copy; ours is in memory
        if (desktop.isNull() && attempt == 2) {
            throw Error(QStringLiteral("The desktop's screenshot “%1” cannot be read: %2")
                            .arg(uri.toLocalFile(), why));
        }
        if (desktop.isNull()) {
            qCWarning(lcCapture, "The desktop's screenshot %s cannot be read (%s): asking again",
                      qUtf8Printable(uri.toLocalFile()), qUtf8Printable(why));
        }
    }
    // The picture is the whole desktop, at the largest scale of its screens.
    QList<DesktopScreen> known = listed;
    if (known.isEmpty()) {
        known.append({QStringLiteral("desktop"), desktop.rect(), 1});
    }
    QRect bounds;
    for (const DesktopScreen& screen : std::as_const(known)) {
        bounds |= screen.geometry;
    }
    const double scale = double(desktop.width()) / bounds.width();
    QList<DisplayCapture> captures;
    for (const DesktopScreen& screen : std::as_const(known)) {
        const quint32 id = displayID(screen.name);
        if (display && *display != id) {
            continue;
        }
        const QRectF area(QPointF(screen.geometry.topLeft() - bounds.topLeft()) * scale,
                          QSizeF(screen.geometry.size()) * scale);
        QImage image = desktop.copy(area.toRect());
        const QSize pixels = pixelSize(screen);
        if (image.size() != pixels) {
            // A screen of a smaller scale was drawn larger: back to its own
            // pixels, one in every (scale ÷ its scale).
            image = image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        }
        const QRect pixelRect(pixelOrigin(known, screen), pixels);
        captures.append({id, image,
                         ScreenSpace{id, QRectF(screen.geometry), QRectF(pixelRect), screen.scale}});
    }
    qCInfo(lcCapture, "Screenshot portal: %lld screens in %lld ms",
           static_cast<long long>(captures.size()), static_cast<long long>(clock.elapsed()));
    if (captures.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("there is no display %1").arg(display.value_or(0)));
    }
    return captures;
}

std::optional<QList<DisplayCapture>>
PortalScreenCapturer::keptDisplays(const QList<DesktopScreen>& known, std::optional<quint32> display)
{
    if (m_kept.isEmpty() || known.isEmpty() || known != m_keptFor) {
        m_kept.clear(); // the screens changed: the casts are made again
        return std::nullopt;
    }
    QList<DisplayCapture> captures;
    try {
        for (const KeptStream& kept : std::as_const(m_kept)) {
            const quint32 id = displayID(kept.screen.name);
            if (display && *display != id) {
                continue;
            }
            // The newest picture is the screen as it is: a cast sends one
            // whenever something is drawn.
            const auto frame = kept.frames->next(kept.stream, 0, std::chrono::milliseconds(0));
            if (!frame) {
                m_kept.clear();
                return std::nullopt;
            }
            const double scale = double(frame->image.width()) / kept.screen.geometry.width();
            const QRect pixels(pixelOrigin(known, kept.screen), frame->image.size());
            captures.append({id, xPixelsToRgba(frame->image, false),
                             ScreenSpace{id, QRectF(kept.screen.geometry), QRectF(pixels), scale}});
        }
    } catch (const Error& error) {
        qCInfo(lcCapture, "A kept screen cast ended: %s", qPrintable(error.message()));
        m_kept.clear();
        return std::nullopt;
    }
    if (captures.isEmpty() || (!display && captures.size() != known.size())) {
        return std::nullopt; // a screen the kept casts do not show: asked for anew
    }
    return captures;
}

QList<DisplayCapture> PortalScreenCapturer::castDisplays(const QList<DesktopScreen>& known,
                                                         std::optional<quint32> display)
{
    QElapsedTimer clock;
    clock.start();
    if (std::optional<QList<DisplayCapture>> kept = keptDisplays(known, display)) {
        qCInfo(lcCapture, "Kept screen casts: %lld screens in %lld ms",
               static_cast<long long>(kept->size()), static_cast<long long>(clock.elapsed()));
        return *kept;
    }
    QList<PortalGrant> grants = loadPortalGrants();
    QList<Taken> taken;

    // One session: its pictures, and its grant renewed (or made).
    const auto take = [&](int grant) {
        auto cast = std::make_shared<PortalScreenCast>(PortalScreenCast::Options{
            true, PortalScreenCast::Cursor::hidden, grant >= 0 ? grants[grant].token : QString()});
        auto frames = std::make_shared<PipeWireFrames>(cast->openPipeWireRemote());
        QList<int> streams;
        for (const PortalStream& stream : cast->streams()) {
            streams.append(frames->connect(stream.node));
        }
        const QStringList before = grant >= 0 ? grants[grant].screens : QStringList();
        for (qsizetype i = 0; i < streams.size(); ++i) {
            auto frame = frames->next(streams[i], 0, firstPictureTimeout);
            if (!frame) {
                throw Error(QStringLiteral("The screen cast sent no picture within %1 s.")
                                .arg(firstPictureTimeout.count()));
            }
            if (grant < 0) {
                frame = settledPicture(*frames, streams[i], std::move(*frame));
            }
            const PortalStream& stream = cast->streams()[i];
            taken.append({{stream.position, stream.size, frame->image.size(), before.value(i)},
                          frame->image,
                          grant >= 0 ? grant : int(grants.size()),
                          cast,
                          frames,
                          streams[i]});
        }
        if (grant < 0) {
            grants.append({cast->restoreToken(), {}});
        } else {
            grants[grant].token = cast->restoreToken();
        }
    };

    for (int i = 0; i < grants.size(); ++i) {
        try {
            take(i);
        } catch (const CaptureError& error) {
            // Taken back by the user, or forgotten by the desktop.
            qCInfo(lcCapture, "A kept screen-cast grant no longer works: %s",
                   qPrintable(error.detail()));
            grants[i].token.clear();
        }
    }
    const auto pictures = [&] {
        QList<PortalStreamPicture> list;
        for (const Taken& t : std::as_const(taken)) {
            list.append(t.picture);
        }
        return list;
    };
    QList<int> match = matchPortalStreams(known, pictures());
    // Screens no grant shows are asked for, once each at most.
    for (qsizetype asked = 0, missing = known.size() - std::count_if(match.begin(), match.end(), [](int m) { return m >= 0; });
         (missing > 0 || taken.isEmpty()) && asked < std::max<qsizetype>(known.size(), 1); ++asked) {
        try {
            take(-1);
        } catch (const CaptureError& error) {
            if (taken.isEmpty()) {
                throw;
            }
            qCInfo(lcCapture, "A screen was not granted: %s", qPrintable(error.detail()));
            break;
        }
        match = matchPortalStreams(known, pictures());
        const qsizetype nowMissing = known.size() - std::count_if(match.begin(), match.end(), [](int m) { return m >= 0; });
        if (nowMissing == missing) {
            break; // the user granted a screen again: asking more would not help
        }
        missing = nowMissing;
    }

    // The grants as they are now, with the screens they showed.
    for (PortalGrant& grant : grants) {
        grant.screens.clear();
    }
    for (qsizetype i = 0; i < taken.size(); ++i) {
        if (taken[i].grant < grants.size()) {
            grants[taken[i].grant].screens.append(match[i] >= 0 ? known[match[i]].name : QString());
        }
    }
    grants.removeIf([](const PortalGrant& grant) { return grant.token.isEmpty(); });
    savePortalGrants(grants);

    if (m_keep) {
        m_kept.clear();
        for (qsizetype i = 0; i < taken.size(); ++i) {
            if (match[i] >= 0) {
                m_kept.append({taken[i].cast, taken[i].frames, taken[i].stream, known[match[i]]});
            }
        }
        m_keptFor = known;
    }
    for (qsizetype i = 0; i < taken.size(); ++i) {
        if (match[i] >= 0) {
            m_measured.insert(known[match[i]].name, taken[i].image.size());
        }
    }
    if (m_keep) {
        m_keptFor = screens(); // as later lookups see them, measured scales included
    }
    QList<DisplayCapture> captures;
    QList<DesktopScreen> seen;
    int unknown = 0;
    for (qsizetype i = 0; i < taken.size(); ++i) {
        DesktopScreen screen;
        if (match[i] >= 0) {
            screen = known[match[i]];
        } else if (known.isEmpty()) {
            // No screen list: the streams are the screens, side by side.
            const QSize points = taken[i].picture.size.value_or(taken[i].image.size());
            const QPoint at = taken[i].picture.position.value_or(QPoint(unknown, 0));
            unknown = std::max(unknown, at.x() + points.width());
            screen = {QStringLiteral("stream %1").arg(i + 1), QRect(at, points),
                      double(taken[i].image.width()) / points.width()};
        } else {
            qCInfo(lcCapture, "A screen-cast stream of %d×%d matches no screen",
                   taken[i].image.width(), taken[i].image.height());
            continue;
        }
        seen.append(screen);
        const quint32 id = displayID(screen.name);
        if (display && *display != id) {
            continue;
        }
        const double scale = double(taken[i].image.width()) / screen.geometry.width();
        const QRect pixels(pixelOrigin(known, screen), taken[i].image.size());
        captures.append({id, xPixelsToRgba(taken[i].image, false),
                         ScreenSpace{id, QRectF(screen.geometry), QRectF(pixels), scale}});
    }
    if (known.isEmpty()) {
        m_seen = seen;
    }
    qCInfo(lcCapture, "Screen cast: %lld screens in %lld ms", static_cast<long long>(captures.size()),
           static_cast<long long>(clock.elapsed()));
    if (captures.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           display ? QStringLiteral("display %1 was not granted").arg(*display)
                                   : QStringLiteral("the desktop granted no screen"));
    }
    return captures;
}

PortalScreenCapturer::DisplayCast PortalScreenCapturer::castDisplay(quint32 display,
                                                                     PortalScreenCast::Cursor cursor,
                                                                     int framesPerSecond)
{
    const std::lock_guard lock(m_lock);
    const QList<DesktopScreen> known = screens();
    const auto screen = std::find_if(known.begin(), known.end(), [&](const DesktopScreen& s) {
        return displayID(s.name) == display;
    });
    if (!known.isEmpty() && screen == known.end()) {
        throw CaptureError(CaptureError::Code::noContent,
                           QStringLiteral("there is no display %1").arg(display));
    }
    QList<PortalGrant> grants = loadPortalGrants();
    const auto keep = [](QList<PortalGrant> list) {
        list.removeIf([](const PortalGrant& g) { return g.token.isEmpty(); });
        savePortalGrants(list);
    };
    // The grants that showed this screen last, then a new one.
    QList<int> candidates;
    for (int i = 0; i < grants.size(); ++i) {
        if (screen != known.end() && grants[i].screens.contains(screen->name)) {
            candidates.append(i);
        }
    }
    candidates.append(-1);
    for (const int grant : std::as_const(candidates)) {
        DisplayCast result;
        QList<PortalStreamPicture> pictures;
        try {
            result.cast = std::make_shared<PortalScreenCast>(PortalScreenCast::Options{
                true, cursor, grant >= 0 ? grants[grant].token : QString()});
            result.frames = std::make_shared<PipeWireFrames>(result.cast->openPipeWireRemote());
            const QStringList before = grant >= 0 ? grants[grant].screens : QStringList();
            for (qsizetype i = 0; i < result.cast->streams().size(); ++i) {
                const PortalStream& stream = result.cast->streams()[i];
                const int index = result.frames->connect(stream.node, framesPerSecond);
                auto frame = result.frames->next(index, 0, firstPictureTimeout);
                if (!frame) {
                    throw Error(QStringLiteral("The screen cast sent no picture within %1 s.")
                                    .arg(firstPictureTimeout.count()));
                }
                if (grant < 0) {
                    frame = settledPicture(*result.frames, index, std::move(*frame));
                }
                pictures.append({stream.position, stream.size, frame->image.size(), before.value(i)});
            }
        } catch (const CaptureError& error) {
            qCInfo(lcCapture, "A screen-cast grant does not show display %u: %s", display,
                   qPrintable(error.detail()));
            if (grant >= 0) {
                grants[grant].token.clear();
            }
            continue;
        }
        const QList<int> match = matchPortalStreams(known, pictures);
        QStringList shown;
        for (qsizetype i = 0; i < match.size(); ++i) {
            shown.append(match[i] >= 0 ? known[match[i]].name : QString());
            if (match[i] >= 0) {
                m_measured.insert(known[match[i]].name, pictures[i].pixels);
            }
            if (result.stream < 0 &&
                (known.isEmpty() || (match[i] >= 0 && known[match[i]].name == screen->name))) {
                result.stream = int(i);
            }
        }
        if (grant >= 0) {
            grants[grant] = {result.cast->restoreToken(), shown};
        } else {
            grants.append({result.cast->restoreToken(), shown});
        }
        if (result.stream >= 0) {
            keep(grants);
            return result;
        }
    }
    keep(grants);
    throw CaptureError(CaptureError::Code::noContent,
                       QStringLiteral("display %1 was not granted").arg(display));
}

QImage PortalScreenCapturer::captureRegion(quint32 display, const ScreenCaptureRegion& region)
{
    const QList<DisplayCapture> captures = captureDisplays(display);
    return captures.constFirst().image.copy(region.pixelRect);
}

} // namespace nubo
