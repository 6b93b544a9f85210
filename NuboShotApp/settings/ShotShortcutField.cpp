#include "settings/ShotShortcutField.h"

#include "core/Settings.h"
#include "shortcuts/ShotGlobalShortcuts.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QToolButton>

namespace nubo {

ShotShortcutField::ShotShortcutField(const ShotSettingsContext& context, QString action,
                                     QFormLayout* section, QWidget* page)
    : QWidget(page), m_context(context), m_action(std::move(action))
{
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(0, 0, 0, 0);
    m_edit = new QKeySequenceEdit(this);
    m_edit->setObjectName(QStringLiteral("shortcut.") + m_action);
    m_edit->setToolTip(tr("Click, then press the keys"));
    m_edit->installEventFilter(this);
    line->addWidget(m_edit, 1);
    auto* off = new QToolButton(this);
    off->setText(tr("Off"));
    off->setObjectName(QStringLiteral("shortcutOff.") + m_action);
    off->setToolTip(tr("No shortcut for this"));
    line->addWidget(off);
    section->addRow(ShotGlobalShortcuts::title(m_action) + QLatin1Char(':'), this);
    m_problem = new QLabel(page);
    m_problem->setObjectName(QStringLiteral("shortcutProblem.") + m_action);
    m_problem->setWordWrap(true);
    section->addRow(QString(), m_problem);
    connect(m_edit, &QKeySequenceEdit::editingFinished, this, &ShotShortcutField::recorded);
    connect(off, &QToolButton::clicked, this, [this] {
        m_context.preferences.setValue(ShotGlobalShortcuts::key(m_action), QString());
        apply();
    });
    reload();
}

void ShotShortcutField::reload()
{
    const QSignalBlocker quiet(m_edit);
    m_edit->setKeySequence(ShotGlobalShortcuts::stored(m_context.preferences, m_action));
    QString problem = m_refused;
    if (problem.isEmpty() && m_context.shortcuts) {
        problem = m_context.shortcuts->problem(m_action);
    }
    // A problem in red.
    QPalette tone = m_problem->palette();
    tone.setColor(QPalette::WindowText, QColor(200, 40, 40));
    m_problem->setPalette(tone);
    m_problem->setText(problem);
    m_problem->setVisible(!problem.isEmpty());
}

void ShotShortcutField::forget()
{
    m_refused.clear();
    m_context.preferences.remove(ShotGlobalShortcuts::key(m_action));
}

// While keys are recorded, the desktop-wide grabs let them go: the keys
// pressed reach the field instead of starting a capture.
bool ShotShortcutField::eventFilter(QObject* watched, QEvent* event)
{
    if (m_context.shortcuts && watched == m_edit) {
        if (event->type() == QEvent::FocusIn) {
            m_context.shortcuts->suspend();
        } else if (event->type() == QEvent::FocusOut) {
            m_context.shortcuts->rebind();
        }
    }
    return QWidget::eventFilter(watched, event);
}

void ShotShortcutField::recorded()
{
    const QKeySequence typed = m_edit->keySequence();
    // One key with its modifiers: the first of what was pressed.
    const QKeySequence keys = typed.isEmpty() ? QKeySequence() : QKeySequence(typed[0]);
    if (keys == ShotGlobalShortcuts::stored(m_context.preferences, m_action)) {
        return; // nothing new (the field also finishes when it loses the focus)
    }
    m_refused.clear();
    const QString holder = ShotGlobalShortcuts::holderOf(m_context.preferences, keys, m_action);
    if (!holder.isEmpty()) {
        m_refused =
            tr("%1 already does %2.")
                .arg(keys.toString(QKeySequence::NativeText), ShotGlobalShortcuts::title(holder));
        reload(); // the stored keys stay
        return;
    }
    m_context.preferences.setValue(ShotGlobalShortcuts::key(m_action),
                                   keys.toString(QKeySequence::PortableText));
    apply();
}

void ShotShortcutField::apply()
{
    if (m_context.shortcuts) {
        m_context.shortcuts->rebind();
    }
    reload();
    emit changed();
}

} // namespace nubo
