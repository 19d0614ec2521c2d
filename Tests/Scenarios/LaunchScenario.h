#pragma once

#include "AppDelegate.h"
#include "Engine/HotKeyManager.h"
#include "Scenarios/EngineScenario.h"
#include "Scenarios/RecordedWindows.h"
#include "UI/Onboarding/OnboardingController.h"
#include "UI/SettingsWindowController.h"
#include "UI/StatusBar/StatusItemController.h"
#include "Updates/UpdateController.h"

#include <optional>

namespace ambrel {

/// A whole launch of the program on a simulated desktop, from its delegate on.
class LaunchScenario : public EngineScenario {
protected:
    [[nodiscard]] AppDelegate::Neighbours neighbours() {
        AppDelegate::Neighbours made;
        made.settings = [this]() -> AppSettings& {
            return house().settings;
        };
        made.devGuard = [this]() -> DevGuard& {
            return house().guard;
        };
        made.statusItem = [this]() -> StatusItemController& {
            return statusItem();
        };
        made.hotKeys = [this]() -> HotKeyManager& {
            return hotKeys;
        };
        made.quitAll = [this]() -> QuitAll& {
            return house().quitAll;
        };
        made.settingsWindow = [this]() -> SettingsWindowController& {
            return settingsWindow;
        };
        made.onboarding = [this]() -> OnboardingController& {
            return onboarding;
        };
        made.updates = [this]() -> UpdateController& {
            return updates.emplace();
        };
        made.notifier = [this]() -> QuitNotifier& {
            return house().notifier;
        };
        made.engine = [this]() -> QuitEngine& {
            return house().engine;
        };
        return made;
    }
    void launch() {
        delegate.emplace(desktop, neighbours());
        delegate->applicationDidFinishLaunching();
        desktop.settle();
    }
    void completeOnboarding() { desktop.userDefaults().productSuite()->set("onboardingCompleted", true); }
    [[nodiscard]] StatusItemController& statusItem() {
        if (!statusItem_) {
            statusItem_.emplace(desktop, house().settings, house().quitAll, windows, icons);
        }
        return *statusItem_;
    }
    void forgetStatusItem() { statusItem_.reset(); }
    [[nodiscard]] std::vector<std::string> lifecycle() { return log.texts("lifecycle"); }

    RecordedWindows windows;
    StatusIcons icons = StatusIcons::built();
    HotKeyManager hotKeys{desktop.hotKeyCenter()};
    SettingsWindowController settingsWindow;
    OnboardingController onboarding;
    std::optional<UpdateController> updates;
    std::optional<AppDelegate> delegate;

private:
    std::optional<StatusItemController> statusItem_;
};

} // namespace ambrel
