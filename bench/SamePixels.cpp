// Compares the pixels of screenshots written by different tools:
//   same-pixels A.png B.png...   prints, for each further file, how many
// pixels differ from A's (0 when they show the same screen), and exits 1 when
// a file cannot be read or has another size.

#include <QGuiApplication>
#include <QImage>
#include <QImageReader>

#include <cstdio>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc < 3) {
        std::fprintf(stderr, "usage: same-pixels A.png B.png...\n");
        return 2;
    }
    QImageReader::setAllocationLimit(1024);
    const QImage first =
        QImage(QString::fromLocal8Bit(argv[1])).convertToFormat(QImage::Format_RGB32);
    if (first.isNull()) {
        std::fprintf(stderr, "same-pixels: cannot read %s\n", argv[1]);
        return 1;
    }
    int status = 0;
    for (int i = 2; i < argc; ++i) {
        const QImage other =
            QImage(QString::fromLocal8Bit(argv[i])).convertToFormat(QImage::Format_RGB32);
        if (other.size() != first.size()) {
            std::printf("%s: %s\n", argv[i], other.isNull() ? "unreadable" : "another size");
            status = 1;
            continue;
        }
        long long differing = 0;
        for (int y = 0; y < first.height(); ++y) {
            const auto* a = reinterpret_cast<const quint32*>(first.constScanLine(y));
            const auto* b = reinterpret_cast<const quint32*>(other.constScanLine(y));
            for (int x = 0; x < first.width(); ++x) {
                differing += (a[x] & 0xFFFFFF) != (b[x] & 0xFFFFFF);
            }
        }
        std::printf("%s: %lld pixels differ\n", argv[i], differing);
    }
    return status;
}
