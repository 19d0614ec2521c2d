#include "Platform/Linux/LoginSession.h"

namespace ambrel {

namespace {

const std::string managerPath = "/org/freedesktop/login1";
const std::string managerInterface = "org.freedesktop.login1.Manager";
const std::string sessionInterface = "org.freedesktop.login1.Session";
const std::string propertiesInterface = "org.freedesktop.DBus.Properties";

} // namespace

LoginSession::LoginSession(AsyncBus& systemBus)
    : service_(systemBus, "org.freedesktop.login1"), appeared_(service_.appeared.subscribe([this] { ask(); })),
      gone_(service_.vanished.subscribe([this] { vanished.emit(); })) {
    forward("PrepareForSleep", preparesForSleep);
    forward("PrepareForShutdown", preparesForShutdown);
    service_.subscribe(
        propertiesInterface, "PropertiesChanged", [this](sd_bus_message* message) { propertiesChanged(message); },
        ",arg0='" + sessionInterface + "'");
    ask();
}

void LoginSession::forward(const char* signal, const Signal<bool>& news) {
    service_.subscribe(managerInterface, signal, [&news](sd_bus_message* message) {
        if (const auto begins = readBoolean(message)) {
            news.emit(*begins);
        }
    });
}

void LoginSession::ask() {
    // "auto" is the session of this process or, where it runs outside of all sessions, the user's graphical one. Its
    // signals come from the object of its real name.
    service_.call(managerPath, managerInterface, "GetSession", "auto", [this](sd_bus_message* session) {
        path_ = readText(session, SD_BUS_TYPE_OBJECT_PATH).value_or("");
        if (!path_.empty()) {
            service_.call(path_, propertiesInterface, "GetAll", sessionInterface,
                          [this](sd_bus_message* properties) { readProperties(properties); });
        }
    });
}

void LoginSession::propertiesChanged(sd_bus_message* message) {
    const char* const path = sd_bus_message_get_path(message);
    if (path != nullptr && path_ == path && readText(message)) {
        readProperties(message);
    }
}

void LoginSession::readProperties(sd_bus_message* message) {
    std::optional<bool> lockedHint;
    readBooleans(message, [&](const std::string& name, bool value) {
        if (name == "LockedHint") {
            lockedHint = value;
        } else if (name == "Active") {
            active_ = value;
        }
    });
    if (lockedHint) {
        locked.emit(*lockedHint);
    }
    activeChanged.emit();
}

} // namespace ambrel
