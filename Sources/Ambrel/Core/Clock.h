#pragma once

#include <chrono>

namespace ambrel {

/// A span of time in seconds.
using Seconds = std::chrono::duration<double>;

/// A moment of the wall clock, in seconds since 1 January 1970 UTC.
using Date = std::chrono::time_point<std::chrono::system_clock, Seconds>;

class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override;
};

/// A clock that shows the date it was last given.
class FakeClock final : public Clock {
public:
    explicit FakeClock(Date date) : current(date) {}
    [[nodiscard]] Date now() const override { return current; }

    Date current;
};

} // namespace ambrel
