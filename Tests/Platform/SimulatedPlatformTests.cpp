#include "Support/AmbrelTest.h"

namespace ambrel {
namespace {

using namespace simulated;

/// What the simulated desktop promises beyond the contract of every platform: the faults and answers on command.
class SimulatedPlatformTests : public AmbrelTest {
protected:
    [[nodiscard]] WindowsReading read(const SimulatedApplication& app) {
        return desktop.accessibility().createApplication(app.processIdentifier())->copyWindows();
    }
};

TEST_F(SimulatedPlatformTests, AnswersARequestToQuitAsItWasTold) {
    struct Case {
        TerminateAnswer answer;
        bool asked;
        std::size_t windowsAfterwards;
        bool ended;
    };
    const Case cases[] = {
        {Quits{Seconds(1)}, true, 0, true}, {Refuses{}, true, 1, false},        {ShowsSaveDialog{}, true, 2, false},
        {Freezes{}, true, 1, false},        {CannotBeAsked{}, false, 1, false},
    };
    for (const auto& [answer, asked, windowsAfterwards, ended] : cases) {
        auto& app = desktop.launch("org.example.Editor", "Editor");
        app.openWindow();
        app.terminateAnswer = answer;
        EXPECT_EQ(app.terminate(), asked);
        desktop.advance(0.9);
        EXPECT_FALSE(app.isTerminated());
        desktop.advance(0.2);
        EXPECT_EQ(app.isTerminated(), ended) << answer.index();
        EXPECT_EQ(app.windows().size(), windowsAfterwards) << answer.index();
        EXPECT_EQ(app.forceTerminate(), !ended);
        desktop.settle();
        EXPECT_TRUE(app.isTerminated());
        EXPECT_FALSE(app.terminate());
    }
    const auto& asked = desktop.requests().terminated;
    ASSERT_EQ(asked.size(), 4U);
    EXPECT_NEAR((asked[1].date - asked[0].date).count(), 1.1, 1e-6);
}

TEST_F(SimulatedPlatformTests, ReadsFailOnCommandAndRecover) {
    auto& app = desktop.launch("org.example.Editor", "Editor");
    const auto window = app.openWindow();
    app.accessibility.failReads(AXError::noValue, 1);
    EXPECT_EQ(read(app).code, AXError::noValue);
    EXPECT_EQ(read(app).windows->size(), 1U);

    app.accessibility.windowsMissing = true;
    EXPECT_EQ(read(app).code, AXError::success);
    EXPECT_FALSE(read(app).windows);
    app.accessibility.clear();

    app.window(window)->unreadable.subrole = true;
    EXPECT_EQ(read(app).windows->front().subrole, std::nullopt);

    desktop.accessibility().setTrusted(false);
    EXPECT_EQ(read(app).code, AXError::cannotComplete);
}

TEST_F(SimulatedPlatformTests, AnObserverOfAnEndedProcessIsDeafToTheNextOneWithItsId) {
    auto& first = desktop.launch("org.example.Editor", "Editor");
    int heard = 0;
    const auto creation =
        desktop.accessibility().createObserver(first.processIdentifier(), [&](const std::string&) { ++heard; });
    ASSERT_EQ(creation.observer->addNotification("AXWindowCreated"), AXError::success);
    first.crash();
    auto& second = desktop.launch("org.example.Player", "Player", {.pid = first.processIdentifier()});
    second.openWindow();
    desktop.settle();
    EXPECT_EQ(heard, 0);
    EXPECT_EQ(desktop.workspace().runningApplication(first.processIdentifier()).get(), &second);
}

TEST_F(SimulatedPlatformTests, OnlyWhatStaysOutOfSightForAQuarterOfASecondIsHidden) {
    auto& app = desktop.launch("org.example.Chat", "Chat");
    const auto window = app.openWindow();
    app.withdraw(window);
    desktop.advance(0.2);
    app.map(window);
    desktop.advance(1);
    EXPECT_FALSE(app.isHidden());

    app.hasTrayItem = true;
    app.closeWindow(window);
    desktop.advance(0.2);
    EXPECT_FALSE(app.isHidden());
    desktop.advance(0.1);
    EXPECT_TRUE(app.isHidden());
}

TEST_F(SimulatedPlatformTests, TheFocusFallsToTheLatestApplicationWithAWindowOnTheScreen) {
    auto& editor = desktop.launch("org.example.Editor", "Editor");
    editor.openWindow();
    auto& player = desktop.launch("org.example.Player", "Player");
    const auto window = player.openWindow();
    auto& agent = desktop.launch("org.example.Agent", "Agent");
    agent.activate();
    agent.crash();
    EXPECT_EQ(desktop.workspace().frontmostApplication().get(), &player);
    player.minimise(window);
    EXPECT_EQ(desktop.workspace().frontmostApplication().get(), &editor);
    editor.hideItself();
    EXPECT_EQ(desktop.workspace().frontmostApplication(), nullptr);
}

TEST_F(SimulatedPlatformTests, TenTenthsOfASecondAreASecond) {
    bool ran = false;
    desktop.mainQueue().asyncAfter(Seconds(1), [&] { ran = true; });
    for (int step = 0; step < 10; ++step) {
        EXPECT_FALSE(ran);
        desktop.advance(0.1);
    }
    EXPECT_TRUE(ran);
}

} // namespace
} // namespace ambrel
