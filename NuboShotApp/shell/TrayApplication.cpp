#include "shell/TrayApplication.h"

#include "capture/CapturePlatform.h"
#include "core/Logging.h"
#include "core/Settings.h"
#include "editor/ShotEditorWindow.h"
#include "export/ShotQuickSave.h"
#include "render/ShotRenderer.h"
#include "shell/GrabRequest.h"
#include "shell/ShotBusService.h"
#include "shell/ShotFeature.h"
#include "shell/ShotGlobalShortcuts.h"
#include "output/ShotClipboard.h"
#include "output/ShotNotifications.h"
#include "recording/RecordingRecovery.h"
#include "recents/ShotRecentStore.h"
#include "shell/ShotStatusMenu.h"
#include "settings/ShotSettingsWindow.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFileDialog>
#include <QFutureWatcher>
#include <QtConcurrent>
#include <QCursor>
#include <QScreen>
#include <QUrl>

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
    m_tray.setIcon(QIcon(QStringLiteral(":/icons/nuboshot.svg")));
    m_tray.setToolTip(QStringLiteral("Nubo Shot"));
}

void TrayApplication::openImage()
{
    const QString file = QFileDialog::getOpenFileName(
        nullptr, QStringLiteral("Open Image in Nubo Shot"), QString(),
        QStringLiteral("Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)"));
    if (file.isEmpty()) {
        return;
    }
    m_feature->openFiles({file}, [this](const QStringList& failures) {
        if (!failures.isEmpty()) {
            m_feature->presentAlert(QStringLiteral("Could Not Open Image"),
                                    failures.join(QLatin1Char('\n')));
        }
    });
}

void TrayApplication::showSettings()
{
    // One window: a second "Settings…" brings it forward.
    if (!m_settings) {
        m_settings = std::make_unique<ShotSettingsWindow>(ShotSettingsContext{
            *m_preferences, m_shortcuts.get(), QCoreApplication::applicationFilePath(),
            [this](const QString&) {
                m_preferences->sync();
                m_recents->applyPreference();
            }});
    }
    m_settings->present();
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

    // The screens' densities as they are now, for captures on worker threads.
    QList<std::pair<QRect, double>> densities;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const double ratio = screen->devicePixelRatio();
        const QRect logical = screen->geometry();
        densities.append({QRect(logical.topLeft() * ratio, logical.size() * ratio), ratio});
    }
    QString platformProblem;
    try {
        m_platform = CapturePlatformLoader::load(
            CapturePlatformEnvironment::fromProcess(), [densities](const QRect& pixels) {
                for (const auto& [geometry, ratio] : densities) {
                    if (geometry.contains(pixels.center())) {
                        return ratio;
                    }
                }
                return 1.0;
            });
        qCInfo(lcApp) << "Capture backend:" << m_platform->name();
        // Windows' own pixels are kept from now on: exact window captures,
        // and our own windows can be painted away from captures.
        m_platform->capturer()->prepareWindowPixels();
    } catch (const Error& error) {
        // The editor and everything else still work; captures say why not.
        platformProblem = error.message();
        qCWarning(lcApp) << "Screen capture is not available:" << error.message();
    }
    // Drag and share files from earlier sessions that nobody reads any more.
    ShotQuickSave::sweepTemporaryExports(QDateTime::currentDateTime().addSecs(-3600));
    m_preferences = std::make_unique<ShotPreferences>();
    m_recents = std::make_unique<ShotRecentStore>(*m_preferences, ShotClipboard::shared(),
                                                  ShotRenderer::shared());
    m_recents->sourceApp = [platform = m_platform]() -> std::optional<QString> {
        return platform ? platform->clipboardOwner() : std::nullopt;
    };
    m_feature = std::make_unique<ShotFeature>(m_platform, platformProblem, *m_preferences,
                                              ShotRenderer::shared());
    m_feature->setRecents(m_recents.get());
    m_menu = std::make_unique<ShotStatusMenu>(
        ShotStatusMenu::Actions{[this](CaptureMode mode) { m_feature->capture(mode); },
                                [this] { openImage(); }, [this] { showSettings(); },
                                [this] {
                                    // Each editor asks about its unsaved changes
                                    // first; one that stays open keeps us running.
                                    for (ShotEditorWindow* editor : m_feature->editors()) {
                                        if (!editor->close()) {
                                            return;
                                        }
                                    }
                                    QCoreApplication::quit();
                                },
                                [this](CaptureMode mode) { return m_feature->isOffered(mode); },
                                [this] { return m_recents->isEnabled(); },
                                [this] { return m_recents->entries(); },
                                [this](const QUuid& id) { m_feature->openRecent(id); },
                                [this] { m_recents->clear(); }});
    connect(m_recents.get(), &ShotRecentStore::changed, m_menu.get(),
            &ShotStatusMenu::refreshRecent);
    m_recents->applyPreference();
    m_tray.setContextMenu(&m_menu->menu());
    std::unique_ptr<GlobalShortcuts> keys;
    try {
        keys = m_platform ? m_platform->makeGlobalShortcuts() : nullptr;
    } catch (const Error& error) {
        qCWarning(lcApp) << "Global shortcuts are not available:" << error.message();
    }
    m_shortcuts = std::make_unique<ShotGlobalShortcuts>(
        std::move(keys), *m_preferences, [this](CaptureMode mode) { m_feature->capture(mode); });
    // The menu shows the keys in effect, also after they change in the settings.
    m_shortcuts->changed = [this] {
        for (const CaptureMode mode : allCases<CaptureMode>()) {
            m_menu->setCaptureShortcut(mode, m_shortcuts->shortcut(mode));
        }
        m_preferences->sync();
    };
    m_shortcuts->changed();
    // A left click opens the same menu as a right click: every capture is
    // one more click away, and nothing starts by accident.
    connect(&m_tray, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    m_menu->menu().popup(QCursor::pos());
                }
            });
    if (!m_shortcuts->problems().isEmpty()) {
        // Told once, in the tray's own bubble; the rest of the program works as before.
        m_tray.showMessage(QStringLiteral("Nubo Shot"),
                           m_shortcuts->problems().join(QLatin1Char('\n')),
                           QSystemTrayIcon::Warning, 8000);
    }
    m_service = std::make_unique<ShotBusService>(m_platform, *m_feature);
    if (bus.isConnected() && !bus.registerObject(QLatin1String(GrabOverBus::path), m_service.get(),
                                                 QDBusConnection::ExportAllSlots |
                                                     QDBusConnection::ExportAllSignals)) {
        qCWarning(lcApp) << "Could not offer the capture service on the session bus";
    }

    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        qCWarning(lcApp) << "No system tray yet; the icon appears when one starts";
    }
    m_tray.show();
    qCInfo(lcApp) << "Nubo Shot started";
    // Recordings a crash or a power cut interrupted are finished now.
    auto* recovery = new QFutureWatcher<QStringList>(this);
    connect(recovery, &QFutureWatcherBase::finished, this, [recovery] {
        recovery->deleteLater();
        for (const QString& movie : recovery->result()) {
            ShotNotifications::shared().notifyFile(
                QStringLiteral("Recovered an interrupted recording"), movie);
        }
    });
    recovery->setFuture(QtConcurrent::run(&RecordingRecovery::recoverInterrupted));
    return Start::started;
}

} // namespace nubo
