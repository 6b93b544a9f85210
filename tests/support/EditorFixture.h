#pragma once

#include "core/Settings.h"
#include "editor/ShotEditorWindow.h"
#include "output/ShotOutputActions.h"
#include "render/ShotRenderer.h"
#include "support/LiveProcess.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <memory>

namespace nubo::test {

// An editor window on screen in the private desktop session, with its own
// preferences file, made active with real window-manager requests.
class EditorFixture : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (qEnvironmentVariableIsEmpty("DISPLAY")) {
            GTEST_FAIL() << "needs the private desktop session of scripts/test (DISPLAY and a session bus)";
        }
        ASSERT_TRUE(m_dir.isValid());
        m_preferences =
            std::make_unique<ShotPreferences>(m_dir.filePath(QStringLiteral("prefs.ini")));
        // The card of keys is for a person's first editor; its own test clears this.
        m_preferences->setValue(keys::editorKeyHelpSeen, true);
    }

    ShotEditorWindow& openEditor(const QImage& image, double scale)
    {
        m_window = std::make_unique<ShotEditorWindow>(ShotDocument::fromImage(image, scale),
                                                      *m_preferences, m_renderer);
        m_window->resize(900, 620);
        activate(*m_window);
        return *m_window;
    }

    // Shows a window and makes it the active one with real window-manager
    // requests, asked until they are done (a --sync activation could wait
    // forever when another window takes the focus meanwhile).
    static void activate(QWidget& window)
    {
        window.show();
        window.activateWindow();
        const QDeadlineTimer deadline(15000);
        while (!window.isActiveWindow() && !deadline.hasExpired()) {
            xdotool({"windowactivate", QString::number(window.winId())});
            const QDeadlineTimer attempt(1000);
            while (!window.isActiveWindow() && !attempt.hasExpired()) {
                QApplication::processEvents();
                QThread::msleep(10);
            }
        }
        EXPECT_TRUE(window.isActiveWindow()) << "the window never got the keyboard";
    }

    // Handles events until the editor's outputs are done; false when they
    // are still under way after ten seconds.
    static bool outputDone(ShotEditorWindow& window)
    {
        const QDeadlineTimer deadline(10000);
        while (window.output().isBusy() && !deadline.hasExpired()) {
            QApplication::processEvents();
            QThread::msleep(5);
        }
        QApplication::processEvents();
        return !window.output().isBusy();
    }

    QTemporaryDir m_dir;
    std::unique_ptr<ShotPreferences> m_preferences;
    ShotRenderer m_renderer;
    std::unique_ptr<ShotEditorWindow> m_window;
};

} // namespace nubo::test
