#include "support/Process.h"

#include <QProcess>

namespace nubo::test {

ProcessResult runNuboShot(const QStringList& arguments, int timeoutMs,
                          const QProcessEnvironment& environment)
{
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(NUBOSHOT_BINARY), arguments);
    ProcessResult result;
    if (!process.waitForFinished(timeoutMs)) {
        process.kill();
        process.waitForFinished();
        result.crashed = true;
    }
    result.crashed = result.crashed || process.exitStatus() == QProcess::CrashExit;
    result.exitCode = process.exitCode();
    result.out = QString::fromUtf8(process.readAllStandardOutput());
    result.err = QString::fromUtf8(process.readAllStandardError());
    return result;
}

} // namespace nubo::test
