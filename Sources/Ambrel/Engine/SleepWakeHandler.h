#pragma once

#include "Core/Logger.h"
#include "Core/Signal.h"

#include <functional>

namespace ambrel {

class Session;

/// Calls back after the system has woken from sleep.
class SleepWakeHandler {
public:
    SleepWakeHandler(Session& session, std::function<void()> onWake);

private:
    void willSleep();
    void didWake();

    Logger log_{"sleepwake"};
    std::function<void()> onWake_;
    Subscription sleepObserver_;
    Subscription wakeObserver_;
};

} // namespace ambrel
