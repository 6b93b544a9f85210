#include "output/ShotOutputActions.h"

#include "core/BackgroundThread.h"
#include "core/Error.h"
#include "core/Logging.h"
#include "core/Settings.h"
#include "export/ShotExporter.h"
#include "export/ShotFileName.h"
#include "export/ShotQuickSave.h"
#include "output/ShotBottomBar.h"
#include "output/ShotClipboard.h"
#include "output/ShotNotifications.h"
#include "output/ShotOutputHost.h"
#include "output/ShotRawClipboardTracker.h"
#include "output/ShotSaveOptions.h"
#include "output/ShotApplications.h"
#include "output/ShotShare.h"
#include "output/ShotUpload.h"

#include <QDrag>
#include <QFileDialog>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QGuiApplication>
#include <QClipboard>
#include <QMessageBox>
#include <QPushButton>
#include <QMimeData>
#include <QThread>
#include <QThreadPool>
#include <QTimeZone>
#include <QToolButton>
#include <QUrl>
#include <QtConcurrent>

namespace nubo {

namespace {

void assertMainThread()
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
}

// Runs `work`, turning an Error into the failure it reports.
template <class Work> auto guarded(Work work)
{
    return [work = std::move(work)]() {
        try {
            return work();
        } catch (const Error& error) {
            decltype(work()) failed;
            failed.error = error.message();
            return failed;
        }
    };
}

// The threads that draw, encode and write outputs, and nothing else: they
// run below the user interface's priority for good.
QThreadPool& outputPool()
{
    static QThreadPool* pool = [] {
        auto* p = new QThreadPool;
        p->setObjectName(QStringLiteral("NuboShot output"));
        return p;
    }();
    return *pool;
}

} // namespace

ShotOutputActions::ShotOutputActions(ShotOutputHost& host, ShotPreferences& preferences,
                                     ShotRenderer& renderer, QObject* parent)
    : QObject(parent), m_host(host), m_preferences(preferences), m_renderer(renderer),
      m_bar(new ShotBottomBar(host.outputWindow())),
      m_upload(new ShotUploadStatus(preferences, this))
{
    presentFailure = [this](const QString& title, const QString& message) {
        QMessageBox box(QMessageBox::Warning, title, message, QMessageBox::Ok,
                        m_host.outputWindow());
        box.setWindowModality(Qt::WindowModal);
        box.exec();
    };
    connect(m_bar, &ShotBottomBar::copyRequested, this,
            [this] { copy(QGuiApplication::queryKeyboardModifiers()); });
    connect(m_bar, &ShotBottomBar::quickSaveRequested, this,
            [this] { quickSave(QGuiApplication::queryKeyboardModifiers()); });
    connect(m_bar, &ShotBottomBar::saveAsRequested, this, &ShotOutputActions::saveAs);
    connect(m_bar->dragHandle(), &ShotDragHandle::pressed, this, &ShotOutputActions::prepareDrag);
    connect(m_bar, &ShotBottomBar::dragRequested, this, &ShotOutputActions::dragOut);
    connect(m_bar, &ShotBottomBar::shareRequested, this, &ShotOutputActions::share);
    connect(m_bar, &ShotBottomBar::openWithRequested, this, &ShotOutputActions::openWith);
    confirmUnknownRetry = [this] {
        QMessageBox box(QMessageBox::Question, tr("Upload"),
                        tr("Upload outcome unknown. Retry may create a duplicate upload."),
                        QMessageBox::NoButton, m_host.outputWindow());
        QPushButton* retry = box.addButton(tr("Retry upload"), QMessageBox::AcceptRole);
        box.setDefaultButton(box.addButton(QMessageBox::Cancel));
        box.setWindowModality(Qt::WindowModal);
        box.exec();
        return box.clickedButton() == retry;
    };
    connect(m_bar, &ShotBottomBar::uploadRequested, this, [this] { upload(); });
    connect(m_bar, &ShotBottomBar::uploadToRequested, this,
            [this](ShotUploadDestination destination) { upload(destination); });
    connect(m_bar, &ShotBottomBar::cancelUploadRequested, m_upload, &ShotUploadStatus::cancel);
    connect(m_upload, &ShotUploadStatus::changed, this, &ShotOutputActions::showUpload);
    showUpload();
    // Settings changed elsewhere show when the user comes back to the editor.
    m_host.outputWindow()->installEventFilter(this);
    // Without a portal there is nobody to share with: no button then.
    m_bar->setShareAvailable(ShotShare::isAvailable());

    ShotRawClipboardTracker& tracker = ShotRawClipboardTracker::shared();
    tracker.encodeClipboardItem = [&renderer](const ShotDocument& shot, double scale) {
        return ShotClipboard::encodeItem(renderer, shot, scale);
    };
    tracker.adoptForEditor(&m_host);
}

ShotOutputActions::~ShotOutputActions()
{
    ShotRawClipboardTracker::shared().forget(&m_host);
}

QWidget* ShotOutputActions::barWidget()
{
    return m_bar;
}

bool ShotOutputActions::isPinned() const
{
    return m_bar->isPinned();
}

void ShotOutputActions::fail(const QString& title, const QString& message)
{
    qCWarning(lcApp, "%s: %s", qPrintable(title), qPrintable(message));
    presentFailure(title, message);
}

void ShotOutputActions::submit(std::function<Made()> work,
                               std::function<void(const Made&)> finished)
{
    assertMainThread();
    m_queue.append({std::move(work), std::move(finished)});
    if (!m_running) {
        startNext();
    }
}

void ShotOutputActions::startNext()
{
    if (m_queue.isEmpty()) {
        m_running = false;
        emit idle();
        return;
    }
    m_running = true;
    Job job = m_queue.takeFirst();
    auto* watcher = new QFutureWatcher<Made>(this);
    connect(watcher, &QFutureWatcherBase::finished, this,
            [this, watcher, finished = std::move(job.finished)] {
                watcher->deleteLater();
                finished(watcher->result());
                startNext();
            });
    watcher->setFuture(QtConcurrent::run(&outputPool(), [work = guarded(std::move(job.work))] {
        // Drawing and encoding use every core; the editors' thread comes first.
        lowerCurrentThreadPriority();
        return work();
    }));
}

void ShotOutputActions::finishFor(const ShotDocument& output, ShotOutputAction action,
                                  Qt::KeyboardModifiers modifiers)
{
    finishOutput(m_host, output, action, modifiers, true, isPinned(), m_preferences);
}

void ShotOutputActions::copy(Qt::KeyboardModifiers modifiers)
{
    const ShotDocument output = m_host.outputDocument();
    const double scale = ShotExporter::defaultScale(output);
    ShotRenderer& renderer = m_renderer;
    submit(
        [&renderer, output, scale] {
            return Made{ShotClipboard::encodeItem(renderer, output, scale), {}, {}, {}};
        },
        [this, output, scale, modifiers](const Made& made) {
            if (!made.error.isEmpty()) {
                fail(tr("Could Not Copy Screenshot"), made.error);
                return;
            }
            ShotClipboard::shared().write(ShotClipboard::makeItem(made.bytes));
            qCInfo(lcApp, "Editor copied the shot");
            // The clipboard now holds this editor's shot, not the raw capture.
            ShotRawClipboardTracker::shared().forget(&m_host);
            emit shotOutput({ShotOutputKind::copy, output, scale, ShotFormat::png, {}});
            finishFor(output, ShotOutputAction::copy, modifiers);
        });
}

void ShotOutputActions::quickSave(Qt::KeyboardModifiers modifiers)
{
    const ShotDocument output = m_host.outputDocument();
    const double scale = ShotExporter::defaultScale(output);
    QString folder;
    try {
        folder = ShotQuickSave::folder(m_preferences);
    } catch (const Error& error) {
        fail(tr("Could Not Save Screenshot"), error.message());
        return;
    }
    const ShotFormat format = ShotQuickSave::format(m_preferences);
    const QDateTime now = QDateTime::currentDateTime();
    submit(
        [folder, format, output, scale, now] {
            return Made{{}, ShotQuickSave::saveInto(folder, format, output, scale, now), {}, {}};
        },
        [this, output, scale, format, modifiers](const Made& made) {
            if (!made.error.isEmpty()) {
                fail(tr("Could Not Save Screenshot"), made.error);
                return;
            }
            qCInfo(lcApp, "Editor saved the shot to %s", qPrintable(made.file));
            ShotNotifications::shared().notifySaved(made.file);
            m_host.showNotice(ShotNotifications::shared().lastMessage());
            emit shotOutput({ShotOutputKind::quickSave, output, scale, format, made.file});
            finishFor(output, ShotOutputAction::save, modifiers);
        });
}

void ShotOutputActions::saveAs()
{
    const ShotDocument output = m_host.outputDocument();
    ShotSaveOptions initial;
    initial.format = ShotQuickSave::format(m_preferences);
    initial.scale = ShotExporter::defaultScale(output);
    QString folder;
    if (const std::optional<QString> last = m_preferences.string(keys::saveAsFolder);
        last && QFileInfo(*last).isDir()) {
        folder = *last;
    } else {
        try {
            folder = ShotQuickSave::folder(m_preferences);
        } catch (const Error&) {
            // The dialog opens wherever it likes instead.
        }
    }
    QFileDialog dialog(m_host.outputWindow(), tr("Save As"), folder);
    ShotSaveDialog options(dialog, initial);
    dialog.selectFile(ShotFileName::make(QDateTime::currentDateTime(), initial.format,
                                         QTimeZone::systemTimeZone()));
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return;
    }
    const ShotSaveOptions chosen = options.options();
    const Qt::KeyboardModifiers modifiers = QGuiApplication::queryKeyboardModifiers();
    qCInfo(lcApp, "Save As format=%d quality=%.2f scale=%g", int(chosen.format), chosen.quality,
           chosen.scale);
    const QString path = options.chosenPath();
    ShotRenderer& renderer = m_renderer;
    submit(
        [&renderer, output, chosen, path] {
            ShotExporter::exportShot(renderer, output, chosen.format, path, chosen.quality,
                                     chosen.scale);
            return Made{{}, path, {}, {}};
        },
        [this, output, chosen, modifiers](const Made& made) {
            if (!made.error.isEmpty()) {
                fail(tr("Could Not Save Screenshot"), made.error);
                return;
            }
            qCInfo(lcApp, "Editor saved the shot as %s", qPrintable(made.file));
            m_preferences.setValue(keys::saveAsFolder, QFileInfo(made.file).absolutePath());
            emit shotOutput({ShotOutputKind::saveAs, output, chosen.scale, chosen.format,
                             made.file});
            finishFor(output, ShotOutputAction::save, modifiers);
        });
}

void ShotOutputActions::prepareDrag()
{
    const ShotDocument output = m_host.outputDocument();
    if (m_drag && m_drag->document == output) {
        m_drag->wanted = false;
        return; // the file of this very document is written already, or on its way
    }
    m_drag = PreparedDrag{output, std::nullopt, false};
    const double scale = ShotExporter::defaultScale(output);
    submit(
        [output, scale] {
            Made made;
            QImage drawn;
            made.file = ShotQuickSave::temporaryExport(output, scale, QDateTime::currentDateTime(),
                                                       &drawn);
            made.picture =
                drawn.scaled(160, 160, Qt::KeepAspectRatio, Qt::SmoothTransformation);
            return made;
        },
        [this, output](const Made& made) {
            if (!m_drag || !(m_drag->document == output)) {
                return; // a newer drag took over
            }
            if (!made.error.isEmpty()) {
                const bool wanted = m_drag->wanted;
                m_drag.reset();
                if (wanted) {
                    fail(tr("Could Not Drag Screenshot"), made.error);
                }
                return;
            }
            m_drag->made = made;
            if (std::exchange(m_drag->wanted, false)) {
                startDrag(output, made);
            }
        });
}

void ShotOutputActions::dragOut()
{
    if (!m_drag || !(m_drag->document == m_host.outputDocument())) {
        prepareDrag();
    }
    if (m_drag->made) {
        const PreparedDrag prepared = *m_drag;
        startDrag(prepared.document, *prepared.made);
    } else {
        m_drag->wanted = true; // starts as soon as the file is written
    }
}

void ShotOutputActions::startDrag(const ShotDocument& output, const Made& made)
{
    if (!(QGuiApplication::mouseButtons() & Qt::LeftButton)) {
        qCInfo(lcApp, "Image drag ended before its file was ready");
        return;
    }
    auto* data = new QMimeData;
    data->setUrls({QUrl::fromLocalFile(made.file)});
    auto* drag = new QDrag(m_host.outputWindow());
    drag->setMimeData(data);
    drag->setPixmap(QPixmap::fromImage(made.picture));
    // Receivers copy the file; we never offer a move, so every drop gets
    // its own copy and the temporary file stays for the next one.
    const Qt::DropAction result = drag->exec(Qt::CopyAction, Qt::CopyAction);
    const Qt::KeyboardModifiers modifiers = QGuiApplication::queryKeyboardModifiers();
    const bool overOwnWindow = drag->target() != nullptr;
    const bool accepted = result == Qt::CopyAction && !overOwnWindow;
    if (!accepted) {
        qCInfo(lcApp, "Image drag output waiting or failed accepted=%d ownWindow=%d",
               int(result == Qt::CopyAction), int(overOwnWindow));
        return;
    }
    // The file is handed over as a finished file: say whether it is still
    // there, whole, as the receiver reads it.
    const QFileInfo written(made.file);
    qCInfo(lcApp, "Image drag accepted external output fileWritten=%d bytes=%lld option=%d",
           int(written.isFile() && written.size() > 0), static_cast<long long>(written.size()),
           int(bool(modifiers & Qt::AltModifier)));
    emit shotOutput({ShotOutputKind::drag, output, ShotExporter::defaultScale(output),
                     ShotFormat::png, made.file});
    finishFor(output, ShotOutputAction::drag, modifiers);
}

void ShotOutputActions::openWith(const DesktopApplication& application)
{
    const ShotDocument output = m_host.outputDocument();
    const double scale = ShotExporter::defaultScale(output);
    submit(
        [output, scale] {
            return Made{{}, ShotQuickSave::temporaryExport(output, scale), {}, {}};
        },
        [this, output, scale, application](const Made& made) {
            const QString failure = made.error.isEmpty() ? ShotApplications::launch(application, made.file)
                                                         : made.error;
            if (!failure.isEmpty()) {
                fail(tr("Could Not Open Screenshot"), failure);
                return;
            }
            emit shotOutput({ShotOutputKind::share, output, scale, ShotFormat::png, made.file});
        });
}

void ShotOutputActions::share()
{
    const ShotDocument output = m_host.outputDocument();
    const double scale = ShotExporter::defaultScale(output);
    submit(
        [output, scale] {
            return Made{{}, ShotQuickSave::temporaryExport(output, scale), {}, {}};
        },
        [this, output, scale](const Made& made) {
            if (!made.error.isEmpty()) {
                fail(tr("Could Not Share Screenshot"), made.error);
                return;
            }
            ShotShare::openWith(made.file, m_host.outputWindow(),
                                [this, guard = QPointer<ShotOutputActions>(this), output, scale,
                                 file = made.file](const QString& failure) {
                                    if (!guard) {
                                        return;
                                    }
                                    if (!failure.isEmpty()) {
                                        fail(tr("Could Not Share Screenshot"), failure);
                                        return;
                                    }
                                    emit shotOutput({ShotOutputKind::share, output, scale,
                                                     ShotFormat::png, file});
                                });
        });
}

bool ShotOutputActions::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate && watched == m_host.outputWindow() &&
        m_upload->state().is<ShotUploadState::Idle>()) {
        showUpload();
    }
    return QObject::eventFilter(watched, event);
}

void ShotOutputActions::showUpload()
{
    // The settings are read when the button rests, not at every step of
    // an upload's progress.
    const ShotUploadState& state = m_upload->state();
    if (state.is<ShotUploadState::Idle>() || !m_upload->lastDestination()) {
        const UploadSettings settings = m_upload->settings();
        m_idleDestination = settings.effective();
        m_bucketReady = settings.s3.isComplete();
    }
    m_bar->showUpload(state,
                      state.is<ShotUploadState::Idle>()
                          ? m_idleDestination
                          : m_upload->lastDestination().value_or(m_idleDestination),
                      m_bucketReady);
}

void ShotOutputActions::upload(std::optional<ShotUploadDestination> destination)
{
    assertMainThread();
    if (m_upload->isRunning()) {
        return;
    }
    const ShotUploadState state = m_upload->state();
    const ShotDocument output = m_host.outputDocument();
    const bool sameShot = m_uploaded && *m_uploaded == output;
    if (!destination && sameShot) {
        // Already there: the link (or key) goes on the clipboard once more.
        std::optional<QString> handle;
        if (const auto* done = std::get_if<ShotUploadState::Done>(&state.value)) {
            handle = done->url;
        } else if (const auto* uploaded = std::get_if<ShotUploadState::Uploaded>(&state.value)) {
            handle = uploaded->url;
        }
        if (handle) {
            QGuiApplication::clipboard()->setText(*handle);
            m_host.showNotice(tr("Copied %1").arg(*handle));
            return;
        }
    }
    if (sameShot && (state.is<ShotUploadState::OutcomeUnknown>() ||
                     state.is<ShotUploadState::Failed>())) {
        // A retry goes where the first attempt went.
        destination = destination ? destination : m_upload->lastDestination();
        if (state.is<ShotUploadState::OutcomeUnknown>() && !confirmUnknownRetry()) {
            return;
        }
    }
    if (m_upload->settings(destination).effective() == ShotUploadDestination::filebin &&
        !m_preferences.boolean(keys::filebinPublicToldKey, false)) {
        // Once: a Filebin link is no secret.
        m_preferences.setValue(keys::filebinPublicToldKey, true);
        m_host.showNotice(tr("Filebin is public: anyone with the link can see this shot."));
    }
    m_uploaded = output;
    m_upload->prepare();
    const double scale = ShotExporter::defaultScale(output);
    submit(
        [output, scale] {
            return Made{{}, ShotQuickSave::temporaryExport(output, scale), {}, {}};
        },
        [this, destination](const Made& made) {
            if (!made.error.isEmpty()) {
                m_upload->showFailure(made.error);
                return;
            }
            m_upload->start(made.file, destination);
        });
}

void ShotOutputActions::adoptRawCopy()
{
    ShotRawClipboardTracker::shared().adoptForEditor(&m_host);
}

void ShotOutputActions::documentChanged(bool hasChanges)
{
    // A finished upload's words are about the shot as it was.
    if (m_uploaded && !m_upload->isRunning() && !(*m_uploaded == m_host.outputDocument())) {
        m_uploaded.reset();
        m_upload->reset();
    }
    if (!hasChanges) {
        return;
    }
    ShotRawClipboardTracker& tracker = ShotRawClipboardTracker::shared();
    tracker.presentNotice = [this](const QString& text) { m_host.showNotice(text); };
    tracker.noticeIfStillRaw(&m_host);
}

bool ShotOutputActions::closeKeepsEdits() const
{
    return ShotRawClipboardTracker::shared().holdsCapture(&m_host);
}

void ShotOutputActions::editorClosing()
{
    ShotRawClipboardTracker::shared().replaceRawWithEdited(&m_host, this);
}

} // namespace nubo
