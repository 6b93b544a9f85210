#include "core/Logging.h"

Q_LOGGING_CATEGORY(lcApp, "com.corvane.lab.nuboshot.app", QtInfoMsg)
Q_LOGGING_CATEGORY(lcArchive, "com.corvane.lab.nuboshot.archive", QtInfoMsg)
Q_LOGGING_CATEGORY(lcCapture, "com.corvane.lab.nuboshot.capture", QtInfoMsg)
Q_LOGGING_CATEGORY(lcExport, "com.corvane.lab.nuboshot.export", QtInfoMsg)
Q_LOGGING_CATEGORY(lcHistory, "com.corvane.lab.nuboshot.history", QtInfoMsg)
Q_LOGGING_CATEGORY(lcRender, "com.corvane.lab.nuboshot.render", QtInfoMsg)
Q_LOGGING_CATEGORY(lcRecents, "com.corvane.lab.nuboshot.recents", QtInfoMsg)
Q_LOGGING_CATEGORY(lcRecording, "com.corvane.lab.nuboshot.recording", QtInfoMsg)
Q_LOGGING_CATEGORY(lcRecordingWriter, "com.corvane.lab.nuboshot.recording-writer", QtInfoMsg)
Q_LOGGING_CATEGORY(lcScrolling, "com.corvane.lab.nuboshot.scrolling", QtInfoMsg)
Q_LOGGING_CATEGORY(lcSettings, "com.corvane.lab.nuboshot.settings", QtInfoMsg)
