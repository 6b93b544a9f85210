#include "shell/EditorCommands.h"

#include "core/Settings.h"
#include "document/ShotDocumentArchive.h"
#include "document/ShotImageFile.h"
#include "editor/ShotEditorWindow.h"
#include "render/ShotRenderer.h"
#include "shell/ArchiveCommands.h"
#include "shell/CommandLine.h"
#include "shell/GrabRequest.h"
#include "shell/BusNames.h"
#include "shell/Translations.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QFileInfo>
#include <QImageReader>

namespace nubo::cli {

ShotDocument openDocument(const QString& path)
{
    if (QFileInfo(path).isDir()) {
        return ShotDocumentArchive::read(path);
    }
    return ShotImageFile::readDocument(path);
}

bool isEditorCommand(const QStringList& arguments)
{
    return !arguments.isEmpty() && (arguments.first() == QLatin1String("annotate") ||
                                    arguments.first() == QLatin1String("open"));
}

int runEditorCommand(int argc, char** argv, const QStringList& arguments)
{
    const QStringList files = arguments.mid(1);
    if (files.isEmpty() || files.contains(QLatin1String("--help")) ||
        files.contains(QLatin1String("-h"))) {
        if (files.isEmpty()) {
            return usage(QStringLiteral("%1 needs one or more images").arg(arguments.first()));
        }
        print(arguments.first() == QLatin1String("open")
                  ? QStringLiteral("Usage: nuboshot open [FILE...]\n\nOpens each image (or shot "
                                   "archive) in its own editor window. With no file, starts Nubo "
                                   "Shot in the tray (what its menu entry runs).")
                  : QStringLiteral("Usage: nuboshot annotate FILE...\n\nOpens each image (or "
                                   "shot archive) in its own editor window."));
        return success;
    }
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return fail(QStringLiteral("No desktop session found to show the editor in."));
    }
    // The running instance opens them, where there is one.
    {
        QCoreApplication probe(argc, argv);
        QDBusConnection bus = QDBusConnection::sessionBus();
        if (bus.isConnected() &&
            bus.interface()->isServiceRegistered(QLatin1String(bus::name))) {
            QStringList absolute;
            for (const QString& file : files) {
                absolute << QFileInfo(file).absoluteFilePath();
            }
            QDBusMessage call = QDBusMessage::createMethodCall(
                QLatin1String(bus::name), QLatin1String(GrabOverBus::path),
                QLatin1String(GrabOverBus::interface),
                arguments.first() == QLatin1String("open") ? QStringLiteral("OpenImage")
                                                           : QStringLiteral("Annotate"));
            call.setArguments({absolute});
            call.setAutoStartService(false);
            const QDBusMessage reply = bus.call(call, QDBus::Block, 30000);
            if (reply.type() == QDBusMessage::ReplyMessage) {
                return success;
            }
            if (reply.type() == QDBusMessage::ErrorMessage &&
                reply.errorName() == QLatin1String(GrabOverBus::errorName)) {
                return fail(reply.errorMessage());
            }
            // An instance that cannot answer: open them here.
        }
    }
    QApplication app(argc, argv);
    installTranslations();
    QApplication::setApplicationDisplayName(QStringLiteral("Nubo Shot"));
    ShotPreferences preferences;
    std::vector<std::unique_ptr<ShotEditorWindow>> windows;
    int failures = 0;
    for (const QString& file : files) {
        try {
            windows.push_back(std::make_unique<ShotEditorWindow>(openDocument(file), preferences,
                                                                 ShotRenderer::shared()));
            windows.back()->show();
        } catch (const Error& error) {
            fail(error.message());
            ++failures;
        }
    }
    if (windows.empty()) {
        return failure;
    }
    const int status = QApplication::exec();
    return failures > 0 ? failure : status;
}

} // namespace nubo::cli
