#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace nubo {

// An application the desktop offers for a kind of file, from its desktop
// entry (freedesktop.org Desktop Entry and MIME Applications specifications).
struct DesktopApplication {
    QString id;   // "org.gnome.eog.desktop"
    QString path; // the desktop entry's file
    QString name;
    QString icon;
    QString exec; // the Exec line, unquoted at launch
    bool isDefault = false;
    bool operator==(const DesktopApplication&) const = default;
};

// The applications that open a kind of file, without asking a portal: read
// from the desktop entries of the XDG data folders and the user's and
// system's mimeapps.list. Nubo Shot itself is left out.
class ShotApplications {
public:
    static constexpr qint64 maximumEntryBytes = 256 * 1024;

    // Shown ones that list `mimeType` and whose program exists: the default
    // one first, then by name.
    static QList<DesktopApplication> forType(const QString& mimeType);
    // The Exec line split into arguments by its quoting rules; nullopt when
    // it is malformed (an open quote, a reserved character unquoted).
    static std::optional<QStringList> splitExec(const QString& exec);
    // The command that opens `file`: field codes expanded (%f %F %u %U the
    // file, %i the icon, %c the name, %k the entry), the file appended when
    // the line names no file; nullopt when malformed.
    static std::optional<QStringList> command(const DesktopApplication& application,
                                              const QString& file);
    // Starts the application on `file`, detached; the reason when it cannot.
    static QString launch(const DesktopApplication& application, const QString& file);
};

} // namespace nubo
