#include "scrolling/ShotScrollingPanel.h"

#include "style/ShotIcons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace nubo {

ShotScrollingPanel::ShotScrollingPanel(const QString& autoScrollProblem, QWidget* parent)
    // Beside the window manager: no taskbar entry, no focus, on top.
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus | Qt::X11BypassWindowManagerHint)
{
    setWindowTitle(QStringLiteral("Nubo Shot Scrolling Capture"));
    setObjectName(QStringLiteral("scrollingPanel"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    // A plain window with a rim of its own: no window manager decorates it.
    setAutoFillBackground(true);
    setStyleSheet(QStringLiteral("#scrollingPanel { border: 1px solid palette(mid); }"));

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 10, 12, 12);
    layout->setSpacing(8);

    auto* title = new QLabel(tr("Scrolling Capture"), this);
    QFont bold = title->font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);

    m_preview = new QLabel(this);
    m_preview->setObjectName(QStringLiteral("scrollingPreview"));
    m_preview->setFixedSize(previewWidth, previewHeight);
    m_preview->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    m_preview->setAutoFillBackground(true);
    QPalette well = m_preview->palette();
    well.setColor(QPalette::Window, palette().color(QPalette::Dark));
    m_preview->setPalette(well);
    layout->addWidget(m_preview, 0, Qt::AlignHCenter);

    // The stitched height under the preview, as the overlay shows sizes.
    m_height = new QLabel(this);
    m_height->setObjectName(QStringLiteral("scrollingHeight"));
    m_height->setFont(bold);
    layout->addWidget(m_height);

    m_status = new QLabel(this);
    m_status->setObjectName(QStringLiteral("scrollingStatus"));
    m_status->setWordWrap(true);
    m_status->setFixedWidth(previewWidth);
    m_status->setMinimumHeight(m_status->fontMetrics().lineSpacing() * 3); // the longest line
    m_status->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->addWidget(m_status);

    auto* keys = new QLabel(tr("Return: Done · Esc: Cancel"), this);
    QPalette quiet = keys->palette();
    quiet.setColor(QPalette::WindowText, palette().color(QPalette::PlaceholderText));
    keys->setPalette(quiet);
    layout->addWidget(keys);

    const auto button = [this](const QString& text) {
        auto* b = new QPushButton(text, this);
        b->setFocusPolicy(Qt::NoFocus);
        return b;
    };
    m_auto = button(tr("Auto-scroll"));
    m_auto->setObjectName(QStringLiteral("scrollingAuto"));
    m_auto->setIcon(ShotIcons::icon(QStringLiteral("nuboshot-capture-scrolling")));
    m_auto->setEnabled(autoScrollProblem.isEmpty());
    m_auto->setToolTip(autoScrollProblem.isEmpty()
                           ? tr("Scroll to the end by itself; any key or click stops")
                           : autoScrollProblem);
    m_cancel = button(tr("Cancel"));
    m_done = button(tr("Done"));
    m_done->setDefault(true);
    auto* autoRow = new QHBoxLayout;
    autoRow->addWidget(m_auto, 1);
    layout->addLayout(autoRow);
    auto* row = new QHBoxLayout;
    row->addWidget(m_cancel, 1);
    row->addWidget(m_done, 1);
    layout->addLayout(row);

    connect(m_done, &QPushButton::clicked, this, &ShotScrollingPanel::done);
    connect(m_cancel, &QPushButton::clicked, this, &ShotScrollingPanel::cancelled);
    connect(m_auto, &QPushButton::clicked, this,
            [this] { emit autoScrollToggled(!m_autoRunning); });

    setHeight(0);
    setStatus(tr("Scroll down to the end, or use Auto-scroll."));
    adjustSize();
    setFixedSize(sizeHint());
}

void ShotScrollingPanel::setPreview(const QImage& preview)
{
    QPixmap pixmap = QPixmap::fromImage(preview);
    pixmap.setDevicePixelRatio(devicePixelRatioF());
    m_preview->setPixmap(pixmap);
}

void ShotScrollingPanel::setHeight(qint64 rows)
{
    m_height->setText(tr("%1 px tall").arg(QLocale().toString(rows)));
}

void ShotScrollingPanel::setStatus(const QString& text, bool warning)
{
    QPalette tone = palette();
    if (warning) {
        tone.setColor(QPalette::WindowText, QColor(200, 40, 40));
    }
    m_status->setPalette(tone);
    m_status->setText(text);
}

void ShotScrollingPanel::setAutoScrolling(bool running)
{
    m_autoRunning = running;
    m_auto->setText(running ? tr("Stop Auto-scroll") : tr("Auto-scroll"));
}

} // namespace nubo
