#include "settings/ShotSettingsPage.h"

#include "core/Settings.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace nubo {

ShotSettingsPage::ShotSettingsPage(const ShotSettingsContext& context, const char* title,
                                   QString icon, QWidget* parent)
    : QWidget(parent), m_context(context), m_key(QString::fromUtf8(title)), m_title(tr(title)),
      m_icon(std::move(icon)), m_layout(new QVBoxLayout(this))
{
    m_layout->setContentsMargins(24, 18, 24, 18);
    m_layout->setSpacing(6);
    auto* heading = new QLabel(m_title, this);
    QFont font = heading->font();
    font.setPointSizeF(font.pointSizeF() * 1.4);
    font.setWeight(QFont::DemiBold);
    heading->setFont(font);
    m_layout->addWidget(heading);
    m_layout->addStretch(1);
}

QFormLayout* ShotSettingsPage::addSection(const QString& title)
{
    auto* label = new QLabel(title, this);
    QFont font = label->font();
    font.setWeight(QFont::DemiBold);
    label->setFont(font);
    label->setContentsMargins(0, 14, 0, 2);
    auto* form = new QFormLayout;
    form->setContentsMargins(12, 0, 0, 0);
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
    form->setHorizontalSpacing(12);
    form->setVerticalSpacing(8);
    // Above the stretch that keeps everything at the top.
    m_layout->insertWidget(m_layout->count() - 1, label);
    m_layout->insertLayout(m_layout->count() - 1, form);
    return form;
}

QLabel* ShotSettingsPage::addNote(QFormLayout* section, const QString& text)
{
    auto* note = new QLabel(text, this);
    note->setWordWrap(true);
    note->setMinimumWidth(400);
    note->setForegroundRole(QPalette::PlaceholderText);
    section->addRow(QString(), note);
    return note;
}

QCheckBox* ShotSettingsPage::addSwitch(QFormLayout* section, const QString& label,
                                       const QString& key, bool fallback)
{
    auto* box = new QCheckBox(label, this);
    box->setObjectName(key);
    section->addRow(box);
    connect(box, &QCheckBox::toggled, this, [this, key](bool on) {
        preferences().setValue(key, on);
        if (m_context.changed) {
            m_context.changed(key);
        }
    });
    m_switches.push_back({box, key, fallback});
    return box;
}

void ShotSettingsPage::reloadSwitches()
{
    for (const Switch& s : m_switches) {
        const QSignalBlocker quiet(s.box);
        s.box->setChecked(preferences().boolean(s.key, s.fallback));
    }
}

} // namespace nubo
