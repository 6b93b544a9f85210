// Another application's clipboard for the recents tests: owns the
// clipboard with the given types and stays until it loses it or is killed.
// Prints "ready" once it owns the clipboard.
//
//   clip-owner [--data MIME FILE]... [--text MIME TEXT]...

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include <cstdio>

int main(int argc, char** argv)
{
    QGuiApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    auto* content = new QMimeData;
    for (qsizetype i = 1; i + 2 < arguments.size(); i += 3) {
        const QString& kind = arguments[i];
        const QString& mime = arguments[i + 1];
        const QString& value = arguments[i + 2];
        if (kind == QLatin1String("--data")) {
            QFile file(value);
            if (!file.open(QIODevice::ReadOnly)) {
                std::fprintf(stderr, "cannot read %s\n", qPrintable(value));
                return 1;
            }
            content->setData(mime, file.readAll());
        } else if (kind == QLatin1String("--text")) {
            content->setData(mime, value.toUtf8());
        } else {
            std::fprintf(stderr, "usage: clip-owner [--data MIME FILE]... [--text MIME TEXT]...\n");
            return 2;
        }
    }
    QClipboard* clipboard = QGuiApplication::clipboard();
    clipboard->setMimeData(content, QClipboard::Clipboard);
    QObject::connect(clipboard, &QClipboard::dataChanged, &app, [clipboard] {
        if (!clipboard->ownsClipboard()) {
            QCoreApplication::quit(); // someone else copied
        }
    });
    QTimer::singleShot(100, [] {
        std::printf("ready\n");
        std::fflush(stdout);
    });
    return app.exec();
}
