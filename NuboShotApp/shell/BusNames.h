#pragma once

// Where the running tray answers on the session bus.
namespace nubo::bus {

inline constexpr char name[] = "com.corvane.lab.nuboshot";
inline constexpr char path[] = "/com/corvane/lab/nuboshot";
inline constexpr char interface[] = "com.corvane.lab.nuboshot";

} // namespace nubo::bus
