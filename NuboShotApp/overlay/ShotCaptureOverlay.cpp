#include "overlay/ShotCaptureOverlay.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>

#include <cmath>
#include <utility>

namespace nubo {

ShotCaptureOverlay::ShotCaptureOverlay(DisplayCapture display, QList<CapturableWindow> windows,
                                       Mode mode, std::optional<CaptureDisplay> recording,
                                       QWidget* parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::X11BypassWindowManagerHint),
      m_display(std::move(display)), m_windows(std::move(windows)), m_mode(mode),
      m_recording(std::move(recording))
{
    setWindowTitle(QStringLiteral("Nubo Shot Capture"));
    setAttribute(Qt::WA_DeleteOnClose);
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setGeometry(m_display.space.globalFrame.toRect());
}

void ShotCaptureOverlay::setMode(Mode mode)
{
    m_mode = mode;
    m_selection.reset();
    m_hovered.reset();
    update();
}

void ShotCaptureOverlay::setSelection(const QRectF& rect)
{
    m_selection =
        rect.normalized().intersected(QRectF(QPointF(0, 0), m_display.space.globalFrame.size()));
    update();
}

void ShotCaptureOverlay::setWindowPicking(bool on)
{
    m_windowPicking = on;
    if (!on && m_mode == Mode::window) {
        m_mode = Mode::area;
    }
    update();
}

void ShotCaptureOverlay::setDesktopPicksWindows(bool on)
{
    m_desktopPicks = on;
    update();
}

void ShotCaptureOverlay::setAdjustsArea(bool on)
{
    m_adjusts = on;
    update();
}

void ShotCaptureOverlay::setKeyHelp(bool on)
{
    m_keyHelp = on;
    update();
}

void ShotCaptureOverlay::clearSelection()
{
    if (m_selection && !m_dragStart) {
        m_selection.reset();
        m_resizing.reset();
        m_moveGrip.reset();
        update();
    }
}

QString ShotCaptureOverlay::adjustingInstruction(bool recording)
{
    return recording ? tr("Drag the area or its handles · Arrows: Move · "
                                      "Alt+Arrows: Resize · Shift: 10 pt · Return or "
                                      "Double-Click: Record · Esc: Cancel")
                     : tr("Drag the area or its handles · Arrows: Move · "
                                      "Alt+Arrows: Resize · Shift: 10 pt · Return or "
                                      "Double-Click: Capture · Esc: Cancel");
}

QString ShotCaptureOverlay::instruction(Mode mode, bool recording, bool windowPicking,
                                        bool desktopPicks)
{
    if (windowPicking && desktopPicks && mode != Mode::scrolling) {
        return recording ? tr("Drag an area to record · Click or F: Whole Screen "
                                          "· Space: Pick a Window · Esc: Cancel")
                         : tr("Drag to capture · Space: Pick a Window · "
                                          "Esc: Cancel");
    }
    if (!windowPicking && mode != Mode::scrolling) {
        return recording ? tr("Drag an area to record · Click or F: Whole Screen "
                                          "· Esc: Cancel")
                         : tr("Drag to capture · Esc: Cancel");
    }
    if (recording && mode == Mode::area) {
        return tr("Drag an area to record · Click or F: Whole Screen · "
                              "Space: Window · Esc: Cancel");
    }
    if (recording && mode == Mode::window) {
        return tr("Click a window to record · Space: Area · F: Whole Screen "
                              "· Esc: Cancel");
    }
    switch (mode) {
    case Mode::area:
        return tr("Drag to capture · Space: Window · Esc: Cancel");
    case Mode::window:
        return tr("Click a window · Space: Area · Esc: Cancel");
    case Mode::scrolling:
        break;
    }
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        // No panel follows here (it could not stand aside): how to finish is said now.
        return tr("Drag to select scroll area, scroll it to its end, then choose "
                              "Capture Scrolling again · Esc: Cancel");
    }
    return tr("Drag to select scroll area · Esc: Cancel");
}

std::optional<ResizeHandle> ShotCaptureOverlay::cornerAt(const QRectF& selection, QPointF point)
{
    return ShotGeometry::cornerNear(selection, point, handleReach);
}

QRectF ShotCaptureOverlay::nudged(const QRectF& selection, QPointF by, const QSizeF& bounds)
{
    QRectF moved = selection.translated(by);
    moved.moveLeft(std::clamp(moved.left(), 0.0, std::max(0.0, bounds.width() - moved.width())));
    moved.moveTop(std::clamp(moved.top(), 0.0, std::max(0.0, bounds.height() - moved.height())));
    return moved;
}

QRectF ShotCaptureOverlay::grown(const QRectF& selection, QPointF by, const QSizeF& bounds)
{
    QRectF sized = selection;
    sized.setWidth(std::clamp(selection.width() + by.x(), minimumSide,
                              std::max(minimumSide, bounds.width() - selection.left())));
    sized.setHeight(std::clamp(selection.height() + by.y(), minimumSide,
                               std::max(minimumSide, bounds.height() - selection.top())));
    return sized;
}

std::optional<ResizeHandle> ShotCaptureOverlay::handleAt(QPointF point) const
{
    if (!m_selection) {
        return std::nullopt;
    }
    if (const auto corner = cornerAt(*m_selection, point)) {
        return corner;
    }
    if (!m_adjusts) {
        return std::nullopt;
    }
    // The middles of the edges, only while adjusting (a drag there would
    // otherwise start a new area).
    for (const ResizeHandle edge :
         {ResizeHandle::top, ResizeHandle::right, ResizeHandle::bottom, ResizeHandle::left}) {
        if (QRectF(ShotGeometry::handlePoint(*m_selection, edge) - QPointF(handleReach, handleReach),
                   QSizeF(2 * handleReach, 2 * handleReach))
                .contains(point)) {
            return edge;
        }
    }
    return std::nullopt;
}

namespace {

struct KeyLine {
    QString keys;
    QString does;
};

QFont overlayFont(const QFont& base)
{
    QFont font = base;
    font.setPixelSize(13);
    font.setWeight(QFont::DemiBold);
    return font;
}

QList<KeyLine> keyLines(bool adjusts, bool recording, bool windows, bool scrolling)
{
    QList<KeyLine> lines{
        {QCoreApplication::translate("nubo::ShotCaptureOverlay", "Drag"),
         recording
             ? QCoreApplication::translate("nubo::ShotCaptureOverlay", "Frame the area to record")
             : QCoreApplication::translate("nubo::ShotCaptureOverlay", "Frame an area")}};
    if (windows) {
        lines.append(
            {QCoreApplication::translate("nubo::ShotCaptureOverlay", "Space"),
             QCoreApplication::translate("nubo::ShotCaptureOverlay", "Pick a window instead")});
    }
    if (recording) {
        lines.append(
            {QCoreApplication::translate("nubo::ShotCaptureOverlay", "Click or F"),
             QCoreApplication::translate("nubo::ShotCaptureOverlay", "Record the whole screen")});
    }
    lines.append(
        {QCoreApplication::translate("nubo::ShotCaptureOverlay", "Arrows"),
         QCoreApplication::translate("nubo::ShotCaptureOverlay", "Move the area (Shift: 10 pt)")});
    if (adjusts) {
        lines.append({QCoreApplication::translate("nubo::ShotCaptureOverlay", "Alt+Arrows"),
                      QCoreApplication::translate("nubo::ShotCaptureOverlay", "Resize the area")});
        lines.append(
            {QCoreApplication::translate("nubo::ShotCaptureOverlay", "Return, Double-Click"),
             recording
                 ? QCoreApplication::translate("nubo::ShotCaptureOverlay", "Record the area")
                 : QCoreApplication::translate("nubo::ShotCaptureOverlay", "Capture the area")});
    } else {
        lines.append(
            {QCoreApplication::translate("nubo::ShotCaptureOverlay", "Release"),
             recording
                 ? QCoreApplication::translate("nubo::ShotCaptureOverlay", "Record the area")
                 : QCoreApplication::translate("nubo::ShotCaptureOverlay", "Capture the area")});
    }
    if (!recording && !scrolling) {
        lines.append({QCoreApplication::translate("nubo::ShotCaptureOverlay", "P"),
                      QCoreApplication::translate("nubo::ShotCaptureOverlay", "Pin it to the screen")});
    }
    lines.append({QCoreApplication::translate("nubo::ShotCaptureOverlay", "Esc"),
                  QCoreApplication::translate("nubo::ShotCaptureOverlay", "Cancel")});
    return lines;
}

constexpr double keyHelpPadding = 16;
constexpr double keyHelpRow = 24;

} // namespace

QRectF ShotCaptureOverlay::keyHelpArea() const
{
    const QFontMetricsF metrics(overlayFont(font()));
    const auto lines = keyLines(m_adjusts, isRecording(), m_windowPicking && m_mode != Mode::scrolling,
                                m_mode == Mode::scrolling);
    double keys = 0, does = metrics.horizontalAdvance(tr("Click here to hide this for good"));
    for (const KeyLine& line : lines) {
        keys = std::max(keys, metrics.horizontalAdvance(line.keys));
        does = std::max(does, metrics.horizontalAdvance(line.does));
    }
    const QSizeF size(keys + does + 24 + 2 * keyHelpPadding,
                      (lines.size() + 2) * keyHelpRow + 2 * keyHelpPadding);
    return QRectF(QPointF((width() - size.width()) / 2, (height() - size.height()) / 2), size);
}

void ShotCaptureOverlay::paintKeyHelp(QPainter& painter)
{
    const QRectF card = keyHelpArea();
    painter.save();
    painter.setFont(overlayFont(font()));
    painter.setPen(QPen(QColor(255, 255, 255, 70), 1));
    painter.setBrush(QColor(20, 20, 20, 225));
    painter.drawRoundedRect(card.adjusted(0.5, 0.5, -0.5, -0.5), 10, 10);
    const auto lines = keyLines(m_adjusts, isRecording(), m_windowPicking && m_mode != Mode::scrolling,
                                m_mode == Mode::scrolling);
    const QFontMetricsF metrics(painter.font());
    double keys = 0;
    for (const KeyLine& line : lines) {
        keys = std::max(keys, metrics.horizontalAdvance(line.keys));
    }
    QRectF row(card.left() + keyHelpPadding, card.top() + keyHelpPadding,
               card.width() - 2 * keyHelpPadding, keyHelpRow);
    painter.setPen(Qt::white);
    painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, tr("Keys"));
    for (const KeyLine& line : lines) {
        row.translate(0, keyHelpRow);
        painter.setPen(QColor(140, 190, 255));
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, line.keys);
        painter.setPen(Qt::white);
        painter.drawText(row.adjusted(keys + 24, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, line.does);
    }
    row.translate(0, keyHelpRow);
    painter.setPen(QColor(255, 255, 255, 150));
    painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, tr("Click here to hide this for good"));
    painter.restore();
}

QRectF ShotCaptureOverlay::localFrame(const CapturableWindow& window) const
{
    return window.frame.translated(-m_display.space.globalFrame.topLeft());
}

std::optional<CapturableWindow> ShotCaptureOverlay::windowAt(QPointF local) const
{
    for (const CapturableWindow& window : m_windows) { // front-most first
        if (localFrame(window).contains(local)) {
            return window;
        }
    }
    return std::nullopt;
}

void ShotCaptureOverlay::paintEvent(QPaintEvent*)
{
    if (!m_painted) {
        m_painted = true;
        // Reported once this paint has been flushed to the screen (the
        // repaint flushes before the next event is taken).
        QTimer::singleShot(0, this, [this] { emit shown(); });
    }
    QPainter painter(this);
    const QRectF all(QPointF(0, 0), QSizeF(size()));
    painter.drawImage(all, m_display.image);
    std::optional<QRectF> clear = m_selection;
    if (m_mode == Mode::window && m_hovered) {
        clear = localFrame(*m_hovered).intersected(all);
    }
    QPainterPath dim;
    dim.addRect(all);
    if (clear) {
        dim.addRect(*clear);
    }
    dim.setFillRule(Qt::OddEvenFill);
    painter.fillPath(dim, QColor(0, 0, 0, 115));

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(overlayFont(painter.font()));
    const auto label = [&](const QRectF& near, const QString& text) {
        const QRectF box = painter.fontMetrics().boundingRect(text).adjusted(-8, -4, 8, 4);
        QPointF at(near.left(), near.top() - box.height() - 4);
        if (at.y() < 0) {
            at.setY(near.bottom() + 4);
        }
        const QRectF placed(at, box.size());
        // Dark glass with a faint light rim: readable on white and on black.
        painter.setPen(QPen(QColor(255, 255, 255, 70), 1));
        painter.setBrush(QColor(20, 20, 20, 215));
        painter.drawRoundedRect(placed.adjusted(0.5, 0.5, -0.5, -0.5), 5, 5);
        painter.setPen(Qt::white);
        painter.drawText(placed, Qt::AlignCenter, text);
    };
    if (clear) {
        painter.setPen(QPen(QColor(255, 255, 255, 230), 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(clear->adjusted(-0.5, -0.5, 0.5, 0.5));
        const double s = m_display.space.scale;
        if (m_mode != Mode::window) {
            // The size in pixels beside the selection, and its corner handles.
            label(*clear, QStringLiteral("%1 \u00d7 %2")
                              .arg(qRound(clear->width() * s))
                              .arg(qRound(clear->height() * s)));
            painter.setBrush(Qt::white);
            QList<ResizeHandle> handles{ResizeHandle::topLeft, ResizeHandle::topRight,
                                        ResizeHandle::bottomRight, ResizeHandle::bottomLeft};
            if (m_adjusts) {
                handles << ResizeHandle::top << ResizeHandle::right << ResizeHandle::bottom
                        << ResizeHandle::left;
            }
            painter.setPen(QPen(QColor(0, 0, 0, 140), 1)); // a rim that shows on white
            for (const ResizeHandle handle : handles) {
                const QPointF corner = ShotGeometry::handlePoint(*clear, handle);
                // The hovered handle grows for a moment, then stays larger.
                const bool hot = handle == m_hoveredCorner;
                const double radius = !hot ? 4.5 : m_hoverStarted.elapsed() < 100 ? 7 : 6;
                painter.drawEllipse(corner, radius, radius);
            }
        } else if (m_hovered) {
            label(*clear,
                  m_hovered->title.isEmpty() ? m_hovered->applicationName : m_hovered->title);
        }
    }
    // While framing: the pixels under the pointer, magnified, with the colour
    // of the one in the middle.
    if (showsLens()) {
        const double s = m_display.space.scale;
        const QPoint centre = (m_cursor * s).toPoint();
        constexpr int radius = 5;   // pixels each side
        constexpr double zoom = 10; // screen points a pixel
        const QRect source(centre.x() - radius, centre.y() - radius, 2 * radius + 1,
                           2 * radius + 1);
        const QSizeF size(source.width() * zoom, source.height() * zoom);
        QPointF at = m_cursor + QPointF(24, 24);
        if (at.x() + size.width() > width()) {
            at.setX(m_cursor.x() - 24 - size.width());
        }
        if (at.y() + size.height() + 24 > height()) {
            at.setY(m_cursor.y() - 24 - size.height() - 24);
        }
        const QRectF lens(at, size);
        QPainterPath circle;
        circle.addEllipse(lens);
        painter.save();
        painter.setClipPath(circle);
        painter.fillRect(lens, Qt::black);
        painter.setRenderHint(QPainter::SmoothPixmapTransform, false);
        painter.drawImage(lens, m_display.image, source);
        // A crosshair along the middle row and column, and the middle pixel
        // ringed in black and white: both show on any colour.
        const QRectF middle(at + QPointF(radius * zoom, radius * zoom), QSizeF(zoom, zoom));
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(80, 160, 255, 70));
        painter.drawRect(QRectF(lens.left(), middle.top(), lens.width(), zoom));
        painter.drawRect(QRectF(middle.left(), lens.top(), zoom, lens.height()));
        painter.setBrush(Qt::NoBrush);
        painter.setRenderHint(QPainter::Antialiasing, false); // crisp one-pixel lines
        const QRect cell = middle.toRect();
        painter.setPen(QPen(Qt::black, 1));
        painter.drawRect(cell.adjusted(-1, -1, 0, 0));
        painter.setPen(QPen(Qt::white, 1));
        painter.drawRect(cell.adjusted(0, 0, -1, -1));
        painter.restore();
        // The rim: dark outside, light inside, so the lens stands out on white.
        painter.setBrush(Qt::NoBrush);
        painter.setPen(QPen(QColor(0, 0, 0, 160), 4));
        painter.drawEllipse(lens.adjusted(-1.5, -1.5, 1.5, 1.5));
        painter.setPen(QPen(Qt::white, 2));
        painter.drawEllipse(lens);
        const QColor pixel =
            m_display.image.rect().contains(centre) ? m_display.image.pixelColor(centre) : QColor();
        label(QRectF(lens.bottomLeft() + QPointF(0, 26), QSizeF(lens.width(), 1)),
              QStringLiteral("%1, %2  %3")
                  .arg(centre.x())
                  .arg(centre.y())
                  .arg(pixel.name(QColor::HexRgb).toUpper()));
    }
    if (m_keyHelp && !m_selection) {
        paintKeyHelp(painter);
    }
    // The instruction line, always at the top centre.
    const QString hint = m_adjusts && m_selection && !m_dragStart && m_mode != Mode::window
                             ? adjustingInstruction(isRecording())
                             : instruction(m_mode, isRecording(), m_windowPicking, m_desktopPicks);
    const double hintWidth = painter.fontMetrics().horizontalAdvance(hint) + 12;
    label(QRectF((width() - hintWidth) / 2, 40, hintWidth, 20), hint);
}

void ShotCaptureOverlay::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const QPointF p = event->position();
    if (m_keyHelp && !m_selection && keyHelpArea().contains(p)) {
        m_keyHelp = false;
        m_swallowRelease = true;
        update();
        emit keyHelpDismissed();
        return;
    }
    if (m_mode == Mode::window) {
        return; // taken on release
    }
    if ((m_resizing = handleAt(p))) {
        return;
    }
    if (m_adjusts && m_selection && m_selection->contains(p)) {
        m_moveGrip = p - m_selection->topLeft();
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    emit framingStarted();
    m_dragStart = p;
    m_cursor = p;
    m_selection = QRectF(p, QSizeF(0, 0));
    update();
}

void ShotCaptureOverlay::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF p = event->position();
    const QPointF was = m_cursor;
    const bool lensBefore = showsLens();
    m_cursor = p;
    m_pointerHere = true;
    if (showsLens() && !m_dragStart && !m_resizing) {
        // Only where the lens was and is now.
        if (lensBefore) {
            update(lensArea(was).toAlignedRect());
        }
        update(lensArea(p).toAlignedRect());
    }
    if (m_mode == Mode::window) {
        const auto hovered = windowAt(p);
        if (hovered != m_hovered) {
            m_hovered = hovered;
            update();
        }
        return;
    }
    if (m_moveGrip && m_selection) {
        setSelection(nudged(*m_selection, p - *m_moveGrip - m_selection->topLeft(), QSizeF(size())));
        return;
    }
    if (!m_dragStart && !m_resizing) {
        // The hovered handle shows its resize cursor and pulses once.
        const auto hovered = handleAt(p);
        if (hovered != m_hoveredCorner) {
            m_hoveredCorner = hovered;
            m_hoverStarted.start();
            if (hovered) {
                QTimer::singleShot(0, this, [this] { update(); });
                QTimer::singleShot(120, this, [this] { update(); });
            }
            update();
        }
        const bool inside = m_adjusts && m_selection && m_selection->contains(p);
        setCursor(!hovered ? (inside ? Qt::OpenHandCursor : Qt::CrossCursor)
                  : hovered == ResizeHandle::topLeft || hovered == ResizeHandle::bottomRight
                      ? Qt::SizeFDiagCursor
                  : hovered == ResizeHandle::top || hovered == ResizeHandle::bottom
                      ? Qt::SizeVerCursor
                  : hovered == ResizeHandle::left || hovered == ResizeHandle::right
                      ? Qt::SizeHorCursor
                      : Qt::SizeBDiagCursor);
    }
    if (m_resizing && m_selection) {
        setSelection(ShotGeometry::resized(*m_selection, *m_resizing, p));
    } else if (m_dragStart) {
        setSelection(QRectF(*m_dragStart, p));
    }
}

void ShotCaptureOverlay::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    if (std::exchange(m_swallowRelease, false)) {
        return; // the press dismissed the card of keys
    }
    if (m_mode == Mode::window) {
        if (const auto window = windowAt(event->position())) {
            accept({ShotCaptureSelection::Window{m_display.id, *window}});
        }
        return;
    }
    const bool drawing = m_dragStart.has_value();
    m_dragStart.reset();
    m_resizing.reset();
    if (std::exchange(m_moveGrip, std::nullopt)) {
        setCursor(Qt::OpenHandCursor);
    }
    // Mouse-up takes the selection only when it is large enough to mean it;
    // in the recording variant a click that drew nothing takes the display.
    if (isRecording() && drawing && m_mode == Mode::area && m_selection &&
        (m_selection->width() < minimumSide || m_selection->height() < minimumSide)) {
        acceptWholeDisplay();
        return;
    }
    if (m_adjusts) {
        // Kept to be adjusted; one too small to mean it is dropped.
        if (m_selection &&
            (m_selection->width() < minimumSide || m_selection->height() < minimumSide)) {
            m_selection.reset();
        }
        update();
        return;
    }
    acceptSelection();
}

void ShotCaptureOverlay::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_adjusts && m_mode != Mode::window && m_selection &&
        m_selection->contains(event->position())) {
        m_moveGrip.reset();
        acceptSelection();
        return;
    }
    mousePressEvent(event);
}

void ShotCaptureOverlay::keyPressEvent(QKeyEvent* event)
{
    const double step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    QPointF by;
    switch (event->key()) {
    case Qt::Key_Escape:
        emit cancelled();
        return;
    case Qt::Key_Space:
        if (m_mode != Mode::scrolling && m_windowPicking && m_desktopPicks) {
            accept({ShotCaptureSelection::Window{m_display.id, pickedWindow()}});
        } else if (m_mode != Mode::scrolling && m_windowPicking) { // a scrolling area is always dragged
            emit modeToggled(m_mode == Mode::area ? Mode::window : Mode::area);
        }
        return;
    case Qt::Key_F:
        if (isRecording()) {
            acceptWholeDisplay();
        } else {
            QWidget::keyPressEvent(event);
        }
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (m_mode == Mode::window && m_hovered) {
            accept({ShotCaptureSelection::Window{m_display.id, *m_hovered}});
        } else if (m_mode != Mode::window) {
            acceptSelection();
        }
        return;
    case Qt::Key_P:
        // The framing (even while it is dragged) pinned to the screen.
        if (isRecording() || m_mode == Mode::scrolling) {
            QWidget::keyPressEvent(event);
        } else if (m_mode == Mode::window && m_hovered) {
            accept({ShotCaptureSelection::Window{m_display.id, *m_hovered}}, true);
        } else if (m_mode != Mode::window) {
            acceptSelection(true);
        }
        return;
    case Qt::Key_Left:
        by = {-step, 0};
        break;
    case Qt::Key_Right:
        by = {step, 0};
        break;
    case Qt::Key_Up:
        by = {0, -step};
        break;
    case Qt::Key_Down:
        by = {0, step};
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    if (m_selection && m_mode != Mode::window) {
        m_selection = m_adjusts && event->modifiers() & Qt::AltModifier
                          ? grown(*m_selection, by, QSizeF(size()))
                          : nudged(*m_selection, by, QSizeF(size()));
        update();
    }
}

bool ShotCaptureOverlay::showsLens() const
{
    // While a drag or resize is under way, and before the first drag of an
    // area: where it will start, to the pixel.
    return m_dragStart || m_resizing || (m_pointerHere && !m_selection && m_mode != Mode::window);
}

QRectF ShotCaptureOverlay::lensArea(QPointF cursor) const
{
    // Wherever paintEvent may put the lens (either side of the pointer),
    // with its rim and the label under it.
    return QRectF(cursor - QPointF(24 + 130, 24 + 130 + 24), QSizeF(2 * (24 + 130), 2 * (24 + 130 + 24) + 60))
        .adjusted(-8, -8, 8 + 160, 8);
}

void ShotCaptureOverlay::leaveEvent(QEvent*)
{
    if (std::exchange(m_pointerHere, false)) {
        update(lensArea(m_cursor).toAlignedRect());
    }
}

void ShotCaptureOverlay::enterEvent(QEnterEvent*)
{
    // The display the pointer is on takes the keyboard.
    activateWindow();
    setFocus();
    takeKeyboard();
}

void ShotCaptureOverlay::takeKeyboard()
{
    // On X11 the keyboard is grabbed, so that keys the window manager binds
    // (Alt+Shift+arrows, say) still reach the overlay while it frames.
    if (!QGuiApplication::platformName().startsWith(QLatin1String("wayland")) && isVisible()) {
        grabKeyboard();
    }
}

void ShotCaptureOverlay::acceptSelection(bool pin)
{
    // Only a selection large enough to mean it is taken.
    if (m_selection && m_selection->width() >= minimumSide &&
        m_selection->height() >= minimumSide) {
        accept({ShotCaptureSelection::Area{
            m_display.id, m_selection->translated(m_display.space.globalFrame.topLeft())}}, pin);
    }
}

void ShotCaptureOverlay::acceptWholeDisplay()
{
    if (m_recording) {
        emit answered({ShotOverlayOutcome::Recording{{RecordingTarget::Display{*m_recording}}}});
    }
}

void ShotCaptureOverlay::accept(const ShotCaptureSelection& selection, bool pin)
{
    if (!m_recording) {
        emit answered({ShotOverlayOutcome::Capture{selection, pin}});
    } else if (const auto* area = std::get_if<ShotCaptureSelection::Area>(&selection.framing)) {
        emit answered(
            {ShotOverlayOutcome::Recording{{RecordingTarget::Area{*m_recording, area->rect}}}});
    } else {
        emit answered({ShotOverlayOutcome::Recording{{RecordingTarget::Window{
            std::get<ShotCaptureSelection::Window>(selection.framing).window}}}});
    }
}

} // namespace nubo
