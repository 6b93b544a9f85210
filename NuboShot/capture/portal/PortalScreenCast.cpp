#include "capture/portal/PortalScreenCast.h"

#include "capture/CaptureTypes.h"
#include "capture/portal/PortalRequest.h"
#include "core/Error.h"
#include "core/Logging.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>

#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace nubo {

namespace {

const QString screenCast = QStringLiteral("org.freedesktop.portal.ScreenCast");
// The user may take a while over the desktop's dialog.
constexpr std::chrono::minutes grantTimeout{5};
constexpr std::chrono::seconds stepTimeout{20};

QList<PortalStream> readStreams(const QVariant& value)
{
    // a(ua{sv})
    QList<PortalStream> streams;
    const QDBusArgument argument = value.value<QDBusArgument>();
    argument.beginArray();
    while (!argument.atEnd()) {
        PortalStream stream;
        QVariantMap properties;
        argument.beginStructure();
        argument >> stream.node >> properties;
        argument.endStructure();
        const auto pair = [&](const char* key) -> std::optional<QPoint> {
            const QVariant v = properties.value(QLatin1String(key));
            if (!v.isValid()) {
                return std::nullopt;
            }
            const QDBusArgument ii = v.value<QDBusArgument>();
            int a = 0, b = 0;
            ii.beginStructure();
            ii >> a >> b;
            ii.endStructure();
            return QPoint(a, b);
        };
        stream.position = pair("position");
        if (const auto size = pair("size"); size && size->x() > 0 && size->y() > 0) {
            stream.size = QSize(size->x(), size->y());
        }
        streams.append(stream);
    }
    argument.endArray();
    return streams;
}

} // namespace

uint PortalScreenCast::cursorModes()
{
    return portal::property(screenCast, QStringLiteral("AvailableCursorModes")).toUInt();
}

bool PortalScreenCast::castsWindows()
{
    return (portal::property(screenCast, QStringLiteral("AvailableSourceTypes")).toUInt() &
            uint(Source::window)) != 0;
}

PortalScreenCast::PortalScreenCast(const Options& options)
{
    const uint version = portal::interfaceVersion(screenCast);
    if (version == 0) {
        throw Error(QCoreApplication::translate("nubo::PortalScreenCast",
                                                "The desktop portal offers no screen casting "
                                                "(org.freedesktop.portal.ScreenCast)."));
    }
    const QVariantMap created = portal::request(
        screenCast, QStringLiteral("CreateSession"), {},
        {{QStringLiteral("session_handle_token"), portal::newToken()}}, stepTimeout);
    m_session = created.value(QStringLiteral("session_handle")).toString();
    if (m_session.isEmpty()) {
        throw Error(QCoreApplication::translate("nubo::PortalScreenCast",
                                                "The desktop portal made no screen-cast session."));
    }
    QVariantMap select{{QStringLiteral("types"), uint(options.source)},
                       {QStringLiteral("multiple"), options.multiple}};
    const uint cursors = cursorModes();
    uint cursor = uint(options.cursor);
    if (!(cursors & cursor)) {
        cursor = (cursors & uint(Cursor::hidden)) ? uint(Cursor::hidden) : 0;
    }
    if (cursor != 0 && version >= 2) {
        select.insert(QStringLiteral("cursor_mode"), cursor);
    }
    if (version >= 4 && options.source == Source::monitor) {
        // Kept until the user takes it back: later sessions ask nobody.
        select.insert(QStringLiteral("persist_mode"), 2u);
        if (!options.restoreToken.isEmpty()) {
            select.insert(QStringLiteral("restore_token"), options.restoreToken);
        }
    }
    const QDBusObjectPath session(m_session);
    portal::request(screenCast, QStringLiteral("SelectSources"), {QVariant::fromValue(session)},
                    select, stepTimeout);
    const QVariantMap started = portal::request(
        screenCast, QStringLiteral("Start"), {QVariant::fromValue(session), QString()}, {},
        grantTimeout);
    m_streams = readStreams(started.value(QStringLiteral("streams")));
    m_restoreToken = started.value(QStringLiteral("restore_token")).toString();
    if (m_streams.isEmpty()) {
        throw CaptureError(CaptureError::Code::noContent,
                           options.source == Source::window
                               ? QStringLiteral("the desktop granted no window")
                               : QStringLiteral("the desktop granted no screen"));
    }
    for (const PortalStream& s : std::as_const(m_streams)) {
        qCInfo(lcCapture, "Screen-cast stream %u at %s, %s", s.node,
               s.position ? qPrintable(QStringLiteral("%1,%2").arg(s.position->x()).arg(s.position->y()))
                          : "(no position)",
               s.size ? qPrintable(QStringLiteral("%1×%2").arg(s.size->width()).arg(s.size->height()))
                      : "(no size)");
    }
}

PortalScreenCast::~PortalScreenCast()
{
    if (!m_session.isEmpty()) {
        try {
            portal::call(m_session, QStringLiteral("org.freedesktop.portal.Session"),
                         QStringLiteral("Close"), {});
        } catch (const Error& error) {
            qCInfo(lcCapture, "The screen-cast session did not close: %s", qPrintable(error.message()));
        }
    }
}

int PortalScreenCast::openPipeWireRemote()
{
    const QVariant fd = portal::call(QLatin1String(portal::objectPath), screenCast,
                                     QStringLiteral("OpenPipeWireRemote"),
                                     {QVariant::fromValue(QDBusObjectPath(m_session)), QVariantMap()});
    const auto descriptor = fd.value<QDBusUnixFileDescriptor>();
    if (!descriptor.isValid()) {
        throw Error(QCoreApplication::translate("nubo::PortalScreenCast",
                                                "The desktop portal gave no PipeWire connection."));
    }
    // The descriptor object closes its own copy.
    const int own = fcntl(descriptor.fileDescriptor(), F_DUPFD_CLOEXEC, 3);
    if (own < 0) {
        throw Error(QStringLiteral("The PipeWire connection cannot be kept: %1")
                        .arg(QString::fromLocal8Bit(strerror(errno))));
    }
    return own;
}

} // namespace nubo
