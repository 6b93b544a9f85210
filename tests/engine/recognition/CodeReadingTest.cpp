// QR codes and barcodes made here by ZXing-C++'s writer, drawn as a screen
// shows them (several sizes, turned, inverted, on a busy ground), read back.

#include "recognition/CodeReading.h"

#include <QPainter>
#include <QTransform>

#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>

#include <gtest/gtest.h>

namespace nubo {
namespace {

QImage drawn(ZXing::BarcodeFormat format, const std::string& text, int module)
{
    const ZXing::BitMatrix matrix = ZXing::MultiFormatWriter(format).setMargin(0).encode(text, 0, 0);
    const int height = matrix.height() == 1 ? 60 : matrix.height(); // barcodes: one row, drawn tall
    QImage image((matrix.width() + 8) * module, (height + 8) * module, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < matrix.width(); ++x) {
            if (matrix.get(x, matrix.height() == 1 ? 0 : y)) {
                painter.fillRect((x + 4) * module, (y + 4) * module, module, module, Qt::black);
            }
        }
    }
    return image;
}

// A screen around the code: stripes, text and colour.
QImage onABusyGround(const QImage& code)
{
    QImage screen(code.width() + 400, code.height() + 300, QImage::Format_RGB32);
    QPainter painter(&screen);
    for (int y = 0; y < screen.height(); y += 12) {
        painter.fillRect(0, y, screen.width(), 6, QColor::fromHsv((y * 7) % 360, 120, 220));
    }
    painter.setPen(Qt::black);
    for (int y = 20; y < screen.height(); y += 24) {
        painter.drawText(10, y, QStringLiteral("Lorem ipsum dolor sit amet, 12345 67890"));
    }
    painter.drawImage(200, 150, code);
    return screen;
}

TEST(CodeReading, CodesAreReadWhereverAndHoweverTheyShow)
{
    const std::string link = "https://example.com/docs?page=42&lang=en";
    struct Case {
        const char* what;
        ZXing::BarcodeFormat format;
        std::string text;
        int module;
        int turned; // degrees
        bool inverted;
        bool busy;
        const char* formatName;
    };
    const Case cases[] = {
        {"small QR", ZXing::BarcodeFormat::QRCode, link, 2, 0, false, false, "QRCode"},
        {"large QR", ZXing::BarcodeFormat::QRCode, link, 8, 0, false, false, "QRCode"},
        {"QR turned a quarter", ZXing::BarcodeFormat::QRCode, link, 4, 90, false, false, "QRCode"},
        {"QR turned 30°", ZXing::BarcodeFormat::QRCode, link, 5, 30, false, false, "QRCode"},
        {"QR light on dark", ZXing::BarcodeFormat::QRCode, link, 4, 0, true, false, "QRCode"},
        {"QR on a busy screen", ZXing::BarcodeFormat::QRCode, "WIFI:S:Guest;T:WPA;P:s3cret;;", 3, 0, false,
         true, "QRCode"},
        {"Code 128", ZXing::BarcodeFormat::Code128, "NUBO-2026-0042", 2, 0, false, true, "Code128"},
        {"EAN-13", ZXing::BarcodeFormat::EAN13, "4006381333931", 3, 0, false, false, "EAN-13"},
    };
    for (const Case& c : cases) {
        QImage image = drawn(c.format, c.text, c.module);
        if (c.turned != 0) {
            image = image.transformed(QTransform().rotate(c.turned), Qt::SmoothTransformation);
            QImage ground(image.size(), QImage::Format_RGB32);
            ground.fill(Qt::white);
            QPainter(&ground).drawImage(0, 0, image);
            image = ground;
        }
        if (c.busy) {
            image = onABusyGround(image);
        }
        if (c.inverted) {
            image.invertPixels();
        }
        const QList<ReadCode> codes = readCodes(image);
        ASSERT_EQ(codes.size(), 1) << c.what;
        EXPECT_EQ(codes[0].text.toStdString(), c.text) << c.what;
        EXPECT_EQ(codes[0].format, QLatin1String(c.formatName)) << c.what;
        EXPECT_TRUE(QRect(QPoint(), image.size()).contains(codes[0].corners.boundingRect())) << c.what;
    }
}

TEST(CodeReading, OnlyWebAddressesAreLinks)
{
    const struct {
        const char* text;
        bool link;
    } cases[] = {
        {"https://example.com/a?b=c", true}, {"http://localhost:8080/", true},
        {"javascript:alert(1)", false},      {"file:///etc/passwd", false},
        {"WIFI:S:Guest;T:WPA;P:x;;", false}, {"https://", false},
        {"example.com", false},
    };
    for (const auto& c : cases) {
        const ReadCode code{QString::fromLatin1(c.text), {}, {}};
        EXPECT_EQ(code.isLink(), c.link) << c.text;
    }
}

TEST(CodeReading, APictureWithoutCodesHasNone)
{
    QImage image(640, 480, QImage::Format_RGB32);
    image.fill(QColor(0x33, 0x66, 0x99));
    EXPECT_TRUE(readCodes(image).isEmpty());
    EXPECT_TRUE(readCodes(QImage()).isEmpty());
}

} // namespace
} // namespace nubo
