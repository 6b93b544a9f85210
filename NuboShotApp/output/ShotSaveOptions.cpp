#include "output/ShotSaveOptions.h"

#include "core/EnumStrings.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSlider>

namespace nubo {

QString ShotSaveOptions::withExtension(const QString& fileName, ShotFormat format)
{
    const QFileInfo info(fileName);
    const QString base = info.suffix().isEmpty() || !formatForFileName(fileName)
                             ? info.fileName()
                             : info.completeBaseName();
    const QString name = base + QLatin1Char('.') + fileExtension(format);
    return info.path() == QLatin1String(".") && !fileName.startsWith(QLatin1String("./"))
               ? name
               : info.path() + QLatin1Char('/') + name;
}

QString ShotSaveOptions::nameFilter(ShotFormat format)
{
    static constexpr const char* titles[] = {"PNG", "JPEG", "HEIC", "WebP"};
    return QStringLiteral("%1 (*.%2)")
        .arg(QLatin1String(titles[int(format)]), fileExtension(format));
}

ShotSaveDialog::ShotSaveDialog(QFileDialog& dialog, const ShotSaveOptions& initial)
    : m_dialog(dialog), m_options(initial)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const ShotFormat format : allCases<ShotFormat>()) {
        filters << ShotSaveOptions::nameFilter(format);
    }
    dialog.setNameFilters(filters);
    dialog.selectNameFilter(ShotSaveOptions::nameFilter(initial.format));

    // The options sit under the file list of Qt's own dialog.
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    auto* panel = new QWidget(&dialog);
    auto* form = new QFormLayout(panel);
    form->setContentsMargins(0, 0, 0, 0);
    auto* quality = new QSlider(Qt::Horizontal, panel);
    quality->setObjectName(QStringLiteral("quality"));
    quality->setRange(0, 100);
    quality->setValue(qRound(initial.quality * 100));
    auto* scale = new QComboBox(panel);
    scale->setObjectName(QStringLiteral("scale"));
    scale->addItem(QStringLiteral("1\u00d7"), 1.0);
    scale->addItem(QStringLiteral("2\u00d7"), 2.0);
    scale->setCurrentIndex(initial.scale >= 2 ? 1 : 0);
    auto* qualityRow = new QHBoxLayout;
    auto* percent = new QLabel(panel);
    percent->setMinimumWidth(40);
    percent->setText(QStringLiteral("%1 %").arg(quality->value()));
    qualityRow->addWidget(quality, 1);
    qualityRow->addWidget(percent);
    form->addRow(QStringLiteral("Quality:"), qualityRow);
    form->addRow(QStringLiteral("Scale:"), scale);
    if (grid) {
        grid->addWidget(panel, grid->rowCount(), 0, 1, grid->columnCount());
    }
    // Quality means something only for lossy formats: the row is there for them alone.
    const auto showQuality = [form, qualityRow](ShotFormat format) {
        form->setRowVisible(qualityRow, ShotSaveOptions::isLossy(format));
    };
    showQuality(initial.format);

    QObject::connect(quality, &QSlider::valueChanged, &dialog, [this, percent](int value) {
        m_options.quality = value / 100.0;
        percent->setText(QStringLiteral("%1 %").arg(value));
    });
    QObject::connect(scale, &QComboBox::currentIndexChanged, &dialog,
                     [this, scale](int) { m_options.scale = scale->currentData().toDouble(); });
    // The format follows the type list and the typed name follows the format;
    // a typed extension of a format we write picks that format in turn.
    auto* types = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    auto* edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const auto formatChosen = [this, showQuality, edit](int index) {
        if (index < 0 || index >= int(allCases<ShotFormat>().size())) {
            return;
        }
        const ShotFormat format = allCases<ShotFormat>()[size_t(index)];
        m_options.format = format;
        showQuality(format);
        if (edit && !m_typing) {
            edit->setText(ShotSaveOptions::withExtension(edit->text(), format));
        }
    };
    if (types) {
        QObject::connect(types, &QComboBox::currentIndexChanged, &dialog, formatChosen);
    }
    if (types && edit) {
        QObject::connect(edit, &QLineEdit::textEdited, &dialog, [this, types](const QString& text) {
            const auto typed = formatForFileName(text);
            if (typed && *typed != m_options.format) {
                m_typing = true;
                types->setCurrentIndex(int(*typed));
                m_typing = false;
            }
        });
    }
}

ShotSaveOptions ShotSaveDialog::options() const
{
    ShotSaveOptions options = m_options;
    const QString filter = m_dialog.selectedNameFilter();
    for (const ShotFormat format : allCases<ShotFormat>()) {
        if (filter == ShotSaveOptions::nameFilter(format)) {
            options.format = format;
        }
    }
    // The extension of the file as chosen has the last word.
    const QStringList files = m_dialog.selectedFiles();
    if (!files.isEmpty()) {
        if (const auto named = formatForFileName(files.first())) {
            options.format = *named;
        }
    }
    return options;
}

QString ShotSaveDialog::chosenPath() const
{
    const QStringList files = m_dialog.selectedFiles();
    if (files.isEmpty()) {
        return {};
    }
    // A name without an extension of ours gets the chosen format's.
    return formatForFileName(files.first()) ? files.first()
                                            : files.first() + QLatin1Char('.') +
                                                  fileExtension(options().format);
}

} // namespace nubo
