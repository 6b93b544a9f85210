#pragma once

#include "recording/RecordingTypes.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QCheckBox;
class QFormLayout;
class QLabel;
class QVBoxLayout;

namespace nubo {

class CapturePlatform;
class ShotGlobalShortcuts;
class ShotPreferences;

// What the pages of the settings window work on. Every change is written
// to `preferences` at once; the running program reads the same object, so
// nothing waits for a restart.
struct ShotSettingsContext {
    ShotPreferences& preferences;
    // The desktop's capture backend: its grants.
    CapturePlatform& platform;
    // The tray's capture shortcuts, bound again after a change; null when
    // the window runs without them.
    ShotGlobalShortcuts* shortcuts = nullptr;
    // What a start at login runs.
    QString program;
    // A stored value changed here (its key; empty when many were replaced).
    std::function<void(const QString& key)> changed;
    // What this computer can record (asked when the Recording page opens);
    // nothing can be recorded when not given.
    std::function<RecordingCapabilities()> recordingCapabilities;
};

// One page of the settings window. A page is one file defining its maker,
// and one line in the list of ShotSettingsPages.cpp.
class ShotSettingsPage : public QWidget {
    Q_OBJECT
public:
    // `title` in English, marked with QT_TRANSLATE_NOOP in this class's
    // context; the page shows it translated.
    ShotSettingsPage(const ShotSettingsContext& context, const char* title, QString icon,
                     QWidget* parent);

    const QString& title() const { return m_title; }
    // The English title, the same in every language (ShotSettingsWindow::showPage).
    const QString& key() const { return m_key; }
    const QString& iconName() const { return m_icon; }
    // Shows the stored values again (after a restore, for one).
    virtual void reload() = 0;

signals:
    // This page replaced stored values other pages show.
    void storedValuesReplaced();

protected:
    // A titled group of rows, added below the ones before.
    QFormLayout* addSection(const QString& title);
    // A line of grey help under the last row of a section.
    QLabel* addNote(QFormLayout* section, const QString& text);
    // A check box for a Boolean preference: written when toggled, shown by
    // reloadSwitches() (a value of the wrong type shows `fallback`).
    QCheckBox* addSwitch(QFormLayout* section, const QString& label, const QString& key,
                         bool fallback);
    void reloadSwitches();
    ShotPreferences& preferences() const { return m_context.preferences; }

    const ShotSettingsContext& m_context;

private:
    struct Switch {
        QCheckBox* box;
        QString key;
        bool fallback;
    };
    QString m_key;
    QString m_title;
    QString m_icon;
    std::vector<Switch> m_switches;
    QVBoxLayout* m_layout;
};

using ShotSettingsPageMaker = ShotSettingsPage* (*)(const ShotSettingsContext&, QWidget*);
// Every page, in the order of the sidebar.
const QList<ShotSettingsPageMaker>& settingsPages();

} // namespace nubo
