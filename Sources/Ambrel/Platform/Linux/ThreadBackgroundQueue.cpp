#include "Platform/Linux/ThreadBackgroundQueue.h"

#include "Core/Logger.h"

#include <memory>
#include <system_error>
#include <utility>

#include <pthread.h>

namespace ambrel {

namespace {

constexpr Logger logger("notify");
/// Works ask and wait. The usual eight megabytes would stay reserved after each of them.
constexpr std::size_t stackBytes = std::size_t{128} * 1024;

using ThreadWork = std::function<void()>;

void* runThread(void* work) {
    (*std::unique_ptr<ThreadWork>(static_cast<ThreadWork*>(work)))();
    return nullptr;
}

/// Zero, or the number of the error.
int startThread(ThreadWork work) {
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setdetachstate(&attributes, PTHREAD_CREATE_DETACHED);
    pthread_attr_setstacksize(&attributes, stackBytes);
    auto owned = std::make_unique<ThreadWork>(std::move(work));
    pthread_t thread{};
    const int error = pthread_create(&thread, &attributes, runThread, owned.get());
    pthread_attr_destroy(&attributes);
    if (error == 0) {
        static_cast<void>(owned.release()); // the thread has it now
    }
    return error;
}

} // namespace

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
    const int error =
        startThread([this, poll = Poll{times, interval, std::move(holds), std::move(finished)}]() mutable {
            run(poll);
            // What the work holds ends with it: after the last line here this object may be gone.
            poll = {};
            ended();
        });
    if (error != 0) {
        logger.error("no thread for work in the background: {}", std::generic_category().message(error));
        ended();
    }
}

void ThreadBackgroundQueue::ended() {
    const std::lock_guard lock(mutex_);
    --running_;
    changed_.notify_all();
}

void ThreadBackgroundQueue::run(const Poll& poll) {
    for (int time = 0; time < poll.times; ++time) {
        if (poll.holds()) {
            poll.finished(true);
            return;
        }
        if (!sleep(poll.interval)) {
            return;
        }
    }
    poll.finished(false);
}

bool ThreadBackgroundQueue::sleep(Seconds interval) {
    std::unique_lock lock(mutex_);
    return !changed_.wait_for(lock, interval, [this] { return ending_; });
}

} // namespace ambrel
