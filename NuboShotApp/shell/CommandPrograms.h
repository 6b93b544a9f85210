#pragma once

#include <cstring>

// The programs of the suite and which one runs each command, so that the
// small `nuboshot` in front execs the one that loads only what the command
// uses: stills and archives without FFmpeg or the network, recordings and
// videos without the network, uploads without FFmpeg, and none of them with
// Qt Widgets. Everything else (the tray, the editor, the review window, a
// capture with no tray to ask) is the whole program. No Qt here: the front
// reads it before it loads anything.
namespace nubo::programs {

inline constexpr char whole[] = "nuboshot-app";
inline constexpr char stills[] = "nuboshot-stills";
inline constexpr char media[] = "nuboshot-media";
inline constexpr char upload[] = "nuboshot-upload";

struct Route {
    const char* command;
    const char* program;
};

inline constexpr Route routes[] = {
    {"grab", stills},    {"displays", stills}, {"windows", stills}, {"archive", stills},
    {"export", stills},  {"stitch", stills},   {"video", media},    {"record", media},
    {"upload", upload},
};

// Set by the front for the stills program when it has asked the bus for a
// running tray to grab and found none: the grab is done there without a
// second look.
inline constexpr char grabHereVariable[] = "NUBOSHOT_GRAB_HERE";

// The program for a command's first word: the whole program when no lean
// one runs it.
inline const char* programFor(const char* command)
{
    for (const Route& route : routes) {
        if (std::strcmp(route.command, command) == 0) {
            return route.program;
        }
    }
    return whole;
}

} // namespace nubo::programs
