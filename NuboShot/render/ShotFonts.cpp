#include "render/ShotFonts.h"

#include "core/Logging.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <mutex>

namespace nubo {

namespace {

class DocumentDevice final : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return nullptr; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 72;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        case PdmWidth:
        case PdmHeight:
            return 1 << 20;
        case PdmWidthMM:
        case PdmHeightMM:
            return int((1 << 20) * 25.4 / 72);
        case PdmDepth:
            return 32;
        case PdmNumColors:
            return 0;
        }
        return 0;
    }
};

// The first installed family that really is what we asked for: fontconfig
// answers every request with something, so the match is checked by name.
QString resolve(const QStringList& candidates, const char* what)
{
    for (const QString& family : candidates) {
        QFont font(family);
        font.setStyleStrategy(QFont::PreferOutline);
        if (ShotFonts::familyOf(font).compare(family, Qt::CaseInsensitive) == 0) {
            qCDebug(lcRender) << "Drawing" << what << "with" << family;
            return family;
        }
    }
    qCCritical(lcRender)
        << "None of the fonts for" << what << "is installed:" << candidates
        << "- install fonts-urw-base35, fonts-liberation2 and fonts-noto-color-emoji";
    return {};
}

} // namespace

QString ShotFonts::familyOf(const QFont& font)
{
    // fontconfig names a family found under several foundries "Family [foundry]".
    const QString family = QFontInfo(font).family();
    const qsizetype bracket = family.indexOf(QLatin1String(" ["));
    return bracket < 0 ? family : family.left(bracket);
}

QStringList ShotFonts::textCandidates()
{
    return {QStringLiteral("Nimbus Sans"), QStringLiteral("Liberation Sans")};
}

QString ShotFonts::emojiCandidate()
{
    return QStringLiteral("Noto Color Emoji");
}

QString ShotFonts::textFamily()
{
    static std::once_flag once;
    static QString family;
    std::call_once(once, [] { family = resolve(textCandidates(), "text"); });
    return family;
}

QString ShotFonts::emojiFamily()
{
    static std::once_flag once;
    static QString family;
    std::call_once(once, [] { family = resolve({emojiCandidate()}, "emoji"); });
    return family;
}

QFont ShotFonts::textFont(int pixelSize)
{
    QFont font;
    QStringList families;
    if (!textFamily().isEmpty()) {
        families << textFamily();
    } else {
        families << QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    }
    // Emoji typed into text come from the colour font, not a monochrome one.
    if (!emojiFamily().isEmpty()) {
        families << emojiFamily();
    }
    font.setFamilies(families);
    font.setPointSizeF(qMax(pixelSize, 1)); // one point per unit against documentDevice()
    font.setStyleStrategy(QFont::PreferOutline);
    // Unhinted outlines scale exactly, so every density draws the same shapes.
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setKerning(true);
    return font;
}

QFont ShotFonts::emojiFont(int pixelSize)
{
    QFont font(emojiFamily().isEmpty() ? emojiCandidate() : emojiFamily());
    font.setPointSizeF(qMax(pixelSize, 1));
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}

QPaintDevice* ShotFonts::documentDevice()
{
    static DocumentDevice device;
    return &device;
}

} // namespace nubo
