#include "output/ShotShare.h"

#include "core/Logging.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QCoreApplication>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusUnixFileDescriptor>
#include <QFile>
#include <QVariantMap>
#include <QWidget>

#include <fcntl.h>
#include <unistd.h>

namespace nubo {

namespace {
constexpr char portal[] = "org.freedesktop.portal.Desktop";
} // namespace

bool ShotShare::isAvailable()
{
    QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    if (!bus) {
        return false;
    }
    if (bus->isServiceRegistered(QLatin1String(portal))) {
        return true;
    }
    return bus->activatableServiceNames().value().contains(QLatin1String(portal));
}

void ShotShare::openWith(const QString& file, const QWidget* window,
                         std::function<void(const QString& error)> done)
{
    const int fd = ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        done(QCoreApplication::translate("nubo::ShotShare",
                                         "The shot could not be prepared for sharing."));
        return;
    }
    QDBusMessage call = QDBusMessage::createMethodCall(
        QLatin1String(portal), QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"), QStringLiteral("OpenFile"));
    const QString parent =
        window ? QStringLiteral("x11:%1").arg(window->window()->winId(), 0, 16) : QString();
    QVariantMap options;
    options.insert(QStringLiteral("ask"), true);
    call << parent << QVariant::fromValue(QDBusUnixFileDescriptor(fd)) << options;
    ::close(fd); // the message holds its own copy
    auto* watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, 10000), QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, done = std::move(done)] {
                         watcher->deleteLater();
                         if (watcher->isError()) {
                             qCWarning(lcApp, "Share failed: %s",
                                       qPrintable(watcher->error().message()));
                             done(QCoreApplication::translate("nubo::ShotShare", "No application could be offered to open the shot."));
                             return;
                         }
                         qCInfo(lcApp, "Share chooser opened");
                         done({});
                     });
}

} // namespace nubo
