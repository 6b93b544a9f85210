#include "editor/ShotToolKind.h"

namespace nubo {

QString toolTitle(ShotToolKind tool)
{
    switch (tool) {
    case ShotToolKind::crop:
        return QStringLiteral("Crop");
    case ShotToolKind::addImage:
        return QStringLiteral("Add image");
    case ShotToolKind::select:
        return QStringLiteral("Select");
    case ShotToolKind::rect:
        return QStringLiteral("Rectangle");
    case ShotToolKind::filledRect:
        return QStringLiteral("Filled rectangle");
    case ShotToolKind::ellipse:
        return QStringLiteral("Ellipse");
    case ShotToolKind::line:
        return QStringLiteral("Line");
    case ShotToolKind::arrow:
        return QStringLiteral("Arrow");
    case ShotToolKind::text:
        return QStringLiteral("Text");
    case ShotToolKind::blur:
        return QStringLiteral("Blur / Censor");
    case ShotToolKind::number:
        return QStringLiteral("Number");
    case ShotToolKind::draw:
        return QStringLiteral("Draw");
    case ShotToolKind::emoji:
        return QStringLiteral("Emoji");
    case ShotToolKind::colorPicker:
        return QStringLiteral("Pick color");
    }
    return {};
}

QChar toolShortcut(ShotToolKind tool)
{
    // One letter each, chosen from the title where it is free.
    static constexpr char letters[] = {'C', 'I', 'V', 'R', 'F', 'O', 'L',
                                       'A', 'T', 'B', 'N', 'D', 'E', 'P'};
    static_assert(sizeof(letters) == enumCount<ShotToolKind>());
    return QLatin1Char(letters[size_t(tool)]);
}

bool createsAnnotations(ShotToolKind tool)
{
    switch (tool) {
    case ShotToolKind::crop:
    case ShotToolKind::addImage:
    case ShotToolKind::select:
    case ShotToolKind::colorPicker:
        return false;
    default:
        return true;
    }
}

} // namespace nubo
