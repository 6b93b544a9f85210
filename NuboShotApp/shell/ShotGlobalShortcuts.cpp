#include "shell/ShotGlobalShortcuts.h"

#include "core/Logging.h"
#include "core/Settings.h"

#include <QKeySequence>
#include <QSocketNotifier>

#include <cstdlib>
#include <vector>
#include <xcb/xcb.h>

namespace nubo {

namespace {

// The keysyms of the keys a shortcut may use.
std::optional<uint32_t> keysymFor(Qt::Key key)
{
    if (key == Qt::Key_Print) {
        return 0xff61;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F12) {
        return 0xffbe + uint32_t(key - Qt::Key_F1);
    }
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return uint32_t(QChar(int(key)).toLower().unicode());
    }
    return std::nullopt;
}

uint16_t xModifiers(Qt::KeyboardModifiers modifiers)
{
    uint16_t mask = 0;
    mask |= modifiers & Qt::ShiftModifier ? XCB_MOD_MASK_SHIFT : 0;
    mask |= modifiers & Qt::ControlModifier ? XCB_MOD_MASK_CONTROL : 0;
    mask |= modifiers & Qt::AltModifier ? XCB_MOD_MASK_1 : 0;
    mask |= modifiers & Qt::MetaModifier ? XCB_MOD_MASK_4 : 0;
    return mask;
}

// Num Lock and Caps Lock must not stop a shortcut.
constexpr uint16_t lockCombinations[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                         XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

} // namespace

struct ShotGlobalShortcuts::Connection {
    xcb_connection_t* c = nullptr;
    xcb_window_t root = 0;
    struct Grab {
        xcb_keycode_t keycode;
        uint16_t modifiers;
        CaptureMode mode;
    };
    std::vector<Grab> grabs;

    ~Connection()
    {
        if (c) {
            xcb_disconnect(c);
        }
    }

    std::vector<xcb_keycode_t> keycodes(uint32_t keysym)
    {
        const xcb_setup_t* setup = xcb_get_setup(c);
        const int count = setup->max_keycode - setup->min_keycode + 1;
        auto* reply = xcb_get_keyboard_mapping_reply(
            c, xcb_get_keyboard_mapping(c, setup->min_keycode, uint8_t(count)), nullptr);
        std::vector<xcb_keycode_t> found;
        if (!reply) {
            return found;
        }
        const xcb_keysym_t* syms = xcb_get_keyboard_mapping_keysyms(reply);
        for (int i = 0; i < count; ++i) {
            for (int k = 0; k < reply->keysyms_per_keycode; ++k) {
                if (syms[i * reply->keysyms_per_keycode + k] == keysym) {
                    found.push_back(xcb_keycode_t(setup->min_keycode + i));
                    break;
                }
            }
        }
        std::free(reply);
        return found;
    }
};

QString ShotGlobalShortcuts::defaultShortcut(CaptureMode mode)
{
    switch (mode) {
    case CaptureMode::fullscreen:
        return QStringLiteral("Print");
    case CaptureMode::area:
        return QStringLiteral("Shift+Print");
    case CaptureMode::window:
        return QStringLiteral("Alt+Print");
    case CaptureMode::scrolling:
        return QStringLiteral("Ctrl+Shift+Print");
    }
    return {};
}

ShotGlobalShortcuts::ShotGlobalShortcuts(ShotPreferences& preferences,
                                         std::function<void(CaptureMode)> capture, QObject* parent)
    : QObject(parent), m_capture(std::move(capture)), m_x(std::make_unique<Connection>())
{
    m_x->c = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(m_x->c)) {
        m_problems << QStringLiteral("Shortcuts need an X display.");
        return;
    }
    m_x->root = xcb_setup_roots_iterator(xcb_get_setup(m_x->c)).data->root;
    for (const CaptureMode mode : allCases<CaptureMode>()) {
        if (mode == CaptureMode::scrolling) {
            continue; // offered once its session exists
        }
        const QString text = preferences.string(QStringLiteral("shot.shortcut.") + toString(mode))
                                 .value_or(defaultShortcut(mode));
        const QKeySequence sequence(text);
        if (sequence.isEmpty()) {
            continue; // switched off
        }
        const QKeyCombination combination = sequence[0];
        const auto keysym = keysymFor(combination.key());
        const auto codes = keysym ? m_x->keycodes(*keysym) : std::vector<xcb_keycode_t>();
        if (codes.empty()) {
            m_problems << QStringLiteral("The shortcut %1 is not on this keyboard.").arg(text);
            continue;
        }
        const uint16_t modifiers = xModifiers(combination.keyboardModifiers());
        bool taken = false;
        for (const xcb_keycode_t code : codes) {
            for (const uint16_t lock : lockCombinations) {
                xcb_generic_error_t* error = xcb_request_check(
                    m_x->c, xcb_grab_key_checked(m_x->c, 1, m_x->root, uint16_t(modifiers | lock),
                                                 code, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
                taken = taken || error;
                std::free(error);
            }
            m_x->grabs.push_back({code, modifiers, mode});
        }
        if (taken) {
            m_problems << QStringLiteral("The shortcut %1 is used by another program.").arg(text);
        }
    }
    for (const QString& problem : std::as_const(m_problems)) {
        qCWarning(lcApp) << problem;
    }
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_x->c), QSocketNotifier::Read);
    connect(m_notifier.get(), &QSocketNotifier::activated, this, &ShotGlobalShortcuts::readEvents);
    xcb_flush(m_x->c);
}

ShotGlobalShortcuts::~ShotGlobalShortcuts() = default;

void ShotGlobalShortcuts::readEvents()
{
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_x->c)) {
        if ((event->response_type & 0x7f) == XCB_KEY_PRESS) {
            const auto* press = reinterpret_cast<xcb_key_press_event_t*>(event);
            const uint16_t modifiers = press->state & (XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL |
                                                       XCB_MOD_MASK_1 | XCB_MOD_MASK_4);
            for (const auto& grab : m_x->grabs) {
                if (grab.keycode == press->detail && grab.modifiers == modifiers) {
                    const CaptureMode mode = grab.mode;
                    QMetaObject::invokeMethod(
                        this, [this, mode] { m_capture(mode); }, Qt::QueuedConnection);
                    break;
                }
            }
        }
        std::free(event);
    }
}

} // namespace nubo
