#include "Engine/AppMonitor.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitRequests.h"
#include "Engine/SystemState.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"

#include <algorithm>

namespace ambrel {

namespace {

constexpr Seconds minimizeGrace{2.0};

template <typename... Handlers> struct Overloaded : Handlers... { using Handlers::operator()...; };
template <typename... Handlers> Overloaded(Handlers...) -> Overloaded<Handlers...>;

} // namespace

void QuitEngine::evaluateQuit(AppMonitor& monitor) {
    const auto state = countChangeState(monitor);
    if (debug_.windows) {
        log_.notice("Quit eval: pid={} bundle={} windowCount={} quitOnlyWhenOneLeft={} threshold={} "
                    "hasObservedAboveThreshold={}",
                    monitor.pid(), monitor.bundleID(), state.count,
                    neighbours_.settings.quitOnlyWhenOneWindowLeft.get(), state.threshold,
                    state.hasObservedAboveThreshold);
    }
    act(QuitPolicy::onCountChange(state), monitor);
}

QuitPolicy::CountChangeState QuitEngine::countChangeState(const AppMonitor& monitor) const {
    const auto app = platform_.workspace().runningApplication(monitor.pid());
    return {.count = monitor.lastCount(),
            .threshold = QuitPolicy::threshold(neighbours_.settings.quitOnlyWhenOneWindowLeft.get()),
            .hasObservedAboveThreshold = monitor.hasObservedAboveThreshold(),
            .isPaused = neighbours_.settings.isPaused.get(),
            .appIsHidden = app && app->isHidden(),
            .recentlyMinimized = recentlyMinimized(monitor),
            .untrustedReason = untrustedReason(),
            .openDialogs = monitor.openDialogs(),
            .requestInFlight = neighbours_.requests.inFlight(monitor.pid()).has_value()};
}

void QuitEngine::act(const QuitPolicy::CountChangeAction& action, const AppMonitor& monitor) {
    std::visit(Overloaded{
                   [&](const QuitPolicy::Ignore& ignored) { ignore(ignored.reason, monitor); },
                   [&](QuitPolicy::CancelPending) { cancelQuit(monitor.pid()); },
                   [&](QuitPolicy::Schedule) { scheduleQuit(monitor.pid(), monitor.bundleID()); },
               },
               action);
}

void QuitEngine::ignore(const QuitPolicy::IgnoreReason& reason, const AppMonitor& monitor) {
    const auto& bundleID = monitor.bundleID();
    std::visit(Overloaded{
                   [](QuitPolicy::NeverObservedAboveThreshold) {},
                   [](QuitPolicy::Paused) {},
                   [&](QuitPolicy::Hidden) {
                       log_.notice("skip quit: {} is hidden — windows still exist", bundleID);
                       cancelQuit(monitor.pid());
                   },
                   [&](QuitPolicy::RecentlyMinimized) {
                       log_.notice("skip quit: {} minimized within 2s grace", bundleID);
                       cancelQuit(monitor.pid());
                   },
                   [&](const QuitPolicy::UntrustedSystemState& state) {
                       log_.notice("skip quit: {} — {}; window count not trustworthy "
                                   "(lock/display-sleep/session teardown)",
                                   bundleID, state.reason);
                       recordUntrusted(monitor.pid(), bundleID, state.reason);
                       cancelQuit(monitor.pid());
                   },
                   [&](QuitPolicy::RequestInFlight) {
                       log_.notice("skip quit: {} has been asked to quit already", bundleID);
                       cancelQuit(monitor.pid());
                   },
                   [&](QuitPolicy::DialogOpen open) {
                       log_.notice("skip quit: {} has {} open dialog(s)", bundleID, open.dialogs);
                       cancelQuit(monitor.pid());
                   },
               },
               reason);
}

void QuitEngine::submit(ProcessId pid, double delay, std::function<void(QuitEngine&)> work) {
    pendingQuits_[pid] = platform_.mainQueue().asyncAfter(
        Seconds(delay), lifetime_.guard([this, work = std::move(work)] { work(*this); }));
}

void QuitEngine::scheduleQuit(ProcessId pid, const std::string& bundleID) {
    if (const auto pending = pendingQuits_.extract(pid)) {
        pending.mapped()->cancel();
    }
    const double delay = std::max(neighbours_.settings.quitDelay.get(), 0.0);
    log_.notice("scheduling quit of {} pid {} in {:f}s", bundleID, pid, delay);
    submit(pid, delay, [pid, bundleID](QuitEngine& engine) { engine.performQuit(pid, bundleID); });
}

void QuitEngine::cancelQuit(ProcessId pid) {
    cgVetoRetries_.erase(pid);
    forgetActivity(pid);
    if (const auto pending = pendingQuits_.extract(pid)) {
        pending.mapped()->cancel();
        log_.notice("cancelled pending quit pid {}", pid);
    }
}

void QuitEngine::performQuit(ProcessId pid, const std::string& bundleID) {
    pendingQuits_.erase(pid);
    activity_.forget(pid);
    const auto target = validateQuit(pid, bundleID, "quit check 1/2");
    if (!target) {
        return;
    }
    const bool jump = target->monitor->lastDropWasJump();
    const double delay = QuitPolicy::reconfirmDelay(jump);
    log_.notice("zero windows confirmed (1/2) for {}; re-confirming in {:f}s{}", bundleID, delay,
                jump ? " (multi-window jump — possible app quit in flight)" : "");
    armSecondCheck(*target, delay);
}

void QuitEngine::confirmAndTerminate(ProcessId pid, const std::string& bundleID) {
    pendingQuits_.erase(pid);
    const auto target = validateQuit(pid, bundleID, "quit check 2/2");
    if (!target) {
        return;
    }
    forgetActivity(pid);
    terminate(*target);
}

void QuitEngine::terminate(const Target& target) {
    const auto pid = target.monitor->pid();
    const auto count = target.monitor->lastCount();
    neighbours_.requests.ask({.app = target.app,
                              .path = TerminationAudit::Path::lastWindow,
                              .detail = fmt::format("windows={}", count),
                              .stillHolds = [this, target] { return isStillClosed(target); },
                              .willSend =
                                  [this, pid, count, bundleID = target.monitor->bundleID()] {
                                      log_.notice("quitting {} pid {} (windows={})", bundleID, pid, count);
                                  },
                              .wasDropped = lifetime_.guard([this, pid] { reevaluate(pid); }),
                              .notifies = true});
}

void QuitEngine::reevaluate(ProcessId pid) {
    if (const auto monitor = monitors_.find(pid); monitor != monitors_.end()) {
        evaluateQuit(*monitor->second);
    }
}

/// Everything but the guard, which has been asked, and the window server, which only ever delays.
bool QuitEngine::isStillClosed(const Target& target) const {
    const auto& monitor = *target.monitor;
    const auto known = monitors_.find(monitor.pid());
    auto state = fireTimeState(monitor.pid(), monitor.bundleID(), target);
    state.hasMonitor = known != monitors_.end() && known->second == target.monitor;
    state.requestInFlight = false;
    const auto result = QuitPolicy::validateFire(
        state, [] { return true; }, [&] { return target.monitor->currentWindowCount(); }, [] { return std::nullopt; },
        [] { return std::nullopt; });
    return std::holds_alternative<QuitPolicy::Proceed>(result);
}

void QuitEngine::recordUntrusted(ProcessId pid, const std::string& bundleID, const std::string& reason) {
    using Action = TerminationAudit::Action;
    const bool session = reason.find("session") != std::string::npos;
    neighbours_.audit.record(TerminationAudit::Path::lastWindow, bundleID, bundleID, pid,
                             reason == "session-ending" ? Action::skippedSessionEnding
                             : session                  ? Action::skippedSessionInactive
                                                        : Action::skippedScreenLocked,
                             reason);
}

std::optional<std::string> QuitEngine::untrustedReason() const {
    if (neighbours_.systemState.isTrustworthy()) {
        return std::nullopt;
    }
    return neighbours_.systemState.untrustworthyReason();
}

bool QuitEngine::recentlyMinimized(const AppMonitor& monitor) const {
    const auto at = monitor.lastMinimizeAt();
    return at && platform_.wallClock().now() - *at < minimizeGrace;
}

} // namespace ambrel
