#include "Contract/ContractTest.h"

#include <algorithm>

namespace ambrel {
namespace {

using WindowServerContract = ContractTest;

TEST_F(WindowServerContract, ListsWindowsThatAreOnTheScreenWithTheirOwner) {
    const auto sample = launch();
    ASSERT_TRUE(driver->waitUntil([&] { return onScreen(*sample).size() == 1; }));
    const auto info = onScreen(*sample).front();
    EXPECT_EQ(info.layer, 0);
    EXPECT_GT(info.alpha.value_or(1), 0.99);
    ASSERT_TRUE(info.bounds);
    EXPECT_GE(info.bounds->width, 64);
    EXPECT_GE(info.bounds->height, 64);
    EXPECT_EQ(info.kind, WindowKind::standard);
    sample->openDialog();
    EXPECT_TRUE(driver->waitUntil([&] {
        const auto all = onScreen(*sample);
        return std::any_of(all.begin(), all.end(), [](const auto& each) { return each.kind == WindowKind::dialog; });
    }));
}

TEST_F(WindowServerContract, LeavesOutWhatIsNotOnTheScreen) {
    const auto sample = launch();
    const auto awaitOnScreen = [&](std::size_t count) {
        return driver->waitUntil([&] { return onScreen(*sample).size() == count; });
    };
    ASSERT_TRUE(awaitOnScreen(1));
    sample->minimise(1);
    EXPECT_TRUE(awaitOnScreen(0));
    sample->restore(1);
    EXPECT_TRUE(awaitOnScreen(1));
    const auto second = sample->openWindow();
    EXPECT_TRUE(awaitOnScreen(2));
    sample->withdraw(1);
    EXPECT_TRUE(awaitOnScreen(1));
    sample->close(second);
    EXPECT_TRUE(awaitOnScreen(0));
    sample->map(1);
    EXPECT_TRUE(awaitOnScreen(1));
    sample->close(1);
    EXPECT_TRUE(awaitOnScreen(0));
}

TEST_F(WindowServerContract, KnowsTheDisplaysUpToALimit) {
    const auto displays = platform.windowServer().onlineDisplays(16);
    ASSERT_TRUE(displays);
    ASSERT_FALSE(displays->empty());
    EXPECT_GT(displays->front().width, 0);
    EXPECT_GT(displays->front().height, 0);
    EXPECT_EQ(platform.windowServer().onlineDisplays(1)->size(), 1U);
    EXPECT_TRUE(platform.windowServer().onlineDisplays(0)->empty());
}

} // namespace
} // namespace ambrel
