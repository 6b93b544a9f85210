#pragma once

#include "video/AnimatedExport.h"
#include "video/VideoEditList.h"
#include "video/VideoSource.h"

#include <QString>

#include <atomic>
#include <functional>
#include <memory>
#include <optional>

namespace nubo {

// What one export did.
struct VideoExportResult {
    QString file;
    bool streamCopied = false; // the kept stretches copied, only the cuts' pictures encoded
    qint64 copiedPackets = 0;  // pictures taken over from the recording as they were
    qint64 encodedFrames = 0;  // pictures encoded anew
};

// How an export ended.
struct VideoExportOutcome {
    std::optional<VideoExportResult> result; // completed
    std::optional<VideoEditError> error;     // failed
    bool cancelled = false;
};

// One export of an edit list into a new MP4: the kept ranges end to end, the
// picture cropped, blurred and scaled (VideoEditRenderer), encoded with the
// recording's codec at a constant high quality (CRF 18 for H.264), AAC
// sound unless muted, the index at the front. A list that only cuts copies
// the recording's own pictures and encodes only those between a cut and the
// next key frame. The file appears under its name only when complete; a
// failed or cancelled export leaves nothing behind.
//
// The work runs on a thread of its own ("nubo.video-edit"); progress and
// the end are reported from that thread.
class VideoEditExportSession {
public:
    using Progress = std::function<void(double fraction)>;
    using Finished = std::function<void(const VideoExportOutcome&)>;

    // A destination ending in .gif or .webp gets an animation of the edit
    // (AnimatedExport) instead of a movie.
    VideoEditExportSession(VideoEditList list, QString destination, AnimationOptions animation = {});
    // Cancels a running export and waits for it to end.
    ~VideoEditExportSession();
    VideoEditExportSession(const VideoEditExportSession&) = delete;
    VideoEditExportSession& operator=(const VideoEditExportSession&) = delete;

    void start(Progress progress, Finished finished);
    void cancel();
    // Waits for the end of a started export.
    void wait();
    double progress() const;

    // The export itself, on the calling thread. Throws VideoEditError;
    // returns nothing when `cancelled` was set.
    static std::optional<VideoExportResult> run(const VideoEditList& list, const QString& destination,
                                                const std::atomic<bool>& cancelled, const Progress& progress = {},
                                                const AnimationOptions& animation = {});

private:
    struct Run;
    std::unique_ptr<Run> session;
};

} // namespace nubo
