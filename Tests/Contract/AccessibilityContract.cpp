#include "Contract/ContractTest.h"

#include <algorithm>

namespace ambrel {
namespace {

const char* const allNotifications[] = {"AXWindowCreated",      "AXUIElementDestroyed",   "AXFocusedWindowChanged",
                                        "AXWindowMiniaturized", "AXWindowDeminiaturized", "AXApplicationHidden",
                                        "AXApplicationShown"};

class AccessibilityContract : public ContractTest {
protected:
    /// Notes in `heard` what one application's observer is told.
    std::unique_ptr<AccessibilityObserver> observe(const SampleApplication& sample) {
        auto creation =
            accessibility.createObserver(sample.pid(), [this](const std::string& name) { heard.push_back(name); });
        EXPECT_EQ(creation.code, AXError::success);
        return std::move(creation.observer);
    }
    std::unique_ptr<AccessibilityObserver> observeAll(const SampleApplication& sample) {
        auto observer = observe(sample);
        for (const auto* name : allNotifications) {
            EXPECT_EQ(observer->addNotification(name), AXError::success);
        }
        return observer;
    }

    [[nodiscard]] bool isHeard(const std::string& name) const {
        return std::find(heard.begin(), heard.end(), name) != heard.end();
    }
    [[nodiscard]] bool awaitNotification(const std::string& name) {
        return driver->waitUntil([&] { return isHeard(name); });
    }
    [[nodiscard]] bool awaitMinimised(const SampleApplication& sample, bool minimised) {
        return driver->waitUntil([&] { return windows(sample)->front().minimized == minimised; });
    }

    std::vector<std::string> heard;
};

TEST_F(AccessibilityContract, WindowsAreReadWithTheirAttributes) {
    const auto sample = launch();
    sample->openDialog();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    auto elements = *windows(*sample);
    std::sort(elements.begin(), elements.end(), [](const auto& a, const auto& b) { return b.subrole < a.subrole; });
    for (const auto& element : elements) {
        EXPECT_EQ(element.role, "AXWindow");
        EXPECT_EQ(element.minimized, false);
    }
    EXPECT_EQ(elements[0].subrole, "AXStandardWindow");
    EXPECT_EQ(elements[1].subrole, "AXDialog");
}

TEST_F(AccessibilityContract, AnApplicationWithoutWindowsReadsAsNoneAndAnEndedOneAsNoValue) {
    const auto sample = launch();
    const auto element = accessibility.createApplication(sample->pid());
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 0));
    EXPECT_EQ(element->copyWindows().code, AXError::success);
    sample->crash();
    ASSERT_TRUE(driver->waitUntil([&] { return running(*sample) == nullptr; }));
    EXPECT_EQ(element->copyWindows().code, AXError::noValue);
    EXPECT_EQ(element->copyWindows().windows, std::nullopt);
}

TEST_F(AccessibilityContract, EachWindowEventIsHeardAndTheReadAfterItShowsIt) {
    const auto sample = launch();
    driver->settle();
    const auto observer = observeAll(*sample);
    EXPECT_EQ(observer->addNotification("AXWindowCreated"), AXError::notificationAlreadyRegistered);
    const auto second = sample->openWindow();
    ASSERT_TRUE(awaitNotification("AXWindowCreated"));
    EXPECT_TRUE(awaitWindows(*sample, 2));
    EXPECT_TRUE(awaitNotification("AXFocusedWindowChanged"));
    sample->close(second);
    ASSERT_TRUE(awaitNotification("AXUIElementDestroyed"));
    EXPECT_EQ(windows(*sample)->size(), 1U);
}

TEST_F(AccessibilityContract, AMinimisedWindowIsStillAWindow) {
    const auto sample = launch();
    driver->settle();
    const auto observer = observeAll(*sample);
    sample->minimise(1);
    ASSERT_TRUE(awaitNotification("AXWindowMiniaturized"));
    EXPECT_TRUE(awaitMinimised(*sample, true));
    EXPECT_FALSE(running(*sample)->isHidden());
    EXPECT_FALSE(isHeard("AXUIElementDestroyed"));
    ASSERT_TRUE(awaitOffScreen(*sample));
    sample->restore(1);
    ASSERT_TRUE(awaitNotification("AXWindowDeminiaturized"));
    EXPECT_TRUE(awaitMinimised(*sample, false));
}

TEST_F(AccessibilityContract, AWithdrawnWindowCountsAndMakesItsApplicationHidden) {
    const auto sample = launch();
    driver->settle();
    const auto observer = observeAll(*sample);
    sample->withdraw(1);
    ASSERT_TRUE(awaitNotification("AXApplicationHidden"));
    EXPECT_TRUE(running(*sample)->isHidden());
    EXPECT_EQ(windows(*sample)->size(), 1U);
    EXPECT_FALSE(isHeard("AXUIElementDestroyed"));
    sample->map(1);
    ASSERT_TRUE(awaitNotification("AXApplicationShown"));
    EXPECT_FALSE(running(*sample)->isHidden());
    EXPECT_EQ(windows(*sample)->size(), 1U);
}

TEST_F(AccessibilityContract, AWithdrawnDialogIsGone) {
    const auto sample = launch();
    const auto dialog = sample->openDialog();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    sample->withdraw(dialog);
    EXPECT_TRUE(awaitWindows(*sample, 1));
    driver->settle();
    EXPECT_FALSE(running(*sample)->isHidden());
}

TEST_F(AccessibilityContract, OnlyWhatWasAddedIsHeardAndOnlyOfThatProcess) {
    const auto sample = launch();
    const auto other = launch(player);
    driver->settle();
    const auto observer = observe(*sample);
    EXPECT_EQ(observer->addNotification("AXUIElementDestroyed"), AXError::success);
    other->close(other->openWindow());
    const auto window = sample->openWindow();
    ASSERT_TRUE(awaitWindows(*sample, 2));
    driver->settle();
    EXPECT_TRUE(heard.empty());

    sample->close(window);
    ASSERT_TRUE(awaitNotification("AXUIElementDestroyed"));
    EXPECT_EQ(heard.size(), 1U);
    observer->removeNotification("AXUIElementDestroyed");
    sample->close(1);
    ASSERT_TRUE(awaitWindows(*sample, 0));
    driver->settle();
    EXPECT_EQ(heard.size(), 1U);
}

TEST_F(AccessibilityContract, ADestroyedObserverIsSilentAlsoFromWithinItsCallback) {
    const auto sample = launch();
    driver->settle();
    auto silenced = observeAll(*sample);
    sample->openWindow();
    silenced.reset();
    int calls = 0;
    std::unique_ptr<AccessibilityObserver> selfEnding;
    selfEnding = std::move(accessibility
                               .createObserver(sample->pid(),
                                               [&](const std::string&) {
                                                   selfEnding.reset();
                                                   ++calls;
                                               })
                               .observer);
    ASSERT_EQ(selfEnding->addNotification("AXWindowMiniaturized"), AXError::success);
    ASSERT_EQ(selfEnding->addNotification("AXWindowDeminiaturized"), AXError::success);
    ASSERT_TRUE(awaitWindows(*sample, 2));
    sample->minimise(1);
    ASSERT_TRUE(driver->waitUntil([&] { return calls > 0; }));
    sample->close(2);
    ASSERT_TRUE(awaitWindows(*sample, 1));
    ASSERT_TRUE(awaitOffScreen(*sample));
    sample->restore(1);
    ASSERT_TRUE(awaitMinimised(*sample, false));
    driver->settle();
    EXPECT_EQ(calls, 1);
    EXPECT_TRUE(heard.empty());
}

TEST_F(AccessibilityContract, WithoutTrustNothingCanBeReadAndNoWindowIsLost) {
    const auto sample = launch();
    const auto element = accessibility.createApplication(sample->pid());
    ASSERT_TRUE(accessibility.isProcessTrusted());
    EXPECT_TRUE(accessibility.promptForTrust());
    driver->settle();
    const auto observer = observe(*sample);
    ASSERT_EQ(observer->addNotification("AXUIElementDestroyed"), AXError::success);
    std::vector<bool> changes;
    const auto subscription = accessibility.trustDidChange.subscribe([&](bool trusted) { changes.push_back(trusted); });

    driver->setTrusted(false);
    ASSERT_TRUE(driver->waitUntil([&] { return !changes.empty(); }));
    EXPECT_FALSE(accessibility.isProcessTrusted());
    EXPECT_EQ(element->copyWindows().code, AXError::cannotComplete);
    driver->setTrusted(true);
    ASSERT_TRUE(driver->waitUntil([&] { return changes.size() == 2; }));
    EXPECT_TRUE(awaitWindows(*sample, 1));
    driver->settle();
    EXPECT_EQ(changes, (std::vector{false, true}));
    EXPECT_TRUE(heard.empty());
    EXPECT_FALSE(running(*sample)->isHidden());
}

} // namespace
} // namespace ambrel
