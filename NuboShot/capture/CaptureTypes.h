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

enum class CaptureMode { area, window, fullscreen, scrolling };
template <> struct EnumNames<CaptureMode> {
    static constexpr std::array names{"area", "window", "fullscreen", "scrolling"};
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

// A candidate window before filtering. On X11 `bundleID` stays empty (there
// are no bundles) and `windowTypes` holds the window's EWMH types, lower
// case without prefix ("normal", "dock", "dropdown_menu").
struct WindowCaptureDescriptor {
    CapturableWindow window;
    std::optional<qint32> processID;
    std::optional<QString> bundleID;
    bool isOnScreen = true;
    double alpha = 1;
    std::optional<int> cgLayer;
    QStringList windowTypes;
};

// A display as the window filter sees it: its bounds and the height of the
// panel strip along its top edge.
struct WindowCaptureDisplay {
    QRectF frame;
    double menuBarHeight = 0;
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

// A rectangle of one display: `pixelRect` sets the output size, `sourceRect`
// is in the display's points (origin top-left), `globalRect` places chrome.
struct ScreenCaptureRegion {
    QRect pixelRect;
    QRectF sourceRect;
    QRectF globalRect;
    bool operator==(const ScreenCaptureRegion&) const = default;
};

struct ScreenRegionFrame {
    QImage image;
};

// A running region stream with one consumer.
class ScreenRegionStream {
public:
    virtual ~ScreenRegionStream() = default;
    // The next frame, waiting for it; nothing once the stream has stopped.
    // Throws CaptureError when capturing fails.
    virtual std::optional<ScreenRegionFrame> next() = 0;
    // Ends the stream promptly; a waiting next() returns nothing.
    virtual void stopCapture() = 0;
};

// What the capture commands, the overlay and the scrolling session ask of
// the platform. Calls block; callers run them off the main thread.
class ScreenCapturing {
public:
    virtual ~ScreenCapturing() = default;
    virtual WindowCaptureSnapshot listWindows(bool withPreviews) = 0;
    // Every display, or the one asked for.
    virtual QList<DisplayCapture>
    captureDisplays(std::optional<quint32> display = std::nullopt) = 0;
    virtual WindowCapture captureWindow(quint32 windowID) = 0;
    virtual QImage captureRegion(quint32 display, const ScreenCaptureRegion& region) = 0;
};

class ScreenRegionStreaming {
public:
    virtual ~ScreenRegionStreaming() = default;
    virtual std::unique_ptr<ScreenRegionStream> streamRegion(quint32 display,
                                                             const ScreenCaptureRegion& region) = 0;
};

// Which windows the user may pick, front-most order kept.
class WindowCaptureFilter {
public:
    static bool keep(const WindowCaptureDescriptor& descriptor,
                     const QList<WindowCaptureDisplay>& displays, qint32 ownProcessID);
    static QList<CapturableWindow> filter(const QList<WindowCaptureDescriptor>& descriptors,
                                          const QList<WindowCaptureDisplay>& displays,
                                          qint32 ownProcessID);
};

// Whether the program may capture the screen. On X11 there is no permission:
// access is granted when a 1 × 1 capture succeeds and missing when the
// display cannot be reached. The inputs can be replaced.
class ShotScreenRecordingAccess {
public:
    enum class Status { missing, granted, restartRequired };

    bool verifiedLiveGrant = false;
    std::function<bool()> cgPreflight;
    std::function<bool()> liveGrant;
    std::function<void()> probe; // throws when a capture fails

    ShotScreenRecordingAccess();
    Status status();
};
template <> struct EnumNames<ShotScreenRecordingAccess::Status> {
    static constexpr std::array names{"missing", "granted", "restartRequired"};
};

} // namespace nubo
