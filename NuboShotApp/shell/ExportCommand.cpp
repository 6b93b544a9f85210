#include "shell/ExportCommand.h"

#include "core/Settings.h"
#include "document/ShotDocumentArchive.h"
#include "export/ShotExporter.h"
#include "export/ShotQuickSave.h"
#include "shell/CommandLine.h"

#include <QFileInfo>

namespace nubo::cli {

namespace {

const char* const exportHelp = R"(Usage: nuboshot export DIR (-o FILE | --quick) [OPTIONS]

Renders the shot archive in DIR (crop, frame and every annotation) and writes
it as an image file. Prints the path written.

  -o, --output FILE      the file to write; an existing file is replaced whole
  --quick                save into the quick-save folder (shot.quickSaveFolder,
                         else Downloads) under a dated name that never
                         replaces an existing file
  --format FORMAT        png, jpeg, heic or webp; by default the output file's
                         extension decides, and --quick uses shot.quickSaveFormat
  --quality Q            lossy quality from 0 to 1 (default 0.9)
  --scale 1|2            pixels per point (default: the capture's own density)
)";

std::optional<double> parseNumber(const QString& text)
{
    bool ok = false;
    const double value = text.toDouble(&ok);
    return ok ? std::optional(value) : std::nullopt;
}

} // namespace

int runExportCommand(const QStringList& arguments)
{
    const QString help = QStringLiteral("export");
    QString folder;
    QString output;
    bool quick = false;
    std::optional<ShotFormat> format;
    double quality = ShotQuickSave::quality;
    std::optional<double> scale;
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
                return usage(QStringLiteral("%1 needs a file name").arg(argument), help);
            }
            output = *path;
        } else if (argument == QLatin1String("--quick")) {
            quick = true;
        } else if (argument == QLatin1String("--format")) {
            const auto name = value();
            format = name ? fromString<ShotFormat>(*name) : std::nullopt;
            if (!format) {
                return usage(QStringLiteral("--format is png, jpeg, heic or webp"), help);
            }
        } else if (argument == QLatin1String("--quality") || argument == QLatin1String("--scale")) {
            const auto text = value();
            const auto number = text ? parseNumber(*text) : std::nullopt;
            if (!number) {
                return usage(QStringLiteral("%1 needs a number").arg(argument), help);
            }
            (argument == QLatin1String("--quality") ? quality : scale.emplace()) = *number;
        } else if (argument.startsWith(QLatin1Char('-'))) {
            return usage(QStringLiteral("unknown option \u201c%1\u201d").arg(argument), help);
        } else if (folder.isEmpty()) {
            folder = argument;
        } else {
            return usage(QStringLiteral("export takes one archive"), help);
        }
    }
    if (folder.isEmpty() || output.isEmpty() == !quick) {
        return usage(QStringLiteral("export needs an archive and either -o FILE or --quick"), help);
    }
    if (!quick && !format) {
        format = formatForFileName(output);
        if (!format) {
            return usage(QStringLiteral("cannot tell the format of \u201c%1\u201d; use --format")
                             .arg(output),
                         help);
        }
    }

    try {
        const ShotDocument document = ShotDocumentArchive::read(folder);
        const double exportScale = scale.value_or(ShotExporter::defaultScale(document));
        QString written;
        if (quick) {
            const ShotPreferences preferences;
            written = ShotQuickSave::saveInto(ShotQuickSave::folder(preferences),
                                              format.value_or(ShotQuickSave::format(preferences)),
                                              document, exportScale, QDateTime::currentDateTime(),
                                              quality);
        } else {
            ShotExporter::exportShot(document, *format, output, quality, exportScale);
            written = QFileInfo(output).absoluteFilePath();
        }
        print(written);
    } catch (const Error& error) {
        return failWith(error);
    }
    return success;
}

} // namespace nubo::cli
