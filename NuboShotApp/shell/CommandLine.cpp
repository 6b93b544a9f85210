#include "shell/CommandLine.h"

#include "capture/CaptureTypes.h"

#include "document/ShotDocumentArchive.h"
#include "shell/ArchiveCommands.h"
#include "shell/CaptureCommands.h"
#include "shell/RecordCommand.h"
#include "shell/ExportCommand.h"
#include "shell/StitchCommand.h"
#include "shell/UploadCommand.h"
#include "shell/VideoCommand.h"

#include <QCoreApplication>
#include <QFileInfo>


namespace nubo::cli {

namespace {

const char* const mainHelp = R"(Usage: nuboshot [COMMAND [ARGUMENTS]]

Nubo Shot captures, annotates and records the screen. Without a command it
starts in the tray of the current desktop session (once per session).

Commands:
  capture area|window|fullscreen|scrolling|recording
                          the running Nubo Shot captures (started if needed)
  annotate FILE...        open images (or shot archives) in the editor
  open FILE...            the same
  displays [--json]       list the displays
  windows [--json]        list the windows that can be captured, front-most first
  grab fullscreen|window ID|region X,Y,W,H -o FILE
                          capture the screen into an image file
  archive new IMAGE DIR   store an image as an editable shot archive in DIR
  archive check DIR       read a shot archive and print what it holds
  export DIR -o FILE      render a shot archive to PNG, JPEG, HEIC or WebP
  export DIR --quick      ... into the quick-save folder under a dated name
  stitch FRAME... -o FILE stitch frames of a scrolling area into one tall PNG
  record display [ID]|area X,Y,W,H|window ID [-o DIR] [--duration S] ...
                          record the screen into an MP4 (SIGINT stops, SIGUSR1 pauses)
  review FILE             open a recording in the review window
  video export SOURCE -o FILE [--cut START-END]... [--crop X,Y,W,H] ...
                          export an edited copy of a recording
  video info FILE         what a recording holds
  upload FILE [--destination auto|r2|filebin]
                          upload a file to Filebin or an S3 bucket and print its link

Options:
  -h, --help              show this help; "nuboshot COMMAND --help" for a command
  -v, --version           show the version

Exit codes: 0 success, 1 failure (one line on standard error), 2 bad usage.
)";

} // namespace

void print(const QString& text, std::FILE* stream)
{
    const QByteArray bytes = text.toUtf8();
    std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stream);
    std::fputc('\n', stream);
}

int fail(const QString& message)
{
    print(QStringLiteral("nuboshot: ") + message, stderr);
    return failure;
}

int usage(const QString& message, const QString& helpCommand)
{
    print(QStringLiteral("nuboshot: ") + message, stderr);
    print(QStringLiteral("Try \u201cnuboshot %1--help\u201d.")
              .arg(helpCommand.isEmpty() ? QString() : helpCommand + QLatin1Char(' ')),
          stderr);
    return badUsage;
}

int failWith(const Error& error)
{
    if (const auto* archive = dynamic_cast<const ArchiveError*>(&error)) {
        QString line = error.message() + QStringLiteral(" (%1").arg(toString(archive->code()));
        if (!archive->detail().isEmpty()) {
            line += QStringLiteral(": ") + archive->detail();
        }
        return fail(line + QLatin1Char(')'));
    }
    // The capture messages are short on purpose; here, as in the
    // log, the real cause follows them.
    if (const auto* capture = dynamic_cast<const CaptureError*>(&error);
        capture && !capture->detail().isEmpty()) {
        return fail(QStringLiteral("%1 (%2)").arg(error.message(), capture->detail()));
    }
    return fail(error.message());
}

QString programPath()
{
    const QString front = qEnvironmentVariable("NUBOSHOT_PROGRAM");
    return !front.isEmpty() && QFileInfo(front).isExecutable()
               ? front
               : QCoreApplication::applicationFilePath();
}

bool isHeadless(const QStringList& arguments)
{
    return !arguments.isEmpty();
}

bool needsScreens(const QStringList& arguments)
{
    // In a Wayland session only the window system tells where the screens
    // are: the commands that capture connect to it.
    static const QStringList capturing{"displays", "windows", "grab", "record"};
    return !arguments.isEmpty() && capturing.contains(arguments.first()) &&
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

bool needsFonts(const QStringList& arguments)
{
    return !arguments.isEmpty() && arguments.first() == QLatin1String("export");
}

int run(const QStringList& arguments)
{
    Q_ASSERT(!arguments.isEmpty());
    const QString& command = arguments.first();
    if (command == QLatin1String("-h") || command == QLatin1String("--help") ||
        command == QLatin1String("help")) {
        std::fputs(mainHelp, stdout);
        return success;
    }
    if (command == QLatin1String("-v") || command == QLatin1String("--version")) {
        print(QStringLiteral("nuboshot ") + QCoreApplication::applicationVersion());
        return success;
    }
    if (command == QLatin1String("archive")) {
        return runArchiveCommand(arguments.mid(1));
    }
    if (command == QLatin1String("export")) {
        return runExportCommand(arguments.mid(1));
    }
    if (command == QLatin1String("stitch")) {
        return runStitchCommand(arguments.mid(1));
    }
    if (command == QLatin1String("displays")) {
        return runDisplaysCommand(arguments.mid(1));
    }
    if (command == QLatin1String("windows")) {
        return runWindowsCommand(arguments.mid(1));
    }
    if (command == QLatin1String("grab")) {
        return runGrabCommand(arguments.mid(1));
    }
    if (command == QLatin1String("capture")) {
        return runCaptureCommand(arguments.mid(1));
    }
    if (command == QLatin1String("video")) {
        return runVideoCommand(arguments.mid(1));
    }
    if (command == QLatin1String("record")) {
        return runRecordCommand(arguments.mid(1));
    }
    if (command == QLatin1String("upload")) {
        return runUploadCommand(arguments.mid(1));
    }
    return usage(QStringLiteral("unknown command \u201c%1\u201d").arg(command));
}

} // namespace nubo::cli
