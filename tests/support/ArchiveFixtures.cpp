#include "support/ArchiveFixtures.h"

#include "document/ShotDocumentArchive.h"

#include <QFile>
#include <QJsonDocument>
#include <QtEndian>

#include <gtest/gtest.h>

namespace nubo::test {

QImage patternImage(int width, int height, int seed)
{
    QImage image(width, height, QImage::Format_RGBA8888_Premultiplied);
    for (int y = 0; y < height; ++y) {
        uchar* row = image.scanLine(y);
        for (int x = 0; x < width; ++x) {
            row[4 * x + 0] = uchar(x * 7 + seed);
            row[4 * x + 1] = uchar(y * 13 + seed * 3);
            row[4 * x + 2] = uchar((x ^ y) + seed * 5);
            row[4 * x + 3] = 255;
        }
    }
    return image;
}

ShotDocument documentWithEveryKind()
{
    ShotDocument document = ShotDocument::fromImage(patternImage(64, 48), 1);
    const ShotStyle style({0.2, 0.4, 0.6, 1}, 3, 18, false, 20);
    const auto add = [&](AnnotationKind kind) {
        document.annotations.append(Annotation{QUuid::createUuid(), std::move(kind), style});
    };
    add(ArrowAnnotation{{1, 2}, {30.5, 40.25}});
    add(LineAnnotation{{-3, 4}, {5, -6}});
    add(ShapeAnnotation{ShapeVariant::filledRect, {1, 2, 3, 4}});
    add(ShapeAnnotation{ShapeVariant::ellipse, {10, 10, -5, -6}});
    add(TextAnnotation{
        {QStringLiteral("Zwei\nZeilen \u00e4\u00f6\u00fc \"quoted\""), {4, 5, 60, 20}}});
    add(EmojiAnnotation{QStringLiteral("\U0001F600"), {20, 20, 16, 16}});
    add(CounterAnnotation{{12, 13}});
    add(CounterAnnotation{{22, 23}});
    add(PenAnnotation{{{1, 1}, {2, 3}, {5, 8}}});
    add(PenAnnotation{});
    add(PenAnnotation{{{3, 3}, {40, 3}}, true}); // a marker's stroke
    add(RedactAnnotation{{0, 0, 10, 10}});
    return document;
}

void expectSameDocument(const ShotDocument& expected, const ShotDocument& actual)
{
    ASSERT_EQ(expected.layers.size(), actual.layers.size());
    for (qsizetype i = 0; i < expected.layers.size(); ++i) {
        EXPECT_EQ(expected.layers[i].id, actual.layers[i].id) << "layer " << i;
        EXPECT_EQ(expected.layers[i].frame, actual.layers[i].frame) << "layer " << i;
        EXPECT_EQ(expected.layers[i].image.convertToFormat(QImage::Format_RGBA8888_Premultiplied),
                  actual.layers[i].image)
            << "layer " << i;
        EXPECT_EQ(actual.layers[i].image.format(), QImage::Format_RGBA8888_Premultiplied);
    }
    EXPECT_TRUE(expected.annotations == actual.annotations);
    EXPECT_EQ(expected.crop, actual.crop);
    EXPECT_EQ(expected.frame, actual.frame);
    EXPECT_EQ(expected.canvasBounds, actual.canvasBounds);
}

QJsonObject readManifest(const QString& folder)
{
    QFile file(folder + QStringLiteral("/manifest.json"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll()).object();
}

void writeFile(const QString& path, const QByteArray& data)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate)) << path.toStdString();
    ASSERT_EQ(file.write(data), data.size());
}

QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeManifest(const QString& folder, const QJsonObject& manifest)
{
    writeFile(folder + QStringLiteral("/manifest.json"), QJsonDocument(manifest).toJson());
}

namespace {
quint32 crc32(const QByteArray& data)
{
    quint32 crc = 0xFFFFFFFFu;
    for (const char byte : data) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit) {
            crc = (crc >> 1) ^ (0xEDB88320u & (0u - (crc & 1u)));
        }
    }
    return ~crc;
}

QByteArray chunk(const char* type, const QByteArray& body)
{
    QByteArray out(4, '\0');
    qToBigEndian(quint32(body.size()), out.data());
    const QByteArray typed = QByteArray(type) + body;
    out += typed;
    QByteArray crc(4, '\0');
    qToBigEndian(crc32(typed), crc.data());
    return out + crc;
}
} // namespace

QByteArray pngHeaderClaiming(quint32 width, quint32 height)
{
    QByteArray ihdr(13, '\0');
    qToBigEndian(width, ihdr.data());
    qToBigEndian(height, ihdr.data() + 4);
    ihdr[8] = 8; // bit depth
    ihdr[9] = 6; // RGBA
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + chunk("IHDR", ihdr) + chunk("IDAT", {}) +
           chunk("IEND", {});
}

} // namespace nubo::test
