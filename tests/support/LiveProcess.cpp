#include "support/LiveProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>

namespace nubo::test {

QByteArray runServing(const QString& program, const QStringList& arguments, const QByteArray& input)
{
    QProcess process;
    process.start(program, arguments);
    if (!input.isNull()) {
        process.write(input);
        process.closeWriteChannel();
    }
    QByteArray output;
    while (!process.waitForFinished(10)) {
        QCoreApplication::processEvents();
        output += process.readAllStandardOutput();
    }
    return output + process.readAllStandardOutput();
}

void settle(int ms)
{
    const QDeadlineTimer until(ms);
    while (!until.hasExpired()) {
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
}

void xdotool(const QStringList& arguments)
{
    runServing(QStringLiteral("xdotool"), arguments);
    settle();
}

} // namespace nubo::test
