#pragma once

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <unistd.h>

// Where the running tray answers on the session bus.
namespace nubo::bus {

inline constexpr char name[] = "com.corvane.lab.nuboshot";
inline constexpr char path[] = "/com/corvane/lab/nuboshot";
inline constexpr char interface[] = "com.corvane.lab.nuboshot";

// The bus's answers that mean no running instance will do it (none runs,
// or it is one that cannot: another display, no capture backend, an older
// one): the caller does the work itself.
inline constexpr const char* nobodyToAsk[] = {
    "org.freedesktop.DBus.Error.ServiceUnknown", "org.freedesktop.DBus.Error.NameHasNoOwner",
    "org.freedesktop.DBus.Error.NotSupported", "org.freedesktop.DBus.Error.UnknownMethod"};

inline bool meansNobodyToAsk(const char* errorName)
{
    for (const char* name : nobodyToAsk) {
        if (std::strcmp(name, errorName) == 0) {
            return true;
        }
    }
    return false;
}

// The running tray also holds a lock on a file of its session, so that the
// small `nuboshot` in front learns that none runs without loading the bus
// (a grab with no tray starts some milliseconds sooner). The file is named
// after the session bus's address; empty when the session has no runtime
// folder, and then only the bus can tell.
inline std::string trayLockPath()
{
    const char* runtime = std::getenv("XDG_RUNTIME_DIR");
    if (!runtime || !*runtime) {
        return {};
    }
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    const std::string bus = address && *address ? address : std::string("unix:path=") + runtime + "/bus";
    std::uint64_t hash = 1469598103934665603ull; // FNV-1a
    for (const char c : bus) {
        hash = (hash ^ std::uint8_t(c)) * 1099511628211ull;
    }
    char name[48];
    std::snprintf(name, sizeof name, "/nuboshot-tray-%016llx.lock", static_cast<unsigned long long>(hash));
    return runtime + std::string(name);
}

// False only when no tray of this session runs for sure: its lock file is
// missing or nobody holds it. A lock outlives no process, so a tray that
// crashed leaves nothing that says it runs.
inline bool trayMayRun()
{
    const std::string path = trayLockPath();
    if (path.empty()) {
        return true;
    }
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) {
        return errno != ENOENT;
    }
    const bool held = ::flock(fd, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    ::close(fd);
    return held;
}

// Held by the running tray for its whole life (the descriptor is never closed).
inline void holdTrayLock()
{
    const std::string path = trayLockPath();
    if (path.empty()) {
        return;
    }
    const int fd = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (fd >= 0 && ::flock(fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(fd);
    }
}

} // namespace nubo::bus
