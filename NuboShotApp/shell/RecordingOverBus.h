#pragma once

#include "recording/RecordingTypes.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace nubo {

// A recording the running tray application makes for this process: started,
// paused, resumed and stopped over the session bus; the end (the movie, or
// why not) comes back through `finished`.
class RecordingOverBus : public QObject {
    Q_OBJECT
public:
    explicit RecordingOverBus(QDBusConnection bus, QObject* parent = nullptr);

    std::function<void(const RecordingState& state)> finished;

    // Throws Error with the tray's message when it cannot start.
    void start(const QStringList& target, const RecordingOptions& options, const QString& folder);
    void stop();
    void togglePause();

    // The state as words on the bus: its kind, and the file, the message or
    // the elapsed milliseconds.
    static std::pair<QString, QString> describe(const RecordingState& state);

private slots:
    void stateChanged(const QString& kind, const QString& detail);

private:
    QDBusConnection m_bus;
    bool m_stopping = false;
};

} // namespace nubo
