// The settings window, page by page, with real input: each control writes its
// key at once, the running program follows (quick saves, shortcuts), and
// values of the wrong type show the default instead of breaking anything.

#include "capture/CapturePlatformLoader.h"
#include "capture/GlobalShortcuts.h"
#include "core/Settings.h"
#include "text/ShotTextReading.h"
#include "editor/ShotEditorWindow.h"
#include "editor/ShotToolStyles.h"
#include "export/ShotQuickSave.h"
#include "output/ShotOutput.h"
#include "output/ShotClipboard.h"
#include "recents/ShotRecentClipboardWatcher.h"
#include "recents/ShotRecentStore.h"
#include "settings/ShotAutostart.h"
#include "shell/ShotStatusMenu.h"
#include "settings/ShotSettingsBackup.h"
#include "settings/ShotSettingsWindow.h"
#include "shortcuts/ShotGlobalShortcuts.h"
#include "support/QtPrinters.h"
#include "support/ArchiveFixtures.h"
#include "support/EditorFixture.h"
#include "support/FilebinServer.h"
#include "support/LiveProcess.h"
#include "support/ModalAnswer.h"
#include "support/RenderFixtures.h"
#include "upload/UploadSecrets.h"
#include "upload/UploadStore.h"

#include <QCheckBox>
#include <QClipboard>
#include <QColorDialog>
#include <QComboBox>
#include <QListWidget>
#include <QScrollArea>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSpinBox>
#include <QToolButton>

#include <QDeadlineTimer>
#include <QScopeGuard>
#include <QStandardItemModel>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::settle;
using test::xdotool;

class Settings : public test::EditorFixture {
protected:
    void SetUp() override
    {
        test::EditorFixture::SetUp();
        if (HasFatalFailure()) {
            return;
        }
        // Each test its own configuration home: the autostart entry lands there.
        qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("config"))));
    }
    void TearDown() override
    {
        m_settings.reset();
        m_shortcuts.reset();
    }
    ShotSettingsWindow& open(const QString& page, ShotGlobalShortcuts* shortcuts = nullptr,
                             std::function<void(const QString&)> changed = {})
    {
        m_settings = std::make_unique<ShotSettingsWindow>(ShotSettingsContext{
            *m_preferences, *m_platform, shortcuts, QStringLiteral("/opt/Nubo Shot/bin/nuboshot"),
            std::move(changed), [this] { return m_capabilities; }});
        m_settings->showPage(page);
        activate(*m_settings);
        settle();
        return *m_settings;
    }
    template <class W> W* find(const QString& name)
    {
        W* widget = m_settings->findChild<W*>(name);
        EXPECT_NE(widget, nullptr) << name.toStdString();
        return widget;
    }
    void click(QWidget* widget, QPoint at = {})
    {
        // Scrolled into sight first, as a user would.
        for (QWidget* up = widget->parentWidget(); up; up = up->parentWidget()) {
            if (auto* scroll = qobject_cast<QScrollArea*>(up)) {
                scroll->ensureWidgetVisible(widget);
                settle();
            }
        }
        const QPoint p = widget->mapToGlobal(at.isNull() ? widget->rect().center() : at);
        xdotool({"mousemove", QString::number(p.x()), QString::number(p.y()), "click", "1"});
    }
    // A check box's box, not its middle (which may lie past a short label).
    void tick(QCheckBox* box) { click(box, QPoint(8, box->height() / 2)); }

    std::unique_ptr<CapturePlatform> m_platform = CapturePlatformLoader::load();
    std::unique_ptr<ShotSettingsWindow> m_settings;
    std::unique_ptr<ShotGlobalShortcuts> m_shortcuts;
    RecordingCapabilities m_capabilities{true, true, false};
};

TEST_F(Settings, OneWindowWithItsPagesInASidebar)
{
    ShotSettingsWindow& window = open(QStringLiteral("General"));
    auto* sidebar = find<QListWidget>(QStringLiteral("settingsSidebar"));
    ASSERT_NE(sidebar, nullptr);
    QStringList titles;
    for (int i = 0; i < sidebar->count(); ++i) {
        titles << sidebar->item(i)->text();
        EXPECT_FALSE(sidebar->item(i)->icon().isNull());
    }
    EXPECT_EQ(titles.join(u','), QStringLiteral("General,Shortcuts,Output,Recording,Editor,Uploads,Permissions,Backup"));
    // Page by page with the keyboard, as on any scale.
    sidebar->setFocus();
    for (int i = 0; i < sidebar->count(); ++i) {
        if (i > 0) {
            xdotool({"key", "Down"});
        }
        EXPECT_EQ(sidebar->currentRow(), i);
        settle(100);
        test::saveArtifact(window.grab().toImage(),
                           QStringLiteral("settings-%1.png").arg(titles[i].toLower()));
    }
    // A second "Settings…" raises the same window.
    window.lower();
    window.present();
    settle(200);
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.isActiveWindow());

    // On any scale it lies in the work area, title bar and all, clear of
    // the panel; moved and sized by the user, it opens there again.
    const QRect area = window.screen()->availableGeometry();
    EXPECT_TRUE(area.contains(window.frameGeometry()))
        << testing::PrintToString(QRectF(window.frameGeometry())) << " outside " << testing::PrintToString(QRectF(area));
    const QRect moved(area.topLeft() + QPoint(40, 60), window.size() - QSize(30, 20));
    xdotool({"windowmove", QString::number(window.winId()), QString::number(moved.x()), QString::number(moved.y()),
             "windowsize", QString::number(window.winId()), QString::number(moved.width()),
             QString::number(moved.height())});
    const QDeadlineTimer deadline(5000);
    while (window.size() != moved.size() && !deadline.hasExpired()) {
        settle(20);
    }
    const QRect left = window.frameGeometry();
    window.close();
    const ShotSettingsWindow& again = open(QStringLiteral("General"));
    EXPECT_EQ(QRectF(again.frameGeometry()), QRectF(left));
}

// Values written by a newer version or by hand, of the wrong type: each
// control shows its default, and nothing breaks.
TEST_F(Settings, WrongValuesShowTheDefaults)
{
    m_preferences->setValue(keys::copyRawOnCapture, QStringLiteral("perhaps"));
    m_preferences->setValue(keys::recentEnabled, 7);
    m_preferences->setValue(keys::quickSaveFormat, QStringLiteral("tiff"));
    m_preferences->setValue(closeAfterKey(ShotOutputAction::copy), QStringLiteral("yes"));
    m_preferences->setValue(keys::returnToSelect, QStringLiteral("[1]"));
    m_preferences->setValue(QStringLiteral("shot.style.arrow"), QStringLiteral("{\"broken"));
    m_preferences->setValue(QStringLiteral("shot.shortcut.area"), QStringLiteral("Ctrl+Frobnicate+"));
    open(QStringLiteral("General"));
    EXPECT_FALSE(find<QCheckBox>(QLatin1String(keys::copyRawOnCapture))->isChecked());
    EXPECT_TRUE(find<QCheckBox>(QLatin1String(keys::recentEnabled))->isChecked());
    EXPECT_EQ(find<QComboBox>(QStringLiteral("quickSaveFormat"))->currentText(), QStringLiteral("PNG"));
    EXPECT_TRUE(find<QCheckBox>(closeAfterKey(ShotOutputAction::copy))->isChecked());
    EXPECT_FALSE(find<QCheckBox>(QLatin1String(keys::returnToSelect))->isChecked());
    EXPECT_EQ(find<QComboBox>(QStringLiteral("size.arrow"))->currentText(), QStringLiteral("M"));
    EXPECT_EQ(find<QKeySequenceEdit>(QStringLiteral("shortcut.area"))->keySequence(),
              QKeySequence(QStringLiteral("Shift+Print")));
}

TEST_F(Settings, GeneralWritesItsKeysAndTheAutostartEntry)
{
    // The tray's recent images and menu follow the switch at once.
    ShotRecentStore recents(*m_preferences, ShotClipboard::shared(), m_renderer,
                            m_dir.filePath(QStringLiteral("Recent")));
    ShotStatusMenu menu({[](CaptureMode) {}, [] {}, [] {}, [] {}, {},
                         [&] { return recents.isEnabled(); }, [&] { return recents.entries(); },
                         [](const QUuid&) {}, [] {}});
    QObject::connect(&recents, &ShotRecentStore::changed, &menu, &ShotStatusMenu::refreshRecent);
    recents.applyPreference();
    ASSERT_TRUE(menu.recentMenu().menuAction()->isVisible());
    ASSERT_TRUE(recents.watcher() && recents.watcher()->isRunning());
    open(QStringLiteral("General"), nullptr, [&](const QString&) { recents.applyPreference(); });
    auto* login = find<QCheckBox>(QStringLiteral("startAtLogin"));
    auto* copyRaw = find<QCheckBox>(QLatin1String(keys::copyRawOnCapture));
    auto* recent = find<QCheckBox>(QLatin1String(keys::recentEnabled));
    ASSERT_TRUE(login && copyRaw && recent);
    EXPECT_FALSE(login->isChecked());

    tick(login);
    const QString entry = ShotAutostart::entryPath();
    EXPECT_TRUE(entry.startsWith(m_dir.path())) << entry.toStdString();
    QFile file(entry);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << "no autostart entry written";
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("Exec=\"/opt/Nubo Shot/bin/nuboshot\"\n")) << text.toStdString();
    EXPECT_TRUE(text.startsWith("[Desktop Entry]\n"));
    tick(login);
    EXPECT_FALSE(QFile::exists(entry)) << "the entry stayed after switching it off";

    tick(copyRaw);
    EXPECT_TRUE(m_preferences->boolean(keys::copyRawOnCapture, false));
    tick(recent);
    EXPECT_FALSE(m_preferences->boolean(keys::recentEnabled, true));
    EXPECT_EQ(m_preferences->rawValue(keys::recentEnabled).toString(), QStringLiteral("false"));
    EXPECT_FALSE(menu.recentMenu().menuAction()->isVisible()) << "the Recent submenu stayed";
    EXPECT_FALSE(recents.watcher()->isRunning()) << "the clipboard is still watched";
    tick(recent);
    EXPECT_TRUE(menu.recentMenu().menuAction()->isVisible());
    EXPECT_TRUE(recents.watcher()->isRunning());
}

// The quick-save folder and format, changed here, are where and how the
// next quick save of an open editor lands.
TEST_F(Settings, OutputChangesWhereAndHowQuickSavesLand)
{
    const QString chosen = m_dir.filePath(QStringLiteral("chosen shots"));
    QDir().mkpath(chosen);
    m_preferences->setValue(keys::quickSaveFolder, m_dir.filePath(QStringLiteral("gone")));
    open(QStringLiteral("Output"));
    auto* folder = find<QLineEdit>(QStringLiteral("quickSaveFolder"));
    auto* note = find<QLabel>(QStringLiteral("quickSaveFolderNote"));
    ASSERT_TRUE(folder && note);
    EXPECT_EQ(folder->text(), QDir::toNativeSeparators(ShotQuickSave::fallbackFolder()));
    EXPECT_TRUE(note->isVisible());
    EXPECT_TRUE(note->text().contains(QStringLiteral("is missing"))) << note->text().toStdString();
    EXPECT_EQ(find<QLabel>(QStringLiteral("fileNamePattern"))->text(),
              QStringLiteral("Nubo Shot YYYY-MM-DD at HH.mm.ss"));

    {
        test::ModalAnswer pick([&](QDialog& dialog) {
            // Inside the folder with no name typed: the folder itself is chosen.
            auto& files = static_cast<QFileDialog&>(dialog);
            files.setDirectory(chosen);
            if (auto* name = files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
                name->clear();
            }
            dialog.accept();
        });
        click(find<QPushButton>(QStringLiteral("chooseQuickSaveFolder")));
        settle(300);
        EXPECT_TRUE(pick.answered());
    }
    EXPECT_EQ(m_preferences->string(keys::quickSaveFolder), std::optional(chosen));
    EXPECT_EQ(folder->text(), QDir::toNativeSeparators(chosen));
    EXPECT_FALSE(note->isVisible());

    auto* format = find<QComboBox>(QStringLiteral("quickSaveFormat"));
    click(format);
    xdotool({"key", "Down", "Return"}); // PNG → JPEG
    EXPECT_EQ(m_preferences->string(keys::quickSaveFormat), std::optional(QStringLiteral("jpeg")));

    auto* closeCopy = find<QCheckBox>(closeAfterKey(ShotOutputAction::copy));
    tick(closeCopy);
    EXPECT_FALSE(closesAfter(*m_preferences, ShotOutputAction::copy));

    // An editor already open saves into the new folder, as JPEG.
    m_preferences->setValue(closeAfterKey(ShotOutputAction::save), false);
    ShotEditorWindow& editor = openEditor(test::patternImage(200, 120), 1);
    xdotool({"key", "ctrl+s"});
    ASSERT_TRUE(outputDone(editor));
    const QStringList saved = QDir(chosen).entryList(QDir::Files);
    ASSERT_EQ(saved.size(), 1);
    EXPECT_TRUE(saved.first().startsWith(QStringLiteral("Nubo Shot ")));
    EXPECT_TRUE(saved.first().endsWith(QStringLiteral(".jpg")));
    QFile jpeg(QDir(chosen).filePath(saved.first()));
    ASSERT_TRUE(jpeg.open(QIODevice::ReadOnly));
    EXPECT_TRUE(jpeg.read(3) == QByteArray("\xff\xd8\xff", 3));
}

// A shortcut recorded here captures at once; the keys it replaced no longer
// do; clashes with another capture and with keys another program holds are
// said on the row.
TEST_F(Settings, ShortcutsAreRecordedAndTakeEffectAtOnce)
{
    // Another program (another connection to the server) holds Ctrl+Alt+K,
    // and the stored keys for window captures are those.
    auto other = CapturePlatformLoader::load();
    std::unique_ptr<GlobalShortcuts> otherKeys = other->makeGlobalShortcuts();
    ASSERT_TRUE(otherKeys->bind({{QStringLiteral("theirs"), QKeySequence(QStringLiteral("Ctrl+Alt+K"))}})
                    .isEmpty());
    m_preferences->setValue(QStringLiteral("shot.shortcut.window"), QStringLiteral("Ctrl+Alt+K"));
    auto platform = CapturePlatformLoader::load();
    ASSERT_NE(platform, nullptr);
    QStringList captured;
    m_shortcuts = std::make_unique<ShotGlobalShortcuts>(
        platform->makeGlobalShortcuts(), *m_preferences,
        [&](const QString& action) { captured << action; });

    open(QStringLiteral("Shortcuts"), m_shortcuts.get());
    auto* area = find<QKeySequenceEdit>(QStringLiteral("shortcut.area"));
    auto* window = find<QKeySequenceEdit>(QStringLiteral("shortcut.window"));
    ASSERT_TRUE(area && window);
    EXPECT_EQ(area->keySequence(), QKeySequence(QStringLiteral("Shift+Print")));
    EXPECT_FALSE(find<QLabel>(QStringLiteral("shortcutProblem.scrolling"))->isVisible());
    // Keys another program holds are kept, and the row says they are not ours.
    auto* windowProblem = find<QLabel>(QStringLiteral("shortcutProblem.window"));
    EXPECT_EQ(windowProblem->text(),
              QStringLiteral("The shortcut Ctrl+Alt+K is used by another program."));
    EXPECT_TRUE(m_shortcuts->shortcut(CaptureMode::window).isEmpty());

    const auto record = [&](QKeySequenceEdit* edit, const char* keys) {
        click(edit);
        xdotool({"key", QString::fromLatin1(keys)});
        settle(1400); // the field takes the keys once none follow for a second
        click(find<QListWidget>(QStringLiteral("settingsSidebar")), QPoint(4, 4)); // away
        settle(200);
    };
    record(area, "ctrl+alt+a");
    EXPECT_EQ(m_preferences->string(QStringLiteral("shot.shortcut.area")),
              std::optional(QStringLiteral("Ctrl+Alt+A")));
    EXPECT_EQ(m_shortcuts->shortcut(CaptureMode::area), QKeySequence(QStringLiteral("Ctrl+Alt+A")));

    captured.clear();
    xdotool({"key", "ctrl+alt+a"});
    settle(300);
    EXPECT_EQ(captured, QStringList{"area"}) << "the new keys do not capture";
    captured.clear();
    xdotool({"key", "shift+Print"});
    settle(300);
    EXPECT_TRUE(captured.isEmpty()) << "the old keys still capture";

    // The same keys for another capture are refused, and said so.
    record(window, "ctrl+alt+a");
    EXPECT_NE(m_preferences->string(QStringLiteral("shot.shortcut.window")),
              std::optional(QStringLiteral("Ctrl+Alt+A")));
    EXPECT_TRUE(windowProblem->isVisible());
    EXPECT_TRUE(windowProblem->text().contains(QStringLiteral("Capture Area")))
        << windowProblem->text().toStdString();


    click(find<QPushButton>(QStringLiteral("resetShortcuts")));
    EXPECT_EQ(area->keySequence(), QKeySequence(QStringLiteral("Shift+Print")));
    EXPECT_FALSE(m_preferences->contains(QStringLiteral("shot.shortcut.area")));
    captured.clear();
    xdotool({"key", "shift+Print"});
    settle(300);
    EXPECT_EQ(captured, QStringList{"area"});

    // The recording shortcut is a row like the others: Ctrl+Alt+R, and the
    // capture keys cannot take it.
    auto* recording = find<QKeySequenceEdit>(QStringLiteral("shortcut.recording"));
    ASSERT_TRUE(recording);
    EXPECT_EQ(recording->keySequence(), QKeySequence(QStringLiteral("Ctrl+Alt+R")));
    captured.clear();
    xdotool({"key", "ctrl+alt+r"});
    settle(300);
    EXPECT_EQ(captured, QStringList{"recording"});
    record(area, "ctrl+alt+r");
    EXPECT_FALSE(m_preferences->contains(QStringLiteral("shot.shortcut.area")));
    EXPECT_TRUE(find<QLabel>(QStringLiteral("shortcutProblem.area"))
                    ->text()
                    .contains(QStringLiteral("Record Screen")));
    test::saveArtifact(m_settings->grab().toImage(), QStringLiteral("settings-shortcuts-used.png"));
}

// The Recording page stores what the next recording uses, and shows what
// this computer cannot record disabled, with the reason.
// Without global shortcuts (Wayland desktops without the portal for them)
// the page gives the commands to bind in the desktop's own settings.
TEST_F(Settings, WithoutGlobalShortcutsThePageOffersTheCommandsToBind)
{
    open(QStringLiteral("Shortcuts"));
    for (const QString& action : ShotGlobalShortcuts::actions()) {
        auto* command = find<QLineEdit>(QStringLiteral("command.") + action);
        ASSERT_NE(command, nullptr);
        EXPECT_EQ(command->text(), QStringLiteral("\"/opt/Nubo Shot/bin/nuboshot\" capture ") + action);
        EXPECT_TRUE(command->isVisible());
    }
    QGuiApplication::clipboard()->clear();
    click(find<QPushButton>(QStringLiteral("copyCommand.recording")));
    settle(200);
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("\"/opt/Nubo Shot/bin/nuboshot\" capture recording"));
    EXPECT_EQ(ShotGlobalShortcuts::command(QStringLiteral("area"), QStringLiteral("/usr/bin/nuboshot")),
              QStringLiteral("/usr/bin/nuboshot capture area"));
    test::saveArtifact(m_settings->grab().toImage(), QStringLiteral("settings-shortcuts-commands.png"));
}

// The session decides what is there: an X11 screen, no global keys handed
// to the window, the sound server, dunst and gnome-keyring on the bus.
TEST_F(Settings, PermissionsSayWhatIsGrantedAndHow)
{
    open(QStringLiteral("Permissions"));
    const struct {
        const char* id;
        bool granted;
        const char* says;
    } rows[] = {
        {"screen", true, "this X11 desktop lets programs read the screen"},
        {"shortcuts", false, "bind the commands of the Shortcuts page"},
        {"microphone", true, "sound server"},
        {"notifications", true, "notification service"},
        {"keyring", true, "Secret Service"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.id);
        auto* label = find<QLabel>(QStringLiteral("permission.") + QLatin1String(row.id));
        ASSERT_NE(label, nullptr);
        EXPECT_EQ(label->property("granted").toBool(), row.granted) << label->text().toStdString();
        EXPECT_TRUE(label->text().contains(QLatin1String(row.says))) << label->text().toStdString();
    }
    EXPECT_FALSE(find<QPushButton>(QStringLiteral("forgetScreenGrant"))->isVisible());
    // Without a sound server the microphone row says what to install.
    m_capabilities.supportsMicrophone = false;
    find<QPushButton>(QStringLiteral("checkPermissions"))->click();
    settle(100);
    EXPECT_TRUE(find<QLabel>(QStringLiteral("permission.microphone"))->text().contains(u"PipeWire"));
    test::saveArtifact(m_settings->grab().toImage(), QStringLiteral("settings-permissions.png"));
}

// The Uploads page: typed settings land in the shared store, the secret in
// the keyring only (never shown again), and "Test Upload" really uploads.
TEST_F(Settings, UploadsKeepTheSecretInTheKeyringAndTestTheDestination)
{
    test::FilebinServer server;
    const auto forget = qScopeGuard([] {
        UploadStore(UploadStore::defaultPath()).saveSettings(S3Settings{}, FilebinSettings{});
        uploadSecrets::forgetS3Secret(QStringLiteral("AKIDSETTINGSTEST"));
    });
    uploadSecrets::forgetS3Secret(QStringLiteral("AKIDSETTINGSTEST"));
    open(QStringLiteral("Uploads"));
    const auto type = [&](const char* name, const QString& text) {
        auto* edit = find<QLineEdit>(QString::fromLatin1(name));
        ASSERT_NE(edit, nullptr);
        click(edit);
        settle(50);
        xdotool({"key", "ctrl+a", "BackSpace"});
        xdotool({"type", "--delay", "5", text});
        xdotool({"key", "Tab"});
        settle(100);
    };
    const auto label = [&](const char* name) {
        return find<QLabel>(QString::fromLatin1(name))->text();
    };
    const auto settledOn = [&](const std::function<bool()>& done) {
        const QDeadlineTimer deadline(15000);
        while (!done() && !deadline.hasExpired()) {
            settle(20);
        }
        return done();
    };
    EXPECT_FALSE(find<QLineEdit>(QStringLiteral("s3Secret"))->isEnabled())
        << "a secret without its key id";

    type("filebinServer", server.address());
    type("filebinBin", QStringLiteral("settings-bin"));
    auto* destination = find<QComboBox>(QStringLiteral("uploadDestination"));
    click(destination);
    settle(300);
    xdotool({"key", "End", "Return"}); // the last entry: Filebin
    settle(100);
    EXPECT_EQ(m_preferences->string(keys::uploadDestination), QStringLiteral("filebin"));

    type("s3Endpoint", QStringLiteral("http://127.0.0.1:9"));
    type("s3Bucket", QStringLiteral("shots"));
    type("s3AccessKeyId", QStringLiteral("AKIDSETTINGSTEST"));
    ASSERT_TRUE(settledOn([&] { return label("s3SecretState").startsWith(u"Not set"); }))
        << label("s3SecretState").toStdString();
    type("s3Secret", QStringLiteral("typed-secret/with+signs"));
    ASSERT_TRUE(settledOn([&] { return label("s3SecretState").contains(u"keyring"); }))
        << label("s3SecretState").toStdString();
    EXPECT_TRUE(find<QLineEdit>(QStringLiteral("s3Secret"))->text().isEmpty());
    EXPECT_EQ(uploadSecrets::s3Secret(QStringLiteral("AKIDSETTINGSTEST")),
              QStringLiteral("typed-secret/with+signs"));

    const UploadSettings stored =
        UploadStore(UploadStore::defaultPath()).settings(ShotUploadDestination::auto_);
    EXPECT_EQ(stored.filebin.server, server.address());
    EXPECT_EQ(stored.filebin.bin, QStringLiteral("settings-bin"));
    EXPECT_EQ(stored.s3.bucket, QStringLiteral("shots"));
    EXPECT_EQ(stored.s3.region, QStringLiteral("auto"));
    EXPECT_EQ(stored.effective(), ShotUploadDestination::r2) << "auto with a complete bucket";
    QFile store(UploadStore::defaultPath());
    ASSERT_TRUE(store.open(QIODevice::ReadOnly));
    EXPECT_FALSE(store.readAll().contains("typed-secret"));
    QFile prefs(m_preferences->path());
    if (prefs.open(QIODevice::ReadOnly)) {
        EXPECT_FALSE(prefs.readAll().contains("typed-secret"));
    }

    // The test upload goes where the settings say: Filebin here.
    click(find<QPushButton>(QStringLiteral("testUpload")));
    ASSERT_TRUE(settledOn([&] { return !server.received().isEmpty() &&
                                       label("testUploadResult").startsWith(u'\u2713'); }))
        << label("testUploadResult").toStdString();
    EXPECT_TRUE(label("testUploadResult").contains(server.address() + QStringLiteral("/settings-bin/")))
        << label("testUploadResult").toStdString();
    EXPECT_FALSE(QImage::fromData(server.received().first().body, "PNG").isNull());
    server.setMode(test::FilebinServer::Mode::refused);
    click(find<QPushButton>(QStringLiteral("testUpload")));
    ASSERT_TRUE(settledOn([&] { return label("testUploadResult").startsWith(u'\u2717'); }));
    EXPECT_TRUE(label("testUploadResult").contains(QLatin1String(test::FilebinServer::refusal)));
    test::saveArtifact(m_settings->grab().toImage(), QStringLiteral("settings-uploads-filled.png"));

    click(find<QPushButton>(QStringLiteral("forgetS3Secret")));
    ASSERT_TRUE(settledOn([&] { return label("s3SecretState").startsWith(u"Not set"); }));
    EXPECT_EQ(uploadSecrets::s3Secret(QStringLiteral("AKIDSETTINGSTEST")), std::nullopt);
}

TEST_F(Settings, RecordingPageStoresTheNextRecordingsOptions)
{
    open(QStringLiteral("Recording"));
    auto* codec = find<QComboBox>(QStringLiteral("recording.codec"));
    auto* rate = find<QComboBox>(QStringLiteral("recording.frameRate"));
    ASSERT_TRUE(codec && rate);
    // No hardware HEVC encoder here: HEVC is listed, disabled, with why.
    const auto* model = qobject_cast<const QStandardItemModel*>(codec->model());
    ASSERT_TRUE(model);
    EXPECT_FALSE(model->item(1)->isEnabled());
    EXPECT_TRUE(codec->itemData(1, Qt::ToolTipRole).toString().contains(QStringLiteral("VAAPI")));
    EXPECT_TRUE(find<QLabel>(QStringLiteral("recording.codecProblem"))->isVisible());

    click(rate);
    settle(300);
    xdotool({"key", "Down", "Return"});
    settle(200);
    EXPECT_EQ(m_preferences->string(keys::recordingFrameRate), std::optional(QStringLiteral("fps60")));
    EXPECT_EQ(RecordingOptions::read(*m_preferences).frameRate, RecordingFrameRate::fps60);

    tick(find<QCheckBox>(QStringLiteral("recording.microphone")));
    EXPECT_TRUE(m_preferences->boolean(keys::recordingMicrophone, false));
    tick(find<QCheckBox>(QStringLiteral("recording.countdown")));
    EXPECT_FALSE(m_preferences->boolean(keys::recordingCountdown, true));
    EXPECT_EQ(find<QKeySequenceEdit>(QStringLiteral("shortcut.recording"))->keySequence(),
              QKeySequence(QStringLiteral("Ctrl+Alt+R")));
    test::saveArtifact(m_settings->grab().toImage(), QStringLiteral("settings-recording-page.png"));

    // Without an audio server and XInput: those two are disabled and say why;
    // what was stored for them stays.
    m_capabilities = {false, false, false};
    open(QStringLiteral("Recording"));
    auto* microphone = find<QCheckBox>(QStringLiteral("recording.microphone"));
    EXPECT_FALSE(microphone->isEnabled());
    EXPECT_EQ(microphone->toolTip(),
              QStringLiteral("Microphone recording requires a running audio server."));
    EXPECT_EQ(find<QLabel>(QStringLiteral("recording.microphoneProblem"))->text(),
              microphone->toolTip());
    auto* clicks = find<QCheckBox>(QStringLiteral("recording.clicks"));
    EXPECT_FALSE(clicks->isEnabled());
    EXPECT_EQ(clicks->toolTip(),
              QStringLiteral("Click highlighting requires the X Input extension."));
    tick(find<QCheckBox>(QStringLiteral("recording.systemAudio")));
    EXPECT_TRUE(m_preferences->boolean(keys::recordingSystemAudio, false));
    EXPECT_TRUE(m_preferences->boolean(keys::recordingMicrophone, false));
}

TEST_F(Settings, EditorDefaultsAreWhatNewMarksTake)
{
    open(QStringLiteral("Editor"));
    tick(find<QCheckBox>(QLatin1String(keys::returnToSelect)));
    EXPECT_TRUE(m_preferences->boolean(keys::returnToSelect, false));

    auto* width = find<QSpinBox>(QStringLiteral("size.rect"));
    click(width);
    xdotool({"key", "ctrl+a", "type", "9"});
    xdotool({"key", "Tab"});
    EXPECT_EQ(storedToolStyle(*m_preferences, ShotToolKind::rect).lineWidth, 9);

    {
        test::ModalAnswer pick([](QDialog& dialog) {
            static_cast<QColorDialog&>(dialog).setCurrentColor(QColor(0x20, 0x40, 0x60));
            dialog.accept();
        });
        click(find<QToolButton>(QStringLiteral("color.text")));
        settle(300);
        EXPECT_TRUE(pick.answered());
    }
    EXPECT_EQ(storedToolStyle(*m_preferences, ShotToolKind::text).color.toQColor().name(),
              QStringLiteral("#204060"));

    auto* strength = find<QSpinBox>(QStringLiteral("strength.blur"));
    click(strength);
    xdotool({"key", "ctrl+a", "type", "30"});
    xdotool({"key", "Tab"});
    EXPECT_EQ(storedToolStyle(*m_preferences, ShotToolKind::blur).strength, 30);

    // The recognition languages are the installed ones; the ticked are kept.
    auto* languages = find<QListWidget>(QStringLiteral("recognitionLanguages"));
    QStringList listed;
    for (int i = 0; i < languages->count(); ++i) {
        listed << languages->item(i)->data(Qt::UserRole).toString();
    }
    EXPECT_EQ(listed, installedRecognitionLanguages());
    EXPECT_EQ(recognitionLanguages(*m_preferences), defaultRecognitionLanguages());
    for (int i = 0; i < languages->count(); ++i) {
        if (languages->item(i)->data(Qt::UserRole) == QLatin1String("eng")) {
            EXPECT_EQ(languages->item(i)->text(), QStringLiteral("English (eng)"));
            // Unticked, ticked again: chosen by the user from now on.
            const QRect row = languages->visualItemRect(languages->item(i));
            click(languages->viewport(), QPoint(row.left() + 10, row.center().y()));
            EXPECT_EQ(languages->item(i)->checkState(), Qt::Unchecked);
            EXPECT_FALSE(m_preferences->contains(keys::recognitionLanguages)) << "none: the default";
            xdotool({"key", "space"});
        }
    }
    EXPECT_EQ(m_preferences->string(keys::recognitionLanguages), QStringLiteral("eng"));

    // An editor opened now draws a rectangle 9 wide and returns to Select.
    ShotEditorWindow& editor = openEditor(test::patternImage(400, 300), 1);
    editor.model().setActiveTool(ShotToolKind::rect);
    const QPoint a = editor.canvas().mapToGlobal(editor.canvas().toWidget({40, 40, 0, 0}).topLeft().toPoint());
    xdotool({"mousemove", QString::number(a.x()), QString::number(a.y()), "mousedown", "1",
             "mousemove", QString::number(a.x() + 60), QString::number(a.y() + 40), "mouseup", "1"});
    ASSERT_EQ(editor.model().document().annotations.size(), 1);
    EXPECT_EQ(editor.model().document().annotations.first().style.lineWidth, 9);
    EXPECT_EQ(editor.model().activeTool(), ShotToolKind::select);
}

TEST_F(Settings, BackupsRoundTripAndRestoreWhatTheyCan)
{
    m_preferences->setValue(keys::copyRawOnCapture, true);
    m_preferences->setValue(keys::quickSaveFormat, QStringLiteral("webp"));
    m_preferences->setValue(QStringLiteral("shot.upload.r2.secretAccessKey"), QStringLiteral("hush"));
    open(QStringLiteral("Backup"));
    const QString file = m_dir.filePath(QStringLiteral("Nubo Shot Settings.json"));
    {
        test::ModalAnswer save([&](QDialog& dialog) {
            static_cast<QFileDialog&>(dialog).selectFile(file);
            dialog.accept();
        });
        click(find<QPushButton>(QStringLiteral("backUpSettings")));
        settle(300);
        EXPECT_TRUE(save.answered());
    }
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly)) << "no backup written";
    const QByteArray backup = written.readAll();
    EXPECT_TRUE(backup.contains("\"shot.quickSaveFormat\": \"webp\""));
    EXPECT_FALSE(backup.contains("hush")) << "a secret went into the backup";

    // Changed since; a restore brings the backup's values back, and the
    // pages show them.
    m_preferences->setValue(keys::copyRawOnCapture, false);
    m_preferences->setValue(keys::quickSaveFormat, QStringLiteral("png"));
    {
        test::ModalAnswer restore([&](QDialog& dialog) {
            // Typed as a path: the dialog's list may not have read the folder yet.
            if (auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
                name->setText(file);
            }
            dialog.accept();
        });
        click(find<QPushButton>(QStringLiteral("restoreSettings")));
        settle(300);
        EXPECT_TRUE(restore.answered());
    }
    EXPECT_TRUE(m_preferences->boolean(keys::copyRawOnCapture, false))
        << find<QLabel>(QStringLiteral("backupStatus"))->text().toStdString();
    EXPECT_EQ(find<QComboBox>(QStringLiteral("quickSaveFormat"))->currentText(), QStringLiteral("WebP"));
    EXPECT_TRUE(find<QLabel>(QStringLiteral("backupStatus"))->text().contains(QStringLiteral("restored")));
    test::saveArtifact(m_settings->grab().toImage(), QStringLiteral("settings-backup-restored.png"));
}

TEST(ShotSettingsBackup, RestoresWhatItCanAndSaysWhatItSkipped)
{
    QTemporaryDir dir;
    ShotPreferences preferences(dir.filePath(QStringLiteral("prefs.ini")));
    struct Case {
        const char* name;
        QByteArray file;
        int restored;
        QStringList skippedKeys;
        bool problem;
        bool newer;
    };
    const Case cases[] = {
        {"damaged JSON", "{\"format\": \"nuboshot-settings\", \"settings\": {", 0, {}, true, false},
        {"someone else's JSON", "{\"format\": \"other\", \"settings\": {}}", 0, {}, true, false},
        {"not an object", "[1, 2]", 0, {}, true, false},
        {"a newer version with keys we do not know",
         R"({"format": "nuboshot-settings", "version": 7, "settings": {
              "shot.copyRawOnCapture": true, "shot.hologram.enabled": true}})",
         1, {"shot.hologram.enabled"}, false, true},
        {"wrong types and values",
         R"({"format": "nuboshot-settings", "version": 1, "settings": {
              "shot.returnToSelect": "yes", "shot.quickSaveFormat": "tiff",
              "shot.closeAfter.copy": false, "shot.style.arrow": "{\"color\": 5",
              "shot.style.laser": "{}", "shot.shortcut.area": "Ctrl+Alt+Q",
              "shot.shortcut.teleport": "F1", "shot.uploadDestination": "ftp",
              "shot.upload.s3.secretAccessKey": "x"}})",
         2,
         {"shot.returnToSelect", "shot.quickSaveFormat", "shot.style.arrow", "shot.style.laser",
          "shot.shortcut.teleport", "shot.uploadDestination", "shot.upload.s3.secretAccessKey"},
         false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ShotSettingsBackup::Report report = ShotSettingsBackup::restore(preferences, c.file);
        EXPECT_EQ(report.restored, c.restored);
        EXPECT_EQ(!report.problem.isEmpty(), c.problem) << report.summary().toStdString();
        EXPECT_EQ(report.newerVersion, c.newer);
        QStringList skipped;
        for (const QString& line : report.skipped) {
            skipped << line.section(u':', 0, 0);
        }
        skipped.sort();
        QStringList expected = c.skippedKeys;
        expected.sort();
        EXPECT_EQ(skipped, expected) << report.summary().toStdString();
    }
    EXPECT_FALSE(preferences.boolean(closeAfterKey(ShotOutputAction::copy), true));
    EXPECT_EQ(preferences.string(QStringLiteral("shot.shortcut.area")),
              std::optional(QStringLiteral("Ctrl+Alt+Q")));
    EXPECT_FALSE(preferences.contains(QStringLiteral("shot.upload.s3.secretAccessKey")));
    // A special file is refused before it is opened.
    const auto fifo = ShotSettingsBackup::restoreFile(preferences, QStringLiteral("/dev/zero"));
    EXPECT_FALSE(fifo.problem.isEmpty());
}

} // namespace
} // namespace nubo
