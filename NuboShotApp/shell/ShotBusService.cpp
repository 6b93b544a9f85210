#include "shell/ShotBusService.h"

#include "capture/CapturePlatform.h"
#include "shell/CaptureCommands.h"
#include "shell/CommandLine.h"
#include "shell/GrabRequest.h"
#include "shell/RecordingOverBus.h"
#include "shell/RecordingTargetWords.h"
#include "recording/ShotRecordingFlow.h"
#include "shell/ShotFeature.h"

#include <QDBusConnection>
#include <QDir>
#include <QJsonDocument>
#include <QThreadPool>

namespace nubo {

ShotBusService::ShotBusService(std::shared_ptr<CapturePlatform> platform, ShotFeature& feature,
                               ShotRecordingFlow& recording, QObject* parent)
    : QObject(parent), m_platform(std::move(platform)), m_feature(feature), m_recording(recording)
{
    connect(&m_recording, &ShotRecordingFlow::stateChanged, this,
            &ShotBusService::recordingStateChanged);
}

void ShotBusService::RecordScreen(const QDBusMessage&)
{
    QMetaObject::invokeMethod(
        this, [this] { m_recording.recordScreen(); }, Qt::QueuedConnection);
}

void ShotBusService::ToggleRecording(const QDBusMessage&)
{
    QMetaObject::invokeMethod(
        this, [this] { m_recording.toggle(); }, Qt::QueuedConnection);
}

void ShotBusService::CaptureShot(const QString& mode, const QDBusMessage& message)
{
    CaptureShotWith(mode, {}, message);
}

void ShotBusService::CaptureShotWith(const QString& mode, const QVariantMap& options,
                                     const QDBusMessage& message)
{
    const auto refuseWith = [&message](const QString& text) {
        message.setDelayedReply(true);
        QDBusConnection::sessionBus().send(
            message.createErrorReply(QLatin1String(GrabOverBus::errorName), text));
    };
    const auto parsed = fromString<CaptureMode>(mode);
    if (!parsed) {
        refuseWith(QStringLiteral("\u201c%1\u201d is not a capture mode: area, window, fullscreen, "
                                  "scrolling, text or last-area.")
                       .arg(mode));
        return;
    }
    ShotCaptureOptions chosen;
    for (auto option = options.cbegin(); option != options.cend(); ++option) {
        const QVariant& value = option.value();
        bool ok = false;
        if (option.key() == QLatin1String("delay") && value.typeId() != QMetaType::Bool) {
            const qlonglong seconds = value.toLongLong(&ok);
            ok = ok && seconds >= 0 && seconds <= ShotCaptureOptions::maximumDelay;
            chosen.delaySeconds = int(seconds);
        } else if (option.key() == QLatin1String("pin") && value.typeId() == QMetaType::Bool) {
            ok = true;
            chosen.pin = value.toBool();
        }
        if (!ok) {
            refuseWith(QStringLiteral("The option \u201c%1\u201d of a capture is unknown or out of "
                                      "range: \u201cdelay\u201d takes 0 to %2 seconds, "
                                      "\u201cpin\u201d true or false.")
                           .arg(option.key())
                           .arg(ShotCaptureOptions::maximumDelay));
            return;
        }
    }
    if (chosen.pin && (*parsed == CaptureMode::text || *parsed == CaptureMode::scrolling)) {
        refuseWith(QStringLiteral("Only a capture of an area, a window, the screen or the previous "
                                  "area can be pinned."));
        return;
    }
    // Answer at once; the capture runs its course (and reports) in the app.
    QMetaObject::invokeMethod(
        this, [this, mode = *parsed, chosen] { m_feature.capture(mode, chosen); }, Qt::QueuedConnection);
}

void ShotBusService::OpenImage(const QStringList& files, const QDBusMessage& message)
{
    // Answered once the files have been read, off the bus's thread of calls.
    message.setDelayedReply(true);
    m_feature.openFiles(files, [message](const QStringList& failures) {
        QDBusConnection::sessionBus().send(
            failures.isEmpty() ? message.createReply()
                               : message.createErrorReply(QLatin1String(GrabOverBus::errorName),
                                                          failures.join(QLatin1Char('\n'))));
    });
}

void ShotBusService::Annotate(const QStringList& files, const QDBusMessage& message)
{
    OpenImage(files, message);
}

bool ShotBusService::capturesFor(const QString& xDisplay, const QDBusMessage& message)
{
    const bool ours = m_platform->problem().isEmpty();
    if (xDisplay == qEnvironmentVariable("DISPLAY") && ours) {
        return true;
    }
    // Another X display than ours, or none we can capture: the caller
    // captures by itself (and says why it cannot, if so).
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(message.createErrorReply(
        QStringLiteral("org.freedesktop.DBus.Error.NotSupported"),
        ours ? QStringLiteral("This instance shows on another display.")
             : QStringLiteral("This instance cannot capture this desktop.")));
    return false;
}

QString ShotBusService::Grab(int mode, qlonglong display, qlonglong window,
                             const QVariantList& region, const QString& output, double quality,
                             const QString& xDisplay, const QDBusMessage& message)
{
    if (!capturesFor(xDisplay, message)) {
        return {};
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    message.setDelayedReply(true);
    GrabRequest request;
    try {
        request =
            GrabOverBus::fromArguments({mode, display, window, region, output, quality, xDisplay});
    } catch (const Error& error) {
        bus.send(message.createErrorReply(QLatin1String(GrabOverBus::errorName), error.message()));
        return {};
    }
    QThreadPool::globalInstance()->start([request, message, bus,
                                          capturer = m_platform->capturer()]() mutable {
        QDBusMessage reply;
        try {
            reply = message.createReply(request.perform(*capturer));
        } catch (const Error& error) {
            reply =
                message.createErrorReply(QLatin1String(GrabOverBus::errorName), error.message());
        }
        bus.send(reply);
    });
    return {};
}

void ShotBusService::GrabCommand(const QStringList& arguments, const QString& workingFolder,
                                 const QString& xDisplay, const QDBusMessage& message)
{
    if (!QDir::isAbsolutePath(workingFolder)) {
        refuse(message, Error(QStringLiteral("Grab refused: the working folder \u201c%1\u201d is not "
                                             "an absolute path.")
                                  .arg(workingFolder)));
        return;
    }
    if (!capturesFor(xDisplay, message)) {
        return;
    }
    message.setDelayedReply(true);
    const auto answer = [message](int exitCode, const QString& out, const QString& err) {
        QDBusConnection::sessionBus().send(message.createReply({exitCode, out, err}));
    };
    const cli::GrabParse parsed = cli::parseGrab(arguments, QDir(workingFolder));
    if (!parsed.request) {
        answer(parsed.exitCode, parsed.out, parsed.err);
        return;
    }
    QThreadPool::globalInstance()->start([request = *parsed.request, answer,
                                          capturer = m_platform->capturer()] {
        try {
            answer(cli::success, request.perform(*capturer) + u'\n', {});
        } catch (const Error& error) {
            answer(cli::failure, {}, QStringLiteral("nuboshot: %1\n").arg(cli::failureText(error)));
        }
    });
}

} // namespace nubo

namespace nubo {

bool ShotBusService::refuse(const QDBusMessage& message, const Error& error)
{
    message.setDelayedReply(true);
    QDBusConnection::sessionBus().send(
        message.createErrorReply(QLatin1String(GrabOverBus::errorName), error.message()));
    return false;
}

void ShotBusService::StartRecording(const QStringList& target, const QString& options,
                                    const QString& folder, const QDBusMessage& message)
{
    try {
        if (!m_recording.canRecord()) {
            throw Error(m_recording.cannotRecord());
        }
        const auto parsed = RecordingOptions::fromJson(QJsonDocument::fromJson(options.toUtf8()).object());
        if (!parsed) {
            throw Error(QStringLiteral("The recording options are not valid."));
        }
        if (!QDir::isAbsolutePath(folder)) {
            throw Error(QStringLiteral("The recording folder must be an absolute path."));
        }
        m_recording.startNow(recordingTarget(*m_platform, target), *parsed, folder);
    } catch (const Error& error) {
        refuse(message, error);
    }
}

void ShotBusService::PauseRecording(const QDBusMessage& message)
{
    try {
        m_recording.pause();
    } catch (const Error& error) {
        refuse(message, error);
    }
}

void ShotBusService::ResumeRecording(const QDBusMessage& message)
{
    try {
        m_recording.resume();
    } catch (const Error& error) {
        refuse(message, error);
    }
}

QString ShotBusService::StopRecording(const QDBusMessage& message)
{
    try {
        m_recording.stop();
        message.setDelayedReply(true);
        m_stopping.append(message);
    } catch (const Error& error) {
        refuse(message, error);
    }
    return {};
}

void ShotBusService::CancelRecording(const QDBusMessage& message)
{
    if (!m_recording.isRunning()) {
        refuse(message, RecordingError(RecordingError::Code::invalidState));
        return;
    }
    m_recording.cancel();
}

void ShotBusService::recordingStateChanged(const RecordingState& state)
{
    const auto [kind, detail] = RecordingOverBus::describe(state);
    emit RecordingStateChanged(kind, detail);
    const bool done = state.is<RecordingState::Finished>() || state.is<RecordingState::Failed>() ||
                      state.is<RecordingState::Idle>();
    if (!done) {
        return;
    }
    for (const QDBusMessage& waiting : std::exchange(m_stopping, {})) {
        QDBusConnection::sessionBus().send(
            state.is<RecordingState::Finished>()
                ? waiting.createReply(detail)
                : waiting.createErrorReply(QLatin1String(GrabOverBus::errorName),
                                           state.is<RecordingState::Idle>()
                                               ? QStringLiteral("The recording was cancelled.")
                                               : detail));
    }
}

} // namespace nubo
