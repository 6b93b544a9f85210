#include "core/BackgroundThread.h"

#ifdef __linux__
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace nubo {

void lowerCurrentThreadPriority()
{
#ifdef __linux__
    // Five steps below the process: the UI thread gets about three times the
    // share of a busy core, and the work still runs at full speed when the
    // cores are idle.
    constexpr int steps = 5;
    static const int processNice = [] {
        errno = 0;
        const int nice = getpriority(PRIO_PROCESS, 0);
        return errno == 0 ? nice : 0;
    }();
    const auto thread = static_cast<id_t>(syscall(SYS_gettid));
    errno = 0;
    const int current = getpriority(PRIO_PROCESS, thread);
    if (errno == 0 && current < processNice + steps) {
        setpriority(PRIO_PROCESS, thread, processNice + steps);
    }
#endif
}

} // namespace nubo
