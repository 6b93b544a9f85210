#include "capture/xcb/XcbCapturePlatform.h"

#include "capture/xcb/XcbConnection.h"
#include "capture/xcb/XcbGlobalShortcuts.h"
#include "capture/xcb/XcbRegionStream.h"
#include "capture/xcb/XcbScreenCapturer.h"
#include "capture/xcb/XcbScreenFrameSource.h"
#include "capture/xcb/XcbScrollDriver.h"
#include "core/Logging.h"

#include <QFile>

#include <xcb/res.h>
#include <xcb/screensaver.h>

namespace nubo {

XcbCapturePlatform::XcbCapturePlatform(QByteArray displayName, ScaleLookup scale)
    : m_displayName(std::move(displayName)), m_scale(scale),
      m_capturer(std::make_shared<XcbScreenCapturer>(m_displayName, scale)),
      m_streaming(std::make_shared<XcbRegionStreaming>(m_displayName, scale)),
      m_driving(std::make_shared<XcbScrollDriving>(m_displayName, m_capturer))
{
    m_capturer->connect();
}

XcbCapturePlatform::~XcbCapturePlatform() = default;

CapturePlatformFeatures XcbCapturePlatform::features() const
{
    return {{CaptureMode::area, CaptureMode::window, CaptureMode::fullscreen,
             CaptureMode::scrolling, CaptureMode::text, CaptureMode::lastArea},
            true,
            true,
            true,
            true,
            true};
}

std::shared_ptr<ScreenCapturing> XcbCapturePlatform::capturer()
{
    return m_capturer;
}

std::shared_ptr<ScreenRegionStreaming> XcbCapturePlatform::regionStreaming()
{
    return m_streaming;
}

std::shared_ptr<ScrollDriving> XcbCapturePlatform::scrollDriving()
{
    return m_driving;
}

std::unique_ptr<ScreenFrameSource> XcbCapturePlatform::makeFrameSource()
{
    return std::make_unique<XcbScreenFrameSource>(m_displayName, m_scale);
}

bool XcbCapturePlatform::holdScreenSaver(bool hold)
{
    // The server lifts a client's suspension when its connection closes, so
    // a crash never leaves the screen saver off.
    try {
        if (!hold) {
            m_screenSaver.reset();
            return true;
        }
        if (!m_screenSaver || m_screenSaver->broken()) {
            m_screenSaver = std::make_unique<XcbConnection>(m_displayName);
        }
        XcbConnection& x = *m_screenSaver;
        const xcb_query_extension_reply_t* extension = xcb_get_extension_data(x.c, &xcb_screensaver_id);
        if (!extension || !extension->present) {
            qCInfo(lcCapture, "The X server has no screen saver extension to hold off");
            m_screenSaver.reset();
            return false;
        }
        auto version = xcbReply(xcb_screensaver_query_version_reply(
            x.c, xcb_screensaver_query_version(x.c, 1, 1), nullptr));
        if (!version) {
            m_screenSaver.reset();
            return false;
        }
        const auto error =
            xcbReply(xcb_request_check(x.c, xcb_screensaver_suspend_checked(x.c, 1)));
        if (error) {
            qCWarning(lcCapture, "The X server refused to hold off its screen saver (error %d)",
                      int(error->error_code));
            m_screenSaver.reset();
            return false;
        }
        // A screen saver that started already (during a countdown) goes.
        xcb_force_screen_saver(x.c, XCB_SCREEN_SAVER_RESET);
        xcb_flush(x.c);
        return true;
    } catch (const Error& error) {
        qCWarning(lcCapture, "The screen saver is not held off: %s", qPrintable(error.message()));
        return false;
    }
}

XcbConnection* XcbCapturePlatform::ownerLookup()
{
    try {
        if (!m_ownerLookup || m_ownerLookup->broken()) {
            m_ownerLookup = std::make_unique<XcbConnection>(m_displayName);
        }
    } catch (const Error&) {
        return nullptr;
    }
    return m_ownerLookup.get();
}

quint32 XcbCapturePlatform::selectionOwner(XcbConnection& x, const QByteArray& selection)
{
    auto atom = xcbReply(xcb_intern_atom_reply(
        x.c, xcb_intern_atom(x.c, 1, uint16_t(selection.size()), selection.constData()), nullptr));
    if (!atom || atom->atom == XCB_NONE) {
        return XCB_NONE; // never named: nobody owns it
    }
    auto owner = xcbReply(xcb_get_selection_owner_reply(
        x.c, xcb_get_selection_owner(x.c, atom->atom), nullptr));
    return owner ? owner->owner : XCB_NONE;
}

bool XcbCapturePlatform::windowsComposited()
{
    // A compositing manager owns _NET_WM_CM_Sn for the screen it draws.
    XcbConnection* x = ownerLookup();
    return x && selectionOwner(*x, "_NET_WM_CM_S" + QByteArray::number(x->screenNumber)) != XCB_NONE;
}

std::optional<QString> XcbCapturePlatform::clipboardOwner()
{
    XcbConnection* lookup = ownerLookup();
    const xcb_window_t ownerWindow = lookup ? selectionOwner(*lookup, "CLIPBOARD") : XCB_NONE;
    if (ownerWindow == XCB_NONE) {
        return std::nullopt;
    }
    XcbConnection& x = *lookup;
    // The class in WM_CLASS ("instance\0Class\0") names the application.
    const QList<QByteArray> wmClass =
        x.property(ownerWindow, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 256).split('\0');
    if (wmClass.size() >= 2 && !wmClass[1].isEmpty()) {
        return QString::fromUtf8(wmClass[1]);
    }
    // Clipboard windows often have no properties: the program behind the
    // connection that made the window, by its process.
    xcb_res_client_id_spec_t query{ownerWindow, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    auto ids = xcbReply(
        xcb_res_query_client_ids_reply(x.c, xcb_res_query_client_ids(x.c, 1, &query), nullptr));
    if (!ids) {
        return std::nullopt;
    }
    for (auto it = xcb_res_query_client_ids_ids_iterator(ids.get()); it.rem;
         xcb_res_client_id_value_next(&it)) {
        // Only process ids were asked for: each answer of one value is one.
        if (xcb_res_client_id_value_value_length(it.data) == 1) {
            const uint32_t pid = *xcb_res_client_id_value_value(it.data);
            QFile comm(QStringLiteral("/proc/%1/comm").arg(pid));
            if (comm.open(QIODevice::ReadOnly)) {
                const QString program = QString::fromUtf8(comm.readAll()).trimmed();
                if (!program.isEmpty()) {
                    return program;
                }
            }
        }
    }
    return std::nullopt;
}

std::unique_ptr<GlobalShortcuts> XcbCapturePlatform::makeGlobalShortcuts()
{
    return std::make_unique<XcbGlobalShortcuts>(m_displayName);
}

} // namespace nubo
