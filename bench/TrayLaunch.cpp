// tray-launch: how long a tray program takes from its start to its icon
// docked in the desktop's system tray, and the CPU it spent meanwhile.
//
//   tray-launch TRAY_CLASS COMMAND [ARGUMENTS...]
//
// Starts COMMAND, waits until a window is reparented into the window of
// class TRAY_CLASS (the tray host: tint2 in the private session) or below
// it, prints "WALL_MS CPU_MS" (CPU: user + system of COMMAND's process until
// then, from /proc), then stops COMMAND (SIGTERM) and waits for it. Exits 1
// when no icon docks within 10 s.
#include <xcb/xcb.h>

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <poll.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

double now()
{
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return double(t.tv_sec) * 1000 + double(t.tv_nsec) / 1e6;
}

// user + system time of a process, from /proc/PID/stat, in milliseconds.
double cpuOf(pid_t pid)
{
    std::ifstream stat("/proc/" + std::to_string(pid) + "/stat");
    std::string text((std::istreambuf_iterator<char>(stat)), std::istreambuf_iterator<char>());
    const size_t close = text.rfind(')');
    if (close == std::string::npos) {
        return -1;
    }
    // Fields after the command's name: state is field 3; utime 14, stime 15.
    const char* p = text.c_str() + close + 2;
    unsigned long long utime = 0, stime = 0;
    int field = 3;
    while (*p && field < 14) {
        if (*p++ == ' ') {
            ++field;
        }
    }
    std::sscanf(p, "%llu %llu", &utime, &stime);
    return double(utime + stime) * 1000.0 / double(sysconf(_SC_CLK_TCK));
}

bool hasClass(xcb_connection_t* c, xcb_window_t window, const char* wanted)
{
    const auto cookie = xcb_get_property(c, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256);
    xcb_get_property_reply_t* reply = xcb_get_property_reply(c, cookie, nullptr);
    bool found = false;
    if (reply) {
        const char* value = static_cast<const char*>(xcb_get_property_value(reply));
        const int length = xcb_get_property_value_length(reply);
        for (int i = 0; i < length; i += int(std::strlen(value + i)) + 1) {
            found |= std::strcmp(value + i, wanted) == 0;
        }
        free(reply);
    }
    return found;
}

// Whether a window is the tray host's or lies inside it.
bool inTray(xcb_connection_t* c, xcb_window_t window, xcb_window_t root, const char* trayClass)
{
    for (int depth = 0; window != root && window != XCB_NONE && depth < 16; ++depth) {
        if (hasClass(c, window, trayClass)) {
            return true;
        }
        xcb_query_tree_reply_t* tree = xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr);
        if (!tree) {
            return false;
        }
        window = tree->parent;
        free(tree);
    }
    return false;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3) {
        std::fprintf(stderr, "usage: tray-launch TRAY_CLASS COMMAND [ARGUMENTS...]\n");
        return 2;
    }
    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c)) {
        std::fprintf(stderr, "tray-launch: no X display\n");
        return 1;
    }
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(c)).data->root;
    // Reparenting is reported to the old parent: the root, for a new icon.
    const uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(c, root, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(c);

    const double started = now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        _exit(127);
    }
    double docked = -1, cpu = -1;
    while (docked < 0 && now() - started < 10000) {
        pollfd fd{xcb_get_file_descriptor(c), POLLIN, 0};
        poll(&fd, 1, 50);
        while (xcb_generic_event_t* event = xcb_poll_for_event(c)) {
            if ((event->response_type & 0x7f) == XCB_REPARENT_NOTIFY && docked < 0) {
                const auto* reparent = reinterpret_cast<xcb_reparent_notify_event_t*>(event);
                if (reparent->parent != root && inTray(c, reparent->parent, root, argv[1])) {
                    docked = now() - started;
                    cpu = cpuOf(child);
                }
            }
            free(event);
        }
    }
    kill(child, SIGTERM);
    int status = 0;
    waitpid(child, &status, 0);
    xcb_disconnect(c);
    if (docked < 0) {
        std::fprintf(stderr, "tray-launch: no icon of %s docked in %s within 10 s\n", argv[2], argv[1]);
        return 1;
    }
    std::printf("%.1f %.1f\n", docked, cpu);
    return 0;
}
