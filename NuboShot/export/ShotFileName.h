#pragma once

#include "export/ShotFormat.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>

namespace nubo {

// "Nubo Shot 2026-11-14 at 21.05.09.png": the default name of a saved shot.
class ShotFileName {
public:
    static QString make(const QDateTime& date, ShotFormat format, const QTimeZone& timeZone);
    // The same name with " (n)" before the extension, for n ≥ 2.
    static QString numbered(const QString& name, int n);
};

} // namespace nubo
