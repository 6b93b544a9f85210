#pragma once

#include <QWidget>

class QButtonGroup;
class QLabel;
class QLineEdit;
class QListWidget;

namespace nubo {

class EmojiCatalog;
class ShotPreferences;

// The emoji picker of the emoji tool: a search by name, the groups of
// Unicode's emoji list and the recently used ones, skin tones, each emoji
// drawn large in the colour emoji font. Opened as a pop-up under its button.
class ShotEmojiPicker : public QWidget {
    Q_OBJECT
public:
    static constexpr int recentCount = 24;
    // The group id of Recently Used.
    static constexpr int recentGroup = 1000;

    ShotEmojiPicker(const EmojiCatalog& catalog, ShotPreferences& preferences,
                    QWidget* parent = nullptr);

    // The colour emoji font for widgets, `pixels` tall.
    static QFont screenFont(int pixels);

    // Shows the picker under `anchor`, on its screen, with the search field
    // taking the keys.
    void popUp(QWidget* anchor);
    // The emoji shown now, in their order (for what a search or group shows).
    QStringList shown() const;
    QLineEdit* searchField() const { return m_search; }
    QListWidget* grid() const { return m_grid; }
    // Selects a group of the catalog, or recentGroup.
    void showGroup(int group);
    void setTone(int tone);

signals:
    void picked(const QString& emoji);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void fill(const QList<qsizetype>& entries, const QStringList& recent = {});
    void refresh();
    void choose(const QString& emoji);
    QStringList recent() const;

    const EmojiCatalog& m_catalog;
    ShotPreferences& m_preferences;
    QLineEdit* m_search;
    QListWidget* m_grid;
    QButtonGroup* m_groups;
    QButtonGroup* m_tones;
    QLabel* m_name;
    int m_group = 0;
};

} // namespace nubo
