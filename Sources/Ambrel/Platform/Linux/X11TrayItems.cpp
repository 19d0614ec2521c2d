#include "Platform/Linux/X11TrayItems.h"

#include "Platform/Linux/X11TraySearch.h"
#include "Platform/Linux/X11WindowMirror.h"
#include "Platform/Linux/X11WindowQuery.h"

#include <algorithm>
#include <utility>

#include <fmt/core.h>
#include <xcb/xfixes.h>

namespace ambrel {

X11TrayItems::X11TrayItems(X11Connection& connection, const X11WindowMirror& mirror)
    : connection_(connection), mirror_(mirror) {
    watchSelection();
    subscriptions_.push_back(connection_.event.subscribe([this](const auto& event) { handle(event); }));
    subscriptions_.push_back(connection_.drained.subscribe([this] {
        if (std::exchange(changed_, false)) {
            scan();
        }
    }));
    scan();
}

bool X11TrayItems::owns(ProcessId pid) const {
    // Some window managers are trays, too, and what they frame is no icon.
    return std::any_of(icons_.begin(), icons_.end(),
                       [&](const auto& icon) { return icon.second == pid && mirror_.find(icon.first) == nullptr; });
}

void X11TrayItems::watchSelection() {
    auto* const raw = connection_.raw();
    const auto name = fmt::format("_NET_SYSTEM_TRAY_S{}", connection_.screenNumber());
    const X11Message<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        raw, xcb_intern_atom(raw, 0, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
    const auto* const fixes = xcb_get_extension_data(raw, &xcb_xfixes_id);
    selection_ = atom ? atom->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    if (fixes == nullptr || fixes->present == 0) {
        return;
    }
    // A client that doesn't say which version it speaks is refused.
    const X11Message<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(raw, xcb_xfixes_query_version(raw, 1, 0), nullptr));
    selectionEvent_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(raw, connection_.root(), selection_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void X11TrayItems::handle(const xcb_generic_event_t& event) {
    if (event.response_type == selectionEvent_ && selectionEvent_ != 0) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        changed_ = changed_ || notify.selection == selection_;
        return;
    }
    // The window that tells is at the same place in all of these.
    if (event.response_type == XCB_CREATE_NOTIFY || event.response_type == XCB_DESTROY_NOTIFY ||
        event.response_type == XCB_REPARENT_NOTIFY) {
        changed_ = changed_ || listened_.contains(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).event);
    }
}

void X11TrayItems::refresh() {
    if (readTray() != XCB_WINDOW_NONE) {
        scan();
    }
}

xcb_window_t X11TrayItems::readTray() const {
    const X11Message<xcb_get_selection_owner_reply_t> owner(xcb_get_selection_owner_reply(
        connection_.raw(), xcb_get_selection_owner(connection_.raw(), selection_), nullptr));
    return owner ? owner->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

void X11TrayItems::scan() {
    const auto tray = readTray();
    X11TrayContents contents;
    if (tray != XCB_WINDOW_NONE) {
        contents = searchX11Tray(connection_, tray);
    }
    const bool isNew = listened_ != contents.own;
    listen(std::move(contents.own));
    // What came into a window before it was listened to is not told of.
    if (isNew && tray != XCB_WINDOW_NONE) {
        contents = searchX11Tray(connection_, tray);
    }
    if (auto icons = readOwners(contents.docked); icons != icons_) {
        icons_ = std::move(icons);
        didChange.emit();
    }
}

void X11TrayItems::listen(std::unordered_set<xcb_window_t> windows) {
    for (const auto window : listened_) {
        if (!windows.contains(window)) {
            connection_.selectEvents(window, XCB_EVENT_MASK_NO_EVENT, X11Listener::tray);
        }
    }
    for (const auto window : windows) {
        if (!listened_.contains(window)) {
            connection_.selectEvents(window, XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY, X11Listener::tray);
        }
    }
    listened_ = std::move(windows);
}

X11TrayItems::Icons X11TrayItems::readOwners(const std::vector<xcb_window_t>& windows) const {
    std::vector<X11OwnerQuery> queries;
    queries.reserve(windows.size());
    for (const auto window : windows) {
        queries.emplace_back(connection_, window);
    }
    Icons icons;
    for (std::size_t index = 0; index < windows.size(); ++index) {
        if (const auto pid = queries[index].take()) {
            icons.emplace(windows[index], *pid);
        }
    }
    return icons;
}

} // namespace ambrel
