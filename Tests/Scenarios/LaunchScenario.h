#pragma once

#include "AppDelegate.h"
#include "Engine/HotKeyManager.h"
#include "Scenarios/EngineScenario.h"
#include "Scenarios/RecordedWindows.h"
#include "UI/StatusBar/StatusItemController.h"
#include "Updates/UpdateController.h"

#include <optional>

namespace ambrel {

/// A whole launch of the program on a simulated desktop, from its delegate on.
class LaunchScenario : public EngineScenario {
protected:
    [[nodiscard]] AppDelegate::Neighbours neighbours() {
        AppDelegate::Neighbours made;
        made.settings = inHouse(&EngineHouse::settings);
        made.devGuard = inHouse(&EngineHouse::guard);
        made.quitAll = inHouse(&EngineHouse::quitAll);
        made.notifier = inHouse(&EngineHouse::notifier);
        made.engine = inHouse(&EngineHouse::engine);
        made.hotKeys = standing(hotKeys);
        made.windows = standing<Windows>(windows);
        made.statusItem = [this]() -> StatusItemController& {
            return statusItem();
        };
        made.updates = [this]() -> UpdateController& {
            return updates ? *updates : updates.emplace(desktop);
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
    std::optional<UpdateController> updates;
    std::optional<AppDelegate> delegate;

private:
    /// Made with the whole house when it is first asked for.
    template <typename Neighbour> std::function<Neighbour&()> inHouse(Neighbour EngineHouse::*neighbour) {
        return [this, neighbour]() -> Neighbour& {
            return house().*neighbour;
        };
    }
    template <typename Neighbour> static std::function<Neighbour&()> standing(Neighbour& neighbour) {
        return [&neighbour]() -> Neighbour& {
            return neighbour;
        };
    }

    std::optional<StatusItemController> statusItem_;
};

} // namespace ambrel
