#pragma once

#include "core/EnumStrings.h"
#include "core/Error.h"
#include "document/ShotDocument.h"

#include <QString>

namespace nubo {

class ArchiveError : public Error {
public:
    enum class Code {
        unsupportedVersion,
        invalidManifest,
        invalidDocument,
        invalidImage,
        imageTooLarge,
        archiveTooLarge,
    };

    // detail says what exactly was wrong, for logs and the command line; the
    // message stays the same for every archive.
    ArchiveError(Code code, QString detail = {}, qint64 foundVersion = 0);

    Code code() const noexcept { return m_code; }
    qint64 foundVersion() const noexcept { return m_foundVersion; }
    const QString& detail() const noexcept { return m_detail; }

    static QString messageFor(Code code, qint64 foundVersion = 0);

private:
    Code m_code;
    QString m_detail;
    qint64 m_foundVersion;
};

template <> struct EnumNames<ArchiveError::Code> {
    static constexpr std::array names{"unsupportedVersion", "invalidManifest", "invalidDocument",
                                      "invalidImage",       "imageTooLarge",   "archiveTooLarge"};
};

// Stores a shot document as a folder: "manifest.json" and one PNG per image
// layer, so that an edited shot reopens with its annotations editable.
class ShotDocumentArchive {
public:
    static constexpr int version = 1;
    // The most an archive's files may hold together.
    static constexpr qint64 maximumBytes = 200'000'000;
    // The most pixels one layer image may have (ShotLimits). Larger images
    // are refused unread.
    static constexpr qint64 maximumImagePixels = ShotLimits::maximumImagePixels;
    static constexpr int maximumImageSide = ShotLimits::maximumImageSide;
    static constexpr char manifestName[] = "manifest.json";

    // Writes into a fresh sibling folder and then swaps it into place, so an
    // existing archive stays whole if anything fails. A folder that exists
    // but is not an archive is never replaced. Throws ArchiveError or FileError.
    static void write(const ShotDocument& document, const QString& folder);

    // Reads an archive; throws ArchiveError or FileError and returns nothing
    // partial.
    static ShotDocument read(const QString& folder);

    static QString layerFileName(const QUuid& id);

    // Lets Qt's image readers allocate an image as large as a layer may be
    // (Qt's own ceiling is 256 MB).
    static void allowLargeImages();
};

} // namespace nubo
