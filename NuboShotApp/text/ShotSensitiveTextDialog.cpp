#include "text/ShotSensitiveTextDialog.h"

#include <QCoreApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace nubo {

QString sensitiveKindTitle(SensitiveKind kind)
{
    switch (kind) {
    case SensitiveKind::email: return QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "E-mail address");
    case SensitiveKind::phone: return QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "Phone number");
    case SensitiveKind::ipAddress: return QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "IP address");
    case SensitiveKind::cardNumber: return QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "Card number");
    case SensitiveKind::token: return QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "Key or token");
    case SensitiveKind::privateKey: return QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "Private key");
    }
    return {};
}

std::optional<QList<int>> chooseSensitiveText(QWidget* parent, const QList<SensitiveFind>& finds)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("sensitiveText"));
    dialog.setWindowTitle(QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "Hide Sensitive Text"));
    auto* layout = new QVBoxLayout(&dialog);
    auto* intro = new QLabel(
        QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "The ticked text is pixelated. Untick what may stay readable."),
        &dialog);
    intro->setWordWrap(true);
    layout->addWidget(intro);
    auto* list = new QListWidget(&dialog);
    for (const SensitiveFind& find : finds) {
        QString shown = find.text;
        shown.replace(u'\n', u' ');
        auto* item = new QListWidgetItem(
            QStringLiteral("%1: %2").arg(sensitiveKindTitle(find.kind),
                                          list->fontMetrics().elidedText(shown, Qt::ElideMiddle, 360)),
            list);
        item->setToolTip(find.text);
        item->setFlags(Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
        item->setCheckState(Qt::Checked);
    }
    layout->addWidget(list);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, &dialog);
    QPushButton* hide =
        buttons->addButton(QCoreApplication::translate("nubo::ShotSensitiveTextDialog", "Hide"), QDialogButtonBox::AcceptRole);
    hide->setDefault(true);
    QObject::connect(list, &QListWidget::itemChanged, hide, [list, hide] {
        bool any = false;
        for (int i = 0; i < list->count(); ++i) {
            any = any || list->item(i)->checkState() == Qt::Checked;
        }
        hide->setEnabled(any);
    });
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    layout->addWidget(buttons);
    dialog.resize(dialog.sizeHint().expandedTo(QSize(460, 300)));
    if (dialog.exec() != QDialog::Accepted) {
        return std::nullopt;
    }
    QList<int> ticked;
    for (int i = 0; i < list->count(); ++i) {
        if (list->item(i)->checkState() == Qt::Checked) {
            ticked << i;
        }
    }
    return ticked;
}

} // namespace nubo
