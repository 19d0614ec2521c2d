#include "Contract/ContractTest.h"
#include "Core/Clock.h"

#include <algorithm>

namespace ambrel {
namespace {

using WorkspaceContract = ContractTest;

TEST_F(WorkspaceContract, ALaunchedApplicationIsAnnouncedOnceWithItsFacts) {
    const WorkspaceEvents events(workspace);
    const auto sample = launch();
    ASSERT_TRUE(driver->waitUntil([&] { return events.find("launch", sample->pid()) != nullptr; }));
    sample->openWindow();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    driver->settle();
    const auto kinds = events.of(sample->pid());
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "launch"), 1);

    const auto app = events.find("launch", sample->pid())->app;
    EXPECT_EQ(app->bundleIdentifier(), editor.bundleIdentifier);
    EXPECT_EQ(app->localizedName(), editor.name);
    EXPECT_EQ(app->activationPolicy(), ActivationPolicy::regular);
    EXPECT_FALSE(app->isTerminated());
    EXPECT_FALSE(app->isHidden());
    ASSERT_TRUE(app->launchDate());
    EXPECT_LT(std::chrono::abs(platform.wallClock().now() - *app->launchDate()), Seconds(30));
    EXPECT_EQ(workspace.runningApplication(sample->pid()), app);
}

TEST_F(WorkspaceContract, AProgramThatIsNotInstalledHasNoIdentifierAndIsNotRegular) {
    const auto sample = launch(std::nullopt);
    EXPECT_EQ(running(*sample)->bundleIdentifier(), std::nullopt);
    EXPECT_EQ(running(*sample)->activationPolicy(), ActivationPolicy::accessory);
}

TEST_F(WorkspaceContract, LookupsFindWhatRunsAndNothingElse) {
    const auto first = launch();
    const auto second = launch();
    const auto other = launch(player);
    std::vector<ProcessId> pids;
    for (const auto& app : workspace.runningApplicationsWithBundleIdentifier(editor.bundleIdentifier)) {
        pids.push_back(app->processIdentifier());
    }
    EXPECT_EQ(pids, (std::vector{first->pid(), second->pid()}));

    const auto all = workspace.runningApplications();
    EXPECT_EQ(std::count(all.begin(), all.end(), running(*other)), 1);
    EXPECT_EQ(workspace.runningApplication(workspace.currentProcessIdentifier()), nullptr);
    EXPECT_EQ(workspace.runningApplication(0), nullptr);
    EXPECT_TRUE(workspace.runningApplicationsWithBundleIdentifier("org.example.contract.Nobody").empty());
    EXPECT_TRUE(workspace.runningApplicationsWithBundleIdentifier("").empty());
}

TEST_F(WorkspaceContract, AnEndedApplicationIsAnnouncedAndItsFactsStayReadable) {
    const WorkspaceEvents events(workspace);
    const auto sample = launch();
    const auto app = running(*sample);
    bool gone = false;
    bool lookedUp = true;
    const auto subscription = workspace.didTerminate.subscribe([&](const RunningApplicationRef& ended) {
        gone = ended->isTerminated();
        lookedUp = workspace.runningApplication(ended->processIdentifier()) != nullptr;
    });
    sample->crash();
    ASSERT_TRUE(driver->waitUntil([&] { return events.find("terminate", sample->pid()) != nullptr; }));
    EXPECT_TRUE(gone);
    EXPECT_FALSE(lookedUp) << "who is told of the end finds the application gone";
    EXPECT_EQ(events.find("terminate", sample->pid())->app, app);

    EXPECT_EQ(app->bundleIdentifier(), editor.bundleIdentifier);
    EXPECT_EQ(app->localizedName(), editor.name);
    EXPECT_TRUE(app->bundleURL());
    EXPECT_EQ(terminate(*app), QuitOutcome::gone);
    EXPECT_FALSE(app->forceTerminate());
    EXPECT_FALSE(app->hide());
    driver->settle();
    const auto kinds = events.of(sample->pid());
    EXPECT_EQ(std::count(kinds.begin(), kinds.end(), "terminate"), 1);
    EXPECT_EQ(kinds.back(), "terminate");
}

TEST_F(WorkspaceContract, FocusMovesByDeactivationThenActivation) {
    const auto first = launch();
    ASSERT_TRUE(awaitFrontmost(*first));
    driver->settle();
    const WorkspaceEvents events(workspace);
    const auto second = launch(player);
    ASSERT_TRUE(awaitFrontmost(*second));
    ASSERT_TRUE(driver->waitUntil([&] { return events.find("activate", second->pid()) != nullptr; }));
    const auto* left = events.find("deactivate", first->pid());
    ASSERT_NE(left, nullptr);
    EXPECT_LT(left, events.find("activate", second->pid()));

    second->crash();
    ASSERT_TRUE(driver->waitUntil([&] { return running(*second) == nullptr; }));
    EXPECT_TRUE(driver->waitUntil([&] {
        const auto front = workspace.frontmostApplication();
        return !front || front->processIdentifier() != second->pid();
    }));
}

TEST_F(WorkspaceContract, ADialogHoldsTheFocusForItsApplication) {
    const auto sample = launch();
    ASSERT_TRUE(awaitFrontmost(*sample));
    sample->openDialog();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    driver->settle();
    EXPECT_EQ(workspace.frontmostApplication(), running(*sample));
}

TEST_F(WorkspaceContract, AHiddenApplicationIsAnnouncedAndComesBack) {
    const WorkspaceEvents events(workspace);
    const auto sample = launch();
    const auto app = running(*sample);
    EXPECT_TRUE(app->hide());
    ASSERT_TRUE(driver->waitUntil([&] { return events.find("hide", sample->pid()) != nullptr; }));
    EXPECT_TRUE(app->isHidden());
    EXPECT_EQ(windows(*sample)->size(), 1U) << "a hidden application has its windows still";
    ASSERT_TRUE(awaitOffScreen(*sample));
    sample->show();
    EXPECT_TRUE(driver->waitUntil([&] { return !app->isHidden(); }));
    EXPECT_TRUE(driver->waitUntil([&] { return onScreen(*sample).size() == 1; }));
}

TEST_F(WorkspaceContract, AnApplicationWithoutWindowsCannotBeHidden) {
    const auto sample = launch();
    const auto app = running(*sample);
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 0));
    EXPECT_FALSE(app->hide());
    driver->settle();
    EXPECT_FALSE(app->isHidden());
}

TEST_F(WorkspaceContract, AnInstalledApplicationIsFoundAndOpened) {
    const auto installed = workspace.installedApplication(editor.bundleIdentifier);
    ASSERT_TRUE(installed);
    EXPECT_EQ(installed->displayName, editor.name);
    EXPECT_EQ(workspace.installedApplication("org.example.contract.Nobody"), std::nullopt);
    const auto all = workspace.installedApplications();
    EXPECT_EQ(std::count_if(all.begin(), all.end(),
                            [&](const auto& each) {
                                return each.bundleIdentifier == editor.bundleIdentifier && each.url == installed->url;
                            }),
              1);

    const WorkspaceEvents events(workspace);
    workspace.openApplication(installed->url);
    ASSERT_TRUE(driver->waitUntil([&] { return !events.all.empty() && events.all.front().kind == "launch"; }));
    const auto app = events.all.front().app;
    EXPECT_EQ(app->bundleIdentifier(), editor.bundleIdentifier);
    EXPECT_EQ(app->bundleURL(), installed->url) << "what was found can be opened again";
    EXPECT_TRUE(app->forceTerminate());
    EXPECT_TRUE(driver->waitUntil([&] { return app->isTerminated(); }));
}

TEST_F(WorkspaceContract, ARequestToQuitEndsAnApplicationThatAgrees) {
    const auto sample = launch();
    const auto app = running(*sample);
    EXPECT_EQ(terminate(*app, false), QuitOutcome::dropped);
    driver->settle();
    EXPECT_FALSE(app->isTerminated());
    EXPECT_EQ(terminate(*app), QuitOutcome::sent);
    EXPECT_TRUE(driver->waitUntil([&] { return app->isTerminated(); }));

    const auto windowless = launch();
    const auto other = running(*windowless);
    windowless->close(1);
    ASSERT_TRUE(awaitWindows(*windowless, 0));
    EXPECT_FALSE(other->isTerminated()) << "an application outlives its windows";
    EXPECT_EQ(terminate(*other), QuitOutcome::sent);
    EXPECT_TRUE(driver->waitUntil([&] { return other->isTerminated(); }));
}

TEST_F(WorkspaceContract, OnlyForceEndsAnApplicationThatRefuses) {
    const auto sample = launch();
    const auto app = running(*sample);
    sample->refuseToQuit();
    EXPECT_EQ(terminate(*app), QuitOutcome::sent);
    driver->settle();
    EXPECT_FALSE(app->isTerminated());
    EXPECT_EQ(windows(*sample)->size(), 1U);
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 0));
    EXPECT_EQ(terminate(*app), QuitOutcome::sent);
    EXPECT_EQ(terminate(*app), QuitOutcome::nothingSent) << "programs die of a second request to the process";
    EXPECT_TRUE(app->forceTerminate());
    EXPECT_TRUE(driver->waitUntil([&] { return app->isTerminated(); }));
}

} // namespace
} // namespace ambrel
