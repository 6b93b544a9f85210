#include "core/Error.h"
#include "core/Logging.h"
#include "core/Settings.h"
#include "settings/ShotSettingsPage.h"
#include "upload/UploadSecrets.h"
#include "upload/UploadStore.h"
#include "upload/Uploader.h"

#include <QBuffer>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QFutureWatcher>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QtConcurrent>

namespace nubo {

namespace {

// A small picture that says what it is, for "Test Upload".
QByteArray testPicture()
{
    QImage image(240, 80, QImage::Format_RGB32);
    image.fill(QColor(0x2f, 0x6f, 0xd0));
    QPainter painter(&image);
    painter.setPen(Qt::white);
    painter.drawText(image.rect(), Qt::AlignCenter, QStringLiteral("Nubo Shot test upload"));
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// Where uploads go and how: the destination, the Filebin server, an
// S3-compatible bucket with its secret in the keyring, and a test upload.
// The non-secret settings live in the suite's shared store, so the suite's
// other programs upload to the same places; the keyring is only ever
// touched on worker threads.
class UploadsSettingsPage : public ShotSettingsPage {
    Q_OBJECT
public:
    UploadsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
        : ShotSettingsPage(context, QT_TRANSLATE_NOOP("nubo::ShotSettingsPage", "Uploads"),
                           QStringLiteral("nuboshot-upload"), parent)
    {
        QFormLayout* where = addSection(tr("Destination"));
        m_destination = new QComboBox(this);
        m_destination->setObjectName(QStringLiteral("uploadDestination"));
        m_destination->addItem(tr("Automatic: the bucket when it is set up, else Filebin"),
                               toString(ShotUploadDestination::auto_));
        m_destination->addItem(tr("S3-compatible bucket (R2)"),
                               toString(ShotUploadDestination::r2));
        m_destination->addItem(tr("Filebin"), toString(ShotUploadDestination::filebin));
        where->addRow(tr("Upload to:"), m_destination);
        addNote(where, tr("Links are copied after upload. Without a public URL, object "
                                      "keys are copied."));
        connect(m_destination, &QComboBox::activated, this, [this] {
            preferences().setValue(QLatin1String(keys::uploadDestination),
                                   m_destination->currentData());
            tellChanged(QLatin1String(keys::uploadDestination));
        });

        QFormLayout* filebin = addSection(tr("Filebin"));
        m_filebinServer = field(filebin, QStringLiteral("filebinServer"), tr("Server:"),
                                QLatin1String(FilebinSettings::publicServer));
        m_filebinBin = field(filebin, QStringLiteral("filebinBin"), tr("Bin:"),
                             tr("A new bin for every upload"));
        addNote(filebin, tr("Filebin keeps files for about a week; anyone with the "
                                        "link can see them."));

        QFormLayout* bucket = addSection(tr("S3-compatible bucket"));
        m_endpoint = field(bucket, QStringLiteral("s3Endpoint"), tr("Endpoint:"),
                           QStringLiteral("https://ACCOUNT.r2.cloudflarestorage.com"));
        m_region = field(bucket, QStringLiteral("s3Region"), tr("Region:"),
                         QStringLiteral("auto"));
        m_bucket = field(bucket, QStringLiteral("s3Bucket"), tr("Bucket:"), {});
        m_keyPrefix = field(bucket, QStringLiteral("s3KeyPrefix"), tr("Key prefix:"),
                            tr("Optional, such as screenshots/"));
        m_publicBase = field(bucket, QStringLiteral("s3PublicUrlBase"), tr("Public URL:"),
                             tr("Optional, such as https://shots.example.com"));
        m_virtualHosted = new QCheckBox(tr("Bucket in the host name (virtual-hosted style)"), this);
        m_virtualHosted->setObjectName(QStringLiteral("s3VirtualHosted"));
        bucket->addRow(QString(), m_virtualHosted);
        connect(m_virtualHosted, &QCheckBox::toggled, this, [this] { save(); });
        m_accessKeyId = field(bucket, QStringLiteral("s3AccessKeyId"), tr("Access key ID:"), {});

        m_secret = new QLineEdit(this);
        m_secret->setObjectName(QStringLiteral("s3Secret"));
        m_secret->setEchoMode(QLineEdit::Password);
        m_secret->setClearButtonEnabled(true);
        auto* secretRow = new QHBoxLayout;
        secretRow->addWidget(m_secret, 1);
        m_forgetSecret = new QPushButton(tr("Forget"), this);
        m_forgetSecret->setObjectName(QStringLiteral("forgetS3Secret"));
        secretRow->addWidget(m_forgetSecret);
        bucket->addRow(tr("Secret access key:"), secretRow);
        m_secretState = new QLabel(this);
        m_secretState->setObjectName(QStringLiteral("s3SecretState"));
        m_secretState->setWordWrap(true);
        m_secretState->setMinimumWidth(420);
        bucket->addRow(QString(), m_secretState);
        connect(m_secret, &QLineEdit::editingFinished, this, [this] { storeSecret(); });
        connect(m_forgetSecret, &QPushButton::clicked, this, [this] { forgetSecret(); });

        QFormLayout* test = addSection(tr("Try it"));
        m_test = new QPushButton(tr("Test Upload"), this);
        m_test->setObjectName(QStringLiteral("testUpload"));
        m_test->setToolTip(tr("Uploads a small picture to the destination above"));
        test->addRow(QString(), m_test);
        m_testResult = new QLabel(this);
        m_testResult->setObjectName(QStringLiteral("testUploadResult"));
        m_testResult->setWordWrap(true);
        m_testResult->setMinimumWidth(420);
        m_testResult->setTextInteractionFlags(Qt::TextSelectableByMouse);
        test->addRow(QString(), m_testResult);
        connect(m_test, &QPushButton::clicked, this, [this] { testUpload(); });

        reload();
    }

    ~UploadsSettingsPage() override
    {
        if (m_running) {
            m_running->cancel();
        }
    }

    void reload() override
    {
        const auto chosen = preferences().enumeration(QLatin1String(keys::uploadDestination),
                                                      ShotUploadDestination::auto_);
        m_destination->setCurrentIndex(m_destination->findData(toString(chosen)));
        UploadSettings settings;
        try {
            settings = UploadStore(UploadStore::defaultPath()).settings(chosen);
            m_storeProblem.clear();
        } catch (const Error& error) {
            m_storeProblem = error.message();
        }
        const QSignalBlocker block(m_virtualHosted);
        m_filebinServer->setText(settings.filebin.server);
        m_filebinBin->setText(settings.filebin.bin);
        m_endpoint->setText(settings.s3.endpoint);
        m_region->setText(settings.s3.region);
        m_bucket->setText(settings.s3.bucket);
        m_keyPrefix->setText(settings.s3.keyPrefix);
        m_publicBase->setText(settings.s3.publicUrlBase);
        m_accessKeyId->setText(settings.s3.accessKeyId);
        m_virtualHosted->setChecked(settings.s3.virtualHosted);
        m_savedKeyId = settings.s3.accessKeyId;
        if (!m_storeProblem.isEmpty()) {
            m_testResult->setText(m_storeProblem);
        }
        showSecretState();
    }

private:
    QLineEdit* field(QFormLayout* section, const QString& name, const QString& label,
                     const QString& placeholder)
    {
        auto* edit = new QLineEdit(this);
        edit->setObjectName(name);
        edit->setPlaceholderText(placeholder);
        edit->setMinimumWidth(320);
        section->addRow(label, edit);
        connect(edit, &QLineEdit::editingFinished, this, [this] { save(); });
        return edit;
    }

    void tellChanged(const QString& key)
    {
        if (m_context.changed) {
            m_context.changed(key);
        }
    }

    S3Settings s3() const
    {
        S3Settings s3;
        s3.endpoint = m_endpoint->text().trimmed();
        s3.region = m_region->text().trimmed().isEmpty() ? QStringLiteral("auto")
                                                         : m_region->text().trimmed();
        s3.bucket = m_bucket->text().trimmed();
        s3.keyPrefix = m_keyPrefix->text().trimmed();
        s3.publicUrlBase = m_publicBase->text().trimmed();
        s3.accessKeyId = m_accessKeyId->text().trimmed();
        s3.virtualHosted = m_virtualHosted->isChecked();
        return s3;
    }

    FilebinSettings filebin() const
    {
        FilebinSettings filebin;
        if (!m_filebinServer->text().trimmed().isEmpty()) {
            filebin.server = m_filebinServer->text().trimmed();
        }
        filebin.bin = m_filebinBin->text().trimmed();
        return filebin;
    }

    void save()
    {
        try {
            UploadStore(UploadStore::defaultPath()).saveSettings(s3(), filebin());
        } catch (const Error& error) {
            m_testResult->setText(tr("The settings could not be kept: %1").arg(error.message()));
            return;
        }
        tellChanged(QStringLiteral("uploads"));
        if (m_savedKeyId != s3().accessKeyId) {
            m_savedKeyId = s3().accessKeyId;
            showSecretState();
        }
    }

    // Runs `work` on a worker thread and `done` with its message back here
    // (empty when it went well).
    void inBackground(std::function<QString()> work, std::function<void(const QString&)> done)
    {
        auto* watcher = new QFutureWatcher<QString>(this);
        connect(watcher, &QFutureWatcher<QString>::finished, this, [watcher, done] {
            watcher->deleteLater();
            done(watcher->result());
        });
        watcher->setFuture(QtConcurrent::run([work] {
            try {
                return work();
            } catch (const Error& error) {
                return error.message().isEmpty() ? tr("Failed.") : error.message();
            }
        }));
    }

    void showSecretState()
    {
        const QString keyId = m_savedKeyId;
        m_forgetSecret->setEnabled(false);
        if (keyId.isEmpty()) {
            m_secret->setEnabled(false);
            m_secret->setPlaceholderText(QString());
            m_secretState->setText(tr("Enter the access key ID first."));
            return;
        }
        m_secret->setEnabled(true);
        m_secretState->setText(tr("Asking the keyring…"));
        inBackground(
            [keyId]() -> QString {
                return uploadSecrets::s3Secret(keyId) ? QStringLiteral("set") : QString();
            },
            [this, keyId](const QString& result) {
                if (keyId != m_savedKeyId) {
                    return; // asked about an older key id
                }
                const bool set = result == QLatin1String("set");
                m_secret->setProperty("stored", set);
                m_forgetSecret->setEnabled(set);
                if (set) {
                    m_secret->setPlaceholderText(tr("Set · type to replace"));
                    m_secretState->setText(tr("Kept in the desktop's keyring."));
                } else if (result.isEmpty()) {
                    m_secret->setPlaceholderText(tr("Not set"));
                    m_secretState->setText(tr("Not set: uploads to the bucket need it."));
                } else {
                    m_secret->setPlaceholderText(tr("Not available"));
                    m_secretState->setText(result);
                }
            });
    }

    void storeSecret()
    {
        const QString secret = m_secret->text();
        const QString keyId = m_savedKeyId;
        if (secret.isEmpty() || keyId.isEmpty()) {
            return;
        }
        // The field never keeps the secret, nor shows it again.
        m_secret->clear();
        m_secretState->setText(tr("Storing in the keyring…"));
        inBackground(
            [keyId, secret] {
                uploadSecrets::storeS3Secret(keyId, secret);
                return QString();
            },
            [this](const QString& failure) {
                if (!failure.isEmpty()) {
                    m_secretState->setText(failure);
                    return;
                }
                tellChanged(QStringLiteral("uploads"));
                showSecretState();
            });
    }

    void forgetSecret()
    {
        const QString keyId = m_savedKeyId;
        inBackground(
            [keyId] {
                uploadSecrets::forgetS3Secret(keyId);
                return QString();
            },
            [this](const QString& failure) {
                if (!failure.isEmpty()) {
                    m_secretState->setText(failure);
                    return;
                }
                showSecretState();
            });
    }

    void testUpload()
    {
        if (m_running) {
            return;
        }
        save();
        UploadRequest request;
        request.fileName = QStringLiteral("Nubo Shot test upload.png");
        try {
            request.settings = UploadStore(UploadStore::defaultPath())
                                   .settings(preferences().enumeration(
                                       QLatin1String(keys::uploadDestination),
                                       ShotUploadDestination::auto_));
        } catch (const Error& error) {
            m_testResult->setText(error.message());
            return;
        }
        const ShotUploadDestination to = request.settings.effective();
        m_test->setEnabled(false);
        m_testResult->setText(to == ShotUploadDestination::r2 ? tr("Uploading to the bucket…")
                                                              : tr("Uploading to Filebin…"));
        request.bytes = testPicture();
        auto uploader = std::make_shared<Uploader>(request);
        m_running = uploader;
        inBackground(
            [uploader] {
                const UploadReceipt receipt = uploader->run();
                return QStringLiteral("\u2713 ") +
                       (receipt.link.isEmpty()
                            ? tr("Uploaded as %1 (no public URL, so this is the "
                                             "object key).")
                                  .arg(receipt.key)
                            : tr("Uploaded: %1").arg(receipt.link));
            },
            [this](const QString& result) {
                m_running.reset();
                m_test->setEnabled(true);
                const bool succeeded = result.startsWith(u'\u2713');
                m_testResult->setProperty("succeeded", succeeded);
                m_testResult->setText(succeeded ? result : QStringLiteral("\u2717 ") + result);
            });
    }

    QComboBox* m_destination = nullptr;
    QLineEdit* m_filebinServer = nullptr;
    QLineEdit* m_filebinBin = nullptr;
    QLineEdit* m_endpoint = nullptr;
    QLineEdit* m_region = nullptr;
    QLineEdit* m_bucket = nullptr;
    QLineEdit* m_keyPrefix = nullptr;
    QLineEdit* m_publicBase = nullptr;
    QCheckBox* m_virtualHosted = nullptr;
    QLineEdit* m_accessKeyId = nullptr;
    QLineEdit* m_secret = nullptr;
    QPushButton* m_forgetSecret = nullptr;
    QLabel* m_secretState = nullptr;
    QPushButton* m_test = nullptr;
    QLabel* m_testResult = nullptr;
    QString m_savedKeyId;
    QString m_storeProblem;
    std::shared_ptr<Uploader> m_running;
};

} // namespace

ShotSettingsPage* makeUploadsSettingsPage(const ShotSettingsContext& context, QWidget* parent)
{
    return new UploadsSettingsPage(context, parent);
}

} // namespace nubo

#include "UploadsSettingsPage.moc"
