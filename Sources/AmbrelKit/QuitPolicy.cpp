#include "AmbrelKit/QuitPolicy.h"

namespace ambrel {

std::ptrdiff_t QuitPolicy::threshold(bool quitOnlyWhenOneWindowLeft) {
    return quitOnlyWhenOneWindowLeft ? 0 : 1;
}

QuitPolicy::CountChangeAction QuitPolicy::onCountChange(const CountChangeState& state) {
    // A window that came back cancels a pending quit whatever else is true.
    if (state.count > state.threshold) {
        return CancelPending{};
    }
    if (!state.hasObservedAboveThreshold) {
        return Ignore{NeverObservedAboveThreshold{}};
    }
    if (state.isPaused) {
        return Ignore{Paused{}};
    }
    if (state.appIsHidden) {
        return Ignore{Hidden{}};
    }
    if (state.recentlyMinimized) {
        return Ignore{RecentlyMinimized{}};
    }
    if (state.untrustedReason) {
        return Ignore{UntrustedSystemState{*state.untrustedReason}};
    }
    if (state.requestInFlight) {
        return Ignore{RequestInFlight{}};
    }
    if (state.openDialogs > 0) {
        return Ignore{DialogOpen{state.openDialogs}};
    }
    return Schedule{};
}

namespace {

/// The checks that stand before the guard is asked.
std::optional<QuitPolicy::AbortReason> beforeGuard(const QuitPolicy::FireTimeState& state) {
    if (state.isPaused) {
        return QuitPolicy::Paused{};
    }
    if (state.isSelfApp) {
        return QuitPolicy::SelfApp{};
    }
    if (state.isExcluded) {
        return QuitPolicy::Excluded{};
    }
    if (!state.hasMonitor) {
        return QuitPolicy::NoMonitor{};
    }
    if (!state.appIsAlive) {
        return QuitPolicy::AppTerminated{};
    }
    return std::nullopt;
}

/// The checks between the guard and the reading of windows.
std::optional<QuitPolicy::AbortReason> beforeReading(const QuitPolicy::FireTimeState& state) {
    if (!state.ruleAllowsQuit) {
        return QuitPolicy::RuleDisabled{};
    }
    if (state.untrustedReason) {
        return QuitPolicy::UntrustedSystemState{*state.untrustedReason};
    }
    if (state.appIsHidden) {
        return QuitPolicy::Hidden{};
    }
    if (state.recentlyMinimized) {
        return QuitPolicy::RecentlyMinimized{};
    }
    if (!state.hasObservedAboveThreshold) {
        return QuitPolicy::NeverObservedAboveThreshold{};
    }
    if (state.requestInFlight) {
        return QuitPolicy::RequestInFlight{};
    }
    if (state.openDialogs > 0) {
        return QuitPolicy::DialogOpen{state.openDialogs};
    }
    return std::nullopt;
}

std::optional<QuitPolicy::AbortReason> whileReading(std::ptrdiff_t threshold,
                                                    const QuitPolicy::ReadCount& readWindowCount,
                                                    const QuitPolicy::ReadCount& readCGWindowCount) {
    const auto count = readWindowCount();
    if (!count) {
        return QuitPolicy::AXReadFailed{};
    }
    if (*count > threshold) {
        return QuitPolicy::WindowsReopened{*count};
    }
    if (*count != 0) {
        return std::nullopt;
    }
    const auto cgWindows = readCGWindowCount();
    if (cgWindows && *cgWindows > 0) {
        return QuitPolicy::CGVeto{*cgWindows};
    }
    return std::nullopt;
}

} // namespace

QuitPolicy::ValidationResult QuitPolicy::validateFire(const FireTimeState& state,
                                                      const std::function<bool()>& devGuardAllows,
                                                      const ReadCount& readWindowCount,
                                                      const ReadCount& readCGWindowCount, const ReadWork& readWork) {
    if (auto reason = beforeGuard(state)) {
        return Abort{*std::move(reason)};
    }
    if (!devGuardAllows()) {
        return Abort{DevGuardDenied{}};
    }
    if (auto reason = beforeReading(state)) {
        return Abort{*std::move(reason)};
    }
    if (auto reason = whileReading(state.threshold, readWindowCount, readCGWindowCount)) {
        return Abort{*std::move(reason)};
    }
    // Last of all, as both are worth another look only where nothing else speaks against the quit.
    if (state.isOccupied) {
        return Abort{Occupied{}};
    }
    if (const auto sign = readWork()) {
        return Abort{Working{*sign}};
    }
    return Proceed{};
}

double QuitPolicy::reconfirmDelay(bool lastDropWasJump) {
    return lastDropWasJump ? 2.0 : 0.5;
}

QuitPolicy::CGVetoRetryAction QuitPolicy::nextCGVetoRetry(int priorAttempts) {
    const int attempt = priorAttempts + 1;
    if (attempt <= cgVetoRetryLimit) {
        return Retry{attempt, cgVetoRetryDelay};
    }
    return GiveUp{};
}

} // namespace ambrel
