#include "Core/Clock.h"
#include "Platform/Linux/ThreadBackgroundQueue.h"

#include <atomic>
#include <future>
#include <memory>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {

namespace {

TEST(ThreadBackgroundQueueTests, AsksUntilItHoldsAndNoOftenerThanTold) {
    struct Case {
        int times;
        int holdsAt;
        bool expected;
        int asked;
    };
    for (const auto& [times, holdsAt, expected, asked] :
         std::vector<Case>{{5, 1, true, 1}, {5, 3, true, 3}, {5, 5, true, 5}, {5, 6, false, 5}, {0, 1, false, 0}}) {
        ThreadBackgroundQueue queue;
        std::atomic<int> count = 0;
        std::promise<bool> answer;
        const auto caller = std::this_thread::get_id();
        queue.poll(
            times, Seconds(0.001),
            [&, at = holdsAt] {
                EXPECT_NE(std::this_thread::get_id(), caller);
                return ++count == at;
            },
            [&](bool holds) { answer.set_value(holds); });
        EXPECT_EQ(answer.get_future().get(), expected);
        EXPECT_EQ(count, asked);
    }
}

TEST(ThreadBackgroundQueueTests, WaitsAfterTheLastQuestionToo) {
    ThreadBackgroundQueue queue;
    std::promise<void> answer;
    const auto begin = std::chrono::steady_clock::now();
    queue.poll(
        2, Seconds(0.02), [] { return false; }, [&](bool) { answer.set_value(); });
    answer.get_future().wait();
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(40));
}

TEST(ThreadBackgroundQueueTests, EndCutsWaitingShortAndLeavesNothingBehind) {
    constexpr int works = 50;
    const auto held = std::make_shared<int>(0);
    std::atomic<int> asked = 0;
    std::atomic<int> finished = 0;
    {
        ThreadBackgroundQueue queue;
        for (int i = 0; i < works; ++i) {
            queue.poll(
                20, Seconds(1000),
                [held, &asked] {
                    ++asked;
                    return false;
                },
                [held, &finished](bool) { ++finished; });
        }
    }
    EXPECT_LE(asked, works);
    EXPECT_EQ(finished, 0);
    EXPECT_EQ(held.use_count(), 1);
}

} // namespace

} // namespace ambrel
