#include "editor/ShotZoomControls.h"

#include "editor/ShotCanvas.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>

#include <functional>

namespace nubo {

ShotZoomControls::ShotZoomControls(ShotCanvas& canvas, QWidget* parent)
    : QWidget(parent), m_canvas(canvas)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 8, 0);
    const auto button = [this, layout](const QString& title, const QString& help,
                                       std::function<void()> action) {
        auto* b = new QToolButton(this);
        b->setText(title);
        b->setToolTip(help);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QToolButton::clicked, this, [this, action] {
            action();
            update();
        });
        layout->addWidget(b);
    };
    button(QStringLiteral("\u2212"), QStringLiteral("Zoom Out (Ctrl+-)"),
           [this] { m_canvas.setZoom(m_canvas.zoom() / 1.25); });
    m_zoom = new QLabel(this);
    m_zoom->setMinimumWidth(48);
    m_zoom->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_zoom);
    button(QStringLiteral("+"), QStringLiteral("Zoom In (Ctrl++)"),
           [this] { m_canvas.setZoom(m_canvas.zoom() * 1.25); });
    button(QStringLiteral("Fit"), QStringLiteral("Fit in Window (Ctrl+9)"),
           [this] { m_canvas.setFitsWindow(true); });
    connect(&m_canvas, &ShotCanvas::zoomChanged, this, &ShotZoomControls::update);
    update();
}

void ShotZoomControls::update()
{
    m_zoom->setText(QStringLiteral("%1%").arg(qRound(m_canvas.zoom() * 100)));
}

} // namespace nubo
