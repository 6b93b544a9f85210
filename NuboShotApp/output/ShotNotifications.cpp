#include "output/ShotNotifications.h"

#include "core/Logging.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <QVariantMap>

namespace nubo {

namespace {
constexpr char service[] = "org.freedesktop.Notifications";
constexpr char path[] = "/org/freedesktop/Notifications";
} // namespace

ShotNotifications& ShotNotifications::shared()
{
    static ShotNotifications* notifications = new ShotNotifications;
    return *notifications;
}

ShotNotifications::ShotNotifications()
{
    QDBusConnection::sessionBus().connect(QLatin1String(service), QLatin1String(path),
                                          QLatin1String(service), QStringLiteral("ActionInvoked"),
                                          this, SLOT(actionInvoked(uint, QString)));
}

void ShotNotifications::notifySaved(const QString& file)
{
    notifyFile(tr("Saved to %1").arg(QDir::toNativeSeparators(file)), file);
}

void ShotNotifications::notifyFile(const QString& text, const QString& file)
{
    notifyFile(QStringLiteral("Nubo Shot"), file, text);
}

void ShotNotifications::notifyFile(const QString& summary, const QString& file,
                                   const QString& text)
{
    const QStringList actions = file.isEmpty()
                                    ? QStringList()
                                    : QStringList{QStringLiteral("default"), tr("Open"),
                                                  QStringLiteral("show"), tr("Show in Folder")};
    send(summary, text, actions, [this, file](uint id) { m_saved.insert(id, file); });
}

void ShotNotifications::notifyAction(const QString& summary, const QString& text,
                                     const QString& button, std::function<void()> act)
{
    send(summary, text, {QStringLiteral("default"), button},
         [this, act = std::move(act)](uint id) { m_acts.insert(id, act); });
}

void ShotNotifications::send(const QString& summary, const QString& text,
                             const QStringList& actions, std::function<void(uint)> sent)
{
    m_lastMessage = text;
    QDBusMessage call =
        QDBusMessage::createMethodCall(QLatin1String(service), QLatin1String(path),
                                       QLatin1String(service), QStringLiteral("Notify"));
    call << QStringLiteral("Nubo Shot") << uint(0) << QStringLiteral("nuboshot")
         << summary << m_lastMessage << actions << QVariantMap() << int(-1);
    // Asked without waiting: a slow or missing notification service never
    // holds up the editor.
    auto* watcher = new QDBusPendingCallWatcher(
        QDBusConnection::sessionBus().asyncCall(call, 2000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, watcher, text, sent = std::move(sent)] {
        watcher->deleteLater();
        const QDBusPendingReply<uint> reply = *watcher;
        if (reply.isError()) {
            qCInfo(lcApp, "No desktop notification (%s): %s", qPrintable(text),
                   qPrintable(reply.error().message()));
            return;
        }
        sent(reply.value());
    });
}

void ShotNotifications::actionInvoked(uint id, const QString& action)
{
    if (const auto act = m_acts.constFind(id); act != m_acts.constEnd()) {
        const std::function<void()> run = *act;
        m_acts.erase(act);
        run();
        return;
    }
    const QString file = m_saved.value(id);
    if (file.isEmpty()) {
        return;
    }
    if (action == QLatin1String("show")) {
        showInFolder(file);
    } else {
        QDesktopServices::openUrl(QUrl::fromLocalFile(file));
    }
}

void ShotNotifications::showInFolder(const QString& file)
{
    // The file manager's own "show this item" where there is one.
    QDBusMessage show = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    show << QStringList{QUrl::fromLocalFile(file).toString()} << QString();
    if (!QDBusConnection::sessionBus().call(show, QDBus::Block, 2000).errorMessage().isEmpty()) {
        QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(file).absolutePath()));
    }
}

} // namespace nubo
