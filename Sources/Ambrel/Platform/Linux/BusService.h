#pragma once

#include "Core/Signal.h"
#include "Platform/Linux/AsyncBus.h"

#include <optional>
#include <string>

namespace ambrel {

/// A service of a bus that may come, go and come back. Asking never starts it.
class BusService {
public:
    /// `bus` must outlive this object.
    BusService(AsyncBus& bus, std::string name);

    void call(const std::string& path, const std::string& interface, const std::string& method,
              std::optional<std::string> argument, AsyncBus::Handler answer);
    /// Hears its signals of this name, on whichever object; `condition` may narrow the rule, like ",arg0='x'".
    void subscribe(const std::string& interface, const std::string& signal, AsyncBus::Handler handler,
                   const std::string& condition = {});

    [[nodiscard]] const std::string& name() const { return name_; }

    /// It, or another in its place, has come: what the last one said is worth nothing any more.
    Signal<> appeared;
    Signal<> vanished;

private:
    void ownerChanged(sd_bus_message* message);

    AsyncBus& bus_;
    std::string name_;
    Subscription busLost_;
    Subscription busCameBack_;
};

} // namespace ambrel
