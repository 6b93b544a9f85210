#include "video/VideoPlayer.h"

#include "core/Logging.h"

#include "media/SoundOutput.h"

#include <pthread.h>

#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace nubo {

// The picture worker: decodes the newest time asked for.
struct VideoPlayer::Pictures {
    explicit Pictures(const QString& file) : reader(file) {}

    VideoFrameReader reader;
    std::mutex mutex;
    std::condition_variable wake;
    std::optional<VideoTime> wanted;
    QSize fit;
    bool stopping = false;
    std::thread thread;
};

// The sound worker: 10 ms at a time to the audio server while playing.
struct VideoPlayer::Sound {
    explicit Sound(const QString& file) : reader(file) {}

    VideoSoundReader reader;
    std::mutex mutex;
    std::condition_variable wake;
    bool playing = false;
    bool stopping = false;
    std::optional<VideoTime> seekTo;
    VideoEditList list;
    std::thread thread;

    void run()
    {
        pthread_setname_np(pthread_self(), "nubo.review-snd");
        SoundOutput output(QStringLiteral("Recording review"));
        while (true) {
            std::unique_lock lock(mutex);
            wake.wait(lock, [&] { return stopping || (playing && reader.hasSound()); });
            if (stopping) {
                break;
            }
            if (seekTo) {
                reader.seek(*seekTo);
                seekTo.reset();
                output.flush();
            }
            const VideoEditList edits = list;
            lock.unlock();
            VideoTime start;
            std::vector<int16_t> samples = reader.read(480, &start);
            if (samples.empty()) {
                const std::lock_guard again(mutex);
                playing = false; // the end
                continue;
            }
            if (!edits.editedTime(start)) {
                // A removed stretch: on from the next kept one.
                const std::lock_guard again(mutex);
                if (!seekTo) {
                    if (const auto next = edits.nextPlayableTime(start)) {
                        seekTo = *next;
                    } else {
                        playing = false;
                    }
                }
                continue;
            }
            // A server that went away is connected to once more.
            if (!output.write(samples.data(), samples.size()) &&
                !output.write(samples.data(), samples.size())) {
                qCWarning(lcVideoEdit, "The review plays without sound: %s",
                          qPrintable(output.problem()));
                const std::lock_guard again(mutex);
                playing = false;
            }
        }
    }
};

VideoPlayer::VideoPlayer(const QString& file, QObject* parent) : QObject(parent)
{
    m_pictures = std::make_unique<Pictures>(file);
    m_info = m_pictures->reader.info();
    m_list = VideoEditList::opened(file, m_info.duration);
    try {
        m_sound = std::make_unique<Sound>(file);
        m_sound->list = m_list;
        m_sound->thread = std::thread([sound = m_sound.get()] { sound->run(); });
    } catch (const Error& error) {
        qCWarning(lcVideoEdit, "The review plays without sound: %s", qPrintable(error.message()));
        m_sound.reset();
    }
    Pictures* pictures = m_pictures.get();
    m_pictures->thread = std::thread([this, pictures] {
        pthread_setname_np(pthread_self(), "nubo.review-pic");
        while (true) {
            std::unique_lock lock(pictures->mutex);
            pictures->wake.wait(lock, [&] { return pictures->stopping || pictures->wanted; });
            if (pictures->stopping) {
                return;
            }
            const VideoTime time = *pictures->wanted;
            const QSize fit = pictures->fit;
            pictures->wanted.reset();
            lock.unlock();
            try {
                VideoFrame frame = pictures->reader.frameAt(time, fit);
                QMetaObject::invokeMethod(this, [this, frame] { delivered(frame.image, frame.time, frame.duration); },
                                          Qt::QueuedConnection);
            } catch (const Error& error) {
                qCWarning(lcVideoEdit, "No picture at %s: %s", qPrintable(time.text()), qPrintable(error.message()));
            }
        }
    });
    m_ticker.setInterval(8);
    m_ticker.setTimerType(Qt::PreciseTimer);
    connect(&m_ticker, &QTimer::timeout, this, &VideoPlayer::tick);
    request(VideoTime());
}

VideoPlayer::~VideoPlayer()
{
    {
        const std::lock_guard lock(m_pictures->mutex);
        m_pictures->stopping = true;
    }
    m_pictures->wake.notify_all();
    m_pictures->thread.join();
    if (m_sound) {
        {
            const std::lock_guard lock(m_sound->mutex);
            m_sound->stopping = true;
        }
        m_sound->wake.notify_all();
        m_sound->thread.join();
    }
}

void VideoPlayer::setEdits(const VideoEditList& list)
{
    m_list = list;
    if (m_sound) {
        const std::lock_guard lock(m_sound->mutex);
        m_sound->list = list;
    }
}

void VideoPlayer::setDisplaySize(QSize size)
{
    {
        const std::lock_guard lock(m_pictures->mutex);
        if (m_pictures->fit == size) {
            return;
        }
        m_pictures->fit = size;
    }
    m_shownTime = VideoTime(-1, 1);
    request(m_position);
}

void VideoPlayer::request(VideoTime time)
{
    {
        const std::lock_guard lock(m_pictures->mutex);
        m_pictures->wanted = time;
    }
    m_pictures->wake.notify_one();
}

void VideoPlayer::delivered(const QImage& picture, VideoTime time, VideoTime duration)
{
    m_shownTime = time;
    m_shownEnd = time + duration;
    ++m_shown;
    emit frameShown(picture, time);
}

void VideoPlayer::seek(VideoTime source)
{
    m_position = std::clamp(source, VideoTime(), m_info.duration);
    if (m_sound) {
        const std::lock_guard lock(m_sound->mutex);
        m_sound->seekTo = m_position;
    }
    request(m_position);
    emit positionChanged(m_position);
}

void VideoPlayer::play()
{
    if (m_playing) {
        return;
    }
    // From the start again at the end; from the next kept time inside a cut.
    auto next = m_list.nextPlayableTime(m_position);
    if (!next || *next >= m_list.outPoint - m_info.frameDuration) {
        next = m_list.nextPlayableTime(m_list.inPoint);
    }
    if (!next) {
        return;
    }
    seek(*next);
    m_playing = true;
    if (m_sound) {
        {
            const std::lock_guard lock(m_sound->mutex);
            m_sound->playing = true;
        }
        m_sound->wake.notify_one();
    }
    m_clock.start();
    m_lastTick = 0;
    m_ticker.start();
    emit playingChanged(true);
}

void VideoPlayer::pause()
{
    if (!m_playing) {
        return;
    }
    m_playing = false;
    m_ticker.stop();
    if (m_sound) {
        const std::lock_guard lock(m_sound->mutex);
        m_sound->playing = false;
        m_sound->seekTo = m_position;
    }
    emit playingChanged(false);
}

void VideoPlayer::toggle()
{
    m_playing ? pause() : play();
}

void VideoPlayer::step(int frames)
{
    pause();
    VideoTime target = m_position;
    for (int i = 0; i < std::abs(frames); ++i) {
        target = frames > 0 ? target + m_info.frameDuration : target - m_info.frameDuration;
    }
    // Onto the frame grid, so steps land on pictures.
    target = VideoTime::ofTicks(std::clamp<int64_t>(target.floorTicks(int(m_info.frameDuration.value),
                                                                     int(m_info.frameDuration.scale)),
                                                    0, INT32_MAX),
                                int(m_info.frameDuration.value), int(m_info.frameDuration.scale));
    if (frames > 0) {
        if (const auto next = m_list.nextPlayableTime(target)) {
            target = *next;
        }
    }
    seek(std::min(target, m_info.duration - m_info.frameDuration));
}

void VideoPlayer::tick()
{
    const qint64 now = m_clock.nsecsElapsed() / 1000;
    m_position += VideoTime(now - m_lastTick, 1'000'000);
    m_lastTick = now;
    const auto next = m_list.nextPlayableTime(m_position);
    if (!next) {
        pause();
        m_position = std::max(m_list.inPoint, m_list.outPoint - m_info.frameDuration);
        request(m_position);
        emit positionChanged(m_position);
        return;
    }
    if (*next != m_position) {
        m_position = *next; // over a removed stretch
        if (m_sound) {
            const std::lock_guard lock(m_sound->mutex);
            m_sound->seekTo = m_position;
        }
    }
    if (m_position < m_shownTime || m_position >= m_shownEnd) {
        request(m_position);
    }
    emit positionChanged(m_position);
}

} // namespace nubo
