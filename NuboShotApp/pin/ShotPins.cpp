#include "pin/ShotPins.h"

#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "export/ShotQuickSave.h"
#include "output/ShotNotifications.h"
#include "pin/ShotPinWindow.h"

#include <QFutureWatcher>
#include <QGuiApplication>
#include <QtConcurrent>

namespace nubo {

ShotPins::ShotPins(ShotPreferences& preferences, QObject* parent)
    : QObject(parent), m_preferences(preferences)
{
}

ShotPins::~ShotPins()
{
    closeAll();
}

bool ShotPins::canKeepOnTop()
{
    // Wayland leaves the stacking to the desktop: a client's wish to stay
    // on top is not heard.
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

ShotPinWindow* ShotPins::pin(const ShotDocument& document, const QImage& picture, QPoint topLeft)
{
    auto* window = new ShotPinWindow(document, picture, composited && composited());
    window->openInEditor = [this](const ShotDocument& shot) {
        if (openInEditor) {
            openInEditor(shot);
        }
    };
    window->save = [this](const ShotDocument& shot, const QImage&) {
        auto* watcher = new QFutureWatcher<std::pair<QString, QString>>(this);
        connect(watcher, &QFutureWatcherBase::finished, this, [watcher] {
            watcher->deleteLater();
            const auto [path, failure] = watcher->result();
            if (failure.isEmpty()) {
                ShotNotifications::shared().notifySaved(path);
            } else {
                ShotNotifications::shared().notify(tr("Could Not Save Screenshot"), failure);
            }
        });
        watcher->setFuture(QtConcurrent::run([shot, &preferences = m_preferences]() -> std::pair<QString, QString> {
            try {
                return {ShotQuickSave::save(shot, ShotExporter::defaultScale(shot), preferences), {}};
            } catch (const Error& error) {
                return {{}, error.message()};
            }
        }));
    };
    connect(window, &ShotPinWindow::closed, this, [this, window] {
        m_pins.removeAll(window);
        emit changed();
    });
    m_pins.append(window);
    window->showAt(topLeft);
    qCInfo(lcApp, "Pinned a shot of %dx%d pixels", picture.width(), picture.height());
    if (!canKeepOnTop() && !std::exchange(m_toldNotOnTop, true)) {
        ShotNotifications::shared().notify(
            tr("Pinned as a normal window"),
            tr("This desktop does not let Nubo Shot keep a pinned shot above other windows; "
               "it stays where the desktop puts it."));
    }
    emit changed();
    return window;
}

QList<ShotPinWindow*> ShotPins::pins() const
{
    QList<ShotPinWindow*> open;
    for (const QPointer<ShotPinWindow>& pin : m_pins) {
        if (pin) {
            open.append(pin.data());
        }
    }
    return open;
}

void ShotPins::closeAll()
{
    for (ShotPinWindow* pin : pins()) {
        pin->close();
    }
}

} // namespace nubo
