#pragma once

#include "editor/ShotEditorModel.h"

#include <QToolBar>

class QCheckBox;
class QComboBox;
class QSpinBox;

namespace nubo {

// Colour, line width, arrow size, font size, text outline and redaction
// strength of the active tool or of the selection.
class ShotStyleBar : public QToolBar {
    Q_OBJECT
public:
    explicit ShotStyleBar(ShotEditorModel& model, QWidget* parent = nullptr);

    // The colours offered with one click.
    static QList<QColor> palette();

private:
    void showStyle();
    void change(const std::function<void(ShotStyle&)>& edit);

    ShotEditorModel& m_model;
    QSpinBox* m_lineWidth = nullptr;
    QComboBox* m_arrowSize = nullptr;
    QSpinBox* m_fontSize = nullptr;
    QCheckBox* m_outline = nullptr;
    QSpinBox* m_strength = nullptr;
    QComboBox* m_emoji = nullptr;
    QAction* m_emojiAction = nullptr; // a toolbar shows and hides widgets through their actions
    bool m_showing = false;
};

} // namespace nubo
