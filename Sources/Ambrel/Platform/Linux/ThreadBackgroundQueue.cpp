#include "Platform/Linux/ThreadBackgroundQueue.h"

#include <thread>
#include <utility>

namespace ambrel {

ThreadBackgroundQueue::~ThreadBackgroundQueue() {
    std::unique_lock lock(mutex_);
    ending_ = true;
    changed_.notify_all();
    changed_.wait(lock, [this] { return running_ == 0; });
}

void ThreadBackgroundQueue::poll(int times, Seconds interval, std::function<bool()> holds,
                                 std::function<void(bool)> finished) {
    {
        const std::lock_guard lock(mutex_);
        ++running_;
    }
    std::thread([this, times, interval, holds = std::move(holds), finished = std::move(finished)] {
        run(times, interval, holds, finished);
        const std::lock_guard lock(mutex_);
        --running_;
        changed_.notify_all();
    }).detach();
}

void ThreadBackgroundQueue::run(int times, Seconds interval, const std::function<bool()>& holds,
                                const std::function<void(bool)>& finished) {
    for (int time = 0; time < times; ++time) {
        if (holds()) {
            finished(true);
            return;
        }
        if (!sleep(interval)) {
            return;
        }
    }
    finished(false);
}

bool ThreadBackgroundQueue::sleep(Seconds interval) {
    std::unique_lock lock(mutex_);
    return !changed_.wait_for(lock, interval, [this] { return ending_; });
}

} // namespace ambrel
