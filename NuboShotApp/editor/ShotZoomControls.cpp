#include "editor/ShotZoomControls.h"

#include "editor/ShotCanvas.h"
#include "editor/ShotCanvasView.h"
#include "style/ShotIcons.h"

#include <QHBoxLayout>
#include <QToolButton>

#include <functional>

namespace nubo {

ShotZoomControls::ShotZoomControls(ShotCanvasView& view, QWidget* parent)
    : QWidget(parent), m_view(view)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    const auto button = [this, layout](const QString& icon, const QString& help,
                                       std::function<void()> action) {
        auto* b = new QToolButton(this);
        if (!icon.isEmpty()) {
            b->setIcon(ShotIcons::icon(icon));
        }
        b->setToolTip(help);
        b->setAccessibleName(help.section(QStringLiteral(" ("), 0, 0));
        b->setAutoRaise(true);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QToolButton::clicked, this, [this, action] {
            action();
            update();
        });
        layout->addWidget(b);
        return b;
    };
    button(QStringLiteral("zoom-out"), tr("Zoom Out (Ctrl+-)"), [this] { m_view.zoomOut(); });
    m_zoom = button({}, tr("Actual Size (Ctrl+0)"), [this] { m_view.zoomTo(1); });
    m_zoom->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("1600 %")) + 12);
    button(QStringLiteral("zoom-in"), tr("Zoom In (Ctrl++)"), [this] { m_view.zoomIn(); });
    m_fit = button(QStringLiteral("zoom-fit-best"), tr("Fit in Window (Ctrl+9)"),
                   [this] { m_view.fitToView(); });
    m_fit->setCheckable(true);
    connect(&m_view.canvas(), &ShotCanvas::zoomChanged, this, &ShotZoomControls::update);
    update();
}

void ShotZoomControls::update()
{
    m_zoom->setText(QStringLiteral("%1 %").arg(qRound(m_view.canvas().zoom() * 100)));
    m_fit->setChecked(m_view.canvas().fitsWindow());
}

} // namespace nubo
