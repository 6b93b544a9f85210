#pragma once

#include "recording/RecordingTypes.h"

#include <QSize>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>

#include "media/MediaOwners.h"

namespace nubo {

// The video encoder of one recording. H.264 goes to the GPU through VAAPI
// where a VAAPI device opens one, else to libx264; HEVC is hardware only
// (VAAPI or NVENC). Every encoder is set up alike: no B-frames, a key frame
// every two seconds, the recording's bit rate, BT.709 tags.
class RecordingVideoEncoder {
public:
    struct Settings {
        QSize size;
        int framesPerSecond = 30;
        int64_t bitRate = 0;
        bool globalHeader = false; // the container keeps the parameter sets
    };

    // The encoders tried for a codec, best first.
    static QStringList candidates(RecordingCodec codec);
    // Opens the first candidate that opens (a hardware one only when it
    // opened when probed). Throws RecordingError: codecUnsupported when no
    // encoder for the codec is there, writerFailed with FFmpeg's reason when
    // the last candidate refuses.
    static std::unique_ptr<RecordingVideoEncoder> open(RecordingCodec codec, const Settings& settings);

    RecordingVideoEncoder(const RecordingVideoEncoder&) = delete;
    RecordingVideoEncoder& operator=(const RecordingVideoEncoder&) = delete;

    AVCodecContext* context() const { return m_context.get(); }
    QString name() const;
    bool isHardware() const { return m_hardware; }
    // The picture to fill before send(): planar 4:2:0 in the format the
    // encoder takes (YUV420P or NV12), already writable.
    AVPixelFormat inputFormat() const { return m_inputFormat; }
    AVFrame* input() const { return m_input.get(); }
    // Hands input() to the encoder at `pts` (uploaded to the GPU first for
    // VAAPI). An FFmpeg status.
    int send(int64_t pts);

private:
    RecordingVideoEncoder() = default;
    // FFmpeg's status; on failure everything opened is freed.
    int tryOpen(const QString& name, const Settings& settings);

    media::Codec m_context;
    media::Buffer m_device;
    media::Buffer m_frames;
    media::Frame m_input;
    media::Frame m_upload;
    AVPixelFormat m_inputFormat = AV_PIX_FMT_YUV420P;
    bool m_hardware = false;
};

// Which hardware encoders open on this computer, probed once per process
// (opening a GPU's encoder can take a moment; the first call waits for it).
struct RecordingEncoderSupport {
    QString h264Hardware; // "h264_vaapi", or empty
    QString hevc;         // "hevc_vaapi", "hevc_nvenc", or empty
    bool opens(const QString& encoder) const { return encoder == h264Hardware || encoder == hevc; }
};
const RecordingEncoderSupport& recordingEncoderSupport();

} // namespace nubo
