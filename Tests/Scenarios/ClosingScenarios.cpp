#include "Scenarios/EngineScenario.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace ambrel {
namespace {

using simulated::SimulatedApplication;
using simulated::Work;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// What closing, hiding and ending mean for the last window.
class Closing : public EngineScenario {};

TEST_F(Closing, ADialogKeepsItsApplicationHoweverLongAtBothThresholds) {
    start();
    for (const bool onlyAtZero : {true, false}) {
        house().settings.quitOnlyWhenOneWindowLeft.set(onlyAtZero);
        auto& app = launchWithWindow();
        const auto first = app.windows().front().id;
        if (!onlyAtZero) {
            app.openWindow();
        }
        // Elsewhere, and too small for the window server's list.
        const auto dialog =
            app.openWindow({.kind = WindowKind::dialog, .frame = {0, 0, 40, 20}, .onOtherDesktop = true});
        desktop.advance(1);
        app.closeWindow(first);
        desktop.advance(600);
        EXPECT_FALSE(app.isTerminated());
        EXPECT_THAT(decisions(), IsEmpty());
        app.closeWindow(dialog);
        desktop.advance(0.999);
        EXPECT_FALSE(app.isTerminated()) << "as if the last window had closed now";
        desktop.advance(0.002);
        EXPECT_TRUE(app.isTerminated());
        EXPECT_EQ(decisions().size(), 1U);
        std::filesystem::resize_file(house().audit.fileURL(), 0);
    }
}

TEST_F(Closing, ADialogThatOpensDuringTheWaitStopsTheQuit) {
    start();
    for (const double after : {0.3, 0.7}) {
        auto& app = launchWithWindow();
        app.closeWindows();
        desktop.advance(after);
        app.openDialog();
        desktop.advance(60);
        EXPECT_FALSE(app.isTerminated()) << after;
    }
}

TEST_F(Closing, WhatCountsIsHowTheLastWindowLeft) {
    start();
    auto& app = launchWithWindow();
    const auto first = app.windows().front().id;
    const auto second = app.openWindow();
    desktop.advance(1);
    app.withdraw(first);
    desktop.advance(5);
    app.withdraw(second);
    desktop.advance(60);
    EXPECT_FALSE(app.isTerminated()) << "hidden";
    app.closeWindow(first);
    desktop.advance(60);
    EXPECT_FALSE(app.isTerminated()) << "the other one hides it";
    app.closeWindow(second);
    desktop.advance(3);
    EXPECT_TRUE(app.isTerminated()) << "closed";

    auto& other = launchWithWindow();
    const auto kept = other.openWindow();
    desktop.advance(1);
    other.withdraw(kept);
    desktop.advance(5);
    other.closeWindow(other.windows().front().id);
    desktop.advance(3);
    EXPECT_TRUE(other.isTerminated()) << "a window withdrawn earlier holds nothing";
}

TEST_F(Closing, ATrayItemThatGoesClosesNothing) {
    start();
    auto& app = launchWithWindow();
    app.hasTrayItem = true;
    app.closeWindows();
    desktop.advance(5);
    app.hasTrayItem = false; // as with the tray itself
    desktop.advance(600);
    EXPECT_FALSE(app.isTerminated());
}

/// How long an application works after its last window, in which way, and when it ends by itself.
struct Ending {
    const char* name;
    Work work;
    double works;
    bool endsByItself;
    std::vector<std::string> decisions;
    bool isQuit;
};

TEST_F(Closing, AnApplicationAtWorkIsLeftToFinish) {
    start();
    for (const auto& ending : {Ending{"saves and ends", Work::writes, 4, true, {}, false},
                               Ending{"computes and ends", Work::computes, 30, true, {}, false},
                               Ending{"waits for a disk, then rests",
                                      Work::waitsForDisk,
                                      10,
                                      false,
                                      {"last-window terminated Editor windows=0"},
                                      true},
                               Ending{"works on and on",
                                      Work::writes,
                                      600,
                                      false,
                                      {"last-window skipped(working) org.example.Editor writing"},
                                      false}}) {
        auto& app = launchWithWindow();
        desktop.processActivity().work(app.processIdentifier(), ending.work, Seconds(ending.works));
        app.closeWindows();
        desktop.advance(ending.works - 0.1);
        EXPECT_FALSE(app.isTerminated()) << ending.name;
        if (ending.endsByItself) {
            app.crash();
        }
        desktop.advance(120);
        EXPECT_EQ(app.isTerminated(), ending.endsByItself || ending.isQuit) << ending.name;
        EXPECT_EQ(decisions(), ending.decisions) << ending.name;
        EXPECT_EQ(desktop.notificationCenter().shown.size(), ending.isQuit ? 1U : 0U) << ending.name;
        app.crash();
        desktop.settle();
        desktop.notificationCenter().shown.clear();
        std::filesystem::resize_file(house().audit.fileURL(), 0);
    }
}

TEST_F(Closing, AnApplicationKeptAtWorkIsQuitAfterItsNextWindow) {
    start();
    auto& app = launchWithWindow();
    desktop.processActivity().work(app.processIdentifier(), Work::computes, Seconds(100));
    app.closeWindows();
    desktop.advance(200);
    EXPECT_FALSE(app.isTerminated());
    app.openWindow();
    desktop.advance(1);
    app.closeWindows();
    desktop.advance(1);
    EXPECT_TRUE(app.isTerminated());
}

TEST_F(Closing, AnOccupiedApplicationIsHeldUntilItStops) {
    start();
    auto& app = launchWithWindow();
    auto& occupied = desktop.occupations().of;
    occupied[app.processIdentifier()] = Occupation::playing;
    app.closeWindows();
    desktop.advance(3600);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), ElementsAre("last-window skipped(playing) org.example.Editor"));
    EXPECT_LT(desktop.occupations().questions, 70) << "it is asked about ever more rarely";
    occupied.clear();
    desktop.advance(62);
    EXPECT_EQ(terminated().size(), 1U);
    const int asked = desktop.occupations().questions;
    desktop.advance(3600);
    EXPECT_EQ(desktop.occupations().questions, asked) << "nobody is held any more";
}

TEST_F(Closing, ASilentServiceHoldsAndTheSettingAsksNone) {
    start();
    desktop.occupations().isSilent = true;
    auto& app = launchWithWindow();
    app.closeWindows();
    desktop.advance(4);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), ElementsAre("last-window skipped(no-answer) org.example.Editor"));
    house().settings.keepBusyApps.set(false);
    desktop.advance(10);
    EXPECT_EQ(terminated().size(), 1U);
}

TEST_F(Closing, OneRequestIsInFlightWhoeverBeganIt) {
    start();
    auto& app = launchWithWindow();
    app.terminateAnswer = simulated::Lingers{Seconds(30)};
    house().quitAll.run(false);
    desktop.advance(10);
    house().quitAll.run(false);
    desktop.advance(60);
    EXPECT_TRUE(app.isTerminated());
    EXPECT_THAT(decisions(), ElementsAre("quit-all terminated Editor"));
    EXPECT_EQ(terminated().size(), 1U);
    EXPECT_THAT(desktop.notificationCenter().shown, IsEmpty());
}

TEST_F(Closing, ARequestInFlightEndsWithANewWindowAMinuteOrByForce) {
    start();
    auto& reopened = launchWithWindow("org.example.Reopened");
    reopened.terminateAnswer = simulated::ShowsSaveDialog{};
    auto& slow = launchWithWindow("org.example.Slow");
    slow.terminateAnswer = simulated::Refuses{};
    house().quitAll.run(false);
    desktop.advance(1);
    reopened.closeWindows();
    slow.closeWindows();
    desktop.advance(30);
    EXPECT_EQ(decisions().back(), "last-window terminated Reopened windows=0");
    EXPECT_EQ(terminated().size(), 3U) << "the other one was asked half a minute ago";
    desktop.advance(60);
    slow.openWindow();
    desktop.advance(1);
    slow.closeWindows();
    desktop.advance(2);
    EXPECT_EQ(decisions().back(), "last-window terminated Slow windows=0");
    house().quitAll.run(true);
    desktop.settle();
    EXPECT_TRUE(slow.isTerminated());
}

TEST_F(Closing, ARepeatThatSendsNothingIsNoDecision) {
    start();
    auto& app = launchWithWindow();
    app.terminateAnswer = simulated::Refuses{};
    for (int round = 0; round < 2; ++round) {
        app.closeWindows();
        desktop.advance(70);
        app.openWindow();
        desktop.advance(1);
    }
    EXPECT_EQ(terminated().size(), 1U);
    EXPECT_THAT(decisions(), ElementsAre("last-window terminated Editor windows=0"));
    EXPECT_TRUE(log.contains("nothing sent"));
}

TEST_F(Closing, AWindowThatComesBackBeforeTheRequestIsSentDropsIt) {
    start();
    auto& app = launchWithWindow();
    app.questionTime = Seconds(3);
    app.closeWindows();
    desktop.advance(2);
    app.openWindow();
    desktop.advance(60);
    EXPECT_THAT(terminated(), IsEmpty());
    EXPECT_THAT(decisions(), IsEmpty());
    app.closeWindows();
    desktop.advance(3);
    app.openWindow();
    desktop.advance(0.1);
    app.closeWindows();
    desktop.advance(1);
    EXPECT_THAT(terminated(), IsEmpty()) << "of the window that came, none is left";
    app.openWindow();
    desktop.advance(60);
    EXPECT_THAT(decisions(), IsEmpty());
    app.closeWindows();
    desktop.advance(2);
    desktop.windowList().setReadable(false);
    desktop.advance(3);
    EXPECT_THAT(terminated(), IsEmpty()) << "nobody can tell";
    desktop.windowList().setReadable(true);
    desktop.advance(60);
    EXPECT_THAT(decisions(), IsEmpty());
}

} // namespace
} // namespace ambrel
