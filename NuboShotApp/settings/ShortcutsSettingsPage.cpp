#include "settings/ShotSettingsPage.h"
#include "settings/ShotShortcutField.h"
#include "shortcuts/ShotGlobalShortcuts.h"

#include <QClipboard>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace nubo {

namespace {

class ShortcutsSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    ShortcutsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Shortcuts"),
                           QStringLiteral("preferences-desktop-keyboard"), parent)
    {
        QFormLayout* section = addSection(tr("Capture and record from anywhere"));
        for (const QString& action : ShotGlobalShortcuts::actions()) {
            auto* field = new ShotShortcutField(context, action, section, this);
            // The stored keys of one field are what another refuses.
            connect(field, &ShotShortcutField::changed, this, [this] {
                reload();
                emit storedValuesReplaced();
            });
            m_fields.push_back(field);
        }
        auto* reset = new QPushButton(tr("Reset to Defaults"), this);
        reset->setObjectName(QStringLiteral("resetShortcuts"));
        section->addRow(QString(), reset);
        connect(reset, &QPushButton::clicked, this, [this] {
            for (ShotShortcutField* field : m_fields) {
                field->forget();
            }
            if (m_context.shortcuts) {
                m_context.shortcuts->rebind();
            }
            reload();
            emit storedValuesReplaced();
        });
        if (!m_context.shortcuts || !m_context.shortcuts->isAvailable()) {
            addNote(section, tr("This desktop offers no global shortcuts: they "
                                            "are kept for when it does."));
            addDesktopCommands();
        }
    }

    void reload() override
    {
        for (ShotShortcutField* field : m_fields) {
            field->reload();
        }
    }

private:
    // Where the desktop keeps keys to itself, its own keyboard settings can
    // run our commands: one row per action with the command to bind.
    void addDesktopCommands()
    {
        QFormLayout* section = addSection(tr("Bind keys in the desktop's settings"));
        for (const QString& action : ShotGlobalShortcuts::actions()) {
            const QString command = ShotGlobalShortcuts::command(action, m_context.program);
            auto* row = new QWidget(this);
            auto* layout = new QHBoxLayout(row);
            layout->setContentsMargins(0, 0, 0, 0);
            auto* text = new QLineEdit(command, row);
            text->setReadOnly(true);
            text->setObjectName(QStringLiteral("command.") + action);
            auto* copy = new QPushButton(tr("Copy"), row);
            copy->setObjectName(QStringLiteral("copyCommand.") + action);
            copy->setToolTip(tr("Copy the command"));
            layout->addWidget(text, 1);
            layout->addWidget(copy);
            connect(copy, &QPushButton::clicked, this, [command, copy] {
                QGuiApplication::clipboard()->setText(command);
                copy->setText(tr("Copied"));
            });
            section->addRow(ShotGlobalShortcuts::title(action) + u':', row);
        }
        addNote(section, tr("Add a custom shortcut in the desktop's keyboard settings "
                                        "(GNOME: Settings → Keyboard → Custom "
                                        "Shortcuts; KDE: System Settings → Shortcuts; "
                                        "sway: a bindsym line) that runs the command."));
    }

    std::vector<ShotShortcutField*> m_fields;
};

} // namespace

ShotSettingsPage* makeShortcutsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new ShortcutsSettingsPage(context, parent);
}

} // namespace nubo

#include "ShortcutsSettingsPage.moc"
