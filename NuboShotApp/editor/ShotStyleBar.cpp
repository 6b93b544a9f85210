#include "editor/ShotStyleBar.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QSpinBox>
#include <QToolButton>

namespace nubo {

QList<QColor> ShotStyleBar::palette()
{
    return {QColor(245, 66, 54), QColor(255, 159, 10), QColor(255, 214, 10),
            QColor(52, 199, 89), QColor(10, 132, 255), QColor(191, 90, 242),
            QColor(0, 0, 0),     QColor(255, 255, 255)};
}

namespace {
QIcon swatch(const QColor& color)
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(0, 0, 0, 90));
    painter.setBrush(color);
    painter.drawEllipse(QRectF(1, 1, 14, 14));
    return QIcon(pixmap);
}
} // namespace

ShotStyleBar::ShotStyleBar(ShotEditorModel& model, QWidget* parent)
    : QToolBar(QStringLiteral("Style"), parent), m_model(model)
{
    setMovable(false);
    for (const QColor& color : palette()) {
        QAction* action = addAction(swatch(color), color.name(QColor::HexRgb).toUpper());
        connect(action, &QAction::triggered, this, [this, color] {
            change([&](ShotStyle& s) { s.color = ShotColor::fromQColor(color); });
        });
    }
    QAction* custom = addAction(QStringLiteral("Custom\u2026"));
    connect(custom, &QAction::triggered, this, [this] {
        const QColor chosen =
            QColorDialog::getColor(m_model.shownStyle().color.toQColor(), this,
                                   QStringLiteral("Colour"), QColorDialog::ShowAlphaChannel);
        if (chosen.isValid()) {
            change([&](ShotStyle& s) { s.color = ShotColor::fromQColor(chosen); });
        }
    });
    addSeparator();

    const auto spin = [this](const QString& label, int minimum, int maximum) {
        addWidget(new QLabel(label, this));
        auto* box = new QSpinBox(this);
        box->setRange(minimum, maximum);
        addWidget(box);
        return box;
    };
    m_lineWidth = spin(QStringLiteral("Width"), 1, 40);
    connect(m_lineWidth, &QSpinBox::valueChanged, this,
            [this](int value) { change([&](ShotStyle& s) { s.lineWidth = value; }); });
    m_arrowSize = new QComboBox(this);
    for (const ArrowSizePreset preset : allCases<ArrowSizePreset>()) {
        m_arrowSize->addItem(toString(preset).toUpper(), int(preset));
    }
    m_arrowSize->setToolTip(QStringLiteral("Arrow size"));
    addWidget(m_arrowSize);
    connect(m_arrowSize, &QComboBox::activated, this, [this](int index) {
        const auto preset = ArrowSizePreset(m_arrowSize->itemData(index).toInt());
        change([&](ShotStyle& s) { s.lineWidth = arrowWidth(preset); });
    });
    m_fontSize = spin(QStringLiteral("Size"), 6, 200);
    connect(m_fontSize, &QSpinBox::valueChanged, this,
            [this](int value) { change([&](ShotStyle& s) { s.fontSize = value; }); });
    m_outline = new QCheckBox(QStringLiteral("Outline"), this);
    addWidget(m_outline);
    connect(m_outline, &QCheckBox::toggled, this,
            [this](bool on) { change([&](ShotStyle& s) { s.textOutline = on; }); });
    m_strength = spin(QStringLiteral("Strength"), 6, 40);
    connect(m_strength, &QSpinBox::valueChanged, this, [this](int value) {
        change([&](ShotStyle& s) { s.strength = ShotStyle::normalizedStrength(value); });
    });
    m_emoji = new QComboBox(this);
    for (const char* emoji :
         {"\U0001F600", "\U0001F44D", "\U0001F44E", "\u2764\uFE0F", "\u2705", "\u274C",
          "\u26A0\uFE0F", "\U0001F525", "\U0001F440", "\U0001F389", "\u2753", "\U0001F4A1"}) {
        m_emoji->addItem(QString::fromUtf8(emoji));
    }
    m_emoji->setToolTip(QStringLiteral("Emoji"));
    m_emojiAction = addWidget(m_emoji);
    connect(m_emoji, &QComboBox::textActivated, this,
            [this](const QString& emoji) { m_model.setSelectedEmoji(emoji); });

    connect(&m_model, &ShotEditorModel::changed, this, &ShotStyleBar::showStyle);
    showStyle();
}

void ShotStyleBar::showStyle()
{
    m_showing = true;
    const ShotStyle style = m_model.shownStyle();
    m_lineWidth->setValue(int(std::lround(style.lineWidth)));
    m_fontSize->setValue(int(std::lround(style.fontSize)));
    m_outline->setChecked(style.textOutline);
    m_strength->setValue(int(std::lround(style.strength)));
    const ShotToolKind tool = m_model.activeTool();
    m_emojiAction->setVisible(tool == ShotToolKind::emoji);
    m_showing = false;
}

void ShotStyleBar::change(const std::function<void(ShotStyle&)>& edit)
{
    if (m_showing) {
        return; // showing a style is not changing it
    }
    ShotStyle style = m_model.shownStyle();
    edit(style);
    m_model.applyStyle(style);
}

} // namespace nubo
