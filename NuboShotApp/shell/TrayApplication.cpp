#include "shell/TrayApplication.h"

#include "capture/CapturePlatformLoader.h"
#include "capture/NullCapturePlatform.h"
#include "core/Logging.h"
#include "core/Settings.h"
#include "editor/ShotEditorWindow.h"
#include "export/ShotQuickSave.h"
#include "render/ShotRenderer.h"
#include "shell/CommandLine.h"
#include "shell/DesktopScreens.h"
#include "shell/GrabRequest.h"
#include "shell/ShotBusService.h"
#include "shell/ShotFeature.h"
#include "pin/ShotPinWindow.h"
#include "pin/ShotPins.h"
#include "shortcuts/ShotGlobalShortcuts.h"
#include "output/ShotClipboard.h"
#include "output/ShotNotifications.h"
#include "recording/RecordingEncoder.h"
#include "recording/RecordingRecovery.h"
#include "recording/ShotRecordingFlow.h"
#include "recents/ShotRecentStore.h"
#include "output/ShotUploadHistory.h"
#include "shell/ShotStatusMenu.h"
#include "upload/UploadStore.h"
#include "settings/ShotSettingsWindow.h"
#include "style/ShotIcons.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QTimer>
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
    m_icon = ShotIcons::application();
    m_tray.setIcon(m_icon);
    m_tray.setToolTip(QStringLiteral("Nubo Shot"));
}

void TrayApplication::openImage()
{
    const QString file =
        QFileDialog::getOpenFileName(nullptr, tr("Open Image in Nubo Shot"), QString(),
                                     tr("Images (*.png *.jpg *.jpeg *.webp *.bmp *.gif)"));
    if (file.isEmpty()) {
        return;
    }
    m_feature->openFiles({file}, [this](const QStringList& failures) {
        if (!failures.isEmpty()) {
            m_feature->presentAlert(tr("Could Not Open Image"), failures.join(QLatin1Char('\n')));
        }
    });
}

void TrayApplication::showSettings()
{
    // One window: a second "Settings…" brings it forward.
    if (!m_settings) {
        m_settings = std::make_unique<ShotSettingsWindow>(ShotSettingsContext{
            *m_preferences, *m_platform, m_shortcuts.get(), cli::programPath(),
            [this](const QString&) {
                m_preferences->sync();
                m_recents->applyPreference();
            },
            [this]() -> RecordingCapabilities {
                try {
                    return m_recording->capabilities();
                } catch (const Error& error) {
                    qCInfo(lcApp, "Nothing can be recorded: %s", qPrintable(error.message()));
                    return {};
                }
            }});
    }
    m_settings->present();
}

void TrayApplication::showUploads()
{
    if (!m_uploads) {
        m_uploads = std::make_unique<ShotUploadHistory>();
    }
    m_uploads->present();
}

TrayApplication::~TrayApplication() = default;

void TrayApplication::capture(CaptureMode mode)
{
    if (m_recording && m_recording->phase() != ShotRecordingFlow::Phase::idle &&
        m_recording->phase() != ShotRecordingFlow::Phase::recording) {
        qCInfo(lcApp, "Capture ignored: a recording is being set up");
        return;
    }
    m_feature->capture(mode, {std::clamp(int(m_preferences->integer(keys::captureDelay).value_or(0)), 0, 60), false});
}

void TrayApplication::shortcutPressed(const QString& action)
{
    if (const auto mode = fromString<CaptureMode>(action)) {
        capture(*mode);
    } else if (action == QLatin1String(ShotGlobalShortcuts::recording)) {
        if (!m_feature->isCapturing()) {
            m_recording->toggle();
        }
    }
}

void TrayApplication::quit()
{
    if (m_recording->isRunning()) {
        // A recording is never lost to a quit: it is asked about, then
        // finished before the program goes.
        QMessageBox box(QMessageBox::Question, QStringLiteral("Nubo Shot"),
                        tr("Stop the recording and quit?"));
        box.setInformativeText(tr("The recording is saved before Nubo Shot quits."));
        QPushButton* stop = box.addButton(tr("Stop and Quit"), QMessageBox::AcceptRole);
        box.addButton(QMessageBox::Cancel);
        box.setDefaultButton(stop);
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
        // Asked from the tray: the question takes the keyboard once it shows.
        QTimer::singleShot(100, &box, [&box] {
            box.raise();
            box.activateWindow();
        });
        box.exec();
        if (box.clickedButton() != stop) {
            return;
        }
        connect(m_recording.get(), &ShotRecordingFlow::phaseChanged, this,
                [this](ShotRecordingFlow::Phase phase) {
                    if (phase == ShotRecordingFlow::Phase::idle) {
                        quit();
                    }
                });
        try {
            if (!m_recording->state().is<RecordingState::Finishing>()) {
                m_recording->stop();
            }
        } catch (const Error& error) {
            qCWarning(lcApp, "The recording could not be stopped: %s", qPrintable(error.message()));
        }
        return;
    }
    m_recording->cancel(); // a recording being set up is simply dropped
    // Each editor asks about its unsaved changes first; one that stays open
    // keeps us running.
    for (ShotEditorWindow* editor : m_feature->editors()) {
        if (!editor->close()) {
            return;
        }
    }
    QCoreApplication::quit();
}

void TrayApplication::showRecordingState(const RecordingState& state)
{
    const bool paused = state.is<RecordingState::Paused>();
    const bool running = paused || state.is<RecordingState::Recording>() ||
                         state.is<RecordingState::Finishing>();
    if (!running) {
        m_tray.setIcon(m_icon);
        m_tray.setToolTip(QStringLiteral("Nubo Shot"));
        return;
    }
    // The cloud with a red dot while recording, amber bars while paused.
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap = m_icon.pixmap(QSize(side, side));
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        const double r = side * 0.23;
        const QPointF centre(side - r - 0.5, side - r - 0.5);
        painter.setPen(QPen(Qt::white, std::max(1.0, side / 16.0)));
        painter.setBrush(paused ? QColor(240, 170, 30) : QColor(224, 53, 43));
        painter.drawEllipse(centre, r, r);
        if (paused) {
            painter.setPen(Qt::NoPen);
            painter.setBrush(Qt::white);
            const double w = r * 0.32, h = r * 1.0;
            painter.drawRect(QRectF(centre.x() - w * 1.5, centre.y() - h / 2, w, h));
            painter.drawRect(QRectF(centre.x() + w * 0.5, centre.y() - h / 2, w, h));
        }
        painter.end();
        icon.addPixmap(pixmap);
    }
    m_tray.setIcon(icon);
    const auto elapsed = recordingElapsed(state);
    m_tray.setToolTip(state.is<RecordingState::Finishing>()
                          ? tr("Nubo Shot — saving the recording")
                          : (paused ? tr("Nubo Shot — paused at %1") : tr("Nubo Shot — recording %1"))
                                .arg(recordingElapsedText(elapsed.value_or(RecordingDuration(0)))));
}

void TrayApplication::showDelay(int secondsLeft)
{
    if (m_menu->menu().isVisible()) {
        m_menu->refreshDelay();
    }
    if (secondsLeft <= 0) {
        showRecordingState(m_recording->state());
        return;
    }
    // The seconds left, large on the icon: the capture is coming.
    QIcon icon;
    for (const int side : {16, 22, 24, 32, 48, 64}) {
        QPixmap pixmap(side, side);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(38, 110, 220));
        painter.drawEllipse(QRectF(0.5, 0.5, side - 1, side - 1));
        QFont font = painter.font();
        font.setBold(true);
        font.setPixelSize(secondsLeft >= 10 ? side * 9 / 16 : side * 11 / 16);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(QRect(0, 0, side, side), Qt::AlignCenter, QString::number(secondsLeft));
        painter.end();
        icon.addPixmap(pixmap);
    }
    m_tray.setIcon(icon);
    m_tray.setToolTip(tr("Nubo Shot — capturing in %n second(s)", nullptr, secondsLeft));
}

TrayApplication::Start TrayApplication::start()
{
    Q_ASSERT(thread() == QCoreApplication::instance()->thread());
    if (!claimBusName()) {
        return Start::alreadyRunning;
    }
    // The icon first: the tray host docks it while the rest is made (no click
    // is handled before start() returns, and the menu is there by then).
    if (!QSystemTrayIcon::isSystemTrayAvailable()) {
        qCWarning(lcApp) << "No system tray yet; the icon appears when one starts";
    }
    m_tray.show();
    loadPlatform();
    // Drag and share files from earlier sessions that nobody reads any more.
    ShotQuickSave::sweepTemporaryExports(QDateTime::currentDateTime().addSecs(-3600));
    m_preferences = std::make_unique<ShotPreferences>();
    makeFeatures();
    makeMenu();
    bindShortcuts();
    offerBusService();
    qCInfo(lcApp) << "Nubo Shot started";
    recoverRecordings();
    tellInterruptedUploads();
    // Which GPU encoders open is asked in the background, so the first
    // recording does not wait for it; a few seconds after the start, not
    // during it: asking loads FFmpeg, whose hundred libraries would compete
    // with the icon and the menu for the cores.
    QTimer::singleShot(3000, this, [] { (void)QtConcurrent::run([] { (void)recordingEncoderSupport(); }); });
    return Start::started;
}

bool TrayApplication::claimBusName()
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        qCWarning(lcApp) << "No session bus; a second instance will not be noticed:"
                         << bus.lastError().message();
        return true;
    }
    const auto reply = bus.interface()->registerService(
        QLatin1String(busName), QDBusConnectionInterface::DontQueueService,
        QDBusConnectionInterface::DontAllowReplacement);
    if (reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceNotRegistered) {
        return false;
    }
    if (!reply.isValid()) {
        qCWarning(lcApp) << "Could not claim" << busName
                         << "on the session bus:" << reply.error().message();
    }
    bus::holdTrayLock();
    return true;
}

void TrayApplication::loadPlatform()
{
    // The screens' densities as they are now, for captures on worker threads.
    QList<std::pair<QRect, double>> densities;
    for (const QScreen* screen : QGuiApplication::screens()) {
        const double ratio = screen->devicePixelRatio();
        const QRect logical = screen->geometry();
        densities.append({QRect(logical.topLeft() * ratio, logical.size() * ratio), ratio});
    }
    const auto density = [densities](const QRect& pixels) {
        for (const auto& [geometry, ratio] : densities) {
            if (geometry.contains(pixels.center())) {
                return ratio;
            }
        }
        return 1.0;
    };
    try {
        m_platform = CapturePlatformLoader::load(CapturePlatformEnvironment::fromProcess(),
                                                 density, desktopScreenLookup());
        qCInfo(lcApp) << "Capture backend:" << m_platform->name();
        // Windows' own pixels are kept from now on: exact window captures,
        // and our own windows can be painted away from captures.
        m_platform->capturer()->prepareWindowPixels();
    } catch (const Error& error) {
        // The editor and everything else still work; captures say why not.
        qCWarning(lcApp) << "Screen capture is not available:" << error.message();
        m_platform = std::make_shared<NullCapturePlatform>(error.message());
    }
}

void TrayApplication::makeFeatures()
{
    m_recents = std::make_unique<ShotRecentStore>(*m_preferences, ShotClipboard::shared(),
                                                  ShotRenderer::shared());
    m_recents->sourceApp = [platform = m_platform] { return platform->clipboardOwner(); };
    m_feature = std::make_unique<ShotFeature>(m_platform, *m_preferences, ShotRenderer::shared());
    m_feature->setRecents(m_recents.get());
    m_recording = std::make_unique<ShotRecordingFlow>(m_platform, *m_preferences);
    m_recording->screenIsFree = [this] { return !m_feature->isCapturing(); };
}

ShotStatusMenu::Actions TrayApplication::menuActions()
{
    ShotStatusMenu::Actions actions;
    actions.capture = [this](CaptureMode mode) { capture(mode); };
    actions.openImage = [this] { openImage(); };
    actions.settings = [this] { showSettings(); };
    actions.quit = [this] { quit(); };
    actions.isOffered = [this](CaptureMode mode) { return m_feature->isOffered(mode); };
    actions.recentEnabled = [this] { return m_recents->isEnabled(); };
    actions.recentItems = [this] { return m_recents->entries(); };
    actions.openRecent = [this](const QUuid& id) { m_feature->openRecent(id); };
    actions.clearRecent = [this] { m_recents->clear(); };
    actions.uploads = [this] { showUploads(); };
    actions.canRecord = [this] { return m_recording->canRecord(); };
    actions.recordScreen = [this] {
        if (!m_feature->isCapturing()) {
            m_recording->recordScreen();
        }
    };
    actions.recordableWindows = [this] { return m_recording->recordableWindows(); };
    actions.recordWindow = [this](const CapturableWindow& window) {
        m_recording->recordWindow(window);
    };
    actions.recordingState = [this] { return m_recording->state(); };
    const auto tolerant = [](const std::function<void()>& act) {
        // The menu may be a moment behind the recording: nothing to say.
        try {
            act();
        } catch (const Error& error) {
            qCInfo(lcApp, "Recording menu: %s", qPrintable(error.message()));
        }
    };
    actions.pauseRecording = [this, tolerant] { tolerant([this] { m_recording->pause(); }); };
    actions.resumeRecording = [this, tolerant] { tolerant([this] { m_recording->resume(); }); };
    actions.stopRecording = [this, tolerant] { tolerant([this] { m_recording->stop(); }); };
    actions.cancelRecording = [this] { m_recording->cancel(); };
    actions.captureDelay = [this] { return int(m_preferences->integer(keys::captureDelay).value_or(0)); };
    actions.setCaptureDelay = [this](int seconds) {
        m_preferences->setValue(keys::captureDelay, seconds);
        m_preferences->sync();
    };
    actions.delayLeft = [this] { return m_feature->delayLeft(); };
    actions.cancelDelay = [this] { m_feature->cancelDelay(); };
    actions.pinnedItems = [this] {
        QList<ShotStatusMenu::PinnedItem> items;
        for (const ShotPinWindow* pin : m_feature->pins().pins()) {
            items.append({QStringLiteral("%1 × %2 · %3")
                              .arg(pin->picture().width())
                              .arg(pin->picture().height())
                              .arg(pin->pinnedAt().toString(QStringLiteral("HH:mm"))),
                          pin->picture().scaled(80, 80, Qt::KeepAspectRatio, Qt::SmoothTransformation)});
        }
        return items;
    };
    actions.raisePin = [this](int index) {
        const QList<ShotPinWindow*> pins = m_feature->pins().pins();
        if (index >= 0 && index < pins.size()) {
            pins[index]->raise();
            pins[index]->activateWindow();
        }
    };
    actions.closePins = [this] { m_feature->pins().closeAll(); };
    return actions;
}

void TrayApplication::makeMenu()
{
    m_menu = std::make_unique<ShotStatusMenu>(menuActions());
    connect(m_recording.get(), &ShotRecordingFlow::stateChanged, this,
            [this](const RecordingState& state) {
                showRecordingState(state);
                if (m_menu->menu().isVisible()) {
                    m_menu->refreshRecording();
                }
            });
    connect(m_recents.get(), &ShotRecentStore::changed, m_menu.get(),
            &ShotStatusMenu::refreshRecent);
    connect(&m_feature->pins(), &ShotPins::changed, m_menu.get(), &ShotStatusMenu::refreshPinned);
    connect(m_feature.get(), &ShotFeature::delayChanged, this, &TrayApplication::showDelay);
    m_recents->applyPreference();
    m_tray.setContextMenu(&m_menu->menu());
    // A left click opens the same menu as a right click: every capture is
    // one more click away, and nothing starts by accident.
    connect(&m_tray, &QSystemTrayIcon::activated, this,
            [this](QSystemTrayIcon::ActivationReason reason) {
                if (reason == QSystemTrayIcon::Trigger) {
                    m_menu->menu().popup(QCursor::pos());
                }
            });
}

void TrayApplication::bindShortcuts()
{
    std::unique_ptr<GlobalShortcuts> keys;
    try {
        keys = m_platform->makeGlobalShortcuts();
    } catch (const Error& error) {
        qCWarning(lcApp) << "Global shortcuts are not available:" << error.message();
    }
    m_shortcuts = std::make_unique<ShotGlobalShortcuts>(
        std::move(keys), *m_preferences,
        [this](const QString& action) { shortcutPressed(action); });
    // The menu shows the keys in effect, also after they change in the settings.
    m_shortcuts->changed = [this] {
        for (const CaptureMode mode : allCases<CaptureMode>()) {
            m_menu->setCaptureShortcut(mode, m_shortcuts->shortcut(mode));
        }
        m_menu->setRecordingShortcut(m_shortcuts->shortcut(QLatin1String(ShotGlobalShortcuts::recording)));
        m_preferences->sync();
    };
    m_shortcuts->changed();
    // Told once, where the user sees it, with the way to fix it (again only
    // when the problems change); the rest of the program works as before.
    const QStringList& problems = m_shortcuts->problems();
    const QString now = problems.join(QLatin1Char('\n'));
    const bool told = m_preferences->string(keys::shortcutProblemsTold).value_or(QString()) == now;
    m_preferences->setValue(keys::shortcutProblemsTold, now);
    if (!problems.isEmpty() && !told) {
        ShotNotifications::shared().notifyAction(
            tr("%n shortcut(s) do not work", nullptr, int(problems.size())),
            problems.join(QLatin1Char('\n')), tr("Open Shortcuts Settings"), [this] {
                showSettings();
                m_settings->showPage(QStringLiteral("Shortcuts"));
            });
    }
}

void TrayApplication::offerBusService()
{
    m_service = std::make_unique<ShotBusService>(m_platform, *m_feature, *m_recording);
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected() && !bus.registerObject(QLatin1String(GrabOverBus::path), m_service.get(),
                                                 QDBusConnection::ExportAllSlots |
                                                     QDBusConnection::ExportAllSignals)) {
        qCWarning(lcApp) << "Could not offer the capture service on the session bus";
    }
}

void TrayApplication::recoverRecordings()
{
    // Recordings a crash or a power cut interrupted are finished now.
    auto* recovery = new QFutureWatcher<RecordingRecovery::Recovered>(this);
    connect(recovery, &QFutureWatcherBase::finished, this, [recovery] {
        recovery->deleteLater();
        const RecordingRecovery::Recovered recovered = recovery->result();
        for (const QString& movie : recovered.movies) {
            ShotNotifications::shared().notifyFile(tr("Recovered an interrupted recording"), movie);
        }
        for (const QString& movie : recovered.empty) {
            ShotNotifications::shared().notify(
                tr("An interrupted recording could not be kept"),
                tr("%1 stopped before its first picture was saved; nothing of it "
                               "could be kept.")
                    .arg(QFileInfo(movie).fileName()));
        }
    });
    recovery->setFuture(QtConcurrent::run(&RecordingRecovery::recoverInterrupted));
}

void TrayApplication::tellInterruptedUploads()
{
    // Uploads a crash cut short are told once: they may or may not have arrived.
    auto* uploads = new QFutureWatcher<QStringList>(this);
    connect(uploads, &QFutureWatcherBase::finished, this, [this, uploads] {
        uploads->deleteLater();
        const QStringList files = uploads->result();
        if (!files.isEmpty()) {
            m_tray.showMessage(
                tr("%n upload(s) were interrupted", nullptr, int(files.size())),
                tr("%1 may not have arrived. Upload it again from its editor, or "
                               "see Recent Uploads.")
                    .arg(QLocale().createSeparatedList(files)),
                QSystemTrayIcon::Warning, 8000);
        }
    });
    uploads->setFuture(QtConcurrent::run([]() -> QStringList {
        QStringList files;
        try {
            UploadStore store;
            for (const UploadStore::Interrupted& upload : store.takeInterrupted()) {
                qCWarning(lcUpload, "Upload %s of %s was interrupted after the step %s at %s",
                          qUtf8Printable(upload.uploadId), qUtf8Printable(upload.fileName),
                          qUtf8Printable(toString(upload.lastStep)),
                          qUtf8Printable(upload.at.toString(Qt::ISODate)));
                files << upload.fileName;
            }
        } catch (const Error& error) {
            qCWarning(lcUpload, "%s", qUtf8Printable(error.message()));
        }
        return files;
    }));
}

} // namespace nubo
