#pragma once

#include "video/VideoEditList.h"
#include "video/VideoSource.h"

#include <QElapsedTimer>
#include <QImage>
#include <QObject>
#include <QSize>
#include <QTimer>

#include <memory>

namespace nubo {

// Plays a recording as its edit list says: pictures decoded on a worker
// thread (only the newest request counts, so scrubbing never queues up),
// the sound to the audio server on another, removed stretches jumped over
// by the next-playable rule.
class VideoPlayer : public QObject {
    Q_OBJECT
public:
    // Throws VideoEditError when the recording cannot be read.
    explicit VideoPlayer(const QString& file, QObject* parent = nullptr);
    ~VideoPlayer() override;

    const VideoSourceInfo& info() const { return m_info; }
    void setEdits(const VideoEditList& list);
    // Pictures are decoded to fit in this size (device pixels).
    void setDisplaySize(QSize size);

    VideoTime position() const { return m_position; }
    // Where an edit made now starts: the shown picture's own time while the
    // playhead lies within it (a scrub rarely lands on a picture's start),
    // so what is drawn over the picture applies to that picture.
    VideoTime editTime() const
    {
        return m_shownTime <= m_position && m_position < m_shownEnd ? m_shownTime : m_position;
    }
    bool isPlaying() const { return m_playing; }
    void seek(VideoTime source);
    void play();
    void pause();
    void toggle();
    // Pauses and moves by whole frames (over removed stretches forward).
    void step(int frames);
    // Pictures shown since opening, and the time from the last seek to its
    // picture (for the benchmarks and the log).
    qint64 framesShown() const { return m_shown; }

signals:
    void frameShown(const QImage& picture, nubo::VideoTime time);
    void positionChanged(nubo::VideoTime position);
    void playingChanged(bool playing);

private:
    struct Pictures;
    struct Sound;
    void tick();
    void request(VideoTime time);
    void delivered(const QImage& picture, VideoTime time, VideoTime duration);

    VideoSourceInfo m_info;
    VideoEditList m_list;
    std::unique_ptr<Pictures> m_pictures;
    std::unique_ptr<Sound> m_sound;
    VideoTime m_position;
    VideoTime m_shownTime{-1, 1};
    VideoTime m_shownEnd{-1, 1};
    bool m_playing = false;
    QTimer m_ticker;
    QElapsedTimer m_clock;
    qint64 m_lastTick = 0;
    qint64 m_shown = 0;
};

} // namespace nubo
