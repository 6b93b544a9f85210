#include "shell/ArchiveCommands.h"

#include "document/ShotDocumentArchive.h"
#include "document/ShotImageFile.h"
#include "shell/CommandLine.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>

#include <cmath>
#include <map>

namespace nubo::cli {

namespace {

const char* const archiveHelp = R"(Usage: nuboshot archive new IMAGE DIR
       nuboshot archive check DIR

A shot archive is a folder with "manifest.json" and one PNG per image layer;
it keeps a shot's annotations editable.

  new IMAGE DIR   store IMAGE (PNG, JPEG, WebP, ...) as a one-layer archive in
                  DIR; an existing archive in DIR is replaced whole, any other
                  non-empty folder is left alone
  check DIR       read the archive in DIR and print its version, canvas, crop,
                  frame, layers and annotations; exit 1 if it cannot be opened
)";

QString number(double value)
{
    return QString::number(value, 'g', 12);
}

QString rectText(const QRectF& rect)
{
    return QStringLiteral("%1, %2, %3 \u00d7 %4")
        .arg(number(rect.x()), number(rect.y()), number(rect.width()), number(rect.height()));
}

int archiveNew(const QString& imagePath, const QString& folder)
{
    try {
        const ShotDocument document = ShotImageFile::readDocument(imagePath);
        ShotDocumentArchive::write(document, folder);
    } catch (const Error& error) {
        return failWith(error);
    }
    print(QStringLiteral("Saved shot archive: %1").arg(QFileInfo(folder).absoluteFilePath()));
    return success;
}

int archiveCheck(const QString& folder)
{
    ShotDocument document;
    try {
        document = ShotDocumentArchive::read(folder);
    } catch (const Error& error) {
        return failWith(error);
    }
    QStringList lines;
    lines << QStringLiteral("Archive: %1").arg(QFileInfo(folder).absoluteFilePath())
          << QStringLiteral("Version: %1").arg(ShotDocumentArchive::version)
          << QStringLiteral("Canvas: %1").arg(rectText(document.canvasBounds))
          << QStringLiteral("Crop: %1")
                 .arg(document.crop ? rectText(*document.crop) : QStringLiteral("none"))
          << QStringLiteral("Frame: %1")
                 .arg(document.frame
                          ? QStringLiteral("padding %1").arg(number(document.frame->padding))
                          : QStringLiteral("none"))
          << QStringLiteral("Layers: %1").arg(document.layers.size());
    for (const ImageLayer& layer : document.layers) {
        lines << QStringLiteral("  %1  %2 \u00d7 %3 px  frame %4")
                     .arg(layer.id.toString(QUuid::WithoutBraces).toUpper())
                     .arg(layer.image.width())
                     .arg(layer.image.height())
                     .arg(rectText(layer.frame));
    }
    std::map<int, int> counts;
    for (const Annotation& annotation : document.annotations) {
        ++counts[int(kindName(annotation.kind))];
    }
    QStringList parts;
    for (const auto& [kind, count] : counts) {
        parts << QStringLiteral("%1 %2").arg(toString(AnnotationKindName(kind))).arg(count);
    }
    lines << QStringLiteral("Annotations: %1%2")
                 .arg(document.annotations.size())
                 .arg(parts.isEmpty()
                          ? QString()
                          : QStringLiteral(" (%1)").arg(parts.join(QStringLiteral(", "))));
    print(lines.join(QLatin1Char('\n')));
    return success;
}

} // namespace

int runArchiveCommand(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        return usage(QStringLiteral("archive needs a command: new or check"),
                     QStringLiteral("archive"));
    }
    if (arguments.contains(QLatin1String("--help")) || arguments.contains(QLatin1String("-h"))) {
        std::fputs(archiveHelp, stdout);
        return success;
    }
    const QString& command = arguments.first();
    if (command == QLatin1String("new")) {
        if (arguments.size() != 3) {
            return usage(QStringLiteral("archive new needs an image and a folder"),
                         QStringLiteral("archive"));
        }
        return archiveNew(arguments[1], arguments[2]);
    }
    if (command == QLatin1String("check")) {
        if (arguments.size() != 2) {
            return usage(QStringLiteral("archive check needs one folder"),
                         QStringLiteral("archive"));
        }
        return archiveCheck(arguments[1]);
    }
    return usage(QStringLiteral("unknown archive command \u201c%1\u201d").arg(command),
                 QStringLiteral("archive"));
}

} // namespace nubo::cli
