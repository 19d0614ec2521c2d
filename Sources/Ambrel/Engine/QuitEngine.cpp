#include "Engine/QuitEngine.h"

#include "Engine/AppMonitor.h"
#include "Engine/DevGuard.h"
#include "Engine/QuitNotifier.h"
#include "Engine/QuitRequests.h"
#include "Engine/SleepWakeHandler.h"
#include "Engine/SystemState.h"
#include "Engine/WindowOracle.h"
#include "Platform/AppClock.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppRulesStore.h"
#include "State/AppSettings.h"

namespace ambrel {

namespace {
constexpr Seconds rulesDebounce{0.2};
}

QuitEngine& QuitEngine::shared() {
    static auto& engine =
        *new QuitEngine(Platform::shared(), {AppSettings::shared(), AppRulesStore::shared(), SystemState::shared(),
                                             DevGuard::shared(), WindowOracle::shared(), TerminationAudit::shared(),
                                             QuitNotifier::shared(), QuitRequests::shared(), AppClock::shared()});
    return engine;
}

QuitEngine::QuitEngine(Platform& platform, Neighbours neighbours)
    : platform_(platform), neighbours_(neighbours), debug_(AmbrelDebug::read(platform.environment())),
      selfPID_(platform.workspace().currentProcessIdentifier()), activity_(platform, neighbours.settings),
      idleMonitor_(platform,
                   {neighbours.settings, neighbours.rules, neighbours.guard, neighbours.audit, neighbours.requests}) {}

QuitEngine::~QuitEngine() = default;

void QuitEngine::start() {
    if (started_) {
        return;
    }
    started_ = true;
    observeWorkspace();
    addMissingMonitors();
    idleMonitor_.start();
    observeTrust();
    observeWindowManager();
    observeChoices();
    log_.notice("engine started; monitoring {} apps", monitors_.size());
}

void QuitEngine::observeWorkspace() {
    auto& workspace = platform_.workspace();
    workspaceObservers_.push_back(workspace.didLaunch.subscribe([this](const auto& app) { appLaunched(app); }));
    workspaceObservers_.push_back(workspace.didTerminate.subscribe([this](const auto& app) { appTerminated(app); }));
    workspaceObservers_.push_back(workspace.didHide.subscribe([this](const auto& app) { appHidden(app); }));
}

void QuitEngine::observeTrust() {
    sleepWake_ = std::make_unique<SleepWakeHandler>(platform_.session(), lifetime_.guard([this] { recreateAll(); }));
    neighbours_.systemState.onResumeTrusted = lifetime_.guard([this] {
        log_.notice("system returned to trusted state — rebuilding monitors so restored windows don't read as closed");
        recreateAll();
    });
    neighbours_.systemState.start();
}

/// Monitors that failed meanwhile come back too, as what they failed at can be done again.
void QuitEngine::observeWindowManager() {
    readableObserver_ = platform_.windowList().readableDidChange.subscribe([this](bool readable) {
        if (readable) {
            log_.notice("a window manager publishes its windows again — rebuilding monitors");
            recreateAll();
            addMissingMonitors(launchDelay);
        }
    });
}

void QuitEngine::observeChoices() {
    pauseObserver_ = neighbours_.settings.isPaused.subscribe([this](bool isPaused) { applyPause(isPaused); });
    rulesObserver_ = neighbours_.rules.willChange.subscribe([this] { rulesWillChange(); });
}

void QuitEngine::applyPause(bool isPaused) {
    log_.notice("pause state -> {}", isPaused ? "paused" : "active");
    if (isPaused) {
        cancelAllPendingQuits();
    }
}

void QuitEngine::rulesWillChange() {
    if (rulesDebounce_) {
        rulesDebounce_->cancel();
    }
    rulesDebounce_ =
        platform_.mainQueue().asyncAfter(rulesDebounce, lifetime_.guard([this] { reconcile("rules-changed"); }));
}

void QuitEngine::cancelAllPendingQuits() {
    if (pendingQuits_.empty() && pendingHideQuits_.empty()) {
        return;
    }
    for (auto* works : {&pendingQuits_, &pendingHideQuits_}) {
        for (const auto& [pid, work] : *works) {
            work->cancel();
        }
        works->clear();
    }
    cgVetoRetries_.clear();
    activity_.forgetAll();
    holds_.clear();
    log_.notice("paused; cancelled all pending quits");
}

} // namespace ambrel
