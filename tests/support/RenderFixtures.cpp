#include "support/RenderFixtures.h"

#include <QDir>
#include <QPainter>

#include <cstdlib>

namespace nubo::test {

ShotDocument markedUpShot()
{
    QImage image(640, 400, QImage::Format_RGBA8888_Premultiplied);
    {
        QPainter p(&image);
        QLinearGradient g(0, 0, 640, 400);
        g.setColorAt(0, QColor(236, 240, 246));
        g.setColorAt(1, QColor(180, 196, 220));
        p.fillRect(image.rect(), g);
        p.setPen(QColor(40, 40, 40));
        for (int y = 20; y < 400; y += 24) {
            p.fillRect(QRect(24, y, 200 + (y * 37) % 300, 10), QColor(90, 100, 120));
        }
    }
    ShotDocument d = ShotDocument::fromImage(image, 2); // 320 × 200 points
    const auto add = [&](AnnotationKind kind, ShotColor color, double lineWidth = 4,
                         double fontSize = 20, double strength = 12) {
        d.annotations.append(Annotation{QUuid::createUuid(), std::move(kind),
                                        ShotStyle(color, lineWidth, fontSize, true, strength)});
    };
    const ShotColor red{0.93, 0.2, 0.2, 1}, blue{0.15, 0.4, 0.95, 1}, yellow{1, 0.85, 0.1, 1},
        white{1, 1, 1, 1}, green{0.1, 0.7, 0.3, 1};
    add(ArrowAnnotation{{30, 170}, {120, 110}}, red, 4);
    add(RedactAnnotation{{60, 60, 80, 30}}, red, 4, 20, 8);
    add(LineAnnotation{{20, 190}, {300, 190}}, blue, 2);
    add(ShapeAnnotation{ShapeVariant::rect, {140, 80, 80, 50}}, green, 3);
    add(ShapeAnnotation{ShapeVariant::filledRect, {240, 140, 60, 30}}, yellow);
    add(ShapeAnnotation{ShapeVariant::ellipse, {20, 20, 90, 50}}, blue, 3);
    add(CounterAnnotation{{160, 40}}, red, 4, 14);
    add(CounterAnnotation{{180, 60}}, blue, 4, 14);
    add(PenAnnotation{{{230, 90}, {240, 100}, {255, 96}, {270, 110}, {285, 104}}}, red, 3);
    add(PenAnnotation{{{300, 80}}}, green, 8);
    add(EmojiAnnotation{QStringLiteral("\U0001F600"), {270, 60, 28, 28}}, white);
    add(TextAnnotation{{QStringLiteral("Click here,\nthen wait"), {40, 120, 120, 60}}}, white, 4,
        16);
    add(CounterAnnotation{{205, 165}}, green, 4, 30);
    return d;
}

void saveArtifact(const QImage& image, const QString& name)
{
    const QString dir = qEnvironmentVariable("NUBOSHOT_TEST_ARTIFACTS");
    if (dir.isEmpty() || !QDir().mkpath(dir)) {
        return;
    }
    // Pictures of a run at another scale keep their own names: "x@2x.png".
    const QString factor = qEnvironmentVariable("QT_SCALE_FACTOR");
    QString file = name;
    if (!factor.isEmpty() && factor != QLatin1String("1") && !name.contains(u'@')) {
        file.insert(file.lastIndexOf(u'.'), QStringLiteral("@%1x").arg(factor));
    }
    image.save(dir + QLatin1Char('/') + file);
}

ImageDifference compareImages(const QImage& a, const QImage& b, int tolerance)
{
    ImageDifference difference;
    const QImage x = a.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    const QImage y = b.convertToFormat(QImage::Format_RGBA8888_Premultiplied);
    if (x.size() != y.size()) {
        difference.maximum = 255;
        difference.pixelsOver = qsizetype(x.width()) * x.height();
        return difference;
    }
    for (int row = 0; row < x.height(); ++row) {
        const uchar* p = x.constScanLine(row);
        const uchar* q = y.constScanLine(row);
        for (int col = 0; col < x.width(); ++col) {
            int worst = 0;
            for (int c = 0; c < 4; ++c) {
                worst = std::max(worst, std::abs(p[4 * col + c] - q[4 * col + c]));
            }
            difference.maximum = std::max(difference.maximum, worst);
            difference.pixelsOver += worst > tolerance;
        }
    }
    return difference;
}

} // namespace nubo::test
