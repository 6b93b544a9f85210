#include "shell/CommandLine.h"

#include "capture/CaptureTypes.h"
#include "document/ShotDocumentArchive.h"
#include "shell/DebugSwitch.h"
#include "shell/MainHelp.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>

#include <csignal>

namespace nubo::cli {

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

QString usageText(const QString& message, const QString& helpCommand)
{
    return QStringLiteral("nuboshot: %1\nTry \u201cnuboshot %2--help\u201d.\n")
        .arg(message, helpCommand.isEmpty() ? QString() : helpCommand + QLatin1Char(' '));
}

int usage(const QString& message, const QString& helpCommand)
{
    std::fputs(usageText(message, helpCommand).toUtf8().constData(), stderr);
    return badUsage;
}

int failWith(const Error& error)
{
    return fail(failureText(error));
}

QString failureText(const Error& error)
{
    if (const auto* archive = dynamic_cast<const ArchiveError*>(&error)) {
        QString line = error.message() + QStringLiteral(" (%1").arg(toString(archive->code()));
        if (!archive->detail().isEmpty()) {
            line += QStringLiteral(": ") + archive->detail();
        }
        return line + QLatin1Char(')');
    }
    // The capture messages are short on purpose; here, as in the
    // log, the real cause follows them.
    if (const auto* capture = dynamic_cast<const CaptureError*>(&error);
        capture && !capture->detail().isEmpty()) {
        return QStringLiteral("%1 (%2)").arg(error.message(), capture->detail());
    }
    return error.message();
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
    // Its help draws nothing.
    return !arguments.isEmpty() && arguments.first() == QLatin1String("export") &&
           !arguments.contains(QLatin1String("-h")) && !arguments.contains(QLatin1String("--help"));
}

int run(const QStringList& arguments, CommandTables tables)
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
    for (const std::span<const Command> table : tables) {
        for (const Command& known : table) {
            if (command == QLatin1String(known.name)) {
                return known.run(arguments.mid(1));
            }
        }
    }
    return usage(QStringLiteral("unknown command \u201c%1\u201d").arg(command));
}

void prepareProcess()
{
    std::signal(SIGXFSZ, SIG_IGN);
    followDebugSwitch();
    QCoreApplication::setOrganizationName(QStringLiteral("NuboShot"));
    QCoreApplication::setApplicationName(QStringLiteral("NuboShot"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NUBOSHOT_VERSION));
}

int runHeadless(int argc, char** argv, CommandTables tables)
{
    prepareProcess();
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    if (arguments.isEmpty()) {
        std::fputs(mainHelp, stderr);
        return badUsage;
    }
    // Commands draw and encode without a screen; only drawing text needs
    // the (slower to start) GUI application with its fonts.
    if (needsFonts(arguments)) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        QGuiApplication app(argc, argv);
        return run(arguments, tables);
    }
    if (needsScreens(arguments)) {
        QGuiApplication app(argc, argv);
        return run(arguments, tables);
    }
    QCoreApplication app(argc, argv);
    return run(arguments, tables);
}

} // namespace nubo::cli
