#include "output/ShotSaveOptions.h"

#include "core/EnumStrings.h"

#include <QCoreApplication>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QTreeView>
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

    // The options sit under "File name" and "Files of type" in Qt's own
    // dialog, their labels and fields in the same two columns.
    auto* grid = qobject_cast<QGridLayout*>(dialog.layout());
    auto* quality = new QSlider(Qt::Horizontal, &dialog);
    quality->setObjectName(QStringLiteral("quality"));
    quality->setRange(0, 100);
    quality->setValue(qRound(initial.quality * 100));
    auto* scale = new QComboBox(&dialog);
    scale->setObjectName(QStringLiteral("scale"));
    scale->addItem(QStringLiteral("1\u00d7"), 1.0);
    scale->addItem(QStringLiteral("2\u00d7"), 2.0);
    scale->setCurrentIndex(initial.scale >= 2 ? 1 : 0);
    auto* qualityRow = new QWidget(&dialog);
    auto* qualityLayout = new QHBoxLayout(qualityRow);
    qualityLayout->setContentsMargins(0, 0, 0, 0);
    auto* percent = new QLabel(qualityRow);
    percent->setMinimumWidth(48);
    percent->setText(QCoreApplication::translate("nubo::ShotSaveOptions", "%1 %").arg(quality->value()));
    qualityLayout->addWidget(quality, 1);
    qualityLayout->addWidget(percent);
    auto* qualityLabel = new QLabel(QCoreApplication::translate("nubo::ShotSaveOptions", "&Quality:"), &dialog);
    qualityLabel->setBuddy(quality);
    auto* scaleLabel = new QLabel(QCoreApplication::translate("nubo::ShotSaveOptions", "S&cale:"), &dialog);
    scaleLabel->setBuddy(scale);
    auto* scaleRow = new QWidget(&dialog);
    auto* scaleLayout = new QHBoxLayout(scaleRow);
    scaleLayout->setContentsMargins(0, 0, 0, 0);
    scaleLayout->addWidget(scale);
    scaleLayout->addStretch(1);
    if (grid) {
        // Qt's dialog puts its labels in column 0 and its fields from column 1.
        const int span = std::max(1, grid->columnCount() - 1);
        int row = grid->rowCount();
        grid->addWidget(qualityLabel, row, 0);
        grid->addWidget(qualityRow, row, 1, 1, span);
        ++row;
        grid->addWidget(scaleLabel, row, 0);
        grid->addWidget(scaleRow, row, 1, 1, span);
    }
    // Room for the list's name, size, type and date columns, each as wide
    // as what it shows and the name taking the rest.
    dialog.resize(dialog.sizeHint().expandedTo(QSize(900, 560)));
    if (auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"))) {
        QHeaderView* header = list->header();
        header->setStretchLastSection(false);
        header->setSectionResizeMode(0, QHeaderView::Stretch);
        for (int column = 1; column < header->count(); ++column) {
            header->setSectionResizeMode(column, QHeaderView::ResizeToContents);
        }
    }
    // Quality means something only for lossy formats: the row is there for them alone.
    const auto showQuality = [qualityLabel, qualityRow](ShotFormat format) {
        qualityLabel->setVisible(ShotSaveOptions::isLossy(format));
        qualityRow->setVisible(ShotSaveOptions::isLossy(format));
    };
    showQuality(initial.format);

    QObject::connect(quality, &QSlider::valueChanged, &dialog, [this, percent](int value) {
        m_options.quality = value / 100.0;
        percent->setText(QCoreApplication::translate("nubo::ShotSaveOptions", "%1 %").arg(value));
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
