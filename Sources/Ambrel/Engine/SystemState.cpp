#include "Engine/SystemState.h"

#include "Platform/Environment.h"
#include "Platform/Platform.h"

namespace ambrel {

SystemState& SystemState::shared() {
    static auto& state = *new SystemState(Platform::shared().environment());
    return state;
}

SystemState::SystemState(const Environment& environment)
    : forcedLocked_(environment.value("AMBREL_FORCE_SCREEN_LOCKED") == "1"),
      forcedSessionInactive_(environment.value("AMBREL_FORCE_SESSION_INACTIVE") == "1") {}

void SystemState::start() {
    if (!started_) {
        started_ = true;
        log_.notice("watching for screen lock, display sleep and session switches is not there yet");
    }
}

bool SystemState::isTrustworthy() const {
    return !forcedLocked_ && !forcedSessionInactive_;
}

std::string SystemState::untrustworthyReason() const {
    return forcedLocked_ ? "forced-lock" : forcedSessionInactive_ ? "forced-session-inactive" : "trusted";
}

} // namespace ambrel
