#include "shell/CommandLine.h"
#include "shell/EditorCommands.h"
#include "shell/ReviewCommand.h"
#include "shell/TrayApplication.h"

#include <QApplication>

#include <csignal>

int main(int argc, char** argv)
{
    // Past the session's file size limit (ulimit -f) a write fails with
    // EFBIG, which we report and clean up after; the signal would kill us
    // with half-written staging files left behind.
    std::signal(SIGXFSZ, SIG_IGN);
    QCoreApplication::setOrganizationName(QStringLiteral("NuboShot"));
    QCoreApplication::setApplicationName(QStringLiteral("NuboShot"));
    QCoreApplication::setApplicationVersion(QStringLiteral(NUBOSHOT_VERSION));

    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    if (nubo::cli::isEditorCommand(arguments)) {
        return nubo::cli::runEditorCommand(argc, argv, arguments);
    }
    if (nubo::cli::isReviewCommand(arguments)) {
        return nubo::cli::runReviewCommand(argc, argv, arguments);
    }
    if (nubo::cli::isHeadless(arguments)) {
        // Commands draw and encode without a screen; only drawing text needs
        // the (slower to start) GUI application with its fonts.
        if (nubo::cli::needsFonts(arguments)) {
            qputenv("QT_QPA_PLATFORM", "offscreen");
            QGuiApplication app(argc, argv);
            return nubo::cli::run(arguments);
        }
        if (nubo::cli::needsScreens(arguments)) {
            QGuiApplication app(argc, argv);
            return nubo::cli::run(arguments);
        }
        QCoreApplication app(argc, argv);
        return nubo::cli::run(arguments);
    }

    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return nubo::cli::fail(QStringLiteral(
            "No desktop session found (neither DISPLAY nor WAYLAND_DISPLAY is set). "
            "Start Nubo Shot from your desktop, or see \u201cnuboshot --help\u201d."));
    }
    QApplication app(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("Nubo Shot"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/nuboshot.svg")));

    nubo::TrayApplication tray;
    if (tray.start() == nubo::TrayApplication::Start::alreadyRunning) {
        nubo::cli::print(QStringLiteral("Nubo Shot is already running."));
        return nubo::cli::success;
    }
    return QApplication::exec();
}
