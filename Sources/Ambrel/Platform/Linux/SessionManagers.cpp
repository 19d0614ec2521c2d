#include "Platform/Linux/SessionManagers.h"

namespace ambrel {

namespace {

// States of Xfce's session manager. It also saves the session while it goes on, which is 2.
constexpr std::uint32_t xfceIdle = 1;
constexpr std::uint32_t xfceShutdown = 3;

} // namespace

SessionManagers::SessionManagers(AsyncBus& sessionBus)
    : gnome_(sessionBus, "org.gnome.SessionManager"), xfce_(sessionBus, "org.xfce.SessionManager") {
    gnome_.subscribe("org.gnome.SessionManager", "SessionOver", [this](sd_bus_message*) { ending.emit(true); });
    xfce_.subscribe("org.xfce.Session.Manager", "StateChanged", [this](sd_bus_message* message) {
        std::uint32_t before = 0;
        std::uint32_t now = 0;
        const bool isRead = sd_bus_message_read(message, "uu", &before, &now) > 0;
        if (isRead && (now == xfceIdle || now >= xfceShutdown)) {
            ending.emit(now >= xfceShutdown);
        }
    });
}

} // namespace ambrel
