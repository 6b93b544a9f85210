#include "shell/ShotBusService.h"

#include "capture/CapturePlatform.h"
#include "shell/GrabRequest.h"
#include "shell/ShotFeature.h"

#include <QDBusConnection>
#include <QThreadPool>

namespace nubo {

ShotBusService::ShotBusService(std::shared_ptr<CapturePlatform> platform, ShotFeature& feature,
                               QObject* parent)
    : QObject(parent), m_platform(std::move(platform)), m_feature(feature)
{}

void ShotBusService::CaptureShot(const QString& mode, const QDBusMessage& message)
{
    const auto parsed = fromString<CaptureMode>(mode);
    if (!parsed) {
        QDBusConnection::sessionBus().send(message.createErrorReply(
            QLatin1String(GrabOverBus::errorName),
            QStringLiteral("\u201c%1\u201d is not a capture mode: area, window, fullscreen or scrolling.")
                .arg(mode)));
        message.setDelayedReply(true);
        return;
    }
    // Answer at once; the capture runs its course (and reports) in the app.
    QMetaObject::invokeMethod(
        this, [this, mode = *parsed] { m_feature.capture(mode); }, Qt::QueuedConnection);
}

void ShotBusService::OpenImage(const QStringList& files, const QDBusMessage& message)
{
    // Answered once the files have been read, off the bus's thread of calls.
    message.setDelayedReply(true);
    m_feature.openFiles(files, [message](const QStringList& failures) {
        QDBusConnection::sessionBus().send(
            failures.isEmpty() ? message.createReply()
                               : message.createErrorReply(QLatin1String(GrabOverBus::errorName),
                                                          failures.join(QLatin1Char('\n'))));
    });
}

void ShotBusService::Annotate(const QStringList& files, const QDBusMessage& message)
{
    OpenImage(files, message);
}

QString ShotBusService::Grab(int mode, qlonglong display, qlonglong window,
                             const QVariantList& region, const QString& output, double quality,
                             const QString& xDisplay, const QDBusMessage& message)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (xDisplay != qEnvironmentVariable("DISPLAY") || !m_platform) {
        // Another X display than ours, or none we can capture: the caller
        // captures by itself (and says why it cannot, if so).
        bus.send(message.createErrorReply(
            QStringLiteral("org.freedesktop.DBus.Error.NotSupported"),
            m_platform ? QStringLiteral("This instance shows on another display.")
                       : QStringLiteral("This instance cannot capture this desktop.")));
        message.setDelayedReply(true);
        return {};
    }
    message.setDelayedReply(true);
    GrabRequest request;
    try {
        request =
            GrabOverBus::fromArguments({mode, display, window, region, output, quality, xDisplay});
    } catch (const Error& error) {
        bus.send(message.createErrorReply(QLatin1String(GrabOverBus::errorName), error.message()));
        return {};
    }
    QThreadPool::globalInstance()->start([request, message, bus,
                                          capturer = m_platform->capturer()]() mutable {
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
