#include "State/AppSettings.h"

#include "Platform/Bundle.h"
#include "Platform/Platform.h"

#include <utility>

namespace ambrel {

namespace {

/// `defaults`, after it was told what absent keys read as.
DefaultsSuiteRef registered(DefaultsSuiteRef defaults) {
    defaults->registerDefaults({
        {"quitOnlyWhenOneWindowLeft", true},
        {"quitDelay", 0.5},
        {"isPaused", false},
        {"userExcludedBundleIDs", std::vector<std::string>()},
        {"confirmBeforeQuitAll", false},
        {"quitAllHotKeyEnabled", true},
        {"settingsAdvancedMode", false},
        {"hideMenuBarIcon", false},
        {"showDockIcon", false},
        {"seenHideIconWarning", false},
        {"notifyOnQuit", true},
        {"keepBusyApps", true},
    });
    return defaults;
}

Preference<bool> boolean(DefaultsSuite& defaults, const char* key) {
    return {defaults, key, defaults.boolForKey(key)};
}

} // namespace

AppSettings& AppSettings::shared() {
    static AppSettings settings(Platform::shared().userDefaults().productSuite(), Platform::shared().bundle());
    return settings;
}

AppSettings::AppSettings(DefaultsSuiteRef defaults, const Bundle& bundle)
    : defaults_(registered(std::move(defaults))), bundle_(bundle),
      quitOnlyWhenOneWindowLeft(boolean(*defaults_, "quitOnlyWhenOneWindowLeft")),
      quitDelay(*defaults_, "quitDelay", defaults_->doubleForKey("quitDelay")),
      isPaused(boolean(*defaults_, "isPaused")),
      userExcludedBundleIDs(*defaults_, "userExcludedBundleIDs", defaults_->stringArrayForKey("userExcludedBundleIDs")),
      confirmBeforeQuitAll(boolean(*defaults_, "confirmBeforeQuitAll")),
      quitAllHotKeyEnabled(boolean(*defaults_, "quitAllHotKeyEnabled")),
      settingsAdvancedMode(boolean(*defaults_, "settingsAdvancedMode")),
      hideMenuBarIcon(boolean(*defaults_, "hideMenuBarIcon")), showDockIcon(boolean(*defaults_, "showDockIcon")),
      seenHideIconWarning(boolean(*defaults_, "seenHideIconWarning")),
      notifyOnQuit(boolean(*defaults_, "notifyOnQuit")), keepBusyApps(boolean(*defaults_, "keepBusyApps")) {
    const auto announce = [this](auto&... preferences) {
        (announcements_.push_back(preferences.willChange().subscribe([this] { willChange.emit(); })), ...);
    };
    announce(quitOnlyWhenOneWindowLeft, quitDelay, isPaused, userExcludedBundleIDs, confirmBeforeQuitAll,
             quitAllHotKeyEnabled, settingsAdvancedMode, hideMenuBarIcon, showDockIcon, seenHideIconWarning,
             notifyOnQuit, keepBusyApps);
}

std::set<std::string> AppSettings::effectiveExcludedBundleIDs() const {
    const auto& user = userExcludedBundleIDs.get();
    std::set<std::string> excluded(user.begin(), user.end());
    excluded.insert(systemDefaultExcludedBundleIDs.begin(), systemDefaultExcludedBundleIDs.end());
    if (auto own = bundle_.bundleIdentifier()) {
        excluded.insert(*std::move(own));
    }
    return excluded;
}

} // namespace ambrel
