#include "settings/ShotAutostart.h"

#include "core/Error.h"
#include "core/FileWriting.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>

namespace nubo {

QString ShotAutostart::entryPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
           QStringLiteral("/autostart/com.corvane.lab.nuboshot.desktop");
}

bool ShotAutostart::isEnabled()
{
    return QFileInfo(entryPath()).isFile();
}

QByteArray ShotAutostart::entry(const QString& program)
{
    // The Exec key quotes the path, escaping what desktop entries reserve
    // inside quotes (backslash, double quote, backtick, dollar).
    QString quoted = program;
    quoted.replace(u'\\', QStringLiteral("\\\\\\\\"))
        .replace(u'"', QStringLiteral("\\\\\""))
        .replace(u'`', QStringLiteral("\\\\`"))
        .replace(u'$', QStringLiteral("\\\\$"));
    return QStringLiteral("[Desktop Entry]\n"
                          "Type=Application\n"
                          "Name=Nubo Shot\n"
                          "Comment=Screenshots and screen recordings from the tray\n"
                          "Exec=\"%1\"\n"
                          "Icon=nuboshot\n"
                          "Terminal=false\n"
                          "X-GNOME-Autostart-enabled=true\n")
        .arg(quoted)
        .toUtf8();
}

void ShotAutostart::setEnabled(bool enabled, const QString& program)
{
    const QString path = entryPath();
    if (!enabled) {
        if (QFileInfo::exists(path) && !QFile::remove(path)) {
            throw FileError(QStringLiteral("remove"), path, errno ? errno : EACCES);
        }
        return;
    }
    const QString folder = QFileInfo(path).absolutePath();
    if (!QDir().mkpath(folder)) {
        throw FileError(QStringLiteral("create"), folder, errno ? errno : EACCES);
    }
    FileWriting::writeAtomically(entry(program), path);
}

} // namespace nubo
