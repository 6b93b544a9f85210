#pragma once

#include "editor/ShotEditorModel.h"

#include <QToolBar>

class QComboBox;
class QDoubleSpinBox;

namespace nubo {

// Shown while cropping: the aspect, the size in pixels, Done and Cancel.
class ShotCropBar : public QToolBar {
    Q_OBJECT
public:
    explicit ShotCropBar(ShotEditorModel& model, QWidget* parent = nullptr);

    static QString aspectTitle(CropAspect aspect);

private:
    void showSession();

    ShotEditorModel& m_model;
    QComboBox* m_aspect = nullptr;
    QDoubleSpinBox* m_width = nullptr;
    QDoubleSpinBox* m_height = nullptr;
    bool m_showing = false;
};

} // namespace nubo
