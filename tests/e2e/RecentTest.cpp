// Recent images through the tray application: a capture becomes an entry
// (a shot archive), an edited copy of it updates that entry, and choosing it
// from the tray menu's Recent submenu opens it again.

#include "support/Process.h"
#include "support/RenderFixtures.h"
#include "support/TrayFixture.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPixmap>
#include <QRegularExpression>
#include <QScreen>
#include <QStandardPaths>
#include <QThread>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::run;
using test::waitUntil;
using test::windowShown;

QString recentRoot()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           QStringLiteral("/NuboShot/Recent");
}

QJsonArray indexEntries()
{
    QFile index(recentRoot() + QStringLiteral("/index.json"));
    if (!index.open(QIODevice::ReadOnly)) {
        return {};
    }
    return QJsonDocument::fromJson(index.readAll()).object().value(QLatin1String("entries")).toArray();
}

int annotationsInArchive(const QString& id)
{
    QFile manifest(recentRoot() + QStringLiteral("/shots/") + id +
                   QStringLiteral("/shot/manifest.json"));
    if (!manifest.open(QIODevice::ReadOnly)) {
        return -1;
    }
    const QJsonObject object = QJsonDocument::fromJson(manifest.readAll()).object();
    return int(object.value(QLatin1String("annotations")).toArray().size());
}

class RecentTray : public test::Tray {
protected:
    void SetUp() override
    {
        ASSERT_NO_FATAL_FAILURE(Tray::SetUp());
        QDir(recentRoot()).removeRecursively();
    }
};

TEST_F(RecentTray, ACaptureIsKeptEditedAndOpenedAgainFromTheMenu)
{
    ASSERT_NO_FATAL_FAILURE(startTray());
    const QString title = QStringLiteral("1920 \u00d7 1080");
    ASSERT_EQ(test::runNuboShot({"capture", "fullscreen"}).exitCode, 0);
    ASSERT_TRUE(waitUntil([&] { return windowShown(title); })) << "no editor";
    ASSERT_TRUE(waitUntil([] { return indexEntries().size() == 1; })) << "no recent entry";
    const QJsonObject entry = indexEntries()[0].toObject();
    EXPECT_EQ(entry.value(QLatin1String("mode")).toString(), QStringLiteral("fullscreen"));
    EXPECT_EQ(entry.value(QLatin1String("pixelWidth")).toInt(), 1920);
    const QString id = entry.value(QLatin1String("id")).toString();
    EXPECT_EQ(annotationsInArchive(id), 0);

    // An arrow drawn and the shot copied: the entry's archive has it.
    const QString editor = run(QStringLiteral("xdotool"), {"search", "--onlyvisible", "--name", title})
                               .split(u'\n', Qt::SkipEmptyParts)
                               .value(0);
    run(QStringLiteral("xdotool"), {"windowactivate", "--sync", editor});
    const QString geometry = run(QStringLiteral("xdotool"), {"getwindowgeometry", "--shell", editor});
    const auto value = [&](const char* key) {
        const auto match =
            QRegularExpression(QString::fromLatin1(key) + QStringLiteral("=(\\d+)")).match(geometry);
        return match.hasMatch() ? match.captured(1).toInt() : 0;
    };
    const int mx = value("WIDTH") / 2, my = value("HEIGHT") / 2;
    run(QStringLiteral("xdotool"),
        {"mousemove", "--window", editor, QString::number(mx - 60), QString::number(my - 30),
         "mousedown", "1", "mousemove", "--window", editor, QString::number(mx),
         QString::number(my), "mousemove", "--window", editor, QString::number(mx + 60),
         QString::number(my + 30), "mouseup", "1"});
    QThread::msleep(200);
    run(QStringLiteral("xdotool"), {"key", "ctrl+c"});
    EXPECT_TRUE(waitUntil([&] { return annotationsInArchive(id) == 1; }))
        << "the entry did not follow the edit; log:\n" << m_log.toStdString();
    EXPECT_TRUE(waitUntil([&] { return !windowShown(title); })) << "copy closes the editor";

    // Recent (above Recent Uploads…, Settings… and Quit) → the entry: the editor again.
    ASSERT_TRUE(openTrayMenu());
    run(QStringLiteral("xdotool"), {"key", "Up", "Up", "Up", "Up", "Right"});
    QThread::msleep(300);
    test::saveArtifact(QGuiApplication::primaryScreen()->grabWindow(0).toImage(),
                       QStringLiteral("tray-recent.png"));
    run(QStringLiteral("xdotool"), {"key", "Return"});
    EXPECT_TRUE(waitUntil([&] { return windowShown(title); })) << "the entry opened no editor";
}

} // namespace
} // namespace nubo
