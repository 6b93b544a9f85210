#include "capture/portal/PortalRequest.h"

#include "capture/CaptureTypes.h"
#include "capture/portal/PortalResponse_p.h"
#include "core/Logging.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QRandomGenerator>
#include <QTimer>

namespace nubo::portal {

namespace {

QDBusConnection bus()
{
    return QDBusConnection::sessionBus();
}

QString busError(const QDBusMessage& reply)
{
    return reply.errorMessage().isEmpty() ? reply.errorName() : reply.errorMessage();
}

} // namespace

QVariant property(const QString& interface, const QString& name)
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        QLatin1String(service), QLatin1String(objectPath),
        QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    message << interface << name;
    const QDBusMessage reply = bus().call(message, QDBus::Block, 5000);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return {};
    }
    return reply.arguments().constFirst().value<QDBusVariant>().variant();
}

uint interfaceVersion(const QString& interface)
{
    if (!bus().isConnected()) {
        return 0;
    }
    return property(interface, QStringLiteral("version")).toUInt();
}

QString newToken()
{
    return QStringLiteral("nubo%1").arg(QRandomGenerator::global()->generate64(), 16, 16,
                                        QLatin1Char('0'));
}

QVariant call(const QString& path, const QString& interface, const QString& method,
              const QVariantList& arguments)
{
    QDBusMessage message =
        QDBusMessage::createMethodCall(QLatin1String(service), path, interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = bus().call(message, QDBus::Block, 10000);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        throw Error(QStringLiteral("The desktop portal refused %1: %2").arg(method, busError(reply)));
    }
    return reply.arguments().isEmpty() ? QVariant() : reply.arguments().constFirst();
}

QVariantMap request(const QString& interface, const QString& method, QVariantList arguments,
                    QVariantMap options, std::chrono::milliseconds timeout)
{
    QDBusConnection connection = bus();
    if (!connection.isConnected()) {
        throw Error(QCoreApplication::translate(
            "nubo::PortalRequest", "There is no session bus to reach the desktop portal."));
    }
    // The answer comes on a Request object whose path follows from our bus
    // name and the token: listen there before asking, so that a fast answer
    // is not missed.
    const QString token = newToken();
    options.insert(QStringLiteral("handle_token"), token);
    QString sender = connection.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    const QString path =
        QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);

    QEventLoop loop;
    PortalResponse response(loop);
    const QString requestInterface = QStringLiteral("org.freedesktop.portal.Request");
    if (!connection.connect(QLatin1String(service), path, requestInterface,
                            QStringLiteral("Response"), &response,
                            SLOT(respond(uint, QVariantMap)))) {
        throw Error(QStringLiteral("The desktop portal's answer cannot be received: %1")
                        .arg(connection.lastError().message()));
    }
    arguments.append(options);
    QDBusMessage message = QDBusMessage::createMethodCall(
        QLatin1String(service), QLatin1String(objectPath), interface, method);
    message.setArguments(arguments);
    const QDBusMessage reply = connection.call(message, QDBus::Block, 10000);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        connection.disconnect(QLatin1String(service), path, requestInterface,
                              QStringLiteral("Response"), &response,
                              SLOT(respond(uint, QVariantMap)));
        throw Error(QStringLiteral("The desktop portal refused %1: %2").arg(method, busError(reply)));
    }
    if (!response.code) {
        QTimer::singleShot(timeout, &loop, &QEventLoop::quit);
        loop.exec();
    }
    connection.disconnect(QLatin1String(service), path, requestInterface,
                          QStringLiteral("Response"), &response, SLOT(respond(uint, QVariantMap)));
    if (!response.code) {
        // Withdrawn, so that a dialog does not stay behind for nothing.
        connection.call(QDBusMessage::createMethodCall(QLatin1String(service), path,
                                                       requestInterface, QStringLiteral("Close")),
                        QDBus::NoBlock);
        throw Error(QCoreApplication::translate("nubo::PortalRequest",
                                                "The desktop portal did not answer %1 within %2 s.")
                        .arg(method)
                        .arg(timeout.count() / 1000.0));
    }
    qCDebug(lcCapture, "Portal %s: response %u", qPrintable(method), *response.code);
    switch (*response.code) {
    case 0:
        return response.results;
    case 1:
        throw CaptureError(CaptureError::Code::cancelled, QStringLiteral("the request was declined"));
    default:
        throw CaptureError(CaptureError::Code::permissionDenied,
                           QStringLiteral("the desktop portal ended the %1 request").arg(method));
    }
}

} // namespace nubo::portal
