// FFmpeg's libraries loaded the first time one of their functions is called
// (FFmpegOnFirstUse.S).

#include "OnFirstUse.h"

extern "C" {
#include <libavcodec/version_major.h>
#include <libavformat/version_major.h>
#include <libavutil/log.h>
#include <libswresample/version_major.h>
#include <libswscale/version_major.h>
}

#include <mutex>

#define NUBO_STRING_(x) #x
#define NUBO_STRING(x) NUBO_STRING_(x)
#define NUBO_SONAME(name, major) "lib" name ".so." NUBO_STRING(major)

extern "C" void* nubo_ffmpeg_table[];

namespace {

constexpr const char* functions[] = {
#define NUBO_FUNCTION(name) #name,
#include "FFmpegFunctions.def"
#undef NUBO_FUNCTION
};

// libavformat brings libavcodec and libavutil with it.
constexpr const char* libraries[] = {NUBO_SONAME("avformat", LIBAVFORMAT_VERSION_MAJOR),
                                     NUBO_SONAME("swscale", LIBSWSCALE_VERSION_MAJOR),
                                     NUBO_SONAME("swresample", LIBSWRESAMPLE_VERSION_MAJOR)};

constexpr const char* packages = "libavformat" NUBO_STRING(LIBAVFORMAT_VERSION_MAJOR)
    ", libswscale" NUBO_STRING(LIBSWSCALE_VERSION_MAJOR)
    " and libswresample" NUBO_STRING(LIBSWRESAMPLE_VERSION_MAJOR);

using LogCallback = void (*)(void*, int, const char*, va_list);
std::mutex callbackLock;
LogCallback pendingCallback = nullptr;
void (*realSetCallback)(LogCallback) = nullptr;

} // namespace

extern "C" void nubo_ffmpeg_load()
{
    static std::once_flag once;
    std::call_once(once, [] {
        const auto handles = nubo::loadOnFirstUse(libraries, functions, nubo_ffmpeg_table, packages);
        const std::lock_guard lock(callbackLock);
        realSetCallback = reinterpret_cast<void (*)(LogCallback)>(
            nubo::functionIn(handles, "av_log_set_callback", packages));
        if (pendingCallback) {
            realSetCallback(pendingCallback);
        }
    });
}

// The log callback is set as the program starts; FFmpeg gets it when it is
// loaded.
extern "C" void av_log_set_callback(LogCallback callback)
{
    const std::lock_guard lock(callbackLock);
    pendingCallback = callback;
    if (realSetCallback) {
        realSetCallback(callback);
    }
}
