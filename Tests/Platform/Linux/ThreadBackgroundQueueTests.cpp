#include "Core/Clock.h"
#include "Platform/Linux/ThreadBackgroundQueue.h"

#include <atomic>
#include <future>
#include <memory>
#include <thread>

#include <gtest/gtest.h>

namespace ambrel {

namespace {

TEST(ThreadBackgroundQueueTests, WorksOffTheCallersThread) {
    ThreadBackgroundQueue queue;
    std::promise<std::thread::id> asker;
    std::promise<std::thread::id> teller;
    queue.poll(
        1, Seconds(0),
        [&] {
            asker.set_value(std::this_thread::get_id());
            return true;
        },
        [&](bool) { teller.set_value(std::this_thread::get_id()); });
    EXPECT_NE(asker.get_future().get(), std::this_thread::get_id());
    EXPECT_NE(teller.get_future().get(), std::this_thread::get_id());
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
