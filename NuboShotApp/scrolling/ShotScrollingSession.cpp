#include "scrolling/ShotScrollingSession.h"

#include "capture/CaptureSelection.h"
#include "core/Logging.h"
#include "scrolling/ShotScrollingPanel.h"

#include <QFutureWatcher>
#include <QGuiApplication>
#include <QLocale>
#include <QScreen>
#include <QtConcurrent>

namespace nubo {

ShotScrollingLayout ShotScrollingLayout::place(const QRectF& area, const QSizeF& panel,
                                               const QRectF& display,
                                               const QList<QRectF>& otherDisplays)
{
    // Keep clear of the outline as well as of the area.
    const QRectF keepClear = area.adjusted(-gap, -gap, gap, gap);
    const auto fits = [&](const QRectF& at, const QRectF& on) {
        return on.contains(at) && !at.intersects(keepClear);
    };
    const auto clampInto = [](double v, double low, double high) {
        return std::max(low, std::min(v, high));
    };
    const double top = clampInto(area.top(), display.top(), display.bottom() - panel.height());
    const double left = clampInto(area.left(), display.left(), display.right() - panel.width());
    const QPointF beside[] = {
        {area.right() + gap, top},                   // right
        {area.left() - gap - panel.width(), top},    // left
        {left, area.bottom() + gap},                 // below
        {left, area.top() - gap - panel.height()},   // above
    };
    for (const QPointF& at : beside) {
        if (fits(QRectF(at, panel), display)) {
            return {area, at};
        }
    }
    for (const QRectF& other : otherDisplays) {
        const QPointF at(other.right() - panel.width() - gap, other.top() + gap);
        if (fits(QRectF(at, panel), other)) {
            return {area, at};
        }
    }
    // No room outside: the panel takes a strip of the area, which is then
    // not sampled.
    const double strip = panel.width() + 2 * gap;
    if (area.width() - strip >= 4 * panel.width() / 3) {
        const QRectF sampled = area.adjusted(0, 0, -strip, 0);
        return {sampled, {sampled.right() + gap, clampInto(area.top() + gap, display.top(),
                                                           display.bottom() - panel.height())}};
    }
    const QRectF sampled = area.adjusted(0, 0, 0, -(panel.height() + 2 * gap));
    return {sampled, {clampInto(area.left() + gap, display.left(), display.right() - panel.width()),
                      sampled.bottom() + gap}};
}

namespace {

bool onWayland()
{
    return QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace

ShotScrollingSession::ShotScrollingSession(std::shared_ptr<CapturePlatform> platform,
                                           ScreenSpace display, QList<ScreenSpace> displays,
                                           QRectF area, QImage frozen, QObject* parent)
    : QObject(parent), m_platform(std::move(platform)), m_display(display),
      m_displays(std::move(displays)), m_area(area), m_frozen(std::move(frozen))
{}

ShotScrollingSession::~ShotScrollingSession()
{
    tearDown();
}

void ShotScrollingSession::start()
{
    const CapturePlatformFeatures features = m_platform->features();
    const std::shared_ptr<ScreenRegionStreaming> streaming = m_platform->regionStreaming();
    if (!streaming) {
        throw CaptureError(CaptureError::Code::noContent,
                           tr("this desktop offers no region streams"));
    }
    if (onWayland()) {
        // Windows cannot place themselves on Wayland: a panel or an outline
        // could land on the area and be stitched into the shot. The area
        // alone is sampled; the menu or the command ends the capture.
        m_layout = {m_area, m_area.topLeft()};
        m_region = captureRegion(m_display, m_layout.sampled);
        qCInfo(lcScrolling, "Scrolling capture of %dx%d pixels at %d,%d on display %u, no panel",
               m_region.pixelRect.width(), m_region.pixelRect.height(), m_region.pixelRect.x(),
               m_region.pixelRect.y(), m_display.displayID);
        if (!features.autoScroll || !m_platform->scrollDriving()) {
            startCapture(streaming->streamRegion(m_display.displayID, m_region), 1);
            return;
        }
        // The desktop asks the user about its remote pointer first (off the
        // main thread): its dialog is gone before the area is sampled.
        // Declined, the user scrolls by hand.
        auto* asked = new QFutureWatcher<ScrollDriver*>(this);
        connect(asked, &QFutureWatcherBase::finished, this, [this, asked, streaming] {
            asked->deleteLater();
            std::unique_ptr<ScrollDriver> driver(asked->result());
            if (m_ended) {
                return;
            }
            try {
                startCapture(streaming->streamRegion(m_display.displayID, m_region), 1);
            } catch (const Error& error) {
                tearDown();
                emit failed(error.message());
                return;
            }
            if (driver) {
                m_capture->startAutoScroll(std::move(driver));
            }
        });
        asked->setFuture(QtConcurrent::run(
            [driving = m_platform->scrollDriving(), display = m_display.displayID,
             region = m_region]() -> ScrollDriver* {
                try {
                    return driving->drive(display, region).release();
                } catch (const Error& error) {
                    qCInfo(lcScrolling, "No auto-scroll, scrolled by hand: %s",
                           qPrintable(error.message()));
                    return nullptr;
                }
            }));
        return;
    }
    m_panel = new ShotScrollingPanel(
        features.autoScroll && m_platform->scrollDriving()
            ? QString()
            : tr("Auto-scroll is not available on this desktop: scroll by hand."));
    m_panel->setAttribute(Qt::WA_DeleteOnClose);
    QList<QRectF> others;
    for (const ScreenSpace& space : std::as_const(m_displays)) {
        if (space.displayID != m_display.displayID) {
            others.append(space.globalFrame);
        }
    }
    m_layout = ShotScrollingLayout::place(m_area, QSizeF(m_panel->size()), m_display.globalFrame,
                                          others);
    m_region = captureRegion(m_display, m_layout.sampled);
    qCInfo(lcScrolling, "Scrolling capture of %dx%d pixels at %d,%d on display %u",
           m_region.pixelRect.width(), m_region.pixelRect.height(), m_region.pixelRect.x(),
           m_region.pixelRect.y(), m_display.displayID);
    std::unique_ptr<ScreenRegionStream> stream =
        streaming->streamRegion(m_display.displayID, m_region);

    // The outline just outside what is sampled, and the panel beside it.
    m_outline.show(m_layout.sampled, ShotScrollingLayout::frame, QColor(0x2f, 0x80, 0xed),
                   QStringLiteral("Nubo Shot Scrolling Area"));
    m_panel->move(m_layout.panel.toPoint());
    connect(m_panel, &ShotScrollingPanel::done, this, &ShotScrollingSession::finish);
    connect(m_panel, &ShotScrollingPanel::cancelled, this, &ShotScrollingSession::cancel);
    connect(m_panel, &ShotScrollingPanel::autoScrollToggled, this,
            &ShotScrollingSession::toggleAutoScroll);
    m_panel->show();
    m_panel->raise();

    // Return and Escape wherever the keyboard is: the window being scrolled
    // keeps the focus.
    m_keys = m_platform->makeGlobalShortcuts();
    if (m_keys) {
        m_keys->activated = [this](const QString& id) {
            if (id == QLatin1String("cancel")) {
                cancel();
            } else {
                finish();
            }
        };
        for (const QString& problem :
             m_keys->bind({{QStringLiteral("done"), QKeySequence(Qt::Key_Return)},
                           {QStringLiteral("done-keypad"), QKeySequence(Qt::Key_Enter)},
                           {QStringLiteral("cancel"), QKeySequence(Qt::Key_Escape)}})) {
            qCWarning(lcScrolling, "%s", qPrintable(problem));
        }
    }

    startCapture(std::move(stream), m_panel->devicePixelRatioF());
}

void ShotScrollingSession::startCapture(std::unique_ptr<ScreenRegionStream> stream, double ratio)
{
    ScrollingCapture::Options options;
    options.maximumHeight = maximumHeight;
    options.maximumBytes = maximumBytes;
    options.scale = m_display.scale;
    options.previewSize = QSize(qRound(ShotScrollingPanel::previewWidth * ratio),
                                qRound(ShotScrollingPanel::previewHeight * ratio));
    if (onWayland()) {
        // The compositor sends pictures only when it draws, and may still
        // be animating the overlay away.
        options.quietFor = std::chrono::milliseconds(300);
        options.changingFor = std::chrono::seconds(2);
    }
    if (m_frozen.rect().contains(m_region.pixelRect)) {
        options.framed = m_frozen.copy(m_region.pixelRect);
    }
    m_frozen = {};
    // Reports come from the capture's thread; `this` outlives them (the
    // thread is joined before it goes).
    ScrollingCapture::Reports reports;
    reports.progress = [this](const ScrollingCaptureProgress& progress) {
        QMetaObject::invokeMethod(this, [this, progress] { progressed(progress); },
                                  Qt::QueuedConnection);
    };
    reports.stopped = [this](const ScrollingCaptureEnd& end) {
        QMetaObject::invokeMethod(this, [this, end] { stoppedByItself(end); },
                                  Qt::QueuedConnection);
    };
    reports.autoScrollEnded = [this](bool byUser) {
        QMetaObject::invokeMethod(this, [this, byUser] { autoScrollEnded(byUser); },
                                  Qt::QueuedConnection);
    };
    m_capture = std::make_unique<ScrollingCapture>(std::move(stream), options, std::move(reports));
}

void ShotScrollingSession::progressed(const ScrollingCaptureProgress& progress)
{
    if (m_ended || !m_panel) {
        return;
    }
    m_height = progress.height;
    m_panel->setHeight(progress.height);
    if (!progress.preview.isNull()) {
        m_panel->setPreview(progress.preview);
    }
    if (progress.tracking.isLost) {
        m_panel->setStatus(tr("Scroll back up a little"), true);
    } else if (progress.autoScrolling) {
        m_panel->setStatus(tr("Auto-scrolling… Any key or click stops it."));
    } else if (progress.update == ScrollStitcher::Update::accepted) {
        m_panel->setStatus(tr("Keep scrolling down; Done when you reach the end."));
    }
}

void ShotScrollingSession::stoppedByItself(const ScrollingCaptureEnd& end)
{
    if (m_ended) {
        return;
    }
    if (end.reason == ScrollingCaptureEnd::Reason::failed) {
        tearDown();
        emit failed(end.message);
        return;
    }
    if (m_panel) {
        m_panel->setStatus(tr("Reached the size limit."), true);
    }
    m_ended = true;
    QImage image = m_capture->finish();
    qCInfo(lcScrolling, "Scrolling capture stopped at its size limit: %d rows", image.height());
    const QString notice =
        tr("The scrolling capture reached its size limit and stopped at %1 pixels.")
            .arg(QLocale().toString(qint64(image.height())));
    tearDown();
    emit finished(image, m_display.scale, notice);
}

void ShotScrollingSession::autoScrollEnded(bool byUser)
{
    if (m_ended) {
        return;
    }
    if (!m_panel) {
        // Without a panel (Wayland), the end of the page is the end.
        if (!byUser) {
            finish();
        }
        return;
    }
    m_panel->setAutoScrolling(false);
    m_panel->setStatus(byUser ? tr("Auto-scroll stopped.")
                              : tr("Auto-scroll reached the end: press Done."));
}

void ShotScrollingSession::toggleAutoScroll(bool start)
{
    if (m_ended || !m_capture) {
        return;
    }
    if (!start) {
        m_capture->stopAutoScroll();
        return;
    }
    const std::shared_ptr<ScrollDriving> driving = m_platform->scrollDriving();
    try {
        if (!driving) {
            throw CaptureError(CaptureError::Code::noContent,
                               tr("this desktop cannot scroll for us"));
        }
        m_capture->startAutoScroll(driving->drive(m_display.displayID, m_region));
        m_panel->setAutoScrolling(true);
        m_panel->setStatus(tr("Auto-scrolling… Any key or click stops it."));
    } catch (const CaptureError& error) {
        qCWarning(lcScrolling, "Auto-scroll could not start: %s", qPrintable(error.detail()));
        m_panel->setStatus(tr("Auto-scroll could not start: %1.").arg(error.detail()), true);
    }
}

void ShotScrollingSession::finish()
{
    if (m_ended || !m_capture) {
        return;
    }
    m_ended = true;
    QImage image = m_capture->finish();
    tearDown();
    if (image.isNull()) {
        emit failed(CaptureError::messageFor(CaptureError::Code::noContent));
        return;
    }
    emit finished(image, m_display.scale, {});
}

void ShotScrollingSession::cancel()
{
    if (m_ended) {
        return;
    }
    m_ended = true;
    qCInfo(lcScrolling, "Scrolling capture cancelled");
    tearDown();
    emit cancelled();
}

void ShotScrollingSession::tearDown()
{
    m_ended = true;
    m_keys.reset(); // Return and Escape go back to everyone
    m_capture.reset();
    if (m_panel) {
        m_panel->close();
    }
    m_outline.hide();
}

} // namespace nubo
