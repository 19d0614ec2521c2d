#include "Engine/SleepWakeHandler.h"

#include "Platform/Session.h"

#include <utility>

namespace ambrel {

SleepWakeHandler::SleepWakeHandler(Session& session, std::function<void()> onWake)
    : onWake_(std::move(onWake)), sleepObserver_(session.willSleep.subscribe([this] { willSleep(); })),
      wakeObserver_(session.didWake.subscribe([this] { didWake(); })) {}

void SleepWakeHandler::willSleep() {
    log_.notice("system will sleep");
}

void SleepWakeHandler::didWake() {
    log_.notice("system woke; rebuilding monitors");
    onWake_();
}

} // namespace ambrel
