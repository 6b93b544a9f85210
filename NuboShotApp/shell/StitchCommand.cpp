#include "shell/StitchCommand.h"

#include "capture/ScrollStitcher.h"
#include "core/Error.h"
#include "core/FileWriting.h"
#include "document/ShotImageFile.h"
#include "codec/PngEncoder.h"
#include "shell/CommandLine.h"

namespace nubo::cli {

namespace {

const char* const stitchHelp = R"(Usage: nuboshot stitch FRAME... -o FILE [--verbose]

Stitches frames of one scrolling area, in the order given, into one tall PNG,
as a scrolling capture does: only rows below what is already stitched are
added, fixed headers and footers stay once, and the result stops at 30000
rows or 128 MiB.

  -o, --output FILE      the PNG to write; an existing file is replaced whole
  --verbose              one line per frame: the update, the offset found and
                         the share of rows that verified
)";

QString updateName(ScrollStitcher::Update update)
{
    static constexpr const char* names[] = {"accepted", "unchanged", "skipped",
                                            "incompatibleSize", "limitReached"};
    return QLatin1String(names[int(update)]);
}

} // namespace

int runStitchCommand(const QStringList& arguments)
{
    const QString help = QStringLiteral("stitch");
    QStringList frames;
    QString output;
    bool verbose = false;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        if (argument == QLatin1String("-h") || argument == QLatin1String("--help")) {
            std::fputs(stitchHelp, stdout);
            return success;
        }
        if (argument == QLatin1String("-o") || argument == QLatin1String("--output")) {
            if (i + 1 >= arguments.size()) {
                return usage(QStringLiteral("%1 needs a file name").arg(argument), help);
            }
            output = arguments[++i];
        } else if (argument == QLatin1String("--verbose")) {
            verbose = true;
        } else if (argument.startsWith(u'-') && argument.size() > 1) {
            return usage(QStringLiteral("unknown option \u201c%1\u201d").arg(argument), help);
        } else {
            frames << argument;
        }
    }
    if (frames.isEmpty()) {
        return usage(QStringLiteral("no frames to stitch"), help);
    }
    if (output.isEmpty()) {
        return usage(QStringLiteral("the output file is missing (-o FILE)"), help);
    }
    try {
        ScrollStitcher stitcher(30000, 128 << 20, 1);
        for (const QString& file : std::as_const(frames)) {
            const QImage frame = ShotImageFile::read(file);
            const ScrollStitcher::Update update = stitcher.add(frame);
            if (verbose) {
                print(QStringLiteral("%1: %2 offset %3 verified %4")
                          .arg(file, updateName(update),
                               stitcher.lastOffset ? QString::number(*stitcher.lastOffset)
                                                   : QStringLiteral("none"))
                          .arg(stitcher.lastVerifiedRatio, 0, 'f', 3));
            }
            if (update == ScrollStitcher::Update::limitReached) {
                break;
            }
        }
        const QImage stitched = stitcher.takeImage();
        if (stitched.isNull()) {
            return fail(QStringLiteral("nothing was stitched"));
        }
        FileWriting::writeAtomically(PngEncoder::encode(stitched), output);
        print(output);
        return success;
    } catch (const Error& error) {
        return failWith(error);
    }
}

} // namespace nubo::cli
