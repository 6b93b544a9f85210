// The windows in German and in Chinese: the catalogues built into the
// program are used, counts take the language's plural forms, and every
// button, check box and label still shows all of its words (run again at
// twice the scale by app.EditorLook.AtTwiceTheScale). Screenshots of each
// window land in the test artifacts.

#include "capture/CapturePlatformLoader.h"
#include "output/ShotUploadHistory.h"
#include "recording/ShotRecordingWindows.h"
#include "review/ShotReviewWindow.h"
#include "scrolling/ShotScrollingPanel.h"
#include "settings/ShotSettingsWindow.h"
#include "shell/Translations.h"
#include "support/CounterMovie.h"
#include "support/EditorFixture.h"
#include "support/RenderFixtures.h"

#include <QAbstractButton>
#include <QCoreApplication>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>

#include <gtest/gtest.h>

namespace nubo {
namespace {

using test::settle;

struct Language {
    const char* locale;
    const char* generalPage;   // the settings page "General"
    const char* oneShortcut;   // "%n shortcut(s) do not work" for 1
    const char* twoShortcuts;  // … and for 2
};

const Language languages[] = {
    {"de", "Allgemein", "Ein Tastenkürzel funktioniert nicht", "2 Tastenkürzel funktionieren nicht"},
    {"zh_CN", "常规", "1 个快捷键无法使用", "2 个快捷键无法使用"},
    {"en", "General", "A shortcut does not work", "2 shortcuts do not work"},
};

// What the user would not see of a widget's words: squeezed below the width
// its text needs, or lying past its window's edge.
QStringList cutOff(QWidget& window)
{
    QStringList problems;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->width() == 0) {
            continue;
        }
        QString text;
        bool needsWidth = false;
        if (auto* button = qobject_cast<QAbstractButton*>(widget)) {
            text = button->text();
            needsWidth = !text.isEmpty();
        } else if (auto* label = qobject_cast<QLabel*>(widget)) {
            text = label->text();
            needsWidth = !text.isEmpty() && !label->wordWrap() && label->pixmap().isNull();
        }
        if (!needsWidth) {
            continue;
        }
        if (widget->width() < widget->minimumSizeHint().width()) {
            problems << QStringLiteral("“%1” is %2 wide and needs %3")
                            .arg(text)
                            .arg(widget->width())
                            .arg(widget->minimumSizeHint().width());
        }
        // Inside a scrolled page it may lie out of view by scrolling.
        bool scrolled = false;
        for (QWidget* up = widget->parentWidget(); up && up != &window; up = up->parentWidget()) {
            scrolled = scrolled || qobject_cast<QScrollArea*>(up);
        }
        const QRect inWindow(widget->mapTo(&window, QPoint()), widget->size());
        if (!scrolled && !window.rect().contains(inWindow)) {
            problems << QStringLiteral("“%1” lies past the window's edge").arg(text);
        }
    }
    return problems;
}

class Translated : public test::EditorFixture, public ::testing::WithParamInterface<Language> {
protected:
    void SetUp() override
    {
        test::EditorFixture::SetUp();
        QLocale::setDefault(QLocale(QString::fromLatin1(GetParam().locale)));
        installTranslations();
    }
    void TearDown() override
    {
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
        installTranslations();
    }
    QString suffix() const
    {
        return QStringLiteral("-%1%2")
            .arg(QString::fromLatin1(GetParam().locale),
                 qgetenv("QT_SCALE_FACTOR") == "2" ? QStringLiteral("@2x") : QString());
    }
    void look(QWidget& window, const QString& name)
    {
        settle(150);
        test::saveArtifact(window.grab().toImage(), name + suffix() + QStringLiteral(".png"));
        const QStringList problems = cutOff(window);
        EXPECT_TRUE(problems.isEmpty()) << name.toStdString() << ":\n"
                                        << problems.join(u'\n').toStdString();
    }
};

TEST_P(Translated, CountsTakeTheLanguagesPluralForms)
{
    const char* context = "nubo::TrayApplication";
    const char* text = "%n shortcut(s) do not work";
    EXPECT_EQ(QCoreApplication::translate(context, text, nullptr, 1),
              QString::fromUtf8(GetParam().oneShortcut));
    EXPECT_EQ(QCoreApplication::translate(context, text, nullptr, 2),
              QString::fromUtf8(GetParam().twoShortcuts));
}

TEST_P(Translated, EveryWindowShowsAllItsWords)
{
    // The settings window, page by page.
    std::unique_ptr<CapturePlatform> platform = CapturePlatformLoader::load();
    ShotSettingsWindow settings(ShotSettingsContext{
        *m_preferences, *platform, nullptr, QStringLiteral("/usr/bin/nuboshot"), {},
        [] { return RecordingCapabilities{true, true, false}; }});
    activate(settings);
    auto* sidebar = settings.findChild<QListWidget*>(QStringLiteral("settingsSidebar"));
    ASSERT_NE(sidebar, nullptr);
    EXPECT_EQ(sidebar->item(0)->text(), QString::fromUtf8(GetParam().generalPage));
    for (int i = 0; i < sidebar->count(); ++i) {
        sidebar->setCurrentRow(i);
        look(settings, QStringLiteral("settings-") +
                           sidebar->item(i)->data(Qt::UserRole).toString().toLower());
    }
    settings.close();

    // The editor, its tools and its bottom bar.
    QImage shot(800, 500, QImage::Format_RGB32);
    shot.fill(QColor(0x33, 0x66, 0x99));
    ShotEditorWindow& editor = openEditor(shot, 1);
    look(editor, QStringLiteral("editor"));
    editor.close();

    // A recording's review window.
    const QString movie = m_dir.filePath(QStringLiteral("movie.mp4"));
    ASSERT_EQ(test::writeCounterMovie(movie, {3, QSize(640, 360), 30, false}), QString());
    ShotReviewWindow review(movie, *m_preferences);
    activate(review);
    look(review, QStringLiteral("review"));
    review.close();

    // The recording bars, the scrolling panel and the uploads list.
    ShotRecordingOptionsBar options(*m_preferences, {true, true, false}, QStringLiteral("600 × 400"));
    options.setAttribute(Qt::WA_DeleteOnClose, false);
    options.move(0, 200);
    options.show();
    look(options, QStringLiteral("recording-options"));
    options.close();
    ShotRecordingControlBar control(true);
    control.setAttribute(Qt::WA_DeleteOnClose, false);
    control.show();
    look(control, QStringLiteral("recording-control"));
    control.close();
    ShotScrollingPanel panel({});
    panel.setHeight(12345);
    panel.move(200, 200);
    panel.show();
    look(panel, QStringLiteral("scrolling-panel"));
    panel.close();
    ShotUploadHistory history(m_dir.filePath(QStringLiteral("uploads.sqlite")));
    history.present();
    look(history, QStringLiteral("upload-history"));
}

INSTANTIATE_TEST_SUITE_P(Languages, Translated, ::testing::ValuesIn(languages),
                         [](const ::testing::TestParamInfo<Language>& info) {
                             return std::string(info.param.locale);
                         });

} // namespace
} // namespace nubo
