// The recent images: the files on disk (damage never loses the rest), the
// store's list and its updates, and the clipboard watcher against real
// clipboard owners in the private session.

#include "capture/CapturePlatformLoader.h"
#include "core/Settings.h"
#include "document/ShotDocumentArchive.h"
#include "output/ShotClipboard.h"
#include "recents/ShotRecentClipboardWatcher.h"
#include "recents/ShotRecentDisk.h"
#include "recents/ShotRecentStore.h"
#include "render/ShotRenderer.h"
#include "shell/ShotStatusMenu.h"
#include "support/ArchiveFixtures.h"
#include "support/LiveProcess.h"
#include "support/RenderFixtures.h"

#include <QBuffer>
#include <QClipboard>
#include <QCryptographicHash>
#include <QThread>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMimeData>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::settle;

QByteArray png(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

ShotDocument capture(int seed)
{
    return ShotDocument::fromImage(test::patternImage(160, 90, seed), 1);
}

int entryFolders(const QString& root, const char* kind)
{
    return int(QDir(root + QLatin1Char('/') + QLatin1String(kind))
                   .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
                   .size());
}

class RecentDisk : public ::testing::Test {
protected:
    QString root() const { return m_dir.filePath(QStringLiteral("Recent")); }
    // Three entries: two captures, one copied image.
    QList<ShotRecentRecord> fill()
    {
        ShotRecentDisk disk(root(), m_renderer);
        disk.load();
        const QDateTime t0 = QDateTime::fromString(QStringLiteral("2026-11-20T10:00:00Z"),
                                                   Qt::ISODate);
        disk.addCapture(QUuid::createUuid(), capture(1), QStringLiteral("area"), t0);
        disk.addCapture(QUuid::createUuid(), capture(2), QStringLiteral("window"), t0.addSecs(60));
        disk.addCopied({ShotRecentImagePayload::Data{png(test::patternImage(50, 40, 3))}},
                       QStringLiteral("xclip"), t0.addSecs(120));
        return disk.records();
    }

    QTemporaryDir m_dir;
    ShotRenderer m_renderer;
};

TEST_F(RecentDisk, EntriesAreWholeFoldersAndTheIndexListsThemNewestFirst)
{
    const QList<ShotRecentRecord> records = fill();
    ASSERT_EQ(records.size(), 3);
    EXPECT_FALSE(records[0].isCapture());
    EXPECT_EQ(records[0].sourceApp, QStringLiteral("xclip"));
    EXPECT_EQ(records[1].mode, QStringLiteral("window"));
    EXPECT_EQ(records[2].mode, QStringLiteral("area"));
    // The digest of the copied bytes, in lower-case hex.
    const QByteArray copied = png(test::patternImage(50, 40, 3));
    EXPECT_EQ(records[0].contentHash,
              QString::fromLatin1(
                  QCryptographicHash::hash(copied, QCryptographicHash::Sha256).toHex()));
    for (const ShotRecentRecord& record : records) {
        const QString folder = root() + (record.isCapture() ? "/shots/" : "/copied/") +
                               record.id.toString(QUuid::WithoutBraces);
        const QImage thumbnail(folder + QStringLiteral("/thumbnail.png"));
        EXPECT_EQ(thumbnail.size(), QSize(100, 100));
        EXPECT_TRUE(QFileInfo::exists(folder + QStringLiteral("/record.json")));
        // Nothing half-written is left beside the files.
        for (const QString& name : QDir(folder).entryList(QDir::Files | QDir::Hidden)) {
            EXPECT_TRUE(name == QLatin1String("thumbnail.png") ||
                        name == QLatin1String("record.json") ||
                        name.startsWith(QLatin1String("image.")))
                << name.toStdString();
        }
    }
    const QJsonObject index =
        QJsonDocument::fromJson(test::readFile(root() + QStringLiteral("/index.json"))).object();
    EXPECT_EQ(index.value(QLatin1String("version")).toInt(), 1);
    EXPECT_EQ(index.value(QLatin1String("entries")).toArray().size(), 3);
}

TEST_F(RecentDisk, DamageNeverLosesTheRest)
{
    struct Case {
        const char* name;
        std::function<void(const QString& root, const QList<ShotRecentRecord>&)> damage;
        int survivors;
    };
    const auto folder = [](const QString& root, const ShotRecentRecord& r) {
        return root + (r.isCapture() ? "/shots/" : "/copied/") + r.id.toString(QUuid::WithoutBraces);
    };
    const Case cases[] = {
        {"index deleted", [](const QString& root, auto&) { QFile::remove(root + "/index.json"); }, 3},
        {"index garbage",
         [](const QString& root, auto&) { test::writeFile(root + "/index.json", "{\"entr"); },
         3},
        {"index of the wrong shape",
         [](const QString& root, auto&) {
             test::writeFile(root + "/index.json", "{\"version\":1,\"entries\":[{\"id\":7}]}");
         },
         3},
        {"a thumbnail gone",
         [&](const QString& root, const QList<ShotRecentRecord>& r) {
             QFile::remove(folder(root, r[1]) + "/thumbnail.png");
         },
         2},
        {"an archive's manifest gone",
         [&](const QString& root, const QList<ShotRecentRecord>& r) {
             QFile::remove(folder(root, r[2]) + "/shot/manifest.json");
         },
         2},
        {"index gone and a record garbage",
         [&](const QString& root, const QList<ShotRecentRecord>& r) {
             QFile::remove(root + "/index.json");
             test::writeFile(folder(root, r[0]) + "/record.json", "not json");
         },
         2},
        {"the index a folder",
         [](const QString& root, auto&) {
             QFile::remove(root + "/index.json");
             QDir().mkpath(root + "/index.json");
         },
         3},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QDir(root()).removeRecursively();
        const QList<ShotRecentRecord> before = fill();
        c.damage(root(), before);
        ShotRecentDisk disk(root(), m_renderer);
        const QList<ShotRecentRecord> after = disk.load();
        EXPECT_EQ(after.size(), c.survivors);
        for (const ShotRecentRecord& record : after) {
            EXPECT_TRUE(before.contains(record));
            EXPECT_FALSE(disk.thumbnail(record).isNull());
            EXPECT_NO_THROW(disk.open(record));
        }
        // The index says so again, and the dropped entries are gone from disk.
        if (QFileInfo(root() + "/index.json").isFile()) {
            EXPECT_EQ(ShotRecentDisk(root(), m_renderer).load(), after);
        }
        EXPECT_EQ(entryFolders(root(), "shots") + entryFolders(root(), "copied"), c.survivors);
    }
}

TEST_F(RecentDisk, AnEntryThatLeadsOutOfTheRootIsRefusedAndWhatItNamesIsLeftAlone)
{
    const QList<ShotRecentRecord> records = fill();
    // Somebody's folder elsewhere, and entry links to it and to a sibling.
    QTemporaryDir elsewhere;
    const QString shotFolder = root() + "/shots/" + records[1].id.toString(QUuid::WithoutBraces);
    ASSERT_TRUE(QDir().rename(shotFolder, elsewhere.filePath("stolen")));
    ASSERT_TRUE(QFile::link(elsewhere.filePath("stolen"), shotFolder));
    ShotRecentDisk disk(root(), m_renderer);
    const QList<ShotRecentRecord> loaded = disk.load();
    EXPECT_EQ(loaded.size(), 2);
    EXPECT_FALSE(loaded.contains(records[1]));
    EXPECT_FALSE(QFileInfo(shotFolder).isSymLink()) << "the link stayed";
    // A link put back later is refused wherever the entry is used.
    ASSERT_TRUE(QFile::link(elsewhere.filePath("stolen"), shotFolder));
    for (const auto& use : {std::function<void()>([&] { disk.entryFolder(records[1]); }),
                            std::function<void()>([&] { disk.open(records[1]); })}) {
        try {
            use();
            ADD_FAILURE() << "a way out of the root was taken";
        } catch (const ShotRecentError& error) {
            EXPECT_EQ(error.code(), ShotRecentError::Code::corruptEntry);
        }
    }
    EXPECT_TRUE(QFileInfo::exists(elsewhere.filePath("stolen/thumbnail.png")))
        << "files outside the root were removed";
}

// Clipboard data right at the limits, as another application could offer it.
TEST(ShotRecentClipboardWatcher, TakesImagesUpToTheLimitsAndNothingElse)
{
    const QByteArray small = png(test::patternImage(20, 10, 1));
    QByteArray atLimit = small;
    atLimit.append(QByteArray(ShotRecentClipboardWatcher::maximumBytes - small.size(), '\0'));
    ASSERT_EQ(atLimit.size(), 200'000'000);
    struct Case {
        const char* name;
        QList<std::pair<QString, QByteArray>> content;
        bool taken;
    };
    const Case cases[] = {
        {"PNG data", {{"image/png", small}}, true},
        {"exactly 200,000,000 bytes", {{"image/png", atLimit}}, true},
        {"one byte more", {{"image/png", atLimit + QByteArray(1, '\0')}}, false},
        {"more than 100,000,000 pixels", {{"image/png", test::pngHeaderClaiming(10001, 10000)}}, false},
        {"not an image", {{"image/png", "hello"}}, false},
        {"text", {{"text/plain", "hello"}}, false},
        {"a password manager's secret",
         {{"image/png", small}, {"x-kde-passwordManagerHint", "secret"}}, false},
        {"concealed", {{"image/png", small}, {"org.nspasteboard.ConcealedType", ""}}, false},
        {"transient", {{"image/png", small}, {"org.nspasteboard.TransientType", ""}}, false},
        {"generated", {{"image/png", small}, {"org.nspasteboard.AutoGeneratedType", ""}}, false},
        {"a vault item", {{"image/png", small}, {"com.agilebits.onepassword", ""}}, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QMimeData content;
        for (const auto& [type, data] : c.content) {
            content.setData(type, data);
        }
        const auto payload = ShotRecentClipboardWatcher::payloadOf(content);
        EXPECT_EQ(payload.has_value(), c.taken);
    }
    // Image files, as a file manager copies them; other files are not taken.
    QTemporaryDir dir;
    const QString picture = dir.filePath("picture.png");
    test::writeFile(picture, small);
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(dir.filePath("notes.txt")), QUrl::fromLocalFile(picture)});
    const auto payload = ShotRecentClipboardWatcher::payloadOf(files);
    ASSERT_TRUE(payload);
    EXPECT_EQ(std::get<ShotRecentImagePayload::File>(payload->payload).path, picture);
    QMimeData text;
    text.setUrls({QUrl::fromLocalFile(dir.filePath("notes.txt"))});
    EXPECT_FALSE(ShotRecentClipboardWatcher::payloadOf(text));
}

class Recents : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_FALSE(qEnvironmentVariableIsEmpty("DISPLAY")) << "runs in the private X session";
        m_preferences = std::make_unique<ShotPreferences>(m_dir.filePath("prefs.ini"));
        m_platform = CapturePlatformLoader::load();
        m_store = std::make_unique<ShotRecentStore>(*m_preferences, ShotClipboard::shared(),
                                                    m_renderer, root());
        m_store->sourceApp = [this] { return m_platform->clipboardOwner(); };
        m_store->applyPreference();
        wait();
    }
    void TearDown() override
    {
        for (QProcess* owner : {&m_owner, &m_secondOwner}) {
            owner->kill();
            owner->waitForFinished();
        }
    }
    QString root() const { return m_dir.filePath("Recent"); }
    void wait()
    {
        m_store->waitForDisk();
        settle(20);
        m_store->waitForDisk();
    }
    // Another program owns the clipboard with this content.
    bool ownClipboard(QProcess& owner, const QString& program, const QStringList& arguments)
    {
        owner.kill();
        owner.waitForFinished();
        owner.start(program, arguments);
        if (program == QLatin1String("xclip")) {
            owner.waitForStarted();
        } else if (!owner.waitForReadyRead(5000)) {
            return false;
        }
        // The change has reached us when the count moves.
        const long before = ShotClipboard::shared().changeCount();
        const QDeadlineTimer deadline(5000);
        while (ShotClipboard::shared().changeCount() == before && !deadline.hasExpired()) {
            settle(20);
        }
        return ShotClipboard::shared().changeCount() != before;
    }

    QTemporaryDir m_dir;
    std::unique_ptr<ShotPreferences> m_preferences;
    std::shared_ptr<CapturePlatform> m_platform;
    ShotRenderer m_renderer;
    std::unique_ptr<ShotRecentStore> m_store;
    QProcess m_owner, m_secondOwner;
};

TEST_F(Recents, SevenCapturesLeaveTheFiveNewestAndEditsFollowTheirEntry)
{
    QList<QUuid> ids;
    for (int i = 0; i < 7; ++i) {
        ids.append(m_store->recordCapture(capture(i), QStringLiteral("area")));
        QThread::msleep(5); // distinct dates
    }
    wait();
    const QList<ShotRecentEntry> entries = m_store->entries();
    ASSERT_EQ(entries.size(), 5);
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(entries[i].record.id, ids[6 - i]) << i;
        EXPECT_EQ(entries[i].thumbnail.size(), QSize(100, 100));
    }

    // The two beyond the five stay on disk for a while, then go.
    EXPECT_EQ(entryFolders(root(), "shots"), 7);
    m_store->prune();
    wait();
    EXPECT_EQ(entryFolders(root(), "shots"), 7) << "gone before their time";
    m_store->graceSeconds = 0;
    m_store->prune();
    wait();
    EXPECT_EQ(entryFolders(root(), "shots"), 5);
    EXPECT_EQ(m_store->entries().size(), 5);

    // An edited output of the newest updates its archive and its thumbnail.
    ShotDocument edited = test::documentWithEveryKind();
    const QImage before = entries[0].thumbnail;
    m_store->recordOutput(ids[6], edited);
    const quint64 asked = m_store->queueVersion();
    wait();
    EXPECT_GE(m_store->completedVersion(), asked);
    EXPECT_NE(test::compareImages(m_store->entries()[0].thumbnail, before, 0).pixelsOver, 0);
    std::optional<ShotDocument> reopened;
    m_store->open(ids[6], [&](std::optional<ShotDocument> d, const QString&) { reopened = d; });
    wait();
    ASSERT_TRUE(reopened);
    test::expectSameDocument(edited, *reopened); // annotations editable again
    // The same document once more writes nothing.
    const quint64 versions = m_store->queueVersion();
    m_store->recordOutput(ids[6], edited);
    EXPECT_EQ(m_store->queueVersion(), versions);

    // Clear Recent empties the list and the disk.
    m_store->clear();
    wait();
    EXPECT_TRUE(m_store->entries().isEmpty());
    EXPECT_EQ(entryFolders(root(), "shots"), 0);
    EXPECT_EQ(
        QJsonDocument::fromJson(test::readFile(root() + "/index.json")).object()["entries"].toArray().size(),
        0);
}

TEST_F(Recents, AWriteThatFailsLosesOnlyItself)
{
    const QUuid first = m_store->recordCapture(capture(1), QStringLiteral("area"));
    wait();
    ASSERT_EQ(m_store->entries().size(), 1);
    // Copied images can no longer be stored (something else took their
    // folder's place): that one write fails, said in the log, and the store
    // goes on keeping captures with nothing lost.
    QDir(root() + "/copied").removeRecursively();
    test::writeFile(root() + "/copied", "in the way");
    QTemporaryDir dir;
    test::writeFile(dir.filePath("copied.png"), png(test::patternImage(40, 40, 5)));
    ASSERT_TRUE(ownClipboard(m_owner, NUBOSHOT_CLIP_OWNER,
                             {"--data", "image/png", dir.filePath("copied.png")}));
    m_store->watcher()->poll();
    wait();
    ASSERT_EQ(m_store->entries().size(), 1);
    const QUuid second = m_store->recordCapture(capture(2), QStringLiteral("window"));
    wait();
    ASSERT_EQ(m_store->entries().size(), 2);
    EXPECT_EQ(m_store->entries()[0].record.id, second);
    EXPECT_EQ(m_store->entries()[1].record.id, first);
    EXPECT_FALSE(m_store->entries()[1].thumbnail.isNull());
}

TEST_F(Recents, TheWatcherTakesOtherApplicationsImagesOnly)
{
    QTemporaryDir dir;
    const QString first = dir.filePath("first.png"), second = dir.filePath("second.png");
    test::writeFile(first, png(test::patternImage(64, 48, 11)));
    test::writeFile(second, png(test::patternImage(80, 30, 12)));
    ShotRecentClipboardWatcher& watcher = *m_store->watcher();
    ASSERT_TRUE(watcher.isRunning());

    // What is on the clipboard when watching starts is never taken.
    m_store->applyPreference();
    m_preferences->setValue(keys::recentEnabled, false);
    m_store->applyPreference();
    ASSERT_TRUE(ownClipboard(m_owner, "xclip", {"-selection", "clipboard", "-t", "image/png", "-i", first}));
    m_preferences->setValue(keys::recentEnabled, true);
    m_store->applyPreference();
    watcher.poll();
    wait();
    EXPECT_TRUE(m_store->entries().isEmpty()) << "the image there at the start was taken";

    // Two polls without a change look at nothing.
    const qint64 looked = watcher.pollsThatLooked();
    watcher.poll();
    watcher.poll();
    EXPECT_EQ(watcher.pollsThatLooked(), looked);

    // Another program copies an image: a copied entry naming that program.
    // (In the foreground: a forked xclip serves the clipboard from a process
    // the window system never saw, so it has no name to tell.)
    ASSERT_TRUE(ownClipboard(m_secondOwner, "xclip",
                             {"-quiet", "-selection", "clipboard", "-t", "image/png", "-i", second}));
    // Taken unasked: the change itself makes the watcher look.
    const QDeadlineTimer taken(5000);
    while (m_store->entries().isEmpty() && !taken.hasExpired()) {
        wait();
    }
    ASSERT_EQ(m_store->entries().size(), 1);
    const ShotRecentRecord copied = m_store->entries()[0].record;
    EXPECT_FALSE(copied.isCapture());
    EXPECT_EQ(copied.sourceApp, QStringLiteral("xclip"));
    EXPECT_EQ(QSize(copied.pixelWidth, copied.pixelHeight), QSize(80, 30));

    // A password manager's copy, with an image, is passed over.
    ASSERT_TRUE(ownClipboard(m_owner, NUBOSHOT_CLIP_OWNER,
                             {"--data", "image/png", first, "--text", "x-kde-passwordManagerHint", "secret"}));
    watcher.poll();
    wait();
    EXPECT_EQ(m_store->entries().size(), 1) << "a concealed copy was kept";
    // The same without the mark is taken (the helper itself works).
    ASSERT_TRUE(ownClipboard(m_owner, NUBOSHOT_CLIP_OWNER, {"--data", "image/png", first}));
    watcher.poll();
    wait();
    EXPECT_EQ(m_store->entries().size(), 2);

    // Our own copy is not taken a second time.
    const long written = ShotClipboard::shared().write(
        ShotClipboard::makeItem(png(test::patternImage(30, 30, 13))));
    settle(200);
    EXPECT_EQ(ShotClipboard::shared().changeCount(), written) << "our write counted twice";
    watcher.poll();
    wait();
    EXPECT_EQ(m_store->entries().size(), 2) << "our own copy was taken";

    // Off: the watcher stops.
    m_preferences->setValue(keys::recentEnabled, false);
    m_store->applyPreference();
    EXPECT_FALSE(watcher.isRunning());
}

TEST_F(Recents, TheMenuListsTheEntriesAndHidesWhenOff)
{
    ShotStatusMenu menu({[](CaptureMode) {}, [] {}, [] {}, [] {}, {},
                         [this] { return m_store->isEnabled(); },
                         [this] { return m_store->entries(); }, [](const QUuid&) {},
                         [this] { m_store->clear(); }});
    menu.refreshRecent();
    ASSERT_TRUE(menu.recentMenu().menuAction()->isVisible());
    ASSERT_EQ(menu.recentMenu().actions().size(), 1);
    EXPECT_EQ(menu.recentMenu().actions()[0]->text(), QStringLiteral("No recent images"));
    EXPECT_FALSE(menu.recentMenu().actions()[0]->isEnabled());

    m_store->recordCapture(capture(1), QStringLiteral("fullscreen"));
    wait();
    menu.refreshRecent();
    const QList<QAction*> items = menu.recentMenu().actions();
    ASSERT_EQ(items.size(), 3);
    EXPECT_TRUE(items[0]->text().startsWith(QStringLiteral("Fullscreen \u00b7 ")))
        << items[0]->text().toStdString();
    EXPECT_FALSE(items[0]->icon().isNull());
    EXPECT_EQ(items[2]->text(), QStringLiteral("Clear Recent"));
    items[2]->trigger();
    wait();
    menu.refreshRecent();
    EXPECT_EQ(menu.recentMenu().actions()[0]->text(), QStringLiteral("No recent images"));

    m_preferences->setValue(keys::recentEnabled, false);
    m_store->applyPreference();
    menu.refreshRecent();
    EXPECT_FALSE(menu.recentMenu().menuAction()->isVisible());
}

TEST(ShotStatusMenu, RecentLabelsSayWhatAndWhen)
{
    const QDateTime now = QDateTime::fromString("2026-11-23T15:00:00", Qt::ISODate);
    ShotRecentRecord capture;
    capture.mode = QStringLiteral("scrolling");
    capture.date = QDateTime::fromString("2026-11-23T14:05:00", Qt::ISODate);
    ShotRecentRecord copied;
    copied.sourceApp = QStringLiteral("firefox");
    copied.date = QDateTime::fromString("2026-11-22T09:30:00", Qt::ISODate);
    ShotRecentRecord unknown;
    unknown.date = capture.date;
    EXPECT_EQ(ShotStatusMenu::recentLabel(capture, now), QStringLiteral("Scrolling \u00b7 14:05"));
    EXPECT_EQ(ShotStatusMenu::recentLabel(copied, now),
              QStringLiteral("firefox \u00b7 22 Nov, 09:30"));
    EXPECT_EQ(ShotStatusMenu::recentLabel(unknown, now), QStringLiteral("Copied image \u00b7 14:05"));
}

} // namespace
} // namespace nubo
