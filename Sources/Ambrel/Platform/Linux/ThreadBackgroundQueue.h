#pragma once

#include "Platform/BackgroundQueue.h"

#include <condition_variable>
#include <mutex>

namespace ambrel {

/// One short-lived thread for each piece of work.
class ThreadBackgroundQueue final : public BackgroundQueue {
public:
    ThreadBackgroundQueue() = default;
    ThreadBackgroundQueue(const ThreadBackgroundQueue&) = delete;
    ThreadBackgroundQueue& operator=(const ThreadBackgroundQueue&) = delete;
    /// Wakes the works that wait, and returns when all threads have ended. Works that were cut short don't finish.
    ~ThreadBackgroundQueue() override;

    void poll(int times, Seconds interval, std::function<bool()> holds, std::function<void(bool)> finished) override;

private:
    struct Poll {
        int times = 0;
        Seconds interval{};
        std::function<bool()> holds;
        std::function<void(bool)> finished;
    };

    void run(const Poll& poll);
    /// False if the end came first.
    [[nodiscard]] bool sleep(Seconds interval);
    void ended();

    std::mutex mutex_;
    std::condition_variable changed_;
    int running_ = 0;
    bool ending_ = false;
};

} // namespace ambrel
