#include "capture/xcb/XcbScreenFrameSource.h"

#include "capture/CaptureSelection.h"
#include "capture/xcb/XcbConnection.h"
#include "core/Logging.h"

#include <cmath>
#include <utility>
#include <xcb/damage.h>
#include <xcb/xfixes.h>
#include <xcb/xinput.h>

namespace nubo {

// Changes on the screen and the pointer, seen over a connection of the
// capture thread's own.
class XcbScreenFrameSource::Watch {
public:
    Watch(const QByteArray& displayName, bool clicks, std::function<RecordingDuration()> clock)
        : m_x(displayName), m_clock(std::move(clock))
    {
        if (clicks) {
            watchClicks();
        }
        // Windows mapped, moved, restacked or gone: our own windows must be
        // painted away where they are now, not where they were.
        const uint32_t structure = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_x.c, m_x.root, XCB_CW_EVENT_MASK, &structure);
        const xcb_query_extension_reply_t* damage = xcb_get_extension_data(m_x.c, &xcb_damage_id);
        if (damage && damage->present) {
            std::free(xcb_damage_query_version_reply(m_x.c, xcb_damage_query_version(m_x.c, 1, 1),
                                                     nullptr));
            m_damage = xcb_generate_id(m_x.c);
            xcb_damage_create(m_x.c, m_damage, m_x.root, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
            m_damageEvent = damage->first_event + XCB_DAMAGE_NOTIFY;
        } else {
            qCWarning(lcRecording, "No XDamage: every frame is captured");
        }
        const xcb_query_extension_reply_t* fixes = xcb_get_extension_data(m_x.c, &xcb_xfixes_id);
        if (fixes && fixes->present) {
            std::free(xcb_xfixes_query_version_reply(m_x.c, xcb_xfixes_query_version(m_x.c, 4, 0),
                                                     nullptr));
            m_fixes = true;
        }
        xcb_flush(m_x.c);
    }

    // A click of the user's, at a root position, at a capture time.
    using Click = ScreenFrameClick;

    // Whether anything was drawn since the last call (always, without
    // XDamage); clicks since then go to `clicks`.
    bool changed(QList<Click>& clicks)
    {
        drain(clicks);
        if (!m_damage) {
            return true;
        }
        const bool damaged = std::exchange(m_damaged, false);
        if (damaged) {
            xcb_damage_subtract(m_x.c, m_damage, XCB_NONE, XCB_NONE);
            xcb_flush(m_x.c);
        }
        return damaged;
    }

    // Whether a top-level window changed since the last call. With `sync`,
    // also what the server did before this call (a round trip on this
    // connection brings every event it sent meanwhile): a capture taken
    // before is checked against the stacking it was cut with.
    bool restacked(QList<Click>& clicks, bool sync)
    {
        if (sync) {
            std::free(xcb_get_input_focus_reply(m_x.c, xcb_get_input_focus(m_x.c), nullptr));
        }
        drain(clicks);
        return std::exchange(m_restacked, false);
    }

    // The pointer's picture and where it is, in root pixels.
    std::optional<ScreenFrameCursor> cursor()
    {
        if (!m_fixes) {
            return std::nullopt;
        }
        auto reply = xcbReply(
            xcb_xfixes_get_cursor_image_reply(m_x.c, xcb_xfixes_get_cursor_image(m_x.c), nullptr));
        if (!reply || reply->width == 0 || reply->height == 0) {
            return std::nullopt;
        }
        const QPoint at(reply->x - reply->xhot, reply->y - reply->yhot);
        // 32-bit ARGB, premultiplied: Qt's own layout.
        QImage image(
            reinterpret_cast<const uchar*>(xcb_xfixes_get_cursor_image_cursor_image(reply.get())),
            reply->width, reply->height, QImage::Format_ARGB32_Premultiplied);
        return ScreenFrameCursor{image.copy(), at};
    }

private:
    void drain(QList<Click>& clicks)
    {
        while (auto event = xcbReply(xcb_poll_for_event(m_x.c))) {
            const uint8_t type = event->response_type & 0x7f;
            m_damaged = m_damaged || (m_damage && type == m_damageEvent);
            switch (type) {
            case XCB_MAP_NOTIFY:
            case XCB_UNMAP_NOTIFY:
            case XCB_CONFIGURE_NOTIFY:
            case XCB_REPARENT_NOTIFY:
            case XCB_CIRCULATE_NOTIFY:
            case XCB_DESTROY_NOTIFY:
                m_restacked = true;
                break;
            default:
                break;
            }
            if (type == XCB_GE_GENERIC &&
                reinterpret_cast<const xcb_ge_generic_event_t*>(event.get())->extension ==
                    m_inputOpcode) {
                const auto* press =
                    reinterpret_cast<const xcb_input_raw_button_press_event_t*>(event.get());
                if (press->event_type == XCB_INPUT_RAW_BUTTON_PRESS &&
                    (press->detail < 4 || press->detail > 7)) { // not the wheel
                    auto pointer = xcbReply(xcb_query_pointer_reply(
                        m_x.c, xcb_query_pointer(m_x.c, m_x.root), nullptr));
                    if (pointer) {
                        clicks.append({QPoint(pointer->root_x, pointer->root_y), m_clock()});
                    }
                }
            }
        }
    }

    // Raw button presses of every device, whoever has the pointer grabbed.
    void watchClicks()
    {
        const xcb_query_extension_reply_t* input = xcb_get_extension_data(m_x.c, &xcb_input_id);
        if (!input || !input->present) {
            return;
        }
        auto version = xcbReply(xcb_input_xi_query_version_reply(
            m_x.c, xcb_input_xi_query_version(m_x.c, 2, 2), nullptr));
        if (!version || version->major_version < 2) {
            return;
        }
        m_inputOpcode = input->major_opcode;
        struct {
            xcb_input_event_mask_t head;
            uint32_t bits;
        } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS};
        xcb_input_xi_select_events(m_x.c, m_x.root, 1, &mask.head);
    }

    XcbConnection m_x;
    std::function<RecordingDuration()> m_clock;
    uint8_t m_inputOpcode = 0;
    xcb_damage_damage_t m_damage = 0;
    uint8_t m_damageEvent = 0;
    bool m_fixes = false;
    bool m_damaged = false;
    bool m_restacked = false;
};

XcbScreenFrameSource::XcbScreenFrameSource(QByteArray displayName,
                                           XcbScreenCapturer::ScaleLookup scale)
    : m_displayName(std::move(displayName)), m_scale(std::move(scale))
{}

XcbScreenFrameSource::~XcbScreenFrameSource() = default;

QString XcbScreenFrameSource::clicksUnavailable()
{
    const QString missing = QStringLiteral("Click highlighting requires the X Input extension.");
    try {
        XcbConnection x(m_displayName);
        const xcb_query_extension_reply_t* input = xcb_get_extension_data(x.c, &xcb_input_id);
        if (!input || !input->present) {
            return missing;
        }
        auto version = xcbReply(xcb_input_xi_query_version_reply(
            x.c, xcb_input_xi_query_version(x.c, 2, 2), nullptr));
        return version && version->major_version >= 2 ? QString() : missing;
    } catch (const Error& error) {
        return error.message();
    }
}

ScreenFrameGeometry XcbScreenFrameSource::open(const ScreenFrameRequest& request)
{
    m_request = request;
    m_window = false;
    if (const auto* d = std::get_if<RecordingTarget::Display>(&request.target.target)) {
        m_display = d->display.id;
        m_region = captureRegion(d->display.space, d->display.space.globalFrame);
        m_origin = d->display.pixelGeometry.topLeft() + m_region.pixelRect.topLeft();
        return {d->display.space.globalFrame.size(), d->display.space.scale};
    }
    if (const auto* a = std::get_if<RecordingTarget::Area>(&request.target.target)) {
        const QRectF on = a->globalRect.intersected(a->display.space.globalFrame);
        if (on.isEmpty() || !std::isfinite(on.width()) || !std::isfinite(on.height())) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the area lies outside its display"));
        }
        m_display = a->display.id;
        m_region = captureRegion(a->display.space, on);
        m_origin = a->display.pixelGeometry.topLeft() + m_region.pixelRect.topLeft();
        return {on.size(), a->display.space.scale};
    }
    const auto& w = std::get<RecordingTarget::Window>(request.target.target).window;
    m_window = true;
    m_windowID = w.id;
    XcbScreenCapturer probe(m_displayName, m_scale);
    return {w.frame.size(), probe.captureWindow(w.id).scale}; // also: the window is there
}

void XcbScreenFrameSource::start()
{
    m_capturer = std::make_unique<XcbScreenCapturer>(m_displayName, m_scale);
    m_capturer->setNativePixels(true); // straight to the encoder, no conversion
    m_watch = std::make_unique<Watch>(m_displayName, m_request.highlightsClicks && !m_window,
                                      m_request.clock);
}

ScreenFrameChanges XcbScreenFrameSource::look()
{
    ScreenFrameChanges changes;
    QList<ScreenFrameClick> clicks = std::exchange(m_pendingClicks, {});
    // A window's own pixels have no damage to watch: every tick takes them.
    changes.damaged = m_watch->changed(clicks) || m_window;
    if (m_window) {
        return changes; // no pointer and no rings over a window's own pixels
    }
    for (ScreenFrameClick& click : clicks) {
        click.at -= m_origin;
        changes.clicks.append(click);
    }
    if (m_request.showsCursor) {
        changes.cursor = m_watch->cursor();
        if (changes.cursor) {
            changes.cursor->topLeft -= m_origin;
        }
    }
    return changes;
}

ScreenFrame XcbScreenFrameSource::capture()
{
    const RecordingDuration captured = m_request.clock();
    if (m_window) {
        return {m_capturer->captureWindow(m_windowID).image, captured};
    }
    // Our own windows (the control bar, the camera preview) are painted away
    // where the stacking says they are; one that appeared or moved during
    // the grab would otherwise stay in. Clicks seen meanwhile wait for the
    // next look.
    QList<ScreenFrameClick> clicks;
    if (m_watch->restacked(clicks, false)) {
        m_capturer->forgetStacking();
    }
    QImage frame = m_capturer->captureRegion(m_display, m_region);
    if (m_watch->restacked(clicks, true)) {
        m_capturer->forgetStacking();
        frame = m_capturer->captureRegion(m_display, m_region);
    }
    m_pendingClicks.append(clicks);
    return {frame, captured};
}

void XcbScreenFrameSource::stop()
{
    m_watch.reset();
    m_capturer.reset();
}

} // namespace nubo
