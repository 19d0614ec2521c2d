#include "Scenarios/EngineScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using simulated::SimulatedApplication;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using IdleBehavior = AppRule::IdleBehavior;

class Idle : public EngineScenario {
protected:
    void SetUp() override { front_ = &desktop.launch("org.example.Front", "Front"); }

    void setIdle(IdleBehavior behavior, std::int64_t minutes = 5) {
        chooseRule("org.example.Editor", [=](AppRule& rule) {
            rule.idleBehavior = behavior;
            rule.idleThresholdMinutes = minutes;
        });
    }
    /// An application with a window that has just lost the front to another.
    SimulatedApplication& launchBehind() {
        auto& app = desktop.launch("org.example.Editor", "Editor");
        app.openWindow();
        front_->openWindow();
        desktop.settle();
        return app;
    }
    [[nodiscard]] SimulatedApplication& front() { return *front_; }
    [[nodiscard]] std::vector<ProcessId> hidden() const {
        std::vector<ProcessId> pids;
        for (const auto& request : desktop.requests().hidden) {
            pids.push_back(request.pid);
        }
        return pids;
    }

private:
    SimulatedApplication* front_ = nullptr;
};

TEST_F(Idle, QuitsAtTheFirstTurnThatFindsTheLimitReached) {
    start();
    setIdle(IdleBehavior::quit);
    auto& app = launchBehind();
    app.terminateAnswer = simulated::Refuses{};
    desktop.advance(299);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(1);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
    EXPECT_THAT(decisions(), ElementsAre("idle terminated Editor idle=300s"));
    EXPECT_EQ(log.texts("idle").back(), "idle-quit org.example.Editor (idle 300s)");
    desktop.advance(3600);
    EXPECT_EQ(terminated().size(), 1U) << "one that stays is not asked again";
    app.activate();
    front().activate();
    desktop.advance(330);
    EXPECT_EQ(terminated().size(), 2U) << "until it has been used again";
}

TEST_F(Idle, HidesOnceAndQuitsLaterIfTheRuleChanges) {
    start();
    setIdle(IdleBehavior::hide);
    auto& app = launchBehind();
    desktop.advance(3600);
    EXPECT_THAT(hidden(), ElementsAre(app.processIdentifier()));
    EXPECT_THAT(decisions(), ElementsAre("idle hidden Editor idle=300s"));
    EXPECT_EQ(log.texts("idle").back(), "idle-hide org.example.Editor (idle 300s)");
    setIdle(IdleBehavior::quit);
    desktop.advance(30);
    EXPECT_THAT(decisions(), ElementsAre("idle hidden Editor idle=300s", "idle terminated Editor idle=3630s"));
}

/// A value of the variable, the rule's minutes, and the seconds that pass before the application is quit.
struct Limit {
    const char* variable;
    std::int64_t minutes;
    double seconds;
};

TEST_F(Idle, LimitsAreAtLeastFiveMinutesUnlessAVariableSaysOtherwise) {
    desktop.environment().set("AMBREL_IDLE_EVAL_INTERVAL", "1");
    start();
    for (const auto& limit : {Limit{nullptr, 1, 300}, Limit{nullptr, -7, 300}, Limit{nullptr, 6, 360},
                              Limit{"10", 60, 10}, Limit{"1.5", 60, 2}, Limit{"10s", 6, 360}}) {
        limit.variable == nullptr ? desktop.environment().unset("AMBREL_IDLE_THRESHOLD_SECONDS")
                                  : desktop.environment().set("AMBREL_IDLE_THRESHOLD_SECONDS", limit.variable);
        setIdle(IdleBehavior::quit, limit.minutes);
        auto& app = launchBehind();
        desktop.advance(limit.seconds - 0.5);
        EXPECT_FALSE(app.isTerminated()) << limit.seconds;
        desktop.advance(0.5);
        EXPECT_TRUE(app.isTerminated()) << limit.seconds;
    }
}

TEST_F(Idle, APauseOnlyPostponesAndALockOrAnExclusionDoesNotEvenThat) {
    start();
    house().settings.userExcludedBundleIDs.set({"org.example.Editor"});
    setIdle(IdleBehavior::quit);
    launchBehind();
    house().settings.isPaused.set(true);
    desktop.advance(3600);
    EXPECT_THAT(terminated(), IsEmpty());
    house().settings.isPaused.set(false);
    desktop.session().screenIsLocked.emit();
    desktop.advance(30);
    EXPECT_EQ(terminated().size(), 1U);
}

TEST_F(Idle, TimeAsleepOrLockedIsNotIdleTime) {
    start();
    setIdle(IdleBehavior::quit);
    launchBehind();
    desktop.advance(200);
    desktop.mainQueue().sleep(Seconds(8 * 3600));
    desktop.advance(80);
    EXPECT_THAT(terminated(), IsEmpty()) << "asleep, though nobody has told of the waking yet";
    desktop.session().didWake.emit();
    desktop.advance(200);
    desktop.mainQueue().shiftWallClock(Seconds(7200));
    desktop.advance(90);
    EXPECT_THAT(terminated(), IsEmpty()) << "the clock was set";
    desktop.session().screenIsLocked.emit();
    desktop.session().screenIsUnlocked.emit();
    desktop.advance(299);
    EXPECT_THAT(terminated(), IsEmpty());
    desktop.advance(30);
    EXPECT_EQ(terminated().size(), 1U);
}

TEST_F(Idle, AnOccupiedApplicationIsKeptUntilItIsNoMore) {
    start();
    setIdle(IdleBehavior::quit);
    auto& app = launchBehind();
    desktop.occupations().of[app.processIdentifier()] = Occupation::playing;
    desktop.advance(7200);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), ElementsAre("idle skipped(playing) Editor")) << "said once";
    desktop.occupations().of.clear();
    desktop.occupations().isSilent = true;
    desktop.advance(60);
    EXPECT_THAT(terminated(), IsEmpty()) << "no answer is a yes";
    desktop.occupations().isSilent = false;
    desktop.advance(30);
    EXPECT_EQ(terminated().size(), 1U);
}

TEST_F(Idle, AWindowManagerThatRefusesToHideIsAskedOnceAndHidesNothing) {
    desktop.workspace().refusesToIconify = true;
    start();
    setIdle(IdleBehavior::hide);
    auto& app = launchBehind();
    desktop.advance(3600);
    EXPECT_EQ(hidden().size(), 1U);
    EXPECT_EQ(decisions().size(), 1U);
    app.closeWindows();
    desktop.advance(2);
    EXPECT_THAT(terminated(), ElementsAre(app.processIdentifier()));
}

TEST_F(Idle, TheGuardIsAskedOnceAboutAQuitAndNeverAboutAHide) {
    desktop.environment().set("AMBREL_SHADOW_MODE", "1");
    start();
    setIdle(IdleBehavior::quit);
    auto& app = launchBehind();
    desktop.advance(7200);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), ElementsAre("idle skipped(shadow-mode) Editor"));
    setIdle(IdleBehavior::hide);
    app.activate();
    front().activate();
    desktop.advance(330);
    EXPECT_THAT(hidden(), ElementsAre(app.processIdentifier()));
}

TEST_F(Idle, ForgetsAnApplicationWithItsProcess) {
    start();
    auto& app = launchBehind();
    auto& untouched = desktop.launch("org.example.Editor", "Untouched");
    log.clear();
    app.crash();
    untouched.crash();
    desktop.settle();
    EXPECT_THAT(log.texts("idle"), ElementsAre("pruned pid " + std::to_string(app.processIdentifier()) +
                                               " (org.example.Editor) on termination"));
    setIdle(IdleBehavior::quit);
    desktop.launch("org.example.Editor", "Editor", {.pid = app.processIdentifier()});
    desktop.advance(7200);
    EXPECT_THAT(terminated(), IsEmpty());
}

} // namespace
} // namespace ambrel
