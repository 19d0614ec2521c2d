#include "Scenarios/EngineScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr const char* resumed =
    "system returned to trusted state — rebuilding monitors so restored windows don't read as closed";

class Trust : public EngineScenario {
protected:
    [[nodiscard]] simulated::SimulatedSession& session() { return desktop.session(); }
    /// The verdicts of the changes since `start`.
    [[nodiscard]] std::vector<std::string> changes() { return log.texts("systemstate"); }
    [[nodiscard]] std::string reason() { return house().systemState.untrustworthyReason(); }
};

TEST_F(Trust, ComesBackOnceWithTheLastConditionThatClears) {
    start();
    session().screenIsLocked.emit();
    session().screenIsLocked.emit();
    session().screensDidSleep.emit();
    session().screensDidWake.emit();
    EXPECT_FALSE(log.contains(resumed));
    session().screenIsUnlocked.emit();
    session().screenIsUnlocked.emit();
    EXPECT_THAT(changes(), ElementsAre("screen locked — last-window quits SUSPENDED",
                                       "screens asleep — last-window quits SUSPENDED",
                                       "screens awake — last-window quits SUSPENDED",
                                       "screen unlocked — last-window quits resumed"));
    EXPECT_EQ(log.count(resumed), 1U);
}

TEST_F(Trust, NamesTheGravestCondition) {
    start();
    session().screensDidSleep.emit();
    EXPECT_EQ(reason(), "screens-asleep");
    session().screenIsLocked.emit();
    EXPECT_EQ(reason(), "locked+screens-asleep");
    session().sessionDidResignActive.emit();
    session().sessionWillEnd.emit();
    session().sessionDidResignActive.emit();
    EXPECT_EQ(reason(), "session-inactive");
    session().sessionDidBecomeActive.emit();
    EXPECT_EQ(reason(), "session-ending");
}

TEST_F(Trust, WindowsThatVanishAtTheSessionsEndAreNoClosedWindows) {
    start();
    auto& app = launchWithWindow();
    session().sessionWillEnd.emit();
    app.closeWindows();
    desktop.advance(10);
    EXPECT_THAT(decisions(), ElementsAre("last-window skipped(session-ending) org.example.Editor session-ending"));
    session().sessionWillStay.emit();
    desktop.advance(10);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(changes(), ElementsAre("login session is ending — last-window quits SUSPENDED",
                                       "login session stays — last-window quits resumed"));
}

/// What the session says when the program starts.
struct Seed {
    std::optional<SessionFacts> facts;
    const char* reason;
    const char* line;
};

TEST_F(Trust, IsSeededQuietlyFromWhatTheSessionSays) {
    for (const auto& seed :
         {Seed{std::nullopt, "trusted", "locked=false sessionInactive=false"},
          Seed{SessionFacts{}, "trusted", "locked=false sessionInactive=false"},
          Seed{SessionFacts{true, std::nullopt}, "screen-locked", "locked=true sessionInactive=false"},
          Seed{SessionFacts{std::nullopt, false}, "session-inactive", "locked=false sessionInactive=true"},
          Seed{SessionFacts{true, false}, "session-inactive", "locked=true sessionInactive=true"}}) {
        session().facts = seed.facts;
        log.clear();
        SystemState state(desktop.environment(), session());
        int resumptions = 0;
        state.onResumeTrusted = [&] {
            ++resumptions;
        };
        state.start();
        state.start();
        EXPECT_EQ(state.untrustworthyReason(), seed.reason);
        EXPECT_THAT(changes(),
                    ElementsAre(std::string("system-state monitor started; ") + seed.line + " forced=false"));
        session().sessionDidBecomeActive.emit();
        session().screenIsUnlocked.emit();
        EXPECT_EQ(resumptions, seed.reason == std::string("trusted") ? 0 : 1) << seed.reason;
    }
}

TEST_F(Trust, NeverComesBackWhileAFlagForcesItAway) {
    desktop.environment().set("AMBREL_FORCE_SCREEN_LOCKED", "1");
    desktop.environment().set("AMBREL_FORCE_SESSION_INACTIVE", "2");
    engine().start();
    EXPECT_TRUE(log.contains("system-state monitor started; locked=false sessionInactive=false forced=true"));
    session().screenIsLocked.emit();
    session().screenIsUnlocked.emit();
    EXPECT_EQ(log.count("last-window quits SUSPENDED"), 2U);
    EXPECT_EQ(reason(), "forced-lock");
    EXPECT_FALSE(log.contains(resumed));
}

TEST_F(Trust, WindowsThatVanishUnderALockAreNoClosedWindows) {
    start();
    auto& app = launchWithWindow();
    session().screenIsLocked.emit();
    app.closeWindows();
    desktop.advance(10);
    session().screenIsUnlocked.emit();
    desktop.advance(10);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), ElementsAre("last-window skipped(screen-locked) org.example.Editor screen-locked"));

    app.openWindow();
    desktop.advance(1);
    app.closeWindows();
    desktop.advance(1);
    EXPECT_EQ(terminated().size(), 1U) << "a window seen after the unlock counts again";
}

TEST_F(Trust, ALockDuringEitherWaitStopsTheQuit) {
    start();
    for (const double after : {0.3, 0.7}) {
        auto& app = launchWithWindow();
        app.closeWindows();
        desktop.advance(after);
        session().screensDidSleep.emit();
        desktop.advance(10);
        EXPECT_EQ(decisions().back(), "last-window skipped(screen-locked) org.example.Editor screens-asleep");
        session().screensDidWake.emit();
        desktop.advance(10);
    }
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_EQ(decisions().size(), 2U);
}

TEST_F(Trust, AMachineThatWakesToALockScreenRebuildsTwice) {
    start();
    launchWithWindow();
    session().willSleep.emit();
    session().screenIsLocked.emit();
    session().didWake.emit();
    desktop.advance(1);
    EXPECT_THAT(log.texts("sleepwake"), ElementsAre("system will sleep", "system woke; rebuilding monitors"));
    EXPECT_EQ(engine().monitoredCount.get(), 1);
    session().screenIsUnlocked.emit();
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    desktop.advance(0.5);
    EXPECT_EQ(engine().monitoredCount.get(), 1);
    EXPECT_EQ(log.count("recreating all 1 monitors"), 2U);
}

} // namespace
} // namespace ambrel
