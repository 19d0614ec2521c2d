#include "Platform/Linux/ScreenSaverService.h"

#include <utility>

namespace ambrel {

ScreenSaverService::ScreenSaverService(AsyncBus& sessionBus, const std::string& name, std::vector<std::string> paths)
    : service_(sessionBus, name), paths_(std::move(paths)), appeared_(service_.appeared.subscribe([this] { ask(); })),
      gone_(service_.vanished.subscribe([this] { vanished.emit(); })) {
    service_.subscribe(name, "ActiveChanged", [this](sd_bus_message* message) {
        if (const auto value = readBoolean(message)) {
            active.emit(*value);
        }
    });
    ask();
}

void ScreenSaverService::ask(std::size_t pathIndex) {
    if (pathIndex == paths_.size()) {
        return;
    }
    service_.call(paths_[pathIndex], name(), "GetActive", {}, [this, pathIndex](sd_bus_message* answer) {
        if (const auto value = readBoolean(answer)) {
            active.emit(*value);
        } else {
            ask(pathIndex + 1);
        }
    });
}

} // namespace ambrel
