#pragma once

#include "Core/Clock.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <utility>

class QSocketNotifier;

namespace ambrel {

/// Runs works at their deadlines from the event loop, in the order of (deadline, submission). Qt's own timers
/// round to milliseconds, which is too coarse for a delay that the user chose.
class DeadlineTimer {
public:
    using Instant = std::chrono::nanoseconds; ///< of the kernel's monotonic clock
    using Key = std::pair<Instant, std::uint64_t>;

    DeadlineTimer();
    DeadlineTimer(const DeadlineTimer&) = delete;
    DeadlineTimer& operator=(const DeadlineTimer&) = delete;
    ~DeadlineTimer();

    /// A negative delay counts as zero. Work never runs inside this call.
    Key add(Seconds delay, std::function<void()> work);
    void remove(const Key& key);

private:
    void fire();
    void arm();

    int descriptor_;
    std::uint64_t next_ = 1;
    std::map<Key, std::function<void()>> works_;
    Instant armed_{0}; ///< zero while the kernel's timer is off
    std::unique_ptr<QSocketNotifier> notifier_;
    std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

} // namespace ambrel
