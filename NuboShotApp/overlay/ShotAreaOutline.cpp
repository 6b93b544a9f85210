#include "overlay/ShotAreaOutline.h"

namespace nubo {

void ShotAreaOutline::show(const QRectF& area, double width, const QColor& colour,
                           const QString& title)
{
    hide();
    const QRect outer = area.adjusted(-1 - width, -1 - width, 1 + width, 1 + width).toAlignedRect();
    const int t = int(width);
    for (const QRect& geometry :
         {QRect(outer.left(), outer.top(), outer.width(), t),
          QRect(outer.left(), outer.bottom() - t + 1, outer.width(), t),
          QRect(outer.left(), outer.top() + t, t, outer.height() - 2 * t),
          QRect(outer.right() - t + 1, outer.top() + t, t, outer.height() - 2 * t)}) {
        auto* strip = new QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint |
                                               Qt::WindowStaysOnTopHint |
                                               Qt::WindowDoesNotAcceptFocus |
                                               Qt::WindowTransparentForInput |
                                               Qt::X11BypassWindowManagerHint);
        strip->setWindowTitle(title);
        strip->setAttribute(Qt::WA_ShowWithoutActivating);
        strip->setAttribute(Qt::WA_DeleteOnClose);
        QPalette palette = strip->palette();
        palette.setColor(QPalette::Window, colour);
        strip->setPalette(palette);
        strip->setAutoFillBackground(true);
        strip->setGeometry(geometry);
        strip->show();
        m_strips.append(strip);
    }
}

void ShotAreaOutline::hide()
{
    for (const QPointer<QWidget>& strip : std::exchange(m_strips, {})) {
        if (strip) {
            strip->close();
        }
    }
}

QList<QWidget*> ShotAreaOutline::strips() const
{
    QList<QWidget*> shown;
    for (const QPointer<QWidget>& strip : m_strips) {
        if (strip) {
            shown.append(strip.data());
        }
    }
    return shown;
}

} // namespace nubo
