#include "Core/SerialQueue.h"

#include <algorithm>
#include <atomic>
#include <latch>
#include <vector>

#include <gtest/gtest.h>

namespace ambrel {
namespace {

TEST(SerialQueue, RunsEverythingInOrderAlsoWhenItEndsAtOnce) {
    std::vector<int> ran;
    {
        SerialQueue queue("app.ambrel.Ambrel.test");
        for (int i = 0; i < 1000; ++i) {
            queue.async([&ran, i] { ran.push_back(i); });
        }
    }
    ASSERT_EQ(ran.size(), 1000U);
    EXPECT_TRUE(std::is_sorted(ran.begin(), ran.end()));
}

TEST(SerialQueue, DrainWaitsForWorkThatRunsAndForWorkThatItQueues) {
    SerialQueue queue("test");
    queue.drain();
    std::latch started(1);
    std::atomic finished = false;
    queue.async([&] {
        started.count_down();
        for (int turn = 0; turn < 1000; ++turn) {
            std::this_thread::yield();
        }
        queue.async([&] { finished = true; });
    });
    started.wait();
    queue.drain();
    EXPECT_TRUE(finished);
}

} // namespace
} // namespace ambrel
