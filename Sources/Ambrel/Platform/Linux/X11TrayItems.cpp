#include "Platform/Linux/X11TrayItems.h"

#include "Platform/Linux/X11TraySearch.h"
#include "Platform/Linux/X11WindowMirror.h"
#include "Platform/Linux/X11WindowQuery.h"

#include <algorithm>
#include <utility>

namespace ambrel {

X11TrayItems::X11TrayItems(X11Connection& connection, X11TraySelection& selection, const X11WindowMirror& mirror)
    : connection_(connection), selection_(selection), mirror_(mirror) {
    subscriptions_.push_back(selection_.didChange.subscribe([this] { scan(); }));
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

void X11TrayItems::handle(const xcb_generic_event_t& event) {
    // The window that tells is at the same place in all of these.
    if (event.response_type == XCB_CREATE_NOTIFY || event.response_type == XCB_DESTROY_NOTIFY ||
        event.response_type == XCB_REPARENT_NOTIFY) {
        changed_ = changed_ || listened_.contains(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).event);
    }
}

void X11TrayItems::refresh() {
    if (selection_.owner() != XCB_WINDOW_NONE) {
        scan();
    }
}

void X11TrayItems::scan() {
    const auto tray = selection_.owner();
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
