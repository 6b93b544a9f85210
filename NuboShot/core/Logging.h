#pragma once

#include <QLoggingCategory>

// One category per component, all under "com.corvane.lab.nuboshot.".
Q_DECLARE_LOGGING_CATEGORY(lcApp)
Q_DECLARE_LOGGING_CATEGORY(lcArchive)
Q_DECLARE_LOGGING_CATEGORY(lcCapture)
Q_DECLARE_LOGGING_CATEGORY(lcExport)
Q_DECLARE_LOGGING_CATEGORY(lcHistory)
Q_DECLARE_LOGGING_CATEGORY(lcRecents)
Q_DECLARE_LOGGING_CATEGORY(lcRecording)
Q_DECLARE_LOGGING_CATEGORY(lcRecordingWriter)
Q_DECLARE_LOGGING_CATEGORY(lcRender)
Q_DECLARE_LOGGING_CATEGORY(lcScrolling)
Q_DECLARE_LOGGING_CATEGORY(lcSettings)
