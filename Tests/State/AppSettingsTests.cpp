#include "State/AppSettings.h"
#include "Support/AmbrelTest.h"

namespace ambrel {
namespace {

using Strings = std::vector<std::string>;

class AppSettingsTest : public AmbrelTest {
protected:
    DefaultsSuiteRef defaults = desktop.userDefaults().productSuite();
};

TEST_F(AppSettingsTest, EachPreferenceHasItsDefaultAndItsOwnKey) {
    AppSettings settings(defaults, desktop.bundle());
    const std::tuple<Preference<bool>*, const char*, bool> flags[] = {
        {&settings.quitOnlyWhenOneWindowLeft, "quitOnlyWhenOneWindowLeft", true},
        {&settings.isPaused, "isPaused", false},
        {&settings.confirmBeforeQuitAll, "confirmBeforeQuitAll", false},
        {&settings.quitAllHotKeyEnabled, "quitAllHotKeyEnabled", true},
        {&settings.settingsAdvancedMode, "settingsAdvancedMode", false},
        {&settings.hideMenuBarIcon, "hideMenuBarIcon", false},
        {&settings.showDockIcon, "showDockIcon", false},
        {&settings.seenHideIconWarning, "seenHideIconWarning", false},
        {&settings.notifyOnQuit, "notifyOnQuit", true},
    };
    desktop.userDefaults().endRun();
    EXPECT_EQ(defaults->object("notifyOnQuit"), std::nullopt) << "a first launch stores nothing";
    for (const auto& [flag, key, value] : flags) {
        EXPECT_EQ(flag->get(), value) << key;
        flag->set(!value);
        EXPECT_EQ(defaults->object(key), DefaultsValue(!value)) << key;
    }
    EXPECT_EQ(settings.quitDelay.get(), 0.5);
    settings.quitDelay.set(-1);
    settings.userExcludedBundleIDs.set({"a"});
    const AppSettings next(defaults, desktop.bundle());
    EXPECT_EQ(next.quitDelay.get(), -1) << "stored without a clamp";
    EXPECT_EQ(next.userExcludedBundleIDs.get(), Strings{"a"});
    EXPECT_TRUE(next.isPaused.get());
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
