#include "Scenarios/LaunchScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr HotKey theHotKey{12, 0xB00};

class QuitEverything : public LaunchScenario {
protected:
    void setIncluded(const std::string& bundleID, bool included) {
        chooseRule(bundleID, [=](AppRule& rule) { rule.includedInQuitAll = included; });
    }
    ProcessId launchApp(const std::string& bundleID) {
        return desktop.launch(bundleID, bundleID.substr(bundleID.rfind('.') + 1)).processIdentifier();
    }
};

TEST_F(QuitEverything, ReachesOrdinaryApplicationsInTheirOrder) {
    start();
    setIncluded("org.example.Spared", false);
    for (const char* critical : {"com.apple.finder", "com.apple.systempreferences", "app.ambrel.Ambrel"}) {
        setIncluded(critical, true); // someone turned the lock around
        launchApp(critical);
    }
    launchApp("org.example.Spared");
    desktop.launch(std::nullopt, "Nameless");
    desktop.launch("org.example.Panel", "Panel", {.policy = ActivationPolicy::accessory});
    const auto plain = launchApp("org.example.Plain");
    const auto capitals = launchApp("COM.APPLE.FINDER"); // another name than the one that is critical
    log.clear();
    EXPECT_EQ(house().quitAll.run(false), 2);
    EXPECT_THAT(terminated(), ElementsAre(plain, capitals));
    EXPECT_THAT(engineLines(),
                ElementsAre("Quit All: quitting org.example.Plain", "Quit All: quitting COM.APPLE.FINDER",
                            "Quit All: requested quit of 2 apps"));
    EXPECT_THAT(decisions(), ElementsAre("quit-all terminated Plain", "quit-all terminated FINDER"));
}

TEST_F(QuitEverything, FollowsTheDefaultRuleWhereThereIsNoOther) {
    start();
    auto rule = AppRule::initialDefaultRule();
    rule.includedInQuitAll = false;
    house().rules.setDefaultRule(rule);
    setIncluded("org.example.Named", true);
    launchApp("org.example.Plain");
    const auto named = launchApp("org.example.Named");
    house().quitAll.run(false);
    EXPECT_THAT(terminated(), ElementsAre(named));
}

TEST_F(QuitEverything, IsCarriedOutWhateverElseHoldsQuitsBack) {
    start();
    const auto pid = launchApp("org.example.Excluded");
    house().settings.userExcludedBundleIDs.set({"org.example.Excluded"});
    house().settings.isPaused.set(true);
    desktop.session().screenIsLocked.emit();
    EXPECT_EQ(house().quitAll.run(false), 1);
    EXPECT_THAT(terminated(), ElementsAre(pid));
}

TEST_F(QuitEverything, ByForceOnlyWhenToldSo) {
    start();
    auto& app = desktop.launch("org.example.Plain", "Plain");
    app.terminateAnswer = simulated::Refuses{};
    house().quitAll.run(false);
    desktop.advance(60);
    EXPECT_FALSE(app.isTerminated());
    EXPECT_THAT(desktop.requests().forceTerminated, IsEmpty());
    log.clear();
    house().quitAll.run(true);
    desktop.settle();
    EXPECT_TRUE(app.isTerminated());
    EXPECT_THAT(engineLines(), ::testing::IsSupersetOf({"Quit All: force-quitting org.example.Plain",
                                                        "Quit All: requested force-quit of 1 apps"}));
    EXPECT_THAT(decisions(), ElementsAre("quit-all terminated Plain", "quit-all force-terminated Plain"));
}

TEST_F(QuitEverything, CountsWhatTheGuardRefuses) {
    desktop.environment().set("AMBREL_DEV_MODE", "1");
    start();
    launchApp("org.example.Plain");
    const auto editor = launchApp("com.apple.TextEdit");
    log.clear();
    EXPECT_EQ(house().quitAll.run(false), 2);
    EXPECT_THAT(terminated(), ElementsAre(editor));
    EXPECT_TRUE(log.contains("Quit All: requested quit of 2 apps"));
    EXPECT_THAT(decisions(), ElementsAre("quit-all skipped(dev-mode) Plain", "quit-all terminated TextEdit"));
}

TEST_F(QuitEverything, TheHotKeyQuitsOrAsksFirstIfItIsOn) {
    completeOnboarding();
    const auto pid = launchApp("org.example.Plain");
    launch();
    house().settings.confirmBeforeQuitAll.set(true);
    desktop.hotKeyCenter().press(theHotKey);
    desktop.settle();
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_TRUE(windows.question);
    house().settings.confirmBeforeQuitAll.set(false);
    desktop.hotKeyCenter().press({13, 0xB00});
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.hotKeyCenter().press(theHotKey);
    EXPECT_THAT(terminated(), ElementsAre(pid));
}

TEST_F(QuitEverything, TheHotKeyIsHeldOnceAndAFailureLeavesItFree) {
    hotKeys.registerHotKey(theHotKey.keyCode, theHotKey.carbonModifiers);
    desktop.hotKeyCenter().press(theHotKey); // nothing is there to be called
    hotKeys.registerHotKey(theHotKey.keyCode, theHotKey.carbonModifiers);
    EXPECT_EQ(desktop.hotKeyCenter().registrations(), 1);
    hotKeys.unregisterHotKey();
    EXPECT_EQ(desktop.hotKeyCenter().registrations(), 0);
    EXPECT_THAT(log.texts("hotkey"),
                ElementsAre("registered global hotkey (keyCode 12)", "registered global hotkey (keyCode 12)"));
    log.expectError("RegisterEventHotKey failed: -9878");
    desktop.hotKeyCenter().status = -9878;
    hotKeys.registerHotKey(theHotKey.keyCode, theHotKey.carbonModifiers);
    desktop.hotKeyCenter().status = 0;
    hotKeys.registerHotKey(theHotKey.keyCode, theHotKey.carbonModifiers);
    EXPECT_EQ(desktop.hotKeyCenter().registrations(), 1);
}

} // namespace
} // namespace ambrel
