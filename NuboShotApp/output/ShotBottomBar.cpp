#include "output/ShotBottomBar.h"

#include "editor/ShotCanvas.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>

namespace nubo {

ShotDragHandle::ShotDragHandle(QWidget* parent) : QLabel(QStringLiteral("Drag Me"), parent)
{
    QFont font = this->font();
    font.setPointSize(12);
    font.setWeight(QFont::Medium);
    setFont(font);
    setToolTip(QStringLiteral("Drag PNG \u00b7 Hold Alt at drop to keep open"));
    setCursor(Qt::OpenHandCursor);
    setFrameStyle(QFrame::StyledPanel);
    setMargin(4);
}

void ShotDragHandle::mousePressEvent(QMouseEvent* event)
{
    m_armed = event->button() == Qt::LeftButton;
    m_pressed = event->position().toPoint();
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

ShotBottomBar::ShotBottomBar(ShotCanvas& canvas, QWidget* parent)
    : QWidget(parent), m_canvas(canvas)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);

    const auto button = [this, layout](const QString& title, const QString& help, auto signal) {
        auto* b = new QPushButton(title, this);
        b->setToolTip(help);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QPushButton::clicked, this, signal);
        layout->addWidget(b);
        return b;
    };
    m_copy =
        button(QStringLiteral("Copy"), QStringLiteral("Copy (Ctrl+C) \u00b7 Hold Alt to keep open"),
               &ShotBottomBar::copyRequested);
    m_save = button(
        QStringLiteral("Save"),
        QStringLiteral("Save to the quick-save folder (Ctrl+S) \u00b7 Hold Alt to keep open"),
        &ShotBottomBar::quickSaveRequested);
    m_saveAs = button(QStringLiteral("Save As\u2026"), QStringLiteral("Save As (Ctrl+Shift+S)"),
                      &ShotBottomBar::saveAsRequested);
    m_drag = new ShotDragHandle(this);
    connect(m_drag, &ShotDragHandle::dragStarted, this, &ShotBottomBar::dragRequested);
    layout->addWidget(m_drag);
    m_share = button(QStringLiteral("Share\u2026"),
                     QStringLiteral("Open the shot with another application"),
                     &ShotBottomBar::shareRequested);
    layout->addStretch(1);

    m_pin = new QToolButton(this);
    m_pin->setText(QStringLiteral("Pin"));
    m_pin->setCheckable(true);
    m_pin->setFocusPolicy(Qt::NoFocus);
    m_pin->setToolTip(QStringLiteral("Keep this editor open after copying, saving or dragging"));
    layout->addWidget(m_pin);

    const auto zoomButton = [this, layout](const QString& title, const QString& help,
                                           std::function<void()> action) {
        auto* b = new QToolButton(this);
        b->setText(title);
        b->setToolTip(help);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QToolButton::clicked, this, [this, action] {
            action();
            updateZoom();
        });
        layout->addWidget(b);
    };
    zoomButton(QStringLiteral("\u2212"), QStringLiteral("Zoom Out (Ctrl+-)"),
               [this] { m_canvas.setZoom(m_canvas.zoom() / 1.25); });
    m_zoom = new QLabel(this);
    m_zoom->setMinimumWidth(48);
    m_zoom->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_zoom);
    zoomButton(QStringLiteral("+"), QStringLiteral("Zoom In (Ctrl++)"),
               [this] { m_canvas.setZoom(m_canvas.zoom() * 1.25); });
    zoomButton(QStringLiteral("Fit"), QStringLiteral("Fit in Window (Ctrl+9)"),
               [this] { m_canvas.setFitsWindow(true); });
    connect(&m_canvas, &ShotCanvas::zoomChanged, this, &ShotBottomBar::updateZoom);
    updateZoom();
}

bool ShotBottomBar::isPinned() const
{
    return m_pin->isChecked();
}

void ShotBottomBar::setShareAvailable(bool available)
{
    m_share->setVisible(available);
}

void ShotBottomBar::updateZoom()
{
    m_zoom->setText(QStringLiteral("%1%").arg(qRound(m_canvas.zoom() * 100)));
}

} // namespace nubo
