#include "capture/xcb/XcbScrollDriver.h"

#include "capture/xcb/XcbConnection.h"
#include "capture/xcb/XcbScreenCapturer.h"
#include "core/Logging.h"

#include <xcb/xinput.h>
#include <xcb/xtest.h>

namespace nubo {

namespace {

constexpr uint8_t wheelUp = 4;
constexpr uint8_t wheelDown = 5;
constexpr uint8_t lastWheelButton = 7; // 6 and 7 turn a wheel sideways

class XcbScrollDriver final : public ScrollDriver {
public:
    XcbScrollDriver(const QByteArray& displayName, QPoint park) : m_x(displayName), m_park(park)
    {
        const xcb_query_extension_reply_t* xtest = xcb_get_extension_data(m_x.c, &xcb_test_id);
        if (!xtest || !xtest->present) {
            throw CaptureError(CaptureError::Code::noContent,
                               QStringLiteral("the X server has no XTEST extension"));
        }
        watchUserInput();
        auto pointer = xcbReply(
            xcb_query_pointer_reply(m_x.c, xcb_query_pointer(m_x.c, m_x.root), nullptr));
        if (pointer) {
            m_restore = QPoint(pointer->root_x, pointer->root_y);
        }
        moveTo(m_park);
    }

    ~XcbScrollDriver() override
    {
        // Back where the user left it, unless they have moved it since.
        if (m_restore && pointerAt() == m_park) {
            moveTo(*m_restore);
        }
    }

    void scroll(int notches) override
    {
        const uint8_t button = notches > 0 ? wheelDown : wheelUp;
        for (int i = 0; i < std::abs(notches); ++i) {
            xcb_test_fake_input(m_x.c, XCB_BUTTON_PRESS, button, XCB_CURRENT_TIME, XCB_NONE, 0, 0,
                                0);
            xcb_test_fake_input(m_x.c, XCB_BUTTON_RELEASE, button, XCB_CURRENT_TIME, XCB_NONE, 0,
                                0, 0);
        }
        sync();
    }

    bool userInterrupted() override
    {
        while (!m_interrupted) {
            auto event = xcbReply(xcb_poll_for_event(m_x.c));
            if (!event) {
                break;
            }
            if ((event->response_type & 0x7f) != XCB_GE_GENERIC) {
                continue;
            }
            const auto* generic = reinterpret_cast<const xcb_ge_generic_event_t*>(event.get());
            if (generic->extension != m_xinputOpcode) {
                continue;
            }
            if (generic->event_type == XCB_INPUT_RAW_KEY_PRESS) {
                qCInfo(lcScrolling, "Auto-scroll: the user pressed a key");
                m_interrupted = true;
            } else if (generic->event_type == XCB_INPUT_RAW_BUTTON_PRESS) {
                const auto* press =
                    reinterpret_cast<const xcb_input_raw_button_press_event_t*>(event.get());
                // Wheel notches (ours among them) are not clicks.
                if (press->detail < wheelUp || press->detail > lastWheelButton) {
                    qCInfo(lcScrolling, "Auto-scroll: the user pressed button %u",
                           unsigned(press->detail));
                    m_interrupted = true;
                }
            }
        }
        if (!m_interrupted && pointerAt() != m_park) {
            qCInfo(lcScrolling, "Auto-scroll: the user moved the pointer");
            m_interrupted = true;
        }
        return m_interrupted;
    }

private:
    // Raw key and button presses of every device come to us, whoever has
    // the focus or a grab (XInput 2.1 and later).
    void watchUserInput()
    {
        const xcb_query_extension_reply_t* xinput = xcb_get_extension_data(m_x.c, &xcb_input_id);
        auto version = xinput && xinput->present
                           ? xcbReply(xcb_input_xi_query_version_reply(
                                 m_x.c, xcb_input_xi_query_version(m_x.c, 2, 2), nullptr))
                           : XcbReply<xcb_input_xi_query_version_reply_t>(nullptr, &std::free);
        if (!version || version->major_version < 2) {
            // Still stopped by moving the pointer away.
            qCWarning(lcScrolling,
                      "Auto-scroll: no XInput 2 on this X server, keys and clicks do not stop it");
            return;
        }
        m_xinputOpcode = xinput->major_opcode;
        struct {
            xcb_input_event_mask_t head;
            uint32_t bits;
        } mask{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
               XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS};
        xcb_input_xi_select_events(m_x.c, m_x.root, 1, &mask.head);
        sync();
    }

    std::optional<QPoint> pointerAt()
    {
        auto pointer = xcbReply(
            xcb_query_pointer_reply(m_x.c, xcb_query_pointer(m_x.c, m_x.root), nullptr));
        if (!pointer) {
            return std::nullopt;
        }
        return QPoint(pointer->root_x, pointer->root_y);
    }

    void moveTo(QPoint at)
    {
        xcb_test_fake_input(m_x.c, XCB_MOTION_NOTIFY, 0, XCB_CURRENT_TIME, m_x.root, int16_t(at.x()),
                            int16_t(at.y()), 0);
        sync();
    }

    // Returns once the server has handled every request sent before.
    void sync()
    {
        std::free(xcb_get_input_focus_reply(m_x.c, xcb_get_input_focus(m_x.c), nullptr));
    }

    XcbConnection m_x;
    QPoint m_park;
    std::optional<QPoint> m_restore;
    uint8_t m_xinputOpcode = 0;
    bool m_interrupted = false;
};

} // namespace

XcbScrollDriving::XcbScrollDriving(QByteArray displayName,
                                   std::shared_ptr<XcbScreenCapturer> capturer)
    : m_displayName(std::move(displayName)), m_capturer(std::move(capturer))
{}

std::unique_ptr<ScrollDriver> XcbScrollDriving::drive(quint32 display,
                                                      const ScreenCaptureRegion& region)
{
    for (const CaptureDisplay& d : m_capturer->displays()) {
        if (d.id == display) {
            // The pointer rests in the middle of the region, where the wheel
            // reaches what scrolls there.
            return std::make_unique<XcbScrollDriver>(
                m_displayName, d.pixelGeometry.topLeft() + region.pixelRect.center());
        }
    }
    throw CaptureError(CaptureError::Code::noContent, QStringLiteral("the display is gone"));
}

} // namespace nubo
