#include "media/MediaError.h"

#include "core/Logging.h"

extern "C" {
#include <libavutil/error.h>
#include <libavutil/log.h>
}

#include <cstdarg>
#include <cstring>

namespace nubo {

namespace {

// FFmpeg's own lines (the encoders' statistics, a demuxer's doubts) go to the
// "media" category at debug level, never straight to the terminal or the
// journal: what fails reaches the user in our words, from the status codes.
void routeToQtLog(void* context, int level, const char* format, va_list arguments)
{
    if (level > AV_LOG_INFO || !lcMedia().isDebugEnabled()) {
        return;
    }
    char line[1024];
    int prefix = 1;
    va_list copy;
    va_copy(copy, arguments);
    av_log_format_line2(context, level, format, copy, line, sizeof line, &prefix);
    va_end(copy);
    size_t length = std::strlen(line);
    while (length > 0 && (line[length - 1] == '\n' || line[length - 1] == '\r')) {
        line[--length] = '\0';
    }
    if (length > 0) {
        qCDebug(lcMedia, "%s", line);
    }
}

// Set as the program loads, before any of FFmpeg's functions run.
const bool routed = [] {
    av_log_set_callback(routeToQtLog);
    return true;
}();

} // namespace

QString mediaErrorText(int status)
{
    (void)routed;
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(status, text, sizeof text);
    return QString::fromUtf8(text);
}

} // namespace nubo
