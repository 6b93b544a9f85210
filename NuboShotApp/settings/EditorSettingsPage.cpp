#include "core/Settings.h"
#include "document/ShotDocument.h"
#include "editor/ShotToolStyles.h"
#include "settings/ShotSettingsPage.h"
#include "style/ShotIcons.h"
#include "text/ShotTextReading.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QSpinBox>
#include <QToolButton>

namespace nubo {

namespace {

class EditorSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    EditorSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Editor"),
                           QStringLiteral("draw-freehand"), parent)
    {
        QFormLayout* tools = addSection(tr("Tools"));
        addSwitch(tools, tr("Return to Select after drawing"), QLatin1String(keys::returnToSelect),
                  false);
        addNote(tools, tr("Draw and Number stay active, for one stroke or number "
                                      "after another."));

        QFormLayout* styles = addSection(tr("Colour and size of new marks"));
        for (const ShotToolKind tool : allCases<ShotToolKind>()) {
            const unsigned controls = styleControls(tool);
            if (!createsAnnotations(tool) || controls == strengthControl) {
                continue;
            }
            Row row{tool};
            auto* field = new QWidget(this);
            auto* line = new QHBoxLayout(field);
            line->setContentsMargins(0, 0, 0, 0);
            if (controls & colorControl) {
                row.color = new QToolButton(field);
                row.color->setObjectName(QStringLiteral("color.") + toString(tool));
                row.color->setAutoRaise(true);
                row.color->setIconSize(QSize(18, 18));
                row.color->setToolTip(tr("Colour…"));
                line->addWidget(row.color);
                connect(row.color, &QToolButton::clicked, this, [this, tool] { chooseColor(tool); });
            }
            if (controls & arrowSizeControl) {
                row.arrow = new QComboBox(field);
                row.arrow->setObjectName(QStringLiteral("size.") + toString(tool));
                for (const ArrowSizePreset preset : allCases<ArrowSizePreset>()) {
                    row.arrow->addItem(toString(preset).toUpper(), int(preset));
                }
                line->addWidget(row.arrow);
                connect(row.arrow, &QComboBox::activated, this, [this, tool, box = row.arrow](int i) {
                    change(tool, [&](ShotStyle& s) {
                        s.lineWidth = arrowWidth(ArrowSizePreset(box->itemData(i).toInt()));
                    });
                });
            } else {
                const bool font = controls & fontSizeControl;
                row.size = new QSpinBox(field);
                row.size->setObjectName(QStringLiteral("size.") + toString(tool));
                row.size->setRange(font ? 6 : 1, font ? 200 : 40);
                row.size->setSuffix(tr(" pt"));
                line->addWidget(row.size);
                connect(row.size, &QSpinBox::valueChanged, this, [this, tool, font](int value) {
                    change(tool, [&](ShotStyle& s) { (font ? s.fontSize : s.lineWidth) = value; });
                });
            }
            line->addStretch(1);
            auto* label = new QLabel(toolTitle(tool) + QLatin1Char(':'), this);
            styles->addRow(label, field);
            m_rows.push_back(row);
        }

        QFormLayout* redaction = addSection(tr("Blur / Censor"));
        m_strength = new QSpinBox(this);
        m_strength->setObjectName(QStringLiteral("strength.blur"));
        m_strength->setRange(6, 40);
        redaction->addRow(tr("Strength:"), m_strength);
        addNote(redaction, tr("The size of the blocks the hidden area is shown in: "
                                          "larger blocks show less."));
        connect(m_strength, &QSpinBox::valueChanged, this, [this](int value) {
            change(ShotToolKind::blur,
                   [&](ShotStyle& s) { s.strength = ShotStyle::normalizedStrength(value); });
        });
        QFormLayout* reading = addSection(tr("Text in shots"));
        m_languages = new QListWidget(this);
        m_languages->setObjectName(QStringLiteral("recognitionLanguages"));
        m_languages->setMaximumHeight(m_languages->fontMetrics().height() * 6);
        for (const QString& code : installedRecognitionLanguages()) {
            auto* item = new QListWidgetItem(languageTitle(code), m_languages);
            item->setData(Qt::UserRole, code);
            item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
        }
        reading->addRow(tr("Languages:"), m_languages);
        addNote(reading, tr("Copy Text and Capture Text read these. With none ticked, the "
                            "desktop's language and English. More come with the packages "
                            "tesseract-ocr-LANGUAGE."));
        connect(m_languages, &QListWidget::itemChanged, this, [this] {
            QStringList ticked;
            for (int i = 0; i < m_languages->count(); ++i) {
                if (m_languages->item(i)->checkState() == Qt::Checked) {
                    ticked << m_languages->item(i)->data(Qt::UserRole).toString();
                }
            }
            setRecognitionLanguages(preferences(), ticked);
        });
        reload();
    }

    // "Deutsch (deu)": the language's own name, and the name of its data.
    static QString languageTitle(const QString& code)
    {
        const QLocale::Language language = QLocale::codeToLanguage(code.section(u'_', 0, 0));
        if (language == QLocale::AnyLanguage) {
            return code;
        }
        QLocale::Script script = QLocale::AnyScript;
        if (code == QLatin1String("chi_tra")) {
            script = QLocale::TraditionalChineseScript;
        } else if (code == QLatin1String("chi_sim")) {
            script = QLocale::SimplifiedChineseScript;
        }
        // English's own name comes with a country ("American English").
        QString name = language == QLocale::English
                           ? QStringLiteral("English")
                           : QLocale(language, script, QLocale::AnyTerritory).nativeLanguageName();
        if (!name.isEmpty()) {
            name[0] = name[0].toUpper();
        }
        return QStringLiteral("%1 (%2)").arg(name.isEmpty() ? QLocale::languageToString(language) : name, code);
    }

    void reload() override
    {
        reloadSwitches();
        {
            const QSignalBlocker quiet(m_languages);
            const QStringList chosen = recognitionLanguages(preferences());
            for (int i = 0; i < m_languages->count(); ++i) {
                QListWidgetItem* item = m_languages->item(i);
                item->setCheckState(chosen.contains(item->data(Qt::UserRole).toString()) ? Qt::Checked
                                                                                         : Qt::Unchecked);
            }
        }
        for (const Row& row : m_rows) {
            const ShotStyle style = storedToolStyle(preferences(), row.tool);
            if (row.color) {
                row.color->setIcon(
                    ShotIcons::colorDot(style.color.toQColor(), QColor(0, 0, 0, 90), 18));
                row.color->setAccessibleName(style.color.toQColor().name(QColor::HexArgb));
            }
            if (row.arrow) {
                const QSignalBlocker quiet(row.arrow);
                row.arrow->setCurrentIndex(std::max(
                    0, row.arrow->findData(int(nearestArrowSizePreset(style.lineWidth)))));
            }
            if (row.size) {
                const QSignalBlocker quiet(row.size);
                const bool font = styleControls(row.tool) & fontSizeControl;
                row.size->setValue(int(std::lround(font ? style.fontSize : style.lineWidth)));
            }
        }
        const QSignalBlocker quiet(m_strength);
        m_strength->setValue(
            int(std::lround(storedToolStyle(preferences(), ShotToolKind::blur).strength)));
    }

private:
    struct Row {
        ShotToolKind tool;
        QToolButton* color = nullptr;
        QComboBox* arrow = nullptr;
        QSpinBox* size = nullptr;
    };

    void change(ShotToolKind tool, const std::function<void(ShotStyle&)>& edit)
    {
        ShotStyle style = storedToolStyle(preferences(), tool);
        edit(style);
        storeToolStyle(preferences(), tool, style);
    }

    void chooseColor(ShotToolKind tool)
    {
        const QColor chosen = QColorDialog::getColor(
            storedToolStyle(preferences(), tool).color.toQColor(), this,
            tr("%1 Colour").arg(toolTitle(tool)), QColorDialog::ShowAlphaChannel);
        if (chosen.isValid()) {
            change(tool, [&](ShotStyle& s) { s.color = ShotColor::fromQColor(chosen); });
            reload();
        }
    }

    QSpinBox* m_strength = nullptr;
    QListWidget* m_languages = nullptr;
    std::vector<Row> m_rows;
};

} // namespace

ShotSettingsPage* makeEditorSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new EditorSettingsPage(context, parent);
}

} // namespace nubo

#include "EditorSettingsPage.moc"
