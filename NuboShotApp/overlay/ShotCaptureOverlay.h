#pragma once

#include "capture/CaptureSelection.h"
#include "recording/RecordingTypes.h"

#include <QElapsedTimer>
#include <QWidget>

#include <functional>
#include <optional>

namespace nubo {

// The overlay's answer: what the user framed, for a still capture, or what
// to record, in the recording variant.
struct ShotOverlayOutcome {
    struct Capture {
        ShotCaptureSelection selection;
        bool pin = false; // P: pinned to the screen instead of edited
        bool operator==(const Capture&) const = default;
    };
    struct Recording {
        RecordingTarget target;
        bool operator==(const Recording&) const = default;
    };
    std::variant<Capture, Recording> outcome;
    bool operator==(const ShotOverlayOutcome&) const = default;
};

// The frozen screen of one display, dimmed, over which the user frames a
// shot: an area by dragging (then handles, arrow keys, Return), or a window
// by pointing at it. It answers with the framing, not with pixels: the
// caller cuts stills from the frozen image (so they are exactly what was on
// screen), and scrolling and recording take the same framing.
class ShotCaptureOverlay : public QWidget {
    Q_OBJECT
public:
    static constexpr double minimumSide = 4; // points: smaller selections are not taken
    static constexpr double handleReach = 8; // points around a corner that grab it

    // `scrolling` frames an area like `area`, without the switch to windows.
    enum class Mode { area, window, scrolling };

    // `recording` (the display as the recorder knows it) makes the recording
    // variant: it answers with a recording target, and a click or F takes
    // the whole display.
    ShotCaptureOverlay(DisplayCapture display, QList<CapturableWindow> windows, Mode mode,
                       std::optional<CaptureDisplay> recording = std::nullopt,
                       QWidget* parent = nullptr);

    Mode mode() const { return m_mode; }
    void setMode(Mode mode);
    // The selection in display-local points.
    const std::optional<QRectF>& selection() const { return m_selection; }
    void setSelection(const QRectF& rect);
    const DisplayCapture& display() const { return m_display; }

    bool isRecording() const { return m_recording.has_value(); }
    // Whether Space switches to picking windows: not where the desktop
    // lets no program point at its windows (Wayland through the portals).
    void setWindowPicking(bool on);
    // Whether Space hands the choice of a window to the desktop's own dialog
    // at once (the desktop lists its windows to nobody): the answer is a
    // window with id 0, picked when the capture or recording starts.
    void setDesktopPicksWindows(bool on);
    // Whether a dragged area stays on screen to be adjusted (handles, arrow
    // keys, Alt+arrows) until Return or a double click takes it; otherwise
    // releasing the button takes it.
    void setAdjustsArea(bool on);
    bool adjustsArea() const { return m_adjusts; }
    // Whether the card of keys shows (until a click on it dismisses it).
    void setKeyHelp(bool on);
    bool showsKeyHelp() const { return m_keyHelp; }
    // Where the card of keys lies, in overlay points.
    QRectF keyHelpArea() const;
    // Forgets the selection (another display's overlay took the framing).
    void clearSelection();
    // Takes the keyboard for this overlay (the one the pointer is on).
    void takeKeyboard();

    // The instruction line of a mode, in either variant.
    static QString instruction(Mode mode, bool recording = false, bool windowPicking = true,
                               bool desktopPicks = false);
    // The corner handle a point grabs: within handleReach on both axes, the
    // nearest, ties in the order top-left, top-right, bottom-right, bottom-left.
    static std::optional<ResizeHandle> cornerAt(const QRectF& selection, QPointF point);
    // The selection moved by arrow keys, kept inside the display.
    static QRectF nudged(const QRectF& selection, QPointF by, const QSizeF& bounds);
    // The selection with its right and bottom edges moved by Alt+arrow keys:
    // never smaller than minimumSide, never past the display.
    static QRectF grown(const QRectF& selection, QPointF by, const QSizeF& bounds);
    // The instruction line while an area waits to be adjusted and confirmed.
    static QString adjustingInstruction(bool recording);

signals:
    // What the user framed; once, unless cancelled.
    void answered(const ShotOverlayOutcome& outcome);
    // Escape.
    void cancelled();
    // Space switches every overlay between area and window mode.
    void modeToggled(Mode mode);
    // The first time the frozen screen is on the display.
    void shown();
    // A drag of a new area began here.
    void framingStarted();
    // A click on the card of keys: not to be shown again.
    void keyHelpDismissed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void accept(const ShotCaptureSelection& selection, bool pin = false);
    void acceptSelection(bool pin = false);
    void acceptWholeDisplay();
    std::optional<CapturableWindow> windowAt(QPointF local) const;
    QRectF localFrame(const CapturableWindow& window) const;

    DisplayCapture m_display;
    QList<CapturableWindow> m_windows;
    Mode m_mode;
    bool m_windowPicking = true;
    bool m_desktopPicks = false;
    std::optional<CaptureDisplay> m_recording;
    std::optional<QRectF> m_selection;
    std::optional<QPointF> m_dragStart;
    std::optional<ResizeHandle> m_resizing;
    // While the selection is dragged whole: the pointer's offset from its corner.
    std::optional<QPointF> m_moveGrip;
    bool m_adjusts = false;
    bool m_keyHelp = false;
    // The press dismissed the card of keys: its release does nothing.
    bool m_swallowRelease = false;
    // The handle a point grabs: a corner, or in adjusting an edge's middle too.
    std::optional<ResizeHandle> handleAt(QPointF point) const;
    void paintKeyHelp(QPainter& painter);
    std::optional<CapturableWindow> m_hovered;
    bool m_painted = false;
    QPointF m_cursor;
    // Whether the pointer is over this display (the magnifier follows it
    // there before a drag starts).
    bool m_pointerHere = false;
    // Where the magnifier and its label are drawn for the pointer at `cursor`.
    QRectF lensArea(QPointF cursor) const;
    bool showsLens() const;
    std::optional<ResizeHandle> m_hoveredCorner;
    QElapsedTimer m_hoverStarted;
};

} // namespace nubo
