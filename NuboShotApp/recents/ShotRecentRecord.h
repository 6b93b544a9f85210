#pragma once

#include "core/EnumStrings.h"
#include "core/Error.h"

#include <QByteArray>
#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QUuid>

#include <optional>
#include <variant>

namespace nubo {

// One recent image: a captured shot (with its `mode`) or an image copied in
// another application (without). Coded as JSON under the field names.
struct ShotRecentRecord {
    QUuid id; // also the entry's folder name
    QDateTime date;
    std::optional<QString> mode;
    std::optional<QString> title;
    std::optional<QString> sourceApp;
    int pixelWidth = 0;
    int pixelHeight = 0;
    std::optional<QString> contentHash; // SHA-256, lower-case hex
    bool operator==(const ShotRecentRecord&) const = default;

    bool isCapture() const { return mode.has_value(); }
    QJsonObject toJson() const;
    // Nothing when a field is missing or of the wrong kind.
    static std::optional<ShotRecentRecord> fromJson(const QJsonObject& object);
};

// The image of a clipboard entry: its bytes, or an image file.
struct ShotRecentImagePayload {
    struct Data {
        QByteArray bytes;
        bool operator==(const Data&) const = default;
    };
    struct File {
        QString path;
        bool operator==(const File&) const = default;
    };
    std::variant<Data, File> payload;
    bool operator==(const ShotRecentImagePayload&) const = default;
};

class ShotRecentError : public Error {
public:
    enum class Code { missingEntry, invalidImage, invalidIndex, corruptEntry };
    ShotRecentError(Code code, QString detail);
    Code code() const noexcept { return m_code; }

private:
    Code m_code;
};
template <> struct EnumNames<ShotRecentError::Code> {
    static constexpr std::array names{"missingEntry", "invalidImage", "invalidIndex",
                                      "corruptEntry"};
};

// The SHA-256 digest of bytes as lower-case hexadecimal.
QString sha256Hex(const char* data, qsizetype size);

} // namespace nubo
