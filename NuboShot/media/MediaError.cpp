#include "media/MediaError.h"

extern "C" {
#include <libavutil/error.h>
}

namespace nubo {

QString mediaErrorText(int status)
{
    char text[AV_ERROR_MAX_STRING_SIZE] = {};
    av_strerror(status, text, sizeof text);
    return QString::fromUtf8(text);
}

} // namespace nubo
