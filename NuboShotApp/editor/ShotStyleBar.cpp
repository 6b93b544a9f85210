#include "editor/ShotStyleBar.h"

#include "core/Settings.h"
#include "editor/EmojiCatalog.h"
#include "editor/ShotEmojiPicker.h"
#include "style/ShotIcons.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
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

constexpr int swatchSide = 22;

bool sameColor(const QColor& a, const QColor& b)
{
    return a.rgba() == b.rgba();
}

// A round swatch; checked, it wears a ring in the highlight colour.
class SwatchButton : public QToolButton {
public:
    SwatchButton(const QColor& color, QWidget* parent) : QToolButton(parent), m_color(color)
    {
        setCheckable(true);
        setFixedSize(swatchSide + 6, swatchSide + 6);
        setFocusPolicy(Qt::NoFocus);
        setToolTip(color.alpha() == 255 ? color.name(QColor::HexRgb).toUpper()
                                        : color.name(QColor::HexArgb).toUpper());
        setAccessibleName(toolTip());
    }
    const QColor& color() const { return m_color; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QRectF all = QRectF(rect()).adjusted(1, 1, -1, -1);
        if (isChecked()) {
            painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(all.adjusted(1, 1, -1, -1));
        } else if (underMouse()) {
            painter.setPen(QPen(palette().color(QPalette::Mid), 1));
            painter.drawEllipse(all.adjusted(1, 1, -1, -1));
        }
        const QRectF dot = all.adjusted(4, 4, -4, -4);
        if (m_color.alpha() < 255) { // a checker shows through what is translucent
            painter.save();
            QPainterPath clip;
            clip.addEllipse(dot);
            painter.setClipPath(clip);
            painter.fillRect(dot, Qt::white);
            const double cell = dot.width() / 4;
            for (int y = 0; y < 4; ++y) {
                for (int x = (y % 2); x < 4; x += 2) {
                    painter.fillRect(QRectF(dot.x() + x * cell, dot.y() + y * cell, cell, cell),
                                     QColor(200, 200, 200));
                }
            }
            painter.restore();
        }
        // A hairline keeps white visible on a light bar and black on a dark one.
        QColor edge = palette().color(QPalette::WindowText);
        edge.setAlpha(90);
        painter.setPen(QPen(edge, 1));
        painter.setBrush(m_color);
        painter.drawEllipse(dot);
    }

private:
    QColor m_color;
};

} // namespace

ShotStyleBar::ShotStyleBar(ShotEditorModel& model, ShotPreferences& preferences, QWidget* parent)
    : QToolBar(tr("Style"), parent), m_model(model), m_preferences(preferences)
{
    setMovable(false);
    setObjectName(QStringLiteral("styleBar"));

    m_swatches = new QWidget(this);
    auto* swatchLayout = new QHBoxLayout(m_swatches);
    swatchLayout->setContentsMargins(4, 0, 4, 0);
    swatchLayout->setSpacing(0);
    m_swatchGroup = new QButtonGroup(this);
    m_swatchGroup->setExclusive(false); // the colour in use decides what is checked
    m_controlActions[colorControl] << addWidget(m_swatches);
    m_custom = new QToolButton(this);
    m_custom->setText(QStringLiteral("+"));
    m_custom->setToolTip(tr("Other Colour…"));
    m_custom->setAccessibleName(tr("Other Colour"));
    m_custom->setFixedSize(swatchSide + 6, swatchSide + 6);
    m_custom->setAutoRaise(true);
    m_custom->setFocusPolicy(Qt::NoFocus);
    connect(m_custom, &QToolButton::clicked, this, &ShotStyleBar::chooseCustomColor);
    m_controlActions[colorControl] << addWidget(m_custom);
    m_colorSeparator = addSeparator();
    rebuildSwatches();

    const auto labelled = [this](unsigned control, const QString& label, QWidget* widget) {
        auto* text = new QLabel(label, this);
        text->setContentsMargins(8, 0, 4, 0);
        text->setBuddy(widget);
        m_controlActions[control] << addWidget(text) << addWidget(widget);
    };
    const auto spin = [this](int minimum, int maximum, const QString& suffix) {
        auto* box = new QSpinBox(this);
        box->setRange(minimum, maximum);
        box->setSuffix(suffix);
        return box;
    };
    m_lineWidth = spin(1, 40, tr(" pt"));
    labelled(lineWidthControl, tr("&Width"), m_lineWidth);
    connect(m_lineWidth, &QSpinBox::valueChanged, this,
            [this](int value) { change([&](ShotStyle& s) { s.lineWidth = value; }); });

    m_arrowSize = new QComboBox(this);
    for (const ArrowSizePreset preset : allCases<ArrowSizePreset>()) {
        // In points, as every other tool's width.
        m_arrowSize->addItem(tr("%1 pt").arg(arrowWidth(preset)), int(preset));
    }
    m_arrowSize->setObjectName(QStringLiteral("arrowWidth"));
    labelled(arrowSizeControl, tr("&Width"), m_arrowSize);
    connect(m_arrowSize, &QComboBox::activated, this, [this](int index) {
        const auto preset = ArrowSizePreset(m_arrowSize->itemData(index).toInt());
        change([&](ShotStyle& s) { s.lineWidth = arrowWidth(preset); });
    });

    m_fontSize = spin(6, 200, tr(" pt"));
    labelled(fontSizeControl, tr("&Size"), m_fontSize);
    connect(m_fontSize, &QSpinBox::valueChanged, this,
            [this](int value) { change([&](ShotStyle& s) { s.fontSize = value; }); });

    m_outline = new QCheckBox(tr("&Outline"), this);
    m_controlActions[outlineControl] << addWidget(m_outline);
    connect(m_outline, &QCheckBox::toggled, this,
            [this](bool on) { change([&](ShotStyle& s) { s.textOutline = on; }); });

    m_strength = spin(6, 40, QString());
    labelled(strengthControl, QStringLiteral("S&trength"), m_strength);
    connect(m_strength, &QSpinBox::valueChanged, this, [this](int value) {
        change([&](ShotStyle& s) { s.strength = ShotStyle::normalizedStrength(value); });
    });

    // The emoji in use, large; a click opens the picker.
    m_emoji = new QToolButton(this);
    m_emoji->setObjectName(QStringLiteral("emoji"));
    m_emoji->setFont(ShotEmojiPicker::screenFont(20));
    m_emoji->setToolTip(tr("Choose the emoji"));
    m_emoji->setAutoRaise(true);
    if (const QString last = m_preferences.string(keys::emojiRecent).value_or(QString()).section(u' ', 0, 0);
        !last.isEmpty() && EmojiCatalog::installed().find(last) >= 0) {
        m_model.setSelectedEmoji(last);
    }
    m_emoji->setText(m_model.selectedEmoji());
    labelled(emojiControl, tr("&Emoji"), m_emoji);
    connect(m_emoji, &QToolButton::clicked, this, [this] {
        if (!m_emojiPicker) {
            m_emojiPicker = new ShotEmojiPicker(EmojiCatalog::installed(), m_preferences, this);
            connect(m_emojiPicker, &ShotEmojiPicker::picked, this, [this](const QString& emoji) {
                m_model.setSelectedEmoji(emoji);
                m_emoji->setText(emoji);
            });
        }
        m_emojiPicker->popUp(m_emoji);
    });

    // Tools without a style say what they do instead.
    m_hint = new QLabel(this);
    m_hint->setContentsMargins(6, 0, 6, 0);
    m_hint->setEnabled(false);
    m_controlActions[0] << addWidget(m_hint);

    connect(&m_model, &ShotEditorModel::changed, this, &ShotStyleBar::showStyle);
    showStyle();
}

void ShotStyleBar::addTextActions(const QList<QAction*>& actions)
{
    auto* hint = new QLabel(tr("Drag over the words to select them; Ctrl+C copies them"), this);
    hint->setContentsMargins(6, 0, 6, 0);
    hint->setEnabled(false);
    for (QAction* action : actions) {
        // A button of its own: hiding it leaves the action and its keys working.
        auto* button = new QToolButton(this);
        button->setDefaultAction(action);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        button->setAutoRaise(true);
        m_controlActions[textControl] << addWidget(button);
    }
    m_controlActions[textControl] << addWidget(hint);
    m_visible = ~0u; // shown again as the tool says
    showStyle();
}

QList<QColor> ShotStyleBar::customColors() const
{
    QList<QColor> colors;
    const QString stored = m_preferences.string(keys::customColors).value_or(QString());
    for (const QString& name : stored.split(u' ', Qt::SkipEmptyParts)) {
        QColor color = QColor::fromString(name);
        if (color.isValid() && colors.size() < maximumCustomColors) {
            colors << color;
        }
    }
    return colors;
}

QToolButton* ShotStyleBar::addSwatch(const QColor& color)
{
    auto* button = new SwatchButton(color, m_swatches);
    m_swatches->layout()->addWidget(button);
    m_swatchGroup->addButton(button);
    connect(button, &QToolButton::clicked, this, [this, color] {
        change([&](ShotStyle& s) { s.color = ShotColor::fromQColor(color); });
        showStyle(); // the clicked swatch stays checked even when nothing changed
    });
    return button;
}

void ShotStyleBar::rebuildSwatches()
{
    for (QAbstractButton* button : m_swatchGroup->buttons()) {
        m_swatchGroup->removeButton(button);
        delete button;
    }
    for (const QColor& color : palette()) {
        addSwatch(color);
    }
    for (const QColor& color : customColors()) {
        addSwatch(color);
    }
    m_swatches->adjustSize();
}

QToolButton* ShotStyleBar::checkedSwatch() const
{
    for (QAbstractButton* button : m_swatchGroup->buttons()) {
        if (button->isChecked()) {
            return static_cast<QToolButton*>(button);
        }
    }
    return nullptr;
}

void ShotStyleBar::rememberColor(const QColor& color)
{
    for (const QColor& known : palette()) {
        if (sameColor(known, color)) {
            return;
        }
    }
    QStringList names{color.name(QColor::HexArgb)};
    for (const QColor& known : customColors()) {
        if (!sameColor(known, color) && names.size() < maximumCustomColors) {
            names << known.name(QColor::HexArgb);
        }
    }
    m_preferences.setValue(keys::customColors, names.join(u' '));
    rebuildSwatches();
}

void ShotStyleBar::chooseCustomColor()
{
    const QColor chosen = QColorDialog::getColor(m_model.shownStyle().color.toQColor(), this,
                                                 tr("Colour"), QColorDialog::ShowAlphaChannel);
    if (!chosen.isValid()) {
        return;
    }
    rememberColor(chosen);
    change([&](ShotStyle& s) { s.color = ShotColor::fromQColor(chosen); });
    showStyle();
}

void ShotStyleBar::showStyle()
{
    m_showing = true;
    const ShotStyle style = m_model.shownStyle();
    const ShotToolKind tool = m_model.styledTool();
    const unsigned controls = styleControls(tool);
    if (controls != m_visible || !m_hint->isVisible() == !controls) {
        m_visible = controls;
        for (auto it = m_controlActions.cbegin(); it != m_controlActions.cend(); ++it) {
            const bool shown = it.key() ? (controls & it.key()) != 0 : controls == 0;
            for (QAction* action : it.value()) {
                action->setVisible(shown);
            }
        }
        m_colorSeparator->setVisible(controls & colorControl && controls != colorControl);
    }
    switch (tool) {
    case ShotToolKind::crop:
        m_hint->setText(tr("Drag the frame or its handles; Return crops"));
        break;
    case ShotToolKind::colorPicker:
        m_hint->setText(tr("Click to copy a colour and use it for drawing"));
        break;
    default:
        m_hint->setText(tr("Click to select, drag to move; Shift adds to the selection"));
        break;
    }

    const QColor color = style.color.toQColor();
    bool shown = false;
    for (QAbstractButton* button : m_swatchGroup->buttons()) {
        const bool same = sameColor(static_cast<SwatchButton*>(button)->color(), color);
        button->setChecked(same && !shown);
        shown = shown || same;
    }
    // A colour that no swatch shows (picked from the shot) is the custom
    // button's: it wears it.
    if (shown) {
        m_custom->setIcon({});
        m_custom->setText(QStringLiteral("+"));
    } else {
        m_custom->setIcon(ShotIcons::colorDot(color, QWidget::palette().color(QPalette::Highlight),
                                              swatchSide));
        m_custom->setIconSize(QSize(swatchSide, swatchSide));
    }
    m_lineWidth->setValue(int(std::lround(style.lineWidth)));
    m_arrowSize->setCurrentIndex(
        std::max(0, m_arrowSize->findData(int(nearestArrowSizePreset(style.lineWidth)))));
    m_fontSize->setValue(int(std::lround(style.fontSize)));
    m_outline->setChecked(style.textOutline);
    m_strength->setValue(int(std::lround(style.strength)));
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
