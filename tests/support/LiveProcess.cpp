#include "support/LiveProcess.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QProcess>
#include <QThread>

#include <gtest/gtest.h>

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
    // A program that never ends fails the test instead of hanging it.
    const QDeadlineTimer deadline(30000);
    // On its state, not on waitForFinished() alone: that answers false for a
    // process whose end processEvents() has already handled.
    while (process.state() != QProcess::NotRunning && !process.waitForFinished(10)) {
        QCoreApplication::processEvents();
        output += process.readAllStandardOutput();
        if (deadline.hasExpired()) {
            process.kill();
            process.waitForFinished();
            ADD_FAILURE() << program.toStdString() << " did not finish in 30 s";
            break;
        }
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

bool settleUntil(const std::function<bool()>& condition, int timeoutMs)
{
    const QDeadlineTimer deadline(timeoutMs);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents();
        QThread::msleep(5);
    }
    return true;
}

void xdotool(const QStringList& arguments)
{
    runServing(QStringLiteral("xdotool"), arguments);
    settle();
}

} // namespace nubo::test
