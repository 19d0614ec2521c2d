#pragma once

#include "Core/MainQueue.h"

#include <functional>
#include <utility>

namespace ambrel {

/// Work that comes back at even intervals, until it is stopped or this object goes; the work itself may do either.
class RepeatingTimer {
public:
    /// `queue` must outlive this object.
    explicit RepeatingTimer(MainQueue& queue) : queue_(queue) {}
    RepeatingTimer(const RepeatingTimer&) = delete;
    RepeatingTimer& operator=(const RepeatingTimer&) = delete;
    ~RepeatingTimer() { stop(); }

    /// Takes the place of what was started before; the first time is one interval from now.
    void start(Seconds interval, std::function<void()> tick) {
        stop();
        arm(interval, std::make_shared<const std::function<void()>>(std::move(tick)));
    }
    void stop() {
        if (const auto item = std::exchange(item_, nullptr)) {
            item->cancel();
        }
    }
    [[nodiscard]] bool isRunning() const { return item_ != nullptr; }

private:
    using Tick = std::shared_ptr<const std::function<void()>>;

    void arm(Seconds interval, Tick tick) {
        item_ = queue_.asyncAfter(interval, [this, interval, tick = std::move(tick)] {
            arm(interval, tick);
            // The last word: after it this object may be gone.
            (*tick)();
        });
    }

    MainQueue& queue_;
    WorkItemRef item_;
};

} // namespace ambrel
