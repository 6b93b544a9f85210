#include "settings/ShotSettingsPage.h"
#include "settings/ShotShortcutField.h"
#include "shell/ShotGlobalShortcuts.h"

#include <QFormLayout>
#include <QPushButton>

namespace nubo {

namespace {

class ShortcutsSettingsPage : public ShotSettingsPage {
public:
    ShortcutsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QStringLiteral("Shortcuts"),
                           QStringLiteral("preferences-desktop-keyboard"), parent)
    {
        QFormLayout* section = addSection(QStringLiteral("Capture and record from anywhere"));
        for (const QString& action : ShotGlobalShortcuts::actions()) {
            auto* field = new ShotShortcutField(context, action, section, this);
            // The stored keys of one field are what another refuses.
            connect(field, &ShotShortcutField::changed, this, [this] {
                reload();
                emit storedValuesReplaced();
            });
            m_fields.push_back(field);
        }
        auto* reset = new QPushButton(QStringLiteral("Reset to Defaults"), this);
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
            addNote(section, QStringLiteral("This desktop offers no global shortcuts: they "
                                            "are kept for when it does."));
        }
    }

    void reload() override
    {
        for (ShotShortcutField* field : m_fields) {
            field->reload();
        }
    }

private:
    std::vector<ShotShortcutField*> m_fields;
};

} // namespace

ShotSettingsPage* makeShortcutsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new ShortcutsSettingsPage(context, parent);
}

} // namespace nubo
