#pragma once

#include "document/ShotDocument.h"

#include <QList>
#include <QObject>
#include <QPoint>
#include <QPointer>

#include <functional>

namespace nubo {

class ShotPinWindow;
class ShotPreferences;

// The shots pinned to the screen now, as the tray menu lists them.
class ShotPins : public QObject {
    Q_OBJECT
public:
    explicit ShotPins(ShotPreferences& preferences, QObject* parent = nullptr);
    ~ShotPins() override;

    // Pins `picture` (the document drawn at its scale) with its top-left
    // corner at `topLeft`, in global points. Where the desktop does not let
    // a window keep itself above the others, the pin is a normal window,
    // and the user is told once.
    ShotPinWindow* pin(const ShotDocument& document, const QImage& picture, QPoint topLeft);
    QList<ShotPinWindow*> pins() const;
    void closeAll();
    // Opens a pinned shot in an editor.
    std::function<void(const ShotDocument&)> openInEditor;
    // Whether translucent windows are blended here: pins cast a shadow then.
    std::function<bool()> composited;
    // Whether windows can stay above the others here.
    static bool canKeepOnTop();

signals:
    void changed();

private:
    ShotPreferences& m_preferences;
    QList<QPointer<ShotPinWindow>> m_pins;
    bool m_toldNotOnTop = false;
};

} // namespace nubo
