#include "core/Settings.h"
#include "export/ImageWriter.h"
#include "codec/PngEncoder.h"
#include "document/ShotImageFile.h"
#include "export/ShotExporter.h"
#include "export/ShotFileName.h"
#include "export/ShotQuickSave.h"
#include "render/ShotRenderer.h"
#include "support/ArchiveFixtures.h"
#include "support/QtPrinters.h"
#include "support/Decoders.h"
#include "support/RenderFixtures.h"

#include <QDir>
#include <QRandomGenerator>
#include <QSet>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <libheif/heif.h>
#include <spng.h>
#include <webp/demux.h>
#include <sys/stat.h>
#include <thread>
#include <webp/decode.h>
#include <webp/encode.h>
#include <webp/mux.h>

namespace nubo {
namespace {

ShotDocument documentOfSize(QRectF canvas)
{
    ShotDocument d;
    d.canvasBounds = canvas;
    return d;
}

bool exportRefused(const ShotDocument& document, double quality, double scale)
{
    try {
        ShotExporter::validate(document, quality, scale);
        return false;
    } catch (const ShotExportError& error) {
        EXPECT_EQ(error.message(), QStringLiteral("Invalid screenshot export options."));
        return true;
    }
}

TEST(ShotExporter, ValidatesOptionsBeforeAnythingElse)
{
    struct Case {
        const char* name;
        std::function<ShotDocument()> document;
        double quality, scale;
        bool refused;
    };
    const auto small = [] {
        return documentOfSize({0, 0, 100, 50});
    };
    const double nan = std::nan("");
    const Case cases[] = {
        {"1×", small, 0.9, 1, false},
        {"2×", small, 0.9, 2, false},
        {"1.5×", small, 0.9, 1.5, true},
        {"3×", small, 0.9, 3, true},
        {"quality 0", small, 0, 1, false},
        {"quality 1", small, 1, 1, false},
        {"quality above 1", small, 1.01, 1, true},
        {"negative quality", small, -0.01, 1, true},
        {"quality not a number", small, nan, 1, true},
        {"40000 × 10 points at 2×",
         [] {
             return documentOfSize({0, 0, 40000, 10});
         },
         0.9, 2, true},
        {"40000 × 10 points at 1×",
         [] {
             return documentOfSize({0, 0, 40000, 10});
         },
         0.9, 1, false},
        {"16384 × 16384 at 1×: exactly 2^28",
         [] {
             return documentOfSize({0, 0, 16384, 16384});
         },
         0.9, 1, false},
        {"16384 × 16385 at 1×",
         [] {
             return documentOfSize({0, 0, 16384, 16385});
         },
         0.9, 1, true},
        {"empty canvas",
         [] {
             return documentOfSize({0, 0, 0, 10});
         },
         0.9, 1, true},
        {"non-finite canvas",
         [] {
             return documentOfSize({0, 0, INFINITY, 10});
         },
         0.9, 1, true},
        {"negative crop width is standardised",
         [] {
             ShotDocument d = documentOfSize({0, 0, 100, 50});
             d.crop = QRectF(50, 0, -30, 20);
             return d;
         },
         0.9, 1, false},
        {"a frame's padding counts twice",
         [] {
             ShotDocument d = documentOfSize({0, 0, 65536 - 56, 10});
             d.frame = FrameStyle{};
             return d;
         },
         0.9, 1, false},
        {"… and one point more is too wide",
         [] {
             ShotDocument d = documentOfSize({0, 0, 65536 - 55, 10});
             d.frame = FrameStyle{};
             return d;
         },
         0.9, 1, true},
        {"negative padding adds nothing",
         [] {
             ShotDocument d = documentOfSize({0, 0, 65536, 10});
             d.frame = FrameStyle{-50};
             return d;
         },
         0.9, 1, false},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(exportRefused(c.document(), c.quality, c.scale), c.refused) << c.name;
    }
    ShotDocument cropped = documentOfSize({0, 0, 100, 50});
    cropped.crop = QRectF(50, 0, -30, 20);
    EXPECT_EQ(ShotExporter::exportSize(cropped), QSizeF(30, 20));
}

TEST(ShotExporter, RefusedOptionsTouchNoFile)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("shot.png"));
    test::writeFile(path, "previous");
    const ShotDocument d = ShotDocument::fromImage(test::patternImage(20, 20), 1);
    EXPECT_THROW(ShotExporter::exportShot(d, ShotFormat::png, path, 0.9, 3), ShotExportError);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("previous"));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

TEST(ShotFormat, RawValuesExtensionsAndWriterOrder)
{
    struct Case {
        ShotFormat format;
        const char* raw;
        const char* extension;
        ImageWriterFormat writer;
    };
    const Case cases[] = {{ShotFormat::png, "png", "png", ImageWriterFormat::png},
                          {ShotFormat::jpeg, "jpeg", "jpg", ImageWriterFormat::jpg},
                          {ShotFormat::heic, "heic", "heic", ImageWriterFormat::heic},
                          {ShotFormat::webp, "webp", "webp", ImageWriterFormat::webp}};
    for (const Case& c : cases) {
        EXPECT_EQ(toString(c.format), QLatin1String(c.raw));
        EXPECT_EQ(fromString<ShotFormat>(QString::fromLatin1(c.raw)), c.format);
        EXPECT_EQ(fileExtension(c.format), QLatin1String(c.extension));
        EXPECT_EQ(writerFormat(c.format), c.writer);
    }
    EXPECT_EQ(int(writerFormat(ShotFormat::png)), 1);
    EXPECT_EQ(fromString<ShotFormat>(u"jpg"), std::nullopt);
    EXPECT_EQ(fromString<ShotFormat>(u"gif"), std::nullopt);
    EXPECT_EQ(formatForFileName(QStringLiteral("a/b.JPG")), ShotFormat::jpeg);
    EXPECT_EQ(formatForFileName(QStringLiteral("b.jpeg")), ShotFormat::jpeg);
    EXPECT_EQ(formatForFileName(QStringLiteral("b.heif")), ShotFormat::heic);
    EXPECT_EQ(formatForFileName(QStringLiteral("b.gif")), std::nullopt);
}

// Straight RGBA as libspng decodes the file.
QImage decodeWithSpng(const QByteArray& png)
{
    spng_ctx* ctx = spng_ctx_new(0);
    spng_set_png_buffer(ctx, png.constData(), size_t(png.size()));
    spng_ihdr ihdr{};
    size_t size = 0;
    QImage out;
    if (spng_get_ihdr(ctx, &ihdr) == 0 &&
        spng_decoded_image_size(ctx, SPNG_FMT_RGBA8, &size) == 0) {
        out = QImage(int(ihdr.width), int(ihdr.height), QImage::Format_RGBA8888);
        std::vector<uint8_t> pixels(size);
        if (spng_decode_image(ctx, pixels.data(), size, SPNG_FMT_RGBA8, 0) == 0) {
            for (int y = 0; y < out.height(); ++y) {
                std::memcpy(out.scanLine(y), pixels.data() + size_t(y) * ihdr.width * 4,
                            ihdr.width * 4);
            }
        } else {
            out = QImage();
        }
    }
    spng_ctx_free(ctx);
    return out;
}

QImage noise(int width, int height, bool translucent, quint32 seed)
{
    QRandomGenerator random(seed);
    QImage image(width, height, QImage::Format_RGBA8888);
    for (int y = 0; y < height; ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            // Runs of equal pixels mixed with noise, like screen content.
            const quint32 value = (x / 7 + y / 5) % 3 == 0 ? 0x336699u : random.generate();
            row[4 * x] = uchar(value);
            row[4 * x + 1] = uchar(value >> 8);
            row[4 * x + 2] = uchar(value >> 16);
            row[4 * x + 3] = translucent ? uchar(random.bounded(256)) : 255;
        }
    }
    return image;
}

TEST(PngEncoder, EveryFileReadsBackBitExactThroughQtAndLibspng)
{
    struct Case {
        int width, height;
        bool translucent;
    };
    // The large ones are filtered and compressed in bands (uneven last ones
    // among them) whose streams and checksums are joined.
    const Case cases[] = {{1, 1, false},   {1, 1, true},        {17, 5, false},
                          {33, 9, true},   {300, 300, false},   {257, 260, true},
                          {4, 300, false}, {1500, 1000, false}, {1201, 900, true}};
    quint32 seed = 1;
    for (const Case& c : cases) {
        SCOPED_TRACE(QStringLiteral("%1 × %2%3")
                         .arg(c.width)
                         .arg(c.height)
                         .arg(c.translucent ? " translucent" : "")
                         .toStdString());
        const QImage straight = noise(c.width, c.height, c.translucent, seed++);
        for (const QImage& input :
             {straight, straight.convertToFormat(QImage::Format_RGBA8888_Premultiplied)}) {
            const QByteArray png = PngEncoder::encode(input);
            ASSERT_FALSE(png.isEmpty());
            // What the file must hold: the input's straight colours.
            const QImage expected = input.convertToFormat(QImage::Format_RGBA8888);
            const QImage viaQt =
                QImage::fromData(png, "PNG").convertToFormat(QImage::Format_RGBA8888);
            const QImage viaSpng = decodeWithSpng(png);
            // Pixels only: the decoded image also carries the file's sRGB tag.
            EXPECT_EQ(test::compareImages(viaQt, expected, 0).maximum, 0);
            EXPECT_EQ(test::compareImages(viaSpng, expected, 0).maximum, 0);
        }
    }
}

TEST(PngEncoder, OpaqueImagesAreStoredAsRgbWithTheirDensity)
{
    const QImage opaque = noise(40, 20, false, 7);
    const QByteArray png = PngEncoder::encode(opaque, {PngEncoder::defaultLevel, 2});
    EXPECT_EQ(png[16 + 9], 2) << "colour type RGB";
    EXPECT_EQ(PngEncoder::encode(noise(40, 20, true, 7))[16 + 9], 6) << "colour type RGBA";
    const QImage read = QImage::fromData(png, "PNG");
    EXPECT_NEAR(read.dotsPerMeterX() * 0.0254, 144, 0.5);
    EXPECT_FALSE(read.hasAlphaChannel());
    EXPECT_TRUE(PngEncoder::encode(QImage()).isEmpty());
}

// Mean absolute difference over all channels.
double meanDifference(const QImage& a, const QImage& b)
{
    const QImage x = a.convertToFormat(QImage::Format_RGBA8888);
    const QImage y = b.convertToFormat(QImage::Format_RGBA8888);
    double sum = 0;
    for (int row = 0; row < x.height(); ++row) {
        for (qsizetype i = 0; i < qsizetype(x.width()) * 4; ++i) {
            sum += std::abs(x.constScanLine(row)[i] - y.constScanLine(row)[i]);
        }
    }
    return sum / (double(x.width()) * x.height() * 4);
}

TEST(ShotExporter, EveryFormatOpensAgainWithItsPixelsAndDensity)
{
    QTemporaryDir dir;
    ShotDocument d = ShotDocument::fromImage(test::patternImage(120, 80), 1);
    d.annotations.append(Annotation{QUuid::createUuid(),
                                    ShapeAnnotation{ShapeVariant::filledRect, {10, 10, 50, 30}},
                                    ShotStyle({0.2, 0.6, 0.3, 1}, 4, 20, true, 12)});
    struct Case {
        ShotFormat format;
        double tolerance; // mean difference per channel
    };
    const Case cases[] = {{ShotFormat::png, 0}, {ShotFormat::jpeg, 6}, {ShotFormat::webp, 8},
                          {ShotFormat::heic, 8}};
    // A 2x shot opens again at its size in points (144 dpi), a 1x one at 72.
    for (const double scale : {1.0, 2.0}) {
        const QImage rendered = ShotRenderer().render(d, scale);
        for (const Case& c : cases) {
            SCOPED_TRACE(toString(c.format).toStdString() + " at " + std::to_string(scale));
            const QString path = dir.filePath(QStringLiteral("shot%1.").arg(scale) + fileExtension(c.format));
            ShotExporter::exportShot(d, c.format, path, 0.9, scale);
            const ShotDocument reopened = ShotImageFile::readDocument(path);
            EXPECT_EQ(reopened.canvasBounds, QRectF(0, 0, 120, 80));
            const QImage decoded = ShotImageFile::read(path);
            ASSERT_EQ(decoded.size(), rendered.size());
            EXPECT_LE(meanDifference(decoded, rendered), c.tolerance);
            // Through an independent decoder too.
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            const QImage other = c.format == ShotFormat::webp   ? test::decodeWebp(bytes)
                                 : c.format == ShotFormat::heic ? test::decodeHeic(bytes)
                                                                : QImage::fromData(bytes);
            EXPECT_LE(meanDifference(other, rendered), c.tolerance);
        }
    }
    // Nothing but the files is left behind.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 8);
}

TEST(ShotImageFile, DamagedOrHostileWebPAndHeifAreRefusedByName)
{
    QTemporaryDir dir;
    const QImage image = test::patternImage(64, 48);
    const QByteArray webp = ImageWriter::encode(image, ImageWriterFormat::webp, 0.9, 1, "x");
    const QByteArray heic = ImageWriter::encode(image, ImageWriterFormat::heic, 0.9, 1, "x");
    // A lossless WebP whose header claims 16384 × 16384 with no data: 1 GB
    // of pixels from 30 bytes.
    QByteArray huge("RIFF\x16\0\0\0WEBPVP8L\x0a\0\0\0\x2f", 21);
    const quint32 bits = (16384 - 1) | (16384 - 1) << 14;
    for (int i = 0; i < 4; ++i) {
        huge.append(char((bits >> (8 * i)) & 0xFF));
    }
    huge.append(QByteArray(5, '\0'));
    struct Case {
        const char* name;
        QByteArray bytes;
        const char* message;
    };
    const Case cases[] = {
        {"cut.webp", webp.left(webp.size() / 2), "Could not read"},
        {"cut.heic", heic.left(heic.size() / 2), "Could not read"},
        {"header.webp", webp.left(16), "Could not read"},
        {"huge.webp", huge, "Could not read"},
        {"flipped.heic", [&] { QByteArray b = heic; for (qsizetype i = b.size() / 2; i < b.size(); i += 7) b[i] = char(~b[i]); return b; }(), ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QString path = dir.filePath(QString::fromLatin1(c.name));
        test::writeFile(path, c.bytes);
        try {
            const QImage decoded = ShotImageFile::read(path);
            // Damaged picture data may still decode; never to another size.
            EXPECT_EQ(decoded.size(), image.size());
            EXPECT_STREQ(c.message, "");
        } catch (const Error& error) {
            EXPECT_TRUE(error.message().contains(QLatin1String(c.message))) << error.message().toStdString();
            EXPECT_TRUE(error.message().contains(path)) << error.message().toStdString();
        }
    }

    // An animated WebP opens at its first frame.
    WebPAnimEncoderOptions options;
    ASSERT_TRUE(WebPAnimEncoderOptionsInit(&options));
    const std::unique_ptr<WebPAnimEncoder, void (*)(WebPAnimEncoder*)> encoder(
        WebPAnimEncoderNew(32, 16, &options), WebPAnimEncoderDelete);
    WebPConfig config;
    ASSERT_TRUE(WebPConfigInit(&config));
    config.lossless = 1;
    for (const auto& [colour, at] : {std::pair(Qt::red, 0), std::pair(Qt::blue, 100), std::pair(Qt::blue, 200)}) {
        QImage frame(32, 16, QImage::Format_RGBA8888);
        frame.fill(colour);
        WebPPicture picture;
        ASSERT_TRUE(WebPPictureInit(&picture));
        picture.use_argb = 1;
        picture.width = 32;
        picture.height = 16;
        ASSERT_TRUE(WebPPictureImportRGBA(&picture, frame.constBits(), int(frame.bytesPerLine())));
        ASSERT_TRUE(WebPAnimEncoderAdd(encoder.get(), &picture, at, &config));
        WebPPictureFree(&picture);
    }
    WebPData animation;
    WebPDataInit(&animation);
    ASSERT_TRUE(WebPAnimEncoderAdd(encoder.get(), nullptr, 300, nullptr));
    ASSERT_TRUE(WebPAnimEncoderAssemble(encoder.get(), &animation));
    test::writeFile(dir.filePath("moving.webp"), QByteArray(reinterpret_cast<const char*>(animation.bytes), qsizetype(animation.size)));
    WebPDataClear(&animation);
    const QImage first = ShotImageFile::read(dir.filePath("moving.webp"));
    ASSERT_EQ(first.size(), QSize(32, 16));
    EXPECT_EQ(first.pixelColor(5, 5), QColor(Qt::red));
}

TEST(ImageWriter, HeicAtQualityOneStaysBelowTheEncodersTop)
{
    struct Case {
        double quality;
        int encoder;
    };
    const Case cases[] = {
        {1.0, 99}, {ImageWriter::maximumHeicQuality, 99}, {0.9, 90}, {0.5, 50}, {0, 0}};
    for (const Case& c : cases) {
        EXPECT_EQ(ImageWriter::heicEncoderQuality(c.quality), c.encoder) << c.quality;
    }
    const QImage image = test::patternImage(64, 64);
    const QImage decoded =
        test::decodeHeic(ImageWriter::encodeHeic(image, 1.0, QStringLiteral("q1.heic")));
    EXPECT_EQ(decoded.size(), QSize(64, 64));
    EXPECT_LE(meanDifference(decoded, image), 4);
}

TEST(ImageWriter, FailuresNameTheFileAndLeaveTheOldOneWhole)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("wide.webp"));
    test::writeFile(path, "old");
    const QImage wide(ImageWriter::webpSideLimit, 1, QImage::Format_RGBA8888_Premultiplied);
    try {
        ImageWriter::write(wide, ImageWriterFormat::webp, 0.9, 1, path);
        ADD_FAILURE() << "WebP took a 16384-pixel-wide image";
    } catch (const ImageWriterError& error) {
        EXPECT_EQ(error.fileName(), QStringLiteral("wide.webp"));
        EXPECT_TRUE(error.message().contains(QStringLiteral("\u201cwide.webp\u201d")));
    }
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), QByteArray("old"));
    EXPECT_THROW(ImageWriter::write(test::patternImage(4, 4), ImageWriterFormat::png, 0.9, 1,
                                    dir.filePath(QStringLiteral("missing/folder/a.png"))),
                 ImageWriterError);
    EXPECT_EQ(
        QDir(dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(),
        1);
}

TEST(ShotFileName, DatedNamesInTheGivenTimeZone)
{
    const QDateTime instant =
        QDateTime::fromString(QStringLiteral("2026-11-14T20:05:09Z"), Qt::ISODate);
    struct Case {
        ShotFormat format;
        QTimeZone zone;
        const char* expected;
    };
    const Case cases[] = {
        {ShotFormat::png, QTimeZone(3600), "Nubo Shot 2026-11-14 at 21.05.09.png"},
        {ShotFormat::jpeg, QTimeZone::utc(), "Nubo Shot 2026-11-14 at 20.05.09.jpg"},
        {ShotFormat::heic, QTimeZone(-8 * 3600), "Nubo Shot 2026-11-14 at 12.05.09.heic"},
        {ShotFormat::webp, QTimeZone(4 * 3600), "Nubo Shot 2026-11-15 at 00.05.09.webp"},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(ShotFileName::make(instant, c.format, c.zone), QString::fromUtf8(c.expected));
    }
    EXPECT_EQ(ShotFileName::numbered(QStringLiteral("Nubo Shot 2026-11-14 at 21.05.09.png"), 2),
              QStringLiteral("Nubo Shot 2026-11-14 at 21.05.09 (2).png"));
}

class QuickSave : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(m_dir.isValid());
        m_preferences =
            std::make_unique<ShotPreferences>(m_dir.filePath(QStringLiteral("prefs.ini")));
    }
    QString path(const QString& name) const { return m_dir.filePath(name); }

    QTemporaryDir m_dir;
    std::unique_ptr<ShotPreferences> m_preferences;
    const QDateTime m_now = QDateTime(QDate(2026, 11, 14), QTime(21, 5, 9));
    const ShotDocument m_shot = ShotDocument::fromImage(test::patternImage(30, 20), 1);
};

TEST_F(QuickSave, FolderFromPreferencesElseDownloads)
{
    const QString downloads = QStandardPaths::writableLocation(QStandardPaths::DownloadLocation);
    struct Case {
        const char* name;
        std::optional<QString> setting;
        QString expected;
    };
    QDir().mkpath(path(QStringLiteral("chosen")));
    test::writeFile(path(QStringLiteral("a-file")), "x");
    const Case cases[] = {
        {"chosen folder", path(QStringLiteral("chosen")), path(QStringLiteral("chosen"))},
        {"missing setting", std::nullopt, downloads},
        {"folder gone", path(QStringLiteral("gone")), downloads},
        {"a file, not a folder", path(QStringLiteral("a-file")), downloads},
        {"relative path", QStringLiteral("chosen"), downloads},
    };
    for (const Case& c : cases) {
        if (c.setting) {
            m_preferences->setValue(keys::quickSaveFolder, *c.setting);
        } else {
            m_preferences->remove(keys::quickSaveFolder);
        }
        EXPECT_EQ(ShotQuickSave::folder(*m_preferences), c.expected) << c.name;
    }
    EXPECT_TRUE(QFileInfo(downloads).isDir()) << "made when missing";
    EXPECT_TRUE(downloads.startsWith(QDir::homePath()));
}

TEST_F(QuickSave, FormatFromPreferencesUnknownIsPng)
{
    struct Case {
        std::optional<const char*> stored;
        ShotFormat expected;
    };
    const Case cases[] = {{std::nullopt, ShotFormat::png},
                          {"jpeg", ShotFormat::jpeg},
                          {"webp", ShotFormat::webp},
                          {"jpg", ShotFormat::png},
                          {"tiff", ShotFormat::png}};
    for (const Case& c : cases) {
        if (c.stored) {
            m_preferences->setValue(keys::quickSaveFormat, QString::fromLatin1(*c.stored));
        } else {
            m_preferences->remove(keys::quickSaveFormat);
        }
        EXPECT_EQ(ShotQuickSave::format(*m_preferences), c.expected);
    }
}

TEST_F(QuickSave, SavesInTheSameSecondNeverCollide)
{
    const QString folder = path(QStringLiteral("out"));
    QDir().mkpath(folder);
    QStringList names;
    for (int i = 0; i < 3; ++i) {
        names << QFileInfo(ShotQuickSave::saveInto(folder, ShotFormat::png, m_shot, 1, m_now))
                     .fileName();
    }
    EXPECT_EQ(names, (QStringList{"Nubo Shot 2026-11-14 at 21.05.09.png",
                                  "Nubo Shot 2026-11-14 at 21.05.09 (2).png",
                                  "Nubo Shot 2026-11-14 at 21.05.09 (3).png"}));
    const QString jpeg = ShotQuickSave::saveInto(folder, ShotFormat::jpeg, m_shot, 1, m_now);
    EXPECT_TRUE(jpeg.endsWith(QStringLiteral("21.05.09.jpg")));

    // Several savers at once (as from two processes) each get their own name.
    const QString busy = path(QStringLiteral("busy"));
    QDir().mkpath(busy);
    std::vector<QString> saved(4);
    std::vector<std::thread> savers;
    for (size_t i = 0; i < saved.size(); ++i) {
        savers.emplace_back([&, i] {
            saved[i] = ShotQuickSave::saveInto(busy, ShotFormat::png, m_shot, 1, m_now);
        });
    }
    for (std::thread& t : savers) {
        t.join();
    }
    QSet<QString> distinct(saved.begin(), saved.end());
    EXPECT_EQ(distinct.size(), 4);
    for (const QString& file : saved) {
        EXPECT_EQ(QImage(file).size(), QSize(30, 20)) << file.toStdString();
    }
}

TEST_F(QuickSave, AFailedSaveLeavesNothing)
{
    const QString folder = path(QStringLiteral("out"));
    QDir().mkpath(folder);
    EXPECT_THROW(ShotQuickSave::saveInto(folder, ShotFormat::png, m_shot, 3, m_now),
                 ShotExportError);
    ShotDocument tooWide =
        ShotDocument::fromImage(QImage(20000, 2, QImage::Format_RGBA8888_Premultiplied), 1);
    tooWide.layers[0].image.fill(Qt::white);
    EXPECT_THROW(ShotQuickSave::saveInto(folder, ShotFormat::webp, tooWide, 1, m_now),
                 ImageWriterError);
    EXPECT_TRUE(QDir(folder).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST_F(QuickSave, TemporaryExportsLiveAloneAndVanishOnFailure)
{
    const QString first = ShotQuickSave::temporaryExport(m_shot, 2, m_now);
    const QString second = ShotQuickSave::temporaryExport(m_shot, 2, m_now);
    EXPECT_NE(QFileInfo(first).absolutePath(), QFileInfo(second).absolutePath());
    EXPECT_EQ(QFileInfo(first).fileName(), QStringLiteral("Nubo Shot 2026-11-14 at 21.05.09.png"));
    EXPECT_TRUE(first.startsWith(ShotQuickSave::temporaryBase()));
    EXPECT_EQ(QImage(first).size(), QSize(60, 40));

    const auto folders = [] {
        return QDir(ShotQuickSave::temporaryBase())
            .entryList(QDir::Dirs | QDir::NoDotAndDotDot)
            .size();
    };
    const qsizetype before = folders();
    EXPECT_THROW(ShotQuickSave::temporaryExport(m_shot, 3, m_now), ShotExportError);
    EXPECT_EQ(folders(), before);
    QDir(QFileInfo(first).absolutePath()).removeRecursively();
    QDir(QFileInfo(second).absolutePath()).removeRecursively();
}

TEST_F(QuickSave, SweepsOnlyOldTemporaryExportsOfOurs)
{
    const QString recent =
        QFileInfo(ShotQuickSave::temporaryExport(m_shot, 2, m_now)).absolutePath();
    const QString old = QFileInfo(ShotQuickSave::temporaryExport(m_shot, 2, m_now)).absolutePath();
    const QString foreign = ShotQuickSave::temporaryBase() + QStringLiteral("/not-ours");
    ASSERT_TRUE(QDir().mkpath(foreign));
    // Two days old, as the folder's own time says.
    const timespec longAgo{::time(nullptr) - 2 * 86400, 0};
    const timespec times[2] = {longAgo, longAgo};
    for (const QString& folder : {old, foreign}) {
        ASSERT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(folder).constData(), times, 0), 0);
    }

    EXPECT_EQ(ShotQuickSave::sweepTemporaryExports(QDateTime::currentDateTime().addSecs(-3600)), 1);
    EXPECT_FALSE(QFileInfo::exists(old));
    EXPECT_TRUE(QFileInfo::exists(recent));
    EXPECT_TRUE(QFileInfo::exists(foreign));
    QDir(recent).removeRecursively();
    QDir(foreign).removeRecursively();
}

} // namespace
} // namespace nubo
