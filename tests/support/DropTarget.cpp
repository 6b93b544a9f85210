// A real X client that accepts dropped files, as a file manager does: each
// dropped file is copied into the folder given on the command line, and its
// new path and the source's are printed on a line of their own, tab between.
// Prints "ready" once it is mapped.
//
//   test-drop-target FOLDER --geometry 300x200+1200+100

#include <QApplication>
#include <QDir>
#include <QDragEnterEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QRegularExpression>
#include <QTimer>
#include <QWidget>

#include <cstdio>

namespace {

class DropTarget : public QWidget {
public:
    explicit DropTarget(QString folder) : m_folder(std::move(folder))
    {
        setAcceptDrops(true);
        setWindowTitle(QStringLiteral("Drop Target"));
    }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override
    {
        if (event->mimeData()->hasUrls()) {
            event->acceptProposedAction();
        }
    }
    void dragMoveEvent(QDragMoveEvent* event) override { event->acceptProposedAction(); }
    void dropEvent(QDropEvent* event) override
    {
        for (const QUrl& url : event->mimeData()->urls()) {
            const QFileInfo source(url.toLocalFile());
            const QString target = QDir(m_folder).filePath(
                QStringLiteral("%1-%2").arg(++m_drops).arg(source.fileName()));
            if (QFile::copy(source.filePath(), target)) {
                std::printf("%s\t%s\n", qPrintable(target), qPrintable(source.filePath()));
                std::fflush(stdout);
            }
        }
        event->setDropAction(Qt::CopyAction);
        event->accept();
    }

private:
    QString m_folder;
    int m_drops = 0;
};

} // namespace

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = app.arguments();
    if (arguments.size() < 2) {
        std::fprintf(stderr, "usage: test-drop-target FOLDER [--geometry WxH+X+Y]\n");
        return 2;
    }
    DropTarget target(arguments[1]);
    QRect geometry(1200, 100, 300, 200);
    const qsizetype at = arguments.indexOf(QStringLiteral("--geometry"));
    if (at > 0 && at + 1 < arguments.size()) {
        const QStringList parts =
            arguments[at + 1].split(QRegularExpression(QStringLiteral("[x+]")));
        if (parts.size() == 4) {
            geometry =
                QRect(parts[2].toInt(), parts[3].toInt(), parts[0].toInt(), parts[1].toInt());
        }
    }
    target.setGeometry(geometry);
    target.show();
    QTimer::singleShot(200, [] {
        std::printf("ready\n");
        std::fflush(stdout);
    });
    return app.exec();
}
