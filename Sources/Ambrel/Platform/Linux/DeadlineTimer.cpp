#include "Platform/Linux/DeadlineTimer.h"

#include <algorithm>

#include <QSocketNotifier>

#include <sys/timerfd.h>
#include <time.h>
#include <unistd.h>

namespace ambrel {

namespace {

/// Longer than any session, and far from the end of the nanosecond counter.
constexpr Seconds longestDelay{1e9};

DeadlineTimer::Instant now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

itimerspec expiry(DeadlineTimer::Instant instant) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(instant);
    itimerspec spec{};
    spec.it_value.tv_sec = seconds.count();
    spec.it_value.tv_nsec = (instant - seconds).count();
    return spec;
}

} // namespace

DeadlineTimer::DeadlineTimer()
    : descriptor_(timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK)),
      notifier_(std::make_unique<QSocketNotifier>(descriptor_, QSocketNotifier::Read)) {
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { fire(); });
}

DeadlineTimer::~DeadlineTimer() {
    notifier_.reset();
    close(descriptor_);
}

DeadlineTimer::Key DeadlineTimer::add(Seconds delay, std::function<void()> work) {
    const auto bounded = std::clamp(delay, Seconds(0), longestDelay);
    const Key key{now() + std::chrono::ceil<Instant>(bounded), next_++};
    works_.emplace(key, std::move(work));
    arm();
    return key;
}

void DeadlineTimer::remove(const Key& key) {
    if (works_.erase(key) > 0) {
        arm();
    }
}

void DeadlineTimer::fire() {
    std::uint64_t expirations = 0;
    [[maybe_unused]] const auto bytes = read(descriptor_, &expirations, sizeof expirations);
    armed_ = Instant(0);
    const Key limit{now(), next_};
    const std::weak_ptr<const bool> alive = alive_;
    // A work may add, cancel, or run a loop of its own: nothing is held across a call. What it adds waits for
    // the next turn.
    while (!works_.empty() && works_.begin()->first < limit) {
        const auto work = works_.extract(works_.begin());
        work.mapped()();
        if (alive.expired()) {
            return;
        }
    }
    arm();
}

void DeadlineTimer::arm() {
    const auto nearest = works_.empty() ? Instant(0) : works_.begin()->first.first;
    if (nearest != armed_) {
        armed_ = nearest;
        const auto spec = expiry(nearest);
        timerfd_settime(descriptor_, TFD_TIMER_ABSTIME, &spec, nullptr);
    }
}

} // namespace ambrel
