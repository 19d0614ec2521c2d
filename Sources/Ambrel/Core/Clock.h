#pragma once

#include <chrono>
#include <cstdint>

namespace ambrel {

/// A span of time in seconds.
using Seconds = std::chrono::duration<double>;

/// A moment of the wall clock, in seconds since 1 January 1970 UTC.
using Date = std::chrono::time_point<std::chrono::system_clock, Seconds>;

/// The seconds of a date without their fraction; 0 where they are undefined or beyond 64 bits.
[[nodiscard]] std::int64_t wholeSeconds(Date date);

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
};

/// A time that only grows, and stands still while the machine sleeps: for the ages of things.
class MonotonicClock {
public:
    virtual ~MonotonicClock() = default;
    /// Since some moment in the past.
    [[nodiscard]] virtual Seconds now() const = 0;
};

class SystemMonotonicClock final : public MonotonicClock {
public:
    [[nodiscard]] Seconds now() const override;
};

/// A clock that shows the date it was last given.
class FakeClock final : public Clock {
public:
    explicit FakeClock(Date date) : current(date) {}
    [[nodiscard]] Date now() const override { return current; }

    Date current;
};

} // namespace ambrel
