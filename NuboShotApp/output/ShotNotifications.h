#pragma once

#include <QHash>
#include <QObject>
#include <QString>

#include <functional>

namespace nubo {

// Desktop notifications (org.freedesktop.Notifications) with actions.
class ShotNotifications : public QObject {
    Q_OBJECT
public:
    static ShotNotifications& shared();
    // The file selected in the file manager (its folder opened where none answers).
    static void showInFolder(const QString& file);

    // "Saved to …" with actions that open the file and show its folder; a
    // missing notification service is logged, nothing more.
    void notifySaved(const QString& path);
    // `text`, with actions that open `file` and show its folder.
    void notifyFile(const QString& text, const QString& file);
    // The same under its own summary line ("Recording saved").
    void notifyFile(const QString& summary, const QString& file, const QString& text);
    // A message without a file or actions.
    void notify(const QString& summary, const QString& text) { notifyFile(summary, {}, text); }
    // A message with one button (also its default action): `act` runs when
    // the user presses it.
    void notifyAction(const QString& summary, const QString& text, const QString& button,
                      std::function<void()> act);
    const QString& lastMessage() const { return m_lastMessage; }

private slots:
    void actionInvoked(uint id, const QString& action);

private:
    ShotNotifications();

    void send(const QString& summary, const QString& text, const QStringList& actions,
              std::function<void(uint)> sent);

    QHash<uint, QString> m_saved;
    QHash<uint, std::function<void()>> m_acts;
    QString m_lastMessage;
};

} // namespace nubo
