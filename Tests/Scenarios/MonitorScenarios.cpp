#include "Engine/AppMonitor.h"
#include "Scenarios/EngineScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Monitors : public EngineScenario {};

TEST_F(Monitors, OneForEachRegularApplicationWhoseRuleAsksForIt) {
    desktop.launch("org.example.A", "A");
    desktop.launch(std::nullopt, "Unknown");
    desktop.launch("org.example.Panel", "Panel", {.policy = ActivationPolicy::accessory});
    desktop.launch("com.apple.dock", "Dock");
    desktop.launch("org.example.Own", "Own", {.pid = desktop.workspace().ownPID});
    engine().reconcile("too early");
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    engine().start();
    engine().start();
    EXPECT_EQ(engine().monitoredCount.get(), 1);
    EXPECT_EQ(log.count("engine started; monitoring 1 apps"), 1U);

    desktop.settle();
    auto& late = desktop.launch("org.example.B", "B");
    desktop.advance(0.4);
    EXPECT_EQ(engine().monitoredCount.get(), 1);
    desktop.advance(0.2);
    EXPECT_EQ(engine().monitoredCount.get(), 2);
    late.crash();
    desktop.settle();
    EXPECT_EQ(engine().monitoredCount.get(), 1);
}

TEST_F(Monitors, NoneUnderTheNameOfAnApplicationWhoseProcessIdItGot) {
    start();
    setRule("org.example.Kept", false);
    auto& old = desktop.launch("org.example.A", "A");
    desktop.advance(0.3);
    old.crash();
    auto& kept = desktop.launch("org.example.Kept", "Kept", {.pid = old.processIdentifier()});
    kept.openWindow();
    desktop.advance(1);
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    kept.closeWindows();
    desktop.advance(10);
    EXPECT_THAT(terminated(), IsEmpty());
}

TEST_F(Monitors, ABurstOfRuleChangesIsReconciledOnceAfterTheLast) {
    auto& app = desktop.launch("org.example.A", "A");
    app.openWindow();
    start();
    setRule("org.example.A", true);
    desktop.advance(0.15);
    setRule("org.example.A", false);
    desktop.advance(0.19);
    EXPECT_THAT(engineLines(), IsEmpty());
    desktop.advance(0.02);
    EXPECT_THAT(engineLines(), ElementsAre("reconcile (rules-changed): +0 -1 monitors; total 0"));
    setRule("org.example.A", false);
    desktop.advance(1);
    EXPECT_THAT(engineLines(), IsEmpty()) << "a change with nothing to do says nothing";
    setRule("org.example.A", true);
    desktop.advance(1);
    EXPECT_EQ(engine().monitoredCount.get(), 1);
}

TEST_F(Monitors, RecreatedMoreSlowlyAfterEachFailureUntilItGivesUp) {
    log.expectError("copy windows -> cannotComplete (-25204) for org.example.Editor; requesting recreate");
    log.expectError("giving up on monitor for org.example.Editor pid");
    start();
    auto& app = launchWithWindow();
    app.accessibility.failReads(AXError::cannotComplete);
    app.openWindow();
    desktop.advance(60);
    const auto pid = std::to_string(app.processIdentifier());
    const auto attempt = [&](const char* which, const char* delay) {
        return "recreating monitor for org.example.Editor pid " + pid + " (attempt " + which + "/5, in " + delay + "s)";
    };
    const auto added = "monitor added org.example.Editor pid " + pid + "; total 1";
    EXPECT_THAT(engineLines(),
                ElementsAre(attempt("1", "0.500000"), added, attempt("2", "1.000000"), added, attempt("3", "2.000000"),
                            added, attempt("4", "4.000000"), added, attempt("5", "8.000000"), added,
                            "giving up on monitor for org.example.Editor pid " + pid +
                                " after 5 failed recreates — app left unmonitored (fail open)"));
    EXPECT_EQ(engine().monitoredCount.get(), 0);

    app.accessibility.clear();
    setRule("org.example.Other", true);
    desktop.advance(1);
    EXPECT_EQ(engine().monitoredCount.get(), 1) << "a change of rules brings it back";
}

TEST_F(Monitors, AHealthyMinuteEndsTheStreakAndTheEndOfTheApplicationToo) {
    log.expectError("cannotComplete (-25204)");
    start();
    auto& app = launchWithWindow();
    const auto fail = [&] {
        app.accessibility.failReads(AXError::cannotComplete, 1);
        app.openWindow();
        desktop.advance(12);
    };
    fail();
    fail();
    EXPECT_TRUE(log.contains("(attempt 2/5"));
    desktop.advance(61);
    log.clear();
    fail();
    EXPECT_TRUE(log.contains("(attempt 1/5"));

    app.accessibility.failReads(AXError::cannotComplete);
    app.closeWindows();
    app.crash();
    desktop.advance(60);
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    EXPECT_EQ(log.count("giving up"), 0U);
}

class AMonitor : public EngineScenario {
protected:
    std::shared_ptr<AppMonitor> make(simulated::SimulatedApplication& app) {
        auto monitor = AppMonitor::make(desktop, house().settings, {}, app.processIdentifier(), "org.example.A");
        if (monitor) {
            monitor->onCountChange = [this](AppMonitor&) {
                ++changes;
            };
            monitor->onAXFailure = [this](AppMonitor&) {
                ++failures;
            };
            monitor->attachWithRetry(0);
            desktop.settle();
            log.clear();
        }
        return monitor;
    }

    int changes = 0;
    int failures = 0;
};

TEST_F(AMonitor, CountsOnceForABurstAndNamesItsLastEvent) {
    auto& app = desktop.launch("org.example.A", "A");
    desktop.settle();
    const auto monitor = make(app);
    for (int i = 0; i < 5; ++i) {
        app.openWindow();
    }
    app.minimise(app.windows().front().id);
    app.restore(app.windows().front().id);
    desktop.settle();
    EXPECT_EQ(changes, 1);
    EXPECT_THAT(log.texts("monitor"),
                ElementsAre("org.example.A windows 0->5 (AXFocusedWindowChanged) aboveThreshold=true"));
    EXPECT_TRUE(monitor->lastMinimizeAt()) << "though a later event names the recount";
}

TEST_F(AMonitor, TellsJumpsFromStepsForBothThresholds) {
    struct Drop {
        bool onlyWhenOneLeft;
        int from;
        int to;
        bool jump;
    };
    for (const auto& drop :
         {Drop{true, 3, 0, true}, Drop{true, 1, 0, false}, Drop{true, 3, 1, false}, Drop{false, 3, 1, true},
          Drop{false, 2, 1, false}, Drop{false, 4, 2, false}, Drop{false, 3, 0, true}}) {
        house().settings.quitOnlyWhenOneWindowLeft.set(drop.onlyWhenOneLeft);
        auto& app = desktop.launch("org.example.A", "A");
        for (int i = 0; i < drop.from; ++i) {
            app.openWindow();
        }
        desktop.settle();
        const auto monitor = make(app);
        while (static_cast<int>(app.windows().size()) > drop.to) {
            app.closeWindow(app.windows().front().id);
        }
        desktop.settle();
        EXPECT_EQ(monitor->lastDropWasJump(), drop.jump) << drop.from << " -> " << drop.to;
        app.openWindow();
        desktop.settle();
        EXPECT_FALSE(monitor->lastDropWasJump()) << "a rise clears it";
    }
}

TEST_F(AMonitor, ReadsAMissingValueAsZeroAndKeepsItsCountWithoutOne) {
    auto& app = desktop.launch("org.example.A", "A");
    app.openWindow();
    const auto monitor = make(app);
    app.accessibility.failReads(AXError::noValue, 1);
    app.openWindow();
    desktop.settle();
    EXPECT_EQ(monitor->lastCount(), 1);
    EXPECT_THAT(log.texts("monitor"), IsEmpty());
    app.accessibility.windowsMissing = true;
    EXPECT_EQ(monitor->currentWindowCount(), 0);
}

TEST_F(AMonitor, AttachesInFourPassesOrAsksForANewOne) {
    log.expectError("addNotification AXWindowCreated -> -25200 for org.example.A");
    log.expectError("attach gave up after retries for org.example.A; requesting recreate");
    auto& app = desktop.launch("org.example.A", "A");
    app.openWindow();
    app.accessibility.addNotification["AXWindowCreated"] = AXError::failure;
    app.accessibility.addNotification["AXApplicationShown"] = AXError::notificationAlreadyRegistered;
    auto monitor = make(app);
    desktop.advance(1.6);
    app.accessibility.addNotification.clear();
    desktop.advance(2);
    EXPECT_THAT(log.texts("monitor").back(), HasSubstr("attached org.example.A pid"));
    EXPECT_EQ(failures, 0);

    app.accessibility.addNotification["AXWindowCreated"] = AXError::failure;
    monitor = make(app);
    desktop.advance(3.4);
    EXPECT_EQ(failures, 0);
    desktop.advance(0.2);
    EXPECT_EQ(failures, 1);
}

TEST_F(AMonitor, CannotBeMadeWithoutAnObserver) {
    log.expectError("AXObserverCreate failed (-25204) for org.example.A");
    log.expectError("could not create monitor for org.example.A");
    auto& app = desktop.launch("org.example.A", "A");
    app.accessibility.observerCreation = AXError::cannotComplete;
    EXPECT_EQ(make(app), nullptr);
    start();
    EXPECT_EQ(engine().monitoredCount.get(), 0);
}

} // namespace
} // namespace ambrel
