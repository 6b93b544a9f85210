// A window that paints its own frame counter (12 black and white blocks)
// on every repaint, as fast as the screen takes it, for the recording
// tests: a movie of it shows which paints it caught, in order.
//
//   test-counter-window --at WxH+X+Y [--still] [--fill]
//
// With --fill the window takes whatever size the window manager gives it (a
// Wayland compositor places and sizes windows itself).
// Prints "ready X Y ID" once its first picture is on the screen. With
// --still it paints once and stays.

#include <QApplication>
#include <QPainter>
#include <QRegularExpression>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

constexpr int block = 24;

class CounterWindow : public QWidget {
public:
    explicit CounterWindow(bool still) : m_still(still)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        if (!still) {
            auto* timer = new QTimer(this);
            timer->setTimerType(Qt::PreciseTimer);
            connect(timer, &QTimer::timeout, this, [this] { repaint(); });
            timer->start(8);
        }
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter p(this);
        p.fillRect(rect(), QColor(40, 90, 160));
        for (int bit = 0; bit < 12; ++bit) {
            p.fillRect(16 + bit * block, 16, block, block,
                       m_counter >> bit & 1 ? Qt::white : Qt::black);
        }
        if (m_counter++ == 0) {
            // Told once the painted picture has gone to the server.
            QTimer::singleShot(0, this, [this] {
                const QPoint p = mapToGlobal(QPoint(0, 0));
                std::printf("ready %d %d %llu\n", p.x(), p.y(),
                            static_cast<unsigned long long>(winId()));
                std::fflush(stdout);
            });
        }
    }

private:
    bool m_still;
    int m_counter = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    const qsizetype at = arguments.indexOf(QStringLiteral("--at"));
    const auto geometry = QRegularExpression(QStringLiteral("^(\\d+)x(\\d+)\\+(\\d+)\\+(\\d+)$"))
                              .match(at >= 0 ? arguments.value(at + 1) : QString());
    if (!geometry.hasMatch()) {
        std::fprintf(stderr, "usage: test-counter-window --at WxH+X+Y [--still] [--fill]\n");
        return 2;
    }
    CounterWindow window(arguments.contains(QStringLiteral("--still")));
    window.setWindowFlag(Qt::FramelessWindowHint);
    const QSize size(geometry.captured(1).toInt(), geometry.captured(2).toInt());
    if (arguments.contains(QStringLiteral("--fill"))) {
        window.resize(size);
    } else {
        window.setFixedSize(size);
    }
    window.move(geometry.captured(3).toInt(), geometry.captured(4).toInt());
    window.show();
    return app.exec();
}
