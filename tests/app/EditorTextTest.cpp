// The text and codes an editor reads in its shot, driven with real keys and
// clicks: code chips, words chosen with Select text, Copy Text, and Hide
// Sensitive Text, whose redactions are checked on the exported picture.

#include "support/EditorFixture.h"
#include "support/ModalAnswer.h"
#include "support/RenderFixtures.h"
#include "support/TextMeasures.h"

#include "editor/ShotCanvas.h"
#include "editor/ShotEditorModel.h"
#include "text/ShotTextLayer.h"

#include <QClipboard>
#include <QDialog>
#include <QFontMetrics>
#include <QFrame>
#include <QListWidget>
#include <QPainter>
#include <QToolButton>

#include <ZXing/BitMatrix.h>
#include <ZXing/MultiFormatWriter.h>

namespace nubo {
namespace {

using test::xdotool;

// Lines of text drawn at known places, dark on light, as a page shows them.
struct Page {
    QImage image;
    QFont font;
    QList<QString> lines;
    static constexpr int left = 40, top = 40, step = 30;

    // Where a part of a line is drawn, in the picture's pixels.
    QRect placeOf(int line, const QString& part) const
    {
        const QFontMetrics metrics(font);
        const int at = int(lines[line].indexOf(part));
        return QRect(left + metrics.horizontalAdvance(lines[line].left(at)), top + line * step,
                     metrics.horizontalAdvance(part), metrics.height());
    }
};

Page drawPage(const QList<QString>& lines, QSize size)
{
    Page page{QImage(size, QImage::Format_RGB32), QFont(QStringLiteral("DejaVu Sans")), lines};
    page.font.setPixelSize(20);
    page.image.fill(QColor(250, 250, 248));
    QPainter painter(&page.image);
    painter.setFont(page.font);
    painter.setPen(QColor(30, 30, 30));
    const QFontMetrics metrics(page.font);
    for (int i = 0; i < lines.size(); ++i) {
        painter.drawText(Page::left, Page::top + i * Page::step + metrics.ascent(), lines[i]);
    }
    return page;
}

void drawQrCode(QImage& image, const std::string& text, QPoint at, int module)
{
    const ZXing::BitMatrix matrix =
        ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode).setMargin(0).encode(text, 0, 0);
    QPainter painter(&image);
    painter.fillRect(QRect(at, QSize(matrix.width() + 8, matrix.height() + 8) * module), Qt::white);
    for (int y = 0; y < matrix.height(); ++y) {
        for (int x = 0; x < matrix.width(); ++x) {
            if (matrix.get(x, y)) {
                painter.fillRect(at.x() + (x + 4) * module, at.y() + (y + 4) * module, module, module,
                                 Qt::black);
            }
        }
    }
}

class EditorText : public test::EditorFixture {
protected:
    // Handles events until `done` holds; false after the deadline.
    static bool waitFor(const std::function<bool()>& done, int timeoutMs = 15000)
    {
        const QDeadlineTimer deadline(timeoutMs);
        while (!done() && !deadline.hasExpired()) {
            QApplication::processEvents();
            QThread::msleep(10);
        }
        return done();
    }

    // A real click on a widget's middle.
    static void click(QWidget& widget)
    {
        const QPoint centre = widget.mapToGlobal(widget.rect().center()) * widget.devicePixelRatioF();
        xdotool({"mousemove", QString::number(centre.x()), QString::number(centre.y()), "click", "1"});
    }

    // Where a rectangle of the shot's pixels is on the screen, in the X
    // server's pixels (which the pointer moves in, at any scale).
    QRect onScreen(const QRect& pixels)
    {
        ShotCanvas& canvas = m_window->canvas();
        const QRectF widget = canvas.toWidget(m_window->textLayer().toDocument(pixels));
        const double ratio = canvas.devicePixelRatioF();
        return QRect(canvas.mapToGlobal(widget.topLeft().toPoint()) * ratio, widget.size().toSize() * ratio);
    }
};

TEST_F(EditorText, CodesOfferCopyAndWordsAreChosenAndCopied)
{
    Page page = drawPage({QStringLiteral("Release notes for the spring update"),
                          QStringLiteral("Faster captures and a cleaner editor"),
                          QStringLiteral("Scan the code to read more")},
                         QSize(820, 420));
    drawQrCode(page.image, "https://example.org/nubo/spring", QPoint(560, 170), 5);
    ShotEditorWindow& window = openEditor(page.image, 1);
    ShotTextLayer& layer = window.textLayer();

    // The code is found as the editor opens; its chip copies it, and offers
    // the link without opening it.
    ASSERT_TRUE(waitFor([&] { return layer.codesRead(); })) << "no codes read";
    QFrame* chip = window.findChild<QFrame*>(QStringLiteral("codeChip"));
    ASSERT_NE(chip, nullptr) << "no chip over the code";
    EXPECT_TRUE(chip->isVisible());
    ASSERT_NE(chip->findChild<QToolButton*>(QStringLiteral("code.open")), nullptr);
    EXPECT_EQ(layer.state(), ShotTextLayer::State::unread) << "text read before anybody asked";
    QApplication::clipboard()->clear();
    click(*chip->findChild<QToolButton*>(QStringLiteral("code.copy")));
    EXPECT_TRUE(waitFor([] {
        return QApplication::clipboard()->text() == QLatin1String("https://example.org/nubo/spring");
    })) << QApplication::clipboard()->text().toStdString();

    // X picks Select text; a drag across the second line chooses its words.
    xdotool({"key", "x"});
    ASSERT_TRUE(waitFor([&] { return layer.state() == ShotTextLayer::State::read; }));
    const QRect second = onScreen(page.placeOf(1, page.lines[1]));
    xdotool({"mousemove", QString::number(second.left() - 6), QString::number(second.center().y()),
             "mousedown", "1", "mousemove", QString::number(second.center().x()),
             QString::number(second.center().y()), "mousemove", QString::number(second.right() + 6),
             QString::number(second.center().y() + 2), "mouseup", "1"});
    ASSERT_TRUE(waitFor([&] { return layer.selectedWordCount() == 6; }))
        << layer.selectedWordCount() << " words chosen";
    test::saveArtifact(window.grab().toImage(), QStringLiteral("editor-select-text.png"));
    xdotool({"key", "ctrl+c"});
    EXPECT_TRUE(waitFor([&] { return QApplication::clipboard()->text() == page.lines[1]; }))
        << QApplication::clipboard()->text().toStdString();

    // A double click chooses a whole line, a click one word alone.
    const QRect word = onScreen(page.placeOf(0, QStringLiteral("notes")));
    xdotool({"mousemove", QString::number(word.center().x()), QString::number(word.center().y()),
             "click", "--repeat", "2", "1"});
    EXPECT_TRUE(waitFor([&] { return layer.selectedText() == page.lines[0]; }))
        << layer.selectedText().toStdString();
    const QRect other = onScreen(page.placeOf(2, QStringLiteral("code")));
    xdotool({"mousemove", QString::number(other.center().x()), QString::number(other.center().y()),
             "click", "1"});
    EXPECT_TRUE(waitFor([&] { return layer.selectedText() == QLatin1String("code"); }))
        << layer.selectedText().toStdString();

    // Nothing chosen: Copy Text takes the whole text, its lines kept.
    const QRect empty = onScreen(QRect(700, 40, 20, 20)); // right of the first line
    xdotool({"mousemove", QString::number(empty.center().x()), QString::number(empty.center().y()),
             "click", "1"});
    ASSERT_TRUE(waitFor([&] { return layer.selectedWordCount() == 0; }));
    xdotool({"key", "ctrl+shift+c"});
    // The code's modules are not taken for letters.
    const QString whole = page.lines.join(u'\n');
    EXPECT_TRUE(waitFor([&] {
        return test::characterErrorRate(QApplication::clipboard()->text(), whole) <= 0.02;
    })) << QApplication::clipboard()->text().toStdString();
    EXPECT_FALSE(window.model().canUndo()) << "reading the text changed the shot";
}

TEST_F(EditorText, HideSensitiveTextPixelatesTheTickedSecretsInOneStep)
{
    const Page page = drawPage({QStringLiteral("Write to jane.doe@example.org today"),
                                QStringLiteral("The server at 192.168.20.31 answers"),
                                QStringLiteral("Nothing to hide in this line"),
                                QStringLiteral("export API_TOKEN=Zx81kQ0pLm2vR7tYbW4"),
                                QStringLiteral("Call +49 30 1234 5678 after nine")},
                               QSize(760, 280));
    ShotEditorWindow& window = openEditor(page.image, 1);
    window.textLayer().whenRead([] {}); // as the Select text tool would
    ASSERT_TRUE(waitFor([&] { return window.textLayer().state() == ShotTextLayer::State::read; }));

    // The list offers all four; the address is kept readable.
    QStringList offered;
    test::ModalAnswer answer([&](QDialog& dialog) {
        auto* list = dialog.findChild<QListWidget*>();
        ASSERT_NE(list, nullptr);
        for (int i = 0; i < list->count(); ++i) {
            offered << list->item(i)->text();
            if (list->item(i)->text().contains(QLatin1String("192.168.20.31"))) {
                list->item(i)->setCheckState(Qt::Unchecked);
            }
        }
        dialog.accept();
    });
    xdotool({"key", "ctrl+shift+h"});
    ASSERT_TRUE(waitFor([&] { return answer.answered(); }))
        << "no list of what to hide: " << window.lastNotice().toStdString();
    EXPECT_EQ(offered.size(), 4) << offered.join(u'\n').toStdString();

    ASSERT_TRUE(waitFor([&] { return window.model().canUndo(); }));
    const ShotDocument hidden = window.model().document();
    QList<QRectF> redactions;
    for (const Annotation& annotation : hidden.annotations) {
        if (const auto* redact = annotation.as<RedactAnnotation>()) {
            redactions << redact->rect;
        }
    }
    EXPECT_EQ(redactions.size(), 3);
    const QImage exported = m_renderer.render(hidden, 1).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(exported.size(), page.image.size());
    test::saveArtifact(exported, QStringLiteral("editor-hidden-secrets.png"));
    // Every dark pixel of a secret lies under a redaction and is changed in
    // the export; what is kept or not secret is left pixel for pixel.
    const auto check = [&](int line, const QString& part, bool secret) {
        SCOPED_TRACE(part.toStdString());
        const QRect place = page.placeOf(line, part);
        int ink = 0, bare = 0, kept = 0;
        for (int y = place.top(); y <= place.bottom(); ++y) {
            for (int x = place.left(); x <= place.right(); ++x) {
                if (qGray(page.image.pixel(x, y)) > 160) {
                    continue;
                }
                ++ink;
                const bool covered = std::any_of(redactions.begin(), redactions.end(), [&](const QRectF& r) {
                    return r.contains(QPointF(x + 0.5, y + 0.5));
                });
                bare += covered ? 0 : 1;
                kept += exported.pixel(x, y) == page.image.pixel(x, y) ? 1 : 0;
            }
        }
        ASSERT_GT(ink, 20);
        if (secret) {
            EXPECT_EQ(bare, 0) << "pixels of the secret left bare";
            EXPECT_LT(kept, ink / 10) << "the secret is still drawn as it was";
        } else {
            EXPECT_EQ(kept, ink) << "readable text was changed";
        }
    };
    check(0, QStringLiteral("jane.doe@example.org"), true);
    check(3, QStringLiteral("Zx81kQ0pLm2vR7tYbW4"), true);
    check(4, QStringLiteral("+49 30 1234 5678"), true);
    check(1, QStringLiteral("192.168.20.31"), false);
    check(2, page.lines[2], false);
    check(3, QStringLiteral("export"), false);

    // One step: a single undo takes every redaction away.
    xdotool({"key", "ctrl+z"});
    EXPECT_TRUE(waitFor([&] { return window.model().document().annotations.isEmpty(); }));
}

} // namespace
} // namespace nubo
