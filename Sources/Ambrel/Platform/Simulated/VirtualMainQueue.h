#pragma once

#include "Core/MainQueue.h"

namespace ambrel::simulated {

/// The main queue of a simulated day, and its clock: time passes only when a test advances it.
class VirtualMainQueue final : public MainQueue {
public:
    VirtualMainQueue();

    void async(std::function<void()> work) override;
    WorkItemRef asyncAfter(Seconds delay, std::function<void()> work) override;

    /// Lets `span` pass: runs all work due in it, in order, each at its own time.
    void advance(Seconds span);
    /// Runs what is due now, and what that work queues for now.
    void settle() { advance(Seconds(0)); }
    /// Runs due work until `holds` answers true, for at most `limit`. Answers what it answered last.
    bool advanceUntil(const std::function<bool()>& holds, Seconds limit);

    /// Starts at 2026-01-05 09:00:00 UTC.
    [[nodiscard]] const Clock& wallClock() const { return wallClock_; }
    [[nodiscard]] Date now() const { return wallClock_.now(); }
    /// Stands still while the machine sleeps, as delays do.
    [[nodiscard]] const MonotonicClock& monotonicClock() const { return monotonicClock_; }
    /// The machine sleeps for `span`: the date moves on, and nothing else.
    void sleep(Seconds span) { shiftWallClock(span); }
    /// Sets the wall clock forward or back, as a user does; delays don't notice.
    void shiftWallClock(Seconds span) { wallClock_.shift += span; }

private:
    struct Agenda;
    class Item;
    class WallClock final : public Clock {
    public:
        explicit WallClock(const Agenda& agenda) : agenda_(agenda) {}
        [[nodiscard]] Date now() const override;
        Seconds shift{0};

    private:
        const Agenda& agenda_;
    };

    class PassedTime final : public MonotonicClock {
    public:
        explicit PassedTime(const Agenda& agenda) : agenda_(agenda) {}
        [[nodiscard]] Seconds now() const override;

    private:
        const Agenda& agenda_;
    };

    [[nodiscard]] bool runNext(std::chrono::nanoseconds latest);

    std::shared_ptr<Agenda> agenda_;
    WallClock wallClock_;
    PassedTime monotonicClock_;
};

} // namespace ambrel::simulated
