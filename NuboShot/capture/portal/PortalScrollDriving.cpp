#include "capture/portal/PortalScrollDriving.h"

#include "capture/portal/PortalRequest.h"
#include "capture/CaptureTypes.h"
#include "core/Logging.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace nubo {

namespace {

const QString remoteDesktop = QStringLiteral("org.freedesktop.portal.RemoteDesktop");
const QString screenCast = QStringLiteral("org.freedesktop.portal.ScreenCast");
constexpr std::chrono::seconds stepTimeout{20};
constexpr std::chrono::minutes grantTimeout{5}; // the user reads the desktop's dialog
constexpr uint pointer = 2;                      // device type
constexpr uint monitor = 1;                      // source type

class PortalScrollDriver final : public ScrollDriver {
public:
    PortalScrollDriver(QString session, quint32 stream, QPointF inside)
        : m_session(std::move(session))
    {
        // Parked in the middle of the region, in the stream's points.
        call(QStringLiteral("NotifyPointerMotionAbsolute"),
             {QVariant::fromValue(QDBusObjectPath(m_session)), QVariantMap(), stream, inside.x(),
              inside.y()});
    }

    ~PortalScrollDriver() override
    {
        try {
            portal::call(m_session, QStringLiteral("org.freedesktop.portal.Session"),
                         QStringLiteral("Close"), {});
        } catch (const Error& error) {
            qCInfo(lcScrolling, "The remote pointer's session did not close: %s",
                   qPrintable(error.message()));
        }
    }

    void scroll(int notches) override
    {
        call(QStringLiteral("NotifyPointerAxisDiscrete"),
             {QVariant::fromValue(QDBusObjectPath(m_session)), QVariantMap(), 0u, notches});
    }

    bool userInterrupted() override { return false; }

private:
    static void call(const QString& method, const QVariantList& arguments)
    {
        try {
            portal::call(QLatin1String(portal::objectPath), remoteDesktop, method, arguments);
        } catch (const Error& error) {
            throw CaptureError(CaptureError::Code::noContent, error.message());
        }
    }

    QString m_session;
};

} // namespace

PortalScrollDriving::PortalScrollDriving() = default;

bool PortalScrollDriving::available()
{
    return portal::interfaceVersion(remoteDesktop) > 0 &&
           (portal::property(remoteDesktop, QStringLiteral("AvailableDeviceTypes")).toUInt() &
            pointer) != 0;
}

std::unique_ptr<ScrollDriver> PortalScrollDriving::drive(quint32 display,
                                                         const ScreenCaptureRegion& region)
{
    try {
        const QVariantMap created = portal::request(
            remoteDesktop, QStringLiteral("CreateSession"), {},
            {{QStringLiteral("session_handle_token"), portal::newToken()}}, stepTimeout);
        const QString session = created.value(QStringLiteral("session_handle")).toString();
        const QVariant path = QVariant::fromValue(QDBusObjectPath(session));
        portal::request(remoteDesktop, QStringLiteral("SelectDevices"), {path},
                        {{QStringLiteral("types"), pointer}}, stepTimeout);
        // The monitor's stream is what absolute pointer places refer to.
        portal::request(screenCast, QStringLiteral("SelectSources"), {path},
                        {{QStringLiteral("types"), monitor}, {QStringLiteral("multiple"), false}},
                        stepTimeout);
        const QVariantMap started = portal::request(remoteDesktop, QStringLiteral("Start"),
                                                    {path, QString()}, {}, grantTimeout);
        if ((started.value(QStringLiteral("devices")).toUInt() & pointer) == 0) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the desktop granted no pointer"));
        }
        // a(ua{sv}): the first stream, the monitor granted.
        quint32 node = 0;
        const QDBusArgument streams = started.value(QStringLiteral("streams")).value<QDBusArgument>();
        streams.beginArray();
        while (!streams.atEnd()) {
            quint32 id = 0;
            QVariantMap properties;
            streams.beginStructure();
            streams >> id >> properties;
            streams.endStructure();
            node = node == 0 ? id : node;
        }
        streams.endArray();
        if (node == 0) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the desktop granted no screen to point on"));
        }
        // The stream's places are the monitor's points.
        const QPointF inside = region.sourceRect.center();
        qCInfo(lcScrolling, "Auto-scroll on display %u through the desktop's remote pointer, "
                            "parked at %.0f,%.0f", display, inside.x(), inside.y());
        return std::make_unique<PortalScrollDriver>(session, node, inside);
    } catch (const CaptureError&) {
        throw;
    } catch (const Error& error) {
        throw CaptureError(CaptureError::Code::noContent, error.message());
    }
}

} // namespace nubo
