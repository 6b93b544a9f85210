#include "shell/ReviewCommand.h"

#include "core/Settings.h"
#include "review/ShotReviewWindow.h"
#include "shell/CommandLine.h"
#include "shell/Translations.h"
#include "style/ShotIcons.h"

#include <QApplication>
#include <QIcon>

namespace nubo::cli {

bool isReviewCommand(const QStringList& arguments)
{
    return !arguments.isEmpty() && arguments.first() == QLatin1String("review");
}

int runReviewCommand(int argc, char** argv, const QStringList& arguments)
{
    const QStringList files = arguments.mid(1);
    if (files.contains(QLatin1String("--help")) || files.contains(QLatin1String("-h"))) {
        print(QStringLiteral("Usage: nuboshot review FILE\n\nOpens a recording in the review window: play it, "
                             "cut, blur, crop or mute it and export an edited copy."));
        return success;
    }
    if (files.size() != 1) {
        return usage(QStringLiteral("review needs one recording"));
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return fail(QStringLiteral("No desktop session found to show the review window in."));
    }
    QApplication app(argc, argv);
    installTranslations();
    QApplication::setApplicationDisplayName(QStringLiteral("Nubo Shot"));
    QApplication::setWindowIcon(ShotIcons::application());
    ShotPreferences preferences;
    try {
        ShotReviewWindow window(files.first(), preferences);
        window.show();
        return QApplication::exec();
    } catch (const Error& error) {
        return failWith(error);
    }
}

} // namespace nubo::cli
