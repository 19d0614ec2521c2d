#include "Scenarios/EngineScenario.h"

#include <functional>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using simulated::SimulatedApplication;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LastWindow : public EngineScenario {
protected:
    [[nodiscard]] std::string pidOf(const SimulatedApplication& app) const {
        return std::to_string(app.processIdentifier());
    }
};

TEST_F(LastWindow, ClosingTheLastWindowQuitsAfterTheDelayAndTwoValidations) {
    start();
    auto& app = launchWithWindow();
    const auto pid = pidOf(app);
    app.closeWindows();
    desktop.advance(0.999);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(0.001);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
    EXPECT_THAT(decisions(), ElementsAre("last-window terminated Editor windows=0"));
    EXPECT_THAT(engineLines(),
                ElementsAre("scheduling quit of org.example.Editor pid " + pid + " in 0.500000s",
                            "zero windows confirmed (1/2) for org.example.Editor; re-confirming in 0.500000s",
                            "quitting org.example.Editor pid " + pid + " (windows=0)",
                            "monitor removed org.example.Editor pid " + pid + "; total 0"));
}

TEST_F(LastWindow, AJumpWaitsLongerBeforeItIsConfirmed) {
    start();
    auto& app = launchWithWindow();
    app.openWindow();
    desktop.settle();
    app.closeWindows();
    desktop.advance(2.499);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(0.001);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
    EXPECT_TRUE(log.contains("re-confirming in 2.000000s (multi-window jump — possible app quit in flight)"));
}

/// What the user or the desktop does after the last window has closed, and what is left of the quit.
struct HeldBack {
    const char* name;
    double after; ///< seconds after the close
    std::function<void(EngineScenario&, simulated::SimulatedPlatform&, SimulatedApplication&)> happens;
    const char* line;     ///< a log line that says why
    const char* decision; ///< the decisions log, or null for nothing
};

class HeldBackQuit : public EngineScenario, public ::testing::WithParamInterface<HeldBack> {
public:
    using EngineScenario::house;
    using EngineScenario::setRule;
};

TEST_P(HeldBackQuit, LeavesTheApplicationRunning) {
    start();
    auto& app = launchWithWindow();
    app.closeWindows();
    desktop.advance(GetParam().after);
    GetParam().happens(*this, desktop, app);
    desktop.advance(60);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_TRUE(log.contains(GetParam().line)) << GetParam().line;
    if (GetParam().decision == nullptr) {
        EXPECT_THAT(decisions(), IsEmpty());
    } else {
        EXPECT_THAT(decisions(), Contains(std::string(GetParam().decision)));
    }
}

HeldBackQuit& held(EngineScenario& scenario) {
    return static_cast<HeldBackQuit&>(scenario);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, HeldBackQuit,
    ::testing::Values(
        HeldBack{"WindowReopensDuringTheDelay", 0.3, [](auto&, auto&, auto& app) { app.openWindow(); },
                 "cancelled pending quit pid", nullptr},
        HeldBack{"WindowReopensBetweenTheStages", 0.7, [](auto&, auto&, auto& app) { app.openWindow(); },
                 "cancelled pending quit pid", nullptr},
        HeldBack{"WindowReopensUnnoticedBeforeStageTwo", 0.7,
                 [](auto&, auto&, auto& app) {
                     app.faults.failReads(Unreadable::processGone, 1); // its recount fails
                     app.openWindow();
                 },
                 "quit check 2/2: window reopened; skipping quit org.example.Editor (windows=1)", nullptr},
        HeldBack{"Paused", 0.3, [](auto& s, auto&, auto&) { held(s).house().settings.isPaused.set(true); },
                 "paused; cancelled all pending quits", nullptr},
        HeldBack{"RuleTurnedOffWithinTheDebounce", 0.4,
                 [](auto& s, auto&, auto&) { held(s).setRule("org.example.Editor", false); },
                 "reconcile (rules-changed): +0 -1 monitors; total 0", nullptr},
        HeldBack{
            "Excluded", 0.1,
            [](auto& s, auto&, auto&) { held(s).house().settings.userExcludedBundleIDs.set({"org.example.Editor"}); },
            "scheduling quit", nullptr},
        HeldBack{"NoValueAtFireTime", 0.7,
                 [](auto&, auto&, auto& app) { app.faults.failReads(Unreadable::processGone); },
                 "quit check 2/2: org.example.Editor — AX read failed at fire time; aborting quit", nullptr},
        HeldBack{"UserQuitsIt", 0.3, [](auto&, auto&, auto& app) { app.quit(); }, "monitor removed org.example.Editor",
                 nullptr},
        HeldBack{"WindowServerStillSeesAWindow", 0.3,
                 [](auto&, auto& desktop, auto& app) { desktop.windowServer().leaveResidue(app.processIdentifier()); },
                 "cg-veto persisted through 4 re-validations for org.example.Editor — a real window AX can't see; quit "
                 "stays held back",
                 "last-window skipped(cg-windows-exist) org.example.Editor cg_windows=1"},
        HeldBack{"SystemSleptAndWoke", 0.3, [](auto& s, auto&, auto&) { held(s).house().engine.recreateAll(); },
                 "recreating all 1 monitors", nullptr}),
    [](const auto& each) { return each.param.name; });

TEST_F(LastWindow, MinimisedHiddenAndWithdrawnWindowsKeepTheApplication) {
    start();
    auto& minimised = launchWithWindow("org.example.Minimised");
    minimised.minimise(minimised.windows().front().id);
    auto& hidden = launchWithWindow("org.example.Hidden");
    hidden.hideItself();
    auto& withdrawn = launchWithWindow("org.example.Withdrawn");
    withdrawn.withdraw(withdrawn.windows().front().id);
    auto& elsewhere = desktop.launch("org.example.Elsewhere", "Elsewhere");
    elsewhere.openWindow({.onOtherDesktop = true});
    desktop.advance(60);
    EXPECT_THAT(terminated(), IsEmpty());
}

TEST_F(LastWindow, ResidueThatFadesOnlyDelaysTheQuit) {
    start();
    auto& app = launchWithWindow();
    desktop.windowServer().leaveResidue(app.processIdentifier());
    app.closeWindows();
    desktop.advance(3); // stage one at 0.5 and 2.5
    EXPECT_TRUE(log.contains("re-validating org.example.Editor in 2.000000s (attempt 2/4)"));
    desktop.windowServer().residue.clear();
    desktop.advance(1.999);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(0.002);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
}

TEST_F(LastWindow, WithOneWindowLeftTheWindowServerIsNotAsked) {
    start();
    house().settings.quitOnlyWhenOneWindowLeft.set(false);
    auto& app = desktop.launch("org.example.Editor", "Editor");
    const auto first = app.openWindow();
    app.openWindow();
    desktop.advance(1);
    app.closeWindow(first);
    desktop.advance(1);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
    EXPECT_THAT(decisions(), ElementsAre("last-window terminated Editor windows=1"));
}

TEST_F(LastWindow, TheGuardWritesOneLineAndEndsTheChain) {
    desktop.environment().set("AMBREL_DEV_MODE", "");
    start();
    auto& refused = launchWithWindow();
    auto& allowed = launchWithWindow("COM.APPLE.TEXTEDIT");
    refused.closeWindows();
    allowed.closeWindows();
    desktop.advance(10);
    EXPECT_THAT(terminated(), ElementsAre(allowed.processIdentifier()));
    EXPECT_THAT(decisions(),
                ElementsAre("last-window skipped(dev-mode) Editor", "last-window terminated TEXTEDIT windows=0"));

    desktop.environment().set("AMBREL_SHADOW_MODE", "");
    auto& shadowed = launchWithWindow("com.apple.TextEdit");
    shadowed.closeWindows();
    desktop.advance(10);
    EXPECT_EQ(terminated().size(), 1U);
    EXPECT_EQ(decisions().back(), "last-window skipped(shadow-mode) TextEdit");
    EXPECT_TRUE(log.contains("SHADOW: would have terminated com.apple.TextEdit — skipped (shadow mode)"));
}

TEST_F(LastWindow, SystemRolesAndAmbrelItselfAreNeverQuit) {
    start();
    house().rules.upsert(AppRule("com.apple.finder")); // someone turned the lock around
    house().rules.upsert(AppRule("app.ambrel.Ambrel"));
    for (const char* bundleID : {"com.apple.finder", "app.ambrel.Ambrel", "com.apple.dock"}) {
        launchWithWindow(bundleID).closeWindows();
    }
    desktop.advance(10);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), IsEmpty());
}

TEST_F(LastWindow, AReusedProcessIdDoesNotInheritAPendingQuit) {
    start();
    auto& old = launchWithWindow();
    old.closeWindows();
    desktop.advance(0.2);
    old.crash();
    auto& next = desktop.launch("org.example.Other", "Other", {.pid = old.processIdentifier()});
    desktop.advance(10);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_FALSE(next.isTerminated());
}

} // namespace
} // namespace ambrel
