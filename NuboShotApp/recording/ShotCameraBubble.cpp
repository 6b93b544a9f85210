#include "recording/ShotCameraBubble.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "recording/CameraStreamSource.h"

#include <QFutureWatcher>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QWheelEvent>
#include <QtConcurrent>

#include <cmath>

namespace nubo {

// The camera's pictures, from the moment the camera is open: before that,
// and when it cannot be opened, none (the recording goes on without them).
class ShotCameraFeed : public CameraFrameSource {
public:
    std::optional<CameraFrame> latestFrame() const override
    {
        const std::lock_guard lock(m_mutex);
        return m_source ? m_source->latestFrame() : std::nullopt;
    }
    void open(std::shared_ptr<CameraStreamSource> source)
    {
        const std::lock_guard lock(m_mutex);
        m_source = std::move(source);
    }
    // Why there are no pictures; empty while there are, or may be.
    QString problem() const
    {
        const std::lock_guard lock(m_mutex);
        return m_source ? m_source->failure() : m_problem;
    }
    void setProblem(const QString& problem)
    {
        const std::lock_guard lock(m_mutex);
        m_problem = problem;
    }

private:
    mutable std::mutex m_mutex;
    std::shared_ptr<CameraStreamSource> m_source;
    QString m_problem;
};

namespace {

constexpr int gripSize = 18;

} // namespace

// ---- Preview ----

ShotCameraPreview::ShotCameraPreview(std::shared_ptr<ShotCameraFeed> feed)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::X11BypassWindowManagerHint),
      m_feed(std::move(feed))
{
    setWindowTitle(QStringLiteral("Nubo Shot Camera"));
    setObjectName(QStringLiteral("recordingCamera"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setMouseTracking(true);
    setToolTip(tr("Drag to move the camera; scroll or drag its corner to resize it"));
    m_poll.setInterval(15); // a camera's 30 pictures a second, each shown soon after it comes
    connect(&m_poll, &QTimer::timeout, this, &ShotCameraPreview::refresh);
    m_poll.start();
    m_wheelEnd.setSingleShot(true);
    m_wheelEnd.setInterval(300);
    connect(&m_wheelEnd, &QTimer::timeout, this, [this] { emit placed(geometry()); });
}

void ShotCameraPreview::place(const QRect& frame)
{
    int side = std::max(smallest, std::min(frame.width(), frame.height()));
    QRect r(frame.topLeft(), QSize(side, side));
    if (!m_bounds.isEmpty()) {
        side = std::min(side, int(std::min(m_bounds.width(), m_bounds.height())));
        r.setSize(QSize(side, side));
        // The centre stays on the target, so the bubble is recorded.
        const QRect b = m_bounds.toAlignedRect();
        QPoint centre = r.center();
        centre.setX(std::clamp(centre.x(), b.left(), b.right()));
        centre.setY(std::clamp(centre.y(), b.top(), b.bottom()));
        r.moveCenter(centre);
    }
    setGeometry(r);
    setMask(QRegion(rect(), QRegion::Ellipse)); // round without a compositor
    update();
}

void ShotCameraPreview::setMessage(const QString& message)
{
    m_message = message;
    setToolTip(message.isEmpty()
                   ? tr("Drag to move the camera; scroll or drag its corner to resize it")
                   : message);
    update();
}

void ShotCameraPreview::refresh()
{
    const std::optional<CameraFrame> frame = m_feed->latestFrame();
    if (frame && frame->sequence != m_sequence) {
        m_sequence = frame->sequence;
        m_picture = frame->image;
        update();
    }
    const QString problem = m_feed->problem();
    if (problem != m_message && (m_picture.isNull() || !problem.isEmpty())) {
        setMessage(problem);
    }
}

void ShotCameraPreview::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const QRectF circle = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
    QPainterPath round;
    round.addEllipse(circle);
    painter.fillPath(round, QColor(28, 28, 31));
    if (!m_picture.isNull()) {
        // The middle of the picture, covering the circle, as in a mirror.
        const int side = std::min(m_picture.width(), m_picture.height());
        const QRect middle((m_picture.width() - side) / 2, (m_picture.height() - side) / 2, side, side);
        painter.save();
        painter.setClipPath(round);
        painter.translate(width(), 0);
        painter.scale(-1, 1);
        painter.drawImage(QRectF(rect()), m_picture, middle);
        painter.restore();
    } else {
        painter.setPen(QColor(255, 255, 255, 200));
        QFont small = font();
        small.setPointSizeF(std::max(7.0, small.pointSizeF() * 0.9));
        painter.setFont(small);
        painter.drawText(circle.adjusted(width() * 0.15, 0, -width() * 0.15, 0),
                         Qt::AlignCenter | Qt::TextWordWrap,
                         m_message.isEmpty() ? tr("Starting the camera…") : m_message);
    }
    painter.setPen(QPen(QColor(255, 255, 255, 150), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(circle.adjusted(1, 1, -1, -1));
    // The resize grip, on the rim at the lower right.
    const QPointF grip = gripCentre();
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 220));
    painter.drawEllipse(grip, 5, 5);
    painter.setBrush(QColor(47, 128, 237));
    painter.drawEllipse(grip, 3, 3);
}

QPointF ShotCameraPreview::gripCentre() const
{
    // On the rim, at the lower right, a little inside.
    const QPointF half = QPointF(width(), height()) / 2;
    return half + half * std::sqrt(0.5) - QPointF(3, 3);
}

bool ShotCameraPreview::onGrip(QPointF at) const
{
    return QLineF(at, gripCentre()).length() <= gripSize;
}

void ShotCameraPreview::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    m_drag = onGrip(event->position()) ? Drag::resize : Drag::move;
    m_pressedAt = event->globalPosition().toPoint();
    m_pressedFrame = geometry();
}

void ShotCameraPreview::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint by = event->globalPosition().toPoint() - m_pressedAt;
    switch (m_drag) {
    case Drag::none:
        setCursor(onGrip(event->position()) ? Qt::SizeFDiagCursor : Qt::OpenHandCursor);
        return;
    case Drag::move:
        setCursor(Qt::ClosedHandCursor);
        place(m_pressedFrame.translated(by));
        return;
    case Drag::resize: {
        // Grows from the top-left corner, by the larger of the two moves.
        const int side = m_pressedFrame.width() + std::max(by.x(), by.y());
        place(QRect(m_pressedFrame.topLeft(), QSize(side, side)));
        return;
    }
    }
}

void ShotCameraPreview::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && m_drag != Drag::none) {
        m_drag = Drag::none;
        setCursor(Qt::OpenHandCursor);
        emit placed(geometry());
    }
}

void ShotCameraPreview::wheelEvent(QWheelEvent* event)
{
    // A tenth larger or smaller a notch, about the centre.
    const double notches = event->angleDelta().y() / 120.0;
    if (notches == 0) {
        return;
    }
    const int side = int(std::lround(width() * std::pow(1.1, notches)));
    QRect r(QPoint(0, 0), QSize(side, side));
    r.moveCenter(geometry().center());
    place(r);
    m_wheelEnd.start();
}

// ---- Bubble ----

ShotCameraBubble::ShotCameraBubble(ShotPreferences& preferences, QObject* parent)
    : QObject(parent), m_preferences(preferences)
{
}

ShotCameraBubble::~ShotCameraBubble()
{
    hide();
}

void ShotCameraBubble::show(const QRectF& target)
{
    m_target = target;
    const QRectF n = recordingCameraFrame(m_preferences, target.size());
    if (!m_place) {
        m_place = std::make_shared<CameraBubblePlace>(n);
    }
    m_place->set(n);
    if (!m_feed) {
        m_feed = std::make_shared<ShotCameraFeed>();
        const std::optional<CameraDevice> device =
            CameraStreamSource::chosen(m_preferences, CameraStreamSource::cameras());
        if (!device) {
            m_feed->setProblem(tr("No camera is available."));
        } else {
            // Opening a camera can take a moment: not on the main thread.
            using Opened = std::pair<std::shared_ptr<CameraStreamSource>, QString>;
            auto* watcher = new QFutureWatcher<Opened>(this);
            connect(watcher, &QFutureWatcherBase::finished, this, [watcher, feed = m_feed] {
                watcher->deleteLater();
                const auto [source, problem] = watcher->result();
                if (source) {
                    feed->open(source);
                } else {
                    qCWarning(lcCamera, "The camera cannot be shown: %s", qPrintable(problem));
                    feed->setProblem(problem);
                }
            });
            watcher->setFuture(QtConcurrent::run([id = device->id]() -> Opened {
                try {
                    return {std::make_shared<CameraStreamSource>(id), {}};
                } catch (const Error& error) {
                    return {nullptr, error.message()};
                }
            }));
        }
    }
    if (!m_preview) {
        m_preview = new ShotCameraPreview(m_feed);
        connect(m_preview, &ShotCameraPreview::placed, this, &ShotCameraBubble::setFrame);
    }
    m_preview->setBounds(target);
    const QRectF global(target.x() + n.x() * target.width(), target.y() + n.y() * target.height(),
                        n.width() * target.width(), n.height() * target.height());
    m_preview->place(global.toRect());
    m_preview->show();
    m_preview->raise();
    qCInfo(lcRecording, "Camera preview shown at %d,%d, %d across", m_preview->x(), m_preview->y(),
           m_preview->width());
}

void ShotCameraBubble::setFrame(const QRect& preview)
{
    if (m_target.isEmpty()) {
        return;
    }
    const QRectF n((preview.x() - m_target.x()) / m_target.width(),
                   (preview.y() - m_target.y()) / m_target.height(),
                   preview.width() / m_target.width(), preview.height() / m_target.height());
    m_place->set(n);
    storeRecordingCameraFrame(m_preferences, n);
    qCInfo(lcRecording, "Camera bubble moved to %d,%d, %d across", preview.x(), preview.y(),
           preview.width());
}

void ShotCameraBubble::hide()
{
    if (m_preview) {
        m_preview->close();
    }
    m_preview = nullptr;
    m_feed.reset(); // the camera closes when the recorder lets go of it too
}

std::optional<CameraOverlay> ShotCameraBubble::overlay() const
{
    if (!m_feed || !m_place) {
        return std::nullopt;
    }
    return CameraOverlay{m_feed, [place = m_place] { return place->get(); }, true};
}

} // namespace nubo
