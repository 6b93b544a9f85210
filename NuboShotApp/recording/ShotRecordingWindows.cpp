#include "recording/ShotRecordingWindows.h"

#include "recording/ShotRecordingControls.h"
#include "style/ShotIcons.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QToolButton>

#include <cmath>

namespace nubo {

namespace {

constexpr QColor barColour(28, 28, 31);
constexpr QColor rimColour(255, 255, 255, 60);
constexpr QColor recordColour(224, 53, 43);

QFrame* divider(QWidget* parent)
{
    auto* line = new QFrame(parent);
    line->setFrameShape(QFrame::VLine);
    line->setFixedWidth(1);
    line->setStyleSheet(QStringLiteral("background: rgba(255,255,255,40); border: none;"));
    return line;
}

// A short bar that shows how loud the microphone is, in steps, with a
// falling peak so quick sounds stay visible.
class LevelMeter : public QWidget {
    Q_OBJECT
public:
    explicit LevelMeter(QWidget* parent) : QWidget(parent)
    {
        setObjectName(QStringLiteral("recording.microphoneLevel"));
        setFixedSize(46, 14);
        setToolTip(tr("Microphone level"));
    }
    void setLevel(float level)
    {
        // Shown on a decibel scale from -60 dB, which is how loudness is heard.
        const double db = level > 0 ? 20 * std::log10(double(level)) : -60.0;
        const double shown = std::clamp((db + 60) / 60, 0.0, 1.0);
        m_shown = std::max(shown, m_shown - 0.08);
        update();
    }
    double shown() const { return m_shown; }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        constexpr int steps = 8;
        const double w = double(width()) / steps;
        for (int i = 0; i < steps; ++i) {
            const bool lit = (i + 0.5) / steps <= m_shown;
            const QColor on = i >= steps - 1 ? QColor(235, 80, 60)
                              : i >= steps - 3 ? QColor(240, 190, 50)
                                               : QColor(90, 200, 110);
            painter.fillRect(QRectF(i * w + 1, 2, w - 2, height() - 4),
                             lit ? on : QColor(255, 255, 255, 35));
        }
    }

private:
    double m_shown = 0;
};

QToolButton* barButton(QWidget* parent, const QString& icon, const QString& tip,
                       const QString& name)
{
    auto* button = new QToolButton(parent);
    button->setIcon(ShotIcons::icon(icon, QColor(Qt::white)));
    button->setToolTip(tip);
    button->setObjectName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setIconSize(QSize(18, 18));
    button->setFixedSize(ShotRecordingControlBar::buttonWidth, 28); // one size: the bar reads as a row of equals
    return button;
}

} // namespace

QPointF ShotRecordingLayout::beside(const QRectF& target, const QSizeF& bar,
                                    const QRectF& display)
{
    const auto clampInto = [](double v, double low, double high) {
        return std::max(low, std::min(v, high));
    };
    const double centredX = clampInto(target.center().x() - bar.width() / 2, display.left(),
                                      display.right() - bar.width());
    const double centredY = clampInto(target.center().y() - bar.height() / 2, display.top(),
                                      display.bottom() - bar.height());
    const QRectF keepClear = target.adjusted(-gap + 1, -gap + 1, gap - 1, gap - 1);
    const QPointF candidates[] = {
        {centredX, target.bottom() + gap},                // below
        {centredX, target.top() - gap - bar.height()},    // above
        {target.right() + gap, centredY},                 // right
        {target.left() - gap - bar.width(), centredY},    // left
    };
    for (const QPointF& at : candidates) {
        const QRectF placed(at, bar);
        if (display.contains(placed) && !placed.intersects(keepClear)) {
            return at;
        }
    }
    // No room outside: inside the target, at its bottom edge.
    const QRectF inside = target.intersected(display);
    return {clampInto(inside.center().x() - bar.width() / 2, display.left(),
                      display.right() - bar.width()),
            clampInto(inside.bottom() - gap - bar.height(), display.top(),
                      display.bottom() - bar.height())};
}

ShotRecordingBar::ShotRecordingBar(const QString& title, bool takesFocus)
    // Placed exactly where asked, beside the window manager (no taskbar
    // entry, no decoration); the options bar still takes the keyboard.
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::X11BypassWindowManagerHint |
                           (takesFocus ? Qt::WindowFlags() : Qt::WindowDoesNotAcceptFocus))
{
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    if (!takesFocus) {
        setAttribute(Qt::WA_ShowWithoutActivating);
    }
    // Light text on the dark bar, whatever the desktop's theme.
    QPalette dark = palette();
    dark.setColor(QPalette::Window, barColour);
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::ButtonText, Qt::white);
    dark.setColor(QPalette::Text, Qt::white);
    dark.setColor(QPalette::Button, QColor(52, 52, 58));
    dark.setColor(QPalette::Base, QColor(44, 44, 50));
    dark.setColor(QPalette::Highlight, QColor(47, 128, 237));
    dark.setColor(QPalette::Disabled, QPalette::WindowText, QColor(255, 255, 255, 90));
    dark.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(255, 255, 255, 90));
    dark.setColor(QPalette::Disabled, QPalette::Text, QColor(255, 255, 255, 90));
    setPalette(dark);
    setStyleSheet(QStringLiteral(
        "QToolButton { color: white; border: 1px solid transparent; border-radius: 5px; "
        "padding: 3px 6px; }"
        "QToolButton:hover { background: rgba(255,255,255,28); }"
        "QToolButton:checked { background: rgba(47,128,237,200); }"
        "QToolButton:disabled { color: rgba(255,255,255,90); }"
        "QLabel { color: white; }"));
}

void ShotRecordingBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), barColour);
    painter.setPen(QPen(rimColour, 1));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
}

ShotRecordingOptionsBar::ShotRecordingOptionsBar(ShotPreferences& preferences,
                                                 const RecordingCapabilities& capabilities,
                                                 const QString& targetSize)
    : ShotRecordingBar(QStringLiteral("Nubo Shot Recording Options"), true)
{
    setObjectName(QStringLiteral("recordingOptions"));
    m_controls = new ShotRecordingControls(preferences, capabilities,
                                           ShotRecordingControls::Look::toggles, this);
    auto* row = new QHBoxLayout(this);
    // Exactly as large as its contents: a tiling desktop (sway) floats a
    // window of one fixed size instead of stretching it over half the screen.
    row->setSizeConstraint(QLayout::SetFixedSize);
    row->setContentsMargins(8, 6, 8, 6);
    row->setSpacing(4);
    auto* cancel = barButton(this, QStringLiteral("window-close"), tr("Cancel (Esc)"),
                             QStringLiteral("recording.cancel"));
    connect(cancel, &QToolButton::clicked, this, &ShotRecordingOptionsBar::cancelled);
    row->addWidget(cancel);
    auto* size = new QLabel(targetSize, this);
    size->setObjectName(QStringLiteral("recording.targetSize"));
    size->setStyleSheet(QStringLiteral("color: rgba(255,255,255,200); padding: 0 4px;"));
    row->addWidget(size);
    row->addWidget(divider(this));
    const ShotRecordingControls& c = *m_controls;
    for (QWidget* w : {static_cast<QWidget*>(c.systemAudio), static_cast<QWidget*>(c.microphone),
                       static_cast<QWidget*>(c.microphoneDevice),
                       static_cast<QWidget*>(c.camera), static_cast<QWidget*>(c.cameraDevice),
                       static_cast<QWidget*>(c.cursor),
                       static_cast<QWidget*>(c.clicks)}) {
        row->addWidget(w);
    }
    row->addWidget(divider(this));
    for (QWidget* w : {static_cast<QWidget*>(c.frameRate), static_cast<QWidget*>(c.resolution),
                       static_cast<QWidget*>(c.codec)}) {
        row->addWidget(w);
    }
    row->addWidget(divider(this));
    if (QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
        // No bar stays on the screen while recording here (it would be in
        // the movie): how to stop is said now.
        auto* stop = new QLabel(tr("Stop from the menu"), this);
        stop->setToolTip(tr("Or by the shortcut, or with “nuboshot capture "
                                        "recording”"));
        stop->setObjectName(QStringLiteral("recording.stopHint"));
        stop->setStyleSheet(QStringLiteral("color: rgba(255,255,255,200); padding: 0 4px;"));
        row->addWidget(stop);
    }
    m_start = new QPushButton(ShotIcons::icon(QStringLiteral("media-record"), QColor(Qt::white)),
                              tr("Start Recording"), this);
    m_start->setObjectName(QStringLiteral("recording.start"));
    m_start->setToolTip(tr("Start (Return)"));
    m_start->setDefault(true);
    m_start->setStyleSheet(QStringLiteral(
        "QPushButton { color: white; background: rgb(224,53,43); border: none; "
        "border-radius: 5px; padding: 5px 12px; font-weight: 600; }"
        "QPushButton:hover { background: rgb(238,72,62); }"));
    connect(m_start, &QPushButton::clicked, this, &ShotRecordingOptionsBar::start);
    row->addWidget(m_start);
    connect(m_controls, &ShotRecordingControls::changed, this, [this] { adjustSize(); });
    m_controls->loadMicrophones();
}

void ShotRecordingOptionsBar::start()
{
    emit startRequested(m_controls->options());
}

void ShotRecordingOptionsBar::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        start();
        return;
    case Qt::Key_Escape:
        emit cancelled();
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

ShotRecordingCountdown::ShotRecordingCountdown()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput |
                           Qt::X11BypassWindowManagerHint)
{
    setWindowTitle(QStringLiteral("Nubo Shot Countdown"));
    setObjectName(QStringLiteral("recordingCountdown"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFixedSize(176, 176);
    // A round window without a compositor: the shape is the window's own.
    setMask(QRegion(rect(), QRegion::Ellipse));
    m_timer.setInterval(1000);
    connect(&m_timer, &QTimer::timeout, this, [this] {
        if (--m_remaining <= 0) {
            m_timer.stop();
            emit finished();
        } else {
            update();
        }
    });
}

void ShotRecordingCountdown::start()
{
    m_remaining = seconds;
    m_timer.start();
    update();
}

void ShotRecordingCountdown::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), barColour);
    painter.setPen(QPen(recordColour, 4));
    painter.drawEllipse(QRectF(rect()).adjusted(3, 3, -3, -3));
    QFont big = font();
    big.setPixelSize(88);
    big.setWeight(QFont::DemiBold);
    painter.setFont(big);
    painter.setPen(Qt::white);
    painter.drawText(QRectF(rect()).adjusted(0, -10, 0, -10), Qt::AlignCenter,
                     QString::number(m_remaining));
    QFont small = font();
    small.setPixelSize(12);
    painter.setFont(small);
    painter.setPen(QColor(255, 255, 255, 170));
    painter.drawText(QRectF(0, height() - 46, width(), 20), Qt::AlignCenter, tr("Esc: Cancel"));
}

ShotRecordingControlBar::ShotRecordingControlBar(bool microphone)
    : ShotRecordingBar(QStringLiteral("Nubo Shot Recording"), false)
{
    setObjectName(QStringLiteral("recordingControls"));
    auto* row = new QHBoxLayout(this);
    // Exactly as large as its contents: a tiling desktop (sway) floats a
    // window of one fixed size instead of stretching it over half the screen.
    row->setSizeConstraint(QLayout::SetFixedSize);
    row->setContentsMargins(10, 4, rightMargin, 4);
    row->setSpacing(buttonSpacing);
    m_dot = new QLabel(this);
    m_dot->setFixedSize(12, 12);
    row->addWidget(m_dot);
    m_time = new QLabel(recordingElapsedText(RecordingDuration(0)), this);
    m_time->setObjectName(QStringLiteral("recording.elapsed"));
    QFont digits = m_time->font();
    digits.setWeight(QFont::DemiBold);
    digits.setStyleHint(QFont::Monospace);
    digits.setFamilies({QStringLiteral("DejaVu Sans Mono"), QStringLiteral("monospace")});
    m_time->setFont(digits);
    row->addWidget(m_time);
    if (microphone) {
        auto* mic = new QLabel(this);
        mic->setPixmap(ShotIcons::icon(QStringLiteral("audio-input-microphone"), QColor(Qt::white))
                           .pixmap(QSize(14, 14), devicePixelRatioF()));
        row->addWidget(mic);
        m_meter = new LevelMeter(this);
        row->addWidget(m_meter);
    }
    row->addWidget(divider(this));
    m_pause = barButton(this, QStringLiteral("media-playback-pause"), tr("Pause Recording"),
                        QStringLiteral("recording.pause"));
    m_stop = barButton(this, QStringLiteral("media-playback-stop"), tr("Stop Recording"),
                       QStringLiteral("recording.stop"));
    m_cancel = barButton(this, QStringLiteral("window-close"), tr("Cancel Recording"),
                         QStringLiteral("recording.cancelRecording"));
    connect(m_pause, &QToolButton::clicked, this, &ShotRecordingControlBar::pauseToggled);
    connect(m_stop, &QToolButton::clicked, this, &ShotRecordingControlBar::stopRequested);
    connect(m_cancel, &QToolButton::clicked, this, &ShotRecordingControlBar::cancelRequested);
    row->addWidget(m_pause);
    row->addWidget(m_stop);
    row->addWidget(m_cancel);
    showState(RecordingState{RecordingState::Recording{}});
    adjustSize();
}

void ShotRecordingControlBar::showState(const RecordingState& state)
{
    const bool paused = state.is<RecordingState::Paused>();
    const bool running = paused || state.is<RecordingState::Recording>();
    if (const auto elapsed = recordingElapsed(state)) {
        m_time->setText(recordingElapsedText(*elapsed));
    }
    // A red dot while recording; two amber bars while paused.
    QPixmap dot(QSize(12, 12) * devicePixelRatioF());
    dot.setDevicePixelRatio(devicePixelRatioF());
    dot.fill(Qt::transparent);
    QPainter painter(&dot);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    if (paused) {
        painter.setBrush(QColor(240, 190, 50));
        painter.drawRect(QRectF(2, 1, 3, 10));
        painter.drawRect(QRectF(7, 1, 3, 10));
    } else {
        painter.setBrush(running ? recordColour : QColor(150, 150, 150));
        painter.drawEllipse(QRectF(1, 1, 10, 10));
    }
    painter.end();
    m_dot->setPixmap(dot);
    m_pause->setIcon(ShotIcons::icon(paused ? QStringLiteral("media-playback-start")
                                            : QStringLiteral("media-playback-pause"),
                                     QColor(Qt::white)));
    m_pause->setToolTip(paused ? tr("Resume Recording") : tr("Pause Recording"));
    for (QToolButton* b : {m_pause, m_stop, m_cancel}) {
        b->setEnabled(running);
    }
}

void ShotRecordingControlBar::setMicrophoneLevel(float level)
{
    if (m_meter) {
        static_cast<LevelMeter*>(m_meter)->setLevel(level);
    }
}

QString ShotRecordingControlBar::elapsedText() const
{
    return m_time->text();
}

} // namespace nubo

#include "ShotRecordingWindows.moc"
