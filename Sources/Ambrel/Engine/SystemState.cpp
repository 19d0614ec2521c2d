#include "Engine/SystemState.h"

#include "Platform/Environment.h"
#include "Platform/Platform.h"
#include "Platform/Session.h"

namespace ambrel {

SystemState& SystemState::shared() {
    static auto& state = *new SystemState(Platform::shared().environment(), Platform::shared().session());
    return state;
}

SystemState::SystemState(const Environment& environment, Session& session)
    : session_(session), forcedLocked_(environment.value("AMBREL_FORCE_SCREEN_LOCKED") == "1"),
      forcedSessionInactive_(environment.value("AMBREL_FORCE_SESSION_INACTIVE") == "1") {}

void SystemState::start() {
    if (started_) {
        return;
    }
    started_ = true;
    observe();
    session_.start();
    seed();
    log_.notice("system-state monitor started; locked={} sessionInactive={} forced={}", screenLocked_, sessionInactive_,
                forcedLocked_ || forcedSessionInactive_);
}

void SystemState::observe() {
    observers_.push_back(session_.screenIsLocked.subscribe([this] { setLocked(true); }));
    observers_.push_back(session_.screenIsUnlocked.subscribe([this] { setLocked(false); }));
    observers_.push_back(session_.screensDidSleep.subscribe([this] { setScreensAsleep(true); }));
    observers_.push_back(session_.screensDidWake.subscribe([this] { setScreensAsleep(false); }));
    observers_.push_back(session_.sessionDidResignActive.subscribe([this] { setSessionInactive(true); }));
    observers_.push_back(session_.sessionDidBecomeActive.subscribe([this] { setSessionInactive(false); }));
    observers_.push_back(session_.sessionWillEnd.subscribe([this] { setSessionEnding(true); }));
    observers_.push_back(session_.sessionWillStay.subscribe([this] { setSessionEnding(false); }));
}

void SystemState::seed() {
    const auto facts = session_.current();
    if (!facts) {
        return;
    }
    screenLocked_ = facts->isScreenLocked.value_or(screenLocked_);
    sessionInactive_ = facts->isOnConsole ? !*facts->isOnConsole : sessionInactive_;
}

void SystemState::setLocked(bool locked) {
    change(screenLocked_, locked, {"screen", "locked", "unlocked"});
}

void SystemState::setScreensAsleep(bool asleep) {
    change(screensAsleep_, asleep, {"screens", "asleep", "awake"});
}

void SystemState::setSessionInactive(bool inactive) {
    change(sessionInactive_, inactive, {"login session", "resigned active (fast user switch)", "became active"});
}

void SystemState::setSessionEnding(bool ending) {
    change(sessionEnding_, ending, {"login session", "is ending", "stays"});
}

void SystemState::change(bool& flag, bool value, const Words& words) {
    if (flag == value) {
        return;
    }
    const bool trustedBefore = isTrustworthy();
    flag = value;
    log_.notice("{} {} — last-window quits {}", words.subject, value ? words.whenTrue : words.whenFalse,
                isTrustworthy() ? "resumed" : "SUSPENDED");
    if (!trustedBefore && isTrustworthy() && onResumeTrusted) {
        onResumeTrusted();
    }
}

bool SystemState::isTrustworthy() const {
    return !forcedLocked_ && !forcedSessionInactive_ && !screenLocked_ && !screensAsleep_ && !sessionInactive_ &&
           !sessionEnding_;
}

std::string SystemState::untrustworthyReason() const {
    if (forcedLocked_) {
        return "forced-lock";
    }
    if (forcedSessionInactive_) {
        return "forced-session-inactive";
    }
    if (sessionInactive_) {
        return "session-inactive";
    }
    if (sessionEnding_) {
        return "session-ending";
    }
    if (screenLocked_) {
        return screensAsleep_ ? "locked+screens-asleep" : "screen-locked";
    }
    return screensAsleep_ ? "screens-asleep" : "trusted";
}

} // namespace ambrel
