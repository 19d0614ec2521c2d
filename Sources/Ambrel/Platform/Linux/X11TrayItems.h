#pragma once

#include "Platform/Linux/TrayItems.h"
#include "Platform/Linux/X11TraySelection.h"

#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace ambrel {

class X11WindowMirror;

/// The windows that are docked in the XEmbed tray of the screen. The tray may come late, or go and come back.
class X11TrayItems final : public TrayItems {
public:
    /// All must outlive this object.
    X11TrayItems(X11Connection& connection, X11TraySelection& selection, const X11WindowMirror& mirror);

    [[nodiscard]] bool owns(ProcessId pid) const override;

    /// To be called when there is reason to think that the tray has windows that it had not before.
    void refresh();

private:
    using Icons = std::unordered_map<xcb_window_t, ProcessId>;

    void handle(const xcb_generic_event_t& event);
    void scan();
    void listen(std::unordered_set<xcb_window_t> windows);
    [[nodiscard]] Icons readOwners(const std::vector<xcb_window_t>& windows) const;

    X11Connection& connection_;
    X11TraySelection& selection_;
    const X11WindowMirror& mirror_;
    bool changed_ = false;
    std::unordered_set<xcb_window_t> listened_;
    Icons icons_;
    std::vector<Subscription> subscriptions_;
};

} // namespace ambrel
