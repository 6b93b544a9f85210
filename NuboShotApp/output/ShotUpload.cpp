#include "output/ShotUpload.h"

#include "core/Logging.h"
#include "core/Settings.h"
#include "upload/Uploader.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QGuiApplication>
#include <QPointer>
#include <QThread>

#include <thread>

namespace nubo {

QString ShotUploadState::title(ShotUploadDestination destination) const
{
    return std::visit(
        [&](const auto& s) -> QString {
            using S = std::decay_t<decltype(s)>;
            if constexpr (std::is_same_v<S, Idle>) {
                return destination == ShotUploadDestination::r2
                           ? QCoreApplication::translate("nubo::ShotUpload", "Upload to R2")
                           : QCoreApplication::translate("nubo::ShotUpload", "Upload to Filebin");
            } else if constexpr (std::is_same_v<S, Uploading>) {
                return s.progress
                           ? QCoreApplication::translate("nubo::ShotUpload", "Uploading… %1%")
                                 .arg(qRound(*s.progress * 100))
                           : QCoreApplication::translate("nubo::ShotUpload", "Uploading…");
            } else if constexpr (std::is_same_v<S, Done>) {
                return QCoreApplication::translate("nubo::ShotUpload",
                                                   "Upload complete · Link copied");
            } else if constexpr (std::is_same_v<S, Uploaded>) {
                return QCoreApplication::translate("nubo::ShotUpload",
                                                   "Upload complete · Key copied");
            } else if constexpr (std::is_same_v<S, Failed>) {
                return QCoreApplication::translate("nubo::ShotUpload", "Upload failed · Retry");
            } else {
                return QCoreApplication::translate("nubo::ShotUpload", "Upload uncertain · Retry");
            }
        },
        value);
}

ShotUploadStatus::ShotUploadStatus(ShotPreferences& preferences, QObject* parent)
    : QObject(parent), storePath(UploadStore::defaultPath()), m_preferences(preferences)
{}

ShotUploadStatus::~ShotUploadStatus()
{
    // The worker holds its own reference; it only needs telling.
    if (m_uploader) {
        m_uploader->cancel();
    }
}

UploadSettings ShotUploadStatus::settings(std::optional<ShotUploadDestination> destination) const
{
    const auto chosen = destination.value_or(
        m_preferences.enumeration(keys::uploadDestination, ShotUploadDestination::auto_));
    UploadSettings fallback;
    fallback.destination = chosen;
    if (!QFileInfo::exists(storePath)) {
        return fallback; // nothing set up yet; opening an editor makes no store
    }
    try {
        return UploadStore(storePath).settings(chosen);
    } catch (const Error& error) {
        qCWarning(lcUpload, "%s", qUtf8Printable(error.message()));
        return fallback;
    }
}

void ShotUploadStatus::prepare()
{
    m_cancelledBeforeStart = false;
    set({ShotUploadState::Uploading{}});
}

void ShotUploadStatus::showFailure(const QString& message)
{
    m_uploader.reset();
    set({ShotUploadState::Failed{message}});
}

void ShotUploadStatus::set(ShotUploadState state)
{
    if (state == m_state) {
        return;
    }
    m_state = std::move(state);
    emit changed(m_state);
}

void ShotUploadStatus::reset()
{
    if (!isRunning()) {
        set({});
    }
}

void ShotUploadStatus::cancel()
{
    if (m_uploader) {
        qCInfo(lcUpload, "Upload cancelled by the user");
        m_uploader->cancel();
    } else if (isRunning()) {
        qCInfo(lcUpload, "Upload cancelled before it started");
        m_cancelledBeforeStart = true;
        set({});
    }
}

void ShotUploadStatus::start(const QString& file,
                             std::optional<ShotUploadDestination> destination)
{
    Q_ASSERT(QThread::currentThread() == QCoreApplication::instance()->thread());
    if (m_uploader || std::exchange(m_cancelledBeforeStart, false)) {
        return;
    }
    UploadRequest request;
    request.fileName = QFileInfo(file).fileName();
    try {
        request.settings = UploadStore(storePath).settings(destination.value_or(
            m_preferences.enumeration(keys::uploadDestination, ShotUploadDestination::auto_)));
    } catch (const Error& error) {
        set({ShotUploadState::Failed{error.message()}});
        return;
    }
    m_destination = request.settings.effective();
    qCInfo(lcUpload, "Upload of %s to %s starting", qUtf8Printable(request.fileName),
           qUtf8Printable(toString(*m_destination)));
    auto uploader = std::make_shared<Uploader>(request, storePath);
    m_uploader = uploader;
    set({ShotUploadState::Uploading{}});
    QPointer<ShotUploadStatus> self(this);
    uploader->progress = [self](qint64 sent, qint64 total) {
        QMetaObject::invokeMethod(
            qApp,
            [self, sent, total] {
                if (self && self->m_uploader && total > 0) {
                    self->set({ShotUploadState::Uploading{double(sent) / double(total)}});
                }
            },
            Qt::QueuedConnection);
    };
    std::thread([self, uploader, file] {
        std::optional<UploadReceipt> receipt;
        std::optional<UploadFailure> failure;
        QFile input(file);
        if (!input.open(QIODevice::ReadOnly)) {
            failure.emplace(
                ShotUploadError::failed,
                tr("The shot could not be read for the upload: %1.").arg(input.errorString()));
        } else {
            uploader->setBytes(input.readAll());
            try {
                receipt = uploader->run();
            } catch (const UploadFailure& f) {
                failure = f;
            } catch (const Error& e) {
                failure.emplace(ShotUploadError::failed, e.message());
            }
        }
        QMetaObject::invokeMethod(
            qApp,
            [self, receipt, failure] {
                if (!self) {
                    return;
                }
                self->m_uploader.reset();
                if (receipt) {
                    // The link, or the key where there is none, replaces the clipboard.
                    QClipboard* clipboard = QGuiApplication::clipboard();
                    clipboard->clear();
                    clipboard->setText(receipt->handle());
                    if (receipt->link.isEmpty()) {
                        self->set({ShotUploadState::Uploaded{receipt->key}});
                    } else {
                        self->set({ShotUploadState::Done{receipt->link}});
                    }
                } else if (failure->cancelled()) {
                    self->set({});
                } else if (failure->kind() == ShotUploadError::outcomeUnknown) {
                    self->set({ShotUploadState::OutcomeUnknown{failure->message()}});
                } else {
                    self->set({ShotUploadState::Failed{failure->message()}});
                }
            },
            Qt::QueuedConnection);
    }).detach();
}

} // namespace nubo
