#include "output/ShotBottomBar.h"

#include "output/ShotUpload.h"
#include "style/ShotIcons.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>

namespace nubo {

ShotDragHandle::ShotDragHandle(QWidget* parent) : QLabel(tr("Drag Me"), parent)
{
    // The buttons' font and height, a handle's frame and cursor.
    setToolTip(tr("Drag PNG · Hold Alt at drop to keep open"));
    setCursor(Qt::OpenHandCursor);
    // A dashed outline: something to pick up, not a button to press.
    setObjectName(QStringLiteral("dragHandle"));
    setStyleSheet(QStringLiteral("QLabel#dragHandle { border: 1px dashed palette(dark);"
                                 " border-radius: 4px; padding: 0 12px; }"
                                 "QLabel#dragHandle:hover { background: palette(midlight); }"));
    setAlignment(Qt::AlignCenter);
}

void ShotDragHandle::mousePressEvent(QMouseEvent* event)
{
    m_armed = event->button() == Qt::LeftButton;
    m_pressed = event->position().toPoint();
    if (m_armed) {
        emit pressed();
    }
}

void ShotDragHandle::mouseMoveEvent(QMouseEvent* event)
{
    if (m_armed && (event->buttons() & Qt::LeftButton) &&
        (event->position().toPoint() - m_pressed).manhattanLength() >=
            QApplication::startDragDistance()) {
        m_armed = false;
        emit dragStarted();
    }
}

ShotBottomBar::ShotBottomBar(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);

    const auto button = [this, layout](const QString& icon, const QString& title,
                                       const QString& help, auto signal) {
        auto* b = new QPushButton(ShotIcons::icon(icon), title, this);
        b->setToolTip(help);
        b->setFocusPolicy(Qt::NoFocus);
        connect(b, &QPushButton::clicked, this, signal);
        layout->addWidget(b);
        return b;
    };
    m_copy = button(QStringLiteral("edit-copy"), tr("Copy"),
                    tr("Copy (Ctrl+C) · Hold Alt to keep open"), &ShotBottomBar::copyRequested);
    m_save = button(QStringLiteral("document-save"), tr("Save"),
                    tr("Save to the quick-save folder (Ctrl+S) · Hold Alt to keep open"),
                    &ShotBottomBar::quickSaveRequested);
    m_saveAs = button(QStringLiteral("document-save-as"), tr("Save As…"),
                      tr("Save As (Ctrl+Shift+S)"), &ShotBottomBar::saveAsRequested);
    m_drag = new ShotDragHandle(this);
    connect(m_drag, &ShotDragHandle::dragStarted, this, &ShotBottomBar::dragRequested);
    m_drag->setMinimumHeight(m_copy->sizeHint().height());
    layout->addWidget(m_drag);
    m_share =
        new QPushButton(ShotIcons::icon(QStringLiteral("document-send")), tr("Open With"), this);
    m_share->setToolTip(tr("Open the shot in another application"));
    m_share->setFocusPolicy(Qt::NoFocus);
    auto* applications = new QMenu(m_share);
    applications->setObjectName(QStringLiteral("openWith"));
    // Listed afresh each time: applications come and go.
    connect(applications, &QMenu::aboutToShow, this, &ShotBottomBar::listApplications);
    m_share->setMenu(applications);
    layout->addWidget(m_share);

    // Upload: a press goes to the destination of the settings, the menu
    // to either one for this shot.
    m_upload = new QToolButton(this);
    m_upload->setIcon(ShotIcons::icon(QStringLiteral("nuboshot-upload")));
    m_upload->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_upload->setPopupMode(QToolButton::MenuButtonPopup);
    m_upload->setFocusPolicy(Qt::NoFocus);
    m_upload->setMinimumHeight(m_copy->sizeHint().height());
    auto* destinations = new QMenu(m_upload);
    m_uploadToBucket = destinations->addAction(
        tr("Upload to R2"), this, [this] { emit uploadToRequested(ShotUploadDestination::r2); });
    destinations->addAction(tr("Upload to Filebin"), this,
                            [this] { emit uploadToRequested(ShotUploadDestination::filebin); });
    m_upload->setMenu(destinations);
    connect(m_upload, &QToolButton::clicked, this, &ShotBottomBar::uploadRequested);
    layout->addWidget(m_upload);
    m_cancelUpload = new QPushButton(tr("Cancel upload"), this);
    m_cancelUpload->setFocusPolicy(Qt::NoFocus);
    m_cancelUpload->setVisible(false);
    connect(m_cancelUpload, &QPushButton::clicked, this, &ShotBottomBar::cancelUploadRequested);
    layout->addWidget(m_cancelUpload);
    showUpload({}, ShotUploadDestination::filebin, false);
    m_pinToScreen = button(QStringLiteral("nuboshot-pin"), tr("Pin"),
                           tr("Pin the shot to the screen, above other windows (Ctrl+Shift+P)"),
                           &ShotBottomBar::pinToScreenRequested);
    layout->addStretch(1);

    m_pin = new QToolButton(this);
    m_pin->setText(tr("Keep Open"));
    m_pin->setIcon(ShotIcons::icon(QStringLiteral("nuboshot-keep-open")));
    m_pin->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    m_pin->setAutoRaise(true);
    m_pin->setCheckable(true);
    m_pin->setFocusPolicy(Qt::NoFocus);
    m_pin->setToolTip(tr("Keep this editor open after copying, saving or dragging"));
    layout->addWidget(m_pin);
}

bool ShotBottomBar::isPinned() const
{
    return m_pin->isChecked();
}

void ShotBottomBar::setShareAvailable(bool available)
{
    m_portalShares = available;
}

void ShotBottomBar::listApplications()
{
    QMenu* menu = m_share->menu();
    menu->clear();
    const QList<DesktopApplication> found = ShotApplications::forType(QStringLiteral("image/png"));
    for (const DesktopApplication& application : found) {
        QAction* item = menu->addAction(
            QIcon::fromTheme(application.icon),
            application.isDefault ? tr("%1 (Default)").arg(application.name) : application.name,
            this, [this, application] { emit openWithRequested(application); });
        item->setData(application.id);
    }
    if (found.isEmpty()) {
        menu->addAction(tr("No application opens PNG images"))->setEnabled(false);
    }
    if (m_portalShares) {
        menu->addSeparator();
        menu->addAction(tr("Other Application…"), this, &ShotBottomBar::shareRequested);
    }
}

void ShotBottomBar::showUpload(const ShotUploadState& state, ShotUploadDestination destination,
                               bool bucketReady)
{
    const bool uploading = state.is<ShotUploadState::Uploading>();
    m_upload->setText(state.title(destination));
    m_upload->setEnabled(!uploading);
    m_upload->setPopupMode(uploading ? QToolButton::DelayedPopup : QToolButton::MenuButtonPopup);
    m_cancelUpload->setVisible(uploading);
    m_uploadToBucket->setEnabled(bucketReady);
    m_uploadToBucket->setToolTip(
        bucketReady ? QString() : tr("Set up a bucket on the Uploads page of the settings first"));
    const QString name =
        destination == ShotUploadDestination::r2 ? tr("your bucket") : tr("Filebin");
    QString help;
    if (const auto* done = std::get_if<ShotUploadState::Done>(&state.value)) {
        help = tr("%1 · Click to copy the link again").arg(done->url.value_or(QString()));
    } else if (const auto* uploaded = std::get_if<ShotUploadState::Uploaded>(&state.value)) {
        help = tr("Object key %1 · Click to copy it again · "
                              "Set a public URL in the settings to get links")
                   .arg(uploaded->url.value_or(QString()));
    } else if (const auto* failed = std::get_if<ShotUploadState::Failed>(&state.value)) {
        help = tr("%1 · Click to try again").arg(failed->message);
    } else if (const auto* unknown = std::get_if<ShotUploadState::OutcomeUnknown>(&state.value)) {
        help = unknown->message;
    } else if (uploading) {
        help = tr("Sending the shot to %1").arg(name);
    } else {
        help = tr("Upload the shot as PNG to %1; the link is copied").arg(name);
    }
    m_upload->setToolTip(help);
}

void ShotBottomBar::addTrailing(QWidget* widget)
{
    layout()->addWidget(widget);
}

} // namespace nubo
