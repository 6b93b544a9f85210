#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariantList>
#include <QVariantMap>

#include "recording/ScreenRecording.h"

#include <memory>

namespace nubo {

class CapturePlatform;
class ShotFeature;
class ShotRecordingFlow;

// What the running instance offers on the session bus. Captures run on a
// worker thread and answer when done, so the tray stays responsive.
class ShotBusService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.corvane.lab.nuboshot")
public:
    ShotBusService(std::shared_ptr<CapturePlatform> platform, ShotFeature& feature,
                   ShotRecordingFlow& recording, QObject* parent = nullptr);

public slots:
    // The automation intents: a capture by mode ("area", "window",
    // "fullscreen"), and images opened in editors.
    void CaptureShot(const QString& mode, const QDBusMessage& message);
    // The same with options: "delay" (seconds, int) and "pin" (bool).
    void CaptureShotWith(const QString& mode, const QVariantMap& options, const QDBusMessage& message);
    void OpenImage(const QStringList& files, const QDBusMessage& message);
    void Annotate(const QStringList& files, const QDBusMessage& message);

    // "nuboshot grab" of another process, done here where everything is warm.
    QString Grab(int mode, qlonglong display, qlonglong window, const QVariantList& region,
                 const QString& output, double quality, const QString& xDisplay,
                 const QDBusMessage& message);

    // "nuboshot grab ARGUMENTS" run in `workingFolder`, asked by the front
    // program: answers the command's exit code and what it prints on
    // standard output and standard error.
    void GrabCommand(const QStringList& arguments, const QString& workingFolder,
                     const QString& xDisplay, const QDBusMessage& message);

    // "Record Screen" as the menu does it (the .desktop action, scripts).
    void RecordScreen(const QDBusMessage& message);
    // The recording shortcut: Record Screen, or stop the recording under way.
    void ToggleRecording(const QDBusMessage& message);
    // Recording for "nuboshot record" (and scripts): the target as the
    // command line names it, the options as their JSON, the folder.
    void StartRecording(const QStringList& target, const QString& options, const QString& folder,
                        const QDBusMessage& message);
    void PauseRecording(const QDBusMessage& message);
    void ResumeRecording(const QDBusMessage& message);
    // Answers with the movie's path once it is complete.
    QString StopRecording(const QDBusMessage& message);
    void CancelRecording(const QDBusMessage& message);

signals:
    // Every change: "recording"/"paused" with the elapsed milliseconds,
    // "finished" with the file, "failed" with the message, "idle", …
    void RecordingStateChanged(const QString& state, const QString& detail);

private:
    void recordingStateChanged(const RecordingState& state);
    bool refuse(const QDBusMessage& message, const Error& error);
    // Whether this instance captures for a caller on `xDisplay`; otherwise
    // the caller is told NotSupported (it captures by itself).
    bool capturesFor(const QString& xDisplay, const QDBusMessage& message);
    QList<QDBusMessage> m_stopping; // answered when the movie is complete

    std::shared_ptr<CapturePlatform> m_platform;
    ShotFeature& m_feature;
    ShotRecordingFlow& m_recording;
};

} // namespace nubo
