#include "document/ShotDocumentArchive.h"
#include "document/ShotImageFile.h"
#include "export/ImageWriter.h"
#include "shell/ArchiveCommands.h"
#include "shell/CommandPrograms.h"
#include "support/ArchiveFixtures.h"
#include "support/Decoders.h"
#include "support/Process.h"
#include "support/QtPrinters.h"
#include "support/RenderFixtures.h"

#include <QDir>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace nubo {
namespace {

using test::runNuboShot;

TEST(CommandLine, AnswersHelpVersionAndBadUsage)
{
    struct Case {
        QStringList arguments;
        int exitCode;
        const char* inOut;
        const char* inErr;
    };
    const Case cases[] = {
        {{"--help"}, 0, "Usage: nuboshot", ""},
        {{"--version"}, 0, "nuboshot 0.", ""},
        {{"displays", "--frobnicate"}, 2, "", "unknown argument"},
        {{"annotate"}, 2, "", "annotate needs one or more images"},
        {{"video", "export", "movie.mp4", "--help"}, 0, "nuboshot video export SOURCE -o FILE", ""},
        {{"video", "export", "movie.mp4"}, 2, "", "the output file is missing"},
        {{"video", "export", "movie.mp4", "-o", "x.mp4", "--cut", "3-2"}, 2, "", "is not a stretch START-END"},
        {{"video", "export", "movie.mp4", "-o", "x.mp4", "--blur", "0,0,2,1@1-2"}, 2, "", "is not X,Y,W,H@START-END"},
        {{"video", "export", "movie.mp4", "-o", "x.mp4", "--quality", "4k"}, 2, "", "original, 1080 or 720"},
        {{"video", "export", "movie.mp4", "-o", "x.gif", "--fps", "12"}, 2, "", "--fps is 10, 15, 24 or 30"},
        {{"video", "export", "movie.mp4", "-o", "x.gif", "--width", "800"}, 2, "", "--width is original, 1280, 960 or 640"},
        {{"video", "export", "movie.mp4", "-o", "x.mp4", "--fps", "15"}, 2, "", "are for a GIF or WebP output"},
        {{"video", "info"}, 2, "", "video info takes one file"},
        {{"video", "info", "/nonexistent.mp4"}, 1, "", "could not be read"},
        {{"review"}, 2, "", "review needs one recording"},
        {{"frobnicate"}, 2, "", "unknown command \u201cfrobnicate\u201d"},
        {{"archive"}, 2, "", "archive needs a command"},
        {{"archive", "new", "only-one"}, 2, "", "needs an image and a folder"},
        {{"archive", "check"}, 2, "", "needs one folder"},
        {{"archive", "check", "/nonexistent/shot"},
         1,
         "",
         "Could not open \u201c/nonexistent/shot\u201d"},
        {{"archive", "new", "/nonexistent.png", "/tmp/x"},
         1,
         "",
         "Could not open \u201c/nonexistent.png\u201d: No such file or directory."},
    };
    for (const Case& c : cases) {
        const auto result = runNuboShot(c.arguments);
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        EXPECT_FALSE(result.crashed);
        EXPECT_EQ(result.exitCode, c.exitCode) << result.err.toStdString();
        EXPECT_TRUE(result.out.contains(QString::fromUtf8(c.inOut))) << result.out.toStdString();
        EXPECT_TRUE(result.err.contains(QString::fromUtf8(c.inErr))) << result.err.toStdString();
        if (c.exitCode == 1) {
            EXPECT_EQ(result.err.count(u'\n'), 1) << "one line on failure";
        }
    }
    // Every command the front hands to a lean program is one that program
    // runs (it would answer "unknown command" otherwise).
    for (const programs::Route& route : programs::routes) {
        const auto result = runNuboShot({QString::fromUtf8(route.command), QStringLiteral("--help")});
        EXPECT_EQ(result.exitCode, 0) << route.command << " in " << route.program << ": "
                                      << result.err.toStdString();
        EXPECT_TRUE(result.out.contains(QStringLiteral("nuboshot ") + QString::fromUtf8(route.command)))
            << route.command << ": " << result.out.toStdString();
    }
}

TEST(CommandLine, MakesAndChecksAnArchiveOfAnImage)
{
    QTemporaryDir dir;
    const QString archive = dir.filePath(QStringLiteral("My Shot"));
    const auto made =
        runNuboShot({"archive", "new", NUBOSHOT_TEST_DATA "/web-1920x1080.png", archive});
    ASSERT_EQ(made.exitCode, 0) << made.err.toStdString();
    EXPECT_EQ(made.out.trimmed(), QStringLiteral("Saved shot archive: ") + archive);

    const auto checked = runNuboShot({"archive", "check", archive});
    ASSERT_EQ(checked.exitCode, 0) << checked.err.toStdString();
    EXPECT_TRUE(checked.out.contains(QStringLiteral("Version: 1\n")));
    EXPECT_TRUE(checked.out.contains(QStringLiteral("Canvas: 0, 0, 1920 \u00d7 1080\n")));
    EXPECT_TRUE(checked.out.contains(QStringLiteral("Crop: none\nFrame: none\nLayers: 1\n")));
    EXPECT_TRUE(
        checked.out.contains(QStringLiteral("1920 \u00d7 1080 px  frame 0, 0, 1920 \u00d7 1080")));
    EXPECT_TRUE(checked.out.contains(QStringLiteral("Annotations: 0")));

    // The archive holds the image's own pixels.
    const ShotDocument document = ShotDocumentArchive::read(archive);
    QImage original(QStringLiteral(NUBOSHOT_TEST_DATA "/web-1920x1080.png"));
    EXPECT_EQ(document.layers[0].image,
              original.convertToFormat(QImage::Format_RGBA8888_Premultiplied));
}

TEST(CommandLine, ArchiveCheckSummarisesAnnotationsAndNamesErrors)
{
    QTemporaryDir dir;
    const QString archive = dir.filePath(QStringLiteral("shot"));
    ShotDocument document = test::documentWithEveryKind();
    document.crop = QRectF(1, 2, 30, 20);
    document.frame = FrameStyle{};
    ShotDocumentArchive::write(document, archive);
    const auto checked = runNuboShot({"archive", "check", archive});
    ASSERT_EQ(checked.exitCode, 0);
    EXPECT_TRUE(
        checked.out.contains(QStringLiteral("Crop: 1, 2, 30 \u00d7 20\nFrame: padding 28\n")));
    EXPECT_TRUE(checked.out.contains(QStringLiteral(
        "Annotations: 12 (arrow 1, line 1, shape 2, text 1, emoji 1, counter 2, pen 3, redact 1)")))
        << checked.out.toStdString();

    test::writeFile(archive + QStringLiteral("/manifest.json"), "{\"version\": 7}");
    const auto newer = runNuboShot({"archive", "check", archive});
    EXPECT_EQ(newer.exitCode, 1);
    EXPECT_TRUE(newer.err.contains(QStringLiteral("format version 7"))) << newer.err.toStdString();
    EXPECT_TRUE(newer.err.contains(QStringLiteral("(unsupportedVersion")));

    test::writeFile(archive + QStringLiteral("/manifest.json"), "{\"version\": 1}");
    const auto damaged = runNuboShot({"archive", "check", archive});
    EXPECT_EQ(damaged.exitCode, 1);
    EXPECT_TRUE(
        damaged.err.contains(QStringLiteral("(invalidManifest: \u201clayers\u201d is missing)")))
        << damaged.err.toStdString();
}

TEST(CommandLine, ArchiveNewKeepsTheImagesPointSizeAndOthersFiles)
{
    QTemporaryDir dir;
    QImage retina = test::patternImage(200, 100);
    retina.setDotsPerMeterX(5669); // 144 dpi: two pixels per point
    retina.setDotsPerMeterY(5669);
    // Every format Nubo Shot writes opens again, at its size in points.
    for (const ImageWriterFormat format :
         {ImageWriterFormat::jpg, ImageWriterFormat::webp, ImageWriterFormat::heic}) {
        const QString written = dir.filePath(QStringLiteral("retina.") + toString(format));
        ImageWriter::write(retina, format, 0.9, 2, written);
        const auto opened = runNuboShot({"archive", "new", written, written + QStringLiteral("-shot")});
        ASSERT_EQ(opened.exitCode, 0) << opened.err.toStdString();
        EXPECT_EQ(ShotDocumentArchive::read(written + QStringLiteral("-shot")).canvasBounds,
                  QRectF(0, 0, 100, 50)) << written.toStdString();
    }
    const QString image = dir.filePath(QStringLiteral("retina.png"));
    ASSERT_TRUE(retina.save(image));
    const QString archive = dir.filePath(QStringLiteral("retina"));
    ASSERT_EQ(runNuboShot({"archive", "new", image, archive}).exitCode, 0);
    EXPECT_EQ(ShotDocumentArchive::read(archive).canvasBounds, QRectF(0, 0, 100, 50));

    // A folder of someone's own files is never replaced.
    const QString own = dir.filePath(QStringLiteral("own"));
    QDir().mkpath(own);
    test::writeFile(own + QStringLiteral("/keep.txt"), "keep");
    const auto refused = runNuboShot({"archive", "new", image, own});
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_TRUE(refused.err.contains(QStringLiteral("not a shot archive")))
        << refused.err.toStdString();
    EXPECT_TRUE(QFile::exists(own + QStringLiteral("/keep.txt")));
}

TEST(CommandLine, ImageDensityComesFromWholeMultiplesOf72Dpi)
{
    struct Case {
        int dotsPerMeter;
        double density;
    };
    const Case cases[] = {{2835, 1}, {3780, 1}, {5669, 2}, {8504, 3}, {4000, 1}, {0, 1}};
    for (const Case& c : cases) {
        QImage image(1, 1, QImage::Format_RGB32);
        image.setDotsPerMeterX(c.dotsPerMeter);
        EXPECT_EQ(ShotImageFile::pixelDensity(image), c.density) << c.dotsPerMeter;
    }
}

TEST(CommandLine, OpeningSomethingThatIsNotAnImageSaysSo)
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        GTEST_FAIL() << "needs the private desktop session of scripts/test (DISPLAY and a session bus)";
    }
    QTemporaryDir dir;
    test::writeFile(dir.filePath(QStringLiteral("notes.png")), "plain text, not a picture");
    const auto result = runNuboShot({"annotate", dir.filePath(QStringLiteral("notes.png"))});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains(QStringLiteral("is not an image Nubo Shot can open.")))
        << result.err.toStdString();
    EXPECT_FALSE(result.crashed);
}

TEST(CommandLine, TheTrayNeedsADesktopSession)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.remove(QStringLiteral("WAYLAND_DISPLAY"));
    environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    const auto result = runNuboShot({}, 10000, environment);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_TRUE(result.err.contains(QStringLiteral("No desktop session found")))
        << result.err.toStdString();
}

} // namespace
} // namespace nubo

namespace nubo {
namespace {

TEST(CommandLine, ExportWritesEveryFormatAndRefusesBadOptions)
{
    QTemporaryDir dir;
    const QString archive = dir.filePath(QStringLiteral("shot"));
    ShotDocument document = test::documentWithEveryKind(); // 64 × 48 points at 1 pixel per point
    document.frame = FrameStyle{10};
    ShotDocumentArchive::write(document, archive);
    const QString downloads = QDir::homePath() + QStringLiteral("/Downloads");
    QDir(downloads).removeRecursively();

    struct Case {
        QStringList arguments;
        int exitCode;
        const char* written; // a file name the output ends with
        QSize size;
        const char* inErr;
    };
    const QString png = dir.filePath(QStringLiteral("out.png"));
    const Case cases[] = {
        {{"export", archive, "-o", png}, 0, "out.png", {84, 68}, ""},
        {{"export", archive, "--output", png, "--scale", "2"}, 0, "out.png", {168, 136}, ""},
        {{"export", archive, "-o", dir.filePath("out.JPG")}, 0, "out.JPG", {84, 68}, ""},
        {{"export", archive, "-o", dir.filePath("out.bin"), "--format", "webp"},
         0,
         "out.bin",
         {},
         ""},
        {{"export", archive, "-o", dir.filePath("out.heic"), "--quality", "1"},
         0,
         "out.heic",
         {},
         ""},
        {{"export", archive, "--quick"}, 0, ".png", {84, 68}, ""},
        {{"export", archive, "--quick", "--format", "jpeg"}, 0, ".jpg", {84, 68}, ""},
        {{"export", archive, "-o", png, "--scale", "3"},
         1,
         "",
         {},
         "Invalid screenshot export options."},
        {{"export", archive, "-o", png, "--quality", "1.5"},
         1,
         "",
         {},
         "Invalid screenshot export options."},
        {{"export", archive, "-o", png, "--quality", "high"},
         2,
         "",
         {},
         "--quality needs a number"},
        {{"export", archive, "-o", dir.filePath("out.gif")}, 2, "", {}, "cannot tell the format"},
        {{"export", archive, "-o", png, "--format", "bmp"},
         2,
         "",
         {},
         "--format is png, jpeg, heic or webp"},
        {{"export", archive}, 2, "", {}, "either -o FILE or --quick"},
        {{"export", archive, "-o", png, "--quick"}, 2, "", {}, "either -o FILE or --quick"},
        {{"export", archive, "-o"}, 2, "", {}, "-o needs a file name"},
        {{"export", dir.filePath("missing"), "-o", png}, 1, "", {}, "Could not open"},
        {{"export", archive, "-o", dir.filePath("no/such/folder/out.png")},
         1,
         "",
         {},
         "Could not write \u201cout.png\u201d"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        const auto result = test::runNuboShot(c.arguments);
        EXPECT_EQ(result.exitCode, c.exitCode) << result.err.toStdString();
        EXPECT_TRUE(result.err.contains(QString::fromUtf8(c.inErr))) << result.err.toStdString();
        if (c.exitCode == 0) {
            const QString written = result.out.trimmed();
            EXPECT_TRUE(written.endsWith(QString::fromUtf8(c.written))) << written.toStdString();
            EXPECT_TRUE(QFileInfo(written).isFile());
            // Every file decodes, through the format's own library where
            // Qt has no reader, to the size asked for.
            QFile file(written);
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QByteArray bytes = file.readAll();
            const QImage decoded = bytes.mid(8, 4) == "WEBP" ? test::decodeWebp(bytes)
                                   : bytes.mid(4, 4) == "ftyp" ? test::decodeHeic(bytes)
                                                               : QImage::fromData(bytes);
            EXPECT_EQ(decoded.size(), c.size.isValid() ? c.size : QSize(84, 68));
        }
    }
    // Quick saves land in Downloads under dated names.
    const QStringList saved = QDir(downloads).entryList(QDir::Files);
    EXPECT_EQ(saved.size(), 2);
    for (const QString& name : saved) {
        EXPECT_TRUE(name.startsWith(QStringLiteral("Nubo Shot "))) << name.toStdString();
    }
}

// Writing never replaces what is not a file, never leaves half a file or a
// placeholder behind, and says what really went wrong.
TEST(CommandLine, WritesRefuseSpecialFilesAndNameTheRealCause)
{
    QTemporaryDir dir;
    const QString archive = dir.filePath(QStringLiteral("shot"));
    ShotDocumentArchive::write(test::documentWithEveryKind(), archive);
    const QString fifo = dir.filePath(QStringLiteral("pipe.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString folder = dir.filePath(QStringLiteral("folder.png"));
    ASSERT_TRUE(QDir().mkpath(folder));
    const QString nuboshot = QStringLiteral(NUBOSHOT_BINARY);
    const QString quoted = QLatin1Char('\'') + archive + QLatin1Char('\'');

    struct Case {
        const char* name;
        QStringList command; // run as it stands
        const char* inErr;
        std::function<bool(const QString& err)> unharmed;
    };
    const auto isFifo = [&](const QString&) {
        struct stat info {};
        return ::lstat(QFile::encodeName(fifo).constData(), &info) == 0 && S_ISFIFO(info.st_mode);
    };
    const auto nothingBeside = [&](const QString& where, const QStringList& expected) {
        return [where, expected](const QString&) {
            QStringList left =
                QDir(where).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
            left.sort();
            return left == expected;
        };
    };
    const QString limited = dir.filePath(QStringLiteral("limited"));
    ASSERT_TRUE(QDir().mkpath(limited));
    const Case cases[] = {
        {"-o onto a FIFO",
         {nuboshot, "export", archive, "-o", fifo},
         "it is a pipe (FIFO), not a file",
         isFifo},
        {"-o onto a folder",
         {nuboshot, "export", archive, "-o", folder},
         "it is a folder, not a file",
         [&](const QString&) {
             return QFileInfo(folder).isDir();
         }},
        {"-o onto a device",
         {nuboshot, "export", archive, "-o", "/dev/null", "--format", "png"},
         "it is a device, not a file",
         [](const QString&) {
             struct stat info {};
             return ::stat("/dev/null", &info) == 0 && S_ISCHR(info.st_mode);
         }},
        {"a file size limit (ulimit -f)",
         {"sh", "-c",
          QStringLiteral("ulimit -f 1; exec '%1' export %2 -o '%3/big.png'")
              .arg(nuboshot, quoted, limited)},
         "the file size limit of its session, ulimit -f",
         nothingBeside(limited, {})},
        {"a quick save under a file size limit",
         {"sh", "-c",
          QStringLiteral("ulimit -f 1; exec '%1' export %2 --quick").arg(nuboshot, quoted)},
         "ulimit -f",
         nothingBeside(QDir::homePath() + QStringLiteral("/Downloads"), {})},
        {"an archive under a file size limit",
         {"sh", "-c",
          QStringLiteral("ulimit -f 1; exec '%1' archive new '%2' '%3/archive'")
              .arg(nuboshot, QStringLiteral(NUBOSHOT_TEST_DATA "/web-1920x1080.png"), limited)},
         "ulimit -f",
         nothingBeside(limited, {})},
        {"a full disk",
         // A private 64 KB file system, in a user namespace of its own.
         {"unshare", "--user", "--map-root-user", "--mount", "sh", "-c",
          QStringLiteral("mount -t tmpfs -o size=64k tmpfs '%1' && "
                         "head -c 60000 /dev/zero > '%1/filler' && "
                         "'%2' archive new '%3' '%1/archive'; status=$?; "
                         "ls -A '%1' >&2; exit $status")
              .arg(limited, nuboshot, QStringLiteral(NUBOSHOT_TEST_DATA "/web-1920x1080.png"))},
         "is full",
         // Inside, `ls -A` printed what was left after the error line: the
         // filler alone, no staging folder.
         [](const QString& err) {
             return err.section(u'\n', 1).trimmed() == u"filler";
         }},
    };
    QDir(QDir::homePath() + QStringLiteral("/Downloads")).removeRecursively();
    QDir().mkpath(QDir::homePath() + QStringLiteral("/Downloads"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        QProcess process;
        process.start(c.command.first(), c.command.mid(1));
        ASSERT_TRUE(process.waitForFinished(30000)) << "blocked";
        const QString err = QString::fromUtf8(process.readAllStandardError());
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit) << "killed: " << err.toStdString();
        EXPECT_EQ(process.exitCode(), 1) << err.toStdString();
        EXPECT_TRUE(err.section(u'\n', 0, 0).contains(QString::fromUtf8(c.inErr)))
            << err.toStdString();
        EXPECT_TRUE(c.unharmed(err)) << err.toStdString();
    }
}

TEST(CommandLine, ReadingRefusesWhatIsNotAFileWithoutWaiting)
{
    // A FIFO with no writer would block a reader forever; a device never ends.
    QTemporaryDir dir;
    const QString fifo = dir.filePath(QStringLiteral("shot.png"));
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    const QString out = dir.filePath(QStringLiteral("archive"));
    struct Case {
        QStringList arguments;
        const char* inErr;
    };
    const Case cases[] = {
        {{"archive", "new", fifo, out}, "is a pipe (FIFO), not an image file"},
        {{"archive", "new", "/dev/zero", out}, "is a device, not an image file"},
        {{"archive", "new", dir.path(), out}, "is a folder, not an image file"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.arguments.join(u' ').toStdString());
        const auto result = runNuboShot(c.arguments, 10000);
        EXPECT_FALSE(result.crashed) << "blocked or crashed";
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.err.contains(QString::fromUtf8(c.inErr))) << result.err.toStdString();
        EXPECT_FALSE(QFileInfo::exists(out));
    }
}

} // namespace
} // namespace nubo

namespace nubo {
namespace {

// Frames of a window over a real screenshot, with a fixed header and footer,
// stitched from files: the page comes back pixel for pixel.
TEST(CommandLine, StitchesFramesFromFiles)
{
    QTemporaryDir dir;
    const QImage page = QImage(QStringLiteral(NUBOSHOT_TEST_DATA "/web-1920x1080.png"))
                            .convertToFormat(QImage::Format_RGBA8888_Premultiplied)
                            .copy(0, 0, 800, 1080);
    const auto window = [&](int scroll, int visible) {
        QImage frame(800, visible + 40, QImage::Format_RGBA8888_Premultiplied);
        frame.fill(QColor(40, 80, 160));                       // header and footer
        QPainter painter(&frame);
        painter.fillRect(0, visible + 20, 800, 20, QColor(230, 230, 200));
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        painter.drawImage(0, 20, page.copy(0, scroll, 800, visible));
        return frame;
    };
    QStringList frames;
    for (const int scroll : {0, 90, 200, 330, 480}) {
        const QString file = dir.filePath(QStringLiteral("frame-%1.png").arg(scroll));
        ASSERT_TRUE(window(scroll, 300).save(file));
        frames << file;
    }
    const QString out = dir.filePath(QStringLiteral("tall.png"));
    const auto result = test::runNuboShot(QStringList{"stitch"} << frames << "-o" << out << "--verbose");
    ASSERT_EQ(result.exitCode, 0) << result.err.toStdString();
    const QStringList lines = result.out.split(u'\n', Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 6) << result.out.toStdString();
    EXPECT_TRUE(lines[1].endsWith(QStringLiteral(": accepted offset 90 verified 1.000")))
        << lines[1].toStdString();
    EXPECT_EQ(lines.last(), out);
    const QImage stitched(out);
    const QImage expected = window(0, 480 + 300);
    ASSERT_EQ(stitched.size(), expected.size());
    EXPECT_EQ(test::compareImages(stitched, expected, 0).maximum, 0);

    // A frame that cannot be read: one line naming it, exit 1, nothing written.
    const QString broken = dir.filePath(QStringLiteral("broken.png"));
    QFile(broken).open(QIODevice::WriteOnly);
    const QString other = dir.filePath(QStringLiteral("other.png"));
    const auto bad = test::runNuboShot({"stitch", frames[0], broken, "-o", other});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_TRUE(bad.err.contains(QStringLiteral("broken.png"))) << bad.err.toStdString();
    EXPECT_EQ(bad.err.count(u'\n'), 1);
    EXPECT_FALSE(QFile::exists(other));
}

} // namespace
} // namespace nubo
