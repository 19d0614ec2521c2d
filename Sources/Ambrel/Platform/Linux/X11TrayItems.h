#pragma once

#include "Platform/Linux/TrayItems.h"
#include "Platform/Linux/X11Connection.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ambrel {

class X11WindowMirror;

/// The windows that are docked in the XEmbed tray of the screen. The tray may come late, or go and come back.
class X11TrayItems final : public TrayItems {
public:
    /// Both must outlive this object.
    X11TrayItems(X11Connection& connection, const X11WindowMirror& mirror);

    [[nodiscard]] bool owns(ProcessId pid) const override;

    /// To be called when there is reason to think that the tray has windows that it had not before.
    void refresh();

private:
    using Icons = std::unordered_map<xcb_window_t, ProcessId>;

    void watchSelection();
    void handle(const xcb_generic_event_t& event);
    void scan();
    [[nodiscard]] xcb_window_t readTray() const;
    void listen(std::unordered_set<xcb_window_t> windows);
    [[nodiscard]] Icons readOwners(const std::vector<xcb_window_t>& windows) const;

    X11Connection& connection_;
    const X11WindowMirror& mirror_;
    xcb_atom_t selection_ = XCB_ATOM_NONE;
    std::uint8_t selectionEvent_ = 0;
    bool changed_ = false;
    std::unordered_set<xcb_window_t> listened_;
    Icons icons_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
