#include "Engine/DevGuard.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitRequests.h"
#include "Engine/SystemState.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"

#include <algorithm>

namespace ambrel {

namespace {
constexpr Seconds launchArtifactSpan{3.0};
}

void QuitEngine::appHidden(const RunningApplicationRef& app) {
    const auto bundleID = app->bundleIdentifier();
    if (app->processIdentifier() == selfPID_ || !bundleID || neighbours_.settings.isPaused.get() ||
        !quitsWhenHidden(*bundleID)) {
        return;
    }
    if (isLaunchArtifact(*app)) {
        log_.notice("hide-quit: {} hidden within 3s of launch — launch artifact, ignoring", *bundleID);
        return;
    }
    if (neighbours_.systemState.isTrustworthy()) {
        scheduleHideQuit(app->processIdentifier(), *bundleID);
    }
}

/// The default rule has no say here.
bool QuitEngine::quitsWhenHidden(const std::string& bundleID) const {
    const auto rule = neighbours_.rules.explicitRule(bundleID);
    return rule && rule->quitWhenHidden;
}

bool QuitEngine::isLaunchArtifact(const RunningApplication& app) const {
    const auto launched = app.launchDate();
    return launched && neighbours_.clock.now() - *launched < launchArtifactSpan;
}

void QuitEngine::scheduleHideQuit(ProcessId pid, const std::string& bundleID) {
    const double delay = std::max(neighbours_.settings.quitDelay.get(), 0.0);
    log_.notice("hide-quit scheduled for {} pid {} in {:f}s", bundleID, pid, delay);
    auto& pending = pendingHideQuits_[pid];
    if (pending) {
        pending->cancel();
    }
    pending = platform_.mainQueue().asyncAfter(
        Seconds(delay), lifetime_.guard([this, pid, bundleID] { performHideQuit(pid, bundleID); }));
}

/// Everything is asked again, as anything may have changed during the delay.
void QuitEngine::performHideQuit(ProcessId pid, const std::string& bundleID) {
    pendingHideQuits_.erase(pid);
    if (neighbours_.settings.isPaused.get() || bundleID == platform_.bundle().bundleIdentifier()) {
        return;
    }
    const auto app = livingApplication(pid);
    if (!app || pid == selfPID_ || !quitsWhenHidden(bundleID)) {
        return;
    }
    if (!app->isHidden()) {
        log_.notice("hide-quit: {} no longer hidden (reopened) — skipping", bundleID);
        return;
    }
    if (neighbours_.systemState.isTrustworthy() &&
        neighbours_.guard.mayTerminate(*app, TerminationAudit::Path::hidden)) {
        terminateHidden(app, bundleID);
    }
}

void QuitEngine::terminateHidden(const RunningApplicationRef& app, const std::string& bundleID) {
    neighbours_.requests.ask({.app = app,
                              .path = TerminationAudit::Path::hidden,
                              .detail = "hidden",
                              .stillHolds =
                                  [this, app, bundleID, era = era_] {
                                      return era == era_ && app->isHidden() && quitsWhenHidden(bundleID) &&
                                             !neighbours_.settings.isPaused.get() &&
                                             neighbours_.systemState.isTrustworthy();
                                  },
                              .willSend =
                                  [this, bundleID, pid = app->processIdentifier()] {
                                      log_.notice("hide-quit terminating {} pid {}", bundleID, pid);
                                  },
                              .notifies = true});
}

} // namespace ambrel
