#pragma once

#include "core/EnumStrings.h"
#include "core/Error.h"
#include "document/ShotDocument.h"

#include <QHash>
#include <QImage>
#include <QList>
#include <QRect>
#include <QRectF>
#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace nubo {

enum class CaptureMode { area, window, fullscreen, scrolling, text, lastArea };
template <> struct EnumNames<CaptureMode> {
    static constexpr std::array names{"area", "window", "fullscreen", "scrolling", "text", "last-area"};
};

// The one error of every capture path.
class CaptureError : public Error {
public:
    enum class Code { permissionDenied, cancelled, noContent };
    explicit CaptureError(Code code, QString detail = {});
    Code code() const noexcept { return m_code; }
    const QString& detail() const noexcept { return m_detail; }
    static QString messageFor(Code code);

private:
    Code m_code;
    QString m_detail;
};
template <> struct EnumNames<CaptureError::Code> {
    static constexpr std::array names{"permissionDenied", "cancelled", "noContent"};
};

struct DisplayCapture {
    quint32 id = 0;
    QImage image;
    ScreenSpace space;
};

// A display without its pixels: what listing the displays answers.
// `pixelGeometry` is in the backend's desktop pixels; `space` ties it to
// the desktop's logical coordinates and gives its scale.
struct CaptureDisplay {
    quint32 id = 0;
    QString name;
    QRect pixelGeometry;
    bool primary = false;
    ScreenSpace space;
    bool operator==(const CaptureDisplay&) const = default;
};

struct WindowCapture {
    QImage image;
    float scale = 1;
};

// A window the user may pick. `frame` is in global coordinates (points),
// decorations included.
struct CapturableWindow {
    quint32 id = 0;
    QString title;
    QString applicationName;
    QRectF frame;
    int layer = 0;
    bool operator==(const CapturableWindow&) const = default;
};

// A candidate window before filtering. `windowTypes` holds the window's
// EWMH types, lower case without prefix ("normal", "dock", "dropdown_menu").
struct WindowCaptureDescriptor {
    CapturableWindow window;
    std::optional<qint32> processID;
    bool isOnScreen = true;
    double alpha = 1;
    QStringList windowTypes;
};

// A display as the window filter sees it: its bounds and the height of the
// panel strip along its top edge.
struct WindowCaptureDisplay {
    QRectF frame;
    double panelStripHeight = 0;
};

struct WindowCaptureSnapshot {
    QList<CapturableWindow> windows; // front-most first
    QHash<quint32, QImage> previews; // by window id
};

struct WindowCaptureFraming {
    struct Display {
        quint32 id = 0;
        QRectF frame; // the window relative to the display's top-left corner
        bool operator==(const Display&) const = default;
    };
    struct Free {
        bool operator==(const Free&) const = default;
    };
    std::variant<Display, Free> framing;
    bool operator==(const WindowCaptureFraming&) const = default;

    // Display framing by the first display wholly containing the frame,
    // free framing otherwise.
    static WindowCaptureFraming forWindow(const QRectF& frame,
                                          const QList<std::pair<quint32, QRectF>>& displays);
    // Pixels for a size at a scale: rounded, never below 1 × 1.
    static QSize pixelSize(QSizeF size, double scale);
};

// A screen as the application's window system reports it: its name, its
// geometry in the desktop's points, and its pixels per point. Where the
// capture backend cannot list displays itself (the desktop portals), these
// are its displays.
struct DesktopScreen {
    QString name;
    QRect geometry;
    double scale = 1;
    bool operator==(const DesktopScreen&) const = default;
};

// A rectangle of one display: `pixelRect` in the display's own pixels (its
// size is the output size), `sourceRect` in the display's points (origin
// top-left), `globalRect` in the desktop's global points, to place chrome.
// Made from a framing by captureRegion() (CaptureSelection.h).
struct ScreenCaptureRegion {
    QRect pixelRect;
    QRectF sourceRect;
    QRectF globalRect;
    bool operator==(const ScreenCaptureRegion&) const = default;
};

} // namespace nubo
