#include "capture/CapturePlatform.h"
#include "core/Settings.h"
#include "recording/CameraStreamSource.h"
#include "recording/RecordingAudioServer.h"
#include "settings/ShotSettingsPage.h"
#include "shortcuts/ShotGlobalShortcuts.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace nubo {

namespace {

// Whether a service answers on the session bus, or would be started by it.
bool onSessionBus(const QString& name)
{
    QDBusConnectionInterface* bus = QDBusConnection::sessionBus().interface();
    if (!bus) {
        return false;
    }
    if (bus->isServiceRegistered(name)) {
        return true;
    }
    const QDBusReply<QStringList> activatable = bus->activatableServiceNames();
    return activatable.isValid() && activatable.value().contains(name);
}

// What the program may use on this desktop, each with its state and how to
// grant it: the screen, global keys, the microphone, cameras, notifications
// and the keyring.
class PermissionsSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    PermissionsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Permissions"),
                           QStringLiteral("nuboshot-permissions"), parent)
    {
        m_section = addSection(tr("What Nubo Shot may use"));
        m_screen = addRow(QStringLiteral("screen"), tr("Screen capture"));
        m_forget = new QPushButton(tr("Forget Grant"), this);
        m_forget->setObjectName(QStringLiteral("forgetScreenGrant"));
        m_forget->setToolTip(tr("The desktop asks again at the next capture"));
        m_section->addRow(QString(), m_forget);
        connect(m_forget, &QPushButton::clicked, this, [this] {
            m_context.platform.forgetGrant();
            if (m_context.changed) {
                m_context.changed(QLatin1String(keys::portalScreenCastGrants));
            }
            reload();
        });
        m_shortcuts = addRow(QStringLiteral("shortcuts"), tr("Global shortcuts"));
        m_microphone = addRow(QStringLiteral("microphone"), tr("Microphone"));
        m_camera = addRow(QStringLiteral("camera"), tr("Camera"));
        m_notifications = addRow(QStringLiteral("notifications"), tr("Notifications"));
        m_keyring = addRow(QStringLiteral("keyring"), tr("Keyring"));
        auto* refresh = new QPushButton(tr("Check Again"), this);
        refresh->setObjectName(QStringLiteral("checkPermissions"));
        m_section->addRow(QString(), refresh);
        connect(refresh, &QPushButton::clicked, this, [this] { reload(); });
        reload();
    }

    void reload() override
    {
        const ScreenGrants grants = m_context.platform.grants();
        if (!m_context.platform.problem().isEmpty()) {
            set(m_screen, false, m_context.platform.problem());
        } else if (!grants.asked) {
            set(m_screen, true, tr("Allowed: this X11 desktop lets programs read the screen."));
        } else if (grants.kept > 0) {
            set(m_screen, true,
                tr("Granted through the desktop's screen-sharing dialog; captures "
                               "do not ask again."));
        } else {
            set(m_screen, false,
                tr("Not yet granted: the desktop shows its screen-sharing dialog at "
                               "the next capture. Choose every screen and allow it to be "
                               "remembered."));
        }
        m_forget->setVisible(grants.asked);
        m_forget->setEnabled(grants.kept > 0);

        const ShotGlobalShortcuts* keys = m_context.shortcuts;
        if (keys && keys->isAvailable() && keys->problems().isEmpty()) {
            set(m_shortcuts, true, tr("Bound: the keys on the Shortcuts page work "
                                                  "wherever the focus is."));
        } else if (keys && keys->isAvailable()) {
            set(m_shortcuts, false, keys->problems().join(u'\n'));
        } else {
            set(m_shortcuts, false,
                tr("This desktop gives programs no global keys: bind the commands "
                               "of the Shortcuts page in the desktop's keyboard settings."));
        }

        const bool microphone =
            m_context.recordingCapabilities && m_context.recordingCapabilities().supportsMicrophone;
        set(m_microphone, microphone,
            microphone ? tr("Available through the sound server.")
                       : RecordingAudioServer::whatToInstall());

        const QList<CameraDevice> cameras = CameraStreamSource::cameras();
        set(m_camera, !cameras.isEmpty(),
            cameras.isEmpty()
                ? tr("No camera can be opened: connect one, and make sure your "
                                 "user is in the “video” group.")
            : cameras.size() == 1 ? tr("Available: %1.").arg(cameras.first().name)
                                  : tr("Available: %1 and %n more.", nullptr, int(cameras.size() - 1))
                                        .arg(cameras.first().name));

        const bool notifications = onSessionBus(QStringLiteral("org.freedesktop.Notifications"));
        set(m_notifications, notifications,
            notifications ? tr("Shown by the desktop's notification service.")
                          : tr("No notification service: messages appear as the "
                                           "tray icon's bubbles instead."));

        const bool keyring = onSessionBus(QStringLiteral("org.freedesktop.secrets"));
        set(m_keyring, keyring,
            keyring ? tr("The desktop's keyring (Secret Service) keeps upload "
                                     "secrets.")
                    : tr("No keyring: install gnome-keyring (or a password manager "
                                     "offering the Secret Service) to store upload secrets."));
    }

private:
    static constexpr int textWidth = 380;

    QLabel* addRow(const QString& id, const QString& title)
    {
        auto* state = new QLabel(this);
        state->setObjectName(QStringLiteral("permission.") + id);
        state->setWordWrap(true);
        state->setTextFormat(Qt::PlainText);
        state->setFixedWidth(textWidth);
        m_section->addRow(title + u':', state);
        return state;
    }

    static void set(QLabel* label, bool granted, const QString& text)
    {
        label->setText((granted ? QStringLiteral("\u2713 ") : QStringLiteral("\u2717 ")) + text);
        label->setProperty("granted", granted);
        // A form row does not grow by itself when its wrapped text does.
        label->setMinimumHeight(label->heightForWidth(textWidth));
    }

    QFormLayout* m_section = nullptr;
    QLabel* m_screen = nullptr;
    QPushButton* m_forget = nullptr;
    QLabel* m_shortcuts = nullptr;
    QLabel* m_microphone = nullptr;
    QLabel* m_camera = nullptr;
    QLabel* m_notifications = nullptr;
    QLabel* m_keyring = nullptr;
};

} // namespace

ShotSettingsPage* makePermissionsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new PermissionsSettingsPage(context, parent);
}

} // namespace nubo

#include "PermissionsSettingsPage.moc"
