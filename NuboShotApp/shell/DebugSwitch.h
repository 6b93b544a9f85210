#pragma once

#include <QByteArray>
#include <QLoggingCategory>

namespace nubo {

// NUBOSHOT_DEBUG=1 shows every debug line of ours, FFmpeg's among them (Qt's
// QT_LOGGING_RULES still decides over it). Every program of the suite calls
// this first; Qt Core alone, so the front program can too.
inline void followDebugSwitch()
{
    if (const QByteArray debug = qgetenv("NUBOSHOT_DEBUG"); !debug.isEmpty() && debug != "0") {
        QLoggingCategory::setFilterRules(QStringLiteral("com.corvane.lab.nuboshot.*.debug=true"));
    }
}

} // namespace nubo
