#include "Engine/IdleMonitor.h"

#include "Core/MainQueue.h"
#include "Engine/ActivityWatch.h"
#include "Engine/DevGuard.h"
#include "Engine/OccupationWords.h"
#include "Engine/QuitRequests.h"
#include "Platform/Environment.h"
#include "Platform/Platform.h"
#include "Platform/WindowList.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"

#include <algorithm>
#include <cmath>

namespace ambrel {

namespace {

constexpr double defaultIntervalSeconds = 30.0;
constexpr std::int64_t leastThresholdMinutes = 5;
constexpr double secondsPerMinute = 60.0;

/// Shown without a fraction.
double wholeSeconds(Seconds idle) {
    return std::trunc(idle.count());
}

std::string detail(Seconds idle) {
    return fmt::format("idle={:.0f}s", wholeSeconds(idle));
}

} // namespace

IdleMonitor::IdleMonitor(Platform& platform, Neighbours neighbours)
    : platform_(platform), neighbours_(neighbours), activity_(platform, neighbours.settings),
      interval_(platform.environment().number("AMBREL_IDLE_EVAL_INTERVAL").value_or(defaultIntervalSeconds)) {}

void IdleMonitor::start() {
    observeWorkspace();
    resetTimestamps();
    scheduleEvaluation();
    log_.notice("idle monitor started");
}

void IdleMonitor::observeWorkspace() {
    auto& workspace = platform_.workspace();
    observers_.push_back(workspace.didActivate.subscribe([this](const auto& app) { touch(app); }));
    observers_.push_back(workspace.didDeactivate.subscribe([this](const auto& app) { touch(app); }));
    observers_.push_back(workspace.didTerminate.subscribe([this](const auto& app) { appTerminated(app); }));
}

void IdleMonitor::resetTimestamps() {
    const Seconds now = platform_.monotonicClock().now();
    for (const auto& app : platform_.workspace().runningApplications()) {
        if (app->activationPolicy() == ActivationPolicy::regular) {
            lastActive_[app->processIdentifier()] = now;
        }
    }
}

void IdleMonitor::scheduleEvaluation() {
    // A repeating timer never repeats faster than this, whatever it is told.
    constexpr Seconds shortestInterval{0.0001};
    platform_.mainQueue().asyncAfter(std::max(interval_, shortestInterval), lifetime_.guard([this] {
        scheduleEvaluation();
        evaluate();
    }));
}

void IdleMonitor::touch(const RunningApplicationRef& app) {
    lastActive_[app->processIdentifier()] = platform_.monotonicClock().now();
    askedToHide_.erase(app->processIdentifier());
    kept_.erase(app->processIdentifier());
}

void IdleMonitor::appTerminated(const RunningApplicationRef& app) {
    askedToHide_.erase(app->processIdentifier());
    kept_.erase(app->processIdentifier());
    if (lastActive_.erase(app->processIdentifier()) > 0) {
        log_.notice("pruned pid {} ({}) on termination", app->processIdentifier(),
                    app->bundleIdentifier().value_or("?"));
    }
}

double IdleMonitor::thresholdSeconds(const AppRule& rule) const {
    const auto forced = platform_.environment().number("AMBREL_IDLE_THRESHOLD_SECONDS");
    return forced.value_or(static_cast<double>(std::max(rule.idleThresholdMinutes, leastThresholdMinutes)) *
                           secondsPerMinute);
}

void IdleMonitor::evaluate() {
    if (neighbours_.settings.isPaused.get()) {
        return;
    }
    const Seconds now = platform_.monotonicClock().now();
    const auto front = platform_.workspace().frontmostApplication();
    for (const auto& app : platform_.workspace().runningApplications()) {
        const bool isFront = front && front->processIdentifier() == app->processIdentifier();
        if (app->activationPolicy() == ActivationPolicy::regular && !isFront) {
            evaluate(app, now);
        }
    }
}

void IdleMonitor::evaluate(const RunningApplicationRef& app, Seconds now) {
    const auto bundleID = app->bundleIdentifier();
    const auto rule = bundleID ? neighbours_.rules.explicitRule(*bundleID) : std::nullopt;
    if (!rule || rule->idleBehavior == AppRule::IdleBehavior::none) {
        return;
    }
    const auto last = lastActive_.find(app->processIdentifier());
    const Seconds idle = now - (last != lastActive_.end() ? last->second : now);
    if (idle.count() < thresholdSeconds(*rule)) {
        return;
    }
    if (rule->idleBehavior == AppRule::IdleBehavior::hide) {
        hide(*app, *bundleID, idle);
    } else {
        quitUnlessOccupied(app, *bundleID, idle);
    }
}

/// Not every window manager complies, so it is asked once only.
void IdleMonitor::hide(RunningApplication& app, const std::string& bundleID, Seconds idle) {
    const auto pid = app.processIdentifier();
    if (app.isHidden() || askedToHide_.contains(pid) || !hasWindowOnDesktop(pid)) {
        return;
    }
    askedToHide_.insert(pid);
    log_.notice("idle-hide {} (idle {:.0f}s)", bundleID, wholeSeconds(idle));
    neighbours_.audit.record(TerminationAudit::Path::idle, app, TerminationAudit::Action::hidden, detail(idle));
    app.hide();
}

bool IdleMonitor::hasWindowOnDesktop(ProcessId pid) const {
    const auto reading = platform_.windowList().reading(pid);
    const auto* const windows = std::get_if<std::vector<ApplicationWindow>>(&reading);
    return windows != nullptr &&
           std::any_of(windows->begin(), windows->end(), [](const auto& window) { return window.onDesktop; });
}

/// An occupied application keeps its entry, so the next turn asks again.
void IdleMonitor::quitUnlessOccupied(const RunningApplicationRef& app, const std::string& bundleID, Seconds idle) {
    const auto pid = app->processIdentifier();
    const auto entry = lastActive_.find(pid);
    const auto since = entry != lastActive_.end() ? std::optional(entry->second) : std::nullopt;
    activity_.ask(*app, lifetime_.guard([this, app, bundleID, idle, pid, since](std::optional<Occupation> occupation) {
        const auto current = lastActive_.find(pid);
        const bool isUntouched =
            since ? current != lastActive_.end() && current->second == *since : current == lastActive_.end();
        if (!isUntouched || app->isTerminated() || neighbours_.settings.isPaused.get()) {
            return;
        }
        occupation ? keep(*app, bundleID, *occupation) : quit(app, bundleID, idle);
    }));
}

void IdleMonitor::keep(const RunningApplication& app, const std::string& bundleID, Occupation occupation) {
    if (kept_.insert(app.processIdentifier()).second) {
        log_.notice("idle: {} is {} — kept", bundleID, word(occupation));
        neighbours_.audit.record(TerminationAudit::Path::idle, app, heldBackBecause(occupation));
    }
}

void IdleMonitor::quit(const RunningApplicationRef& app, const std::string& bundleID, Seconds idle) {
    // Without its entry the application reads as not idle, so it is asked once only.
    lastActive_.erase(app->processIdentifier());
    if (!neighbours_.guard.mayTerminate(*app, TerminationAudit::Path::idle)) {
        return;
    }
    neighbours_.requests.ask(
        {.app = app,
         .path = TerminationAudit::Path::idle,
         .detail = detail(idle),
         .stillHolds =
             [this, pid = app->processIdentifier()] {
                 // An entry says that it has been used meanwhile.
                 return !lastActive_.contains(pid) && !neighbours_.settings.isPaused.get();
             },
         .willSend = [this, bundleID,
                      idle] { log_.notice("idle-quit {} (idle {:.0f}s)", bundleID, wholeSeconds(idle)); },
         .notifies = true});
}

} // namespace ambrel
