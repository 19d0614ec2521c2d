#include "Contract/ContractTest.h"
#include "Core/MainQueue.h"

#include <cmath>
#include <limits>
#include <thread>

namespace ambrel {
namespace {

class MainQueueContract : public ContractTest {
protected:
    MainQueue& queue = platform.mainQueue();
    std::string ran;

    std::function<void()> note(char letter) {
        return [this, letter] {
            ran += letter;
        };
    }
    [[nodiscard]] bool awaitRan(const std::string& expected) {
        return driver->waitUntil([&] { return ran.size() >= expected.size(); }) && ran == expected;
    }
};

TEST_F(MainQueueContract, RunsWorkInALaterTurnInSubmissionOrder) {
    queue.async([this] {
        ran += 'a';
        queue.async(note('c'));
        ran += 'A';
    });
    queue.async(note('b'));
    EXPECT_EQ(ran, "");
    EXPECT_TRUE(awaitRan("aAbc")) << ran;
}

TEST_F(MainQueueContract, RunsDelayedWorkByItsTimeAndThenBySubmission) {
    queue.asyncAfter(Seconds(0.06), note('d'));
    queue.asyncAfter(Seconds(0.02), note('a'));
    const auto at = platform.wallClock().now();
    queue.asyncAfter(Seconds(0.04), [this] {
        ran += 'b';
        queue.asyncAfter(Seconds(0.005), note('c'));
    });
    EXPECT_TRUE(awaitRan("abcd")) << ran;
    EXPECT_GE(platform.wallClock().now() - at, Seconds(0.059));
}

TEST_F(MainQueueContract, AnOddDelayMeansNowOrNever) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    queue.asyncAfter(Seconds(infinite), note('x'));
    queue.asyncAfter(Seconds(std::nan("")), note('y'));
    queue.asyncAfter(Seconds(1e300), note('z'));
    queue.asyncAfter(Seconds(0), note('a'));
    queue.asyncAfter(Seconds(-5), note('b'));
    EXPECT_EQ(ran, "") << "also without a delay not within the call";
    queue.asyncAfter(Seconds(0.05), note('c'));
    EXPECT_TRUE(awaitRan("abc")) << ran;
}

TEST_F(MainQueueContract, CancelledWorkDoesNotRunAndIsLetGo) {
    const auto held = std::make_shared<int>();
    const auto item = queue.asyncAfter(Seconds(0.01), [this, held] { ran += 'x'; });
    const auto never = queue.asyncAfter(Seconds(std::numeric_limits<double>::infinity()), note('x'));
    item->cancel();
    item->cancel();
    never->cancel();
    EXPECT_EQ(held.use_count(), 1) << "what cancelled work holds can go at once";

    WorkItemRef late;
    queue.asyncAfter(Seconds(0.02), [&] {
        ran += 'a';
        late->cancel();
    });
    late = queue.asyncAfter(Seconds(0.02), note('x'));
    const auto own = std::make_shared<WorkItemRef>();
    *own = queue.asyncAfter(Seconds(0.03), [this, own] {
        (*own)->cancel();
        ran += 'b';
        own->reset();
    });
    queue.asyncAfter(Seconds(0.05), note('c'));
    EXPECT_TRUE(awaitRan("abc")) << ran;
}

TEST_F(MainQueueContract, TakesWorkFromOtherThreads) {
    std::thread::id main;
    std::thread other([&] {
        for (char letter = 'a'; letter <= 'z'; ++letter) {
            queue.async(note(letter));
        }
        queue.async([&] { main = std::this_thread::get_id(); });
    });
    EXPECT_TRUE(driver->waitUntil([&] { return main != std::thread::id(); }));
    other.join();
    EXPECT_EQ(ran, "abcdefghijklmnopqrstuvwxyz");
    EXPECT_EQ(main, std::this_thread::get_id());
}

} // namespace
} // namespace ambrel
