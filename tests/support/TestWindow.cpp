// A real X client for the capture tests: maps one window filled with a solid
// colour (painted by the server, so it is right whenever it is exposed) with
// the properties a test asks for, prints its id and stays until killed.
//
//   test-window --geometry 200x100+10+20 --color ff0000 [--title T] [--class C]
//               [--type dock|normal|...] [--state above|hidden|...] [--opacity 0..1]
//               [--override] [--undecorated] [--numbered-rows]
//
// With --numbered-rows every row has a colour of its own instead: red and
// green count the row (y % 256, y / 256), blue is 0x80.

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <unistd.h>
#include <vector>
#include <xcb/xcb.h>

namespace {

xcb_atom_t atom(xcb_connection_t* c, const std::string& name)
{
    xcb_intern_atom_reply_t* r = xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, uint16_t(name.size()), name.c_str()), nullptr);
    const xcb_atom_t a = r ? r->atom : 0;
    std::free(r);
    return a;
}

std::string upper(std::string s)
{
    for (char& ch : s) {
        ch = char(std::toupper(static_cast<unsigned char>(ch)));
    }
    return s;
}

} // namespace

int main(int argc, char** argv)
{
    int x = 0, y = 0;
    unsigned width = 100, height = 100;
    unsigned long color = 0xff0000;
    std::string title = "Test Window", wmClass = "testwindow", type, state;
    double opacity = -1;
    bool overrideRedirect = false;
    bool undecorated = false;
    bool numberedRows = false;
    for (int i = 1; i < argc; ++i) {
        const std::string option = argv[i];
        if (option == "--override") {
            overrideRedirect = true;
            continue;
        }
        if (option == "--undecorated") {
            undecorated = true;
            continue;
        }
        if (option == "--numbered-rows") {
            numberedRows = true;
            continue;
        }
        if (i + 1 >= argc) {
            break;
        }
        const char* value = argv[++i];
        if (option == "--geometry") {
            std::sscanf(value, "%ux%u+%d+%d", &width, &height, &x, &y);
        } else if (option == "--color") {
            color = std::strtoul(value, nullptr, 16);
        } else if (option == "--title") {
            title = value;
        } else if (option == "--class") {
            wmClass = value;
        } else if (option == "--type") {
            type = value;
        } else if (option == "--state") {
            state = value;
        } else if (option == "--opacity") {
            opacity = std::atof(value);
        }
    }

    xcb_connection_t* c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(c)) {
        std::fprintf(stderr, "test-window: no X display\n");
        return 1;
    }
    xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(c)).data;
    // The colour as the screen's depth stores it (the same number at 24 bits).
    uint32_t pixel = uint32_t(color);
    if (auto* allocated = xcb_alloc_color_reply(
            c,
            xcb_alloc_color(c, screen->default_colormap, uint16_t(((color >> 16) & 0xff) * 257),
                            uint16_t(((color >> 8) & 0xff) * 257), uint16_t((color & 0xff) * 257)),
            nullptr)) {
        pixel = allocated->pixel;
        std::free(allocated);
    }
    const xcb_window_t window = xcb_generate_id(c);
    const uint32_t values[] = {pixel, uint32_t(overrideRedirect)};
    xcb_create_window(c, XCB_COPY_FROM_PARENT, window, screen->root, int16_t(x), int16_t(y),
                      uint16_t(width), uint16_t(height), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    if (numberedRows && screen->root_depth == 24) {
        // A one-pixel-wide column of the rows' colours, tiled across as the
        // window's background.
        const xcb_pixmap_t column = xcb_generate_id(c);
        xcb_create_pixmap(c, 24, column, screen->root, 1, uint16_t(height));
        const xcb_gcontext_t gc = xcb_generate_id(c);
        xcb_create_gc(c, gc, column, 0, nullptr);
        std::vector<uint32_t> rows(height);
        for (unsigned row = 0; row < height; ++row) {
            rows[row] = (row % 256) << 16 | (row / 256 % 256) << 8 | 0x80;
        }
        // In pieces that fit a request.
        for (unsigned top = 0; top < height; top += 4096) {
            const unsigned count = std::min(4096u, height - top);
            xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, column, gc, 1, uint16_t(count), 0,
                          int16_t(top), 0, 24, count * 4,
                          reinterpret_cast<const uint8_t*>(rows.data() + top));
        }
        xcb_change_window_attributes(c, window, XCB_CW_BACK_PIXMAP, &column);
        xcb_free_gc(c, gc);
    }

    const auto setString = [&](xcb_atom_t property, xcb_atom_t kind, const std::string& text) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, property, kind, 8,
                            uint32_t(text.size()), text.data());
    };
    setString(atom(c, "_NET_WM_NAME"), atom(c, "UTF8_STRING"), title);
    setString(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, title);
    const std::string classes = wmClass + '\0' + wmClass + '\0';
    setString(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, classes);
    const uint32_t pid = uint32_t(getpid());
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atom(c, "_NET_WM_PID"), XCB_ATOM_CARDINAL,
                        32, 1, &pid);
    // The window manager would move a window it places itself.
    const uint32_t hints[18] = {1 | 2 | 4 | 8, uint32_t(x), uint32_t(y), width, height};
    xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints);
    if (undecorated) {
        const uint32_t motif[5] = {2, 0, 0, 0, 0}; // decorations: none
        const xcb_atom_t hints = atom(c, "_MOTIF_WM_HINTS");
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, hints, hints, 32, 5, motif);
    }
    if (!type.empty()) {
        const xcb_atom_t t = atom(c, "_NET_WM_WINDOW_TYPE_" + upper(type));
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atom(c, "_NET_WM_WINDOW_TYPE"),
                            XCB_ATOM_ATOM, 32, 1, &t);
    }
    if (!state.empty()) {
        const xcb_atom_t s = atom(c, "_NET_WM_STATE_" + upper(state));
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atom(c, "_NET_WM_STATE"),
                            XCB_ATOM_ATOM, 32, 1, &s);
    }
    if (opacity >= 0) {
        const uint32_t value = uint32_t(opacity * 0xFFFFFFFFu);
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, atom(c, "_NET_WM_WINDOW_OPACITY"),
                            XCB_ATOM_CARDINAL, 32, 1, &value);
    }
    if (state == "hidden") {
        // Iconic from the start: mapped by the client, shown by nobody.
        const uint32_t wmHints[9] = {2, 0, 3};
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS,
                            32, 9, wmHints);
    }
    xcb_map_window(c, window);
    xcb_flush(c);
    std::printf("%u\n", window);
    std::fflush(stdout);
    std::signal(SIGTERM, [](int) { std::_Exit(0); });
    while (xcb_generic_event_t* event = xcb_wait_for_event(c)) {
        std::free(event);
    }
    return 0;
}
