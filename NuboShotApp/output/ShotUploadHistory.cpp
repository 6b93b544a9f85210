#include "output/ShotUploadHistory.h"

#include "core/Error.h"
#include "core/Logging.h"
#include "upload/S3Signing.h"
#include "upload/Uploader.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFutureWatcher>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeWidget>
#include <QUrl>
#include <QVBoxLayout>
#include <QtConcurrent>

namespace nubo {

namespace {

enum Column { fileColumn, whereColumn, whenColumn, keptColumn, linkColumn };

QString shortTime(const QDateTime& at)
{
    const QDateTime local = at.toLocalTime();
    const QLocale locale;
    return local.date() == QDate::currentDate()
               ? locale.toString(local.time(), QStringLiteral("HH:mm"))
               : locale.toString(
                     local, QCoreApplication::translate("nubo::ShotUploadHistory", "d MMM, HH:mm"));
}

} // namespace

ShotUploadHistory::ShotUploadHistory(QString storePath, QWidget* parent)
    : QWidget(parent, Qt::Window), m_storePath(std::move(storePath))
{
    setWindowTitle(tr("Recent Uploads"));
    setObjectName(QStringLiteral("uploadHistory"));
    resize(760, 380);
    confirmDelete = [this](const UploadStore::FileUse& use) {
        QMessageBox box(QMessageBox::Question, tr("Delete from Filebin"),
                        tr("Delete “%1” from Filebin?").arg(use.key), QMessageBox::NoButton, this);
        box.setInformativeText(tr("Its link stops working for everyone."));
        QPushButton* remove = box.addButton(tr("Delete"), QMessageBox::DestructiveRole);
        box.setDefaultButton(box.addButton(QMessageBox::Cancel));
        box.setWindowModality(Qt::WindowModal);
        box.exec();
        return box.clickedButton() == remove;
    };

    auto* layout = new QVBoxLayout(this);
    m_list = new QTreeWidget(this);
    m_list->setObjectName(QStringLiteral("uploads"));
    m_list->setRootIsDecorated(false);
    m_list->setUniformRowHeights(true);
    m_list->setHeaderLabels(
        {tr("File"), tr("Where"), tr("Uploaded"), tr("Kept until"), tr("Link or key")});
    m_list->header()->setStretchLastSection(true);
    m_list->setColumnWidth(fileColumn, 230);
    m_list->setColumnWidth(whereColumn, 110);
    m_list->setColumnWidth(whenColumn, 100);
    m_list->setColumnWidth(keptColumn, 100);
    layout->addWidget(m_list, 1);

    auto* buttons = new QHBoxLayout;
    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("uploadHistoryStatus"));
    m_status->setWordWrap(true);
    buttons->addWidget(m_status, 1);
    m_copy = new QPushButton(tr("Copy Link"), this);
    m_copy->setObjectName(QStringLiteral("copyUploadLink"));
    m_open = new QPushButton(tr("Open Link"), this);
    m_open->setObjectName(QStringLiteral("openUploadLink"));
    m_delete = new QPushButton(tr("Delete from Filebin"), this);
    m_delete->setObjectName(QStringLiteral("deleteUpload"));
    buttons->addWidget(m_copy);
    buttons->addWidget(m_open);
    buttons->addWidget(m_delete);
    layout->addLayout(buttons);

    connect(m_list, &QTreeWidget::itemSelectionChanged, this, &ShotUploadHistory::updateButtons);
    connect(m_list, &QTreeWidget::itemDoubleClicked, this, [this] { m_copy->click(); });
    connect(m_copy, &QPushButton::clicked, this, [this] {
        if (const UploadStore::FileUse* use = selected()) {
            const QString handle = use->link.isEmpty() ? use->key : use->link;
            QGuiApplication::clipboard()->setText(handle);
            m_status->setText(tr("Copied %1").arg(handle));
        }
    });
    connect(m_open, &QPushButton::clicked, this, [this] {
        if (const UploadStore::FileUse* use = selected(); use && !use->link.isEmpty()) {
            QDesktopServices::openUrl(QUrl(use->link));
        }
    });
    connect(m_delete, &QPushButton::clicked, this, &ShotUploadHistory::deleteSelected);
    reload();
}

void ShotUploadHistory::present()
{
    reload();
    show();
    raise();
    activateWindow();
}

QString ShotUploadHistory::filebinServer(const UploadStore::FileUse& use)
{
    // The link is SERVER/BIN/FILE, each encoded once.
    const QString tail = QLatin1Char('/') + QString::fromLatin1(s3::uriEncode(use.location.toUtf8(), true)) +
                         QLatin1Char('/') + QString::fromLatin1(s3::uriEncode(use.key.toUtf8(), true));
    return use.link.endsWith(tail) ? use.link.chopped(tail.size()) : QString();
}

void ShotUploadHistory::reload()
{
    const QString previous = selected() ? selected()->uploadId : QString();
    m_list->clear();
    m_uses.clear();
    try {
        m_uses = UploadStore(m_storePath).fileUses(100);
        m_status->setText(m_uses.isEmpty() ? tr("Nothing uploaded yet.") : QString());
    } catch (const Error& error) {
        m_status->setText(error.message());
    }
    const QDateTime now = QDateTime::currentDateTimeUtc();
    for (const UploadStore::FileUse& use : m_uses) {
        QString kept;
        if (use.deletedAt) {
            kept = tr("Deleted");
        } else if (use.leaseEnds) {
            kept = *use.leaseEnds < now ? tr("Expired") : shortTime(*use.leaseEnds);
        } else {
            kept = tr("Until deleted");
        }
        auto* item = new QTreeWidgetItem(m_list, {use.fileName,
                                                  use.destination == ShotUploadDestination::r2
                                                      ? tr("Bucket “%1”").arg(use.location)
                                                      : tr("Filebin"),
                                                  shortTime(use.uploadedAt), kept,
                                                  use.link.isEmpty() ? use.key : use.link});
        item->setData(fileColumn, Qt::UserRole, use.uploadId);
        item->setToolTip(linkColumn, item->text(linkColumn));
        if (use.deletedAt) {
            for (int c = 0; c < m_list->columnCount(); ++c) {
                item->setForeground(c, palette().brush(QPalette::Disabled, QPalette::Text));
            }
        }
        if (use.uploadId == previous) {
            item->setSelected(true);
        }
    }
    if (!m_list->selectedItems().isEmpty()) {
        m_list->setCurrentItem(m_list->selectedItems().first());
    } else if (m_list->topLevelItemCount() > 0) {
        m_list->setCurrentItem(m_list->topLevelItem(0));
    }
    updateButtons();
}

const UploadStore::FileUse* ShotUploadHistory::selected() const
{
    const QList<QTreeWidgetItem*> items = m_list ? m_list->selectedItems() : QList<QTreeWidgetItem*>();
    if (items.isEmpty()) {
        return nullptr;
    }
    const QString id = items.first()->data(fileColumn, Qt::UserRole).toString();
    for (const UploadStore::FileUse& use : m_uses) {
        if (use.uploadId == id) {
            return &use;
        }
    }
    return nullptr;
}

void ShotUploadHistory::updateButtons()
{
    const UploadStore::FileUse* use = selected();
    m_copy->setEnabled(use);
    m_open->setEnabled(use && !use->link.isEmpty());
    const bool deletable = use && use->destination == ShotUploadDestination::filebin &&
                           !use->deletedAt && !filebinServer(*use).isEmpty() &&
                           !(use->leaseEnds && *use->leaseEnds < QDateTime::currentDateTimeUtc());
    m_delete->setEnabled(deletable && !m_deleting);
    m_delete->setToolTip(use && use->destination == ShotUploadDestination::r2
                             ? tr("Objects in a bucket are deleted with the bucket's own tools")
                             : QString());
}

void ShotUploadHistory::deleteSelected()
{
    const UploadStore::FileUse* chosen = selected();
    if (!chosen || m_deleting || !confirmDelete(*chosen)) {
        return;
    }
    const UploadStore::FileUse use = *chosen;
    const QString server = filebinServer(use);
    const QString storePath = m_storePath;
    m_deleting = true;
    updateButtons();
    m_status->setText(tr("Deleting %1…").arg(use.key));
    auto* watcher = new QFutureWatcher<QString>(this);
    connect(watcher, &QFutureWatcher<QString>::finished, this, [this, watcher, use] {
        watcher->deleteLater();
        m_deleting = false;
        const QString failure = watcher->result();
        reload();
        m_status->setText(failure.isEmpty() ? tr("Deleted %1 from Filebin.").arg(use.key)
                                            : failure);
        if (!failure.isEmpty()) {
            qCWarning(lcUpload, "Delete from Filebin failed: %s", qUtf8Printable(failure));
        }
        emit deleteFinished(failure);
    });
    watcher->setFuture(QtConcurrent::run([use, server, storePath]() -> QString {
        try {
            Uploader::deleteFromFilebin(use, server, storePath);
            return {};
        } catch (const Error& error) {
            return error.message();
        }
    }));
}

} // namespace nubo
