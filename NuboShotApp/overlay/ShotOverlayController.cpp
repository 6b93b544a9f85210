#include "overlay/ShotOverlayController.h"

#include "core/Settings.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QThread>

namespace nubo {

ShotOverlayController::ShotOverlayController(QObject* parent) : QObject(parent) {}

ShotOverlayController::~ShotOverlayController()
{
    finish();
}

QList<ShotCaptureOverlay*> ShotOverlayController::overlays() const
{
    QList<ShotCaptureOverlay*> open;
    for (const QPointer<ShotCaptureOverlay>& overlay : m_overlays) {
        if (overlay) {
            open.append(overlay.data());
        }
    }
    return open;
}

void ShotOverlayController::present(const QList<DisplayCapture>& displays,
                                    const QList<CapturableWindow>& windows, CaptureMode mode)
{
    show(displays, windows, mode, {});
}

void ShotOverlayController::presentRecording(const QList<DisplayCapture>& displays,
                                             const QList<CaptureDisplay>& targets,
                                             const QList<CapturableWindow>& windows)
{
    show(displays, windows, CaptureMode::area, targets);
}

void ShotOverlayController::show(const QList<DisplayCapture>& displays,
                                 const QList<CapturableWindow>& windows, CaptureMode mode,
                                 const QList<CaptureDisplay>& targets)
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    finish();
    m_shown = false;
    if (m_preferences) {
        m_adjusts = m_preferences->boolean(keys::adjustArea, false);
        m_keyHelp = !m_preferences->boolean(keys::overlayKeyHelpSeen, false);
    }
    const auto overlayMode = mode == CaptureMode::window      ? ShotCaptureOverlay::Mode::window
                             : mode == CaptureMode::scrolling ? ShotCaptureOverlay::Mode::scrolling
                                                              : ShotCaptureOverlay::Mode::area;
    for (const DisplayCapture& display : displays) {
        std::optional<CaptureDisplay> recording;
        for (const CaptureDisplay& target : targets) {
            if (target.id == display.id) {
                recording = target;
            }
        }
        if (!targets.isEmpty() && !recording) {
            continue; // a display the recorder does not know cannot be recorded
        }
        auto* overlay = new ShotCaptureOverlay(display, windows, overlayMode, recording);
        overlay->setWindowPicking(m_windowPicking);
        overlay->setDesktopPicksWindows(m_desktopPicks);
        overlay->setAdjustsArea(m_adjusts);
        overlay->setKeyHelp(m_keyHelp);
        m_overlays.append(overlay);
        connect(overlay, &ShotCaptureOverlay::shown, this, [this] {
            if (!std::exchange(m_shown, true)) {
                emit shown();
            }
        });
        // The first answer wins; later events of the same presentation go
        // nowhere, as the overlays are gone.
        connect(overlay, &ShotCaptureOverlay::answered, this,
                [this](const ShotOverlayOutcome& outcome) {
                    if (isPresenting()) {
                        finish();
                        emit answered(outcome);
                    }
                });
        connect(overlay, &ShotCaptureOverlay::cancelled, this, [this] {
            if (isPresenting()) {
                finish();
                emit cancelled();
            }
        });
        // One area at a time over all displays: a new one drops the others.
        connect(overlay, &ShotCaptureOverlay::framingStarted, this, [this, overlay] {
            for (ShotCaptureOverlay* o : overlays()) {
                if (o != overlay) {
                    o->clearSelection();
                }
            }
        });
        connect(overlay, &ShotCaptureOverlay::keyHelpDismissed, this, [this] {
            m_keyHelp = false;
            for (ShotCaptureOverlay* o : overlays()) {
                o->setKeyHelp(false);
            }
            if (m_preferences) {
                m_preferences->setValue(keys::overlayKeyHelpSeen, true);
            }
            emit keyHelpDismissed();
        });
        connect(overlay, &ShotCaptureOverlay::modeToggled, this,
                [this](ShotCaptureOverlay::Mode next) {
                    for (ShotCaptureOverlay* o : overlays()) {
                        o->setMode(next);
                    }
                });
        if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
            // Windows cannot place themselves there: each overlay asks to
            // fill its screen, above the desktop's panels.
            for (QScreen* screen : QGuiApplication::screens()) {
                if (QRectF(screen->geometry()) == display.space.globalFrame) {
                    overlay->setScreen(screen);
                }
            }
            overlay->showFullScreen();
        } else {
            overlay->show();
        }
        overlay->raise();
        if (display.space.globalFrame.contains(QCursor::pos())) {
            overlay->activateWindow();
            overlay->setFocus();
            overlay->takeKeyboard();
        }
    }
}

void ShotOverlayController::finish()
{
    const auto open = std::exchange(m_overlays, {});
    for (const QPointer<ShotCaptureOverlay>& overlay : open) {
        if (overlay) {
            overlay->close(); // deletes itself
        }
    }
}

} // namespace nubo
