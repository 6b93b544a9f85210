#include "editor/ShotCropBar.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLabel>

namespace nubo {

QString ShotCropBar::aspectTitle(CropAspect aspect)
{
    switch (aspect) {
    case CropAspect::free:
        return tr("Free");
    case CropAspect::square:
        return tr("Square");
    case CropAspect::fourThree:
        return QStringLiteral("4:3");
    case CropAspect::sixteenNine:
        return QStringLiteral("16:9");
    }
    return {};
}

ShotCropBar::ShotCropBar(ShotEditorModel& model, QWidget* parent)
    : QToolBar(tr("Crop"), parent), m_model(model)
{
    setMovable(false);
    m_aspect = new QComboBox(this);
    for (const CropAspect aspect : allCases<CropAspect>()) {
        m_aspect->addItem(aspectTitle(aspect), int(aspect));
    }
    addWidget(m_aspect);
    connect(m_aspect, &QComboBox::activated, this, [this](int index) {
        m_model.setCropAspect(CropAspect(m_aspect->itemData(index).toInt()));
    });

    const auto field = [this](const QString& label) {
        addWidget(new QLabel(label, this));
        auto* box = new QDoubleSpinBox(this);
        box->setDecimals(0);
        box->setRange(1, 1e6);
        box->setSuffix(tr(" px"));
        box->setKeyboardTracking(false);
        addWidget(box);
        return box;
    };
    m_width = field(tr("Width"));
    m_height = field(tr("Height"));
    // The fields are in pixels; the session measures in points.
    const auto sizeTyped = [this] {
        if (m_showing) {
            return;
        }
        const double scale = m_model.exportScale();
        m_model.setCropSize(m_width->value() / scale, m_height->value() / scale);
    };
    connect(m_width, &QDoubleSpinBox::valueChanged, this, sizeTyped);
    connect(m_height, &QDoubleSpinBox::valueChanged, this, sizeTyped);
    addSeparator();
    connect(addAction(tr("Done")), &QAction::triggered, this, [this] { m_model.commitCrop(); });
    connect(addAction(tr("Cancel")), &QAction::triggered, this, [this] {
        m_model.abandonCrop();
        m_model.setActiveTool(ShotToolKind::select);
    });

    connect(&m_model, &ShotEditorModel::changed, this, &ShotCropBar::showSession);
    showSession();
}

void ShotCropBar::showSession()
{
    const auto& session = m_model.cropSession();
    setVisible(session.has_value());
    if (!session) {
        return;
    }
    m_showing = true;
    m_aspect->setCurrentIndex(int(session->aspect));
    if (const auto pixels = m_model.cropSizeInPixels()) {
        m_width->setValue(std::round(pixels->width()));
        m_height->setValue(std::round(pixels->height()));
    }
    m_showing = false;
}

} // namespace nubo
