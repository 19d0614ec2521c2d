#include "Contract/ContractTest.h"

#include <algorithm>

namespace ambrel {
namespace {

class WindowListContract : public ContractTest {
protected:
    /// Notes in `heard` what happens to one application's windows.
    Subscription observe(const SampleApplication& sample) {
        return windowList.observe(sample.pid(), [this](WindowEvent event) { heard.push_back(event); });
    }
    [[nodiscard]] bool isHeard(WindowEvent event) const {
        return std::find(heard.begin(), heard.end(), event) != heard.end();
    }
    [[nodiscard]] bool await(WindowEvent event) {
        return driver->waitUntil([&] { return isHeard(event); });
    }
    [[nodiscard]] bool awaitMinimised(const SampleApplication& sample, bool minimised) {
        return driver->waitUntil([&] { return windows(sample)->front().minimized == minimised; });
    }
    [[nodiscard]] std::optional<Unreadable> whyUnreadable(ProcessId pid) const {
        const auto reading = windowList.reading(pid);
        const auto* const reason = std::get_if<Unreadable>(&reading);
        return reason != nullptr ? std::optional(*reason) : std::nullopt;
    }

    std::vector<WindowEvent> heard;
};

TEST_F(WindowListContract, WindowsAreReadWithTheirKinds) {
    const auto sample = launch();
    sample->openDialog();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    auto read = *windows(*sample);
    std::sort(read.begin(), read.end(), [](const auto& a, const auto& b) { return a.kind < b.kind; });
    EXPECT_EQ(read, (std::vector{ApplicationWindow{.kind = WindowKind::standard},
                                 ApplicationWindow{.kind = WindowKind::dialog}}));
}

TEST_F(WindowListContract, AnApplicationWithoutWindowsReadsAsNoneAndAnEndedOneAsGone) {
    const auto sample = launch();
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 0));
    sample->crash();
    ASSERT_TRUE(driver->waitUntil([&] { return running(*sample) == nullptr; }));
    EXPECT_EQ(whyUnreadable(sample->pid()), Unreadable::processGone);
}

TEST_F(WindowListContract, EachWindowEventIsHeardAndTheReadAfterItShowsIt) {
    const auto sample = launch();
    driver->settle();
    const auto observer = observe(*sample);
    const auto second = sample->openWindow();
    ASSERT_TRUE(await(WindowEvent::appeared));
    EXPECT_TRUE(awaitWindows(*sample, 2));
    EXPECT_TRUE(await(WindowEvent::focused));
    sample->close(second);
    ASSERT_TRUE(await(WindowEvent::vanished));
    EXPECT_EQ(windows(*sample)->size(), 1U);
}

TEST_F(WindowListContract, AMinimisedWindowIsStillAWindow) {
    const auto sample = launch();
    driver->settle();
    const auto observer = observe(*sample);
    sample->minimise(1);
    ASSERT_TRUE(await(WindowEvent::minimized));
    EXPECT_TRUE(awaitMinimised(*sample, true));
    EXPECT_FALSE(running(*sample)->isHidden());
    EXPECT_FALSE(isHeard(WindowEvent::vanished));
    ASSERT_TRUE(awaitOffScreen(*sample));
    sample->restore(1);
    ASSERT_TRUE(await(WindowEvent::restored));
    EXPECT_TRUE(awaitMinimised(*sample, false));
}

TEST_F(WindowListContract, TheLastWindowHidesItsApplicationByWithdrawalUntilItIsDestroyed) {
    const auto sample = launch();
    driver->settle();
    const auto observer = observe(*sample);
    sample->withdraw(1);
    ASSERT_TRUE(await(WindowEvent::hidden));
    EXPECT_TRUE(isHeard(WindowEvent::withdrawn));
    EXPECT_TRUE(running(*sample)->isHidden());
    EXPECT_EQ(*windows(*sample), std::vector{ApplicationWindow{.onDesktop = false}});
    EXPECT_FALSE(isHeard(WindowEvent::vanished));
    sample->map(1);
    ASSERT_TRUE(await(WindowEvent::shown));
    EXPECT_FALSE(running(*sample)->isHidden());
    EXPECT_TRUE(windows(*sample)->front().onDesktop);

    heard.clear();
    sample->withdraw(1);
    ASSERT_TRUE(await(WindowEvent::hidden));
    sample->close(1);
    ASSERT_TRUE(await(WindowEvent::vanished));
    EXPECT_FALSE(running(*sample)->isHidden()) << "closed";
}

TEST_F(WindowListContract, AWindowWithdrawnBesideAnotherHidesNobody) {
    const auto sample = launch();
    const auto second = sample->openWindow();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    sample->withdraw(second);
    ASSERT_TRUE(driver->waitUntil([&] {
        const auto all = *windows(*sample);
        return std::count_if(all.begin(), all.end(), [](const auto& each) { return each.onDesktop; }) == 1;
    }));
    driver->settle();
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 1));
    driver->settle();
    EXPECT_FALSE(running(*sample)->isHidden());
}

TEST_F(WindowListContract, AWithdrawnDialogIsGone) {
    const auto sample = launch();
    const auto dialog = sample->openDialog();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    sample->withdraw(dialog);
    EXPECT_TRUE(awaitWindows(*sample, 1));
    driver->settle();
    EXPECT_FALSE(running(*sample)->isHidden());
}

TEST_F(WindowListContract, OnlyThatProcessIsHeardAndOnlyWhileSomeoneListens) {
    const auto sample = launch();
    const auto other = launch(player);
    driver->settle();
    int calls = 0;
    Subscription selfEnding;
    selfEnding = windowList.observe(sample->pid(), [&](WindowEvent event) {
        if (event == WindowEvent::minimized || event == WindowEvent::vanished) {
            selfEnding = {};
            ++calls;
        }
    });
    other->close(1);
    ASSERT_TRUE(awaitWindows(*other, 0));
    driver->settle();
    EXPECT_EQ(calls, 0);
    const auto second = sample->openWindow();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    sample->close(second);
    ASSERT_TRUE(driver->waitUntil([&] { return calls > 0; }));
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 0));
    driver->settle();
    EXPECT_EQ(calls, 1);
}

TEST_F(WindowListContract, WithoutAWindowManagerNothingCanBeReadAndNoWindowIsLost) {
    const auto sample = launch();
    ASSERT_TRUE(windowList.isReadable());
    driver->settle();
    const auto observer = observe(*sample);
    std::vector<bool> changes;
    const auto subscription =
        windowList.readableDidChange.subscribe([&](bool readable) { changes.push_back(readable); });

    driver->setReadable(false);
    ASSERT_TRUE(driver->waitUntil([&] { return !changes.empty(); }));
    EXPECT_FALSE(windowList.isReadable());
    EXPECT_EQ(whyUnreadable(sample->pid()), Unreadable::noWindowManager);
    driver->setReadable(true);
    ASSERT_TRUE(driver->waitUntil([&] { return changes.size() == 2; }));
    EXPECT_TRUE(awaitWindows(*sample, 1));
    driver->settle();
    EXPECT_EQ(changes, (std::vector{false, true}));
    EXPECT_FALSE(isHeard(WindowEvent::vanished));
    EXPECT_FALSE(running(*sample)->isHidden());
}

} // namespace
} // namespace ambrel
