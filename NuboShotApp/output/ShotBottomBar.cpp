#include "output/ShotBottomBar.h"

#include "style/ShotIcons.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>

namespace nubo {

ShotDragHandle::ShotDragHandle(QWidget* parent) : QLabel(QStringLiteral("Drag Me"), parent)
{
    // The buttons' font and height, a handle's frame and cursor.
    setToolTip(QStringLiteral("Drag PNG \u00b7 Hold Alt at drop to keep open"));
    setCursor(Qt::OpenHandCursor);
    // A dashed outline: something to pick up, not a button to press.
    setObjectName(QStringLiteral("dragHandle"));
    setStyleSheet(QStringLiteral("QLabel#dragHandle { border: 1px dashed palette(dark);"
                                 " border-radius: 4px; padding: 0 12px; }"
                                 "QLabel#dragHandle:hover { background: palette(midlight); }"));
    setAlignment(Qt::AlignCenter);
}

void ShotDragHandle::mousePressEvent(QMouseEvent* event)
{
    m_armed = event->button() == Qt::LeftButton;
    m_pressed = event->position().toPoint();
    if (m_armed) {
        emit pressed();
    }
}

void ShotDragHandle::mouseMoveEvent(QMouseEvent* event)
{
    if (m_armed && (event->buttons() & Qt::LeftButton) &&
        (event->position().toPoint() - m_pressed).manhattanLength() >=
            QApplication::startDragDistance()) {
        m_armed = false;
        emit dragStarted();
    }
}

ShotBottomBar::ShotBottomBar(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);

    const auto button = [this, layout](const QString& icon, const QString& title,
                                       const QString& help, auto signal) {
        auto* b = new QPushButton(ShotIcons::icon(icon), title, this);
        b->setToolTip(help);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QPushButton::clicked, this, signal);
        layout->addWidget(b);
        return b;
    };
    m_copy =
        button(QStringLiteral("edit-copy"), QStringLiteral("Copy"), QStringLiteral("Copy (Ctrl+C) \u00b7 Hold Alt to keep open"),
               &ShotBottomBar::copyRequested);
    m_save = button(
        QStringLiteral("document-save"), QStringLiteral("Save"),
        QStringLiteral("Save to the quick-save folder (Ctrl+S) \u00b7 Hold Alt to keep open"),
        &ShotBottomBar::quickSaveRequested);
    m_saveAs = button(QStringLiteral("document-save-as"), QStringLiteral("Save As\u2026"), QStringLiteral("Save As (Ctrl+Shift+S)"),
                      &ShotBottomBar::saveAsRequested);
    m_drag = new ShotDragHandle(this);
    connect(m_drag, &ShotDragHandle::dragStarted, this, &ShotBottomBar::dragRequested);
    m_drag->setMinimumHeight(m_copy->sizeHint().height());
    layout->addWidget(m_drag);
    m_share = button(QStringLiteral("document-send"), QStringLiteral("Share\u2026"),
                     QStringLiteral("Open the shot with another application"),
                     &ShotBottomBar::shareRequested);
    layout->addStretch(1);

    m_pin = new QToolButton(this);
    m_pin->setText(QStringLiteral("Pin"));
    m_pin->setIcon(ShotIcons::icon(QStringLiteral("nuboshot-pin")));
    m_pin->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_pin->setAutoRaise(true);
    m_pin->setCheckable(true);
    m_pin->setFocusPolicy(Qt::NoFocus);
    m_pin->setToolTip(QStringLiteral("Keep this editor open after copying, saving or dragging"));
    layout->addWidget(m_pin);
}

bool ShotBottomBar::isPinned() const
{
    return m_pin->isChecked();
}

void ShotBottomBar::setShareAvailable(bool available)
{
    m_share->setVisible(available);
}

void ShotBottomBar::addTrailing(QWidget* widget)
{
    layout()->addWidget(widget);
}

} // namespace nubo
