#include "core/Error.h"
#include "core/Settings.h"
#include "settings/ShotAutostart.h"
#include "settings/ShotSettingsPage.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGuiApplication>
#include <QLabel>

namespace nubo {

namespace {

class GeneralSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    GeneralSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "General"),
                           QStringLiteral("preferences-system"), parent)
    {
        QFormLayout* startup = addSection(tr("Start-up"));
        m_login = new QCheckBox(tr("Start Nubo Shot when I log in"), this);
        m_login->setObjectName(QStringLiteral("startAtLogin"));
        startup->addRow(m_login);
        m_loginProblem = addNote(startup, QString());
        m_loginProblem->setObjectName(QStringLiteral("startAtLoginProblem"));
        connect(m_login, &QCheckBox::toggled, this, [this](bool on) {
            try {
                ShotAutostart::setEnabled(on, m_context.program);
                m_loginProblem->hide();
            } catch (const Error& error) {
                m_loginProblem->setText(error.message());
                m_loginProblem->show();
                reload();
            }
        });

        QFormLayout* shots = addSection(tr("Shots"));
        addSwitch(shots, tr("Show Recent in menu"), QLatin1String(keys::recentEnabled), true);
        if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
            addNote(shots, tr("On Wayland a program sees the clipboard only while one of its "
                               "windows has the keyboard: images copied in other applications "
                               "join Recent the next time you use Nubo Shot."));
        }
        if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
            // The portals give stills without the pointer's picture.
            addSwitch(shots, tr("Include the pointer"), QLatin1String(keys::includePointer), false);
        }
        addSwitch(shots, tr("Adjust the area before capturing"), QLatin1String(keys::adjustArea),
                  false);
        addNote(shots, tr("A dragged area keeps its handles: move it with the arrow "
                                      "keys, resize it with Alt and the arrow keys, and press "
                                      "Return or double-click it to capture."));
        addSwitch(shots, tr("Also copy raw shot"), QLatin1String(keys::copyRawOnCapture), false);
        addNote(shots, tr("Puts every capture on the clipboard at once, before "
                                      "anything is drawn on it."));
        reload();
    }

    void reload() override
    {
        const QSignalBlocker quiet(m_login);
        m_login->setChecked(ShotAutostart::isEnabled());
        if (m_loginProblem->text().isEmpty()) {
            m_loginProblem->hide();
        }
        reloadSwitches();
    }

private:
    QCheckBox* m_login = nullptr;
    QLabel* m_loginProblem = nullptr;
};

} // namespace

ShotSettingsPage* makeGeneralSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new GeneralSettingsPage(context, parent);
}

} // namespace nubo

#include "GeneralSettingsPage.moc"
