#include "TrayIcons.h"

#include <utility>

namespace ambrel::sample {

bool TrayIcons::dock() {
    const xcb_window_t tray = display_.selectionOwner("_NET_SYSTEM_TRAY_S0");
    if (tray == XCB_NONE) {
        return false;
    }
    icon_ = display_.createIcon();
    constexpr std::uint32_t requestDock = 0;
    display_.sendMessage(tray, "_NET_SYSTEM_TRAY_OPCODE", {XCB_CURRENT_TIME, requestDock, icon_});
    return true;
}

void TrayIcons::undock() {
    display_.destroy(std::exchange(icon_, XCB_NONE));
}

bool TrayIcons::registerItem() {
    sd_bus* bus = nullptr;
    if (sd_bus_open_user(&bus) < 0) {
        return false;
    }
    bus_.reset(bus);
    constexpr const char* watcher = "org.kde.StatusNotifierWatcher";
    return sd_bus_call_method(bus, watcher, "/StatusNotifierWatcher", watcher, "RegisterStatusNotifierItem", nullptr,
                              nullptr, "s", "/StatusNotifierItem") >= 0;
}

} // namespace ambrel::sample
