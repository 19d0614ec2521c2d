#include "Core/SerialQueue.h"

#include <utility>

#include <pthread.h>

namespace ambrel {

SerialQueue::SerialQueue(std::string label) : label_(std::move(label)) {}

SerialQueue::~SerialQueue() {
    {
        const std::lock_guard lock(mutex_);
        ending_ = true;
    }
    changed_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void SerialQueue::async(std::function<void()> work) {
    {
        const std::lock_guard lock(mutex_);
        works_.push_back(std::move(work));
        if (!thread_.joinable()) {
            thread_ = std::thread([this] { run(); });
        }
    }
    // With the lock held, the thread would wake up only to wait for it.
    changed_.notify_all();
}

void SerialQueue::drain() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return works_.empty() && !busy_; });
}

void SerialQueue::run() {
    // The kernel keeps 15 characters of a thread's name.
    pthread_setname_np(pthread_self(), label_.substr(label_.rfind('.') + 1).substr(0, 15).c_str());
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ending_ || !works_.empty(); });
        if (works_.empty()) {
            return;
        }
        const auto work = std::move(works_.front());
        works_.pop_front();
        busy_ = true;
        lock.unlock();
        work();
        lock.lock();
        busy_ = false;
        changed_.notify_all();
    }
}

} // namespace ambrel
