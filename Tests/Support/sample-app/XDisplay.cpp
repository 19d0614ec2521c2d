#include "XDisplay.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace ambrel::sample {

namespace {
constexpr std::uint32_t iconicState = 3;
constexpr std::uint32_t redirectMask = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;

template <typename Reply> auto owned(Reply* reply) {
    return std::unique_ptr<Reply, void (*)(void*)>(reply, std::free);
}
} // namespace

XDisplay::XDisplay() : connection_(xcb_connect(nullptr, nullptr), xcb_disconnect) {
    if (isConnected()) {
        root_ = xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
    }
}

bool XDisplay::isConnected() const {
    return xcb_connection_has_error(connection()) == 0;
}

xcb_atom_t XDisplay::atom(const std::string& name) {
    if (const auto known = atoms_.find(name); known != atoms_.end()) {
        return known->second;
    }
    const auto cookie = xcb_intern_atom(connection(), 0, static_cast<std::uint16_t>(name.size()), name.c_str());
    const auto reply = owned(xcb_intern_atom_reply(connection(), cookie, nullptr));
    return atoms_[name] = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

xcb_window_t XDisplay::create(const Options& options, bool isDialog, xcb_window_t parent) {
    const xcb_window_t window = xcb_generate_id(connection());
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, window, root_, 0, 0, 300, 200, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    setText(window, "_NET_WM_NAME", atom("UTF8_STRING"), "sample");
    setText(window, "WM_CLASS", XCB_ATOM_STRING, options.instance + '\0' + options.className + '\0');
    setText(window, "WM_CLIENT_MACHINE", XCB_ATOM_STRING, options.machine);
    setNumber(window, "WM_PROTOCOLS", XCB_ATOM_ATOM, atom("WM_DELETE_WINDOW"));
    setType(window, isDialog ? "DIALOG" : "NORMAL");
    setNumber(window, "_NET_WM_PID", XCB_ATOM_CARDINAL,
              static_cast<std::uint32_t>(std::strtoul(options.pid.c_str(), nullptr, 10)));
    if (parent != XCB_NONE) {
        setNumber(window, "WM_TRANSIENT_FOR", XCB_ATOM_WINDOW, parent);
    }
    return window;
}

void XDisplay::setType(xcb_window_t window, const std::string& type) {
    setNumber(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, atom("_NET_WM_WINDOW_TYPE_" + type));
    xcb_flush(connection());
}

void XDisplay::map(xcb_window_t window) {
    xcb_map_window(connection(), window);
    xcb_flush(connection());
}

void XDisplay::destroy(xcb_window_t window) {
    xcb_destroy_window(connection(), window);
    xcb_flush(connection());
}

void XDisplay::withdraw(xcb_window_t window) {
    xcb_unmap_window(connection(), window);
    xcb_unmap_notify_event_t event{};
    event.response_type = XCB_UNMAP_NOTIFY;
    event.event = root_;
    event.window = window;
    xcb_send_event(connection(), 0, root_, redirectMask, reinterpret_cast<const char*>(&event));
    xcb_flush(connection());
}

void XDisplay::minimise(xcb_window_t window) {
    send(root_, redirectMask, window, "WM_CHANGE_STATE", {iconicState});
}

void XDisplay::requestClose(xcb_window_t window) {
    send(root_, redirectMask, window, "_NET_CLOSE_WINDOW", {XCB_CURRENT_TIME});
}

xcb_window_t XDisplay::selectionOwner(const std::string& selection) {
    const auto cookie = xcb_get_selection_owner(connection(), atom(selection));
    const auto reply = owned(xcb_get_selection_owner_reply(connection(), cookie, nullptr));
    return reply ? reply->owner : static_cast<xcb_window_t>(XCB_NONE);
}

xcb_window_t XDisplay::createIcon() {
    const xcb_window_t icon = xcb_generate_id(connection());
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_create_window(connection(), XCB_COPY_FROM_PARENT, icon, root_, 0, 0, 16, 16, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    const std::array<std::uint32_t, 2> versionAndMapped{0, 1};
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, icon, atom("_XEMBED_INFO"), atom("_XEMBED_INFO"), 32,
                        versionAndMapped.size(), versionAndMapped.data());
    return icon;
}

void XDisplay::sendMessage(xcb_window_t window, const std::string& type, const std::vector<std::uint32_t>& data) {
    send(window, XCB_EVENT_MASK_NO_EVENT, window, type, data);
}

void XDisplay::watch(xcb_window_t window) {
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection(), window, XCB_CW_EVENT_MASK, &events);
    xcb_flush(connection());
}

void XDisplay::roundTrip() {
    owned(xcb_get_input_focus_reply(connection(), xcb_get_input_focus(connection()), nullptr));
}

void XDisplay::setText(xcb_window_t window, const std::string& property, xcb_atom_t type, std::string_view text) {
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, atom(property), type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

void XDisplay::setNumber(xcb_window_t window, const std::string& property, xcb_atom_t type, std::uint32_t value) {
    xcb_change_property(connection(), XCB_PROP_MODE_REPLACE, window, atom(property), type, 32, 1, &value);
}

void XDisplay::send(xcb_window_t receiver, std::uint32_t mask, xcb_window_t window, const std::string& type,
                    const std::vector<std::uint32_t>& data) {
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(type);
    std::copy_n(data.begin(), std::min<std::size_t>(data.size(), 5), event.data.data32);
    xcb_send_event(connection(), 0, receiver, mask, reinterpret_cast<const char*>(&event));
    xcb_flush(connection());
}

} // namespace ambrel::sample
