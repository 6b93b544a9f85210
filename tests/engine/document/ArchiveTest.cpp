#include "document/ShotDocumentArchive.h"
#include "render/ShotRenderer.h"
#include "support/ArchiveFixtures.h"
#include "support/QtPrinters.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>
#include <unistd.h>

namespace nubo {
namespace {

using test::documentWithEveryKind;
using test::expectSameDocument;
using test::patternImage;
using Code = ArchiveError::Code;

class Archive : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(m_dir.isValid()); }
    QString folder(const QString& name = QStringLiteral("shot")) const
    {
        return m_dir.filePath(name);
    }

    QTemporaryDir m_dir;
};

TEST_F(Archive, RoundTripsKeepEveryField)
{
    struct Case {
        const char* name;
        std::function<ShotDocument()> make;
    };
    const Case cases[] = {
        {"one layer, no crop, no frame",
         [] {
             return ShotDocument::fromImage(patternImage(32, 20), 1);
         }},
        {"crop and frame",
         [] {
             ShotDocument d = ShotDocument::fromImage(patternImage(32, 20), 2);
             d.crop = QRectF(1.5, 2.25, 10, 6);
             d.frame = FrameStyle{};
             return d;
         }},
        {"every annotation kind", documentWithEveryKind},
        {"two layers",
         [] {
             ShotDocument d = ShotDocument::fromImage(patternImage(32, 20), 1);
             d.layers.append(ImageLayer{QUuid::createUuid(), patternImage(8, 9, 77), {4, 5, 8, 9}});
             d.canvasBounds = QRectF(-10, -10, 60, 40);
             return d;
         }},
        {"translucent pixels",
         [] {
             QImage image(4, 4, QImage::Format_RGBA8888_Premultiplied);
             image.fill(QColor(255, 0, 0, 0));
             image.setPixelColor(1, 1, QColor(0, 0, 0, 0));
             image.setPixelColor(2, 2, QColor(255, 255, 255, 255));
             return ShotDocument::fromImage(image, 1);
         }},
        {"no layers",
         [] {
             ShotDocument d;
             d.canvasBounds = QRectF(0, 0, 10, 10);
             return d;
         }},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const ShotDocument document = c.make();
        ShotDocumentArchive::write(document, folder());
        expectSameDocument(document, ShotDocumentArchive::read(folder()));
    }
}

TEST_F(Archive, WritesTheDocumentedLayout)
{
    ShotDocument document = documentWithEveryKind();
    document.layers.append(ImageLayer{QUuid::createUuid(), patternImage(5, 5, 3), {0, 0, 5, 5}});
    ShotDocumentArchive::write(document, folder());

    QStringList expectedFiles{QStringLiteral("manifest.json")};
    for (const ImageLayer& layer : document.layers) {
        expectedFiles << layer.id.toString(QUuid::WithoutBraces).toUpper() + QStringLiteral(".png");
    }
    expectedFiles.sort();
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files | QDir::Hidden, QDir::Name), expectedFiles);

    const QJsonObject manifest = test::readManifest(folder());
    EXPECT_EQ(manifest.value(QStringLiteral("version")).toInt(), 1);
    EXPECT_FALSE(manifest.contains(QStringLiteral("crop")));
    EXPECT_FALSE(manifest.contains(QStringLiteral("frame")));
    EXPECT_EQ(manifest.value(QStringLiteral("canvasBounds")).toArray(),
              (QJsonArray{QJsonArray{0, 0}, QJsonArray{64, 48}}));

    // The manifest text itself is pretty-printed with sorted keys.
    QFile file(folder() + QStringLiteral("/manifest.json"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray text = file.readAll();
    EXPECT_TRUE(text.contains("\n    \"annotations\""));
    EXPECT_LT(text.indexOf("\"annotations\""), text.indexOf("\"canvasBounds\""));
    EXPECT_LT(text.indexOf("\"canvasBounds\""), text.indexOf("\"layers\""));
    EXPECT_LT(text.indexOf("\"layers\""), text.indexOf("\"version\""));

    // Annotation kinds as one key naming the case, payloads under their field names.
    const QJsonArray annotations = manifest.value(QStringLiteral("annotations")).toArray();
    const auto kind = [&](int i) {
        return annotations[i].toObject().value(QStringLiteral("kind")).toObject();
    };
    EXPECT_EQ(kind(0), (QJsonObject{{"arrow", QJsonObject{{"from", QJsonArray{1, 2}},
                                                          {"to", QJsonArray{30.5, 40.25}}}}}));
    EXPECT_EQ(kind(2),
              (QJsonObject{
                  {"shape", QJsonObject{{"_0", "filledRect"},
                                        {"_1", QJsonArray{QJsonArray{1, 2}, QJsonArray{3, 4}}}}}}));
    EXPECT_EQ(kind(6), (QJsonObject{{"counter", QJsonObject{{"center", QJsonArray{12, 13}}}}}));
    EXPECT_TRUE(
        kind(4).value(QStringLiteral("text")).toObject().value(QStringLiteral("_0")).isObject());
    const QJsonObject style = annotations[0].toObject().value(QStringLiteral("style")).toObject();
    EXPECT_EQ(style.keys(),
              (QStringList{"color", "fontSize", "lineWidth", "strength", "textOutline"}));
    EXPECT_EQ(style.value(QStringLiteral("textOutline")), QJsonValue(false));
}

TEST_F(Archive, ReorderingLayersChangesOnlyTheManifest)
{
    ShotDocument document = ShotDocument::fromImage(patternImage(16, 16, 1), 1);
    document.layers.append(
        ImageLayer{QUuid::createUuid(), patternImage(16, 16, 2), {0, 0, 16, 16}});
    ShotDocumentArchive::write(document, folder(QStringLiteral("a")));
    std::swap(document.layers[0], document.layers[1]);
    ShotDocumentArchive::write(document, folder(QStringLiteral("b")));

    for (const ImageLayer& layer : document.layers) {
        const QString name = ShotDocumentArchive::layerFileName(layer.id);
        QFile a(folder(QStringLiteral("a/")) + name), b(folder(QStringLiteral("b/")) + name);
        ASSERT_TRUE(a.open(QIODevice::ReadOnly) && b.open(QIODevice::ReadOnly));
        EXPECT_EQ(a.readAll(), b.readAll());
    }
    const auto ids = [](const QJsonObject& manifest) {
        QStringList out;
        for (const QJsonValue& layer : manifest.value(QStringLiteral("layers")).toArray()) {
            out << layer.toObject().value(QStringLiteral("id")).toString();
        }
        return out;
    };
    QStringList reversed = ids(test::readManifest(folder(QStringLiteral("a"))));
    std::reverse(reversed.begin(), reversed.end());
    EXPECT_EQ(ids(test::readManifest(folder(QStringLiteral("b")))), reversed);
    expectSameDocument(document, ShotDocumentArchive::read(folder(QStringLiteral("b"))));
}

TEST_F(Archive, ReadingNormalisesStyles)
{
    ShotDocumentArchive::write(documentWithEveryKind(), folder());
    QJsonObject manifest = test::readManifest(folder());
    QJsonArray annotations = manifest.value(QStringLiteral("annotations")).toArray();
    const double strengths[] = {100, 2, 17};
    for (int i = 0; i < 3; ++i) {
        QJsonObject a = annotations[i].toObject();
        QJsonObject style = a.value(QStringLiteral("style")).toObject();
        style.remove(QStringLiteral("textOutline"));
        style.insert(QStringLiteral("strength"), strengths[i]);
        a.insert(QStringLiteral("style"), style);
        annotations[i] = a;
    }
    manifest.insert(QStringLiteral("annotations"), annotations);
    test::writeManifest(folder(), manifest);

    const ShotDocument read = ShotDocumentArchive::read(folder());
    EXPECT_TRUE(read.annotations[0].style.textOutline);
    EXPECT_EQ(read.annotations[0].style.strength, 40);
    EXPECT_EQ(read.annotations[1].style.strength, 6);
    EXPECT_EQ(read.annotations[2].style.strength, 17);
    EXPECT_FALSE(read.annotations[3].style.textOutline); // stored false stays false
}

TEST_F(Archive, ReadingKeepsHostileSizesAndTextsDrawable)
{
    // Sizes no font engine can draw and texts far longer than any note, as a
    // hostile or broken file holds them: read, normalised, and drawn.
    ShotDocumentArchive::write(documentWithEveryKind(), folder());
    QJsonObject manifest = test::readManifest(folder());
    QJsonArray annotations = manifest.value(QStringLiteral("annotations")).toArray();
    const QString longLine(3 * TextContent::maximumLength, QLatin1Char('w'));
    for (qsizetype i = 0; i < annotations.size(); ++i) {
        QJsonObject a = annotations[i].toObject();
        QJsonObject style = a.value(QStringLiteral("style")).toObject();
        style.insert(QStringLiteral("fontSize"), 100000);
        style.insert(QStringLiteral("lineWidth"), 1e9);
        a.insert(QStringLiteral("style"), style);
        QJsonObject kind = a.value(QStringLiteral("kind")).toObject();
        if (kind.contains(QStringLiteral("text"))) {
            QJsonObject payload = kind.value(QStringLiteral("text")).toObject();
            QJsonObject content = payload.value(QStringLiteral("_0")).toObject();
            content.insert(QStringLiteral("text"), longLine);
            content.insert(QStringLiteral("rect"), QJsonArray{QJsonArray{0, 0}, QJsonArray{1e7, 50}});
            payload.insert(QStringLiteral("_0"), content);
            kind.insert(QStringLiteral("text"), payload);
        } else if (kind.contains(QStringLiteral("emoji"))) {
            QJsonObject payload = kind.value(QStringLiteral("emoji")).toObject();
            payload.insert(QStringLiteral("_0"), QString(1000, QLatin1Char('x')));
            payload.insert(QStringLiteral("_1"), QJsonArray{QJsonArray{0, 0}, QJsonArray{1e6, 1e6}});
            kind.insert(QStringLiteral("emoji"), payload);
        }
        a.insert(QStringLiteral("kind"), kind);
        annotations[i] = a;
    }
    manifest.insert(QStringLiteral("annotations"), annotations);
    test::writeManifest(folder(), manifest);

    const ShotDocument read = ShotDocumentArchive::read(folder());
    bool sawText = false, sawEmoji = false;
    for (const Annotation& a : read.annotations) {
        EXPECT_EQ(a.style.fontSize, ShotStyle::maximumFontSize);
        EXPECT_EQ(a.style.lineWidth, ShotStyle::maximumLineWidth);
        if (const auto* text = a.as<TextAnnotation>()) {
            sawText = true;
            EXPECT_EQ(text->content.text.size(), TextContent::maximumLength);
        }
        if (const auto* emoji = a.as<EmojiAnnotation>()) {
            sawEmoji = true;
            EXPECT_EQ(emoji->emoji.size(), EmojiAnnotation::maximumLength);
        }
    }
    EXPECT_TRUE(sawText && sawEmoji);
    // The longest text in one line, with its outline, at the largest size:
    // drawing it took minutes when its cost grew with the square of its
    // length (ctest's time limit fails the test then).
    const QImage drawn = ShotRenderer().render(read, 1);
    EXPECT_FALSE(drawn.isNull());
}

// Hostile and damaged archives: each fails with its own error, never crashes,
// never returns part of a document.
TEST_F(Archive, RefusesDamagedArchives)
{
    using Edit = std::function<void(const QString& folder, QJsonObject& manifest)>;
    const auto layer0 = [](QJsonObject& m, const char* key, QJsonValue value) {
        QJsonArray layers = m.value(QStringLiteral("layers")).toArray();
        QJsonObject layer = layers[0].toObject();
        layer.insert(QLatin1String(key), value);
        layers[0] = layer;
        m.insert(QStringLiteral("layers"), layers);
    };
    const auto annotation0 = [](QJsonObject& m, const char* key, QJsonValue value) {
        QJsonArray list = m.value(QStringLiteral("annotations")).toArray();
        QJsonObject a = list[0].toObject();
        a.insert(QLatin1String(key), value);
        list[0] = a;
        m.insert(QStringLiteral("annotations"), list);
    };
    const auto layerFile = [](const QString& f, const QJsonObject& m) {
        return f + QLatin1Char('/') +
               m.value(QStringLiteral("layers"))
                   .toArray()[0]
                   .toObject()
                   .value(QStringLiteral("filename"))
                   .toString();
    };
    const auto raw = [](const QString& f, const QByteArray& text) {
        test::writeFile(f + QStringLiteral("/manifest.json"), text);
    };
    const QJsonArray hugeRect{QJsonArray{1e308, 0}, QJsonArray{1e308, 10}};

    struct Case {
        const char* name;
        Edit edit;
        Code expected;
    };
    const Case cases[] = {
        {"version 2", [](auto&, auto& m) { m.insert(QStringLiteral("version"), 2); },
         Code::unsupportedVersion},
        {"version 2 with an unreadable rest",
         [](auto&, auto& m) {
             m = QJsonObject{{QStringLiteral("version"), 2}, {QStringLiteral("layers"), 5}};
         },
         Code::unsupportedVersion},
        {"version as text",
         [](auto&, auto& m) { m.insert(QStringLiteral("version"), QStringLiteral("1")); },
         Code::invalidManifest},
        {"version 1.5", [](auto&, auto& m) { m.insert(QStringLiteral("version"), 1.5); },
         Code::invalidManifest},
        {"no version", [](auto&, auto& m) { m.remove(QStringLiteral("version")); },
         Code::invalidManifest},
        {"not JSON",
         [&](const QString& f, auto& m) {
             m = {};
             raw(f, "{\"version\": 1,");
         },
         Code::invalidManifest},
        {"JSON but an array",
         [&](const QString& f, auto& m) {
             m = {};
             raw(f, "[1]");
         },
         Code::invalidManifest},
        {"no manifest",
         [](const QString& f, auto& m) {
             m = {};
             QFile::remove(f + "/manifest.json");
         },
         Code::invalidManifest},
        {"manifest is a folder",
         [](const QString& f, auto& m) {
             m = {};
             QFile::remove(f + "/manifest.json");
             QDir(f).mkdir("manifest.json");
         },
         Code::invalidManifest},
        {"no layers", [](auto&, auto& m) { m.remove(QStringLiteral("layers")); },
         Code::invalidManifest},
        {"no canvas", [](auto&, auto& m) { m.remove(QStringLiteral("canvasBounds")); },
         Code::invalidManifest},
        {"layers not an array",
         [](auto&, auto& m) { m.insert(QStringLiteral("layers"), QJsonObject()); },
         Code::invalidManifest},
        {"layer id not a UUID",
         [&](auto&, auto& m) { layer0(m, "id", QStringLiteral("not-a-uuid")); },
         Code::invalidManifest},
        {"layer id in braces",
         [&](auto&, auto& m) { layer0(m, "id", QUuid::createUuid().toString()); },
         Code::invalidManifest},
        {"frame as text", [&](auto&, auto& m) { layer0(m, "frame", QStringLiteral("NaN")); },
         Code::invalidManifest},
        {"frame with three numbers",
         [&](auto&, auto& m) {
             layer0(m, "frame", QJsonArray{QJsonArray{0, 0, 0}, QJsonArray{1, 1}});
         },
         Code::invalidManifest},
        {"frame whose far edge overflows", [&](auto&, auto& m) { layer0(m, "frame", hugeRect); },
         Code::invalidDocument},
        {"canvas whose far edge overflows",
         [&](auto&, auto& m) { m.insert(QStringLiteral("canvasBounds"), hugeRect); },
         Code::invalidDocument},
        {"a number too large for a double",
         [&](const QString& f, auto& m) {
             QByteArray text = QJsonDocument(m).toJson();
             m = {};
             text.replace("\"canvasBounds\": [",
                          "\"canvasBounds\": [[1e999, 0], [1, 1]], \"x\": [");
             raw(f, text);
         },
         Code::invalidManifest},
        {"two layers with one id",
         [](auto&, auto& m) {
             QJsonArray layers = m.value(QStringLiteral("layers")).toArray();
             layers.append(layers[0]);
             m.insert(QStringLiteral("layers"), layers);
         },
         Code::invalidDocument},
        {"unknown annotation kind",
         [&](auto&, auto& m) {
             annotation0(m, "kind", QJsonObject{{"spiral", QJsonObject()}});
         },
         Code::invalidManifest},
        {"annotation kind naming two cases",
         [&](auto&, auto& m) {
             annotation0(
                 m, "kind",
                 QJsonObject{{"counter", QJsonObject{{"center", QJsonArray{1, 1}}}},
                             {"redact", QJsonObject{{"_0", QJsonArray{QJsonArray{0, 0},
                                                                      QJsonArray{1, 1}}}}}});
         },
         Code::invalidManifest},
        {"unknown shape",
         [&](auto&, auto& m) {
             annotation0(m, "kind",
                         QJsonObject{{"shape", QJsonObject{{"_0", "star"},
                                                           {"_1", QJsonArray{QJsonArray{0, 0},
                                                                             QJsonArray{1, 1}}}}}});
         },
         Code::invalidManifest},
        {"pen point as text",
         [&](auto&, auto& m) {
             annotation0(m, "kind", QJsonObject{{"pen", QJsonObject{{"_0", QJsonArray{"1,2"}}}}});
         },
         Code::invalidManifest},
        {"style without colour",
         [&](auto&, auto& m) {
             annotation0(m, "style",
                         QJsonObject{{"lineWidth", 1}, {"fontSize", 1}, {"strength", 1}});
         },
         Code::invalidManifest},
        {"textOutline as text",
         [&](auto&, auto& m) {
             annotation0(
                 m, "style",
                 QJsonObject{
                     {"color", QJsonObject{{"red", 1}, {"green", 1}, {"blue", 1}, {"alpha", 1}}},
                     {"lineWidth", 1},
                     {"fontSize", 1},
                     {"strength", 1},
                     {"textOutline", "yes"}});
         },
         Code::invalidManifest},
        {"file name climbing out",
         [&](auto&, auto& m) { layer0(m, "filename", QStringLiteral("../shot.png")); },
         Code::invalidManifest},
        {"absolute file name",
         [&](auto&, auto& m) { layer0(m, "filename", QStringLiteral("/etc/hostname")); },
         Code::invalidManifest},
        {"file name ..", [&](auto&, auto& m) { layer0(m, "filename", QStringLiteral("..")); },
         Code::invalidManifest},
        {"empty file name", [&](auto&, auto& m) { layer0(m, "filename", QString()); },
         Code::invalidManifest},
        {"symbolic link leading out",
         [&](const QString& f, auto& m) {
             const QString outside = f + QStringLiteral("/../outside.png");
             ASSERT_TRUE(patternImage(4, 4).save(outside));
             QFile::remove(layerFile(f, m));
             ASSERT_EQ(::symlink("../outside.png", layerFile(f, m).toLocal8Bit().constData()), 0);
         },
         Code::invalidManifest},
        {"manifest linked from outside",
         [&](const QString& f, auto& m) {
             const QString outside = f + QStringLiteral("/../outside.json");
             test::writeFile(outside, QJsonDocument(m).toJson());
             m = {};
             QFile::remove(f + QStringLiteral("/manifest.json"));
             ASSERT_EQ(::symlink("../outside.json",
                                 (f + QStringLiteral("/manifest.json")).toLocal8Bit().constData()),
                       0);
         },
         Code::invalidManifest},
        {"missing image", [&](const QString& f, auto& m) { QFile::remove(layerFile(f, m)); },
         Code::invalidImage},
        {"image that does not decode",
         [&](const QString& f, auto& m) { test::writeFile(layerFile(f, m), QByteArray(500, 'x')); },
         Code::invalidImage},
        {"truncated image",
         [&](const QString& f, auto& m) {
             QFile file(layerFile(f, m));
             ASSERT_TRUE(file.open(QIODevice::ReadWrite));
             file.resize(file.size() / 2);
         },
         Code::invalidImage},
        {"a JPEG where a PNG belongs",
         [&](const QString& f, auto& m) {
             ASSERT_TRUE(patternImage(8, 8).save(layerFile(f, m), "JPEG"));
         },
         Code::invalidImage},
        {"image too large",
         [&](const QString& f, auto& m) {
             test::writeFile(layerFile(f, m), test::pngHeaderClaiming(20000, 20000));
         },
         Code::imageTooLarge},
        {"image side too long",
         [&](const QString& f, auto& m) {
             test::writeFile(layerFile(f, m), test::pngHeaderClaiming(70000, 1));
         },
         Code::imageTooLarge},
        {"folder over 200,000,000 bytes, manifest never read",
         [&](const QString& f, auto& m) {
             m = {};
             raw(f, "not json at all");
             qint64 others = 0;
             for (const QFileInfo& e : QDir(f).entryInfoList(QDir::Files)) {
                 others += e.size();
             }
             QFile padding(f + QStringLiteral("/padding"));
             ASSERT_TRUE(padding.open(QIODevice::WriteOnly));
             ASSERT_TRUE(padding.resize(ShotDocumentArchive::maximumBytes + 1 - others));
         },
         Code::archiveTooLarge},
    };

    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const QString f = folder(QStringLiteral("case"));
        QDir(f).removeRecursively();
        QFile::remove(m_dir.filePath(QStringLiteral("outside.png")));
        QFile::remove(m_dir.filePath(QStringLiteral("outside.json")));
        ShotDocumentArchive::write(documentWithEveryKind(), f);
        QJsonObject manifest = test::readManifest(f);
        c.edit(f, manifest);
        if (!manifest.isEmpty()) {
            test::writeManifest(f, manifest);
        }
        try {
            ShotDocumentArchive::read(f);
            ADD_FAILURE() << "read an archive that should have failed";
        } catch (const ArchiveError& error) {
            EXPECT_EQ(toString(error.code()), toString(c.expected)) << error.detail().toStdString();
            EXPECT_FALSE(error.message().isEmpty());
            if (c.expected == Code::unsupportedVersion) {
                EXPECT_EQ(error.foundVersion(), 2);
                EXPECT_TRUE(error.message().contains(QLatin1String("version 2")));
            }
        }
    }
}

TEST_F(Archive, ExactlyTheByteLimitIsStillRead)
{
    const QString f = folder();
    ShotDocumentArchive::write(ShotDocument::fromImage(patternImage(4, 4), 1), f);
    qint64 used = 0;
    for (const QFileInfo& e : QDir(f).entryInfoList(QDir::Files)) {
        used += e.size();
    }
    QFile padding(f + QStringLiteral("/notes"));
    ASSERT_TRUE(padding.open(QIODevice::WriteOnly));
    ASSERT_TRUE(padding.resize(ShotDocumentArchive::maximumBytes - used));
    padding.close();
    EXPECT_NO_THROW(ShotDocumentArchive::read(f));
}

TEST_F(Archive, LinksInsideTheFolderAreFollowed)
{
    const QString f = folder();
    const ShotDocument document = ShotDocument::fromImage(patternImage(6, 6), 1);
    ShotDocumentArchive::write(document, f);
    const QString name = ShotDocumentArchive::layerFileName(document.layers[0].id);
    ASSERT_TRUE(QFile::rename(f + QLatin1Char('/') + name, f + QStringLiteral("/real.png")));
    ASSERT_EQ(::symlink("real.png", (f + QLatin1Char('/') + name).toLocal8Bit().constData()), 0);
    expectSameDocument(document, ShotDocumentArchive::read(f));
}

TEST_F(Archive, WritingRefusesDocumentsItCannotStore)
{
    struct Case {
        const char* name;
        std::function<void(ShotDocument&)> edit;
        Code expected;
    };
    const Case cases[] = {
        {"non-finite crop", [](ShotDocument& d) { d.crop = QRectF(0, 0, std::nan(""), 1); },
         Code::invalidDocument},
        {"non-finite annotation",
         [](ShotDocument& d) {
             d.annotations.append({QUuid::createUuid(), CounterAnnotation{{INFINITY, 0}}, {}});
         },
         Code::invalidDocument},
        {"non-finite frame padding", [](ShotDocument& d) { d.frame = FrameStyle{NAN}; },
         Code::invalidDocument},
        {"layer without image", [](ShotDocument& d) { d.layers[0].image = QImage(); },
         Code::invalidDocument},
        {"two layers with one id", [](ShotDocument& d) { d.layers.append(d.layers[0]); },
         Code::invalidDocument},
        {"image over the pixel limit",
         [](ShotDocument& d) {
             d.layers[0].image = QImage(65537, 1, QImage::Format_RGBA8888_Premultiplied);
         },
         Code::imageTooLarge},
    };
    // A good archive is already there; a failed write leaves it whole.
    const ShotDocument good = documentWithEveryKind();
    ShotDocumentArchive::write(good, folder());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        ShotDocument bad = ShotDocument::fromImage(patternImage(8, 8), 1);
        c.edit(bad);
        try {
            ShotDocumentArchive::write(bad, folder());
            ADD_FAILURE() << "wrote a document that should have been refused";
        } catch (const ArchiveError& error) {
            EXPECT_EQ(toString(error.code()), toString(c.expected));
        }
        expectSameDocument(good, ShotDocumentArchive::read(folder()));
    }
    // Nothing staged is left behind next to it.
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("shot")});
}

TEST_F(Archive, ReplacingAnArchiveLeavesOnlyTheNewOne)
{
    const ShotDocument first = ShotDocument::fromImage(patternImage(8, 8, 1), 1);
    const ShotDocument second = ShotDocument::fromImage(patternImage(9, 9, 2), 1);
    ShotDocumentArchive::write(first, folder());
    ShotDocumentArchive::write(second, folder());
    expectSameDocument(second, ShotDocumentArchive::read(folder()));
    EXPECT_EQ(QDir(folder()).entryList(QDir::Files).size(), 2); // manifest and one layer
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList{QStringLiteral("shot")});
}

TEST_F(Archive, ReplacingAnArchiveKeepsFilesItDidNotWrite)
{
    const ShotDocument first = ShotDocument::fromImage(patternImage(8, 8, 1), 1);
    const ShotDocument second = ShotDocument::fromImage(patternImage(9, 9, 2), 1);
    ShotDocumentArchive::write(first, folder());
    test::writeFile(folder() + QStringLiteral("/notes.txt"), "the user's own");
    ASSERT_TRUE(QDir().mkpath(folder() + QStringLiteral("/drafts")));
    test::writeFile(folder() + QStringLiteral("/drafts/a.txt"), "draft");
    ShotDocumentArchive::write(second, folder());
    expectSameDocument(second, ShotDocumentArchive::read(folder()));
    QStringList entries = QDir(folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    entries.sort();
    EXPECT_EQ(entries, (QStringList{ShotDocumentArchive::layerFileName(second.layers[0].id),
                                    QStringLiteral("drafts"), QStringLiteral("manifest.json"),
                                    QStringLiteral("notes.txt")}));
    EXPECT_TRUE(QFile::exists(folder() + QStringLiteral("/drafts/a.txt")));
}

TEST_F(Archive, NeverReplacesWhatIsNotAnArchive)
{
    const ShotDocument document = ShotDocument::fromImage(patternImage(8, 8), 1);
    // A folder of the user's own files.
    const QString own = folder(QStringLiteral("Documents"));
    ASSERT_TRUE(QDir().mkpath(own));
    test::writeFile(own + QStringLiteral("/letter.txt"), "Dear …");
    EXPECT_THROW(ShotDocumentArchive::write(document, own), FileError);
    EXPECT_TRUE(QFile::exists(own + QStringLiteral("/letter.txt")));
    // A plain file.
    const QString file = folder(QStringLiteral("notes.txt"));
    test::writeFile(file, "keep me");
    EXPECT_THROW(ShotDocumentArchive::write(document, file), FileError);
    EXPECT_EQ(QFileInfo(file).size(), 7);
    // A folder with a manifest.json of its own (a browser extension's): its
    // files once vanished when an archive replaced it.
    const QString extension = folder(QStringLiteral("extension"));
    ASSERT_TRUE(QDir().mkpath(extension + QStringLiteral("/icons")));
    test::writeFile(extension + QStringLiteral("/manifest.json"), R"({"manifest_version": 3})");
    test::writeFile(extension + QStringLiteral("/background.js"), "chrome.runtime;");
    test::writeFile(extension + QStringLiteral("/icons/48.png"), "png");
    EXPECT_THROW(ShotDocumentArchive::write(document, extension), FileError);
    for (const char* name : {"manifest.json", "background.js", "icons/48.png"}) {
        EXPECT_TRUE(QFile::exists(extension + QLatin1Char('/') + QLatin1String(name))) << name;
    }
    EXPECT_EQ(QDir(m_dir.path()).entryList(QDir::Hidden | QDir::AllEntries | QDir::NoDotAndDotDot)
                  .filter(QStringLiteral(".extension")),
              QStringList()) << "no staging folder left behind";
    // An empty folder is fine, and missing parents are made.
    ASSERT_TRUE(QDir().mkpath(folder(QStringLiteral("empty"))));
    EXPECT_NO_THROW(ShotDocumentArchive::write(document, folder(QStringLiteral("empty"))));
    EXPECT_NO_THROW(ShotDocumentArchive::write(document, folder(QStringLiteral("a/b/c"))));
    expectSameDocument(document, ShotDocumentArchive::read(folder(QStringLiteral("a/b/c"))));
}

TEST_F(Archive, ReadingSomethingThatIsNotAFolderIsAFileError)
{
    EXPECT_THROW(ShotDocumentArchive::read(folder(QStringLiteral("missing"))), FileError);
    test::writeFile(folder(QStringLiteral("file")), "x");
    EXPECT_THROW(ShotDocumentArchive::read(folder(QStringLiteral("file"))), FileError);
}

} // namespace
} // namespace nubo
