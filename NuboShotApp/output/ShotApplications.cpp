#include "output/ShotApplications.h"

#include "core/Logging.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

namespace nubo {

namespace {

constexpr char ownEntry[] = "com.corvane.lab.nuboshot.desktop";

// The XDG data and config folders, the user's first (Qt reads
// XDG_DATA_HOME, XDG_DATA_DIRS, XDG_CONFIG_HOME and XDG_CONFIG_DIRS).
QStringList dataDirs()
{
    return QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation);
}

QStringList configDirs()
{
    return QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation);
}

// The keys of one group of a desktop-entry style file, values unescaped
// (\s \n \t \r \\); later duplicates are ignored.
QHash<QString, QString> readGroup(const QString& path, QStringView wanted)
{
    QHash<QString, QString> keys;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > ShotApplications::maximumEntryBytes) {
        return keys;
    }
    bool inGroup = false;
    for (const QByteArray& raw : file.readAll().split('\n')) {
        const QString line = QString::fromUtf8(raw).trimmed();
        if (line.startsWith(u'[')) {
            inGroup = line == QStringLiteral("[%1]").arg(wanted);
            continue;
        }
        const qsizetype equals = line.indexOf(u'=');
        if (!inGroup || line.startsWith(u'#') || equals <= 0) {
            continue;
        }
        const QString key = line.first(equals).trimmed();
        if (keys.contains(key)) {
            continue;
        }
        QString value;
        const QString text = line.sliced(equals + 1).trimmed();
        for (qsizetype i = 0; i < text.size(); ++i) {
            if (text[i] == u'\\' && i + 1 < text.size()) {
                const QChar next = text[++i];
                value += next == u's' ? QChar(u' ') : next == u'n' ? QChar(u'\n')
                       : next == u't' ? QChar(u'\t') : next == u'r' ? QChar(u'\r') : next;
                if (next != u's' && next != u'n' && next != u't' && next != u'r' && next != u'\\') {
                    value.insert(value.size() - 1, u'\\'); // not a string escape: kept for Exec
                }
            } else {
                value += text[i];
            }
        }
        keys.insert(key, value);
    }
    return keys;
}

bool programExists(const QString& program)
{
    if (program.contains(u'/')) {
        const QFileInfo info(program);
        return info.isFile() && info.isExecutable();
    }
    return !QStandardPaths::findExecutable(program).isEmpty();
}

} // namespace

std::optional<QStringList> ShotApplications::splitExec(const QString& exec)
{
    QStringList arguments;
    QString current;
    bool quoted = false, started = false;
    for (qsizetype i = 0; i < exec.size(); ++i) {
        const QChar c = exec[i];
        if (quoted) {
            if (c == u'\\' && i + 1 < exec.size() &&
                QStringView(u"\"`$\\").contains(exec[i + 1])) {
                current += exec[++i];
            } else if (c == u'"') {
                quoted = false;
            } else {
                current += c;
            }
        } else if (c == u' ' || c == u'\t') {
            if (started) {
                arguments << current;
                current.clear();
                started = false;
            }
        } else if (c == u'"') {
            quoted = started = true;
        } else if (QStringView(u"`$\\'<>~|&;*?#()").contains(c)) {
            return std::nullopt; // reserved: must be quoted
        } else {
            current += c;
            started = true;
        }
    }
    if (quoted) {
        return std::nullopt;
    }
    if (started) {
        arguments << current;
    }
    if (arguments.isEmpty()) {
        return std::nullopt;
    }
    return arguments;
}

std::optional<QStringList> ShotApplications::command(const DesktopApplication& application,
                                                     const QString& file)
{
    const auto split = splitExec(application.exec);
    if (!split) {
        return std::nullopt;
    }
    QStringList command;
    bool namedFile = false;
    for (const QString& argument : *split) {
        // A lone %F, %U or %i becomes its own arguments (or none).
        if (argument == QLatin1String("%i")) {
            if (!application.icon.isEmpty()) {
                command << QStringLiteral("--icon") << application.icon;
            }
            continue;
        }
        QString expanded;
        for (qsizetype i = 0; i < argument.size(); ++i) {
            if (argument[i] != u'%' || i + 1 == argument.size()) {
                expanded += argument[i];
                continue;
            }
            const QChar code = argument[++i];
            switch (code.unicode()) {
            case u'f':
            case u'F':
                expanded += file;
                namedFile = true;
                break;
            case u'u':
            case u'U':
                expanded += QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded);
                namedFile = true;
                break;
            case u'c':
                expanded += application.name;
                break;
            case u'k':
                expanded += application.path;
                break;
            case u'%':
                expanded += u'%';
                break;
            default:
                break; // deprecated and unknown codes are dropped
            }
        }
        if (!expanded.isEmpty() || argument.isEmpty()) {
            command << expanded;
        }
    }
    if (command.isEmpty()) {
        return std::nullopt;
    }
    if (!namedFile) {
        command << file;
    }
    return command;
}

QList<DesktopApplication> ShotApplications::forType(const QString& mimeType)
{
    // Every entry by its id, the first folder's winning (the user's own over
    // the system's).
    QHash<QString, DesktopApplication> entries;
    QSet<QString> seen;
    for (const QString& data : dataDirs()) {
        const QString folder = data + QStringLiteral("/applications");
        QDirIterator files(folder, {QStringLiteral("*.desktop")}, QDir::Files,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            const QString id = QDir(folder).relativeFilePath(path).replace(u'/', u'-');
            if (seen.contains(id)) {
                continue;
            }
            seen.insert(id); // hidden or unfit, it still hides the same id further down
            const auto keys = readGroup(path, u"Desktop Entry");
            const auto shown = [&](const char* key) {
                return keys.value(QLatin1String(key)) != QLatin1String("true");
            };
            const QStringList types = keys.value(QStringLiteral("MimeType")).split(u';', Qt::SkipEmptyParts);
            const QString tryExec = keys.value(QStringLiteral("TryExec"));
            const auto exec = splitExec(keys.value(QStringLiteral("Exec")));
            if (id == QLatin1String(ownEntry) || keys.value(QStringLiteral("Type")) != QLatin1String("Application") ||
                !shown("NoDisplay") || !shown("Hidden") || !types.contains(mimeType) || !exec ||
                (!tryExec.isEmpty() && !programExists(tryExec)) || !programExists(exec->first())) {
                continue;
            }
            entries.insert(id, {id, path, keys.value(QStringLiteral("Name"), id),
                                keys.value(QStringLiteral("Icon")), keys.value(QStringLiteral("Exec")),
                                false});
        }
    }
    // The default: the first listed entry that is there, the user's lists first.
    QStringList lists;
    for (const QString& config : configDirs()) {
        lists << config + QStringLiteral("/mimeapps.list");
    }
    for (const QString& data : dataDirs()) {
        lists << data + QStringLiteral("/applications/mimeapps.list");
    }
    bool found = false;
    for (const QString& list : lists) {
        for (const QString& id : readGroup(list, u"Default Applications")
                                     .value(mimeType)
                                     .split(u';', Qt::SkipEmptyParts)) {
            if (entries.contains(id)) {
                entries[id].isDefault = true;
                found = true;
                break;
            }
        }
        if (found) {
            break;
        }
    }
    QList<DesktopApplication> applications = entries.values();
    std::sort(applications.begin(), applications.end(),
              [](const DesktopApplication& a, const DesktopApplication& b) {
                  if (a.isDefault != b.isDefault) {
                      return a.isDefault;
                  }
                  const int byName = QString::localeAwareCompare(a.name, b.name);
                  return byName != 0 ? byName < 0 : a.id < b.id;
              });
    return applications;
}

QString ShotApplications::launch(const DesktopApplication& application, const QString& file)
{
    const auto line = command(application, file);
    if (!line) {
        return QCoreApplication::translate("nubo::ShotApplications", "%1 cannot be started: its desktop entry %2 has an Exec line that "
                              "cannot be read.")
            .arg(application.name, application.path);
    }
    QProcess process;
    process.setProgram(line->first());
    process.setArguments(line->mid(1));
    process.setWorkingDirectory(QDir::homePath());
    process.setStandardInputFile(QProcess::nullDevice());
    qint64 pid = 0;
    if (!process.startDetached(&pid)) {
        return QCoreApplication::translate("nubo::ShotApplications", "%1 could not be started: %2.")
            .arg(application.name, process.errorString());
    }
    qCInfo(lcApp, "Opened the shot with %s (pid %lld)", qPrintable(application.id), pid);
    return {};
}

} // namespace nubo
