#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/BusService.h"

#include <cstddef>
#include <string>
#include <vector>

namespace ambrel {

/// A screen saver, or screen locker, of the session bus.
class ScreenSaverService {
public:
    /// `name` is the service's, and its interface's too; `paths` are those of which it may serve one or several.
    /// Asks at once. `sessionBus` must outlive this object.
    ScreenSaverService(AsyncBus& sessionBus, const std::string& name, std::vector<std::string> paths);
    ScreenSaverService(const ScreenSaverService&) = delete;
    ScreenSaverService& operator=(const ScreenSaverService&) = delete;

    /// What it answers, if it runs, comes as news.
    void ask() { ask(0); }
    [[nodiscard]] const std::string& name() const { return service_.name(); }

    Signal<bool> active; ///< heard, whether it is new or not
    Signal<> vanished;

private:
    void ask(std::size_t pathIndex);

    BusService service_;
    std::vector<std::string> paths_;
    Subscription appeared_;
    Subscription gone_;
};

} // namespace ambrel
