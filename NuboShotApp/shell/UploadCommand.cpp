#include "shell/UploadCommand.h"

#include "core/Settings.h"
#include "shell/CommandLine.h"
#include "upload/Uploader.h"

#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <unistd.h>

namespace nubo::cli {

namespace {

QByteArray contentType(const QString& fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("png")) return "image/png";
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg")) return "image/jpeg";
    if (suffix == QLatin1String("webp")) return "image/webp";
    if (suffix == QLatin1String("heic")) return "image/heic";
    if (suffix == QLatin1String("mp4")) return "video/mp4";
    return "application/octet-stream";
}

} // namespace

int runUploadCommand(const QStringList& arguments)
{
    const QString help = QStringLiteral("upload");
    if (arguments.contains(QLatin1String("-h")) || arguments.contains(QLatin1String("--help"))) {
        print(QStringLiteral(
            "Usage: nuboshot upload FILE [--destination auto|r2|filebin]\n\n"
            "Uploads a file as the editor's upload button does and prints its link (or,\n"
            "for a bucket without a public address, the object's key). The destination\n"
            "defaults to the Uploads settings' choice; \"auto\" is the S3 bucket when one\n"
            "is set up, else Filebin."));
        return success;
    }
    QString file;
    std::optional<ShotUploadDestination> destination;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == QLatin1String("--destination") && i + 1 < arguments.size()) {
            destination = fromString<ShotUploadDestination>(arguments[++i]);
            if (!destination) {
                return usage(QStringLiteral("the destination is auto, r2 or filebin"), help);
            }
        } else if (file.isEmpty() && !arguments[i].startsWith(u'-')) {
            file = arguments[i];
        } else {
            return usage(QStringLiteral("unexpected \u201c%1\u201d").arg(arguments[i]), help);
        }
    }
    if (file.isEmpty()) {
        return usage(QStringLiteral("upload needs a file"), help);
    }
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        return fail(QStringLiteral("\u201c%1\u201d could not be read: %2.").arg(file, input.errorString()));
    }
    UploadRequest request;
    request.bytes = input.readAll();
    request.fileName = QFileInfo(file).fileName();
    request.contentType = contentType(file);
    try {
        const ShotPreferences preferences;
        const ShotUploadDestination chosen = destination.value_or(preferences.enumeration(
            keys::uploadDestination, ShotUploadDestination::auto_));
        request.settings = UploadStore().settings(chosen);
        Uploader uploader(std::move(request));
        if (::isatty(STDERR_FILENO)) {
            uploader.progress = [](qint64 sent, qint64 total) {
                if (total > 0) {
                    std::fprintf(stderr, "\rUploading\u2026 %3d%%", int(sent * 100 / total));
                    std::fflush(stderr);
                }
            };
        }
        const UploadReceipt receipt = uploader.run();
        if (::isatty(STDERR_FILENO)) {
            std::fputs("\r\033[K", stderr);
        }
        print(receipt.handle());
        return success;
    } catch (const Error& error) {
        if (::isatty(STDERR_FILENO)) {
            std::fputs("\r\033[K", stderr);
        }
        return failWith(error);
    }
}

} // namespace nubo::cli
