#include "core/Settings.h"
#include "recording/ShotRecordingControls.h"
#include "settings/ShotSettingsPage.h"
#include "settings/ShotShortcutField.h"
#include "shortcuts/ShotGlobalShortcuts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>

namespace nubo {

namespace {

class RecordingSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    RecordingSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Recording"),
                           QStringLiteral("media-record"), parent)
    {
        const RecordingCapabilities capabilities = context.recordingCapabilities
                                                       ? context.recordingCapabilities()
                                                       : RecordingCapabilities{};
        m_controls = new ShotRecordingControls(preferences(), capabilities,
                                               ShotRecordingControls::Look::form, this);
        connect(m_controls, &ShotRecordingControls::changed, this,
                [this] { told(QLatin1String(keys::recordingCodec)); });

        QFormLayout* video = addSection(tr("Video"));
        video->addRow(tr("Format:"), m_controls->codec);
        const QString hevc = ShotRecordingProblems::hevc(capabilities);
        if (!hevc.isEmpty()) {
            addNote(video, hevc)->setObjectName(QStringLiteral("recording.codecProblem"));
        }
        video->addRow(tr("Frame rate:"), m_controls->frameRate);
        video->addRow(tr("Resolution:"), m_controls->resolution);

        QFormLayout* sound = addSection(tr("Sound"));
        sound->addRow(m_controls->systemAudio);
        sound->addRow(m_controls->microphone);
        sound->addRow(tr("Microphone:"), m_controls->microphoneDevice);
        if (const QString why = ShotRecordingProblems::microphone(capabilities); !why.isEmpty()) {
            addNote(sound, why)->setObjectName(QStringLiteral("recording.microphoneProblem"));
        }
        m_controls->loadMicrophones();

        QFormLayout* shown = addSection(tr("In the recording"));
        m_controls->cursor->setText(tr("Show the pointer"));
        shown->addRow(m_controls->cursor);
        m_controls->clicks->setText(tr("Highlight clicks"));
        shown->addRow(m_controls->clicks);
        if (const QString why = ShotRecordingProblems::clickHighlight(capabilities);
            !why.isEmpty()) {
            addNote(shown, why)->setObjectName(QStringLiteral("recording.clicksProblem"));
        }
        m_controls->camera->setText(tr("Camera bubble"));
        shown->addRow(m_controls->camera);
        if (m_controls->camera->isEnabled()) {
            shown->addRow(tr("Camera:"), m_controls->cameraDevice);
        } else {
            m_controls->cameraDevice->hide();
            addNote(shown, ShotRecordingProblems::camera())
                ->setObjectName(QStringLiteral("recording.cameraProblem"));
        }
        addSwitch(shown, tr("Count down 3 seconds before recording"),
                  QLatin1String(keys::recordingCountdown), true)
            ->setObjectName(QStringLiteral("recording.countdown"));

        QFormLayout* saving = addSection(tr("Saving"));
        auto* folderRow = new QWidget(this);
        auto* line = new QHBoxLayout(folderRow);
        line->setContentsMargins(0, 0, 0, 0);
        m_folder = new QLabel(folderRow);
        m_folder->setObjectName(QStringLiteral("recording.folder"));
        m_folder->setTextInteractionFlags(Qt::TextSelectableByMouse);
        line->addWidget(m_folder, 1);
        auto* choose = new QPushButton(tr("Choose…"), folderRow);
        choose->setObjectName(QStringLiteral("recording.chooseFolder"));
        line->addWidget(choose);
        auto* standard = new QPushButton(tr("Default"), folderRow);
        standard->setObjectName(QStringLiteral("recording.defaultFolder"));
        line->addWidget(standard);
        saving->addRow(tr("Recordings folder:"), folderRow);
        connect(choose, &QPushButton::clicked, this, [this] {
            const QString folder =
                QFileDialog::getExistingDirectory(this, tr("Recordings Folder"), shownFolder());
            if (!folder.isEmpty()) {
                preferences().setValue(keys::recordingFolder, folder);
                told(QLatin1String(keys::recordingFolder));
                reload();
            }
        });
        connect(standard, &QPushButton::clicked, this, [this] {
            preferences().remove(keys::recordingFolder);
            told(QLatin1String(keys::recordingFolder));
            reload();
        });

        QFormLayout* keys = addSection(tr("Shortcut"));
        m_shortcut =
            new ShotShortcutField(context, QLatin1String(ShotGlobalShortcuts::recording), keys, this);
        connect(m_shortcut, &ShotShortcutField::changed, this,
                &ShotSettingsPage::storedValuesReplaced);
        addNote(keys, tr("Starts a recording, and stops the one under way."));
        reload();
    }

    void reload() override
    {
        m_controls->reload();
        reloadSwitches();
        m_shortcut->reload();
        const auto chosen = preferences().string(keys::recordingFolder);
        const QString folder = QDir::toNativeSeparators(shownFolder()) +
                               (chosen && !chosen->isEmpty() ? QString() : tr(" (default)"));
        // A long path is shortened in its middle; the whole one is the tip.
        m_folder->setText(m_folder->fontMetrics().elidedText(folder, Qt::ElideMiddle, 220));
        m_folder->setToolTip(folder);
    }

private:
    // The folder recordings go to, without creating it.
    QString shownFolder() const
    {
        if (const auto chosen = preferences().string(keys::recordingFolder);
            chosen && !chosen->isEmpty()) {
            return *chosen;
        }
        QString videos = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
        if (videos.isEmpty()) {
            videos = QDir::homePath() + QStringLiteral("/Videos");
        }
        return videos + QStringLiteral("/Nubo Shot");
    }

    void told(const QString& key)
    {
        if (m_context.changed) {
            m_context.changed(key);
        }
    }

    ShotRecordingControls* m_controls = nullptr;
    ShotShortcutField* m_shortcut = nullptr;
    QLabel* m_folder = nullptr;
};

} // namespace

ShotSettingsPage* makeRecordingSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new RecordingSettingsPage(context, parent);
}

} // namespace nubo

#include "RecordingSettingsPage.moc"
