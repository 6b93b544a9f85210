#pragma once

#include "upload/UploadStore.h"

#include <QList>
#include <QWidget>

#include <functional>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace nubo {

// The last uploads of every program of the suite, from the shared store:
// where each went, its link (or key), how long the service keeps it, and a
// way to take a Filebin upload down again. Reads the store each time it is
// shown; deletes run on a worker thread.
class ShotUploadHistory : public QWidget {
    Q_OBJECT
public:
    explicit ShotUploadHistory(QString storePath = UploadStore::defaultPath(),
                               QWidget* parent = nullptr);

    // Shows the window with the store as it is now, brought to the front.
    void present();
    void reload();
    const QList<UploadStore::FileUse>& uses() const { return m_uses; }
    QTreeWidget* list() const { return m_list; }

    // Asks before a delete; true to go on. Replaceable for tests.
    std::function<bool(const UploadStore::FileUse&)> confirmDelete;
    // The Filebin server an upload's link points at.
    static QString filebinServer(const UploadStore::FileUse& use);

signals:
    // A delete ended: empty when it went well, else why not.
    void deleteFinished(const QString& failure);

private:
    void updateButtons();
    void deleteSelected();
    const UploadStore::FileUse* selected() const;

    QString m_storePath;
    QList<UploadStore::FileUse> m_uses;
    QTreeWidget* m_list = nullptr;
    QPushButton* m_copy = nullptr;
    QPushButton* m_open = nullptr;
    QPushButton* m_delete = nullptr;
    QLabel* m_status = nullptr;
    bool m_deleting = false;
};

} // namespace nubo
