// `nuboshot`: the command users and desktops run. Key bindings run
// `nuboshot capture MODE` for every shot, and the whole program (Qt Widgets
// and the rest) takes tens of milliseconds to load. So this small program,
// without Qt, answers --version and --help itself and becomes (exec, same
// process and arguments) the program of the suite that runs the command: a
// lean one for the commands that need no window, the whole program for the
// rest, and `nuboshot-ask` when a running tray may take a capture or a grab
// (it asks over the bus, which needs Qt's D-Bus; with no tray running, the
// tray's lock file says so and the bus is not loaded at all).

#include "shell/BusNames.h"
#include "shell/CommandPrograms.h"
#include "shell/MainHelp.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>

namespace {

bool is(const char* argument, const char* word)
{
    return std::strcmp(argument, word) == 0;
}

// What a running tray would do itself: captures, and grabs where everything is warm.
bool trayTakes(int argc, char** argv)
{
    return argc >= 2 && ((is(argv[1], "capture") && argc == 3) || is(argv[1], "grab"));
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2 && (is(argv[1], "--version") || is(argv[1], "-v"))) {
        std::puts("nuboshot " NUBOSHOT_VERSION);
        return 0;
    }
    if (argc == 2 && (is(argv[1], "--help") || is(argv[1], "-h") || is(argv[1], "help"))) {
        std::fputs(nubo::cli::mainHelp, stdout);
        return 0;
    }
    const std::string self = nubo::programs::selfPath();
    const char* name = nubo::programs::whole;
    if (trayTakes(argc, argv) && nubo::bus::trayMayRun()) {
        name = nubo::programs::ask;
    } else if (argc > 1) {
        name = nubo::programs::programFor(argv[1]);
        if (is(argv[1], "grab")) {
            // No tray to grab: the stills program grabs without asking again.
            ::setenv(nubo::programs::grabHereVariable, "1", 1);
        }
    }
    const std::string program = nubo::programs::programBeside(self, name);
    // Tesseract's OpenMP threads spin against each other on a computer of
    // few cores (a page of text takes six times as long on two): one thread
    // unless the user says otherwise. OpenMP reads it when it loads, with Qt.
    ::setenv("OMP_THREAD_LIMIT", "1", 0);
    // What the program calls itself in commands it shows and starts.
    ::setenv("NUBOSHOT_PROGRAM", self.c_str(), 1);
    ::execv(program.c_str(), argv);
    std::fprintf(stderr, "nuboshot: cannot start %s: %s\n", program.c_str(), std::strerror(errno));
    return 1;
}
