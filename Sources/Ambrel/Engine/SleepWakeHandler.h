#pragma once

#include "Core/Logger.h"

#include <functional>
#include <utility>

namespace ambrel {

/// Calls back after the system has woken from sleep.
class SleepWakeHandler {
public:
    explicit SleepWakeHandler(std::function<void()> onWake) : onWake_(std::move(onWake)) {
        Logger("sleepwake").notice("watching for system sleep is not there yet");
    }

private:
    std::function<void()> onWake_;
};

} // namespace ambrel
