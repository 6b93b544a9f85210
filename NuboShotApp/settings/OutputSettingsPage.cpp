#include "core/Settings.h"
#include "export/ShotFormat.h"
#include "export/ShotQuickSave.h"
#include "output/ShotOutput.h"
#include "settings/ShotSettingsPage.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace nubo {

namespace {

class OutputSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    OutputSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Output"),
                           QStringLiteral("document-save"), parent)
    {
        QFormLayout* save = addSection(tr("Quick save"));
        auto* folderRow = new QWidget(this);
        auto* line = new QHBoxLayout(folderRow);
        line->setContentsMargins(0, 0, 0, 0);
        m_folder = new QLineEdit(folderRow);
        m_folder->setObjectName(QStringLiteral("quickSaveFolder"));
        m_folder->setReadOnly(true);
        line->addWidget(m_folder, 1);
        auto* choose = new QPushButton(tr("Choose…"), folderRow);
        choose->setObjectName(QStringLiteral("chooseQuickSaveFolder"));
        line->addWidget(choose);
        m_useDownloads = new QPushButton(tr("Use Downloads"), folderRow);
        m_useDownloads->setObjectName(QStringLiteral("useDownloads"));
        line->addWidget(m_useDownloads);
        save->addRow(tr("Folder:"), folderRow);
        m_folderNote = addNote(save, QString());
        m_folderNote->setObjectName(QStringLiteral("quickSaveFolderNote"));
        connect(choose, &QPushButton::clicked, this, [this] {
            const QString chosen = QFileDialog::getExistingDirectory(
                this, tr("Quick-Save Folder"), ShotQuickSave::folderShown(preferences()));
            if (!chosen.isEmpty()) {
                preferences().setValue(keys::quickSaveFolder, QDir::cleanPath(chosen));
                reload();
            }
        });
        connect(m_useDownloads, &QPushButton::clicked, this, [this] {
            preferences().remove(keys::quickSaveFolder);
            reload();
        });

        m_format = new QComboBox(this);
        m_format->setObjectName(QStringLiteral("quickSaveFormat"));
        static constexpr const char* titles[] = {"PNG", "JPEG", "HEIC", "WebP"};
        for (const ShotFormat format : allCases<ShotFormat>()) {
            m_format->addItem(QLatin1String(titles[int(format)]), toString(format));
        }
        save->addRow(tr("Format:"), m_format);
        connect(m_format, &QComboBox::activated, this, [this](int index) {
            preferences().setValue(keys::quickSaveFormat, m_format->itemData(index).toString());
        });
        auto* pattern = new QLabel(QStringLiteral("Nubo Shot YYYY-MM-DD at HH.mm.ss"), this);
        pattern->setObjectName(QStringLiteral("fileNamePattern"));
        pattern->setTextInteractionFlags(Qt::TextSelectableByMouse);
        save->addRow(tr("File names:"), pattern);
        addNote(save, tr("A second shot in the same second gets “ (2)”, "
                                     "and so on: no file is ever replaced."));

        QFormLayout* close = addSection(tr("Close the editor after"));
        // Missing or not true/false reads as closing, as the editor reads it.
        addSwitch(close, tr("Copying"), closeAfterKey(ShotOutputAction::copy), true);
        addSwitch(close, tr("Saving"), closeAfterKey(ShotOutputAction::save), true);
        addSwitch(close, tr("Dragging out"), closeAfterKey(ShotOutputAction::drag), true);
        addNote(close, tr("Hold Alt, or pin the editor, to keep it open once."));
        reload();
    }

    void reload() override
    {
        const auto chosen = preferences().string(keys::quickSaveFolder);
        const bool usable = chosen && ShotQuickSave::isUsableFolder(*chosen);
        m_folder->setText(QDir::toNativeSeparators(ShotQuickSave::folderShown(preferences())));
        m_useDownloads->setEnabled(chosen.has_value());
        if (chosen && !usable) {
            m_folderNote->setText(
                tr("“%1” is missing or cannot be written to: shots go to "
                               "Downloads until it is back.")
                    .arg(QDir::toNativeSeparators(*chosen)));
        } else if (!chosen) {
            m_folderNote->setText(tr("No folder chosen: shots go to Downloads."));
        } else {
            m_folderNote->clear();
        }
        m_folderNote->setVisible(!m_folderNote->text().isEmpty());
        const QSignalBlocker quiet(m_format);
        m_format->setCurrentIndex(int(ShotQuickSave::format(preferences())));
        reloadSwitches();
    }

private:
    QLineEdit* m_folder = nullptr;
    QPushButton* m_useDownloads = nullptr;
    QLabel* m_folderNote = nullptr;
    QComboBox* m_format = nullptr;
};

} // namespace

ShotSettingsPage* makeOutputSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new OutputSettingsPage(context, parent);
}

} // namespace nubo

#include "OutputSettingsPage.moc"
