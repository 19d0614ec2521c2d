#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace ambrel {

/// Runs work in submission order on one thread of its own, which starts with the first work.
class SerialQueue {
public:
    /// `label` names the thread, by its last dotted part.
    explicit SerialQueue(std::string label);
    SerialQueue(const SerialQueue&) = delete;
    SerialQueue& operator=(const SerialQueue&) = delete;
    /// Finishes all queued work first.
    ~SerialQueue();

    void async(std::function<void()> work);

    /// Returns when everything queued before the call has run.
    void drain();

private:
    void run();

    std::string label_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<std::function<void()>> works_;
    bool busy_ = false;
    bool ending_ = false;
    std::thread thread_;
};

} // namespace ambrel
