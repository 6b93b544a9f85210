#include "shell/CommandTables.h"
#include "shell/EditorCommands.h"
#include "shell/ReviewCommand.h"
#include "shell/TrayApplication.h"
#include "shell/Translations.h"
#include "style/ShotIcons.h"

#include <QApplication>

int main(int argc, char** argv)
{
    nubo::cli::prepareProcess();

    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    // The menu entry runs "open %F": with no file it starts the tray.
    if (arguments == QStringList{QStringLiteral("open")}) {
        arguments.clear();
    }
    if (nubo::cli::isEditorCommand(arguments)) {
        return nubo::cli::runEditorCommand(argc, argv, arguments);
    }
    if (nubo::cli::isReviewCommand(arguments)) {
        return nubo::cli::runReviewCommand(argc, argv, arguments);
    }
    if (nubo::cli::isHeadless(arguments)) {
        // Run directly, the whole program knows every command.
        return nubo::cli::runHeadless(argc, argv,
                                      {nubo::cli::stillCommands, nubo::cli::mediaCommands,
                                       nubo::cli::uploadCommands});
    }

    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return nubo::cli::fail(QStringLiteral(
            "No desktop session found (neither DISPLAY nor WAYLAND_DISPLAY is set). "
            "Start Nubo Shot from your desktop, or see \u201cnuboshot --help\u201d."));
    }
    QApplication app(argc, argv);
    nubo::installTranslations();
    QApplication::setApplicationDisplayName(QStringLiteral("Nubo Shot"));
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setWindowIcon(nubo::ShotIcons::application());

    nubo::TrayApplication tray;
    if (tray.start() == nubo::TrayApplication::Start::alreadyRunning) {
        nubo::cli::print(QStringLiteral("Nubo Shot is already running."));
        return nubo::cli::success;
    }
    return QApplication::exec();
}
