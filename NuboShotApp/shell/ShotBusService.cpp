#include "shell/ShotBusService.h"

#include "capture/xcb/XcbScreenCapturer.h"
#include "shell/GrabRequest.h"

#include <QDBusConnection>
#include <QThreadPool>

namespace nubo {

ShotBusService::ShotBusService(std::shared_ptr<XcbScreenCapturer> capturer, QObject* parent)
    : QObject(parent), m_capturer(std::move(capturer))
{}

QString ShotBusService::Grab(int mode, qlonglong display, qlonglong window,
                             const QVariantList& region, const QString& output, double quality,
                             const QString& xDisplay, const QDBusMessage& message)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (xDisplay != qEnvironmentVariable("DISPLAY")) {
        // Another X display than ours: the caller captures it itself.
        bus.send(
            message.createErrorReply(QStringLiteral("org.freedesktop.DBus.Error.NotSupported"),
                                     QStringLiteral("This instance shows on another display.")));
        message.setDelayedReply(true);
        return {};
    }
    message.setDelayedReply(true);
    const GrabRequest request =
        GrabOverBus::fromArguments({mode, display, window, region, output, quality, xDisplay});
    QThreadPool::globalInstance()->start([request, message, bus, capturer = m_capturer]() mutable {
        QDBusMessage reply;
        try {
            reply = message.createReply(request.perform(*capturer));
        } catch (const Error& error) {
            reply =
                message.createErrorReply(QLatin1String(GrabOverBus::errorName), error.message());
        }
        bus.send(reply);
    });
    return {};
}

} // namespace nubo
