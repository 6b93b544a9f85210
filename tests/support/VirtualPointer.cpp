// A mouse and a keyboard for a compositor without input devices (sway's
// headless backend): a virtual pointer and a virtual keyboard, driven by
// lines on standard input, as a user's hands would:
//   at X Y          the pointer to X,Y in the desktop's points
//   move DX DY      moved by DX,DY (relative motion, as a mouse sends)
//   press | release the left button
//   scroll STEPS    wheel steps (positive: down)
//   key NAME        a key pressed and released: a letter, Escape or Return
// The layout's size in points is given on the command line. Prints "ready"
// once the compositor has the devices; "ok" after each line once the
// compositor has handled it.
#include "virtual-keyboard-unstable-v1-client.h"
#include "wlr-virtual-pointer-unstable-v1-client.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <iostream>
#include <sstream>
#include <string>
#include <wayland-client.h>

namespace {

wl_seat* seat = nullptr;
zwlr_virtual_pointer_manager_v1* manager = nullptr;
zwp_virtual_keyboard_manager_v1* keyboards = nullptr;

void global(void*, wl_registry* registry, uint32_t name, const char* interface, uint32_t)
{
    if (std::strcmp(interface, wl_seat_interface.name) == 0 && !seat) {
        seat = static_cast<wl_seat*>(wl_registry_bind(registry, name, &wl_seat_interface, 1));
    } else if (std::strcmp(interface, zwlr_virtual_pointer_manager_v1_interface.name) == 0) {
        manager = static_cast<zwlr_virtual_pointer_manager_v1*>(
            wl_registry_bind(registry, name, &zwlr_virtual_pointer_manager_v1_interface, 1));
    } else if (std::strcmp(interface, zwp_virtual_keyboard_manager_v1_interface.name) == 0) {
        keyboards = static_cast<zwp_virtual_keyboard_manager_v1*>(
            wl_registry_bind(registry, name, &zwp_virtual_keyboard_manager_v1_interface, 1));
    }
}
void globalRemove(void*, wl_registry*, uint32_t)
{}
const wl_registry_listener registryListener = {global, globalRemove};

uint32_t now()
{
    timespec t{};
    clock_gettime(CLOCK_MONOTONIC, &t);
    return uint32_t(t.tv_sec * 1000 + t.tv_nsec / 1000000);
}

// A US keyboard, as the compositor's xkbcommon compiles it from the
// system's XKB files.
constexpr char keymap[] = "xkb_keymap {\n"
                          "  xkb_keycodes { include \"evdev+aliases(qwerty)\" };\n"
                          "  xkb_types { include \"complete\" };\n"
                          "  xkb_compat { include \"complete\" };\n"
                          "  xkb_symbols { include \"pc+us+inet(evdev)\" };\n"
                          "};\n";

// The evdev code of a key by name; 0 when unknown.
uint32_t keyCode(const std::string& name)
{
    if (name == "Escape") {
        return 1;
    }
    if (name == "Return") {
        return 28;
    }
    // The letters in the order of their codes, row by row.
    static const std::string rows[] = {"qwertyuiop", "asdfghjkl", "zxcvbnm"};
    static const uint32_t firsts[] = {16, 30, 44};
    for (int row = 0; row < 3 && name.size() == 1; ++row) {
        const size_t at = rows[row].find(name[0]);
        if (at != std::string::npos) {
            return firsts[row] + uint32_t(at);
        }
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    // Absolute positions are fractions of the box around every output, in
    // points; outputs do not tell clients where they lie, so the caller does.
    if (argc != 3 || std::atoi(argv[1]) <= 0 || std::atoi(argv[2]) <= 0) {
        std::fprintf(stderr, "usage: test-virtual-pointer LAYOUT-WIDTH LAYOUT-HEIGHT\n");
        return 2;
    }
    const auto layoutWidth = uint32_t(std::atoi(argv[1]));
    const auto layoutHeight = uint32_t(std::atoi(argv[2]));
    wl_display* display = wl_display_connect(nullptr);
    if (!display) {
        std::fprintf(stderr, "no Wayland display\n");
        return 1;
    }
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &registryListener, nullptr);
    wl_display_roundtrip(display);
    wl_display_roundtrip(display);
    if (!manager) {
        std::fprintf(stderr, "the compositor offers no virtual pointers\n");
        return 1;
    }
    if (!keyboards) {
        std::fprintf(stderr, "the compositor offers no virtual keyboards\n");
        return 1;
    }
    zwlr_virtual_pointer_v1* pointer =
        zwlr_virtual_pointer_manager_v1_create_virtual_pointer(manager, seat);
    zwp_virtual_keyboard_v1* keyboard =
        zwp_virtual_keyboard_manager_v1_create_virtual_keyboard(keyboards, seat);
    const int keymapFile = memfd_create("keymap", MFD_CLOEXEC);
    if (keymapFile < 0 || write(keymapFile, keymap, sizeof keymap) != ssize_t(sizeof keymap)) {
        std::fprintf(stderr, "no memory for the keymap\n");
        return 1;
    }
    zwp_virtual_keyboard_v1_keymap(keyboard, WL_KEYBOARD_KEYMAP_FORMAT_XKB_V1, keymapFile,
                                   sizeof keymap);
    wl_display_roundtrip(display);
    close(keymapFile);
    std::cout << "ready" << std::endl;

    constexpr uint32_t leftButton = 0x110; // BTN_LEFT
    std::string line;
    while (std::getline(std::cin, line)) {
        std::istringstream words(line);
        std::string verb;
        words >> verb;
        if (verb == "at") {
            int x = 0, y = 0;
            words >> x >> y;
            zwlr_virtual_pointer_v1_motion_absolute(pointer, now(), uint32_t(x), uint32_t(y),
                                                    layoutWidth, layoutHeight);
        } else if (verb == "move") {
            double dx = 0, dy = 0;
            words >> dx >> dy;
            zwlr_virtual_pointer_v1_motion(pointer, now(), wl_fixed_from_double(dx),
                                           wl_fixed_from_double(dy));
        } else if (verb == "press" || verb == "release") {
            zwlr_virtual_pointer_v1_button(pointer, now(), leftButton,
                                           verb == "press" ? WL_POINTER_BUTTON_STATE_PRESSED
                                                           : WL_POINTER_BUTTON_STATE_RELEASED);
        } else if (verb == "scroll") {
            int steps = 0;
            words >> steps;
            zwlr_virtual_pointer_v1_axis_source(pointer, WL_POINTER_AXIS_SOURCE_WHEEL);
            zwlr_virtual_pointer_v1_axis_discrete(pointer, now(), WL_POINTER_AXIS_VERTICAL_SCROLL,
                                                  wl_fixed_from_int(15 * steps), steps);
        } else if (verb == "key") {
            std::string name;
            words >> name;
            const uint32_t code = keyCode(name);
            if (code == 0) {
                std::cout << "unknown key: " << name << std::endl;
                continue;
            }
            zwp_virtual_keyboard_v1_key(keyboard, now(), code, WL_KEYBOARD_KEY_STATE_PRESSED);
            zwp_virtual_keyboard_v1_key(keyboard, now(), code, WL_KEYBOARD_KEY_STATE_RELEASED);
        } else {
            std::cout << "unknown: " << line << std::endl;
            continue;
        }
        zwlr_virtual_pointer_v1_frame(pointer);
        if (wl_display_roundtrip(display) < 0) {
            std::fprintf(stderr, "the compositor closed the connection\n");
            return 1;
        }
        std::cout << "ok" << std::endl;
    }
    zwp_virtual_keyboard_v1_destroy(keyboard);
    zwlr_virtual_pointer_v1_destroy(pointer);
    wl_display_roundtrip(display);
    wl_display_disconnect(display);
    return 0;
}
