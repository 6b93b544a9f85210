#include "settings/ShotSettingsWindow.h"

#include "style/WindowPlacement.h"

#include "style/ShotIcons.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QScrollArea>
#include <QStackedWidget>

namespace nubo {

ShotSettingsWindow::ShotSettingsWindow(ShotSettingsContext context, QWidget* parent)
    : QWidget(parent, Qt::Window), m_context(std::move(context)),
      m_sidebar(new QListWidget(this)), m_pages(new QStackedWidget(this))
{
    setWindowTitle(tr("Nubo Shot Settings"));
    setObjectName(QStringLiteral("settingsWindow"));
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    m_sidebar->setObjectName(QStringLiteral("settingsSidebar"));
    m_sidebar->setIconSize(QSize(20, 20));
    m_sidebar->setFrameShape(QFrame::NoFrame);
    m_sidebar->setStyleSheet(QStringLiteral(
        "QListWidget#settingsSidebar { background: palette(window); padding: 8px 6px;"
        " outline: 0; }"
        "QListWidget#settingsSidebar::item { padding: 7px 8px; border-radius: 6px; }"
        "QListWidget#settingsSidebar::item:selected { background: palette(highlight);"
        " color: palette(highlighted-text); }"));
    layout->addWidget(m_sidebar);
    auto* separator = new QFrame(this);
    separator->setFrameShape(QFrame::VLine);
    separator->setFrameShadow(QFrame::Sunken);
    layout->addWidget(separator);
    layout->addWidget(m_pages, 1);

    for (const ShotSettingsPageMaker make : settingsPages()) {
        ShotSettingsPage* page = make(m_context, nullptr);
        connect(page, &ShotSettingsPage::storedValuesReplaced, this, &ShotSettingsWindow::reload);
        auto* scroller = new QScrollArea(m_pages);
        scroller->setWidgetResizable(true);
        scroller->setFrameShape(QFrame::NoFrame);
        scroller->setWidget(page);
        m_pages->addWidget(scroller);
        auto* item = new QListWidgetItem(ShotIcons::icon(page->iconName()), page->title());
        item->setData(Qt::UserRole, page->key());
        m_sidebar->addItem(item);
    }
    m_sidebar->setFixedWidth(m_sidebar->sizeHintForColumn(0) + 40);
    connect(m_sidebar, &QListWidget::currentRowChanged, m_pages, &QStackedWidget::setCurrentIndex);
    m_sidebar->setCurrentRow(0);
    WindowPlacement::place(*this, QStringLiteral("settings"), QSize(820, 560));
}

void ShotSettingsWindow::hideEvent(QHideEvent* event)
{
    WindowPlacement::remember(*this, QStringLiteral("settings"));
    QWidget::hideEvent(event);
}

void ShotSettingsWindow::present()
{
    if (isMinimized()) {
        showNormal();
    }
    show();
    raise();
    activateWindow();
}

ShotSettingsPage* ShotSettingsWindow::page(const QString& key) const
{
    for (int i = 0; i < m_pages->count(); ++i) {
        auto* page = qobject_cast<ShotSettingsPage*>(
            static_cast<QScrollArea*>(m_pages->widget(i))->widget());
        if (page && page->key() == key) {
            return page;
        }
    }
    return nullptr;
}

void ShotSettingsWindow::showPage(const QString& key)
{
    for (int i = 0; i < m_sidebar->count(); ++i) {
        if (m_sidebar->item(i)->data(Qt::UserRole).toString() == key) {
            m_sidebar->setCurrentRow(i);
        }
    }
}

void ShotSettingsWindow::reload()
{
    if (m_context.changed) {
        m_context.changed({});
    }
    for (int i = 0; i < m_pages->count(); ++i) {
        if (auto* page = qobject_cast<ShotSettingsPage*>(
                static_cast<QScrollArea*>(m_pages->widget(i))->widget())) {
            page->reload();
        }
    }
}

} // namespace nubo
