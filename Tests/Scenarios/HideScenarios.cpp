#include "Scenarios/EngineScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using simulated::SimulatedApplication;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Hide : public EngineScenario {
public:
    using EngineScenario::chooseRule;
    using EngineScenario::engine;
    using EngineScenario::house;

    void allow(bool quitWhenHidden = true, const std::string& bundleID = "org.example.Editor") {
        chooseRule(bundleID, [=](AppRule& rule) { rule.quitWhenHidden = quitWhenHidden; });
        desktop.advance(0.3);
    }

protected:
    /// An application whose rule opts in, up for longer than a launch takes.
    SimulatedApplication& launchAllowed() {
        allow();
        auto& app = launchWithWindow();
        desktop.advance(5);
        log.clear();
        return app;
    }
};

TEST_F(Hide, QuitsAfterTheDelayIfItsOwnRuleSaysSo) {
    start();
    auto& app = launchAllowed();
    const auto pid = std::to_string(app.processIdentifier());
    app.hideItself();
    desktop.advance(0.499);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(0.001);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
    EXPECT_THAT(decisions(), ElementsAre("hidden terminated Editor hidden"));
    EXPECT_TRUE(log.contains("hide-quit scheduled for org.example.Editor pid " + pid + " in 0.500000s"));
    EXPECT_TRUE(log.contains("hide-quit terminating org.example.Editor pid " + pid));
}

/// What is so before the application hides, or happens 0.3 seconds after it; nothing is quit.
struct HeldBack {
    const char* name;
    bool before;
    std::function<void(Hide&, simulated::SimulatedPlatform&, SimulatedApplication&)> happens;
    const char* line;               ///< a log line that says why, or null
    const char* decision = nullptr; ///< the one line of the decisions log, or null
};

class HeldBackHide : public Hide, public ::testing::WithParamInterface<HeldBack> {};

TEST_P(HeldBackHide, LeavesTheApplicationRunning) {
    start();
    auto& app = launchAllowed();
    if (GetParam().before) {
        GetParam().happens(*this, desktop, app);
    }
    app.hideItself();
    desktop.advance(0.3);
    if (!GetParam().before) {
        GetParam().happens(*this, desktop, app);
    }
    desktop.advance(60);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_TRUE(GetParam().line == nullptr || log.contains(GetParam().line)) << GetParam().line;
    EXPECT_EQ(log.contains("hide-quit scheduled"), !GetParam().before || GetParam().decision != nullptr);
    if (GetParam().decision == nullptr) {
        EXPECT_THAT(decisions(), IsEmpty());
    } else {
        EXPECT_THAT(decisions(), ElementsAre(std::string(GetParam().decision)));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, HeldBackHide,
    ::testing::Values(
        HeldBack{"NotByItsRule", true, [](auto& hide, auto&, auto&) { hide.allow(false); }, nullptr},
        HeldBack{"NotByItsRuleAnyMore", false,
                 [](auto& hide, auto&, auto&) {
                     hide.chooseRule("org.example.Editor", [](AppRule& rule) { rule.quitWhenHidden = false; });
                 },
                 nullptr},
        HeldBack{"Paused", true, [](auto& hide, auto&, auto&) { hide.house().settings.isPaused.set(true); }, nullptr},
        HeldBack{"PausedMeanwhile", false,
                 [](auto& hide, auto&, auto&) {
                     hide.house().settings.isPaused.set(true);
                     hide.house().settings.isPaused.set(false);
                 },
                 "paused; cancelled all pending quits"},
        HeldBack{"LockedAndUnlockedLater", true,
                 [](auto&, auto& desktop, auto&) {
                     desktop.session().screenIsLocked.emit();
                     desktop.mainQueue().asyncAfter(Seconds(10), [&] { desktop.session().screenIsUnlocked.emit(); });
                 },
                 nullptr},
        HeldBack{"LockedMeanwhile", false, [](auto&, auto& desktop, auto&) { desktop.session().screenIsLocked.emit(); },
                 nullptr},
        HeldBack{"LockedAndUnlockedMeanwhile", false,
                 [](auto&, auto& desktop, auto&) {
                     desktop.session().screenIsLocked.emit();
                     desktop.session().screenIsUnlocked.emit();
                 },
                 nullptr},
        HeldBack{"ShownAgain", false, [](auto&, auto&, auto& app) { app.show(); },
                 "hide-quit: org.example.Editor no longer hidden (reopened) — skipping"},
        HeldBack{"QuitByItsUser", false, [](auto&, auto&, auto& app) { app.crash(); }, nullptr},
        HeldBack{"RefusedByTheGuard", true,
                 [](auto&, auto& desktop, auto&) { desktop.environment().set("AMBREL_SHADOW_MODE", ""); },
                 "SHADOW: would have terminated org.example.Editor — skipped (shadow mode)",
                 "hidden skipped(shadow-mode) Editor"}),
    [](const auto& each) { return each.param.name; });

TEST_F(Hide, ThreeSecondsAfterItsLaunchItIsNoArtefactOfTheLaunch) {
    start();
    allow();
    auto& early = desktop.launch("org.example.Editor", "Early");
    auto& late = desktop.launch("org.example.Editor", "Late");
    desktop.advance(2.9);
    early.hideItself();
    desktop.advance(0.1);
    late.hideItself();
    desktop.advance(10);
    EXPECT_TRUE(log.contains("hide-quit: org.example.Editor hidden within 3s of launch — launch artifact, ignoring"));
    EXPECT_THAT(terminated(), ElementsAre(late.processIdentifier()));
}

TEST_F(Hide, ASecondHideRestartsTheDelay) {
    start();
    house().settings.quitDelay.set(2);
    auto& app = launchAllowed();
    app.hideItself();
    desktop.advance(1.5);
    app.show();
    app.hideItself();
    desktop.advance(1.9);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(0.1);
    EXPECT_EQ(terminated().size(), 1U);
}

TEST_F(Hide, GoesWithTheMonitorThatARuleDrops) {
    start();
    house().settings.quitDelay.set(5);
    auto& app = launchAllowed();
    app.hideItself();
    desktop.advance(1);
    chooseRule("org.example.Editor", [](AppRule& rule) {
        rule.quitOnLastWindowClose = false;
        rule.quitWhenHidden = true;
    });
    desktop.advance(60);
    EXPECT_THAT(terminated(), IsEmpty());
}

TEST_F(Hide, NeedsNeitherAMonitorNorTheLastWindowRuleAndIgnoresTheExcludeList) {
    chooseRule("org.example.Editor", [](AppRule& rule) {
        rule.quitOnLastWindowClose = false;
        rule.quitWhenHidden = true;
    });
    house().settings.userExcludedBundleIDs.set({"org.example.Editor"});
    start();
    auto& app = launchWithWindow();
    desktop.advance(5);
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    house().settings.quitDelay.set(-3);
    app.hideItself();
    desktop.settle();
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
}

TEST_F(Hide, AmbrelItselfIsNeverQuit) {
    desktop.workspace().ownPID = 77;
    start();
    allow(true, "app.ambrel.Ambrel");
    allow(true, "org.example.Own");
    auto& copy = launchWithWindow("app.ambrel.Ambrel");
    auto& own = desktop.launch("org.example.Own", "Own", {.pid = 77});
    desktop.advance(5);
    copy.hideItself();
    own.hideItself();
    desktop.advance(10);
    EXPECT_THAT(terminated(), IsEmpty());
}

} // namespace
} // namespace ambrel
