#include "capture/portal/WaylandOutputs.h"

#include <cstring>
#include <memory>
#include <wayland-client.h>

namespace nubo {

namespace {

struct Output {
    wl_output* proxy = nullptr;
    WaylandOutput seen;
    bool turned = false; // 90° or 270°: the mode's sides swap on the desktop
};

struct Listing {
    QList<std::shared_ptr<Output>> outputs;
};

void geometry(void* data, wl_output*, int32_t x, int32_t y, int32_t, int32_t, int32_t,
              const char*, const char*, int32_t transform)
{
    auto* output = static_cast<Output*>(data);
    output->seen.position = QPoint(x, y);
    output->turned = transform == WL_OUTPUT_TRANSFORM_90 || transform == WL_OUTPUT_TRANSFORM_270 ||
                     transform == WL_OUTPUT_TRANSFORM_FLIPPED_90 ||
                     transform == WL_OUTPUT_TRANSFORM_FLIPPED_270;
}

void mode(void* data, wl_output*, uint32_t flags, int32_t width, int32_t height, int32_t)
{
    if (flags & WL_OUTPUT_MODE_CURRENT) {
        static_cast<Output*>(data)->seen.pixels = QSize(width, height);
    }
}

void done(void*, wl_output*) {}
void scale(void*, wl_output*, int32_t) {}

const wl_output_listener outputListener = {geometry, mode, done, scale};

void global(void* data, wl_registry* registry, uint32_t name, const char* interface, uint32_t)
{
    if (std::strcmp(interface, wl_output_interface.name) == 0) {
        auto output = std::make_shared<Output>();
        output->proxy =
            static_cast<wl_output*>(wl_registry_bind(registry, name, &wl_output_interface, 2));
        wl_output_add_listener(output->proxy, &outputListener, output.get());
        static_cast<Listing*>(data)->outputs.append(output);
    }
}

void globalRemove(void*, wl_registry*, uint32_t) {}

const wl_registry_listener registryListener = {global, globalRemove};

} // namespace

QList<WaylandOutput> readWaylandOutputs()
{
    wl_display* display = wl_display_connect(nullptr);
    if (!display) {
        return {};
    }
    Listing listing;
    wl_registry* registry = wl_display_get_registry(display);
    wl_registry_add_listener(registry, &registryListener, &listing);
    // The globals, then each output's description.
    wl_display_roundtrip(display);
    wl_display_roundtrip(display);
    QList<WaylandOutput> outputs;
    for (const std::shared_ptr<Output>& output : std::as_const(listing.outputs)) {
        WaylandOutput seen = output->seen;
        if (output->turned) {
            seen.pixels.transpose();
        }
        if (!seen.pixels.isEmpty()) {
            outputs.append(seen);
        }
        wl_output_destroy(output->proxy);
    }
    wl_registry_destroy(registry);
    wl_display_disconnect(display);
    return outputs;
}

} // namespace nubo
