#pragma once

#include "shell/BusNames.h"

#include "capture/CaptureSelection.h"
#include "capture/ScreenCapturing.h"

#include <QRectF>
#include <QString>

#include <optional>

namespace nubo {

// One "grab" of the command line: what to capture and where to write it.
// Runs in the command's own process, or in the running tray instance, which
// has everything warm already.
struct GrabRequest {
    // pickedWindow: the window the user picks in the desktop's own dialog.
    enum class Mode { fullscreen, window, region, pickedWindow };
    Mode mode = Mode::fullscreen;
    std::optional<quint32> display; // fullscreen: one display
    quint32 window = 0;             // window: its id
    QRectF region;                  // region: desktop pixels, on the display holding its corner
    QString output;                 // absolute path; the format follows its extension
    double quality = 0.9;

    // Captures and writes; returns the path written. Throws Error.
    QString perform(ScreenCapturing& capturer) const;
    // Throws Error ("Grab refused: …") unless the request can be performed
    // as it stands: an absolute output path with a known format in an
    // existing folder, not a special file; a quality in 0…1; a window id or
    // a finite, non-empty region within desktop coordinates.
    void validate() const;
    // A region grab's framing: the same an area drawn on the overlay makes.
    ShotCaptureSelection framing(const QList<ScreenSpace>& displays) const;
};

// The running instance's side of a grab over the session bus, and the
// command line's: ask the instance, nothing when there is none (or it is on
// another display), its error when it failed.
class GrabOverBus {
public:
    static constexpr const char* path = bus::path;
    static constexpr const char* interface = bus::interface;
    static constexpr char errorName[] = "com.corvane.lab.nuboshot.Error";

    static std::optional<QString> ask(const GrabRequest& request);
    static QVariantList arguments(const GrabRequest& request);
    // The request another program sent; throws Error when any part of it
    // is not valid.
    static GrabRequest fromArguments(const QVariantList& arguments);
};

} // namespace nubo
