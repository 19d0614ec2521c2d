#include "Platform/Simulated/VirtualMainQueue.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <mutex>
#include <optional>

namespace ambrel::simulated {

using std::chrono::nanoseconds;

namespace {

constexpr Date firstMorning =
    Date(Seconds(std::chrono::sys_days(std::chrono::year(2026) / 1 / 5).time_since_epoch())) + std::chrono::hours(9);

/// Whole nanoseconds, so that ten steps of 0.1 seconds make exactly one second. Absent for never.
std::optional<nanoseconds> span(Seconds seconds) {
    constexpr Seconds century(100.0 * 365 * 86400);
    if (!std::isfinite(seconds.count()) || seconds > century) {
        return std::nullopt;
    }
    return nanoseconds(std::llround(std::max(seconds.count(), 0.0) * 1e9));
}

} // namespace

/// Shared with the work items, which may outlive the queue. Locked, as `async` comes from any thread.
struct VirtualMainQueue::Agenda {
    using Key = std::pair<nanoseconds, std::uint64_t>;

    mutable std::mutex mutex;
    nanoseconds elapsed{0};
    std::uint64_t submissions = 0;
    std::map<Key, std::function<void()>> works;

    Key add(nanoseconds delay, std::function<void()> work) {
        const std::lock_guard lock(mutex);
        const Key key{elapsed + delay, ++submissions};
        works.emplace(key, std::move(work));
        return key;
    }

    std::function<void()> takeNext(nanoseconds latest) {
        const std::lock_guard lock(mutex);
        if (works.empty() || works.begin()->first.first > latest) {
            return nullptr;
        }
        const auto next = works.extract(works.begin());
        elapsed = std::max(elapsed, next.key().first);
        return std::move(next.mapped());
    }

    [[nodiscard]] nanoseconds now() const {
        const std::lock_guard lock(mutex);
        return elapsed;
    }
};

class VirtualMainQueue::Item final : public WorkItem {
public:
    Item(std::weak_ptr<Agenda> agenda, Agenda::Key key) : agenda_(std::move(agenda)), key_(std::move(key)) {}

    void cancel() override {
        // The work goes after the lock: it may hold this very item, or cancel others as it ends.
        decltype(Agenda::works)::node_type cancelled;
        if (const auto agenda = agenda_.lock()) {
            const std::lock_guard lock(agenda->mutex);
            cancelled = agenda->works.extract(key_);
        }
    }

private:
    std::weak_ptr<Agenda> agenda_;
    Agenda::Key key_;
};

VirtualMainQueue::VirtualMainQueue()
    : agenda_(std::make_shared<Agenda>()), wallClock_(*agenda_), monotonicClock_(*agenda_) {}

void VirtualMainQueue::async(std::function<void()> work) {
    agenda_->add(nanoseconds(0), std::move(work));
}

WorkItemRef VirtualMainQueue::asyncAfter(Seconds delay, std::function<void()> work) {
    if (const auto wait = span(delay)) {
        return std::make_shared<Item>(agenda_, agenda_->add(*wait, std::move(work)));
    }
    return std::make_shared<Item>(agenda_, Agenda::Key{nanoseconds::max(), 0});
}

bool VirtualMainQueue::runNext(nanoseconds latest) {
    const auto work = agenda_->takeNext(latest);
    if (work) {
        work();
    }
    return work != nullptr;
}

void VirtualMainQueue::advance(Seconds seconds) {
    const auto end = agenda_->now() + span(seconds).value_or(nanoseconds(0));
    while (runNext(end)) {
    }
    const std::lock_guard lock(agenda_->mutex);
    agenda_->elapsed = std::max(agenda_->elapsed, end);
}

bool VirtualMainQueue::advanceUntil(const std::function<bool()>& holds, Seconds limit) {
    const auto end = agenda_->now() + span(limit).value_or(nanoseconds(0));
    bool held = holds();
    while (!held && runNext(end)) {
        held = holds();
    }
    if (!held) {
        const std::lock_guard lock(agenda_->mutex);
        agenda_->elapsed = std::max(agenda_->elapsed, end);
    }
    return held || holds();
}

Seconds VirtualMainQueue::PassedTime::now() const {
    return agenda_.now();
}

Date VirtualMainQueue::WallClock::now() const {
    return firstMorning + Seconds(agenda_.now()) + shift;
}

} // namespace ambrel::simulated
