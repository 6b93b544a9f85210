#include "shell/TrayApplication.h"

#include "core/Logging.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>

// The icon lives in the application library's resources, which a static
// library has to register by hand.
static void initResources()
{
    Q_INIT_RESOURCE(packaging);
}

namespace nubo {

TrayApplication::TrayApplication(QObject* parent) : QObject(parent)
{
    initResources();
    m_menu.addAction(tr("Quit Nubo Shot"), qApp, &QCoreApplication::quit);
    m_tray.setIcon(QIcon(QStringLiteral(":/icons/nuboshot.svg")));
    m_tray.setToolTip(QStringLiteral("Nubo Shot"));
    m_tray.setContextMenu(&m_menu);
}

TrayApplication::~TrayApplication() = default;

TrayApplication::Start TrayApplication::start()
{
    Q_ASSERT(thread() == QCoreApplication::instance()->thread());
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected()) {
        const auto reply = bus.interface()->registerService(
            QLatin1String(busName), QDBusConnectionInterface::DontQueueService,
            QDBusConnectionInterface::DontAllowReplacement);
        if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceNotRegistered) {
            return Start::alreadyRunning;
        }
        if (!reply.isValid()) {
            qCWarning(lcApp) << "Could not claim" << busName
                             << "on the session bus:" << reply.error().message();
        }
    } else {
        qCWarning(lcApp) << "No session bus; a second instance will not be noticed:"
                         << bus.lastError().message();
    }

    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        qCWarning(lcApp) << "No system tray yet; the icon appears when one starts";
    }
    m_tray.show();
    qCInfo(lcApp) << "Nubo Shot started";
    return Start::started;
}

} // namespace nubo
