#include "Engine/AppMonitor.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitNotifier.h"
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
            .untrustedReason = untrustedReason()};
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
    if (const auto pending = pendingQuits_.extract(pid)) {
        pending.mapped()->cancel();
        log_.notice("cancelled pending quit pid {}", pid);
    }
}

void QuitEngine::performQuit(ProcessId pid, const std::string& bundleID) {
    pendingQuits_.erase(pid);
    const auto target = validateQuit(pid, bundleID, "quit check 1/2");
    if (!target) {
        retryIfCGVeto(pid, bundleID);
        return;
    }
    const bool jump = target->monitor->lastDropWasJump();
    const double delay = QuitPolicy::reconfirmDelay(jump);
    log_.notice("zero windows confirmed (1/2) for {}; re-confirming in {:f}s{}", bundleID, delay,
                jump ? " (multi-window jump — possible app quit in flight)" : "");
    submit(pid, delay, [pid, bundleID](QuitEngine& engine) { engine.confirmAndTerminate(pid, bundleID); });
}

void QuitEngine::confirmAndTerminate(ProcessId pid, const std::string& bundleID) {
    pendingQuits_.erase(pid);
    const auto target = validateQuit(pid, bundleID, "quit check 2/2");
    if (!target) {
        retryIfCGVeto(pid, bundleID);
        return;
    }
    terminate(*target->app, *target->monitor);
}

void QuitEngine::terminate(RunningApplication& app, const AppMonitor& monitor) {
    log_.notice("quitting {} pid {} (windows={})", monitor.bundleID(), monitor.pid(), monitor.lastCount());
    neighbours_.audit.record(TerminationAudit::Path::lastWindow, app, TerminationAudit::Action::terminated,
                             fmt::format("windows={}", monitor.lastCount()));
    const auto name = app.localizedName().value_or(monitor.bundleID());
    const auto url = app.bundleURL();
    app.terminate();
    neighbours_.notifier.notifyQuit(name, url, monitor.pid(), TerminationAudit::Path::lastWindow);
}

void QuitEngine::recordUntrusted(ProcessId pid, const std::string& bundleID, const std::string& reason) {
    const bool session = reason.find("session") != std::string::npos;
    neighbours_.audit.record(TerminationAudit::Path::lastWindow, bundleID, bundleID, pid,
                             session ? TerminationAudit::Action::skippedSessionInactive
                                     : TerminationAudit::Action::skippedScreenLocked,
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
