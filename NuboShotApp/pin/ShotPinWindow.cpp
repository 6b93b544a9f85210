#include "pin/ShotPinWindow.h"

#include "core/Logging.h"
#include "export/ShotExporter.h"
#include "output/ShotClipboard.h"
#include "render/ShotRenderer.h"
#include "style/ShotIcons.h"

#include <QActionGroup>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScreen>
#include <QTimer>
#include <QWindow>


#include <cmath>

namespace nubo {

namespace {
constexpr double zoomStep = 1.25;
constexpr double smallestZoom = 0.1, largestZoom = 8;

} // namespace

ShotPinWindow::ShotPinWindow(ShotDocument document, QImage picture, bool composited, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint),
      m_document(std::move(document)), m_picture(std::move(picture))
{
    setAttribute(Qt::WA_DeleteOnClose);
    if (composited) {
        m_margin = shadow;
        setAttribute(Qt::WA_TranslucentBackground);
    } else {
        setAttribute(Qt::WA_OpaquePaintEvent);
    }
    setWindowTitle(tr("Pinned Shot"));
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::OpenHandCursor);
    setToolTip(tr("Drag to move · Wheel: Zoom · Ctrl+Wheel: Opacity · Double-Click or Esc: Close"));
}

double ShotPinWindow::screenRatio() const
{
    const QScreen* shownOn = screen() ? screen() : QGuiApplication::primaryScreen();
    return shownOn ? shownOn->devicePixelRatio() : 1.0;
}

QSize ShotPinWindow::shownSize() const
{
    // One pixel of the picture on one pixel of the screen at 100 %.
    const double points = m_zoom / screenRatio();
    return QSize(std::max(1, int(std::lround(m_picture.width() * points))),
                 std::max(1, int(std::lround(m_picture.height() * points))));
}

void ShotPinWindow::showAt(QPoint topLeft)
{
    setFixedSize(shownSize() + QSize(2 * m_margin, 2 * m_margin));
    move(topLeft - QPoint(m_margin, m_margin));
    show();
    raise();
    activateWindow();
}

void ShotPinWindow::setZoom(double zoom, std::optional<QPoint> keep)
{
    zoom = std::clamp(zoom, smallestZoom, largestZoom);
    if (std::abs(zoom - 1) < 0.05) {
        zoom = 1; // back to the real size exactly
    }
    if (zoom == m_zoom) {
        return;
    }
    // The point of the picture under `keep` (a global point) stays there.
    const QPoint anchor = keep.value_or(geometry().topLeft() + QPoint(m_margin, m_margin));
    const QPointF from = anchor - (geometry().topLeft() + QPoint(m_margin, m_margin));
    const double by = zoom / m_zoom;
    m_zoom = zoom;
    const QPoint corner = anchor - (from * by).toPoint();
    setFixedSize(shownSize() + QSize(2 * m_margin, 2 * m_margin));
    move(corner - QPoint(m_margin, m_margin));
    update();
}

void ShotPinWindow::setOpacity(double opacity)
{
    setWindowOpacity(std::clamp(opacity, minimumOpacity, 1.0));
}

void ShotPinWindow::copy()
{
    try {
        ShotClipboard::shared().write(ShotClipboard::renderItem(
            ShotRenderer::shared(), m_document, ShotExporter::defaultScale(m_document)));
    } catch (const Error& error) {
        qCWarning(lcApp, "The pinned shot was not copied: %s", qPrintable(error.message()));
    }
}

void ShotPinWindow::paintEvent(QPaintEvent*)
{
    if (!std::exchange(m_painted, true)) {
        QTimer::singleShot(0, this, &ShotPinWindow::firstPainted);
    }
    QPainter painter(this);
    painter.setPen(Qt::NoPen);
    const QRect inside = rect().adjusted(m_margin, m_margin, -m_margin, -m_margin);
    if (m_margin == shadow) {
        // Rings fading outwards, a little lower than the picture, as light
        // from above casts it; then a hairline at the picture's edge.
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.fillRect(rect(), Qt::transparent);
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setRenderHint(QPainter::Antialiasing);
        for (int ring = shadow - 1; ring >= 1; --ring) {
            const double fade = 1.0 - double(ring) / shadow;
            painter.setBrush(QColor(0, 0, 0, int(std::lround(20 * fade * fade))));
            painter.drawRoundedRect(QRectF(inside).adjusted(-ring, -ring + 3, ring, ring + 3), ring, ring);
        }
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setBrush(QColor(0, 0, 0, 70));
        painter.drawRect(inside.adjusted(-1, -1, 1, 1));
    } else {
        painter.setBrush(QColor(90, 90, 90));
        painter.drawRect(rect());
    }
    if (m_zoom == 1) {
        QImage exact = m_picture;
        exact.setDevicePixelRatio(screenRatio());
        painter.drawImage(inside.topLeft(), exact);
        return;
    }
    // Shrunk smoothly; enlarged with sharp pixels, as a close look wants them.
    painter.setRenderHint(QPainter::SmoothPixmapTransform, m_zoom < 1);
    painter.drawImage(inside, m_picture);
}

void ShotPinWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    // Where windows cannot place themselves, the desktop moves the pin.
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland")) &&
        windowHandle() && windowHandle()->startSystemMove()) {
        return;
    }
    m_grip = event->globalPosition().toPoint() - pos();
    setCursor(Qt::ClosedHandCursor);
}

void ShotPinWindow::mouseMoveEvent(QMouseEvent* event)
{
    if (m_grip) {
        move(event->globalPosition().toPoint() - *m_grip);
    }
}

void ShotPinWindow::mouseReleaseEvent(QMouseEvent*)
{
    m_grip.reset();
    setCursor(Qt::OpenHandCursor);
}

void ShotPinWindow::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) {
        close();
    }
}

void ShotPinWindow::wheelEvent(QWheelEvent* event)
{
    const int steps = event->angleDelta().y() / 120;
    if (steps == 0) {
        return;
    }
    if (event->modifiers() & Qt::ControlModifier) {
        setOpacity(windowOpacity() + 0.1 * steps);
        return;
    }
    setZoom(m_zoom * std::pow(zoomStep, steps), event->globalPosition().toPoint());
}

void ShotPinWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        close();
    } else if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (event->key() == Qt::Key_0 && event->modifiers() & Qt::ControlModifier) {
        setZoom(1);
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ShotPinWindow::contextMenuEvent(QContextMenuEvent* event)
{
    QMenu menu(this);
    QAction* copyItem = menu.addAction(ShotIcons::icon(QStringLiteral("edit-copy")), tr("Copy"));
    copyItem->setShortcut(QKeySequence::Copy);
    connect(copyItem, &QAction::triggered, this, &ShotPinWindow::copy);
    if (save) {
        connect(menu.addAction(ShotIcons::icon(QStringLiteral("document-save")), tr("Save")),
                &QAction::triggered, this, [this] { save(m_document, m_picture); });
    }
    if (openInEditor) {
        connect(menu.addAction(ShotIcons::icon(QStringLiteral("document-edit")), tr("Open in Editor")),
                &QAction::triggered, this, [this] {
                    openInEditor(m_document);
                    close();
                });
    }
    QMenu* opacity = menu.addMenu(tr("Opacity"));
    auto* choices = new QActionGroup(opacity);
    for (const int percent : {100, 75, 50, 25}) {
        QAction* item = opacity->addAction(QStringLiteral("%1 %").arg(percent));
        item->setCheckable(true);
        item->setChecked(std::lround(windowOpacity() * 100) == percent);
        choices->addAction(item);
        connect(item, &QAction::triggered, this, [this, percent] { setOpacity(percent / 100.0); });
    }
    menu.addSeparator();
    QAction* closeItem = menu.addAction(ShotIcons::icon(QStringLiteral("window-close")), tr("Close"));
    closeItem->setShortcut(QKeySequence(Qt::Key_Escape));
    connect(closeItem, &QAction::triggered, this, &QWidget::close);
    menu.exec(event->globalPos());
}

void ShotPinWindow::closeEvent(QCloseEvent* event)
{
    emit closed();
    QWidget::closeEvent(event);
}

} // namespace nubo
