#include "output/ShotApplications.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace nubo {
namespace {

// Exec lines as desktop entries write them, and the commands they make for
// one file (freedesktop.org Desktop Entry, "The Exec key").
TEST(ShotApplications, ExecLinesBecomeTheirCommands)
{
    struct Case {
        const char* exec;
        std::optional<QStringList> command; // for /tmp/a b.png; nullopt: refused
    };
    const Case cases[] = {
        {"viewer %f", QStringList{"viewer", "/tmp/a b.png"}},
        {"viewer %U", QStringList{"viewer", "file:///tmp/a%20b.png"}},
        {"viewer --new %F --x", QStringList{"viewer", "--new", "/tmp/a b.png", "--x"}},
        {"viewer", QStringList{"viewer", "/tmp/a b.png"}}, // no field code: the file last
        {"viewer %i %c %%", QStringList{"viewer", "--icon", "eye", "Test Viewer", "%", "/tmp/a b.png"}},
        {"viewer %d %n %f", QStringList{"viewer", "/tmp/a b.png"}}, // deprecated codes go
        {"\"/opt/my viewer/bin\" \"say \\\"hi\\\" \\$HOME\" %f",
         QStringList{"/opt/my viewer/bin", "say \"hi\" $HOME", "/tmp/a b.png"}},
        {"viewer --arg=%f", QStringList{"viewer", "--arg=/tmp/a b.png"}},
        {"viewer \"unclosed %f", std::nullopt},
        {"viewer $HOME %f", std::nullopt}, // reserved characters must be quoted
        {"sh -c 'rm -rf ~' %f", std::nullopt},
        {"", std::nullopt},
        {"   ", std::nullopt},
    };
    for (const Case& c : cases) {
        const DesktopApplication application{"test.desktop", "/x/test.desktop", "Test Viewer",
                                             "eye", QString::fromUtf8(c.exec), false};
        EXPECT_EQ(ShotApplications::command(application, QStringLiteral("/tmp/a b.png")), c.command)
            << c.exec;
    }
}

// Which entries are offered for PNG, in which order, from the user's and the
// system's folders.
TEST(ShotApplications, OffersTheEntriesThatOpenTheTypeDefaultFirst)
{
    QTemporaryDir dir;
    const QDir root(dir.path());
    for (const char* folder : {"user/applications/kde", "system/applications", "config"}) {
        root.mkpath(QString::fromUtf8(folder));
    }
    const auto write = [&](const QString& path, const QByteArray& text) {
        QFile file(root.filePath(path));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    };
    const auto entry = [](const char* name, const char* more) {
        return QByteArray("[Desktop Entry]\nType=Application\nName=") + name +
               "\nExec=true %f\nMimeType=image/png;image/jpeg;\n" + more;
    };
    write("system/applications/zoom.desktop", entry("Zoom Viewer", ""));
    write("system/applications/apple.desktop", entry("Apple Viewer", ""));
    write("system/applications/hidden.desktop", entry("Hidden", "Hidden=true\n"));
    write("system/applications/nodisplay.desktop", entry("No Display", "NoDisplay=true\n"));
    write("system/applications/gone.desktop", entry("Gone", "TryExec=nuboshot-no-such-program\n"));
    write("system/applications/broken.desktop",
          "[Desktop Entry]\nType=Application\nName=Broken\nExec=\"true\nMimeType=image/png;\n");
    write("system/applications/text.desktop",
          "[Desktop Entry]\nType=Application\nName=Text\nExec=true\nMimeType=text/plain;\n");
    write("system/applications/com.corvane.lab.nuboshot.desktop", entry("Nubo Shot", ""));
    write("system/applications/shadowed.desktop", entry("System Copy", ""));
    write("user/applications/shadowed.desktop", entry("User Copy", ""));
    write("user/applications/kde/deep.desktop", entry("Deep", "[Other Group]\nName=Wrong\n"));
    write("config/mimeapps.list", "[Default Applications]\nimage/png=missing.desktop;zoom.desktop;\n");

    const QByteArray data = qgetenv("XDG_DATA_HOME"), dirs = qgetenv("XDG_DATA_DIRS"),
                     config = qgetenv("XDG_CONFIG_HOME");
    qputenv("XDG_DATA_HOME", QFile::encodeName(root.filePath("user")));
    qputenv("XDG_DATA_DIRS", QFile::encodeName(root.filePath("system")));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(root.filePath("config")));
    const QList<DesktopApplication> found = ShotApplications::forType(QStringLiteral("image/png"));
    qputenv("XDG_DATA_HOME", data);
    qputenv("XDG_DATA_DIRS", dirs);
    qputenv("XDG_CONFIG_HOME", config);

    QStringList offered;
    for (const DesktopApplication& application : found) {
        offered << application.id + u'=' + application.name + (application.isDefault ? "*" : "");
    }
    EXPECT_EQ(offered, (QStringList{"zoom.desktop=Zoom Viewer*", "apple.desktop=Apple Viewer",
                                    "kde-deep.desktop=Deep", "shadowed.desktop=User Copy"}));
}

} // namespace
} // namespace nubo
