#include "shell/ShotFeature.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "output/ShotClipboard.h"
#include "output/ShotRawClipboardTracker.h"
#include "overlay/ShotCaptureOverlay.h"
#include "shell/EditorCommands.h"
#include "shell/ShotStatusMenu.h"

#include <QCursor>
#include <QGuiApplication>
#include <QMessageBox>
#include <QThread>

namespace nubo {

ShotFeature::ShotFeature(std::shared_ptr<XcbScreenCapturer> capturer, ShotPreferences& preferences,
                         ShotRenderer& renderer, QObject* parent)
    : QObject(parent), m_capturer(std::move(capturer)), m_preferences(preferences),
      m_renderer(renderer)
{
    presentAlert = [](const QString& title, const QString& text) {
        QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok);
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
        box.exec();
    };
}

ShotFeature::~ShotFeature()
{
    for (const QPointer<ShotEditorWindow>& editor : std::as_const(m_editors)) {
        delete editor.data();
    }
}

bool ShotFeature::isOffered(CaptureMode mode)
{
    return mode != CaptureMode::scrolling; // scrolling comes with its session
}

QList<ShotEditorWindow*> ShotFeature::editors() const
{
    QList<ShotEditorWindow*> open;
    for (const QPointer<ShotEditorWindow>& editor : m_editors) {
        if (editor) {
            open.append(editor.data());
        }
    }
    return open;
}

ShotEditorWindow* ShotFeature::openEditor(ShotDocument document)
{
    auto* editor = new ShotEditorWindow(std::move(document), m_preferences, m_renderer);
    if (m_accepted.isValid()) {
        // The first paint of the editor's canvas ends the capture's wait.
        const qint64 since = m_accepted.elapsed();
        connect(&editor->canvas(), &ShotCanvas::firstPainted, this, [this, since] {
            qCInfo(lcApp, "Capture editor shown after %lld ms (%lld ms to open)",
                   static_cast<long long>(m_accepted.elapsed()), static_cast<long long>(since));
            m_accepted.invalidate();
        });
    }
    ShotRawClipboardTracker& tracker = ShotRawClipboardTracker::shared();
    tracker.renderClipboardItem = [this](const ShotDocument& shot, double scale) {
        return ShotClipboard::renderItem(m_renderer, shot, scale);
    };
    tracker.adoptForEditor(&editor->model());
    // The first change of a shot whose raw form is on the clipboard says so once.
    connect(&editor->model(), &ShotEditorModel::changed, editor, [editor] {
        if (editor->model().canUndo()) {
            ShotRawClipboardTracker::shared().presentNotice = [editor](const QString& text) {
                editor->showNotice(text);
            };
            ShotRawClipboardTracker::shared().noticeIfStillRaw(&editor->model());
        }
    });
    editor->setAttribute(Qt::WA_DeleteOnClose);
    m_editors.append(editor);
    editor->show();
    editor->raise();
    editor->activateWindow();
    emit editorOpened(editor);
    return editor;
}

DisplayCapture ShotFeature::captureUnderPointer()
{
    // All displays are frozen first; fullscreen keeps the one under the pointer.
    const QPoint pointer = QCursor::pos();
    const auto displays = m_capturer->captureDisplays();
    qCInfo(lcApp, "Frozen displays ready count=%lld", static_cast<long long>(displays.size()));
    for (const DisplayCapture& display : displays) {
        if (display.space.globalFrame.contains(pointer)) {
            return display;
        }
    }
    return displays.first();
}

void ShotFeature::capture(CaptureMode mode)
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    m_requested.start();
    qCInfo(lcApp, "Capture requested mode=%s active=%d", qPrintable(toString(mode)),
           int(QGuiApplication::applicationState() == Qt::ApplicationActive));
    try {
        if (!isOffered(mode)) {
            throw Error(
                QStringLiteral("%1 is not available yet.").arg(ShotStatusMenu::captureTitle(mode)));
        }
        ShotScreenRecordingAccess access;
        access.probe = [this] {
            m_capturer->probe();
        };
        if (access.status() != ShotScreenRecordingAccess::Status::granted) {
            throw CaptureError(CaptureError::Code::permissionDenied);
        }
        qCInfo(lcApp, "Capture permission preflight passed");
        if (mode == CaptureMode::fullscreen) {
            const DisplayCapture display = captureUnderPointer();
            finishCapture(display.image, display.space.scale);
            return;
        }
        if (!m_overlays.isEmpty()) {
            return; // one capture at a time
        }
        // Every display frozen first; the user frames over these images.
        const QList<DisplayCapture> displays = m_capturer->captureDisplays();
        qCInfo(lcApp, "Frozen displays ready count=%lld", static_cast<long long>(displays.size()));
        const QList<CapturableWindow> windows = m_capturer->listWindows(false).windows;
        const auto overlayMode = mode == CaptureMode::window ? ShotCaptureOverlay::Mode::window
                                                             : ShotCaptureOverlay::Mode::area;
        for (const DisplayCapture& display : displays) {
            auto* overlay = new ShotCaptureOverlay(display, windows, overlayMode);
            m_overlays.append(overlay);
            const double scale = display.space.scale;
            connect(overlay, &ShotCaptureOverlay::shown, this, [this] {
                qCInfo(lcApp, "Capture overlay shown after %lld ms",
                       static_cast<long long>(m_requested.elapsed()));
            });
            connect(overlay, &ShotCaptureOverlay::finished, this,
                    [this, scale](std::optional<QImage> image) {
                        m_accepted.start();
                        closeOverlays();
                        if (!image) {
                            qCInfo(lcApp, "Capture cancelled");
                            return;
                        }
                        finishCapture(*image, scale);
                    });
            connect(overlay, &ShotCaptureOverlay::modeToggled, this,
                    [this](ShotCaptureOverlay::Mode next) {
                        for (const QPointer<ShotCaptureOverlay>& o : std::as_const(m_overlays)) {
                            if (o) {
                                o->setMode(next);
                            }
                        }
                    });
            overlay->show();
            overlay->raise();
            if (display.space.globalFrame.contains(QCursor::pos())) {
                overlay->activateWindow();
                overlay->setFocus();
            }
        }
    } catch (const CaptureError& error) {
        if (error.code() == CaptureError::Code::cancelled) {
            return; // the user changed their mind: nothing to say
        }
        qCWarning(lcApp, "Capture failed: %s", qPrintable(error.message()));
        presentAlert(QStringLiteral("Could Not Capture Screen"), error.message());
    } catch (const Error& error) {
        qCWarning(lcApp, "Capture failed: %s", qPrintable(error.message()));
        presentAlert(QStringLiteral("Could Not Capture Screen"), error.message());
    }
}

void ShotFeature::finishCapture(const QImage& image, double scale)
{
    qCInfo(lcApp, "Capture opening editor size=%dx%d", image.width(), image.height());
    ShotDocument document = ShotDocument::fromImage(image, scale);
    if (m_preferences.boolean(keys::copyRawOnCapture, false)) {
        try {
            ShotClipboard::shared().write(ShotClipboard::renderItem(m_renderer, document, scale));
            ShotRawClipboardTracker::shared().recordRawCopy(document, ShotClipboard::shared());
        } catch (const Error& error) {
            // The shot itself is fine: the editor still opens on it.
            qCWarning(lcApp, "Raw shot not copied: %s", qPrintable(error.message()));
        }
    }
    openEditor(std::move(document));
}

void ShotFeature::closeOverlays()
{
    for (const QPointer<ShotCaptureOverlay>& overlay : std::as_const(m_overlays)) {
        if (overlay) {
            overlay->close();
        }
    }
    m_overlays.clear();
}

QStringList ShotFeature::openFiles(const QStringList& files)
{
    QStringList failures;
    for (const QString& file : files) {
        try {
            openEditor(cli::openDocument(file));
        } catch (const Error& error) {
            failures << error.message();
        }
    }
    return failures;
}

} // namespace nubo
