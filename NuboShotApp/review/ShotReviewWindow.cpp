#include "review/ShotReviewWindow.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "output/ShotNotifications.h"
#include "recording/RecordingTypes.h"
#include "review/ShotReviewCanvas.h"
#include "style/WindowPlacement.h"
#include "review/ShotReviewTimeline.h"
#include "video/VideoPlayer.h"
#include "style/ShotIcons.h"
#include "video/VideoEditExport.h"
#include "video/VideoEditRenderer.h"

#include <QActionGroup>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QFutureWatcher>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QProgressBar>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QToolButton>
#include <QUrl>
#include <QVBoxLayout>
#include <QtConcurrent>

namespace nubo {

namespace {

QString clock(VideoTime time)
{
    const qint64 tenths = qint64(std::floor(time.toSeconds() * 10 + 1e-9));
    // The tenths after the language's decimal sign (0:02,9 in German).
    return QStringLiteral("%1:%2%3%4")
        .arg(tenths / 600)
        .arg((tenths / 10) % 60, 2, 10, QLatin1Char('0'))
        .arg(QLocale().decimalPoint())
        .arg(tenths % 10);
}

QToolButton* toolButton(const QString& text, const QString& tip, QWidget* parent, bool checkable = false)
{
    auto* button = new QToolButton(parent);
    button->setText(text);
    button->setToolTip(tip);
    button->setCheckable(checkable);
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    return button;
}

} // namespace

ShotReviewWindow::ShotReviewWindow(const QString& recording, ShotPreferences& preferences, QWidget* parent)
    : QWidget(parent), m_recording(QFileInfo(recording).absoluteFilePath()), m_preferences(preferences)
{
    m_player = std::make_unique<VideoPlayer>(m_recording);
    m_info = m_player->info();
    m_history = VideoEditHistory(VideoEditList::opened(m_recording, m_info.duration));
    setObjectName(QStringLiteral("reviewWindow"));
    setWindowTitle(tr("%1 — Review").arg(QFileInfo(m_recording).completeBaseName()));
    setAttribute(Qt::WA_DeleteOnClose, false);
    setFocusPolicy(Qt::StrongFocus);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 8);
    layout->setSpacing(6);
    layout->addLayout(makeTools());
    m_canvas = new ShotReviewCanvas(m_info.size, this);
    layout->addWidget(m_canvas, 1);
    m_timeline = new ShotReviewTimeline(m_info.duration, this);
    layout->addWidget(m_timeline);
    layout->addLayout(makeBottomBar());
    connectButtons();
    connectPlayer();
    connectEdits();
    // As large as a comfortable review, never larger than the work area.
    WindowPlacement::place(*this, QStringLiteral("review"), QSize(960, 680));
    applied();
    loadThumbnails();
    qCInfo(lcVideoEdit, "Review of %s opened (%dx%d, %s)", qPrintable(m_recording), m_info.size.width(),
           m_info.size.height(), qPrintable(m_info.duration.text()));
}

// The tools over the picture: play, split, remove, blur, crop, mute; undo,
// redo and the export quality.
QLayout* ShotReviewWindow::makeTools()
{
    // Tools over the picture.
    auto* tools = new QHBoxLayout;
    tools->setContentsMargins(10, 6, 10, 0);
    m_play = toolButton(tr("Play"), tr("Play or pause (Space)"), this);
    m_play->setObjectName(QStringLiteral("reviewPlay"));
    auto* splitButton = toolButton(tr("Split"), tr("Split at the playhead (S)"), this);
    splitButton->setObjectName(QStringLiteral("reviewSplit"));
    auto* removeButton = toolButton(tr("Remove Segment"),
                                    tr("Cut out the segment under the playhead (Delete)"), this);
    removeButton->setObjectName(QStringLiteral("reviewRemove"));
    m_blurMode =
        toolButton(tr("Blur"), tr("Drag over the picture to blur a region (B)"), this, true);
    m_blurMode->setObjectName(QStringLiteral("reviewBlur"));
    m_cropMode = toolButton(tr("Crop"), tr("Crop the picture (C)"), this, true);
    m_cropMode->setObjectName(QStringLiteral("reviewCrop"));
    m_mute = toolButton(tr("Mute"), tr("Export without sound (M)"), this, true);
    m_mute->setObjectName(QStringLiteral("reviewMute"));
    m_mute->setEnabled(m_info.hasAudio);
    m_undo = toolButton(tr("Undo"), tr("Undo (Ctrl+Z)"), this);
    m_redo = toolButton(tr("Redo"), tr("Redo (Ctrl+Shift+Z)"), this);
    m_quality = toolButton(QString(), tr("Export format and size"), this);
    m_quality->setObjectName(QStringLiteral("reviewQuality"));
    m_quality->setPopupMode(QToolButton::InstantPopup);
    auto* qualityMenu = new QMenu(m_quality);
    qualityMenu->setToolTipsVisible(true);
    connect(qualityMenu, &QMenu::aboutToShow, this, &ShotReviewWindow::fillFormatMenu);
    m_quality->setMenu(qualityMenu);
    for (QWidget* w : std::initializer_list<QWidget*>{m_play, splitButton, removeButton, m_blurMode, m_cropMode, m_mute}) {
        tools->addWidget(w);
    }
    tools->addStretch();
    tools->addWidget(m_undo);
    tools->addWidget(m_redo);
    tools->addWidget(m_quality);

    connect(splitButton, &QToolButton::clicked, this, &ShotReviewWindow::split);
    connect(removeButton, &QToolButton::clicked, this, &ShotReviewWindow::removeSegment);
    return tools;
}

// The bottom bar: time, estimate, status or progress, the outputs.
QLayout* ShotReviewWindow::makeBottomBar()
{
    auto* bottom = new QHBoxLayout;
    bottom->setContentsMargins(12, 0, 12, 0);
    m_time = new QLabel(this);
    m_time->setObjectName(QStringLiteral("reviewTime"));
    m_time->setMinimumWidth(110);
    m_estimate = new QLabel(this);
    m_estimate->setObjectName(QStringLiteral("reviewEstimate"));
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("reviewStatus"));
    // A long status ("Exported “…”") never widens the window: it is cut.
    m_status->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    m_progress = new QProgressBar(this);
    m_progress->setObjectName(QStringLiteral("reviewProgress"));
    m_progress->setRange(0, 100);
    m_progress->setMaximumWidth(160);
    m_progress->hide();
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_cancel->setObjectName(QStringLiteral("reviewCancel"));
    m_cancel->hide();
    m_showInFolder = new QPushButton(tr("Show in Folder"), this);
    m_showInFolder->setEnabled(false);
    m_copy = new QPushButton(tr("Copy"), this);
    m_copy->setObjectName(QStringLiteral("reviewCopy"));
    m_saveAs = new QPushButton(tr("Save As…"), this);
    m_export = new QPushButton(tr("Export"), this);
    m_export->setObjectName(QStringLiteral("reviewExport"));
    m_export->setDefault(true);
    for (QPushButton* b : {m_cancel, m_showInFolder, m_copy, m_saveAs, m_export}) {
        b->setFocusPolicy(Qt::NoFocus);
    }
    bottom->addWidget(m_time);
    bottom->addWidget(m_estimate);
    bottom->addSpacing(12);
    bottom->addWidget(m_status, 1);
    bottom->addWidget(m_progress);
    bottom->addWidget(m_cancel);
    bottom->addWidget(m_showInFolder);
    bottom->addWidget(m_copy);
    bottom->addWidget(m_saveAs);
    bottom->addWidget(m_export);

    return bottom;
}

void ShotReviewWindow::connectButtons()
{
    connect(m_play, &QToolButton::clicked, m_player.get(), &VideoPlayer::toggle);
    connect(m_blurMode, &QToolButton::clicked, this, [this](bool on) { setMode(on ? 1 : 0); });
    connect(m_cropMode, &QToolButton::clicked, this, [this](bool on) { setMode(on ? 2 : 0); });
    connect(m_mute, &QToolButton::clicked, this, [this](bool on) {
        VideoEditList next = m_history.current;
        next.setMuted(on);
        commit(next);
    });
    connect(m_undo, &QToolButton::clicked, this, &ShotReviewWindow::undo);
    connect(m_redo, &QToolButton::clicked, this, &ShotReviewWindow::redo);
    connect(m_export, &QPushButton::clicked, this, [this] { exportTo(exportPath()); });
    connect(m_saveAs, &QPushButton::clicked, this, &ShotReviewWindow::saveAs);
    connect(m_copy, &QPushButton::clicked, this, &ShotReviewWindow::copy);
    connect(m_showInFolder, &QPushButton::clicked, this, [this] { ShotNotifications::showInFolder(m_exportedFile); });
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        if (m_session) {
            m_session->cancel();
        }
    });
}

// What the player shows reaches the canvas, the timeline and the labels.
void ShotReviewWindow::connectPlayer()
{
    connect(m_player.get(), &VideoPlayer::frameShown, m_canvas, &ShotReviewCanvas::setFrame);
    connect(m_player.get(), &VideoPlayer::positionChanged, this, [this](VideoTime position) {
        m_timeline->setPosition(position);
        updateLabels();
    });
    connect(m_player.get(), &VideoPlayer::playingChanged, this,
            [this](bool playing) { m_play->setText(playing ? tr("Pause") : tr("Play")); });
    connect(m_canvas, &ShotReviewCanvas::sizeChanged, m_player.get(), &VideoPlayer::setDisplaySize);
    connect(m_timeline, &ShotReviewTimeline::scrubbed, m_player.get(), [this](VideoTime t) {
        m_player->pause();
        m_player->seek(t);
    });
}

// Drags and drawings on the timeline and the canvas become edits.
void ShotReviewWindow::connectEdits()
{
    connect(m_timeline, &ShotReviewTimeline::inPointDragged, this, [this](VideoTime t, bool finished) {
        VideoEditList next = m_history.current;
        next.setInPoint(t, m_info.duration, m_info.frameDuration);
        commit(next, finished);
        m_player->seek(next.inPoint);
    });
    connect(m_timeline, &ShotReviewTimeline::outPointDragged, this, [this](VideoTime t, bool finished) {
        VideoEditList next = m_history.current;
        next.setOutPoint(t, m_info.duration, m_info.frameDuration);
        commit(next, finished);
        m_player->seek(std::max(next.inPoint, next.outPoint - m_info.frameDuration));
    });
    auto selectBlur = [this](const QUuid& id) {
        m_canvas->setSelectedBlur(id);
        m_timeline->setSelectedBlur(id);
    };
    connect(m_timeline, &ShotReviewTimeline::blurSelected, this, selectBlur);
    connect(m_canvas, &ShotReviewCanvas::blurSelected, this, selectBlur);
    connect(m_timeline, &ShotReviewTimeline::blurTimeDragged, this,
            [this](const QUuid& id, const VideoTimeRange& range, bool finished) {
                VideoEditList next = m_history.current;
                if (const VideoBlurRegion* region = next.blur(id)) {
                    next.updateBlur(id, region->rect, range);
                    commit(next, finished);
                }
            });
    connect(m_canvas, &ShotReviewCanvas::blurChanged, this, [this](const QUuid& id, const QRectF& rect, bool finished) {
        VideoEditList next = m_history.current;
        if (const VideoBlurRegion* region = next.blur(id)) {
            next.updateBlur(id, rect, region->timeRange);
            commit(next, finished);
        }
    });
    connect(m_canvas, &ShotReviewCanvas::blurDrawn, this, [this, selectBlur](const QRectF& rect) {
        // A new region lasts three seconds from the picture on screen.
        VideoEditList next = m_history.current;
        const VideoTime from = m_player->editTime();
        const int number = next.addBlur(rect, VideoTimeRange{from, VideoTime::seconds(3)});
        commit(next);
        qCInfo(lcVideoEdit, "Blur %d added at %s", number, qPrintable(from.text()));
        selectBlur(next.blurs.back().id);
    });
    connect(m_canvas, &ShotReviewCanvas::cropChanged, this, [this](const QRectF& rect, bool finished) {
        VideoEditList next = m_history.current;
        next.setCrop(rect);
        commit(next, finished);
    });
}

ShotReviewWindow::~ShotReviewWindow()
{
    if (m_session) {
        m_session->cancel();
        m_session->wait();
    }
}

void ShotReviewWindow::loadThumbnails()
{
    const QString file = m_recording;
    const VideoTime duration = m_info.duration;
    const QSize fit = QSize(160, 90) * devicePixelRatioF();
    auto* watcher = new QFutureWatcher<std::vector<QImage>>(this);
    connect(watcher, &QFutureWatcherBase::finished, this, [this, watcher] {
        m_timeline->setThumbnails(watcher->result());
        watcher->deleteLater();
    });
    watcher->setFuture(QtConcurrent::run([file, duration, fit] {
        std::vector<QImage> thumbnails;
        try {
            VideoFrameReader reader(file);
            constexpr int count = 12;
            for (int i = 0; i < count; ++i) {
                thumbnails.push_back(reader.frameAt(VideoTime(duration.value * (2 * i + 1), duration.scale * 2 * count), fit).image);
            }
        } catch (const Error& error) {
            qCWarning(lcVideoEdit, "No thumbnails: %s", qPrintable(error.message()));
        }
        return thumbnails;
    }));
}

namespace {

QString suffixOf(std::optional<AnimationFormat> format)
{
    return !format ? QStringLiteral("mp4") : *format == AnimationFormat::gif ? QStringLiteral("gif") : QStringLiteral("webp");
}

} // namespace

QString ShotReviewWindow::exportPath() const
{
    const QString folder = recordingFolder(m_preferences);
    const QString base = QFileInfo(m_recording).completeBaseName() + QStringLiteral(" (edited)");
    const QString suffix = suffixOf(m_format);
    QString path = folder + QLatin1Char('/') + base + QLatin1Char('.') + suffix;
    for (int n = 2; QFileInfo::exists(path) && path != m_exportedFile; ++n) {
        path = folder + QLatin1Char('/') + base + QStringLiteral(" (%1).%2").arg(n).arg(suffix);
    }
    return path;
}

void ShotReviewWindow::setExportFormat(std::optional<AnimationFormat> format, AnimationOptions options)
{
    m_format = format;
    m_animation = options;
    applied();
}

void ShotReviewWindow::fillFormatMenu()
{
    QMenu* menu = m_quality->menu();
    menu->clear();
    qDeleteAll(menu->findChildren<QActionGroup*>(Qt::FindDirectChildrenOnly));
    // Each caption starts a group of choices, one of which is ticked.
    QActionGroup* group = nullptr;
    const auto caption = [menu, &group](const QString& text) {
        menu->addAction(text)->setEnabled(false);
        group = new QActionGroup(menu);
    };
    const auto item = [menu, &group](const QString& text, bool checked, auto act) {
        QAction* action = menu->addAction(text);
        action->setCheckable(true);
        action->setChecked(checked);
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, menu, act);
        return action;
    };
    caption(tr("Format"));
    item(tr("MP4 Movie"), !m_format, [this] { setExportFormat(std::nullopt, m_animation); });
    item(tr("GIF"), m_format == AnimationFormat::gif, [this] { setExportFormat(AnimationFormat::gif, m_animation); });
    item(tr("Animated WebP"), m_format == AnimationFormat::webp,
         [this] { setExportFormat(AnimationFormat::webp, m_animation); });
    menu->addSeparator();
    const VideoEditList& list = m_history.current;
    if (!m_format) {
        caption(videoExportQualityCaption);
        for (VideoExportQuality quality : {VideoExportQuality::original, VideoExportQuality::p1080, VideoExportQuality::p720}) {
            item(videoExportQualityTitle(quality), list.quality == quality, [this, quality] {
                VideoEditList next = m_history.current;
                next.setQuality(quality);
                commit(next);
            });
        }
        return;
    }
    caption(tr("Frame Rate"));
    for (const int rate : AnimationOptions::frameRates) {
        item(tr("%1 fps").arg(rate), m_animation.framesPerSecond == rate, [this, rate] {
            AnimationOptions next = m_animation;
            next.framesPerSecond = rate;
            setExportFormat(m_format, next);
        });
    }
    caption(tr("Width · Never upscaled"));
    const int widest = animationSize(list, m_info, 0).width();
    for (const int width : AnimationOptions::widths) {
        QAction* action = item(width == 0 ? tr("Original (%1 px)").arg(widest) : tr("%1 px").arg(width),
                               m_animation.width == width, [this, width] {
                                   AnimationOptions next = m_animation;
                                   next.width = width;
                                   setExportFormat(m_format, next);
                               });
        action->setEnabled(width == 0 || width < widest);
    }
}

bool ShotReviewWindow::hasUnexportedEdits() const
{
    return m_history.hasEdits() && m_exportedList != m_history.current;
}

void ShotReviewWindow::commit(const VideoEditList& next, bool finished)
{
    if (!finished) {
        m_history.beginCoalescing();
    }
    m_history.commit(next);
    if (finished) {
        m_history.endCoalescing();
    }
    applied();
}

void ShotReviewWindow::applied()
{
    const VideoEditList& list = m_history.current;
    m_player->setEdits(list);
    m_canvas->setEdits(list);
    m_timeline->setEdits(list);
    m_mute->setChecked(list.isMuted);
    m_undo->setEnabled(m_history.canUndo());
    m_redo->setEnabled(m_history.canRedo());
    if (!m_format) {
        m_quality->setText(tr("MP4 · %1").arg(videoExportQualityTitle(list.quality)));
    } else {
        const QSize size = animationSize(list, m_info, m_animation.width);
        m_quality->setText(tr("%1 · %2 fps · %3 px")
                               .arg(*m_format == AnimationFormat::gif ? tr("GIF") : tr("WebP"))
                               .arg(m_animation.framesPerSecond)
                               .arg(size.width()));
    }
    const bool anything = !list.keptRanges().empty();
    m_export->setEnabled(anything && !m_session);
    m_saveAs->setEnabled(anything && !m_session);
    m_copy->setEnabled(anything && !m_session);
    updateLabels();
}

void ShotReviewWindow::updateLabels()
{
    const VideoEditList& list = m_history.current;
    const VideoTime position = m_player->position();
    const auto edited = list.editedTime(position);
    m_time->setText(QStringLiteral("%1 / %2").arg(edited ? clock(*edited) : QStringLiteral("\u2013"),
                                                   clock(list.keptDuration())));
    const QSize size = m_format ? animationSize(list, m_info, m_animation.width)
                                : videoOutputSize(m_info.size, list.cropRect, list.quality);
    const int64_t bytes = m_format ? animationSizeEstimate(list, m_info, *m_format, m_animation)
                                   : videoSizeEstimate(list, m_info);
    m_estimate->setText(tr("%1 × %2 · about %3")
                            .arg(size.width())
                            .arg(size.height())
                            .arg(QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeSIFormat)));
}

void ShotReviewWindow::undo()
{
    if (m_history.undo()) {
        applied();
    }
}

void ShotReviewWindow::redo()
{
    if (m_history.redo()) {
        applied();
    }
}

void ShotReviewWindow::split()
{
    VideoEditList next = m_history.current;
    if (next.split(m_player->position(), m_info.duration)) {
        qCInfo(lcVideoEdit, "Split at %s", qPrintable(m_player->position().text()));
        commit(next);
    }
}

void ShotReviewWindow::removeSegment()
{
    VideoEditList next = m_history.current;
    const VideoTime at = m_player->position();
    if (next.removeSegment(at, m_info.duration)) {
        const VideoTimeRange removed = next.removedRanges.back();
        qCInfo(lcVideoEdit, "Removed %s to %s", qPrintable(removed.start.text()), qPrintable(removed.end().text()));
        commit(next);
        if (const auto playable = next.nextPlayableTime(at)) {
            m_player->seek(*playable);
        }
    } else if (next.restoreAt(at)) {
        commit(next); // the removed stretch under the playhead comes back
    }
}

void ShotReviewWindow::deleteSelection()
{
    const QUuid selected = m_canvas->selectedBlur();
    VideoEditList next = m_history.current;
    if (!selected.isNull() && next.removeBlur(selected)) {
        commit(next);
        m_canvas->setSelectedBlur({});
        m_timeline->setSelectedBlur({});
        return;
    }
    removeSegment();
}

void ShotReviewWindow::setMode(int mode)
{
    const auto canvasMode = mode == 1 ? ShotReviewCanvas::Mode::blur
                            : mode == 2 ? ShotReviewCanvas::Mode::crop
                                        : ShotReviewCanvas::Mode::view;
    m_canvas->setMode(canvasMode);
    m_blurMode->setChecked(mode == 1);
    m_cropMode->setChecked(mode == 2);
}

void ShotReviewWindow::keyPressEvent(QKeyEvent* event)
{
    const auto mods = event->modifiers() & (Qt::ControlModifier | Qt::ShiftModifier | Qt::AltModifier);
    if (mods == Qt::ControlModifier && event->key() == Qt::Key_Z) {
        undo();
    } else if ((mods == (Qt::ControlModifier | Qt::ShiftModifier) && event->key() == Qt::Key_Z) ||
               (mods == Qt::ControlModifier && event->key() == Qt::Key_Y)) {
        redo();
    } else if (mods == Qt::ControlModifier && event->key() == Qt::Key_E) {
        exportTo(exportPath());
    } else if (mods == Qt::ControlModifier && event->key() == Qt::Key_S) {
        saveAs();
    } else if (mods == Qt::ControlModifier && event->key() == Qt::Key_C) {
        copy();
    } else if (mods == Qt::ControlModifier && event->key() == Qt::Key_W) {
        close();
    } else if (mods != Qt::NoModifier) {
        QWidget::keyPressEvent(event);
    } else if (event->key() == Qt::Key_Space) {
        m_player->toggle();
    } else if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        m_player->step(event->key() == Qt::Key_Left ? -1 : 1);
    } else if (event->key() == Qt::Key_S) {
        split();
    } else if (event->key() == Qt::Key_Delete || event->key() == Qt::Key_Backspace) {
        deleteSelection();
    } else if (event->key() == Qt::Key_B) {
        setMode(m_canvas->mode() == ShotReviewCanvas::Mode::blur ? 0 : 1);
    } else if (event->key() == Qt::Key_C) {
        setMode(m_canvas->mode() == ShotReviewCanvas::Mode::crop ? 0 : 2);
    } else if (event->key() == Qt::Key_M && m_info.hasAudio) {
        VideoEditList next = m_history.current;
        next.setMuted(!next.isMuted);
        commit(next);
    } else if (event->key() == Qt::Key_Escape && m_canvas->mode() != ShotReviewCanvas::Mode::view) {
        setMode(0);
    } else if (event->key() == Qt::Key_Escape) {
        close(); // asks first when edits are not exported
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ShotReviewWindow::saveAs()
{
    const QString filter = !m_format                              ? tr("MPEG-4 movie (*.mp4)")
                           : *m_format == AnimationFormat::gif ? tr("GIF animation (*.gif)")
                                                               : tr("Animated WebP (*.webp)");
    const QString file = QFileDialog::getSaveFileName(this, tr("Save Edited Recording"), exportPath(), filter);
    if (!file.isEmpty()) {
        const QString suffix = QLatin1Char('.') + suffixOf(m_format);
        exportTo(file.endsWith(suffix, Qt::CaseInsensitive) ? file : file + suffix);
    }
}

void ShotReviewWindow::copy()
{
    // The recording itself when nothing is edited; else the file as it is
    // exported now, exported first when the edits changed.
    const bool unedited = !m_history.hasEdits() && QFileInfo::exists(m_recording);
    if ((unedited && !m_format) || (!m_exportedFile.isEmpty() && m_exportedList == m_history.current &&
                                    m_exportedFormat == m_format && QFileInfo::exists(m_exportedFile))) {
        const QString file = unedited ? m_recording : m_exportedFile;
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(file)});
        data->setData(QStringLiteral("x-special/gnome-copied-files"),
                      "copy\n" + QUrl::fromLocalFile(file).toEncoded());
        QApplication::clipboard()->setMimeData(data);
        m_status->setText(tr("Copied “%1”").arg(QFileInfo(file).fileName()));
        qCInfo(lcVideoEdit, "Copied %s", qPrintable(file));
        return;
    }
    exportTo(exportPath(), true);
}

void ShotReviewWindow::exportTo(const QString& file, bool thenCopy)
{
    if (m_session || m_history.current.keptRanges().empty()) {
        return;
    }
    m_player->pause();
    const VideoEditList list = m_history.current;
    m_session = std::make_unique<VideoEditExportSession>(list, file, m_animation);
    m_progress->setValue(0);
    m_progress->show();
    m_cancel->show();
    m_status->setText(tr("Exporting “%1”…").arg(QFileInfo(file).fileName()));
    applied();
    QPointer<ShotReviewWindow> self(this);
    m_session->start(
        [self](double fraction) {
            QMetaObject::invokeMethod(qApp, [self, fraction] {
                if (self) {
                    self->m_progress->setValue(int(fraction * 100));
                }
            });
        },
        [self, thenCopy, list, format = animationFormatOf(file)](const VideoExportOutcome& outcome) {
            QMetaObject::invokeMethod(qApp, [self, thenCopy, outcome, list, format] {
                if (self) {
                    if (outcome.result) {
                        self->m_exportedList = list;
                        self->m_exportedFormat = format;
                    }
                    self->exportEnded(outcome, thenCopy);
                }
            });
        });
}

void ShotReviewWindow::exportEnded(const VideoExportOutcome& outcome, bool thenCopy)
{
    m_session->wait();
    m_session.reset();
    m_progress->hide();
    m_cancel->hide();
    applied();
    if (outcome.cancelled) {
        m_status->setText(tr("Export cancelled"));
        m_closeAfterExport = false;
        emit exportFinished(QString(), QStringLiteral("cancelled"));
        return;
    }
    if (outcome.error) {
        m_status->setText(tr("Export failed"));
        m_closeAfterExport = false;
        emit exportFinished(QString(), outcome.error->message());
        QMessageBox::warning(this, tr("Export Failed"), outcome.error->message());
        return;
    }
    m_exportedFile = outcome.result->file;
    m_showInFolder->setEnabled(true);
    m_status->setText(tr("Exported “%1”").arg(QFileInfo(m_exportedFile).fileName()));
    emit exportFinished(m_exportedFile, QString());
    if (thenCopy) {
        copy();
    }
    if (m_closeAfterExport) {
        close();
    }
}

void ShotReviewWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    // Where the picture and the timeline's strip are on screen, once placed.
    QTimer::singleShot(300, this, [this] {
        // In the screen's own pixels, as other programs see them.
        const double ratio = devicePixelRatioF();
        const QRectF picture = m_canvas->pictureRect();
        const QPointF at = QPointF(m_canvas->mapToGlobal(picture.topLeft().toPoint())) * ratio;
        const QPointF line = QPointF(m_timeline->mapToGlobal(QPoint(0, 6 + ShotReviewTimeline::stripHeight / 2))) * ratio;
        qCInfo(lcVideoEdit, "Review picture at %d,%d, %dx%d; timeline from %d to %d at %d", qRound(at.x()),
               qRound(at.y()), qRound(picture.width() * ratio), qRound(picture.height() * ratio),
               qRound(line.x() + m_timeline->xOf(VideoTime()) * ratio),
               qRound(line.x() + m_timeline->xOf(m_info.duration) * ratio), qRound(line.y()));
    });
}

void ShotReviewWindow::closeEvent(QCloseEvent* event)
{
    if (m_session) {
        m_session->cancel();
    }
    if (!hasUnexportedEdits() || m_closeAfterExport) {
        m_player->pause();
        WindowPlacement::remember(*this, QStringLiteral("review"));
        event->accept();
        return;
    }
    QMessageBox question(
        QMessageBox::Question, tr("Discard Edits?"),
        tr("Your edits to “%1” have not been exported.").arg(QFileInfo(m_recording).fileName()),
        QMessageBox::NoButton, this);
    question.setInformativeText(tr("The recording itself stays as it is."));
    QPushButton* exportButton = question.addButton(tr("Export"), QMessageBox::AcceptRole);
    QPushButton* discard = question.addButton(tr("Discard"), QMessageBox::DestructiveRole);
    question.addButton(QMessageBox::Cancel);
    question.setDefaultButton(exportButton);
    question.exec();
    if (question.clickedButton() == discard) {
        qCInfo(lcVideoEdit, "Edits of %s discarded", qPrintable(m_recording));
        m_player->pause();
        WindowPlacement::remember(*this, QStringLiteral("review"));
        event->accept();
    } else if (question.clickedButton() == exportButton) {
        m_closeAfterExport = true;
        exportTo(exportPath());
        event->ignore();
    } else {
        event->ignore();
    }
}

} // namespace nubo
