#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

namespace nubo::test {

struct ProcessResult {
    int exitCode = -1;
    bool crashed = false;
    QString out;
    QString err;
};

// Runs the built nuboshot with the given arguments and waits for it.
ProcessResult
runNuboShot(const QStringList& arguments, int timeoutMs = 30000,
            const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment());

} // namespace nubo::test
