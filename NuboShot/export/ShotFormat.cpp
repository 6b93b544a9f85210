#include "export/ShotFormat.h"

#include <QFileInfo>

namespace nubo {

std::optional<ShotFormat> formatForFileName(const QString& fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    if (suffix == QLatin1String("jpg") || suffix == QLatin1String("jpeg")) {
        return ShotFormat::jpeg;
    }
    if (suffix == QLatin1String("heif")) {
        return ShotFormat::heic;
    }
    return fromString<ShotFormat>(suffix);
}

} // namespace nubo
