// The Wayland test session's screen casts without a GPU. Test session only:
// scripts/headless-session preloads this library into the wlroots portal
// backend, and nothing of the program ever loads it.
//
// Why it exists: xdg-desktop-portal-wlr 0.7.0 (Debian 12) fails every
// ScreenCast Start with "unable to receive a valid format from
// wlr_screencopy" on a compositor without a GPU. start_screencast() in its
// src/screencast/screencast.c (about line 199) demands a DMA-BUF format
// whenever the backend's own ScreenCast version is 3 or more, and wlroots'
// pixman renderer can only offer shared memory. Upstream dropped that check
// in 0.8. Below version 3 the backend goes on with shared-memory BGRx
// frames, pixel for pixel what grim takes.
//
// How: the backend registers its ScreenCast object with sd-bus, whose
// vtable's "version" property reads a field of the backend's state at an
// offset. Seeing that registration, this sets the field to 2 before sd-bus
// takes the vtable, so the backend both checks and advertises version 2.

#include <dlfcn.h>
#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstring>

extern "C" int sd_bus_add_object_vtable(sd_bus* bus, sd_bus_slot** slot, const char* path,
                                        const char* interface, const sd_bus_vtable* vtable,
                                        void* userdata)
{
    using Real = int (*)(sd_bus*, sd_bus_slot**, const char*, const char*, const sd_bus_vtable*,
                         void*);
    static const Real real = reinterpret_cast<Real>(dlsym(RTLD_NEXT, "sd_bus_add_object_vtable"));
    if (interface && userdata &&
        std::strcmp(interface, "org.freedesktop.impl.portal.ScreenCast") == 0) {
        for (const sd_bus_vtable* v = vtable; v->type != _SD_BUS_VTABLE_END; ++v) {
            if (v->type == _SD_BUS_VTABLE_PROPERTY && !v->x.property.get &&
                v->x.property.member && std::strcmp(v->x.property.member, "version") == 0) {
                auto* version = reinterpret_cast<std::uint32_t*>(static_cast<char*>(userdata) +
                                                                 v->x.property.offset);
                if (*version > 2) {
                    *version = 2;
                }
            }
        }
    }
    return real(bus, slot, path, interface, vtable, userdata);
}
