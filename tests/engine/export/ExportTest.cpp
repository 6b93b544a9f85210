#include "core/Settings.h"
#include "export/ImageWriter.h"
#include "codec/PngEncoder.h"
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
    // The large ones are compressed in two halves that are joined.
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

TEST(ShotExporter, EveryFormatRoundTripsThroughADecoder)
{
    QTemporaryDir dir;
    ShotDocument d = ShotDocument::fromImage(test::patternImage(120, 80), 1);
    d.annotations.append(Annotation{QUuid::createUuid(),
                                    ShapeAnnotation{ShapeVariant::filledRect, {10, 10, 50, 30}},
                                    ShotStyle({0.2, 0.6, 0.3, 1}, 4, 20, true, 12)});
    const QImage rendered = ShotRenderer().render(d, 2);
    struct Case {
        ShotFormat format;
        std::function<QImage(const QByteArray&)> decode;
        double tolerance; // mean difference per channel
    };
    const Case cases[] = {
        {ShotFormat::png, [](const QByteArray& b) { return QImage::fromData(b, "PNG"); }, 0},
        {ShotFormat::jpeg, [](const QByteArray& b) { return QImage::fromData(b, "JPEG"); }, 6},
        {ShotFormat::webp, test::decodeWebp, 8},
        {ShotFormat::heic, test::decodeHeic, 8},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(toString(c.format).toStdString());
        const QString path = dir.filePath(QStringLiteral("shot.") + fileExtension(c.format));
        ShotExporter::exportShot(d, c.format, path, 0.9, 2);
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QImage decoded = c.decode(file.readAll());
        ASSERT_EQ(decoded.size(), QSize(240, 160));
        EXPECT_LE(meanDifference(decoded, rendered), c.tolerance);
    }
    // Nothing but the four files is left behind.
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 4);
}

// The density a file records, in dots per inch: JPEG's JFIF header as Qt
// reads it, the Exif block's XResolution for HEIC (libheif) and WebP (its
// demuxer); 0 when there is none.
int exifDpi(const QByteArray& exif)
{
    // Our writers' Exif is little-endian TIFF; find the XResolution entry.
    const qsizetype tiff = exif.indexOf(QByteArray("II*\0", 4));
    if (tiff < 0) {
        return 0;
    }
    const auto u16 = [&](qsizetype at) {
        return at + 2 <= exif.size() ? quint16(uchar(exif[at]) | uchar(exif[at + 1]) << 8) : 0;
    };
    const auto u32 = [&](qsizetype at) { return quint32(u16(at)) | quint32(u16(at + 2)) << 16; };
    const qsizetype ifd = tiff + u32(tiff + 4);
    for (int i = 0; i < u16(ifd); ++i) {
        const qsizetype entry = ifd + 2 + 12 * i;
        if (u16(entry) == 0x011A) {
            const qsizetype value = tiff + u32(entry + 8);
            return u32(value + 4) ? int(u32(value) / u32(value + 4)) : 0;
        }
    }
    return 0;
}

int recordedDpi(ShotFormat format, const QByteArray& bytes)
{
    switch (format) {
    case ShotFormat::png:
    case ShotFormat::jpeg:
        return qRound(QImage::fromData(bytes).dotsPerMeterX() * 0.0254);
    case ShotFormat::heic: {
        const auto context = std::unique_ptr<heif_context, void (*)(heif_context*)>(
            heif_context_alloc(), heif_context_free);
        heif_image_handle* handle = nullptr;
        if (heif_context_read_from_memory_without_copy(context.get(), bytes.constData(),
                                                       size_t(bytes.size()), nullptr)
                    .code != heif_error_Ok ||
            heif_context_get_primary_image_handle(context.get(), &handle).code != heif_error_Ok) {
            return -1;
        }
        heif_item_id id = 0;
        int dpi = 0;
        if (heif_image_handle_get_list_of_metadata_block_IDs(handle, "Exif", &id, 1) == 1) {
            QByteArray exif(qsizetype(heif_image_handle_get_metadata_size(handle, id)), '\0');
            if (heif_image_handle_get_metadata(handle, id, exif.data()).code == heif_error_Ok) {
                dpi = exifDpi(exif);
            }
        }
        heif_image_handle_release(handle);
        return dpi;
    }
    case ShotFormat::webp: {
        const WebPData data{reinterpret_cast<const uint8_t*>(bytes.constData()),
                            size_t(bytes.size())};
        const auto demux =
            std::unique_ptr<WebPDemuxer, void (*)(WebPDemuxer*)>(WebPDemux(&data), WebPDemuxDelete);
        WebPChunkIterator chunk;
        if (!demux || !WebPDemuxGetChunk(demux.get(), "EXIF", 1, &chunk)) {
            return 0;
        }
        const int dpi = exifDpi(QByteArray(reinterpret_cast<const char*>(chunk.chunk.bytes),
                                           qsizetype(chunk.chunk.size)));
        WebPDemuxReleaseChunkIterator(&chunk);
        return dpi;
    }
    }
    return -1;
}

TEST(ImageWriter, EveryFormatKeepsTheShotsDensity)
{
    // A 2x shot is 144 dpi in every format, so it opens at its size in
    // points; a 1x shot 72 dpi. (JPEG, HEIC and WebP once recorded nothing.)
    const QImage image = test::patternImage(64, 48);
    for (const ShotFormat format : allCases<ShotFormat>()) {
        for (const double scale : {1.0, 2.0}) {
            SCOPED_TRACE(toString(format).toStdString() + " at " + std::to_string(scale));
            const QByteArray bytes =
                ImageWriter::encode(image, writerFormat(format), 0.9, scale, QStringLiteral("x"));
            EXPECT_EQ(recordedDpi(format, bytes), qRound(72 * scale));
        }
    }
    // The WebP with its Exif chunk still decodes to the same image.
    const QByteArray webp = ImageWriter::encode(image, writerFormat(ShotFormat::webp), 0.9, 2,
                                                QStringLiteral("x"));
    EXPECT_EQ(test::decodeWebp(webp).size(), image.size());
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
