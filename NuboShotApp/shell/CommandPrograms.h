#pragma once

#include <cstring>
#include <string>
#include <unistd.h>

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
inline constexpr char text[] = "nuboshot-text";
// Asks a running tray over the bus to capture or grab; runs the command's
// program when none answers.
inline constexpr char ask[] = "nuboshot-ask";

struct Route {
    const char* command;
    const char* program;
};

inline constexpr Route routes[] = {
    {"grab", stills},    {"displays", stills}, {"windows", stills}, {"archive", stills},
    {"export", stills},  {"stitch", stills},   {"video", media},    {"record", media},
    {"upload", upload},  {"ocr", text},
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

// A program of the suite: beside this one in a build tree, in libexec once
// installed (where the front's own programs lie beside each other too).
inline std::string programBeside(const std::string& self, const std::string& name)
{
    const std::string folder = self.substr(0, self.rfind('/') + 1);
    for (const std::string& candidate : {folder + name, folder + "../libexec/nuboshot/" + name}) {
        if (::access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
    }
    return folder + name;
}

inline std::string selfPath()
{
    char buffer[4096];
    const ssize_t n = ::readlink("/proc/self/exe", buffer, sizeof buffer - 1);
    return n > 0 ? std::string(buffer, size_t(n)) : std::string();
}

} // namespace nubo::programs
