#include "core/Settings.h"
#include "settings/ShotSettingsPage.h"
#include "shell/ShotGlobalShortcuts.h"
#include "shell/ShotStatusMenu.h"

#include <QEvent>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeySequenceEdit>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>

namespace nubo {

namespace {

class ShortcutsSettingsPage : public ShotSettingsPage {
public:
    ShortcutsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QStringLiteral("Shortcuts"),
                           QStringLiteral("preferences-desktop-keyboard"), parent)
    {
        QFormLayout* section = addSection(QStringLiteral("Capture from anywhere"));
        for (const CaptureMode mode : allCases<CaptureMode>()) {
            Row row;
            row.mode = mode;
            auto* field = new QWidget(this);
            auto* line = new QHBoxLayout(field);
            line->setContentsMargins(0, 0, 0, 0);
            row.edit = new QKeySequenceEdit(field);
            row.edit->setObjectName(QStringLiteral("shortcut.") + toString(mode));
            row.edit->setToolTip(QStringLiteral("Click, then press the keys"));
            row.edit->installEventFilter(this);
            line->addWidget(row.edit, 1);
            auto* off = new QToolButton(field);
            off->setText(QStringLiteral("Off"));
            off->setObjectName(QStringLiteral("shortcutOff.") + toString(mode));
            off->setToolTip(QStringLiteral("No shortcut for this capture"));
            line->addWidget(off);
            section->addRow(ShotStatusMenu::captureTitle(mode) + QLatin1Char(':'), field);
            row.problem = new QLabel(this);
            row.problem->setObjectName(QStringLiteral("shortcutProblem.") + toString(mode));
            row.problem->setWordWrap(true);
            section->addRow(QString(), row.problem);
            connect(row.edit, &QKeySequenceEdit::editingFinished, this,
                    [this, mode] { recorded(mode); });
            connect(off, &QToolButton::clicked, this, [this, mode] {
                preferences().setValue(ShotGlobalShortcuts::key(mode), QString());
                apply();
            });
            m_rows.push_back(row);
        }
        auto* reset = new QPushButton(QStringLiteral("Reset to Defaults"), this);
        reset->setObjectName(QStringLiteral("resetShortcuts"));
        section->addRow(QString(), reset);
        connect(reset, &QPushButton::clicked, this, [this] {
            for (const Row& row : m_rows) {
                preferences().remove(ShotGlobalShortcuts::key(row.mode));
            }
            apply();
        });
        if (!m_context.shortcuts || !m_context.shortcuts->isAvailable()) {
            addNote(section, QStringLiteral("This desktop offers no global shortcuts: they "
                                            "are kept for when it does."));
        }
        reload();
    }

    void reload() override
    {
        for (const Row& row : m_rows) {
            const QSignalBlocker quiet(row.edit);
            row.edit->setKeySequence(ShotGlobalShortcuts::stored(preferences(), row.mode));
            QString problem = m_refused.value(row.mode);
            if (problem.isEmpty() && m_context.shortcuts) {
                problem = m_context.shortcuts->problem(row.mode);
            }
            // A problem in red; a plain remark in the quiet colour of notes.
            QPalette tone = row.problem->palette();
            tone.setColor(QPalette::WindowText, problem.isEmpty()
                                                    ? palette().color(QPalette::PlaceholderText)
                                                    : QColor(200, 40, 40));
            row.problem->setPalette(tone);
            row.problem->setText(problem);
            row.problem->setVisible(!problem.isEmpty());
        }
    }

protected:
    // While keys are recorded, the desktop-wide grabs let them go: the keys
    // pressed reach the field instead of starting a capture.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (m_context.shortcuts && qobject_cast<QKeySequenceEdit*>(watched)) {
            if (event->type() == QEvent::FocusIn) {
                m_context.shortcuts->suspend();
            } else if (event->type() == QEvent::FocusOut) {
                m_context.shortcuts->rebind();
            }
        }
        return ShotSettingsPage::eventFilter(watched, event);
    }

private:
    struct Row {
        CaptureMode mode;
        QKeySequenceEdit* edit = nullptr;
        QLabel* problem = nullptr;
    };

    void recorded(CaptureMode mode)
    {
        const Row& row = *std::find_if(m_rows.cbegin(), m_rows.cend(),
                                       [&](const Row& r) { return r.mode == mode; });
        const QKeySequence typed = row.edit->keySequence();
        // One key with its modifiers: the first of what was pressed.
        const QKeySequence keys = typed.isEmpty() ? QKeySequence() : QKeySequence(typed[0]);
        if (keys == ShotGlobalShortcuts::stored(preferences(), mode)) {
            return; // nothing new (the field also finishes when it loses the focus)
        }
        m_refused.clear();
        if (!keys.isEmpty()) {
            for (const Row& other : m_rows) {
                if (other.mode != mode &&
                    ShotGlobalShortcuts::stored(preferences(), other.mode) == keys) {
                    m_refused.insert(mode, QStringLiteral("%1 already does %2.")
                                               .arg(keys.toString(QKeySequence::NativeText),
                                                    ShotStatusMenu::captureTitle(other.mode)));
                    reload(); // the stored keys stay
                    return;
                }
            }
        }
        preferences().setValue(ShotGlobalShortcuts::key(mode),
                               keys.toString(QKeySequence::PortableText));
        apply();
    }

    void apply()
    {
        if (m_context.shortcuts) {
            m_context.shortcuts->rebind();
        }
        reload();
    }

    std::vector<Row> m_rows;
    QHash<CaptureMode, QString> m_refused;
};

} // namespace

ShotSettingsPage* makeShortcutsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new ShortcutsSettingsPage(context, parent);
}

} // namespace nubo
