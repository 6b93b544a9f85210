#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariantList>

#include <memory>

namespace nubo {

class CapturePlatform;
class ShotFeature;

// What the running instance offers on the session bus. Captures run on a
// worker thread and answer when done, so the tray stays responsive.
class ShotBusService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.corvane.lab.nuboshot")
public:
    ShotBusService(std::shared_ptr<CapturePlatform> platform, ShotFeature& feature,
                   QObject* parent = nullptr);

public slots:
    // The automation intents: a capture by mode ("area", "window",
    // "fullscreen"), and images opened in editors.
    void CaptureShot(const QString& mode, const QDBusMessage& message);
    void OpenImage(const QStringList& files, const QDBusMessage& message);
    void Annotate(const QStringList& files, const QDBusMessage& message);

    // "nuboshot grab" of another process, done here where everything is warm.
    QString Grab(int mode, qlonglong display, qlonglong window, const QVariantList& region,
                 const QString& output, double quality, const QString& xDisplay,
                 const QDBusMessage& message);

private:
    std::shared_ptr<CapturePlatform> m_platform;
    ShotFeature& m_feature;
};

} // namespace nubo
