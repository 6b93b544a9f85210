#include "output/ShotShare.h"

#include "core/Logging.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
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

QString ShotShare::openWith(const QString& file, const QWidget* window)
{
    const int fd = ::open(QFile::encodeName(file).constData(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return QStringLiteral("The shot could not be prepared for sharing.");
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
    const QDBusMessage reply = QDBusConnection::sessionBus().call(call, QDBus::Block, 10000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        qCWarning(lcApp, "Share failed: %s", qPrintable(reply.errorMessage()));
        return QStringLiteral("No application could be offered to open the shot.");
    }
    qCInfo(lcApp, "Share chooser opened");
    return {};
}

} // namespace nubo
