#pragma once

#include "XDisplay.h"

#include <memory>

#include <systemd/sd-bus.h>

namespace ambrel::sample {

/// The application's icons in the trays of both kinds; one of each at most.
class TrayIcons {
public:
    explicit TrayIcons(XDisplay& display) : display_(display) {}

    /// Asks the XEmbed tray of the first screen to take a window; false if there is none.
    bool dock();
    void undock();
    [[nodiscard]] bool isIcon(xcb_window_t window) const { return icon_ != XCB_NONE && window == icon_; }
    /// Registers a StatusNotifierItem, which answers no questions; false if there is no watcher.
    bool registerItem();
    void unregisterItem() { bus_.reset(); }

private:
    struct Close {
        void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
    };

    XDisplay& display_;
    xcb_window_t icon_ = XCB_NONE;
    std::unique_ptr<sd_bus, Close> bus_;
};

} // namespace ambrel::sample
