#pragma once

#include "video/AnimatedExport.h"
#include "video/VideoEditHistory.h"
#include "video/VideoSource.h"

#include <QWidget>

#include <memory>
#include <optional>

class QLabel;
class QLayout;
class QProgressBar;
class QPushButton;
class QToolButton;

namespace nubo {

class ShotPreferences;
class ShotReviewCanvas;
class ShotReviewTimeline;
class VideoPlayer;
class VideoEditExportSession;
struct VideoExportOutcome;

// The review window of one recording: play it, cut it (split, remove a
// segment, in and out points), blur regions over time, crop, mute, choose a
// quality, and export an edited copy; the recording itself is never
// changed. Every edit is one undo step (a drag is one step).
class ShotReviewWindow : public QWidget {
    Q_OBJECT
public:
    // Throws VideoEditError when the recording cannot be read.
    ShotReviewWindow(const QString& recording, ShotPreferences& preferences, QWidget* parent = nullptr);
    ~ShotReviewWindow() override;

    const VideoEditHistory& history() const { return m_history; }
    VideoPlayer& player() const { return *m_player; }
    // Where Export writes: the recordings folder, the recording's name with
    // " (edited)", a counter where that is taken.
    QString exportPath() const;
    // The last file exported, when one was.
    const QString& exported() const { return m_exportedFile; }
    bool isExporting() const { return m_session != nullptr; }

    void exportTo(const QString& file, bool thenCopy = false);
    // What Export writes: a movie (none) or an animation, and the
    // animation's rate and width.
    std::optional<AnimationFormat> exportFormat() const { return m_format; }
    void setExportFormat(std::optional<AnimationFormat> format, AnimationOptions options);

signals:
    void exportFinished(const QString& file, const QString& error);

protected:
    void closeEvent(QCloseEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    // The steps of the constructor, in order.
    QLayout* makeTools();
    QLayout* makeBottomBar();
    void connectButtons();
    // The format menu's items, ticked as the export stands.
    void fillFormatMenu();
    void connectPlayer();
    void connectEdits();

    void commit(const VideoEditList& next, bool finished = true);
    void applied();
    void undo();
    void redo();
    void split();
    void removeSegment();
    void deleteSelection();
    void setMode(int mode);
    void saveAs();
    void copy();
    void exportEnded(const VideoExportOutcome& outcome, bool thenCopy);
    void loadThumbnails();
    void updateLabels();
    bool hasUnexportedEdits() const;

    QString m_recording;
    ShotPreferences& m_preferences;
    std::unique_ptr<VideoPlayer> m_player;
    VideoSourceInfo m_info;
    VideoEditHistory m_history;
    ShotReviewCanvas* m_canvas = nullptr;
    ShotReviewTimeline* m_timeline = nullptr;
    QLabel* m_time = nullptr;
    QLabel* m_estimate = nullptr;
    QLabel* m_status = nullptr;
    QToolButton* m_play = nullptr;
    QToolButton* m_blurMode = nullptr;
    QToolButton* m_cropMode = nullptr;
    QToolButton* m_mute = nullptr;
    QToolButton* m_quality = nullptr; // the export's format and size
    std::optional<AnimationFormat> m_format;
    AnimationOptions m_animation;
    std::optional<AnimationFormat> m_exportedFormat;
    QToolButton* m_undo = nullptr;
    QToolButton* m_redo = nullptr;
    QPushButton* m_export = nullptr;
    QPushButton* m_saveAs = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_showInFolder = nullptr;
    QPushButton* m_cancel = nullptr;
    QProgressBar* m_progress = nullptr;
    std::unique_ptr<VideoEditExportSession> m_session;
    std::optional<VideoEditList> m_exportedList;
    QString m_exportedFile;
    bool m_closeAfterExport = false;
};

} // namespace nubo
