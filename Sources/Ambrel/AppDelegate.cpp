#include "AppDelegate.h"

#include "Core/ExceptionLogger.h"
#include "Engine/AccessibilityGate.h"
#include "Engine/DevGuard.h"
#include "Engine/HotKeyManager.h"
#include "Engine/QuitAll.h"
#include "Engine/QuitAllHotKey.h"
#include "Engine/QuitEngine.h"
#include "Engine/QuitNotifier.h"
#include "Platform/ApplicationHost.h"
#include "Platform/Bundle.h"
#include "Platform/Environment.h"
#include "Platform/Platform.h"
#include "Platform/Workspace.h"
#include "State/AppSettings.h"
#include "State/LaunchAtLogin.h"
#include "UI/Onboarding/Onboarding.h"
#include "UI/StatusBar/StatusItemController.h"
#include "UI/Windows.h"
#include "Updates/UpdateController.h"

#include <vector>

#include <fmt/format.h>

namespace ambrel {

namespace {

/// The gate says for as long that it may go, and a grant that is taken back within it is none.
constexpr Seconds gateCheckDelay{0.8};

} // namespace

AppDelegate::Neighbours AppDelegate::Neighbours::shared() {
    return {AppSettings::shared,      DevGuard::shared,     StatusItemController::shared,
            HotKeyManager::shared,    QuitAll::shared,      Windows::shared,
            UpdateController::shared, QuitNotifier::shared, QuitEngine::shared};
}

AppDelegate::AppDelegate(Platform& platform, Neighbours neighbours)
    : platform_(platform), neighbours_(std::move(neighbours)) {}

void AppDelegate::applicationDidFinishLaunching() {
    installExceptionLogger();
    if (anotherInstanceIsRunning()) {
        log_.error("another Ambrel instance is already running — this copy will terminate");
        platform_.application().terminate();
        return;
    }
    applyStoredDockPolicy();
    if (neighbours_.devGuard().isActive()) {
        log_.notice("AMBREL_DEV_MODE active — terminations restricted to whitelist");
    }
    observeDockPreference();
    neighbours_.statusItem().install();
    installHotKey();
    LaunchAtLogin::followProgram(platform_.loginItem());
    scheduleHooks();
    reopenObserver_ = platform_.application().didReopen.subscribe(
        [this] { applicationShouldHandleReopen(platform_.application().hasVisibleTitledWindow()); });
    takeRoad();
}

bool AppDelegate::anotherInstanceIsRunning() const {
    const auto own = platform_.bundle().bundleIdentifier().value_or(productIdentifier);
    auto& workspace = platform_.workspace();
    std::vector<ProcessId> others;
    for (const auto& app : workspace.runningApplicationsWithBundleIdentifier(own)) {
        if (app->processIdentifier() != workspace.currentProcessIdentifier() && !app->isTerminated()) {
            others.push_back(app->processIdentifier());
        }
    }
    if (others.empty()) {
        return false;
    }
    log_.error("found {} other Ambrel instance(s): pid(s) {}", others.size(), fmt::join(others, ", "));
    return true;
}

void AppDelegate::applyStoredDockPolicy() {
    auto& application = platform_.application();
    application.setActivationPolicy(neighbours_.settings().showDockIcon.get() ? ActivationPolicy::regular
                                                                              : ActivationPolicy::accessory);
    const bool regular = application.activationPolicy() == ActivationPolicy::regular;
    log_.notice("Ambrel launched ({})", regular ? "Dock icon visible" : "accessory mode");
}

void AppDelegate::observeDockPreference() {
    // The first value is the stored one, which has been applied.
    dockObserver_ = neighbours_.settings().showDockIcon.subscribe([this, first = true](bool show) mutable {
        if (!std::exchange(first, false)) {
            applyDockIconPreferenceLive(show);
        }
    });
}

void AppDelegate::applyDockIconPreferenceLive(bool show) {
    auto& application = platform_.application();
    if (show) {
        application.setActivationPolicy(ActivationPolicy::regular);
    } else if (!application.hasVisibleTitledWindow()) {
        application.setActivationPolicy(ActivationPolicy::accessory);
    }
    log_.notice("dock icon {}", show ? "shown" : "hidden");
}

void AppDelegate::installHotKey() {
    neighbours_.hotKeys().onTrigger = lifetime_.guard([this] { neighbours_.statusItem().quitAllAction(); });
    if (neighbours_.settings().quitAllHotKeyEnabled.get()) {
        neighbours_.hotKeys().registerHotKey(quitAllHotKey.keyCode, quitAllHotKey.carbonModifiers);
    }
}

void AppDelegate::takeRoad() {
    if (!Onboarding::isCompleted(platform_.userDefaults())) {
        neighbours_.windows().presentOnboarding(lifetime_.guard([this] { onboardingFinished(); }));
    } else if (platform_.windowList().isReadable()) {
        startEngine();
    } else {
        neighbours_.updates();
        presentGate();
    }
}

void AppDelegate::onboardingFinished() {
    if (platform_.windowList().isReadable()) {
        startEngine();
    } else {
        presentGate();
    }
}

void AppDelegate::startEngine() {
    if (engineStarted_) {
        return;
    }
    engineStarted_ = true;
    neighbours_.updates();
    neighbours_.notifier().configure();
    neighbours_.engine().start();
}

void AppDelegate::presentGate() {
    AccessibilityGate::promptForTrust(platform_.windowList());
    neighbours_.windows().presentGate({.openSettings = lifetime_.guard([this] {
                                           AccessibilityGate::promptForTrust(platform_.windowList());
                                           platform_.workspace().openURL(AccessibilityGate::settingsLink);
                                       }),
                                       .onClose = lifetime_.guard([this] {
                                           log_.notice("gate closed by user — staying idle, still polling for a grant");
                                       })});
    trustObserver_ = platform_.windowList().readableDidChange.subscribe([this](bool) { scheduleGateCheck(); });
    log_.notice("Accessibility not granted; gate presented, polling for grant");
}

void AppDelegate::scheduleGateCheck() {
    if (gateCheck_) {
        gateCheck_->cancel();
    }
    gateCheck_ = platform_.mainQueue().asyncAfter(gateCheckDelay, lifetime_.guard([this] {
        if (platform_.windowList().isReadable()) {
            dismissGateAndStart();
        }
    }));
}

void AppDelegate::dismissGateAndStart() {
    trustObserver_ = {};
    neighbours_.windows().dismissGate();
    log_.notice("Accessibility granted; starting engine");
    startEngine();
}

bool AppDelegate::applicationShouldHandleReopen(bool hasVisibleWindows) {
    if (!hasVisibleWindows) {
        neighbours_.windows().showSettings();
    }
    return true;
}

} // namespace ambrel
