#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/X11Connection.h"

#include <cstdint>

namespace ambrel {

/// The selection by which the XEmbed tray of the screen makes itself known. Its changes are heard from the server, not
/// from the tray's own announcement, which anybody could send.
class X11TraySelection {
public:
    /// `connection` must outlive this object.
    explicit X11TraySelection(X11Connection& connection);

    /// The window that speaks for the tray; none while there is no tray. Asks the server.
    [[nodiscard]] xcb_window_t owner() const;

    /// A tray has come or gone, or another has taken its place. Emitted after all events that have arrived.
    Signal<> didChange;

private:
    void watch();
    void handle(const xcb_generic_event_t& event);

    X11Connection& connection_;
    xcb_atom_t atom_ = XCB_ATOM_NONE;
    std::uint8_t notifyEvent_ = 0;
    bool changed_ = false;
    Subscription events_;
    Subscription drained_;
};

} // namespace ambrel
