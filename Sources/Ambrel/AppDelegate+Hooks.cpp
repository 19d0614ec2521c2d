#include "AppDelegate.h"
#include "Core/MainQueue.h"
#include "Engine/DevGuard.h"
#include "Engine/QuitAll.h"
#include "Platform/Environment.h"
#include "Platform/Platform.h"
#include "State/AppSettings.h"
#include "UI/Windows.h"

namespace ambrel {

namespace {
constexpr Seconds openSettingsDelay{0.3};
constexpr Seconds testQuitAllDelay{1.5};
} // namespace

void AppDelegate::scheduleHooks() {
    scheduleSettingsHook();
    scheduleQuitAllHook();
    scheduleSettingHook("AMBREL_HIDE_ICON_AFTER", "toggling hideMenuBarIcon -> true via in-process setter",
                        [this] { neighbours_.settings().hideMenuBarIcon.set(true); });
    scheduleSettingHook("AMBREL_SHOW_DOCK_AFTER", "toggling showDockIcon -> true via in-process setter",
                        [this] { neighbours_.settings().showDockIcon.set(true); });
    scheduleSettingHook("AMBREL_HIDE_DOCK_AFTER", "toggling showDockIcon -> false via in-process setter",
                        [this] { neighbours_.settings().showDockIcon.set(false); });
}

void AppDelegate::scheduleSettingsHook() {
    if (platform_.environment().isSet("AMBREL_OPEN_SETTINGS")) {
        platform_.mainQueue().asyncAfter(openSettingsDelay,
                                         lifetime_.guard([this] { neighbours_.windows().showSettings(); }));
    }
}

void AppDelegate::scheduleQuitAllHook() {
    if (!platform_.environment().isSet("AMBREL_TEST_QUITALL") || !neighbours_.devGuard().isActive()) {
        return;
    }
    platform_.mainQueue().asyncAfter(testQuitAllDelay, lifetime_.guard([this] {
        log_.notice("AMBREL_TEST_QUITALL: invoking Quit All (dev mode — terminations whitelisted)");
        neighbours_.quitAll().run(false);
    }));
}

void AppDelegate::scheduleSettingHook(const std::string& variable, const std::string& message,
                                      std::function<void()> set) {
    const auto seconds = platform_.environment().number(variable);
    if (!seconds) {
        return;
    }
    platform_.mainQueue().asyncAfter(Seconds(*seconds),
                                     lifetime_.guard([this, variable, message, set = std::move(set)] {
                                         log_.notice("{}: {}", variable, message);
                                         set();
                                     }));
}

} // namespace ambrel
