#pragma once

#include "settings/ShotSettingsPage.h"

#include <QWidget>

class QListWidget;
class QStackedWidget;

namespace nubo {

// "Settings…": one window, its pages in a sidebar. Every control applies at
// once; there is nothing to confirm.
class ShotSettingsWindow : public QWidget {
    Q_OBJECT
public:
    explicit ShotSettingsWindow(ShotSettingsContext context, QWidget* parent = nullptr);

    // Shows the window, or brings it forward when it is open already.
    void present();
    ShotSettingsPage* page(const QString& key) const;
    // Shows the page with this English title (its key).
    void showPage(const QString& key);
    // Every page shows the stored values again.
    void reload();

protected:
    void hideEvent(QHideEvent* event) override;

private:
    ShotSettingsContext m_context;
    QListWidget* m_sidebar;
    QStackedWidget* m_pages;
};

} // namespace nubo
