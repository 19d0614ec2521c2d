#include "Platform/Linux/BusService.h"

#include <utility>

#include <fmt/core.h>

namespace ambrel {

BusService::BusService(AsyncBus& bus, std::string name)
    : bus_(bus), name_(std::move(name)), busLost_(bus.lost.subscribe([this] { vanished.emit(); })),
      // It may have come first; asking one that is not there does no harm.
      busCameBack_(bus.cameBack.subscribe([this] { appeared.emit(); })) {
    bus_.subscribe(fmt::format("type='signal',sender='org.freedesktop.DBus',path='/org/freedesktop/DBus',"
                               "interface='org.freedesktop.DBus',member='NameOwnerChanged',arg0='{}'",
                               name_),
                   [this](sd_bus_message* message) { ownerChanged(message); });
}

void BusService::call(const std::string& path, const std::string& interface, const std::string& method,
                      std::optional<std::string> argument, AsyncBus::Handler answer) {
    bus_.call({name_, path, interface, method, std::move(argument)}, std::move(answer));
}

void BusService::subscribe(const std::string& interface, const std::string& signal, AsyncBus::Handler handler,
                           const std::string& condition) {
    bus_.subscribe(
        fmt::format("type='signal',sender='{}',interface='{}',member='{}'{}", name_, interface, signal, condition),
        std::move(handler));
}

void BusService::ownerChanged(sd_bus_message* message) {
    const auto name = readText(message);
    const auto before = readText(message);
    const auto now = readText(message);
    if (name != name_ || !before || !now) {
        return;
    }
    if (!before->empty()) {
        vanished.emit();
    }
    if (!now->empty()) {
        appeared.emit();
    }
}

} // namespace ambrel
