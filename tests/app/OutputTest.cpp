#include "core/Settings.h"
#include "editor/ShotEditorWindow.h"
#include "codec/PngEncoder.h"
#include "output/ShotBottomBar.h"
#include "output/ShotClipboard.h"
#include "output/ShotOutput.h"
#include "output/ShotOutputActions.h"
#include "output/ShotRawClipboardTracker.h"
#include "output/ShotSaveOptions.h"
#include "output/ShotUpload.h"
#include "output/ShotUploadHistory.h"
#include "upload/Uploader.h"
#include "render/ShotRenderer.h"
#include "support/ArchiveFixtures.h"
#include "support/DesktopPortal.h"
#include "support/EditorFixture.h"
#include "support/FilebinServer.h"
#include "support/LiveProcess.h"
#include "support/ModalAnswer.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"
#include "upload/UploadStore.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QScopeGuard>
#include <QTimer>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QProcess>
#include <QPushButton>
#include <QSemaphore>
#include <QSlider>
#include <QTemporaryDir>
#include <QScopeGuard>
#include <QTimer>
#include <QThread>
#include <QThreadPool>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

#include <future>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::settle;
using test::xdotool;

QByteArray run(const QString& program, const QStringList& arguments, const QByteArray& input = {})
{
    return test::runServing(program, arguments, input);
}

class Output : public test::EditorFixture {
protected:
    void SetUp() override
    {
        test::EditorFixture::SetUp();
        if (IsSkipped() || HasFatalFailure()) {
            return;
        }
        m_preferences->setValue(keys::quickSaveFolder, m_dir.filePath(QStringLiteral("saved")));
        QDir(m_dir.path()).mkpath(QStringLiteral("saved"));
    }
    void TearDown() override
    {
        if (m_window) {
            ShotRawClipboardTracker::shared().forget(m_window.get());
        }
    }

    ShotEditorWindow& open(const QImage& image = test::patternImage(640, 400), double scale = 1)
    {
        ShotEditorWindow& window = openEditor(image, scale);
        settle();
        return window;
    }
    // A PNG viewer of this test's own, the default for PNG under the test's
    // data and config folders: it keeps a copy of whatever it is asked to
    // open, at the path returned.
    QString installViewer()
    {
        const QDir home(m_dir.path());
        home.mkpath(QStringLiteral("data/applications"));
        home.mkpath(QStringLiteral("config"));
        const QString opened = m_dir.filePath(QStringLiteral("opened.png"));
        const QString viewer = m_dir.filePath(QStringLiteral("viewer"));
        const auto write = [](const QString& path, const QByteArray& text) {
            QFile file(path);
            EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
            file.write(text);
        };
        write(viewer, "#!/bin/sh\ncp \"$1\" '" + opened.toUtf8() + ".part' && mv '" +
                          opened.toUtf8() + ".part' '" + opened.toUtf8() + "'\n");
        QFile::setPermissions(viewer, QFileDevice::ReadOwner | QFileDevice::WriteOwner |
                                          QFileDevice::ExeOwner);
        write(m_dir.filePath(QStringLiteral("data/applications/nuboshot-test-viewer.desktop")),
              "[Desktop Entry]\nType=Application\nName=Test Viewer\nExec=" + viewer.toUtf8() +
                  " %f\nMimeType=image/png;\n");
        // What update-desktop-database would write: the index GIO looks up.
        write(m_dir.filePath(QStringLiteral("data/applications/mimeinfo.cache")),
              "[MIME Cache]\nimage/png=nuboshot-test-viewer.desktop;\n");
        write(m_dir.filePath(QStringLiteral("config/mimeapps.list")),
              "[Default Applications]\nimage/png=nuboshot-test-viewer.desktop\n");
        return opened;
    }
    // Opens the menu of a button with real input and clicks its item
    // `title` (none: closes it again); the items it listed. The menu runs
    // its own event loop, so it is answered from a timer inside that loop.
    QStringList chooseFromMenu(QPushButton* button, const QString& title)
    {
        QMenu* menu = button->menu();
        QStringList items;
        int ticksOpen = 0;
        QTimer poll;
        poll.setInterval(50);
        QObject::connect(&poll, &QTimer::timeout, [&] {
            if (!menu->isVisible()) {
                return;
            }
            if (ticksOpen++ > 0) {
                if (ticksOpen > 60) {
                    menu->hide(); // the click did not land: never hang here
                }
                return;
            }
            QAction* chosen = nullptr;
            for (QAction* action : menu->actions()) {
                items << action->text();
                chosen = action->text() == title ? action : chosen;
            }
            if (!chosen) {
                menu->hide();
                return;
            }
            const QPoint at = menu->mapToGlobal(menu->actionGeometry(chosen).center());
            run(QStringLiteral("xdotool"),
                {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
        });
        poll.start();
        click(button);
        const QDeadlineTimer closed(5000);
        while ((ticksOpen == 0 || menu->isVisible()) && !closed.hasExpired()) {
            settle();
        }
        EXPECT_GT(ticksOpen, 0) << "no menu";
        EXPECT_TRUE(title.isEmpty() || items.contains(title))
            << "no item " << title.toStdString() << " in " << items.join(u'|').toStdString();
        return items;
    }
    // Clicks a widget of ours with real input.
    void click(QWidget* widget)
    {
        const QPoint at = widget->mapToGlobal(widget->rect().center());
        run(QStringLiteral("xdotool"),
            {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
        settle();
    }
    // Presses a button of the next dialog with the pointer, as a user would.
    static std::unique_ptr<test::ModalAnswer> pressInDialog(const QString& button)
    {
        return std::make_unique<test::ModalAnswer>([button](QDialog& dialog) {
            for (QAbstractButton* b : dialog.findChildren<QAbstractButton*>()) {
                if (b->text().remove(u'&') == button) {
                    const QPoint at = b->mapToGlobal(b->rect().center());
                    run(QStringLiteral("xdotool"), {"mousemove", QString::number(at.x()),
                                                    QString::number(at.y()), "click", "1"});
                }
            }
        });
    }
    QStringList saved() const
    {
        return QDir(m_dir.filePath(QStringLiteral("saved"))).entryList(QDir::Files, QDir::Name);
    }
    void addArrow(ShotEditorWindow& window)
    {
        ShotDocument edited = window.model().document();
        edited.annotations.append(test::markedUpShot().annotations.first());
        window.model().apply(edited);
    }
};

TEST_F(Output, CopiedShotReadsBackFromAnotherProcess)
{
    ShotEditorWindow& window = open(test::patternImage(640, 400), 2);
    m_preferences->setValue(closeAfterKey(ShotOutputAction::copy), false);
    addArrow(window);
    test::saveArtifact(window.grab().toImage(), QStringLiteral("editor-with-output-bar.png"));
    run(QStringLiteral("xdotool"), {"key", "ctrl+c"});
    settle();
    ASSERT_TRUE(outputDone(window));

    const QByteArray png =
        run(QStringLiteral("xclip"), {"-selection", "clipboard", "-t", "image/png", "-o"});
    const QImage pasted = QImage::fromData(png, "PNG");
    ASSERT_FALSE(pasted.isNull());
    const QImage expected = m_renderer.render(window.model().document(), 2);
    EXPECT_EQ(pasted.size(), expected.size());
    EXPECT_EQ(test::compareImages(pasted, expected, 0).maximum, 0);
    // Its size in points survives as the density: 144 dpi for a 2x shot.
    EXPECT_EQ(qRound(pasted.dotsPerMeterX() * 0.0254), 144);
    EXPECT_TRUE(window.model().isOutputCurrent());
    EXPECT_TRUE(ShotClipboard::shared().isOwnWrite(ShotClipboard::shared().changeCount()));
}

TEST_F(Output, CloseAfterFollowsTheSettingAltAndThePin)
{
    struct Case {
        const char* name;
        ShotOutputAction action;
        QVariant setting; // invalid: missing
        bool alt;
        bool pinned;
        bool closes;
    };
    const Case cases[] = {
        {"copy, missing", ShotOutputAction::copy, {}, false, false, true},
        {"copy, true", ShotOutputAction::copy, true, false, false, true},
        {"copy, false", ShotOutputAction::copy, false, false, false, false},
        {"copy, mistyped", ShotOutputAction::copy, QStringLiteral("nope"), false, false, true},
        {"copy, Alt held", ShotOutputAction::copy, true, true, false, false},
        {"copy, pinned", ShotOutputAction::copy, true, false, true, false},
        {"save, missing", ShotOutputAction::save, {}, false, false, true},
        {"save, false", ShotOutputAction::save, false, false, false, false},
        {"save, Alt held", ShotOutputAction::save, {}, true, false, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        m_preferences->remove(closeAfterKey(c.action));
        if (c.setting.isValid()) {
            m_preferences->setValue(closeAfterKey(c.action), c.setting);
        }
        ShotEditorWindow& window = open();
        window.output().bar().pinButton()->setChecked(c.pinned);
        int outputs = 0;
        QObject::connect(&window.output(), &ShotOutputActions::shotOutput, [&] { ++outputs; });
        QWidget* button = c.action == ShotOutputAction::copy
                              ? static_cast<QWidget*>(window.output().bar().copyButton())
                              : window.output().bar().saveButton();
        if (c.alt) {
            // Alt-clicks belong to the window manager here: the keys hold Alt instead.
            run(QStringLiteral("xdotool"),
                {"key", c.action == ShotOutputAction::copy ? "ctrl+alt+c" : "ctrl+alt+s"});
            settle();
        } else {
            click(button);
        }
        // The key or click may still be on its way under load: wait for the
        // output itself, then for what follows it.
        const QDeadlineTimer deadline(10000);
        while (outputs == 0 && !deadline.hasExpired()) {
            settle(10);
        }
        ASSERT_EQ(outputs, 1);
        ASSERT_TRUE(outputDone(window));
        EXPECT_EQ(!window.isVisible(), c.closes);
        EXPECT_TRUE(window.model().isOutputCurrent());
    }
    EXPECT_EQ(saved().size(), 3);
}

TEST_F(Output, NothingClosesWhenTheEditorMovedOn)
{
    ShotEditorWindow& window = open();
    const ShotDocument output = window.model().document();
    addArrow(window);
    EXPECT_FALSE(finishOutput(window, output, ShotOutputAction::copy, {}, true, false, *m_preferences));
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(window.model().isOutputCurrent());

    // A text being typed keeps the editor open as well.
    const ShotDocument now = window.model().document();
    window.model().setEditingText(true);
    EXPECT_FALSE(finishOutput(window, now, ShotOutputAction::copy, {}, true, false, *m_preferences));
    window.model().setEditingText(false);
    EXPECT_TRUE(finishOutput(window, now, ShotOutputAction::copy, {}, true, false, *m_preferences));
    EXPECT_FALSE(window.isVisible());
}

TEST_F(Output, QuickSavesNeverOverwriteEachOther)
{
    m_preferences->setValue(closeAfterKey(ShotOutputAction::save), false);
    open();
    int outputs = 0;
    QObject::connect(&m_window->output(), &ShotOutputActions::shotOutput, [&] { ++outputs; });
    run(QStringLiteral("xdotool"), {"key", "ctrl+s", "key", "ctrl+s"});
    const QDeadlineTimer deadline(10000);
    while (outputs < 2 && !deadline.hasExpired()) {
        settle(10);
    }
    ASSERT_EQ(outputs, 2);
    ASSERT_TRUE(outputDone(*m_window));
    const QStringList files = saved();
    ASSERT_EQ(files.size(), 2) << files.join(u',').toStdString();
    for (const QString& file : files) {
        EXPECT_TRUE(file.startsWith(QStringLiteral("Nubo Shot "))) << file.toStdString();
        EXPECT_TRUE(file.endsWith(QStringLiteral(".png"))) << file.toStdString();
    }
    // Within one second the second save is numbered; a second later it has
    // a name of its own. Either way exactly one of the two holds.
    const auto stamp = [](QString name) { return name.remove(QStringLiteral(" (2)")); };
    const bool sameSecond = stamp(files[0]) == stamp(files[1]);
    EXPECT_EQ(files[0].contains(QStringLiteral(" (2).png")) ||
                  files[1].contains(QStringLiteral(" (2).png")),
              sameSecond)
        << files.join(u',').toStdString();
    EXPECT_TRUE(m_window->lastNotice().startsWith(QStringLiteral("Saved to ")));
    // The desktop's notification service (dunst here, started by the bus)
    // received "Saved to …" for the second file.
    run(QStringLiteral("dunstctl"), {"close-all"}); // shown ones move to the history
    const QByteArray history = run(QStringLiteral("dunstctl"), {"history"});
    EXPECT_TRUE(history.contains(QFileInfo(files[1]).fileName().toUtf8()))
        << history.left(2000).toStdString();
}

// "Open With" lists the desktop's applications for PNG, the default first,
// and opens the shot in the one chosen, without a portal.
TEST_F(Output, OpenWithStartsTheChosenApplicationOnTheShot)
{
    const QString opened = installViewer();
    const QByteArray data = qgetenv("XDG_DATA_HOME"), config = qgetenv("XDG_CONFIG_HOME");
    const auto restore = qScopeGuard([&] {
        qputenv("XDG_DATA_HOME", data);
        qputenv("XDG_CONFIG_HOME", config);
    });
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("data"))));
    qputenv("XDG_CONFIG_HOME", QFile::encodeName(m_dir.filePath(QStringLiteral("config"))));
    ShotEditorWindow& window = open(test::patternImage(320, 200), 1);
    addArrow(window);
    QPushButton* button = window.output().bar().shareButton();
    ASSERT_TRUE(button->isVisible());
    chooseFromMenu(button, QStringLiteral("Test Viewer (Default)"));
    const QDeadlineTimer launched(15000);
    while (!QFileInfo::exists(opened) && !launched.hasExpired()) {
        test::settle(100);
    }
    ASSERT_TRUE(QFileInfo::exists(opened)) << "the viewer never opened the shot";
    const QImage received(opened);
    const QImage expected = m_renderer.render(window.model().document(), 1);
    ASSERT_EQ(received.size(), expected.size());
    EXPECT_EQ(test::compareImages(received, expected, 0).maximum, 0);
    // No portal runs in this session: its chooser is not offered rather than broken.
    const QStringList items = chooseFromMenu(button, {});
    EXPECT_FALSE(items.contains(QStringLiteral("Other Application\u2026"))) << items.join(u'|').toStdString();
}

TEST_F(Output, ShareHandsTheShotToTheApplicationChosenInThePortal)
{
    const QString opened = installViewer();
    test::DesktopPortal portal(m_dir.filePath(QStringLiteral("data")),
                               m_dir.filePath(QStringLiteral("config")));
    ASSERT_TRUE(portal.isRunning()) << portal.log().toStdString();

    ShotEditorWindow& window = open(test::patternImage(320, 200), 1);
    addArrow(window);
    chooseFromMenu(window.output().bar().shareButton(), QStringLiteral("Other Application\u2026"));

    // The portal asks which application opens the shot, in a dialog of its
    // own; the default is chosen with Return.
    QString chooser;
    const QDeadlineTimer shown(15000);
    while (chooser.isEmpty() && !shown.hasExpired()) {
        chooser = QString::fromUtf8(run(QStringLiteral("xdotool"),
                                        {"search", "--onlyvisible", "--pid",
                                         QString::number(portal.dialogProcess())}))
                      .section(u'\n', 0, 0)
                      .trimmed();
        test::settle(100);
    }
    ASSERT_FALSE(chooser.isEmpty()) << "the portal showed no chooser\n"
                                    << portal.log().toStdString();
    // Real key presses go to the focused window: the chooser, once active.
    const QDeadlineTimer focused(10000);
    while (QString::fromUtf8(run(QStringLiteral("xdotool"), {"getactivewindow"})).trimmed() !=
               chooser &&
           !focused.hasExpired()) {
        xdotool({"windowactivate", chooser});
    }
    xdotool({"key", "Return"});

    const QDeadlineTimer launched(15000);
    while (!QFileInfo::exists(opened) && !launched.hasExpired()) {
        test::settle(100);
    }
    ASSERT_TRUE(QFileInfo::exists(opened)) << "the chosen application never opened the shot\n"
                                           << portal.log().toStdString();
    const QImage received(opened);
    ASSERT_FALSE(received.isNull());
    const QImage expected = m_renderer.render(window.model().document(), 1);
    EXPECT_EQ(received.size(), expected.size());
    EXPECT_EQ(test::compareImages(received, expected, 0).maximum, 0);
    EXPECT_TRUE(outputDone(window));
    EXPECT_TRUE(window.lastNotice().isEmpty() || !window.lastNotice().contains(u"Could"))
        << window.lastNotice().toStdString();
}

TEST_F(Output, SaveAsWritesTheChosenFormatUnderTheChosenName)
{
    m_preferences->setValue(closeAfterKey(ShotOutputAction::save), false);
    ShotEditorWindow& window = open();
    struct Case {
        const char* name;
        std::optional<ShotFormat> listed; // picked in the type list first, if any
        const char* typed;                // then typed as the name
        const char* written;              // the file that must hold the image
        ShotFormat format;                // what its bytes must be
    };
    const Case cases[] = {
        {"PNG from the list", ShotFormat::png, "chosen", "chosen.png", ShotFormat::png},
        {"JPEG from the list", ShotFormat::jpeg, "chosen", "chosen.jpg", ShotFormat::jpeg},
        {"HEIC from the list", ShotFormat::heic, "chosen", "chosen.heic", ShotFormat::heic},
        {"WebP from the list", ShotFormat::webp, "chosen", "chosen.webp", ShotFormat::webp},
        // The list says PNG and the name says JPEG: the name wins, and the
        // list follows as it is typed (PNG bytes under .jpg once happened).
        {"typed .jpg over PNG", ShotFormat::png, "typed.jpg", "typed.jpg", ShotFormat::jpeg},
        {"typed .webp", std::nullopt, "typed.webp", "typed.webp", ShotFormat::webp},
        // An extension that is none of ours gets the list's added.
        {"unknown extension", ShotFormat::webp, "notes.txt", "notes.txt.webp", ShotFormat::webp},
    };
    const auto magicOf = [](ShotFormat format) -> std::pair<QByteArray, int> {
        switch (format) {
        case ShotFormat::png:
            return {"\x89PNG", 0};
        case ShotFormat::jpeg:
            return {"\xff\xd8\xff", 0};
        case ShotFormat::heic:
            return {"ftyp", 4};
        case ShotFormat::webp:
            return {"WEBP", 8};
        }
        return {};
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        bool qualityShown = false, qualityExpected = false;
        // The dialog is answered as a user would: pick the format, type a name.
        const test::ModalAnswer answer([&](QDialog& dialog) {
            auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
            auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            auto* quality = dialog.findChild<QSlider*>(QStringLiteral("quality"));
            if (!types || !name || !quality) {
                ADD_FAILURE() << "the dialog lacks its type list, name field or quality";
                dialog.reject();
                return;
            }
            if (c.listed) {
                types->setCurrentIndex(int(*c.listed));
            }
            name->selectAll();
            name->del();
            for (const QChar ch : QString::fromUtf8(c.typed)) {
                name->insert(ch); // as typed: textEdited follows each key
                emit name->textEdited(name->text());
            }
            EXPECT_EQ(types->currentIndex(), int(c.format)) << "the list follows the name";
            qualityShown = quality->isVisibleTo(&dialog);
            qualityExpected = ShotSaveOptions::isLossy(c.format);
            if (c.format == ShotFormat::jpeg) {
                test::saveArtifact(dialog.grab().toImage(), QStringLiteral("save-as-dialog.png"));
                // Wide enough for the list's columns, and the options' fields
                // start where the file name's does.
                EXPECT_GE(dialog.width(), 900);
                EXPECT_EQ(quality->parentWidget()->mapTo(&dialog, QPoint()).x(),
                          name->mapTo(&dialog, QPoint()).x());
            }
            QMetaObject::invokeMethod(&dialog, "accept", Qt::QueuedConnection);
        });
        window.output().saveAs();
        ASSERT_TRUE(answer.answered()) << "no Save As dialog";
        ASSERT_TRUE(outputDone(window));
        EXPECT_EQ(qualityShown, qualityExpected) << "quality only for lossy formats";
        QFile file(m_dir.filePath(QStringLiteral("saved/") + QLatin1String(c.written)));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << c.written;
        const auto [magic, offset] = magicOf(c.format);
        EXPECT_EQ(file.read(16).mid(offset, magic.size()), magic);
    }
    // The next Save As opens where the last one wrote, not where quick
    // saves go.
    QDir().mkpath(m_dir.filePath(QStringLiteral("elsewhere")));
    m_preferences->setValue(keys::quickSaveFolder, m_dir.filePath(QStringLiteral("elsewhere")));
    QString opened;
    const test::ModalAnswer again([&](QDialog& dialog) {
        if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
            opened = files->directory().absolutePath();
        }
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
    });
    window.output().saveAs();
    ASSERT_TRUE(again.answered());
    EXPECT_EQ(opened, m_dir.filePath(QStringLiteral("saved")));
}

TEST_F(Output, DragsCopiesToAnotherProgramAndClosesOnceAccepted)
{
    const QString dropped = m_dir.filePath(QStringLiteral("dropped"));
    QDir().mkpath(dropped);
    QProcess target;
    target.start(QStringLiteral(NUBOSHOT_DROP_TARGET),
                 {dropped, QStringLiteral("--geometry"), QStringLiteral("280x200+1620+200")});
    const QDeadlineTimer ready(10000);
    while (!target.canReadLine() && !ready.hasExpired()) {
        target.waitForReadyRead(50);
    }
    ASSERT_EQ(target.readLine().trimmed(), QByteArray("ready"));
    settle(300);

    // Drags the handle onto the other program's window with real input.
    const auto dragOnce = [&](ShotEditorWindow& window) {
        const QPoint from = window.output().bar().dragHandle()->mapToGlobal(
            window.output().bar().dragHandle()->rect().center());
        run(QStringLiteral("xdotool"), {"mousemove",
                                        QString::number(from.x()),
                                        QString::number(from.y()),
                                        "mousedown",
                                        "1",
                                        "sleep",
                                        "0.1",
                                        "mousemove",
                                        QString::number(from.x() + 30),
                                        QString::number(from.y() - 30),
                                        "sleep",
                                        "0.3",
                                        "mousemove",
                                        "1720",
                                        "300",
                                        "sleep",
                                        "0.3",
                                        "mousemove",
                                        "1760",
                                        "300",
                                        "sleep",
                                        "0.3",
                                        "mouseup",
                                        "1",
                                        "sleep",
                                        "0.3"});
        settle(300);
    };
    QStringList received;
    const auto readReceived = [&] {
        while (target.canReadLine() || target.waitForReadyRead(500)) {
            received << QString::fromUtf8(target.readLine().trimmed());
        }
    };

    // Kept open by the setting: two drops, two copies, the source stays.
    m_preferences->setValue(closeAfterKey(ShotOutputAction::drag), false);
    ShotEditorWindow& window = open();
    dragOnce(window);
    dragOnce(window);
    readReceived();
    ASSERT_EQ(received.size(), 2) << received.join(u',').toStdString();
    EXPECT_TRUE(window.isVisible());
    EXPECT_TRUE(window.model().isOutputCurrent());
    for (const QString& line : received) {
        const QStringList paths = line.split(u'\t');
        ASSERT_EQ(paths.size(), 2);
        EXPECT_FALSE(QImage(paths[0]).isNull()) << line.toStdString();
        EXPECT_TRUE(paths[0].endsWith(QStringLiteral(".png")));
        // Copied, never moved: the file we offered is still there.
        EXPECT_TRUE(QFileInfo::exists(paths[1])) << line.toStdString();
    }

    // The default closes the editor once the drop was accepted.
    m_preferences->remove(closeAfterKey(ShotOutputAction::drag));
    ShotEditorWindow& second = open();
    dragOnce(second);
    readReceived();
    EXPECT_EQ(received.size(), 3);
    EXPECT_FALSE(second.isVisible());
    target.kill();
    target.waitForFinished();
}

TEST_F(Output, ClosingUnsavedChangesAsksFirst)
{
    struct Case {
        const char* name;
        bool edited;
        bool copiedAfter;
        const char* answer; // the button pressed, or nullptr when nothing should ask
        bool closes;
    };
    const Case cases[] = {
        {"untouched", false, false, nullptr, true},
        {"edited, Cancel", true, false, "Cancel", false},
        {"edited, Discard", true, false, "Discard", true},
        {"edited, Save", true, false, "Save", true},
        {"edited and copied", true, true, nullptr, true},
    };
    m_preferences->setValue(closeAfterKey(ShotOutputAction::copy), false);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ShotEditorWindow& window = open();
        if (c.edited) {
            addArrow(window);
        }
        if (c.copiedAfter) {
            window.output().copy({});
            ASSERT_TRUE(outputDone(window));
        }
        const qsizetype saved = QDir(m_dir.filePath(QStringLiteral("saved"))).entryList(QDir::Files).size();
        const test::ModalAnswer answer(c.answer ? QLatin1String(c.answer) : QString());
        window.close();
        settle(300);
        EXPECT_EQ(answer.asked(), c.answer != nullptr);
        EXPECT_EQ(answer.answered(), c.answer != nullptr);
        // Save closes once the file is written.
        ASSERT_TRUE(outputDone(window));
        settle(50);
        EXPECT_EQ(!window.isVisible(), c.closes);
        EXPECT_EQ(QDir(m_dir.filePath(QStringLiteral("saved"))).entryList(QDir::Files).size(),
                  saved + (QLatin1String(c.answer ? c.answer : "") == QLatin1String("Save")));
    }
}

TEST(ShotSaveOptions, ExtensionsFollowTheFormat)
{
    const struct {
        const char* name;
        ShotFormat format;
        const char* expected;
    } cases[] = {
        {"shot.png", ShotFormat::jpeg, "shot.jpg"},
        {"shot", ShotFormat::webp, "shot.webp"},
        {"/tmp/a.b/shot.jpeg", ShotFormat::heic, "/tmp/a.b/shot.heic"},
        {"notes.txt", ShotFormat::png, "notes.txt.png"},
        {"Nubo Shot 2026-01-02 at 03.04.05.heic", ShotFormat::png,
         "Nubo Shot 2026-01-02 at 03.04.05.png"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ShotSaveOptions::withExtension(QString::fromUtf8(c.name), c.format),
                  QString::fromUtf8(c.expected))
            << c.name;
    }
}

TEST_F(Output, RawCopyIsReplacedByTheEditedShotOnlyWhileItIsOnTheClipboard)
{
    ShotRawClipboardTracker& tracker = ShotRawClipboardTracker::shared();
    ShotClipboard& clipboard = ShotClipboard::shared();
    // The edited shot is drawn once `drawing` is released.
    QSemaphore drawing;
    const auto drawAfterRelease = [this, &drawing](const ShotDocument& shot, double scale) {
        drawing.acquire();
        return ShotClipboard::encodeItem(m_renderer, shot, scale);
    };
    QStringList failures;
    tracker.presentFailure = [&](const QString& text) { failures << text; };
    // The tracker outlives this test: leave it nothing that points in here,
    // and no drawing waiting for a release that a failure skipped.
    const auto restore = qScopeGuard([&] {
        drawing.release(100);
        QThreadPool::globalInstance()->waitForDone(10000);
        tracker.encodeClipboardItem = nullptr;
        tracker.presentFailure = nullptr;
        tracker.presentNotice = nullptr;
    });
    enum class Meanwhile { nothing, otherProgramCopied, annotationCopied, copiedWhileDrawing };
    for (const Meanwhile meanwhile : {Meanwhile::nothing, Meanwhile::otherProgramCopied,
                                      Meanwhile::annotationCopied, Meanwhile::copiedWhileDrawing}) {
        failures.clear();
        SCOPED_TRACE(int(meanwhile));
        const QImage raw = test::patternImage(320, 200);
        const ShotDocument shot = ShotDocument::fromImage(raw, 1);
        auto mime = std::make_unique<QMimeData>();
        mime->setData(QStringLiteral("image/png"), PngEncoder::encode(raw));
        clipboard.write(std::move(mime));
        tracker.recordRawCopy(shot, clipboard);

        m_window = std::make_unique<ShotEditorWindow>(shot, *m_preferences, m_renderer);
        ShotEditorWindow& window = *m_window;
        tracker.encodeClipboardItem = drawAfterRelease; // each editor sets its own
        tracker.adoptForEditor(&window);
        if (meanwhile == Meanwhile::otherProgramCopied) {
            run(QStringLiteral("xclip"), {"-selection", "clipboard", "-i"}, "someone else's text");
            settle(300);
        }
        // The first edit says so in the editor, once.
        addArrow(window);
        EXPECT_EQ(window.lastNotice() ==
                      QStringLiteral("Clipboard still holds the original screenshot"),
                  meanwhile != Meanwhile::otherProgramCopied);
        int later = 0;
        tracker.presentNotice = [&](const QString&) { ++later; };
        tracker.noticeIfStillRaw(&window);
        EXPECT_EQ(later, 0);
        if (meanwhile == Meanwhile::annotationCopied) {
            // Ctrl+C of the arrow, selected, in the editor itself.
            window.model().select({window.model().document().annotations.first().id});
            activate(window);
            xdotool({"key", "ctrl+c"});
            settle(300);
        }

        window.show();
        if (meanwhile == Meanwhile::copiedWhileDrawing) {
            // Closed while the raw shot was there, so nothing asked; another
            // program copies before the edited shot is drawn. Its copy stays
            // and the user is told that the edits did not go there.
            window.close();
            settle(100);
            EXPECT_FALSE(window.isVisible());
            run(QStringLiteral("xclip"), {"-selection", "clipboard", "-i"}, "copied meanwhile");
            settle(300);
            drawing.release();
            const QDeadlineTimer told(10000);
            while (failures.isEmpty() && !told.hasExpired()) {
                settle(20);
            }
            EXPECT_EQ(failures,
                      QStringList{QString::fromLatin1(
                          ShotRawClipboardTracker::replacedMeanwhileText)});
            EXPECT_EQ(run(QStringLiteral("xclip"), {"-selection", "clipboard", "-o"}),
                      QByteArray("copied meanwhile"));
        } else if (meanwhile == Meanwhile::nothing) {
            drawing.release();
            window.close();
            settle(300);
            const QImage pasted = QImage::fromData(
                run(QStringLiteral("xclip"), {"-selection", "clipboard", "-t", "image/png", "-o"}),
                "PNG");
            EXPECT_EQ(
                test::compareImages(pasted, m_renderer.render(window.model().document(), 1), 0)
                    .maximum,
                0);
            EXPECT_TRUE(window.model().isOutputCurrent());
            EXPECT_TRUE(failures.isEmpty());
        } else {
            // The raw shot is no longer on the clipboard: the edits would go
            // nowhere, so closing asks as for any unsaved shot.
            {
                test::ModalAnswer cancel(QStringLiteral("Cancel"));
                window.close();
                settle(100);
                EXPECT_TRUE(cancel.answered()) << "closing did not ask";
                EXPECT_EQ(cancel.title(), QStringLiteral("Discard this screenshot?"));
            }
            EXPECT_TRUE(window.isVisible());
            EXPECT_FALSE(tracker.holdsCapture(&window));
            if (meanwhile == Meanwhile::otherProgramCopied) {
                EXPECT_EQ(run(QStringLiteral("xclip"), {"-selection", "clipboard", "-o"}),
                          QByteArray("someone else's text"));
            }
            test::ModalAnswer discard(QStringLiteral("Discard"));
            window.close();
            settle(100);
            EXPECT_TRUE(discard.answered());
            EXPECT_FALSE(window.isVisible());
        }
        EXPECT_FALSE(tracker.holdsCapture(&window));
    }
}

// The upload button through all its states, pressed with real input
// against a local server speaking Filebin's protocol: done with the link on
// the clipboard, pressed again, a dropped answer that asks before a retry,
// a refusal, and a cancel while the server keeps quiet.
TEST_F(Output, TheUploadButtonSaysWhatHappenedAndCopiesTheLink)
{
    test::FilebinServer server;
    UploadStore(UploadStore::defaultPath())
        .saveSettings(S3Settings{}, FilebinSettings{server.address(), QStringLiteral("shots")});
    const auto forget = qScopeGuard([] {
        UploadStore(UploadStore::defaultPath()).saveSettings(S3Settings{}, FilebinSettings{});
    });
    m_preferences->setValue(keys::uploadDestination, QStringLiteral("auto"));

    ShotEditorWindow& window = open();
    ShotBottomBar& bar = window.output().bar();
    ShotUploadStatus& status = window.output().uploadStatus();
    QList<ShotUploadState> seen;
    QObject::connect(&status, &ShotUploadStatus::changed, &window,
            [&seen](const ShotUploadState& state) { seen.append(state); });
    const auto title = [&] { return bar.uploadButton()->text(); };
    const auto settledIn = [&](auto predicate, int ms = 15000) {
        const QDeadlineTimer deadline(ms);
        while (!predicate() && !deadline.hasExpired()) {
            settle(20);
        }
        return predicate();
    };
    const auto finished = [&] { return settledIn([&] { return !status.isRunning(); }); };

    // Nothing but Filebin is set up: "auto" goes there, and the first
    // upload there says, once, that its links are public.
    EXPECT_EQ(title(), QStringLiteral("Upload to Filebin"));
    EXPECT_FALSE(bar.cancelUploadButton()->isVisible());
    click(bar.uploadButton());
    const QString publicNotice = QStringLiteral("Filebin is public: anyone with the link can see this shot.");
    EXPECT_TRUE(settledIn([&] { return window.lastNotice() == publicNotice; }, 5000)) << window.lastNotice().toStdString();
    ASSERT_TRUE(finished());
    EXPECT_EQ(title(), QStringLiteral("Upload complete \u00b7 Link copied"));
    EXPECT_TRUE(std::any_of(seen.begin(), seen.end(),
                            [](const auto& s) { return s.template is<ShotUploadState::Uploading>(); }));
    ASSERT_EQ(server.received().size(), 1);
    const auto sent = server.received().first();
    EXPECT_TRUE(sent.path.startsWith("/shots/")) << sent.path.constData();
    EXPECT_TRUE(sent.path.endsWith(".png")) << sent.path.constData();
    EXPECT_EQ(test::compareImages(QImage::fromData(sent.body, "PNG"),
                                  m_renderer.render(window.model().document(), 1), 0)
                  .maximum,
              0);
    const QString link = server.address() + QString::fromUtf8(sent.path);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), link);
    test::saveArtifact(bar.grab().toImage(), QStringLiteral("editor-upload-done.png"));
    EXPECT_TRUE(bar.uploadButton()->toolTip().startsWith(link));

    // Pressed again, the same shot is not sent twice: the link is copied again.
    QGuiApplication::clipboard()->setText(QStringLiteral("something else"));
    click(bar.uploadButton());
    EXPECT_TRUE(settledIn([&] { return QGuiApplication::clipboard()->text() == link; }, 3000));
    EXPECT_EQ(server.received().size(), 1);

    // A changed shot is a new upload; the answer is lost after the body.
    addArrow(window);
    settle();
    EXPECT_EQ(title(), QStringLiteral("Upload to Filebin"));
    server.setMode(test::FilebinServer::Mode::dropAfterBody);
    click(bar.uploadButton());
    ASSERT_TRUE(finished());
    EXPECT_EQ(title(), QStringLiteral("Upload uncertain \u00b7 Retry"));
    EXPECT_EQ(server.received().size(), 2);
    {
        // Retrying asks first; "Cancel" sends nothing.
        const auto answer = pressInDialog(QStringLiteral("Cancel"));
        click(bar.uploadButton());
        settle(800);
        EXPECT_TRUE(answer->answered());
        EXPECT_EQ(answer->text(),
                  QStringLiteral("Upload outcome unknown. Retry may create a duplicate upload."));
    }
    EXPECT_EQ(server.received().size(), 2);
    EXPECT_EQ(title(), QStringLiteral("Upload uncertain \u00b7 Retry"));
    server.setMode(test::FilebinServer::Mode::created);
    {
        const auto answer = pressInDialog(QStringLiteral("Retry upload"));
        click(bar.uploadButton());
        settle(800);
        EXPECT_TRUE(answer->answered());
    }
    ASSERT_TRUE(finished());
    EXPECT_EQ(title(), QStringLiteral("Upload complete \u00b7 Link copied"));
    EXPECT_EQ(server.received().size(), 3);

    // Refused: the server's own words in the help, and a press retries.
    addArrow(window);
    settle();
    server.setMode(test::FilebinServer::Mode::refused);
    click(bar.uploadButton());
    ASSERT_TRUE(finished());
    EXPECT_EQ(title(), QStringLiteral("Upload failed \u00b7 Retry"));
    EXPECT_TRUE(bar.uploadButton()->toolTip().contains(
        QLatin1String(test::FilebinServer::refusal)))
        << bar.uploadButton()->toolTip().toStdString();

    // A server that keeps quiet: "Cancel upload" ends it, back to the start.
    server.setMode(test::FilebinServer::Mode::silent);
    click(bar.uploadButton());
    ASSERT_TRUE(settledIn([&] { return bar.cancelUploadButton()->isVisible(); }));
    EXPECT_TRUE(title().startsWith(QStringLiteral("Uploading\u2026"))) << title().toStdString();
    EXPECT_FALSE(bar.uploadButton()->isEnabled());
    ASSERT_TRUE(settledIn([&] { return server.received().size() == 5; }));
    test::saveArtifact(bar.grab().toImage(), QStringLiteral("editor-uploading.png"));
    click(bar.cancelUploadButton());
    ASSERT_TRUE(finished());
    EXPECT_EQ(title(), QStringLiteral("Upload to Filebin"));
    EXPECT_FALSE(bar.cancelUploadButton()->isVisible());
    const auto uses = UploadStore(UploadStore::defaultPath()).fileUses();
    ASSERT_GE(uses.size(), 2);
    EXPECT_EQ(uses.first().link, QGuiApplication::clipboard()->text());
}

// The upload history lists what the shared store holds, copies a link and
// takes a Filebin upload down with the service's own DELETE; a refused
// delete says why and keeps the row as it was.
TEST_F(Output, RecentUploadsCopyLinksAndDeleteFromFilebin)
{
    test::FilebinServer server;
    const QString store = m_dir.filePath(QStringLiteral("shared.sqlite"));
    const auto upload = [&](const QString& name) {
        UploadRequest request;
        request.fileName = name;
        request.bytes = QByteArray(1000, 'x');
        request.settings.destination = ShotUploadDestination::filebin;
        request.settings.filebin.server = server.address();
        return std::async(std::launch::async, [request, store] {
                   return Uploader(request, store).run();
               }).get();
    };
    const UploadReceipt first = upload(QStringLiteral("first shot.png"));
    const UploadReceipt second = upload(QStringLiteral("second shot.png"));
    {
        // A bucket's object: listed, but deleted with the bucket's own tools.
        UploadStore s(store);
        const QString id = s.beginUpload(ShotUploadDestination::r2, QStringLiteral("bucket.png"),
                                         QStringLiteral("00"), 10);
        s.recordFileUse({id, QStringLiteral("00"), QStringLiteral("bucket.png"), 10,
                         ShotUploadDestination::r2, QStringLiteral("shots"),
                         QStringLiteral("2026/bucket.png"), QString(),
                         QDateTime::currentDateTimeUtc().addSecs(5), std::nullopt, std::nullopt});
    }

    ShotUploadHistory history(store);
    history.present();
    activate(history);
    settle(200);
    QTreeWidget* list = history.list();
    ASSERT_EQ(list->topLevelItemCount(), 3);
    EXPECT_EQ(list->topLevelItem(0)->text(4), QStringLiteral("2026/bucket.png"));
    EXPECT_EQ(list->topLevelItem(1)->text(0), QStringLiteral("second shot.png"));
    EXPECT_EQ(list->topLevelItem(1)->text(4), second.link);
    EXPECT_EQ(list->topLevelItem(2)->text(4), first.link);
    test::saveArtifact(history.grab().toImage(), QStringLiteral("upload-history-opened.png"));
    auto* remove = history.findChild<QPushButton*>(QStringLiteral("deleteUpload"));
    auto* copy = history.findChild<QPushButton*>(QStringLiteral("copyUploadLink"));
    ASSERT_TRUE(remove && copy);
    const auto pick = [&](int row) {
        QTreeWidgetItem* item = list->topLevelItem(row);
        const QRect r = list->visualItemRect(item);
        const QPoint at = list->viewport()->mapToGlobal(r.center());
        run(QStringLiteral("xdotool"),
            {"mousemove", QString::number(at.x()), QString::number(at.y()), "click", "1"});
        settle(150);
    };
    pick(0);
    EXPECT_FALSE(remove->isEnabled()) << "a bucket's object";
    pick(2);
    EXPECT_TRUE(remove->isEnabled());
    click(copy);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), first.link);

    const auto deleteWith = [&](const QString& button) {
        QString failure = QStringLiteral("(none)");
        const QMetaObject::Connection heard =
            QObject::connect(&history, &ShotUploadHistory::deleteFinished, &history,
                             [&failure](const QString& f) { failure = f; });
        const auto unhear = qScopeGuard([heard] { QObject::disconnect(heard); });
        const auto answer = pressInDialog(button);
        click(remove);
        const QDeadlineTimer deadline(10000);
        while (failure == QStringLiteral("(none)") && !deadline.hasExpired() &&
               (button != QStringLiteral("Cancel") || !answer->answered())) {
            settle(20);
        }
        settle(100);
        EXPECT_TRUE(answer->answered());
        return failure;
    };
    // Asked first: "Cancel" sends nothing.
    EXPECT_EQ(deleteWith(QStringLiteral("Cancel")), QStringLiteral("(none)"));
    EXPECT_EQ(server.received().size(), 2);

    server.setMode(test::FilebinServer::Mode::refused);
    const QString refused = deleteWith(QStringLiteral("Delete"));
    EXPECT_TRUE(refused.contains(QLatin1String(test::FilebinServer::refusal))) << refused.toStdString();
    EXPECT_EQ(list->topLevelItem(2)->text(3), list->topLevelItem(1)->text(3)) << "still kept";

    server.setMode(test::FilebinServer::Mode::created);
    pick(2);
    EXPECT_EQ(deleteWith(QStringLiteral("Delete")), QString());
    const auto received = server.received();
    ASSERT_EQ(received.size(), 4);
    EXPECT_EQ(received.last().method, QByteArray("DELETE"));
    EXPECT_EQ(QString::fromUtf8(received.last().path),
              QStringLiteral("/%1/first%20shot.png").arg(first.location));
    EXPECT_EQ(list->topLevelItem(2)->text(3), QStringLiteral("Deleted"));
    pick(2);
    EXPECT_FALSE(remove->isEnabled());
    ASSERT_TRUE(UploadStore(store).fileUses().last().deletedAt.has_value());
    test::saveArtifact(history.grab().toImage(), QStringLiteral("upload-history.png"));
}

} // namespace
} // namespace nubo
