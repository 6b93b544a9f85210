#pragma once

#include "core/Error.h"
#include "document/ShotDocument.h"
#include "export/ShotFormat.h"

#include <QString>

namespace nubo {

class ShotExportError : public Error {
public:
    enum class Code { invalidOptions };
    explicit ShotExportError(Code code = Code::invalidOptions);
    Code code() const noexcept { return m_code; }

private:
    Code m_code;
};

class ShotRenderer;

// Validates export options, renders the shot and writes one image file.
class ShotExporter {
public:
    static constexpr double maximumSide = 65536;
    static constexpr double maximumPixels = 268435456; // 2^28

    // The size in points that an export covers: the crop (else the canvas),
    // standardised, plus twice the frame's padding.
    static QSizeF exportSize(const ShotDocument& document);

    // Throws ShotExportError when an option is out of range, before
    // anything is rendered or written.
    static void validate(const ShotDocument& document, double quality, double scale);

    // The shot drawn at `scale`. A bare capture at its own density is its
    // image: nothing is drawn. Throws ShotExportError for options out of
    // range, ImageWriterError naming `fileName` when it cannot be drawn.
    static QImage flatten(ShotRenderer& renderer, const ShotDocument& document, double scale,
                          const QString& fileName);

    // The one way a shot becomes image bytes, for files, the clipboard,
    // drags and shares alike: validated, drawn (or not, as above) and
    // encoded; PNGs record `scale` as their density. `drawn`, when given,
    // receives the drawn image. Throws ShotExportError or ImageWriterError
    // naming `fileName`.
    static QByteArray encode(ShotRenderer& renderer, const ShotDocument& document,
                             ShotFormat format, double quality, double scale,
                             const QString& fileName, QImage* drawn = nullptr);

    // encode() written to `path` (its extension is neither checked nor
    // changed) whole or not at all.
    static void exportShot(const ShotDocument& document, ShotFormat format, const QString& path,
                           double quality, double scale);
    static void exportShot(ShotRenderer& renderer, const ShotDocument& document, ShotFormat format,
                           const QString& path, double quality, double scale,
                           QImage* drawn = nullptr);

    // A single image with nothing on it, exported at its own density: its
    // pixels are the export.
    static bool isBareCapture(const ShotDocument& document, double scale);

    // The scale a shot exports at by default: 2 when an image layer has at
    // least 1.5 pixels per point, else 1.
    static double defaultScale(const ShotDocument& document);
};

} // namespace nubo
