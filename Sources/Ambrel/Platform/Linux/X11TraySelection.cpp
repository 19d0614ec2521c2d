#include "Platform/Linux/X11TraySelection.h"

#include <utility>

#include <fmt/core.h>
#include <xcb/xfixes.h>

namespace ambrel {

X11TraySelection::X11TraySelection(X11Connection& connection) : connection_(connection) {
    auto* const raw = connection_.raw();
    const auto name = fmt::format("_NET_SYSTEM_TRAY_S{}", connection_.screenNumber());
    const X11Message<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        raw, xcb_intern_atom(raw, 0, static_cast<std::uint16_t>(name.size()), name.c_str()), nullptr));
    atom_ = atom ? atom->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    watch();
    events_ = connection_.event.subscribe([this](const auto& event) { handle(event); });
    drained_ = connection_.drained.subscribe([this] {
        if (std::exchange(changed_, false)) {
            didChange.emit();
        }
    });
}

void X11TraySelection::watch() {
    auto* const raw = connection_.raw();
    const auto* const fixes = xcb_get_extension_data(raw, &xcb_xfixes_id);
    if (fixes == nullptr || fixes->present == 0) {
        return;
    }
    // A client that doesn't say which version it speaks is refused.
    const X11Message<xcb_xfixes_query_version_reply_t> version(
        xcb_xfixes_query_version_reply(raw, xcb_xfixes_query_version(raw, 1, 0), nullptr));
    notifyEvent_ = static_cast<std::uint8_t>(fixes->first_event + XCB_XFIXES_SELECTION_NOTIFY);
    xcb_xfixes_select_selection_input(raw, connection_.root(), atom_,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void X11TraySelection::handle(const xcb_generic_event_t& event) {
    if (notifyEvent_ != 0 && event.response_type == notifyEvent_) {
        const auto& notify = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
        changed_ = changed_ || notify.selection == atom_;
    }
}

xcb_window_t X11TraySelection::owner() const {
    const X11Message<xcb_get_selection_owner_reply_t> owner(
        xcb_get_selection_owner_reply(connection_.raw(), xcb_get_selection_owner(connection_.raw(), atom_), nullptr));
    return owner ? owner->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

} // namespace ambrel
