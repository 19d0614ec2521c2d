#include "Platform/Linux/X11Compositor.h"

#include "Platform/Linux/X11Property.h"

#include <algorithm>

#include <fmt/format.h>

namespace ambrel {

bool X11Compositor::isCompositing() const {
    auto* const raw = connection_.raw();
    const auto selection = internedAtom(fmt::format("_NET_WM_CM_S{}", connection_.screenNumber()));
    const X11Message<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(raw, xcb_get_selection_owner(raw, selection), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool X11Compositor::blurBehind(std::uintptr_t window) {
    const auto region = internedAtom("_KDE_NET_WM_BLUR_BEHIND_REGION");
    const auto supported =
        X11PropertyRequest(connection_, connection_.root(), connection_.atom(X11Atom::netSupported)).take().words();
    if (std::find(supported.begin(), supported.end(), region) == supported.end()) {
        return false;
    }
    // No rectangles: the whole window.
    xcb_change_property(connection_.raw(), XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window), region,
                        XCB_ATOM_CARDINAL, 32, 0, nullptr);
    xcb_flush(connection_.raw());
    return true;
}

xcb_atom_t X11Compositor::internedAtom(const std::string& name) const {
    auto* const raw = connection_.raw();
    const X11Message<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        raw, xcb_intern_atom(raw, 0, static_cast<std::uint16_t>(name.size()), name.data()), nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

} // namespace ambrel
