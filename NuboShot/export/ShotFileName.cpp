#include "export/ShotFileName.h"

#include <QLocale>

namespace nubo {

QString ShotFileName::make(const QDateTime& date, ShotFormat format, const QTimeZone& timeZone)
{
    // The C locale formats with the Gregorian calendar and ASCII digits,
    // whatever the user's own locale is.
    const QString stamp = QLocale::c().toString(date.toTimeZone(timeZone),
                                                QStringLiteral("yyyy-MM-dd 'at' HH.mm.ss"));
    return QStringLiteral("Nubo Shot ") + stamp + QLatin1Char('.') + fileExtension(format);
}

QString ShotFileName::numbered(const QString& name, int n)
{
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const QString base = dot < 0 ? name : name.left(dot);
    const QString extension = dot < 0 ? QString() : name.mid(dot);
    return QStringLiteral("%1 (%2)%3").arg(base).arg(n).arg(extension);
}

} // namespace nubo
