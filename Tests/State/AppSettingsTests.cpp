#include "State/AppSettings.h"
#include "Support/AmbrelTest.h"

namespace ambrel {
namespace {

using Strings = std::vector<std::string>;

class AppSettingsTest : public AmbrelTest {
protected:
    DefaultsSuiteRef defaults = desktop.userDefaults().productSuite();
};

TEST_F(AppSettingsTest, AFirstLaunchHasItsDefaultsAndStoresNone) {
    const AppSettings settings(defaults, desktop.bundle());
    EXPECT_EQ(settings.quitDelay.get(), 0.5);
    EXPECT_EQ(settings.userExcludedBundleIDs.get(), Strings());
    for (const auto* on :
         {&settings.quitOnlyWhenOneWindowLeft, &settings.quitAllHotKeyEnabled, &settings.notifyOnQuit}) {
        EXPECT_TRUE(on->get());
    }
    for (const auto* off : {&settings.isPaused, &settings.confirmBeforeQuitAll, &settings.settingsAdvancedMode,
                            &settings.hideMenuBarIcon, &settings.showDockIcon, &settings.seenHideIconWarning}) {
        EXPECT_FALSE(off->get());
    }
    desktop.userDefaults().endRun();
    EXPECT_EQ(defaults->object("notifyOnQuit"), std::nullopt);
}

TEST_F(AppSettingsTest, EachPreferenceHasItsOwnKey) {
    AppSettings settings(defaults, desktop.bundle());
    const std::pair<Preference<bool>*, const char*> flags[] = {
        {&settings.quitOnlyWhenOneWindowLeft, "quitOnlyWhenOneWindowLeft"},
        {&settings.isPaused, "isPaused"},
        {&settings.confirmBeforeQuitAll, "confirmBeforeQuitAll"},
        {&settings.quitAllHotKeyEnabled, "quitAllHotKeyEnabled"},
        {&settings.settingsAdvancedMode, "settingsAdvancedMode"},
        {&settings.hideMenuBarIcon, "hideMenuBarIcon"},
        {&settings.showDockIcon, "showDockIcon"},
        {&settings.seenHideIconWarning, "seenHideIconWarning"},
        {&settings.notifyOnQuit, "notifyOnQuit"},
    };
    for (const auto& [flag, key] : flags) {
        const bool changed = !flag->get();
        flag->set(changed);
        EXPECT_EQ(defaults->object(key), DefaultsValue(changed)) << key;
    }
    settings.quitDelay.set(-1);
    settings.userExcludedBundleIDs.set({"a"});

    const AppSettings next(defaults, desktop.bundle());
    EXPECT_EQ(next.quitDelay.get(), -1) << "stored without a clamp";
    EXPECT_EQ(next.userExcludedBundleIDs.get(), Strings{"a"});
    EXPECT_TRUE(next.isPaused.get());
    EXPECT_FALSE(next.notifyOnQuit.get());
}

TEST_F(AppSettingsTest, ValuesOfAnotherTypeReadAsTheDefault) {
    for (const auto* key : {"notifyOnQuit", "quitOnlyWhenOneWindowLeft", "quitDelay", "userExcludedBundleIDs"}) {
        defaults->set(key, std::string("no"));
    }
    const AppSettings settings(defaults, desktop.bundle());
    EXPECT_TRUE(settings.notifyOnQuit.get());
    EXPECT_TRUE(settings.quitOnlyWhenOneWindowLeft.get());
    EXPECT_EQ(settings.quitDelay.get(), 0.5);
    EXPECT_EQ(settings.userExcludedBundleIDs.get(), Strings());
}

TEST_F(AppSettingsTest, SystemAndSelfAreAlwaysExcluded) {
    AppSettings settings(defaults, desktop.bundle());
    EXPECT_EQ(settings.effectiveExcludedBundleIDs(), (std::set<std::string>{"app.ambrel.Ambrel", "com.apple.finder"}));
    settings.userExcludedBundleIDs.set({"a", "a"});
    desktop.bundle().identifier.reset();
    EXPECT_EQ(settings.effectiveExcludedBundleIDs(), (std::set<std::string>{"a", "com.apple.finder"}));
}

} // namespace
} // namespace ambrel
