#include "shell/ExportCommand.h"

#include "document/ShotDocumentArchive.h"
#include "render/ShotRenderer.h"
#include "shell/CommandLine.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QSaveFile>

namespace nubo::cli {

namespace {

const char* const exportHelp = R"(Usage: nuboshot export DIR -o OUT.png [--scale 1|2]

Renders the shot archive in DIR (crop, frame and every annotation) and writes
it as a PNG image.

  -o, --output OUT   the image to write; an existing file is replaced whole
  --scale 1|2        pixels per point (default 1)
)";

} // namespace

int runExportCommand(const QStringList& arguments)
{
    QString folder;
    QString output;
    int scale = 1;
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        const QString& argument = arguments[i];
        const auto value = [&]() -> std::optional<QString> {
            if (i + 1 >= arguments.size()) {
                return std::nullopt;
            }
            return arguments[++i];
        };
        if (argument == QLatin1String("-h") || argument == QLatin1String("--help")) {
            std::fputs(exportHelp, stdout);
            return success;
        }
        if (argument == QLatin1String("-o") || argument == QLatin1String("--output")) {
            const auto path = value();
            if (!path) {
                return usage(QStringLiteral("%1 needs a file name").arg(argument),
                             QStringLiteral("export"));
            }
            output = *path;
        } else if (argument == QLatin1String("--scale")) {
            const auto text = value();
            if (!text || (*text != QLatin1String("1") && *text != QLatin1String("2"))) {
                return usage(QStringLiteral("--scale is 1 or 2"), QStringLiteral("export"));
            }
            scale = text->toInt();
        } else if (argument.startsWith(QLatin1Char('-'))) {
            return usage(QStringLiteral("unknown option \u201c%1\u201d").arg(argument),
                         QStringLiteral("export"));
        } else if (folder.isEmpty()) {
            folder = argument;
        } else {
            return usage(QStringLiteral("export takes one archive"), QStringLiteral("export"));
        }
    }
    if (folder.isEmpty() || output.isEmpty()) {
        return usage(QStringLiteral("export needs an archive and -o OUT.png"),
                     QStringLiteral("export"));
    }

    ShotDocument document;
    try {
        document = ShotDocumentArchive::read(folder);
    } catch (const Error& error) {
        return failWith(error);
    }
    const QImage image = ShotRenderer::shared().render(document, scale);
    if (image.isNull()) {
        return fail(QStringLiteral("The shot is too large to render at %1\u00d7.").arg(scale));
    }
    QSaveFile file(output);
    if (!file.open(QIODevice::WriteOnly)) {
        return fail(
            QStringLiteral("Could not write \u201c%1\u201d: %2.").arg(output, file.errorString()));
    }
    QImageWriter writer(&file, "png");
    if (!writer.write(image) || !file.commit()) {
        return fail(QStringLiteral("Could not write \u201c%1\u201d: %2.")
                        .arg(output, writer.error() != QImageWriter::UnknownError
                                         ? writer.errorString()
                                         : file.errorString()));
    }
    print(QStringLiteral("Exported %1 \u00d7 %2 pixels to %3")
              .arg(image.width())
              .arg(image.height())
              .arg(QFileInfo(output).absoluteFilePath()));
    return success;
}

} // namespace nubo::cli
