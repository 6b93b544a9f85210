#pragma once

#include <cstring>

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

} // namespace nubo::bus
