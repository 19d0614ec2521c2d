#include "Engine/AccessibilityGate.h"
#include "Scenarios/LaunchScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class StartUp : public LaunchScenario {};

TEST_F(StartUp, WithoutTrustTheEngineWaitsForItAndStartsOnce) {
    completeOnboarding();
    desktop.windowList().setReadable(false);
    launch();
    ASSERT_TRUE(windows.gate.has_value());
    desktop.windowList().setReadable(true);
    desktop.advance(0.5);
    desktop.windowList().setReadable(false);
    desktop.advance(1);
    EXPECT_FALSE(log.contains("engine started")) << "the grant was taken back";
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_FALSE(windows.gate.has_value());
    desktop.windowList().setReadable(false);
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_EQ(log.count("engine started"), 1U);
    EXPECT_THAT(lifecycle(), ElementsAre("Ambrel launched (accessory mode)",
                                         "Accessibility not granted; gate presented, polling for grant",
                                         "Accessibility granted; starting engine"));
}

TEST_F(StartUp, TheGateAsksAgainAndMayBeClosed) {
    completeOnboarding();
    desktop.windowList().setReadable(false);
    launch();
    windows.gate->openSettings();
    EXPECT_THAT(desktop.workspace().links, ElementsAre(AccessibilityGate::settingsLink));
    windows.gate->onClose();
    EXPECT_EQ(lifecycle().back(), "gate closed by user — staying idle, still polling for a grant");
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_TRUE(log.contains("engine started"));
    EXPECT_THAT(windows.opened, ElementsAre("gate"));
}

TEST_F(StartUp, TheFirstRunEndsInTheEngineOrAtTheGate) {
    desktop.windowList().setReadable(false);
    launch();
    EXPECT_FALSE(log.contains("engine started"));
    EXPECT_THAT(windows.opened, ElementsAre("onboarding", "gate"));
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_EQ(log.count("engine started"), 1U);
}

TEST_F(StartUp, ASecondCopyGoesAwayBeforeItTouchesAnything) {
    auto& other = desktop.launch("app.ambrel.Ambrel", "Ambrel", {.policy = ActivationPolicy::accessory});
    log.expectError("found 1 other Ambrel instance(s): pid(s) " + std::to_string(other.processIdentifier()));
    log.expectError("another Ambrel instance is already running — this copy will terminate");
    desktop.application().setActivationPolicy(ActivationPolicy::regular);
    launch();
    EXPECT_TRUE(desktop.application().terminated);
    EXPECT_EQ(desktop.application().activationPolicy(), ActivationPolicy::regular);
    EXPECT_FALSE(std::filesystem::exists(home.path() / "config" / "Ambrel" / "rules.json"));
    EXPECT_FALSE(log.contains("Ambrel launched"));
}

TEST_F(StartUp, ACopyThatIsQuittingIsNoObstacle) {
    completeOnboarding();
    desktop.launch("app.ambrel.Ambrel", "Ambrel").crash();
    launch();
    EXPECT_FALSE(desktop.application().terminated);
    EXPECT_TRUE(log.contains("engine started"));
}

TEST_F(StartUp, TheDockPreferenceIsAppliedAtLaunchAndLive) {
    house().settings.showDockIcon.set(true);
    launch();
    EXPECT_EQ(desktop.application().activationPolicy(), ActivationPolicy::regular);
    EXPECT_THAT(lifecycle(), ElementsAre("Ambrel launched (Dock icon visible)"));

    desktop.application().visibleTitledWindow = true;
    house().settings.showDockIcon.set(false);
    EXPECT_EQ(desktop.application().activationPolicy(), ActivationPolicy::regular) << "kept for the open window";
    EXPECT_EQ(lifecycle().back(), "dock icon hidden");
    desktop.application().visibleTitledWindow = false;
    house().settings.showDockIcon.set(false);
    EXPECT_EQ(desktop.application().activationPolicy(), ActivationPolicy::accessory);
}

TEST_F(StartUp, TheHooksGoThroughTheSettersAndOddValuesAreIgnored) {
    completeOnboarding();
    desktop.environment().set("AMBREL_HIDE_ICON_AFTER", "1.5");
    desktop.environment().set("AMBREL_SHOW_DOCK_AFTER", "0");
    desktop.environment().set("AMBREL_HIDE_DOCK_AFTER", "2x");
    launch();
    EXPECT_TRUE(house().settings.showDockIcon.get());
    EXPECT_EQ(desktop.application().activationPolicy(), ActivationPolicy::regular);
    desktop.advance(1.4);
    EXPECT_FALSE(house().settings.hideMenuBarIcon.get());
    desktop.advance(60);
    EXPECT_TRUE(desktop.userDefaults().productSuite()->boolForKey("hideMenuBarIcon"));
    EXPECT_TRUE(house().settings.showDockIcon.get());
}

TEST_F(StartUp, QuitAllIsOnlyTestedUnderTheGuard) {
    completeOnboarding();
    desktop.environment().set("AMBREL_TEST_QUITALL", "1");
    launch();
    desktop.advance(5);
    EXPECT_FALSE(log.contains("AMBREL_TEST_QUITALL"));
    desktop.environment().set("AMBREL_DEV_MODE", "");
    launch();
    EXPECT_TRUE(log.contains("AMBREL_DEV_MODE active — terminations restricted to whitelist"));
    desktop.advance(1.5);
    EXPECT_TRUE(log.contains("AMBREL_TEST_QUITALL: invoking Quit All (dev mode — terminations whitelisted)"));
}

TEST_F(StartUp, OpeningItAgainShowsTheSettingsUnlessAWindowIsUp) {
    completeOnboarding();
    launch();
    desktop.application().visibleTitledWindow = true;
    desktop.application().reopen();
    desktop.settle();
    EXPECT_THAT(windows.opened, IsEmpty());
    desktop.application().visibleTitledWindow = false;
    desktop.application().reopen();
    desktop.settle();
    EXPECT_THAT(windows.opened, ElementsAre("settings"));
}

TEST_F(StartUp, TheFakeClockTakesANumberOnly) {
    const auto shown = [&](const char* value) {
        desktop.environment().set("AMBREL_FAKE_NOW", value);
        return AppClock::choose(desktop.environment(), desktop.wallClock())->now().time_since_epoch().count();
    };
    EXPECT_EQ(shown("1.5e3"), 1500);
    EXPECT_EQ(shown("5x"), desktop.wallClock().now().time_since_epoch().count());
}

} // namespace
} // namespace ambrel
