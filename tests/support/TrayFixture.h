#pragma once

#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>

#include <functional>
#include <gtest/gtest.h>

namespace nubo::test {

// Polls a condition until it holds or the time is up; false then.
bool waitUntil(const std::function<bool()>& condition, int timeoutMs = 10000);
// Runs a helper program (xdotool, xwininfo) and returns what it printed.
QString run(const QString& program, const QStringList& arguments);
// Whether a visible window has this name.
bool windowShown(const QString& name);

// Starts `nuboshot record ARGUMENTS -o FOLDER` in `recorder` and waits until
// it writes (its stderr collected into `log`); false when it ended instead.
bool startRecordCommand(QProcess& recorder, const QStringList& arguments, const QString& folder,
                        QString& log);
// Waits for the command's end; the movie's path it printed.
QString finishRecordCommand(QProcess& recorder, QString& log, int timeoutMs = 60000);
// Records in the preferences that the tray has told these shortcut
// problems already, as it would have on an earlier start: its notification
// stays off the screen the test captures.
void markShortcutProblemsTold(const QString& problems);
// The problems of the test desktop, in the order the tray finds them:
// openbox binds Print and Alt+Print to a screenshot command of its own.
inline const char* const openboxShortcutProblems =
    "The shortcut Alt+Print is used by another program.\n"
    "The shortcut Print is used by another program.";

// A window's rectangle on screen (xwininfo), by its id.
QRect windowGeometry(const QString& id);
// The rectangle of the largest visible window whose name matches `name` (a
// regular expression); empty when none shows.
QRect shownWindowGeometry(const QString& name);
// The on-screen rectangle of the tray icon's window; empty when none shows.
QRect trayIconGeometry();

// The tray application, started by the test in the private desktop session
// and stopped after it.
class Tray : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
    // Starts the tray application and waits until it owns its bus name.
    // Checked with ASSERT_NO_FATAL_FAILURE at the call.
    void startTray();
    static bool isRunning();
    // Whether the tray's menu is on screen.
    bool trayMenuShown();
    // Clicks the tray icon and waits for its menu; false when none came.
    bool openTrayMenu();
    // Waits until the application's log has a line containing `text`.
    bool waitForLog(const QString& text, int timeoutMs = 10000);

    QProcess m_app;
    QString m_log; // what the application wrote to stderr so far
};

} // namespace nubo::test
