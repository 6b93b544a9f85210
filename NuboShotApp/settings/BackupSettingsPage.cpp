#include "core/Error.h"
#include "settings/ShotSettingsBackup.h"
#include "settings/ShotSettingsPage.h"
#include "shortcuts/ShotGlobalShortcuts.h"

#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace nubo {

namespace {

class BackupSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    BackupSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Backup"),
                           QStringLiteral("nuboshot-backup"), parent)
    {
        QFormLayout* section = addSection(tr("Settings file"));
        auto* buttons = new QWidget(this);
        auto* line = new QHBoxLayout(buttons);
        line->setContentsMargins(0, 0, 0, 0);
        auto* backUp = new QPushButton(tr("Back Up Settings…"), buttons);
        backUp->setObjectName(QStringLiteral("backUpSettings"));
        auto* restore = new QPushButton(tr("Restore Settings…"), buttons);
        restore->setObjectName(QStringLiteral("restoreSettings"));
        line->addWidget(backUp);
        line->addWidget(restore);
        line->addStretch(1);
        section->addRow(buttons);
        addNote(section, tr("Every preference goes into one file you can keep or "
                                        "take to another computer. Passwords and keys never "
                                        "do: they stay in the desktop's keyring."));
        m_status = addNote(section, QString());
        m_status->setObjectName(QStringLiteral("backupStatus"));
        m_status->setForegroundRole(QPalette::WindowText);
        m_status->hide();

        connect(backUp, &QPushButton::clicked, this, [this] {
            const QString path = QFileDialog::getSaveFileName(
                this, tr("Back Up Settings"),
                QDir::home().filePath(QStringLiteral("Nubo Shot Settings.json")),
                tr("Settings backups (*.json)"));
            if (!path.isEmpty()) {
                backUpTo(path);
            }
        });
        connect(restore, &QPushButton::clicked, this, [this] {
            const QString path =
                QFileDialog::getOpenFileName(this, tr("Restore Settings"), QDir::homePath(),
                                             tr("Settings backups (*.json);;All files (*)"));
            if (!path.isEmpty()) {
                restoreFrom(path);
            }
        });
    }

    void reload() override {}

    void backUpTo(const QString& path)
    {
        try {
            ShotSettingsBackup::write(preferences(), path);
            say(tr("Settings backed up to “%1”.").arg(QDir::toNativeSeparators(path)));
        } catch (const Error& error) {
            say(error.message());
        }
    }

    void restoreFrom(const QString& path)
    {
        const ShotSettingsBackup::Report report =
            ShotSettingsBackup::restoreFile(preferences(), path);
        say(report.summary());
        if (report.restored > 0) {
            if (m_context.shortcuts) {
                m_context.shortcuts->rebind();
            }
            emit storedValuesReplaced();
        }
    }

    const QLabel* status() const { return m_status; }

private:
    void say(const QString& text)
    {
        m_status->setText(text);
        m_status->show();
    }

    QLabel* m_status = nullptr;
};

} // namespace

ShotSettingsPage* makeBackupSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new BackupSettingsPage(context, parent);
}

} // namespace nubo

#include "BackupSettingsPage.moc"
