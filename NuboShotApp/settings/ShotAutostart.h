#pragma once

#include <QString>

namespace nubo {

// Starting with the desktop session: an XDG autostart entry under
// $XDG_CONFIG_HOME/autostart, written and removed.
class ShotAutostart {
public:
    static QString entryPath();
    static bool isEnabled();
    // Writes the entry (running `program`) or removes it; throws FileError.
    static void setEnabled(bool enabled, const QString& program);
    static QByteArray entry(const QString& program);
};

} // namespace nubo
