// GLib's headers name struct members "signals", which Qt defines as a word.
#undef signals
#include <libsecret/secret.h>

#include "upload/UploadSecrets.h"

#include "core/Error.h"

namespace nubo::uploadSecrets {

namespace {

const SecretSchema* schema()
{
    static const SecretSchema s3 = {
        "com.corvane.lab.NuboShared.S3",
        SECRET_SCHEMA_NONE,
        {{"access_key_id", SECRET_SCHEMA_ATTRIBUTE_STRING}, {nullptr, SECRET_SCHEMA_ATTRIBUTE_STRING}},
        0, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr};
    return &s3;
}

// The keyring's reason in a sentence the user can act on.
[[noreturn]] void fail(GError* error, const char* doing)
{
    QString reason = error ? QString::fromUtf8(error->message) : QStringLiteral("no reason given");
    const bool noService = error && (error->domain == G_DBUS_ERROR || error->domain == G_IO_ERROR);
    const bool locked = error && error->domain == SECRET_ERROR &&
                        (error->code == SECRET_ERROR_IS_LOCKED || error->code == SECRET_ERROR_NO_SUCH_OBJECT);
    if (error) {
        g_error_free(error);
    }
    if (locked) {
        throw Error(QStringLiteral("The keyring is locked, so the S3 secret could not be %1: "
                                   "unlock it (or log in again) and retry.")
                        .arg(QLatin1String(doing)));
    }
    if (noService) {
        throw Error(QStringLiteral("No keyring answers on this desktop, so the S3 secret could not "
                                   "be %1 (%2): install gnome-keyring or another Secret Service.")
                        .arg(QLatin1String(doing), reason));
    }
    throw Error(QStringLiteral("The keyring refused to let the S3 secret be %1: %2.")
                    .arg(QLatin1String(doing), reason));
}

} // namespace

void storeS3Secret(const QString& accessKeyId, const QString& secret)
{
    GError* error = nullptr;
    const QByteArray id = accessKeyId.toUtf8();
    const QByteArray label = "Nubo S3 secret for " + id;
    if (!secret_password_store_sync(schema(), SECRET_COLLECTION_DEFAULT, label.constData(),
                                    secret.toUtf8().constData(), nullptr, &error,
                                    "access_key_id", id.constData(), nullptr)) {
        fail(error, "stored");
    }
}

std::optional<QString> s3Secret(const QString& accessKeyId)
{
    GError* error = nullptr;
    const QByteArray id = accessKeyId.toUtf8();
    gchar* found = secret_password_lookup_sync(schema(), nullptr, &error, "access_key_id",
                                               id.constData(), nullptr);
    if (error) {
        fail(error, "read");
    }
    if (!found) {
        return std::nullopt;
    }
    QString secret = QString::fromUtf8(found);
    secret_password_free(found);
    return secret;
}

void forgetS3Secret(const QString& accessKeyId)
{
    GError* error = nullptr;
    const QByteArray id = accessKeyId.toUtf8();
    secret_password_clear_sync(schema(), nullptr, &error, "access_key_id", id.constData(), nullptr);
    if (error) {
        fail(error, "forgotten");
    }
}

} // namespace nubo::uploadSecrets
