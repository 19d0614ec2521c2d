#pragma once

#include "Core/Lifetime.h"
#include "Core/Logger.h"
#include "Core/MainQueue.h"
#include "Core/Signal.h"

#include <functional>
#include <string>

namespace ambrel {

class AppSettings;
class DevGuard;
class HotKeyManager;
class Platform;
class QuitAll;
class QuitEngine;
class QuitNotifier;
class StatusItemController;
class UpdateController;
class Windows;

/// Owns the order in which everything comes up, and takes one of three roads: onboarding, the gate, or the engine.
class AppDelegate {
public:
    /// What a launch brings up, each made when it is first asked for: a second copy must go away before it has
    /// touched a setting.
    struct Neighbours {
        std::function<AppSettings&()> settings;
        std::function<DevGuard&()> devGuard;
        std::function<StatusItemController&()> statusItem;
        std::function<HotKeyManager&()> hotKeys;
        std::function<QuitAll&()> quitAll;
        std::function<Windows&()> windows;
        std::function<UpdateController&()> updates;
        std::function<QuitNotifier&()> notifier;
        std::function<QuitEngine&()> engine;

        /// The process-wide ones.
        [[nodiscard]] static Neighbours shared();
    };

    AppDelegate(Platform& platform, Neighbours neighbours);

    void applicationDidFinishLaunching();
    /// The program was opened again. True: the desktop may do what it usually does then.
    bool applicationShouldHandleReopen(bool hasVisibleWindows);

private:
    [[nodiscard]] bool anotherInstanceIsRunning() const;
    void applyStoredDockPolicy();
    void applyDockIconPreferenceLive(bool show);
    void observeDockPreference();
    void installHotKey();
    void takeRoad();
    void onboardingFinished();
    void startEngine();
    void presentGate();
    void scheduleGateCheck();
    void dismissGateAndStart();

    // Environment hooks: AppDelegate+Hooks.cpp
    void scheduleHooks();
    void scheduleSettingsHook();
    void scheduleQuitAllHook();
    void scheduleSettingHook(const std::string& variable, const std::string& message, std::function<void()> set);

    Platform& platform_;
    Neighbours neighbours_;
    Logger log_{"lifecycle"};
    bool engineStarted_ = false;
    Subscription dockObserver_;
    Subscription reopenObserver_;
    Subscription trustObserver_;
    WorkItemRef gateCheck_;
    Lifetime lifetime_;
};

} // namespace ambrel
