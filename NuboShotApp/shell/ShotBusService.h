#pragma once

#include <QDBusMessage>
#include <QObject>
#include <QVariantList>

#include <memory>

namespace nubo {

class XcbScreenCapturer;

// What the running instance offers on the session bus. Captures run on a
// worker thread and answer when done, so the tray stays responsive.
class ShotBusService : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.corvane.lab.nuboshot")
public:
    explicit ShotBusService(std::shared_ptr<XcbScreenCapturer> capturer, QObject* parent = nullptr);

public slots:
    // "nuboshot grab" of another process, done here where everything is warm.
    QString Grab(int mode, qlonglong display, qlonglong window, const QVariantList& region,
                 const QString& output, double quality, const QString& xDisplay,
                 const QDBusMessage& message);

private:
    std::shared_ptr<XcbScreenCapturer> m_capturer;
};

} // namespace nubo
