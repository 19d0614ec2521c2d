#include "Engine/AppMonitor.h"
#include "Engine/DevGuard.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitRequests.h"
#include "Engine/WindowOracle.h"
#include "Platform/Bundle.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"

namespace ambrel {

std::optional<QuitEngine::Target> QuitEngine::validateQuit(ProcessId pid, const std::string& bundleID,
                                                           const std::string& stage) {
    const auto monitor = monitors_.find(pid);
    const Target target{platform_.workspace().runningApplication(pid),
                        monitor != monitors_.end() ? monitor->second : nullptr};
    const auto result = judge(pid, bundleID, target);
    if (const auto* abort = std::get_if<QuitPolicy::Abort>(&result)) {
        logAbort(abort->reason, pid, bundleID, stage);
        retryIfCGVeto(abort->reason, pid, bundleID);
        respond(abort->reason, target);
        return std::nullopt;
    }
    return target;
}

void QuitEngine::respond(const QuitPolicy::AbortReason& reason, const Target& target) {
    if (const auto* working = std::get_if<QuitPolicy::Working>(&reason)) {
        awaitWork(working->sign, target);
    } else if (std::holds_alternative<QuitPolicy::Occupied>(reason)) {
        hold(target);
    }
}

QuitPolicy::ValidationResult QuitEngine::judge(ProcessId pid, const std::string& bundleID, const Target& target) {
    const auto devGuardAllows = [&] {
        return target.app && neighbours_.guard.mayTerminate(*target.app, TerminationAudit::Path::lastWindow);
    };
    const auto readWindowCount = [&] {
        return target.monitor ? target.monitor->currentWindowCount() : std::nullopt;
    };
    const auto readCGWindowCount = [&] {
        return neighbours_.oracle.windowCount(pid);
    };
    const auto readWork = [&] {
        return activity_.signOfWork(pid);
    };
    return QuitPolicy::validateFire(fireTimeState(pid, bundleID, target), devGuardAllows, readWindowCount,
                                    readCGWindowCount, readWork);
}

QuitPolicy::FireTimeState QuitEngine::fireTimeState(ProcessId pid, const std::string& bundleID,
                                                    const Target& target) const {
    const auto& [app, monitor] = target;
    const auto& settings = neighbours_.settings;
    return {.isPaused = settings.isPaused.get(),
            .isSelfApp = bundleID == platform_.bundle().bundleIdentifier() || pid == selfPID_,
            .isExcluded = settings.effectiveExcludedBundleIDs().contains(bundleID),
            .hasMonitor = monitor != nullptr,
            .appIsAlive = app && !app->isTerminated(),
            .ruleAllowsQuit = neighbours_.rules.rule(bundleID).quitOnLastWindowClose,
            .untrustedReason = untrustedReason(),
            .appIsHidden = monitor && app && app->isHidden(),
            .recentlyMinimized = monitor && recentlyMinimized(*monitor),
            .hasObservedAboveThreshold = monitor && monitor->hasObservedAboveThreshold(),
            .threshold = QuitPolicy::threshold(settings.quitOnlyWhenOneWindowLeft.get()),
            .openDialogs = monitor ? monitor->currentDialogs() : 0,
            .requestInFlight = neighbours_.requests.inFlight(pid).has_value(),
            .isOccupied = activity_.occupation(pid).has_value()};
}

void QuitEngine::logAbort(const QuitPolicy::AbortReason& reason, ProcessId pid, const std::string& bundleID,
                          const std::string& stage) {
    if (std::holds_alternative<QuitPolicy::Paused>(reason)) {
        log_.notice("paused; skipping quit {}", bundleID);
    } else if (std::holds_alternative<QuitPolicy::Hidden>(reason)) {
        log_.notice("{}: {} is hidden — skipping quit (windows still exist)", stage, bundleID);
    } else if (std::holds_alternative<QuitPolicy::RecentlyMinimized>(reason)) {
        log_.notice("{}: {} minimized within 2s grace — skipping quit", stage, bundleID);
    } else if (std::holds_alternative<QuitPolicy::NeverObservedAboveThreshold>(reason)) {
        log_.notice("{}: {} monitor never saw above-threshold (recreated mid-delay?) — skipping quit", stage, bundleID);
    } else if (std::holds_alternative<QuitPolicy::AXReadFailed>(reason)) {
        log_.notice("{}: {} — AX read failed at fire time; aborting quit", stage, bundleID);
    } else if (const auto* reopened = std::get_if<QuitPolicy::WindowsReopened>(&reason)) {
        log_.notice("{}: window reopened; skipping quit {} (windows={})", stage, bundleID, reopened->count);
    } else if (const auto* veto = std::get_if<QuitPolicy::CGVeto>(&reason)) {
        log_.notice("{}: {} — AX says 0 but the window server sees {} window(s); vetoing quit (AX artifact)", stage,
                    bundleID, veto->cgWindows);
        neighbours_.audit.record(TerminationAudit::Path::lastWindow, bundleID, bundleID, pid,
                                 TerminationAudit::Action::skippedCGWindowsExist,
                                 fmt::format("cg_windows={}", veto->cgWindows));
    } else if (const auto* state = std::get_if<QuitPolicy::UntrustedSystemState>(&reason)) {
        log_.notice("{}: {} — {}; skipping quit (window count not trustworthy)", stage, bundleID, state->reason);
        recordUntrusted(pid, bundleID, state->reason);
    } else if (std::holds_alternative<QuitPolicy::RequestInFlight>(reason)) {
        log_.notice("{}: {} has been asked to quit already — skipping quit", stage, bundleID);
    } else if (const auto* open = std::get_if<QuitPolicy::DialogOpen>(&reason)) {
        log_.notice("{}: {} has {} open dialog(s) — skipping quit", stage, bundleID, open->dialogs);
    }
}

void QuitEngine::retryIfCGVeto(const QuitPolicy::AbortReason& reason, ProcessId pid, const std::string& bundleID) {
    if (!std::holds_alternative<QuitPolicy::CGVeto>(reason)) {
        return;
    }
    const auto prior = cgVetoRetries_.find(pid);
    const auto next = QuitPolicy::nextCGVetoRetry(prior != cgVetoRetries_.end() ? prior->second : 0);
    const auto* retry = std::get_if<QuitPolicy::Retry>(&next);
    if (!retry) {
        cgVetoRetries_.erase(pid);
        log_.notice("cg-veto persisted through {} re-validations for {} — a real window AX can't see; quit stays held "
                    "back",
                    QuitPolicy::cgVetoRetryLimit, bundleID);
        return;
    }
    cgVetoRetries_[pid] = retry->attempt;
    log_.notice("cg-veto may be Space/animation residue; re-validating {} in {:f}s (attempt {}/{})", bundleID,
                retry->delay, retry->attempt, QuitPolicy::cgVetoRetryLimit);
    submit(pid, retry->delay, [pid, bundleID](QuitEngine& engine) { engine.performQuit(pid, bundleID); });
}

} // namespace ambrel
