#include "support/FilebinServer.h"

#include <QMutex>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <QThread>

#include <atomic>

namespace nubo::test {

struct FilebinServer::Impl {
    QThread thread;
    QObject* context = nullptr; // lives on the thread
    QTcpServer* server = nullptr;
    quint16 port = 0;
    std::atomic<Mode> mode{Mode::created};
    mutable QMutex mutex;
    QList<Received> received;
};

namespace {

QByteArray answer(int status, const char* reason, const QByteArray& body)
{
    return "HTTP/1.1 " + QByteArray::number(status) + ' ' + reason +
           "\r\nContent-Type: application/json\r\nContent-Length: " +
           QByteArray::number(body.size()) + "\r\nConnection: close\r\n\r\n" + body;
}

} // namespace

FilebinServer::FilebinServer() : m(std::make_unique<Impl>())
{
    m->thread.setObjectName(QStringLiteral("filebin-server"));
    m->context = new QObject;
    m->context->moveToThread(&m->thread);
    m->thread.start();
    QSemaphore ready;
    QMetaObject::invokeMethod(
        m->context,
        [this, &ready] {
            m->server = new QTcpServer;
            m->server->listen(QHostAddress::LocalHost, 0);
            m->port = m->server->serverPort();
            QObject::connect(m->server, &QTcpServer::newConnection, m->server, [this] {
                while (QTcpSocket* socket = m->server->nextPendingConnection()) {
                    auto* buffer = new QByteArray;
                    QObject::connect(socket, &QTcpSocket::disconnected, socket, [socket, buffer] {
                        delete buffer;
                        socket->deleteLater();
                    });
                    QObject::connect(socket, &QTcpSocket::readyRead, socket, [this, socket, buffer] {
                        buffer->append(socket->readAll());
                        const qsizetype end = buffer->indexOf("\r\n\r\n");
                        if (end < 0) {
                            return;
                        }
                        const QList<QByteArray> lines = buffer->left(end).split('\n');
                        const QList<QByteArray> start = lines.first().trimmed().split(' ');
                        qsizetype length = 0;
                        QByteArray type;
                        for (const QByteArray& line : lines.mid(1)) {
                            const qsizetype colon = line.indexOf(':');
                            const QByteArray name = line.left(colon).trimmed().toLower();
                            if (name == "content-length") {
                                length = line.mid(colon + 1).trimmed().toLongLong();
                            } else if (name == "content-type") {
                                type = line.mid(colon + 1).trimmed();
                            }
                        }
                        if (buffer->size() < end + 4 + length || start.size() < 2) {
                            return; // more of the body to come
                        }
                        Received r{start[0], start[1], type, buffer->mid(end + 4, length)};
                        {
                            QMutexLocker lock(&m->mutex);
                            m->received.append(r);
                        }
                        buffer->clear();
                        const QList<QByteArray> parts = r.path.split('/');
                        const QByteArray bin = parts.value(1), file = parts.value(2);
                        switch (m->mode.load()) {
                        case Mode::created:
                            if (r.method == "DELETE") {
                                socket->write(answer(200, "OK", "{}"));
                            } else {
                                socket->write(answer(
                                    201, "Created",
                                    "{\"bin\":{\"id\":\"" + bin + "\",\"readonly\":false,"
                                    "\"bytes\":" + QByteArray::number(r.body.size()) +
                                    ",\"files\":1,\"expired_at\":\"" + expiry + "\"},"
                                    "\"file\":{\"filename\":\"" + file + "\",\"bytes\":" +
                                    QByteArray::number(r.body.size()) + "}}"));
                            }
                            socket->disconnectFromHost();
                            break;
                        case Mode::refused:
                            socket->write(answer(403, "Forbidden",
                                                 QByteArray("{\"message\":\"") + refusal + "\"}"));
                            socket->disconnectFromHost();
                            break;
                        case Mode::dropAfterBody:
                            socket->abort();
                            break;
                        case Mode::silent:
                            break;
                        }
                    });
                }
            });
            ready.release();
        },
        Qt::QueuedConnection);
    ready.acquire(); // until the server listens
}

FilebinServer::~FilebinServer()
{
    QMetaObject::invokeMethod(m->context, [this] { delete m->server; }, Qt::BlockingQueuedConnection);
    m->thread.quit();
    m->thread.wait();
    delete m->context;
}

QString FilebinServer::address() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(m->port);
}

void FilebinServer::setMode(Mode mode)
{
    m->mode = mode;
}

QList<FilebinServer::Received> FilebinServer::received() const
{
    QMutexLocker lock(&m->mutex);
    return m->received;
}

} // namespace nubo::test
