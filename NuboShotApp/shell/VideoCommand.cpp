#include "shell/VideoCommand.h"

#include "shell/CommandLine.h"
#include "video/VideoEditExport.h"
#include "video/VideoEditRenderer.h"

#include <QFileInfo>

#include <algorithm>

#include <csignal>
#include <cstdio>
#include <unistd.h>

namespace nubo::cli {

namespace {

const char* const videoHelp = R"(Usage: nuboshot video export SOURCE -o FILE [OPTIONS]
       nuboshot video info FILE

export writes an edited copy of a recording; the recording is not changed.
Times are seconds ("12", "12.5"), rectangles are fractions of the picture
("0.25,0,0.5,1" is the middle half).

  -o, --output FILE          the MP4 to write (replaced whole when complete);
                             a FILE ending in .gif or .webp gets an animated
                             picture instead, without sound
  --cut START-END            cut this stretch out (repeatable)
  --in T, --out T            keep only what lies between these times
  --crop X,Y,W,H             keep this part of the picture
  --blur X,Y,W,H@START-END   pixelate this part of the picture over this
                             stretch (repeatable)
  --mute                     leave the sound out
  --quality original|1080|720
                             the output height, capped (never upscaled)
  --fps 10|15|24|30          pictures a second of a GIF or WebP (15)
  --width original|1280|960|640
                             the width of a GIF or WebP (never upscaled)

An export that only cuts copies the recording's own pictures and encodes
only those between a cut and the next key frame. Ctrl+C cancels; nothing is
left behind.

info prints what the export knows of a recording: duration, size, frame
duration, sound, codec, bytes and video bit rate.
)";

std::atomic<bool> interrupted{false};

void interrupt(int)
{
    interrupted = true;
}

std::optional<VideoTimeRange> parseRange(const QString& text)
{
    const int dash = int(text.indexOf(QLatin1Char('-'), 1));
    if (dash < 0) {
        return std::nullopt;
    }
    const auto from = VideoTime::parse(text.left(dash));
    const auto to = VideoTime::parse(text.mid(dash + 1));
    if (!from || !to || *to <= *from || *from < VideoTime()) {
        return std::nullopt;
    }
    return VideoTimeRange::between(*from, *to);
}

std::optional<QRectF> parseRect(const QString& text)
{
    const QStringList parts = text.split(QLatin1Char(','));
    if (parts.size() != 4) {
        return std::nullopt;
    }
    double values[4];
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        values[i] = parts[i].trimmed().toDouble(&ok);
        if (!ok || values[i] < 0 || values[i] > 1) {
            return std::nullopt;
        }
    }
    if (values[2] <= 0 || values[3] <= 0) {
        return std::nullopt;
    }
    return QRectF(values[0], values[1], values[2], values[3]);
}

int runInfo(const QStringList& arguments)
{
    if (arguments.size() != 1) {
        return usage(QStringLiteral("video info takes one file"), QStringLiteral("video"));
    }
    try {
        print(VideoSourceInfo::read(arguments.first()).describe());
        return success;
    } catch (const Error& error) {
        return failWith(error);
    }
}

int runExport(const QStringList& arguments)
{
    const QString help = QStringLiteral("video");
    QString source, output;
    std::vector<VideoTimeRange> cuts;
    std::vector<std::pair<QRectF, VideoTimeRange>> blurs;
    std::optional<VideoTime> in, out;
    std::optional<QRectF> crop;
    bool mute = false;
    VideoExportQuality quality = VideoExportQuality::original;
    AnimationOptions animation;
    bool animationAsked = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        const bool takesValue = argument == QLatin1String("-o") || argument == QLatin1String("--output") ||
                                argument == QLatin1String("--cut") || argument == QLatin1String("--in") ||
                                argument == QLatin1String("--out") || argument == QLatin1String("--crop") ||
                                argument == QLatin1String("--blur") || argument == QLatin1String("--quality") ||
                                argument == QLatin1String("--fps") || argument == QLatin1String("--width");
        if (takesValue && i + 1 >= arguments.size()) {
            return usage(QStringLiteral("%1 needs a value").arg(argument), help);
        }
        const QString value = takesValue ? arguments[++i] : QString();
        if (argument == QLatin1String("-o") || argument == QLatin1String("--output")) {
            output = value;
        } else if (argument == QLatin1String("--cut")) {
            const auto range = parseRange(value);
            if (!range) {
                return usage(QStringLiteral("\u201c%1\u201d is not a stretch START-END in seconds").arg(value), help);
            }
            cuts.push_back(*range);
        } else if (argument == QLatin1String("--in") || argument == QLatin1String("--out")) {
            const auto time = VideoTime::parse(value);
            if (!time || *time < VideoTime()) {
                return usage(QStringLiteral("\u201c%1\u201d is not a time in seconds").arg(value), help);
            }
            (argument == QLatin1String("--in") ? in : out) = time;
        } else if (argument == QLatin1String("--crop")) {
            crop = parseRect(value);
            if (!crop) {
                return usage(QStringLiteral("\u201c%1\u201d is not a rectangle X,Y,W,H of fractions").arg(value), help);
            }
        } else if (argument == QLatin1String("--blur")) {
            const int at = int(value.indexOf(QLatin1Char('@')));
            const auto rect = at > 0 ? parseRect(value.left(at)) : std::nullopt;
            const auto range = at > 0 ? parseRange(value.mid(at + 1)) : std::nullopt;
            if (!rect || !range) {
                return usage(QStringLiteral("\u201c%1\u201d is not X,Y,W,H@START-END").arg(value), help);
            }
            blurs.emplace_back(*rect, *range);
        } else if (argument == QLatin1String("--mute")) {
            mute = true;
        } else if (argument == QLatin1String("--quality")) {
            if (value == QLatin1String("original")) {
                quality = VideoExportQuality::original;
            } else if (value == QLatin1String("1080") || value == QLatin1String("1080p")) {
                quality = VideoExportQuality::p1080;
            } else if (value == QLatin1String("720") || value == QLatin1String("720p")) {
                quality = VideoExportQuality::p720;
            } else {
                return usage(QStringLiteral("the quality is original, 1080 or 720"), help);
            }
        } else if (argument == QLatin1String("--fps")) {
            const int rate = value.toInt();
            if (std::find(AnimationOptions::frameRates.begin(), AnimationOptions::frameRates.end(), rate) ==
                AnimationOptions::frameRates.end()) {
                return usage(QStringLiteral("--fps is 10, 15, 24 or 30"), help);
            }
            animation.framesPerSecond = rate;
            animationAsked = true;
        } else if (argument == QLatin1String("--width")) {
            const int width = value == QLatin1String("original") ? 0 : value.toInt();
            if (std::find(AnimationOptions::widths.begin(), AnimationOptions::widths.end(), width) ==
                AnimationOptions::widths.end()) {
                return usage(QStringLiteral("--width is original, 1280, 960 or 640"), help);
            }
            animation.width = width;
            animationAsked = true;
        } else if (argument.startsWith(u'-') && argument.size() > 1) {
            return usage(QStringLiteral("unknown option \u201c%1\u201d").arg(argument), help);
        } else if (source.isEmpty()) {
            source = argument;
        } else {
            return usage(QStringLiteral("one recording at a time"), help);
        }
    }
    if (source.isEmpty()) {
        return usage(QStringLiteral("the recording is missing"), help);
    }
    if (output.isEmpty()) {
        return usage(QStringLiteral("the output file is missing (-o FILE)"), help);
    }
    if (animationAsked && !animationFormatOf(output)) {
        return usage(QStringLiteral("--fps and --width are for a GIF or WebP output (-o FILE.gif)"), help);
    }
    if (in && out && *out <= *in) {
        return usage(QStringLiteral("the in point (--in %1) must come before the out point (--out %2)")
                         .arg(in->toSeconds())
                         .arg(out->toSeconds()),
                     help);
    }
    try {
        const VideoSourceInfo info = VideoSourceInfo::read(source);
        if (in && out && *out - *in < info.frameDuration) {
            return usage(QStringLiteral("between --in %1 and --out %2 there is not one picture "
                                        "(a picture lasts %3 s)")
                             .arg(in->toSeconds())
                             .arg(out->toSeconds())
                             .arg(info.frameDuration.toSeconds()),
                         help);
        }
        VideoEditList list = VideoEditList::opened(source, info.duration);
        if (out) {
            list.setOutPoint(*out, info.duration, info.frameDuration);
        }
        if (in) {
            list.setInPoint(*in, info.duration, info.frameDuration);
        }
        list.removedRanges = cuts;
        list.setCrop(crop);
        for (const auto& [rect, range] : blurs) {
            list.addBlur(rect, range);
        }
        list.setMuted(mute);
        list.setQuality(quality);

        std::signal(SIGINT, interrupt);
        std::signal(SIGTERM, interrupt);
        const bool terminal = isatty(fileno(stderr));
        int shown = -1;
        const auto result = VideoEditExportSession::run(list, output, interrupted, [&](double fraction) {
            const int percent = int(fraction * 100);
            if (terminal && percent != shown) {
                shown = percent;
                std::fprintf(stderr, "\rExporting %s\u2026 %3d%%", qPrintable(QFileInfo(output).fileName()), percent);
                std::fflush(stderr);
            }
        }, animation);
        if (terminal) {
            std::fputc('\n', stderr);
        }
        if (!result) {
            return fail(QStringLiteral("the export was cancelled; nothing was written"));
        }
        print(result->file);
        return success;
    } catch (const Error& error) {
        return failWith(error);
    }
}

} // namespace

int runVideoCommand(const QStringList& arguments)
{
    // Help wherever it is asked: "video export --help" as "video --help".
    if (arguments.isEmpty() || arguments.contains(QLatin1String("-h")) ||
        arguments.contains(QLatin1String("--help"))) {
        std::fputs(videoHelp, arguments.isEmpty() ? stderr : stdout);
        return arguments.isEmpty() ? badUsage : success;
    }
    if (arguments.first() == QLatin1String("export")) {
        return runExport(arguments.mid(1));
    }
    if (arguments.first() == QLatin1String("info")) {
        return runInfo(arguments.mid(1));
    }
    return usage(QStringLiteral("unknown video command \u201c%1\u201d").arg(arguments.first()), QStringLiteral("video"));
}

} // namespace nubo::cli
