#pragma once

#include <QString>

#include <optional>

namespace nubo {

// The S3 secret access key, kept in the desktop's keyring (the Secret
// Service, through libsecret) under the access key id it belongs to; never
// in a file of ours. Every call may wait for the keyring: call from a
// worker thread where the interface must not wait.
namespace uploadSecrets {

// Throws Error with the keyring's reason: no keyring, locked, refused.
void storeS3Secret(const QString& accessKeyId, const QString& secret);
// The secret, or nothing when none is stored; throws Error as above.
std::optional<QString> s3Secret(const QString& accessKeyId);
// Throws Error as above; nothing to forget is no error.
void forgetS3Secret(const QString& accessKeyId);

} // namespace uploadSecrets
} // namespace nubo
