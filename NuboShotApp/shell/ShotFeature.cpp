#include "shell/ShotFeature.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "editor/ShotCanvasView.h"
#include "editor/ShotEditorWindow.h"
#include "export/ShotExporter.h"
#include "output/ShotClipboard.h"
#include "output/ShotOutputActions.h"
#include "output/ShotRawClipboardTracker.h"
#include "output/ShotOutput.h"
#include "overlay/ShotOverlayController.h"
#include "pin/ShotPinWindow.h"
#include "pin/ShotPins.h"
#include "recents/ShotRecentStore.h"
#include "scrolling/ShotScrollingPanel.h"
#include "scrolling/ShotScrollingSession.h"
#include "shell/EditorCommands.h"
#include "shell/ShotStatusMenu.h"
#include "text/ShotTextReading.h"
#include "output/ShotNotifications.h"

#include <QCursor>
#include <QFutureWatcher>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPainter>
#include <QRegularExpression>
#include <QScreen>
#include <QThread>
#include <QtConcurrent>

namespace nubo {

namespace {
void drawPointer(ScreenCapturing& capturer, QList<DisplayCapture>& displays);
} // namespace

ShotFeature::ShotFeature(std::shared_ptr<CapturePlatform> platform, ShotPreferences& preferences,
                         ShotRenderer& renderer, QObject* parent)
    : QObject(parent), m_platform(std::move(platform)), m_preferences(preferences),
      m_renderer(renderer), m_overlay(std::make_unique<ShotOverlayController>()),
      m_pins(std::make_unique<ShotPins>(preferences))
{
    m_pins->openInEditor = [this](const ShotDocument& document) { openEditor(document); };
    m_pins->composited = [this] { return m_platform && m_platform->windowsComposited(); };
    presentAlert = [](const QString& title, const QString& text) {
        QMessageBox box(QMessageBox::Warning, title, text, QMessageBox::Ok);
        box.setWindowFlag(Qt::WindowStaysOnTopHint);
        box.exec();
    };
    ShotRawClipboardTracker::shared().presentFailure = [this](const QString& text) {
        presentAlert(tr("Could Not Copy Screenshot"), text);
    };
    connect(m_overlay.get(), &ShotOverlayController::shown, this, [this] {
        qCInfo(lcApp, "Capture overlay shown after %lld ms",
               static_cast<long long>(m_requested.elapsed()));
    });
    connect(m_overlay.get(), &ShotOverlayController::answered, this,
            [this](const ShotOverlayOutcome& outcome) {
                const auto& capture = std::get<ShotOverlayOutcome::Capture>(outcome.outcome);
                const ShotCaptureSelection& selection = capture.selection;
                m_pin = m_pin || capture.pin;
                if (m_mode == CaptureMode::scrolling) {
                    startScrolling(selection);
                } else {
                    m_accepted.start();
                    framed(selection);
                }
            });
    connect(m_overlay.get(), &ShotOverlayController::cancelled, this, [this] {
        qCInfo(lcApp, "Capture cancelled");
        m_frozen.clear();
        m_capturing = false;
    });
}

ShotFeature::~ShotFeature()
{
    delete m_scrolling.data();
    for (const QPointer<ShotEditorWindow>& editor : std::as_const(m_editors)) {
        delete editor.data();
    }
}

bool ShotFeature::isOffered(CaptureMode mode) const
{
    return !m_platform || m_platform->features().modes.contains(mode);
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
    editor->setAttribute(Qt::WA_DeleteOnClose);
    connect(editor, &ShotEditorWindow::pinRequested, this,
            [this, editor](const ShotDocument& shot, const QImage& picture) {
                // Over the editor's shot, where the user was looking.
                m_pins->pin(shot, picture, editor->view().mapToGlobal(QPoint(24, 24)));
            });
    m_editors.append(editor);
    editor->show();
    editor->raise();
    editor->activateWindow();
    emit editorOpened(editor);
    return editor;
}

void ShotFeature::capture(CaptureMode mode, ShotCaptureOptions options)
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    qCInfo(lcApp, "Capture requested mode=%s delay=%d pin=%d active=%d", qPrintable(toString(mode)),
           options.delaySeconds, int(options.pin),
           int(QGuiApplication::applicationState() == Qt::ApplicationActive));
    if (mode == CaptureMode::scrolling && m_scrolling) {
        m_scrolling->finish(); // asked again: the scrolling capture under way is done
        return;
    }
    if (!isOffered(mode)) {
        failed(tr("%1 is not available yet.").arg(ShotStatusMenu::captureTitle(mode)));
        return;
    }
    if (!m_platform->problem().isEmpty()) {
        failed(m_platform->problem());
        return;
    }
    if (isCapturing()) {
        qCInfo(lcApp, "Capture ignored: another one is under way");
        return; // one capture at a time
    }
    if (mode == CaptureMode::lastArea && !storedLastArea(m_preferences)) {
        failed(tr("No area has been captured yet. Frame one with Capture Area first."));
        return;
    }
    if (options.delaySeconds <= 0) {
        begin(mode, options);
        return;
    }
    // The screen is frozen when the delay is over: menus opened meanwhile
    // are in the shot. Escape drops the capture while the delay runs.
    m_delayed = {mode, options};
    m_delayLeft = options.delaySeconds;
    try {
        m_escape = m_platform->makeGlobalShortcuts();
    } catch (const Error& error) {
        qCInfo(lcApp, "Escape cannot cancel the delay: %s", qPrintable(error.message()));
    }
    if (m_escape) {
        m_escape->activated = [this](const QString&) {
            QMetaObject::invokeMethod(this, &ShotFeature::cancelDelay, Qt::QueuedConnection);
        };
        const QStringList problems = m_escape->bind({{QStringLiteral("cancelDelay"), QKeySequence(Qt::Key_Escape)}});
        if (!problems.isEmpty()) {
            qCInfo(lcApp, "Escape cannot cancel the delay: %s", qPrintable(problems.join(u' ')));
        }
    }
    if (!m_delayTimer) {
        m_delayTimer = new QTimer(this);
        m_delayTimer->setInterval(1000);
        connect(m_delayTimer, &QTimer::timeout, this, &ShotFeature::countDown);
    }
    m_delayTimer->start();
    emit delayChanged(m_delayLeft);
}

void ShotFeature::countDown()
{
    if (--m_delayLeft > 0) {
        emit delayChanged(m_delayLeft);
        return;
    }
    m_delayTimer->stop();
    m_escape.reset();
    emit delayChanged(0);
    auto [mode, options] = m_delayed;
    options.delaySeconds = 0;
    // The tray icon's last change is drawn before the screen is frozen.
    QTimer::singleShot(50, this, [this, mode, options] { begin(mode, options); });
}

void ShotFeature::cancelDelay()
{
    if (m_delayLeft <= 0) {
        return;
    }
    qCInfo(lcApp, "Delayed capture cancelled");
    m_delayLeft = 0;
    m_delayTimer->stop();
    m_escape.reset();
    emit delayChanged(0);
}

void ShotFeature::begin(CaptureMode mode, ShotCaptureOptions options)
{
    // A scrolling shot is stitched from the live screen, taken without the
    // pointer: the frozen area it starts from is left without it too.
    Freezing freezing{mode, QCursor::pos(), false,
                      mode != CaptureMode::scrolling &&
                          m_preferences.boolean(keys::includePointer, false),
                      std::nullopt};
    if (mode == CaptureMode::lastArea) {
        const std::optional<LastArea> lastArea = storedLastArea(m_preferences);
        if (!lastArea) {
            failed(tr("No area has been captured yet. Frame one with Capture Area first."));
            return;
        }
        m_lastArea = *lastArea;
        freezing.display = lastArea->display;
    }
    m_capturing = true;
    m_mode = mode;
    m_pin = options.pin;
    m_requested.start();
    // Where the desktop lists its windows to nobody, its dialog picks.
    freezing.pickWindow = mode == CaptureMode::window && m_platform->features().windowPicker;
    freezeThenShow(mode, [capturer = m_platform->capturer(), freezing] {
        return freeze(*capturer, freezing);
    });
}

namespace {

// The pointer as it was, painted onto the frozen displays it lies on.
void drawPointer(ScreenCapturing& capturer, QList<DisplayCapture>& displays)
{
    const std::optional<ScreenFrameCursor> pointer = capturer.pointerPicture();
    if (!pointer) {
        qCInfo(lcApp, "The pointer cannot be included: this desktop does not give its picture");
        return;
    }
    const QList<CaptureDisplay> geometry = capturer.displays();
    for (DisplayCapture& display : displays) {
        for (const CaptureDisplay& d : geometry) {
            const QRect picture(pointer->topLeft, pointer->image.size());
            if (d.id != display.id || !d.pixelGeometry.intersects(picture)) {
                continue;
            }
            QPainter painter(&display.image);
            painter.drawImage(pointer->topLeft - d.pixelGeometry.topLeft(), pointer->image);
        }
    }
}

} // namespace

ShotFeature::Frozen ShotFeature::freeze(ScreenCapturing& capturer, const Freezing& freezing)
{
    Frozen result;
    const CaptureMode mode = freezing.mode;
    try {
        if (freezing.pickWindow) {
            result.picked = capturer.pickWindow();
            return result;
        }
        // X11 has no capture permission: a failing probe is whatever went
        // wrong (its own error, with its cause), never "permission
        // required". A backend with a real permission answers
        // permissionDenied from its probe itself.
        capturer.probe();
        qCInfo(lcApp, "Capture permission preflight passed");
        if (freezing.display) {
            const QList<CaptureDisplay> displays = capturer.displays();
            if (std::none_of(displays.begin(), displays.end(),
                             [id = *freezing.display](const CaptureDisplay& d) { return d.id == id; })) {
                result.error = tr("The display of the previous area is no longer connected.");
                return result;
            }
            result.displays = capturer.captureDisplays(*freezing.display);
        } else if (mode == CaptureMode::fullscreen) {
            const QList<CaptureDisplay> displays = capturer.displays();
            quint32 chosen = displays.first().id;
            for (const CaptureDisplay& d : displays) {
                if (d.space.globalFrame.contains(freezing.pointer)) {
                    chosen = d.id;
                    break;
                }
            }
            result.displays = capturer.captureDisplays(chosen);
        } else {
            // Every display frozen first; the user frames over these images.
            result.displays = capturer.captureDisplays();
            if (mode != CaptureMode::scrolling) { // only areas are scrolled
                result.windows = capturer.listWindows(false).windows;
            }
        }
        if (freezing.withPointer) {
            drawPointer(capturer, result.displays);
        }
        qCInfo(lcApp, "Frozen displays ready count=%lld",
               static_cast<long long>(result.displays.size()));
    } catch (const CaptureError& error) {
        result.cancelled = error.code() == CaptureError::Code::cancelled;
        result.error = error.message();
        if (!error.detail().isEmpty()) {
            qCWarning(lcApp, "Capture failed because %s", qPrintable(error.detail()));
        }
    } catch (const Error& error) {
        result.error = error.message();
    }
    return result;
}

void ShotFeature::freezeThenShow(CaptureMode mode, std::function<Frozen()> work)
{
    auto* watcher = new QFutureWatcher<Frozen>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, mode] {
        watcher->deleteLater();
        frozen(mode, watcher->result());
    });
    watcher->setFuture(QtConcurrent::run(std::move(work)));
}

void ShotFeature::frozen(CaptureMode mode, const Frozen& result)
{
    if (result.cancelled) {
        m_capturing = false;
        return; // the user changed their mind: nothing to say
    }
    if (!result.error.isEmpty()) {
        failed(result.error);
        return;
    }
    if (result.picked) {
        m_accepted.start();
        if (m_mode == CaptureMode::text) {
            copyText(result.picked->image, result.picked->scale);
        } else {
            finishCapture(result.picked->image, result.picked->scale);
        }
        return;
    }
    if (mode == CaptureMode::fullscreen) {
        m_accepted.start();
        const DisplayCapture& display = result.displays.first();
        finishCapture(display.image, display.space.scale, {}, display.space.globalFrame.topLeft().toPoint());
        return;
    }
    if (mode == CaptureMode::lastArea) {
        m_accepted.start();
        captureLastArea(m_lastArea, result.displays);
        return;
    }
    m_frozen = result.displays;
    m_overlay->setWindowPicking(isOffered(CaptureMode::window));
    m_overlay->setDesktopPicksWindows(m_platform->features().windowPicker);
    m_overlay->followPreferences(&m_preferences);
    m_overlay->present(result.displays, result.windows, mode);
}

void ShotFeature::framed(const ShotCaptureSelection& selection)
{
    const QList<DisplayCapture> frozen = std::exchange(m_frozen, {});
    if (const auto* w = std::get_if<ShotCaptureSelection::Window>(&selection.framing);
        w && isPickedWindow(w->window)) {
        // Space on the overlay: the desktop's dialog picks the window.
        freezeThenShow(CaptureMode::window, [capturer = m_platform->capturer()] {
            return freeze(*capturer, {CaptureMode::window, {}, true, false, std::nullopt});
        });
        return;
    }
    QList<ScreenSpace> spaces;
    for (const DisplayCapture& d : frozen) {
        spaces.append(d.space);
    }
    try {
        // The framing cut from the frozen image: exactly what the user saw.
        const ScreenCaptureRegion region = captureRegion(selection, spaces);
        for (const DisplayCapture& d : frozen) {
            if (d.id == selection.display()) {
                const QImage image = region.pixelRect == d.image.rect()
                                         ? d.image
                                         : d.image.copy(region.pixelRect);
                rememberLastArea({d.id, region.pixelRect, d.image.size()});
                if (m_mode == CaptureMode::text) {
                    copyText(image, d.space.scale);
                } else {
                    finishCapture(image, d.space.scale, {},
                                  (d.space.globalFrame.topLeft() +
                                   QPointF(region.pixelRect.topLeft()) / d.space.scale).toPoint());
                }
                return;
            }
        }
    } catch (const Error& error) {
        failed(error.message());
        return;
    }
    failed(CaptureError::messageFor(CaptureError::Code::noContent));
}

std::optional<ShotFeature::LastArea> ShotFeature::storedLastArea(const ShotPreferences& preferences)
{
    const QStringList words =
        preferences.string(keys::lastArea).value_or(QString()).split(u' ', Qt::SkipEmptyParts);
    if (words.size() != 7) {
        return std::nullopt;
    }
    qint64 numbers[7];
    for (int i = 0; i < 7; ++i) {
        bool ok = false;
        numbers[i] = words[i].toLongLong(&ok);
        if (!ok || numbers[i] < 0 || numbers[i] > (i == 0 ? 0xffffffffLL : 65536)) {
            return std::nullopt; // a hand-edited value: as if none were stored
        }
    }
    const LastArea area{quint32(numbers[0]), QRect(int(numbers[1]), int(numbers[2]), int(numbers[3]), int(numbers[4])),
                        QSize(int(numbers[5]), int(numbers[6]))};
    if (area.pixels.isEmpty() || !QRect(QPoint(), area.displaySize).contains(area.pixels)) {
        return std::nullopt;
    }
    return area;
}

void ShotFeature::rememberLastArea(const LastArea& area)
{
    m_preferences.setValue(keys::lastArea, QStringLiteral("%1 %2 %3 %4 %5 %6 %7")
                                               .arg(area.display)
                                               .arg(area.pixels.x())
                                               .arg(area.pixels.y())
                                               .arg(area.pixels.width())
                                               .arg(area.pixels.height())
                                               .arg(area.displaySize.width())
                                               .arg(area.displaySize.height()));
}

void ShotFeature::captureLastArea(const LastArea& area, const QList<DisplayCapture>& displays)
{
    for (const DisplayCapture& display : displays) {
        if (display.id != area.display) {
            continue;
        }
        if (display.image.size() != area.displaySize) {
            failed(tr("The display of the previous area changed its size (%1 × %2 pixels, "
                      "now %3 × %4). Frame the area again.")
                       .arg(area.displaySize.width())
                       .arg(area.displaySize.height())
                       .arg(display.image.width())
                       .arg(display.image.height()));
            return;
        }
        finishCapture(display.image.copy(area.pixels), display.space.scale, {},
                      (display.space.globalFrame.topLeft() +
                       QPointF(area.pixels.topLeft()) / display.space.scale).toPoint());
        return;
    }
    failed(tr("The display of the previous area is no longer connected."));
}

void ShotFeature::startScrolling(const ShotCaptureSelection& selection)
{
    const QList<DisplayCapture> frozen = std::exchange(m_frozen, {});
    QList<ScreenSpace> spaces;
    std::optional<ScreenSpace> display;
    QImage picture;
    for (const DisplayCapture& d : frozen) {
        spaces.append(d.space);
        if (d.id == selection.display()) {
            display = d.space;
            picture = d.image;
        }
    }
    if (!display) {
        failed(CaptureError::messageFor(CaptureError::Code::noContent));
        return;
    }
    auto* session =
        new ShotScrollingSession(m_platform, *display, spaces, selection.globalRect(), picture, this);
    m_scrolling = session;
    connect(session, &ShotScrollingSession::finished, this,
            [this, session](const QImage& image, double scale, const QString& notice) {
                session->deleteLater();
                m_accepted.start();
                finishCapture(image, scale, notice);
            });
    connect(session, &ShotScrollingSession::cancelled, this, [this, session] {
        session->deleteLater();
        m_capturing = false;
    });
    connect(session, &ShotScrollingSession::failed, this,
            [this, session](const QString& message) {
                session->deleteLater();
                failed(message);
            });
    try {
        session->start();
    } catch (const CaptureError& error) {
        qCWarning(lcScrolling, "Scrolling capture could not start: %s", qPrintable(error.detail()));
        delete session;
        failed(error.message());
    } catch (const Error& error) {
        delete session;
        failed(error.message());
    }
}

void ShotFeature::failed(const QString& message)
{
    m_capturing = false;
    qCWarning(lcApp, "Capture failed: %s", qPrintable(message));
    presentAlert(tr("Could Not Capture Screen"), message);
}

void ShotFeature::finishCapture(const QImage& image, double scale, const QString& notice,
                                std::optional<QPoint> where)
{
    m_capturing = false;
    if (std::exchange(m_pin, false)) {
        try {
            // Where it was on the screen, else in the middle of the screen.
            const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
            const QPoint at = where.value_or(screen.center() - QPoint(int(image.width() / scale / 2),
                                                                      int(image.height() / scale / 2)));
            ShotPinWindow* pin = m_pins->pin(ShotDocument::fromImage(image, scale), image, at);
            if (m_accepted.isValid()) {
                connect(pin, &ShotPinWindow::firstPainted, this, [this] {
                    qCInfo(lcApp, "Pin shown after %lld ms", static_cast<long long>(m_accepted.elapsed()));
                    m_accepted.invalidate();
                });
            }
        } catch (const Error& error) {
            failed(error.message());
        }
        return;
    }
    qCInfo(lcApp, "Capture opening editor size=%dx%d", image.width(), image.height());
    ShotDocument document;
    try {
        document = ShotDocument::fromImage(image, scale);
    } catch (const Error& error) {
        failed(error.message()); // beyond what a shot may hold
        return;
    }
    ShotEditorWindow* editor = openEditor(document);
    if (!notice.isEmpty()) {
        editor->showNotice(notice);
    }
    if (m_recents) {
        followInRecents(editor, m_recents->recordCapture(document, toString(m_mode)));
    }
    if (m_preferences.boolean(keys::copyRawOnCapture, false)) {
        copyRaw(editor, document);
    }
}

void ShotFeature::copyText(const QImage& image, double scale)
{
    m_capturing = false; // the next capture need not wait for the reading
    QImage picture = image;
    picture.setDevicePixelRatio(scale);
    const auto openInEditor = [this, image, scale] {
        try {
            openEditor(ShotDocument::fromImage(image, scale));
        } catch (const Error& error) {
            presentAlert(tr("Could Not Open Screenshot"), error.message());
        }
    };
    readShot(picture, recognitionLanguages(m_preferences), true, this,
             [this, openInEditor](const ShotReading& reading) {
        if (!reading.error.isEmpty()) {
            qCWarning(lcApp, "Text not read: %s", qPrintable(reading.error));
            presentAlert(tr("Could Not Read Text"), reading.error);
            return;
        }
        // Text first; a code alone (a QR code framed by itself) gives its own text.
        QString text = reading.text.text();
        int words = reading.text.wordCount();
        if (text.trimmed().isEmpty()) {
            QStringList codes;
            for (const ReadCode& code : reading.codes) {
                codes << code.text;
            }
            text = codes.join(u'\n');
            words = int(text.split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts).size());
        }
        ShotNotifications& notifications = ShotNotifications::shared();
        if (text.trimmed().isEmpty()) {
            notifications.notifyAction(tr("No Text Found"),
                                       tr("No text could be read in the framed area."),
                                       tr("Open in Editor"), openInEditor);
            return;
        }
        auto item = std::make_unique<QMimeData>();
        item->setText(text);
        ShotClipboard::shared().write(std::move(item));
        // The start of the text, on one line, as the notification shows it.
        QString start = text.simplified();
        if (start.size() > 80) {
            start = start.left(79) + QChar(0x2026);
        }
        notifications.notifyAction(tr("Copied %n word(s)", nullptr, words), start,
                                   tr("Open in Editor"), openInEditor);
    });
}

void ShotFeature::followInRecents(ShotEditorWindow* editor, const QUuid& id)
{
    if (id.isNull()) {
        return;
    }
    connect(&editor->output(), &ShotOutputActions::shotOutput, this,
            [this, id](const ShotOutputEvent& event) {
                if (m_recents) {
                    m_recents->recordOutput(id, event.document);
                }
            });
}

void ShotFeature::openRecent(const QUuid& id)
{
    if (!m_recents) {
        return;
    }
    m_recents->open(id, [this, id](std::optional<ShotDocument> document, const QString& error) {
        if (!document) {
            presentAlert(tr("Could Not Open Recent Image"), error);
            return;
        }
        ShotEditorWindow* editor = openEditor(*document);
        // A capture's entry follows its edits from here too.
        for (const ShotRecentEntry& entry : m_recents->entries()) {
            if (entry.record.id == id && entry.record.isCapture()) {
                followInRecents(editor, id);
            }
        }
    });
}

void ShotFeature::copyRaw(ShotEditorWindow* editor, const ShotDocument& document)
{
    // The raw shot is encoded while the editor opens, then goes on the
    // clipboard and to that editor, which replaces it when edited.
    using Encoded = std::pair<QByteArray, QString>;
    auto* watcher = new QFutureWatcher<Encoded>(this);
    connect(watcher, &QFutureWatcherBase::finished, this,
            [watcher, document, guard = QPointer<ShotEditorWindow>(editor)] {
                watcher->deleteLater();
                const auto [png, failure] = watcher->result();
                if (!failure.isEmpty()) {
                    // The shot itself is fine: the editor is open on it.
                    qCWarning(lcApp, "Raw shot not copied: %s", qPrintable(failure));
                    return;
                }
                ShotClipboard& clipboard = ShotClipboard::shared();
                clipboard.write(ShotClipboard::makeItem(png));
                ShotRawClipboardTracker::shared().recordRawCopy(document, clipboard);
                if (guard) {
                    guard->output().adoptRawCopy();
                }
            });
    watcher->setFuture(QtConcurrent::run([&renderer = m_renderer, document]() -> Encoded {
        try {
            return {ShotClipboard::encodeItem(renderer, document,
                                              ShotExporter::defaultScale(document)),
                    {}};
        } catch (const Error& error) {
            return {{}, error.message()};
        }
    }));
}

void ShotFeature::openFiles(const QStringList& files,
                            std::function<void(const QStringList& failures)> done)
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    struct Opened {
        QList<ShotDocument> documents;
        QStringList failures;
    };
    auto* watcher = new QFutureWatcher<Opened>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher, done] {
        watcher->deleteLater();
        const Opened opened = watcher->result();
        for (const ShotDocument& document : opened.documents) {
            openEditor(document);
        }
        for (const QString& failure : opened.failures) {
            qCWarning(lcApp, "Not opened: %s", qPrintable(failure));
        }
        done(opened.failures);
    });
    watcher->setFuture(QtConcurrent::run([files] {
        Opened opened;
        for (const QString& file : files) {
            try {
                opened.documents.append(cli::openDocument(file));
            } catch (const Error& error) {
                opened.failures << error.message();
            }
        }
        return opened;
    }));
}

} // namespace nubo
