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
    log.expectError("read windows -> no window manager for org.example.Editor; requesting recreate");
    log.expectError("giving up on monitor for org.example.Editor pid");
    start();
    auto& app = launchWithWindow();
    app.faults.failReads(Unreadable::noWindowManager);
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

    app.faults.clear();
    setRule("org.example.Other", true);
    desktop.advance(1);
    EXPECT_EQ(engine().monitoredCount.get(), 1) << "a change of rules brings it back";
}

TEST_F(Monitors, AHealthyMinuteEndsTheStreakAndTheEndOfTheApplicationToo) {
    log.expectError("read windows -> no window manager");
    start();
    auto& app = launchWithWindow();
    const auto fail = [&] {
        app.faults.failReads(Unreadable::noWindowManager, 1);
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

    app.faults.failReads(Unreadable::noWindowManager);
    app.closeWindows();
    app.crash();
    desktop.advance(60);
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    EXPECT_EQ(log.count("giving up"), 0U);
}

TEST_F(Monitors, ComeBackWithTheWindowManager) {
    log.expectError("no window manager");
    log.expectError("attach gave up");
    log.expectError("giving up on monitor");
    start();
    auto& app = launchWithWindow();
    desktop.windowList().setReadable(false);
    app.openWindow();
    desktop.advance(60);
    EXPECT_EQ(engine().monitoredCount.get(), 0);
    desktop.windowList().setReadable(true);
    desktop.advance(1);
    EXPECT_EQ(engine().monitoredCount.get(), 1);
    app.closeWindows();
    desktop.advance(10);
    EXPECT_EQ(terminated().size(), 1U);
}

class AMonitor : public EngineScenario {
protected:
    std::shared_ptr<AppMonitor> make(simulated::SimulatedApplication& app) {
        auto monitor = AppMonitor::make(desktop, house().settings, {}, app.processIdentifier(), "org.example.A");
        monitor->onCountChange = [this](AppMonitor&) {
            ++changes;
        };
        monitor->onAXFailure = [this](AppMonitor&) {
            ++failures;
        };
        monitor->attachWithRetry(0);
        desktop.settle();
        log.clear();
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
    EXPECT_THAT(log.texts("monitor"), ElementsAre("org.example.A windows 0->5 (focused) aboveThreshold=true"));
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

TEST_F(AMonitor, KeepsItsCountWithoutAnAnswer) {
    auto& app = desktop.launch("org.example.A", "A");
    app.openWindow();
    const auto monitor = make(app);
    app.faults.failReads(Unreadable::processGone, 1);
    app.openWindow();
    desktop.settle();
    EXPECT_EQ(monitor->lastCount(), 1);
    EXPECT_THAT(log.texts("monitor"), IsEmpty());
}

TEST_F(AMonitor, CountsWhatKeepsAnApplication) {
    struct Case {
        const char* name;
        simulated::SimulatedWindow window;
        std::ptrdiff_t count;
        std::ptrdiff_t dialogs;
    };
    for (const auto& each : {Case{"standard", {}, 1, 0}, Case{"on another workspace", {.onOtherDesktop = true}, 1, 0},
                             Case{"withdrawn", {.withdrawn = true}, 0, 0},
                             Case{"withdrawn, maybe another's", {.withdrawn = true, .certain = false}, 1, 0},
                             Case{"dialog", {.kind = WindowKind::dialog}, 0, 1},
                             Case{"minimised dialog", {.kind = WindowKind::dialog, .minimised = true}, 1, 1},
                             Case{"palette", {.kind = WindowKind::floating}, 0, 0}}) {
        auto& app = desktop.launch("org.example.A", "A");
        app.openWindow(each.window);
        desktop.settle();
        const auto monitor = make(app);
        EXPECT_EQ(monitor->currentWindowCount(), each.count) << each.name;
        EXPECT_EQ(monitor->currentDialogs(), each.dialogs) << each.name;
    }
}

TEST_F(AMonitor, AttachesInFourPassesOrAsksForANewOne) {
    log.expectError("attach gave up after retries for org.example.A; requesting recreate");
    auto& app = desktop.launch("org.example.A", "A");
    app.openWindow();
    desktop.windowList().setReadable(false);
    auto monitor = make(app);
    desktop.advance(1.6);
    desktop.windowList().setReadable(true);
    desktop.advance(2);
    EXPECT_THAT(log.texts("monitor").back(), HasSubstr("attached org.example.A pid"));
    EXPECT_EQ(failures, 0);

    desktop.windowList().setReadable(false);
    monitor = make(app);
    desktop.advance(3.4);
    EXPECT_EQ(failures, 0);
    desktop.advance(0.2);
    EXPECT_EQ(failures, 1);
}

} // namespace
} // namespace ambrel
