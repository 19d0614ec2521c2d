#include "Engine/AppMonitor.h"
#include "Engine/QuitEngine.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace ambrel {

namespace {

constexpr int recreateGiveUpAfter = 5;
constexpr Seconds recreateHealthyWindow{60.0};
constexpr double firstRecreateDelay = 0.5;
constexpr double longestRecreateDelay = 8.0;

bool isRegular(const RunningApplicationRef& app) {
    return app->activationPolicy() == ActivationPolicy::regular;
}

void cancel(std::unordered_map<ProcessId, WorkItemRef>& works, ProcessId pid) {
    if (const auto work = works.extract(pid)) {
        work.mapped()->cancel();
    }
}

} // namespace

void QuitEngine::addMonitor(const RunningApplicationRef& app, double delay) {
    const auto pid = app->processIdentifier();
    if (!wantsMonitor(app) || monitors_.contains(pid)) {
        return;
    }
    const auto create = [this, pid, bundleID = *app->bundleIdentifier()] {
        createMonitor(pid, bundleID);
    };
    if (delay > 0) {
        platform_.mainQueue().asyncAfter(Seconds(delay), lifetime_.guard(create));
    } else {
        create();
    }
}

bool QuitEngine::wantsMonitor(const RunningApplicationRef& app) const {
    if (!isRegular(app) || app->processIdentifier() == selfPID_) {
        return false;
    }
    const auto bundleID = app->bundleIdentifier();
    return bundleID && neighbours_.rules.rule(*bundleID).quitOnLastWindowClose;
}

void QuitEngine::createMonitor(ProcessId pid, const std::string& bundleID) {
    const auto app = livingApplication(pid);
    // Another application may have got the process id while the monitor was due.
    if (monitors_.contains(pid) || !app || app->bundleIdentifier() != bundleID) {
        return;
    }
    const auto monitor = AppMonitor::make(platform_, neighbours_.settings, debug_, pid, bundleID);
    monitor->onAXFailure = lifetime_.guard([this](AppMonitor& failed) { recreate(failed.pid(), failed.bundleID()); });
    monitor->onCountChange = lifetime_.guard([this](AppMonitor& changed) { evaluateQuit(changed); });
    monitors_[pid] = monitor;
    monitoredCount.set(static_cast<int>(monitors_.size()));
    log_.notice("monitor added {} pid {}; total {}", bundleID, pid, monitors_.size());
    monitor->attachWithRetry(0);
}

RunningApplicationRef QuitEngine::livingApplication(ProcessId pid) const {
    auto app = platform_.workspace().runningApplication(pid);
    return app && !app->isTerminated() ? app : nullptr;
}

void QuitEngine::removeMonitor(ProcessId pid) {
    monitors_.erase(pid);
    monitoredCount.set(static_cast<int>(monitors_.size()));
}

void QuitEngine::appLaunched(const RunningApplicationRef& app) {
    addMonitor(app, launchDelay);
}

void QuitEngine::appTerminated(const RunningApplicationRef& app) {
    const auto pid = app->processIdentifier();
    cancelQuit(pid);
    cancel(pendingHideQuits_, pid);
    recreateStreaks_.erase(pid);
    if (monitors_.contains(pid)) {
        removeMonitor(pid);
        log_.notice("monitor removed {} pid {}; total {}", app->bundleIdentifier().value_or("?"), pid,
                    monitors_.size());
    }
}

void QuitEngine::reconcile(const std::string& trigger) {
    if (!started_) {
        return;
    }
    const int removed = removeUnwantedMonitors();
    const auto before = std::ssize(monitors_);
    addMissingMonitors();
    const auto added = std::ssize(monitors_) - before;
    if (added > 0 || removed > 0) {
        log_.notice("reconcile ({}): +{} -{} monitors; total {}", trigger, added, removed, monitors_.size());
    }
}

int QuitEngine::removeUnwantedMonitors() {
    const auto snapshot = monitors_;
    int removed = 0;
    for (const auto& [pid, monitor] : snapshot) {
        const auto app = livingApplication(pid);
        if (app && wantsMonitor(app)) {
            continue;
        }
        cancelQuit(pid);
        cancel(pendingHideQuits_, pid);
        monitors_.erase(pid);
        ++removed;
    }
    return removed;
}

void QuitEngine::addMissingMonitors(double delay) {
    for (const auto& app : platform_.workspace().runningApplications()) {
        addMonitor(app, delay);
    }
    monitoredCount.set(static_cast<int>(monitors_.size()));
}

void QuitEngine::recreate(ProcessId pid, const std::string& bundleID) {
    // The identifier may live in the monitor that goes here.
    const std::string name = bundleID; // NOLINT(performance-unnecessary-copy-initialization)
    cancelQuit(pid);
    removeMonitor(pid);
    const auto app = livingApplication(pid);
    if (!app) {
        recreateStreaks_.erase(pid);
        return;
    }
    const int count = lengthenStreak(pid);
    if (count > recreateGiveUpAfter) {
        log_.error("giving up on monitor for {} pid {} after {} failed recreates — app left unmonitored (fail open)",
                   name, pid, recreateGiveUpAfter);
        return;
    }
    const double delay = std::min(firstRecreateDelay * std::exp2(count - 1), longestRecreateDelay);
    log_.notice("recreating monitor for {} pid {} (attempt {}/{}, in {:f}s)", name, pid, count, recreateGiveUpAfter,
                delay);
    addMonitor(app, delay);
}

int QuitEngine::lengthenStreak(ProcessId pid) {
    const Date now = neighbours_.clock.now();
    auto& streak = recreateStreaks_.try_emplace(pid, RecreateStreak{0, now}).first->second;
    if (now - streak.last > recreateHealthyWindow) {
        streak.count = 0;
    }
    streak.last = now;
    return ++streak.count;
}

void QuitEngine::recreateAll() {
    ++era_;
    for (auto* works : {&pendingQuits_, &pendingHideQuits_}) {
        for (const auto& [pid, work] : *works) {
            work->cancel();
        }
        works->clear();
    }
    idleMonitor_.resetTimestamps();
    recreateStreaks_.clear();
    cgVetoRetries_.clear();
    activity_.forgetAll();
    holds_.clear();
    const auto old = std::exchange(monitors_, {});
    monitoredCount.set(0);
    log_.notice("recreating all {} monitors", old.size());
    for (const auto& [pid, monitor] : old) {
        if (const auto app = livingApplication(pid)) {
            addMonitor(app, launchDelay);
        }
    }
}

} // namespace ambrel
