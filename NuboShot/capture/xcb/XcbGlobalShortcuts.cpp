#include "capture/xcb/XcbGlobalShortcuts.h"

#include "capture/xcb/XcbConnection.h"
#include "core/Logging.h"

#include <QCoreApplication>
#include <QMetaObject>
#include <QSocketNotifier>

namespace nubo {

namespace {

// The keysyms of the keys a shortcut may use.
std::optional<uint32_t> keysymFor(Qt::Key key)
{
    switch (key) {
    case Qt::Key_Print:
        return 0xff61;
    case Qt::Key_Escape:
        return 0xff1b;
    case Qt::Key_Return:
        return 0xff0d;
    case Qt::Key_Enter:
        return 0xff8d; // on the keypad
    default:
        break;
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

constexpr uint16_t shortcutModifiers =
    XCB_MOD_MASK_SHIFT | XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_4;

// Num Lock and Caps Lock must not stop a shortcut.
constexpr uint16_t lockCombinations[] = {0, XCB_MOD_MASK_LOCK, XCB_MOD_MASK_2,
                                         XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};

std::vector<xcb_keycode_t> keycodes(xcb_connection_t* c, uint32_t keysym)
{
    const xcb_setup_t* setup = xcb_get_setup(c);
    const int count = setup->max_keycode - setup->min_keycode + 1;
    auto mapping = xcbReply(xcb_get_keyboard_mapping_reply(
        c, xcb_get_keyboard_mapping(c, setup->min_keycode, uint8_t(count)), nullptr));
    std::vector<xcb_keycode_t> found;
    if (!mapping) {
        return found;
    }
    const xcb_keysym_t* syms = xcb_get_keyboard_mapping_keysyms(mapping.get());
    for (int i = 0; i < count; ++i) {
        for (int k = 0; k < mapping->keysyms_per_keycode; ++k) {
            if (syms[i * mapping->keysyms_per_keycode + k] == keysym) {
                found.push_back(xcb_keycode_t(setup->min_keycode + i));
                break;
            }
        }
    }
    return found;
}

} // namespace

XcbGlobalShortcuts::XcbGlobalShortcuts(const QByteArray& displayName)
    : m_x(std::make_unique<XcbConnection>(displayName))
{
    m_notifier =
        std::make_unique<QSocketNotifier>(xcb_get_file_descriptor(m_x->c), QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { readEvents(); });
}

XcbGlobalShortcuts::~XcbGlobalShortcuts() = default;

void XcbGlobalShortcuts::releaseGrabs()
{
    for (const Grab& grab : m_grabs) {
        for (const uint16_t lock : lockCombinations) {
            xcb_ungrab_key(m_x->c, grab.keycode, m_x->root, uint16_t(grab.modifiers | lock));
        }
    }
    m_grabs.clear();
}

QStringList XcbGlobalShortcuts::bind(const QList<GlobalShortcutBinding>& bindings)
{
    releaseGrabs();
    QStringList problems;
    for (const GlobalShortcutBinding& binding : bindings) {
        if (binding.keys.isEmpty()) {
            continue; // switched off
        }
        const QString text = binding.keys.toString(QKeySequence::PortableText);
        const QKeyCombination combination = binding.keys[0];
        const auto keysym = keysymFor(combination.key());
        const auto codes = keysym ? keycodes(m_x->c, *keysym) : std::vector<xcb_keycode_t>();
        if (codes.empty()) {
            problems << QCoreApplication::translate("nubo::XcbGlobalShortcuts",
                                                    "The shortcut %1 is not on this keyboard.")
                            .arg(text);
            continue;
        }
        const uint16_t modifiers = xModifiers(combination.keyboardModifiers());
        bool taken = false;
        for (const xcb_keycode_t code : codes) {
            for (const uint16_t lock : lockCombinations) {
                taken = taken ||
                        xcbReply(xcb_request_check(
                            m_x->c, xcb_grab_key_checked(m_x->c, 1, m_x->root,
                                                         uint16_t(modifiers | lock), code,
                                                         XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
            }
            m_grabs.push_back({code, modifiers, binding.id});
        }
        if (taken) {
            problems << QCoreApplication::translate("nubo::XcbGlobalShortcuts",
                                                    "The shortcut %1 is used by another program.")
                            .arg(text);
        }
    }
    xcb_flush(m_x->c);
    for (const QString& problem : std::as_const(problems)) {
        qCWarning(lcCapture) << problem;
    }
    return problems;
}

void XcbGlobalShortcuts::readEvents()
{
    while (xcb_generic_event_t* raw = xcb_poll_for_event(m_x->c)) {
        const auto event = xcbReply(raw);
        if ((event->response_type & 0x7f) != XCB_KEY_PRESS) {
            continue;
        }
        const auto* press = reinterpret_cast<const xcb_key_press_event_t*>(event.get());
        const uint16_t modifiers = press->state & shortcutModifiers;
        for (const Grab& grab : m_grabs) {
            if (grab.keycode == press->detail && grab.modifiers == modifiers) {
                // Reported from the event loop, never from inside this read.
                QMetaObject::invokeMethod(
                    m_notifier.get(),
                    [this, id = grab.id] {
                        if (activated) {
                            activated(id);
                        }
                    },
                    Qt::QueuedConnection);
                break;
            }
        }
    }
}

} // namespace nubo
