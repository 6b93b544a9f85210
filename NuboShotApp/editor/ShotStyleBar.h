#pragma once

#include "editor/ShotEditorModel.h"

#include <QToolBar>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;
class QToolButton;

namespace nubo {

class ShotEmojiPicker;
class ShotPreferences;

// The style of the active tool, or of the selection: only the controls that
// tool uses (colour, line width, arrow size, font size and outline, redaction
// strength, emoji). The colour in use is the checked swatch; colours chosen
// beyond the palette are remembered after it.
class ShotStyleBar : public QToolBar {
    Q_OBJECT
public:
    ShotStyleBar(ShotEditorModel& model, ShotPreferences& preferences, QWidget* parent = nullptr);

    // The colours offered with one click.
    static QList<QColor> palette();
    static constexpr int maximumCustomColors = 5;
    // The remembered colours, newest first.
    QList<QColor> customColors() const;
    // The swatch of the colour in use, if one shows it.
    QToolButton* checkedSwatch() const;
    // Which controls show now (ShotStyleControl bits).
    unsigned visibleControls() const { return m_visible; }
    // The emoji tool's picker, once it has been opened.
    ShotEmojiPicker* emojiPicker() const { return m_emojiPicker; }
    // What the Select text tool offers (Copy Text, Hide Sensitive Text),
    // shown with its hint while it is active.
    void addTextActions(const QList<QAction*>& actions);

private:
    void showStyle();
    void change(const std::function<void(ShotStyle&)>& edit);
    void chooseCustomColor();
    void rememberColor(const QColor& color);
    void rebuildSwatches();
    QToolButton* addSwatch(const QColor& color);

    ShotEditorModel& m_model;
    ShotPreferences& m_preferences;
    QWidget* m_swatches = nullptr;
    QButtonGroup* m_swatchGroup = nullptr;
    QToolButton* m_custom = nullptr;
    QSpinBox* m_lineWidth = nullptr;
    QComboBox* m_arrowSize = nullptr;
    QSpinBox* m_fontSize = nullptr;
    QCheckBox* m_outline = nullptr;
    QSpinBox* m_strength = nullptr;
    QToolButton* m_emoji = nullptr;
    ShotEmojiPicker* m_emojiPicker = nullptr;
    QLabel* m_hint = nullptr;
    // A toolbar shows and hides widgets through their actions.
    QHash<unsigned, QList<QAction*>> m_controlActions;
    QAction* m_colorSeparator = nullptr;
    unsigned m_visible = 0;
    bool m_showing = false;
};

} // namespace nubo
