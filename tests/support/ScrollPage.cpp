// A real scrollable X window for the scrolling-capture tests: a sticky
// header and footer around a tall page of text and coloured blocks that
// scrolls with the wheel (60 pixels a notch) and the keys (Down, Up, Page
// Down, Page Up, Space, Home, End). It can also render its whole content,
// header and footer included, so the tests know the truth. It prints
// "ready X Y" (its top-left corner on screen) once it is shown.
//
//   test-scroll-page --at 600x500+300+200 --pages 4 [--truth FILE.png] [--autoscroll PX]
//
// With --truth the whole page is written to FILE.png before the window opens;
// with --autoscroll it scrolls PX pixels every 16 ms by itself, back to the
// top at the end (moving content for the recording benchmarks).

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTimer>
#include <QWheelEvent>
#include <QWidget>

#include <cstdio>

namespace {

constexpr int headerHeight = 48;
constexpr int footerHeight = 26;
constexpr int notch = 60; // pixels a wheel notch scrolls

const QStringList words = {
    "stitch", "frame",  "scroll", "pixel",  "header", "footer",  "window", "capture",
    "area",   "offset", "row",    "column", "hash",   "verify",  "limit",  "display",
    "editor", "shot",   "layer",  "arrow",  "text",   "counter", "blur",   "export"};

// The page: lines of text in a few sizes, with blocks of colour between
// them, never the same twice (a fixed seed: the same page on every run).
QImage makeContent(int width, int height)
{
    QImage page(width, height, QImage::Format_RGB32);
    page.fill(QColor(252, 252, 250));
    QPainter p(&page);
    p.setRenderHint(QPainter::TextAntialiasing);
    QRandomGenerator random(20261123);
    int y = 12;
    int line = 1;
    while (y < height) {
        if (random.bounded(7) == 0) {
            const int h = 30 + int(random.bounded(50));
            const QColor color = QColor::fromHsv(int(random.bounded(360)), 90, 230);
            p.fillRect(QRect(16, y, width - 32 - int(random.bounded(120)), h), color);
            p.setPen(Qt::black);
            p.drawText(QRect(24, y, width - 48, h), Qt::AlignVCenter,
                       QStringLiteral("Block %1").arg(line));
            y += h + 10;
        } else {
            QFont font = p.font();
            font.setPixelSize(12 + int(random.bounded(5)));
            p.setFont(font);
            QString text = QStringLiteral("%1. ").arg(line);
            const int count = 3 + int(random.bounded(9));
            for (int i = 0; i < count; ++i) {
                text += words[int(random.bounded(qsizetype(words.size())))] + QLatin1Char(' ');
            }
            p.setPen(QColor(30, 30, 40));
            p.drawText(QPoint(20 + int(random.bounded(40)), y + font.pixelSize()), text);
            y += font.pixelSize() + 8;
        }
        ++line;
    }
    return page;
}

class ScrollPage : public QWidget {
public:
    ScrollPage(int width, int height, int pages)
        : m_content(makeContent(width, (height - headerHeight - footerHeight) * pages))
    {
        setFixedSize(width, height);
        setWindowTitle(QStringLiteral("Scroll Page"));
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

    // Header, the whole content, footer: what a perfect scrolling capture
    // of this window gives.
    QImage whole() const
    {
        QImage image(width(), headerHeight + m_content.height() + footerHeight,
                     QImage::Format_RGB32);
        QPainter p(&image);
        paintHeader(p);
        p.drawImage(0, headerHeight, m_content);
        p.translate(0, headerHeight + m_content.height() - (height() - footerHeight));
        paintFooter(p);
        return image;
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.drawImage(QRect(0, headerHeight, width(), viewport()),
                    m_content, QRect(0, m_offset, width(), viewport()));
        paintHeader(p);
        paintFooter(p);
    }

    void wheelEvent(QWheelEvent* event) override
    {
        scrollBy(-event->angleDelta().y() / 120 * notch);
    }

    void keyPressEvent(QKeyEvent* event) override
    {
        switch (event->key()) {
        case Qt::Key_Down:
            scrollBy(20);
            break;
        case Qt::Key_Up:
            scrollBy(-20);
            break;
        case Qt::Key_PageDown:
        case Qt::Key_Space:
            scrollBy(viewport() - 40);
            break;
        case Qt::Key_PageUp:
            scrollBy(40 - viewport());
            break;
        case Qt::Key_Home:
            scrollBy(-m_content.height());
            break;
        case Qt::Key_End:
            scrollBy(m_content.height());
            break;
        default:
            QWidget::keyPressEvent(event);
        }
    }

public:
    void autoscroll(int pixels)
    {
        auto* timer = new QTimer(this);
        timer->setTimerType(Qt::PreciseTimer);
        connect(timer, &QTimer::timeout, this, [this, pixels] {
            if (m_offset + viewport() >= m_content.height()) {
                scrollBy(-m_content.height());
            } else {
                scrollBy(pixels);
            }
        });
        timer->start(16);
    }

private:
    int viewport() const { return height() - headerHeight - footerHeight; }

    void scrollBy(int pixels)
    {
        const int next = std::clamp(m_offset + pixels, 0, m_content.height() - viewport());
        if (next != m_offset) {
            m_offset = next;
            repaint(); // at once: what is on screen is always where we are
        }
    }

    void paintHeader(QPainter& p) const
    {
        p.fillRect(QRect(0, 0, width(), headerHeight), QColor(38, 50, 72));
        p.setPen(Qt::white);
        QFont font = p.font();
        font.setPixelSize(16);
        font.setBold(true);
        p.setFont(font);
        p.drawText(QRect(16, 0, width() - 32, headerHeight), Qt::AlignVCenter,
                   QStringLiteral("Sticky header \u2014 Nubo Shot test page"));
    }

    void paintFooter(QPainter& p) const
    {
        const int top = height() - footerHeight;
        p.fillRect(QRect(0, top, width(), footerHeight), QColor(225, 228, 235));
        p.setPen(QColor(60, 60, 70));
        QFont font = p.font();
        font.setPixelSize(12);
        font.setBold(false);
        p.setFont(font);
        p.drawText(QRect(12, top, width() - 24, footerHeight), Qt::AlignVCenter,
                   QStringLiteral("Sticky footer \u00b7 status bar"));
    }

    QImage m_content;
    int m_offset = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    const auto option = [&](const QString& name) {
        const qsizetype at = arguments.indexOf(name);
        return at >= 0 && at + 1 < arguments.size() ? arguments[at + 1] : QString();
    };
    const auto geometry = QRegularExpression(QStringLiteral("^(\\d+)x(\\d+)\\+(\\d+)\\+(\\d+)$"))
                              .match(option(QStringLiteral("--at")));
    if (!geometry.hasMatch()) {
        std::fprintf(stderr, "usage: test-scroll-page --at WxH+X+Y --pages N [--truth FILE]\n");
        return 2;
    }
    const int pages = std::max(1, option(QStringLiteral("--pages")).toInt());
    ScrollPage page(geometry.captured(1).toInt(), geometry.captured(2).toInt(), pages);
    const QString truth = option(QStringLiteral("--truth"));
    if (!truth.isEmpty() && !page.whole().save(truth)) {
        std::fprintf(stderr, "cannot write %s\n", qPrintable(truth));
        return 1;
    }
    if (const int pixels = option(QStringLiteral("--autoscroll")).toInt(); pixels > 0) {
        page.autoscroll(pixels);
    }
    page.setWindowFlag(Qt::FramelessWindowHint);
    page.move(geometry.captured(3).toInt(), geometry.captured(4).toInt());
    page.show();
    QTimer::singleShot(300, &page, [&page] {
        const QPoint at = page.mapToGlobal(QPoint(0, 0));
        std::printf("ready %d %d\n", at.x(), at.y());
        std::fflush(stdout);
    });
    return app.exec();
}
