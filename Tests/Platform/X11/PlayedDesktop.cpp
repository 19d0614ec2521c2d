#include "Platform/X11/PlayedDesktop.h"

#include <array>

namespace ambrel {

std::unique_ptr<X11Connection> connect() {
    auto opened = X11Connection::open({}, Seconds(5));
    return std::move(std::get<std::unique_ptr<X11Connection>>(opened));
}

void sync(X11Connection& connection) {
    auto* const raw = connection.raw();
    const X11Message<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(raw, xcb_get_input_focus(raw), nullptr));
}

void PlayedWindowManager::announce() {
    auto* const raw = connection_->raw();
    check_ = xcb_generate_id(raw);
    xcb_create_window(raw, 0, check_, root(), -9, -9, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
    setWords(root(), X11Atom::netSupported, XCB_ATOM_ATOM,
             {connection_->atom(X11Atom::netClientList), connection_->atom(X11Atom::netWmStateHidden)});
    setWords(root(), X11Atom::netSupportingWmCheck, XCB_ATOM_WINDOW, {check_});
    setWords(check_, X11Atom::netSupportingWmCheck, XCB_ATOM_WINDOW, {check_});
}

void PlayedWindowManager::die() {
    xcb_destroy_window(connection_->raw(), check_);
    sync(*connection_);
}

void PlayedWindowManager::publish(const std::vector<xcb_window_t>& list) {
    setWords(root(), X11Atom::netClientList, XCB_ATOM_WINDOW, list);
}

void PlayedWindowManager::publishText(const std::string& text) {
    setProperty(root(), connection_->atom(X11Atom::netClientList), XCB_ATOM_STRING, 8, text);
}

void PlayedWindowManager::setProperty(xcb_window_t window, xcb_atom_t property, xcb_atom_t type, int format,
                                      const std::string& bytes) {
    const auto items = static_cast<std::uint32_t>(bytes.size() / static_cast<std::size_t>(format / 8));
    xcb_change_property(connection_->raw(), XCB_PROP_MODE_REPLACE, window, property, type,
                        static_cast<std::uint8_t>(format), items, bytes.data());
    sync(*connection_);
}

void PlayedWindowManager::setWords(xcb_window_t window, X11Atom property, xcb_atom_t type,
                                   const std::vector<std::uint32_t>& words) {
    const std::string bytes(reinterpret_cast<const char*>(words.data()), words.size() * sizeof(std::uint32_t));
    setProperty(window, connection_->atom(property), type, 32, bytes);
}

void PlayedWindowManager::removeProperty(xcb_window_t window, X11Atom property) {
    xcb_delete_property(connection_->raw(), window, connection_->atom(property));
    sync(*connection_);
}

xcb_window_t PlayedWindowManager::frame(xcb_window_t window, std::uint16_t width, std::uint16_t height) {
    auto* const raw = connection_->raw();
    const auto frame = xcb_generate_id(raw);
    xcb_create_window(raw, XCB_COPY_FROM_PARENT, frame, root(), 0, 0, width, height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_reparent_window(raw, window, frame, 0, 0);
    xcb_map_window(raw, frame);
    sync(*connection_);
    return frame;
}

void PlayedWindowManager::forgeDestruction(xcb_window_t window) {
    // The protocol sends every event as 32 bytes.
    union {
        xcb_destroy_notify_event_t notify;
        std::array<char, 32> bytes;
    } event{};
    event.notify.response_type = XCB_DESTROY_NOTIFY;
    event.notify.event = window;
    event.notify.window = window;
    xcb_send_event(connection_->raw(), 0, window, XCB_EVENT_MASK_STRUCTURE_NOTIFY, event.bytes.data());
    sync(*connection_);
}

} // namespace ambrel
