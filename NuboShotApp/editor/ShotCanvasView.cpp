#include "editor/ShotCanvasView.h"

#include "editor/ShotCanvas.h"

#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyle>
#include <QTimer>
#include <QWheelEvent>

#include <cmath>

namespace nubo {

ShotCanvasView::ShotCanvasView(ShotCanvas* canvas, QWidget* parent)
    : QScrollArea(parent), m_canvas(canvas), m_notice(new QLabel(this)),
      m_noticeTimer(new QTimer(this)), m_spaceRelease(new QTimer(this))
{
    setObjectName(QStringLiteral("canvasView"));
    setFrameShape(QFrame::NoFrame);
    setAlignment(Qt::AlignCenter);
    setWidgetResizable(false);
    // A neutral grey around the shot, a little darker than the window in a
    // light theme and lighter in a dark one, so the shot's own edges show.
    QPalette surround = palette();
    const QColor window = surround.color(QPalette::Window);
    surround.setColor(QPalette::Window,
                      window.lightness() > 128 ? window.darker(118) : window.lighter(135));
    viewport()->setPalette(surround);
    viewport()->setAutoFillBackground(true);
    setWidget(canvas);
    canvas->installEventFilter(this);
    viewport()->installEventFilter(this);
    connect(canvas, &ShotCanvas::contentSizeChanged, this, &ShotCanvasView::placeCanvas);
    connect(canvas, &ShotCanvas::zoomChanged, this, &ShotCanvasView::placeCanvas);

    m_notice->setObjectName(QStringLiteral("notice"));
    m_notice->setStyleSheet(QStringLiteral(
        "QLabel#notice { background: rgba(30, 30, 30, 220); color: white; border-radius: 8px;"
        " padding: 6px 14px; }"));
    m_notice->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_notice->hide();
    m_noticeTimer->setSingleShot(true);
    m_spaceRelease->setSingleShot(true);
    m_spaceRelease->setInterval(60);
    connect(m_spaceRelease, &QTimer::timeout, this, [this] {
        m_spaceHeld = false;
        if (!m_panning) {
            m_canvas->setCursorOverride(std::nullopt);
        }
    });
    connect(m_noticeTimer, &QTimer::timeout, m_notice, &QWidget::hide);
}

const QList<double>& ShotCanvasView::zoomSteps()
{
    static const QList<double> steps{0.1,  0.125, 0.25, 1.0 / 3, 0.5, 2.0 / 3, 0.75, 1,
                                     1.25, 1.5,   2,    3,       4,   6,       8,    12, 16};
    return steps;
}

double ShotCanvasView::nextZoomStep(double zoom, int direction)
{
    const QList<double>& steps = zoomSteps();
    constexpr double near = 1e-3;
    if (direction > 0) {
        for (const double step : steps) {
            if (step > zoom + near) {
                return step;
            }
        }
        return steps.last();
    }
    for (auto it = steps.crbegin(); it != steps.crend(); ++it) {
        if (*it < zoom - near) {
            return *it;
        }
    }
    return steps.first();
}

void ShotCanvasView::zoomIn()
{
    zoomTo(nextZoomStep(m_canvas->zoom(), 1));
}

void ShotCanvasView::zoomOut()
{
    zoomTo(nextZoomStep(m_canvas->zoom(), -1));
}

void ShotCanvasView::zoomTo(double zoom, std::optional<QPoint> anchor)
{
    const QPoint at = anchor.value_or(viewport()->rect().center());
    const QPointF document = m_canvas->toDocument(m_canvas->mapFrom(viewport(), at));
    m_canvas->setZoom(zoom); // resizes the canvas through zoomChanged
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    // Where the point now lies on the canvas, brought back under the anchor.
    const QPointF onCanvas = m_canvas->toWidget(QRectF(document, QSizeF())).topLeft();
    horizontalScrollBar()->setValue(int(std::lround(onCanvas.x() - at.x())));
    verticalScrollBar()->setValue(int(std::lround(onCanvas.y() - at.y())));
}

double ShotCanvasView::fitZoom(QSize size) const
{
    const QSizeF shot = m_canvas->contentSize();
    if (shot.isEmpty() || size.isEmpty()) {
        return 1;
    }
    const double room = 2.0 * margin;
    return std::clamp(std::min((size.width() - room) / shot.width(),
                               (size.height() - room) / shot.height()),
                      0.01, 1.0);
}

double ShotCanvasView::fitWidthZoom(QSize size) const
{
    const QSizeF shot = m_canvas->contentSize();
    if (shot.isEmpty() || size.isEmpty()) {
        return 1;
    }
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
    return std::clamp((size.width() - 2.0 * margin - bar) / shot.width(), 0.01, 1.0);
}

void ShotCanvasView::fitToView()
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_canvas->setFitZoom(fitZoom(viewport()->size()));
}

void ShotCanvasView::placeCanvas()
{
    if (m_canvas->fitsWindow()) {
        const double fit = fitZoom(viewport()->size());
        if (std::abs(fit - m_canvas->zoom()) > 1e-9) {
            m_canvas->setFitZoom(fit); // comes back here once the zoom is set
            return;
        }
    }
    const QSize size = m_canvas->sizeHint();
    if (m_canvas->size() != size) {
        m_canvas->resize(size);
    }
}

QSize ShotCanvasView::sizeHint() const
{
    const QSizeF shot = m_canvas->contentSize();
    return QSize(int(std::ceil(shot.width())), int(std::ceil(shot.height()))) +
           QSize(2 * margin, 2 * margin);
}

void ShotCanvasView::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    placeCanvas();
    placeNotice();
    placeKeyHelp();
}

void ShotCanvasView::keyPressEvent(QKeyEvent* event)
{
    event->ignore();
}

void ShotCanvasView::showNotice(const QString& text)
{
    m_notice->setText(text);
    m_notice->adjustSize();
    placeNotice();
    m_notice->show();
    m_notice->raise();
    m_noticeTimer->start(3500);
}

void ShotCanvasView::showKeyHelp(const QString& text, std::function<void()> dismissed)
{
    if (!m_keyHelp) {
        m_keyHelp = new QLabel(this);
        m_keyHelp->setObjectName(QStringLiteral("keyHelp"));
        m_keyHelp->setStyleSheet(QStringLiteral(
            "QLabel#keyHelp { background: rgba(30, 30, 30, 228); color: white;"
            " border-radius: 10px; padding: 10px 14px; }"));
        m_keyHelp->setTextFormat(Qt::RichText);
        m_keyHelp->setCursor(Qt::PointingHandCursor);
        m_keyHelp->installEventFilter(this);
    }
    m_keyHelpDismissed = std::move(dismissed);
    m_keyHelp->setText(text);
    m_keyHelp->adjustSize();
    placeKeyHelp();
    m_keyHelp->show();
    m_keyHelp->raise();
}

void ShotCanvasView::placeKeyHelp()
{
    if (m_keyHelp) {
        const QSize size = m_keyHelp->sizeHint();
        m_keyHelp->setGeometry(std::max(0, width() - size.width() - 16), 16, size.width(),
                               size.height());
    }
}

void ShotCanvasView::placeNotice()
{
    const QSize size = m_notice->sizeHint();
    m_notice->setGeometry((width() - size.width()) / 2, height() - size.height() - 16,
                          size.width(), size.height());
}

bool ShotCanvasView::wheel(QWheelEvent* event)
{
    if (event->modifiers() == Qt::NoModifier && resizeTool && verticalScrollBar()->maximum() == 0 &&
        horizontalScrollBar()->maximum() == 0 && resizeTool(0)) {
        // Nothing to scroll: the wheel sizes the tool, as in other editors.
        m_sizeRest += event->angleDelta().y();
        while (std::abs(m_sizeRest) >= 120) {
            const int direction = m_sizeRest > 0 ? 1 : -1;
            m_sizeRest -= direction * 120;
            resizeTool(direction);
        }
        event->accept();
        return true;
    }
    if (!(event->modifiers() & Qt::ControlModifier)) {
        return false; // the scroll area scrolls
    }
    m_wheelRest += event->angleDelta().y();
    const QPoint at = viewport()->mapFromGlobal(event->globalPosition().toPoint());
    while (std::abs(m_wheelRest) >= 120) {
        const int direction = m_wheelRest > 0 ? 1 : -1;
        m_wheelRest -= direction * 120;
        zoomTo(nextZoomStep(m_canvas->zoom(), direction), at);
    }
    event->accept();
    return true;
}

bool ShotCanvasView::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_keyHelp && event->type() == QEvent::MouseButtonPress) {
        m_keyHelp->hide();
        if (const auto dismissed = std::exchange(m_keyHelpDismissed, nullptr)) {
            dismissed();
        }
        return true;
    }
    switch (event->type()) {
    case QEvent::Wheel:
        if (wheel(static_cast<QWheelEvent*>(event))) {
            return true;
        }
        break;
    case QEvent::KeyPress:
    case QEvent::KeyRelease: {
        const auto* key = static_cast<QKeyEvent*>(event);
        if (watched == m_canvas && key->key() == Qt::Key_Space) {
            if (event->type() == QEvent::KeyPress) {
                m_spaceRelease->stop(); // the key repeats: it is still held
                if (!m_spaceHeld) {
                    m_spaceHeld = true;
                    m_canvas->setCursorOverride(Qt::OpenHandCursor);
                }
            } else if (!key->isAutoRepeat()) {
                // A held key repeats as release and press pairs, which the
                // platform cannot always tell from a real release: it
                // counts once no press follows.
                m_spaceRelease->start();
            }
            return true;
        }
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        const bool pans = mouse->button() == Qt::MiddleButton ||
                          (mouse->button() == Qt::LeftButton && m_spaceHeld);
        if (!pans) {
            break;
        }
        m_panning = true;
        m_panFrom = mouse->globalPosition().toPoint();
        m_scrollFrom = {horizontalScrollBar()->value(), verticalScrollBar()->value()};
        m_canvas->setCursorOverride(Qt::ClosedHandCursor);
        return true;
    }
    case QEvent::MouseMove: {
        if (!m_panning) {
            break;
        }
        const QPoint moved = static_cast<QMouseEvent*>(event)->globalPosition().toPoint() - m_panFrom;
        horizontalScrollBar()->setValue(m_scrollFrom.x() - moved.x());
        verticalScrollBar()->setValue(m_scrollFrom.y() - moved.y());
        return true;
    }
    case QEvent::MouseButtonRelease: {
        if (!m_panning) {
            break;
        }
        m_panning = false;
        m_canvas->setCursorOverride(m_spaceHeld ? std::optional(Qt::OpenHandCursor)
                                                : std::nullopt);
        return true;
    }
    case QEvent::FocusOut:
        if (watched == m_canvas && m_spaceHeld) {
            m_spaceHeld = false; // the release went elsewhere
            m_canvas->setCursorOverride(std::nullopt);
        }
        break;
    default:
        break;
    }
    // The scroll area follows the canvas's size through its own filter.
    return QScrollArea::eventFilter(watched, event);
}

} // namespace nubo
