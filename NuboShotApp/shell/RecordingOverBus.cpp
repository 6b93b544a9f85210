#include "shell/RecordingOverBus.h"

#include "shell/GrabRequest.h"
#include "shell/BusNames.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QJsonDocument>

namespace nubo {

namespace {

QDBusMessage call(const char* method)
{
    return QDBusMessage::createMethodCall(QLatin1String(bus::name),
                                          QLatin1String(GrabOverBus::path),
                                          QLatin1String(GrabOverBus::interface),
                                          QString::fromLatin1(method));
}

} // namespace

RecordingOverBus::RecordingOverBus(QDBusConnection bus, QObject* parent)
    : QObject(parent), m_bus(std::move(bus))
{
    m_bus.connect(QLatin1String(bus::name), QLatin1String(GrabOverBus::path),
                  QLatin1String(GrabOverBus::interface), QStringLiteral("RecordingStateChanged"),
                  this, SLOT(stateChanged(QString, QString)));
}

std::pair<QString, QString> RecordingOverBus::describe(const RecordingState& state)
{
    const auto ms = [](RecordingDuration d) {
        return QString::number(std::chrono::duration_cast<std::chrono::milliseconds>(d).count());
    };
    if (const auto* s = std::get_if<RecordingState::Recording>(&state.state)) {
        return {QStringLiteral("recording"), ms(s->elapsed)};
    }
    if (const auto* s = std::get_if<RecordingState::Paused>(&state.state)) {
        return {QStringLiteral("paused"), ms(s->elapsed)};
    }
    if (const auto* s = std::get_if<RecordingState::Finished>(&state.state)) {
        return {QStringLiteral("finished"), s->file};
    }
    if (const auto* s = std::get_if<RecordingState::Failed>(&state.state)) {
        return {QStringLiteral("failed"), s->message};
    }
    return {state.is<RecordingState::Idle>()       ? QStringLiteral("idle")
            : state.is<RecordingState::Starting>() ? QStringLiteral("starting")
                                                   : QStringLiteral("finishing"),
            {}};
}

void RecordingOverBus::start(const QStringList& target, const RecordingOptions& options,
                             const QString& folder)
{
    QDBusMessage message = call("StartRecording");
    message << target
            << QString::fromUtf8(QJsonDocument(options.toJson()).toJson(QJsonDocument::Compact))
            << folder;
    const QDBusMessage reply = m_bus.call(message, QDBus::Block, 30000);
    if (reply.type() == QDBusMessage::ErrorMessage) {
        throw Error(reply.errorMessage());
    }
}

void RecordingOverBus::stop()
{
    if (std::exchange(m_stopping, true)) {
        return;
    }
    // The answer comes once the movie is complete.
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call("StopRecording"), 600000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        watcher->deleteLater();
        const QDBusPendingReply<QString> reply = *watcher;
        if (finished) {
            finished(reply.isError() ? RecordingState{RecordingState::Failed{reply.error().message()}}
                                     : RecordingState{RecordingState::Finished{reply.value()}});
        }
    });
}

void RecordingOverBus::togglePause()
{
    if (m_bus.call(call("PauseRecording"), QDBus::Block, 5000).type() ==
        QDBusMessage::ErrorMessage) {
        m_bus.call(call("ResumeRecording"), QDBus::Block, 5000);
    }
}

void RecordingOverBus::stateChanged(const QString& kind, const QString& detail)
{
    if (m_stopping || !finished) {
        return; // the stop's own answer says how it ended
    }
    if (kind == QLatin1String("failed")) {
        finished({RecordingState::Failed{detail}});
    } else if (kind == QLatin1String("idle")) {
        finished({RecordingState::Failed{QStringLiteral("The recording was cancelled.")}});
    }
}

} // namespace nubo
